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

/// The curves of networks that stay while another one is tuned: reckoned once, not for every
/// picture.
class HeldCurves {
  public:
    /// The values of a trace at frequencies.
    const std::vector<double>& of(const Network& network, const Trace& trace,
                                  const std::vector<double>& f);
    /// Forgets what was not asked for since the last call.
    void endPicture();

  private:
    struct Held {
        Network network;
        const Trace* trace;
        std::vector<double> f;
        std::vector<double> y;
        bool used;
    };
    std::vector<Held> all_;
};

struct NetworkPlot {
    TraceList traces;  ///< at least one; the first leads
    FrequencyBand range;
    bool logarithmic = false;
    std::vector<PlottedNetwork> networks;  ///< the first is the present one, which markers read
    std::vector<double> markers;           ///< Hz
    std::optional<double> limitDb;         ///< "no lossless network does better"
    bool limitIsEstimate = false;
    HeldCurves* held =
        nullptr;  ///< of all networks but the first, where pictures follow each other
};

inline constexpr int kNetworkPlotPoints = 301;

Picture NetworkPicture(const NetworkPlot& plot);

/// A value of a trace as it is read: "-0.271 dB", "no value".
std::string TraceText(const Trace& trace, double value);

}  // namespace kelvro
