#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "design/design.h"
#include "plot/picture.h"

// The response of a design as a picture; the windows and the command line draw the same.

namespace kelvro {

enum class Quantity { VoltageGain, PowerGain, Phase };

/// The states through which a window's button steps.
enum class CurveLook { Line, LineWithDots, Alternative };
CurveLook NextLook(CurveLook look);

/// Hz and dB, or degrees for the phase.
View DefaultView(Quantity quantity, double fo);

/// The quantity at one frequency.
double ValueAt(const Design& state, Quantity quantity, double f);

/// A curve as sampled over a view: frequencies in Hz, values in dB or degrees.
struct Samples {
    std::vector<double> x;
    std::vector<double> y;
    std::size_t first = 0;  ///< index of the first valid sample: a response has no value at f = 0
    double turn = 0;        ///< 360 for the phase, see Curve

    std::span<const double> validX() const { return std::span(x).subspan(first); }
    std::span<const double> validY() const { return std::span(y).subspan(first); }
};
/// Samples 0 to the view's sample count.
Samples Sampled(const Design& state, const View& view, Quantity quantity);

/// The y axis scaled to the samples; zeros of the response (hundreds of decades down) do not count.
Axis AutoscaledToSamples(const Axis& y, const Samples& samples);

/// Highest valid sample; -infinity without any.
double PeakOf(const Samples& samples);

/// The whole picture: curve, harmonics of fo, and for the gains the -1 dB and -3 dB levels.
Picture ResponsePicture(const Design& state, const View& view, Quantity quantity, CurveLook look);
Picture ResponsePicture(const Design& state, const View& view, Quantity quantity, CurveLook look,
                        const Samples& samples);

/// The thin grey curve of a Monte Carlo run.
Curve ScatterCurve(const Samples& samples);

/// The status line for a place in the plot; `v` is V2/V1 at fo.
std::string ReadOut(const Design& design, double v, Quantity quantity, WorldPoint place);

}  // namespace kelvro
