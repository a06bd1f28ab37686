// Expressions of the calculator, and the window around them.

#include <QtTest>
#include <QtWidgets>
#include <cmath>
#include <locale>

#include "ui/tools/calculator.h"

using namespace kelvro;

namespace {

/// A locale with a decimal comma, which this machine need not have installed.
class CommaPoint : public std::numpunct<char> {
  protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

}  // namespace

class CalculatorTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { qputenv("XDG_CONFIG_HOME", config_.path().toLocal8Bit()); }
    void expressionsHaveTheirValue() {
        // The last one by hand: 1/(2pi·1.4832397e-9).
        for (const auto& [text, value] : {std::pair{"4.7k*2u", 9.4e-3},
                                          {"4,7k*2u", 9.4e-3},
                                          {"3M/3m", 1e9},
                                          {"10mil*2", 508e-6},
                                          {"2a*1A", 2e-36},
                                          {"22µ + 3\u03bc", 25e-6},
                                          {"(1+2)k", 3000},
                                          {"-2^2", -4},
                                          {"2^3^2", 512},
                                          {"log(1000)", 3},
                                          {"ln(e)", 1},
                                          {"par(20; 30; 60)", 10},
                                          {"par(20, 30, 60)", 10},
                                          {"min(1,5; 2,5)", 1.5},
                                          {"2*(1,5+1)", 5},
                                          {"dB(10)+lin(20)", 30},
                                          {"1e-3k", 1},
                                          {"c0/100M", 2.99792458},
                                          {"1 > 2 ? 3 : 4", 4},
                                          {"1/(2*pi*sqrt(100n*22p))", 107.30224074290e6}}) {
            const std::locale before;
            for (const std::locale& locale : {before, std::locale(before, new CommaPoint)}) {
                std::locale::global(locale);
                const Result<double> result = CalculatorEngine().evaluate(text);
                std::locale::global(before);
                QVERIFY2(result, text);
                QVERIFY2(std::fabs(*result - value) <= 1e-12 * std::fabs(value), text);
            }
        }
    }

    void faultyExpressionsAreToldInOneLine_data() {
        QTest::addColumn<QByteArray>("expression");
        QTest::addColumn<QString>("error");
        const auto row = [](const QByteArray& expression, const char* error) {
            QTest::addRow("%s", expression.left(20).toPercentEncoding().constData())
                << expression << QString(error);
        };
        row("2*", "The expression is not complete.");
        row("(1+2", "A closing parenthesis is missing.");
        row("foo+1", "Unknown name \"foo\".");
        row("sqrt(4,7)", "Too many arguments for \"sqrt\".");
        row("1;2", "One expression at a time.");
        row("1/0", "The result is not a finite number.");
        row("sqrt(-1)", "The result is not a finite number.");
        row("1e300*1e300", "The result is not a finite number.");
        row("2 3", "Does not belong here: \"3\".");
        row("\"text\"", "Unknown character in the expression.");
        row("1\n2", "Unknown character in the expression.");
        row(QByteArray(1001, '1'), "The expression is too long.");
        row(QByteArray(999, '('), "The expression is not complete.");
        row("ans = 3", "");
        row(")", "");
        row("par()", "");
        row("100nF", "");
        row("?:", "");
    }

    void faultyExpressionsAreToldInOneLine() {
        QFETCH(QByteArray, expression);
        QFETCH(QString, error);
        CalculatorEngine engine;
        const QString told =
            QString::fromStdString(engine.evaluate(expression.toStdString()).message());
        QVERIFY(!told.isEmpty());
        QVERIFY(!told.contains('\n'));
        if (!error.isEmpty()) QCOMPARE(told, error);
        QCOMPARE(engine.evaluate("1+1").value(), 2);  // no fault stays
    }

    void windowCalculatesWithEveryKeyAndKeepsLines() {
        TFormCalculator window;
        static_cast<QWidget&>(window).show();
        auto* edit = window.findChild<QLineEdit*>("ExpressionEingabe");
        auto* result = window.findChild<QLineEdit*>("ResultAusgabe");
        auto* note = window.findChild<QLabel*>("Note");
        auto* lines = window.findChild<QListWidget*>("LinesList");
        QTest::keyClicks(edit, "4.7k*2");
        QCOMPARE(result->text(), "9.400k");
        QTest::keyClicks(edit, "u");
        QCOMPARE(result->text(), "9.400m");
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(window.isVisible());
        QCOMPARE(lines->count(), 1);
        QCOMPARE(lines->item(0)->text(), "4.7k*2u = 9.4m");
        QTest::keyClicks(edit, "ans*2+");  // over the selected line
        QVERIFY(result->text().isEmpty());
        QCOMPARE(note->text(), "The expression is not complete.");
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(lines->count(), 1);
        QTest::keyClicks(edit, "1");
        QCOMPARE(result->text(), "1.019");
        QVERIFY(note->text().isEmpty());
        QTest::mouseClick(window.findChild<QPushButton*>("ButtonCopy"), Qt::LeftButton);
        QCOMPARE(QApplication::clipboard()->text(), "1.0188");
        QTest::keyClick(edit, Qt::Key_Up);
        QCOMPARE(edit->text(), "4.7k*2u");
        QTest::keyClick(edit, Qt::Key_Down);
        QVERIFY(edit->text().isEmpty());
        QTest::keyClick(edit, Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }

  private:
    QTemporaryDir config_;
};

QTEST_MAIN(CalculatorTest)
#include "calculator_test.moc"
