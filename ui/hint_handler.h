#pragma once

#include <QObject>
#include <QProxyStyle>
#include <QString>
#include <functional>

namespace kelvro {

/// Sees the hints of all widgets and menu items of the program and hands the current one on. Tool
/// tips show for four seconds.
class HintHandler : public QObject {
    Q_OBJECT

  public:
    /// Watches the application object for its own life.
    explicit HintHandler(QObject* parent = nullptr);

  signals:
    /// Empty when the pointer has left the control.
    void hintChanged(const QString& hint);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// The platform's style with the program's pause before a hint shows, and with round and square
/// boxes that can also be seen on a dark window while they are empty.
class HintStyle : public QProxyStyle {
    Q_OBJECT

  public:
    using QProxyStyle::QProxyStyle;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace kelvro
