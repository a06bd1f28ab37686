#include "plot/frame_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "plot/clipping.h"
#include "plot/frame_metrics.h"

namespace kelvro {

namespace {

using namespace metrics;

/// Hair lines closer than this would run into a surface that hides the grid.
constexpr double kHairLineGap = 3;

/// Relative luminance of sRGB (WCAG 2.1).
double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// Contrast ratio of two colours, from 1 to 21 (WCAG 2.1).
double Contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// What surrounds the curves. Colours keep their hue: on a dark ground they become light enough to
/// be seen, on paper dark enough; hair lines stay behind the curves.
class Theme {
  public:
    explicit Theme(bool dark, bool paper = false) : dark_(dark), paper_(paper) {}

    QColor ground() const { return dark_ ? QColor(24, 26, 30) : QColor(Qt::white); }
    QColor ink() const { return dark_ ? QColor(222, 224, 228) : QColor(Qt::black); }
    QColor grid() const { return dark_ ? QColor(44, 47, 52) : QColor(226, 226, 226); }
    QColor majorGrid() const { return dark_ ? QColor(66, 70, 77) : QColor(196, 196, 196); }
    QColor originLine() const { return dark_ ? QColor(140, 144, 152) : QColor(96, 96, 96); }

    QColor curve(Rgb colour) const {
        return at(colour, dark_ ? kLeastOnDark : 0, paper_ ? kMostOnPaper : 1);
    }
    /// What a text of this colour can be read on: the ground, or a dark plate.
    QColor groundOf(Rgb text) const {
        return Contrast(curve(text), ground()) < kLegible ? QColor(56, 56, 56) : ground();
    }
    QColor hairLine(Rgb colour) const {
        return at(colour, 0, dark_ ? kMostBehind : paper_ ? kMostBehindOnPaper : 1);
    }

  private:
    static constexpr double kLegible = 4.5;  // WCAG 2.1, success criterion 1.4.3
    static constexpr float kLeastOnDark = 0.6F;
    static constexpr float kMostBehind = 0.3F;
    static constexpr float kMostOnPaper = 0.45F;
    static constexpr float kMostBehindOnPaper = 0.6F;

    static QColor at(Rgb colour, float least, float most) {
        const QColor plain(colour.red, colour.green, colour.blue);
        float hue = 0;
        float saturation = 0;
        float lightness = 0;
        plain.getHslF(&hue, &saturation, &lightness);
        if (lightness >= least && lightness <= most) return plain;
        return QColor::fromHslF(std::max(hue, 0.0F), saturation,
                                std::clamp(lightness, least, most));
    }

    bool dark_;
    bool paper_;
};

QPen ThinPen(const QColor& colour) {
    return QPen(colour, 1, Qt::SolidLine, Qt::FlatCap);
}

QPen CurvePen(const Theme& theme, const Curve& curve) {
    QPen pen(theme.curve(curve.colour), curve.width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
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

void DrawGrid(QPainter& painter, const Theme& theme, const FramePainter::Layout& layout) {
    const PlotRect& plot = layout.frame.plot;
    const auto lines = [&](const Ticks& x, const Ticks& y, bool major) {
        painter.setPen(ThinPen(major ? theme.majorGrid() : theme.grid()));
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
void DrawRightTicks(QPainter& painter, const Theme& theme, const FramePainter::Layout& layout) {
    constexpr double kLength = 5;
    const Frame frame = layout.frame.ofRightAxis();
    painter.setPen(ThinPen(theme.ink()));
    for (const Tick& tick : layout.rightTicks.major) {
        const double middle = frame.yPixel(tick.value) + 0.5;
        painter.drawLine(QPointF(frame.plot.right - kLength, middle),
                         QPointF(frame.plot.right, middle));
    }
}

void DrawHairLines(QPainter& painter, const Theme& theme, const HairLines& lines,
                   const Frame& frame) {
    const Axis& axis = frame.view.x;
    painter.setPen(ThinPen(theme.hairLine(lines.colour)));
    double last = -kHairLineGap;
    for (const double x : lines.x) {
        const int column = frame.xPixel(x);
        if (!(x >= axis.min && x <= axis.max) || std::fabs(column - last) < kHairLineGap) continue;
        DrawVertical(painter, column, frame.plot);
        last = column;
    }
}

void DrawAxes(QPainter& painter, const Theme& theme, const Frame& frame) {
    const auto& [plot, view] = frame;
    painter.setPen(ThinPen(theme.originLine()));
    DrawVertical(painter, frame.xPixel(view.x.origin), plot);
    DrawHorizontal(painter, frame.yPixel(view.y.origin), plot);
    painter.setPen(ThinPen(theme.ink()));
    DrawVertical(painter, plot.left, plot);
    DrawVertical(painter, plot.right, plot);
    DrawHorizontal(painter, plot.top, plot);
    DrawHorizontal(painter, plot.bottom, plot);
}

void DrawLabels(QPainter& painter, const Theme& theme, const FramePainter::Layout& layout) {
    painter.setPen(theme.ink());
    for (const auto* labels :
         {&layout.xLabels, &layout.yLabels, &layout.rightLabels, &layout.names, &layout.footer}) {
        for (const auto& label : *labels) DrawText(painter, label.box, label.text);
    }
}

void DrawLegend(QPainter& painter, const Theme& theme, const FramePainter::Layout& layout) {
    for (const auto& [entry, box] : layout.legend) {
        painter.setPen(theme.ink());
        DrawText(painter, box, ToText(entry.text));
        Curve sample{.x = {}, .y = {}, .colour = entry.colour, .style = entry.style, .width = 2};
        painter.setPen(CurvePen(theme, sample));
        const double middle = box.top() + std::round(box.height() / 2);
        painter.drawLine(QPointF(box.right() - kLegendLine, middle), QPointF(box.right(), middle));
    }
}

void DrawTitle(QPainter& painter, const Theme& theme, const std::string& text,
               const PlotRect& plot) {
    if (text.empty()) return;
    const QFont plain = painter.font();
    QFont bold = plain;
    bold.setBold(true);
    const QString title = ToText(text);
    const double width = QFontMetricsF(bold).horizontalAdvance(title);
    painter.setPen(theme.ink());
    painter.setFont(bold);
    const double centre = (plot.left + plot.right - width) / 2;
    DrawText(painter, QRectF(std::max(centre, 0.0), kGap, width, 0), title);
    painter.setFont(plain);
}

void DrawMarks(QPainter& painter, const Theme& theme, const FramePainter::Layout& layout) {
    const QFont plain = painter.font();
    for (const auto& [level, row, font, baseline, box] : layout.marks) {
        painter.setPen(ThinPen(theme.curve(level.lineColour)));
        DrawHorizontal(painter, row, layout.frame.plot);
        painter.setFont(font);
        painter.setPen(theme.curve(level.labelColour));
        painter.drawText(QPointF(box.left(), baseline), ToText(level.label));
    }
    painter.setFont(plain);
}

void DrawDots(QPainter& painter, const Theme& theme, const Frame& frame, const Curve& curve) {
    const double half = curve.dotSize / 2;
    const auto draw = [&](std::size_t i) {
        const WorldPoint place = frame.place(curve.x[i], curve.y[i]);
        if (!frame.contains(place.x, place.y)) return;
        painter.fillRect(QRectF(place.x - half, place.y - half, curve.dotSize, curve.dotSize),
                         theme.curve(curve.dotColour));
    };
    for (const std::size_t i : curve.dots) draw(i);
    if (!curve.dots.empty()) return;
    for (std::size_t i = 0; i < std::min(curve.x.size(), curve.y.size()); ++i) draw(i);
}

/// A wedge whose tip stands on the curve, its number above it; where there is no room above, it
/// hangs below.
void DrawPointers(QPainter& painter, const Theme& theme, const Frame& whole,
                  const std::vector<Pointer>& pointers) {
    constexpr double kHalf = 4;
    constexpr double kHeight = 7;
    const QFontMetricsF metrics(painter.font());
    for (const Pointer& pointer : pointers) {
        const Frame frame = pointer.onRight ? whole.ofRightAxis() : whole;
        const WorldPoint at = frame.place(pointer.x, pointer.y);
        const PlotRect& plot = frame.plot;
        if (!(at.x >= plot.left && at.x <= plot.right && at.y >= plot.top && at.y <= plot.bottom)) {
            continue;
        }
        const double room = kHeight + metrics.ascent() + 1;
        const double up = at.y - room < plot.top ? 1 : -1;
        painter.setPen(QPen(theme.curve(pointer.colour), 1.5));
        painter.drawPolyline(
            QPolygonF({QPointF(at.x - kHalf, at.y + up * kHeight), QPointF(at.x, at.y),
                       QPointF(at.x + kHalf, at.y + up * kHeight),
                       QPointF(at.x - kHalf, at.y + up * kHeight)}));
        const QString label = ToText(pointer.label);
        const double left = at.x - metrics.horizontalAdvance(label) / 2;
        const double top = up < 0 ? at.y - room : at.y + kHeight;
        DrawText(painter, QRectF(left, top, 0, 0), label);
    }
}

/// In the middle of the plot, on the ground so that no line runs through it.
void DrawNote(QPainter& painter, const Theme& theme, const std::string& note,
              const PlotRect& plot) {
    if (note.empty()) return;
    const QFont plain = painter.font();
    QFont large = plain;
    large.setPixelSize(plain.pixelSize() * 3 / 2);
    large.setBold(true);
    const QFontMetricsF metrics(large);
    const QString text = ToText(note);
    const double width = metrics.horizontalAdvance(text);
    const QRectF box((plot.left + plot.right - width) / 2,
                     (plot.top + plot.bottom - metrics.height()) / 2, width, metrics.height());
    painter.fillRect(box.adjusted(-8, -4, 8, 4), theme.ground());
    painter.setFont(large);
    painter.setPen(theme.originLine());
    DrawText(painter, box, text);
    painter.setFont(plain);
}

}  // namespace

FramePainter::FramePainter(int fontPixels, const QString& family) : font_("MS Sans Serif") {
    if (!family.isEmpty()) font_.setFamilies({font_.family(), family});
    font_.setStyleHint(QFont::SansSerif);
    font_.setPixelSize(fontPixels);
}

Frame FramePainter::draw(QPainter& painter, QSize size, const Picture& picture) const {
    const Layout layout = this->layout(size, picture);
    const Theme theme(picture.dark, picture.paper);
    const Frame& frame = layout.frame;
    painter.save();
    painter.setFont(font_);
    painter.fillRect(QRect(QPoint(0, 0), size), theme.ground());
    painter.setRenderHint(QPainter::Antialiasing, false);
    DrawGrid(painter, theme, layout);
    for (const HairLines& lines : picture.hairLines) DrawHairLines(painter, theme, lines, frame);
    // The light labels of the marks would be lost among grid and hair lines.
    for (const Mark& mark : layout.marks)
        painter.fillRect(mark.box, theme.groundOf(mark.level.labelColour));
    DrawAxes(painter, theme, frame);
    DrawRightTicks(painter, theme, layout);
    DrawLabels(painter, theme, layout);
    DrawTitle(painter, theme, picture.title, frame.plot);
    DrawLegend(painter, theme, layout);
    for (const bool behind : {true, false}) {
        for (const Curve& curve : picture.curves) {
            if (curve.behind != behind) continue;
            drawCurve(painter, frame, curve, picture.dark, picture.paper);
        }
    }
    DrawMarks(painter, theme, layout);
    DrawPointers(painter, theme, frame, picture.pointers);
    DrawNote(painter, theme, picture.note, frame.plot);
    painter.restore();
    return frame;
}

void FramePainter::drawCurve(QPainter& painter, const Frame& whole, const Curve& curve, bool dark,
                             bool paper) const {
    const Frame frame = curve.onRight ? whole.ofRightAxis() : whole;
    const Theme theme(dark, paper);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (curve.width > 0) {
        painter.setPen(CurvePen(theme, curve));
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
    if (curve.dotSize > 0) DrawDots(painter, theme, frame, curve);
    painter.restore();
}

}  // namespace kelvro
