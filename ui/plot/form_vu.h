#pragma once

#include "ui/plot/plot_form.h"

class QLabel;
class QRadioButton;

namespace kelvro {

/// Plot window of the voltage gain or the power gain over frequency.
class TFormVu : public PlotForm {
    Q_OBJECT

  public:
    explicit TFormVu(DesignHost& host, QWidget* parent = nullptr);

  public slots:
    void RadioButtonVuClick();
    void RadioButtonGTClick();
    /// Each run draws a grey curve of parts within their tolerances over the picture, until the
    /// next redraw.
    void SpeedButtonMCClick() { runMonteCarlo(1); }
    void SpeedButtonMC10Click() { runMonteCarlo(10); }
    /// So many curves bury the nominal one: it is drawn once more on top.
    void SpeedButtonMC100Click();

  protected:
    void redraw() override;

  private:
    void buildQuantityButtons();
    void buildMonteCarloButtons();
    void runMonteCarlo(int runs);
    void showYield();

    QRadioButton* radioButtonVu_;
    QRadioButton* radioButtonGT_;
    QLabel* yield_ = nullptr;  ///< made after the base has drawn for the first time
    int runs_ = 0;             ///< whose curves are drawn
    int goodRuns_ = 0;         ///< of these, within 1 dB of the nominal peak at fo
};

}  // namespace kelvro
