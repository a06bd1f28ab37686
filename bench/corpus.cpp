// Quality of the local optimizer over a corpus of designs: how near to the best known goal it comes
// and what that costs. A program, not a timed test; run from the top of the source tree:
//   bench_corpus [--designs N] [--seed S] [--cache FILE] [--failures]
// The best known goal of a random design is the lowest of two long searches: Nelder-Mead and the
// optimizer's own descents, both from many points at random. A cache file keeps it between runs;
// --failures lists the designs that were missed.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "analysis/goal.h"
#include "core/random.h"
#include "design/cycle.h"
#include "design/pages.h"
#include "optimize/page_optimizer.h"

namespace kelvro {
namespace {

struct Sample {
    Design state;
    double start = 0;
    double best = std::numeric_limits<double>::infinity();
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

std::vector<Sample> ReadDesigns(const char* path) {
    std::vector<Sample> designs;
    for (const auto& item : nlohmann::json::parse(std::ifstream(path))) {
        Sample design;
        Design& s = design.state;
        s.page = item["page"];
        s.R1 = item["r1"];
        s.R2 = item["r2"];
        s.fo = item["fo"];
        s.Q = item["q"];
        s.k = item["k"];
        s.QB = item["qb"];
        s.QBC = item["qbc"];
        Prepare(design);
        s.Q = item["q"];
        design.best = item["best_known"];
        designs.push_back(design);
    }
    return designs;
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
    double value(const Point& x) {
        const double f = goal_.value(x, CallKind::Evaluation);
        return std::isfinite(f) ? f : std::numeric_limits<double>::max();
    }
    void add(const Point& x) {
        corners_.push_back(x);
        values_.push_back(value(x));
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
        const Point reflected = along(-1);
        const double f = value(reflected);
        if (f < values_.front()) {
            const Point farther = along(-2);
            const double g = value(farther);
            g < f ? replaceWorst(farther, g) : replaceWorst(reflected, f);
            return 2;
        }
        if (f < values_[values_.size() - 2]) {
            replaceWorst(reflected, f);
            return 1;
        }
        const Point inner = along(f < values_.back() ? -0.5 : 0.5);
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

class Reference {
  public:
    Reference(const Design& state, std::uint64_t seed)
        : goal_(state, {}), starts_(seed, goal_.size()), best_(goal_.size(), 0.0) {
        lowest_ = goal_.value(best_, CallKind::Evaluation);
    }

    double lowest() {
        searchBySimplex();
        searchByDescents();
        return lowest_;
    }

  private:
    void keep(const Point& x, double f) {
        if (!(f < lowest_)) return;
        lowest_ = f;
        best_ = x;
    }

    void searchBySimplex() {
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
    }

    /// Every other one from near the best point.
    void searchByDescents() {
        LocalOptions options;
        options.maxIterations = 199;
        options.gradientLimit = 1e-3;
        options.thorough = true;
        for (int i = 0; i < 60; ++i) {
            const Point start = starts_.next();
            Eigen::VectorXd x = Eigen::Map<const Eigen::VectorXd>(
                start.data(), static_cast<Eigen::Index>(start.size()));
            if (i % 2 == 1) x = 0.3 * x + Eigen::Map<const Eigen::VectorXd>(best_.data(), x.size());
            const Summary run = MinimizeLocally(goal_, x, options);
            keep({run.x.begin(), run.x.end()}, run.f);
        }
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

struct Row {
    int designs = 0;
    int singleWithin2 = 0;
    int twoWithin3 = 0;
    std::vector<int> singleCalls;
    std::vector<int> twoCalls;
};

int Quantile(std::vector<int> values, double part) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

bool Within(double f, double best, double tolerance) {
    return f - best <= tolerance * std::max(1.0, std::fabs(best));
}

PageOptimization Optimized(const Sample& design, bool singleRun) {
    OptimizerSettings settings;
    settings.singleRun = singleRun;
    return OptimizePage(design.state, settings, {"", ""});
}

void Judge(const Sample& design, Row& row, bool verbose) {
    const PageOptimization one = Optimized(design, true);
    const PageOptimization two = Optimized(design, false);
    const double best = std::min(design.best, two.achievedGoal);
    const bool ok1 = Within(one.achievedGoal, best, 1e-2);
    const bool ok2 = Within(two.achievedGoal, best, 1e-3);
    ++row.designs;
    row.singleWithin2 += ok1;
    row.twoWithin3 += ok2;
    row.singleCalls.push_back(one.calls.total());
    row.twoCalls.push_back(two.calls.total());
    if (verbose && !(ok1 && ok2)) {
        const Design& s = design.state;
        std::printf("  page %d R %g %g Q %g: start %.5f best %.5f single %.5f (%d) two %.5f (%d)\n",
                    s.page, s.R1, s.R2, s.Q, design.start, best, one.achievedGoal,
                    one.calls.total(), two.achievedGoal, two.calls.total());
    }
}

void Print(const std::string& name, const Row& row) {
    const auto percent = [&](int part) { return 100.0 * part / row.designs; };
    std::printf("%-12s %5d  %6.1f %%  %6.1f %%  %6d %6d %6d  %6d %6d\n", name.c_str(), row.designs,
                percent(row.singleWithin2), percent(row.twoWithin3), Quantile(row.singleCalls, 0.5),
                Quantile(row.singleCalls, 0.75), Quantile(row.singleCalls, 0.9),
                Quantile(row.twoCalls, 0.5), Quantile(row.twoCalls, 0.9));
}

void PrintTable(const char* title, const std::vector<Sample>& designs, bool verbose) {
    std::map<std::string, Row> rows;
    Row all;
    for (const Sample& design : designs) {
        const bool narrow = design.state.Q > 0.21;
        const std::string page = std::to_string(design.state.page);
        Row& row = rows[(page.size() == 1 ? " " : "") + page + (narrow ? " narrow" : " broad")];
        Judge(design, row, verbose);
        Judge(design, all, false);
    }
    std::printf(
        "%s\npage        count  single    two    calls of a single run   of two runs\n"
        "                   1e-2     1e-3   median    75%%    90%%  median    90%%\n",
        title);
    for (const auto& [name, row] : rows) Print(name, row);
    Print("all", all);
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
    kelvro::PrintTable("designs of tests/data/optimizer.json",
                       kelvro::ReadDesigns("tests/data/optimizer.json"), failures);
    kelvro::PrintTable("random designs", kelvro::RandomDesigns(designs, seed, cache), failures);
    return 0;
}
