// Start-up and printing of the main window.

#include <QAction>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include "advise/keywords.h"
#include "ui/print_page.h"
#include "ui/sdi_app_form.h"
#include "ui/texts.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

void TSDIAppForm::namePrinter() {
    const QPrinterInfo current = QPrinterInfo::defaultPrinter();
    const QString name =
        current.isNull() ? QPrinterInfo::availablePrinterNames().value(0) : current.printerName();
    if (name.isEmpty()) return;
    findChild<QAction*>(QStringLiteral("Drucken1"))
        ->setText(tr("&Print window with ") + QString(name).replace('&', "&&"));
}

void TSDIAppForm::readArguments(const QStringList& arguments) {
    std::vector<std::string> texts;
    for (const QString& argument : arguments) {
        if (NetworkWindow::opens(argument)) {
            networkFiles_ << argument;
        } else {
            texts.push_back(argument.toStdString());
        }
    }
    const KeywordPreset preset = ReadKeywords(texts);
    session_.optimizer().settings = preset.settings;
    for (const std::string& message : preset.messages) session_.showMessage(Shown(message));
}

QPrinter& TSDIAppForm::printer() {
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer_->setDocName(QLatin1String(kApplicationTitle));
        printer_->setPageOrientation(QPageLayout::Landscape);
        if (QPrinterInfo::availablePrinterNames().isEmpty()) {
            printer_->setOutputFileName(
                QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) +
                "/kelvro.pdf");
        }
    }
    return *printer_;
}

void TSDIAppForm::Drucken1Click() {
    QPrintDialog dialog(&printer(), this);
    if (dialog.exec() == QDialog::Accepted) printOn(printer());
}

void TSDIAppForm::Druckereinstellung1Click() {
    QPageSetupDialog dialog(&printer(), this);
    dialog.exec();
}

void TSDIAppForm::printOn(QPrinter& target) {
    if (const auto printed = PrintPage(target, size(), DrawingOf(*this)); !printed) {
        session_.showMessage(Shown(printed.message()));
    }
}

}  // namespace kelvro
