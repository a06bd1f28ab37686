#include "ui/plot/form_phi.h"

namespace kelvro {

TFormPhi::TFormPhi(DesignHost& host, QWidget* parent)
    : PlotForm(host,
               {PlotWindow::Phase, "TFormPhi", tr("Phase Response"),
                QT_TRANSLATE_NOOP("kelvro", "Bitmap Dateien (*.bmp)|*.bmp"),
                QT_TRANSLATE_NOOP("kelvro", "Meta Dateien (*.wmf)|*.wmf")},
               TraceOf("phi"), parent) {
    buildMonteCarloButtons();
}

}  // namespace kelvro
