#include "plot/shown_numbers.h"

#include <QStringList>
#include <QTest>

#include "core/number_text.h"
#include "design/part_ref.h"
#include "plot/caption.h"
#include "tests/calculated.h"

using namespace kelvro;

namespace {

CycleResult PiSection() {
    return CycleOf({.page = 3, .fo = 10e6, .Q = 8});
}

QStringList Lines(const std::string& text) {
    return QString::fromStdString(text).split('\n', Qt::SkipEmptyParts);
}

}  // namespace

/// What leaves a plot beside its picture: numbers for other programs, and the caption.
class ShownNumbersTest : public QObject {
    Q_OBJECT

  private slots:
    void everyNumberIsThatOfTheCurveToTheLastDigit() {
        const Design design = PiSection().design;
        const Trace& gt = TraceOf("gt");
        const Trace& phi = TraceOf("phi");
        const ResponsePlot plot{{&gt, &phi}, DefaultView({&gt, &phi}, TraceSource(design))};
        const auto samples = SampledTraces(design, plot);
        const QStringList lines = Lines(ShownNumbers(design, plot, samples));
        QCOMPARE(lines.front(), QString("f_Hz,GT_dB,phase_deg"));
        // All points of both curves, each once and in order.
        const auto x = samples[0].validX();
        QVERIFY(lines.size() - 1 >= qsizetype(x.size()));
        double last = 0;
        bool hasDesignFrequency = false;
        for (const QString& line : lines.mid(1)) {
            const QStringList cells = line.split(',');
            QCOMPARE(cells.size(), 3);
            const double f = cells[0].toDouble();
            QVERIFY(f > last);
            last = f;
            hasDesignFrequency |= f == 10e6;
            QCOMPARE(cells[1].toDouble(), ValueAt(design, gt, f));
            QCOMPARE(cells[2].toDouble(), ValueAt(design, phi, f));
        }
        QVERIFY(hasDesignFrequency);
        QVERIFY(std::fabs(last / plot.view.x.max - 1) < 1e-9);
    }

    void heldCurvesAndRunsHaveColumnsOfTheirOwn() {
        const Design design = PiSection().design;
        const Trace& gt = TraceOf("gt");
        ResponsePlot plot{{&gt}, DefaultView({&gt}, TraceSource(design))};
        Design other = design;
        other.components[Slot::L] *= 1.5;
        plot.held.push_back({"L \"x 1.5\", tried", other});
        Scatter scatter;
        scatter.add(3, 7, {});
        const auto runs = scatter.designs(design);
        const auto samples = SampledTraces(design, plot);
        const QStringList lines =
            Lines(ShownNumbers(design, plot, samples, {runs, true, true}, '\t'));
        QCOMPARE(lines.front(),
                 QString("f_Hz\tGT_dB\t\"L \"\"x 1.5\"\", tried GT_dB\"\trun 1 GT_dB\trun 2 GT_dB\t"
                         "run 3 GT_dB\truns min GT_dB\truns 5 % GT_dB\truns median GT_dB\t"
                         "runs 95 % GT_dB\truns max GT_dB"));
        for (const QString& line : lines.mid(1)) {
            const QStringList cells = line.split('\t');
            QCOMPARE(cells.size(), 11);
            const double f = cells[0].toDouble();
            QCOMPARE(cells[2].toDouble(), ValueAt(other, gt, f));
            QList<double> run{cells[3].toDouble(), cells[4].toDouble(), cells[5].toDouble()};
            QCOMPARE(run[1], ValueAt(runs[1], gt, f));
            std::ranges::sort(run);
            QCOMPARE(cells[6].toDouble(), run[0]);
            QCOMPARE(cells[8].toDouble(), run[1]);
            QCOMPARE(cells[10].toDouble(), run[2]);
        }
    }

    void theCaptionSaysWhatIsShown() {
        DesignRun run;
        run.cycle = PiSection();
        run.state = run.cycle.design;
        const auto caption = CaptionOf(run, "2026-11-22");
        QCOMPARE(caption.size(), std::size_t{3});
        const QString inputs = QString::fromStdString(caption[0]);
        QVERIFY2(inputs.startsWith("3 Pi Section: R1 50.00 Ω, R2 200.00 Ω, fo 10.00 MHz, Q 8"),
                 qPrintable(inputs));
        // Rounded in its field but not taken, a part is not what the curve shows.
        const std::string before = caption[1];
        PartsOf(run.state).front().round(run.state, Series::E6);
        QCOMPARE(CaptionOf(run, "2026-11-22")[1], before);
        run.state.components[Slot::L] = 4.7e-6;
        const QString parts = QString::fromStdString(CaptionOf(run, "2026-11-22")[1]);
        QVERIFY2(parts.contains("L 4.70 µH") || parts.contains("L 4.70 uH"), qPrintable(parts));
        QCOMPARE(caption[2], std::string("Kelvro, 2026-11-22"));
    }

    void aRefusedDesignHasNoParts() {
        DesignRun run;
        run.cycle = PiSection();
        run.state = run.cycle.design;
        run.cycle.message = "refused";
        QCOMPARE(CaptionOf(run, "2026-11-22").size(), std::size_t{2});
    }
};

QTEST_APPLESS_MAIN(ShownNumbersTest)
#include "shown_numbers_test.moc"
