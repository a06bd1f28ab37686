#include "synthesis/exact_match.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/exact_number.h"
#include "core/number_text.h"
#include "core/scalar.h"
#include "network/coverage.h"
#include "network/ladder_response.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

/// A reactance or susceptance below this part of those around it is rounding, not a part.
constexpr double kVanishing = 1e-9;
/// How far rounding carries a root that should be 0: products of resistances this close to 1 count
/// as 1. Its square root is well above kVanishing.
constexpr double kEqual = 1e-12;

/// A purely reactive arm: X in ohm in series or B in siemens across.
struct ReactiveArm {
    Place place;
    double value;
};

using Arms = std::vector<ReactiveArm>;

/// Terminations at the frequency of the match.
struct Ends {
    Cx ZS, ZL, YS, YL;

    double ohms() const { return std::abs(ZS) + std::abs(ZL); }
    double siemens() const { return std::abs(YS) + std::abs(YL); }
    bool vanishes(const ReactiveArm& arm) const {
        const double scale = arm.place == Place::Series ? ohms() : siemens();
        return std::abs(arm.value) < kVanishing * scale;
    }
};

/// Both signs of sqrt(a² - b²)-like roots; one where it vanishes.
std::vector<double> Signed(double root) {
    return root == 0 ? std::vector{0.0} : std::vector{root, -root};
}

/// sqrt(1/product - 1) for 0 < product <= 1, nothing beyond.
std::optional<double> Root(double product) {
    if (std::abs(product - 1) < kEqual) return 0;
    if (!(product > 0 && product < 1)) return std::nullopt;
    return std::sqrt(1 / product - 1);
}

/// D. M. Pozar, Microwave Engineering, section 5.1: with a series arm at the source the load's
/// conductance has to turn into RS, B' = ±sqrt(GL/RS - GL²); with a shunt arm there the load's
/// resistance into GS, X' = ±sqrt(RL/GS - RL²).
std::vector<Arms> LSections(const Ends& ends) {
    std::vector<Arms> sections;
    const double RS = ends.ZS.real();
    const double GL = ends.YL.real();
    if (const auto root = Root(GL * RS)) {
        for (const double Q : Signed(*root)) {
            sections.push_back({{Place::Series, -ends.ZS.imag() + Q * RS},
                                {Place::Shunt, Q * GL - ends.YL.imag()}});
        }
    }
    const double RL = ends.ZL.real();
    const double GS = ends.YS.real();
    if (const auto root = Root(RL * GS)) {
        for (const double Q : Signed(*root)) {
            sections.push_back({{Place::Shunt, -ends.YS.imag() + Q * GS},
                                {Place::Series, Q * RL - ends.ZL.imag()}});
        }
    }
    return sections;
}

/// Two L sections back to back, which meet at a resistance below both parallel ones (pi) or above
/// both series ones (t): C. Bowick, RF Circuit Design, chapter 4. The middle arms of both merge;
/// signs that let them cancel leave no such section.
std::vector<Arms> ThreeArmSections(MatchTopology topology, const Ends& ends, double Q) {
    const bool pi = topology == MatchTopology::Pi;
    const Cx atSource = pi ? ends.YS : ends.ZS;
    const Cx atLoad = pi ? ends.YL : ends.ZL;
    // Of a pi everything below is its admittances, of a t its impedances.
    const double least = std::min(atSource.real(), atLoad.real());
    const double middle = least * (1 + Q * Q);
    const auto sourceQ = Root(atSource.real() / middle);
    const auto loadQ = Root(atLoad.real() / middle);
    std::vector<Arms> sections;
    if (!sourceQ || !loadQ) return sections;
    const Place end = pi ? Place::Shunt : Place::Series;
    const Place between = pi ? Place::Series : Place::Shunt;
    for (const double q1 : Signed(*sourceQ)) {
        for (const double q2 : Signed(*loadQ)) {
            if (std::abs(q1 + q2) <= kVanishing * Q) continue;
            sections.push_back({{end, q1 * atSource.real() - atSource.imag()},
                                {between, (q1 + q2) / middle},
                                {end, q2 * atLoad.real() - atLoad.imag()}});
        }
    }
    return sections;
}

Part PartOf(const ReactiveArm& arm, double f) {
    const double omega = kTwoPi * f;
    const bool inductor = (arm.place == Place::Series) == (arm.value > 0);
    const double size = std::abs(arm.value);
    const bool series = arm.place == Place::Series;
    if (inductor) return Part::L(series ? size / omega : 1 / (omega * size));
    return Part::C(series ? 1 / (omega * size) : size / omega);
}

std::vector<LadderElement> LadderOf(const Arms& arms, double f) {
    std::vector<LadderElement> ladder;
    for (const ReactiveArm& arm : arms) {
        ladder.push_back(arm.place == Place::Series ? SeriesArm(PartOf(arm, f))
                                                    : ShuntArm(PartOf(arm, f)));
    }
    return ladder;
}

bool SameArms(const Arms& a, const Arms& b) {
    return std::ranges::equal(a, b, [](const ReactiveArm& x, const ReactiveArm& y) {
        return x.place == y.place &&
               std::abs(x.value - y.value) <= 1e-9 * (std::abs(x.value) + std::abs(y.value));
    });
}

std::optional<std::string> EndProblem(const char* name, Cx Z, double f) {
    if (Z.real() > 0 && std::isfinite(std::abs(Z))) return std::nullopt;
    const std::string at = " at " + FormatQuantity(3, f, "Hz");
    if (!std::isfinite(std::abs(Z))) return std::string("the ") + name + " is open" + at;
    return std::string("the ") + name + " has " + FormatQuantity(3, Z.real(), "Ω") + at +
           "; only a resistance above 0 can be matched";
}

/// A match with what is said about it.
ExactMatch Judged(Network network, std::vector<LadderElement> ladder) {
    ExactMatch match;
    match.network = std::move(network);
    match.network.ladder = std::move(ladder);
    match.dc = DcPathOf(match.network.ladder);
    const LadderResponse response(match.network);
    match.GT = response.GT(match.network.designFrequency);
    match.width = PassbandAround([&](double f) { return 10 * std::log10(response.GT(f)); },
                                 match.network.designFrequency, 1);
    return match;
}

/// Q of pi and t: as given, or chosen.
Result<double> ChosenQ(const ExactMatchOptions& options, const Ends& ends) {
    if (options.topology == MatchTopology::L) return 0.0;
    const double lowest = LowestQ(options.topology, ends.ZS, ends.ZL);
    if (!options.Q) return std::max(2.0, 2 * lowest);
    if (*options.Q >= lowest * (1 - kEqual) && *options.Q > 0) return std::max(*options.Q, lowest);
    return Status::Failure("these resistances need a Q of " + FormatPrefixed(lowest, 4) +
                           " or more, not " + FormatPrefixed(*options.Q, 4));
}

}  // namespace

double LowestQ(MatchTopology topology, Cx ZS, Cx ZL) {
    if (topology == MatchTopology::L) return 0;
    const bool pi = topology == MatchTopology::Pi;
    const double a = pi ? (1.0 / ZS).real() : ZS.real();
    const double b = pi ? (1.0 / ZL).real() : ZL.real();
    return std::sqrt(std::max(a, b) / std::min(a, b) - 1);
}

Result<std::vector<ExactMatch>> ExactMatches(const Termination& source, const Termination& load,
                                             double f, const ExactMatchOptions& options) {
    const Network bare{source, {}, load, f};
    if (const Status covered = CheckRange(bare, f, f); !covered) return covered;
    Ends ends{impedance(source, f), impedance(load, f), {}, {}};
    if (const auto problem = EndProblem("source", ends.ZS, f)) return Status::Failure(*problem);
    if (const auto problem = EndProblem("load", ends.ZL, f)) return Status::Failure(*problem);
    ends.YS = 1.0 / ends.ZS;
    ends.YL = 1.0 / ends.ZL;
    const auto Q = ChosenQ(options, ends);
    if (!Q.ok()) return Q.status();
    auto sections = options.topology == MatchTopology::L
                        ? LSections(ends)
                        : ThreeArmSections(options.topology, ends, *Q);
    std::vector<ExactMatch> matches;
    std::vector<Arms> known;
    for (Arms& arms : sections) {
        std::erase_if(arms, [&](const ReactiveArm& arm) { return ends.vanishes(arm); });
        if (std::ranges::any_of(known, [&](const Arms& other) { return SameArms(arms, other); })) {
            continue;
        }
        matches.push_back(Judged(bare, LadderOf(arms, f)));
        known.push_back(std::move(arms));
    }
    return matches;
}

DcPath DcPathOf(const std::vector<LadderElement>& ladder) {
    DcPath path = DcPath::Passed;
    for (const LadderElement& element : ladder) {
        const auto* arm = std::get_if<Arm>(&element.is);
        const auto* line = std::get_if<Line>(&element.is);
        const auto* part = arm ? std::get_if<Part>(&arm->impedance.is) : nullptr;
        const bool capacitor = part && part->kind == PartKind::Capacitor;
        if (capacitor && arm->place == Place::Series) return DcPath::Blocked;
        const bool shorted = (part && !capacitor && arm->place == Place::Shunt) ||
                             (line && line->form == Line::Form::ShortedStub) ||
                             std::holds_alternative<Transformer>(element.is) ||
                             std::holds_alternative<CoupledCoils>(element.is);
        if (shorted) path = DcPath::Grounded;
    }
    return path;
}

}  // namespace kelvro
