#include "plot/markers.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/number_text.h"

namespace kelvro {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr Rgb kMarkerColour{0xa0, 0x00, 0x78};
constexpr Rgb kEdgeColour{0xb0, 0x60, 0x10};

std::string Hertz(double f) {
    return FormatEngShort(3, f) + "Hz";
}

std::string Text(std::string_view view) {
    return std::string(view);
}

/// The frequency between one that is above the level and one that is not, where the trace crosses.
double Crossing(const TraceSource& source, const Trace& trace, double level, double above,
                double below) {
    constexpr int kBisections = 60;
    for (int i = 0; i < kBisections; ++i) {
        const double middle = (above + below) / 2;
        (trace.value(source, middle) >= level ? above : below) = middle;
    }
    return above;
}

/// Difference of two values of a trace, over the shorter way where they come round again.
double Difference(const Trace& trace, double from, double to) {
    return trace.turn > 0 ? std::remainder(to - from, trace.turn) : to - from;
}

}  // namespace

std::optional<std::size_t> NearestMarker(const Markers& markers, double f) {
    if (markers.empty()) return std::nullopt;
    const auto distance = [f](double marker) { return std::fabs(std::log(marker / f)); };
    const auto nearest = std::ranges::min_element(markers, {}, distance);
    return static_cast<std::size_t>(nearest - markers.begin());
}

std::optional<std::size_t> PointerAt(const Frame& frame, const std::vector<Pointer>& pointers,
                                     double px, double py) {
    constexpr double kAside = 6;
    constexpr double kAlong = 16;  // wedge and number stand above the curve, sometimes below
    const Frame right = frame.ofRightAxis();
    for (std::size_t i = 0; i < pointers.size(); ++i) {
        const WorldPoint at =
            (pointers[i].onRight ? right : frame).place(pointers[i].x, pointers[i].y);
        if (std::fabs(at.x - px) <= kAside && std::fabs(at.y - py) <= kAlong) return i;
    }
    return std::nullopt;
}

PassEdges EdgesOf(const TraceSource& source, const Trace& trace, const Samples& samples,
                  double drop) {
    PassEdges edges{drop, kNaN, kNaN, kNaN};
    const auto x = samples.validX();
    const auto y = samples.validY();
    std::size_t peak = y.size();
    for (std::size_t i = 0; i < y.size(); ++i) {
        if (std::isfinite(y[i]) && (peak == y.size() || y[i] > y[peak])) peak = i;
    }
    if (peak == y.size()) return edges;
    edges.peak = x[peak];
    const double level = y[peak] - drop;
    for (std::size_t i = peak; i > 0; --i) {
        if (y[i - 1] >= level) continue;
        edges.low = Crossing(source, trace, level, x[i], x[i - 1]);
        break;
    }
    for (std::size_t i = peak; i + 1 < y.size(); ++i) {
        if (y[i + 1] >= level) continue;
        edges.high = Crossing(source, trace, level, x[i], x[i + 1]);
        break;
    }
    return edges;
}

MarkerTable MarkerTableOf(const TraceSource& source, const TraceList& traces,
                          const Markers& markers) {
    MarkerTable table;
    table.header = {"", "f"};
    for (const Trace* trace : traces) table.header.push_back(Text(trace->symbol));
    table.header.push_back("Δf");
    for (const Trace* trace : traces) table.header.push_back("Δ" + Text(trace->symbol));
    for (std::size_t i = 0; i < markers.size(); ++i) {
        const double f = markers[i];
        std::vector<std::string> row{std::to_string(i + 1), Hertz(f)};
        for (const Trace* trace : traces) row.push_back(trace->text(trace->value(source, f)));
        if (i > 0) {
            row.push_back(Hertz(f - markers[0]));
            for (const Trace* trace : traces) {
                row.push_back(trace->text(
                    Difference(*trace, trace->value(source, markers[0]), trace->value(source, f))));
            }
        }
        row.resize(table.header.size());
        table.rows.push_back(std::move(row));
    }
    return table;
}

std::vector<std::string> MarkerLines(const TraceSource& source, const TraceList& traces,
                                     const Markers& markers) {
    const MarkerTable table = MarkerTableOf(source, traces, markers);
    std::vector<std::string> lines;
    for (const auto& row : table.rows) {
        std::string line = row[0] + ":";
        for (std::size_t column = 1; column < row.size(); ++column) {
            if (row[column].empty()) continue;
            line += (column == 1 ? " " : ", ") + table.header[column] + '=' + row[column];
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

std::string EdgesText(const PassEdges& edges) {
    const auto edge = [](double f, const char* outside) {
        return std::isnan(f) ? std::string(outside) : Hertz(f);
    };
    std::string text = "-" + FormatFixed(0, 0, edges.drop) +
                       "dB: " + edge(edges.low, "below the plot") + " to " +
                       edge(edges.high, "above the plot");
    if (!std::isnan(edges.width())) {
        text +=
            ", width " + Hertz(edges.width()) + ", loaded Q " + FormatEngShort(2, edges.loadedQ());
    }
    return text;
}

void AddMarkers(Picture& picture, const TraceSource& source, const TraceList& traces,
                const Markers& markers) {
    for (std::size_t i = 0; i < markers.size(); ++i) {
        for (const Trace* trace : traces) {
            picture.pointers.push_back({markers[i], trace->value(source, markers[i]),
                                        trace->axis != traces.front()->axis, std::to_string(i + 1),
                                        kMarkerColour});
        }
    }
}

void AddEdges(Picture& picture, const PassEdges& edges) {
    for (const double f : {edges.low, edges.high}) {
        if (!std::isnan(f)) picture.hairLines.push_back({{f}, kEdgeColour});
    }
}

}  // namespace kelvro
