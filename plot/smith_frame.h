#pragma once

#include <complex>
#include <optional>
#include <string>
#include <vector>

// The arithmetic of a Smith chart: its circles in the plane of the reflection coefficient
// Γ = u + jv, and the way between that plane and pixels. No drawing. P. H. Smith, "Transmission
// line calculator", Electronics, Jan. 1939.

namespace kelvro {

/// Reflection of an impedance seen from a source, and back. With a complex source it is the power
/// wave (Z - ZS*)/(Z + ZS): the chart of z' = (Z + jXS)/RS, exact, with the conjugate match at its
/// centre.
std::complex<double> ChartGamma(std::complex<double> Z, std::complex<double> source);
std::complex<double> ChartImpedance(std::complex<double> gamma, std::complex<double> source);

struct ChartCircle {
    double u = 0;  ///< of the centre
    double v = 0;
    double radius = 0;
};

/// The circle through three points; nothing where they are in line.
std::optional<ChartCircle> CircleThrough(std::complex<double> a, std::complex<double> b,
                                         std::complex<double> c);

/// Constant r, normalized; r >= 0. x must not be 0: that line is straight. Likewise g and b of the
/// admittance chart, and VSWR s >= 1.
ChartCircle ResistanceCircle(double r);
ChartCircle ReactanceCircle(double x);
ChartCircle ConductanceCircle(double g);
ChartCircle SusceptanceCircle(double b);
ChartCircle VswrCircle(double s);
/// Constant Q: impedances with X = q·R, q of either sign, on the chart of any source; nothing where
/// they are a straight line.
std::optional<ChartCircle> QualityCircle(double q, std::complex<double> source);

/// Which part of the plane a window shows.
struct ChartView {
    double u = 0;  ///< in the middle of the window
    double v = 0;
    double zoom = 1;  ///< 1: the unit circle fills the window

    bool operator==(const ChartView&) const = default;
};

inline constexpr double kLargestChartZoom = 2000;

/// A view at its place in an image; y grows downwards.
struct ChartFrame {
    double width = 1;
    double height = 1;
    ChartView view;

    /// Pixels per unit of Γ.
    double scale() const;
    struct Pixel {
        double x;
        double y;
    };
    Pixel place(std::complex<double> gamma) const;
    std::complex<double> gamma(double x, double y) const;
};

/// The view zoomed by a factor with the point under the pixel keeping its place.
ChartView ZoomedAt(const ChartFrame& frame, double x, double y, double factor);
/// The view moved by so many pixels; the chart stays in reach.
ChartView Panned(const ChartFrame& frame, double dx, double dy);

/// A line of the grid as points of the plane, with the label that it carries ("0.5", "-2").
struct GridLine {
    std::vector<std::complex<double>> points;
    double value = 0;
    bool reactance = false;  ///< of constant x (b), else of constant r (g)
    bool major = false;
    std::complex<double> labelAt;
    std::string label;  ///< empty where neighbours leave no room
};

/// Grid of the impedance chart, as dense as `frame` has room for: circles of constant r and arcs of
/// constant x, finer ones cut where they would crowd.
std::vector<GridLine> ImpedanceGrid(const ChartFrame& frame);
/// The same of the admittance chart: turned by half a turn.
std::vector<GridLine> AdmittanceGrid(const ChartFrame& frame);

/// Points of a circle that lie inside the unit circle (of constant-Q arcs and the like).
std::vector<std::vector<std::complex<double>>> InsideChart(const ChartCircle& circle);

/// What a place on the chart means.
struct ChartReading {
    std::complex<double> gamma;
    std::complex<double> Z;  ///< ohm
    std::complex<double> Y;  ///< siemens
    double VSWR;             ///< infinite at and beyond the rim
    double Q;                ///< |X|/R of Z
};
ChartReading ReadingAt(std::complex<double> gamma, std::complex<double> source);
/// "Z 12.5 + j34 Ω, Y 9.5 - j25.8 mS, Γ 0.71 ∠ 95.2° (-0.06 + j0.70), VSWR 5.86, Q 2.7".
std::string ReadingText(const ChartReading& reading);

}  // namespace kelvro
