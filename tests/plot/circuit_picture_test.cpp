#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <QTest>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <vector>

#include "design/pages.h"
#include "plot/circuit_drawing.h"
#include "plot/circuit_painter.h"
#include "tests/calculated.h"

using namespace kelvro;

namespace {

constexpr QSize kArea(790, 280);  // of the picture on a page

struct Label {
    QString text;
    QRectF box;  ///< before the scaling that all labels share
};

/// What a page's pictures have written, and where.
struct Picture {
    std::vector<Label> labels;
    double scale = 0;

    int count(const QString& text) const {
        return static_cast<int>(std::ranges::count(labels, text, &Label::text));
    }
};

Label LabelAt(const QXmlStreamAttributes& attributes, const QString& text) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(attributes.value(QLatin1String("font-size")).toInt());
    font.setBold(attributes.value(QLatin1String("font-weight")).toInt() > 400);
    const QFontMetricsF metrics(font);
    const QPointF base(attributes.value(QLatin1String("x")).toDouble(),
                       attributes.value(QLatin1String("y")).toDouble());
    return {text,
            {base - QPointF(0, metrics.capHeight()),
             QSizeF(metrics.horizontalAdvance(text), metrics.capHeight())}};
}

/// A text whose letters are of two alphabets comes in two pieces.
void Add(std::vector<Label>& labels, Label label) {
    if (!labels.empty()) {
        Label& last = labels.back();
        const double gap = label.box.left() - last.box.right();
        if (label.box.top() == last.box.top() && gap > -1 && gap < 2) {
            last.text += label.text;
            last.box |= label.box;
            return;
        }
    }
    labels.push_back(std::move(label));
}

Picture Painted(std::span<const Network> networks) {
    QBuffer svg;
    QSvgGenerator generator;
    generator.setOutputDevice(&svg);
    generator.setSize(kArea);
    generator.setViewBox(QRect(QPoint(0, 0), kArea));
    QPainter painter(&generator);
    PaintNetworks(painter, QRectF(QPointF(0, 0), kArea), networks);
    painter.end();
    Picture picture;
    QXmlStreamReader reader(svg.data());
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement()) continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const QString transform = attributes.value(QLatin1String("transform")).toString();
        if (transform.startsWith(QLatin1String("matrix(")))
            picture.scale = transform.mid(7).section(',', 0, 0).toDouble();
        if (reader.name() == QLatin1String("text"))
            Add(picture.labels, LabelAt(attributes, reader.readElementText().trimmed()));
    }
    return picture;
}

/// The page designed from resistances in the order that it asks for.
Design Designed(int page, bool swapped) {
    Design state;
    EnterPage(state, page);
    state.Q = 10;
    state.LCSwapped = swapped;
    return CalculatedEitherWay(state);
}

}  // namespace

class CircuitPictureTest : public QObject {
    Q_OBJECT

  private slots:
    void everyElementStandsInThePictureReadableAndApart_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<bool>("swapped");
        QTest::addColumn<int>("resonators");
        QTest::addColumn<bool>("eight");
        for (const Page& page : Pages()) {
            if (!page.networks) continue;
            const std::string name(page.caption);
            QTest::addRow("%s", name.c_str()) << page.number << false << 3 << false;
            if (page.mirrored)
                QTest::addRow("%s swapped", name.c_str()) << page.number << true << 3 << false;
        }
        QTest::addRow("eight elements") << 16 << false << 3 << true;
        for (const int resonators : {1, 2, 5, 8})
            QTest::addRow("%d resonators", resonators) << 17 << false << resonators << false;
    }

    void everyElementStandsInThePictureReadableAndApart() {
        QFETCH(int, page);
        QFETCH(bool, swapped);
        QFETCH(int, resonators);
        QFETCH(bool, eight);
        Design state = Designed(page, swapped);
        state.NBP = resonators;
        state.eightElements = eight;
        const CycleResult calculated = CycleOf(state);
        QVERIFY(!calculated.message);
        state = calculated.design;
        const auto networks = PageOf(page).drawnNetworks(state);
        const Picture picture = Painted(networks);
        for (const Network& network : networks) {
            for (const ListedPart& part : ListOf(network)) {
                const QString name = QString::fromStdString(part.name);
                QVERIFY2(picture.count(name) > 0, qPrintable(name));
                const QString value = ReadableValue(part.value, part.unit());
                QVERIFY2(value.isEmpty() || picture.count(value) > 0, qPrintable(value));
            }
        }
        for (const Label& one : picture.labels)
            for (const Label& other : picture.labels)
                QVERIFY2(&one == &other || !one.box.intersects(other.box),
                         qPrintable(one.text + " over " + other.text));
        QVERIFY2(picture.scale > 0.69, qPrintable(QString::number(picture.scale)));
    }

    /// Two paths that meet draw their joint twice.
    void aJointDrawnTwiceIsADot() {
        CircuitDrawing drawing;
        drawing.wire({0, 0}, {0, 40});
        for (int i = 0; i < 2; ++i) drawing.node({20, 20});
        drawing.wire({40, 0}, {40, 40});
        CircuitDrawing whole;
        whole.add(drawing, {0, 0});
        QImage image(100, 100, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        whole.paint(painter, image.rect(), Qt::black, Qt::black, Qt::black);
        painter.end();
        QCOMPARE(image.pixelColor(50, 50), QColor(Qt::black));
    }

    void bothNetworksOfAPageAreDrawn() {
        const Design state = Designed(8, false);
        const Picture picture = Painted(PageOf(8).drawnNetworks(state));
        QCOMPARE(picture.count("T"), 1);
        QCOMPARE(picture.count("Pi"), 1);
        QCOMPARE(picture.count("Ra"), 2);  // the same names, other values
        QCOMPARE(picture.count("R2"), 2);
    }

    void aRefusedDesignHasNamesAndNoValues() {
        Design state = Designed(3, false);
        auto networks = PageOf(3).drawnNetworks(state);
        for (double* value : ValuesOf(networks[0])) *value = std::nan("");
        const Picture picture = Painted(networks);
        QCOMPARE(picture.count("C1"), 1);
        QCOMPARE(static_cast<int>(picture.labels.size()), 3 + 2 + 2);  // R1 and R2 keep theirs
    }
};

QTEST_MAIN(CircuitPictureTest)
#include "circuit_picture_test.moc"
