#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "ui/workbench/network_model.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QProgressBar;
class QScrollArea;
class QSlider;

namespace kelvro {

class InputEdit;

/// A slider for every number of the ladder, with its value to type, a tick that gangs it with
/// others and one that locks it; above them what matters while tuning, the worst gain in the bands.
class SliderPanel : public QWidget {
    Q_OBJECT

  public:
    explicit SliderPanel(NetworkModel& model, QWidget* parent = nullptr);

    /// Sliders step through this series; None: continuously.
    void setSeries(Series series);

  signals:
    void seriesChosen(Series series);

  private:
    struct Row {
        Tunable at;
        QCheckBox* gang;
        QCheckBox* lock;
        QLabel* name;
        QSlider* slider;
        InputEdit* edit;
        QLabel* unit;
        double centre;  ///< value in the middle of the slider
    };

    void rebuild();
    void addRow(const Tunable& at, int row);
    static void nameRow(Row& row, const QString& name);
    void keepWide();
    void showModel();
    void showWorst();
    void slid(std::size_t index, int position);
    void typed(std::size_t index);
    void stepped(std::size_t index, int direction);
    /// Moves a number and, by the same ratio, those ganged with it.
    void move(std::size_t index, double value);
    double valueAt(const Row& row, int position) const;
    int positionOf(const Row& row, double value) const;

    NetworkModel& model_;
    QGridLayout* grid_;
    QWidget* rowsArea_;
    QScrollArea* scroll_ = nullptr;
    std::array<QLabel*, 2> heads_ = {};  ///< above the ticks
    QProgressBar* worst_;
    QLabel* worstText_;
    QComboBox* seriesBox_;
    QComboBox* rangeBox_;
    std::vector<Row> rows_;
    std::vector<Tunable> shown_;
    bool filling_ = false;
};

}  // namespace kelvro
