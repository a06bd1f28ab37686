#include "ui/form_guide_gxl.h"

#include <QtTest>
#include <QtWidgets>

namespace kelvro {

class FormGuideGXLTest : public QObject {
    Q_OBJECT

  private slots:
    void everyChangeGivesNewAdvice() {
        TFormGuideGXL form;
        form.show();
        QCOMPARE(form.windowTitle(), "Guide for Optimization");
        const auto advice = [&] { return form.findChild<QLabel*>("LabelOut")->text(); };
        QVERIFY(advice().contains("Consider a local optimizer due to higher speed."));
        QVERIFY(advice().contains(" 70 simulation points."));

        const std::pair<const char*, const char*> clicks[] = {
            {"RadioButtonBadStartpoint", " 120 "},
            {"CheckBoxNL", " 220 "},
            {"CheckBoxDifficult", " 420 "},
            {"RadioButtonGoodStartpoint", " 220 "},
            {"CheckBoxNL", " 120 "},
        };
        for (const auto& [name, points] : clicks) {
            QTest::mouseClick(form.findChild<QWidget*>(name), Qt::LeftButton, {}, {8, 8});
            QVERIFY2(advice().contains(points), qPrintable(advice()));
        }
        auto* parameters = form.findChild<QLineEdit*>("NEingabe");
        parameters->selectAll();
        QTest::keyClicks(parameters, "31");
        QVERIFY2(advice().contains(" Consider to reduce number of parameters"),
                 qPrintable(advice()));
        QTest::keyClick(parameters, Qt::Key_Down);
        QVERIFY2(advice().contains(" 960 "), qPrintable(advice()));
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
    }
};

}  // namespace kelvro

QTEST_MAIN(kelvro::FormGuideGXLTest)
#include "form_guide_gxl_test.moc"
