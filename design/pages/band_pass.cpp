// Band-Pass: resonators across the line, coupled by capacitors.

#include <array>
#include <cmath>
#include <numbers>
#include <optional>

#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

using Values = std::vector<long double>;

/// g(0) ... g(N+1) of a maximally flat low-pass prototype.
Values ButterworthPrototype(int N) {
    Values g(static_cast<std::size_t>(N) + 2, 1);
    for (int i = 1; i <= N; ++i) {
        g[static_cast<std::size_t>(i)] =
            2 * std::sin((2 * i - 1) * std::numbers::pi_v<long double> / (2 * N));
    }
    return g;
}

/// g(0) ... g(N+1) of an equal-ripple low-pass prototype; ripple in dB, above 0.
Values ChebyshevPrototype(int N, long double ripple) {
    constexpr long double pi = std::numbers::pi_v<long double>;
    const long double beta = -std::log(std::tanh(ripple * std::numbers::ln10_v<long double> / 40));
    const long double gamma = std::sinh(beta / (2 * N));
    const auto a = [&](int k) { return std::sin((2 * k - 1) * pi / (2 * N)); };
    const auto b = [&](int k) {
        const long double sine = std::sin(k * pi / N);
        return gamma * gamma + sine * sine;
    };
    Values g{1, 2 * a(1) / gamma};
    for (int k = 2; k <= N; ++k) g.push_back(4 * a(k - 1) * a(k) / (b(k - 1) * g.back()));
    const long double root = 1 / std::tanh(beta / 4);
    g.push_back(N % 2 ? 1 : root * root);
    return g;
}

struct FilterCapacitors {
    Values couplings;   ///< N + 1, from source to load
    Values resonators;  ///< N
};

/// J-inverter design of Matthaei, Young, Jones, "Microwave Filters, Impedance-Matching Networks and
/// Coupling Structures", ch. 8. The inverters hold in a narrow band around fo. Nothing when the
/// bandwidth asks for a capacitor that cannot be built.
std::optional<FilterCapacitors> FindCapacitors(const Design& s, long double omega, long double Qe) {
    const int N = s.NBP;
    const Values g = s.rippleBP > 0 ? ChebyshevPrototype(N, s.rippleBP) : ButterworthPrototype(N);
    const auto last = static_cast<std::size_t>(N);
    const long double Cr = 1 / (omega * omega * s.LBP);
    const long double slope = omega * Cr / Qe;
    const Values R = {s.R1, s.R2};
    FilterCapacitors C{Values(last + 1), Values(last, Cr)};
    for (std::size_t i = 0; i <= last; ++i) {
        long double shunt = 0;  // what the coupling adds to each neighbour
        if (i == 0 || i == last) {
            const long double end = R[i == 0 ? 0 : 1];
            const long double J = std::sqrt(slope / (end * g[i] * g[i + 1]));
            if (J * end >= 1) return std::nullopt;
            const long double B = J / std::sqrt(1 - J * J * end * end);
            C.couplings[i] = B / omega;
            shunt = C.couplings[i] / (1 + B * B * end * end);
        } else {
            C.couplings[i] = slope / std::sqrt(g[i] * g[i + 1]) / omega;
            shunt = C.couplings[i];
        }
        if (i > 0) C.resonators[i - 1] -= shunt;
        if (i < last) C.resonators[i] -= shunt;
    }
    for (const long double resonator : C.resonators) {
        if (!(resonator > 0)) return std::nullopt;
    }
    return C;
}

Slot CouplingSlot(std::size_t i) {
    return SlotBehind(Slot::FirstCoupling, static_cast<int>(i));
}

Slot ResonatorSlot(std::size_t i) {
    return SlotBehind(Slot::FirstResonator, static_cast<int>(i));
}

void DesignBandPass(DesignPass& pass) {
    Design& s = pass.state;
    const auto found = FindCapacitors(s, pass.omega, pass.Qe);
    if (!found) {
        return pass.refuse("Bandwidth too large for this inductance! Increase Q or change L.");
    }
    if (pass.storeComponents) {
        for (std::size_t i = 0; i < found->couplings.size(); ++i) {
            s.components[CouplingSlot(i)] = static_cast<double>(found->couplings[i]);
        }
        for (std::size_t i = 0; i < found->resonators.size(); ++i) {
            s.components[ResonatorSlot(i)] = static_cast<double>(found->resonators[i]);
        }
    }
    pass.evaluate();
    pass.showComponents();
    pass.setBandwidth(s.fo / pass.Qe);
}

constexpr std::array<std::string_view, 9> kCouplings = {"C01", "C12", "C23", "C34", "C45",
                                                        "C56", "C67", "C78", "C89"};
constexpr std::array<std::string_view, 8> kResonators = {"C1", "C2", "C3", "C4",
                                                         "C5", "C6", "C7", "C8"};
constexpr std::array<std::string_view, 8> kInductors = {"L1", "L2", "L3", "L4",
                                                        "L5", "L6", "L7", "L8"};

Network BandPassNetwork(const Design& s) {
    using enum PartKind;
    const auto resonators = static_cast<std::size_t>(s.NBP);
    std::vector<LadderElement> ladder;
    ladder.reserve(3 * resonators + 1);
    ladder.push_back(SeriesArm(PagePart(Capacitor, kCouplings[0], s, CouplingSlot(0))));
    for (std::size_t i = 0; i < resonators; ++i) {
        ladder.push_back(ShuntArm(PagePart(Capacitor, kResonators[i], s, ResonatorSlot(i))));
        ladder.push_back(ShuntArm(PagePart(Inductor, kInductors[i], s, s.LBP)));
        ladder.push_back(SeriesArm(PagePart(Capacitor, kCouplings[i + 1], s, CouplingSlot(i + 1))));
    }
    return PageNetwork(s, std::move(ladder));
}

/// The table of the page has a row for every part, but the parts have no field of their own.
std::vector<PartRow> BandPassParts() {
    std::vector<PartRow> parts;
    for (std::size_t i = 0; i < kCouplings.size(); ++i) {
        parts.push_back({std::string(kCouplings[i]), CouplingSlot(i)});
    }
    for (std::size_t i = 0; i < kResonators.size(); ++i) {
        parts.push_back({std::string(kResonators[i]), ResonatorSlot(i)});
        parts.push_back({std::string(kInductors[i]), Slot::None, "L17Eingabe"});
    }
    return parts;
}

}  // namespace

Page BandPassPage() {
    Page page{
        .key = "band-pass",
        .caption = "Band-Pass",
        .menuItem = "Bandpass1",
        .menuText = "&Capacitive Coupled Band-Pass",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .exportable = true,
        .suggestion = {.role = Role::Match, .character = "Coupled resonators with steep skirts"},
        .hint = {.use = "Capacitively coupled resonators: a real band-pass filter that also "
                        "matches. Butterworth or Chebyshev, 1 to 8 resonators with equal coils.",
                 .limits =
                     "Relative bandwidth 1/Q up to about 20 %. The upper stop-band is less steep "
                     "than the lower. Losses grow with the number of resonators and with Q/QL.",
                 .parasitics = "Pads and coil capacitances belong to the resonator capacitors. "
                               "Couple the coils by distance or shields as little as possible.",
                 .values = "Choose L so that the resonator capacitors can be bought and the "
                           "couplings stay above about 0.5 pF."},
        .goal = PageGoal::Nothing()};
    page.notes = {{"Resonators from L(BP) and C across, coupled by capacitors",
                   "Relative bandwidth 1/Q; exact in narrow bands"}};
    page.inputs = {{"L17Eingabe",
                    "Inductance L(BP)",
                    "H",
                    "Inductance of every resonator; smaller: larger capacitors, wider band",
                    "lbp",
                    "L(BP)",
                    &Design::LBP,
                    {1e-15, 1e3}},
                   {"N17Eingabe",
                    "Resonators N(BP)",
                    "",
                    "Number of resonators, 1 to 8",
                    "nbp",
                    "N(BP)",
                    &Design::NBP,
                    {1, 8},
                    Fixed(7, 0)},
                   {"Ripple17Eingabe",
                    "Ripple",
                    "dB",
                    "Ripple in the pass band, 0 to 3 dB; 0: maximally flat (Butterworth)",
                    "ripple",
                    "Ripple(BP)",
                    &Design::rippleBP,
                    {0, 3}}};
    page.table = "Bp17Tabelle";
    page.design = DesignBandPass;
    page.transfer = [](const Design& s) { return Transfer::Ladder(BandPassNetwork(s)); };
    page.networks = [](const Design& s) { return std::vector{BandPassNetwork(s)}; };
    page.parts = BandPassParts();
    return page;
}

}  // namespace kelvro
