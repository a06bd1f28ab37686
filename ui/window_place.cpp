#include "ui/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace kelvro {

namespace {

QSettings Places() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("kelvro"),
                     QStringLiteral("windows"));
}

QString KeyOf(const QWidget& window) {
    return window.objectName() + QStringLiteral("/place");
}

}  // namespace

void SavePlace(const QWidget& window) {
    Places().setValue(KeyOf(window), window.pos());
}

void RestorePlace(QWidget& window) {
    const QVariant place = Places().value(KeyOf(window));
    if (!place.isValid()) return;
    const QPoint corner = place.toPoint();
    // A hand's breadth of the title bar must be in reach.
    if (QGuiApplication::screenAt(corner + QPoint(80, 10))) window.move(corner);
}

}  // namespace kelvro
