// What ends a network, as a field.

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include "ui/fields.h"
#include "ui/texts.h"
#include "ui/workbench/ladder_panel.h"

namespace kelvro {

namespace {

constexpr int kShownDigits = 5;  // the field being edited shows them all

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

TerminationEdit::TerminationEdit(const char* object, const QString& caption, NetworkModel& model,
                                 Member member, DataLoader load, QWidget* parent)
    : QWidget(parent),
      model_(model),
      member_(member),
      caption_(caption),
      load_(std::move(load)),
      edit_(new QLineEdit),
      problem_(new QLabel) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    auto* row = new QHBoxLayout;
    auto* label = new QLabel(caption);
    label->setBuddy(edit_);
    edit_->setObjectName(QLatin1String(object));
    SetHint(*edit_, tr("Impedance: 50, 12-j45, R=10 + L=2n, 50 | C=2p, antenna.s1p"));
    auto* file = new QToolButton;
    file->setObjectName(QLatin1String(object) + QStringLiteral("File"));
    file->setText(tr("…"));
    SetHint(*file, tr("Take measured data from a Touchstone file"));
    row->addWidget(label);
    row->addWidget(edit_, 1);
    row->addWidget(file);
    column->addLayout(row);
    problem_->setObjectName(QLatin1String(object) + QStringLiteral("Problem"));
    problem_->setWordWrap(true);
    problem_->hide();
    column->addWidget(problem_);
    connect(edit_, &QLineEdit::textEdited, this, &TerminationEdit::apply);
    connect(edit_, &QLineEdit::editingFinished, this, &TerminationEdit::showModel);
    connect(file, &QToolButton::clicked, this, &TerminationEdit::chooseFile);
    connect(&model_, &NetworkModel::changed, this, [this] {
        if (!edit_->hasFocus()) showModel();
    });
    showModel();
}

void TerminationEdit::apply() {
    auto read = ParseTermination(edit_->text().toStdString(), load_);
    problem_->setVisible(!read.ok());
    problem_->setText(read.ok() ? QString() : Shown(read.message()));
    if (!read) return;
    model_.edit(
        QString(caption_).remove('&'),
        [&](Network& network) { network.*member_ = std::move(read).value(); }, edit_->objectName());
}

void TerminationEdit::showModel() {
    const QString text = Text(ImpedanceText(model_.network().*member_, kShownDigits));
    if (edit_->text() != text) edit_->setText(text);
    problem_->hide();
}

void TerminationEdit::chooseFile() {
    QFileDialog dialog(this, tr("Measured impedance"), {},
                       tr("Touchstone files (*.s1p *.s2p *.S1P *.S2P *.ts)"));
    dialog.setObjectName(QStringLiteral("TouchstoneDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted) return;
    const QString file = dialog.selectedFiles().value(0);
    const bool twoPort = file.endsWith(QStringLiteral(".s2p"), Qt::CaseInsensitive);
    edit_->setText('"' + file + '"' + (twoPort ? QStringLiteral(":1") : QString()));
    apply();
}

}  // namespace kelvro
