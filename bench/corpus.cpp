// What the optimizer makes of random designs: how near the goal comes to the lowest one that keeps
// every part within a factor of ten of the calculated design, how many results stay within it, and
// what that costs. A program, not a timed test; run from the top of the source tree:
//   bench_corpus [--designs N] [--seed S] [--cache FILE] [--failures]
// The lowest goal is that of a long search with Nelder and Mead's method from many points at random
// and of the optimizer's own results. A cache file keeps it between runs; --failures lists the
// designs that were missed.

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "analysis/goal.h"
#include "core/random.h"
#include "design/cycle.h"
#include "design/pages.h"
#include "io/optimizer_reports.h"
#include "optimize/page_optimizer.h"

namespace kelvro {
namespace {

/// No part further from the calculated one than by this, as a logarithm: a factor of ten.
const double kBox = std::log(10.0);

struct Sample {
    Design state;
    double start = 0;
    double best = std::numeric_limits<double>::infinity();  ///< within the box
};

// ---------------------------------------------------------------- designs

/// A calculated design ready for its goal; false where the page refuses the inputs.
bool Prepare(Sample& design) {
    ResponseServices services;
    const CycleResult result = Calculate(design.state, true, services);
    design.state = result.design;
    Goal goal(design.state, {});
    const std::vector<double> x(goal.size(), 0.0);
    design.start = goal.value(x, CallKind::Evaluation);
    return !result.message && std::isfinite(design.start);
}

class DesignSource {
  public:
    explicit DesignSource(std::uint64_t seed) : random_(seed) {}

    Sample next(int page) {
        while (true) {
            Sample design;
            Design& s = design.state;
            s.page = page;
            s.R1 = between(3, 4000);
            s.R2 = between(3, 4000);
            s.fo = std::round(between(1e5, 2e9));
            s.QB = between(25, 1000);
            s.QBC = between(100, 3000);
            s.Q = page == 16 || random_.next() < 2.0 / 3 ? 0.2 : between(1.5, 20);
            if (Prepare(design)) return design;
        }
    }

  private:
    double between(double low, double high) { return low * std::pow(high / low, random_.next()); }

    UniformStream random_;
};

// ---------------------------------------------------------------- the other search

using Point = std::vector<double>;

/// Nelder and Mead, "A simplex method for function minimization", 1965.
class Simplex {
  public:
    Simplex(Goal& goal, const Point& start, double size) : goal_(goal) {
        add(start);
        for (std::size_t i = 0; i < start.size(); ++i) {
            Point corner = start;
            corner[i] += size;
            add(corner);
        }
    }

    std::pair<Point, double> minimize(int calls) {
        while (calls > 0) {
            sort();
            if (values_.back() - values_.front() < 1e-13) break;
            calls -= turn();
        }
        sort();
        return {corners_.front(), values_.front()};
    }

  private:
    double value(Point& x) {
        for (double& xi : x) xi = std::clamp(xi, -kBox, kBox);
        const double f = goal_.value(x, CallKind::Evaluation);
        return std::isfinite(f) ? f : std::numeric_limits<double>::max();
    }
    void add(Point x) {
        values_.push_back(value(x));
        corners_.push_back(std::move(x));
    }
    void sort() {
        for (std::size_t i = 1; i < values_.size(); ++i) {
            for (std::size_t j = i; j > 0 && values_[j] < values_[j - 1]; --j) {
                std::swap(values_[j], values_[j - 1]);
                std::swap(corners_[j], corners_[j - 1]);
            }
        }
    }
    Point along(double t) const {
        const std::size_t n = corners_.size() - 1;
        Point x(n, 0.0);
        for (std::size_t k = 0; k < n; ++k) {
            for (std::size_t i = 0; i < n; ++i) x[k] += corners_[i][k] / static_cast<double>(n);
            x[k] += t * (corners_.back()[k] - x[k]);
        }
        return x;
    }
    void replaceWorst(const Point& x, double f) {
        corners_.back() = x;
        values_.back() = f;
    }
    int turn() {
        Point reflected = along(-1);
        const double f = value(reflected);
        if (f < values_.front()) {
            Point farther = along(-2);
            const double g = value(farther);
            g < f ? replaceWorst(farther, g) : replaceWorst(reflected, f);
            return 2;
        }
        if (f < values_[values_.size() - 2]) {
            replaceWorst(reflected, f);
            return 1;
        }
        Point inner = along(f < values_.back() ? -0.5 : 0.5);
        const double g = value(inner);
        if (g < std::min(f, values_.back())) {
            replaceWorst(inner, g);
            return 2;
        }
        for (std::size_t i = 1; i < corners_.size(); ++i) {
            for (std::size_t k = 0; k < corners_[i].size(); ++k) {
                corners_[i][k] = (corners_[i][k] + corners_[0][k]) / 2;
            }
            values_[i] = value(corners_[i]);
        }
        return static_cast<int>(corners_.size()) + 1;
    }

    Goal& goal_;
    std::vector<Point> corners_;
    std::vector<double> values_;
};

/// Points at random around the calculated design, from near by to far away.
class Starts {
  public:
    Starts(std::uint64_t seed, std::size_t size) : random_(seed), size_(size) {}

    Point next() {
        constexpr std::array spreads = {0.0, 0.1, 0.3, 0.6, 1.0, 1.5, 2.5};
        Point x(size_);
        for (double& xi : x) xi = spreads[count_ % spreads.size()] * 3.4 * (random_.next() - 0.5);
        ++count_;
        return x;
    }

  private:
    UniformStream random_;
    std::size_t size_;
    std::size_t count_ = 0;
};

/// The lowest goal in the box.
class Reference {
  public:
    Reference(const Design& state, std::uint64_t seed)
        : goal_(state, {}), starts_(seed, goal_.size()), best_(goal_.size(), 0.0) {
        lowest_ = goal_.value(best_, CallKind::Evaluation);
    }

    double lowest() {
        for (int i = 0; i < 140; ++i) {
            auto [x, f] = Simplex(goal_, starts_.next(), 0.2).minimize(400);
            for (int round = 0; round < 4 && f < lowest_ + 1; ++round) {
                std::tie(x, f) = Simplex(goal_, x, round % 2 ? 0.3 : 0.05).minimize(600);
            }
            keep(x, f);
        }
        for (int round = 0; round < 20; ++round) {
            const auto [x, f] =
                Simplex(goal_, best_, std::array{0.5, 0.05, 0.005}[round % 3]).minimize(1500);
            keep(x, f);
        }
        return lowest_;
    }

  private:
    void keep(const Point& x, double f) {
        if (!(f < lowest_)) return;
        lowest_ = f;
        best_ = x;
    }

    Goal goal_;
    Starts starts_;
    Point best_;
    double lowest_;
};

/// Random designs on the pages in turn, with their best known goals.
std::vector<Sample> RandomDesigns(int count, std::uint64_t seed, const std::string& cache) {
    constexpr std::array pages = {1, 2, 3, 4, 5, 13, 14, 16, 18};
    DesignSource source(seed);
    std::vector<Sample> designs;
    for (int i = 0; i < count; ++i) designs.push_back(source.next(pages[i % pages.size()]));
    std::ifstream known(cache);
    for (std::size_t i = 0; i < designs.size(); ++i) {
        if (known >> designs[i].best) continue;
        designs[i].best = Reference(designs[i].state, i + 1).lowest();
    }
    if (!cache.empty()) {
        std::ofstream file(cache);
        file.precision(17);
        for (const Sample& design : designs) file << design.best << '\n';
    }
    return designs;
}

// ---------------------------------------------------------------- the table

// A goal this much above the lowest one is as good: nobody hears 0.2 dB.
constexpr double kAsGood = 0.2;

/// What one way of optimizing made of the designs.
struct Column {
    int near = 0;    ///< as good as the lowest goal in the box, or better
    int inside = 0;  ///< the box
    int worse = 0;   ///< than calculated
    std::vector<double> milliseconds;
};

struct Row {
    int designs = 0;
    Column single;
    Column two;
};

struct Outcome {
    double goal = 0;
    double distance = 0;  ///< largest |ln ratio| of a part
    double milliseconds = std::numeric_limits<double>::infinity();
    int calls = 0;
};

double Distance(const Design& state, const Design& calculated) {
    double distance = 0;
    for (const Slot slot : PageOf(state).goal.moved(state)) {
        const double ratio = state.components[slot] / calculated.components[slot];
        if (std::isfinite(ratio)) distance = std::max(distance, std::fabs(std::log(ratio)));
    }
    return distance;
}

/// The shortest time of three runs, reports included.
Outcome Optimized(const Sample& design, bool singleRun, const OptimizerFiles& files) {
    OptimizerSettings settings;
    settings.singleRun = singleRun;
    settings.writeLog = !files.log.empty();
    Outcome outcome;
    for (int i = 0; i < 3; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        const PageOptimization result = OptimizePage(design.state, settings);
        if (const Status kept = KeepReports(result, files); !kept)
            std::fprintf(stderr, "%s\n", kept.message().c_str());
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - begin;
        Design after = design.state;
        after.components = result.components;
        outcome.goal = result.achievedGoal;
        outcome.distance = Distance(after, design.state);
        outcome.milliseconds = std::min(outcome.milliseconds, time.count());
        outcome.calls = result.calls.total();
    }
    return outcome;
}

bool Judge(const Sample& design, const Outcome& outcome, double lowest, Column& column) {
    const bool near = outcome.goal <= lowest + kAsGood;
    const bool inside = outcome.distance <= kBox + 1e-9;
    const bool worse = outcome.goal > design.start;
    column.near += near;
    column.inside += inside;
    column.worse += worse;
    column.milliseconds.push_back(outcome.milliseconds);
    return near && inside && !worse;
}

void PrintFailure(const Sample& design, double lowest, const Outcome& one, const Outcome& two) {
    const Design& s = design.state;
    std::printf("  page %d R %g %g fo %.0f Q %.6g QB %.4g %.4g: start %.4f box %.4f", s.page, s.R1,
                s.R2, s.fo, s.Q, s.QB, s.QBC, design.start, lowest);
    for (const Outcome& outcome : {one, two}) {
        std::printf("  %.4f x%.3g (%d)", outcome.goal, std::exp(outcome.distance), outcome.calls);
    }
    std::printf("\n");
}

double Quantile(std::vector<double> values, double part) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

void Print(const std::string& name, const Row& row) {
    std::printf("%-10s %5d", name.c_str(), row.designs);
    for (const Column& column : {row.single, row.two}) {
        const auto percent = [&](int part) { return 100.0 * part / row.designs; };
        std::printf("  |%6.1f %6.1f %4d %7.3f %7.3f %7.3f", percent(column.near),
                    percent(column.inside), column.worse, Quantile(column.milliseconds, 0.5),
                    Quantile(column.milliseconds, 0.95), Quantile(column.milliseconds, 1));
    }
    std::printf("\n");
}

void PrintTable(const char* title, const std::vector<Sample>& designs, bool verbose) {
    const std::string log = std::string(P_tmpdir) + "/kelvro-corpus-opt.txt";
    std::map<std::string, Row> rows;
    for (const Sample& design : designs) {
        const Outcome one = Optimized(design, true, {"", ""});
        const Outcome two = Optimized(design, false, {log, ""});
        double lowest = design.best;
        for (const Outcome& outcome : {one, two}) {
            if (outcome.distance <= kBox) lowest = std::min(lowest, outcome.goal);
        }
        const std::string page = std::to_string(design.state.page);
        const bool narrow = design.state.Q > 0.21;
        bool good = true;
        for (Row* row :
             {&rows[(page.size() == 1 ? " " : "") + page + (narrow ? " narrow" : " broad")],
              &rows["all"]}) {
            ++row->designs;
            good = Judge(design, one, lowest, row->single) && good;
            good = Judge(design, two, lowest, row->two) && good;
        }
        if (verbose && !good) PrintFailure(design, lowest, one, two);
    }
    std::printf(
        "%s\n                 | a single run                            | two runs with log\n"
        "page       count  |  near inside worse  median 95%%     most  |  near inside worse"
        "  median 95%%     most\n"
        "                  |     %%      %%           ms      ms      ms  |     %%      %%"
        "           ms      ms      ms\n",
        title);
    for (const auto& [name, row] : rows) Print(name, row);
}

}  // namespace
}  // namespace kelvro

int main(int argc, char** argv) {
    int designs = 450;
    std::uint64_t seed = 1;
    std::string cache;
    bool failures = false;
    for (int i = 1; i < argc; ++i) {
        const std::string_view option = argv[i];
        const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
        if (option == "--failures") {
            failures = true;
            continue;
        }
        if (value && option == "--designs") {
            designs = std::atoi(value);
        } else if (value && option == "--seed") {
            seed = static_cast<std::uint64_t>(std::atoll(value));
        } else if (value && option == "--cache") {
            cache = value;
        } else {
            std::fprintf(stderr,
                         "usage: bench_corpus [--designs N] [--seed S] [--cache FILE] "
                         "[--failures]\n");
            return 2;
        }
        ++i;
    }
    kelvro::PrintTable("random designs", kelvro::RandomDesigns(designs, seed, cache), failures);
    return 0;
}
