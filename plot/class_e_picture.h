#pragma once

#include "design/class_e.h"
#include "plot/picture.h"

// The waves of a class-E stage over one period, which begins when the switch closes.

namespace kelvro {

/// Voltage across the switch.
Picture ClassEVoltagePicture(const ClassEOperation& operation, double fo);

/// Currents through the switch and through the load.
Picture ClassECurrentPicture(const ClassEOperation& operation, double fo);

}  // namespace kelvro
