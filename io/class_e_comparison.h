#pragma once

#include <string>
#include <vector>

#include "io/text_table.h"

namespace kelvro {

/// A number that the program computes and the simulator measures.
struct ComparedValue {
    std::string name;
    std::string unit;  ///< "dB" and "%" are written without prefixes
    double computed = 0;
    double simulated = 0;  ///< NaN where the simulator measured nothing
};

/// The comparison as a table with a heading.
TextRows ComparisonRows(const std::vector<ComparedValue>& values);

}  // namespace kelvro
