#pragma once

#include <optional>
#include <string>

#include "plot/frame.h"

// The rules by which a view is edited: zooming, panning, ends of axes.

namespace kelvro {

/// Limits within which an axis is kept.
struct AxisLimits {
    double min = -1000;
    double max = 1000;
};
/// The frequency axis reaches from 0 (logarithmic: fo/10^6) to 1000·fo.
AxisLimits FrequencyLimits(const Axis& axis, double fo);
/// The right axis shows seconds as well as ohms.
inline constexpr AxisLimits kRightLimits{-1e12, 1e12};

/// Axis whose range is multiplied by `factor` (below 1 zooms in) with the value `fixed` keeping its
/// place; on a logarithmic axis the decades are multiplied. Unchanged when nothing is left to zoom.
Axis Zoomed(Axis axis, double factor, double fixed, AxisLimits limits);
/// One click of a zoom button or notch of the wheel: two of them double or halve the range.
inline constexpr double kZoomStep = 0.7071067811865476;
/// The value in the middle of the axis as it is drawn.
double Middle(const Axis& axis);

/// Which axes a zoom changes.
enum class ZoomOf { Both, X, Y };
/// The view zoomed about a place: what lies there keeps its place. The right axis goes with the
/// left one; fo is the design's centre frequency.
View ZoomedView(View view, double factor, WorldPoint centre, ZoomOf axes, double fo);
/// What zooming out is best about: the centre, but where `home` has left the view the far end, so
/// that the view grows towards it.
WorldPoint OutwardCentre(const View& view, WorldPoint centre, WorldPoint home);

/// The view of a frame moved by pixels, as far as the limits of its axes let it; fo is the design's
/// centre frequency.
View Panned(const Frame& frame, double dx, double dy, double fo);

/// View of the box dragged from its upper left to its lower right corner; nothing for any other
/// direction. A logarithmic x axis keeps one decade more below the box.
std::optional<View> DragZoomed(View view, WorldPoint from, WorldPoint to);

/// The view, whose left axis was `before`, with its right axis zoomed alike: what stood at the same
/// height still does.
View WithRightZoomed(View view, const Axis& before);

/// The places outside the plot area where a click edits an end of an axis.
enum class Zone { None, XStart, XEnd, YStart, YEnd, RightStart, RightEnd };
Zone ZoneAt(const PlotRect& plot, double px, double py);
/// The same; None beside a right axis that the view does not have.
Zone ZoneAt(const Frame& frame, double px, double py);

/// One question of the value dialog.
struct ValueEdit {
    std::string caption;
    double start = 0;
    double low = 0;
    double high = 0;
};
/// Question for an end of an axis; fo is the design's centre frequency.
ValueEdit EndEdit(const View& view, Zone zone, double fo);
ValueEdit XOriginEdit(const View& view);
ValueEdit YOriginEdit(const View& view);
/// View with the edited end. An end moved past the other one takes it along, so that the range
/// keeps its extent as far as the axis reaches; a value that a logarithmic axis cannot show changes
/// nothing.
View WithEnd(View view, Zone zone, double value, double fo);

/// Axis with both ends set by hand; unchanged where they are no range that it can show.
Axis WithRange(Axis axis, double min, double max);

/// The view after the design has changed: each axis that still is as the design before opened it is
/// now as this design opens it.
View Followed(View view, const View& before, const View& now);

}  // namespace kelvro
