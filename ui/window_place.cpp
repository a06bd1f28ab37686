#include "ui/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>
#include <algorithm>

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

void KeepOnScreen(QWidget& window) {
    const QRect room = window.screen()->availableGeometry();
    const QSize frame = window.frameGeometry().size() - window.size();
    window.resize(window.size().boundedTo(room.size() - frame));
    const QSize whole = window.size() + frame;
    const auto within = [](int at, int size, int low, int high) {
        return std::max(low, std::min(at, high - size));  // the title bar stays in reach
    };
    const QPoint corner(
        within(window.frameGeometry().left(), whole.width(), room.left(), room.right() + 1),
        within(window.frameGeometry().top(), whole.height(), room.top(), room.bottom() + 1));
    if (corner != window.frameGeometry().topLeft()) window.move(corner);
}

}  // namespace kelvro
