#include "plot/curve_sampling.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>

namespace kelvro {

namespace {

/// Phase by which neighbours may differ before the response between them is looked at: half of what
/// a resonance turns by within its -3 dB band.
constexpr double kMostTurn = 0.785;
/// Relative distance below which frequencies are the same: no read-out tells them apart, and a
/// response computed with sixteen digits hardly does.
constexpr double kClosest = 1e-11;
/// Halvings of one step between samples; a curve that still bends then has a pole there.
constexpr int kMostHalvings = 40;
/// Of all points; reached only by curves that are noise.
constexpr std::size_t kMostPoints = 20'000;
/// Part of its axis that a curve may be off unseen: half a pixel of most windows.
constexpr double kUnseen = 1.0 / 800;
/// The same of the size of values that lie outside the plot and have no tolerance of their own.
constexpr double kRelativeTolerance = 1e-3;
/// Peaks that stand out by a smaller part of their axis are rounding.
constexpr double kNoise = 1e-9;

struct Point {
    double f;
    double y;
    bool prescribed = false;
    bool stop = false;
};
using Points = std::vector<Point>;

/// Puts points between those of one curve. The axis is the one that the curve is drawn by.
class Refiner {
  public:
    Refiner(const TraceSource& source, const View& view, const Trace& trace)
        : source_(source),
          trace_(trace),
          axis_(view.y),
          log_(view.x.mode == AxisMode::Logarithmic) {}

    Point at(double f) const { return {f, trace_.value(source_, f)}; }
    Points withTurnsResolved(const Points& points) const;
    Points withExtremes(const Points& points) const;
    Points withBendsResolved(const Points& points) const;

  private:
    using Cx = std::complex<double>;

    /// The frequency that is drawn at a part of the way from a to b.
    double between(double a, double b, double part) const {
        return log_ ? a * std::pow(b / a, part) : a + part * (b - a);
    }
    void resolveTurn(Points& to, double a, Cx Ha, double b, Cx Hb, int halvings) const;
    void resolveBend(Points& to, const Point& a, const Point& b, int halvings) const;
    bool bends(const Point& a, const Point& b, double part, double y) const;
    double tolerance(double a, double b) const;
    Point extremeBetween(double a, double b, double sign) const;

    const TraceSource& source_;
    const Trace& trace_;
    Axis axis_;
    bool log_;
};

bool AreApart(double a, double b) {
    return b - a > kClosest * b;
}

Points Refiner::withTurnsResolved(const Points& points) const {
    Points resolved;
    for (const Point& next : points) {
        if (!resolved.empty()) {
            const double last = resolved.back().f;
            resolveTurn(resolved, last, source_.response->transfer(last), next.f,
                        source_.response->transfer(next.f), kMostHalvings);
        }
        resolved.push_back(next);
    }
    return resolved;
}

/// A pole or zero between two samples turns the phase, however narrow it is: halving the half that
/// still turns leads to it.
void Refiner::resolveTurn(Points& to, double a, Cx Ha, double b, Cx Hb, int halvings) const {
    if (halvings == 0 || !AreApart(a, b)) return;
    if (!(std::fabs(std::arg(Hb * std::conj(Ha))) > kMostTurn)) return;
    const double m = between(a, b, 0.5);
    const Cx Hm = source_.response->transfer(m);
    resolveTurn(to, a, Ha, m, Hm, halvings - 1);
    to.push_back(at(m));
    resolveTurn(to, m, Hm, b, Hb, halvings - 1);
}

/// Golden-section search (J. Kiefer, "Sequential minimax search for a maximum", Proc. AMS 4, 1953)
/// for the greatest value of sign·y.
Point Refiner::extremeBetween(double a, double b, double sign) const {
    constexpr double kGolden = 0.6180339887498949;
    constexpr int kSteps = 50;  // 0.618^50 = 4e-11 of the way
    double low = 0;
    double high = 1;
    Point left = at(between(a, b, 1 - kGolden));
    Point right = at(between(a, b, kGolden));
    for (int i = 0; i < kSteps; ++i) {
        if (sign * left.y >= sign * right.y) {
            high = low + kGolden * (high - low);
            right = left;
            left = at(between(a, b, high - kGolden * (high - low)));
        } else {
            low = high - kGolden * (high - low);
            left = right;
            right = at(between(a, b, low + kGolden * (high - low)));
        }
    }
    return sign * left.y >= sign * right.y ? left : right;
}

Points Refiner::withExtremes(const Points& points) const {
    const double noise = kNoise * (axis_.max - axis_.min);
    Points found;
    for (std::size_t i = 0; i < points.size(); ++i) {
        found.push_back(points[i]);
        if (i == 0 || i + 1 == points.size()) continue;
        const Point& last = points[i - 1];
        const Point& next = points[i + 1];
        const double rise = points[i].y - last.y;
        const double fall = points[i].y - next.y;
        const double sign = rise > 0 ? 1 : -1;
        if (!(sign * rise > noise) || !(sign * fall >= 0)) continue;
        if (trace_.turn > 0 && std::max(std::fabs(rise), std::fabs(fall)) > trace_.turn / 2) {
            continue;
        }
        Point extreme = extremeBetween(last.f, next.f, sign);
        if (sign * extreme.y <= sign * points[i].y ||
            !AreApart(std::min(extreme.f, points[i].f), std::max(extreme.f, points[i].f))) {
            found.back().stop = true;
            continue;
        }
        extreme.stop = true;
        found.insert(extreme.f < points[i].f ? found.end() - 1 : found.end(), extreme);
    }
    return found;
}

Points Refiner::withBendsResolved(const Points& points) const {
    Points resolved;
    for (const Point& next : points) {
        if (!resolved.empty()) {
            const Point last = resolved.back();
            resolveBend(resolved, last, next, kMostHalvings);
        }
        resolved.push_back(next);
    }
    return resolved;
}

void Refiner::resolveBend(Points& to, const Point& a, const Point& b, int halvings) const {
    // A line that crosses the curve in its middle is caught aside of it.
    constexpr double kAside = 0.3;
    if (halvings == 0 || to.size() > kMostPoints || !AreApart(a.f, b.f)) return;
    const Point m = at(between(a.f, b.f, 0.5));
    if (!bends(a, b, 0.5, m.y) && !bends(a, b, kAside, at(between(a.f, b.f, kAside)).y)) return;
    resolveBend(to, a, m, halvings - 1);
    to.push_back(m);
    resolveBend(to, m, b, halvings - 1);
}

/// Is the curve off the line from a to b, by more than may be, at that part of the way?
bool Refiner::bends(const Point& a, const Point& b, double part, double y) const {
    const auto wrapped = [turn = trace_.turn](double rise) {
        return turn > 0 ? std::remainder(rise, turn) : rise;
    };
    const double drawn = a.y + part * wrapped(b.y - a.y);
    return std::fabs(wrapped(y - drawn)) > tolerance(a.y, b.y);
}

double Refiner::tolerance(double a, double b) const {
    const double unseen = kUnseen * (axis_.max - axis_.min);
    if (std::max(a, b) >= axis_.min && std::min(a, b) <= axis_.max) {
        return trace_.tolerance > 0 ? std::min(trace_.tolerance, unseen) : unseen;
    }
    if (trace_.tolerance > 0) return trace_.tolerance;
    return std::max(unseen, kRelativeTolerance * std::max(std::fabs(a), std::fabs(b)));
}

Points PrescribedPoints(const Refiner& refiner, const std::vector<double>& frequencies, double fo) {
    Points points;
    for (const double f : frequencies) {
        if (!points.empty() && points.back().f < fo && fo < f) {
            points.push_back(refiner.at(fo));
            points.back().stop = true;
        }
        points.push_back(refiner.at(f));
        points.back().prescribed = points.back().stop = true;
    }
    return points;
}

}  // namespace

Samples Sampled(const TraceSource& source, const View& view, const Trace& trace) {
    const Refiner refiner(source, view, trace);
    Samples samples;
    samples.turn = trace.turn;
    std::vector<double> frequencies = SampleFrequencies(view);
    const auto valid = std::ranges::find_if(frequencies, [](double f) { return f > 0; });
    samples.first = static_cast<std::size_t>(valid - frequencies.begin());
    const std::vector<double> dark(frequencies.begin(), valid);
    frequencies.erase(frequencies.begin(), valid);

    Points points = PrescribedPoints(refiner, frequencies, source.fo);
    points = refiner.withTurnsResolved(points);
    points = refiner.withExtremes(points);
    points = refiner.withBendsResolved(points);
    const auto add = [&samples](const Point& point) {
        if (point.prescribed) samples.prescribed.push_back(samples.x.size());
        if (point.stop) samples.stops.push_back(samples.x.size());
        samples.x.push_back(point.f);
        samples.y.push_back(point.y);
    };
    for (const double f : dark) {
        add({f, std::numeric_limits<double>::quiet_NaN(), true, false});
    }
    for (const Point& point : points) add(point);
    return samples;
}

Samples Sampled(const Design& state, const View& view, const Trace& trace) {
    return Sampled(TraceSource(state), view, trace);
}

double PeakOf(const Samples& samples) {
    const auto range = RangeOf(samples.validY());
    return range ? range->max : -std::numeric_limits<double>::infinity();
}

std::size_t NearestStop(const Samples& samples, double f) {
    const auto distance = [&](std::size_t at) { return std::fabs(samples.x[at] - f); };
    const auto nearest = std::ranges::min_element(samples.stops, {}, distance);
    return static_cast<std::size_t>(nearest - samples.stops.begin());
}

std::size_t PeakStop(const Samples& samples) {
    const auto value = [&](std::size_t at) {
        return std::isnan(samples.y[at]) ? -std::numeric_limits<double>::infinity() : samples.y[at];
    };
    const auto peak = std::ranges::max_element(samples.stops, {}, value);
    return static_cast<std::size_t>(peak - samples.stops.begin());
}

}  // namespace kelvro
