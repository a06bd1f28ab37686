#pragma once

#include <QImage>
#include <QWidget>
#include <optional>

#include "ui/workbench/network_model.h"

class QAbstractButton;

namespace kelvro {

struct ElementKind;

/// Where something is dropped: onto an element, or before it (one past the last: at the load).
struct LadderPlace {
    int element;
    bool onto;
    bool operator==(const LadderPlace&) const = default;
};

/// The ladder as a drawing from source to load: a click chooses an element; a drag moves it between
/// others, changes places with the one that it is dropped onto, or carries it to what takes
/// elements away; with Ctrl it is a copy. Kinds of the palette are dropped alike, and Escape gives
/// up. A double-click and the right button ask for more.
class LadderPicture : public QWidget {
    Q_OBJECT

  public:
    explicit LadderPicture(NetworkModel& model, QWidget* parent = nullptr);
    ~LadderPicture() override;

    /// The element that is marked; -1 for none.
    void mark(int element);
    /// The middle of an element's place.
    QPoint placeOf(int element) const;
    /// A new element of a kind hangs at the pointer until its button is let go.
    void carry(const ElementKind& kind);
    /// What takes away an element that is dropped on it.
    void setBin(QAbstractButton* bin) { bin_ = bin; }

    QSize sizeHint() const override { return {220, 90}; }
    QSize minimumSizeHint() const override { return {120, 70}; }

  signals:
    void chosen(int element);
    /// An element of the ladder, or a copy of it, was dropped.
    void dropped(int from, LadderPlace to, bool copy);
    void kindDropped(const ElementKind& kind, LadderPlace to);
    void thrownAway(int element);
    void editWanted(int element);
    void menuWanted(int element, QPoint global);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Of the program, while something is carried.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    int count() const { return static_cast<int>(model_.network().ladder.size()); }
    QRectF placeRect(int element) const;
    /// The element at a place; -1 outside.
    int elementAt(QPointF at) const;
    /// What hangs at the pointer: an element from here, or a new one of a kind.
    struct Carried {
        int from;
        const ElementKind* kind;
    };
    void carry(Carried what, const LadderElement& drawn);
    /// Where a drop would go; nothing where it would change nothing.
    std::optional<LadderPlace> targetAt(QPoint global, bool copy) const;
    bool overBin(QPoint global) const;
    void carryTo(QPoint global, bool copy);
    void drop(QPoint global, bool copy);
    /// Puts down what is carried, wherever it went.
    Carried release();
    void paintTarget(QPainter& painter) const;

    /// What the drawing depends on: the ladder whatever its values, and where it is drawn.
    struct Drawn {
        std::vector<LadderElement> ladder;
        QSize size;
        QRgb colour = 0;
        double ratio = 0;
        bool operator==(const Drawn&) const = default;
    };
    /// Drawn anew only when it changes, not with every value that a drag on the chart sets.
    const QImage& drawing();

    NetworkModel& model_;
    Drawn drawn_;
    QImage drawing_;
    int marked_ = -1;
    int grabbed_ = -1;  ///< while the button is down
    QPointF pressed_;
    std::optional<Carried> carried_;
    std::optional<LadderPlace> target_;
    QAbstractButton* bin_ = nullptr;
};

}  // namespace kelvro
