#pragma once

#include <QWidget>
#include <vector>

#include "advise/annealing.h"

namespace kelvro {

/// Cities and a closed tour through them, with the tour of the start faint behind it.
class TourImage : public QWidget {
    Q_OBJECT

  public:
    explicit TourImage(QWidget* parent = nullptr);

    void setTour(const AnnealingSummary& summary);
    const std::vector<int>& tour() const { return tour_; }
    const std::vector<City>& cities() const { return cities_; }

    QSize sizeHint() const override { return {440, 440}; }
    QSize minimumSizeHint() const override { return {300, 300}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPolygonF places() const;

    std::vector<City> cities_;
    std::vector<int> tour_;
};

}  // namespace kelvro
