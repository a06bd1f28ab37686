#include "ui/export_dlg.h"

#include <QCheckBox>
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
#include <cmath>

#include "core/number_text.h"
#include "design/pages.h"
#include "io/atomic_file.h"
#include "ui/fields.h"
#include "ui/form_parts.h"
#include "ui/mnemonics.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// Longer contents are previewed by their beginning; Copy and Save take all.
constexpr std::size_t kPreviewCharacters = 60'000;

constexpr const char* kSeriesNames[] = {"", "E6", "E12", "E24", "E48", "E96"};

}  // namespace

Result<ExportDesign> ExportAsShown(const DesignHost& host) {
    return PrepareExport(AsShown(host.design()), {.standardValues = host.standardValues(),
                                                  .series = host.preferences().ESeries});
}

TExportDlg::TExportDlg(DesignHost& host, QWidget* parent)
    : QDialog(parent),
      host_(host),
      folder_(QDir::currentPath()),
      formats_(new QComboBox),
      standardValues_(new QCheckBox),
      preview_(new QPlainTextEdit),
      note_(new QLabel) {
    setObjectName(QStringLiteral("TExportDlg"));
    formats_->setObjectName(QStringLiteral("ComboBoxExport"));
    SetHint(*formats_, tr("Form in which the circuit leaves the program"));
    standardValues_->setObjectName(QStringLiteral("CheckBoxExportE"));
    SetHint(*standardValues_,
            tr("Use selected E-series values for circuit export for all elements"));
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
    connect(formats_, &QComboBox::activated, this, &TExportDlg::FormatChange);
    connect(standardValues_, &QCheckBox::clicked, this, &TExportDlg::CheckBoxExportEClick);
    connect(&host_, &DesignHost::designChanged, this, &TExportDlg::designChanged);
    connect(&host_, &DesignHost::shownChanged, this, &TExportDlg::designChanged);
    connect(&host_, &DesignHost::standardValuesChanged, this, &TExportDlg::designChanged);
}

QWidget* TExportDlg::choices() {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    auto* caption = new QLabel(tr("&Format"));
    caption->setBuddy(formats_);
    grid->addWidget(caption, 0, 0);
    grid->addWidget(formats_, 0, 1, 1, 2);
    grid->addWidget(standardValues_, 0, 4, 1, 6);
    int column = 0;
    const auto add = [&](const char* name, const RowTexts& texts, double ExportRange::*value) {
        auto* edit = new InputEdit(QLatin1String(name));
        edit->setMaximumWidth(FieldWidth(*edit));
        edit->setUnit(texts.unit);
        rows_.push_back({edit, AddRow(*grid, {1, column}, edit, texts), value});
        column += 3;
        connect(edit, &QLineEdit::textEdited, this, &TExportDlg::RangeChange);
    };
    add("ExportFromEingabe", {tr("From"), "Hz", tr("First frequency")}, &ExportRange::from);
    add("ExportToEingabe", {tr("to"), "Hz", tr("Last frequency")}, &ExportRange::to);
    add("ExportPointsEingabe", {tr("Points"), {}, tr("Number of frequencies")}, nullptr);
    add("ExportZ0Eingabe", {tr("Reference Z0"), "Ω", tr("Reference resistance of both ports")},
        &ExportRange::z0);
    grid->setColumnStretch(column, 1);
    return panel;
}

QWidget* TExportDlg::buttons() {
    auto* panel = new QWidget;
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    copy_ =
        AddButton<QPushButton>(*row, "ButtonExportCopy", tr("&Copy"), tr("Copy to the clipboard"));
    save_ = AddButton<QPushButton>(*row, "ButtonExportSave", tr("&Save..."), tr("Save to a file"));
    row->addStretch();
    auto* closing =
        AddButton<QPushButton>(*row, "ButtonExportClose", tr("Close"), tr("Close the window"));
    connect(copy_, &QPushButton::clicked, this, &TExportDlg::ButtonExportCopyClick);
    connect(save_, &QPushButton::clicked, this, &TExportDlg::ButtonExportSaveClick);
    connect(closing, &QPushButton::clicked, this, &QDialog::close);
    return panel;
}

void TExportDlg::showEvent(QShowEvent* event) {
    rangeTyped_ = false;
    designChanged();
    formats_->setFocus();
    QDialog::showEvent(event);
}

void TExportDlg::designChanged() {
    if (!isVisible()) return;
    const Page& page = PageOf(host_.design());
    setWindowTitle(tr("Export - %1").arg(Shown(page.caption)));
    const auto series = static_cast<std::size_t>(host_.preferences().ESeries);
    standardValues_->setText(tr("Standard values (%1)").arg(QLatin1String(kSeriesNames[series])));
    GiveMnemonics(*this);  // the new caption has no letter yet
    standardValues_->setChecked(host_.standardValues());
    listFormats();
    if (!rangeTyped_) defaultRange();
    refresh();
}

void TExportDlg::listFormats() {
    const QString chosen = formats_->currentData().toString();
    formats_->clear();
    for (const ExportFormat& format : ExportFormats()) {
        if (!format.available(PageOf(host_.design()))) continue;
        formats_->addItem(Shown(format.caption), ToQString(format.key));
    }
    formats_->setCurrentIndex(std::max(0, formats_->findData(chosen)));
}

void TExportDlg::defaultRange() {
    const double fo = host_.design().fo;
    const PlotSettings& plot = host_.plotSettings();
    const double z0 = range_.z0;
    range_ = ExportRange::Around(fo);
    range_.z0 = z0;
    if (plot.xmin > 0 && plot.xmin < fo && plot.xmax > fo && std::isfinite(plot.xmax)) {
        range_.from = plot.xmin;
        range_.to = plot.xmax;
    }
    writeRange();
}

void TExportDlg::writeRange() {
    for (const RangeRow& row : rows_) {
        const std::string text =
            row.value ? kEngineering.text(range_.*row.value) : FormatFixed(0, 0, range_.points);
        row.edit->setText(QString::fromStdString(text));
    }
}

void TExportDlg::FormatChange() {
    refresh();
}

void TExportDlg::CheckBoxExportEClick(bool checked) {
    host_.setStandardValues(checked);
}

void TExportDlg::RangeChange() {
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

const ExportFormat& TExportDlg::format() const {
    const ExportFormat* found = FindExportFormat(formats_->currentData().toString().toStdString());
    return found ? *found : ExportFormats().front();
}

bool TExportDlg::takesRange() const {
    return format().range(PageOf(host_.design()));
}

void TExportDlg::refresh() {
    for (const RangeRow& row : rows_) {
        const bool reference = row.value == &ExportRange::z0;
        const bool asked = reference ? format().reference : takesRange();
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
Result<std::string> TExportDlg::content() const {
    if (const Status usable = CheckRange(range_); takesRange() && !usable) return usable;
    const auto prepared = ExportAsShown(host_);
    if (!prepared) return prepared.status();
    return format().content(*prepared, range_);
}

void TExportDlg::showContent() {
    const bool whole = content_.size() <= kPreviewCharacters;
    const auto end = whole ? content_.size() : content_.rfind('\n', kPreviewCharacters) + 1;
    QString text = QString::fromUtf8(content_.data(), static_cast<qsizetype>(end));
    if (!whole) text += tr("... (Copy and Save take all of it)");
    preview_->setPlainText(text);
    copy_->setEnabled(!content_.empty());
    save_->setEnabled(!content_.empty());
}

void TExportDlg::ButtonExportCopyClick() {
    QGuiApplication::clipboard()->setText(QString::fromStdString(content_));
    note_->setText(tr("Copied to the clipboard."));
}

void TExportDlg::ButtonExportSaveClick() {
    const QString path = askFileName();
    if (path.isEmpty()) return;
    folder_ = QFileInfo(path).absolutePath();
    if (const auto saved = WriteAtomically(path, QByteArray::fromStdString(content_)); !saved) {
        return host_.showMessage(Shown(saved.message()));
    }
    note_->setText(tr("Saved as %1").arg(QDir::toNativeSeparators(path)));
}

QString TExportDlg::askFileName() {
    const QString suffix = ToQString(format().suffix);
    QFileDialog dialog(this, tr("Export"), folder_,
                       Shown(format().caption) + " (*." + suffix + ')');
    dialog.setObjectName(QStringLiteral("SaveDialogExport"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(ToQString(PageOf(host_.design()).key) + '.' + suffix);
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedFiles().value(0);
}

}  // namespace kelvro
