#include "plot/circuit_painter.h"

#include <cmath>
#include <vector>

#include "core/number_text.h"
#include "plot/circuit_layout.h"

namespace kelvro {

namespace {

constexpr double kHeight = 116;        // between the rails
constexpr double kCompactHeight = 84;  // the same where networks or rows lie one below the other
constexpr int kMostRows = 3;

/// The networks beside or below each other, in one row or several: whatever comes out largest.
CircuitDrawing LargestDrawing(std::span<const Network> networks, const QSizeF& area) {
    CircuitDrawing largest;
    double scale = 0;
    for (int rows = 1; rows <= kMostRows; ++rows) {
        for (const bool below : {false, true}) {
            const double height = below || rows > 1 ? kCompactHeight : kHeight;
            std::vector<CircuitDrawing> drawings;
            for (const Network& network : networks) {
                drawings.push_back(LaidOut(network, rows, height));
            }
            CircuitDrawing arranged = Arranged(drawings, below);
            if (arranged.bounds().isEmpty() || arranged.scaleIn(area) <= scale) continue;
            scale = arranged.scaleIn(area);
            largest = std::move(arranged);
        }
    }
    return largest;
}

}  // namespace

void PaintNetworks(QPainter& painter, const QRectF& area, std::span<const Network> networks,
                   const CircuitColours& colours) {
    LargestDrawing(networks, area.size())
        .paint(painter, area, colours.wire, colours.name, colours.value);
}

QString PartAt(const QRectF& area, std::span<const Network> networks, QPointF at) {
    return LargestDrawing(networks, area.size()).nameAt(area, at);
}

QString ReadableValue(double value, std::string_view unit) {
    if (!std::isfinite(value) || value == 0) return {};
    QString text = QString::fromStdString(FormatEng(0, 2, value));
    const QChar suffix = text.back();
    text.chop(1);
    const QString prefix = suffix == '0' ? QString() : suffix == 'u' ? QString("µ") : suffix;
    return text + ' ' + prefix +
           QString::fromUtf8(unit.data(), static_cast<qsizetype>(unit.size()));
}

}  // namespace kelvro
