#include "plot/frame_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "plot/clipping.h"

namespace kelvro {

namespace {

constexpr double kGap = 4;  ///< between texts and what they stand beside
constexpr double kEdge = 8;
/// Between the row of names and the plot, where the topmost label of the y axis reaches up.
constexpr double kNamesGap = 9;
/// Hair lines closer than this would run into a surface that hides the grid.
constexpr double kHairLineGap = 3;
constexpr double kLegendLine = 18;
/// Width of the place for the labels of level marks, at the right inside of the plot.
constexpr double kMarkLabel = 21;

const QColor kGrid(226, 226, 226);
const QColor kMajorGrid(196, 196, 196);
const QColor kOriginLine(96, 96, 96);

QColor ToColor(Rgb colour) {
    return {colour.red, colour.green, colour.blue};
}

QString ToText(const std::string& text) {
    return QString::fromStdString(text);
}

QPen ThinPen(const QColor& colour) {
    return QPen(colour, 1, Qt::SolidLine, Qt::FlatCap);
}

QPen CurvePen(const Curve& curve) {
    QPen pen(ToColor(curve.colour), curve.width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
    if (curve.style == LineStyle::Alternative) pen.setStyle(Qt::DashLine);
    return pen;
}

/// Thin lines stay sharp when they run along the middle of a row of pixels.
void DrawVertical(QPainter& painter, double x, const PlotRect& plot) {
    const double middle = std::floor(x) + 0.5;
    painter.drawLine(QPointF(middle, plot.top), QPointF(middle, plot.bottom));
}

void DrawHorizontal(QPainter& painter, double y, const PlotRect& plot) {
    const double middle = std::floor(y) + 0.5;
    painter.drawLine(QPointF(plot.left, middle), QPointF(plot.right, middle));
}

void DrawText(QPainter& painter, const QRectF& box, const QString& text) {
    const QFontMetricsF metrics(painter.font());
    painter.drawText(QPointF(box.left(), box.top() + metrics.ascent()), text);
}

double ColumnWidth(const Ticks& ticks, const QFontMetricsF& metrics) {
    double width = 0;
    for (const Tick& tick : ticks.major) {
        width = std::max(width, metrics.horizontalAdvance(ToText(tick.label)));
    }
    return width;
}

void DrawGrid(QPainter& painter, const FramePainter::Layout& layout) {
    const PlotRect& plot = layout.frame.plot;
    const auto lines = [&](const Ticks& x, const Ticks& y, bool major) {
        painter.setPen(ThinPen(major ? kMajorGrid : kGrid));
        if (!major) {
            for (const double value : x.minor)
                DrawVertical(painter, layout.frame.xPixel(value), plot);
            for (const double value : y.minor)
                DrawHorizontal(painter, layout.frame.yPixel(value), plot);
            return;
        }
        for (const Tick& tick : x.major)
            DrawVertical(painter, layout.frame.xPixel(tick.value), plot);
        for (const Tick& tick : y.major)
            DrawHorizontal(painter, layout.frame.yPixel(tick.value), plot);
    };
    lines(layout.xTicks, layout.yTicks, false);
    lines(layout.xTicks, layout.yTicks, true);
}

void DrawHairLines(QPainter& painter, const HairLines& lines, const Frame& frame) {
    const Axis& axis = frame.view.x;
    painter.setPen(ThinPen(ToColor(lines.colour)));
    double last = -kHairLineGap;
    for (const double x : lines.x) {
        const int column = frame.xPixel(x);
        if (!(x >= axis.min && x <= axis.max) || std::fabs(column - last) < kHairLineGap) continue;
        DrawVertical(painter, column, frame.plot);
        last = column;
    }
}

void DrawAxes(QPainter& painter, const Frame& frame) {
    const auto& [plot, view] = frame;
    painter.setPen(ThinPen(kOriginLine));
    DrawVertical(painter, frame.xPixel(view.x.origin), plot);
    DrawHorizontal(painter, frame.yPixel(view.y.origin), plot);
    painter.setPen(ThinPen(Qt::black));
    DrawVertical(painter, plot.left, plot);
    DrawVertical(painter, plot.right, plot);
    DrawHorizontal(painter, plot.top, plot);
    DrawHorizontal(painter, plot.bottom, plot);
}

void DrawLabels(QPainter& painter, const FramePainter::Layout& layout) {
    painter.setPen(Qt::black);
    for (const auto& label : layout.xLabels) DrawText(painter, label.box, label.text);
    for (const auto& label : layout.yLabels) DrawText(painter, label.box, label.text);
}

/// Entries from the right; those that would run into the name of the y axis are left out.
void DrawLegend(QPainter& painter, const Picture& picture, const QRectF& row) {
    const double top = row.top();
    double right = row.right();
    const QFontMetricsF metrics(painter.font());
    for (auto entry = picture.legend.rbegin(); entry != picture.legend.rend(); ++entry) {
        const QString text = ToText(entry->text);
        const double width = metrics.horizontalAdvance(text) + kGap + kLegendLine;
        const double left = right - width;
        if (left < row.left()) return;
        painter.setPen(Qt::black);
        DrawText(painter, QRectF(left, top, width, metrics.height()), text);
        Curve sample{.x = {}, .y = {}, .colour = entry->colour, .style = entry->style, .width = 2};
        painter.setPen(CurvePen(sample));
        const double middle = top + std::round(metrics.height() / 2);
        painter.drawLine(QPointF(right - kLegendLine, middle), QPointF(right, middle));
        right = left - 3 * kGap;
    }
}

/// Title above, axis names at the ends of their axes, legend above the right corner of the plot.
void DrawTexts(QPainter& painter, QSize size, const Picture& picture, const PlotRect& plot) {
    const QFont plain = painter.font();
    QFont bold = plain;
    bold.setBold(true);
    painter.setPen(Qt::black);
    if (!picture.title.empty()) {
        const QString title = ToText(picture.title);
        const double width = QFontMetricsF(bold).horizontalAdvance(title);
        painter.setFont(bold);
        const double centre = (plot.left + plot.right - width) / 2;
        DrawText(painter, QRectF(std::max(centre, 0.0), kGap, width, 0), title);
        painter.setFont(plain);
    }
    const QFontMetricsF metrics(plain);
    const double row = plot.top - kNamesGap - metrics.height();
    const QString yName = ToText(picture.yName);
    DrawText(painter, QRectF(kGap, row, 0, 0), yName);
    const QString xName = ToText(picture.xName);
    const double width = metrics.horizontalAdvance(xName);
    DrawText(painter, QRectF(plot.right - width, size.height() - kGap - metrics.height(), 0, 0),
             xName);
    const double legendLeft = 3 * kGap + metrics.horizontalAdvance(yName);
    DrawLegend(painter, picture, QRectF(QPointF(legendLeft, row), QPointF(plot.right, plot.top)));
}

/// The largest font up to the given one whose text fits beside the border.
QFont MarkFont(QFont font, const QString& text) {
    while (font.pixelSize() > 6 && QFontMetricsF(font).horizontalAdvance(text) >= kMarkLabel) {
        font.setPixelSize(font.pixelSize() - 1);
    }
    return font;
}

/// Labels stand on their lines; one that would run into the label above, or out of the plot, hangs
/// below its line.
std::vector<FramePainter::Mark> PlaceMarks(const QFont& font, const Picture& picture,
                                           const Frame& frame) {
    std::vector<FramePainter::Mark> placed;
    const Axis& axis = frame.view.y;
    double lastBaseline = frame.plot.top;
    for (const LevelMark& mark : picture.marks) {
        if (!(mark.y >= axis.min && mark.y <= axis.max)) continue;
        const int row = frame.yPixel(mark.y);
        const QFont fitting = MarkFont(font, ToText(mark.label));
        const double height = QFontMetricsF(fitting).capHeight();
        double baseline = row - 3;
        if (baseline - height < lastBaseline + 1) {
            baseline = std::max(row + 3.0, lastBaseline + 2) + height;
        }
        const QRectF box(frame.plot.right - kMarkLabel, baseline - height - 1, kMarkLabel,
                         height + 2);
        placed.push_back({mark, row, fitting, baseline, box});
        lastBaseline = baseline;
    }
    return placed;
}

void DrawMarks(QPainter& painter, const FramePainter::Layout& layout) {
    const QFont plain = painter.font();
    for (const auto& [level, row, font, baseline, box] : layout.marks) {
        painter.setPen(ThinPen(ToColor(level.lineColour)));
        DrawHorizontal(painter, row, layout.frame.plot);
        painter.setFont(font);
        painter.setPen(ToColor(level.labelColour));
        painter.drawText(QPointF(box.left(), baseline), ToText(level.label));
    }
    painter.setFont(plain);
}

/// Below and to the left of the plot, by the ticks.
void PlaceLabels(FramePainter::Layout& layout, const QFontMetricsF& metrics) {
    const Frame& frame = layout.frame;
    const double line = metrics.height();
    for (const Tick& tick : layout.xTicks.major) {
        const QString text = ToText(tick.label);
        const double wide = metrics.horizontalAdvance(text);
        const double left = frame.xPixel(tick.value) - wide / 2;
        layout.xLabels.push_back({QRectF(left, frame.plot.bottom + kGap, wide, line), text});
    }
    for (const Tick& tick : layout.yTicks.major) {
        const QString text = ToText(tick.label);
        const double wide = metrics.horizontalAdvance(text);
        const double top = frame.yPixel(tick.value) - line / 2;
        layout.yLabels.push_back({QRectF(frame.plot.left - kGap - wide, top, wide, line), text});
    }
}

void DrawDots(QPainter& painter, const Frame& frame, const Curve& curve) {
    const double half = curve.dotSize / 2;
    for (std::size_t i = 0; i < std::min(curve.x.size(), curve.y.size()); ++i) {
        const WorldPoint place = frame.place(curve.x[i], curve.y[i]);
        if (!frame.contains(place.x, place.y)) continue;
        painter.fillRect(QRectF(place.x - half, place.y - half, curve.dotSize, curve.dotSize),
                         ToColor(curve.dotColour));
    }
}

}  // namespace

FramePainter::FramePainter(int fontPixels) : font_("MS Sans Serif") {
    font_.setStyleHint(QFont::SansSerif);
    font_.setPixelSize(fontPixels);
}

FramePainter::Layout FramePainter::layout(QSize size, const Picture& picture) const {
    const QFontMetricsF metrics(font_);
    const double line = metrics.height();
    const bool namesAbove = !picture.yName.empty() || !picture.legend.empty();
    const double top =
        kEdge + (picture.title.empty() ? 0 : line) + (namesAbove ? line + kNamesGap : 0);
    const double below = kGap + line + (picture.xName.empty() ? 0 : line) + kGap;

    Layout layout;
    auto& plot = layout.frame.plot;
    layout.frame.view = picture.view;
    plot.top = static_cast<int>(top);
    plot.bottom = std::max(plot.top + 1, static_cast<int>(size.height() - below));
    layout.yTicks = TicksOf(picture.view.y, plot.bottom - plot.top, picture.yLabels,
                            [line](const std::string&) { return line; });
    const double column = ColumnWidth(layout.yTicks, metrics);
    plot.left = static_cast<int>(std::ceil(kGap + column + kGap));
    // Room for the half of the last label that reaches beyond the corner.
    const double half = metrics.horizontalAdvance(QStringLiteral("888.8M")) / 2;
    plot.right = std::max(plot.left + 1, static_cast<int>(size.width() - kGap - half));
    const auto width = [&](const std::string& label) {
        return metrics.horizontalAdvance(ToText(label)) + 2 * kGap;
    };
    layout.xTicks = TicksOf(picture.view.x, plot.right - plot.left, picture.xLabels, width);

    PlaceLabels(layout, metrics);
    layout.marks = PlaceMarks(font_, picture, layout.frame);
    return layout;
}

Frame FramePainter::draw(QPainter& painter, QSize size, const Picture& picture) const {
    const Layout layout = this->layout(size, picture);
    const Frame& frame = layout.frame;
    painter.save();
    painter.setFont(font_);
    painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
    painter.setRenderHint(QPainter::Antialiasing, false);
    DrawGrid(painter, layout);
    for (const HairLines& lines : picture.hairLines) DrawHairLines(painter, lines, frame);
    // The light labels of the marks would be lost among grid and hair lines.
    for (const Mark& mark : layout.marks) painter.fillRect(mark.box, Qt::white);
    DrawAxes(painter, frame);
    DrawLabels(painter, layout);
    DrawTexts(painter, size, picture, frame.plot);
    for (const Curve& curve : picture.curves) drawCurve(painter, frame, curve);
    DrawMarks(painter, layout);
    painter.restore();
    return frame;
}

void FramePainter::drawCurve(QPainter& painter, const Frame& frame, const Curve& curve) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (curve.width > 0) {
        painter.setPen(CurvePen(curve));
        // Half a pixel puts the curve's places into the middle of the pixels they name.
        painter.translate(0.5, 0.5);
        for (const auto& run : ClippedRuns(frame, curve.x, curve.y, curve.turn)) {
            QPolygonF line;
            line.reserve(static_cast<qsizetype>(run.size()));
            for (const WorldPoint& point : run) line.append(QPointF(point.x, point.y));
            painter.drawPolyline(line);
        }
        painter.translate(-0.5, -0.5);
    }
    if (curve.dotSize > 0) DrawDots(painter, frame, curve);
    painter.restore();
}

}  // namespace kelvro
