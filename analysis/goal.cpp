#include "analysis/goal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <limits>

#include "core/scalar.h"
#include "design/pages.h"

namespace kelvro {

namespace {

constexpr double kSmallestQ = 0.01;
constexpr double kEdgeDrop = 0.25;  // dB at ±1/(8·Q) of fo

// What makes a minimum good: dB lost at fo by mismatch, or over a band more than at its centre, and
// dB of penalty for another Q than the wanted one. The penalty minds the lower of the band's edges
// only: their mean may be lower than wanted by a factor of four, which is half the Q.
constexpr double kLosslessQ = 1e12;
constexpr double kMatched = 0.3;
constexpr double kQMet = 0.2;
constexpr double kFlattest = 4;

// The phase of a resonance at fo is 0 or 180°. Squares of the cosine of the distance from there: up
// to 30° the slope of the tangent is trusted, beyond 45° it is not.
constexpr double kTrusted = 0.75;
constexpr double kDistrusted = 0.5;
// A design by phase may be wider than fo/Q, but not more than twice as wide: at ±1/Q of fo it is 3
// dB down. What is missing there counts, squared, more than the 2 dB that a low Q saves.
constexpr double kHalfPower = 3.01;

double Square(double x) {
    return x * x;
}

// ---------------------------------------------------------------- narrow band

/// Gain in dB at fo and at ±1/(8·Q) of fo.
struct EdgeGains {
    double low;
    double centre;
    double high;

    /// The mean drop at the edges: a quarter of it is twice the width.
    double drop() const { return centre - (low + high) / 2; }
};

EdgeGains GainsAtEdges(const Design& s, const Response& response) {
    const double quarter = s.fo / std::max(s.Q, kSmallestQ) / 4;
    return {response.relativeDb(std::max(s.fo - quarter / 2, s.fo / 100)),
            response.relativeDb(s.fo), response.relativeDb(s.fo + quarter / 2)};
}

double QWeight(const Design& s) {
    return std::pow(s.Q, 1.5) + 1;
}

/// Holds the gain at an edge 0.25 dB below that at fo, as it is for a single resonance of Q.
double EdgePenalty(const Design& s, double drop) {
    return QWeight(s) * 5 * Square(drop - kEdgeDrop);
}

/// The lower edge counts.
double BandEdgePenalty(const Design& s, const EdgeGains& gains) {
    return EdgePenalty(s, gains.centre - std::min(gains.low, gains.high));
}

/// The penalty minds the lower edge alone: a network twice as wide, with fo on the flank of its
/// passband, pays nothing for the other one. What a search counts for the drop there, dB; most for
/// what is far from any band. Measured: T section, Q 5, 50 to 200: 21.5 MHz wide in place of 44.9
/// for the 20 asked, Pi 21.9 in place of 33.3, each for 0.14 dB; of 45 designs of Q 5 on all pages
/// 3 are more than half as wide again, 33 without. 99 of 100 random designs stay within 0.2 of the
/// lowest goal. Designs of the smoothness grid whose goal jumps: none with 0.75, one with 0.7.
double CentreWish(double drop) {
    constexpr double kWeight = 0.75;
    constexpr double kMost = 0.5;
    return kMost * std::tanh(kWeight * (kEdgeDrop - drop) / kMost);
}

double Tangent(std::complex<double> H) {
    return H.imag() / H.real();
}

/// How far the slope of the tangent is that of the phase: it is where the phase is that of a
/// resonance, and not where the tangent is about to leap.
double TrustInTangent(double tangent) {
    const double part =
        std::clamp((1 / (1 + Square(tangent)) - kDistrusted) / (kTrusted - kDistrusted), 0.0, 1.0);
    return part * part * (3 - 2 * part);
}

/// Loaded Q as the phase around fo tells it: by the slope of its tangent where that can be trusted,
/// else by that of the phase itself, which a turn of the whole phase leaves as it is.
double PhaseQ(const Design& s, const Response& response) {
    const double Q = std::max(s.Q, kSmallestQ);
    const double low = (1 - 0.025 / Q) * s.fo;
    const double high = (1 + 0.025 / Q) * s.fo;
    const std::complex<double> below = response.transfer(low);
    const std::complex<double> above = response.transfer(high);
    const double trust = TrustInTangent(Tangent(response.transfer(s.fo)));
    double turn = 0;
    if (trust > 0) turn += trust * (Tangent(above) - Tangent(below));
    if (trust < 1) turn += (1 - trust) * std::arg(above * std::conj(below));
    return -kTwoPi / 2 * s.fo * (turn / ((high - low) * kTwoPi));
}

/// Several resonances side by side have a steep phase over a wide band: beyond twice the width that
/// Q means, gain counts again.
double WidthPenalty(const Design& s, const Response& response, double centre) {
    const double distance = s.fo / std::max(s.Q, 1.0);
    const auto missing = [&](double f) {
        return std::max(kHalfPower - (centre - response.relativeDb(f)), 0.0);
    };
    return Square(missing(std::max(s.fo - distance, s.fo / 100))) +
           Square(missing(s.fo + distance));
}

/// A penalty on the difference between the wanted Q and that of the phase.
double PhasePenalty(const Design& s, const Response& response, double centre) {
    const double error = std::max(s.Q, kSmallestQ) - PhaseQ(s, response);
    return QWeight(s) * 0.2 * (Square(error) + WidthPenalty(s, response, centre));
}

// ---------------------------------------------------------------- broad band

/// Max-norm: the worst point counts; else the weighted sum of all.
double BandGoal(const Band& band, const Response& response, bool maxNorm) {
    double sum = 0;
    double worst = 0;
    for (const BandPoint& point : std::span(band.points).first(band.count)) {
        const double gain = response.relativeDb(point.f);
        sum += point.weight * gain;
        worst = std::max(worst, std::fabs(gain));
        if (std::isnan(gain)) return gain;
    }
    return maxNorm ? worst : -band.scale * sum;
}

/// What a loss of 1 dB all over the band makes of the goal.
double BandWeight(const Band& band, bool maxNorm) {
    double sum = 0;
    for (const BandPoint& point : std::span(band.points).first(band.count)) sum += point.weight;
    return maxNorm ? 1 : band.scale * sum;
}

/// Minus the worst gain at these frequencies, dB.
double WorstLoss(std::span<const double> frequencies, const Response& response) {
    double worst = -std::numeric_limits<double>::infinity();
    for (const double f : frequencies) {
        const double loss = -response.relativeDb(f);
        if (std::isnan(loss)) return loss;
        worst = std::max(worst, loss);
    }
    return worst;
}

std::vector<double> SlotValues(const Design& design, const std::vector<Slot>& slots) {
    std::vector<double> values;
    values.reserve(slots.size());
    for (const Slot slot : slots) values.push_back(design.components[slot]);
    return values;
}

double TenDigits(double f) {
    if (f == 0 || !std::isfinite(f)) return f;
    // Extended, as the decade of the smallest numbers is above all doubles.
    const long double decade = std::pow(10.0L, 9 - std::floor(std::log10(std::fabs(f))));
    return static_cast<double>(std::nearbyint(f * decade) / decade);
}

}  // namespace

Goal::Goal(const Design& design, const GoalOptions& options)
    : page_(PageOf(design).goal), trial_(design), options_(options) {
    options_.phaseSlope = options_.phaseSlope || !design.QByBandwidth;
    // A wish of the run counts as one of the page; only the goal of the transformer looks at it.
    trial_.equalInductances = trial_.equalInductances || options.transformer;
    if (page_.moved) slots_ = page_.moved(design);
    starts_ = page_.values ? page_.values(design, slots_) : SlotValues(design, slots_);
    size_ = page_.test ? page_.testParameters : slots_.size();
    if (const auto band = WorstGainBand(design)) bandFrequencies_ = WorstGainFrequencies(*band);
}

void Goal::write(std::span<const double> x) {
    if (slots_.empty()) return;
    std::array<double, 64> values{};
    for (std::size_t i = 0; i < slots_.size(); ++i) values[i] = GuardedExp(x[i]) * starts_[i];
    if (page_.setValues) {
        return page_.setValues(trial_, slots_, std::span(values).first(slots_.size()));
    }
    for (std::size_t i = 0; i < slots_.size(); ++i) trial_.components[slots_[i]] = values[i];
}

Slots Goal::components(std::span<const double> x) {
    write(x);
    return trial_.components;
}

double Goal::value(std::span<const double> x, CallKind kind) {
    calls_.add(kind);
    const double f = page_.test ? page_.test(x) : designed(x);
    return options_.noise ? TenDigits(f) : f;
}

double Goal::designed(std::span<const double> x) {
    write(x);
    return page_.residual ? page_.residual(trial_) : network();
}

/// Is there a crease where the edges of the band are alike?
bool Goal::mindsOneEdge() const {
    return isNetwork() && trial_.Q > kNarrowBandQ && !options_.phaseSlope;
}

Sides Goal::sides(std::span<const double> x, CallKind kind) {
    if (!mindsOneEdge()) return Objective::sides(x, kind);
    calls_.add(kind);
    write(x);
    Sides sides = edges();
    if (options_.noise) {
        sides.below = TenDigits(sides.below);
        sides.above = TenDigits(sides.above);
    }
    return sides;
}

Sides Goal::edges() const {
    const EdgeGains gains = GainsAtEdges(trial_, Response(trial_));
    const double rest = page_.penalty ? page_.penalty(trial_) : 0;
    const double low = gains.centre - gains.low;
    const double high = gains.centre - gains.high;
    return {-gains.centre + EdgePenalty(trial_, low) + rest,
            -gains.centre + EdgePenalty(trial_, high) + rest, gains.low - gains.high,
            CentreWish(high), CentreWish(low)};
}

bool Goal::isNetwork() const {
    return !page_.test && !page_.residual;
}

double Goal::lowerBound() const {
    return isNetwork() ? 0 : -std::numeric_limits<double>::infinity();
}

bool Goal::isGood(std::span<const double> x) {
    // Of a worst gain nobody knows beforehand how high it can be.
    if (!isNetwork() || countsWorstGain()) return true;
    write(x);
    return isMatched() && hasWantedQ();
}

/// Without the losses of its parts a matched network loses nothing.
bool Goal::isMatched() const {
    Design lossless = trial_;
    lossless.QB = lossless.QBC = kLosslessQ;
    return -Response(lossless).relativeDb(trial_.fo) <= kMatched;
}

bool Goal::hasWantedQ() const {
    const Response response(trial_);
    const double centre = response.relativeDb(trial_.fo);
    if (!(trial_.Q > kNarrowBandQ)) {
        if (!page_.band) return true;
        // As broad as can be: the band loses hardly more than its centre.
        const double weight = BandWeight(page_.band(trial_), options_.maxNorm);
        return network() / weight + centre <= kMatched;
    }
    const EdgeGains gains = GainsAtEdges(trial_, response);
    return network() + centre <= kQMet && gains.drop() > kEdgeDrop / kFlattest;
}

double Goal::network() const {
    const Response response(trial_);
    double f = 0;
    if (trial_.Q > kNarrowBandQ) {
        const EdgeGains gains = GainsAtEdges(trial_, response);
        f = -gains.centre + (options_.phaseSlope ? PhasePenalty(trial_, response, gains.centre)
                                                 : BandEdgePenalty(trial_, gains));
    } else if (countsWorstGain()) {
        f = WorstLoss(bandFrequencies_, response);
    } else if (page_.band) {
        f = BandGoal(page_.band(trial_), response, options_.maxNorm);
    }
    if (page_.penalty) f += page_.penalty(trial_);
    return f;
}

double TestFunction(int page, std::span<const double> x) {
    const PageGoal& goal = PageOf(page).goal;
    return goal.test ? goal.test(x) : 0;
}

double GuardedExp(double x) {
    constexpr double limit = 300;
    if (x < -limit) return std::exp(-limit);
    return x > limit ? std::exp(limit) + (x - limit) : std::exp(x);
}

}  // namespace kelvro
