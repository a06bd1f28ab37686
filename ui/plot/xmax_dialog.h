#pragma once

#include <QDialog>

#include "plot/view_edit.h"

class QLineEdit;

namespace kelvro {

/// Small modal dialog that asks for one value of a plot: an end of an axis or the origin.
class TXmaxDlg1 : public QDialog {
    Q_OBJECT

  public:
    /// Each notch of the spin buttons moves by the sweep factor; with a `step` by that much, which
    /// suits axes that reach across 0.
    struct Spin {
        double sweepFactor = 1.05;
        double step = 0;
    };
    TXmaxDlg1(const ValueEdit& edit, const QString& unit, Spin spin, QWidget* parent = nullptr);

    /// Within the limits; the start value exactly as long as the text is not edited.
    double value() const { return value_; }

  public slots:
    void xmaxEingabeChange();
    void SpinButtonXmaxClick(int direction);
    void OKBtnClick() { accept(); }
    void CancelBtnClick() { reject(); }

  private:
    ValueEdit edit_;
    Spin spin_;
    double value_;
    QLineEdit* xmaxEingabe_;
};

}  // namespace kelvro
