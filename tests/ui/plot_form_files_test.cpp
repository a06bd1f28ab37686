#include <QPrinter>
#include <memory>

#include "tests/ui/plot_fixture.h"
#include "ui/plot/form_phi.h"
#include "ui/plot/form_vu.h"
#include "ui/plot/plot_image.h"
#include "ui/print_page.h"

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
class PlotFormFilesTest : public QObject, protected GainWindow {
    Q_OBJECT

  private:
    void choose(const char* name) { action(name).trigger(); }

  private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void picturesAreSavedInTheFormatOfTheirMenuEntry() {
        struct Row {
            const char* entry;
            const char* written;
            QByteArray start;
        };
        for (const auto& [entry, written, start] :
             {Row{"Save1", "plot.bmp", "BM"}, Row{"SaveWMF1", "plot.wmf", "\xd7\xcd\xc6\x9a"},
              Row{"SaveasJPEG1", "plot.jpg", "\xff\xd8"}, Row{"SaveasGIF1", "plot.gif", "GIF8"},
              Row{"SaveasPNG1", "plot.png", "\x89PNG"}, Row{"SaveasSVG1", "plot.svg", "<?xml"},
              Row{"SaveasPDF1", "plot.pdf", "%PDF"}}) {
            const QTemporaryDir folder;
            InDialog dialog([&](QWidget& d) { TypeFileName(d, folder.filePath("plot")); });
            choose(entry);
            QVERIFY(dialog.seen());
            QVERIFY2(ReadAll(folder.filePath(written)).startsWith(start), written);
            QVERIFY(host_->messages.isEmpty());
        }
    }

    void theTableCoversTheRangeOfTheWindow() {
        const QTemporaryDir folder;
        choose("xlog1");
        InDialog dialog([&](QWidget& d) { TypeFileName(d, folder.filePath("response")); });
        choose("SaveasTable1");
        QVERIFY(dialog.seen());
        const auto lines = ReadAll(folder.filePath("response.TAB")).split('\n');
        QCOMPARE(lines.size(), 515);  // the last one is empty
        // 0 to 50 MHz in 512 equal steps, from one step above 0 on.
        QVERIFY2(lines[1].trimmed().startsWith("97.656k "), lines[1].constData());
    }

    void copyingOffersBitmapDrawingAndNumbers() {
        const QSize shown = vu_->findChild<PlotImage*>("Image")->size();
        choose("Copy1");
        const QMimeData& offered = *QApplication::clipboard()->mimeData();
        QVERIFY(offered.data("image/svg+xml").contains("LC Series Tank"));
        QVERIFY2(offered.text().startsWith("f_Hz\tV_dB\n"), qPrintable(offered.text().left(60)));
        // The caption stands below the plot.
        const QSize copied = QApplication::clipboard()->image().size();
        QCOMPARE(copied.width(), shown.width());
        QVERIFY(copied.height() > shown.height());
        choose("Caption1");
        choose("Copy1");
        QCOMPARE(QApplication::clipboard()->image().size(), shown);
    }

    void theEndingIsThatOfTheFormat() {
        for (const auto& [typed, written] : {std::pair{"plot", "plot.png"},
                                             {"plot.PNG", "plot.PNG"},
                                             {"plot.jpg", "plot.png"},
                                             {"plot.v2", "plot.v2.png"}}) {
            const QTemporaryDir folder;
            InDialog dialog(
                [&, typed = typed](QWidget& d) { TypeFileName(d, folder.filePath(typed)); });
            choose("SaveasPNG1");
            QVERIFY(dialog.seen());
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files).join('|'), QString(written));
        }
    }

    void aFileThatTheEndingLeadsToIsNotReplacedUnasked() {
        const QTemporaryDir folder;
        const QString old = folder.filePath("plot.png");
        Write(old, "old");
        InDialog name([&](QWidget& d) { TypeFileName(d, folder.filePath("plot.jpg")); });
        QTimer question;
        bool asked = false;
        connect(&question, &QTimer::timeout, this, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            asked = true;
            QTest::mouseClick(box->button(QMessageBox::No), Qt::LeftButton);
        });
        question.start(5);
        choose("SaveasPNG1");
        QVERIFY(asked);
        QCOMPARE(ReadAll(old), QByteArray("old"));
    }

    void savedPicturesSayWhatTheyShow() {
        const QTemporaryDir folder;
        choose("Marker1");
        const auto saved = [&] {
            InDialog dialog([&](QWidget& d) { TypeFileName(d, folder.filePath("plot.svg")); });
            QFile::remove(folder.filePath("plot.svg"));
            choose("SaveasSVG1");
            return ReadAll(folder.filePath("plot.svg"));
        };
        const QByteArray drawing = saved();
        const QByteArray today = QDate::currentDate().toString("yyyy-MM-dd").toLatin1();
        for (const char* text :
             {"1: f=", "1 LC Series Tank: R1", "fo 1.00 MHz", "Q 5", "C1 ", today.constData()}) {
            QVERIFY2(drawing.contains(text), text);
        }
        choose("Caption1");
        QVERIFY(!saved().contains("LC Series Tank: R1"));
    }

    void lightColoursAreDarkerOnPaper() {
        Picture picture = vu_->findChild<PlotImage*>("Image")->picture();
        const auto cyan = [&picture] {
            QSet<QRgb> light;
            const QImage image = ImageOf(
                [&](QPainter& painter, QSize size) { FramePainter().draw(painter, size, picture); },
                QSize(640, 480));
            for (int y = 0; y < image.height(); ++y)
                for (int x = 560; x < image.width(); ++x)
                    light.insert(image.pixel(x, y) & 0xffffff);
            return light.contains(0x80ffff);  // of the harmonics
        };
        QVERIFY(cyan());
        picture.paper = true;
        QVERIFY(!cyan());
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

    void aPageThatCannotBeWrittenGivesOneMessage() {
        for (const char* path : {"/proc/page.pdf", "/nowhere/at/all/page.pdf", "/dev/full"}) {
            host_->messages.clear();
            QPrinter printer;
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(path);
            vu_->print(printer);
            QCOMPARE(host_->messages.size(), 1);
            QVERIFY2(host_->messages[0].contains(path), qPrintable(host_->messages[0]));
        }
    }

    void aPrintedWindowConsistsOfTexts() {
        const QTemporaryDir folder;
        QLabel window("Frequency fo");
        window.resize(200, 100);
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath("page.pdf"));
        QVERIFY(PrintPage(printer, window.size(), DrawingOf(window)));
        const QByteArray pdf = ReadAll(printer.outputFileName());
        QVERIFY(pdf.contains("/Type /Font") && !pdf.contains("/Subtype /Image"));
    }
};

QTEST_MAIN(PlotFormFilesTest)
#include "plot_form_files_test.moc"
