#pragma once

#include <map>
#include <stop_token>
#include <string>

#include "core/result.h"

namespace kelvro {

/// What a netlist's .meas and .four lines brought, by name. The n-th harmonic of a Fourier analysis
/// is called "harmonic2" and the like (amplitude).
using Measurements = std::map<std::string, double>;

/// Runs a netlist in ngspice, in batch mode in a folder of its own, and waits for its end; from any
/// thread. Fails with one clear message where ngspice is missing, breaks off, is asked to stop,
/// takes longer than `seconds` or measures nothing.
Result<Measurements> RunNgspice(const std::string& netlist, const std::stop_token& stop = {},
                                int seconds = 60);

/// The measurements in what ngspice printed; those that failed are left out.
Measurements MeasurementsIn(const std::string& output);

}  // namespace kelvro
