#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "plot/network_picture.h"
#include "ui/workbench/network_model.h"

class QAction;
class QComboBox;
class QKeyEvent;
class QLabel;
class QMenu;
class QMouseEvent;
class QWheelEvent;

namespace kelvro {

class PlotImage;

/// A plot of the Network window: quantities over frequency of the present network and of the shown
/// snapshots, those of another kind than the leading one on the right axis. A click or M sets a
/// marker, the right button or Del removes the nearest; markers read all curves. Arrows read, the
/// wheel, + and - zoom the frequencies; with Ctrl, or beside a value axis, the values. L makes the
/// frequency axis logarithmic or linear, a double-click or 0 fits.
class SweepView : public QWidget {
    Q_OBJECT

  public:
    SweepView(const char* object, const char* trace, NetworkModel& model,
              QWidget* parent = nullptr);

    const Picture& picture() const;
    QImage image(double scale) const;
    /// The traces shown, the leading one first.
    const TraceList& traces() const { return traces_; }
    /// Those of a third axis are left out.
    void setTraces(const TraceList& traces);
    /// Shows a trace beside the leading one, or no more.
    void showTrace(const Trace& trace, bool shown);
    bool logarithmic() const { return logarithmic_; }
    void setLogarithmic(bool on);
    /// The ranges of the value axes where the user has chosen them; nothing while they fit.
    struct ValueRanges {
        std::optional<Range> left;
        std::optional<Range> right;
    };
    const ValueRanges& valueRanges() const { return values_; }
    void setValueRanges(const ValueRanges& ranges);
    void setLimit(std::optional<double> dB, bool estimate);
    /// "1: 70 MHz, GT -0.271 dB" of each marker, for pictures.
    QStringList markerLines() const;
    void setDark(bool dark);
    void fit();

  signals:
    void hovered(const QString& text);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void buildHead(const QString& object);
    void fillTraceMenu(const QString& object);
    void setLeading(const Trace& trace);
    void rebuild();
    void showTraces();
    void connectMouse();
    void pressed(const QMouseEvent& event);
    void keyPressed(QKeyEvent& event);
    void removeMarkerNear(double x, bool addedNow = false);
    void wheelTurned(QWheelEvent& event);
    void zoom(double f, double factor);
    /// The values about a height in the plot, of the left axis, the right one or both.
    void zoomValues(double y, double factor, bool left, bool right);
    /// Reads at a frequency: a cross on the leading trace, all values in the status line.
    void read(double f);
    void placeCross();
    FrequencyBand range() const { return zoomed_.value_or(model_.plotRange()); }
    /// "GT -0.271 dB (A -0.3 dB), RL 12 dB" at a frequency.
    QString readings(double f) const;

    NetworkModel& model_;
    TraceList traces_;
    PlotImage* image_;
    QComboBox* box_;
    QMenu* menu_;
    QLabel* markerText_;
    QAction* log_ = nullptr;
    bool logarithmic_ = false;
    std::optional<FrequencyBand> zoomed_;
    ValueRanges values_;
    HeldCurves held_;
    std::optional<double> limitDb_;
    bool limitIsEstimate_ = false;
    bool dark_ = false;
    std::optional<double> reading_;  ///< Hz, by keys
};

}  // namespace kelvro
