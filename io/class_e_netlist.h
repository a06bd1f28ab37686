#pragma once

#include <string>

#include "io/exports.h"

namespace kelvro {

/// Switching transient of a class-E stage with a nearly ideal switch, measured in the steady state.
/// The choke has no loss: what it has at fo is nothing to the direct current that it carries. An
/// infinite choke becomes one of a hundred thousand times R.
std::string ClassENetlist(const ExportDesign& design);

}  // namespace kelvro
