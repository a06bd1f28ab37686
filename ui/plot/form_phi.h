#pragma once

#include "ui/plot/plot_form.h"

namespace kelvro {

/// Plot window of the phase over frequency.
class TFormPhi : public PlotForm {
    Q_OBJECT

  public:
    explicit TFormPhi(DesignHost& host, QWidget* parent = nullptr);
};

}  // namespace kelvro
