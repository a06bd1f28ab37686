#include "cli/match_band.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <csignal>
#include <map>

#include "cli/design_options.h"
#include "cli/match_report.h"
#include "cli/network_options.h"
#include "core/number_text.h"
#include "network/coverage.h"
#include "synthesis/search_text.h"

namespace kelvro {

namespace {

const std::map<std::string, DcWish> kDcWishes = {
    {"any", DcWish::Any}, {"block", DcWish::Block}, {"pass", DcWish::Pass}};

const std::map<std::string, bool SearchKinds::*> kKinds = {
    {"L", &SearchKinds::inductors}, {"C", &SearchKinds::capacitors},
    {"trap", &SearchKinds::traps},  {"line", &SearchKinds::lines},
    {"stub", &SearchKinds::stubs},  {"transformer", &SearchKinds::transformers}};

Problem Wrong(std::string text) {
    return {ExitCode::Usage, std::move(text)};
}

void ReadLimits(const std::string& least, const std::string& most, ValueLimits& limits) {
    if (!least.empty()) limits.low = ParseValue(least);
    if (!most.empty()) limits.high = ParseValue(most);
}

/// Takes over what a text of an option says; an empty problem where it can be read.
template <typename Value>
std::optional<Problem> Take(Result<Value> read, const char* option, Value& value) {
    if (!read) return Wrong(std::string(option) + ": " + read.message());
    value = *std::move(read);
    return {};
}

Outcome<SearchOptions> SearchOptionsOf(const MatchBandOptions& options) {
    SearchOptions search;
    search.mostParts = options.parts;
    search.kinds = {.inductors = false, .capacitors = false};
    for (const std::string& kind : options.kinds) search.kinds.*kKinds.at(kind) = true;
    search.dc = kDcWishes.at(options.dc);
    if (options.lowPass) search.shape = LadderShape::LowPass;
    if (options.highPass) search.shape = LadderShape::HighPass;
    ReadLimits(options.leastL, options.mostL, search.inductance);
    ReadLimits(options.leastC, options.mostC, search.capacitance);
    ReadLimits(options.leastZ0, options.mostZ0, search.lineImpedance);
    SearchLosses& losses = search.losses;
    std::optional<Problem> wrong =
        Take(ParsePartQ(PartKind::Inductor, options.coilQ), "--ql", losses.inductor);
    if (!wrong) {
        wrong = Take(ParsePartQ(PartKind::Capacitor, options.capacitorQ), "--qc", losses.capacitor);
    }
    for (const std::string& text : options.harmonics) {
        search.harmonics.emplace_back();
        if (!wrong) wrong = Take(ParseHarmonic(text), "--harmonics", search.harmonics.back());
    }
    if (!wrong) {
        wrong = Take(ParseAbsorbedPart(options.atSource), "--absorb-source", search.atSource);
    }
    if (!wrong) wrong = Take(ParseAbsorbedPart(options.atLoad), "--absorb-load", search.atLoad);
    if (wrong) return *wrong;
    search.most = static_cast<std::size_t>(options.top);
    search.seed = options.seed;
    search.threads = options.threads;
    return search;
}

volatile std::sig_atomic_t interrupted = 0;

/// While it lives Ctrl+C asks the search to end with what it has; a second one ends the program.
class InterruptGuard {
  public:
    InterruptGuard() {
        interrupted = 0;
        before_ = std::signal(SIGINT, [](int signal) {
            interrupted = 1;
            std::signal(signal, SIG_DFL);
        });
    }
    ~InterruptGuard() { std::signal(SIGINT, before_); }
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

  private:
    void (*before_)(int);
};

std::string ProgressText(const SearchProgress& progress, double bestDb) {
    std::string text =
        std::to_string(progress.parts) + " parts, " + FormatFixed(0, 0, 100 * progress.done) + " %";
    if (std::isfinite(bestDb)) text += ", best so far " + FormatFixed(0, 3, bestDb) + " dB";
    return text;
}

Result<SearchResult> Search(const Network& problem, const SearchOptions& options,
                            Session& session) {
    const InterruptGuard guard;
    double bestDb = -HUGE_VAL;
    int percent = -1;
    auto found = SearchNetworks(problem, options, [&](const SearchProgress& progress) {
        if (progress.networks && !progress.networks->empty()) {
            bestDb = 10 * std::log10(progress.networks->front().worstGT);
        }
        if (const int now = static_cast<int>(100 * progress.done); now != percent) {
            percent = now;
            session.progress(ProgressText(progress, bestDb));
        }
        return interrupted == 0;
    });
    session.progress("");
    return found;
}

void AddLimitOptions(CLI::App& command, MatchBandOptions& options) {
    const auto number = [&](const char* name, std::string& text, const char* help) {
        command.add_option(name, text, help)
            ->check(PositiveNumberProblem)
            ->type_name("NUMBER")
            ->group("Values");
    };
    number("--min-l", options.leastL, "Smallest inductance (1n)");
    number("--max-l", options.mostL, "Largest inductance (1u)");
    number("--min-c", options.leastC, "Smallest capacitance (1p)");
    number("--max-c", options.mostC, "Largest capacitance (1n)");
    number("--min-z0", options.leastZ0, "Smallest characteristic impedance of lines (20)");
    number("--max-z0", options.mostZ0, "Largest one (120)");
    command.add_option("--ql", options.coilQ, "Q of the inductors: 40, or 40@100M")
        ->type_name("Q")
        ->group("Values");
    command.add_option("--qc", options.capacitorQ, "Q of the capacitors")
        ->type_name("Q")
        ->group("Values");
}

void AddBuildOptions(CLI::App& command, MatchBandOptions& options) {
    const std::string group = "Building it";
    CLI::Option* series =
        command.add_option("--series", options.series, "Choose standard values: E6 to E96")
            ->check(CLI::IsMember({"E6", "E12", "E24", "E48", "E96"}, CLI::ignore_case))
            ->group(group);
    command.add_option("--own", options.ownedFile, "Choose from a list of values that you own")
        ->type_name("FILE")
        ->excludes(series)
        ->group(group);
    for (const auto& [name, text, help] :
         {std::tuple{"--ctol", &options.capacitorTolerance, "Tolerance of capacitors, percent"},
          std::tuple{"--ltol", &options.coilTolerance, "Tolerance of inductors, percent"}}) {
        command.add_option(name, *text, help)
            ->check(PositiveNumberProblem)
            ->type_name("PERCENT")
            ->group(group);
    }
    command
        .add_option("--yield-limit", options.yieldLimit,
                    "Worst gain that a build has to keep, dB; otherwise 0.5 dB below the best")
        ->check(NumberProblem)
        ->type_name("DB")
        ->group(group);
    command.add_flag("--centre", options.centre, "Move the best network's values for more yield")
        ->group(group);
}

}  // namespace

void AddMatchBandOptions(CLI::App& command, MatchBandOptions& options) {
    command.add_option("--band", options.bands, "A band to match over, from:to (70M:130M)")
        ->type_name("LO:HI")
        ->take_all();
    const std::string group = "Ladders";
    command.add_option("--parts", options.parts, "Most parts of a network")
        ->check(CLI::Range(1, 8))
        ->capture_default_str()
        ->group(group);
    std::vector<std::string> kinds;
    kinds.reserve(std::size(kKinds));
    for (const auto& [name, member] : kKinds) kinds.push_back(name);
    command.add_option("--kinds", options.kinds, "What it may be made of")
        ->delimiter(',')
        ->check(CLI::IsMember(kinds))
        ->group(group);
    command.add_option("--dc", options.dc, "DC from source to load: any, pass or block")
        ->check(CLI::IsMember(kDcWishes))
        ->type_name("PATH")
        ->group(group);
    CLI::Option* low =
        command.add_flag("--low-pass", options.lowPass, "Low-pass ladders only")->group(group);
    command.add_flag("--high-pass", options.highPass, "High-pass ladders only")
        ->excludes(low)
        ->group(group);
    command
        .add_option("--harmonics", options.harmonics,
                    "Gain left at a harmonic of the middle of the band, order:dB (2:-20)")
        ->delimiter(',')
        ->type_name("N:DB")
        ->group(group);
    command
        .add_option("--absorb-source", options.atSource,
                    "The network begins with at least this part: C=2p across, L=3n in series")
        ->type_name("PART")
        ->group(group);
    command.add_option("--absorb-load", options.atLoad, "It ends with at least this part")
        ->type_name("PART")
        ->group(group);
    AddLimitOptions(command, options);
    AddBuildOptions(command, options);
    command.add_option("--top", options.top, "How many networks to show")
        ->check(CLI::Range(1, 100))
        ->capture_default_str();
    command.add_option("--seed", options.seed, "Seed of starts and tolerance runs")
        ->capture_default_str();
    command.add_option("--threads", options.threads, "Threads; 0: one per core")
        ->check(CLI::Range(0, 256));
    command.add_option("-o,--output", options.output, "Project file of the best network")
        ->type_name("FILE");
}

namespace {

Outcome<std::vector<FrequencyBand>> BandsOf(const std::vector<std::string>& texts) {
    std::vector<FrequencyBand> bands;
    for (const std::string& text : texts) {
        const auto colon = text.find(':');
        const ParsedNumber low = ParseNumber(text.substr(0, colon));
        const ParsedNumber high =
            colon == std::string::npos ? ParsedNumber() : ParseNumber(text.substr(colon + 1));
        if (low.noDigits || high.noDigits || !(low.value >= 0) || !(high.value > low.value)) {
            return Wrong("--band " + text + ": expected a lower and a higher frequency, 70M:130M");
        }
        bands.push_back({low.value, high.value});
    }
    return bands;
}

}  // namespace

std::optional<Problem> TakeBands(const std::vector<std::string>& texts, Network& problem) {
    auto bands = BandsOf(texts);
    if (!bands) return bands.status();
    if (!bands->empty()) problem.bands = *std::move(bands);
    if (problem.bands.empty()) return Wrong("--band is required");
    return {};
}

ExitCode MatchBands(Network problem, const MatchBandOptions& options, bool json, Session& session) {
    if (const auto wrong = TakeBands(options.bands, problem)) return session.fail(*wrong);
    const auto search = SearchOptionsOf(options);
    if (!search) return session.fail(search.status());
    const auto owned = OwnedPartsOf(options.ownedFile);
    if (!owned) return session.fail(owned.status());
    for (const FrequencyBand& band : problem.bands) {
        if (const Status covered = CheckRange(problem, band.low, band.high); !covered) {
            return session.fail({ExitCode::Refused, covered.message()});
        }
        KeepDataWarnings(problem, band.low, band.high, session);
    }
    const auto found = Search(problem, *search, session);
    if (!found) return session.fail({ExitCode::Refused, found.message()});
    if (found->networks.empty()) {
        return session.fail({ExitCode::Refused, "interrupted before anything was found"});
    }
    if (found->cancelled) session.warn("interrupted: the best so far");
    const MatchReport report = ReportOn(problem, *search, *found, options, *owned);
    session.out << (json ? MatchJson(report) : MatchText(report));
    if (options.output.empty()) return ExitCode::Done;
    const Status written = SaveNetwork(report.best(), options.output);
    return written ? ExitCode::Done : session.fail({ExitCode::Failed, written.message()});
}

}  // namespace kelvro
