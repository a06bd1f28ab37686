#pragma once

#include <QDialog>

namespace kelvro {

class DesignSession;
class InputEdit;

/// "Sweep Factor": the step of all spin buttons. Held to 1.0001..10 while typing; takes effect at
/// once, Cancel restores the factor that was.
class TSweepDlg : public QDialog {
    Q_OBJECT

  public:
    TSweepDlg(DesignSession& session, QWidget* parent = nullptr);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void SweepEingabeChange();
    void restore();

    DesignSession& session_;
    InputEdit* edit_;
    double before_;
};

}  // namespace kelvro
