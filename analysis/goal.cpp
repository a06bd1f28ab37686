#include "analysis/goal.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/scalar.h"
#include "design/pages.h"

namespace kelvro {

namespace {

constexpr double kNarrowBandQ = 0.21;  // designs above it hold their loaded Q
constexpr double kSmallestQ = 0.01;

double Square(double x) {
    return x * x;
}

// ---------------------------------------------------------------- narrow band

/// -GT(fo), and a penalty that holds the response at ±1/(8·Q) of fo 0.25 dB below GT(fo), as it is
/// for a single resonance of that Q.
double BandEdgeGoal(const Design& s, const Response& response) {
    const double quarter = s.fo / std::max(s.Q, kSmallestQ) / 4;
    const double low = response.relativeDb(std::max(s.fo - quarter / 2, s.fo / 100));
    const double centre = response.relativeDb(s.fo);
    const double high = response.relativeDb(s.fo + quarter / 2);
    const double weight = (std::pow(s.Q, 1.5) + 1) * 5;
    return -centre + weight * Square(centre - std::min(low, high) - 0.25);
}

/// -GT(fo), and a penalty on the difference between the wanted Q and that of the phase slope.
double PhaseSlopeGoal(const Design& s, const Response& response) {
    const double Q = std::max(s.Q, kSmallestQ);
    const double low = (1 - 0.025 / Q) * s.fo;
    const double high = (1 + 0.025 / Q) * s.fo;
    const auto tangent = [&](double f) {
        const auto H = response.transfer(f);
        return H.imag() / H.real();
    };
    const double centre = response.magnitudeDb(s.fo) - MagnitudeDb(std::sqrt(s.R2 / s.R1));
    const double slope = (tangent(high) - tangent(low)) / ((high - low) * kTwoPi);
    const double weight = (std::pow(s.Q, 1.5) + 1) * 0.2;
    return -centre + weight * Square(Q + kTwoPi / 2 * s.fo * slope);
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

std::vector<double> SlotValues(const Design& design, const std::vector<Slot>& slots) {
    std::vector<double> values;
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
    // A wish of the run counts as one of the page; only the goal of the transformer looks at it.
    trial_.equalInductances = trial_.equalInductances || options.transformer;
    if (page_.moved) slots_ = page_.moved(design);
    starts_ = page_.values ? page_.values(design, slots_) : SlotValues(design, slots_);
    size_ = page_.test ? page_.testParameters : slots_.size();
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

double Goal::network() const {
    const Response response(trial_);
    double f = 0;
    if (trial_.Q > kNarrowBandQ) {
        f = options_.phaseSlope ? PhaseSlopeGoal(trial_, response) : BandEdgeGoal(trial_, response);
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
