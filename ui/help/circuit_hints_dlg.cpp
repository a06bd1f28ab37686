#include "ui/help/circuit_hints_dlg.h"

#include <QDialogButtonBox>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "design/pages.h"
#include "ui/fields.h"
#include "ui/help/page_hints.h"
#include "ui/texts.h"

namespace kelvro {

TCircuitHintsDlg::TCircuitHintsDlg(DesignHost& host, QWidget* parent)
    : QDialog(parent), host_(host), text_(new QTextBrowser) {
    setObjectName(QStringLiteral("TCircuitHintsDlg"));
    text_->setObjectName(QStringLiteral("CircuitHintsText"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addWidget(buttons);
    resize(520, 480);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(&host_, &DesignHost::designChanged, this, &TCircuitHintsDlg::showPage);
    showPage();
}

void TCircuitHintsDlg::showPage() {
    if (page_ == host_.design().page) return;
    page_ = host_.design().page;
    const Page& page = PageOf(page_);
    setWindowTitle(tr("Circuit Hints: %1").arg(Shown(page.caption)));
    text_->setHtml(HintHtml(page));
}

}  // namespace kelvro
