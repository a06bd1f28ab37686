#pragma once

#include <gtest/gtest.h>

#include "design/pages.h"
#include "io/exports.h"
#include "tests/calculated.h"

namespace kelvro {

/// A design as tests ask for it.
struct DesignCase {
    const char* name;
    int page;
    double R1 = 50;
    double R2 = 200;
    double Q = 5;
    bool swapped = false;
    bool eightElements = false;
};

inline void PrintTo(const DesignCase& design, std::ostream* out) {
    *out << design.name;
}

/// The state that the case's inputs lead to, designed, with both element Qs alike.
inline Design DesignedState(const DesignCase& design, double elementQ) {
    const CycleResult result = CycleOf({.page = design.page,
                                        .R1 = design.R1,
                                        .R2 = design.R2,
                                        .Q = design.Q,
                                        .QB = elementQ,
                                        .QBC = elementQ,
                                        .eightElements = design.eightElements,
                                        .LCSwapped = design.swapped});
    EXPECT_FALSE(result.message) << *result.message;
    return result.design;
}

inline ExportDesign Exported(const Design& state, ExportChoice choice = {}) {
    auto prepared = PrepareExport(state, choice);
    EXPECT_TRUE(prepared) << prepared.message();
    return std::move(*prepared);
}

/// Every page with a network between source and load, also interchanged and extended.
inline const DesignCase kTwoPorts[] = {
    {"series tank", 1},
    {"series tank, interchanged", 1, 50, 200, 5, true},
    {"series tank without C1", 1, 10, 50, 1},
    {"series tank without C1, interchanged", 1, 10, 50, 1, true},
    {"parallel tank", 2, 200, 50},
    {"parallel tank, interchanged", 2, 200, 50, 5, true},
    {"Pi section", 3},
    {"Pi section, interchanged", 3, 50, 75, 3, true},
    {"T section", 4},
    {"T section, interchanged", 4, 300, 50, 2, true},
    {"transformer", 5},
    {"transformer, downwards", 5, 450, 50, 3},
    {"line", 6},
    {"passive L", 7, 200, 50},
    {"passive T", 8},
    {"balun", 9, 50, 100},
    {"gamma", 13},
    {"gamma downwards, interchanged", 13, 200, 50, 5, true},
    {"LCCL", 14},
    {"LCCL, interchanged", 14, 50, 200, 5, true},
    {"two broadband sections", 16, 50, 200, 0.2},
    {"four broadband sections", 16, 50, 1000, 0.2, false, true},
    {"band-pass", 17, 50, 200, 10},
    {"double L", 18, 200, 50},
    {"double L, interchanged", 18, 200, 50, 5, true},
};

}  // namespace kelvro
