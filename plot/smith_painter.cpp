#include "plot/smith_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

namespace kelvro {

namespace {

using Cx = std::complex<double>;

/// Colours of one appearance of the chart.
struct Colours {
    QColor background;
    QColor text;
    QColor rim;
    QColor major;
    QColor minor;
    QColor paleMajor;  ///< the second grid
    QColor paleMinor;
    QColor ghost;
};

Colours ColoursOf(bool dark) {
    if (dark) {
        return {QColor(30, 32, 36),    QColor(222, 222, 222), QColor(150, 150, 150),
                QColor(104, 104, 112), QColor(66, 68, 76),    QColor(78, 92, 110),
                QColor(50, 58, 68),    QColor(140, 140, 120)};
    }
    return {Qt::white,
            Qt::black,
            QColor(70, 70, 70),
            QColor(176, 176, 176),
            QColor(220, 220, 220),
            QColor(190, 208, 228),
            QColor(226, 234, 244),
            QColor(170, 160, 130)};
}

QColor ToColor(Rgb colour) {
    return {colour.red, colour.green, colour.blue};
}

class ChartDrawing {
  public:
    ChartDrawing(QPainter& painter, QSize size, const SmithPicture& picture, int fontPixels)
        : painter_(painter),
          picture_(picture),
          colours_(ColoursOf(picture.dark)),
          frame_{double(size.width()), double(size.height()), picture.view},
          font_(painter.font()) {
        font_.setPixelSize(fontPixels);
    }

    /// Background, grids and the rim.
    void drawGround() {
        begin();
        painter_.fillRect(whole(), colours_.background);
        grids();
        painter_.restore();
    }

    /// All that stands on the ground.
    void drawContents() {
        begin();
        for (const ChartContour& contour : picture_.contours) drawContour(contour);
        ghost();
        for (const ChartTrace& trace : picture_.traces) drawTrace(trace);
        path();
        for (const ChartPoint& point : picture_.points) drawPoint(point);
        texts();
        painter_.restore();
    }

    const ChartFrame& frame() const { return frame_; }

  private:
    QRectF whole() const { return {0, 0, frame_.width, frame_.height}; }

    void begin() {
        painter_.save();
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.setFont(font_);
        painter_.setClipRect(whole());
    }

    QPointF place(Cx gamma) const {
        const auto [x, y] = frame_.place(gamma);
        return {x, y};
    }

    /// Pieces between points that are not finite or lie so far out that a device could not hold
    /// them.
    void polyline(const std::vector<Cx>& points) {
        QPolygonF piece;
        const auto finish = [&] {
            if (piece.size() > 1) painter_.drawPolyline(piece);
            piece.clear();
        };
        for (const Cx& point : points) {
            const bool far = !(std::abs(point) < 1e4);
            if (far) {
                finish();
            } else {
                piece << place(point);
            }
        }
        finish();
    }

    void drawGrid(const std::vector<GridLine>& lines, bool pale) {
        for (const bool major : {false, true}) {
            const QColor colour = pale ? (major ? colours_.paleMajor : colours_.paleMinor)
                                       : (major ? colours_.major : colours_.minor);
            painter_.setPen(QPen(colour, 1));
            for (const GridLine& line : lines) {
                if (line.major == major) polyline(line.points);
            }
        }
    }

    void drawLabels(const std::vector<GridLine>& lines, QColor colour) {
        const QFontMetricsF metrics(font_);
        painter_.setPen(colour);
        for (const GridLine& line : lines) {
            if (line.label.empty()) continue;
            const QString text = QString::fromStdString(line.label);
            const double width = metrics.horizontalAdvance(text);
            QPointF at = place(line.labelAt);
            if (line.reactance) {
                // Outside the rim, on the side away from the centre, as long as there is room.
                const double outwards = 0.6 * metrics.height();
                at += QPointF(line.labelAt.real() * (outwards + width / 2),
                              -line.labelAt.imag() * outwards);
                at += QPointF(-width / 2, metrics.ascent() / 2);
            } else {
                at += QPointF(2, -2);
            }
            at.setX(std::clamp(at.x(), 1.0, std::max(1.0, frame_.width - width - 1)));
            painter_.drawText(at, text);
        }
    }

    void grids() {
        const bool both = picture_.grids.impedance && picture_.grids.admittance;
        const auto Z = picture_.grids.impedance ? ImpedanceGrid(frame_) : std::vector<GridLine>();
        const auto Y = picture_.grids.admittance ? AdmittanceGrid(frame_) : std::vector<GridLine>();
        drawGrid(Y, both);
        drawGrid(Z, false);
        painter_.setPen(QPen(colours_.rim, 1.4));
        painter_.setBrush(Qt::NoBrush);
        std::vector<Cx> rim;
        constexpr int steps = 360;
        // A polyline of the whole circle would be coarse where it is enlarged.
        const int finer = std::min(64, static_cast<int>(std::ceil(picture_.view.zoom)));
        for (int i = 0; i <= steps * finer; ++i)
            rim.push_back(std::polar(1.0, 2 * 3.14159265358979 * i / (steps * finer)));
        polyline(rim);
        drawLabels(picture_.grids.impedance ? Z : Y, colours_.rim);
    }

    void drawContour(const ChartContour& contour) {
        painter_.setPen(QPen(readable(contour.colour), 1.2, Qt::DashLine));
        painter_.setBrush(Qt::NoBrush);
        const ChartCircle& circle = contour.circle;
        if (!contour.clipped) {
            const double radius = circle.radius * frame_.scale();
            painter_.drawEllipse(place({circle.u, circle.v}), radius, radius);
        } else {
            for (const auto& piece : InsideChart(circle)) polyline(piece);
        }
        if (contour.label.empty()) return;
        const QPointF at = place({circle.u, circle.v + circle.radius});
        const QString text = QString::fromStdString(contour.label);
        painter_.drawText(inside(at + QPointF(3, -3), text), text);
    }

    void ghost() {
        painter_.setPen(QPen(colours_.ghost, 1.6, Qt::DotLine));
        for (const PathStep& step : picture_.ghost) polyline(step.gamma);
    }

    void drawTrace(const ChartTrace& trace) {
        QPen pen(readable(trace.colour), trace.width, trace.dashed ? Qt::DashLine : Qt::SolidLine);
        pen.setJoinStyle(Qt::RoundJoin);
        painter_.setPen(pen);
        polyline(trace.gamma);
    }

    void path() {
        for (std::size_t i = 0; i < picture_.path.size(); ++i) {
            const PathStep& step = picture_.path[i];
            const QColor colour = ToColor(ElementColour(step.element, picture_.dark));
            painter_.setPen(QPen(colour, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            polyline(step.gamma);
        }
        for (std::size_t i = 0; i < picture_.path.size(); ++i) drawNode(i);
        for (const PathStep& step : picture_.path) drawName(step);
    }

    void drawNode(std::size_t index) {
        const PathStep& step = picture_.path[index];
        const QColor colour = ToColor(ElementColour(step.element, picture_.dark));
        const bool selected = static_cast<int>(index) == picture_.selectedStep;
        const double radius = selected ? 6.5 : 4.2;
        painter_.setPen(QPen(selected ? colours_.text : colour, 1.6));
        painter_.setBrush(step.tunable ? colour : colours_.background);
        painter_.drawEllipse(place(step.gamma.back()), radius, radius);
        painter_.setBrush(Qt::NoBrush);
    }

    /// Beside the middle of the step, on the background's colour so that it reads on any grid.
    void drawName(const PathStep& step) {
        if (step.name.empty()) return;
        const QFontMetricsF metrics(font_);
        const QString text = QString::fromStdString(step.name);
        const QPointF at = inside(place(step.gamma[step.gamma.size() / 2]) + QPointF(6, -4), text);
        QRectF box = metrics.tightBoundingRect(text).translated(at).adjusted(-2, -2, 2, 2);
        QColor veil = colours_.background;
        veil.setAlpha(200);
        painter_.fillRect(box, veil);
        painter_.setPen(ToColor(ElementColour(step.element, picture_.dark)));
        painter_.drawText(at, text);
    }

    void drawPoint(const ChartPoint& point) {
        if (!(std::abs(point.gamma) < 1e4)) return;
        const QPointF at = place(point.gamma);
        const QColor colour =
            picture_.dark && point.colour == Rgb{} ? colours_.text : readable(point.colour);
        painter_.setPen(QPen(colour, 1.6));
        painter_.setBrush(point.hollow ? QBrush(colours_.background) : QBrush(colour));
        painter_.drawEllipse(at, 4, 4);
        painter_.setBrush(Qt::NoBrush);
        const QString text = QString::fromStdString(point.label);
        const double width = QFontMetricsF(font_).horizontalAdvance(text);
        const bool fits = at.x() + 6 + width < frame_.width;
        painter_.drawText(at + QPointF(fits ? 6 : -6 - width, 12), text);
    }

    /// A text at the edge of the picture begins early enough to be whole. What lies beyond it stays
    /// there.
    QPointF inside(QPointF at, const QString& text) const {
        const double last = frame_.width - QFontMetricsF(font_).horizontalAdvance(text) - 1;
        if (at.x() > last && at.x() < frame_.width) at.setX(std::max(1.0, last));
        return at;
    }

    void texts() {
        const QFontMetricsF metrics(font_);
        corner(picture_.title, metrics.ascent() + 4);
        corner(picture_.reference, frame_.height - metrics.descent() - 4);
    }

    /// A line at the left, on the background so that no grid runs through it.
    void corner(const std::string& text, double baseline) {
        if (text.empty()) return;
        const QFontMetricsF metrics(font_);
        const QString shown = QString::fromStdString(text);
        const QRectF box(2, baseline - metrics.ascent() - 1, metrics.horizontalAdvance(shown) + 8,
                         metrics.height() + 2);
        painter_.fillRect(box, colours_.background);
        painter_.setPen(colours_.text);
        painter_.drawText(QPointF(6, baseline), shown);
    }

    QPainter& painter_;
    const SmithPicture& picture_;
    /// On a dark ground light enough to be seen, of the same hue.
    QColor readable(Rgb colour) const {
        const QColor given = ToColor(colour);
        if (!picture_.dark || given.lightnessF() >= kLeastOnDark) return given;
        return QColor::fromHslF(given.hslHueF(), given.hslSaturationF(), kLeastOnDark);
    }

    static constexpr float kLeastOnDark = 0.6F;

    const Colours colours_;
    const ChartFrame frame_;
    QFont font_;
};

}  // namespace

Rgb ElementColour(std::size_t element, bool dark) {
    static constexpr std::array<Rgb, 8> onLight = {{{0, 90, 200},
                                                    {200, 60, 0},
                                                    {0, 130, 60},
                                                    {150, 0, 150},
                                                    {140, 100, 0},
                                                    {0, 130, 150},
                                                    {190, 0, 80},
                                                    {90, 90, 90}}};
    static constexpr std::array<Rgb, 8> onDark = {{{100, 170, 255},
                                                   {255, 150, 90},
                                                   {100, 210, 130},
                                                   {220, 130, 230},
                                                   {225, 190, 90},
                                                   {90, 210, 225},
                                                   {255, 120, 170},
                                                   {190, 190, 190}}};
    const auto& colours = dark ? onDark : onLight;
    return colours[element % colours.size()];
}

void DrawSmithGround(QPainter& painter, QSize size, const SmithPicture& picture, int fontPixels) {
    ChartDrawing(painter, size, picture, fontPixels).drawGround();
}

ChartFrame DrawSmithContents(QPainter& painter, QSize size, const SmithPicture& picture,
                             int fontPixels) {
    ChartDrawing drawing(painter, size, picture, fontPixels);
    drawing.drawContents();
    return drawing.frame();
}

ChartFrame DrawSmithChart(QPainter& painter, QSize size, const SmithPicture& picture,
                          int fontPixels) {
    DrawSmithGround(painter, size, picture, fontPixels);
    return DrawSmithContents(painter, size, picture, fontPixels);
}

}  // namespace kelvro
