#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/result.h"
#include "io/exports.h"
#include "network/network.h"

// Networks in the forms that other tools read: contents as texts. Measured data have to cover the
// range.

namespace kelvro {

/// One form in which networks leave the program; keys are those of the designs' formats.
struct NetworkFormat {
    std::string_view key;      ///< on the command line: "spice"
    std::string_view caption;  ///< "SPICE netlist"
    std::string_view suffix;   ///< of file names: "cir"
    bool range;                ///< are frequencies chosen?
    bool reference;            ///< is a reference resistance chosen?
    std::string (*content)(const Network&, const ExportRange&);
};

std::span<const NetworkFormat> NetworkFormats();
const NetworkFormat* FindNetworkFormat(std::string_view key);

/// Elements, terminations and measured data in plain text.
std::string NetworkListing(const Network& network, const ExportRange&);
/// A netlist that ngspice runs as it is: a sweep over the range that prints the transducer gain.
std::string NetworkSpice(const Network& network, const ExportRange& range);
/// The ladder alone as a two-port file.
std::string NetworkTouchstone(const Network& network, const ExportRange& range);
/// What analyze shows, as columns or as records.
std::string NetworkCsv(const Network& network, const ExportRange& range);
std::string NetworkJson(const Network& network, const ExportRange& range);

}  // namespace kelvro
