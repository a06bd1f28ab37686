#include "ui/export_window.h"

#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "core/number_text.h"
#include "io/qt_files.h"
#include "ui/fields.h"
#include "ui/form_parts.h"
#include "ui/mnemonics.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// Longer contents are previewed by their beginning; Copy and Save take all.
constexpr std::size_t kPreviewCharacters = 60'000;

}  // namespace

ExportWindow::ExportWindow(MessageSink say, QWidget* parent)
    : QDialog(parent),
      say_(std::move(say)),
      folder_(QDir::currentPath()),
      formats_(new QComboBox),
      preview_(new QPlainTextEdit),
      note_(new QLabel) {
    formats_->setObjectName(QStringLiteral("ComboBoxExport"));
    SetHint(*formats_, tr("Form in which the circuit leaves the program"));
    preview_->setObjectName(QStringLiteral("MemoExport"));
    preview_->setReadOnly(true);
    preview_->setLineWrapMode(QPlainTextEdit::NoWrap);
    preview_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    note_->setObjectName(QStringLiteral("NoteExport"));
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(choices());
    column->addWidget(preview_, 1);
    column->addWidget(note_);
    column->addWidget(buttons());
    resize(760, 600);
    connect(formats_, &QComboBox::activated, this, &ExportWindow::FormatChange);
}

QWidget* ExportWindow::choices() {
    auto* panel = new QWidget;
    grid_ = new QGridLayout(panel);
    grid_->setContentsMargins(0, 0, 0, 0);
    auto* caption = new QLabel(tr("&Format"));
    caption->setBuddy(formats_);
    grid_->addWidget(caption, 0, 0);
    grid_->addWidget(formats_, 0, 1, 1, 2);
    int column = 0;
    const auto add = [&](const char* name, const RowTexts& texts, double ExportRange::*value) {
        auto* edit = new InputEdit(QLatin1String(name));
        edit->setMaximumWidth(FieldWidth(*edit));
        edit->setUnit(texts.unit);
        rows_.push_back({edit, AddRow(*grid_, {1, column}, edit, texts), value});
        column += 3;
        connect(edit, &QLineEdit::textEdited, this, &ExportWindow::RangeChange);
    };
    add("ExportFromEingabe", {tr("From"), "Hz", tr("First frequency")}, &ExportRange::from);
    add("ExportToEingabe", {tr("to"), "Hz", tr("Last frequency")}, &ExportRange::to);
    add("ExportPointsEingabe", {tr("Points"), {}, tr("Number of frequencies")}, nullptr);
    add("ExportZ0Eingabe", {tr("Reference Z0"), "Ω", tr("Reference resistance of both ports")},
        &ExportRange::z0);
    grid_->setColumnStretch(column, 1);
    return panel;
}

void ExportWindow::addChoice(QWidget* widget) {
    grid_->addWidget(widget, 0, 4, 1, 6);
    setTabOrder(formats_, widget);
}

QWidget* ExportWindow::buttons() {
    auto* panel = new QWidget;
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    copy_ =
        AddButton<QPushButton>(*row, "ButtonExportCopy", tr("&Copy"), tr("Copy to the clipboard"));
    save_ = AddButton<QPushButton>(*row, "ButtonExportSave", tr("&Save..."), tr("Save to a file"));
    row->addStretch();
    auto* closing =
        AddButton<QPushButton>(*row, "ButtonExportClose", tr("Close"), tr("Close the window"));
    connect(copy_, &QPushButton::clicked, this, &ExportWindow::ButtonExportCopyClick);
    connect(save_, &QPushButton::clicked, this, &ExportWindow::ButtonExportSaveClick);
    connect(closing, &QPushButton::clicked, this, &QDialog::close);
    return panel;
}

void ExportWindow::showEvent(QShowEvent* event) {
    rangeTyped_ = false;
    follow();
    formats_->setFocus();
    QDialog::showEvent(event);
}

void ExportWindow::follow() {
    if (!isVisible()) return;
    GiveMnemonics(*this);  // captions that changed have no letter yet
    listForms();
    if (!rangeTyped_) {
        const double z0 = range_.z0;
        range_ = usualRange();
        range_.z0 = z0;
        writeRange();
    }
    refresh();
}

void ExportWindow::listForms() {
    const QString chosen = formats_->currentData().toString();
    formats_->clear();
    for (const Form& form : forms()) formats_->addItem(Shown(form.caption), ToQString(form.key));
    formats_->setCurrentIndex(std::max(0, formats_->findData(chosen)));
}

void ExportWindow::writeRange() {
    for (const RangeRow& row : rows_) {
        const std::string text =
            row.value ? kEngineering.text(range_.*row.value) : FormatFixed(0, 0, range_.points);
        row.edit->setText(QString::fromStdString(text));
    }
}

void ExportWindow::FormatChange() {
    refresh();
}

void ExportWindow::RangeChange() {
    rangeTyped_ = true;
    for (const RangeRow& row : rows_) {
        if (!row.edit->isModified()) continue;  // others keep the digits that their texts leave out
        const double typed = row.edit->value();
        if (row.value) {
            range_.*row.value = typed;
        } else {
            range_.points = static_cast<int>(std::clamp(typed, 0.0, 1e9));
        }
    }
    refresh();
}

ExportWindow::Form ExportWindow::form() const {
    const auto all = forms();
    const auto found =
        std::ranges::find(all, formats_->currentData().toString().toStdString(), &Form::key);
    return found == all.end() ? all.front() : *found;
}

void ExportWindow::refresh() {
    const Form chosen = form();
    for (const RangeRow& row : rows_) {
        const bool reference = row.value == &ExportRange::z0;
        const bool asked = reference ? chosen.reference : chosen.range;
        for (QWidget* widget : {static_cast<QWidget*>(row.shown.label), row.shown.field,
                                static_cast<QWidget*>(row.shown.unit)})
            widget->setVisible(asked);
    }
    const Result<std::string> made = content();
    const std::string text = made ? *made : std::string();
    if (made && text == content_) return;  // "Saved as ..." stays
    content_ = text;
    note_->setText(Shown(made.message()));
    showContent();
}

/// What is to be exported, or why nothing can be.
Result<std::string> ExportWindow::content() const {
    const Form chosen = form();
    if (const Status usable = CheckRange(range_); chosen.range && !usable) return usable;
    return contentOf(chosen.key, range_);
}

void ExportWindow::showContent() {
    const bool whole = content_.size() <= kPreviewCharacters;
    const auto end = whole ? content_.size() : content_.rfind('\n', kPreviewCharacters) + 1;
    QString text = QString::fromUtf8(content_.data(), static_cast<qsizetype>(end));
    if (!whole) text += tr("... (Copy and Save take all of it)");
    preview_->setPlainText(text);
    copy_->setEnabled(!content_.empty());
    save_->setEnabled(!content_.empty());
}

void ExportWindow::ButtonExportCopyClick() {
    QGuiApplication::clipboard()->setText(QString::fromStdString(content_));
    note_->setText(tr("Copied to the clipboard."));
}

void ExportWindow::ButtonExportSaveClick() {
    const QString path = askFileName();
    if (path.isEmpty()) return;
    folder_ = QFileInfo(path).absolutePath();
    if (const auto saved = WriteAtomically(path, QByteArray::fromStdString(content_)); !saved) {
        return say_(Shown(saved.message()));
    }
    note_->setText(tr("Saved as %1").arg(QDir::toNativeSeparators(path)));
}

QString ExportWindow::askFileName() {
    const QString suffix = ToQString(form().suffix);
    QFileDialog dialog(this, tr("Export"), folder_, Shown(form().caption) + " (*." + suffix + ')');
    dialog.setObjectName(QStringLiteral("SaveDialogExport"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(fileName() + '.' + suffix);
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedFiles().value(0);
}

}  // namespace kelvro
