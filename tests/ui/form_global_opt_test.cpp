#include "ui/form_global_opt.h"

#include <QtTest>
#include <QtWidgets>

#include "ui/design_session.h"
#include "ui/tour_image.h"

namespace kelvro {

class FormGlobalOptTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        messages_.clear();
        session_ = std::make_unique<DesignSession>();
        session_->setMessageSink([this](const QString& text) { messages_ << text; });
        form_ = std::make_unique<TFormGlobalOpt>(*session_);
        form_->show();
        QTRY_VERIFY(!running());
    }

    void showsARunAtOnce() {
        QCOMPARE(form_->windowTitle(), "Global Optimization");
        QVERIFY(hasLabel("Number of cities: 15"));
        QVERIFY(hasLabel("City random seed: 0"));
        QVERIFY(hasLabel("Random seed: 0"));
        QVERIFY2(report().startsWith("Number of variables: 15\nStart length : "),
                 qPrintable(report()));
        QCOMPARE(image().tour(), Annealing({15, 0, 0}).finish().tour);
        QVERIFY(of<QScrollBar>("ScrollBarNr").minimum() > 4);
    }

    void everySettingStartsANewRun() {
        struct Row {
            const char* control;
            AnnealingOptions options;
        };
        for (const auto& [control, options] :
             {Row{"ScrollBarNr", {16, 0, 0}}, Row{"ScrollBarDOffsetCit", {15, 1, 0}},
              Row{"ScrollBarDOffset", {15, 0, 1}},
              Row{"CheckBoxDeterm", {15, 0, 0, Acceptance::Deterministic}},
              Row{"CheckBoxRndAccept", {15, 0, 0, Acceptance::Threshold}}}) {
            auto* widget = form_->findChild<QWidget*>(control);
            widget->setFocus();
            const bool bar = qobject_cast<QScrollBar*>(widget) != nullptr;
            QTest::keyClick(widget, bar ? Qt::Key_Right : Qt::Key_Space);
            QTRY_VERIFY(!running());
            QVERIFY2(image().tour() == Annealing(options).finish().tour, control);
            QTest::mouseClick(&of<QPushButton>("ButtonDefaults"), Qt::LeftButton);
            QTRY_VERIFY(!running());
            QVERIFY2(image().tour() == Annealing({15, 0, 0}).finish().tour, control);
        }
    }

    void manyRunsShowTheBestAndTheWorst() {
        of<QScrollBar>("ScrollBarNr").setValue(20);
        QVERIFY(!of<QPushButton>("ButtonBest").isEnabled());
        QTest::mouseClick(&of<QPushButton>("ButtonMC"), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!running(), 60000);
        const MonteCarloSummary runs = RunMonteCarlo({20});
        QCOMPARE(of<QProgressBar>("ProgressBarMC").value(), 81);
        QCOMPARE(of<QGroupBox>("GroupBoxReport").title(), "80 MC points");
        QStringList lines;
        for (const std::string& line : ReportLines(runs)) lines << QString::fromStdString(line);
        QCOMPARE(report(), lines.join('\n'));
        QCOMPARE(image().tour(), tourOf(runs.best));

        QTest::mouseClick(&of<QPushButton>("ButtonWorst"), Qt::LeftButton);
        QTRY_VERIFY(!running());
        QCOMPARE(image().tour(), tourOf(runs.worst));
        QTest::mouseClick(&of<QPushButton>("ButtonBest"), Qt::LeftButton);
        QTRY_VERIFY(!running());
        QCOMPARE(image().tour(), tourOf(runs.best));

        // Other cities: what the many runs found no longer holds.
        of<QScrollBar>("ScrollBarDOffsetCit").setValue(1);
        QTRY_VERIFY(!running());
        QVERIFY(!of<QPushButton>("ButtonBest").isEnabled());
    }

    void cancelEndsManyRunsAndTheWindowStaysAlive() {
        of<QScrollBar>("ScrollBarNr").setValue(200);
        QTRY_VERIFY(!running());
        QTest::mouseClick(&of<QPushButton>("ButtonMC"), Qt::LeftButton);
        QTRY_VERIFY(of<QProgressBar>("ProgressBarMC").value() >= 2);
        QTest::mouseClick(&of<QPushButton>("ButtonCancel"), Qt::LeftButton);
        QVERIFY(!running());
        const int runs = of<QProgressBar>("ProgressBarMC").value();
        QVERIFY(runs < 81);
        QCOMPARE(of<QGroupBox>("GroupBoxReport").title(),
                 QString("Cancelled after %1 of 81 runs").arg(runs));
        QVERIFY(of<QPushButton>("ButtonBest").isEnabled());
    }

    void inspectionDrawsMoveByMoveUntilCancelled() {
        QTest::mouseClick(&of<QPushButton>("ButtonStep"), Qt::LeftButton);
        QVERIFY(of<QCheckBox>("CheckBoxDrawEachStep").isChecked());
        QVERIFY(running());
        const auto start = image().tour();
        QTRY_VERIFY(image().tour() != start);
        QTest::mouseClick(&of<QPushButton>("ButtonCancel"), Qt::LeftButton);
        QVERIFY(!running());
        QVERIFY(form_->isVisible());
    }

    void closingEndsWhatRuns() {
        for (const bool escape : {true, false}) {
            form_->show();
            QTest::mouseClick(&of<QPushButton>("ButtonStep"), Qt::LeftButton);
            QVERIFY(running());
            if (escape) QTest::keyClick(form_.get(), Qt::Key_Escape);
            if (!escape) QTest::mouseClick(&of<QPushButton>("ButtonClose"), Qt::LeftButton);
            QVERIFY(!form_->isVisible());
            QVERIFY(!running());
        }
    }

    void otherMethodsSayThatTheyAreMissing() {
        for (const char* name : {"RadioButtonGenetic", "RadioButtonSwarm"}) {
            messages_.clear();
            QTest::mouseClick(&of<QRadioButton>(name), Qt::LeftButton, {}, {8, 8});
            QCOMPARE(messages_, QStringList("Not yet implemented!"));
            QVERIFY(of<QRadioButton>("RadioButtonAnnealing").isChecked());
        }
    }

  private:
    template <typename Widget>
    Widget& of(const char* name) {
        return *form_->findChild<Widget*>(QLatin1String(name));
    }
    TourImage& image() { return of<TourImage>("ImageXopt"); }
    QString report() { return of<QLabel>("LabelReport").text(); }
    bool running() { return of<QPushButton>("ButtonCancel").isEnabled(); }
    bool hasLabel(const QString& text) {
        const auto labels = form_->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](QLabel* label) { return label->text() == text; });
    }
    static std::vector<int> tourOf(int seed) {
        return Annealing({20, 0, static_cast<std::uint64_t>(seed)}).finish().tour;
    }

    std::unique_ptr<DesignSession> session_;
    std::unique_ptr<TFormGlobalOpt> form_;
    QStringList messages_;
};

}  // namespace kelvro

QTEST_MAIN(kelvro::FormGlobalOptTest)
#include "form_global_opt_test.moc"
