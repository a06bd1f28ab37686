#include "plot/picture_files.h"

#include <sys/fsuid.h>
#include <unistd.h>

#include <QDir>
#include <QDirIterator>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>
#include <optional>

#include "plot/dashes.h"
#include "plot/raster_encoders.h"
#include "tests/temporary_folder.h"

using namespace kelvro;

namespace {

constexpr QSize kSize(750, 750);

/// One of each thing that plots are made of, at places that are easy to find again.
void DrawSample(QPainter& painter, QSize size) {
    painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
    painter.setPen(QPen(QColor(255, 0, 0), 3));
    painter.drawLine(QPointF(75, 150), QPointF(675, 150));
    painter.fillRect(QRectF(300, 300, 150, 150), QColor(0, 128, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 255));
    painter.drawPolygon(QPolygonF{{75, 675}, {225, 675}, {150, 525}});
    QFont font("MS Sans Serif");
    font.setPixelSize(24);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(300, 75), QStringLiteral("GT(f) in dB"));
}

QByteArray Content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// Output of a program that is not ours; fails the test when the program does.
QByteArray OutputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0) {
        QTest::qFail(process.readAllStandardError() + process.errorString().toUtf8(), __FILE__,
                     __LINE__);
    }
    return process.readAllStandardOutput();
}

/// Text with its numbers rounded, quotes simplified and white space reduced.
QString WithWholeNumbers(const QByteArray& text) {
    static const QRegularExpression number("\\d+\\.\\d+");
    const QString source = QString::fromLatin1(text).simplified().replace('"', '\'');
    QString rounded;
    qsizetype last = 0;
    for (const auto& match : number.globalMatch(source)) {
        rounded += source.mid(last, match.capturedStart() - last);
        rounded += QString::number(qRound(match.captured().toDouble()));
        last = match.capturedEnd();
    }
    return rounded + source.mid(last);
}

struct Word {
    const QByteArray& bytes;
    unsigned at(qsizetype word) const {
        const auto byte = [this](qsizetype i) { return static_cast<unsigned char>(bytes.at(i)); };
        return byte(2 * word) | static_cast<unsigned>(byte(2 * word + 1)) << 8;
    }
    unsigned pair(qsizetype word) const { return at(word) | at(word + 1) << 16; }
};

QByteArray Metafile(const Drawing& drawing) {
    return EncodePicture(PictureFormat::Metafile, kSize, drawing).value();
}

}  // namespace

class PictureFilesTest : public QObject {
    Q_OBJECT

  private slots:
    void formatsFollowTheEndingOfTheName() {
        QCOMPARE(PictureFormatOf("a.PNG"), PictureFormat::Png);
        QCOMPARE(PictureFormatOf("my.plot.jpeg"), PictureFormat::Jpeg);
        QCOMPARE(PictureFormatOf("folder.svg/plot.wmf"), PictureFormat::Metafile);
        QCOMPARE(PictureFormatOf("folder.svg/plot"), std::nullopt);
        QCOMPARE(PictureFormatOf("plot.tiff"), std::nullopt);
    }

    void placeableHeaderIsThatOfA750UnitBoxWithItsChecksum() {
        // CDD7 ^ 9AC6 = 5711; the two 02EE cancel each other; 5711 ^ 0064 = 5775.
        QCOMPARE(Metafile(DrawSample).first(22).toHex(),
                 "d7cdc69a"
                 "0000"
                 "00000000ee02ee02"
                 "6400"
                 "00000000"
                 "7557");
    }

    void metafileRecordsAddUpToWhatItsHeaderSays() {
        const QByteArray bytes = Metafile([](QPainter& painter, QSize size) {
            for (int i = 0; i < 50; ++i) DrawSample(painter, size);
        });
        const Word word{bytes};
        const qsizetype header = 11;
        QCOMPARE(word.at(header), 1U);
        QCOMPARE(word.at(header + 1), 9U);
        QCOMPARE(word.at(header + 2), 0x0300U);
        QCOMPARE(2 * word.pair(header + 3), static_cast<unsigned>(bytes.size() - 22));
        // A pen, a brush, a font, and one of these while it takes the place of another.
        QVERIFY(word.at(header + 5) <= 4);
        unsigned largest = 0;
        unsigned created = 0;
        unsigned deleted = 0;
        qsizetype at = header + 9;
        unsigned function = 1;
        while (function != 0) {
            QVERIFY(2 * at + 6 <= bytes.size());
            QVERIFY(word.pair(at) >= 3);
            function = word.at(at + 2);
            created += function == 0x02FA || function == 0x02FB || function == 0x02FC;
            deleted += function == 0x01F0;
            largest = std::max(largest, word.pair(at));
            at += word.pair(at);
        }
        QCOMPARE(2 * at, bytes.size());
        QCOMPARE(largest, word.pair(header + 6));
        QVERIFY(created > deleted && created - deleted <= word.at(header + 5));
    }

    void metafileReadsAsDrawnInAnotherProgram() {
        QTemporaryDir folder;
        const QString path = folder.filePath("sample.wmf");
        QCOMPARE(SavePicture(path, PictureFormat::Metafile, kSize, DrawSample).message(), "");
        const QByteArray svg = OutputOf("wmf2svg", {path});
        QXmlStreamReader xml(svg);
        while (!xml.atEnd()) xml.readNext();
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        // The program's page is 512 units wide: 75 of 750 is 51.2, 675 is 460.8.
        const QString seen = WithWholeNumbers(svg);
        for (const char* part :
             {"<polyline points='51,102 461,102 ' style='stroke-width:2; stroke-linecap:butt; "
              "stroke-linejoin:bevel; stroke-dasharray:none; stroke:red'",
              "<rect x='205' y='205' width='102' height='102' style='fill-opacity:1; "
              "fill-rule:evenodd; fill:green;",
              "<polygon points='51,461 154,461 102,358 ' style='fill-opacity:1; fill-rule:evenodd; "
              "fill:blue;"}) {
            QVERIFY2(seen.contains(part), qPrintable(part + seen));
        }
        QVERIFY2(svg.contains(">GT(f) in dB</text>"), svg.constData());
    }

    void dashedLinesStayDashedInAMetafileWhateverTheirWidth() {
        const auto polylines = [](Qt::PenStyle style) {
            const QByteArray bytes = Metafile([style](QPainter& painter, QSize) {
                painter.setPen(QPen(Qt::red, 2, style, Qt::FlatCap));
                painter.drawPolyline(QPolygonF{{0, 100}, {300, 100}, {300, 400}});
            });
            return bytes.count(QByteArray::fromHex("2503"));
        };
        QCOMPARE(polylines(Qt::SolidLine), 1);
        // 600 pixels in dashes of 4 and gaps of 2 pen widths of 2 pixels.
        QCOMPARE(polylines(Qt::DashLine), 50);
    }

    void dashesFollowTheLineRoundItsCorners() {
        const std::vector<WorldPoint> line{{0, 0}, {5, 0}, {5, 5}};
        const auto dashes = Dashes(line, std::vector{4.0, 0.5, 3.0, 0.5});
        QCOMPARE(dashes.size(), 3U);
        QCOMPARE(dashes[0].back().x, 4.0);
        QCOMPARE(dashes[1].size(), 3U);  // from (4.5, 0) round (5, 0) to (5, 2.5)
        QCOMPARE(dashes[1].front().x, 4.5);
        QCOMPARE(dashes[1].back().y, 2.5);
        QCOMPARE(dashes[2].front().y, 3.0);
        QCOMPARE(dashes[2].back().y, 5.0);
        QCOMPARE(Dashes(line, std::vector{0.0, 0.0}).size(), 1U);
    }

    void picturesOpenInAnImageLibrary() {
        struct Row {
            const char* name;
            QByteArray format;
            int scale;
        };
        for (const auto& [name, format, scale] :
             {Row{"sample.bmp", "BMP", 1}, Row{"sample.png", "PNG", 1}, Row{"sample.png", "PNG", 2},
              Row{"sample.jpg", "JPEG", 1}, Row{"sample.gif", "GIF", 1}}) {
            QTemporaryDir folder;
            const QString path = folder.filePath(name);
            const auto saved =
                SavePicture(path, *PictureFormatOf(path), QSize(752, 751), DrawSample, scale);
            QCOMPARE(saved.message(), "");
            const QByteArray seen = OutputOf(
                "/usr/bin/python3",
                {"-c",
                 "import sys; from PIL import Image; im = Image.open(sys.argv[1]); "
                 "s = int(sys.argv[2]); rgb = im.convert('RGB');"
                 "near = lambda x, y: [round(c / 8) * 8 for c in rgb.getpixel((s * x, s * y))];"
                 "print(im.format, *(n / s for n in im.size), near(10, 10), near(375, 375), "
                 "near(150, 640), near(375, 150))",
                 path, QString::number(scale)});
            QCOMPARE(seen.trimmed(),
                     format + " 752.0 751.0 [256, 256, 256] [0, 128, 0] [0, 0, 256] [256, 0, 0]");
        }
    }

    void svgKeepsTextAndSizeInMillimetres() {
        const QByteArray svg = EncodePicture(PictureFormat::Svg, {960, 480}, DrawSample).value();
        QXmlStreamReader xml(svg);
        QVERIFY(xml.readNextStartElement());
        QCOMPARE(xml.attributes().value("width"), QStringLiteral("254mm"));
        QCOMPARE(xml.attributes().value("viewBox"), QStringLiteral("0 0 960 480"));
        bool text = false;
        while (!xml.atEnd()) {
            text |= xml.readNext() == QXmlStreamReader::Characters &&
                    xml.text().trimmed() == QLatin1String("GT(f) in dB");
        }
        QVERIFY(text && !xml.hasError());
    }

    void pdfPageHasTheSizeOfThePicture() {
        const QByteArray pdf = EncodePicture(PictureFormat::Pdf, {960, 480}, DrawSample).value();
        QVERIFY(pdf.startsWith("%PDF-1.") && pdf.trimmed().endsWith("%%EOF"));
        QVERIFY(WithWholeNumbers(pdf).contains("/MediaBox [0 0 720 360]"));
    }

    void aGifKeepsUpTo256ColoursExactly() {
        for (const int colours : {1, 2, 3, 255, 256}) {
            QImage image(300, 7, QImage::Format_RGB32);
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    image.setPixel(x, y, qRgb(1, x % colours, 255 - x % colours));
            const QImage read = QImage::fromData(EncodeGif(image).value());
            QVERIFY2(read.convertToFormat(image.format()) == image, QByteArray::number(colours));
        }
    }

    void aGifOfMoreColoursLeavesTheFrequentOnesUntouched() {
        QImage image(700, 500, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter(&image).fillRect(0, 0, 100, 500, QColor(0, 128, 0));
        for (int i = 0; i < 65536; ++i) {
            image.setPixel(200 + (i & 255), 100 + (i >> 8), qRgb(i >> 8, i & 255, i & 255));
        }
        const QImage read = QImage::fromData(EncodeGif(image).value());
        QCOMPARE(read.size(), image.size());
        int worst = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb is = read.pixel(x, y);
                const QRgb was = image.pixel(x, y);
                worst = std::max({worst, std::abs(qRed(is) - qRed(was)),
                                  std::abs(qGreen(is) - qGreen(was)),
                                  std::abs(qBlue(is) - qBlue(was))});
            }
        }
        QCOMPARE(read.pixelColor(650, 250), QColor(Qt::white));
        QCOMPARE(read.pixelColor(50, 250), QColor(0, 128, 0));
        // 254 colours for a square of 256 x 256 shades: boxes of 16 x 16 on average. The division
        // counts pixels and cuts where it can, so that some are several times as long.
        QVERIFY2(worst <= 48, qPrintable(QString::number(worst)));
    }

    void aFailedWriteSaysWhyAndLeavesEverythingAsItWas() {
        struct Row {
            const char* target;
            const char* reason;
        };
        for (const QString suffix : {"png", "wmf", "svg"}) {
            QTemporaryDir folder;
            const QDir dir(folder.path());
            dir.mkdir("folder." + suffix);
            dir.mkdir("locked");
            QFile::link("/dev/full", dir.filePath("full." + suffix));
            for (const QString name : {"old.", "locked/plot."}) {
                QFile file(dir.filePath(name + suffix));
                QVERIFY(file.open(QIODevice::WriteOnly) && file.write("the old picture") > 0);
            }
            const auto everything = [&dir] {
                QStringList names;
                QDirIterator all(dir.path(), QDir::AllEntries | QDir::NoDotAndDotDot,
                                 QDirIterator::Subdirectories);
                while (all.hasNext()) names.append(all.next());
                names.sort();
                return names;
            };
            const QStringList before = everything();
            // The superuser may write anywhere; the files are opened as somebody else.
            QFile::setPermissions(dir.filePath("locked"), QFile::ReadOwner | QFile::ExeOwner |
                                                              QFile::ReadOther | QFile::ExeOther);
            for (const auto& [target, reason] :
                 {Row{"folder.", "Is a directory"},
                  Row{"missing/plot.", "No such file or directory"},
                  Row{"full.", "No space left on device"}, Row{"old.", "File too large"},
                  Row{"locked/plot.", "Permission denied"}}) {
                const QString path = dir.filePath(target + suffix);
                std::optional<FullDisk> full;
                if (QLatin1String(target) == "old.") full.emplace();
                if (QString(target).startsWith("locked") && geteuid() == 0) {
                    QFile::setPermissions(dir.path(), QFile::Permissions(0x7777));
                    setfsuid(65534);
                }
                const auto saved = SavePicture(path, *PictureFormatOf(path), kSize, DrawSample);
                setfsuid(geteuid());
                full.reset();
                QVERIFY(!saved);
                QCOMPARE(
                    QString::fromStdString(saved.message()),
                    QStringLiteral("Cannot write \"%1\": %2.").arg(path, QLatin1String(reason)));
                QCOMPARE(everything(), before);
                QVERIFY(!QFileInfo(path).isFile() || Content(path) == "the old picture" ||
                        QFileInfo(path).isSymLink());
            }
        }
    }

    void aMetafileReplacesTheOldOneAndSparesANeighbourWithTheTemporaryName() {
        QTemporaryDir folder;
        for (const QString name : {"plot.wmf", "plot.TMP"}) {
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") > 0);
        }
        const QString path = folder.filePath("plot.wmf");
        QCOMPARE(SavePicture(path, PictureFormat::Metafile, kSize, DrawSample).message(), "");
        QVERIFY(Content(path).startsWith(QByteArray::fromHex("d7cdc69a")));
        QCOMPARE(Content(folder.filePath("plot.TMP")), "old");
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 2);
    }

    void emptyNegativeAndHugeSizesAreRefused() {
        for (const QSize size : {QSize(0, 100), QSize(100, -1), QSize(1 << 20, 1 << 20)}) {
            for (const QString& suffix : PictureSuffixes()) {
                const auto format = *PictureFormatOf("x." + suffix);
                const auto encoded = EncodePicture(format, size, DrawSample);
                QVERIFY(!encoded.ok() && !encoded.message().empty());
            }
        }
    }
};

QTEST_MAIN(PictureFilesTest)
#include "picture_files_test.moc"
