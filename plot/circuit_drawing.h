#pragma once

#include <QPainter>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <vector>

namespace kelvro {

/// A circuit diagram in the making: symbols and wires at logical coordinates (x to the right, y
/// downwards, one unit is one pixel of the natural size), and labels beside them.
class CircuitDrawing {
  public:
    enum class Side { Above, Right, Left, Below };

    static constexpr double kSymbolLength = 48;  ///< from terminal to terminal

    void wire(QPointF from, QPointF to);
    void node(QPointF at);      ///< filled dot of a junction
    void terminal(QPointF at);  ///< open dot of a port
    void ground(QPointF at);

    // Symbols are centred between two terminals on one horizontal or vertical line; the rest of the
    // way is wire.
    void resistor(QPointF from, QPointF to);
    void inductor(QPointF from, QPointF to, bool core = false);
    void capacitor(QPointF from, QPointF to);
    void line(QPointF from, QPointF to);
    /// A two-port of which only its ends are known.
    void box(QPointF from, QPointF to);
    void switchSymbol(QPointF from, QPointF to);
    void source(QPointF from, QPointF to);
    void arrow(QPointF from, QPointF to);

    /// Two lines of text beside a point: the name, and below it the value.
    void label(QPointF at, Side side, const QString& name, const QString& value = {});

    /// Another drawing beside what is here.
    void add(const CircuitDrawing& other, QPointF offset);

    /// Room that symbols and labels take.
    QRectF bounds() const;
    /// How large the drawing comes out in an area; at most a little above natural size.
    double scaleIn(const QSizeF& area) const;

    /// Everything scaled into the area, centred.
    void paint(QPainter& painter, const QRectF& area, const QColor& wire, const QColor& name,
               const QColor& value) const;

    /// The name of the label that is at a point of that area, or whose symbol is.
    QString nameAt(const QRectF& area, QPointF at) const;

  private:
    struct Label {
        QPointF at;
        Side side;
        QString name;
        QString value;
    };

    QPainterPath placed(const QPainterPath& symbol, QPointF from, QPointF to);
    void symbolLeads(QPointF from, QPointF to);
    static QRectF labelBox(const Label& label);

    QPainterPath strokes_;
    QPainterPath fills_;
    std::vector<Label> labels_;
};

}  // namespace kelvro
