#include <CLI/CLI.hpp>
#include <cmath>
#include <map>

#include "cli/design_options.h"
#include "cli/match_options.h"
#include "core/number_text.h"
#include "io/json_output.h"
#include "io/text_table.h"
#include "network/network_text.h"
#include "synthesis/exact_match.h"

namespace kelvro {

namespace {

/// Digits of the values in texts; JSON has all of them beside.
constexpr int kExactDigits = 5;

const std::map<std::string, MatchTopology> kTopologies = {
    {"l", MatchTopology::L}, {"pi", MatchTopology::Pi}, {"t", MatchTopology::T}};

/// Rounding makes a lossless match a little more or less than perfect.
double GainDb(const ExactMatch& match) {
    const double dB = 10 * std::log10(match.GT);
    return std::abs(dB) < 1e-9 ? 0 : dB;
}

const char* DcText(DcPath path) {
    switch (path) {
        case DcPath::Passed:
            return "passed";
        case DcPath::Blocked:
            return "blocked";
        default:
            return "grounded";
    }
}

Json JsonValue(const LadderElement& element) {
    const Arm& arm = std::get<Arm>(element.is);
    const Part& part = std::get<Part>(arm.impedance.is);
    return {{"place", arm.place == Place::Series ? "series" : "shunt"},
            {"kind", std::string(1, LetterOf(part.kind))},
            {"value", JsonNumber(part.value)}};
}

Json JsonMatch(const ExactMatch& match) {
    Json elements = Json::array();
    Json values = Json::array();
    for (const LadderElement& element : match.network.ladder) {
        elements.push_back(ElementText(element, kExactDigits));
        values.push_back(JsonValue(element));
    }
    return {{"elements", elements},
            {"values", values},
            {"gt_db", JsonNumber(GainDb(match))},
            {"dc", DcText(match.dc)},
            {"band_1db",
             {{"low", JsonNumber(match.width.low)},
              {"high", JsonNumber(match.width.high)},
              {"width", JsonNumber(match.width.width())}}}};
}

std::string HumanMatches(const std::vector<ExactMatch>& matches) {
    TextRows rows = {{"", "elements from source to load", "GT/dB", "DC", "1 dB band"}};
    for (std::size_t i = 0; i < matches.size(); ++i) {
        const ExactMatch& match = matches[i];
        std::string elements;
        for (const LadderElement& element : match.network.ladder) {
            elements += (elements.empty() ? "" : "; ") + ElementText(element, kExactDigits);
        }
        const auto edge = [](double f) { return f > 0 ? FormatQuantity(3, f, "Hz") : "DC"; };
        rows.push_back({std::to_string(i + 1) + '.',
                        elements.empty() ? "none: matched as they are" : elements,
                        FormatFixed(0, 3, GainDb(match)), DcText(match.dc),
                        edge(match.width.low) + " to " + edge(match.width.high)});
    }
    return AlignedTable(rows);
}

}  // namespace

void AddExactMatchOptions(CLI::App& command, MatchOptions& options) {
    command.add_option("--topology", options.topology, "Exact matches: l, pi or t")
        ->capture_default_str()
        ->check(CLI::IsMember(kTopologies))
        ->type_name("SHAPE");
    command
        .add_option("--q", options.Q,
                    "Q of pi and t at the end with the larger (pi) or smaller (t) resistance; "
                    "default twice the lowest possible")
        ->check(PositiveNumberProblem)
        ->type_name("NUMBER");
}

ExitCode MatchAtFrequency(const MatchOptions& options, Session& session) {
    const MatchTopology topology = kTopologies.at(options.topology);
    if (topology == MatchTopology::L && !options.Q.empty()) {
        return session.fail({ExitCode::Usage, "--q is for --topology pi or t"});
    }
    const double f = ParseValue(options.at);
    if (!std::isfinite(f)) return session.fail({ExitCode::Usage, "--at: too large"});
    const auto read = NetworkOf(options.ends, session);
    if (!read) return session.fail(read.status());
    const auto& ends = *read;
    ExactMatchOptions wanted{topology, {}};
    if (!options.Q.empty()) wanted.Q = ParseValue(options.Q);
    const auto matches = ExactMatches(ends.source, ends.load, f, wanted);
    if (!matches.ok()) return session.fail({ExitCode::Refused, matches.message()});
    KeepDataWarnings(ends, f, f, session);
    if (options.json) {
        Json networks = Json::array();
        for (const ExactMatch& match : *matches) networks.push_back(JsonMatch(match));
        session.out << JsonText({{"f", f}, {"networks", networks}});
    } else {
        session.out << HumanMatches(*matches);
    }
    return ExitCode::Done;
}

}  // namespace kelvro
