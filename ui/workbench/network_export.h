#pragma once

#include "ui/export_window.h"
#include "ui/workbench/network_model.h"

namespace kelvro {

/// The network of the Network window, on its way to other tools. Follows it while it is open.
class NetworkExportWindow : public ExportWindow {
    Q_OBJECT

  public:
    NetworkExportWindow(const NetworkModel& model, MessageSink say, QWidget* parent);

    /// Of files to be saved, without a suffix.
    void setFileName(const QString& name) { fileName_ = name; }

  private:
    std::vector<Form> forms() const override;
    ExportRange usualRange() const override;
    Result<std::string> contentOf(std::string_view key, const ExportRange& range) const override;
    QString fileName() const override { return fileName_; }

    const NetworkModel& model_;
    QString fileName_;
};

}  // namespace kelvro
