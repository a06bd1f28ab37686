#include "ui/tour_image.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace kelvro {

namespace {

constexpr QColor kPaper(255, 255, 255);
constexpr QColor kStartTour(205, 205, 205);
constexpr QColor kTour(0, 70, 190);
constexpr QColor kCity(20, 20, 20);
constexpr QColor kFirstCity(210, 30, 30);
constexpr double kMargin = 14;

}  // namespace

TourImage::TourImage(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void TourImage::setTour(const AnnealingSummary& summary) {
    cities_ = summary.cities;
    tour_ = summary.tour;
    update();
}

/// The cities in pixels: the largest square that fits, y upwards.
QPolygonF TourImage::places() const {
    const double side = std::min(width(), height()) - 2 * kMargin;
    const double left = (width() - side) / 2;
    const double bottom = (height() + side) / 2;
    const double scale = side / kFieldSize;
    QPolygonF places;
    for (const City& city : cities_) {
        places << QPointF(left + city.x * scale, bottom - city.y * scale);
    }
    return places;
}

void TourImage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), kPaper);
    const QPolygonF cities = places();
    painter.setPen(QPen(kStartTour, 1));
    painter.drawPolygon(cities);

    QPolygonF path;
    for (const int city : tour_) path << cities[city];
    painter.setPen(QPen(kTour, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(path);

    const double radius = cities_.size() > 100 ? 2.2 : 3.5;
    painter.setPen(Qt::NoPen);
    painter.setBrush(kCity);
    for (const QPointF& city : cities) painter.drawEllipse(city, radius, radius);
    painter.setBrush(kFirstCity);
    if (!cities.isEmpty()) painter.drawEllipse(cities.front(), radius + 1, radius + 1);
}

}  // namespace kelvro
