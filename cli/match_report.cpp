#include "cli/match_report.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

#include "core/number_text.h"
#include "io/json_output.h"
#include "io/text_table.h"
#include "network/network_text.h"

namespace kelvro {

namespace {

constexpr int kShownDigits = 4;

double Decibels(double ratio) {
    return 10 * std::log10(ratio);
}

std::vector<std::string> ElementTexts(const Network& network, int digits) {
    std::vector<std::string> texts;
    for (const LadderElement& element : network.ladder) {
        texts.push_back(ElementText(element, digits));
    }
    return texts;
}

std::string Joined(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) joined += (joined.empty() ? "" : "; ") + text;
    return joined.empty() ? "nothing: a straight connection" : joined;
}

/// Numbers of one element: what they are and their values in SI units, angles in degrees.
struct ElementValues {
    const char* place;
    const char* connection = "single";
    std::vector<std::pair<std::string, double>> parts = {};
};

ElementValues ValuesOf(const LadderElement& element) {
    if (const auto* line = std::get_if<Line>(&element.is)) {
        const char* places[] = {"line", "open", "short"};
        return {places[static_cast<std::size_t>(line->form)],
                "single",
                {{"Z0", line->Z0}, {"degrees", line->length.degrees}}};
    }
    if (const auto* transformer = std::get_if<Transformer>(&element.is)) {
        return {"transformer", "single", {{"n", transformer->n}}};
    }
    const auto& arm = std::get<Arm>(element.is);
    ElementValues values{arm.place == Place::Series ? "series" : "shunt"};
    const auto add = [&](const Impedance& impedance) {
        const auto& part = std::get<Part>(impedance.is);
        values.parts.emplace_back(std::string(1, LetterOf(part.kind)), part.value);
    };
    if (const auto* group = std::get_if<Impedance::Group>(&arm.impedance.is)) {
        values.connection = group->parallel ? "parallel" : "series";
        for (const Impedance& member : group->members) add(member);
    } else {
        add(arm.impedance);
    }
    return values;
}

Json JsonValues(const Network& network) {
    Json all = Json::array();
    for (const LadderElement& element : network.ladder) {
        const ElementValues values = ValuesOf(element);
        Json parts = Json::array();
        for (const auto& [kind, value] : values.parts) {
            parts.push_back({{"kind", kind}, {"value", JsonNumber(value)}});
        }
        all.push_back(
            {{"place", values.place}, {"connection", values.connection}, {"parts", parts}});
    }
    return all;
}

Json JsonYield(const YieldReport& report, const Network& network) {
    Json parts = Json::array();
    for (const PartSensitivity& part : report.parts) {
        parts.push_back(
            {{"part", NameOf(network.ladder, part.part)}, {"cost_db", JsonNumber(part.costDb)}});
    }
    return {{"yield", JsonNumber(report.yield)},
            {"low", JsonNumber(report.low)},
            {"high", JsonNumber(report.high)},
            {"quantile10_db", JsonNumber(Decibels(report.quantile10))},
            {"parts", parts}};
}

Json JsonNetwork(const RatedNetwork& matched) {
    const FoundNetwork& found = matched.found;
    Json document = {{"elements", ElementTexts(found.network, 0)},
                     {"values", JsonValues(found.network)},
                     {"worst_db", JsonNumber(Decibels(found.worstGT))},
                     {"mean_db", JsonNumber(Decibels(found.meanGT))},
                     {"parts", found.parts},
                     {"front", found.front},
                     {"standard", nullptr},
                     {"yield", nullptr},
                     {"tolerance", nullptr}};
    if (matched.standard) {
        document["standard"] = {{"elements", ElementTexts(matched.standard->network, 0)},
                                {"values", JsonValues(matched.standard->network)},
                                {"worst_db", JsonNumber(Decibels(matched.standard->worstGT))},
                                {"rounded_db", JsonNumber(Decibels(matched.standard->roundedGT))}};
    }
    if (matched.yield) {
        document["yield"] = JsonNumber(matched.yield->yield);
        document["tolerance"] = JsonYield(*matched.yield, found.network);
    }
    return document;
}

std::string PercentText(double fraction) {
    return FormatFixed(0, 1, 100 * fraction) + " %";
}

std::string NetworkTable(const MatchReport& report) {
    std::vector<std::vector<std::string>> rows = {
        {"", "parts", "worst/dB", "mean/dB", "yield", "from source to load"}};
    int rank = 0;
    for (const RatedNetwork& matched : report.rating.networks) {
        const FoundNetwork& found = matched.found;
        rows.push_back({std::to_string(++rank) + (found.front ? ".*" : "."),
                        std::to_string(found.parts), FormatFixed(8, 3, Decibels(found.worstGT)),
                        FormatFixed(7, 3, Decibels(found.meanGT)),
                        matched.yield ? PercentText(matched.yield->yield) : "-",
                        Joined(ElementTexts(found.network, kShownDigits))});
    }
    return AlignedTable(rows);
}

std::string StandardTable(const MatchReport& report) {
    std::vector<std::vector<std::string>> rows = {
        {"", "worst/dB", "rounded/dB", report.series + " values"}};
    int rank = 0;
    for (const RatedNetwork& matched : report.rating.networks) {
        ++rank;
        if (!matched.standard) continue;
        rows.push_back({std::to_string(rank) + ".",
                        FormatFixed(8, 3, Decibels(matched.standard->worstGT)),
                        FormatFixed(10, 3, Decibels(matched.standard->roundedGT)),
                        Joined(ElementTexts(matched.standard->network, kShownDigits))});
    }
    return rows.size() > 1 ? "\n" + AlignedTable(rows) : std::string();
}

std::string CentredText(const MatchReport& report) {
    if (!report.centred) return {};
    const auto& [network, before, after] = *report.centred;
    return "\nCentred: yield " + PercentText(before.yield) + " before, " +
           PercentText(after.yield) + " after; 90 % of the builds keep " +
           FormatFixed(0, 3, Decibels(before.quantile10)) + " dB before, " +
           FormatFixed(0, 3, Decibels(after.quantile10)) + " dB after\n  " +
           Joined(ElementTexts(network, kShownDigits)) + '\n';
}

}  // namespace

Network MatchReport::best() const {
    if (centred) return centred->network;
    return rating.networks.front().asBuilt();
}

Outcome<OwnedParts> OwnedPartsOf(const std::string& file) {
    if (file.empty()) return OwnedParts{};
    std::ifstream stream(file);
    std::ostringstream text;
    if (!stream || !(text << stream.rdbuf())) {
        return Problem{ExitCode::Failed, file + " cannot be read"};
    }
    auto parts = ParseOwnedParts(text.str());
    if (!parts) return Problem{ExitCode::Usage, file + ": " + parts.message()};
    return *std::move(parts);
}

MatchReport ReportOn(const Network& problem, const SearchOptions& search,
                     const SearchResult& result, const MatchBandOptions& options,
                     const OwnedParts& owned) {
    MatchReport report;
    const bool fromList = owned != OwnedParts();
    report.series = fromList ? "owned" : options.series;
    const auto series = SeriesByName(options.series).value_or(Series::None);
    RatingOptions rating;
    if (!report.series.empty()) {
        rating.standard = {.inductors = series,
                           .capacitors = series,
                           .owned = owned,
                           .inductance = search.inductance,
                           .capacitance = search.capacitance};
    }
    YieldOptions& yield = rating.yield;
    yield.tolerances.capacitance = ClampTolerance(ParseValue(options.capacitorTolerance));
    yield.tolerances.inductance = ClampTolerance(ParseValue(options.coilTolerance));
    yield.seed = options.seed;
    if (!options.yieldLimit.empty()) rating.yieldLimitDb = ParseValue(options.yieldLimit);
    report.rating = Rated(result.networks, rating);
    if (const auto limit = GainLimitOf(problem.source, problem.load, problem.bands)) {
        report.limit = LimitBeside(*limit, result.networks.front().worstGT);
    }
    yield.leastGT = report.rating.leastGT;
    if (options.centre) {
        if (const auto centred = Centred(report.best(), yield)) report.centred = *centred;
    }
    return report;
}

std::string LimitText(const GainLimit& limit) {
    const double dB = Decibels(limit.GT);
    // Not "-0.0000": what rounds to nothing is a perfect match.
    const std::string value = FormatFixed(0, 4, dB > -5e-5 ? 0.0 : dB) + " dB";
    if (!limit.estimate) return "No lossless network does better than " + value + ".\n";
    return "The limit of lossless networks is about " + value +
           " (an estimate: the source is no fixed resistance).\n";
}

std::string MatchText(const MatchReport& report) {
    return NetworkTable(report) + "* best with so few parts; yield: builds that keep " +
           FormatFixed(0, 3, Decibels(report.rating.leastGT)) + " dB\n" + StandardTable(report) +
           CentredText(report) + '\n' + LimitText(report.limit);
}

std::string MatchJson(const MatchReport& report) {
    Json networks = Json::array();
    for (const RatedNetwork& matched : report.rating.networks)
        networks.push_back(JsonNetwork(matched));
    Json document = {{"limit_db", JsonNumber(Decibels(report.limit.GT))},
                     {"limit_is_estimate", report.limit.estimate},
                     {"yield_limit_db", JsonNumber(Decibels(report.rating.leastGT))},
                     {"networks", networks}};
    if (report.centred) {
        const Network& network = report.centred->network;
        document["centred"] = {{"elements", ElementTexts(network, 0)},
                               {"before", JsonYield(report.centred->before, network)},
                               {"after", JsonYield(report.centred->after, network)}};
    }
    return JsonText(document);
}

}  // namespace kelvro
