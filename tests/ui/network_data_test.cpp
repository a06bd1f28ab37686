// Measured data of the Network window: embedded or linked, read between samples, remarked upon.

#include <algorithm>
#include <cmath>

#include "io/json_output.h"
#include "io/project_file.h"
#include "network/coverage.h"
#include "network/ladder_response.h"
#include "network/network_text.h"
#include "tests/ui/network_fixture.h"

using namespace kelvro;

namespace {

/// A load that turns from j50 to -j50 by way of |Γ| = 1: 90° between two samples.
constexpr char kTurning[] = "# MHz S RI R 50\n90 0 0.5\n110 0 -0.5\n";

class Window : public NetworkFixture {
  public:
    Window() {
        Write(path("antenna.s1p"), kTurning);
        (*this)->openAny(path("antenna.s1p"));
        Project project;
        project.network = model().network();
        if (!WriteProject(path("a.kelvro").toStdString(), project)) qFatal("not written");
        if (!(*this)->openFile(path("a.kelvro"))) qFatal("not opened");
    }
    /// Chooses from the menu of the only measured data.
    void choose(const QString& item) {
        auto& menu = find<QMenu>("NetworkData");
        emit menu.aboutToShow();
        const auto actions = menu.findChild<QMenu*>()->actions();
        const auto found = std::ranges::find_if(actions, [&](const QAction* action) {
            return action->text().remove('&').startsWith(item);
        });
        if (found == actions.end()) qFatal("no item %s", qPrintable(item));
        (*found)->trigger();
    }
    void link(const QString& file) {
        const InDialog asked([&](QWidget& dialog) { ChooseFile(dialog, file); });
        choose("Linked to");
    }
    double resistance() { return impedance(model().network().load, 100e6).real(); }
};

}  // namespace

class NetworkDataTest : public QObject {
    Q_OBJECT

  private slots:
    void exportsWhatItsDataCover();
    void linkedDataComeFromTheFileAndUndoEmbedsThemAgain() {
        Window window;
        QVERIFY(ReadAll(window.path("a.kelvro")).contains("\"touchstone\""));
        // Γ is 0 half-way: 50 ohm. The other file has Γ 1/3 there: 100 ohm.
        QVERIFY(std::fabs(window.resistance() - 50) < 1e-9);
        Write(window.path("other.s1p"), "# MHz S RI R 50\n90 0.25 0\n110 0.4166666666666667 0\n");
        window.link(window.path("other.s1p"));
        QVERIFY(std::fabs(window.resistance() - 100) < 1e-9);
        window.trigger("NetworkSave");
        const QByteArray text = ReadAll(window.path("a.kelvro"));
        QVERIFY(text.contains("\"path\": \"other.s1p\"") && text.contains("sha256:"));
        QVERIFY(!text.contains("\"touchstone\""));
        QVERIFY(window->openFile(window.path("a.kelvro")));
        QVERIFY(window.messages.isEmpty() && std::fabs(window.resistance() - 100) < 1e-9);
        window.choose("Embedded");
        QVERIFY(window->windowTitle().contains('*'));
        window.trigger("NetworkUndo");
        QVERIFY(!window->windowTitle().contains('*') && window.model().links().size() == 1);
        // What was measured anew since then is said.
        Write(window.path("other.s1p"), "# MHz S RI R 50\n90 0 0\n110 0 0\n");
        QString told;
        const InDialog asked([&](QWidget& box) {
            told = dynamic_cast<QMessageBox&>(box).text();
            dynamic_cast<QMessageBox&>(box).button(QMessageBox::Ignore)->click();
        });
        QVERIFY(window->openFile(window.path("a.kelvro")));
        QVERIFY2(told.contains("other.s1p has changed"), qPrintable(told));
        QVERIFY(std::fabs(window.resistance() - 50) < 1e-9);
    }

    void aMissingFileIsNamedAndFound() {
        Window window;
        Write(window.path("other.s1p"), kTurning);
        window.link(window.path("other.s1p"));
        window.trigger("NetworkSave");
        QVERIFY(QFile::rename(window.path("other.s1p"), window.path("moved.s1p")));
        const QByteArray saved = ReadAll(window.path("a.kelvro"));
        QStringList told;
        const auto answer = [&](const char* button) {
            return [&told, button](QWidget& box) {
                told << dynamic_cast<QMessageBox&>(box).text();
                for (auto* one : box.findChildren<QAbstractButton*>())
                    if (one->text().remove('&').startsWith(QLatin1String(button))) one->click();
            };
        };
        {
            const InDialog asked(answer("Go On"));
            QVERIFY(window->openFile(window.path("a.kelvro")));
        }
        QVERIFY2(told.value(0).contains("antenna.s1p: there is no file"),
                 qPrintable(told.value(0)));
        QVERIFY(window.find<QLabel>("DataNotes").text().contains("antenna.s1p has no data"));
        window.type("BandsEingabe", "95M:105M");
        QCOMPARE(window.find<QLabel>("WorstText").text(), QString("no value"));
        window.trigger("NetworkUndo");
        window.trigger("NetworkSave");
        QCOMPARE(ReadAll(window.path("a.kelvro")), saved);

        const InDialog asked(answer("Locate"));
        AnswerFileDialog(window.path("moved.s1p"), 300);
        QVERIFY(window->openFile(window.path("a.kelvro")));
        QVERIFY(std::fabs(window.resistance() - 50) < 1e-9);
        QVERIFY(window->windowTitle().contains('*'));
        window.trigger("NetworkSave");
        QVERIFY(ReadAll(window.path("a.kelvro")).contains("\"path\": \"moved.s1p\""));
    }

    void aFileThatDoesNotFitIsRefused() {
        Window window;
        Write(window.path("b.s2p"), "# MHz S RI R 50\n90 0 0 1 0 1 0 0 0\n");
        for (const char* file : {"b.s2p", "a.kelvro"}) window.link(window.path(file));
        QCOMPARE(window.messages.size(), 2);
        QVERIFY(window.messages[0].contains("2 ports"));
        QVERIFY(window.model().links().empty() && !window.model().modified());
    }

    void snapshotsGhostLocksAndMarkersAreKeptInTheProject() {
        NetworkFixture window;
        window.model().edit("Ladder", [](Network& network) {
            network.ladder = {SeriesArm(Part::L(20e-9, "L1")), ShuntArm(Part::C(3e-12, "C1"))};
        });
        window.trigger("NetworkSnapshot");
        window.model().renameSnapshot(0, "low-pass");
        window.model().showSnapshot(0, false);
        window.type("Value1", "39n");
        auto& table = window.find<QTableWidget>("SnapshotTable");
        QVERIFY(table.item(3, 1)->text().contains("39n"));
        QVERIFY(table.item(3, 2)->text().contains("20n"));
        window.trigger("NetworkFreeze");
        const Tunable C1{1, 0, Tunable::Quantity::PartValue};
        window.model().setLocked(C1, true);
        window.model().addMarker(501e6);
        const NetworkDocument written = window.model().history().present();
        const QString file = window.path("variants.kelvro");
        QVERIFY(WriteProject(file.toStdString(), {}).ok() && window->openFile(file));
        QVERIFY(!window.model().ghost() && window.model().locked().empty());
        window.model().change("All", [&](NetworkDocument& next) { next = written; });
        window.trigger("NetworkSave");
        QVERIFY(!window->windowTitle().contains('*'));
        for (const auto& spoil : std::initializer_list<NetworkModel::Change>{
                 [](NetworkDocument& next) { next.snapshots.clear(); },
                 [](NetworkDocument& next) { next.ghost.reset(); },
                 [](NetworkDocument& next) { next.locked.clear(); },
                 [](NetworkDocument& next) { next.markers.clear(); }}) {
            window.model().change("Spoil", spoil);
            QVERIFY(window->windowTitle().contains('*'));
            QVERIFY(window->openFile(file));
            QVERIFY(window.model().history().present() == written);
            QVERIFY(!window->windowTitle().contains('*'));
        }
    }

    void theFormBetweenSamplesIsChosenAndKept() {
        Window window;
        window.choose("Polar");
        // |Γ| stays 0.5 on the way by +0.5 or -0.5 (half a turn either way).
        const double R = window.resistance();
        QVERIFY2(std::fabs(R - 150) < 1e-6 || std::fabs(R - 50 / 3.0) < 1e-6,
                 qPrintable(QString::number(R)));
        window.trigger("NetworkSave");
        QVERIFY(ReadAll(window.path("a.kelvro")).contains("\"polar\""));
        window.trigger("NetworkUndo");
        QVERIFY(std::fabs(window.resistance() - 50) < 1e-9);
    }

    void whatIsWrongWithTheDataInTheBandIsSaid() {
        Window window;
        auto& notes = window.find<QLabel>("DataNotes");
        QVERIFY(notes.isVisible() && notes.text().contains("turn by up to 180°"));
        window.type("BandsEingabe", "80M:100M");
        QVERIFY2(notes.text().contains("antenna.s1p covers 90"), qPrintable(notes.text()));
        window.type("LoadEingabe", "50");
        QVERIFY(!notes.isVisible());
    }

    void lossesOfAllCoilsAreOneField() {
        NetworkFixture window;
        auto& coils = window.find<QLineEdit>("CoilsEingabe");
        QVERIFY(!coils.isEnabled());
        Part small = Part::L(5e-9);
        small.loss = {.ESR = 0.1};
        window.model().edit("Ladder", [&](Network& network) {
            network.ladder = {SeriesArm(Part::L(20e-9)), ShuntArm(Part::C(3e-12)),
                              SeriesArm(small)};
        });
        QVERIFY(coils.isEnabled() && coils.text().isEmpty());
        QCOMPARE(coils.placeholderText(), QString("they differ"));
        window.type("CoilsEingabe", "Q=40@100M");
        const auto losses = [&](std::size_t i) {
            return PartsOf(window.model().network().ladder)[i]->loss;
        };
        const PartLoss wanted{PartLoss::Law::RootQ, 40, 1e8};
        QVERIFY(losses(0) == wanted && losses(1) == PartLoss() && losses(2) == wanted);
        window.type("CoilsEingabe", "Q=40@100M, Qx");
        QVERIFY(window.find<QLabel>("NetworkProblem").isVisible() && losses(0) == wanted);
        window.find<QLineEdit>("SourceEingabe").setFocus();
        QCOMPARE(coils.text(), QString("Q=40@100M"));
        QVERIFY(!window.find<QLabel>("NetworkProblem").isVisible());
        window.trigger("NetworkUndo");
        QVERIFY(losses(0) == PartLoss() && losses(2) == small.loss);
    }

    void theCopiedCommandLineGivesTheSameNumbersInAShell() {
        Window window;
        const QString file = window.path("Tom's antenna.s1p");
        Write(file, kTurning);
        window->openAny(file);
        window.model().edit("Ladder", [](Network& network) {
            network.source = std::complex(25.0, 5.0);
            network.ladder = {SeriesArm(Part::L(20e-9, "L1")), ShuntArm(Part::C(3.3e-12))};
        });
        window.choose("Polar");
        const Network& shown = window.model().network();
        const LadderResponse response(shown);
        // First by its texts, then, as the data have no file any more, by the project.
        for (const bool byFile : {true, false}) {
            if (!byFile) {
                QVERIFY(QFile::remove(file));
                window.trigger("NetworkSave");
            }
            window.trigger("NetworkCopyCommand");
            const QString call = QApplication::clipboard()->text();
            QCOMPARE(call.contains("--network"), !byFile);
            QProcess shell;
            auto environment = QProcessEnvironment::systemEnvironment();
            const QString folder = QFileInfo(QStringLiteral(KELVRO_PROGRAM)).path();
            environment.insert("PATH", folder + ':' + environment.value("PATH"));
            shell.setProcessEnvironment(environment);
            shell.start("sh", {"-c", call + " --json"});
            QVERIFY(shell.waitForFinished());
            const Json records = Json::parse(shell.readAllStandardOutput().toStdString());
            QVERIFY(records.size() > 50);
            for (const Json& record : records) {
                const double GT = response.GT(record["f"].get<double>());
                QVERIFY(std::fabs(record["gt_db"].get<double>() - 10 * std::log10(GT)) < 1e-9);
            }
        }
    }
};

void NetworkDataTest::exportsWhatItsDataCover() {
    Window window;
    window.trigger("NetworkExport");
    auto& dialog = window.find<QDialog>("NetworkExportWindow");
    auto& forms = Window::find<QComboBox>(dialog, "ComboBoxExport");
    auto& preview = Window::find<QPlainTextEdit>(dialog, "MemoExport");
    const auto choose = [&](const char* form) {
        forms.setCurrentIndex(forms.findData(form));
        emit forms.activated(forms.currentIndex());
        return preview.toPlainText();
    };
    QVERIFY(choose("listing").contains("antenna.s1p"));
    // The load has samples from 90 MHz to 110 MHz: the table does not begin before.
    QVERIFY(choose("csv").section('\n', 1, 1).startsWith("9e+07,"));
    Window::type(dialog, "ExportFromEingabe", "80M");
    QCOMPARE(preview.toPlainText(), QString());
    QVERIFY(Window::find<QLabel>(dialog, "NoteExport").text().contains("90"));
    Window::type(dialog, "ExportFromEingabe", "95M");
    QVERIFY(choose("touchstone").contains("\n# HZ S"));
    window.model().edit(
        "", [](Network& network) { network.ladder.push_back(*ParseElement("series: L=77n")); });
    QVERIFY(preview.toPlainText().contains("L=77n"));
}

QTEST_MAIN(NetworkDataTest)
#include "network_data_test.moc"
