#include "ui/help/page_hints.h"

#include <algorithm>
#include <array>

#include "design/pages.h"

namespace kelvro {

namespace {

constexpr std::array<PageHint, kPageCount> kHints = {{
    {"Steps a small source resistance up to a larger load with a free choice of the loaded Q. The "
     "series coil and C1 form the tank, C2 taps the load into it. It blocks direct current and "
     "falls off on both sides of fo.",
     "R1 must be smaller than R2. Below Q of about sqrt(R2/R1 − 1)/2 the reactance of C1 changes "
     "its sign; the value shown is then only a magnitude. At high Q the whole current runs through "
     "L: its loss is about Q/QL.",
     "The pad capacitance at the load and the input capacitance of the next stage belong to C2: "
     "subtract them. The self-capacitance of L raises its effective value; the Leff/Ceff page "
     "tells "
     "by how much. The lead inductance of C1 simply adds to L.",
     "Choose Q so that L stays below a third of the inductance that resonates with its own "
     "capacitance at fo, and C1 stays above a few times the stray capacitance (about 0.3 pF)."},
    {"Steps a large source resistance down to a smaller load. L grounds the source side, so a "
     "supply can be fed through its cold end; C1 and C2 form a capacitive tap.",
     "R1 must be larger than R2. Large ratios at high Q give a very small C1 and a large "
     "circulating current in L.",
     "The output capacitance of the driving transistor lies across L: make L a little larger or "
     "trim C1. Pads at the load add to C2. The ground lead of C2 is common to input and output; "
     "keep it short.",
     "Typical: Q 3 to 15. For L below about 2 nH think of a line instead of a coil."},
    {"The universal match: any R1 to any R2 with a chosen Q, and a low-pass that suppresses "
     "harmonics. Both ends start with a capacitor across, so it swallows the capacitances of the "
     "stages on both sides and cascades well.",
     "The intermediate resistance in the middle is lower than R1 and R2; with high Q the current "
     "in "
     "L grows and with it the loss, about 2·Q/QL. Direct current passes.",
     "Transistor and pad capacitances belong to C1 and C2: subtract them. The capacitance from one "
     "end of the coil to the other gives a notch above fo, that to ground adds to both capacitors.",
     "Keep L above 1 nH and the capacitors well above the strays. Q 2 to 10 is comfortable."},
    {"Two coils and a capacitor across: suits low impedances, where a Pi section would need "
     "very large capacitors. Lead inductances at both ends become part of the network.",
     "R1 and R2 must differ. The capacitor does not depend on Q; only the coils do. High Q needs "
     "large coils, whose self-resonance must lie well above fo.",
     "Bond wires and package leads belong to L1 and L2. The inductance of the capacitor's ground "
     "path makes a notch above fo; two capacitors in parallel halve it.",
     "Good for R of 1 to 50 ohm. Start with Q of 1 to 5 and let the optimizer refine."},
    {"Matches with two coupled coils: galvanic isolation, wide choice of ratios, and the leakage "
     "inductance is part of the design. The optimizer finds coils and capacitors for the coupling "
     "coefficient that you can really make.",
     "The closed form does not know k; without optimization the values are a start only. Little "
     "coupling (k below 0.3) gives small bandwidth and more loss.",
     "Winding capacitances belong to C1 and C2. The capacitance between the windings is not in the "
     "model: keep it small or put the cold ends together.",
     "k of planar transformers on chip: 0.6 to 0.85; of toroids: 0.9 to 0.99; of two air coils "
     "side "
     "by side: 0.1 to 0.4."},
    {"A quarter-wave line of ZL = sqrt(R1·R2): simple, no tuning, little loss at high frequencies.",
     "The Q, and so the bandwidth, follows from the ratio R1/R2. It passes direct current and "
     "repeats at every odd multiple of fo. Below about 100 MHz the line is long.",
     "Pad capacitances make the line look longer; shorten it a little. An open end adds about half "
     "the substrate's height in length.",
     "Microstrip can be made from about 20 to 120 ohm. The Tools menu calculates its width."},
    {"The L-pad with the least loss that matches both ends, from direct current to the highest "
     "frequencies. Good for measurement set-ups.",
     "R1 must be larger than R2. The attenuation follows from the ratio: 50 to 75 ohm costs 5.7 "
     "dB, "
     "50 to 200 ohm 11.4 dB.",
     "The stray capacitance across the series resistor bypasses it at high frequencies, the lead "
     "inductance of the shunt resistor blocks it. Small chip resistors reach several GHz.",
     "Use E96 values with 1 %: parts of 5 % limit the return loss to about 32 dB."},
    {"A pad that matches two resistances with a chosen attenuation. Pi and T give the same result; "
     "choose the one whose values are easier.",
     "The attenuation cannot be smaller than that of the minimum-loss pad of this ratio.",
     "In Pi form the shunt strays of the pads join the resistors' ends and disturb less; in T form "
     "the lead inductances do.",
     "Resistors between 5 ohm and 1 kohm behave well up to some GHz."},
    {"Lattice balun: one unbalanced source, two outputs of opposite phase. Four parts, no "
     "transformer, accurate at fo.",
     "Narrow: phase and amplitude are exact at fo only, usable over about 10 to 20 % of fo. "
     "Balance "
     "falls quickly when the loads differ.",
     "Pad capacitances at the + output belong to its C; at the − output they detune the shunt L, "
     "which should then be a little smaller. Keep both branches alike in layout.",
     "L and C of both branches are equal, so buy one value each; match them within 1 %."},
    {"The load resistance that a power amplifier wants to see for a given output power and supply: "
     "enter it as R1 of a matching page (the button does that).",
     "Holds for full voltage swing in class A or B without harmonics; real efficiency is lower by "
     "the losses of the network.",
     "The output capacitance of the transistor lies across this resistance; tune it out with the "
     "feed choke or absorb it in the network.",
     "Battery devices of 1 W at 3.6 V want about 5 ohm, 12 V stages 60 to 70 ohm."},
    {"What a coil or capacitor really is at fo: near its self-resonance the effective value rises, "
     "above it a coil is a capacitor and a capacitor a coil.",
     "One resonance only; long coils have more of them. The loss resistance is taken as constant; "
     "skin effect makes it rise with the root of the frequency.",
     "Measure L and R at a low frequency, the self-resonance with a network analyser, and compute "
     "C "
     "from it.",
     "Chip coils: 0.1 to 0.2 pF; chip capacitors: 0.5 to 1 nH; wired parts: 1 nH per millimetre."},
    {"A tank that is open at one frequency and short at another: passes the carrier and traps a "
     "harmonic, with three parts.",
     "The short lies above the open frequency. Sharp traps need coils of high Q; their depth is "
     "about the loss resistance of Ls and Cs.",
     "Stray capacitance across the whole tank lowers the open frequency; trim Lp.",
     "For a trap at 2·fo: Lp = 3·Ls for any Ls. The button solves the general case."},
    {"The L-section: two parts, the least loss of all LC matches, the largest bandwidth for its "
     "ratio.",
     "Q follows from the ratio of the resistances, so bandwidth cannot be chosen. R1 and R2 must "
     "differ.",
     "Capacitances at the high-resistance side belong to C, lead inductance on the low side to L.",
     "For ratios above 10 take two sections (LCCL, Double-L, Broadband)."},
    {"Low-pass L followed by high-pass L: steps R1 up to R2 with a band-pass character and almost "
     "no phase shift; blocks direct current.",
     "R2 must be larger than R1. Four parts, so four tolerances.",
     "Pads at the middle node add to C1, at the load they detune L2.",
     "Halves of about equal size: the optimizer keeps L1 and L2, C1 and C2 alike."},
    {"A switching power stage with efficiency up to 90 %: the switch closes when its voltage is "
     "zero. Values after Sokal's equations with corrections for finite Q.",
     "Load Q must exceed 1.79; below Q of 3 harmonics rise, above 10 the coil loses. The switch "
     "sees 3.6 times the supply. Switch resistance should be below a tenth of R.",
     "The output capacitance of the transistor is part of C1: subtract it. When C1 comes out "
     "smaller "
     "than it, this frequency is too high for this transistor at this power.",
     "Q of 5 is a good start. Follow with a matching page from R to the antenna."},
    {"Low-pass ladder of two or four L-sections, refined over the band: broad match with "
     "harmonic suppression.",
     "R2 must be larger than R1. The flatter the wider it is asked to be, the lower the best "
     "transmission (Bode and Fano). Q is set to 0.2 on entry: the optimizer then weighs the whole "
     "band.",
     "Every shunt capacitor takes the pad at its node. Coils of low impedance sections are small: "
     "count leads in.",
     "Eight elements cover an octave and more at a ratio of 4."},
    {"Capacitively coupled resonators: a real band-pass filter that also matches. Butterworth or "
     "Chebyshev, 1 to 8 resonators with equal coils.",
     "Relative bandwidth 1/Q up to about 20 %. The upper stop-band is less steep than the lower. "
     "Losses grow with the number of resonators and with Q/QL.",
     "Pads and coil capacitances belong to the resonator capacitors. Couple the coils by distance "
     "or shields as little as possible.",
     "Choose L so that the resonator capacitors can be bought and the couplings stay above about "
     "0.5 pF."},
    {"Two high-pass L-sections: steps R1 down to R2 with half the Q of a single section, so about "
     "twice the bandwidth; blocks direct current, and the first coil can feed a collector.",
     "R1 must be larger than R2. Harmonics pass.",
     "The transistor's output capacitance detunes L1: make L1 smaller. Pads at the middle node "
     "detune L2 likewise.",
     "Good for ratios of 4 to 100."},
    {"A resistor string that makes six reference voltages from one, and the resistor of a bandgap "
     "bias. Take rounded values back and let the optimizer bring the taps to their place.",
     "Taps must not be loaded; their source resistance is up to a quarter of the string.",
     "On chip, end effects of the resistors shift the taps: build all from equal unit resistors.",
     "100 kohm to 1 Mohm on chip, 10 to 100 kohm on boards."},
}};

QString Section(const char* heading, const char* text) {
    return QStringLiteral("<h3>%1</h3><p>%2</p>")
        .arg(QString::fromUtf8(heading), QString::fromUtf8(text));
}

}  // namespace

const PageHint& HintOfPage(int page) {
    return kHints[static_cast<std::size_t>(std::clamp(page, 1, kPageCount) - 1)];
}

QString HintHtml(int page) {
    const PageHint& hint = HintOfPage(page);
    return Section("What it is good for", hint.use) + Section("Limits", hint.limits) +
           Section("Pads and parasitics", hint.parasitics) + Section("Typical values", hint.values);
}

}  // namespace kelvro
