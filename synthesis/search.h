#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "core/result.h"
#include "network/network.h"
#include "optimize/ladder_model.h"
#include "synthesis/value_limits.h"

// The search for the networks that match a load over bands of frequencies.

namespace kelvro {

/// What may stand in a ladder. Coils and capacitors also in pairs: in series in a series arm, in
/// parallel in a shunt arm.
struct SearchKinds {
    bool inductors = true;
    bool capacitors = true;
    bool traps = false;  ///< pairs the other way round, which stop at a frequency
    bool lines = false;
    bool stubs = false;
    bool transformers = false;  ///< one ideal transformer at most
    bool operator==(const SearchKinds&) const = default;
};

/// Direct current from source to load. It passes only where nothing shorts it on the way either.
enum class DcWish : std::uint8_t { Any, Block, Pass };

/// Low-pass ladders have inductors in series and capacitors across, high-pass ladders the reverse.
enum class LadderShape : std::uint8_t { Any, LowPass, HighPass };

/// What a network has to leave at a multiple of the middle of each band.
struct HarmonicLimit {
    int order = 2;
    double GTdb = -20;  ///< transducer gain, at most
    bool operator==(const HarmonicLimit&) const = default;
};

/// A part that an end of the network has to hold, because source or load bring it along: a
/// capacitor across, an inductor in series.
struct AbsorbedPart {
    PartKind kind = PartKind::Capacitor;
    double atLeast = 0;
    bool operator==(const AbsorbedPart&) const = default;
};

struct SearchOptions {
    int mostParts = 4;  ///< 1 to 8; a pair counts as two, a line or a transformer as one
    SearchKinds kinds = {};
    DcWish dc = DcWish::Any;
    LadderShape shape = LadderShape::Any;
    ValueLimits inductance = {};
    ValueLimits capacitance = {};
    ValueLimits lineImpedance = {20, 120};
    ValueLimits lineDegrees = {2, 175};  ///< at the middle of the bands
    ValueLimits turns = {0.1, 10};       ///< source side to load side
    SearchLosses losses = {};
    std::vector<HarmonicLimit> harmonics = {};
    std::optional<AbsorbedPart> atSource = {};
    std::optional<AbsorbedPart> atLoad = {};
    std::size_t most = 10;  ///< networks in the result
    std::uint64_t seed = 1;
    unsigned threads = 0;  ///< 0: one per core; the result does not depend on it
    bool operator==(const SearchOptions&) const = default;
};

struct FoundNetwork {
    Network network;
    double worstGT = 0;  ///< in the bands, a ratio; holds between the points of any grid
    double meanGT = 0;
    int parts = 0;
    bool front = false;  ///< no network with fewer parts is as good
    bool operator==(const FoundNetwork&) const = default;
};

/// How far a search is. Networks come whenever a number of parts is done: the same kind of list as
/// the result's.
struct SearchProgress {
    double done = 0;                                      ///< 0 to 1
    int parts = 0;                                        ///< that it works on
    const std::vector<FoundNetwork>* networks = nullptr;  ///< null: as before
};

/// Called from any thread of the search, never twice at a time. False ends the search with what it
/// has.
using SearchMonitor = std::function<bool(const SearchProgress&)>;

struct SearchResult {
    /// The front first, best worst gain before fewer parts; then the others by their worst gain. No
    /// network whose gain a part less would give as well.
    std::vector<FoundNetwork> networks;
    bool cancelled = false;
};

/// Searches all ladders of up to so many parts for the largest worst transducer gain in the bands.
/// Source, load and bands are those of `problem`; its ladder does not matter. The same options give
/// the same result on any number of cores. Fails where the options contradict each other, where a
/// termination has no value or no positive resistance in a band, and where nothing fits.
Result<SearchResult> SearchNetworks(const Network& problem, const SearchOptions& options,
                                    const SearchMonitor& monitor = {});

}  // namespace kelvro
