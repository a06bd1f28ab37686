#pragma once

#include <complex>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/response.h"
#include "network/ladder_response.h"

// What can be drawn and listed over frequency, as a table. Windows, legends, files and the command
// line are built from it: a new curve is one row.

namespace kelvro {

/// What traces are values of: a design or a network, prepared once for many frequencies.
struct TraceSource {
    explicit TraceSource(const Design& state);
    explicit TraceSource(const Network& bare);

    std::optional<Response> response;       ///< V(f) as a page promises it; none of a bare network
    std::optional<LadderResponse> network;  ///< between source and load; none on some pages
    double fo = 0;                          ///< design frequency, Hz
    double R1 = 0;                          ///< source resistance, ohm

    // What there is at f. The last frequency's values are kept: a table asks for many traces at
    // each. Not for several threads at once.

    /// What `network`, which must be there, does.
    const NetworkPoint& point(double f) const;
    /// |(Zin - R1)/(Zin + R1)|, what the source gets back from `network`, which must be there.
    double reflection(double f) const;
    /// Of `response`, which must be there: Response::transfer and its magnitude in dB.
    std::complex<double> transfer(double f) const;
    double magnitudeDb(double f) const;

  private:
    struct Transferred {
        double f;
        std::complex<double> H;
        std::optional<double> dB = {};
    };
    Transferred& transferred(double f) const;

    mutable std::optional<NetworkPoint> last_;
    mutable std::optional<double> reflection_;  ///< of last_
    mutable std::optional<Transferred> transferred_;
};

/// Traces on the same axis share its range.
enum class TraceAxis : std::uint8_t { Gain, Phase, Delay, Match, Ratio, Impedance, Part };

/// The range with which an axis opens.
struct TraceScale {
    double min = 0;
    double max = 1;
    double step = 0.1;
    int labelEvery = 5;
};

struct Trace {
    std::string_view key;     ///< on the command line: "gt"
    std::string_view title;   ///< "Power Gain GT(f)"
    std::string_view symbol;  ///< of legends and axes: "GT"
    std::string_view unit;    ///< "dB"; empty for plain numbers
    std::string_view column;  ///< of files for other programs: "GT_dB"
    TraceAxis axis;
    double (*value)(const TraceSource&, double f);  ///< NaN where there is none
    TraceScale (*scale)(const TraceSource&);
    int decimals = 3;          ///< of read-outs
    bool engineering = false;  ///< read-outs with prefix letters
    double farthest = 1000;    ///< greater values (those of zeros and poles) scale no axis
    double tolerance = 0;      ///< by which a drawn curve may be off; 0: what cannot be seen
    double turn = 0;           ///< values come round again after so much: 360
    bool levels = false;       ///< a plot marks what lies 1 dB and 3 dB below its peak
    /// A gain in dB: read-outs add its ratio and the distance to this value, that at fo,
    /// where v = V2/V1.
    double (*atDesign)(const Design&, double v) = nullptr;
    std::string_view readOut = {};  ///< in read-outs, where that is not the symbol: "Vu"

    std::string legend() const;    ///< "GT(f) :"
    std::string axisName() const;  ///< "GT in dB"
    /// A value as read-outs show it, its unit included: "-6.000dB".
    std::string text(double y) const;
    std::string_view readOutName() const { return readOut.empty() ? symbol : readOut; }
};

std::span<const Trace> Traces();

/// The row of a key; null for an unknown one.
const Trace* FindTrace(std::string_view key);
/// The row of a key that exists.
const Trace& TraceOf(std::string_view key);

/// All keys as one text, "v, gt, phi", for messages.
std::string TraceKeys(std::string_view separator);

/// Traces drawn in one plot, without doubles. The first leads: its axis is the left one; of the
/// others, those of one more axis have room on the right.
using TraceList = std::vector<const Trace*>;

/// Every row.
TraceList AllTraces();

/// The first trace of the right axis; null where all share the left one.
const Trace* RightTrace(const TraceList& traces);
/// The first trace that would need a third axis; null where two do.
const Trace* TraceWithoutAxis(const TraceList& traces);
/// The traces with one more. Those of a third axis make room for it.
TraceList WithTrace(TraceList traces, const Trace& more);

}  // namespace kelvro
