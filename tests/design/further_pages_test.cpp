// Pages 8 to 19: worked examples, refusals and what the design functions promise.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "core/scalar.h"
#include "design/part_ref.h"
#include "page_input.h"

namespace kelvro {
namespace {

using testing::HasSubstr;

struct Example {
    const char* name;
    int page;
    const char* inputs;
    const char* outputs;  ///< to the digits given
};

/// The value that a field shows.
double Shown(const CycleResult& result, std::string_view object) {
    const std::string* text = result.text(object);
    if (!text) return NAN;
    return *text == kInfinite ? INFINITY : ParseValue(*text);
}

class WorkedExamples : public testing::TestWithParam<Example> {};

TEST_P(WorkedExamples, ComeOutToTheDigitsGiven) {
    SCOPED_TRACE(GetParam().name);
    const CycleResult result = CycleOf(StateWith(GetParam().page, GetParam().inputs));
    const Design& state = result.design;
    EXPECT_FALSE(result.message) << *result.message;
    for (const auto& [name, text] : Named(GetParam().outputs)) {
        const std::string object = name == "QEingabe" ? name : name + "Ausgabe";
        const double expected = text == kInfinite ? INFINITY : ParseValue(text);
        const OutputField* field = PageOf(state).output(object);
        if (field && field->slot != Slot::None && std::isfinite(expected)) {
            constexpr double digitsGiven = 6e-5;
            EXPECT_NEAR(field->component(state), expected, digitsGiven * expected) << object;
        }
        const double shown = Shown(result, object);
        if (std::isinf(expected)) {
            EXPECT_EQ(shown, expected) << object;
        } else {
            constexpr double fieldDigits = 2e-3;  // engineering texts show three digits at least
            EXPECT_NEAR(shown, expected, fieldDigits * std::fabs(expected)) << object;
        }
    }
}

// Values worked by hand from the published design equations; the filter's from tables of
// g-values, the class-E stage's from an integration of its equations, measured in ngspice.
INSTANTIATE_TEST_SUITE_P(
    Pages, WorkedExamples,
    testing::Values(
        Example{"pads between unequal resistances", 8, "r1=50 r2=75 v=0.5",
                "a8=7.78 RaT8=10 RpT8=60 RbT8=45 RaPi8=83.3333 RsPi8=62.5 RbPi8=375"},
        Example{"10 dB pads", 8, "r1=50 r2=50 v=0.316227766",
                "a8=10 RaT8=25.9747 RpT8=35.1364 RbT8=25.9747 RaPi8=96.2475 "
                "RsPi8=71.1512 RbPi8=96.2475"},
        // Largest v from 100 to 50 ohm: N = (sqrt 2 + 1)² leaves an L section.
        Example{"pads that degenerate into an L section", 8, "r1=100 r2=50 v=0.292893218813452",
                "RaT8=70.71 RpT8=70.71 RbT8=0 RaPi8=infinite RsPi8=70.71 RbPi8=70.71"},
        Example{"balun", 9, "r1=50 r2=100 fo=100M", "L9=159.15n C9=15.915p B=20M"},
        Example{"optimum load", 10, "p=1 ub=12 usat=0.5",
                "RL10=66.125 I10=0.17391 etaA10=47.92 etaB10=75.27 IB10=0.110716"},
        Example{"real coil and capacitor", 11, "fo=100M",
                "f0_11=503.29M Leff11=104.109n QL11=60.35 Ceff11=1.0411p QC11=1528.7"},
        Example{"combined tank below its open frequency", 12, "fo=10M",
                "fs12=15.915M fp12=11.254M X12=180.71 Eq12=2.87609u"},
        Example{"combined tank between open and short", 12, "fo=12M", "X12=-237.52 Eq12=55.8392p"},
        Example{"combined tank above its short frequency", 12, "fo=20M", "X12=33.72"},
        Example{"L-section up", 13, "r1=50 r2=200 fo=100M",
                "L13=137.83n C13G=13.783p QEingabe=0.87 B=115.470M"},
        Example{"L-section down", 13, "r1=200 r2=50 fo=100M", "L13=137.83n C13G=13.783p"},
        Example{"low-pass then high-pass L", 14, "r1=50 r2=200 fo=100M",
                "L114=79.577n C114=15.915p C214=15.915p L214=318.31n"},
        Example{"class-E stage", 15, "p=10 ub=12 usat=0 q=5 fo=10M",
                "R15=7.5655 Lc15=17.22u C115=448.47p C215=563.75p L215=602.04n "
                "Upk15=43.40 Idc15=833.33m B=2M"},
        Example{"two broadband sections", 16, "r1=50 r2=200 fo=100M",
                "L116=79.577n C116=15.915p L216=159.15n C216=7.9577p B=500M"},
        Example{"two high-pass L-sections", 18, "r1=200 r2=50 fo=100M",
                "L118=318.31n C118=15.915p L218=159.15n C218=31.831p"},
        Example{"reference string", 19, "",
                "RD119=16.667k RD219=8.333k RD319=20.833k RD419=8.333k RD519=20.833k "
                "RD619=8.333k RD719=16.667k RD819=12k I19=24u"}));

TEST(BroadbandPage, SpreadsEightElementsOverFourSections) {
    Design state = StateWith(16, "r1=50 r2=200 fo=100M");
    state.eightElements = true;
    const CycleResult result = CycleOf(state);
    state = result.design;
    const std::vector<std::pair<std::string_view, double>> expected = {
        {"L116Ausgabe", 51.216e-9},  {"C116Ausgabe", 14.486e-12}, {"L216Ausgabe", 72.430e-9},
        {"C216Ausgabe", 10.243e-12}, {"L316Ausgabe", 102.43e-9},  {"C316Ausgabe", 7.2430e-12},
        {"L416Ausgabe", 144.86e-9},  {"C416Ausgabe", 5.1216e-12}};
    for (const auto& [object, value] : expected) {
        EXPECT_NEAR(PageOf(state).output(object)->component(state), value, 6e-5 * value) << object;
        EXPECT_NEAR(Shown(result, object), value, 1e-3 * value) << object;
    }
    // The optimizer moves means and ratios.
    EXPECT_NEAR(state.components[Slot::C1], std::sqrt(14.486e-12 * 10.243e-12), 1e-15);
    EXPECT_NEAR(state.components[Slot::X8], std::sqrt(144.86 / 102.43), 1e-4);
}

TEST(BroadbandPage, EdgesFollowTheFrequencyUntilTheyAreTyped) {
    Design state = StateWith(16, "fo=100M");
    const auto expectEdges = [&](double low, double high) {
        const auto band = WorstGainBand(state);
        ASSERT_TRUE(band);
        EXPECT_NEAR(band->low, low, 1e-6 * low);
        EXPECT_NEAR(band->high, high, 1e-6 * high);
    };
    const InputField& low = *PageOf(16).input("fLow16Eingabe");
    expectEdges(70e6, 130e6);
    state.fo = 200e6;
    expectEdges(140e6, 260e6);
    low.write(state, 90e6);
    state.fo = 100e6;
    expectEdges(90e6, 130e6);
    low.write(state, 150e6);  // above the other one
    expectEdges(130e6, 150e6);
    low.write(state, 0);
    EXPECT_NEAR(low.read(state), 70e6, 1);
    EXPECT_TRUE(low.hasEffect(state));
    state.Q = 0.22;
    EXPECT_FALSE(WorstGainBand(state)) << "a loaded Q counts";
    EXPECT_FALSE(low.hasEffect(state));
}

TEST(BroadbandPage, TakesBackWhatItShows) {
    Design state = StateWith(16, "r1=50 r2=200");
    state.eightElements = true;
    state = CycleOf(state).design;
    const Page& page = PageOf(16);
    double value = 1e-12;
    for (const PartRef& part : PartsOf(state)) part.type(state, value *= 2);
    value = 1e-12;
    for (const OutputField& field : page.outputs) {
        value *= 2;
        EXPECT_NEAR(field.component(state), value, 1e-9 * value) << field.object;
    }
}

TEST(BandPassPage, ListsTheElementsOfAThreeResonatorFilter) {
    const CycleResult result = CycleOf(StateWith(17, "r1=50 r2=200 fo=100M q=10 lbp=50n"));
    ASSERT_TRUE(result.table);
    const std::vector<std::pair<std::string_view, double>> expected = {
        {"C01", 10.593e-12}, {"C1", 37.295e-12}, {"L1", 50e-9},       {"C12", 3.8289e-12},
        {"C2", 43.003e-12},  {"L2", 50e-9},      {"C23", 3.8289e-12}, {"C3", 42.935e-12},
        {"L3", 50e-9},       {"C34", 6.4814e-12}};
    ASSERT_EQ(result.table->size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const TableRow& row = (*result.table)[i];
        EXPECT_EQ(row.element, expected[i].first);
        EXPECT_NEAR(row.value, expected[i].second, 6e-5 * expected[i].second) << row.element;
        EXPECT_NEAR(ParseValue(row.text), expected[i].second, 2e-3 * expected[i].second)
            << row.element;
    }
    // Rows are taken back into their slots; the inductors are an input.
    Design state = result.design;
    const std::vector<PartRef> parts = PartsOf(state);
    ASSERT_EQ(parts.size(), 7U);
    EXPECT_EQ(parts[0].name(state), "C01");
    parts[0].round(state, Series::E6);
    Take(state);
    EXPECT_DOUBLE_EQ(ListOf(PageOf(17).networks(state).front())[0].value, 10e-12);
    EXPECT_DOUBLE_EQ(state.LBP, 50e-9);
}

/// g = 1, 2, 1 of three resonators: C12 = C/(10·√2) of C = 1/(ω²·L) = 50.66 pF. At the ends J² =
/// ω·C/(10·R), J = 7.9788 and 3.9894 mS, and ω times the coupling is J/√(1 - (J·R)²).
TEST(BandPassPage, WithoutRippleIsMaximallyFlat) {
    const Design state =
        CycleOf(StateWith(17, "r1=50 r2=200 fo=100M q=10 lbp=50n ripple=0")).design;
    const auto parts = ListOf(PageOf(17).networks(state).front());
    for (const auto& [name, value] : {std::pair{"C01", 13.8485e-12},
                                      {"C12", 3.58224e-12},
                                      {"C1", 35.4339e-12},
                                      {"C34", 10.5329e-12}}) {
        const auto part = std::ranges::find(parts, name, &ListedPart::name);
        ASSERT_NE(part, parts.end()) << name;
        EXPECT_NEAR(part->value, value, 1e-5 * value) << name;
    }
}

struct Refusal {
    const char* name;
    int page;
    const char* inputs;
    const char* message;
};

class Refusals : public testing::TestWithParam<Refusal> {};

TEST_P(Refusals, NameTheReasonAndLeaveTheComponentsAlone) {
    SCOPED_TRACE(GetParam().name);
    Design state = StateWith(GetParam().page, GetParam().inputs);
    state.components[Slot::C1] = 1;
    const Slots before = state.components;
    NoServices services;
    const CycleResult result = Calculate(state, true, services);
    state = result.design;
    ASSERT_TRUE(result.message);
    EXPECT_THAT(*result.message, HasSubstr(GetParam().message));
    EXPECT_EQ(state.components, before);
    for (const OutputField& field : PageOf(state).outputs) {
        EXPECT_EQ(result.text(field.object), nullptr) << field.object;
    }
    EXPECT_FALSE(result.table);
    EXPECT_EQ(services.optimizations, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Pages, Refusals,
    testing::Values(
        // N = (sqrt 1.5 + sqrt 0.5)² allows v = sqrt(1.5)/1.93185 = 0.63397.
        Refusal{"pad beyond the smallest loss", 8, "r1=50 r2=75 v=0.9",
                "v is too large for this resistance ratio! Largest possible v is 0.6340"},
        Refusal{"pad with gain", 8, "r1=50 r2=50 v=1", "v is too large"},
        Refusal{"amplifier without swing", 10, "ub=5 usat=5", "It must be Ub>Usat!"},
        Refusal{"L-section without ratio", 13, "r1=75 r2=75",
                "R2 must be different from R1! Otherwise no additional matching needed."},
        Refusal{"LCCL downwards", 14, "r1=200 r2=50", "It must be R2>R1!"},
        Refusal{"class-E without swing", 15, "usat=12", "It must be Ub>Usat!"},
        Refusal{"class-E with low Q", 15, "q=1.7", "Q must be larger than 1.79!"},
        Refusal{"ladder downwards", 16, "r1=50 r2=50", "It must be R2>R1!"},
        Refusal{"filter wider than its end coupling", 17, "q=1 lbp=1n",
                "Bandwidth too large for this inductance! Increase Q or change L."},
        Refusal{"filter without room for its resonators", 17, "q=1.2 lbp=500n nbp=3",
                "Bandwidth too large for this inductance! Increase Q or change L."},
        Refusal{"double L upwards", 18, "r1=50 r2=200", "It must be R1>R2!"},
        Refusal{"falling tap", 19, "vmid1=1.3", "Tap voltages must rise from Vlow1 to Vref!"},
        Refusal{"tap above the reference", 19, "vref=2.0",
                "Tap voltages must rise from Vlow1 to Vref!"}));

TEST(EffectivePage, SaysWhenAComponentIsAboveItsSelfResonance) {
    Design below = StateWith(11, "fo=500M");
    EXPECT_EQ(*CycleOf(below).text("Note11"), "");
    Design above = StateWith(11, "fo=510M");
    const CycleResult result = CycleOf(above);
    above = result.design;
    EXPECT_EQ(*result.text("Note11"), "above self-resonance");
    EXPECT_LT(Shown(result, "Leff11Ausgabe"), 0);
    EXPECT_LT(Shown(result, "Ceff11Ausgabe"), 0);
}

TEST(CombinedTankPage, IsOpenAndShortWhereItWasAskedToBe) {
    Design state = StateWith(12, "ls=330n fp=13.56M fs=27.12M");
    const ActionField& find = PageOf(12).actions.at(0);
    EXPECT_EQ(find.run(state), "");
    state.fo = 13.56e6;
    const CycleResult result = CycleOf(state);
    state = result.design;
    EXPECT_NEAR(Shown(result, "fp12Ausgabe"), 13.56e6, 1e3);
    EXPECT_NEAR(Shown(result, "fs12Ausgabe"), 27.12e6, 1e3);
    state.fs12 = state.fp12;
    EXPECT_EQ(find.run(state), "It must be fs>fp!");
}

TEST(OptimumLoadPage, HandsItsLoadToTheMatchingPages) {
    Design state = StateWith(10, "p=1 ub=12 usat=0.5");
    EXPECT_EQ(PageOf(10).actions.at(0).run(state), "");
    EXPECT_DOUBLE_EQ(state.R1, 66.125);
}

TEST(ClassEPage, TakesAnInfiniteChoke) {
    Design state = StateWith(15, "p=10 ub=12 usat=0 q=5 fo=10M");
    state.infiniteChoke = true;
    const CycleResult result = CycleOf(state);
    ASSERT_FALSE(result.message);
    EXPECT_EQ(Shown(result, "Lc15Ausgabe"), INFINITY);
    EXPECT_NEAR(result.design.components[Slot::X5], 0.51662 * 144 / 10, 1e-4);
    ASSERT_TRUE(result.operation);
    EXPECT_NEAR(result.operation->harmonicDb(2), -19.6, 0.06);
}

/// Half of C1 taken: the switch closes on a charged capacitor, and what that burns is missing.
TEST(ClassEPage, ShowsWhatTakenPartsDo) {
    Design state = StateWith(15, "p=10 ub=12 usat=0");
    state.QB = state.QBC = 1e9;
    NoServices services;
    const CycleResult designed = Calculate(state, true, services);
    EXPECT_NEAR(Shown(designed, "eta15Ausgabe"), 100, 0.01);
    state = designed.design;
    state.components[Slot::C1] /= 2;
    const CycleResult taken = Calculate(state, false, services);
    const double V = taken.operation->turnOnVoltage;
    const double burnt = state.components[Slot::C1] * V * V / 2 * state.fo;
    const double supplied = 12 * taken.operation->supplyCurrent;
    EXPECT_GT(std::fabs(V), 1);
    EXPECT_NEAR(Shown(taken, "eta15Ausgabe"), 100 * (1 - burnt / supplied), 0.02);
    // Without components there is nothing to show, and no reason to refuse the inputs.
    state.components[Slot::C1] = 0;
    const CycleResult nothing = Calculate(state, false, services);
    EXPECT_FALSE(nothing.message);
    EXPECT_FALSE(nothing.operation);
    EXPECT_EQ(*nothing.text("Upk15Ausgabe"), kNoValueYet);
}

/// Ladder algebra from the load: impedance seen into a pad that is terminated by R.
double SeenInto(const std::vector<ListedPart>& pad, double R) {
    for (auto element = pad.rbegin(); element != pad.rend(); ++element) {
        R = element->place == Place::Series ? R + element->value : 1 / (1 / R + 1 / element->value);
    }
    return R;
}

TEST(Pads, AreMatchedAtBothEnds) {
    for (const auto& [R1, R2, v] : {std::tuple{50.0, 75.0, 0.5}, std::tuple{75.0, 50.0, 0.1},
                                    std::tuple{50.0, 50.0, 0.99}, std::tuple{1e3, 1e5, 0.4}}) {
        Design state = StateWith(8, "");
        state.R1 = R1;
        state.R2 = R2;
        state.v8 = v;
        const CycleResult calculated = CycleOf(state);
        ASSERT_FALSE(calculated.message);
        state = calculated.design;
        for (const Network& network : PageOf(8).drawnNetworks(state)) {
            auto pad = ListOf(network);
            EXPECT_NEAR(SeenInto(pad, R2), R1, 1e-9 * R1);
            std::ranges::reverse(pad);
            EXPECT_NEAR(SeenInto(pad, R1), R2, 1e-9 * R2);
        }
    }
}

}  // namespace
}  // namespace kelvro
