// From a page on to the search for networks that do what it does, only better.

#include "advise/page_problem.h"
#include "design/pages.h"
#include "ui/fields.h"
#include "ui/sdi_app_form.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

void TSDIAppForm::FindBetter1Click() {
    auto problem = PageProblem(session_.design());
    if (!problem) return session_.showMessage(QString::fromStdString(problem.message()));
    networkWindow()->findFor(ToQString(PageOf(session_.design()).caption), *std::move(problem));
}

}  // namespace kelvro
