#pragma once

#include <QWidget>
#include <memory>
#include <stop_token>

#include "core/result.h"
#include "design/cycle.h"
#include "io/class_e_simulation.h"

class QPushButton;
class QTableWidget;
class QThread;

namespace kelvro {

class DesignHost;
class PlotImage;

/// What a switched stage does over one period: the waves of voltage and currents. Its page places
/// the harmonics of the load current and a button that runs the stage's netlist in ngspice and
/// shows both side by side.
class StageView : public QWidget {
    Q_OBJECT

  public:
    explicit StageView(DesignHost& host, QWidget* parent = nullptr);
    /// Stops a simulator that is still running.
    ~StageView() override;

    /// Shows the stage of a calculation; nothing where it has none.
    void showStage(const CycleResult& result);

    QTableWidget* harmonics() const { return harmonics_; }
    QPushButton* runButton() const { return run_; }

  public slots:
    void ButtonNgspiceClick();

  private:
    using Comparison = Result<std::vector<ComparedValue>>;

    void showComparison(const Comparison& comparison);

    DesignHost& host_;
    QTableWidget* harmonics_;
    PlotImage* voltage_;
    PlotImage* currents_;
    QPushButton* run_;
    std::unique_ptr<QThread> simulation_;
    std::stop_source stop_;
};

}  // namespace kelvro
