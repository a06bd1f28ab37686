// How input fields take clicks, keys and texts, and how a refusal is told.

#include <cmath>

#include "tests/ui/form_fixture.h"
#include "ui/refusal_box.h"

using namespace kelvro;

namespace {

QColor TextColour(const QLineEdit& edit) {
    return edit.palette().color(QPalette::Text);
}

/// Does something to the refusal box once it stands; the boxes that came.
class BoxAnswer {
  public:
    BoxAnswer(FormFixture& f, std::function<void(QMessageBox&)> act) {
        f.form().session().setRefusalSink([this, act](const QString& reason, bool offers) {
            reasons << reason;
            QTimer::singleShot(0, qApp, [act] {
                act(*qobject_cast<QMessageBox*>(QApplication::activeModalWidget()));
            });
            return ShowRefusalBox(reason, offers);
        });
    }
    QStringList reasons;
};

}  // namespace

class InputsTest : public QObject {
    Q_OBJECT

  private slots:
    void firstClickOrTabSelectsAll() {
        for (const int clicks : {0, 1, 2}) {
            FormFixture f;
            f.type("foEingabe", "100.433M");
            f.find("R2Eingabe").setFocus(Qt::OtherFocusReason);
            QLineEdit& fo = f.find("foEingabe");
            const QPoint within(fo.width() - 20, fo.height() / 2);
            if (clicks == 0) QTest::keyClick(&f.find("R2Eingabe"), Qt::Key_Tab);
            if (clicks > 0) QTest::mouseClick(&fo, Qt::LeftButton, {}, within);
            if (clicks > 1) QTest::mouseDClick(&fo, Qt::LeftButton, {}, within);
            QVERIFY(fo.hasFocus());
            QTest::keyClicks(&fo, "433.92M");
            QVERIFY2(f.state().fo == 433.92e6, QByteArray::number(clicks));
        }
    }

    void secondClickPlacesTheCaretBehindThePadding() {
        FormFixture f;
        QLineEdit& R2 = f.find("R2Eingabe");
        QCOMPARE(R2.text(), QString("  200.000"));
        QTest::mouseClick(&R2, Qt::LeftButton, {}, QPoint(3, R2.height() / 2));
        QVERIFY(R2.hasSelectedText());
        QTest::qWait(QApplication::doubleClickInterval() + 50);
        QTest::mouseClick(&R2, Qt::LeftButton, {}, QPoint(3, R2.height() / 2));
        QVERIFY(!R2.hasSelectedText());
        QTest::keyClicks(&R2, "3");
        QCOMPARE(f.state().R2, 3200.0);
        QTest::keyClick(&R2, Qt::Key_Home);
        QTest::keyClicks(&R2, "1");
        QCOMPARE(f.state().R2, 13200.0);
    }

    void leavingWritesBackWhatIsInUse() {
        FormFixture f;
        f.goTo(3);
        const QColor plain = f.find("foEingabe").palette().color(QPalette::Base);
        for (const auto& [edit, typed, left, hint] :
             {std::tuple{"foEingabe", "433.92 MHz", "  433.92M", ""},
              {"foEingabe", "5M", "    5.00M", ""},
              {"R2Eingabe", "1,5kOhm", "    1.50k", ""},
              {"R2Eingabe", "3k3", "    3.00k", "3.00 kΩ; \"3\" was not read"},
              {"R2Eingabe", "1,000,000", "    1.000", "1.00 Ω; \",000\" was not read"},
              {"R2Eingabe", "9M", "    1.00M", "1.00 MΩ is used instead"},
              {"R2Eingabe", "ten", "    1.00m", "1.00 mΩ; \"ten\" was not read"},
              {"QEingabe", "501", "   500.00", "500.00 is used instead"},
              {"QBEingabe", "80", "    80.00", ""}}) {
            const bool hinted = *hint != 0;
            f.type(edit, typed);
            QCOMPARE(f.text(edit), QString(typed));
            QVERIFY2((f.find(edit).palette().color(QPalette::Base) != plain) == hinted, typed);
            if (hinted) QCOMPARE(QToolTip::text(), QString::fromUtf8(hint));
            const Design design = f.state();
            QTest::keyClick(&f.find(edit), Qt::Key_Tab);
            QCOMPARE(f.text(edit), QString(left));
            QCOMPARE(f.find(edit).palette().color(QPalette::Base), plain);
            QVERIFY(f.state() == design);
        }
    }

    void digitsBeyondTheFormatStayVisible() {
        FormFixture f;
        f.type("foEingabe", "433.92345M");
        QTest::keyClick(&f.find("foEingabe"), Qt::Key_Tab);
        QCOMPARE(f.text("foEingabe").trimmed(), QString("433.92345M"));
        f.click("OK");
        QCOMPARE(f.text("foEingabe"), QString("  433.92M"));
        QCOMPARE(f.state().fo, 433.92345e6);
    }

    void refusalBoxLetsTypingGoOn() {
        for (const auto& [key, R1] :
             {std::pair{Qt::Key_0, 3000.0}, {Qt::Key_Backspace, 30.0}, {Qt::Key_Return, 300.0}}) {
            FormFixture f;
            f.goTo(1);
            int boxes = 0;
            BoxAnswer answer(f, [&boxes, key = key](QMessageBox& box) {
                QTest::keyClick(&box, ++boxes == 1 ? key : Qt::Key_Escape);
            });
            f.type("R1Eingabe", "300");
            QTRY_COMPARE(f.state().R1, R1);
            QCOMPARE(f.form().focusWidget(), &f.find("R1Eingabe"));
            QCOMPARE(answer.reasons.size(), R1 == 3000 ? 2 : 1);
        }
    }

    void refusalBoxOffersSwitchWhereThatCures() {
        FormFixture f;
        f.goTo(1);
        BoxAnswer answer(f, [](QMessageBox& box) {
            QTest::mouseClick(box.findChild<QAbstractButton*>("ButtonSwitch"), Qt::LeftButton);
        });
        f.type("R1Eingabe", "300");
        QCOMPARE(f.state().R1, 200.0);
        QCOMPARE(f.state().R2, 300.0);
        QCOMPARE(f.text("R1Eingabe"), QString("  200.000"));
        QCOMPARE(f.text("R2Eingabe"), QString("  300.000"));
        QCOMPARE(answer.reasons.size(), 1);

        bool offered = true;
        f.form().session().setRefusalSink([&](const QString&, bool offers) {
            offered = offers;
            return false;
        });
        f.type("R2Eingabe", "200");  // equal ones stay equal
        QVERIFY(!offered);
    }

    void reasonOfARefusalStaysUntilCured() {
        FormFixture f;
        f.goTo(1);
        const auto& reason = f.find<QLabel>("RefusalLabel");
        f.type("R1Eingabe", "30");
        const QString L = f.text("L1Ausgabe");
        QCOMPARE(reason.text(), QString());
        QCOMPARE(TextColour(f.find("L1Ausgabe")), QColor(Qt::black));
        QTest::keyClicks(&f.find("R1Eingabe"), "0");
        QCOMPARE(reason.text(), f.messages.value(0));
        QVERIFY(reason.text().startsWith("It must be R2>R1!"));
        QCOMPARE(f.text("L1Ausgabe"), L);
        QVERIFY(TextColour(f.find("L1Ausgabe")) != QColor(Qt::black));
        f.find("foEingabe").setFocus();
        QVERIFY(!reason.text().isEmpty());
        f.type("R1Eingabe", "20");
        QCOMPARE(reason.text(), QString());
        QCOMPARE(TextColour(f.find("L1Ausgabe")), QColor(Qt::black));
    }

    void wheelStepsAfterAClickOnly() {
        FormFixture f;
        QLineEdit& R2 = f.find("R2Eingabe");
        const auto turn = [&] {
            const QPointF at = R2.rect().center();
            QWheelEvent wheel(at, R2.mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(&R2, &wheel);
        };
        R2.setFocus(Qt::TabFocusReason);
        turn();
        QCOMPARE(f.state().R2, 200.0);
        f.find("R1Eingabe").setFocus(Qt::TabFocusReason);
        QTest::mouseClick(&R2, Qt::LeftButton);
        turn();
        QCOMPARE(f.state().R2, 210.0);
    }
};

QTEST_MAIN(InputsTest)
#include "inputs_test.moc"
