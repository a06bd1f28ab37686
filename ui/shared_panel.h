#pragma once

#include <QHash>
#include <QWidget>
#include <vector>

#include "core/series.h"
#include "ui/design_session.h"
#include "ui/fields.h"

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QRadioButton;

namespace kelvro {

/// What every page shares: the inputs R1, R2, fo, Q and the element Qs with their spin buttons, the
/// outputs bandwidth, v, 20·log(v), loss and Q, and the selector of the standard series.
class SharedPanel : public QWidget {
    Q_OBJECT

  public:
    explicit SharedPanel(DesignSession& session, QWidget* parent = nullptr);

    /// Rewrites all inputs from the state.
    void writeInputs();
    /// Rewrites inputs that show something else than the state holds.
    void refreshInputs();
    /// Texts of shared outputs and of Q; false when there is no such field here.
    bool setText(const QString& object, const QString& text);
    /// Shows what the state's page uses, with the page's own starting texts.
    void enterPage();
    void setSeries(Series series);
    /// Makes the field of Q read-only, or an input again.
    void lockQ(bool locked);
    /// Why the present design was refused, to be read until it is cured; empty where it was not.
    void showRefusal(const QString& reason);

  signals:
    void switchClicked();
    void seriesChosen(Series series);

  private:
    QWidget* buildResistances();
    QWidget* buildQPanel();
    QWidget* buildOutputs();
    QWidget* buildSeries();
    void addInput(QGridLayout* grid, int row, const InputField& field);
    OutputEdit* addOutput(QGridLayout* grid, int row, QWidget* label, const QString& object,
                          const QString& unit, const QString& hint);
    void EingabeChange(const BoundInput& input);
    void SpinButtonClick(const BoundInput& input, int direction);
    void CheckBoxQClick(bool checked);
    Limits typedLimits(const BoundInput& input) const;

    DesignSession& session_;
    std::vector<BoundInput> inputs_;
    QHash<QString, QLineEdit*> edits_;
    QWidget* qPanel_ = nullptr;
    QLabel* refusal_ = nullptr;
    QCheckBox* checkBoxQ_ = nullptr;
    QHash<int, QRadioButton*> series_;
};

}  // namespace kelvro
