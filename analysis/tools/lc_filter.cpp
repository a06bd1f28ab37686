#include "analysis/tools/lc_filter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr double kPi = std::numbers::pi;

bool Positive(double x) {
    return x > 0 && std::isfinite(x);
}

bool TwoSided(FilterBand band) {
    return band == FilterBand::BandPass || band == FilterBand::BandStop;
}

bool Sound(const FilterWishes& wishes) {
    const bool ripple = wishes.shape == FilterShape::Butterworth ||
                        (wishes.ripple > 0 && wishes.ripple <= kMostRipple);
    return wishes.order >= 1 && wishes.order <= kMostOrder && ripple &&
           Positive(wishes.frequency) && Positive(wishes.source) &&
           (!TwoSided(wishes.band) || Positive(wishes.bandwidth));
}

/// Squared ripple factor: 10^(dB/10) - 1; 1 for Butterworth, whose edge lies at half power.
double RippleFactor(const FilterWishes& wishes) {
    if (wishes.shape == FilterShape::Butterworth) return 1;
    return std::expm1(wishes.ripple * std::numbers::ln10 / 10);
}

std::vector<double> Butterworth(int n) {
    std::vector<double> g;
    for (int k = 1; k <= n; ++k) g.push_back(2 * std::sin((2 * k - 1) * kPi / (2 * n)));
    g.push_back(1);
    return g;
}

std::vector<double> Chebyshev(int n, double ripple) {
    // 40/ln 10 is the 17.37 of the literature; ln coth x = -ln tanh x.
    const double beta = -std::log(std::tanh(ripple * std::numbers::ln10 / 40));
    const double gamma = std::sinh(beta / (2 * n));
    const auto a = [&](int k) { return std::sin((2 * k - 1) * kPi / (2 * n)); };
    const auto b = [&](int k) { return gamma * gamma + std::pow(std::sin(k * kPi / n), 2); };
    std::vector<double> g{2 * a(1) / gamma};
    for (int k = 2; k <= n; ++k) g.push_back(4 * a(k - 1) * a(k) / (b(k - 1) * g.back()));
    g.push_back(n % 2 == 1 ? 1 : std::pow(std::tanh(beta / 4), -2));
    return g;
}

/// Frequency of the prototype that f falls on.
double PrototypeFrequency(const FilterWishes& wishes, double f) {
    const double offset = (f / wishes.frequency - wishes.frequency / f) * wishes.frequency;
    switch (wishes.band) {
        case FilterBand::LowPass:
            return f / wishes.frequency;
        case FilterBand::HighPass:
            return wishes.frequency / f;
        case FilterBand::BandPass:
            return std::fabs(offset / wishes.bandwidth);
        case FilterBand::BandStop:
            return std::fabs(wishes.bandwidth / offset);
    }
    return 0;
}

/// Edges of the band that stretches over `width` times the prototype's cutoff.
BandEdges Edges(const FilterWishes& wishes, double width) {
    const double fo = wishes.frequency;
    if (wishes.band == FilterBand::LowPass) return {0, fo * width};
    if (wishes.band == FilterBand::HighPass) return {fo / width, 0};
    const bool pass = wishes.band == FilterBand::BandPass;
    const double half = wishes.bandwidth / 2 * (pass ? width : 1 / width);
    const double upper = std::hypot(half, fo) + half;
    return {fo / upper * fo, upper};  // the edges lie geometrically even about fo
}

/// L and C of one arm, scaled from a prototype element g: Matthaei, Young, Jones, sections 6 and 8.
FilterArm ScaledArm(const FilterWishes& wishes, double g, bool series) {
    const double omega = kTwoPi * wishes.frequency;
    const double span = kTwoPi * wishes.bandwidth;
    // The arm's own element L (series) or C (shunt), and the element that it resonates with.
    const double scale = series ? wishes.source : 1 / wishes.source;
    const auto arm = [&](bool seriesResonant, double own, double other) {
        return series ? FilterArm{series, seriesResonant, own, other}
                      : FilterArm{series, seriesResonant, other, own};
    };
    switch (wishes.band) {
        case FilterBand::LowPass:
            return arm(true, g * scale / omega, 0);
        case FilterBand::HighPass:
            return arm(true, 0, 1 / (omega * g * scale));
        case FilterBand::BandPass: {
            const double own = g * scale / span;
            return arm(series, own, 1 / (omega * omega * own));
        }
        case FilterBand::BandStop: {
            const double own = g * scale * span / (omega * omega);
            return arm(!series, own, 1 / (omega * omega * own));
        }
    }
    return {};
}

Impedance ArmOf(const FilterArm& arm, FilterLosses losses) {
    const Part L{PartKind::Inductor, arm.L, {PartLoss::Law::Page, losses.inductors}};
    const Part C{PartKind::Capacitor, arm.C, {PartLoss::Law::Page, losses.capacitors}};
    if (arm.C == 0) return L;
    if (arm.L == 0) return C;
    return arm.seriesResonant ? Impedance::InSeries({L, C}) : Impedance::InParallel({L, C});
}

}  // namespace

/// G. L. Matthaei, L. Young, E. M. T. Jones, "Microwave Filters, Impedance-Matching Networks, and
/// Coupling Structures", 1964, section 4.05, eq. 4.05-1 and 4.05-2.
std::vector<double> Prototype(FilterShape shape, int order, double ripple) {
    return shape == FilterShape::Butterworth ? Butterworth(order) : Chebyshev(order, ripple);
}

Filter DesignFilter(const FilterWishes& wishes) {
    if (!Sound(wishes)) return {};
    const std::vector<double> g = Prototype(wishes.shape, wishes.order, wishes.ripple);
    Filter filter{{}, wishes.source, wishes.source};
    bool series = !wishes.shuntFirst;
    for (int k = 0; k < wishes.order; ++k) {
        filter.arms.push_back(ScaledArm(wishes, g[static_cast<std::size_t>(k)], series));
        series = !series;
    }
    // The last g is a resistance behind a shunt arm, a conductance behind a series arm.
    filter.load = filter.arms.back().series ? wishes.source / g.back() : wishes.source * g.back();
    return filter;
}

BandEdges EdgesOf(const FilterWishes& wishes) {
    return Edges(wishes, 1);
}

BandEdges HalfPowerEdges(const FilterWishes& wishes) {
    // The ripple never exceeds 3 dB, so 1/ε lies above 1 up to rounding.
    const double inverse = std::max(1.0, 1 / std::sqrt(RippleFactor(wishes)));
    return Edges(wishes, std::cosh(std::acosh(inverse) / wishes.order));
}

double PromisedAttenuation(const FilterWishes& wishes, double f) {
    const double x = PrototypeFrequency(wishes, f);
    const int n = wishes.order;
    double polynomial = std::pow(x, n);
    if (wishes.shape == FilterShape::Chebyshev) {
        polynomial = x <= 1 ? std::cos(n * std::acos(x)) : std::cosh(n * std::acosh(x));
    }
    return 10 / std::numbers::ln10 * std::log1p(RippleFactor(wishes) * polynomial * polynomial);
}

int LeastOrder(FilterWishes wishes, double attenuation, double f) {
    for (wishes.order = 1; wishes.order <= kMostOrder; ++wishes.order) {
        if (PromisedAttenuation(wishes, f) >= attenuation) return wishes.order;
    }
    return 0;
}

Network NetworkOf(const Filter& filter, FilterLosses losses) {
    Network network{filter.source, {}, filter.load};
    for (const FilterArm& arm : filter.arms) {
        const Place place = arm.series ? Place::Series : Place::Shunt;
        network.ladder.push_back({Arm{place, ArmOf(arm, losses)}});
    }
    return network;
}

FilterPoint ResponseOf(const LadderResponse& filter, double f) {
    const NetworkPoint point = filter.at(f);
    return {10 * std::log10(point.GT), 20 * std::log10(std::abs(point.gammaIn))};
}

}  // namespace kelvro
