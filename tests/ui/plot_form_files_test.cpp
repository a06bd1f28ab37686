#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLineEdit>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <memory>

#include "tests/ui/plot_fixture.h"
#include "ui/plot/form_phi.h"
#include "ui/plot/form_vu.h"
#include "ui/plot/plot_image.h"

using namespace kelvro;

namespace {

void TypeFileName(QWidget& dialog, const QString& path) {
    auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
    name->setText(path);
    QTest::keyClick(name, Qt::Key_Return);
}

/// Lines of the drawing on a PDF page in the green of the curve, as another program reads them.
int GreenLines(const QString& path) {
    QProcess python;
    python.start("python3", {"-c", R"(
import re, sys, zlib
pdf = open(sys.argv[1], 'rb').read()
assert pdf.startswith(b'%PDF-1.') and pdf.rstrip().endswith(b'%%EOF')
lines, green = 0, False
for stream in re.findall(rb'stream\r?\n(.*?)\r?\nendstream', pdf, re.S):
    try: text = zlib.decompress(stream).decode('latin-1')
    except zlib.error: continue
    for row in text.splitlines():
        if row.endswith('SCN'): green = [round(255 * float(c)) for c in row.split()[:-1]] == [0, 128, 0]
        lines += green and row.endswith(' l')
print(lines)
)",
                             path});
    if (!python.waitForFinished(60000) || python.exitCode() != 0) {
        QTest::qFail(python.readAllStandardError() + python.errorString().toUtf8(), __FILE__,
                     __LINE__);
    }
    return python.readAllStandardOutput().trimmed().toInt();
}

}  // namespace

/// Saving, copying and printing from the windows.
class PlotFormFilesTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<Host> host_;
    std::unique_ptr<TFormVu> vu_;

    void choose(const char* name) {
        auto* action = vu_->findChild<QAction*>(name);
        QVERIFY2(action != nullptr, name);
        action->trigger();
    }

  private slots:
    void init() {
        host_ = std::make_unique<Host>();
        vu_ = std::make_unique<TFormVu>(*host_);
        vu_->show();
        QVERIFY(QTest::qWaitForWindowExposed(vu_.get()));
    }
    void cleanup() {
        vu_.reset();
        host_.reset();
    }

    void picturesAreSavedInTheFormatOfTheirMenuEntry_data() {
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QByteArray>("start");
        QTest::addRow("bitmap") << QByteArray("Save1") << "bmp" << QByteArray("BM");
        QTest::addRow("metafile") << QByteArray("SaveWMF1") << "wmf"
                                  << QByteArray::fromHex("d7cdc69a");
        QTest::addRow("JPEG") << QByteArray("SaveasJPEG1") << "jpg" << QByteArray::fromHex("ffd8");
        QTest::addRow("GIF") << QByteArray("SaveasGIF1") << "gif" << QByteArray("GIF8");
        QTest::addRow("PNG") << QByteArray("SaveasPNG1") << "png" << QByteArray("\x89PNG");
        QTest::addRow("SVG") << QByteArray("SaveasSVG1") << "svg" << QByteArray("<?xml");
        QTest::addRow("PDF") << QByteArray("SaveasPDF1") << "pdf" << QByteArray("%PDF");
    }
    void picturesAreSavedInTheFormatOfTheirMenuEntry() {
        QFETCH(QByteArray, entry);
        QFETCH(QString, suffix);
        const QTemporaryDir folder;
        InDialog dialog([&](QWidget& d) { TypeFileName(d, folder.filePath("plot")); });
        choose(entry);
        QVERIFY(dialog.seen());
        QFile file(folder.filePath("plot." + suffix));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QFETCH(QByteArray, start);
        QCOMPARE(file.read(start.size()), start);
        QVERIFY(host_->messages.isEmpty());
    }

    void theTableCoversTheRangeOfTheWindow() {
        const QTemporaryDir folder;
        choose("xlog1");
        InDialog dialog([&](QWidget& d) { TypeFileName(d, folder.filePath("response")); });
        choose("SaveasTable1");
        QVERIFY(dialog.seen());
        QFile file(folder.filePath("response.TAB"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const auto lines = file.readAll().split('\n');
        QCOMPARE(lines.size(), 515);  // the last one is empty
        // 0 to 50 MHz in 512 equal steps, from one step above 0 on.
        QVERIFY2(lines[1].trimmed().startsWith("97.656k "), lines[1].constData());
    }

    void aPictureThatCannotBeSavedGivesOneMessage() {
        InDialog dialog([&](QWidget& d) { TypeFileName(d, "/proc/plot.png"); });
        choose("SaveasPNG1");
        QVERIFY(dialog.seen());
        QCOMPARE(host_->messages.size(), 1);
    }

    void copyingPutsThePictureOnTheClipboard() {
        choose("Copy1");
        QCOMPARE(QApplication::clipboard()->image().size(),
                 vu_->findChild<PlotImage*>("Image")->size());
    }

    void thePrintedPageCarriesTheCurve() {
        const QTemporaryDir folder;
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath("page.pdf"));
        vu_->print(printer);
        QVERIFY(host_->messages.isEmpty());
        // Most of its 254 segments lie within the plot.
        QVERIFY(GreenLines(printer.outputFileName()) > 100);
    }

    void aPrinterThatCannotBeOpenedGivesOneMessage() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName("/proc/page.pdf");
        vu_->print(printer);
        QCOMPARE(host_->messages, QStringList("The printer cannot be opened."));
    }
};

QTEST_MAIN(PlotFormFilesTest)
#include "plot_form_files_test.moc"
