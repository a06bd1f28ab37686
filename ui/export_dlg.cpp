#include "ui/export_dlg.h"

#include <QCheckBox>
#include <cmath>

#include "design/pages.h"
#include "ui/form_parts.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr const char* kSeriesNames[] = {"", "E6", "E12", "E24", "E48", "E96"};

}  // namespace

Result<ExportDesign> ExportAsShown(const DesignHost& host) {
    return PrepareExport(AsShown(host.design()), {.standardValues = host.standardValues(),
                                                  .series = host.preferences().ESeries});
}

TExportDlg::TExportDlg(DesignHost& host, QWidget* parent)
    : ExportWindow([&host](const QString& text) { host.showMessage(text); }, parent),
      host_(host),
      standardValues_(new QCheckBox) {
    setObjectName(QStringLiteral("TExportDlg"));
    standardValues_->setObjectName(QStringLiteral("CheckBoxExportE"));
    SetHint(*standardValues_,
            tr("Use selected E-series values for circuit export for all elements"));
    addChoice(standardValues_);
    connect(standardValues_, &QCheckBox::clicked, this, &TExportDlg::CheckBoxExportEClick);
    connect(&host_, &DesignHost::designChanged, this, &TExportDlg::follow);
    connect(&host_, &DesignHost::shownChanged, this, &TExportDlg::follow);
    connect(&host_, &DesignHost::standardValuesChanged, this, &TExportDlg::follow);
}

void TExportDlg::follow() {
    if (!isVisible()) return;
    setWindowTitle(tr("Export - %1").arg(Shown(PageOf(host_.design()).caption)));
    const auto series = static_cast<std::size_t>(host_.preferences().ESeries);
    standardValues_->setText(tr("Standard values (%1)").arg(QLatin1String(kSeriesNames[series])));
    standardValues_->setChecked(host_.standardValues());
    ExportWindow::follow();
}

void TExportDlg::CheckBoxExportEClick(bool checked) {
    host_.setStandardValues(checked);
}

std::vector<ExportWindow::Form> TExportDlg::forms() const {
    const Page& page = PageOf(host_.design());
    std::vector<Form> forms;
    for (const ExportFormat& format : ExportFormats()) {
        if (!format.available(page)) continue;
        forms.push_back({.key = format.key,
                         .caption = format.caption,
                         .suffix = format.suffix,
                         .range = format.range(page),
                         .reference = format.reference});
    }
    return forms;
}

/// That of the plots where it holds fo.
ExportRange TExportDlg::usualRange() const {
    const double fo = host_.design().fo;
    const PlotSettings& plot = host_.plotSettings();
    ExportRange range = ExportRange::Around(fo);
    if (plot.xmin > 0 && plot.xmin < fo && plot.xmax > fo && std::isfinite(plot.xmax)) {
        range.from = plot.xmin;
        range.to = plot.xmax;
    }
    return range;
}

Result<std::string> TExportDlg::contentOf(std::string_view key, const ExportRange& range) const {
    const auto prepared = ExportAsShown(host_);
    if (!prepared) return prepared.status();
    return FindExportFormat(key)->content(*prepared, range);
}

QString TExportDlg::fileName() const {
    return ToQString(PageOf(host_.design()).key);
}

}  // namespace kelvro
