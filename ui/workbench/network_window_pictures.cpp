// Pictures, prints, copies and exports of the Network window.

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <algorithm>
#include <utility>

#include "core/number_text.h"
#include "network/coverage.h"
#include "network/network_text.h"
#include "plot/circuit_painter.h"
#include "plot/frame_painter.h"
#include "plot/picture_files.h"
#include "plot/smith_painter.h"
#include "ui/picture_dialog.h"
#include "ui/print_page.h"
#include "ui/texts.h"
#include "ui/workbench/network_export.h"
#include "ui/workbench/network_window.h"
#include "ui/workbench/smith_view.h"
#include "ui/workbench/sweep_view.h"

namespace kelvro {

namespace {

constexpr QSize kPictureSize(1200, 700);
constexpr double kClipboardScale = 2;  // pixels per logical pixel of a copied picture
constexpr int kLadderShare = 4;        // of the height, for the circuit below the chart

/// A word for a shell: in single quotes where it needs them.
QString Quoted(const QString& text) {
    QString inner = text;
    return '\'' + inner.replace('\'', QStringLiteral("'\\''")) + '\'';
}

}  // namespace

void NetworkWindow::paintAll(QPainter& painter, QSize size) {
    painter.fillRect(QRect(QPoint(), size), Qt::white);
    const int chartWidth = std::min(size.width() / 2, size.height());
    const int ladderHeight = size.height() / kLadderShare;
    const QSize chart(chartWidth, size.height() - ladderHeight);
    SmithPicture picture = chart_->picture();
    picture.dark = false;  // paper is white
    DrawSmithChart(painter, chart, picture);
    const QRectF ladder(0, chart.height(), chartWidth, ladderHeight);
    PaintNetworks(painter, ladder.adjusted(8, 0, -8, -8), {&model_.network(), 1});
    const QSize plot(size.width() - chartWidth, size.height() / static_cast<int>(plots_.size()));
    for (std::size_t i = 0; i < plots_.size(); ++i) {
        painter.save();
        painter.translate(chartWidth, static_cast<int>(i) * plot.height());
        Picture curves = plots_[i]->picture();
        curves.dark = false;
        for (const QString& line : plots_[i]->markerLines())
            curves.footer.push_back(line.toStdString());
        FramePainter().draw(painter, plot, curves);
        painter.restore();
    }
}

/// Whoever pastes takes what suits: the bitmap, or the drawing at any size.
void NetworkWindow::copyPicture() {
    const Drawing drawing = [this](QPainter& painter, QSize size) { paintAll(painter, size); };
    auto* offered = new QMimeData;
    offered->setImageData(ImageOf(drawing, kPictureSize, kClipboardScale));
    for (const auto& [format, type] : {std::pair(PictureFormat::Svg, "image/svg+xml"),
                                       std::pair(PictureFormat::Pdf, "application/pdf")}) {
        if (const auto file = EncodePicture(format, kPictureSize, drawing))
            offered->setData(QLatin1String(type), *file);
    }
    QApplication::clipboard()->setMimeData(offered);
    statusBar()->showMessage(tr("Picture copied"));
}

void NetworkWindow::savePicture() {
    const QString file =
        AskForPictureFile(*this, "SaveNetworkPictureDialog", QStringLiteral("network.png"));
    const auto format = PictureFormatOf(file);
    if (!format) return;
    const Status saved = SavePicture(
        file, *format, kPictureSize,
        [this](QPainter& painter, QSize size) { paintAll(painter, size); }, kClipboardScale);
    if (!saved) say(Shown(saved.message()));
}

void NetworkWindow::printPicture() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    const auto printed = PrintPage(
        printer, kPictureSize, [this](QPainter& painter, QSize size) { paintAll(painter, size); });
    if (!printed) say(Shown(printed.message()));
}

void NetworkWindow::exportNetwork() {
    if (!export_)
        export_ = new NetworkExportWindow(
            model_, [this](const QString& text) { say(text); }, this);
    export_->setFileName(file_.isEmpty() ? QStringLiteral("network")
                                         : QFileInfo(file_).completeBaseName());
    export_->show();
    export_->raise();
    export_->activateWindow();
}

QString NetworkWindow::commandLine() const {
    const Network& network = model_.network();
    const FrequencyBand plotted = model_.plotRange();
    const FrequencyBand range = CoveredRange(network, plotted.low, plotted.high).value_or(plotted);
    QStringList words{QStringLiteral("kelvro-cli"), QStringLiteral("analyze")};
    const bool inFiles = std::ranges::all_of(
        DataOf(network), [this](const auto& measured) { return data_.stillInFile(measured); });
    if (inFiles) {
        for (const LadderElement& element : network.ladder)
            words << Quoted(QString::fromStdString(ElementText(element)));
        words << QStringLiteral("--source")
              << Quoted(QString::fromStdString(ImpedanceText(network.source)))
              << QStringLiteral("--load")
              << Quoted(QString::fromStdString(ImpedanceText(network.load)));
    } else if (!file_.isEmpty() && !model_.modified()) {
        words << QStringLiteral("--network") << Quoted(QFileInfo(file_).absoluteFilePath());
    } else {
        return {};
    }
    words << QStringLiteral("--from") << QString::fromStdString(FormatShortest(range.low))
          << QStringLiteral("--to") << QString::fromStdString(FormatShortest(range.high));
    if (!plots_.front()->logarithmic()) words << QStringLiteral("--linear");
    return words.join(' ');
}

void NetworkWindow::copyCommandLine() {
    const QString line = commandLine();
    if (line.isEmpty())
        return say(
            tr("The measured data stand in no file that a shell could read. Save the "
               "project first; the command line then names it."));
    QApplication::clipboard()->setText(line);
    statusBar()->showMessage(tr("Command line copied"));
}

}  // namespace kelvro
