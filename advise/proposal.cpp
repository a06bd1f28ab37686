#include "advise/proposal.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "core/number_text.h"
#include "core/scalar.h"
#include "design/pages.h"

namespace kelvro {

namespace {

const Suggestion& SuggestionOf(const Proposal& proposal) {
    return PageOf(proposal.page).suggestion;
}

std::string CharacterOf(const Proposal& proposal) {
    return std::string(SuggestionOf(proposal).character);
}

// Points for what only pages have.
constexpr double kTurned = 6;
constexpr double kRoleWished = 25;

constexpr double kShortestLine = 1e-3;  // of what can be built, metres
constexpr double kLongestLine = 10;
constexpr double kHighestLoss = 6;  // dB that a match may lose and still be called one

// ---------------------------------------------------------------- facts of a network

bool HasLine(const std::vector<Network>& networks) {
    return std::ranges::any_of(networks, [](const Network& network) {
        return std::ranges::any_of(ListOf(network), &ListedPart::line);
    });
}

/// A capacitance of exactly 0 is one that the design leaves out, an infinite choke one that is
/// chosen so.
bool IsBuilt(const ListedPart& part) {
    return part.value != 0 && !(part.atSupply && std::isinf(part.value));
}

void MeasureParts(Proposal& proposal) {
    const auto networks = PageOf(proposal.state).builtNetworks(proposal.state);
    for (const Network& network : networks) {
        for (const ListedPart& part : ListOf(network)) {
            if (IsBuilt(part)) proposal.add(part, proposal.state.fo);
        }
    }
    const double length = proposal.state.components[Slot::Length];
    if (HasLine(networks) && !(length >= kShortestLine && length <= kLongestLine)) {
        proposal.impractical = "the line would be " + FormatQuantity(1, length, "m") + " long";
    }
    proposal.practical = proposal.impractical.empty();
}

void MeasureResponse(Proposal& proposal) {
    const Page& page = PageOf(proposal.state);
    if (!page.transfer || page.shared != SharedOutputs::All) return;
    const Response response(proposal.state);
    const double fo = proposal.state.fo;
    proposal.gtDb = -proposal.cycle.lossDb;
    proposal.passband = PassbandAround(response, fo);
    proposal.secondHarmonicDb = response.relativeDb(fo) - response.relativeDb(2 * fo);
}

// ---------------------------------------------------------------- candidates

/// The state with the wishes that a page can take as inputs.
Design WishedInputs(const Design& state, const Wishes& wishes, const Page& page) {
    Design wished = state;
    const std::optional<double> bandwidth = wishes.wantedBandwidth(state.fo);
    if (bandwidth) wished.Q = Clamp(state.fo / *bandwidth, page.typedQ.low, page.typedQ.high);
    if (wishes.voltageRatio) wished.v8 = *wishes.voltageRatio;
    return wished;
}

Proposal DesignedAs(Design inputs, const Page& page, bool swapped, CycleServices& services) {
    Proposal proposal;
    proposal.page = page.number;
    inputs.LCSwapped = swapped;
    EnterPage(inputs, page.number);
    proposal.LCSwapped = inputs.LCSwapped;
    proposal.cycle = Calculate(inputs, true, services);
    proposal.state = proposal.cycle.design;
    proposal.v = proposal.cycle.v;
    return proposal;
}

/// The page's design; where it refuses because of the order of R1 and R2, the other way round.
Proposal Designed(const Design& inputs, const Page& page, bool swapped, CycleServices& services) {
    Proposal proposal = DesignedAs(inputs, page, swapped, services);
    if (!proposal.cycle.message || inputs.R1 == inputs.R2) return proposal;
    Design exchanged = inputs;
    std::swap(exchanged.R1, exchanged.R2);
    // The same gain the other way round: v is to √(R2/R1) as before.
    exchanged.v8 *= inputs.R1 / inputs.R2;
    Proposal turned = DesignedAs(exchanged, page, swapped, services);
    if (turned.cycle.message) return proposal;
    turned.turned = true;
    turned.v = turned.cycle.v * inputs.R2 / inputs.R1;
    return turned;
}

// ---------------------------------------------------------------- judgement

/// Why the kind of page does not suit; empty when it does.
std::string WrongRole(const Suggestion& kind, const Design& state, const Wishes& wishes) {
    switch (kind.role) {
        case Role::Other:
            return "it is no matching network";
        case Role::Amplifier:
            if (wishes.resistive) return "it is no resistive network";
            return wishes.amplifierStage ? "" : "no amplifier stage is wanted";
        case Role::Pad:
            if (!wishes.resistive && !wishes.attenuate(state.R1, state.R2))
                return "its resistors would waste power";
            return wishes.balancedOutput ? "its output is not balanced" : "";
        case Role::Balun:
            if (wishes.resistive) return "it is no resistive network";
            return wishes.balancedOutput ? "" : "no balanced output is wanted";
        case Role::Match:
            break;
    }
    if (wishes.resistive) return "it is no resistive network";
    return wishes.balancedOutput && !kind.floats ? "its output is not balanced" : "";
}

/// Why a designed network misses a wish that leaves no choice; empty when it does not.
std::string MissedWish(const Proposal& proposal, const Wishes& wishes) {
    const auto networks = PageOf(proposal.state).builtNetworks(proposal.state);
    if (networks.empty()) return "";
    const Wishes::Dc path = DcPathOf(networks.front());
    if (wishes.dc == Wishes::Dc::Pass && path != Wishes::Dc::Pass) return "it does not pass DC";
    if (wishes.dc == Wishes::Dc::Block && path != Wishes::Dc::Block) return "it does not block DC";
    if (wishes.suppressHarmonics && proposal.secondHarmonicDb &&
        *proposal.secondHarmonicDb < kLeastHarmonicDb) {
        return "at 2·fo it is only " + DecibelWords(*proposal.secondHarmonicDb) + " down";
    }
    const Role role = SuggestionOf(proposal).role;
    if (role != Role::Pad && proposal.gtDb && !(*proposal.gtDb >= -kHighestLoss)) {
        return "it loses " + DecibelWords(-*proposal.gtDb) + " with these inputs";
    }
    return "";
}

double ScoreOf(const Proposal& proposal, const Wishes& wishes) {
    const Role role = SuggestionOf(proposal).role;
    double score = ScoreOf(proposal, wishes, proposal.state.fo, role != Role::Pad);
    if (proposal.turned) score -= kTurned;
    if (role == Role::Amplifier || role == Role::Balun) score += kRoleWished;
    return score;
}

/// Does the band of the page follow the Q that is typed there? Tried with one half as large again.
bool FollowsQ(const Proposal& proposal, double wantedBandwidth, CycleServices& services) {
    constexpr double trial = 1.5;
    constexpr double leastOctaves = 0.07;  // 5 % of the width
    Design other = proposal.state;
    const Limits limits = PageOf(other).typedQ;
    const double Q = Clamp(other.fo / wantedBandwidth, limits.low, limits.high);
    other.Q = Q * trial <= limits.high ? Q * trial : Q / trial;
    const CycleResult cycle = Calculate(other, true, services);
    if (cycle.message) return false;
    const double width = PassbandAround(Response(cycle.design), other.fo).width();
    const double present = proposal.passband->width();
    if (!std::isfinite(width) || !std::isfinite(present)) return false;
    return !(std::fabs(std::log2(width / present)) <= leastOctaves);
}

// ---------------------------------------------------------------- words

std::string BandwidthClause(const Proposal& proposal, const Wishes& wishes,
                            CycleServices& services) {
    if (!proposal.passband) return "";
    const Passband& band = *proposal.passband;
    const bool toDc = band.low == 0;
    const bool open = std::isinf(band.high);
    if (toDc && open) return "";
    std::string clause = SuggestionOf(proposal).role == Role::Balun ? "; its + output is " : "; ";
    // A line matches again at all odd multiples of fo.
    const bool line = HasLine(PageOf(proposal.state).builtNetworks(proposal.state));
    clause += toDc && line ? "within 3 dB from DC to " + FormatQuantity(1, band.high, "Hz")
              : toDc       ? "low-pass up to " + FormatQuantity(1, band.high, "Hz")
              : open       ? "high-pass from " + FormatQuantity(1, band.low, "Hz")
                           : FormatQuantity(1, band.width(), "Hz") + " wide";
    if (const auto wanted = wishes.wantedBandwidth(proposal.state.fo)) {
        clause += " where " + FormatQuantity(1, *wanted, "Hz") + " is wanted";
        if (!FollowsQ(proposal, *wanted, services)) clause += " and cannot be chosen";
    }
    return clause;
}

/// What an amplifier page finds out first: its load resistance.
std::string LoadClause(const Proposal& proposal) {
    const OutputField& field = PageOf(proposal.state).outputs.front();
    const std::string* text = proposal.cycle.text(field.object);
    if (!text) return "";
    return "; " + std::string(field.name) + " is " +
           FormatQuantity(2, ParseValue(*text), field.unit);
}

std::string ReasonOf(const Proposal& proposal, const Wishes& wishes, CycleServices& services) {
    const Suggestion& kind = SuggestionOf(proposal);
    std::string reason = CharacterOf(proposal);
    if (kind.role == Role::Amplifier) reason += LoadClause(proposal);
    if (kind.floats && wishes.balancedOutput) reason += "; its secondary may float";
    if (proposal.parts > 0 && wishes.dc == Wishes::Dc::Pass) reason += "; passes DC";
    if (proposal.parts > 0 && wishes.dc == Wishes::Dc::Block) reason += "; blocks DC";
    if (wishes.suppressHarmonics && proposal.secondHarmonicDb) {
        reason += "; 2·fo is " + DecibelWords(*proposal.secondHarmonicDb) + " down";
    }
    reason += BandwidthClause(proposal, wishes, services);
    if (wishes.voltageRatio && proposal.gtDb) {
        reason += "; v is " + FormatFixed(0, 3, proposal.v);
    }
    if (proposal.turned) reason += "; built from the load's side";
    if (!proposal.practical) reason += "; but " + proposal.impractical;
    return reason + ".";
}

std::string Unsuited(const Proposal& proposal, const std::string& why) {
    return CharacterOf(proposal) + "; not suited: " + why + ".";
}

void Judge(Proposal& proposal, const Wishes& wishes, CycleServices& services) {
    if (proposal.cycle.message) {
        proposal.reason = CharacterOf(proposal) + "; refused: " + *proposal.cycle.message;
        if (!proposal.reason.ends_with('!') && !proposal.reason.ends_with('.'))
            proposal.reason += '.';
        return;
    }
    MeasureParts(proposal);
    MeasureResponse(proposal);
    if (std::string why = MissedWish(proposal, wishes); !why.empty()) {
        proposal.reason = Unsuited(proposal, why);
        return;
    }
    proposal.suited = true;
    proposal.score = ScoreOf(proposal, wishes);
    proposal.reason = ReasonOf(proposal, wishes, services);
}

/// The proposals of one page; pages whose kind is not wanted are not designed.
void AddProposals(std::vector<Proposal>& proposals, const Design& state, const Page& page,
                  const Wishes& wishes, CycleServices& services) {
    const Design inputs = WishedInputs(state, wishes, page);
    if (std::string why = WrongRole(page.suggestion, inputs, wishes); !why.empty()) {
        Proposal& proposal = proposals.emplace_back();
        proposal.page = page.number;
        proposal.state = inputs;
        proposal.reason = Unsuited(proposal, why);
        return;
    }
    for (const bool swapped : {false, true}) {
        if (swapped && !page.mirrored) continue;
        Proposal proposal = Designed(inputs, page, swapped, services);
        // Some pages do not keep the interchange when they are entered.
        if (proposal.LCSwapped != swapped) continue;
        Judge(proposal, wishes, services);
        proposals.push_back(std::move(proposal));
    }
}

}  // namespace

Wishes::Dc DcPathOf(const Network& network) {
    const bool coupled = std::ranges::any_of(network.ladder, [](const LadderElement& element) {
        return std::holds_alternative<CoupledCoils>(element.is);
    });
    if (coupled) return Wishes::Dc::Block;
    const auto is = [](Place place, PartKind kind) {
        return [=](const ListedPart& part) {
            return !part.branch && !part.atSupply && part.place == place && part.kind == kind;
        };
    };
    const std::vector<ListedPart> parts = ListOf(network);
    if (std::ranges::any_of(parts, is(Place::Series, PartKind::Capacitor))) {
        return Wishes::Dc::Block;
    }
    // A coil across the path shorts it for DC: neither passed nor kept away from the load's side.
    if (std::ranges::any_of(parts, is(Place::Shunt, PartKind::Inductor))) return Wishes::Dc::Any;
    // A path that begins at no source, or splits, is none from the source to the load.
    const bool path = !network.source.isNothing() && !HasBranch(network);
    return path ? Wishes::Dc::Pass : Wishes::Dc::Any;
}

std::vector<Proposal> Propose(const Design& state, const Wishes& wishes, CycleServices& services) {
    std::vector<Proposal> proposals;
    for (const Page& page : Pages()) AddProposals(proposals, state, page, wishes, services);
    std::ranges::stable_sort(proposals, RanksBefore);
    return proposals;
}

std::string Title(const Proposal& proposal) {
    std::string title(PageOf(proposal.page).caption);
    if (proposal.LCSwapped) title += ", L and C interchanged";
    if (proposal.turned) title += ", R1 and R2 switched";
    return title;
}

void Apply(const Proposal& proposal, Design& state, bool exchange) {
    const Design& designed = proposal.state;
    if (proposal.turned && exchange) std::swap(state.R1, state.R2);
    state.Q = designed.Q;
    state.v8 = designed.v8;
    state.LCSwapped = proposal.LCSwapped;
}

}  // namespace kelvro
