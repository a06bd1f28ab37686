#include "ui/hint_handler.h"

#include <QApplication>
#include <QHelpEvent>
#include <QStatusTipEvent>
#include <QToolTip>
#include <QWidget>

namespace kelvro {

namespace {

constexpr int kPauseBeforeHint = 200;  // ms
constexpr int kHintStays = 4000;       // ms

}  // namespace

HintHandler::HintHandler(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool HintHandler::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::StatusTip) {
        emit hintChanged(static_cast<QStatusTipEvent*>(event)->tip());
        return true;
    }
    auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::ToolTip && widget && !widget->toolTip().isEmpty()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), widget->toolTip(), widget,
                           {}, kHintStays);
        return true;
    }
    return QObject::eventFilter(watched, event);
}

int HintStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
    if (hint == SH_ToolTip_WakeUpDelay) return kPauseBeforeHint;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

}  // namespace kelvro
