#include "cli/tolerance_options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <optional>

#include "cli/design_options.h"
#include "core/number_text.h"

namespace kelvro {

namespace {

/// A whole number of at most 64 bits.
std::optional<std::uint64_t> SeedOf(const std::string& text) {
    std::uint64_t seed = 0;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, seed);
    if (error != std::errc() || last != end) return {};
    return seed;
}

std::string SeedProblem(const std::string& text) {
    return SeedOf(text) ? "" : "'" + text + "' is no seed: a whole number from 0 to 2^64 - 1";
}

}  // namespace

Tolerances ToleranceOptions::tolerances() const {
    Tolerances result;
    const auto take = [](const std::string& text, double& percent) {
        if (!text.empty()) percent = ClampTolerance(ParseValue(text));
    };
    take(capacitance, result.capacitance);
    take(inductance, result.inductance);
    take(lineImpedance, result.lineImpedance);
    take(resistance, result.resistance);
    return result;
}

std::uint64_t ToleranceOptions::seedOrClock() const {
    return SeedOf(seed).value_or(ClockSeed());
}

void AddToleranceOptions(CLI::App& command, ToleranceOptions& options) {
    const auto add = [&](const char* name, std::string& text, const char* of, double standard) {
        const std::string help = std::string("Tolerance of ") + of + " in percent, 0.1 to 35 (" +
                                 FormatFixed(0, 0, standard) + ")";
        command.add_option(name, text, help)->check(NumberProblem)->type_name("PERCENT");
    };
    const Tolerances standard;
    add("--ctol", options.capacitance, "capacitances", standard.capacitance);
    add("--ltol", options.inductance, "inductances", standard.inductance);
    add("--zltol", options.lineImpedance, "the line's impedance", standard.lineImpedance);
    add("--rtol", options.resistance, "resistors", standard.resistance);
    command.add_option("--seed", options.seed, "Seed of the random numbers; else from the clock")
        ->check(SeedProblem)
        ->type_name("NUMBER");
}

}  // namespace kelvro
