#include "plot/metafile_device.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "plot/dashes.h"
#include "plot/metafile_writer.h"

namespace kelvro {

namespace {

/// Units of the metafile's own scale across its box: twenty per unit of the placeable header, so
/// that curves keep their smoothness when they are enlarged.
constexpr int kExtent = 20 * kPlaceableExtent;
constexpr double kDegreesPerTurn = 360;

/// Puts a picture into the middle of the box.
QTransform Fitted(QSize size) {
    const double scale = kExtent / static_cast<double>(std::max({size.width(), size.height(), 1}));
    QTransform fit;
    fit.translate((kExtent - scale * size.width()) / 2, (kExtent - scale * size.height()) / 2);
    fit.scale(scale, scale);
    return fit;
}

std::int16_t Unit(double value) {
    if (std::isnan(value)) return 0;
    return static_cast<std::int16_t>(std::lround(std::clamp(value, -32768.0, 32767.0)));
}

MetafilePoint ToPoint(QPointF point) {
    return {Unit(point.x()), Unit(point.y())};
}

std::vector<MetafilePoint> ToPoints(const QPolygonF& polygon) {
    std::vector<MetafilePoint> points;
    for (const QPointF& point : polygon) points.push_back(ToPoint(point));
    return points;
}

/// The colour as it looks on white paper.
Rgb OnWhite(const QColor& colour, double opacity) {
    const double alpha = colour.alphaF() * opacity;
    const auto mixed = [alpha](int channel) {
        return static_cast<std::uint8_t>(std::lround(255 + (channel - 255) * alpha));
    };
    return {mixed(colour.red()), mixed(colour.green()), mixed(colour.blue())};
}

/// Metafiles know single bytes; what stands outside of Latin-1 is written out.
QString InLatin1(QString text) {
    text.replace(QChar(0x2212), QLatin1String("-"));
    text.replace(QChar(0x03A9), QLatin1String("Ohm"));
    text.replace(QChar(0x2126), QLatin1String("Ohm"));
    text.replace(QChar(0x03BC), QChar(0x00B5));
    text.replace(QChar(0x03BB), QLatin1String("lambda"));
    text.replace(QChar(0x03C9), QLatin1String("omega"));
    return text;
}

/// A face that other machines have: faces of this one are found on few others.
std::string FaceOf(const QFont& font) {
    if (QFontInfo(font).fixedPitch()) return "Courier New";
    return font.styleHint() == QFont::Serif ? "Times New Roman" : "Arial";
}

}  // namespace

class MetafileEngine : public QPaintEngine {
  public:
    explicit MetafileEngine(QSize size)
        : QPaintEngine(PrimitiveTransform | PainterPaths | AlphaBlend | Antialiasing |
                       ConstantOpacity),
          fit_(Fitted(size)),
          writer_(kExtent) {
        // White paper over the whole box: some players fit the box to what is drawn in it.
        writer_.usePen({.visible = false});
        writer_.useBrush({.filled = true, .colour = {255, 255, 255}});
        writer_.rectangle({0, 0}, {kExtent, kExtent});
    }

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& now) override {
        matrix_ = now.transform() * fit_;
        pen_ = now.pen();
        brush_ = now.brush();
        opacity_ = now.opacity();
    }

    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        QPolygonF polygon = matrix_.map(QPolygonF(QList<QPointF>(points, points + count)));
        if (mode != PolylineMode && count > 0) {
            fill(polygon, mode == WindingMode);
            polygon.append(polygon.first());
        }
        stroke(polygon);
    }

    void drawPath(const QPainterPath& path) override {
        const QPainterPath mapped = matrix_.map(path);
        const bool winding = path.fillRule() == Qt::WindingFill;
        for (const QPolygonF& polygon : mapped.toFillPolygons()) fill(polygon, winding);
        for (const QPolygonF& line : mapped.toSubpathPolygons()) stroke(line);
    }

    void drawRects(const QRectF* rects, int count) override {
        for (const QRectF& rect : std::span(rects, static_cast<std::size_t>(count))) {
            if (matrix_.type() <= QTransform::TxScale && !isDashed()) {
                usePen();
                useBrush();
                const QRectF mapped = matrix_.mapRect(rect);
                writer_.rectangle(ToPoint(mapped.topLeft()), ToPoint(mapped.bottomRight()));
            } else {
                const QPolygonF corners{rect.topLeft(), rect.topRight(), rect.bottomRight(),
                                        rect.bottomLeft()};
                drawPolygon(corners.data(), static_cast<int>(corners.size()), ConvexMode);
            }
        }
    }

    void drawTextItem(const QPointF& at, const QTextItem& item) override {
        const QString text = InLatin1(item.text());
        const QFont font = item.font();
        const double scale = std::sqrt(std::fabs(matrix_.determinant()));
        const QPointF along = matrix_.map(QPointF(1, 0)) - matrix_.map(QPointF(0, 0));
        const double angle = std::atan2(-along.y(), along.x()) / M_PI * kDegreesPerTurn / 2;
        writer_.useFont({.height = Unit(scale * QFontInfo(font).pixelSize()),
                         .tenthsDegrees = static_cast<int>(std::lround(10 * angle)),
                         .bold = font.bold(),
                         .italic = font.italic(),
                         .underlined = font.underline(),
                         .fixedPitch = QFontInfo(font).fixedPitch(),
                         .serif = font.styleHint() == QFont::Serif,
                         .face = FaceOf(font)});
        writer_.useTextColour(OnWhite(pen_.color(), opacity_));
        // A player's font differs in width; placed by its middle, a text keeps its place best.
        const QPointF middle(QFontMetricsF(font).horizontalAdvance(item.text()) / 2, 0);
        writer_.text(ToPoint(matrix_.map(at + middle)), text.toLatin1().toStdString());
    }

    QByteArray file() const {
        const auto bytes = writer_.file();
        return QByteArray(reinterpret_cast<const char*>(bytes.data()),
                          static_cast<qsizetype>(bytes.size()));
    }

  private:
    bool isDashed() const { return pen_.style() != Qt::NoPen && pen_.style() != Qt::SolidLine; }

    double penWidth() const {
        const double width = pen_.widthF() == 0 ? 1 : pen_.widthF();
        const QTransform& scaling = pen_.isCosmetic() ? fit_ : matrix_;
        return std::max(width * std::sqrt(std::fabs(scaling.determinant())), 1.0);
    }

    void usePen() {
        if (pen_.style() == Qt::NoPen) return writer_.usePen({.visible = false});
        writer_.usePen({.width = Unit(penWidth()), .colour = OnWhite(pen_.color(), opacity_)});
    }

    void useBrush() {
        if (brush_.style() == Qt::NoBrush) return writer_.useBrush({});
        writer_.useBrush({.filled = true, .colour = OnWhite(brush_.color(), opacity_)});
    }

    void fill(const QPolygonF& polygon, bool winding) {
        if (brush_.style() == Qt::NoBrush) return;
        writer_.usePen({.visible = false});
        useBrush();
        writer_.polygon(ToPoints(polygon), winding);
    }

    /// Wide dashed pens are drawn solid by players, so a dashed line is written dash by dash.
    void stroke(const QPolygonF& line) {
        if (pen_.style() == Qt::NoPen) return;
        usePen();
        if (!isDashed()) return writer_.polyline(ToPoints(line));
        std::vector<WorldPoint> points;
        points.reserve(static_cast<std::size_t>(line.size()));
        for (const QPointF& point : line) points.push_back({point.x(), point.y()});
        QList<qreal> pattern = pen_.dashPattern();
        for (qreal& length : pattern) length *= penWidth();
        for (const auto& dash : Dashes(points, pattern)) {
            std::vector<MetafilePoint> run;
            for (const WorldPoint& point : dash) run.push_back({Unit(point.x), Unit(point.y)});
            writer_.polyline(run);
        }
    }

    QTransform fit_;
    MetafileWriter writer_;
    QTransform matrix_;
    QPen pen_;
    QBrush brush_;
    double opacity_ = 1;
};

MetafileDevice::MetafileDevice(QSize size)
    : size_(size), engine_(std::make_unique<MetafileEngine>(size)) {}

MetafileDevice::~MetafileDevice() = default;

QPaintEngine* MetafileDevice::paintEngine() const {
    return engine_.get();
}

QByteArray MetafileDevice::file() const {
    return engine_->file();
}

int MetafileDevice::metric(PaintDeviceMetric metric) const {
    constexpr double kMillimetresPerInch = 25.4;
    const auto millimetres = [](int pixels) {
        return static_cast<int>(std::lround(pixels * kMillimetresPerInch / kPlaceableUnitsPerInch));
    };
    switch (metric) {
        case PdmWidth:
            return size_.width();
        case PdmHeight:
            return size_.height();
        case PdmWidthMM:
            return millimetres(size_.width());
        case PdmHeightMM:
            return millimetres(size_.height());
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return kPlaceableUnitsPerInch;
        case PdmDepth:
            return 24;
        case PdmNumColors:
            return 1 << 24;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return QPaintDevice::metric(metric);
    }
}

}  // namespace kelvro
