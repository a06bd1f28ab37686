// The drawing of the ladder, driven as a user drives it.

#include <QtTest>
#include <QtWidgets>
#include <cmath>

#include "plot/ladder_thumbnail.h"
#include "ui/workbench/ladder_panel.h"
#include "ui/workbench/ladder_picture.h"

using namespace kelvro;

namespace {

/// A drag by the pointer from one widget to another; the one where it begins gets its events.
void Drag(QWidget& from, QPoint start, QWidget& to, QPoint end,
          Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const QPoint last = from.mapFromGlobal(to.mapToGlobal(end));
    QTest::mousePress(&from, Qt::LeftButton, keys, start);
    for (const QPoint at :
         {start + QPoint(QApplication::startDragDistance() + 2, 0), (start + last) / 2, last}) {
        QMouseEvent move(QEvent::MouseMove, at, from.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                         keys);
        QApplication::sendEvent(&from, &move);
    }
    QTest::mouseRelease(&from, Qt::LeftButton, keys, last);
}

/// A panel with L1 in series, C1 across, R1 in series.
struct Panel {
    Panel() {
        network.ladder = {SeriesArm(Part::L(10e-9, "L1"), "middle"), ShuntArm(Part::C(1e-12, "C1")),
                          SeriesArm(Part::R(5, "R1"))};
        model.open(network);
        panel.resize(260, 400);
        panel.show();
        if (!QTest::qWaitForWindowExposed(&panel)) qFatal("the panel does not show");
    }
    LadderPanel* operator->() { return &panel; }
    LadderPicture& picture() { return *panel.findChild<LadderPicture*>(); }
    /// The elements by name, those without by their kind.
    QString names() const {
        QStringList names;
        for (const LadderElement& element : model.network().ladder) {
            const std::string text = ElementText(element);
            const auto colon = text.find(": ");
            names << QString::fromStdString(std::holds_alternative<Arm>(element.is)
                                                ? text.substr(colon + 2, text.find('=') - colon - 2)
                                                : std::string("line"));
        }
        return names.join(' ');
    }

    Network network = StartNetwork();
    NetworkModel model;
    LadderPanel panel{model, {}};
};

}  // namespace

class LadderPictureTest : public QObject {
    Q_OBJECT

  private slots:
    void everyElementStandsWhereItIsDrawn() {
        // A single capacitor across between series coils: its ground is the lowest ink.
        const std::vector<LadderElement> ladder = {
            SeriesArm(Part::L(1e-9)), ShuntArm(Part::C(1e-12)), SeriesArm(Part::L(1e-9))};
        for (const QSize size : {QSize(220, 90), QSize(120, 90), QSize(400, 70)}) {
            const QImage image = LadderThumbnail(ladder, size, qRgb(0, 0, 0));
            const QRectF place = ThumbnailPlace(ladder, size, 1);
            QRect low;
            for (int y = image.height() * 6 / 10; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    if (qAlpha(image.pixel(x, y)) > 128) low |= QRect(x, y, 1, 1);
            QVERIFY(!low.isEmpty());
            QVERIFY2(std::abs(low.center().x() - place.center().x()) < 2.5,
                     qPrintable(QString::number(low.center().x())));
            QVERIFY(low.left() > place.left() && low.right() < place.right());
        }
    }

    void dropsMoveSwapCopyReplaceAndDelete_data() {
        // Drops go to "x": at the middle of element x; "x|": between it and the next; "|": before
        // all; "D": onto Delete; "": outside.
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("ladder");
        QTest::addColumn<QString>("step");
        const auto row = [](const char* name, QString what, QString to, QString ladder,
                            QString step) {
            QTest::addRow("%s", name) << what << to << ladder << step;
        };
        row("between", "L1", "R1|", "C1 R1 L1", "Move element");
        row("before all", "R1", "|", "R1 L1 C1", "Move element");
        row("onto another", "L1", "R1", "R1 C1 L1", "Swap elements 1 and 3");
        row("onto itself", "L1", "L1", "L1 C1 R1", "");
        row("beside itself", "C1", "L1|", "L1 C1 R1", "");
        row("copy between", "L1", "C1|", "L1 C1 L1 R1", "Add element");
        row("copy onto", "L1", "C1", "L1 L1 R1", "Replace element 2 by a copy of 1");
        row("delete", "C1", "D", "L1 R1", "Delete element");
        row("outside", "C1", "", "L1 C1 R1", "");
        row("new", "ButtonLineTile", "L1|", "L1 line C1 R1", "Add element");
        row("new at the load", "ButtonShuntRTile", "R1|", "L1 C1 R1 R", "Add element");
        row("replacing", "ButtonShuntCTile", "R1", "L1 C1 C", "Replace element 3 by Shunt C");
        row("nothing to delete", "ButtonShuntCTile", "D", "L1 C1 R1", "");
    }

    void dropsMoveSwapCopyReplaceAndDelete() {
        QFETCH(const QString, what);
        QFETCH(const QString, to);
        const bool control = QString(QTest::currentDataTag()).startsWith("copy");
        Panel panel;
        const auto placeOf = [&](const QString& name) {
            return panel.picture().placeOf(int(QStringList({"L1", "C1", "R1"}).indexOf(name)));
        };
        const int half = (placeOf("C1").x() - placeOf("L1").x()) / 2;
        QWidget& source = what.endsWith("Tile") ? *panel->findChild<QWidget*>(what)
                                                : static_cast<QWidget&>(panel.picture());
        QWidget& target = to == "D" ? *panel->findChild<QWidget*>("ButtonDeleteElement")
                                    : static_cast<QWidget&>(panel.picture());
        const QPoint at = to == "D"          ? target.rect().center()
                          : to.isEmpty()     ? QPoint(20, target.height() + 60)
                          : to == "|"        ? placeOf("L1") - QPoint(half, 0)
                          : to.endsWith('|') ? placeOf(to.chopped(1)) + QPoint(half - 2, 0)
                                             : placeOf(to);
        Drag(source, what.endsWith("Tile") ? source.rect().center() : placeOf(what), target, at,
             control ? Qt::ControlModifier : Qt::NoModifier);
        QTEST(panel.names(), "ladder");
        const auto& history = panel.model.history();
        QTEST(QString::fromStdString(history.undoName()), "step");
        if (!history.canUndo()) return;
        panel.model.undo();
        QVERIFY(panel.model.network() == panel.network && !history.canUndo());
    }

    void escapeGivesADragUp() {
        Panel panel;
        auto& picture = panel.picture();
        QTest::mousePress(&picture, Qt::LeftButton, {}, picture.placeOf(0));
        QMouseEvent move(QEvent::MouseMove, picture.placeOf(2),
                         picture.mapToGlobal(picture.placeOf(2)), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&picture, &move);
        QVERIFY(QApplication::overrideCursor());
        QTest::keyClick(&picture, Qt::Key_Escape);
        QVERIFY(!QApplication::overrideCursor());
        QTest::mouseRelease(&picture, Qt::LeftButton, {}, picture.placeOf(2));
        QCOMPARE(panel.names(), QString("L1 C1 R1"));
    }

    /// 10 nH at 100 MHz are j6.2832 ohm, which 253.30 pF have as well.
    void whatReplacesTakesOverTheSizeAndTheLockGoesWithItsElement() {
        Panel panel;
        panel.model.setLocked({2, 0, Tunable::Quantity::PartValue}, true);
        QWidget& tile = *panel->findChild<QWidget*>("ButtonSeriesCTile");
        Drag(tile, tile.rect().center(), panel.picture(), panel.picture().placeOf(0));
        const auto& ladder = panel.model.network().ladder;
        const Part& made = *PartsOf(ladder)[0];
        QVERIFY(made.kind == PartKind::Capacitor);
        QVERIFY2(std::fabs(made.value - 253.3030e-12) < 1e-16,
                 qPrintable(QString::number(made.value)));
        QVERIFY(std::get<Arm>(ladder[0].is).place == Place::Series);
        QCOMPARE(ladder[0].node, std::string("middle"));
        QCOMPARE(panel.model.selected()->element, std::size_t(0));
        Drag(panel.picture(), panel.picture().placeOf(2), panel.picture(),
             panel.picture().placeOf(0));
        QVERIFY(panel.model.locked({0, 0, Tunable::Quantity::PartValue}));
        QVERIFY(!panel.model.locked({2, 0, Tunable::Quantity::PartValue}));
    }

    void theDrawingFollowsTheLadder() {
        Panel panel;
        const QImage before = panel.picture().grab().toImage();
        panel.model.edit("Place", [](Network& network) {
            std::get<Arm>(network.ladder[1].is).place = Place::Series;
        });
        QVERIFY(panel.picture().grab().toImage() != before);
        panel.model.undo();
        QVERIFY(panel.picture().grab().toImage() == before);
    }

    void aClickChoosesAnElementAndATileAddsBehindIt() {
        Panel panel;
        QTest::mouseClick(&panel.picture(), Qt::LeftButton, {}, panel.picture().placeOf(1));
        QCOMPARE(panel->findChild<QListWidget*>("LadderList")->currentRow(), 1);
        QCOMPARE(panel.model.selected()->element, std::size_t(1));
        QTest::mouseClick(panel->findChild<QWidget*>("ButtonOpenStubTile"), Qt::LeftButton);
        QCOMPARE(panel.names(), QString("L1 C1 line R1"));
    }
};

QTEST_MAIN(LadderPictureTest)
#include "ladder_picture_test.moc"
