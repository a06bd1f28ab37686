// Saving, copying and printing of the plot windows.

#include <QAction>
#include <QClipboard>
#include <QDate>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include "design/pages.h"
#include "io/qt_files.h"
#include "plot/caption.h"
#include "plot/frame_painter.h"
#include "plot/picture_files.h"
#include "plot/picture_names.h"
#include "plot/response_table.h"
#include "plot/shown_numbers.h"
#include "ui/picture_dialog.h"
#include "ui/plot/plot_form.h"
#include "ui/plot/plot_image.h"
#include "ui/print_page.h"
#include "ui/texts.h"

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
    dialog.setNameFilter(NameFilter(Shown(asked.filter.toStdString())));
    dialog.setDefaultSuffix(asked.suffix);
    dialog.selectFile(asked.startName);
    while (dialog.exec() == QDialog::Accepted) {
        QString chosen = dialog.selectedFiles().value(0);
        if (!chosen.contains('*')) return chosen;
    }
    return {};
}

QString PlotForm::savePicture(const SaveDialog& asked, PictureFormat format) {
    const QString chosen = askFileName(asked);
    if (chosen.isEmpty()) return {};
    QString path = WithEnding(chosen, format);
    if (path != chosen && QFileInfo::exists(path) && !mayReplace(path)) return {};
    const bool vector = format == PictureFormat::Svg || format == PictureFormat::Pdf;
    const Sheet sheet = sheetFor(vector && !plot_.dark);
    // Bitmaps as sharp as on the screen.
    const double scale = devicePixelRatioF();
    if (const auto saved = SavePicture(path, format, sheet.size, sheet.drawing(), scale); !saved) {
        host_.showMessage(Shown(saved.message()));
        return {};
    }
    return path;
}

bool PlotForm::mayReplace(const QString& path) {
    return MayReplace(*this, path);
}

Drawing PlotForm::Sheet::drawing() const {
    return [this](QPainter& painter, QSize whole) { frame.draw(painter, whole, picture); };
}

/// The picture as it leaves the window: with what it shows written below it.
PlotForm::Sheet PlotForm::sheetFor(bool paper) const {
    Sheet sheet{image_->picture(), image_->size(), image_->painter()};
    Picture& picture = sheet.picture;
    picture.paper = paper;
    if (paper) picture.dark = false;
    if (!findChild<QAction*>("Caption1")->isChecked()) return sheet;
    const auto add = [&picture](const std::vector<std::string>& lines) {
        for (const std::string& line : lines)
            picture.footer.push_back(ShownValue(line).toStdString());
    };
    const Design& design = host_.design();
    add(MarkerLines(TraceSource(design), plot_.traces, plot_.markers));
    for (const std::string& edge : EdgeTexts(design, plot_, samples_))
        picture.footer.push_back(Shown(edge).toStdString());
    add(CaptionOf({design, host_.result(), host_.preferences().ESeries, {}},
                  QDate::currentDate().toString(Qt::ISODate).toStdString(),
                  Shown(PageOf(design).caption).toStdString()));
    sheet.size.rheight() += sheet.frame.footerHeight(picture, sheet.size.width());
    return sheet;
}

std::string PlotForm::shownNumbers(char separator) const {
    const auto runs = scatter_.designs(host_.design());
    const ShownRuns shown{runs, !runCurves_.empty(), envelope_.has_value()};
    return ShownNumbers(host_.design(), plot_, samples_, shown, separator);
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
    savePicture({"SaveDialogJPEG", QT_TRANSLATE_NOOP("kelvro", "JPEG Files (*.jpg)|*.jpg"), "jpg",
                 "graph.jpg"},
                PictureFormat::Jpeg);
}

void PlotForm::SaveasGIF1Click() {
    savePicture({"SaveDialogGIF", QT_TRANSLATE_NOOP("kelvro", "GIF Files (*.gif)|*.gif"), "gif",
                 "graph.gif"},
                PictureFormat::Gif);
}

void PlotForm::SaveasPNG1Click() {
    savePicture({"SaveDialogPNG", QT_TRANSLATE_NOOP("kelvro", "PNG Files (*.png)|*.png"), "png",
                 "graph.png"},
                PictureFormat::Png);
}

void PlotForm::SaveasSVG1Click() {
    savePicture({"SaveDialogSVG", QT_TRANSLATE_NOOP("kelvro", "SVG Files (*.svg)|*.svg"), "svg",
                 "graph.svg"},
                PictureFormat::Svg);
}

void PlotForm::SaveasPDF1Click() {
    savePicture({"SaveDialogPDF", QT_TRANSLATE_NOOP("kelvro", "PDF Files (*.pdf)|*.pdf"), "pdf",
                 "graph.pdf"},
                PictureFormat::Pdf);
}

void PlotForm::SaveasTable1Click() {
    const QString path = askFileName(
        {"SaveDialogTabelle", QT_TRANSLATE_NOOP("kelvro", "Table File|*.tab"), "TAB", "*.TAB"});
    if (path.isEmpty()) return;
    const Axis& x = view().x;
    const std::string table =
        ResponseTable(host_.design(), x.min, x.max, x.mode == AxisMode::Logarithmic);
    if (const auto saved = WriteAtomically(path, QByteArray::fromStdString(table)); !saved) {
        host_.showMessage(Shown(saved.message()));
    }
}

void PlotForm::SaveasCSV1Click() {
    const QString path =
        askFileName({"SaveDialogCSV", QT_TRANSLATE_NOOP("kelvro", "CSV Files (*.csv)|*.csv"), "csv",
                     "graph.csv"});
    if (path.isEmpty()) return;
    const QByteArray numbers = QByteArray::fromStdString(shownNumbers(','));
    if (const auto written = WriteAtomically(path, numbers); !written) {
        host_.showMessage(Shown(written.message()));
    }
}

/// Whoever pastes takes what suits: the bitmap, the drawing, or the numbers for a spreadsheet.
void PlotForm::Copy1Click() {
    const Sheet sheet = sheetFor(false);
    auto* offered = new QMimeData;
    offered->setImageData(ImageOf(sheet.drawing(), sheet.size, devicePixelRatioF()));
    const auto svg = EncodePicture(PictureFormat::Svg, sheet.size, sheet.drawing());
    if (svg) offered->setData("image/svg+xml", *svg);
    offered->setText(QString::fromStdString(shownNumbers('\t')));
    QGuiApplication::clipboard()->setMimeData(offered);
}

void PlotForm::Print1Click() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(windowTitle());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) print(printer);
}

void PlotForm::print(QPrinter& printer) {
    const Sheet sheet = sheetFor(true);
    if (const auto printed = PrintPage(printer, sheet.size, sheet.drawing()); !printed) {
        host_.showMessage(Shown(printed.message()));
    }
}

}  // namespace kelvro
