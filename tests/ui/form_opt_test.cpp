#include "ui/form_opt.h"

#include <QtTest>
#include <QtWidgets>

#include "ui/design_session.h"
#include "ui/plot/plot_image.h"

using namespace kelvro;

/// The optimizer's window over a design session of its own, reports in a folder of its own.
class FormOptTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        session_ = std::make_unique<DesignSession>();
        session_->setMessageSink([this](const QString& text) { messages_ << text; });
        session_->optimizerFiles() = {folder_->filePath("opt.txt").toStdString(),
                                      folder_->filePath("opt2.csv").toStdString()};
        session_->goToPage(3);
        form_ = std::make_unique<TFormOpt>(*session_, session_->optimizer(),
                                           session_->optimizerFiles(), nullptr);
        form_->show();
        messages_.clear();
    }

    void cleanup() { form_.reset(); }

    void gradientOptionsExcludeEachOther() {
        click("CheckBoxForceSingleSidedGrad");
        click("CheckBoxForceDoubleSidedGrad");
        QVERIFY(!box("CheckBoxForceSingleSidedGrad").isChecked());
        QVERIFY(settings().local.gradient == GradientChoice::DoubleSided);
        click("CheckBoxForceDoubleSidedGrad");
        QVERIFY(settings().local.gradient == GradientChoice::Automatic);
    }

    void iterationsAreHeldToTheirRange() {
        for (const auto& [text, iterations] :
             {std::pair{"20", 20}, {"7.9", 7}, {"1k", 199}, {"-3", 1}, {"many", 1}}) {
            type("itEingabe", text);
            QCOMPARE(settings().local.maxIterations, iterations);
        }
    }

    void triggerRunsWithTheSettingsOfTheWindow() {
        type("itEingabe", "1");
        click("ButtonTrigger");
        QCOMPARE(label("LabelIterations"), QString("Actually used iterations : 1"));
        const CallCounts calls = session_->optimizer().last().calls;
        QCOMPARE(label("LabelCallsSplit"), QString("(%1 in line search and %2 in gradient)")
                                               .arg(calls.of(CallKind::LineSearch))
                                               .arg(calls.of(CallKind::Gradient)));
        QVERIFY(QFileInfo(folder_->filePath("opt.txt")).size() > 0);
        QVERIFY(!QFileInfo::exists(folder_->filePath("opt2.csv")));
        click("CheckBoxWritexls");
        click("ButtonTrigger");
        QVERIFY(QFileInfo(folder_->filePath("opt2.csv")).size() > 0);
    }

    void forcingNoOptimizationKeepsTheCalculatedComponents() {
        click("CheckBoxForceNoOpt");
        click("ButtonTrigger");
        // 2·Q/((sqrt(R1·R2) + R1)·ω) for 50 and 200 ohm, Q 5, 100 MHz
        QVERIFY(std::abs(session_->design().components[Slot::C1] * 1e12 - 106.103) < 0.001);
    }

    void twoRunsWithAnOddNumberOfIterationsAreRemarkedOn() {
        click("CheckBoxForceSingleOpt");
        type("itEingabe", "25");
        click("ButtonTrigger");
        QCOMPARE(messages_, QStringList("Better use 20, 30, 40, etc. to support reporting on 2nd "
                                        "optimization run."));
        QCOMPARE(session_->optimizer().last().runs.size(), std::size_t{2});
    }

    void defaultsResetAllButTheTable() {
        for (const char* name : {"CheckBoxForceSteepestDescent", "CheckBoxWritexls",
                                 "CheckBoxNoClampings", "CheckBoxForceSingleSidedGrad"})
            click(name);
        type("itEingabe", "5");
        click("ButtonDefaults");
        QVERIFY(!settings().local.steepestDescent && !settings().local.noClampings);
        QVERIFY(settings().local.gradient == GradientChoice::Automatic);
        QVERIFY(settings().writeTable);
        QCOMPARE(edit("itEingabe").text(), QString(" 80"));
        QCOMPARE(edit("GradEingabe").text(), QString("  10.0m"));
    }

    void historyOpensTheReportsThatExist() {
        QStringList opened;
        form_->setFileOpener([&](const QString& path) {
            opened << QFileInfo(path).fileName();
            return true;
        });
        click("ButtonHistory");
        QCOMPARE(opened, QStringList("opt.txt"));
        QVERIFY(QFile::remove(folder_->filePath("opt.txt")));
        click("ButtonHistory");
        QCOMPARE(messages_, QStringList("History file does not exist."));
    }

    void theTabsAndTheMenuChangeThePlots() {
        const auto* image = form_->findChild<PlotImage*>("ImageHistory3");
        QCOMPARE(image->picture().title, std::string("Parameter changes x-xfinal vs Iteration"));
        const auto& run = session_->optimizer().last().runs[0];
        QCOMPARE(image->picture().curves[1].y[1], run.history[1].x[1] - run.x[1]);
        form_->findChild<QAction*>("Toggledxoutput1")->trigger();
        QCOMPARE(image->picture().title, std::string("Parameter changes xi-xi+1 vs Iteration"));
        QCOMPARE(image->picture().curves[1].y[1], run.history[1].x[1] - run.history[2].x[1]);
        form_->findChild<QTabBar*>("TabControlHistory")->setCurrentIndex(1);
        QCOMPARE(image->picture().title, std::string("Normalized Parameters vs Iteration"));
        hover("ImageHistory1");
        QVERIFY(label("LabelHistory1").startsWith("i="));
    }

    void withoutARunTheWindowSaysSoAndForgetsTheOneBefore() {
        const auto* image = form_->findChild<PlotImage*>("ImageHistory1");
        const auto points = [&] { return image->picture().curves.front().y.size(); };
        QVERIFY(points() > 0);
        hover("ImageHistory1");
        QVERIFY(label("LabelHistory1").startsWith("i="));
        session_->goToPage(11);
        QCOMPARE(label("LabelIterations"), QString("This page has nothing to optimize."));
        QCOMPARE(label("LabelGoal"), QString());
        QCOMPARE(label("LabelHistory1").trimmed(), QString());
        QCOMPARE(points(), std::size_t{0});
        session_->goToPage(1);
        QVERIFY(label("LabelGoal").startsWith("Achieved goal function : "));
        session_->edit("R1", [](Design& design) { design.R1 = 1000; });  // page 1 steps up only
        QCOMPARE(label("LabelIterations"),
                 QString("The design is refused: there was nothing to optimize."));
        QCOMPARE(points(), std::size_t{0});
    }

    void aReportThatCannotBeWrittenDoesNotDecideTheDesign() {
        click("ButtonTrigger");
        const Slots components = session_->design().components;
        session_->optimizerFiles().log = "/dev/full";
        click("ButtonTrigger");
        QVERIFY(session_->design().components == components);
        QVERIFY(label("LabelGoal").startsWith("Achieved goal function : "));
        QVERIFY(
            session_->lastOptimization().reportProblem.starts_with("Cannot write \"/dev/full\": "));
    }

  private:
    OptimizerSettings& settings() { return session_->optimizer().settings; }
    QCheckBox& box(const char* name) { return *form_->findChild<QCheckBox*>(name); }
    QLineEdit& edit(const char* name) { return *form_->findChild<QLineEdit*>(name); }
    QString label(const char* name) { return form_->findChild<QLabel*>(name)->text(); }

    void click(const char* name) {
        auto* button = form_->findChild<QAbstractButton*>(name);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }

    /// Moves the mouse over an image, from another place of it than a test before left it at.
    void hover(const char* name) {
        auto* image = form_->findChild<PlotImage*>(name);
        for (const QPoint at : {QPoint(40, 40), QPoint(60, 60)}) QTest::mouseMove(image, at);
    }

    void type(const char* name, const QString& text) {
        edit(name).selectAll();
        QTest::keyClicks(&edit(name), text);
    }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<DesignSession> session_;
    std::unique_ptr<TFormOpt> form_;
    QStringList messages_;
};

QTEST_MAIN(FormOptTest)
#include "form_opt_test.moc"
