#pragma once

#include <QDialog>
#include <QTimer>
#include <functional>
#include <utility>
#include <vector>

#include "advise/proposal.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace kelvro {

class DesignSession;
class InputEdit;

/// "Suggestions for circuit topology": the pages that suit the present inputs and the user's
/// wishes, ranked, each with its reason and what it achieves. A double-click goes to the page.
class TFormProposal : public QDialog {
    Q_OBJECT

  public:
    TFormProposal(DesignSession& session, QWidget* parent = nullptr);

    const std::vector<Proposal>& proposals() const { return proposals_; }

    /// May R1 and R2 be switched for a page? By default the user is asked.
    void setMayExchange(std::function<bool()> mayExchange) {
        mayExchange_ = std::move(mayExchange);
    }

  public slots:
    void ButtonGoClick();
    void ButtonCopyClick();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QGroupBox* buildWishes();
    void buildTable();
    QWidget* buildButtons();
    InputEdit* addInput(const char* name, const QString& hint);

    Wishes wishes() const;
    bool askToExchange();
    void refresh();
    void addRow(const Proposal& proposal, int index);
    /// The proposal of the current row; null without one.
    const Proposal* current() const;

    DesignSession& session_;
    std::function<bool()> mayExchange_;
    QLabel* inputs_;
    InputEdit* Q_;
    InputEdit* bandwidth_;
    InputEdit* ratio_;
    QComboBox* dc_;
    QCheckBox* harmonics_;
    QCheckBox* balanced_;
    QCheckBox* resistive_;
    QCheckBox* amplifier_;
    QCheckBox* unsuited_;
    QTreeWidget* table_;
    QLabel* none_;  ///< in place of the rows that are not there
    QPushButton* go_;
    QTimer due_;  ///< one refresh for a burst of changes
    std::vector<Proposal> proposals_;
};

}  // namespace kelvro
