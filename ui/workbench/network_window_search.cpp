// What the Network window looks for: networks for a band, standard values, the middle of the
// tolerances, and the limit of them all.

#include <QAction>
#include <QMenu>
#include <cmath>

#include "ui/workbench/centre_dialog.h"
#include "ui/workbench/find_dialog.h"
#include "ui/workbench/limit_watch.h"
#include "ui/workbench/network_window.h"
#include "ui/workbench/search_choices.h"
#include "ui/workbench/standard_dialog.h"
#include "ui/workbench/sweep_view.h"

namespace kelvro {

namespace {

/// Shows a dialog in front of its window, which stays awake; it goes when it closes.
void Open(QDialog* dialog) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

}  // namespace

void NetworkWindow::addSearchActions(QMenu& menu) {
    add(menu, "NetworkFind", tr("&Find Networks…"), QKeySequence(Qt::CTRL | Qt::Key_F),
        [this] { findNetworks(); });
    add(menu, "NetworkStandard", tr("Standard &Values…"), {}, [this] { standardValues(); });
    add(menu, "NetworkCentre", tr("Yield and &Centring…"), {}, [this] { centre(); });
    limit_ = new LimitWatch(model_, this);
    QAction* action = menu.addAction(tr("Show &Limit"));
    action->setObjectName(QStringLiteral("NetworkLimit"));
    action->setCheckable(true);
    connect(action, &QAction::toggled, limit_, &LimitWatch::setOn);
    connect(limit_, &LimitWatch::changed, this, [this, action] {
        action->setChecked(limit_->on());
        const auto& limit = limit_->limit();
        const auto dB = limit ? std::optional(10 * std::log10(limit->GT)) : std::nullopt;
        for (SweepView* plot : plots_) plot->setLimit(dB, limit && limit->estimate);
    });
}

void NetworkWindow::findFor(const QString& caption, Network problem, const SearchLosses& losses) {
    // A search that is open has another problem.
    for (auto* dialog : findChildren<FindDialog*>()) dialog->done(QDialog::Rejected);
    takeDesign(caption, std::move(problem));
    auto* dialog = new FindDialog(model_, *limit_, this);
    dialog->choices().setLosses(losses);
    Open(dialog);
}

void NetworkWindow::findNetworks() {
    Open(new FindDialog(model_, *limit_, this));
}

void NetworkWindow::standardValues() {
    Open(new StandardDialog(model_, this));
}

void NetworkWindow::centre() {
    Open(new CentreDialog(model_, this));
}

}  // namespace kelvro
