// Where everything of a plot's picture stands.

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <utility>

#include "plot/frame_metrics.h"
#include "plot/frame_painter.h"

namespace kelvro {

namespace {

using namespace metrics;

/// Between the row of names and the plot, where the topmost label of the y axis reaches up.
constexpr double kNamesGap = 9;
/// Width of the place for the labels of level marks, at the right inside of the plot.
constexpr double kMarkLabel = 21;

double ColumnWidth(const Ticks& ticks, const QFontMetricsF& metrics) {
    double width = 0;
    for (const Tick& tick : ticks.major) {
        width = std::max(width, metrics.horizontalAdvance(ToText(tick.label)));
    }
    return width;
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
        const QString text = ToText(mark.label);
        const QFont fitting = mark.sentence ? font : MarkFont(font, text);
        const double width =
            mark.sentence ? QFontMetricsF(font).horizontalAdvance(text) + kGap : kMarkLabel;
        const double height = QFontMetricsF(fitting).capHeight();
        double baseline = row - 3;
        if (baseline - height < lastBaseline + 1) {
            baseline = std::max(row + 3.0, lastBaseline + 2) + height;
        }
        const QRectF box(frame.plot.right - width, baseline - height - 1, width, height + 2);
        placed.push_back({mark, row, fitting, baseline, box});
        lastBaseline = baseline;
    }
    return placed;
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

/// The lines of the footer, broken between words where they are longer than the picture is wide.
std::vector<QString> FooterLines(const Picture& picture, int width, const QFontMetricsF& metrics) {
    std::vector<QString> lines;
    for (const std::string& line : picture.footer) {
        QString text;
        for (const QString& word : ToText(line).split(' ')) {
            const QString longer = text.isEmpty() ? word : text + ' ' + word;
            if (!text.isEmpty() && metrics.horizontalAdvance(longer) > width - 2 * kGap) {
                lines.push_back(std::exchange(text, word));
            } else {
                text = longer;
            }
        }
        lines.push_back(text);
    }
    return lines;
}

/// The lines below everything else, from the left.
void PlaceFooter(FramePainter::Layout& layout, QSize size, const Picture& picture,
                 const QFontMetricsF& metrics) {
    const std::vector<QString> lines = FooterLines(picture, size.width(), metrics);
    double top = size.height() - kGap - double(lines.size()) * metrics.height();
    for (const QString& line : lines) {
        layout.footer.push_back(
            {QRectF(kGap, top, metrics.horizontalAdvance(line), metrics.height()), line});
        top += metrics.height();
    }
}

}  // namespace

int FramePainter::footerHeight(const Picture& picture, int width) const {
    if (picture.footer.empty()) return 0;
    const QFontMetricsF metrics(font_);
    const double lines = double(FooterLines(picture, width, metrics).size());
    return static_cast<int>(std::ceil(lines * metrics.height() + 2 * kGap));
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

FramePainter::Layout FramePainter::layoutWith(QSize whole, const Picture& picture,
                                              int legendRows) const {
    const QSize size(whole.width(), whole.height() - footerHeight(picture, whole.width()));
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
    PlaceFooter(layout, whole, picture, metrics);
    layout.marks = PlaceMarks(font_, picture, layout.frame);
    return layout;
}

}  // namespace kelvro
