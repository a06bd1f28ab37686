// Start-up and printing of the main window.

#include <QAction>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include "advise/keywords.h"
#include "ui/sdi_app_form.h"
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
    for (const std::string& message : preset.messages)
        session_.showMessage(QString::fromStdString(message));
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
    QPainter painter(&target);
    if (!painter.isActive()) {
        session_.showMessage(tr("The window cannot be printed to ") + target.outputFileName());
        return;
    }
    const QRectF paper = painter.viewport();
    const double scale = std::min(paper.width() / width(), paper.height() / height());
    painter.translate((paper.width() - scale * width()) / 2, 0);
    painter.scale(scale, scale);
    render(&painter, QPoint(), QRegion(), QWidget::DrawWindowBackground | QWidget::DrawChildren);
}

}  // namespace kelvro
