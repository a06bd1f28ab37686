#pragma once

#include <QDialog>

#include "analysis/tolerance.h"

namespace kelvro {

class DesignHost;
class InputEdit;

/// "Monte-Carlo Analysis": the tolerances of the gain window's runs in percent, held to 0.1..35.
/// They take effect with OK.
class TToldlg : public QDialog {
    Q_OBJECT

  public:
    explicit TToldlg(DesignHost& host, QWidget* parent = nullptr);

  public slots:
    void FormActivate();
    void CTolEingabeChange();
    void LTolEingabeChange();
    void ZLTolEingabeChange();
    void RTolEingabeChange();
    void OKBtnClick();
    void CancelBtnClick() { reject(); }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    InputEdit* addRow(const QString& caption, const QString& name, void (TToldlg::*handler)());

    DesignHost& host_;
    Tolerances working_;
    InputEdit* CTolEingabe_;
    InputEdit* LTolEingabe_;
    InputEdit* ZLTolEingabe_;
    InputEdit* RTolEingabe_;
};

}  // namespace kelvro
