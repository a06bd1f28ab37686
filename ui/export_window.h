#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "io/exports.h"
#include "ui/form_row.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace kelvro {

class InputEdit;

/// Something in the forms that other tools read: choice of form, frequencies where they matter,
/// preview, Copy and Save. What it is, and which forms there are, a derived window says.
class ExportWindow : public QDialog {
    Q_OBJECT

  public:
    /// Where messages go that want to be read: a file that cannot be written.
    using MessageSink = std::function<void(const QString&)>;
    ExportWindow(MessageSink say, QWidget* parent);

  public slots:
    void FormatChange();
    void RangeChange();
    void ButtonExportCopyClick();
    void ButtonExportSaveClick();

  protected:
    struct Form {
        std::string_view key;
        std::string_view caption;
        std::string_view suffix;
        bool range;      ///< are frequencies chosen?
        bool reference;  ///< is a reference resistance chosen?
    };

    virtual std::vector<Form> forms() const = 0;
    /// Frequencies to begin with.
    virtual ExportRange usualRange() const = 0;
    /// The content in a form, or why there is none.
    virtual Result<std::string> contentOf(std::string_view key, const ExportRange& range) const = 0;
    /// Of a file to be saved, without its suffix.
    virtual QString fileName() const = 0;
    /// Beside the choice of the form.
    void addChoice(QWidget* widget);
    /// What is exported has changed: shown anew, with the usual frequencies where the user has
    /// typed none.
    virtual void follow();

    void showEvent(QShowEvent* event) override;

  private:
    struct RangeRow {
        InputEdit* edit;
        FormRow shown;
        double ExportRange::*value;
    };

    QWidget* choices();
    QWidget* buttons();
    void listForms();
    void writeRange();
    void refresh();
    Result<std::string> content() const;
    void showContent();
    QString askFileName();
    Form form() const;

    MessageSink say_;
    ExportRange range_;
    bool rangeTyped_ = false;  ///< frequencies of the user's own stay when the content changes
    std::string content_;
    QString folder_;

    QGridLayout* grid_ = nullptr;
    QComboBox* formats_;
    std::vector<RangeRow> rows_;
    QPlainTextEdit* preview_;
    QLabel* note_;
    QPushButton* copy_ = nullptr;
    QPushButton* save_ = nullptr;
};

}  // namespace kelvro
