// Does a hair of input move the design by a hair? 828 designs on a grid, each against the same with
// fo, and then Q, larger by 1e-5. A program, not a timed test:
//   bench_smoothness [--failures]

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <vector>

#include "design/cycle.h"
#include "design/pages.h"
#include "optimize/page_optimizer.h"

namespace kelvro {
namespace {

constexpr double kStep = 1e-5;

struct Optimized {
    Design state;
    double goal = 0;
    bool refused = false;
};

Optimized Calculated(int page, double R1, double R2, double Q, double fo) {
    Optimized result;
    Design& s = result.state;
    s.page = page;
    s.R1 = R1;
    s.R2 = R2;
    s.Q = Q;
    s.fo = fo;
    OptimizerServices services;
    const CycleResult cycle = Calculate(s, true, services);
    s = cycle.design;
    result.refused = cycle.message.has_value() || services.last().runs.empty();
    result.goal = services.last().achievedGoal;
    return result;
}

double LargestChange(const Optimized& a, const Optimized& b) {
    double change = 0;
    for (const Slot slot : PageOf(a.state).goal.moved(a.state)) {
        const double ratio = b.state.components[slot] / a.state.components[slot];
        if (std::isfinite(ratio)) change = std::max(change, std::fabs(std::log(ratio)));
    }
    return change;
}

struct Count {
    int designs = 0;
    int goalMoved = 0;  ///< by more than 0.01
    int partMoved = 0;  ///< by more than 1 %
    double largestGoal = 0;

    void add(const Optimized& a, const Optimized& b, const char* name, bool verbose) {
        const double goal = std::fabs(b.goal - a.goal);
        const double part = LargestChange(a, b);
        ++designs;
        goalMoved += goal > 0.01;
        partMoved += part > std::log(1.01);
        largestGoal = std::max(largestGoal, goal);
        if (!verbose || !(goal > 0.01 || part > std::log(1.01))) return;
        const Design& s = a.state;
        std::printf("  page %d R %g %g Q %g, step in %s: goals %.4f %.4f, part x%.4g\n", s.page,
                    s.R1, s.R2, s.Q, name, a.goal, b.goal, std::exp(part));
    }
    void print(const char* name) const {
        std::printf("%-6s %4d designs: goal moved in %d (most %.4f), parts in %d (%.1f %%)\n", name,
                    designs, goalMoved, largestGoal, partMoved, 100.0 * partMoved / designs);
    }
};

void Run(bool verbose) {
    constexpr double resistances[] = {5, 10, 50, 75, 300, 1000};
    constexpr double fo = 100e6;
    Count byFo;
    Count byQ;
    for (const int page : {1, 2, 3, 4, 5, 13, 14, 16, 18}) {
        Count ofPageFo;
        Count ofPageQ;
        for (const double R1 : resistances) {
            for (const double R2 : resistances) {
                for (const double Q : {0.2, 2.0, 5.0, 10.0}) {
                    const Optimized plain = Calculated(page, R1, R2, Q, fo);
                    if (plain.refused) continue;
                    const Optimized moved = Calculated(page, R1, R2, Q, fo * (1 + kStep));
                    const Optimized other = Calculated(page, R1, R2, Q * (1 + kStep), fo);
                    for (Count* count : {&ofPageFo, &byFo}) {
                        count->add(plain, moved, "fo", verbose && count == &byFo);
                    }
                    for (Count* count : {&ofPageQ, &byQ}) {
                        count->add(plain, other, "Q", verbose && count == &byQ);
                    }
                }
            }
        }
        std::printf("page %d\n", page);
        ofPageFo.print("  fo");
        ofPageQ.print("  Q");
    }
    byFo.print("all fo");
    byQ.print("all Q");
}

}  // namespace
}  // namespace kelvro

int main(int argc, char** argv) {
    kelvro::Run(argc > 1 && std::string_view(argv[1]) == "--failures");
    return 0;
}
