#include "design/rounding_choice.h"

#include <cmath>

#include "core/number_text.h"

namespace kelvro {

namespace {

bool IsRounded(const PartRef& part, const Design& design) {
    const ShownPart* shown = design.shown.find(part.key());
    return shown && shown->form == ShownPart::Form::Standard;
}

/// The neighbour of x > 0 in the series; x itself where it stands in the series.
double Neighbour(Series series, double x, Rounding rounding) {
    const double nearest = ParseValue(SeriesNearest(series, x));
    if (std::fabs(nearest - x) <= 1e-9 * x) return nearest;
    return ParseValue(rounding == Rounding::Up ? SeriesAbove(series, x) : SeriesBelow(series, x));
}

}  // namespace

void RoundPart(const PartRef& part, Design& design, Series series, Rounding rounding) {
    if (rounding == Rounding::Nearest) return part.round(design, series);
    // Both neighbours belong to the component, whichever of them is shown at present.
    const double value = IsRounded(part, design) ? part.built(design) : part.shown(design);
    if (!(value > 0) || std::isinf(value)) return;
    design.shown.set(
        {part.key(), Neighbour(series, value, rounding), ShownPart::Form::Standard, series});
}

void UnroundPart(const PartRef& part, Design& design) {
    if (IsRounded(part, design)) design.shown.set({part.key(), part.built(design)});
}

}  // namespace kelvro
