#pragma once

#include <QDialog>
#include <optional>

#include "synthesis/yield.h"
#include "ui/workbench/background_work.h"
#include "ui/workbench/network_model.h"

class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace kelvro {

/// "Yield and Centring": how many builds keep their worst gain in the bands, which part costs most,
/// and nominal values with which more of them do. Locked values stay. What centring finds is
/// previewed; Take makes it one step.
class CentreDialog : public QDialog {
    Q_OBJECT

  public:
    explicit CentreDialog(NetworkModel& model, QWidget* parent = nullptr);
    ~CentreDialog() override;

  public slots:
    void done(int result) override;
    void reject() override;

  private:
    QLineEdit* addEdit(QFormLayout& form, const char* name, const QString& caption,
                       const QString& text);
    /// The fields; a failure names the one that cannot be read.
    Result<YieldOptions> options() const;
    /// Yield of the network as it came.
    void rate();
    void startOrStop();
    void showCentred(const Result<CentredNetwork>& centred);
    void showParts(const YieldReport& before, const std::optional<YieldReport>& after);
    void showState();
    void say(const QString& problem);

    NetworkModel& model_;
    const Network start_;  ///< as it came, with bands
    QLineEdit* coils_;
    QLineEdit* capacitors_;
    QLineEdit* resistors_;
    QLineEdit* lines_;
    QLineEdit* least_;
    QLabel* before_;
    QLabel* after_;
    QLabel* problem_;
    QTableWidget* table_;
    QPushButton* centre_;
    QPushButton* take_;
    bool centred_ = false;
    BackgroundWork work_;  ///< last: ends before what it speaks to
};

}  // namespace kelvro
