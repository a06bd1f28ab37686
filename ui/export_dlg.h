#pragma once

#include "ui/export_window.h"
#include "ui/plot/design_host.h"

class QCheckBox;

namespace kelvro {

/// The design with the component values that the window shows, of the standard series where exports
/// take these, or why there is nothing to export.
Result<ExportDesign> ExportAsShown(const DesignHost& host);

/// The design of the present page, on its way to other tools. Follows it while it is open.
class TExportDlg : public ExportWindow {
    Q_OBJECT

  public:
    TExportDlg(DesignHost& host, QWidget* parent = nullptr);

  public slots:
    void CheckBoxExportEClick(bool checked);

  private:
    std::vector<Form> forms() const override;
    ExportRange usualRange() const override;
    Result<std::string> contentOf(std::string_view key, const ExportRange& range) const override;
    QString fileName() const override;
    void follow() override;

    DesignHost& host_;
    QCheckBox* standardValues_;
};

}  // namespace kelvro
