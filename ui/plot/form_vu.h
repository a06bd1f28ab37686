#pragma once

#include "ui/plot/plot_form.h"

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

  protected:
    void leadingChanged() override;

  private:
    void buildQuantityButtons();
    void addKey(const char* name, const QString& text, const char* key, QRadioButton* button);

    QRadioButton* radioButtonVu_;
    QRadioButton* radioButtonGT_;
};

}  // namespace kelvro
