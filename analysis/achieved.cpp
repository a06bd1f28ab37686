#include "analysis/achieved.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/response.h"
#include "core/number_text.h"
#include "design/pages.h"

namespace kelvro {

namespace {

constexpr double kNotedFactor = 1.5;  // between the band and B
constexpr double kFlatDecades = 1e3;  // a response without an edge so far up has no band

/// Looked for more closely than the optimizer does.
std::optional<WorstGain> WorstGainOf(const Design& design, const Response& response) {
    const auto band = WorstGainBand(design);
    if (!band) return std::nullopt;
    constexpr int steps = 160;
    double worst = std::numeric_limits<double>::infinity();
    for (int i = 0; i <= steps; ++i) {
        const double f = band->low * std::pow(band->high / band->low, i / double{steps});
        worst = std::min(worst, response.relativeDb(f));
    }
    return WorstGain{*band, worst};
}

std::optional<Achieved::Dip> DipBelow(const Response& response, double fo) {
    constexpr int steps = 400;
    constexpr double leastDepthDb = 1;
    const double atFo = response.relativeDb(fo);
    const double atDc = response.relativeDb(fo / steps);
    Achieved::Dip dip;
    for (int i = 2; i < steps; ++i) {
        const double f = fo * i / steps;
        const double depth = atFo - response.relativeDb(f);
        if (depth > dip.depthDb) dip = {f, depth};
    }
    // Deeper than both ends: the gain falls towards 0 Hz otherwise.
    const bool isDip = dip.depthDb > leastDepthDb && dip.depthDb > atFo - atDc + leastDepthDb / 10;
    return isDip ? std::optional(dip) : std::nullopt;
}

std::string Hertz(double f) {
    return FormatQuantity(2, f, "Hz");
}

std::string DipText(const std::optional<Achieved::Dip>& dip) {
    if (!dip) return {};
    return " with a dip of " + FormatFixed(0, 2, dip->depthDb) + " dB at " + Hertz(dip->f);
}

}  // namespace

std::optional<Achieved> AchievedBy(const CycleResult& result) {
    const Design& design = result.design;
    const Page& page = PageOf(design);
    if (result.message || !page.transfer) return std::nullopt;
    const Response response(design);
    const double atFo = response.relativeDb(design.fo);
    if (!std::isfinite(atFo)) return std::nullopt;
    const bool flat = std::fabs(response.relativeDb(design.fo * kFlatDecades) - atFo) < 1e-9 &&
                      std::fabs(response.relativeDb(design.fo / kFlatDecades) - atFo) < 1e-9;
    if (flat) return std::nullopt;
    Achieved achieved;
    achieved.lossDb = result.lossDb;
    achieved.band = PassbandAround(response, design.fo);
    achieved.worst = WorstGainOf(design, response);
    if (achieved.band.low == 0) achieved.dip = DipBelow(response, design.fo);
    const double width = achieved.band.width();
    if (!std::isfinite(width)) return achieved;
    achieved.loadedQ = design.fo / width;
    const double B = result.bandwidth;
    if (B > 0 && B < kInfiniteBandwidth)
        achieved.otherThanBandwidth = std::max(width / B, B / width) > kNotedFactor;
    return achieved;
}

std::string AchievedText(const Achieved& achieved, double bandwidth) {
    std::string text = "loss " + FormatFixed(0, 3, achieved.lossDb) + " dB at fo, ";
    if (const auto& worst = achieved.worst) {
        text += "worst GT " + FormatFixed(0, 4, worst->GTDb) + " dB from " +
                Hertz(worst->band.low) + " to " + Hertz(worst->band.high) + ", ";
    }
    const Passband& band = achieved.band;
    if (!std::isfinite(band.high)) return text + "-3 dB from " + Hertz(band.low) + " up";
    text += "-3 dB width " + Hertz(band.width()) + " (" + Hertz(band.low) + " to " +
            Hertz(band.high) + ")" + DipText(achieved.dip) + ", loaded Q " +
            FormatFixed(0, 2, achieved.loadedQ);
    if (achieved.otherThanBandwidth) text += ", not the " + Hertz(bandwidth) + " of B";
    return text;
}

}  // namespace kelvro
