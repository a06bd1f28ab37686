#include "optimize/further_starts.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvro {

namespace {

constexpr std::uint64_t kSeed = 11;

}  // namespace

FurtherStarts::FurtherStarts(SearchRun& run, const Box& box)
    : run_(run),
      box_(box),
      tuning_(run.options.tuning.search),
      random_(kSeed + static_cast<std::uint64_t>(run.options.sequence)) {}

Vector FurtherStarts::next() {
    Vector best = box_.centre();
    double lowest = std::numeric_limits<double>::infinity();
    for (int i = 0; i < tuning_.draws; ++i) {
        Vector x = drawn();
        double f = value(x);
        moveDown(x, f);
        if (!(f < lowest)) continue;
        lowest = f;
        best = std::move(x);
    }
    return best;
}

Vector FurtherStarts::drawn() {
    const double half = std::min(box_.reach(), tuning_.widestDraw);
    Vector x = box_.centre();
    for (double& xi : x) xi += half * (2 * random_.next() - 1);
    return x;
}

void FurtherStarts::moveDown(Vector& x, double& f) const {
    double step = tuning_.look;
    for (int sweep = 0; sweep < tuning_.sweeps; ++sweep, step /= 2) {
        for (Eigen::Index i = 0; i < x.size(); ++i) {
            const double from = x[i];
            double best = from;
            for (int k = -tuning_.looks; k <= tuning_.looks; ++k) {
                const double to = from + k * step;
                if (k == 0 || std::fabs(to - box_.centre()[i]) > box_.reach()) continue;
                x[i] = to;
                const double trial = value(x);
                if (!(trial < f)) continue;
                f = trial;
                best = to;
            }
            x[i] = best;
        }
    }
}

}  // namespace kelvro
