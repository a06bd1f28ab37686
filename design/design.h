#pragma once

#include "design/shown_parts.h"
#include "design/slots.h"

namespace kelvro {

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
    // Choices of the Transformer page that steer the closed form and the optimizer, with the
    // positions of their scroll bars.
    bool equalInductances = false;  ///< CheckBoxL1L2
    int equalInductancesWeight = 10;
    bool smallInductances = false;  ///< CheckBoxLtot
    int smallInductancesWeight = 10;
    bool smallCapacitance = false;  ///< CheckBoxC1Null, "C1 = 0"
    int smallCapacitanceWeight = 10;
    double er = 1;               ///< dielectric constant (TRL)
    double v8 = 0.5;             ///< wanted voltage ratio (Passive Pi/T Section)
    double P = 1;                ///< output power (RLopt, Class-E PA)
    double Ub = 12;              ///< supply voltage
    double Usat = 0.5;           ///< saturation voltage
    double chokeRatio = 143;     ///< reactance of the choke at fo in units of R (Class-E PA)
    bool infiniteChoke = false;  ///< no ripple in the choke, whatever the ratio says
    double L = 100e-9;           ///< real coil or capacitor (Leff/Ceff)
    double C = 1e-12;
    double R = 1;
    double Ls = 1e-6;  ///< combined tank (Comb. LC)
    double Cs = 100e-12;
    double Lp = 1e-6;
    double fp12 = 10e6;  ///< wanted resonances of the combined tank
    double fs12 = 16e6;
    bool eightElements = false;  ///< extended network (Broadband Match)
    bool matchBand = true;       ///< the worst gain between two edges counts
    double bandLow = 0;          ///< the edges; 0: as far from fo as the page says
    double bandHigh = 0;
    double LBP = 50e-9;  ///< resonator inductance (Band-Pass)
    int NBP = 3;         ///< number of resonators
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
    ShownParts shown;  ///< the components as their fields show them

    bool LCSwapped = false;
    /// CheckBoxQ: the optimizer takes the loaded Q from the drop at the band edges; cleared, from
    /// the slope of the phase.
    bool QByBandwidth = true;

    bool operator==(const Design&) const = default;
};

}  // namespace kelvro
