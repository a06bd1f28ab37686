#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "io/exports.h"
#include "ui/form_row.h"
#include "ui/plot/design_host.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace kelvro {

class InputEdit;

/// The design with the component values that the window shows, of the standard series where exports
/// take these, or why there is nothing to export.
Result<ExportDesign> ExportAsShown(const DesignHost& host);

/// The design of the present page in the forms that other tools read: choice of format, frequencies
/// where they matter, preview, Copy and Save. Follows the design while it is open.
class TExportDlg : public QDialog {
    Q_OBJECT

  public:
    TExportDlg(DesignHost& host, QWidget* parent = nullptr);

  public slots:
    void FormatChange();
    void CheckBoxExportEClick(bool checked);
    void RangeChange();
    void ButtonExportCopyClick();
    void ButtonExportSaveClick();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    struct RangeRow {
        InputEdit* edit;
        FormRow shown;
        double ExportRange::*value;
    };

    QWidget* choices();
    QWidget* buttons();
    void designChanged();
    void listFormats();
    void defaultRange();
    void writeRange();
    void refresh();
    Result<std::string> content() const;
    void showContent();
    QString askFileName();
    const ExportFormat& format() const;
    bool takesRange() const;

    DesignHost& host_;
    ExportRange range_;
    bool rangeTyped_ = false;  ///< frequencies of the user's own stay when the design changes
    std::string content_;
    QString folder_;

    QComboBox* formats_;
    QCheckBox* standardValues_;
    std::vector<RangeRow> rows_;
    QPlainTextEdit* preview_;
    QLabel* note_;
    QPushButton* copy_;
    QPushButton* save_;
};

}  // namespace kelvro
