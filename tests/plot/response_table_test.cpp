#include "plot/response_table.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "design/pages.h"
#include "io/qt_files.h"
#include "tests/calculated.h"

using namespace kelvro;

namespace {

/// A lossless quarter-wave line from 50 to 200 ohm at 256 Hz: its response at fo is known by hand.
Design QuarterWave() {
    Design state{.fo = 256, .QB = 1e12, .QBC = 1e12};
    EnterPage(state, 6);
    return Calculated(state);
}

QByteArrayList Lines(double xmin, double xmax, bool logarithmic) {
    return QByteArray::fromStdString(ResponseTable(QuarterWave(), xmin, xmax, logarithmic))
        .split('\n');
}

}  // namespace

class ResponseTableTest : public QObject {
    Q_OBJECT

  private slots:
    void everyLineEndsInCarriageReturnAndLineFeed() {
        const QByteArrayList lines = Lines(0, 512, false);
        QCOMPARE(lines.size(), 515);  // 514, and nothing behind the last line feed
        QVERIFY(lines.last().isEmpty());
        for (const QByteArray& line : lines.first(514)) QVERIFY(line.endsWith('\r'));
        QCOMPARE(lines[0], "Calculated by Kelvro : f/Hz GT/dB V/dB Phi(Vu)/\xC2\xB0\r");
    }

    void aLinearTableStartsAndEndsOneStepLate() {
        const QByteArrayList lines = Lines(0, 512, false);
        QVERIFY(lines[1].startsWith("  1.0000 "));
        QVERIFY(lines[513].startsWith("513.0000 "));
    }

    void aLogarithmicTableHasBothEnds() {
        const QByteArrayList lines = Lines(10, 10240, true);
        QVERIFY2(lines[1].startsWith(" 10.0000 "), lines[1]);
        QVERIFY2(lines[513].startsWith(" 10.240k "), lines[513]);
        QVERIFY2(lines[257].startsWith("320.0000 "), lines[257]);  // half of ten octaves
    }

    void aLineHoldsGainVoltageAndPhase() {
        // At fo: v = sqrt(200/50) = 2, 6.0206 dB, a quarter turn late; GT = 0 dB.
        const QByteArrayList lines = Lines(0, 512, false);
        QVERIFY2(lines[256] == "256.0000   0.000   6.021 -90.0000\r" ||
                     lines[256] == "256.0000  -0.000   6.021 -90.0000\r",
                 lines[256]);
    }

    void aTableReaderFindsFourColumnsOfNumbers() {
        QTemporaryDir folder;
        const QString path = folder.filePath("line.tab");
        QCOMPARE(WriteAtomically(
                     path, QByteArray::fromStdString(ResponseTable(QuarterWave(), 1, 1e6, true)))
                     .message(),
                 "");
        QProcess python;
        python.start("/usr/bin/python3",
                     {"-c",
                      "import csv, sys\n"
                      "with open(sys.argv[1], newline='', encoding='utf-8') as file:\n"
                      "    header, *rows = csv.reader(file, delimiter=' ', skipinitialspace=True)\n"
                      "print(ascii(header[-1]), len(rows), {len(row) for row in rows},\n"
                      "      sum(float(row[3]) <= 180 for row in rows))",
                      path});
        QVERIFY(python.waitForFinished(60000));
        QCOMPARE(QString::fromUtf8(python.readAllStandardOutput()).trimmed(),
                 QStringLiteral("'Phi(Vu)/\\xb0' 513 {4} 513"));
    }
};

QTEST_MAIN(ResponseTableTest)
#include "response_table_test.moc"
