#include "ui/about_box.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "ui/plot/icons.h"

namespace kelvro {

TAboutBox::TAboutBox(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("TAboutBox"));
    setWindowTitle(tr("About Kelvro"));
    auto* picture = new QLabel;
    picture->setPixmap(VectorIcon("kelvro").pixmap(QSize(64, 64), devicePixelRatioF()));
    auto* text = new QLabel(
        tr("<h2>Kelvro %1</h2><p>Matching networks, attenuators and output networks<br>of power "
           "amplifiers, designed while you type.</p><p>Free software under the MIT licence.<br>"
           "Built with Qt %2.</p>")
            .arg(QStringLiteral(KELVRO_VERSION), QLatin1String(qVersion())));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->addButton(tr("&Details..."), QDialogButtonBox::ActionRole)
        ->setObjectName(QStringLiteral("ButtonDetails"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(18);
    grid->addWidget(picture, 0, 0, Qt::AlignTop);
    grid->addWidget(text, 0, 1);
    grid->addWidget(buttons, 1, 0, 1, 2);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace kelvro
