#include "advise/network_proposal.h"

#include <algorithm>
#include <cmath>

#include "advise/page_problem.h"
#include "core/number_text.h"
#include "network/ladder_response.h"
#include "network/network_text.h"

namespace kelvro {

namespace {

constexpr int kShownDigits = 4;
constexpr double kHalfPowerDb = 3.0102999566398120;

DcWish DcWishOf(Wishes::Dc dc) {
    return dc == Wishes::Dc::Pass    ? DcWish::Pass
           : dc == Wishes::Dc::Block ? DcWish::Block
                                     : DcWish::Any;
}

std::string LadderWords(const Network& network) {
    std::string text;
    for (const LadderElement& element : network.ladder) {
        text += (text.empty() ? "" : "; ") + ElementText(element, kShownDigits);
    }
    return text.empty() ? "A straight connection" : text;
}

std::string ReasonOf(const NetworkProposal& proposal, const Wishes& wishes) {
    const FrequencyBand& band = proposal.found.network.bands.front();
    std::string reason = LadderWords(proposal.found.network) + "; GT at least " +
                         FormatFixed(0, 2, 10 * std::log10(proposal.found.worstGT)) + " dB from " +
                         FormatQuantity(1, band.low, "Hz") + " to " +
                         FormatQuantity(1, band.high, "Hz");
    if (wishes.dc == Wishes::Dc::Pass) reason += "; passes DC";
    if (wishes.dc == Wishes::Dc::Block) reason += "; blocks DC";
    if (wishes.suppressHarmonics) {
        reason += "; 2·fo is " + DecibelWords(*proposal.secondHarmonicDb) + " down";
    }
    if (!proposal.practical) reason += "; but " + proposal.impractical;
    return reason + ".";
}

NetworkProposal Judged(const WishedSearch& search, const FoundNetwork& found) {
    NetworkProposal proposal;
    proposal.found = found;
    proposal.suited = true;
    const double fo = search.problem.designFrequency;
    // The search does not name its parts.
    for (ListedPart part : ListOf(found.network)) {
        if (part.name.empty()) part.name = part.kind == PartKind::Inductor ? "L" : "C";
        proposal.add(part, fo);
    }
    const LadderResponse response(found.network);
    const auto gainDb = [&](double f) { return 10 * std::log10(response.GT(f)); };
    proposal.gtDb = gainDb(fo);
    proposal.passband = PassbandAround(gainDb, fo, kHalfPowerDb);
    proposal.secondHarmonicDb = *proposal.gtDb - gainDb(2 * fo);
    const double R1 = impedance(search.problem.source, fo).real();
    const double R2 = impedance(search.problem.load, fo).real();
    proposal.v = std::sqrt(response.GT(fo) * R2 / R1);
    proposal.score = ScoreOf(proposal, search.wishes, fo, true);
    proposal.reason = ReasonOf(proposal, search.wishes);
    return proposal;
}

}  // namespace

bool WishedSearch::operator==(const WishedSearch& other) const {
    return problem == other.problem && options == other.options && wishes.dc == other.wishes.dc &&
           wishes.suppressHarmonics == other.wishes.suppressHarmonics &&
           wishes.voltageRatio == other.wishes.voltageRatio;
}

Result<WishedSearch> SearchFor(const Design& state, const Wishes& wishes) {
    if (wishes.resistive || wishes.balancedOutput || wishes.amplifierStage ||
        wishes.attenuate(state.R1, state.R2)) {
        return Status::Failure("the search finds lossless matches from one pole to one pole");
    }
    WishedSearch search;
    search.wishes = wishes;
    search.problem.source = state.R1;
    search.problem.load = state.R2;
    search.problem.designFrequency = state.fo;
    const auto wanted = wishes.wantedBandwidth(state.fo);
    search.problem.bands = {BandAround(state.fo, wanted ? *wanted : state.fo / state.Q)};
    search.options.losses = LossesOf(state);
    search.options.dc = DcWishOf(wishes.dc);
    search.options.inductance = {kInductance.low, kInductance.high};
    search.options.capacitance = {kCapacitance.low, kCapacitance.high};
    if (wishes.suppressHarmonics) search.options.harmonics = {{2, -kLeastHarmonicDb}};
    return search;
}

std::vector<NetworkProposal> ProposeNetworks(const WishedSearch& search,
                                             const std::vector<FoundNetwork>& networks) {
    std::vector<NetworkProposal> proposals;
    for (const FoundNetwork& found : networks) {
        if (found.front && found.parts > 0) proposals.push_back(Judged(search, found));
    }
    std::ranges::stable_sort(proposals, std::greater{}, &NetworkProposal::score);
    return proposals;
}

std::string Title(const NetworkProposal& proposal) {
    const int parts = proposal.found.parts;
    return "Search, " + std::to_string(parts) + (parts == 1 ? " part" : " parts");
}

}  // namespace kelvro
