#include <CLI/Option.hpp>
#include <CLI/Validators.hpp>
#include <algorithm>
#include <map>

#include "advise/network_proposal.h"
#include "advise/proposal.h"
#include "cli/commands.h"
#include "cli/design_options.h"
#include "core/number_text.h"
#include "design/pages.h"
#include "io/json_output.h"
#include "io/text_table.h"
#include "network/network_text.h"
#include "optimize/page_optimizer.h"

namespace kelvro {

namespace {

const std::map<std::string, Wishes::Dc> kDcChoices = {
    {"any", Wishes::Dc::Any}, {"pass", Wishes::Dc::Pass}, {"block", Wishes::Dc::Block}};

struct ProposeOptions {
    std::shared_ptr<DesignOptions> inputs;
    Wishes wishes;
    std::string bandwidth;
    std::string dc = "any";
    bool all = false;
    bool search = false;
    bool json = false;
};

/// The wishes of the options. Q and v are inputs of pages as well; given here they are wishes.
Wishes WishesOf(const ProposeOptions& options) {
    Wishes wishes = options.wishes;
    const auto given = [&](const std::string& name) -> std::optional<double> {
        const auto text = options.inputs->inputs.find(name);
        if (text == options.inputs->inputs.end() || text->second.empty()) return std::nullopt;
        return ParseValue(text->second);
    };
    wishes.Q = given("q");
    wishes.voltageRatio = given("v");
    if (!options.bandwidth.empty()) wishes.bandwidth = ParseValue(options.bandwidth);
    wishes.dc = kDcChoices.at(options.dc);
    return wishes;
}

Json JsonOptional(const std::optional<double>& value) {
    return value ? JsonNumber(*value) : Json(nullptr);
}

Json JsonPart(const std::optional<SizedPart>& part) {
    if (!part) return nullptr;
    return {{"name", part->name},
            {"value", JsonNumber(part->value)},
            {"unit", part->unit},
            {"impedance", JsonNumber(part->impedance)}};
}

Json JsonPassband(const std::optional<Passband>& band) {
    if (!band) return nullptr;
    return {{"low", JsonNumber(band->low)},
            {"high", JsonNumber(band->high)},
            {"width", JsonNumber(band->width())}};
}

/// What pages and found networks have in common.
Json JsonCircuit(const RankedCircuit& circuit) {
    return {{"score", JsonNumber(circuit.score)},
            {"gt_db", JsonOptional(circuit.gtDb)},
            {"v", circuit.gtDb ? JsonNumber(circuit.v) : Json(nullptr)},
            {"passband", JsonPassband(circuit.passband)},
            {"second_harmonic_db", JsonOptional(circuit.secondHarmonicDb)},
            {"parts", circuit.parts},
            {"smallest", JsonPart(circuit.smallest)},
            {"largest", JsonPart(circuit.largest)},
            {"practical", circuit.practical}};
}

Json JsonProposal(const NetworkProposal& proposal) {
    Json document = {{"page", nullptr},
                     {"title", Title(proposal)},
                     {"suited", true},
                     {"reason", proposal.reason}};
    for (const LadderElement& element : proposal.found.network.ladder) {
        document["elements"].push_back(ElementText(element));
    }
    document.update(JsonCircuit(proposal));
    return document;
}

Json JsonProposal(const Proposal& proposal) {
    const Page& page = PageOf(proposal.page);
    Json document = {{"page", page.number},        {"key", page.key},
                     {"title", Title(proposal)},   {"suited", proposal.suited},
                     {"reason", proposal.reason},  {"swap_lc", proposal.LCSwapped},
                     {"switch_r", proposal.turned}};
    if (!proposal.suited) return document;
    document.update(JsonCircuit(proposal));
    return document;
}

/// A page or a found network in the ranking.
struct Ranked {
    const RankedCircuit* circuit;
    std::string title;
    Json json;
};

std::vector<Ranked> RankedOf(const std::vector<Proposal>& pages,
                             const std::vector<NetworkProposal>& networks) {
    std::vector<Ranked> ranked;
    ranked.reserve(pages.size() + networks.size());
    for (const Proposal& page : pages) {
        ranked.push_back({&page, Title(page), JsonProposal(page)});
    }
    for (const NetworkProposal& network : networks) {
        ranked.push_back({&network, Title(network), JsonProposal(network)});
    }
    std::ranges::stable_sort(ranked, [](const Ranked& a, const Ranked& b) {
        return RanksBefore(*a.circuit, *b.circuit);
    });
    return ranked;
}

std::string HumanProposals(const std::vector<Ranked>& proposals) {
    std::vector<std::vector<std::string>> rows = {
        {"", "page", "GT/dB", "-3 dB band", "smallest", "largest", "practical"}};
    int rank = 0;
    for (const Ranked& ranked : proposals) {
        const RankedCircuit& p = *ranked.circuit;
        if (!p.suited) continue;
        rows.push_back({std::to_string(++rank) + ".", ranked.title,
                        p.gtDb ? FormatFixed(6, 2, *p.gtDb) : "-",
                        p.passband ? FormatQuantity(2, p.passband->width(), "Hz") : "-",
                        p.smallest ? p.smallest->text() : "-", p.largest ? p.largest->text() : "-",
                        p.practical ? "yes" : "no"});
    }
    std::string text = rank > 0 ? AlignedTable(rows) + '\n' : "";
    for (const Ranked& p : proposals) text += p.title + ": " + p.circuit->reason + '\n';
    return text;
}

/// Found networks; none where the wishes are for what the search does not find.
std::vector<NetworkProposal> Searched(const Design& state, const Wishes& wishes) {
    const auto search = SearchFor(state, wishes);
    if (!search) return {};
    const auto found = SearchNetworks(search->problem, search->options);
    return found ? ProposeNetworks(*search, found->networks) : std::vector<NetworkProposal>();
}

ExitCode ReportProposals(const ProposeOptions& options, Session& session) {
    const auto prepared = StateOf(*options.inputs, session);
    if (!prepared) return session.fail(prepared.status());
    OptimizerServices services({.disabled = options.inputs->noOptimize});
    auto proposals = Propose(*prepared, WishesOf(options), services);
    const auto networks =
        options.search ? Searched(*prepared, WishesOf(options)) : std::vector<NetworkProposal>();
    const bool any = !networks.empty() || (!proposals.empty() && proposals.front().suited);
    if (!options.all) std::erase_if(proposals, [](const Proposal& p) { return !p.suited; });
    const std::vector<Ranked> ranked = RankedOf(proposals, networks);
    if (options.json) {
        Json document = Json::array();
        for (const Ranked& proposal : ranked) document.push_back(proposal.json);
        session.out << JsonText(document);
    } else {
        session.out << HumanProposals(ranked);
    }
    if (any) return ExitCode::Done;
    return session.fail({ExitCode::Refused, "no page suits these wishes; --all tells why"});
}

}  // namespace

void AddProposeCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand(
        "propose", "Rank the pages for the given inputs and wishes (--q and --v are wishes)");
    auto options = std::make_shared<ProposeOptions>();
    options->inputs = AddInputOptions(*command, session);
    options->inputs->page = PageOf(1).key;  // inputs only: every page is entered in turn
    options->inputs->everyPage = true;
    Wishes& wishes = options->wishes;
    const std::string group = "Wishes";
    CLI::Option* bandwidth =
        command->add_option("--bandwidth", options->bandwidth, "Bandwidth (Hz), instead of --q")
            ->check(PositiveNumberProblem)
            ->type_name("NUMBER")
            ->group(group);
    if (session.mentions("q")) bandwidth->excludes("--q");
    command->add_option("--dc", options->dc, "DC from source to load: any, pass or block")
        ->check(CLI::IsMember(kDcChoices))
        ->type_name("PATH")
        ->group(group);
    command->add_flag("--harmonics", wishes.suppressHarmonics, "Suppress harmonics")->group(group);
    command->add_flag("--balanced", wishes.balancedOutput, "Balanced output")->group(group);
    command->add_flag("--resistive", wishes.resistive, "Resistive pad")->group(group);
    command->add_flag("--amplifier", wishes.amplifierStage, "Amplifier stage")->group(group);
    command->add_flag("--all", options->all, "Show unsuited pages too, with the reason");
    command->add_flag("--search", options->search,
                      "Rank the best ladders of up to four parts beside the pages");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([&session, options] { session.status = ReportProposals(*options, session); });
}

}  // namespace kelvro
