#pragma once

#include <QDialog>

#include "advise/guide.h"

class QBoxLayout;
class QCheckBox;
class QGroupBox;
class QLabel;
class QRadioButton;

namespace kelvro {

class InputEdit;

/// "Guide for Optimization": which optimizer suits the designer's situation, and how many
/// simulations to expect.
class TFormGuideGXL : public QDialog {
    Q_OBJECT

  public:
    explicit TFormGuideGXL(QWidget* parent = nullptr);

  public slots:
    /// Gives the advice for what is set.
    void FormShow();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QGroupBox* buildConstraints();
    GuideSituation situation() const;

    QRadioButton* badStartpoint_;
    QRadioButton* goodStartpoint_;
    QCheckBox* nonlinear_;
    QCheckBox* difficult_;
    InputEdit* parameters_;
    QLabel* out_;
};

}  // namespace kelvro
