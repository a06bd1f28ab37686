#include "plot/dashes.h"

#include <cmath>
#include <numeric>

namespace kelvro {

namespace {

constexpr double kMostDashes = 100000;

double LengthOf(std::span<const WorldPoint> line) {
    double length = 0;
    for (std::size_t i = 1; i < line.size(); ++i) {
        length += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
    }
    return length;
}

}  // namespace

std::vector<std::vector<WorldPoint>> Dashes(std::span<const WorldPoint> line,
                                            std::span<const double> pattern) {
    const double period = std::accumulate(pattern.begin(), pattern.end(), 0.0);
    const double length = LengthOf(line);
    if (line.size() < 2 || !(period > 0) || !(length / period < kMostDashes)) {
        return {std::vector(line.begin(), line.end())};
    }
    std::vector<std::vector<WorldPoint>> dashes{{line.front()}};
    std::size_t stroke = 0;  // even: a dash, odd: a gap
    double left = pattern[0];
    for (std::size_t i = 1; i < line.size(); ++i) {
        const WorldPoint from = line[i - 1];
        const WorldPoint to = line[i];
        const double segment = std::hypot(to.x - from.x, to.y - from.y);
        double done = 0;
        while (segment - done > left) {
            done += left;
            const double t = done / segment;
            const WorldPoint cut{from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)};
            if (stroke % 2 == 0) {
                dashes.back().push_back(cut);
            } else {
                dashes.push_back({cut});
            }
            stroke = (stroke + 1) % pattern.size();
            left = pattern[stroke];
        }
        left -= segment - done;
        if (stroke % 2 == 0) dashes.back().push_back(to);
    }
    return dashes;
}

}  // namespace kelvro
