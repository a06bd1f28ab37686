#pragma once

#include <vector>

#include "network/device.h"
#include "network/network.h"
#include "plot/smith_picture.h"

namespace kelvro {

/// The edge of stability of every measured two-port of a ladder and its gains 1, 2 and 3 dB below
/// the largest (of one that can oscillate: the largest stable one), as circles on the chart of the
/// network's source: of the loads behind the device and the operating gain they give, or of the
/// sources before it and their available gain. A circle that is a line on the chart is left out;
/// none where the data end.
std::vector<ChartContour> DeviceContours(const Network& network, double f, DeviceSide side);

}  // namespace kelvro
