#pragma once

#include <QWidget>
#include <optional>

#include "ui/workbench/network_model.h"

namespace kelvro {

/// The ladder as a drawing from source to load: a click chooses an element, a drag moves it to
/// another place, a double-click and the right button ask for more.
class LadderPicture : public QWidget {
    Q_OBJECT

  public:
    explicit LadderPicture(NetworkModel& model, QWidget* parent = nullptr);

    /// The element that is marked; -1 for none.
    void mark(int element);
    /// The middle of an element's place.
    QPoint placeOf(int element) const;

    QSize sizeHint() const override { return {220, 90}; }
    QSize minimumSizeHint() const override { return {120, 70}; }

  signals:
    void chosen(int element);
    /// Dragged from its place to that of another.
    void moved(int from, int to);
    void editWanted(int element);
    void menuWanted(int element, QPoint global);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    int count() const { return static_cast<int>(model_.network().ladder.size()); }
    /// The element at a place; -1 outside.
    int elementAt(QPointF at) const;

    NetworkModel& model_;
    int marked_ = -1;
    int grabbed_ = -1;  ///< while the button is down
    int target_ = -1;   ///< where the grabbed one would go
};

}  // namespace kelvro
