// Saving, copying and printing of the plot windows.

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>

#include "io/atomic_file.h"
#include "plot/frame_painter.h"
#include "plot/picture_files.h"
#include "plot/response_table.h"
#include "ui/plot/plot_form.h"
#include "ui/plot/plot_image.h"

namespace kelvro {

namespace {

/// The toolkit's form of a filter "caption|pattern".
QString NameFilter(const QString& filter) {
    const QString caption = filter.section('|', 0, 0);
    return caption.contains('(') ? caption : caption + " (" + filter.section('|', 1) + ')';
}

}  // namespace

/// Asks until the name is one of a file: a pattern such as "*.TAB" is not.
QString PlotForm::askFileName(const SaveDialog& asked) {
    QFileDialog dialog(this);
    dialog.setObjectName(asked.name);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(NameFilter(asked.filter));
    dialog.setDefaultSuffix(asked.suffix);
    dialog.selectFile(asked.startName);
    while (dialog.exec() == QDialog::Accepted) {
        QString chosen = dialog.selectedFiles().value(0);
        if (!chosen.contains('*')) return chosen;
    }
    return {};
}

QString PlotForm::savePicture(const SaveDialog& asked, PictureFormat format) {
    QString path = askFileName(asked);
    if (path.isEmpty()) return {};
    const auto drawing = [this](QPainter& painter, QSize size) {
        FramePainter().draw(painter, size, image_->picture());
    };
    // Bitmaps as sharp as on the screen.
    const double scale = devicePixelRatioF();
    if (const auto saved = SavePicture(path, format, image_->size(), drawing, scale); !saved) {
        host_.showMessage(QString::fromStdString(saved.message()));
        return {};
    }
    return path;
}

void PlotForm::Save1Click() {
    const QString path = savePicture({"SaveDialogBitmap", texts_.bitmapFilter, "bmp", lastBitmap_},
                                     PictureFormat::Bitmap);
    if (!path.isEmpty()) lastBitmap_ = path;
}

void PlotForm::SaveWMF1Click() {
    const QString path = savePicture({"SaveDialogWMF", texts_.metafileFilter, "wmf", lastMetafile_},
                                     PictureFormat::Metafile);
    if (!path.isEmpty()) lastMetafile_ = path;
}

void PlotForm::SaveasJPEG1Click() {
    savePicture({"SaveDialogJPEG", "JPEG Files (*.jpg)|*.jpg", "jpg", "graph.jpg"},
                PictureFormat::Jpeg);
}

void PlotForm::SaveasGIF1Click() {
    savePicture({"SaveDialogGIF", "GIF Files (*.gif)|*.gif", "gif", "graph.gif"},
                PictureFormat::Gif);
}

void PlotForm::SaveasPNG1Click() {
    savePicture({"SaveDialogPNG", "PNG Files (*.png)|*.png", "png", "graph.png"},
                PictureFormat::Png);
}

void PlotForm::SaveasSVG1Click() {
    savePicture({"SaveDialogSVG", "SVG Files (*.svg)|*.svg", "svg", "graph.svg"},
                PictureFormat::Svg);
}

void PlotForm::SaveasPDF1Click() {
    savePicture({"SaveDialogPDF", "PDF Files (*.pdf)|*.pdf", "pdf", "graph.pdf"},
                PictureFormat::Pdf);
}

void PlotForm::SaveasTable1Click() {
    const QString path = askFileName({"SaveDialogTabelle", "Table File|*.tab", "TAB", "*.TAB"});
    if (path.isEmpty()) return;
    const Axis& x = view().x;
    const std::string table =
        ResponseTable(host_.design(), x.min, x.max, x.mode == AxisMode::Logarithmic);
    if (const auto saved = WriteAtomically(path, QByteArray::fromStdString(table)); !saved) {
        host_.showMessage(QString::fromStdString(saved.message()));
    }
}

void PlotForm::Copy1Click() {
    QGuiApplication::clipboard()->setImage(image_->toImage(devicePixelRatioF()));
}

void PlotForm::Print1Click() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(windowTitle());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) print(printer);
}

void PlotForm::print(QPrinter& printer) {
    QPainter painter;
    if (!painter.begin(&printer)) return host_.showMessage(tr("The printer cannot be opened."));
    const QSize size = image_->size();
    const QRectF page = painter.viewport();
    const double scale = std::min(page.width() / size.width(), page.height() / size.height());
    painter.scale(scale, scale);
    FramePainter().draw(painter, size, image_->picture());
}

}  // namespace kelvro
