#pragma once

#include <QDialog>
#include <QTimer>
#include <optional>
#include <string>
#include <vector>

#include "advise/annealing.h"

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace kelvro {

class DesignHost;
class TourImage;

/// "Global Optimization": simulated annealing of a tour through random cities, one run or many.
/// Runs go on between events, a few milliseconds at a time, so that the window stays alive.
class TFormGlobalOpt : public QDialog {
    Q_OBJECT

  public:
    TFormGlobalOpt(DesignHost& host, QWidget* parent = nullptr);

  public slots:
    void ButtonTriggerClick();
    void ButtonMCClick();
    void ButtonDefaultsClick();
    void ButtonStepClick();
    void ButtonBestClick();
    void ButtonWorstClick();
    void ButtonCancelClick();
    void ButtonCloseClick();
    /// Closing ends what is running.
    void done(int result) override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* buildProblem();
    QWidget* buildMethod();
    QWidget* buildReport();
    QLayout* buildButtons();
    QScrollBar* addScrollBar(QGridLayout& grid, QLabel*& label, const char* name,
                             const QString& hint);

    AnnealingOptions options() const;
    bool running() const { return timer_.isActive(); }
    /// All settings at once; what else there is takes its default.
    void apply(int cities, bool drawEachStep);
    /// Other cities or another rule: the results of many runs no longer hold.
    void problemChanged();
    void showSettings();
    void notYetImplemented();

    void startRun(int seed, const QString& caption);
    void setPace();
    void work();
    void workOnRun();
    void workOnMonteCarlo();
    void runEnded();
    void monteCarloEnded();
    void ended();
    void showProgress();
    void report(const QString& caption, const std::vector<std::string>& lines);

    DesignHost& host_;
    TourImage* image_;
    QScrollBar* cities_;
    QScrollBar* citySeed_;
    QScrollBar* seed_;
    QLabel* citiesLabel_;
    QLabel* citySeedLabel_;
    QLabel* seedLabel_;
    QRadioButton* annealing_;
    QCheckBox* random_;
    QCheckBox* deterministic_;
    QCheckBox* drawEachStep_;
    QGroupBox* reportBox_;
    QLabel* reportLabel_;
    QProgressBar* progress_;
    QPushButton* best_;
    QPushButton* worst_;
    QPushButton* cancel_;

    QTimer timer_;
    std::optional<Annealing> run_;
    std::optional<AnnealingMonteCarlo> monteCarlo_;  ///< while it runs
    MonteCarloSummary results_;                      ///< of the last one; no runs: none
    QString caption_;                                ///< of the report of the run at work
    bool changing_ = false;                          ///< several settings change at once
};

}  // namespace kelvro
