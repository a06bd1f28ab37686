#include "plot/circuit_drawing.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLineF>
#include <QPainterPathStroker>
#include <QTransform>
#include <algorithm>

namespace kelvro {

namespace {

constexpr double kStroke = 1.6;
constexpr double kNodeRadius = 2.6;
constexpr double kTerminalRadius = 3.5;
constexpr double kLabelGap = 13;
constexpr double kSideGap = 17;  // clears the plates of a capacitor
constexpr double kLineHeight = 15;
constexpr double kFontPixels = 12.5;
constexpr double kLargestScale = 1.6;
constexpr double kMargin = 4;

QFont LabelFont(bool bold) {
    QFont font("DejaVu Sans");
    font.setPixelSize(static_cast<int>(kFontPixels));
    font.setBold(bold);
    return font;
}

/// What a pen covers, in one piece: where strokes overlap, their soft edges would add up to ticks.
QPainterPath Outline(const QPainterPath& strokes) {
    QPainterPathStroker stroker;
    stroker.setWidth(kStroke);
    stroker.setCapStyle(Qt::SquareCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(strokes).simplified();
}

QPointF Middle(QPointF from, QPointF to) {
    return (from + to) / 2;
}

}  // namespace

void CircuitDrawing::wire(QPointF from, QPointF to) {
    strokes_.moveTo(from);
    strokes_.lineTo(to);
}

void CircuitDrawing::node(QPointF at) {
    fills_.addEllipse(at, kNodeRadius, kNodeRadius);
}

void CircuitDrawing::terminal(QPointF at) {
    strokes_.addEllipse(at, kTerminalRadius, kTerminalRadius);
}

void CircuitDrawing::ground(QPointF at) {
    const double steps[] = {11, 7, 3};
    wire(at, at + QPointF(0, 8));
    for (int i = 0; i < 3; ++i) {
        const QPointF centre = at + QPointF(0, 8 + 4 * i);
        wire(centre - QPointF(steps[i], 0), centre + QPointF(steps[i], 0));
    }
}

/// A symbol drawn around the origin along x, moved between the two terminals.
QPainterPath CircuitDrawing::placed(const QPainterPath& symbol, QPointF from, QPointF to) {
    const QPointF centre = Middle(from, to);
    QTransform transform;
    transform.translate(centre.x(), centre.y());
    transform.rotate(-QLineF(from, to).angle());
    return transform.map(symbol);
}

void CircuitDrawing::symbolLeads(QPointF from, QPointF to) {
    const QLineF way(from, to);
    const double lead = std::max(0.0, (way.length() - kSymbolLength) / 2);
    if (lead == 0) return;
    wire(from, way.pointAt(lead / way.length()));
    wire(way.pointAt(1 - lead / way.length()), to);
}

void CircuitDrawing::resistor(QPointF from, QPointF to) {
    symbolLeads(from, to);
    QPainterPath symbol;
    symbol.addRect(-18, -7, 36, 14);
    symbol.moveTo(-kSymbolLength / 2, 0);
    symbol.lineTo(-18, 0);
    symbol.moveTo(18, 0);
    symbol.lineTo(kSymbolLength / 2, 0);
    strokes_.addPath(placed(symbol, from, to));
}

void CircuitDrawing::inductor(QPointF from, QPointF to, bool core) {
    symbolLeads(from, to);
    constexpr int turns = 4;
    constexpr double turn = 10;
    QPainterPath symbol;
    symbol.moveTo(-kSymbolLength / 2, 0);
    symbol.lineTo(-turns * turn / 2, 0);
    for (int i = 0; i < turns; ++i) {
        const double left = -turns * turn / 2 + i * turn;
        symbol.arcTo(QRectF(left, -turn / 2, turn, turn), 180, -180);
    }
    symbol.lineTo(kSymbolLength / 2, 0);
    if (core) {
        for (const double y : {-9.0, -12.0}) {
            symbol.moveTo(-20, y);
            symbol.lineTo(20, y);
        }
    }
    strokes_.addPath(placed(symbol, from, to));
}

void CircuitDrawing::capacitor(QPointF from, QPointF to) {
    symbolLeads(from, to);
    constexpr double gap = 3.5;
    constexpr double plate = 12;
    QPainterPath symbol;
    for (const double side : {-1.0, 1.0}) {
        symbol.moveTo(side * kSymbolLength / 2, 0);
        symbol.lineTo(side * gap, 0);
        symbol.moveTo(side * gap, -plate);
        symbol.lineTo(side * gap, plate);
    }
    strokes_.addPath(placed(symbol, from, to));
}

void CircuitDrawing::line(QPointF from, QPointF to) {
    const QLineF way(from, to);
    const double half = way.length() / 2 - 12;
    constexpr double radius = 9;
    QPainterPath symbol;
    symbol.moveTo(-half, -radius);
    symbol.lineTo(half, -radius);
    symbol.moveTo(-half, radius);
    symbol.lineTo(half, radius);
    symbol.addEllipse(QPointF(half, 0), 4, radius);
    symbol.moveTo(-half, -radius);
    symbol.arcTo(QRectF(-half - 4, -radius, 8, 2 * radius), 90, 180);
    symbol.moveTo(-half - 12, 0);
    symbol.lineTo(-half - 4, 0);
    symbol.moveTo(half, 0);
    symbol.lineTo(half + 12, 0);
    strokes_.addPath(placed(symbol, from, to));
}

void CircuitDrawing::box(QPointF from, QPointF to) {
    symbolLeads(from, to);
    QPainterPath symbol;
    symbol.addRect(-kSymbolLength / 2, -18, kSymbolLength, 36);
    strokes_.addPath(placed(symbol, from, to));
}

void CircuitDrawing::switchSymbol(QPointF from, QPointF to) {
    symbolLeads(from, to);
    QPainterPath symbol;
    symbol.moveTo(-kSymbolLength / 2, 0);
    symbol.lineTo(-14, 0);
    symbol.addEllipse(QPointF(-12, 0), 2.2, 2.2);
    symbol.addEllipse(QPointF(12, 0), 2.2, 2.2);
    symbol.moveTo(14, 0);
    symbol.lineTo(kSymbolLength / 2, 0);
    symbol.moveTo(12, 0);
    symbol.lineTo(-10, -12);
    strokes_.addPath(placed(symbol, from, to));
}

void CircuitDrawing::source(QPointF from, QPointF to) {
    symbolLeads(from, to);
    constexpr double radius = 15;
    const QPointF centre = Middle(from, to);
    QPainterPath symbol;
    symbol.moveTo(-kSymbolLength / 2, 0);
    symbol.lineTo(-radius, 0);
    symbol.moveTo(radius, 0);
    symbol.lineTo(kSymbolLength / 2, 0);
    strokes_.addPath(placed(symbol, from, to));
    strokes_.addEllipse(centre, radius, radius);
    strokes_.moveTo(centre + QPointF(-8, 0));  // one period of a sine, upright in any direction
    strokes_.cubicTo(centre + QPointF(-5, -9), centre + QPointF(-3, -9), centre);
    strokes_.cubicTo(centre + QPointF(3, 9), centre + QPointF(5, 9), centre + QPointF(8, 0));
}

void CircuitDrawing::arrow(QPointF from, QPointF to) {
    wire(from, to);
    QPainterPath head;
    head.moveTo(0, 0);
    head.lineTo(-8, -3.5);
    head.lineTo(-8, 3.5);
    head.closeSubpath();
    QTransform transform;
    transform.translate(to.x(), to.y());
    transform.rotate(-QLineF(from, to).angle());
    fills_.addPath(transform.map(head));
}

void CircuitDrawing::label(QPointF at, Side side, const QString& name, const QString& value) {
    labels_.push_back({at, side, name, value});
}

QRectF CircuitDrawing::labelBox(const Label& label) {
    const double width = std::max(QFontMetricsF(LabelFont(true)).horizontalAdvance(label.name),
                                  QFontMetricsF(LabelFont(false)).horizontalAdvance(label.value)) +
                         2;
    const double height = kLineHeight * (label.value.isEmpty() ? 1 : 2);
    switch (label.side) {
        case Side::Above:
            return {label.at.x() - width / 2, label.at.y() - kLabelGap - height, width, height};
        case Side::Below:
            return {label.at.x() - width / 2, label.at.y() + kLabelGap, width, height};
        case Side::Left:
            return {label.at.x() - kSideGap - width, label.at.y() - height / 2, width, height};
        case Side::Right:
            break;
    }
    return {label.at.x() + kSideGap, label.at.y() - height / 2, width, height};
}

QRectF CircuitDrawing::bounds() const {
    QRectF box = strokes_.boundingRect() | fills_.boundingRect();
    for (const Label& label : labels_) box |= labelBox(label);
    return box;
}

void CircuitDrawing::add(const CircuitDrawing& other, QPointF offset) {
    strokes_.addPath(other.strokes_.translated(offset));
    fills_.addPath(other.fills_.translated(offset));
    for (Label label : other.labels_) {
        label.at += offset;
        labels_.push_back(std::move(label));
    }
}

double CircuitDrawing::scaleIn(const QSizeF& area) const {
    const QRectF box = bounds();
    return std::min({area.width() / (box.width() + 2 * kMargin),
                     area.height() / (box.height() + 2 * kMargin), kLargestScale});
}

void CircuitDrawing::paint(QPainter& painter, const QRectF& area, const QColor& wire,
                           const QColor& name, const QColor& value) const {
    const QRectF box = bounds();
    if (box.isEmpty() || area.isEmpty()) return;
    const double scale = scaleIn(area.size());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.center());
    painter.scale(scale, scale);
    painter.translate(-box.center());
    painter.fillPath(Outline(strokes_), wire);
    QPainterPath solid = fills_;
    solid.setFillRule(Qt::WindingFill);  // a node of two paths is drawn by both, and stays a dot
    painter.fillPath(solid, wire);
    for (const Label& label : labels_) {
        const QRectF text = labelBox(label);
        const auto flags = label.side == Side::Right  ? Qt::AlignLeft
                           : label.side == Side::Left ? Qt::AlignRight
                                                      : Qt::AlignHCenter;
        painter.setFont(LabelFont(true));
        painter.setPen(name);
        painter.drawText(QRectF(text.left(), text.top(), text.width(), kLineHeight),
                         static_cast<int>(flags) | Qt::TextDontClip, label.name);
        if (label.value.isEmpty()) continue;
        painter.setFont(LabelFont(false));
        painter.setPen(value);
        painter.drawText(QRectF(text.left(), text.top() + kLineHeight, text.width(), kLineHeight),
                         static_cast<int>(flags) | Qt::TextDontClip, label.value);
    }
    painter.restore();
}

QString CircuitDrawing::nameAt(const QRectF& area, QPointF at) const {
    const double scale = scaleIn(area.size());
    const QPointF here = (at - area.center()) / scale + bounds().center();
    QString nearest;
    double distance = kSymbolLength / 2;
    for (const Label& label : labels_) {
        const bool onText = labelBox(label).contains(here);
        const double away = onText ? 0 : QLineF(here, label.at).length();
        if (label.name.isEmpty() || away >= distance) continue;
        distance = away;
        nearest = label.name;
    }
    return nearest;
}

}  // namespace kelvro
