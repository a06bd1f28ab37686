// The design pages in the main window: switching, refusals, swap boxes, double-click, Take.

#include <cmath>

#include "core/number_text.h"
#include "design/pages.h"
#include "design/part_ref.h"
#include "tests/ui/form_fixture.h"
#include "tests/ui/plot_fixture.h"
#include "ui/circuit_view.h"

using namespace kelvro;

class PagesTest : public QObject {
    Q_OBJECT

  private slots:
    void everyTabAndMenuItemShowsItsPage() {
        FormFixture f;
        auto& notebook = f.find<QStackedWidget>("Notebook1");
        auto& tabs = f.find<TabSet>("TabSet1");
        QCOMPARE(tabs.count(), PageCount());
        for (const Page& page : Pages()) {
            f.goTo(page.number);
            QCOMPARE(f.state().page, page.number);
            QCOMPARE(notebook.currentIndex(), page.number - 1);
            QCOMPARE(tabs.tabText(page.number - 1), ToQString(page.caption));
            QVERIFY(tabs.rect().contains(tabs.tab(page.number - 1)->geometry()));
        }
        for (const Page& page : Pages()) {
            if (page.menuItem.empty()) continue;
            auto& item = f.find<QAction>(ToQString(page.menuItem));
            item.trigger();
            QCOMPARE(notebook.currentIndex(), page.number - 1);
            QCOMPARE(tabs.currentIndex(), page.number - 1);
            QVERIFY(item.isChecked());
            for (const Page& other : Pages())
                if (!other.menuItem.empty() && other.number != page.number)
                    QVERIFY(!f.find<QAction>(ToQString(other.menuItem)).isChecked());
        }
    }

    void pageShowsAndEnablesWhatItHas() {
        // One letter per page, as users know the pages.
        const QString panelQ = "yyyyyynnynnnyynyyyn";
        const QString exported = "yyyyyyyynnnyyyyyyyy";
        const QString plotted = "yyyyyyyyynnnyynynyn";
        FormFixture f;
        for (int page = 1; page <= PageCount(); ++page) {
            f.goTo(page);
            const auto yes = [&](const QString& column) { return column[page - 1] == 'y'; };
            const QByteArray name = "page " + QByteArray::number(page);
            QVERIFY2(f.find<QWidget>("PanelQ").isVisible() == yes(panelQ), name);
            QVERIFY2(f.find<QWidget>("SpeedButtonExport").isEnabled() == yes(exported), name);
            QVERIFY2(f.find<QWidget>("VuButton").isEnabled() == yes(plotted), name);
            QVERIFY2(f.find<QWidget>("PhiBtn").isEnabled() == yes(plotted), name);
        }
    }

    void switchingPagesKeepsTheInputs() {
        FormFixture f;
        f.goTo(3);
        f.type("R1Eingabe", "12");
        f.type("QEingabe", "7.5");
        for (const int page : {4, 5, 10, 12, 17, 19, 3}) f.goTo(page);
        QCOMPARE(f.state().R1, 12.0);
        QCOMPARE(f.state().Q, 7.5);
        QCOMPARE(f.text("R1Eingabe"), QString("   12.000"));
        QCOMPARE(f.text("QEingabe"), QString("     7.50"));
    }

    void edgesOfTheBandFollowFoUntilTheyAreTyped() {
        FormFixture f;
        f.goTo(16);
        QVERIFY(f.find<QCheckBox>("CheckBoxBand16").isChecked());
        f.type("foEingabe", "10M");
        QCOMPARE(f.text("fLow16Eingabe").trimmed(), QString("7.00M"));
        f.type("fLow16Eingabe", "8M");
        f.type("foEingabe", "11M");
        QCOMPARE(f.text("fLow16Eingabe").trimmed(), QString("8.00M"));
        QCOMPARE(f.text("fHigh16Eingabe").trimmed(), QString("14.30M"));
        f.click("CheckBoxBand16");
        QVERIFY(!f.find("fLow16Eingabe").isEnabled());
    }

    void refusedDesignSaysSoAtEveryKeyAndKeepsTheFields() {
        FormFixture f;
        f.goTo(1);
        const QString before = f.text("C11Ausgabe");
        f.messages.clear();
        f.type("R1Eingabe", "500");  // 5 and 50 are below R2, 500 is not
        QCOMPARE(f.messages,
                 QStringList("It must be R2>R1! Switch resistances by clicking the button!"));
        QTest::keyClick(&f.find("R1Eingabe"), '0');
        QCOMPARE(f.messages.size(), 2);
        QCOMPARE(f.text("BAusgabe"), QString("    0.000"));
        QCOMPARE(f.text("dAusgabe"), QString("   0.000"));
        f.type("R1Eingabe", "50");
        QCOMPARE(f.text("C11Ausgabe"), before);
    }

    void swapBoxShowsDualsAndKeepsTheDesign() {
        FormFixture f;
        f.goTo(1);
        const double L = f.state().components[Slot::L];
        f.calculations = 0;
        f.click("CheckBox1");
        QCOMPARE(f.calculations, 1);
        QVERIFY(f.state().LCSwapped);
        QCOMPARE(f.state().components[Slot::L], L);
        const double omega = 2 * M_PI * f.state().fo;
        QCOMPARE(f.text("L1Ausgabe"),
                 ' ' + QString::fromStdString(FormatEng(7, 2, 1 / (omega * omega * L))));
        const auto captions = [&] {
            QStringList texts;
            for (const QLabel* label : f.find<QWidget>("Page1").findChildren<QLabel*>())
                if (label->text().endsWith('C') || label->text().contains("tance "))
                    texts << label->text();
            return texts;
        };
        QCOMPARE(captions(), QStringList({"Capacitance C", "Inductance L1", "Inductance L2"}));
        f.click("CheckBox1");
        QCOMPARE(captions(), QStringList({"Inductance L", "Capacitance C1", "Capacitance C2"}));
    }

    void doubleClickRoundsTheTextOnly() {
        FormFixture f;
        f.goTo(3);
        f.calculations = 0;
        const double L = f.state().components[Slot::L];
        const QString v = f.text("ueAusgabe");
        f.click("E6Button");
        f.doubleClick("L3Ausgabe");  // 71.62 nH lies nearer to 68 than to 100
        QCOMPARE(f.text("L3Ausgabe"), QString("   68.00n"));
        QCOMPARE(f.state().components[Slot::L], L);
        QCOMPARE(f.text("ueAusgabe"), v);
        QCOMPARE(f.calculations, 0);
    }

    void takeReadsTheShownTexts() {
        FormFixture f;
        f.goTo(3);
        const auto picture = [&] {
            return f.form().findChild<QWidget*>("Image3")->grab().toImage();
        };
        const QImage designed = picture();
        f.doubleClick("C13Ausgabe");
        f.doubleClick("C23Ausgabe");
        QVERIFY(picture() != designed);  // the picture stays with the fields
        f.calculations = 0;
        int changes = 0;
        QObject::connect(&f.form().session(), &DesignHost::designChanged, [&] { ++changes; });
        f.click("ButtonTake");
        QCOMPARE(f.state().components[Slot::C1], ParseValue(f.text("C13Ausgabe").toStdString()));
        QCOMPARE(f.state().components[Slot::C2], ParseValue(f.text("C23Ausgabe").toStdString()));
        QCOMPARE(changes, 1);  // plots redraw
    }

    void takeAndOptimizeKeepsTheTakenValues() {
        FormFixture f;
        f.form().session().optimizer().settings.disabled = true;
        f.goTo(3);
        f.click("E6Button");
        f.doubleClick("L3Ausgabe");
        f.calculations = 0;
        const QString v = f.text("ueAusgabe");
        f.click("ButtonTakeAndOpt");
        QCOMPARE(f.calculations, 1);
        QCOMPARE(f.state().components[Slot::L], 68e-9);
        QCOMPARE(f.text("L3Ausgabe"), QString("   68.00n"));
        QVERIFY(f.text("ueAusgabe") != v);
    }

    void editedTransformerFieldIsUsedAndNotRewritten() {
        FormFixture f({"single"});  // with the optimizer, which leaves such an edit alone
        f.goTo(5);
        f.calculations = 0;
        const Slots designed = f.state().components;
        const QString L1 = f.text("L15Ausgabe");
        const QString v = f.text("ueAusgabe");
        f.type("L25Ausgabe", "40n");
        QCOMPARE(f.calculations, 3);
        QCOMPARE(f.state().components[Slot::L2], 40e-9);
        QCOMPARE(f.state().components[Slot::C1], designed[Slot::C1]);
        QCOMPARE(f.text("L25Ausgabe"), QString("40n"));
        QCOMPARE(f.text("L15Ausgabe"), L1);
        QVERIFY(f.text("ueAusgabe") != v);
        QCOMPARE(f.text("BAusgabe"), QString("   20.00M"));
    }

    void transformerSwitchesAndWeightsReachTheDesign() {
        FormFixture f;
        f.goTo(5);
        f.calculations = 0;
        f.click("CheckBoxC1Null");
        QVERIFY(f.state().smallCapacitance);
        QCOMPARE(f.calculations, 1);
        auto& weight = f.find<QScrollBar>("ScrollBarW");
        QCOMPARE(weight.value(), 10);
        QTest::keyClick(&weight, Qt::Key_Right);
        QCOMPARE(f.state().equalInductancesWeight, 11);
        QCOMPARE(f.calculations, 2);
    }

    void classEPageClampsTypedQ() {
        FormFixture f;
        f.goTo(15);
        // The shared field is hidden on this page, yet it holds the page's limit.
        f.type("QEingabe", "0.5");
        QCOMPARE(f.state().Q, 1.9);
        f.goTo(3);
        f.type("QEingabe", "0.5");
        QCOMPARE(f.state().Q, 0.5);
    }

    void clickOnAPartLeadsToItsField() {
        FormFixture f;
        for (const auto& [page, part, field] : {std::tuple{3, "C1", "C13Ausgabe"},
                                                {3, "L", "L3Ausgabe"},
                                                {3, "R2", "R2Eingabe"},
                                                {13, "C", "C13GAusgabe"},
                                                {9, "R1", "R1Eingabe"}}) {
            f.goTo(page);
            auto& picture = f.find<CircuitView>(QString("Image%1").arg(page));
            const QRectF area = QRectF(picture.rect()).adjusted(6, 6, -6, -6);
            const auto networks = ShownNetworks(f.state());
            QPoint found;
            for (int x = 0; x < picture.width() && found.isNull(); x += 12)
                for (int y = 0; y < picture.height() && found.isNull(); y += 6)
                    if (PartAt(area, networks, QPointF(x, y)) == part) found = QPoint(x, y);
            QVERIFY2(!found.isNull(), part);
            QTest::mouseClick(&picture, Qt::LeftButton, {}, found);
            QCOMPARE(f.form().focusWidget()->objectName(), QLatin1String(field));
        }
    }

    void swappedPagePrintsTheFormulaOfItsPicture() {
        FormFixture f;
        const auto formula = [&] { return f.find<QLabel>("TransferText1").accessibleName(); };
        QVERIFY(formula().startsWith("V(s) = sC[1]G[1] / "));
        f.click("CheckBox1");
        QVERIFY(formula().startsWith("V(s) = s²L[2]CG[1] / "));
        f.click("CheckBox1");
        QVERIFY(formula().startsWith("V(s) = sC[1]G[1] / "));
    }

    void circuitPictureIsCopiedAndSaved() {
        FormFixture f;
        f.goTo(3);
        auto& picture = f.find<CircuitView>("Image3");
        picture.findChild<QAction*>("CopyCircuit")->trigger();
        const QMimeData& copied = *QApplication::clipboard()->mimeData();
        QVERIFY(copied.hasImage());
        QVERIFY(copied.data("image/svg+xml").contains("C1"));
        // A name is typed, then the filter that begins with the letters is chosen.
        for (const auto& [typed, letters, saved] : {std::tuple{"c.svg", "", "c.svg"},
                                                    {"c.png", "", "c.png"},
                                                    {"d.svg", "PN", "d.png"},
                                                    {"e", "PD", "e.pdf"},
                                                    {"f.doc", "", "f.doc.svg"}}) {
            const QTemporaryDir folder;  // another one than the dialog was left in
            const InDialog asked([&, typed = typed, letters = letters](QWidget& dialog) {
                dialog.findChild<QListView*>("listView")->selectionModel()->clear();
                dialog.findChild<QLineEdit*>("fileNameEdit")->setText(folder.filePath(typed));
                auto* filters = dialog.findChild<QComboBox*>("fileTypeCombo");
                filters->setFocus();
                QTest::keyClicks(filters, letters);
                dynamic_cast<QDialog&>(dialog).accept();
            });
            picture.findChild<QAction*>("SaveCircuit")->trigger();
            QVERIFY(asked.seen());
            QVERIFY2(QFileInfo(folder.filePath(saved)).size() > 500, saved);
        }
        QCOMPARE(f.messages, QStringList());
    }
};

QTEST_MAIN(PagesTest)
#include "pages_test.moc"
