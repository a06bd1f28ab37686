#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "plot/network_picture.h"
#include "ui/workbench/network_model.h"

class QComboBox;
class QLabel;

namespace kelvro {

class PlotImage;

/// A plot of the Network window: one quantity over frequency of the present network and of the
/// shown snapshots. A click sets a marker, the right button removes the nearest; markers read all
/// curves. Wheel zooms about the cursor, a double-click fits.
class SweepView : public QWidget {
    Q_OBJECT

  public:
    SweepView(const char* object, const char* trace, NetworkModel& model,
              QWidget* parent = nullptr);

    const Picture& picture() const;
    QImage image(double scale) const;
    const NetworkTrace& trace() const { return *trace_; }
    void setTrace(const NetworkTrace& trace);
    void setLimit(std::optional<double> dB, bool estimate);
    const std::vector<double>& markers() const { return markers_; }
    void setMarkers(std::vector<double> markers);
    void setDark(bool dark);
    void fit();

  signals:
    void hovered(const QString& text);
    void markersChanged();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void rebuild();
    void connectMouse();
    void showMarkers();
    /// "GT -0.271 dB (A -0.3 dB)" at a frequency.
    QString readings(double f) const;

    NetworkModel& model_;
    const NetworkTrace* trace_;
    PlotImage* image_;
    QComboBox* box_;
    QLabel* markerText_;
    std::optional<FrequencyBand> zoomed_;
    std::optional<double> limitDb_;
    bool limitIsEstimate_ = false;
    bool dark_ = false;
    std::vector<double> markers_;
};

}  // namespace kelvro
