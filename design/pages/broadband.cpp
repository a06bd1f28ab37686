// Broadband Match: low-pass ladder of two or four L-sections, refined over the band.

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

/// Two like elements that lie in two neighbouring slots: plainly in the ladder of two sections; as
/// geometric mean m and ratio r (the elements being m/r and m·r) in that of four, where the
/// optimizer works on those.
template <Slot Mean, Slot Ratio>
struct ElementPair {
    static double first(const Design& s) {
        const double m = s.components[Mean];
        return s.eightElements ? m / s.components[Ratio] : m;
    }
    static double second(const Design& s) {
        const double r = s.components[Ratio];
        return s.eightElements ? s.components[Mean] * r : r;
    }
    static void setFirst(Design& s, double x) { store(s, x, second(s)); }
    static void setSecond(Design& s, double x) { store(s, first(s), x); }
    static void store(Design& s, double x, double y) {
        constexpr double smallest =
            1e-150;  // a value that could not be read leaves the other alone
        if (s.eightElements) {
            x = std::max(x, smallest);
            y = std::max(y, smallest);
        }
        const double mean = std::sqrt(x * y);
        s.components[Mean] = s.eightElements ? mean : x;
        s.components[Ratio] = s.eightElements ? y / mean : y;
    }
};

using FrontC = ElementPair<Slot::C1, Slot::C2>;
using FrontL = ElementPair<Slot::L, Slot::L2>;
using BackC = ElementPair<Slot::X5, Slot::X6>;
using BackL = ElementPair<Slot::X7, Slot::X8>;

int Sections(const Design& s) {
    return s.eightElements ? 4 : 2;
}

/// Low-pass L sections (W. L. Everitt, Proc. IRE 19 (1931), 725-737) with equal steps of
/// resistance, so that all have the same q. Exact at fo (0.00 to 0.01 dB off). Over a band a ladder
/// of equal ripple does better, which the optimizer moves towards: G. L. Matthaei, "Tables of
/// Chebyshev impedance-transforming networks of low-pass filter form", Proc. IEEE 52 (1964),
/// 939-963.
void StoreLadder(Design& s, long double omega) {
    const long double R1 = s.R1;
    const long double step = std::pow(s.R2 / R1, 1.0L / Sections(s));
    const long double q = std::sqrt(step - 1);
    std::array<double, 4> L{};
    std::array<double, 4> C{};
    long double R = R1;
    for (std::size_t i = 0; i < L.size(); ++i) {
        L[i] = static_cast<double>(q * R / omega);
        R *= step;
        C[i] = static_cast<double>(q / (omega * R));
    }
    FrontC::store(s, C[0], C[1]);
    FrontL::store(s, L[0], L[1]);
    if (!s.eightElements) return;
    BackC::store(s, C[2], C[3]);
    BackL::store(s, L[2], L[3]);
}

void DesignBroadband(DesignPass& pass) {
    Design& s = pass.state;
    if (!(s.R2 > s.R1)) return pass.refuse(std::string(kNeedsR2Larger));
    if (pass.storeComponents) StoreLadder(s, pass.omega);
    pass.finish();
    pass.setBandwidth(s.fo / pass.Qe);
}

Network BroadbandNetwork(const Design& s) {
    const auto L = [&s](std::string_view name, double value) {
        return SeriesArm(PagePart(PartKind::Inductor, name, s, value));
    };
    const auto C = [&s](std::string_view name, double value) {
        return ShuntArm(PagePart(PartKind::Capacitor, name, s, value));
    };
    std::vector<LadderElement> ladder{L("L1", FrontL::first(s)), C("C1", FrontC::first(s)),
                                      L("L2", FrontL::second(s)), C("C2", FrontC::second(s))};
    if (s.eightElements) {
        ladder.push_back(L("L3", BackL::first(s)));
        ladder.push_back(C("C3", BackC::first(s)));
        ladder.push_back(L("L4", BackL::second(s)));
        ladder.push_back(C("C4", BackC::second(s)));
    }
    return PageNetwork(s, std::move(ladder));
}

/// V(s) of R1 - L1 - C1 across - L2 - (C2 || R2); of four sections by chain matrices.
Transfer BroadbandTransfer(const Design& s) {
    if (s.eightElements) return Transfer::Ladder(BroadbandNetwork(s));
    const long double C1 = s.components[Slot::C1];
    const long double C2 = s.components[Slot::C2];
    const long double L1 = s.components[Slot::L];
    const long double L2 = s.components[Slot::L2];
    const long double R1 = s.R1;
    const long double G1 = 1 / R1;
    const long double G2 = 1 / static_cast<long double>(s.R2);
    return Transfer::Polynomial(
        G1, 0,
        {G1 * (1 + R1 * G2), G1 * (R1 * (C1 + C2) + (L1 + L2) * G2),
         G1 * (L1 * C1 + L2 * C2 + L1 * C2 + R1 * G2 * C1 * L2),
         G1 * (R1 * C1 * L2 * C2 + L1 * C1 * L2 * G2), G1 * L1 * C1 * L2 * C2});
}

// ---------------------------------------------------------------- goal

/// Larger Q ask for a loaded Q, whatever the band.
bool MatchesBand(const Design& s) {
    return s.matchBand && s.Q <= kNarrowBandQ;
}

// The edges until they are typed.
double UsualLow(const Design& s) {
    return 0.7 * s.fo;
}

double UsualHigh(const Design& s) {
    return 1.3 * s.fo;
}

FrequencyBand BandEdges(const Design& s) {
    const double low = s.bandLow > 0 ? s.bandLow : UsualLow(s);
    const double high = s.bandHigh > 0 ? s.bandHigh : UsualHigh(s);
    return {std::min(low, high), std::max(low, high)};
}

constexpr double kSmallestBase = 0.02;  // of the power function of frequencies relative to fo

Band LadderBand(const Design& s) {
    const double m = TransformationTerm(s);
    // Beyond a resistance ratio of nine the base is negative: its sign does not count.
    const double d = std::max(std::fabs(1 - std::pow(m, 0.333) * 0.8), kSmallestBase);
    const double half = std::sqrt(d);
    const double wide = std::pow(d, 0.75);
    return {.points = {{{s.fo * d, m / 2},
                        {s.fo, 1},
                        {s.fo / d, m / 2},
                        {s.fo * half, 1},
                        {s.fo / half, 1},
                        {s.fo * wide, 1},
                        {s.fo / wide, 1}}},
            .count = 7,
            .scale = 1};
}

/// The eight slots of four sections come in pairs of mean and ratio; the elements C1, C2, L1, L2,
/// C3, C4, L3, L4 are what the parameters move. Each further element of a group is reckoned
/// relative to the first.
constexpr std::array<std::size_t, 8> kFirstOfGroup = {0, 0, 2, 2, 0, 0, 2, 2};

std::vector<double> LadderValues(const Design& s, const std::vector<Slot>& slots) {
    std::vector<double> values;
    if (!s.eightElements) {
        for (const Slot slot : slots) values.push_back(s.components[slot]);
        return values;
    }
    for (std::size_t i = 0; i + 1 < slots.size(); i += 2) {
        const double mean = s.components[slots[i]];
        const double ratio = s.components[slots[i + 1]];
        values.insert(values.end(), {mean / ratio, mean * ratio});
    }
    // The first of each group stands before those that are divided by it.
    const std::vector<double> elements = values;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (kFirstOfGroup[i] != i) values[i] = elements[i] / elements[kFirstOfGroup[i]];
    }
    return values;
}

void SetLadderValues(Design& s, const std::vector<Slot>& slots, std::span<const double> values) {
    if (!s.eightElements) {
        for (std::size_t i = 0; i < slots.size(); ++i) s.components[slots[i]] = values[i];
        return;
    }
    std::vector<double> elements(values.begin(), values.end());
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (kFirstOfGroup[i] != i) elements[i] *= elements[kFirstOfGroup[i]];
    }
    for (std::size_t i = 0; i + 1 < elements.size(); i += 2) {
        const double mean = std::sqrt(elements[i] * elements[i + 1]);
        s.components[slots[i]] = mean;
        s.components[slots[i + 1]] = elements[i + 1] / mean;
    }
}

PageGoal BroadbandGoal() {
    PageGoal goal = PageGoal::Components([](const Design& s) {
        using enum Slot;
        return s.eightElements ? std::vector{C1, C2, L, L2, X5, X6, X7, X8}
                               : std::vector{C1, C2, L, L2};
    });
    goal.values = LadderValues;
    goal.setValues = SetLadderValues;
    goal.band = LadderBand;
    goal.worstIn = [](const Design& s) {
        return MatchesBand(s) ? std::optional(BandEdges(s)) : std::nullopt;
    };
    return goal;
}

// ---------------------------------------------------------------- fields

std::vector<InputField> BroadbandInputs() {
    constexpr Limits hertz{0, 1e11};
    return {{"fLow16Eingabe", "Band from", "Hz",
             "Lower edge of the band in which the worst gain counts; 0: 0.7·fo", "band-low",
             kKeptExactly, &Design::bandLow, hertz, kEngineering, MatchesBand, UsualLow},
            {"fHigh16Eingabe", "Band to", "Hz",
             "Upper edge of the band in which the worst gain counts; 0: 1.3·fo", "band-high",
             kKeptExactly, &Design::bandHigh, hertz, kEngineering, MatchesBand, UsualHigh}};
}

template <typename Pair>
void AddPair(std::vector<OutputField>& outputs, OutputField first, OutputField second) {
    first.get = Pair::first;
    first.set = Pair::setFirst;
    second.get = Pair::second;
    second.set = Pair::setSecond;
    outputs.push_back(first);
    outputs.push_back(second);
}

std::vector<OutputField> BroadbandOutputs() {
    std::vector<OutputField> pairs;
    AddPair<FrontL>(pairs, Component("L116Ausgabe", "L1", "Inductance L1", "H", Slot::L),
                    Component("L216Ausgabe", "L2", "Inductance L2", "H", Slot::L2));
    AddPair<FrontC>(pairs, Component("C116Ausgabe", "C1", "Capacitance C1", "F", Slot::C1),
                    Component("C216Ausgabe", "C2", "Capacitance C2", "F", Slot::C2));
    AddPair<BackL>(pairs, Component("L316Ausgabe", "L3", "Inductance L3", "H", Slot::X7),
                   Component("L416Ausgabe", "L4", "Inductance L4", "H", Slot::X8));
    AddPair<BackC>(pairs, Component("C316Ausgabe", "C3", "Capacitance C3", "F", Slot::X5),
                   Component("C416Ausgabe", "C4", "Capacitance C4", "F", Slot::X6));
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        pairs[i].initial = kNoValueYet;
        if (i >= 4) pairs[i].shown = [](const Design& s) { return s.eightElements; };
    }
    // From source to load.
    return {pairs[0], pairs[2], pairs[1], pairs[3], pairs[4], pairs[6], pairs[5], pairs[7]};
}

}  // namespace

Page BroadbandMatchPage() {
    Page page{
        .key = "broadband",
        .caption = "Broadband Match",
        .menuItem = "BroadbandMatch1",
        .menuText = "&Broadband Match",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .exportable = true,
        .plottable = true,
        .entryQ = 0.2,
        .suggestion = {.role = Role::Match, .character = "Ladder of L-sections for a wide band"},
        .hint = {.use = "Low-pass ladder of two or four L-sections, refined over the band: broad "
                        "match with harmonic suppression.",
                 .limits = "R2 must be larger than R1. The flatter the wider it is asked to be, "
                           "the lower the best transmission (Bode and Fano). Q is set to 0.2 on "
                           "entry: the optimizer then weighs the whole band.",
                 .parasitics = "Every shunt capacitor takes the pad at its node. Coils of low "
                               "impedance sections are small: count leads in.",
                 .values = "Eight elements cover an octave and more at a ratio of 4."},
        .goal = BroadbandGoal()};
    page.notes = {{"For R1<R2, low-pass, refined over a band",
                   "Q up to 0.21: broad band; larger Q: the loaded Q is kept"}};
    page.inputs = BroadbandInputs();
    page.switches = {
        {"CheckBoxBand16", "Band",
         "The gain that is worst between the two edges is made as high as can be; "
         "cleared: gains around fo, weighted",
         &Design::matchBand},
        {"CheckBoxExt16", "8 elements",
         "Four sections instead of two: wider band, flatter response", &Design::eightElements}};
    page.switches[0].offOption = "no-band";
    page.switches[1].option = "ext";
    page.outputs = BroadbandOutputs();
    page.design = DesignBroadband;
    page.transfer = BroadbandTransfer;
    page.networks = [](const Design& s) { return std::vector{BroadbandNetwork(s)}; };
    return page;
}

}  // namespace kelvro
