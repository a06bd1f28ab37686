#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "network/ladder_response.h"
#include "plot/picture.h"

// What a network does over frequency, as a picture: quantities of several networks.

namespace kelvro {

/// Traces on the same axis share its range.
enum class NetworkAxis : std::uint8_t { Gain, Match, Ratio, Phase, Delay, Impedance, Part };

/// A quantity of a network over frequency; a new one is one row of the table.
struct NetworkTrace {
    std::string_view key;    ///< "gt"
    std::string_view title;  ///< "Power Gain GT"
    std::string_view symbol;
    std::string_view unit;
    NetworkAxis axis;
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

/// Traces drawn in one plot, without doubles. The first leads: its axis is the left one; of the
/// others, those of one more axis have room on the right.
using NetworkTraceList = std::vector<const NetworkTrace*>;

/// The first trace of the right axis; null where all share the left one.
const NetworkTrace* RightTrace(const NetworkTraceList& traces);
/// The traces with one more. Those of a third axis make room for it.
NetworkTraceList WithTrace(NetworkTraceList traces, const NetworkTrace& more);

/// One network of a picture.
struct PlottedNetwork {
    const Network* network;
    std::string name;
    Rgb colour;
    bool dashed = false;
};

struct NetworkPlot {
    NetworkTraceList traces;  ///< at least one; the first leads
    FrequencyBand range;
    bool logarithmic = false;
    std::vector<PlottedNetwork> networks;  ///< the first is the present one, which markers read
    std::vector<double> markers;           ///< Hz
    std::optional<double> limitDb;         ///< "no lossless network does better"
    bool limitIsEstimate = false;
};

inline constexpr int kNetworkPlotPoints = 301;

Picture NetworkPicture(const NetworkPlot& plot);

/// Value of a trace at one frequency; NaN where there is none.
double TraceValue(const NetworkTrace& trace, LadderResponse& response, double f);

/// A value of a trace as it is read: "-0.271 dB", "no value".
std::string TraceText(const NetworkTrace& trace, double value);

}  // namespace kelvro
