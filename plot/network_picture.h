#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "network/ladder_response.h"
#include "plot/picture.h"

// What a network does over frequency, as a picture: one quantity of several networks.

namespace kelvro {

/// A quantity of a network over frequency; a new one is one row of the table.
struct NetworkTrace {
    std::string_view key;    ///< "gt"
    std::string_view title;  ///< "Power Gain GT"
    std::string_view symbol;
    std::string_view unit;
    double (*value)(const NetworkSweep& sweep, std::size_t i);
    double top;  ///< where the axis ends before it is scaled to the curves
    double bottom;
    double turn = 0;          ///< values come round again after so much
    bool gain = false;        ///< never above 0 dB where the network is passive
    double farthest = 1e300;  ///< greater values, those of a perfect match, scale no axis
};

std::span<const NetworkTrace> NetworkTraces();
/// Null for an unknown key.
const NetworkTrace* FindNetworkTrace(std::string_view key);

/// One network of a picture.
struct PlottedNetwork {
    const Network* network;
    std::string name;
    Rgb colour;
    bool dashed = false;
};

struct NetworkPlot {
    const NetworkTrace* trace;
    FrequencyBand range;
    bool logarithmic = false;
    std::vector<PlottedNetwork> networks;
    std::vector<double> markers;    ///< Hz, hair lines with their values in the legend
    std::optional<double> limitDb;  ///< "no lossless network does better"
    bool limitIsEstimate = false;
};

inline constexpr int kNetworkPlotPoints = 301;

Picture NetworkPicture(const NetworkPlot& plot);

/// Value of a trace at one frequency; NaN where there is none.
double TraceValue(const NetworkTrace& trace, LadderResponse& response, double f);

}  // namespace kelvro
