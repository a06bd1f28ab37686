#include "plot/smith_frame.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/number_text.h"
#include "core/scalar.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

constexpr double kRim = 1.08;  // room around the unit circle at zoom 1
constexpr double kInfinity = std::numeric_limits<double>::infinity();

Cx ToGamma(Cx z) {
    return (z - 1.0) / (z + 1.0);
}

Cx ToNormalized(Cx gamma) {
    return (1.0 + gamma) / (1.0 - gamma);
}

}  // namespace

std::complex<double> ChartGamma(Cx Z, Cx source) {
    if (std::isinf(Z.real()) || std::isinf(Z.imag())) return {1, 0};
    return (Z - std::conj(source)) / (Z + source);
}

std::complex<double> ChartImpedance(Cx gamma, Cx source) {
    return (std::conj(source) + source * gamma) / (1.0 - gamma);
}

ChartCircle ResistanceCircle(double r) {
    return {r / (1 + r), 0, 1 / (1 + r)};
}

ChartCircle ReactanceCircle(double x) {
    return {1, 1 / x, 1 / std::fabs(x)};
}

ChartCircle ConductanceCircle(double g) {
    return {-g / (1 + g), 0, 1 / (1 + g)};
}

ChartCircle SusceptanceCircle(double b) {
    return {-1, -1 / b, 1 / std::fabs(b)};
}

ChartCircle VswrCircle(double s) {
    return {0, 0, (s - 1) / (s + 1)};
}

std::optional<ChartCircle> QualityCircle(double q, Cx source) {
    const double R = source.real();
    return CircleThrough(ChartGamma(0, source), ChartGamma(R * Cx(1, q), source), {1, 0});
}

/// With a at 0 and b at 1 the centre is at ½ + jy, as far from 0 as from c = w.
std::optional<ChartCircle> CircleThrough(Cx a, Cx b, Cx c) {
    const Cx w = (c - a) / (b - a);
    const double y = (std::norm(w) - w.real()) / (2 * w.imag());
    const Cx centre = a + (b - a) * Cx(0.5, y);
    const double radius = std::abs(centre - a);
    if (!std::isfinite(radius)) return std::nullopt;
    return ChartCircle{centre.real(), centre.imag(), radius};
}

// ---------------------------------------------------------------- the plane and pixels

double ChartFrame::scale() const {
    return view.zoom * std::min(width, height) / (2 * kRim);
}

ChartFrame::Pixel ChartFrame::place(Cx gamma) const {
    return {width / 2 + (gamma.real() - view.u) * scale(),
            height / 2 - (gamma.imag() - view.v) * scale()};
}

std::complex<double> ChartFrame::gamma(double x, double y) const {
    return {view.u + (x - width / 2) / scale(), view.v - (y - height / 2) / scale()};
}

ChartView ZoomedAt(const ChartFrame& frame, double x, double y, double factor) {
    const Cx fixed = frame.gamma(x, y);
    ChartFrame zoomed = frame;
    zoomed.view.zoom = Clamp(frame.view.zoom * factor, 1, kLargestChartZoom);
    const Cx moved = fixed - zoomed.gamma(x, y);
    zoomed.view.u += moved.real();
    zoomed.view.v += moved.imag();
    return Panned(zoomed, 0, 0);
}

ChartView Panned(const ChartFrame& frame, double dx, double dy) {
    ChartView view = frame.view;
    view.u -= dx / frame.scale();
    view.v += dy / frame.scale();
    // Zoomed out the chart stays where it is; zoomed in, some of it stays in the window.
    const double reach = 1 - 1 / view.zoom;
    view.u = Clamp(view.u, -reach, reach);
    view.v = Clamp(view.v, -reach, reach);
    return view;
}

// ---------------------------------------------------------------- the grid

namespace {

constexpr double kMajorValues[] = {0, 0.2, 0.5, 1, 2, 5, 10, 50};
constexpr double kLineGap = 24;   // pixels between lines of the grid where they are widest apart
constexpr double kLabelGap = 36;  // and between their labels
constexpr int kLinePoints = 96;
constexpr double kLargestValue = 1e6;  // beyond it a line lies within a pixel of Γ = 1

struct Span {
    double low;
    double high;
};

struct GridValue {
    double value;
    double spacing;  ///< to the next line; 0 for the lines that always show in full
};

/// Distance in Γ of two lines so far apart in z, near z.
double Distance(double spacing, double r, double x) {
    return 2 * spacing / ((1 + r) * (1 + r) + x * x);
}

/// Parts into which an interval of readable values divides readably: 0.2 to 0.5 into three.
int PartsOfInterval(double width) {
    const double decade = std::pow(10, std::floor(std::log10(width * (1 + 1e-9))));
    switch (std::lround(width / decade)) {
        case 3:
            return 3;
        case 2:
        case 4:
            return 4;
        default:
            return 5;
    }
}

/// Values between two lines, finer while the lines stay apart and the window shows them.
/// `distance` is the largest one that lines of a spacing have at a value.
template <typename DistanceAt>
void Subdivide(double low, double high, Span window, double gap, DistanceAt&& distance,
               std::vector<GridValue>& values) {
    if (high < window.low || low > window.high) return;
    const int parts = PartsOfInterval(high - low);
    const double spacing = (high - low) / parts;
    if (distance(spacing, low) < gap) return;
    for (int i = 0; i < parts; ++i) {
        const double from = low + i * spacing;
        if (i > 0) values.push_back({from, spacing});
        Subdivide(from, from + spacing, window, gap, distance, values);
    }
}

template <typename DistanceAt>
std::vector<GridValue> GridValues(Span window, double gap, DistanceAt&& distance) {
    std::vector<GridValue> values;
    for (std::size_t i = 0; i < std::size(kMajorValues); ++i) {
        values.push_back({kMajorValues[i], 0});
        if (i + 1 < std::size(kMajorValues))
            Subdivide(kMajorValues[i], kMajorValues[i + 1], window, gap, distance, values);
    }
    return values;
}

/// The smallest line that always shows, at or above a value: where a finer line may end.
double MajorAbove(double value) {
    const auto* at = std::ranges::lower_bound(kMajorValues, value);
    return at == std::end(kMajorValues) ? kLargestValue : *at;
}

/// Resistances and reactances that the window shows.
struct Shown {
    Span r{kLargestValue, 0};
    Span x{kLargestValue, -kLargestValue};
};

Shown ShownBy(const ChartFrame& frame) {
    constexpr int steps = 24;
    Shown shown;
    for (int i = 0; i <= steps; ++i) {
        for (int k = 0; k <= steps; ++k) {
            Cx gamma = frame.gamma(frame.width * i / steps, frame.height * k / steps);
            if (std::abs(gamma) >= 1) gamma /= std::abs(gamma) * (1 + 1e-9);
            const Cx z = ToNormalized(gamma);
            shown.r.low = std::min(shown.r.low, z.real());
            shown.r.high = std::max(shown.r.high, z.real());
            shown.x.low = std::min(shown.x.low, z.imag());
            shown.x.high = std::max(shown.x.high, z.imag());
        }
    }
    return shown;
}

/// Points of a line from one value of its running coordinate to another, evenly spread on the
/// chart: the angle of the Möbius transform is that of an arc tangent.
template <typename PointAt>
std::vector<Cx> PointsBetween(Span span, PointAt&& pointAt) {
    std::vector<Cx> points;
    const double from = std::atan(span.low);
    const double to = std::atan(span.high);
    for (int i = 0; i <= kLinePoints; ++i) {
        points.push_back(ToGamma(pointAt(std::tan(std::lerp(from, to, i / double{kLinePoints})))));
    }
    return points;
}

Span Overlap(Span a, Span b) {
    return {std::max(a.low, b.low), std::min(a.high, b.high)};
}

class GridBuilder {
  public:
    explicit GridBuilder(const ChartFrame& frame)
        : frame_(frame), shown_(ShownBy(frame)), gap_(kLineGap / frame.scale()) {}

    std::vector<GridLine> build() {
        addResistances();
        addReactances();
        return std::move(lines_);
    }

  private:
    void addResistances() {
        const auto distance = [](double spacing, double r) { return Distance(spacing, r, 0); };
        for (const GridValue& line : GridValues(shown_.r, gap_, distance)) {
            const double r = line.value;
            double reach = kLargestValue;
            if (line.spacing > 0) {
                // Half the gap is where neighbouring lines begin to crowd.
                const double room = 4 * line.spacing / gap_ - (1 + r) * (1 + r);
                reach = MajorAbove(std::sqrt(std::max(room, 0.0)));
            }
            add(
                Overlap({-reach, reach}, shown_.x), {r, line.spacing}, false,
                [r](double x) { return Cx(r, x); }, ToGamma({r, 0}));
        }
    }

    void addReactances() {
        const auto distance = [](double spacing, double x) { return Distance(spacing, 0, x); };
        const double farthest = std::max(std::fabs(shown_.x.low), std::fabs(shown_.x.high));
        const double nearest = shown_.x.low <= 0 && shown_.x.high >= 0
                                   ? 0
                                   : std::min(std::fabs(shown_.x.low), std::fabs(shown_.x.high));
        for (const GridValue& line : GridValues({nearest, farthest}, gap_, distance)) {
            double reach = kLargestValue;
            if (line.spacing > 0) {
                const double room = 4 * line.spacing / gap_ - line.value * line.value;
                reach = MajorAbove(std::max(std::sqrt(std::max(room, 0.0)) - 1, 0.0));
            }
            for (const double sign : {1.0, -1.0}) {
                const double x = sign * line.value;
                add(
                    Overlap({0, reach}, shown_.r), {x, line.spacing}, true,
                    [x](double r) { return Cx(r, x); }, ToGamma({0, x}));
                if (line.value == 0) break;
            }
        }
    }

    template <typename PointAt>
    void add(Span span, GridValue value, bool reactance, PointAt&& pointAt, Cx anchor) {
        if (!(span.low < span.high)) return;
        GridLine line;
        line.points = PointsBetween(span, pointAt);
        line.value = value.value;
        line.reactance = reactance;
        line.major = value.spacing == 0;
        placeLabel(line, anchor);
        lines_.push_back(std::move(line));
    }

    /// At the point of the line in the window that is nearest to its usual place.
    void placeLabel(GridLine& line, Cx anchor) {
        const Cx* best = nullptr;
        for (const Cx& point : line.points) {
            const auto [x, y] = frame_.place(point);
            const bool inside = x > 12 && x < frame_.width - 12 && y > 10 && y < frame_.height - 10;
            if (inside && (!best || std::abs(point - anchor) < std::abs(*best - anchor)))
                best = &point;
        }
        if (!best) return;
        const auto near = [&](Cx other) {
            return std::abs(other - *best) * frame_.scale() < kLabelGap;
        };
        if (std::ranges::any_of(labels_, near)) return;
        labels_.push_back(*best);
        line.labelAt = *best;
        line.label = ValueText(line.value);
    }

    /// Without the zeros at its end: "0.5", "12".
    static std::string ValueText(double value) {
        std::string text = FormatFixed(0, 6, value);
        text.erase(text.find_last_not_of('0') + 1);
        if (text.ends_with('.')) text.pop_back();
        return text;
    }

    const ChartFrame& frame_;
    const Shown shown_;
    const double gap_;
    std::vector<Cx> labels_;
    std::vector<GridLine> lines_;
};

}  // namespace

std::vector<GridLine> ImpedanceGrid(const ChartFrame& frame) {
    return GridBuilder(frame).build();
}

std::vector<GridLine> AdmittanceGrid(const ChartFrame& frame) {
    ChartFrame turned = frame;
    turned.view.u = -frame.view.u;
    turned.view.v = -frame.view.v;
    std::vector<GridLine> lines = ImpedanceGrid(turned);
    for (GridLine& line : lines) {
        for (Cx& point : line.points) point = -point;
        line.labelAt = -line.labelAt;
    }
    return lines;
}

std::vector<std::vector<std::complex<double>>> InsideChart(const ChartCircle& circle) {
    constexpr int steps = 720;
    std::vector<std::vector<Cx>> pieces;
    bool inside = false;
    for (int i = 0; i <= steps; ++i) {
        const double angle = kTwoPi * i / steps;
        const Cx point(circle.u + circle.radius * std::cos(angle),
                       circle.v + circle.radius * std::sin(angle));
        const bool now = std::abs(point) <= 1 + 1e-9;
        if (now && !inside) pieces.emplace_back();
        if (now) pieces.back().push_back(point);
        inside = now;
    }
    return pieces;
}

// ---------------------------------------------------------------- readings

ChartReading ReadingAt(Cx gamma, Cx source) {
    ChartReading reading;
    reading.gamma = gamma;
    reading.Z = ChartImpedance(gamma, source);
    reading.Y = 1.0 / reading.Z;
    const double modulus = std::abs(gamma);
    reading.VSWR = modulus < 1 ? (1 + modulus) / (1 - modulus) : kInfinity;
    reading.Q = std::fabs(reading.Z.imag()) / reading.Z.real();
    return reading;
}

namespace {

std::string ComplexText(Cx value, int decimals) {
    const std::string imaginary = FormatEngShort(decimals, std::fabs(value.imag()));
    return FormatEngShort(decimals, value.real()) + (value.imag() < 0 ? " - j" : " + j") +
           imaginary;
}

}  // namespace

std::string ReadingText(const ChartReading& reading) {
    const Cx gamma = reading.gamma;
    const double angle = std::arg(gamma) * kDegreesPerRadian;
    const std::string polar = FormatFixed(0, 3, std::abs(gamma)) + " ∠ " + FormatFixed(0, 1, angle);
    const std::string cartesian = FormatFixed(0, 3, gamma.real()) +
                                  (gamma.imag() < 0 ? " - j" : " + j") +
                                  FormatFixed(0, 3, std::fabs(gamma.imag()));
    const std::string vswr =
        std::isinf(reading.VSWR) ? "infinite" : FormatFixed(0, 2, reading.VSWR);
    return "Z " + ComplexText(reading.Z, 2) + " Ω, Y " + ComplexText(reading.Y, 2) + " S, Γ " +
           polar + "° (" + cartesian + "), VSWR " + vswr + ", Q " + FormatFixed(0, 2, reading.Q);
}

}  // namespace kelvro
