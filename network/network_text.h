#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/result.h"
#include "network/network.h"

// Impedances and ladder elements as people write them, the one notation of fields, command line and
// project file.
//
//   50   12-j45   12 + 45j   j20        constant impedance, ohm
//   R=10 + L=2n + C=3p                  in series
//   50 | C=2p                           in parallel ("||" as well); binds tighter than "+"
//   L=2.3 + (1 | C=1.2)                 any nesting
//   antenna.s1p   amp.s2p:1   amp.s2p:2*   "my antenna.s1p"
//                                       measured data: file, port, conjugate; quotes where a name
//                                       has other characters or another ending
//   antenna.s1p(polar)   amp.s2p(cubic):2*
//                                       read between samples in this way: linear, polar or cubic
//   L1=10n(Q=40@100M)                   a part with a name and with losses
//
// Losses, apart by commas: Q=40 (constant), Q=40@100M (40 at 100 MHz, proportional to √f), with
// law=constant, law=f or law=page, law=mirrored another law; ESR=0.1; SRF=3G; name="…".
// With them, also of a resistor, stands the part's own tolerance: tol=5, in percent ("5%" as well).
//
//   series: Z    shunt: Z               an arm; of a two-port file port 1 with port 2 grounded
//   supply: Z                           a shunt arm that hangs at the supply
//   line: Z=50, deg=90@2.4G             or len=31m, er=2.2; att=0.3@1G: dB/m, proportional to √f;
//                                       tan=0.01: γl = angle·(tan + j); tol=5: of Z; name=…
//   open: …    short: …                 stubs across, like lines
//   transformer: n=2                    n:1, source side to load side
//   coupled: L1=1u, L2=2u(Q=40), k=0.9  coils with common ground
//   part: coil.s2p                      measured, in line
//   switch: S1                          open for signals
//   branch: {series: L=1n; load: 50}    a path that leaves the main one for a load of its own
//
// Any element may end in "-> name", the name of the node behind it. Numbers carry engineering
// prefixes and, if wanted, their unit (20.8nH, 50 Ω, 2.4 GHz); "m" behind a length is milli.

namespace kelvro {

/// Fetches measured data by the name that the text gives; its failure becomes the text's.
using DataLoader = std::function<Result<std::shared_ptr<const PortData>>(std::string_view file)>;

/// The impedance of a text, or one line that names the place: "column 7: expected a number".
/// Columns count characters from 1. Without a loader texts with files fail. Texts beyond 100 000
/// bytes or nested deeper than 100 are refused.
Result<Impedance> ParseImpedance(std::string_view text, const DataLoader& load = {});

/// The same for what ends a network, where a two-port file needs its port.
Result<Termination> ParseTermination(std::string_view text, const DataLoader& load = {});

/// One element of a ladder.
Result<LadderElement> ParseElement(std::string_view text, const DataLoader& load = {});

/// The text that parses to the same impedance; with `digits` above 0 its numbers are rounded to so
/// many digits. Groups of a single member are written as that member.
std::string ImpedanceText(const Impedance& impedance, int digits = 0);

/// The text that parses to the same element, rounded likewise.
std::string ElementText(const LadderElement& element, int digits = 0);

}  // namespace kelvro
