// The Smith chart without a window: circles, the way between plane and pixels, the path of a
// network, and what dragging one of its nodes means.

#include <QImage>
#include <QPainter>
#include <QtTest>
#include <cmath>

#include "network/ladder_response.h"
#include "plot/device_contours.h"
#include "plot/smith_frame.h"
#include "plot/smith_painter.h"
#include "plot/smith_path.h"
#include "tests/network/drawn_networks.h"

using namespace kelvro;

namespace {

void CompareComplex(Cx actual, Cx expected, double tolerance = 1e-9) {
    const bool close = std::abs(actual - expected) <= tolerance;
    QVERIFY2(close, qPrintable(QStringLiteral("%1 + j%2 instead of %3 + j%4")
                                   .arg(actual.real(), 0, 'g', 12)
                                   .arg(actual.imag(), 0, 'g', 12)
                                   .arg(expected.real(), 0, 'g', 12)
                                   .arg(expected.imag(), 0, 'g', 12)));
}

/// Matched designs whose values another calculation gave, lossless.
struct Matched {
    Network network;
    double f;
};

/// 100 ohm to 200 - j100 at 500 MHz by series L and shunt C: YL = 4 mS + j2 mS.
Matched LowPassMatch() {
    return {Between(100.0, LadderOf("series: L1=38.985n; shunt: C1=0.92277p"), Cx(200, -100)),
            500e6};
}

/// 10 - j20 to 3 + j4 at 100 MHz: a source with reactance.
Matched ComplexSource() {
    return {Between(Cx(10, -20), LadderOf("shunt: C=62.329p; series: L=12.532n"), Cx(3, 4)), 100e6};
}

double Distance(const ChartCircle& circle, Cx gamma) {
    return std::fabs(std::abs(gamma - Cx(circle.u, circle.v)) - circle.radius);
}

}  // namespace

class SmithTest : public QObject {
    Q_OBJECT

  private slots:
    void pointsOfALineLieOnItsCircle() {
        // Inductive, capacitive, almost a short.
        for (const Cx z : {Cx(0.5, 2), Cx(3, -0.2), Cx(1e-3, 1e-3)}) {
            const Cx y = 1.0 / z;
            const Cx gamma = ChartGamma(50.0 * z, 50);
            QVERIFY(Distance(ResistanceCircle(z.real()), gamma) < 1e-12);
            QVERIFY(Distance(ReactanceCircle(z.imag()), gamma) < 1e-9);
            QVERIFY(Distance(ConductanceCircle(y.real()), gamma) < 1e-12);
            QVERIFY(Distance(SusceptanceCircle(y.imag()), gamma) < 1e-12);
            const double s = (1 + std::abs(gamma)) / (1 - std::abs(gamma));
            QVERIFY(Distance(VswrCircle(s), gamma) < 1e-12);
            const double Q = z.imag() / z.real();
            const auto q = QualityCircle(Q, 50);
            QVERIFY(q && Distance(*q, gamma) < 1e-9);
            // Of a complex source too: Q is that of the impedance, not of the normalized one.
            const Cx source(20, -35);
            const auto exact = QualityCircle(Q, source);
            QVERIFY(exact && Distance(*exact, ChartGamma(z, source)) < 1e-9);
        }
    }

    /// Against the network itself: what enters it and reaches a load that lies on the circle.
    void deviceCirclesHoldTheLoadsOfTheirGain() {
        // D. M. Pozar's example of a transistor at 4 GHz, whose largest gain is 16.710 dB.
        PortData fet{"fet.s2p", 2, {3.9e9, 4.1e9}, {}, {50, 50}, {}};
        const auto polar = [](double magnitude, double degrees) {
            return std::polar(magnitude, degrees * 3.14159265358979 / 180);
        };
        fet.s.assign(2, {polar(0.72, -116), polar(0.03, 57), polar(2.6, 76), polar(0.73, -54)});
        Network network;
        network.source = Cx(30, 20);
        network.ladder = {{MeasuredTwoPort{std::make_shared<const PortData>(fet)}, {}}};
        const auto contours = DeviceContours(network, 4e9, DeviceSide::Load);
        QCOMPARE(contours.size(), std::size_t(4));
        QCOMPARE(contours[0].label, std::string("fet.s2p loads stable outside"));
        for (std::size_t i = 0; i < contours.size(); ++i) {
            const ChartCircle& circle = contours[i].circle;
            for (const double angle : {0.3, 2.0, 4.4}) {
                const Cx gamma = Cx(circle.u, circle.v) + std::polar(circle.radius, angle);
                network.load = ChartImpedance(gamma, Cx(30, 20));
                const NetworkPoint at = LadderResponse(network).at(4e9);
                // On the edge of stability the input takes no power; else the gain is the label's.
                if (i == 0) {
                    QVERIFY2(std::fabs(at.Zin.real() / std::abs(at.Zin)) < 1e-9, "edge");
                } else {
                    const double gain = at.GT / (1 - std::norm(at.gammaIn));
                    QVERIFY(std::fabs(10 * std::log10(gain) - (16.710 - double(i))) < 1e-3);
                }
            }
        }
        QCOMPARE(contours[1].label, std::string("Gp 15.7 dB"));
        QVERIFY(DeviceContours(network, 5e9, DeviceSide::Load).empty());
    }

    void theCentreIsTheConjugateMatchOfAnySource() {
        const Cx source(30, 45);
        CompareComplex(ChartGamma(std::conj(source), source), 0);
        // Where both conventions differ for a complex source: 5 + j50 straight to 50 ohm.
        CompareComplex(ChartGamma(50, Cx(5, 50)), {0.900452, 0.090498}, 1e-6);
        CompareComplex(ChartImpedance(ChartGamma(Cx(12, -7), source), source), {12, -7});
    }

    void zoomingKeepsThePlaceUnderTheCursor() {
        ChartFrame frame{600, 400, {}};
        const Cx before = frame.gamma(420, 130);
        for (int i = 0; i < 9; ++i) frame.view = ZoomedAt(frame, 420, 130, 1.6);
        CompareComplex(frame.gamma(420, 130), before);
        const auto [x, y] = frame.place(before);
        QVERIFY(std::fabs(x - 420) < 1e-6 && std::fabs(y - 130) < 1e-6);
        // Out again: the whole chart in the middle, however far one was.
        for (int i = 0; i < 40; ++i) frame.view = ZoomedAt(frame, 0, 0, 0.5);
        QCOMPARE(frame.view, ChartView());
    }

    void theGridIsReadableAtEveryZoom() {
        // Whole; close at the centre, at the short, and as close as it goes at the open end.
        for (const auto& [zoom, u] :
             {std::pair{1.0, 0.0}, {40.0, 0.0}, {300.0, -0.98}, {kLargestChartZoom, 0.99}}) {
            const auto lines = ImpedanceGrid({640, 640, {u, 0.001, zoom}});
            int labels = 0;
            for (const GridLine& line : lines) {
                labels += line.label.empty() ? 0 : 1;
                for (const Cx& point : line.points) QVERIFY(std::abs(point) < 1 + 1e-9);
                const Cx middle = line.points[line.points.size() / 2];
                const Cx z = (1.0 + middle) / (1.0 - middle);
                const double own = line.reactance ? z.imag() : z.real();
                QVERIFY(std::fabs(own - line.value) <= 1e-6 * (1 + std::fabs(line.value)));
            }
            QVERIFY2(labels >= 2 && labels <= 200, qPrintable(QString::number(labels)));
            QVERIFY2(lines.size() < 600, qPrintable(QString::number(lines.size())));
        }
    }

    void theAdmittanceGridIsTheOtherTurnedRound() {
        const ChartFrame frame{500, 500, {0.2, 0.1, 3}};
        for (const GridLine& line : AdmittanceGrid(frame)) {
            const Cx middle = line.points[line.points.size() / 2];
            const Cx y = (1.0 - middle) / (1.0 + middle);
            QVERIFY(std::fabs((line.reactance ? y.imag() : y.real()) - line.value) <=
                    1e-6 * (1 + std::fabs(line.value)));
        }
    }

    void aMatchEndsInTheCentreOnItsCircles() {
        const auto [network, f] = LowPassMatch();
        const auto path = SmithPath(network, f);
        QCOMPARE(path.size(), std::size_t(2));
        QCOMPARE(path[0].name, std::string("C1"));  // from the load
        QCOMPARE(path[1].name, std::string("L1"));
        CompareComplex(path[1].gamma.back(), 0, 1e-5);
        // Across: g = 4 mS·100 ohm; in series: r = 1.
        for (const Cx& point : path[0].gamma)
            QVERIFY(Distance(ConductanceCircle(0.4), point) < 1e-9);
        for (const Cx& point : path[1].gamma) QVERIFY(Distance(ResistanceCircle(1), point) < 1e-5);
        // A capacitor across turns clockwise.
        const Cx start = path[0].gamma[0] - Cx(-0.4 / 1.4, 0);
        const Cx next = path[0].gamma[1] - Cx(-0.4 / 1.4, 0);
        QVERIFY(std::arg(next / start) < 0);
    }

    void thePathEndsWhereTheResponseSays() {
        Network network;
        network.source = Cx(40, 15);
        network.load = Cx(120, -60);
        const double f = 433e6;
        for (const char* ladder :
             {"series: L=22n(Q=30,ESR=0.2,SRF=2G); shunt: C=2p",
              "series: L=8n | C=3p; shunt: L=5n + C=9p; shunt: L=8n | C=3p; series: L=5n + C=9p",
              "line: Z=75, deg=50@433M; series: R=3",
              "open: Z=60, deg=35@433M; short: Z=60, deg=35@433M",
              "transformer: n=1.4; series: C=4p",
              "coupled: L1=30n, L2=22n(Q=30,ESR=0.2,SRF=2G), k=0.6; shunt: R=300"}) {
            network.ladder = LadderOf(ladder);
            const auto path = SmithPath(network, f);
            CompareComplex(path.back().gamma.back(), LadderResponse(network).at(f).gammaIn, 1e-9);
            for (std::size_t i = 1; i < path.size(); ++i)
                CompareComplex(path[i].gamma.front(), path[i - 1].gamma.back());
        }
    }

    void draggingANodePutsItThere() {
        const double f = 900e6;
        for (const char* element :
             {"series: L=12n", "series: C=3.3p", "shunt: L=6.8n",
              "shunt: C=4.7p(Q=60,ESR=0.1,SRF=6G)", "line: Z=70, deg=61@900M",
              "open: Z=50, deg=20@900M", "short: Z=50, deg=130@900M", "shunt: R=220"}) {
            Network wanted;
            wanted.source = Cx(50, -5);
            wanted.load = Cx(23, 31);
            wanted.ladder = LadderOf(std::string(element) + "; series: L=2n");
            auto path = SmithPath(wanted, f);
            const Cx target = path[1].gamma.back();
            const Tunable at = *path[1].tunable;
            const double value = ValueOf(wanted.ladder, at);
            Network tuned = wanted;
            SetValue(tuned.ladder, at, 1.7 * value);
            path = SmithPath(tuned, f);
            const double dragged = DraggedValue(tuned, path[1], target, f);
            QVERIFY2(std::fabs(dragged / value - 1) < 1e-6, element);
        }
    }

    void aDragBeyondWhatThePartCanStopsAtItsRange() {
        // The cursor asks a series inductor for a negative reactance.
        const auto [network, f] = LowPassMatch();
        const auto path = SmithPath(network, f);
        const double L = DraggedValue(network, path[1], ChartGamma(Cx(100, -300), 100), f);
        QVERIFY(L > 0 && L < 1e-14);
    }

    void nodesAreFoundWithinReachOnly() {
        const auto [network, f] = ComplexSource();
        const auto path = SmithPath(network, f);
        CompareComplex(path.back().gamma.back(), 0, 1e-4);
        QCOMPARE(NodeNear(path, {0.01, 0}, 0.05), std::optional<std::size_t>(1));
        QCOMPARE(NodeNear(path, {0.9, 0.9}, 0.05), std::optional<std::size_t>());
    }

    void thePictureShowsPathAndGrid() {
        const auto [network, f] = LowPassMatch();
        for (const bool dark : {false, true}) {
            SmithPicture picture;
            picture.path = SmithPath(network, f);
            picture.grids.admittance = true;
            picture.dark = dark;
            QImage image(480, 480, QImage::Format_RGB32);
            QPainter painter(&image);
            const ChartFrame frame = DrawSmithChart(painter, image.size(), picture);
            painter.end();
            const Rgb wanted = ElementColour(picture.path[1].element, dark);
            const auto [x, y] = frame.place(picture.path[1].gamma[24]);
            const QColor seen = image.pixelColor(qRound(x), qRound(y));
            const int off = std::abs(seen.red() - wanted.red) +
                            std::abs(seen.green() - wanted.green) +
                            std::abs(seen.blue() - wanted.blue);
            QVERIFY2(off < 120, qPrintable(seen.name()));
            const bool darkCorner = image.pixelColor(2, 240).lightness() < 128;
            QCOMPARE(darkCorner, dark);
        }
    }

    void readingsSayWhatAPlaceMeans() {
        const ChartReading reading = ReadingAt({0.2, 0.4}, 50);
        // (1 + Γ)/(1 - Γ) = (1.2 + j0.4)/(0.8 - j0.4) = 1 + j1.
        CompareComplex(reading.Z, {50, 50});
        CompareComplex(reading.Y, {0.01, -0.01});
        QVERIFY(std::fabs(reading.Q - 1) < 1e-12);
        QVERIFY(std::isinf(ReadingAt({0.6, 0.8}, 50).VSWR));
    }
};

QTEST_MAIN(SmithTest)
#include "smith_test.moc"
