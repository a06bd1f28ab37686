#include "ui/help/gr_hilfe_box.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

#include "ui/help/manual_text.h"
#include "ui/help/manual_view.h"

namespace kelvro {

TGRHilfeBox::TGRHilfeBox(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("TGRHilfeBox"));
    setWindowTitle(tr("Help on plots"));
    auto* text = new ManualView;
    text->setHtml(ManualHtml(QStringLiteral("plots")) + ManualHtml(QStringLiteral("tolerances")));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
    resize(560, 520);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

}  // namespace kelvro
