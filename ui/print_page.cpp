#include "ui/print_page.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QPrinter>
#include <QWidget>
#include <algorithm>

#include "io/qt_files.h"

namespace kelvro {

namespace {

Status Failure(const char* message) {
    return Status::Failure(message);
}

Status NotPrinted() {
    return Failure("The printer cannot be opened.");
}

/// False when the device cannot be drawn on, or reports at the end that it failed.
bool Draw(QPaintDevice& device, QSize size, const Drawing& drawing) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    const QRectF page = painter.viewport();
    const double scale = std::min(page.width() / size.width(), page.height() / size.height());
    painter.translate((page.width() - scale * size.width()) / 2, 0);
    painter.scale(scale, scale);
    drawing(painter, size);
    return painter.end();
}

/// The printer's own files hide a full disk or a missing folder.
Status PrintFile(QPrinter& printer, QSize size, const Drawing& drawing) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(printer.docName());
        writer.setPageLayout(printer.pageLayout());
        writer.setResolution(printer.resolution());
        if (!Draw(writer, size, drawing)) return NotPrinted();
    }
    return WriteAtomically(printer.outputFileName(), bytes);
}

}  // namespace

Status PrintPage(QPrinter& printer, QSize size, const Drawing& drawing) {
    if (printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty()) {
        return PrintFile(printer, size, drawing);
    }
    if (!Draw(printer, size, drawing)) return NotPrinted();
    if (printer.printerState() == QPrinter::Error) {
        return Failure("The printer has failed.");
    }
    return {};
}

Drawing DrawingOf(QWidget& window) {
    return [&window](QPainter& painter, QSize) {
        // Rendered to a printer at once, a window becomes one bitmap.
        QPicture picture;
        QPainter recorder(&picture);
        window.render(&recorder, QPoint(), QRegion(),
                      QWidget::DrawWindowBackground | QWidget::DrawChildren);
        recorder.end();
        painter.drawPicture(0, 0, picture);
    };
}

}  // namespace kelvro
