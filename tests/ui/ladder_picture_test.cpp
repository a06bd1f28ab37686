// The drawing of the ladder, driven as a user drives it.

#include <QListWidget>
#include <QtTest>

#include "plot/ladder_thumbnail.h"
#include "ui/workbench/ladder_panel.h"
#include "ui/workbench/ladder_picture.h"

using namespace kelvro;

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

    void aDragMovesAnElementAsOneStepAndAClickChoosesIt() {
        NetworkModel model;
        Network network = StartNetwork();
        network.ladder = {SeriesArm(Part::L(1e-9, "L1")), ShuntArm(Part::C(1e-12, "C1")),
                          SeriesArm(Part::R(5, "R1"))};
        model.open(network);
        LadderPanel panel(model, {});
        panel.resize(260, 400);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        auto& picture = *panel.findChild<LadderPicture*>();
        auto& list = *panel.findChild<QListWidget*>("LadderList");
        QTest::mouseClick(&picture, Qt::LeftButton, {}, picture.placeOf(1));
        QCOMPARE(list.currentRow(), 1);
        QCOMPARE(model.selected()->element, std::size_t(1));

        const auto drag = [&](int from, QPoint to) {
            QTest::mousePress(&picture, Qt::LeftButton, {}, picture.placeOf(from));
            QTest::mouseMove(&picture, to);
            QTest::mouseRelease(&picture, Qt::LeftButton, {}, to);
        };
        drag(0, picture.placeOf(2));
        QStringList order;
        for (const Part* part : PartsOf(model.network().ladder))
            order << QString::fromStdString(part->name);
        QCOMPARE(order, QStringList({"C1", "R1", "L1"}));
        QCOMPARE(list.currentRow(), 2);
        drag(2, picture.placeOf(0));
        QVERIFY(model.network() == network);
        drag(1, QPoint(-5, 20));  // dropped outside
        QVERIFY(model.network() == network);
        model.undo();
        model.undo();
        QVERIFY(model.network() == network);
        QVERIFY(!model.history().canUndo());
    }
};

QTEST_MAIN(LadderPictureTest)
#include "ladder_picture_test.moc"
