#include "plot/view_edit.h"

#include <algorithm>
#include <cmath>

namespace kelvro {

namespace {

bool IsLog(const Axis& axis) {
    return axis.mode == AxisMode::Logarithmic;
}

bool Holds(const Axis& axis, double value) {
    return axis.min <= value && value <= axis.max;
}

/// An end that was led to the limit of its axis and met the other one there leaves it its distance.
Axis WithEnds(Axis axis, double min, double max, AxisLimits limits) {
    const double span = axis.max - axis.min;
    const double ratio = axis.max / axis.min;
    min = std::max(min, limits.min);
    max = std::min(max, limits.max);
    if (!(min < max) && max == limits.max) {
        min = IsLog(axis) ? max / ratio : std::max(limits.min, max - span);
    } else if (!(min < max)) {
        max = IsLog(axis) ? min * ratio : std::min(limits.max, min + span);
    }
    axis.min = min;
    axis.max = max;
    return Rescaled(axis);
}

/// Takes the other end along when the edited one has passed it.
Axis WithMin(const Axis& axis, double value, AxisLimits limits) {
    if (IsLog(axis) && value <= 0) return axis;
    double max = axis.max;
    if (value >= max) max = IsLog(axis) ? value * (max / axis.min) : value + (max - axis.min);
    // A view may have been beyond the limits before: only what is edited has to heed them.
    return WithEnds(axis, value, max,
                    {std::min(limits.min, value), std::max(limits.max, axis.max)});
}

Axis WithMax(const Axis& axis, double value, AxisLimits limits) {
    if (IsLog(axis) && value <= 0) return axis;
    double min = axis.min;
    if (value <= min) {
        const double span = axis.max - min;
        // An axis that starts at or above 0, as frequencies do, is not led below it.
        const double lowest = min >= 0 && value > 0 ? 0 : value - span;
        min = IsLog(axis) ? value / (axis.max / min) : std::max(lowest, value - span);
    }
    return WithEnds(axis, min, value,
                    {std::min(limits.min, axis.min), std::max(limits.max, value)});
}

/// Where zooming out has to hold the axis so that it grows towards a value outside of it.
double FixedFor(const Axis& axis, double fixed, double home) {
    if (!std::isfinite(home) || Holds(axis, home)) return fixed;
    return home < axis.min ? axis.max : axis.min;
}

/// Axis moved by a part of its length; it stops where one of its ends would leave the limits.
Axis Moved(Axis axis, double part, AxisLimits limits) {
    const bool log = IsLog(axis);
    const double span = axis.max - axis.min;
    const double ratio = log ? axis.max / axis.min : 0;
    const auto at = [&](double end) {
        return log ? end * std::pow(ratio, part) : end + span * part;
    };
    double min = at(axis.min);
    double max = at(axis.max);
    if (part < 0 && min < limits.min) {
        min = std::min(limits.min, axis.min);
        max = log ? min * ratio : min + span;
    }
    if (part > 0 && max > limits.max) {
        max = std::max(limits.max, axis.max);
        min = log ? max / ratio : max - span;
    }
    axis.min = min;
    axis.max = max;
    return Recentred(axis);
}

}  // namespace

AxisLimits FrequencyLimits(const Axis& axis, double fo) {
    return {IsLog(axis) ? 1e-6 * fo : 0, 1000 * fo};
}

double Middle(const Axis& axis) {
    return IsLog(axis) ? std::sqrt(axis.min) * std::sqrt(axis.max) : (axis.min + axis.max) / 2;
}

Axis Zoomed(Axis axis, double factor, double fixed, AxisLimits limits) {
    const bool log = IsLog(axis);
    const auto moved = [=](double end) {
        return log ? fixed * std::pow(end / fixed, factor) : fixed + (end - fixed) * factor;
    };
    // A view that was set beyond the limits by hand is not pulled back by zooming in.
    const double min = std::max(moved(axis.min), std::min(limits.min, axis.min));
    const double max = std::min(moved(axis.max), std::max(limits.max, axis.max));
    // Closer ends could not be told apart in the labels, and soon not in the arithmetic either.
    if (!(max - min > 1e-9 * std::max(std::fabs(min), std::fabs(max)))) return axis;
    if (min == axis.min && max == axis.max) return axis;
    axis.min = min;
    axis.max = max;
    return Rescaled(axis);
}

WorldPoint OutwardCentre(const View& view, WorldPoint centre, WorldPoint home) {
    return {FixedFor(view.x, centre.x, home.x), FixedFor(view.y, centre.y, home.y)};
}

View ZoomedView(View view, double factor, WorldPoint centre, ZoomOf axes, double fo) {
    const Axis before = view.y;
    if (axes != ZoomOf::Y) {
        view.x = Zoomed(view.x, factor, centre.x, FrequencyLimits(view.x, fo));
    }
    if (axes != ZoomOf::X) view.y = Zoomed(view.y, factor, centre.y, {});
    return WithRightZoomed(view, before);
}

View Panned(const Frame& frame, double dx, double dy, double fo) {
    View view = frame.view;
    const Axis before = view.y;
    const double width = frame.plot.right - frame.plot.left;
    const double height = frame.plot.bottom - frame.plot.top;
    view.x = Moved(view.x, -dx / width, FrequencyLimits(view.x, fo));
    view.y = Moved(view.y, dy / height, {});
    if (view.right) {
        const double moved = (view.y.min - before.min) / (before.max - before.min);
        view.right = Moved(*view.right, moved, kRightLimits);
    }
    return view;
}

std::optional<View> DragZoomed(View view, WorldPoint from, WorldPoint to) {
    if (!(to.x > from.x && to.y < from.y)) return std::nullopt;
    const Axis before = view.y;
    view.x.min = IsLog(view.x) ? from.x / 10 : from.x;
    view.x.max = to.x;
    view.y.min = to.y;
    view.y.max = from.y;
    view.x = Rescaled(view.x);
    view.y = Rescaled(view.y);
    return WithRightZoomed(view, before);
}

View WithRightZoomed(View view, const Axis& before) {
    if (!view.right || view.y == before || !(before.max > before.min)) return view;
    Axis& right = *view.right;
    const double start = right.min;
    const double scale = (right.max - right.min) / (before.max - before.min);
    right.min = start + (view.y.min - before.min) * scale;
    right.max = start + (view.y.max - before.min) * scale;
    right = Rescaled(right);
    return view;
}

Zone ZoneAt(const PlotRect& plot, double px, double py) {
    // As deep as the labels beside an axis, and a fifth of it long: easily hit, never in the plot.
    constexpr double kDepth = 36;
    constexpr double kSide = 12;
    const double xLength = (plot.right - plot.left) / 5.0;
    const double yLength = (plot.bottom - plot.top) / 5.0;
    if (py >= plot.bottom && py <= plot.bottom + kDepth) {
        if (px > plot.right - xLength && px <= plot.right + kSide) return Zone::XEnd;
        if (px >= plot.left && px < plot.left + xLength) return Zone::XStart;
    }
    const bool upper = py >= plot.top - kSide && py < plot.top + yLength;
    if (px <= plot.left && px >= plot.left - kDepth) {
        if (upper) return Zone::YEnd;
        if (py > plot.bottom - yLength && py <= plot.bottom + kSide) return Zone::YStart;
    }
    if (px >= plot.right && px <= plot.right + kDepth) {
        if (upper) return Zone::RightEnd;
        if (py > plot.bottom - yLength && py < plot.bottom) return Zone::RightStart;
    }
    return Zone::None;
}

Zone ZoneAt(const Frame& frame, double px, double py) {
    const Zone zone = ZoneAt(frame.plot, px, py);
    const bool onRight = zone == Zone::RightStart || zone == Zone::RightEnd;
    return onRight && !frame.view.right ? Zone::None : zone;
}

ValueEdit EndEdit(const View& view, Zone zone, double fo) {
    const Axis right = view.right.value_or(Axis{});
    const AxisLimits frequencies = FrequencyLimits(view.x, fo);
    switch (zone) {
        case Zone::XStart:
            return {"xmin=", view.x.min, frequencies.min, frequencies.max};
        case Zone::XEnd:
            return {"xmax=", view.x.max, 0, frequencies.max};
        case Zone::YStart:
            return {"ymin=", view.y.min, -1000, 1000};
        case Zone::YEnd:
            return {"ymax=", view.y.max, -1000, 1000};
        case Zone::RightStart:
            return {"ymin=", right.min, kRightLimits.min, kRightLimits.max};
        case Zone::RightEnd:
            return {"ymax=", right.max, kRightLimits.min, kRightLimits.max};
        case Zone::None:
            break;
    }
    return {};
}

ValueEdit XOriginEdit(const View& view) {
    return {"xo=", view.x.origin, view.x.min, view.x.max};
}

ValueEdit YOriginEdit(const View& view) {
    return {"yo=", view.y.origin, view.y.min, view.y.max};
}

View WithEnd(View view, Zone zone, double value, double fo) {
    if (!std::isfinite(value)) return view;
    const AxisLimits frequencies = FrequencyLimits(view.x, fo);
    if (zone == Zone::XStart) view.x = WithMin(view.x, value, frequencies);
    if (zone == Zone::XEnd && value > 0) view.x = WithMax(view.x, value, frequencies);
    if (zone == Zone::YStart) view.y = WithMin(view.y, value, {});
    if (zone == Zone::YEnd) view.y = WithMax(view.y, value, {});
    if (!view.right) return view;
    if (zone == Zone::RightStart) view.right = WithMin(*view.right, value, kRightLimits);
    if (zone == Zone::RightEnd) view.right = WithMax(*view.right, value, kRightLimits);
    return view;
}

Axis WithRange(Axis axis, double min, double max) {
    if (!(min < max) || !std::isfinite(max - min) || (IsLog(axis) && !(min > 0))) return axis;
    if (axis.min == min && axis.max == max) return axis;
    axis.min = min;
    axis.max = max;
    return Rescaled(axis);
}

View Followed(View view, const View& before, const View& now) {
    if (view.x == before.x) view.x = now.x;
    if (view.y == before.y) view.y = now.y;
    if (view.right == before.right) view.right = now.right;
    return view;
}

}  // namespace kelvro
