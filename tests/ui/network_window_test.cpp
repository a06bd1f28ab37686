// The Network window, driven as a user drives it.

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "network/ladder_response.h"
#include "tests/ui/network_fixture.h"
#include "ui/workbench/smith_view.h"
#include "ui/workbench/sweep_view.h"

using namespace kelvro;

namespace {

/// 100 ohm to 200 - j100 at 500 MHz, whose L section is 38.985 nH and 0.92277 pF.
constexpr double kFrequency = 500e6;

class Window : public NetworkFixture {
  public:
    Window() {
        type("SourceEingabe", "100");
        type("LoadEingabe", "200-j100");
        type("FrequencyEingabe", "500M");
    }

    /// Adds an element by its button and types its text over it.
    void addElement(const char* action, const char* text) {
        trigger(action);
        auto& list = find<QListWidget>("LadderList");
        list.setCurrentRow(list.count() - 1);
        list.editItem(list.currentItem());
        auto* editor = list.viewport()->findChild<QLineEdit*>();
        if (!editor) qFatal("the list does not edit");
        editor->selectAll();
        QTest::keyClicks(editor, QLatin1String(text));
        QTest::keyClick(editor, Qt::Key_Return);
        QTest::qWait(1);  // the editor hands its text on behind the key
    }
    void addLowPass() {
        addElement("ButtonSeriesL", "series: L1=20n");
        addElement("ButtonShuntC", "shunt: C1=0.92277p");
    }
};

}  // namespace

class NetworkWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void typedTextsBecomeTheNetwork() {
        Window window;
        window.addLowPass();
        const Network& network = window.model().network();
        QCOMPARE(network.ladder.size(), std::size_t(2));
        QCOMPARE(window.value(0), 20e-9);
        QCOMPARE(window.value(1), 0.92277e-12);
        QCOMPARE(impedance(network.load, kFrequency), std::complex<double>(200, -100));
        // Sliders carry the names that were typed behind them.
        QCOMPARE(window.find<QLabel>("SliderName2").text(), QString("C1"));
        QCOMPARE(network.designFrequency, kFrequency);
    }

    void aTextThatCannotBeReadChangesNothingAndSaysWhere() {
        Window window;
        const Network before = window.model().network();
        window.type("LoadEingabe", "200 + ");
        QCOMPARE(impedance(window.model().network().load, 1e6), std::complex<double>(200, 0));
        auto& problem = window.find<QLabel>("LoadEingabeProblem");
        QVERIFY(problem.isVisible() && problem.text().contains("column"));
        window.type("BandsEingabe", "130M:70M");
        QVERIFY(window.find<QLabel>("NetworkProblem").isVisible());
        QCOMPARE(window.model().network().bands, before.bands);
    }

    void draggingANodeTunesItsPartInOneStep() {
        Window window;
        window.addLowPass();
        SmithView& chart = window->chart();
        const QPointF from = chart.nodePosition(1);
        const auto [x, y] = chart.frame().place(0);
        QTest::mousePress(&chart, Qt::LeftButton, {}, from.toPoint());
        for (int i = 1; i <= 5; ++i) {
            const QPointF at = from + (QPointF(x, y) - from) * i / 5;
            QTest::mouseMove(&chart, at.toPoint());
            QTest::qWait(1);
        }
        QVERIFY(window.value(0) > 35e-9);
        QTest::mouseRelease(&chart, Qt::LeftButton, {}, QPoint(int(x), int(y)));
        QVERIFY(std::fabs(window.value(0) / 38.985e-9 - 1) < 0.02);
        QVERIFY(LadderResponse(window.model().network()).GT(kFrequency) > 0.999);
        QVERIFY(window.find<QAction>("NetworkUndo").text().contains("L1"));
        const Network dragged = window.model().network();
        const std::string text = FormatShortest(window.value(0));
        window.trigger("NetworkUndo");
        QCOMPARE(window.value(0), 20e-9);
        window.trigger("NetworkRedo");
        QVERIFY(window.model().network() == dragged);
        window.trigger("NetworkUndo");
        window.type("Value1", text.c_str());
        QVERIFY(window.model().network() == dragged);
    }

    void escapeTakesADragBack() {
        Window window;
        window.addLowPass();
        SmithView& chart = window->chart();
        const QPoint from = chart.nodePosition(1).toPoint();
        QTest::mousePress(&chart, Qt::LeftButton, {}, from);
        QTest::mouseMove(&chart, from + QPoint(30, -40));
        QTest::qWait(1);
        QVERIFY(window.value(0) != 20e-9);
        QTest::keyClick(&chart, Qt::Key_Escape);
        QTest::mouseRelease(&chart, Qt::LeftButton, {}, from + QPoint(30, -40));
        QCOMPARE(window.value(0), 20e-9);
        QVERIFY(!window.find<QAction>("NetworkUndo").text().contains("Drag"));
    }

    void keysWalkTheNodesAndChangeValues() {
        Window window;
        window.addLowPass();
        SmithView& chart = window->chart();
        chart.setFocus();
        // From the load: C1, then L1; the list may have chosen one before.
        window.model().select(std::nullopt);
        QTest::keyClick(&chart, Qt::Key_Tab);
        QTest::keyClick(&chart, Qt::Key_Tab);
        QVERIFY(chart.hasFocus());
        QTest::keyClick(&chart, Qt::Key_Up);
        QCOMPARE(window.value(0), 20e-9 * 1.01);
        QTest::keyClick(&chart, Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(window.value(0), 22e-9);  // the next of E24
    }

    void slidersMoveValuesAndGangedOnesTogether() {
        Window window;
        window.addLowPass();
        window.find<QCheckBox>("Gang1").click();
        window.find<QCheckBox>("Gang2").click();
        window.find<QSlider>("Slider1").setValue(250);
        const double ratio = window.value(0) / 20e-9;
        QVERIFY(ratio > 1.5);
        QVERIFY(std::fabs(window.value(1) / 0.92277e-12 / ratio - 1) < 1e-9);
        window.type("Value1", "27n");
        QCOMPARE(window.value(0), 27e-9);
    }

    void allOfASliderIsInSightHoweverManyThereAre() {
        Window window;
        Network many = window.model().network();
        for (int i = 0; i < 12; ++i) many.ladder.push_back(SeriesArm(Part::L(1e-9)));
        window.model().take("Many", many);
        const QWidget& last = window.find<QSlider>("Slider12");
        QTRY_VERIFY(last.isVisible());
        const auto* rows = window.find<QWidget>("SliderPanel").findChild<QScrollArea*>();
        QTRY_VERIFY(rows->verticalScrollBar()->maximum() > 0);
        QCOMPARE(rows->horizontalScrollBar()->maximum(), 0);
    }

    void elementsMoveAndGoByKeyboard() {
        Window window;
        window.addLowPass();
        auto& list = window.find<QListWidget>("LadderList");
        list.setCurrentRow(0);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Down, Qt::ControlModifier);
        QVERIFY(list.item(0)->text().startsWith("shunt"));
        QTest::keyClick(&list, Qt::Key_Delete);
        QCOMPARE(list.count(), 1);
        window.trigger("NetworkUndo");
        window.trigger("NetworkUndo");
        QVERIFY(list.item(0)->text().startsWith("series"));
    }

    void snapshotsStandBesideThePresentNetwork() {
        Window window;
        window.addLowPass();
        window.trigger("NetworkSnapshot");
        window.type("Value1", "39n");
        auto& table = window.find<QTableWidget>("SnapshotTable");
        QCOMPARE(table.columnCount(), 3);
        QVERIFY(table.item(3, 2)->text().contains("20n"));
        // What differs stands out.
        QVERIFY(table.item(3, 2)->font().bold() && !table.item(4, 2)->font().bold());
        auto& plot = window.find<SweepView>("Plot1");
        QCOMPARE(plot.picture().curves.size(), std::size_t(2));
        window.trigger("NetworkDark");
        QVERIFY(plot.picture().dark);
        table.item(0, 2)->setCheckState(Qt::Unchecked);
        QCOMPARE(plot.picture().curves.size(), std::size_t(1));
        // Undo brings them back as they were, with names of its own.
        table.item(0, 2)->setText("low-pass");
        QVERIFY(window.find<QAction>("NetworkUndo").text().endsWith("Rename Variant 1"));
        table.setCurrentCell(0, 2);
        window.find<QPushButton>("ButtonSnapshotDelete").click();
        QVERIFY(window.model().snapshots().empty());
        window.trigger("NetworkUndo");
        QCOMPARE(window.model().snapshots().front().name, QString("low-pass"));
        for (int i = 0; i < 3; ++i) window.trigger("NetworkUndo");
        QCOMPARE(plot.picture().curves.size(), std::size_t(2));
        QCOMPARE(window.value(0), 20e-9);
    }

    void refiningRaisesTheWorstGainAndKeepsWhatIsLocked() {
        Window window;
        window.addLowPass();
        window.type("BandsEingabe", "480M:520M");
        const double before = *window.model().worstGainDb();
        window.find<QCheckBox>("Lock2").click();
        window.trigger("NetworkRefine");
        QVERIFY(*window.model().worstGainDb() > before + 0.3);
        QCOMPARE(window.value(1), 0.92277e-12);
        QVERIFY2(window.messages.isEmpty(), qPrintable(window.messages.join('\n')));
    }

    void aProjectComesBackAsItWasWritten() {
        Window window;
        window.addLowPass();
        window.type("BandsEingabe", "480M:520M");
        const Network written = window.model().network();
        const QString file = window.path("a match.kelvro");
        AnswerFileDialog(file);
        window.trigger("NetworkSaveAs");
        QVERIFY(QFile::exists(file));
        QVERIFY(!window->windowTitle().contains('*'));
        window.type("LoadEingabe", "75");
        QVERIFY(window->windowTitle().contains('*'));
        QVERIFY(window->openFile(file));
        QVERIFY(window.model().network() == written);
        QVERIFY(!window->openFile(window.path("no such file.kelvro")));
        QCOMPARE(window.messages.size(), 1);
    }

    void whatAKilledProgramLeftIsOfferedAndThatOfARunningOneIsNot() {
        const QTemporaryDir state;
        qputenv("XDG_STATE_HOME", state.path().toLocal8Bit());
        QVERIFY(QDir(state.path()).mkdir("kelvro"));
        const QString file = state.filePath("kelvro/autosave.kelvro");
        Project project;
        project.network.source = 75.0;
        QVERIFY(WriteProject(file.toStdString(), project).ok());
        Host host;
        {
            QLockFile running(file + ".lock");
            QVERIFY(running.tryLock() && !NetworkWindow::leftBehind());
            NetworkWindow second(host);
            second.show();
            QTest::qWait(30);
            QVERIFY(QFile::exists(file) && second.model().network() == StartNetwork());
        }
        QVERIFY(NetworkWindow::leftBehind());
        NetworkWindow next(host);
        const InDialog asked([](QWidget& box) {
            dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
        });
        next.show();
        QTRY_COMPARE(next.model().network().source, Impedance(75.0));
        QVERIFY(next.windowTitle().contains('*') && QFile::exists(file));
        next.model().markSaved();
    }

    /// What was chosen or locked in another ladder is not to be looked for in the one that undo
    /// brings back.
    void undoForgetsWhatTheLadderNoLongerHas() {
        Window window;
        window.addLowPass();
        const Tunable last{1, 0, Tunable::Quantity::PartValue};
        window.model().setLocked(last, true);
        window.model().select(last);
        Network line = window.model().network();
        line.ladder = {line.ladder[0], {Transformer{2}, {}}};
        window.model().take("Other", line);
        QVERIFY(!window.model().locked(last));
        QVERIFY(!window.model().selected());
        window.trigger("NetworkUndo");
        window.model().select(last);
        window.trigger("NetworkRedo");
        window->chart().setFocus();
        QTest::keyClick(&window->chart(), Qt::Key_Up);
        QVERIFY(window.model().network() == line);
    }

    void theMenuOfAnElementOpensByKeyAndSetsLossesToleranceAndPlace() {
        Window window;
        window.addLowPass();
        auto& list = window.find<QListWidget>("LadderList");
        list.setCurrentRow(0);
        list.setFocus();
        const auto choose = [&](const QString& item) {
            QTimer::singleShot(50, [item] {
                auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                if (!menu) qFatal("no menu");
                const auto actions = menu->findChildren<QAction*>();
                const auto found = std::ranges::find_if(actions, [&](const QAction* action) {
                    return action->text().remove('&') == item;
                });
                if (found == actions.end()) qFatal("no item %s", qPrintable(item));
                (*found)->trigger();
                menu->close();
            });
            QTest::keyClick(&list, Qt::Key_Menu);
        };
        QStringList labels;
        const InDialog typed([&](QWidget& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>();
            edit->setText(labels.isEmpty() ? "Qx=3" : "Q=40@100M, ESR=0.1, SRF=3G");
            labels << dialog.findChild<QLabel*>()->text();
            QTimer::singleShot(50, &window.model(), [&labels] {
                auto* again = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
                if (!again) return;
                labels << again->labelText();
                again->setTextValue("Q=40@100M, ESR=0.1, SRF=3G");
                again->accept();
            });
            static_cast<QDialog&>(dialog).accept();
        });
        choose("Losses…");
        QCOMPARE(labels.size(), 2);
        QVERIFY2(labels.last().contains("These are no losses"), qPrintable(labels.last()));
        const Part& L1 = *PartsOf(window.model().network().ladder)[0];
        QCOMPARE(L1.value, 20e-9);
        QCOMPARE(L1.name, std::string("L1"));
        QVERIFY((L1.loss == PartLoss{PartLoss::Law::RootQ, 40, 1e8, 0.1, 3e9}));
        labels.clear();
        const InDialog percent([&](QWidget& dialog) {
            dialog.findChild<QLineEdit*>()->setText("2 %");
            static_cast<QDialog&>(dialog).accept();
        });
        choose("Tolerance…");
        QCOMPARE(PartsOf(window.model().network().ladder)[0]->tolerance, 2.0);
        QVERIFY(list.item(0)->text().contains("tol=2"));
        QVERIFY(window.find<QAction>("NetworkUndo").text().endsWith("Tolerance of L1"));
        choose("Put across");
        QVERIFY(list.item(0)->text().startsWith("shunt: L1=20n(Q=40@100M"));
    }

    /// With a real pointer and real keys, where there is a screen that takes them.
    void aRealPointerDragsANodeAndASliderAndRealKeysUndoAndSave() {
        if (QGuiApplication::platformName() != "xcb" ||
            QStandardPaths::findExecutable("xdotool").isEmpty())
            QSKIP("needs an X server and xdotool");
        Window window;
        const QString file = window.path("tuned.kelvro");
        Project project;
        project.network.source = 100.0;
        project.network.ladder = {SeriesArm(Part::L(20e-9, "L1")),
                                  ShuntArm(Part::C(0.92277e-12, "C1"))};
        project.network.load = std::complex(200.0, -100.0);
        project.network.designFrequency = kFrequency;
        QVERIFY(WriteProject(file.toStdString(), project).ok());
        QVERIFY(window->openFile(file));
        const auto screen = [](const QString& words) {
            QCOMPARE(QProcess::execute("xdotool", words.split(' ')), 0);
            QTest::qWait(60);
        };
        const auto to = [](const QWidget& widget, QPointF at) {
            const QPoint global = widget.mapToGlobal(at.toPoint());
            return QString("mousemove %1 %2").arg(global.x()).arg(global.y());
        };
        screen(QString("windowfocus --sync %1").arg(window->winId()));

        SmithView& chart = window->chart();
        const QPointF from = chart.nodePosition(1);
        screen(to(chart, from));
        screen("mousedown 1");
        for (int i = 1; i <= 20; ++i) screen(to(chart, from + QPointF(1, -1) * i));
        screen("mouseup 1");
        QVERIFY(window.value(0) != 20e-9);
        QCOMPARE(window.model().history().undoName(), std::string("Drag L1"));

        auto& slider = window.find<QSlider>("Slider2");
        QStyleOptionSlider option;
        option.initFrom(&slider);
        option.orientation = slider.orientation();
        option.minimum = slider.minimum();
        option.maximum = slider.maximum();
        option.sliderPosition = slider.sliderPosition();
        option.sliderValue = slider.value();
        const QPointF handle =
            slider.style()
                ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider)
                .center();
        screen(to(slider, handle));
        screen("mousedown 1");
        for (int i = 1; i <= 5; ++i) screen(to(slider, handle + QPointF(4 * i, 0)));
        screen("mouseup 1");
        QVERIFY(window.value(1) > 0.92277e-12);

        screen("key ctrl+z");
        QCOMPARE(window.value(1), 0.92277e-12);
        QVERIFY(window.value(0) != 20e-9);
        screen("key ctrl+s");
        QVERIFY(!window->windowTitle().contains('*'));
        const auto saved = ReadProject(file.toStdString());
        QVERIFY(saved.ok() && saved->network == window.model().network());
        screen("key ctrl+z");
        QCOMPARE(window.value(0), 20e-9);
    }

    /// What the manual says of it: 0.7 dB in the middle, matched over the band, two variants.
    void theExampleOpensAsTheManualTellsIt() {
        Window window;
        window.model().markSaved();
        window.trigger("NetworkExample");
        QVERIFY2(window.messages.isEmpty(), qPrintable(window.messages.join('\n')));
        const Network& network = window.model().network();
        const double middle = LadderResponse(network).GT(27.185e6);
        QVERIFY(std::fabs(10 * std::log10(middle) + 0.7) < 0.05);
        Network bare = network;
        bare.ladder.clear();
        QVERIFY(std::fabs(10 * std::log10(LadderResponse(bare).GT(27.185e6)) + 16.7) < 0.05);
        QVERIFY(window.model().worstGainDb() > -1.5);
        QCOMPARE(window.model().snapshots().size(), std::size_t(1));
        QVERIFY(window->file().isEmpty() && !window->windowTitle().contains('*'));
    }

    void theCommandLineSaysWhatIsOnTheScreen() {
        Window window;
        window.addLowPass();
        window.trigger("NetworkCopyCommand");
        const QString call = QApplication::clipboard()->text();
        QVERIFY2(
            call.startsWith("kelvro-cli analyze 'series: L1=") && call.contains("--source '100'"),
            qPrintable(call));
        // Data that are in no file are read from the project, once they stand there.
        window.model().markSaved();
        window.trigger("NetworkExample");
        window.trigger("NetworkCopyCommand");
        QVERIFY(window.messages.size() == 1 && QApplication::clipboard()->text() == call);
        const QString file = window.path("whip.kelvro");
        Project project;
        project.network = window.model().network();
        QVERIFY(WriteProject(file.toStdString(), project).ok() && window->openFile(file));
        QVERIFY(window->commandLine().contains("--network '" + file + '\''));
        // Its data are known to the fields by their name.
        window.type("LoadEingabe", "whip.s1p + R=1");
        QVERIFY(!window.find<QLabel>("LoadEingabeProblem").isVisible());
    }
};

QTEST_MAIN(NetworkWindowTest)
#include "network_window_test.moc"
