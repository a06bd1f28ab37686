// How near the search comes to the best that many more starts find. A program, not a timed test;
// run from the top of the source tree:
//   bench_search_quality [--parts N] [--starts N] [--problem TEXT] [--seed S] [--random N]
// Every ladder of a number of parts is solved alone from so many random starts, twice as far spread
// as the search's own, the best ones are refined as the search does it, and the best of them all
// stands beside what the search found. A ratio below 1 is what the search missed. --problem takes
// only the problems whose names hold the text; --random adds problems at random.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "core/parallel.h"
#include "core/random.h"
#include "core/scalar.h"
#include "io/data_files.h"
#include "network/network_text.h"
#include "synthesis/candidate_search.h"

namespace kelvro {
namespace {

struct Options {
    int parts = 4;
    int starts = 300;
    int random = 0;
    std::uint64_t seed = 1;
    std::string problem;
};

struct Named {
    std::string name;
    Network network;
};

/// Terminations as texts, bands in hertz.
struct Written {
    const char* name;
    const char* source;
    const char* load;
    std::vector<FrequencyBand> bands;
};

const std::vector<Written> kProblems = {
    {"10:1", "50", "500", {{70e6, 130e6}}},
    {"short antenna", "50", "R=40 + L=120n", {{295e6, 405e6}}},
    {"complex pair", "25+j78", "65-j100", {{0.5e9, 0.9e9}}},
    {"complex pair, wide", "12+j30", "200-j150", {{1e9, 3e9}}},
    {"dipole", "50", "examples/dipole.s1p", {{140e6, 150e6}}},
    {"loop", "50", "examples/loop.s1p", {{140e6, 150e6}}},
    {"whip", "50", "examples/whip.s1p", {{26.9e6, 27.5e6}}},
    {"chip antenna", "50", "L=1.5n + (R=90 | C=1.4p | L=3.2n)", {{2.3e9, 2.6e9}}},
    {"loop at 13 MHz", "50", "L=1.2u + R=2.5", {{13.3e6, 13.8e6}}},
    {"piezo", "50", "C=900p | (R=120 + L=18u + C=60p)", {{4e6, 6e6}}},
    {"LDMOS gate", "50", "R=1.2 + L=0.5n + C=95p", {{80e6, 120e6}}},
    {"GaAs gate", "50", "R=7 + C=0.35p + L=0.2n", {{4e9, 8e9}}},
    {"HF drain", "50", "R=12.5 | C=220p", {{1.8e6, 30e6}}},
    {"collector", "50", "L=0.8n + (R=4 | C=40p)", {{400e6, 512e6}}},
    {"interstage", "R=220 | C=1.5p", "R=6 + C=4p + L=0.4n", {{0.8e9, 1.2e9}}},
    {"photodiode", "50", "R=10 + (R=1500 | C=1.2p)", {{0.5e9, 1.5e9}}},
    {"two bands, RLC", "50", "R=25 + L=8n + C=2.2p", {{824e6, 960e6}, {1.71e9, 1.99e9}}},
    {"two bands, RC", "50", "R=12 + C=3p", {{433e6, 435e6}, {860e6, 870e6}}},
    {"two bands, pair", "20-j15", "R=150 | C=1p", {{0.9e9, 1e9}, {2.3e9, 2.5e9}}},
    {"three bands", "50", "R=300 | C=0.6p", {{430e6, 440e6}, {860e6, 930e6}, {1.5e9, 1.6e9}}},
};

std::string RandomLoad(UniformStream& random, double f0) {
    const double R = 2 * std::pow(300, random.next());
    const double X = R * 5 * std::pow(random.next(), 2);
    const auto number = [](double value) {
        char text[32];
        std::snprintf(text, sizeof text, "%.6g", value);
        return std::string(text);
    };
    const std::string r = "R=" + number(R);
    const std::string L = "L=" + number((X + 0.2 * R) / (kTwoPi * f0));
    const std::string C = "C=" + number(1 / (kTwoPi * f0 * (X + 0.3 * R)));
    const std::string forms[] = {r + " + " + L, r + " + " + C, r + " | " + C, r + " | " + L,
                                 r + " + " + L + " + " + C};
    return forms[random.below(5)];
}

Network NetworkOf(const Written& written, const DataLoader& load) {
    Network network;
    const auto source = ParseImpedance(written.source, load);
    const auto end = ParseImpedance(written.load, load);
    for (const Status& status : {source.status(), end.status()}) {
        if (status) continue;
        std::fprintf(stderr, "%s: %s\n", written.name, status.message().c_str());
        std::exit(1);
    }
    network.source = *source;
    network.load = *end;
    network.bands = written.bands;
    return network;
}

std::vector<Named> Problems(const Options& options) {
    DataFiles files;
    std::vector<Named> problems;
    for (const Written& written : kProblems) {
        if (std::string_view(written.name).find(options.problem) == std::string_view::npos)
            continue;
        problems.push_back({written.name, NetworkOf(written, files.loader())});
    }
    UniformStream random(options.seed);
    for (int i = 0; i < options.random; ++i) {
        const double f0 = 1e7 * std::pow(100, random.next());
        const double width = std::pow(0.02, random.next());
        const std::string source = i % 3 == 2 ? RandomLoad(random, f0) : "50";
        const std::string load = RandomLoad(random, f0);
        const std::string name = source + " to " + load;
        problems.push_back({name, NetworkOf({name.c_str(),
                                             source.c_str(),
                                             load.c_str(),
                                             {{f0 * (1 - width / 3), f0 * (1 + width / 2)}}},
                                            {})});
    }
    return problems;
}

/// Lets pairs resonate near the middle of the bands, at any impedance.
void Resonate(std::vector<double>& x, const Stages& topology, double spread,
              UniformStream& random) {
    std::size_t at = 0;
    for (const Stage& stage : topology) {
        if (stage.parts() == 2) {
            x[at] = spread * (2 * random.next() - 1);
            x[at + 1] = -x[at] + 2 * random.next() - 1;
        }
        at += stage.parameters();
    }
}

/// The best of one ladder from many starts, on the screening grid; half of them with pairs that
/// resonate.
ScreenedLadder Alone(const SearchTask& task, const Stages& topology, int starts,
                     std::uint64_t seed) {
    const auto box = BoxOf(topology, task.options, task.R0, task.f0, task.widest());
    if (!box) return {{}, -1e9};
    LadderModel model;
    LadderGoal goal(model, task.grid, topology);
    MaxMinSolver solver;
    UniformStream random(seed);
    std::vector<MaxMinPoint> points(static_cast<std::size_t>(starts));
    for (MaxMinPoint& point : points) {
        for (std::size_t j = 0; j < box->low.size(); ++j) {
            const double low = std::max(box->low[j], -task.spread - 1);
            const double high = std::min(box->high[j], task.spread + 1);
            point.x.push_back(low + (high - low) * random.next());
        }
        if (random.next() < 0.5) Resonate(point.x, topology, task.spread + 3, random);
        for (std::size_t j = 0; j < box->low.size(); ++j) {
            point.x[j] = std::clamp(point.x[j], box->low[j], box->high[j]);
        }
        solver.improve(goal, *box, {.mostSteps = 80, .leastGain = 1e-6}, point);
    }
    std::ranges::sort(points, std::greater{}, &MaxMinPoint::worst);
    points.resize(std::min<std::size_t>(points.size(), 8));
    for (MaxMinPoint& point : points) {
        point.radius = 0.3;
        point.settled = false;
        solver.improve(goal, *box, {.mostSteps = 400, .leastGain = 1e-8}, point);
    }
    const auto best = std::ranges::max_element(points, {}, &MaxMinPoint::worst);
    return {{topology, best->x}, best->worst};
}

/// The worst gain of the best ladder with exactly so many parts.
FoundNetwork BestOfManyStarts(const SearchTask& task, int parts, const Options& options) {
    const auto candidates = CandidatesOf(task.options, parts);
    std::vector<ScreenedLadder> solved(candidates.size());
    ForEachInParallel(candidates.size(), ThreadsOr(0), [&](std::size_t i, unsigned) {
        solved[i] = Alone(task, candidates[i], options.starts, 77 * options.seed + i);
    });
    std::ranges::sort(solved, std::greater{}, &ScreenedLadder::worst);
    FoundNetwork best;
    CandidateSearch search(task);
    for (std::size_t i = 0; i < std::min<std::size_t>(solved.size(), 4); ++i) {
        const auto refined = search.refine(solved[i]);
        if (refined && refined->worstGT > best.worstGT) best = *refined;
    }
    return best;
}

std::string LadderText(const Network& network) {
    std::string text;
    for (const LadderElement& element : network.ladder) text += ElementText(element, 4) + "; ";
    return text;
}

double Decibels(double ratio) {
    return 10 * std::log10(ratio);
}

/// One line for each number of parts; the worst ratio.
double Compare(const Named& problem, const Options& options) {
    const SearchOptions search{.mostParts = options.parts, .most = 60};
    const auto task = PrepareSearch(problem.network, search);
    const auto begin = std::chrono::steady_clock::now();
    const auto found = SearchNetworks(problem.network, search);
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    if (!task || !found) {
        std::printf("%s: %s\n", problem.name.c_str(), found.message().c_str());
        return 1;
    }
    std::printf("%s (%.2f s)\n", problem.name.c_str(), seconds);
    double worst = 1;
    // The search shows no straight connection beside others.
    FoundNetwork reference;
    CandidateSearch straight(*task);
    reference.worstGT = std::exp(straight.straight().worst);
    const double nothing = reference.worstGT;
    for (int parts = 1; parts <= options.parts; ++parts) {
        const FoundNetwork more = BestOfManyStarts(*task, parts, options);
        if (more.worstGT > reference.worstGT) reference = more;
        double best = nothing;
        for (const FoundNetwork& network : found->networks) {
            if (network.parts <= parts) best = std::max(best, network.worstGT);
        }
        const double ratio = best / reference.worstGT;
        worst = std::min(worst, ratio);
        std::printf("  %d parts: search %9.4f dB, many starts %9.4f dB, ratio %.5f%s\n", parts,
                    Decibels(best), Decibels(reference.worstGT), ratio,
                    ratio < 1 - 1e-3 ? "  MISSED" : "");
        if (ratio < 1 - 1e-3) std::printf("      %s\n", LadderText(reference.network).c_str());
        std::fflush(stdout);
    }
    return worst;
}

int Run(const Options& options) {
    double worst = 1;
    for (const Named& problem : Problems(options)) {
        worst = std::min(worst, Compare(problem, options));
    }
    std::printf("worst ratio %.5f\n", worst);
    return worst < 1 - 1e-3 ? 1 : 0;
}

Options Read(int argc, char** argv) {
    Options options;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string_view name = argv[i];
        const int number = std::atoi(argv[i + 1]);
        if (name == "--parts") options.parts = number;
        if (name == "--starts") options.starts = number;
        if (name == "--random") options.random = number;
        if (name == "--seed") options.seed = static_cast<std::uint64_t>(number);
        if (name == "--problem") options.problem = argv[i + 1];
    }
    return options;
}

}  // namespace
}  // namespace kelvro

int main(int argc, char** argv) {
    return kelvro::Run(kelvro::Read(argc, argv));
}
