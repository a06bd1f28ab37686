#pragma once

#include <QObject>
#include <QString>

#include "analysis/tolerance.h"
#include "design/design.h"
#include "design/preferences.h"
#include "io/plot_choices.h"
#include "plot/frame.h"

namespace kelvro {

struct CycleResult;

/// What plot windows and dialogs see of the main window: the one design, and the ways to change it.
/// The windows hold no design arithmetic of their own.
class DesignHost : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    virtual const Design& design() const = 0;
    /// What the last calculation said.
    virtual const CycleResult& result() const = 0;
    /// Runs the calculation cycle for the current page and shows its outputs.
    virtual void recalculate(bool storeComponents = true) = 0;
    /// Switches the main window to a page (1..19), which recalculates.
    virtual void goToPage(int page) = 0;
    /// One modal message to the user; the only way in which messages are shown.
    virtual void showMessage(const QString& text) = 0;

    Preferences& preferences() { return preferences_; }
    const Preferences& preferences() const { return preferences_; }

    /// Do exports take the values of the standard series ("E-Series for Export")?
    bool standardValues() const { return standardValues_; }
    void setStandardValues(bool on) {
        if (on == standardValues_) return;
        standardValues_ = on;
        emit standardValuesChanged(on);
    }

    /// The view of the plot window that last changed its view.
    const PlotSettings& plotSettings() const { return plotSettings_; }
    void publish(const PlotSettings& settings) { plotSettings_ = settings; }

    /// What the plot windows show, kept between runs of the program.
    const PlotChoices& plotChoices(PlotWindow window) const {
        return plots_[static_cast<std::size_t>(window)];
    }
    void setPlotChoices(PlotWindow window, const PlotChoices& choices) {
        PlotChoices& own = plots_[static_cast<std::size_t>(window)];
        if (own == choices) return;
        own = choices;
        emit plotChoicesChanged();
    }

    /// What the Monte Carlo runs of the gain window vary by.
    const Tolerances& tolerances() const { return tolerances_; }
    void setTolerances(const Tolerances& tolerances) { tolerances_ = tolerances; }

  signals:
    /// The design changed: inputs, components or page.
    void designChanged();
    /// Fields show components otherwise than before, rounded perhaps.
    void shownChanged();
    void standardValuesChanged(bool on);
    void plotChoicesChanged();

  private:
    Preferences preferences_;
    PlotSettings plotSettings_;
    bool standardValues_ = false;
    Tolerances tolerances_;
    PlotChoicesOfWindows plots_;
};

}  // namespace kelvro
