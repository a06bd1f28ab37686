#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "network/network.h"

// The numbers of a ladder that can be tuned: by slider, by key, by dragging on the Smith chart, by
// an optimizer. Each has an address that stays valid while the ladder keeps its shape.

namespace kelvro {

struct Tunable {
    enum class Quantity : std::uint8_t {
        PartValue,      ///< ohm, henry or farad
        LineAngle,      ///< degrees at the line's own frequency
        LineLength,     ///< metres
        LineImpedance,  ///< ohm
        Turns,          ///< ratio of an ideal transformer
        Coupling,       ///< k of coupled coils
    };

    std::size_t element = 0;  ///< index in the ladder
    std::size_t part = 0;     ///< among the parts of that element, as PartsOf lists them
    Quantity quantity = Quantity::PartValue;

    bool operator==(const Tunable&) const = default;
};

/// Everything that can be tuned, from source to load. Of a line the length comes before the
/// impedance. Branches and measured data have nothing to tune.
std::vector<Tunable> TunablesOf(const std::vector<LadderElement>& ladder);

/// The number at an address. There has to be one.
double ValueOf(const std::vector<LadderElement>& ladder, const Tunable& at);
void SetValue(std::vector<LadderElement>& ladder, const Tunable& at, double value);

/// The part at an address; null where the number belongs to no part.
const Part* PartAt(const std::vector<LadderElement>& ladder, const Tunable& at);

/// Another part in the place of the one at an address, which has to be one.
void ReplacePart(std::vector<LadderElement>& ladder, const Tunable& at, Part part);

/// The tolerance, ± percent, that the part or line behind an address has of its own; 0 for none.
double ToleranceOf(const std::vector<LadderElement>& ladder, const Tunable& at);
/// Can it have one? Values of parts and impedances of lines can.
bool CanHaveTolerance(const Tunable& at);
/// There has to be something that can; 0 takes its own tolerance away.
void SetTolerance(std::vector<LadderElement>& ladder, const Tunable& at, double percent);

/// "C2", "L1 k": the name of the part, or its letter and place in the ladder where nobody named it.
std::string NameOf(const std::vector<LadderElement>& ladder, const Tunable& at);
/// "Ω", "H", "F", "°", "m"; empty for ratios.
std::string_view UnitOf(const std::vector<LadderElement>& ladder, const Tunable& at);

/// Limits within which a number may be moved: values that can exist, wide enough for any design.
struct ValueRange {
    double low;
    double high;
};
ValueRange RangeOf(const std::vector<LadderElement>& ladder, const Tunable& at);

}  // namespace kelvro
