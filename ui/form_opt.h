#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <vector>

#include "io/optimizer_reports.h"
#include "optimize/page_optimizer.h"
#include "plot/history_picture.h"
#include "ui/plot/design_host.h"

class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QTabBar;

namespace kelvro {

class PlotImage;

/// "Optimization Setup and Evaluation": the settings of the local optimizer, what the last run
/// needed and reached, and its history.
class TFormOpt : public QDialog {
    Q_OBJECT

  public:
    /// Opens a file with the desktop's own program; false when there is none.
    using FileOpener = std::function<bool(const QString& path)>;

    TFormOpt(DesignHost& host, OptimizerServices& optimizer, const OptimizerFiles& files,
             QWidget* parent);

    void setFileOpener(FileOpener opener) { openFile_ = std::move(opener); }

  public slots:
    void itEingabeChange();
    void GradEingabeChange();
    void ButtonTriggerClick();
    void ButtonDefaultsClick();
    void ButtonHistoryClick();
    void ButtonCloseClick() { close(); }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    struct Option;
    static const std::vector<Option>& options();

    QWidget* settingsPanel();
    QWidget* evaluationPanel();
    QWidget* historyPanel();
    QWidget* buttonRow();
    void addMenu();
    void optionClicked(const Option& option, bool checked);

    void FormShow();
    void showSettings();
    void showEvaluation();
    /// The run behind the design that is shown; null where there was none.
    const PageOptimization* run() const;
    QString whyNoRun() const;
    void showHistory();
    void readOut(std::size_t image, QPointF position);

    DesignHost& host_;
    OptimizerServices& optimizer_;
    const OptimizerFiles& files_;  ///< that keep the reports
    FileOpener openFile_;

    std::vector<QCheckBox*> boxes_;  ///< in the order of options()
    QLineEdit* itEingabe_ = nullptr;
    QLineEdit* gradEingabe_ = nullptr;
    std::array<QLabel*, 6> evaluation_{};
    QLabel* timeCaption_ = nullptr;
    QTabBar* tabs_ = nullptr;
    std::array<PlotImage*, 3> images_{};
    std::array<QLabel*, 3> readOuts_{};
    QAction* showLabels_ = nullptr;
    QAction* showDx_ = nullptr;  ///< distance to the end, else to the next iteration
    QAction* logarithmic_ = nullptr;
    std::vector<HistoryPoint> history_;
};

}  // namespace kelvro
