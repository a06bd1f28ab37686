#include "ui/workbench/network_export.h"

#include <utility>

#include "io/network_exports.h"
#include "network/coverage.h"

namespace kelvro {

NetworkExportWindow::NetworkExportWindow(const NetworkModel& model, MessageSink say,
                                         QWidget* parent)
    : ExportWindow(std::move(say), parent), model_(model) {
    setObjectName(QStringLiteral("NetworkExportWindow"));
    setWindowTitle(tr("Export - Network"));
    connect(&model_, &NetworkModel::changed, this, &NetworkExportWindow::follow);
}

std::vector<ExportWindow::Form> NetworkExportWindow::forms() const {
    std::vector<Form> forms;
    for (const NetworkFormat& format : NetworkFormats()) {
        forms.push_back({.key = format.key,
                         .caption = format.caption,
                         .suffix = format.suffix,
                         .range = format.range,
                         .reference = format.reference});
    }
    return forms;
}

/// That of the plots, as far as measured data cover it.
ExportRange NetworkExportWindow::usualRange() const {
    const FrequencyBand plotted = model_.plotRange();
    const FrequencyBand covered =
        CoveredRange(model_.network(), plotted.low, plotted.high).value_or(plotted);
    ExportRange range;
    range.from = covered.low;
    range.to = covered.high;
    return range;
}

Result<std::string> NetworkExportWindow::contentOf(std::string_view key,
                                                   const ExportRange& range) const {
    const NetworkFormat& format = *FindNetworkFormat(key);
    if (format.range) {
        const Status covered = CheckRange(model_.network(), range.from, range.to);
        if (!covered) return covered;
    }
    return format.content(model_.network(), range);
}

}  // namespace kelvro
