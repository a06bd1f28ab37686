#pragma once

#include <QDialog>

namespace kelvro {

/// Help of the plot windows: what mouse, wheel and keys do there.
class TGRHilfeBox : public QDialog {
    Q_OBJECT

  public:
    explicit TGRHilfeBox(QWidget* parent);
};

}  // namespace kelvro
