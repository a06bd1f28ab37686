#pragma once

#include <QDialog>
#include <QTimer>
#include <functional>
#include <utility>
#include <vector>

#include "advise/network_proposal.h"
#include "advise/proposal.h"
#include "ui/workbench/background_work.h"

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
/// wishes, ranked, each with its reason and what it achieves; a little later, among them, the
/// networks that a search in the background finds. A double-click goes to the page, or opens the
/// network.
class TFormProposal : public QDialog {
    Q_OBJECT

  public:
    TFormProposal(DesignSession& session, QWidget* parent = nullptr);

    const std::vector<Proposal>& proposals() const { return proposals_; }
    /// Found so far.
    const std::vector<NetworkProposal>& networks() const { return networks_; }

    /// May R1 and R2 be switched for a page? By default the user is asked.
    void setMayExchange(std::function<bool()> mayExchange) {
        mayExchange_ = std::move(mayExchange);
    }

  public slots:
    void ButtonGoClick();
    void ButtonCopyClick();

  signals:
    void networkChosen(const QString& title, const kelvro::Network& network);

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    QGroupBox* buildWishes();
    void buildTable();
    QWidget* buildButtons();
    InputEdit* addInput(const char* name, const QString& hint);

    Wishes wishes() const;
    bool askToExchange();
    void refresh();
    void prepareSearch();
    void search();
    /// What stands in a row: one of proposals_, or of networks_.
    struct Entry {
        const Proposal* page = nullptr;
        const NetworkProposal* network = nullptr;

        const RankedCircuit& circuit() const;
        QString title() const;
        QStringList texts() const;
        bool suited() const { return circuit().suited; }
    };
    void rank();
    void showRows();
    void addRow(const Entry& entry, int index);
    void showGo();
    /// Of the current row; null without one.
    const Entry* current() const;

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
    QCheckBox* searched_;
    QTimer due_;    ///< one refresh for a burst of changes
    QTimer pause_;  ///< in typing, before a search begins
    std::vector<Proposal> proposals_;
    std::optional<WishedSearch> wished_;  ///< that networks_ are of
    std::vector<NetworkProposal> networks_;
    std::vector<Entry> entries_;  ///< in the order of the ranking
    BackgroundWork work_;
};

}  // namespace kelvro
