#include "plot/frame_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

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

/// The right axis has no grid of its own, which would cross the left one's: short ticks say where
/// its labels stand.
void DrawRightTicks(QPainter& painter, const FramePainter::Layout& layout) {
    constexpr double kLength = 5;
    const Frame frame = layout.frame.ofRightAxis();
    painter.setPen(ThinPen(Qt::black));
    for (const Tick& tick : layout.rightTicks.major) {
        const double middle = frame.yPixel(tick.value) + 0.5;
        painter.drawLine(QPointF(frame.plot.right - kLength, middle),
                         QPointF(frame.plot.right, middle));
    }
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
    for (const auto* labels :
         {&layout.xLabels, &layout.yLabels, &layout.rightLabels, &layout.names}) {
        for (const auto& label : *labels) DrawText(painter, label.box, label.text);
    }
}

void DrawLegend(QPainter& painter, const FramePainter::Layout& layout) {
    for (const auto& [entry, box] : layout.legend) {
        painter.setPen(Qt::black);
        DrawText(painter, box, ToText(entry.text));
        Curve sample{.x = {}, .y = {}, .colour = entry.colour, .style = entry.style, .width = 2};
        painter.setPen(CurvePen(sample));
        const double middle = box.top() + std::round(box.height() / 2);
        painter.drawLine(QPointF(box.right() - kLegendLine, middle), QPointF(box.right(), middle));
    }
}

void DrawTitle(QPainter& painter, const std::string& text, const PlotRect& plot) {
    if (text.empty()) return;
    const QFont plain = painter.font();
    QFont bold = plain;
    bold.setBold(true);
    const QString title = ToText(text);
    const double width = QFontMetricsF(bold).horizontalAdvance(title);
    painter.setPen(Qt::black);
    painter.setFont(bold);
    const double centre = (plot.left + plot.right - width) / 2;
    DrawText(painter, QRectF(std::max(centre, 0.0), kGap, width, 0), title);
    painter.setFont(plain);
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

/// Names at the ends of their axes, in the row above the plot and below it.
void PlaceNames(FramePainter::Layout& layout, QSize size, const Picture& picture,
                const QFontMetricsF& metrics) {
    const PlotRect& plot = layout.frame.plot;
    const double line = metrics.height();
    const double row = plot.top - kNamesGap - line;
    const auto add = [&](const std::string& name, double right, double top) {
        const QString text = ToText(name);
        const double width = metrics.horizontalAdvance(text);
        layout.names.push_back({QRectF(right > 0 ? right - width : kGap, top, width, line), text});
    };
    add(picture.yName, 0, row);
    add(picture.rightName, size.width() - kGap, row);
    add(picture.xName, plot.right, size.height() - kGap - line);
}

/// Entries in rows above the plot, beside the names of the y axes, as many in a row as fit: the
/// lowest row holds the last ones. Entries of rows above `rows` are left out.
void PlaceLegend(FramePainter::Layout& layout, const Picture& picture, int rows,
                 const QFontMetricsF& metrics) {
    const QRectF left = layout.names[0].box;
    const QRectF right = layout.names[1].box;
    const double end = right.width() > 0
                           ? std::min<double>(layout.frame.plot.right, right.left() - 3 * kGap)
                           : layout.frame.plot.right;
    const double start = left.right() + 2 * kGap;
    const double line = metrics.height();
    int row = 0;
    double reached = end;
    for (auto entry = picture.legend.rbegin(); entry != picture.legend.rend(); ++entry) {
        const double width = metrics.horizontalAdvance(ToText(entry->text)) + kGap + kLegendLine;
        if (end - width < start) continue;
        if (reached - width < start) {
            ++row;
            reached = end;
        }
        const QRectF box(reached - width, left.top() - row * line, width, line);
        if (row < rows) layout.legend.push_back({*entry, box});
        reached -= width + 3 * kGap;
    }
}

/// Below the plot and at its sides, by the ticks.
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
    const Frame right = frame.ofRightAxis();
    for (const Tick& tick : layout.rightTicks.major) {
        const QString text = ToText(tick.label);
        const double top = right.yPixel(tick.value) - line / 2;
        layout.rightLabels.push_back(
            {QRectF(frame.plot.right + kGap + 1, top, metrics.horizontalAdvance(text), line),
             text});
    }
}

void DrawDots(QPainter& painter, const Frame& frame, const Curve& curve) {
    const double half = curve.dotSize / 2;
    const auto draw = [&](std::size_t i) {
        const WorldPoint place = frame.place(curve.x[i], curve.y[i]);
        if (!frame.contains(place.x, place.y)) return;
        painter.fillRect(QRectF(place.x - half, place.y - half, curve.dotSize, curve.dotSize),
                         ToColor(curve.dotColour));
    };
    for (const std::size_t i : curve.dots) draw(i);
    if (!curve.dots.empty()) return;
    for (std::size_t i = 0; i < std::min(curve.x.size(), curve.y.size()); ++i) draw(i);
}

}  // namespace

FramePainter::FramePainter(int fontPixels) : font_("MS Sans Serif") {
    font_.setStyleHint(QFont::SansSerif);
    font_.setPixelSize(fontPixels);
}

FramePainter::Layout FramePainter::layout(QSize size, const Picture& picture) const {
    constexpr int kMostLegendRows = 3;
    Layout placed = layoutWith(size, picture, 1);
    for (int rows = 2; rows <= kMostLegendRows; ++rows) {
        if (placed.legend.size() == picture.legend.size()) break;
        Layout more = layoutWith(size, picture, rows);
        if (more.legend.size() == placed.legend.size()) break;  // no wider for being higher
        placed = std::move(more);
    }
    return placed;
}

FramePainter::Layout FramePainter::layoutWith(QSize size, const Picture& picture,
                                              int legendRows) const {
    const QFontMetricsF metrics(font_);
    const double line = metrics.height();
    const bool namesAbove = !picture.yName.empty() || !picture.legend.empty();
    const double top = kEdge + (picture.title.empty() ? 0 : line) +
                       (namesAbove ? legendRows * line + kNamesGap : 0);
    const double below = kGap + line + (picture.xName.empty() ? 0 : line) + kGap;

    Layout layout;
    auto& plot = layout.frame.plot;
    const View& view = layout.frame.view = picture.view;
    plot.top = static_cast<int>(top);
    plot.bottom = std::max(plot.top + 1, static_cast<int>(size.height() - below));
    const auto rows = [line](const std::string&) { return line; };
    layout.yTicks = TicksOf(view.y, plot.bottom - plot.top, picture.yLabels, rows);
    plot.left = static_cast<int>(std::ceil(kGap + ColumnWidth(layout.yTicks, metrics) + kGap));
    // Room for the half of the last label that reaches beyond the corner.
    double beyond = metrics.horizontalAdvance(QStringLiteral("888.8M")) / 2;
    if (view.right) {
        layout.rightTicks = TicksOf(*view.right, plot.bottom - plot.top, picture.rightLabels, rows);
        beyond = std::max(beyond, kGap + 1 + ColumnWidth(layout.rightTicks, metrics));
    }
    plot.right = std::max(plot.left + 1, static_cast<int>(size.width() - kGap - beyond));
    const auto width = [&](const std::string& label) {
        return metrics.horizontalAdvance(ToText(label)) + 2 * kGap;
    };
    layout.xTicks = TicksOf(view.x, plot.right - plot.left, picture.xLabels, width);

    PlaceLabels(layout, metrics);
    PlaceNames(layout, size, picture, metrics);
    PlaceLegend(layout, picture, legendRows, metrics);
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
    DrawRightTicks(painter, layout);
    DrawLabels(painter, layout);
    DrawTitle(painter, picture.title, frame.plot);
    DrawLegend(painter, layout);
    for (const Curve& curve : picture.curves) drawCurve(painter, frame, curve);
    DrawMarks(painter, layout);
    painter.restore();
    return frame;
}

void FramePainter::drawCurve(QPainter& painter, const Frame& whole, const Curve& curve) const {
    const Frame frame = curve.onRight ? whole.ofRightAxis() : whole;
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
