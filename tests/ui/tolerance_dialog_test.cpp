#include "tests/ui/form_fixture.h"
#include "ui/tol_dlg.h"

using namespace kelvro;

class ToleranceDialogTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<FormFixture> fixture_;
    TToldlg* dialog_ = nullptr;

    void type(const char* field, const QString& text) {
        auto* edit = dialog_->findChild<QLineEdit*>(field);
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    void press(const char* button) {
        QTest::mouseClick(dialog_->findChild<QPushButton*>(button), Qt::LeftButton);
        QTRY_VERIFY(!dialog_->isVisible());
    }
    const Tolerances& tolerances() { return fixture_->form().session().tolerances(); }

  private slots:
    void init() {
        fixture_ = std::make_unique<FormFixture>();
        fixture_->click("SpeedButtonTol");
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && qobject_cast<TToldlg*>(window))
                dialog_ = static_cast<TToldlg*>(window);
        }
        QVERIFY(dialog_);
    }
    void cleanup() { fixture_.reset(); }

    void theFieldsShowTheTolerancesInPercent() {
        QCOMPARE(dialog_->windowTitle(), QString("Monte-Carlo Analysis"));
        QCOMPARE(dialog_->findChild<QLineEdit*>("LTolEingabe")->text(), QString("    5.0"));
    }

    void typedTolerancesAreHeldToTheirLimits() {
        for (const auto& [text, percent] :
             {std::pair{"0", 0.1}, {"-3", 0.1}, {"50", 35.0}, {"2,5", 2.5}, {"x", 0.1}}) {
            if (!dialog_->isVisible()) fixture_->click("SpeedButtonTol");
            type("CTolEingabe", text);
            type("ZLTolEingabe", "7");
            type("RTolEingabe", "1");
            press("OKBtn");
            QCOMPARE(tolerances().capacitance, percent);
            QCOMPARE(tolerances().inductance, 5.0);
            QCOMPARE(tolerances().lineImpedance, 7.0);
            QCOMPARE(tolerances().resistance, 1.0);
        }
    }

    void cancelKeepsTheTolerances() {
        type("LTolEingabe", "20");
        press("CancelBtn");
        QCOMPARE(tolerances().inductance, 5.0);
        fixture_->click("SpeedButtonTol");
        QCOMPARE(dialog_->findChild<QLineEdit*>("LTolEingabe")->text(), QString("    5.0"));
    }
};

QTEST_MAIN(ToleranceDialogTest)
#include "tolerance_dialog_test.moc"
