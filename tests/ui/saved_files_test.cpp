#include <QPrinter>
#include <functional>

#include "io/project_file.h"
#include "tests/temporary_folder.h"
#include "tests/ui/form_fixture.h"
#include "tests/ui/network_fixture.h"

using namespace kelvro;

namespace {

void Click(QWidget& box, const char* button) {
    auto* found = box.findChild<QAbstractButton*>(QLatin1String(button));
    if (!found) qFatal("no button %s", button);
    found->click();
}

/// A low-pass in a project of another program's: its network is to be told from ours.
void SaveAsAnotherProgram(const QString& file, double source) {
    Project project;
    project.network.source = source;
    project.network.load = 50.0;
    if (!WriteProject(file.toStdString(), project)) qFatal("not written");
}

}  // namespace

/// What becomes of files that windows save.
class SavedFilesTest : public QObject, protected GainWindow {
    Q_OBJECT

  private slots:
    void onAFullDiskTheOldFileStaysAndOneMessageComes_data() {
        QTest::addColumn<QByteArray>("action");
        QTest::addColumn<QString>("name");
        for (const char* row :
             {"Save1 a.bmp", "SaveWMF1 a.wmf", "SaveasJPEG1 a.jpg", "SaveasGIF1 a.gif",
              "SaveasPNG1 a.png", "SaveasSVG1 a.svg", "SaveasPDF1 a.pdf", "SaveasTable1 a.TAB",
              "SaveasCSV1 a.csv", "print a.pdf", "NetworkSaveAs a.kelvro",
              "NetworkSavePicture a.svg"}) {
            const auto words = QByteArray(row).split(' ');
            QTest::addRow("%s", row) << words[0] << QString(words[1]);
        }
    }
    void onAFullDiskTheOldFileStaysAndOneMessageComes() {
        QFETCH(QByteArray, action);
        QFETCH(QString, name);
        const QTemporaryDir folder;
        const QString file = folder.filePath(name);
        Write(file, "old");
        QStringList messages;
        const auto choose = [&](QWidget& window) {
            const InDialog dialog([&](QWidget& asked) { ChooseFile(asked, file); });
            const FullDisk full;
            window.findChild<QAction*>(QLatin1String(action))->trigger();
            QVERIFY(dialog.seen());
        };
        if (action.startsWith("Network")) {
            NetworkFixture network;
            choose(*network);
            messages = network.messages;
        } else {
            openWindow();
            if (action == "print") {
                QPrinter printer;
                printer.setOutputFormat(QPrinter::PdfFormat);
                printer.setOutputFileName(file);
                const FullDisk full;
                vu_->print(printer);
            } else {
                choose(*vu_);
            }
            messages = host_->messages;
            closeWindow();
        }
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages[0].contains(file), qPrintable(messages[0]));
        QCOMPARE(ReadAll(file), QByteArray("old"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList(name));
    }

    void aProjectThatAnotherProgramHasSavedIsNotOverwrittenUnasked_data() {
        QTest::addColumn<QByteArray>("button");
        for (const char* button : {"ButtonSaveAnyway", "ButtonSaveAs", "qt_msgbox_buttonbox"})
            QTest::addRow("%s", button) << QByteArray(button);
    }
    void aProjectThatAnotherProgramHasSavedIsNotOverwrittenUnasked() {
        QFETCH(QByteArray, button);
        NetworkFixture window;
        const QString file = window.path("a.kelvro");
        SaveAsAnotherProgram(file, 50);
        QVERIFY(window->openFile(file));
        window.type("LoadEingabe", "75");
        window.trigger("NetworkSave");  // nobody has touched it: no question
        QVERIFY(!window->isWindowModified());
        window.type("LoadEingabe", "100");
        SaveAsAnotherProgram(file, 33);
        const QByteArray others = ReadAll(file);
        const QString elsewhere = window.path("b.kelvro");
        std::unique_ptr<InDialog> chosen;
        const InDialog asked([&](QWidget& box) {
            QCOMPARE(box.objectName(), QString("ChangedFileBox"));
            if (button == "qt_msgbox_buttonbox") return box.close(), void();
            if (button == "ButtonSaveAs")
                chosen = std::make_unique<InDialog>(
                    [&](QWidget& dialog) { ChooseFile(dialog, elsewhere); });
            Click(box, button);
        });
        window.trigger("NetworkSave");
        QVERIFY(asked.seen());
        QCOMPARE(ReadAll(file) == others, button != "ButtonSaveAnyway");
        const QString ours = button == "ButtonSaveAs" ? elsewhere : file;
        const auto written = ReadProject(ours.toStdString());
        const bool saved = button != "qt_msgbox_buttonbox";
        QCOMPARE(written->network.load == Impedance(100.0), saved);
        QCOMPARE(window->windowTitle().contains('*'), !saved);
        QVERIFY(window.messages.isEmpty());
        if (!saved) return;
        window.type("LoadEingabe", "120");
        window.trigger("NetworkSave");  // it is ours again: no question
        QVERIFY(ReadProject(ours.toStdString())->network.load == Impedance(120.0));
    }

    void aProjectOfALaterVersionIsLookedAtAndSavedElsewhereOnly() {
        NetworkFixture window;
        const QString file = window.path("later.kelvro");
        const QByteArray later =
            R"({"version": 2, "network": {"source": "50", "load": "75", "optics": "blue"}})";
        Write(file, later);
        QVERIFY(window->openFile(file));
        QCOMPARE(window.messages.size(), 1);
        QVERIFY2(window.messages[0].contains("later version"), qPrintable(window.messages[0]));
        QVERIFY2(window->windowTitle().contains("read-only"), qPrintable(window->windowTitle()));
        QVERIFY(window.model().network().load == Impedance(75.0));
        window.type("LoadEingabe", "100");
        // Both ask for a name; that of the file itself is refused.
        for (const char* action : {"NetworkSave", "NetworkSaveAs"}) {
            window.messages.clear();
            const InDialog dialog([&](QWidget& asked) { ChooseFile(asked, file); });
            window.trigger(action);
            QVERIFY(dialog.seen());
            QCOMPARE(window.messages.size(), 1);
            QCOMPARE(ReadAll(file), later);
            QVERIFY(window->windowTitle().contains('*'));
        }
        const QString own = window.path("own.kelvro");
        const InDialog dialog([&](QWidget& asked) { ChooseFile(asked, own); });
        window.trigger("NetworkSave");
        QVERIFY(ReadProject(own.toStdString())->network.load == Impedance(100.0));
        QVERIFY(!window->windowTitle().contains("read-only"));
        QCOMPARE(ReadAll(file), later);
    }

    void settingsThatAnotherProgramHasSavedAreNotOverwrittenUnasked() {
        FormFixture f;
        const QString file = f.configFolder() + "/a.ini";
        {
            const InDialog dialog([&](QWidget& asked) { ChooseFile(asked, file); });
            f.click("SpeedButtonINISave");
        }
        f.type("R1Eingabe", "33");
        f.choose("Save1");
        QVERIFY2(ReadAll(file).contains("R1=33.00"), ReadAll(file));
        const QByteArray others = ReadAll(file).replace("R1=33.00", "R1=44.00");
        Write(file, others);
        f.type("R1Eingabe", "55");
        for (const char* button : {"Cancel", "ButtonSaveAnyway"}) {
            QCOMPARE(ReadAll(file), others);
            const InDialog asked([&](QWidget& box) {
                QCOMPARE(box.objectName(), QString("ChangedFileBox"));
                if (qstrcmp(button, "Cancel") == 0) return box.close(), void();
                Click(box, button);
            });
            f.choose("Save1");
            QVERIFY(asked.seen());
        }
        QVERIFY2(ReadAll(file).contains("R1=55.00"), ReadAll(file));
        f.choose("Save1");
        QVERIFY(f.messages.isEmpty());
    }
};

QTEST_MAIN(SavedFilesTest)
#include "saved_files_test.moc"
