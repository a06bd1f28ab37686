#pragma once

#include <QDialog>
#include <vector>

#include "synthesis/exact_match.h"
#include "ui/workbench/network_model.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace kelvro {

/// "Match Here": the exact networks between source and load at the design frequency, with pictures,
/// values, the way of direct current and the 1 dB width. The chosen one is previewed; Take makes it
/// one step, Cancel leaves everything as it was.
class MatchDialog : public QDialog {
    Q_OBJECT

  public:
    explicit MatchDialog(NetworkModel& model, QWidget* parent = nullptr);

    /// The chosen network; the present one where none is.
    Network chosen() const;

  private:
    void search();
    void addMatch(const ExactMatch& match);

    NetworkModel& model_;
    QComboBox* topology_;
    QLineEdit* Q_;
    QListWidget* list_;
    QLabel* problem_;
    std::vector<ExactMatch> matches_;
};

}  // namespace kelvro
