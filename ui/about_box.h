#pragma once

#include <QDialog>

namespace kelvro {

/// What the program is, its version and its licence.
class TAboutBox : public QDialog {
    Q_OBJECT

  public:
    explicit TAboutBox(QWidget* parent = nullptr);
};

}  // namespace kelvro
