#include "ui/plot/form_phi.h"

namespace kelvro {

TFormPhi::TFormPhi(DesignHost& host, QWidget* parent)
    : PlotForm(host,
               {PlotWindow::Phase, "TFormPhi", tr("Phase Response"), "Bitmap Dateien (*.bmp)|*.bmp",
                "Meta Dateien (*.wmf)|*.wmf"},
               TraceOf("phi"), parent) {
    buildMonteCarloButtons();
}

}  // namespace kelvro
