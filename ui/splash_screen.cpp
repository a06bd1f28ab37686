#include "ui/splash_screen.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QSettings>
#include <cmath>

namespace kelvro {

namespace {

constexpr QSize kSize(440, 230);

QPixmap Ground() {
    QPixmap pixmap(kSize * qGuiApp->devicePixelRatio());
    pixmap.setDevicePixelRatio(qGuiApp->devicePixelRatio());
    pixmap.fill(QColor(0x1B, 0x2A, 0x41));
    return pixmap;
}

/// A resonance: transducer gain over frequency around the match.
QPainterPath ResonanceCurve(const QRectF& area) {
    constexpr int points = 120;
    constexpr double loadedQ = 6;
    QPainterPath path;
    for (int i = 0; i <= points; ++i) {
        const double x = std::exp2(3.0 * i / points - 1.5);
        const double detuning = loadedQ * (x - 1 / x);
        const double gain = 1 / (1 + detuning * detuning);
        const QPointF at(area.left() + area.width() * i / points,
                         area.bottom() - area.height() * gain);
        if (i == 0) {
            path.moveTo(at);
        } else {
            path.lineTo(at);
        }
    }
    return path;
}

QSettings Remembered() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("kelvro"),
                     QStringLiteral("windows"));
}

constexpr const char* kWantedKey = "TSplashScreen/wanted";

}  // namespace

bool IsSplashWanted() {
    return Remembered().value(QLatin1String(kWantedKey), true).toBool();
}

void RememberSplash(bool wanted) {
    Remembered().setValue(QLatin1String(kWantedKey), wanted);
}

TSplashScreen::TSplashScreen() : QSplashScreen(Ground()) {
    setObjectName(QStringLiteral("TSplashScreen"));
}

void TSplashScreen::drawContents(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(QColor(0x3A, 0x50, 0x6B), 1));
    for (int x = 20; x <= kSize.width() - 20; x += 40) painter->drawLine(x, 96, x, 200);
    for (int y = 96; y <= 200; y += 26) painter->drawLine(20, y, kSize.width() - 20, y);
    painter->setPen(QPen(QColor(0xFF, 0xB7, 0x03), 2.5));
    painter->drawPath(ResonanceCurve(QRectF(20, 102, kSize.width() - 40, 96)));
    QFont font = painter->font();
    font.setPointSizeF(26);
    font.setBold(true);
    painter->setFont(font);
    painter->setPen(Qt::white);
    painter->drawText(QRect(22, 14, 400, 44), Qt::AlignVCenter, QStringLiteral("Kelvro"));
    font.setPointSizeF(11);
    font.setBold(false);
    painter->setFont(font);
    painter->drawText(QRect(24, 56, 400, 28), Qt::AlignVCenter,
                      tr("Matching Network and PA Design"));
    painter->setPen(QColor(0xA9, 0xBC, 0xD0));
    font.setPointSizeF(9);
    painter->setFont(font);
    painter->drawText(QRect(20, 202, 400, 22), Qt::AlignRight | Qt::AlignVCenter,
                      tr("Version %1").arg(QStringLiteral(KELVRO_VERSION)));
}

}  // namespace kelvro
