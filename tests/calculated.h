#pragma once

#include <utility>

#include "analysis/response.h"
#include "design/cycle.h"

// Tests name the inputs that matter, Calculated({.page = 3, .Q = 8}), and leave the rest as it is
// preset; of members without an initializer of their own GCC would warn.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace kelvro {

/// What the cycle makes of the inputs, with the response of its own network and nothing optimized.
inline CycleResult CycleOf(const Design& inputs) {
    ResponseServices services;
    return Calculate(inputs, true, services);
}

inline Design Calculated(const Design& inputs) {
    return CycleOf(inputs).design;
}

/// For every page's sake: with the resistances exchanged where the page refuses them as they are.
inline Design CalculatedEitherWay(Design inputs) {
    if (CycleOf(inputs).message) std::swap(inputs.R1, inputs.R2);
    return Calculated(inputs);
}

}  // namespace kelvro
