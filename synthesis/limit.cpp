#include "synthesis/limit.h"

#include <Eigen/Eigenvalues>
#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <vector>

#include "core/number_text.h"
#include "core/scalar.h"

// A gain g can be had when, at each frequency ω of the bands, the reflection of the equalizer seen
// from the load lies in the disc with centre k = g·ΓL*/(1 - (1 - g)|ΓL|²) and radius
// r = √(1 - g)·(1 - |ΓL|²)/(1 - (1 - g)|ΓL|²), and in the unit disc elsewhere. With q the outer
// function of |q| = r that is possible if and only if the Hankel operator of F = k/q has a norm of
// at most 1 (Nehari). F vanishes outside the bands and is singular at their edges, so the operator
// is represented by rational functions whose poles crowd towards the edges, and its integrals by
// panels that do the same: the narrowest bands come out as accurate as the widest.

namespace kelvro {

namespace {

using Cx = std::complex<double>;

constexpr double kPi = kTwoPi / 2;

/// Abscissas and weights of Gauss's rule with eight nodes on [-1, 1]: M. Abramowitz, I. A. Stegun,
/// Handbook of Mathematical Functions, table 25.4.
constexpr std::array<std::array<double, 2>, 4> kGauss = {{{0.183434642495650, 0.362683783378362},
                                                          {0.525532409916329, 0.313706645877887},
                                                          {0.796666477413627, 0.222381034453374},
                                                          {0.960289856497536, 0.101228536290376}}};
constexpr std::size_t kPanelNodes = 2 * kGauss.size();

// How far panels and poles crowd towards an edge, as a fraction of the width of the band, and how
// many there are on the way. Against the closed form of π/(ω·R·C), for loads from 0 to ω and for
// bands of 30 % down to 0.1 %, these numbers leave 1e-7 of the gain; 10 poles from 1e-4 on left
// 4e-5.
constexpr int kPanelsPerEdge = 24;  // each half as long as the one before
constexpr int kPolesPerEdge = 20;
constexpr double kNearestPole = 1e-6;
constexpr double kFarthestPole = 2;

/// A node of the integrals over the bands.
struct Node {
    double omega;     ///< in units of the highest frequency
    double weight;    ///< of the integral over ω
    Cx gamma;         ///< reflection of the load
    double mismatch;  ///< 1 - |gamma|², without cancellation
};

/// The bands as panels of kPanelNodes nodes each. What a load does inside a band is resolved to the
/// `detail`-th part of its width.
struct BandMap {
    struct Edges {
        double low;
        double high;
    };
    int detail = 1;
    std::vector<Edges> bands;
    std::vector<Node> nodes;
};

Status ProblemOf(std::span<const FrequencyBand> bands) {
    if (bands.empty()) return Status::Failure("there is no band");
    for (const FrequencyBand& band : bands) {
        if (!(band.low >= 0) || !(band.high > band.low) || !std::isfinite(band.high)) {
            return Status::Failure("a band has to end above where it begins");
        }
    }
    return {};
}

Status ProblemOf(Cx z, double f, const char* which) {
    const auto at = [&] { return FormatQuantity(3, f, "Hz"); };
    if (!std::isfinite(z.real()) || !std::isfinite(z.imag())) {
        return Status::Failure(std::string("the ") + which + " has no impedance at " + at());
    }
    if (!(z.real() > 0)) {
        return Status::Failure(std::string("the resistance of the ") + which + " at " + at() +
                               " is not above 0");
    }
    return {};
}

/// Bands that overlap or touch are one.
std::vector<FrequencyBand> Disjoint(std::span<const FrequencyBand> bands) {
    std::vector<FrequencyBand> sorted(bands.begin(), bands.end());
    std::ranges::sort(sorted, {}, &FrequencyBand::low);
    std::vector<FrequencyBand> disjoint;
    for (const FrequencyBand& band : sorted) {
        if (disjoint.empty() || band.low > disjoint.back().high) {
            disjoint.push_back(band);
        } else {
            disjoint.back().high = std::max(disjoint.back().high, band.high);
        }
    }
    return disjoint;
}

void AddPanel(std::vector<Node>& nodes, double from, double to, double longest) {
    if (to - from > longest) {
        AddPanel(nodes, from, (from + to) / 2, longest);
        AddPanel(nodes, (from + to) / 2, to, longest);
        return;
    }
    const double half = (to - from) / 2;
    const double middle = (to + from) / 2;
    for (std::size_t i = kGauss.size(); i-- > 0;) {
        nodes.push_back({middle - half * kGauss[i][0], half * kGauss[i][1], {}, 0});
    }
    for (const auto& [x, weight] : kGauss)
        nodes.push_back({middle + half * x, half * weight, {}, 0});
}

/// Panels from one end of a band to the other, half as long with each step towards an end.
void AddBand(BandMap& map, double low, double high) {
    map.bands.push_back({low, high});
    const double half = (high - low) / 2;
    const double longest = 2.1 * half / map.detail;
    for (int i = kPanelsPerEdge; i >= 0; --i) {
        const double from = i == kPanelsPerEdge ? 0 : std::ldexp(half, -i - 1);
        AddPanel(map.nodes, low + from, low + std::ldexp(half, -i), longest);
    }
    for (int i = 0; i <= kPanelsPerEdge; ++i) {
        const double to = i == kPanelsPerEdge ? 0 : std::ldexp(half, -i - 1);
        AddPanel(map.nodes, high - std::ldexp(half, -i), high - to, longest);
    }
}

/// A termination in the bands, as reflections to a resistance near its magnitude: an ideal
/// transformer costs nothing, so any reference gives the same limit.
Result<BandMap> MapOf(const Termination& termination, std::span<const FrequencyBand> bands,
                      const char* which, int detail) {
    BandMap map;
    map.detail = detail;
    const double unit = bands.back().high;
    for (const FrequencyBand& band : bands) AddBand(map, band.low / unit, band.high / unit);
    double logMagnitude = 0;
    for (Node& node : map.nodes) {
        // Not at 0 itself, where a capacitor has no impedance.
        const double f = std::max(node.omega, 1e-6) * unit;
        node.gamma = impedance(termination, f);
        if (Status problem = ProblemOf(node.gamma, f, which); !problem) return problem;
        logMagnitude += std::log(std::abs(node.gamma));
    }
    const double R0 = std::exp(logMagnitude / static_cast<double>(map.nodes.size()));
    for (Node& node : map.nodes) {
        const Cx z = node.gamma;
        node.gamma = (z - R0) / (z + R0);
        node.mismatch = 4 * R0 * z.real() / std::norm(z + R0);
    }
    return map;
}

/// Derivative at node `at` of the polynomial through the nodes of a panel: its row of weights.
std::array<double, kPanelNodes> DerivativeRow(const Node* panel, std::size_t at) {
    std::array<double, kPanelNodes> row{};
    for (std::size_t j = 0; j < kPanelNodes; ++j) {
        if (j == at) continue;
        double product = 1 / (panel[j].omega - panel[at].omega);
        for (std::size_t m = 0; m < kPanelNodes; ++m) {
            if (m == at || m == j) continue;
            product *= (panel[at].omega - panel[m].omega) / (panel[j].omega - panel[m].omega);
        }
        row[j] = product;
        row[at] += 1 / (panel[at].omega - panel[j].omega);
    }
    return row;
}

/// The matrix that makes arg q at the nodes of log r there: the relation of H. W. Bode, Network
/// Analysis and Feedback Amplifier Design (1945), chapter 14, for a log r that is 0 outside the
/// bands. The value at ω is subtracted and its integral over the bands added in closed form.
Eigen::MatrixXd PhaseMatrix(const BandMap& map) {
    const auto size = static_cast<Eigen::Index>(map.nodes.size());
    Eigen::MatrixXd matrix(size, size);
    for (Eigen::Index i = 0; i < size; ++i) {
        const double omega = map.nodes[static_cast<std::size_t>(i)].omega;
        double own = 0;
        for (const BandMap::Edges& band : map.bands) {
            own += std::log(std::fabs((band.high - omega) / (band.low - omega)));
        }
        for (Eigen::Index j = 0; j < size; ++j) {
            const Node& node = map.nodes[static_cast<std::size_t>(j)];
            matrix(i, j) = -node.weight / (node.omega + omega);
            if (i == j) continue;
            matrix(i, j) += node.weight / (node.omega - omega);
            own -= node.weight / (node.omega - omega);
        }
        matrix(i, i) += own;
        const auto at = static_cast<std::size_t>(i) % kPanelNodes;
        const auto first = static_cast<std::size_t>(i) - at;
        const auto row = DerivativeRow(&map.nodes[first], at);
        for (std::size_t j = 0; j < kPanelNodes; ++j) {
            matrix(i, static_cast<Eigen::Index>(first + j)) +=
                map.nodes[static_cast<std::size_t>(i)].weight * row[j];
        }
    }
    return matrix / kPi;
}

/// Poles of the functions below, at -σ ± jω.
struct PolePair {
    double sigma;
    double omega;
};

std::vector<PolePair> PolesOf(const BandMap& map) {
    std::vector<PolePair> poles;
    for (const BandMap::Edges& band : map.bands) {
        const double width = band.high - band.low;
        for (int k = 0; k < kPolesPerEdge; ++k) {
            const double sigma = width * kFarthestPole *
                                 std::pow(kNearestPole / kFarthestPole, k / (kPolesPerEdge - 1.0));
            poles.insert(poles.end(), {{sigma, band.low}, {sigma, band.high}});
        }
        const double spacing = width / map.detail;
        for (int k = 0; k < map.detail; ++k)
            poles.push_back({spacing, band.low + (k + 0.5) * spacing});
    }
    return poles;
}

/// Orthonormal functions of H² of the right half-plane at the nodes, a column each: W. H. Kautz,
/// "Transient synthesis in the time domain", IRE Trans. CT-1 (1954).
Eigen::MatrixXcd KautzFunctions(const BandMap& map, const std::vector<PolePair>& poles) {
    const auto size = static_cast<Eigen::Index>(map.nodes.size());
    Eigen::ArrayXcd s(size);
    for (Eigen::Index i = 0; i < size; ++i) {
        s[i] = Cx(0, map.nodes[static_cast<std::size_t>(i)].omega);
    }
    Eigen::MatrixXcd functions(size, static_cast<Eigen::Index>(2 * poles.size()));
    Eigen::ArrayXcd allPass = Eigen::ArrayXcd::Ones(size);
    Eigen::Index column = 0;
    for (const auto& [sigma, omega] : poles) {
        const double rho = std::hypot(sigma, omega);
        const Eigen::ArrayXcd even = s * s + rho * rho;
        const Eigen::ArrayXcd odd = 2 * sigma * s;
        const Eigen::ArrayXcd scaled = 2 * std::sqrt(sigma) * allPass / (even + odd);
        functions.col(column++) = s * scaled;
        functions.col(column++) = rho * scaled;
        allPass *= (even - odd) / (even + odd);
    }
    return functions;
}

/// Says whether a gain can be had.
class NehariTest {
  public:
    explicit NehariTest(const BandMap& map)
        : map_(map), phase_(PhaseMatrix(map)), basis_(KautzFunctions(map, PolesOf(map))) {}

    /// Norm of the Hankel operator for the gain 1 - `missing`.
    double norm(double missing) const {
        const auto size = static_cast<Eigen::Index>(map_.nodes.size());
        Eigen::VectorXd logRadius(size);
        Eigen::VectorXcd F(size);
        for (Eigen::Index i = 0; i < size; ++i) {
            const Node& node = map_.nodes[static_cast<std::size_t>(i)];
            const double root = std::sqrt(missing);
            logRadius[i] = std::log(root * node.mismatch / (1 - missing * (1 - node.mismatch)));
            // k/r, times the weight of the node in the mean over both signs of ω
            F[i] =
                node.weight / kPi * (1 - missing) * std::conj(node.gamma) / (root * node.mismatch);
        }
        const Eigen::VectorXd phase = phase_ * logRadius;
        for (Eigen::Index i = 0; i < size; ++i) F[i] *= std::polar(1.0, -phase[i]);
        const Eigen::MatrixXcd weighted = F.asDiagonal() * basis_;
        const Eigen::MatrixXd hankel = basis_.real().transpose() * weighted.real() -
                                       basis_.imag().transpose() * weighted.imag();
        const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> eigen(hankel, Eigen::EigenvaluesOnly);
        return eigen.eigenvalues().cwiseAbs().maxCoeff();
    }

  private:
    const BandMap& map_;
    Eigen::MatrixXd phase_;
    Eigen::MatrixXcd basis_;
};

constexpr double kLeastMissing = 1e-12;  ///< 1 - g that counts as a perfect match
constexpr double kNormAccuracy = 1e-6;
// Four resonances of Q 30 within an octave need 1/16 of the band resolved for 1e-5.
constexpr int kCoarsestDetail = 4;
constexpr int kFinestDetail = 128;
constexpr double kLimitAccuracy = 2e-5;

/// The largest g whose norm is at most 1, as 1 - g. Between ln(1 - g) and ln(norm) the relation is
/// nearly a falling straight line; false position with halved weights (Illinois) on it.
double LeastMissing(const BandMap& map) {
    const NehariTest test(map);
    const auto excess = [&](double logMissing) {
        return std::clamp(std::log(test.norm(std::exp(logMissing))), -2.0, 50.0);
    };
    double low = std::log(kLeastMissing);
    double high = 0;  // g = 0, always possible
    double atHigh = -2;
    double atLow = excess(low);
    if (!(atLow > 0)) return 0;
    double x = high;
    for (int side = 0, i = 0; i < 60 && high - low > 1e-9; ++i) {
        x = (low * atHigh - high * atLow) / (atHigh - atLow);
        const double at = excess(x);
        if (std::fabs(at) < kNormAccuracy) break;
        if (at > 0) {
            low = x;
            atLow = at;
            if (side == 1) atHigh /= 2;
            side = 1;
        } else {
            high = x;
            atHigh = at;
            if (side == -1) atLow /= 2;
            side = -1;
        }
    }
    return std::exp(x);
}

/// Is the termination the same resistance all over the bands?
bool IsFixedResistance(const BandMap& map) {
    const Cx first = map.nodes.front().gamma;
    return std::ranges::all_of(map.nodes, [&](const Node& node) {
        return std::fabs(node.gamma.imag()) < 1e-9 && std::abs(node.gamma - first) < 1e-9;
    });
}

/// The limit that a termination sets, resolved finer and finer until that changes nothing.
Result<double> LimitFrom(const BandMap& coarse, const Termination& termination,
                         std::span<const FrequencyBand> bands, const char* which) {
    double limit = 1 - LeastMissing(coarse);
    for (int detail = 2 * coarse.detail; detail <= kFinestDetail; detail *= 2) {
        const auto map = MapOf(termination, bands, which, detail);
        if (!map) return map.status();
        const double before = limit;
        limit = 1 - LeastMissing(*map);
        if (std::fabs(limit - before) < kLimitAccuracy) break;
    }
    return limit;
}

}  // namespace

Result<GainLimit> GainLimitOf(const Termination& source, const Termination& load,
                              std::span<const FrequencyBand> bands) {
    if (Status problem = ProblemOf(bands); !problem) return problem;
    const std::vector<FrequencyBand> disjoint = Disjoint(bands);
    const auto sourceMap = MapOf(source, disjoint, "source", kCoarsestDetail);
    if (!sourceMap) return sourceMap.status();
    const auto loadMap = MapOf(load, disjoint, "load", kCoarsestDetail);
    if (!loadMap) return loadMap.status();
    GainLimit limit;
    limit.estimate = !IsFixedResistance(*sourceMap);
    const auto ofLoad = LimitFrom(*loadMap, load, disjoint, "load");
    if (!ofLoad) return ofLoad.status();
    limit.GT = *ofLoad;
    if (!limit.estimate) return limit;
    const auto ofSource = LimitFrom(*sourceMap, source, disjoint, "source");
    if (!ofSource) return ofSource.status();
    limit.GT = std::min(limit.GT, *ofSource);
    return limit;
}

}  // namespace kelvro
