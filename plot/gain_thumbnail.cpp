#include "plot/gain_thumbnail.h"

#include <QColor>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <vector>

#include "network/ladder_response.h"

namespace kelvro {

namespace {

constexpr int kBandShade = 40;  // of 255

std::vector<double> FrequenciesOver(FrequencyBand range, int count) {
    std::vector<double> f;
    for (int i = 0; i < count; ++i) {
        f.push_back(std::lerp(range.low, range.high, i / (count - 1.0)));
    }
    return f;
}

}  // namespace

QImage GainThumbnail(const Network& network, FrequencyBand range, double lowestDb, QSize size,
                     QRgb colour, double scale) {
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(QPointF(), QSizeF(size)).adjusted(2, 4, -2, -2);
    const auto x = [&](double f) {
        const double share = (f - range.low) / (range.high - range.low);
        return area.left() + area.width() * std::clamp(share, 0.0, 1.0);
    };
    QColor shade = QColor::fromRgb(colour);
    shade.setAlpha(kBandShade);
    for (const FrequencyBand& band : network.bands) {
        painter.fillRect(QRectF(x(band.low), area.top(), x(band.high) - x(band.low), area.height()),
                         shade);
    }
    const std::vector<double> f = FrequenciesOver(range, size.width());
    LadderResponse response(network);
    const std::vector<double>& GT = response.sweep(f).GT;
    painter.setPen(QPen(QColor::fromRgb(colour), 1.5));
    painter.setClipRect(area.adjusted(-1, -1, 1, 1));
    QPolygonF curve;
    const auto drawPiece = [&] {
        painter.drawPolyline(curve);
        curve.clear();
    };
    for (std::size_t i = 0; i < f.size(); ++i) {
        const double dB = 10 * std::log10(GT[i]);
        // Measured data end somewhere, and so does the curve.
        if (std::isnan(dB)) {
            drawPiece();
            continue;
        }
        const double depth = std::min(dB / lowestDb, 2.0);
        curve << QPointF(x(f[i]), area.top() + area.height() * depth);
    }
    drawPiece();
    return image;
}

}  // namespace kelvro
