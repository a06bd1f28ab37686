// From a page on to the search for networks that do what it does, only better.

#include "advise/page_problem.h"
#include "design/pages.h"
#include "ui/fields.h"
#include "ui/form_proposal.h"
#include "ui/sdi_app_form.h"
#include "ui/texts.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

void TSDIAppForm::FindBetter1Click() {
    auto problem = PageProblem(session_.design());
    if (!problem) return session_.showMessage(Shown(problem.message()));
    networkWindow()->findFor(Shown(PageOf(session_.design()).caption), *std::move(problem),
                             LossesOf(session_.design()));
}

/// What Suggestions has found opens where it can be tuned.
void TSDIAppForm::connectSuggestions(const QWidget& made) {
    const auto* suggestions = dynamic_cast<const TFormProposal*>(&made);
    if (!suggestions) return;
    connect(suggestions, &TFormProposal::networkChosen, this,
            [this](const QString& title, const Network& network) {
                networkWindow()->takeDesign(title, network);
            });
}

}  // namespace kelvro
