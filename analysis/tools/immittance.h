#pragma once

#include <complex>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "network/part.h"

// Impedances of small circuits, and their equivalent series and parallel forms at one frequency.

namespace kelvro {

/// How resistor, inductor and capacitor of a circuit are connected.
enum class Connection : std::uint8_t {
    Series,         ///< R, L and C in series
    Parallel,       ///< R, L and C in parallel
    RLAcrossC,      ///< R and L in series, C across both: a real coil
    RCAcrossL,      ///< R and C in series, L across both
    RLParallelToC,  ///< R across L, in series with C
    RCParallelToL,  ///< R across C, in series with L
};

struct ConnectionName {
    Connection connection;
    std::string_view text;
};
const std::vector<ConnectionName>& Connections();

/// Elements that are not there stay empty.
struct MixedCircuit {
    Connection connection = Connection::Series;
    std::optional<double> R;
    std::optional<double> L;
    std::optional<double> C;
};

/// The circuit's immittance at f in Hz; nothing for a circuit without elements.
std::optional<Immittance> ImmittanceOf(const MixedCircuit& circuit, double f);

/// A resistance and one reactive element.
struct Equivalent {
    double resistance;
    double reactance;  ///< positive: the element is an inductor
    double element;    ///< H or F
};

/// R + jX of equal impedance.
Equivalent SeriesForm(const Immittance& circuit, double f);
/// R across jX of equal impedance. Infinite where the circuit has no such part.
Equivalent ParallelForm(const Immittance& circuit, double f);
/// |X|/R of the series form, which equals R/|X| of the parallel form.
double QualityFactor(const Immittance& circuit);

}  // namespace kelvro
