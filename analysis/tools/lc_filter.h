#pragma once

#include <cstdint>
#include <vector>

#include "network/ladder_response.h"

// Doubly terminated LC ladder filters: prototype, transformation to the wanted band, and the
// response of the resulting circuit.

namespace kelvro {

enum class FilterShape : std::uint8_t { Butterworth, Chebyshev };
enum class FilterBand : std::uint8_t { LowPass, HighPass, BandPass, BandStop };

struct FilterWishes {
    FilterShape shape = FilterShape::Butterworth;
    FilterBand band = FilterBand::LowPass;
    int order = 3;         ///< of the low-pass prototype, 1 to kMostOrder
    double ripple = 0.5;   ///< dB in the pass band; Chebyshev only
    double frequency = 0;  ///< cutoff, or geometric centre of the band
    double bandwidth = 0;  ///< of band-pass and band-stop
    double source = 50;    ///< source resistance
    bool shuntFirst = true;
};
inline constexpr int kMostOrder = 20;
inline constexpr double kMostRipple = 3;

/// One arm of the ladder. An element with value 0 is not there; two make a resonator.
struct FilterArm {
    bool series;          ///< between input and output, else to ground
    bool seriesResonant;  ///< L and C in series, else in parallel
    double L = 0;
    double C = 0;
};

/// Empty arms for wishes out of range.
struct Filter {
    std::vector<FilterArm> arms;  ///< from source to load
    double source = 50;
    double load = 50;
};

/// g1 to g(n+1) of the prototype with cutoff 1 and source 1; ripple is read for Chebyshev.
std::vector<double> Prototype(FilterShape shape, int order, double ripple);

Filter DesignFilter(const FilterWishes& wishes);

/// Edges of the band: -3.01 dB for Butterworth, the ripple for Chebyshev. One edge of a low-pass
/// or high-pass is 0.
struct BandEdges {
    double lower;
    double upper;
};
BandEdges EdgesOf(const FilterWishes& wishes);
/// The same at -3.01 dB for both shapes.
BandEdges HalfPowerEdges(const FilterWishes& wishes);

/// Attenuation in dB that the approximation promises at f, without losses.
double PromisedAttenuation(const FilterWishes& wishes, double f);
/// The least order with this attenuation in dB at f; 0 when none up to kMostOrder has it.
int LeastOrder(FilterWishes wishes, double attenuation, double f);

/// Quality factors of the elements; infinite means lossless.
struct FilterLosses {
    double inductors;
    double capacitors;
};
/// The filter between its terminations; each arm one part or a resonator.
Network NetworkOf(const Filter& filter, FilterLosses losses);

struct FilterPoint {
    double gainDb;        ///< transducer gain
    double reflectionDb;  ///< 20·log|s11|
};
/// Response of the circuit at f > 0.
FilterPoint ResponseOf(const LadderResponse& filter, double f);

}  // namespace kelvro
