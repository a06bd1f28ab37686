#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace kelvro {

/// Places for component values. The first eight are X1..X8 of the response formulas and of the
/// optimizer; a page decides what it keeps in them (see its OutputFields and its circuit).
enum class Slot : std::uint8_t {
    C1,
    C2,
    L,
    L2,
    X5,
    X6,
    X7,
    X8,
    ZL,                ///< characteristic impedance of the line, ohm
    NormalizedLength,  ///< of the line, in wavelengths
    Length,            ///< of the line, m
    M,                 ///< coupling inductance of the transformer's closed form, H
    FirstCoupling,     ///< band-pass couplings: this slot and the eight behind it, F
    FirstResonator = FirstCoupling + 9,  ///< band-pass resonator capacitors: eight slots, F
    Count = FirstResonator + 8,
    None = 255,
};

inline constexpr Slot SlotBehind(Slot first, int offset) {
    return static_cast<Slot>(static_cast<int>(first) + offset);
}

/// Component values by slot; SI units.
class Slots {
  public:
    double& operator[](Slot slot) { return values_[static_cast<std::size_t>(slot)]; }
    double operator[](Slot slot) const { return values_[static_cast<std::size_t>(slot)]; }
    bool operator==(const Slots&) const = default;

  private:
    std::array<double, static_cast<std::size_t>(Slot::Count)> values_{};
};

/// Choices of the Transformer page that steer the closed form and the optimizer. The weights are
/// the positions of the page's scroll bars.
struct TransformerOptions {
    bool equalInductances = false;    ///< CheckBoxL1L2
    bool smallInductances = false;    ///< CheckBoxLtot
    bool smallCapacitance = false;    ///< CheckBoxC1Null, "C1 = 0"
    int equalInductancesWeight = 10;  ///< ScrollBarW
    int smallInductancesWeight = 10;  ///< ScrollBarLtot
    int smallCapacitanceWeight = 10;  ///< ScrollBarWC
    bool operator==(const TransformerOptions&) const = default;
};

/// What a design consists of: the inputs of its page and the components. A plain value in SI units
/// that holds nothing derived (see CycleResult) and no preference of the user (see Preferences).
struct Design {
    int page = 1;  ///< 1..19

    // Inputs that every page shares.
    double R1 = 50;
    double R2 = 200;
    double fo = 100e6;
    double Q = 5;
    double QB = 100;    ///< element Q of the inductors
    double QBC = 1000;  ///< element Q of the capacitors

    // Inputs of single pages.
    double k = 0.9;  ///< coupling coefficient (Transformer)
    TransformerOptions transformer;
    double er = 1;      ///< dielectric constant (TRL)
    double v8 = 0.5;    ///< wanted voltage ratio (Passive Pi/T Section)
    double P = 1;       ///< output power (RLopt, Class-E PA)
    double Ub = 12;     ///< supply voltage
    double Usat = 0.5;  ///< saturation voltage
    double L = 100e-9;  ///< real coil or capacitor (Leff/Ceff)
    double C = 1e-12;
    double R = 1;
    double Ls = 1e-6;  ///< combined tank (Comb. LC)
    double Cs = 100e-12;
    double Lp = 1e-6;
    double fp12 = 10e6;  ///< wanted resonances of the combined tank
    double fs12 = 16e6;
    bool eightElements = false;  ///< extended network (Broadband Match)
    double LBP = 50e-9;          ///< resonator inductance (Band-Pass)
    int NBP = 3;                 ///< number of resonators
    double rippleBP = 0.5;
    double Vref = 2.4;  ///< resistor string (R-Divider)
    double Rtot = 100e3;
    double Vlow1 = 0.4;
    double Vlow2 = 0.6;
    double Vmid1 = 1.1;
    double Vmid2 = 1.3;
    double Vhi1 = 1.8;
    double Vhi2 = 2.0;
    double Vbg = 1.2;
    double Ibg = 100e-6;

    Slots components;

    bool LCSwapped = false;
    /// CheckBoxQ: the optimizer takes the loaded Q from the drop at the band edges; cleared, from
    /// the slope of the phase.
    bool QByBandwidth = true;

    bool operator==(const Design&) const = default;
};

}  // namespace kelvro
