#include "ui/plot/value_spin.h"

#include <QApplication>
#include <QEvent>
#include <QToolButton>
#include <QVBoxLayout>

namespace kelvro {

namespace {

QToolButton* MakeArrow(Qt::ArrowType arrow, const QString& name, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setFixedSize(18, 12);
    return button;
}

}  // namespace

ValueSpin::ValueSpin(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    auto* up = MakeArrow(Qt::UpArrow, name + "Up", this);
    auto* down = MakeArrow(Qt::DownArrow, name + "Down", this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(up);
    column->addWidget(down);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(up, &QToolButton::clicked, this, [this, up] { click(*up, 1); });
    connect(down, &QToolButton::clicked, this, [this, down] { click(*down, -1); });
}

/// The arrows say what the whole does.
bool ValueSpin::event(QEvent* event) {
    if (event->type() == QEvent::ToolTipChange) {
        for (auto* arrow : findChildren<QToolButton*>()) {
            arrow->setToolTip(toolTip());
            arrow->setStatusTip(toolTip());
        }
    }
    return QWidget::event(event);
}

void ValueSpin::click(QToolButton& button, int direction) {
    // A message box that a step has opened takes the release of the mouse: the held button would
    // go on repeating behind it.
    const QWidget* box = QApplication::activeModalWidget();
    if (box && !box->isAncestorOf(this)) return button.setDown(false);
    emit clicked(direction);
}

}  // namespace kelvro
