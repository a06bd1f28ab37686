#include "advise/ranked_circuit.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"

namespace kelvro {

namespace {

constexpr double kFullScore = 100;
constexpr double kPerDbOfLoss = 5;
constexpr double kPerPart = 2;
constexpr double kPerOctaveOfBandwidth = 12;
constexpr double kPerOctaveOfRatio = 20;
constexpr double kMostForOneWish = 48;
constexpr double kMostHarmonicDb = 40;  // more suppression than that is not worth more
constexpr double kImpractical = 30;

/// A match to within this is a match; more is what a pad does.
constexpr double kRatioTolerance = 0.01;

constexpr BuildRange kResistance = {0.1, 10e6};
constexpr BuildRange kLineImpedance = {15, 150};
constexpr BuildRange kReactance = {0.5, 5000};

double ReactanceAt(const ListedPart& part, double f) {
    return std::abs(impedance(Part{part.kind, part.value}, f));
}

bool IsReactance(const ListedPart& part) {
    return part.kind != PartKind::Resistor && !part.atSupply;
}

BuildRange BuildableRange(const ListedPart& part) {
    if (part.line) return kLineImpedance;
    return part.kind == PartKind::Inductor    ? kInductance
           : part.kind == PartKind::Capacitor ? kCapacitance
                                              : kResistance;
}

/// Why a part cannot be built; empty when it can.
std::string WhyImpractical(const ListedPart& listed, double f) {
    const std::string part = listed.name + " " + FormatQuantity(2, listed.value, listed.unit());
    if (!(listed.value > 0) || !std::isfinite(listed.value)) return part + " does not exist";
    const BuildRange range = BuildableRange(listed);
    if (listed.value < range.low) return part + " is too small to be built";
    if (listed.value > range.high) return part + " is too large to be built";
    const double X = ReactanceAt(listed, f);
    if (!IsReactance(listed) || (X >= kReactance.low && X <= kReactance.high)) return "";
    return part + " has a reactance of " + FormatQuantity(2, X, "Ω") + ", where parasitics decide";
}

double OctavesBetween(double a, double b) {
    return std::isfinite(a) && std::isfinite(b) && a > 0 && b > 0 ? std::fabs(std::log2(a / b))
                                                                  : kMostForOneWish;
}

}  // namespace

std::optional<double> Wishes::wantedBandwidth(double fo) const {
    if (Q && *Q > 0) return fo / *Q;
    if (bandwidth && *bandwidth > 0) return bandwidth;
    return std::nullopt;
}

bool Wishes::attenuate(double R1, double R2) const {
    return voltageRatio && *voltageRatio < std::sqrt(R2 / R1) * (1 - kRatioTolerance);
}

std::string SizedPart::text() const {
    return name + " " + FormatQuantity(2, value, unit);
}

void RankedCircuit::add(const ListedPart& part, double fo) {
    ++parts;
    const SizedPart sized{part.name, part.value, std::string(part.unit()), ReactanceAt(part, fo)};
    if (!smallest || sized.impedance < smallest->impedance) smallest = sized;
    if (!largest || sized.impedance > largest->impedance) largest = sized;
    if (impractical.empty()) impractical = WhyImpractical(part, fo);
    practical = impractical.empty();
}

double ScoreOf(const RankedCircuit& circuit, const Wishes& wishes, double fo, bool match) {
    double score = kFullScore - kPerPart * circuit.parts;
    if (circuit.gtDb && match) score += kPerDbOfLoss * *circuit.gtDb;
    const auto wanted = wishes.wantedBandwidth(fo);
    if (wanted && circuit.passband) {
        const double octaves = OctavesBetween(circuit.passband->width(), *wanted);
        score -= std::min(kMostForOneWish, kPerOctaveOfBandwidth * octaves);
    }
    if (wishes.voltageRatio && circuit.gtDb) {
        const double octaves = OctavesBetween(circuit.v, *wishes.voltageRatio);
        score -= std::min(kMostForOneWish, kPerOctaveOfRatio * octaves);
    }
    if (wishes.suppressHarmonics && circuit.secondHarmonicDb) {
        score += std::min(kMostHarmonicDb, *circuit.secondHarmonicDb);
    }
    if (!circuit.practical) score -= kImpractical;
    return score;
}

bool RanksBefore(const RankedCircuit& a, const RankedCircuit& b) {
    return a.suited != b.suited ? a.suited : a.score > b.score;
}

std::string DecibelWords(double value) {
    return FormatFixed(0, 1, value) + " dB";
}

}  // namespace kelvro
