#pragma once

#include <QToolButton>
#include <QWidget>
#include <span>

#include "network/network.h"

namespace kelvro {

/// What can be put into a ladder, with values of a useful size where it is put.
struct ElementKind {
    const char* object;  ///< name of its controls
    const char* caption;
    const char* hint;
    /// At a frequency, with reactances or impedances of R ohm.
    LadderElement (*make)(double f, double R);
};

/// All of them, in the order of menu and palette.
std::span<const ElementKind> ElementKinds();

/// An element of a kind in the place of another: a coil or capacitor takes over the reactance in
/// size, a resistor the impedance, a line the length and impedance of a line, and the node behind
/// it keeps its name. `f` and `R` are for what there is nothing to take over from.
LadderElement InPlaceOf(const ElementKind& kind, const LadderElement& old, double f, double R);

/// The inductance or capacitance of a reactance in size X.
double InductanceOf(double X, double f);
double CapacitanceOf(double X, double f);

/// One kind of the palette: it can be clicked and dragged.
class ElementTile : public QToolButton {
    Q_OBJECT

  public:
    explicit ElementTile(const ElementKind& kind, QWidget* parent = nullptr);
    const ElementKind& kind() const { return kind_; }
    QSize sizeHint() const override { return {22, 38}; }

  signals:
    void dragged();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    const ElementKind& kind_;
    QPoint pressed_;
};

/// The kinds side by side, to be dragged into the picture of the ladder or clicked.
class ElementPalette : public QWidget {
    Q_OBJECT

  public:
    explicit ElementPalette(QWidget* parent = nullptr);

  signals:
    void chosen(const ElementKind& kind);
    /// It hangs at the pointer from here on, whose button is down.
    void dragged(const ElementKind& kind);
};

}  // namespace kelvro
