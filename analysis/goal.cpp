#include "analysis/goal.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/scalar.h"
#include "design/pages.h"

namespace kelvro {

namespace {

constexpr int kTransformer = 5;
constexpr int kLccl = 14;
constexpr int kBroadband = 16;
constexpr int kDoubleL = 18;
constexpr int kDivider = 19;

constexpr double kNarrowBandQ = 0.21;  // designs above it hold their loaded Q
constexpr double kSmallestQ = 0.01;
constexpr double kLowestBandEdge = 0.02;  // of broadband ladders, relative to fo

double Square(double x) {
    return x * x;
}

/// How far the resistances are apart: 0 for equal ones.
double TransformationTerm(const Design& s) {
    return std::sqrt(std::max(s.R2 / s.R1, s.R1 / s.R2)) - 1;
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

struct BandPoint {
    double f;
    double weight;
};

/// Max-norm: the worst point counts; else the weighted sum of all.
template <std::size_t count>
double BandGoal(const std::array<BandPoint, count>& points, double scale, const Response& response,
                bool maxNorm) {
    double sum = 0;
    double worst = 0;
    for (const BandPoint& point : points) {
        const double gain = response.relativeDb(point.f);
        sum += point.weight * gain;
        worst = std::max(worst, std::fabs(gain));
        if (std::isnan(gain)) return gain;
    }
    return maxNorm ? worst : -scale * sum;
}

double LadderBandGoal(const Design& s, const Response& response, bool maxNorm) {
    const double m = TransformationTerm(s);
    // Beyond a resistance ratio of nine the formula leaves the positive frequencies.
    const double d = std::max(1 - std::pow(m, 0.333) * 0.8, kLowestBandEdge);
    const double half = std::sqrt(d);
    const double wide = std::pow(d, 0.75);
    const std::array<BandPoint, 7> points = {{{s.fo * d, m / 2},
                                              {s.fo, 1},
                                              {s.fo / d, m / 2},
                                              {s.fo * half, 1},
                                              {s.fo / half, 1},
                                              {s.fo * wide, 1},
                                              {s.fo / wide, 1}}};
    return BandGoal(points, 1, response, maxNorm);
}

double FivePointBandGoal(const Design& s, const Response& response, bool maxNorm) {
    const bool wide = s.page == kTransformer || s.page == kLccl || s.page == kDoubleL;
    const double d = (wide ? 0.5 : 0.25) / (TransformationTerm(s) + 1);
    const std::array<BandPoint, 5> points = {{{s.fo * (1 - d), 1},
                                              {s.fo * (1 - d / 2), 1},
                                              {s.fo, 1},
                                              {s.fo / (1 - d / 2), 1},
                                              {s.fo / (1 - d), 1}}};
    return BandGoal(points, 0.2, response, maxNorm);
}

// ---------------------------------------------------------------- penalties

/// (a - b)/(a + b): 0 for equal values.
double Imbalance(double a, double b) {
    return (a - b) / (a + b);
}

double TransformerPenalty(const Design& s, const GoalOptions& options) {
    const double L1 = s.components[Slot::L];
    const double L2 = s.components[Slot::L2];
    double penalty = 0;
    if (s.equalInductances || options.transformer) {
        penalty += Square(s.equalInductancesWeight / 10.0 * Imbalance(L1, L2));
    }
    if (s.smallInductances) {
        penalty += Square(s.smallInductancesWeight / 50.0 * Omega(s) * (L1 + L2) / (2 * s.R2));
    }
    if (s.smallCapacitance) {
        penalty += Square(s.smallCapacitanceWeight / 100.0 * s.components[Slot::C1] * s.R1 * 1e9 /
                          s.fo * 1e9);
    }
    return penalty;
}

/// Keeps the two halves of the LCCL network alike.
double LcclPenalty(const Design& s) {
    return 0.01 * Square(Imbalance(s.components[Slot::L], s.components[Slot::L2])) +
           0.01 * Square(Imbalance(s.components[Slot::C1], s.components[Slot::C2]));
}

// ---------------------------------------------------------------- resistor string

/// Relative errors of the string's total, its six taps and the bandgap resistor, squared.
double DividerGoal(const Design& s) {
    const std::array<double, 6> taps = {s.Vlow1, s.Vlow2, s.Vmid1, s.Vmid2, s.Vhi1, s.Vhi2};
    const auto resistor = [&](int i) { return s.components[SlotBehind(Slot::C1, i)]; };
    double total = 0;
    for (int i = 0; i < 7; ++i) total += resistor(i);
    double sum = Square(total / s.Rtot - 1) + Square(resistor(7) * s.Ibg / s.Vbg - 1);
    double below = 0;
    for (int i = 0; i < 6; ++i) {
        below += resistor(i);
        sum += Square(s.Vref * below / total / taps[static_cast<std::size_t>(i)] - 1);
    }
    return sum;
}

// ---------------------------------------------------------------- the ladder of eight elements

/// Its slots come in pairs of mean and ratio; the elements C1, C2, L1, L2, C3, C4, L3, L4 are what
/// the parameters move. Each further element of a group is reckoned relative to the first.
bool IsExtended(const Design& s) {
    return s.page == kBroadband && s.eightElements;
}

constexpr std::array<std::size_t, 8> kFirstOfGroup = {0, 0, 2, 2, 0, 0, 2, 2};

std::vector<double> RelativeElements(const Design& s, const std::vector<Slot>& slots) {
    std::vector<double> elements;
    for (std::size_t i = 0; i + 1 < slots.size(); i += 2) {
        const double mean = s.components[slots[i]];
        const double ratio = s.components[slots[i + 1]];
        elements.insert(elements.end(), {mean / ratio, mean * ratio});
    }
    std::vector<double> relative = elements;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (kFirstOfGroup[i] != i) relative[i] = elements[i] / elements[kFirstOfGroup[i]];
    }
    return relative;
}

void WriteRelativeElements(Design& s, const std::vector<Slot>& slots,
                           std::span<const double> relative) {
    std::vector<double> elements(relative.begin(), relative.end());
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (kFirstOfGroup[i] != i) elements[i] *= elements[kFirstOfGroup[i]];
    }
    for (std::size_t i = 0; i + 1 < elements.size(); i += 2) {
        const double mean = std::sqrt(elements[i] * elements[i + 1]);
        s.components[slots[i]] = mean;
        s.components[slots[i + 1]] = elements[i + 1] / mean;
    }
}

double TenDigits(double f) {
    if (f == 0 || !std::isfinite(f)) return f;
    // Extended, as the decade of the smallest numbers is above all doubles.
    const long double decade = std::pow(10.0L, 9 - std::floor(std::log10(std::fabs(f))));
    return static_cast<double>(std::nearbyint(f * decade) / decade);
}

}  // namespace

Goal::Goal(const Design& design, const GoalOptions& options) : trial_(design), options_(options) {
    const Page& page = PageOf(design);
    if (page.goalSlots) slots_ = page.goalSlots(design);
    if (IsExtended(design)) {
        starts_ = RelativeElements(design, slots_);
    } else {
        for (const Slot slot : slots_) starts_.push_back(design.components[slot]);
    }
    size_ = page.testParameters > 0 ? static_cast<std::size_t>(page.testParameters) : slots_.size();
}

void Goal::write(std::span<const double> x) {
    if (slots_.empty()) return;
    std::array<double, 64> values{};
    for (std::size_t i = 0; i < slots_.size(); ++i) values[i] = GuardedExp(x[i]) * starts_[i];
    if (IsExtended(trial_)) {
        WriteRelativeElements(trial_, slots_, std::span(values).first(slots_.size()));
        return;
    }
    for (std::size_t i = 0; i < slots_.size(); ++i) trial_.components[slots_[i]] = values[i];
}

Slots Goal::components(std::span<const double> x) {
    write(x);
    return trial_.components;
}

double Goal::value(std::span<const double> x, CallKind kind) {
    calls_.add(kind);
    const double f = PageOf(trial_).testParameters > 0 ? TestFunction(trial_.page, x) : designed(x);
    return options_.noise ? TenDigits(f) : f;
}

double Goal::designed(std::span<const double> x) {
    write(x);
    return trial_.page == kDivider ? DividerGoal(trial_) : network();
}

double Goal::network() const {
    const Response response(trial_);
    double f = 0;
    if (trial_.Q > kNarrowBandQ) {
        f = options_.phaseSlope ? PhaseSlopeGoal(trial_, response) : BandEdgeGoal(trial_, response);
    } else if (trial_.page == kBroadband) {
        f = LadderBandGoal(trial_, response, options_.maxNorm);
    } else {
        f = FivePointBandGoal(trial_, response, options_.maxNorm);
    }
    if (trial_.page == kTransformer) f += TransformerPenalty(trial_, options_);
    if (trial_.page == kLccl) f += LcclPenalty(trial_);
    return f;
}

double TestFunction(int page, std::span<const double> x) {
    switch (page) {
        case 6:
            return 16 * Square(x[0] + x[3]) + Square(x[1] - 2 * x[2] - x[3]) +
                   0.0625 * Square(x[2] - 2) + Square(x[3] - 1);
        case 7:
            return Square(x[0] - 1) + Square(0.5 * x[1] + x[0] + 1);
        case 10:
            return Square(1 - x[0]) + 100 * Square(x[1] - x[0] * x[0]);
        case 9:
            break;
        default:
            return 0;
    }
    // A model fitted to a grid of samples; the third parameter has no influence, and the fifth and
    // sixth only in their sum.
    constexpr std::array<double, 3> samples = {-0.1, 0, 0.1};
    double sum = 0;
    for (const double a : samples) {
        for (const double b : samples) {
            for (const double c : samples) {
                sum += Square(x[0] - std::fabs(a) - 0.1 * a + 0.01 * (x[1] - 1.1 * b - a)) +
                       Square(x[3] - 0.9 * a + 0.01 * (x[3] - b - a / 2)) +
                       Square(x[0] + x[3] + x[4] - 0.9 * a - 1.1 * c + x[5] - c);
            }
        }
    }
    return sum;
}

double GuardedExp(double x) {
    constexpr double limit = 300;
    if (x < -limit) return std::exp(-limit);
    return x > limit ? std::exp(limit) + (x - limit) : std::exp(x);
}

}  // namespace kelvro
