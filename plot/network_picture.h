#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/trace.h"
#include "plot/picture.h"

// What a network does over frequency, as a picture: quantities of several networks.

namespace kelvro {

/// One network of a picture.
struct PlottedNetwork {
    const Network* network;
    std::string name;
    Rgb colour;
    bool dashed = false;
};

struct NetworkPlot {
    TraceList traces;  ///< at least one; the first leads
    FrequencyBand range;
    bool logarithmic = false;
    std::vector<PlottedNetwork> networks;  ///< the first is the present one, which markers read
    std::vector<double> markers;           ///< Hz
    std::optional<double> limitDb;         ///< "no lossless network does better"
    bool limitIsEstimate = false;
};

inline constexpr int kNetworkPlotPoints = 301;

Picture NetworkPicture(const NetworkPlot& plot);

/// A value of a trace as it is read: "-0.271 dB", "no value".
std::string TraceText(const Trace& trace, double value);

}  // namespace kelvro
