#include "plot/clipping.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace kelvro {

namespace {

/// The part of the line from a to b that lies between the fractions 0 and 1 of both axes, as the
/// parameters at which it enters and leaves (Liang and Barsky, "A New Concept and Method for Line
/// Clipping", ACM Transactions on Graphics 3, 1984).
std::optional<Range> ClipToUnitSquare(WorldPoint a, WorldPoint b) {
    Range part{0, 1};
    const auto cut = [&part](double from, double delta) {
        if (delta == 0) return from >= 0 && from <= 1;
        const double atZero = -from / delta;
        const double atOne = (1 - from) / delta;
        part.min = std::max(part.min, std::min(atZero, atOne));
        part.max = std::min(part.max, std::max(atZero, atOne));
        return true;
    };
    if (!cut(a.x, b.x - a.x) || !cut(a.y, b.y - a.y) || part.min > part.max) return std::nullopt;
    return part;
}

/// Joins lines to runs: a line continues the run in which the line before it ended.
class RunCollector {
  public:
    explicit RunCollector(const PlotRect& plot) : plot_(plot) {}

    void add(WorldPoint a, WorldPoint b) {
        const auto part = ClipToUnitSquare(a, b);
        if (part && (!open_ || part->min > 0)) runs_.push_back({toPixels(a, b, part->min)});
        if (part) runs_.back().push_back(toPixels(a, b, part->max));
        open_ = part && part->max == 1;
    }
    void endRun() { open_ = false; }
    std::vector<std::vector<WorldPoint>> take() { return std::move(runs_); }

  private:
    WorldPoint toPixels(WorldPoint a, WorldPoint b, double t) const {
        return {plot_.left + (a.x + t * (b.x - a.x)) * (plot_.right - plot_.left),
                plot_.bottom + (a.y + t * (b.y - a.y)) * (plot_.top - plot_.bottom)};
    }

    PlotRect plot_;
    std::vector<std::vector<WorldPoint>> runs_;
    bool open_ = false;
};

/// The line between two samples on either side of a wrap, `from` and `to` their values.
void AddWrapped(RunCollector& runs, WorldPoint a, double from, WorldPoint b, double to,
                const Axis& axis, double turn) {
    const double end = std::copysign(turn / 2, from);
    const double rise = to + 2 * end - from;
    const double t = rise == 0 ? 0 : (end - from) / rise;
    const double x = a.x + t * (b.x - a.x);
    runs.add(a, {x, axis.fraction(end)});
    runs.endRun();
    runs.add({x, axis.fraction(-end)}, b);
}

}  // namespace

std::vector<std::vector<WorldPoint>> ClippedRuns(const Frame& frame, std::span<const double> x,
                                                 std::span<const double> y, double turn) {
    RunCollector runs(frame.plot);
    WorldPoint last;
    bool hasLast = false;
    for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i) {
        const WorldPoint next{frame.view.x.fraction(x[i]), frame.view.y.fraction(y[i])};
        const bool hasPlace = std::isfinite(next.x) && std::isfinite(next.y);
        if (hasLast && hasPlace) {
            if (turn > 0 && std::fabs(y[i] - y[i - 1]) > turn / 2) {
                AddWrapped(runs, last, y[i - 1], next, y[i], frame.view.y, turn);
            } else {
                runs.add(last, next);
            }
        }
        if (!hasPlace) runs.endRun();
        last = next;
        hasLast = hasPlace;
    }
    return runs.take();
}

}  // namespace kelvro
