#include <CLI/Option.hpp>
#include <CLI/Validators.hpp>
#include <map>
#include <memory>

#include "advise/annealing.h"
#include "cli/commands.h"
#include "io/json_output.h"

namespace kelvro {

namespace {

const std::map<std::string, Acceptance> kAcceptances = {
    {"random", Acceptance::Random},
    {"deterministic", Acceptance::Deterministic},
    {"threshold", Acceptance::Threshold},
};

struct TourOptions {
    AnnealingOptions annealing;
    std::string accept = "random";
    bool monteCarlo = false;
    bool json = false;
};

Json JsonTour(const TourOptions& options, const AnnealingSummary& run) {
    Json positions = Json::array();
    for (const City& city : run.cities) positions.push_back({city.x, city.y});
    return {{"cities", run.cities.size()},
            {"city_seed", options.annealing.citySeed},
            {"seed", options.annealing.moveSeed},
            {"accept", options.accept},
            {"start_length", run.startLength},
            {"length", run.length},
            {"average_length", run.length / static_cast<double>(run.cities.size())},
            {"iterations", run.temperatureSteps},
            {"moves", run.moves},
            {"start_temperature", kStartTemperature},
            {"end_temperature", run.temperature},
            {"frozen", run.stop == AnnealingSummary::Stop::Frozen},
            {"tour", run.tour},
            {"positions", positions}};
}

Json JsonMonteCarlo(const MonteCarloSummary& runs) {
    return {{"runs", runs.runs},
            {"minimum", runs.minimum},
            {"minimum_average", runs.minimum / runs.cities},
            {"maximum", runs.maximum},
            {"relative_difference_percent", runs.relativeDifference()},
            {"mean", runs.mean()},
            {"standard_deviation", runs.deviation()},
            {"best", runs.best},
            {"worst", runs.worst}};
}

void PrintLines(std::ostream& out, const std::vector<std::string>& lines) {
    for (const std::string& line : lines) out << line << '\n';
}

/// With --mc the tour shown is that of the best run.
void ReportTour(TourOptions options, Session& session) {
    options.annealing.acceptance = kAcceptances.at(options.accept);
    MonteCarloSummary runs;
    if (options.monteCarlo) {
        runs = RunMonteCarlo(options.annealing, [&](int finished) {
            session.progress(std::to_string(finished) + " of " + std::to_string(kMonteCarloRuns) +
                             " runs");
            return true;
        });
        session.progress("");
        options.annealing.moveSeed = static_cast<std::uint64_t>(runs.best);
    }
    const AnnealingSummary tour = Annealing(options.annealing).finish();
    if (options.json) {
        Json document = JsonTour(options, tour);
        if (options.monteCarlo) document["monte_carlo"] = JsonMonteCarlo(runs);
        session.out << JsonText(document);
        return;
    }
    PrintLines(session.out, options.monteCarlo ? ReportLines(runs) : ReportLines(tour));
    session.out << "Tour :";
    for (const int city : tour.tour) session.out << ' ' << city;
    session.out << '\n';
}

}  // namespace

void AddTourCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand(
        "tour", "Global optimization on a tour through random cities (simulated annealing)");
    auto options = std::make_shared<TourOptions>();
    AnnealingOptions& annealing = options->annealing;
    command->add_option("--cities", annealing.cities, "Number of cities")
        ->check(CLI::Range(kFewestCities, kMostCities))
        ->type_name("N");
    command->add_option("--city-seed", annealing.citySeed, "Seed of the cities' positions")
        ->check(CLI::NonNegativeNumber)
        ->type_name("A");
    CLI::Option* seed = command->add_option("--seed", annealing.moveSeed, "Seed of the moves")
                            ->check(CLI::NonNegativeNumber)
                            ->type_name("B");
    command->add_flag("--mc", options->monteCarlo, "81 runs with the seeds 0 to 80; shows the best")
        ->excludes(seed);
    command->add_option("--accept", options->accept, "random, deterministic or threshold")
        ->check(CLI::IsMember(kAcceptances))
        ->type_name("RULE");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([&session, options] { ReportTour(*options, session); });
}

}  // namespace kelvro
