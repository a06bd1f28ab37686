#include <CLI/Option.hpp>
#include <CLI/Validators.hpp>
#include <map>

#include "advise/proposal.h"
#include "cli/commands.h"
#include "cli/design_options.h"
#include "core/number_text.h"
#include "design/pages.h"
#include "io/json_output.h"
#include "io/text_table.h"
#include "optimize/page_optimizer.h"

namespace kelvro {

namespace {

const std::map<std::string, Wishes::Dc> kDcWishes = {
    {"any", Wishes::Dc::Any}, {"pass", Wishes::Dc::Pass}, {"block", Wishes::Dc::Block}};

struct ProposeOptions {
    std::shared_ptr<DesignOptions> inputs;
    Wishes wishes;
    std::string bandwidth;
    std::string dc = "any";
    bool all = false;
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
    wishes.dc = kDcWishes.at(options.dc);
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

Json JsonProposal(const Proposal& proposal) {
    const Page& page = PageOf(proposal.page);
    Json document = {{"page", page.number},        {"key", page.key},
                     {"title", Title(proposal)},   {"suited", proposal.suited},
                     {"reason", proposal.reason},  {"swap_lc", proposal.LCSwapped},
                     {"switch_r", proposal.turned}};
    if (!proposal.suited) return document;
    document.update({{"score", JsonNumber(proposal.score)},
                     {"gt_db", JsonOptional(proposal.gtDb)},
                     {"v", proposal.gtDb ? JsonNumber(proposal.v) : Json(nullptr)},
                     {"passband", JsonPassband(proposal.passband)},
                     {"second_harmonic_db", JsonOptional(proposal.secondHarmonicDb)},
                     {"parts", proposal.parts},
                     {"smallest", JsonPart(proposal.smallest)},
                     {"largest", JsonPart(proposal.largest)},
                     {"practical", proposal.practical}});
    return document;
}

std::string HumanProposals(const std::vector<Proposal>& proposals) {
    std::vector<std::vector<std::string>> rows = {
        {"", "page", "GT/dB", "-3 dB band", "smallest", "largest", "practical"}};
    int rank = 0;
    for (const Proposal& p : proposals) {
        if (!p.suited) continue;
        rows.push_back({std::to_string(++rank) + ".", Title(p),
                        p.gtDb ? FormatFixed(6, 2, *p.gtDb) : "-",
                        p.passband ? FormatQuantity(2, p.passband->width(), "Hz") : "-",
                        p.smallest ? p.smallest->text() : "-", p.largest ? p.largest->text() : "-",
                        p.practical ? "yes" : "no"});
    }
    std::string text = rank > 0 ? AlignedTable(rows) + '\n' : "";
    for (const Proposal& p : proposals) text += Title(p) + ": " + p.reason + '\n';
    return text;
}

ExitCode ReportProposals(const ProposeOptions& options, Session& session) {
    const auto prepared = StateOf(*options.inputs, session);
    if (!prepared) return session.fail(prepared.status());
    OptimizerServices services({.disabled = options.inputs->noOptimize});
    auto proposals = Propose(*prepared, WishesOf(options), services);
    const bool any = !proposals.empty() && proposals.front().suited;
    if (!options.all) std::erase_if(proposals, [](const Proposal& p) { return !p.suited; });
    if (options.json) {
        Json document = Json::array();
        for (const Proposal& proposal : proposals) document.push_back(JsonProposal(proposal));
        session.out << JsonText(document);
    } else {
        session.out << HumanProposals(proposals);
    }
    if (any) return ExitCode::Done;
    return session.fail({ExitCode::Refused, "no page suits these wishes; --all tells why"});
}

}  // namespace

void AddProposeCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand(
        "propose", "Rank the pages for the given inputs and wishes (--q and --v are wishes)");
    auto options = std::make_shared<ProposeOptions>();
    options->inputs = AddInputOptions(*command);
    options->inputs->page = PageOf(1).key;  // inputs only: every page is entered in turn
    Wishes& wishes = options->wishes;
    const std::string group = "Wishes";
    command->add_option("--bandwidth", options->bandwidth, "Bandwidth (Hz), instead of --q")
        ->check(PositiveNumberProblem)
        ->type_name("NUMBER")
        ->excludes("--q")
        ->group(group);
    command->add_option("--dc", options->dc, "DC from source to load: any, pass or block")
        ->check(CLI::IsMember(kDcWishes))
        ->type_name("PATH")
        ->group(group);
    command->add_flag("--harmonics", wishes.suppressHarmonics, "Suppress harmonics")->group(group);
    command->add_flag("--balanced", wishes.balancedOutput, "Balanced output")->group(group);
    command->add_flag("--resistive", wishes.resistive, "Resistive pad")->group(group);
    command->add_flag("--amplifier", wishes.amplifierStage, "Amplifier stage")->group(group);
    command->add_flag("--all", options->all, "Show unsuited pages too, with the reason");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([&session, options] { session.status = ReportProposals(*options, session); });
}

}  // namespace kelvro
