#pragma once

#include <QDialog>
#include <vector>

#include "synthesis/rating.h"
#include "ui/workbench/background_work.h"
#include "ui/workbench/network_model.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTableWidget;

namespace kelvro {

class LimitWatch;
class SearchChoices;

/// "Find Networks": the best networks between source and load over the bands. What a search finds
/// comes while it runs; the chosen network is previewed in chart and plots. Enter takes it as one
/// step, Escape ends a search, then the dialog, and leaves everything as it was.
class FindDialog : public QDialog {
    Q_OBJECT

  public:
    /// `limit` is switched on: the limit stands beside what is found.
    FindDialog(NetworkModel& model, LimitWatch& limit, QWidget* parent = nullptr);
    ~FindDialog() override;

    const std::vector<RatedNetwork>& networks() const { return networks_; }
    SearchChoices& choices() { return *choices_; }

  public slots:
    void done(int result) override;
    void reject() override;
    /// Begins a search, or ends the one that runs.
    void startOrStop();

  private:
    QWidget* buildChoices();
    QWidget* buildResults();
    void start();
    void search(const Network& problem, const SearchOptions& options, const RatingOptions& rating);
    void showProgress(double done, int parts);
    void showNetworks(Rating rating);
    void fillRow(int row, const RatedNetwork& rated, double lowestDb);
    void showEnd(const Status& status, bool cancelled);
    void showState();
    void showLimit();
    void preview();
    void say(const QString& problem);

    NetworkModel& model_;
    LimitWatch& limit_;
    SearchChoices* choices_ = nullptr;
    QLineEdit* bands_ = nullptr;
    QPushButton* start_ = nullptr;
    QPushButton* take_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QLabel* state_ = nullptr;
    QLabel* limitText_ = nullptr;
    QLabel* problemText_ = nullptr;
    QTableWidget* table_ = nullptr;
    std::vector<RatedNetwork> networks_;
    bool chosen_ = false;  ///< the user has moved in the list: it stays where he is
    bool filling_ = false;
    BackgroundWork work_;  ///< last: ends before what it speaks to
};

}  // namespace kelvro
