#pragma once

#include <complex>
#include <string>
#include <vector>

#include "plot/picture.h"
#include "plot/smith_frame.h"
#include "plot/smith_path.h"

// Everything a Smith chart shows, as data; SmithPainter draws it.

namespace kelvro {

struct ChartGrids {
    bool impedance = true;
    bool admittance = false;
    bool operator==(const ChartGrids&) const = default;
};

/// A trace over frequency.
struct ChartTrace {
    std::vector<std::complex<double>> gamma;  ///< points that are not finite leave a gap
    Rgb colour{192, 0, 0};
    double width = 1.8;
    bool dashed = false;
};

/// A named point: a marker of the sweep, the start or the end of a path.
struct ChartPoint {
    std::complex<double> gamma;
    std::string label;
    Rgb colour{0, 0, 0};
    bool hollow = false;
};

/// A circle to read against: VSWR, constant Q, stability, gain.
struct ChartContour {
    ChartCircle circle;
    std::string label;
    Rgb colour{128, 128, 128};
    bool clipped = true;  ///< only what lies inside the chart
};

struct SmithPicture {
    ChartView view;
    ChartGrids grids;
    std::string title;
    std::string reference;  ///< what the centre stands for: "centre 50 Ω"
    std::vector<ChartContour> contours;
    std::vector<PathStep> ghost;  ///< path of an earlier design
    std::vector<ChartTrace> traces;
    std::vector<PathStep> path;  ///< in colours, nodes marked
    int selectedStep = -1;       ///< its node is drawn larger
    std::vector<ChartPoint> points;
    bool dark = false;
};

/// The colour of a ladder's element, the same in path, list and picture.
Rgb ElementColour(std::size_t element, bool dark = false);

}  // namespace kelvro
