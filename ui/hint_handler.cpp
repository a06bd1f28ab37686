#include "ui/hint_handler.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QStatusTipEvent>
#include <QStyleOption>
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

/// The platform draws their outline in the window's colour, darkened, which on a dark window is
/// none.
void HintStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool round = element == PE_IndicatorRadioButton;
    if (!round && element != PE_IndicatorCheckBox) return;
    if (option->palette.color(QPalette::Window).lightnessF() > 0.5F) return;
    QColor outline = option->palette.color(QPalette::WindowText);
    outline.setAlphaF(0.6F);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, round);
    painter->setPen(outline);
    painter->setBrush(Qt::NoBrush);
    const QRectF box = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    round ? painter->drawEllipse(box) : painter->drawRect(box);
    painter->restore();
}

}  // namespace kelvro
