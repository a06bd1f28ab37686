#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>
#include <vector>

#include "network/device.h"
#include "plot/smith_picture.h"
#include "ui/workbench/network_model.h"

namespace kelvro {

/// The Smith chart of the Network window: shows the path and the sweep of the model's network, and
/// lets its nodes be dragged. Wheel zooms about the cursor, dragging beside nodes pans, a
/// double-click fits. Tab walks the nodes, arrows change the value, + - 0 zoom.
class SmithView : public QWidget {
    Q_OBJECT

  public:
    explicit SmithView(NetworkModel& model, QWidget* parent = nullptr);

    /// What is drawn, for pictures and tests.
    const SmithPicture& picture() const { return picture_; }
    ChartFrame frame() const;
    /// Where the node of a step stands, in widget pixels.
    QPointF nodePosition(std::size_t step) const;

    void setGrids(ChartGrids grids);
    ChartGrids grids() const { return picture_.grids; }
    void setDark(bool dark);
    /// Circles of the user's choice; empty lists draw none.
    void setVswrCircles(std::vector<double> values);
    void setQualityCircles(std::vector<double> values);
    void setContours(std::vector<ChartContour> contours);
    /// Stability and gain circles of the ladder's measured two-ports: of their loads or sources.
    void showDeviceCircles(DeviceSide side, bool on);
    /// Series to which Shift steps while dragging and Ctrl+arrows step by key.
    void setSeries(Series series) { series_ = series; }
    void fit();

    QSize sizeHint() const override { return {460, 460}; }
    QSize minimumSizeHint() const override { return {220, 220}; }

  signals:
    /// What stands under the pointer; empty when it has left.
    void hovered(const QString& text);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool event(QEvent* event) override;

  private:
    /// What grids and background depend on.
    struct Ground {
        QSize size;
        double ratio;
        ChartView view;
        ChartGrids grids;
        bool dark;
        int fontPixels;
        bool operator==(const Ground&) const = default;
    };
    const QPixmap& ground();
    void rebuild();
    void addContours();
    std::vector<std::complex<double>> sweepOf(const Network& network) const;
    /// Of the snapshots that are shown; those that stay are reckoned once.
    void holdTraces();
    void addMarkers(const std::vector<std::complex<double>>& trace);
    void selectStep(int step);
    void dragTo(QPointF place, Qt::KeyboardModifiers modifiers);
    void finishDrag(bool keep);
    void stepValue(int direction, Qt::KeyboardModifiers modifiers);
    void zoom(QPointF at, double factor);
    void hover(QPointF at);
    std::complex<double> source() const;

    NetworkModel& model_;
    SmithPicture picture_;
    QPixmap ground_;
    std::optional<Ground> drawn_;
    std::vector<double> vswrCircles_;
    std::vector<double> qualityCircles_;
    struct HeldTrace {
        Network network;
        FrequencyBand range;
        std::vector<std::complex<double>> trace;
    };
    std::vector<HeldTrace> held_;
    std::vector<ChartContour> contours_;
    std::vector<DeviceSide> deviceSides_;
    Series series_ = Series::E24;
    enum class Gesture : unsigned char { None, DragNode, Pan };
    Gesture gesture_ = Gesture::None;
    std::optional<PathStep> dragged_;  ///< as the drag began: what it keeps
    QPointF grabbed_;                  ///< where a pan stands
};

/// The value of a standard series next to `value` in a direction; itself without a series.
double SeriesStep(Series series, double value, int direction);
/// The nearest value of a standard series.
double NearestOfSeries(Series series, double value);

}  // namespace kelvro
