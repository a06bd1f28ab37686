#include "ui/info_dlg.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>
#include <QSysInfo>

namespace kelvro {

namespace {

struct Fact {
    QString name;
    QString value;
};

QList<Fact> Facts() {
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/kelvro";
    return {{QObject::tr("Version"), QStringLiteral(KELVRO_VERSION)},
            {QObject::tr("Qt"), QLatin1String(qVersion())},
            {QObject::tr("System"), QSysInfo::prettyProductName()},
            {QObject::tr("Display"), QGuiApplication::platformName()},
            {QObject::tr("Settings"), folder + "/kelvro.ini"}};
}

}  // namespace

TInfoDlg::TInfoDlg(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("TInfoDlg"));
    setWindowTitle(tr("Information"));
    auto* form = new QFormLayout(this);
    QString all;
    for (const Fact& fact : Facts()) {
        auto* value = new QLabel(fact.value);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        form->addRow(fact.name + ':', value);
        all += fact.name + ": " + fact.value + '\n';
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    auto* copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this, [all] { QApplication::clipboard()->setText(all); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    form->addRow(buttons);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace kelvro
