#pragma once

#include <QDialog>

namespace kelvro {

/// Facts about this installation that help when something is to be reported.
class TInfoDlg : public QDialog {
    Q_OBJECT

  public:
    explicit TInfoDlg(QWidget* parent = nullptr);
};

}  // namespace kelvro
