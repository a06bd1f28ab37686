// Pages 1 to 7: worked examples, refusals, and the texts of their fields.

#include <gtest/gtest.h>

#include <cmath>

#include "core/scalar.h"
#include "page_input.h"

namespace kelvro {
namespace {

struct Example {
    const char* name;
    int page;
    const char* inputs;
    std::vector<std::pair<std::string_view, double>> components;  ///< by the names of the fields
    std::vector<std::pair<std::string_view, const char*>> texts;
};

double ComponentOf(const Design& state, std::string_view name) {
    for (const OutputField& field : PageOf(state).outputs) {
        if (field.name == name) return field.component(state);
    }
    ADD_FAILURE() << "no component " << name;
    return NAN;
}

class FirstPages : public testing::TestWithParam<Example> {};

TEST_P(FirstPages, DesignAsWorkedByHand) {
    SCOPED_TRACE(GetParam().name);
    Design state = StateWith(GetParam().page, GetParam().inputs);
    NoServices services;
    const CycleResult result = Calculate(state, true, services);
    state = result.design;
    ASSERT_FALSE(result.message) << *result.message;
    for (const auto& [name, value] : GetParam().components) {
        EXPECT_NEAR(ComponentOf(state, name), value, 1e-12 * value) << name;
    }
    for (const auto& [object, text] : GetParam().texts) {
        ASSERT_TRUE(result.text(object)) << object;
        EXPECT_EQ(*result.text(object), text) << object;
    }
    EXPECT_EQ(services.optimizations, 1);
}

// At 1 MHz an ohm is 1/(2π·1e6) = 159.155 nH, or that many farads per siemens.
constexpr double kPerOmega = 1.5915494309189535e-7;

INSTANTIATE_TEST_SUITE_P(
    Examples, FirstPages,
    testing::Values(
        // XC1 = 2·5·10 - sqrt(40·10) = 80, XC2 = 50·sqrt(10/40) = 25, XL = 100.
        Example{"series tank",
                1,
                "r1=10 r2=50 q=5 fo=1M",
                {{"C1", kPerOmega / 80}, {"C2", kPerOmega / 25}, {"L", kPerOmega * 100}},
                {{"C11Ausgabe", "    1.99n"},
                 {"C21Ausgabe", "    6.37n"},
                 {"L1Ausgabe", "   15.92u"},
                 {"BAusgabe", "    0.000"}}},
        // XC1 = 2·0.2·10 - sqrt(990·10) = 4 - 99.4987... is negative: its magnitude counts.
        Example{"series tank of low Q",
                1,
                "r1=10 r2=1000 q=0.2 fo=1M",
                {{"C1", kPerOmega / 95.498743710661995}},
                {}},
        // XC1 = 2·0.5·10 - sqrt(10·10) = 0.
        Example{"series tank without C1",
                1,
                "r1=10 r2=20 q=0.5 fo=1M",
                {},
                {{"C11Ausgabe", "infinite"}}},
        // A = 26, XC2 = 2, XL = 50/sqrt(129), XC1 = 50/26·(50/(5·XL) - 1).
        Example{"parallel tank",
                2,
                "r1=50 r2=10 q=5 fo=1M",
                {{"C2", kPerOmega / 2},
                 {"L", kPerOmega * 4.402254531628119},
                 {"C1", kPerOmega / (50.0 / 26 * (std::sqrt(129) / 5 - 1))}},
                {{"BAusgabe", "  200.00k"}}},
        // C1 = 2·5/(150·ω), C2 = 2·5/(300·ω), L = 450/(10·ω) with ω of 10 MHz.
        Example{"Pi",
                3,
                "r1=50 r2=200 q=5 fo=10M",
                {{"C1", kPerOmega / 150}, {"C2", kPerOmega / 300}, {"L", kPerOmega * 4.5}},
                {{"C13Ausgabe", "    1.06n"},
                 {"C23Ausgabe", "  530.52p"},
                 {"L3Ausgabe", "  716.20n"},
                 {"BAusgabe", "    2.00M"}}},
        // (sqrt 50 + sqrt 12.5)² = 112.5; L1 is the larger one whatever its side.
        Example{"T down",
                4,
                "r1=50 r2=12.5 q=7 fo=1M",
                {{"C", kPerOmega / 112.5}, {"L1", kPerOmega * 350}, {"L2", kPerOmega * 87.5}},
                {}},
        Example{"T up, another Q",
                4,
                "r1=12.5 r2=50 q=2 fo=1M",
                {{"C", kPerOmega / 112.5}, {"L1", kPerOmega * 100}, {"L2", kPerOmega * 25}},
                {{"BAusgabe", "  500.00k"}}},
        // XL1 = 50/5/2 = 5.
        Example{"transformer",
                5,
                "r1=50 r2=200 q=5 fo=1M",
                {{"L1", kPerOmega * 5},
                 {"C1", kPerOmega / 5},
                 {"C2", kPerOmega / 10},
                 {"L2", kPerOmega * 20}},
                {{"L15Ausgabe", "  795.77n"}, {"C25Ausgabe", "   15.92n"}}},
        // ZL = sqrt(50·200), l = 299795000·0.25/100 MHz, Q = (sqrt 4 - 1)/2.
        Example{"line",
                6,
                "r1=50 r2=200 fo=100M er=1",
                {{"ZL", 100}, {"l", 0.7494875}},
                {{"ZL6Ausgabe", "  100.000"},
                 {"NL6Ausgabe", "   0.250"},
                 {"l6Ausgabe", "  749.49m"},
                 {"QEingabe", "     0.50"},
                 {"BAusgabe", "  200.00M"}}},
        // No ratio: Q = 0, and B = fo/0.0001.
        Example{"line between equals",
                6,
                "r1=75 r2=75 fo=1M er=4",
                {{"ZL", 75}, {"l", 37.474375}},
                {{"QEingabe", "     0.00"}, {"BAusgabe", "   10.00G"}}},
        Example{
            "resistive L",
            7,
            "r1=100 r2=50",
            {{"R1", 70.710678118654752}, {"R2", 70.710678118654752}},
            {{"R17Ausgabe", "   70.710"}, {"R27Ausgabe", "   70.710"}, {"BAusgabe", "infinite"}}},
        // Rs = sqrt(0.001·100.001), Rp = sqrt(100.001/0.001)·100.
        Example{"resistive L of a hair's ratio",
                7,
                "r1=100.001 r2=100",
                {},
                {{"R17Ausgabe", "  316.23m"}, {"R27Ausgabe", "   31.62k"}}}));

TEST(PiPage, IsRoundNumbersAtOneRadianPerSecond) {
    Design state = StateWith(3, "r1=50 r2=50 q=1");
    state.fo = 1 / kTwoPi;
    state = CycleOf(state).design;
    EXPECT_NEAR(ComponentOf(state, "C1"), 0.02, 1e-15);
    EXPECT_NEAR(ComponentOf(state, "C2"), 0.02, 1e-15);
    EXPECT_NEAR(ComponentOf(state, "L"), 100, 1e-11);
}

TEST(TransformerPage, TakesAFixedSmallCapacitanceForNone) {
    Design state = StateWith(5, "r1=7 r2=3 q=12 fo=1M");
    state.smallCapacitance = true;
    state = CycleOf(state).design;
    EXPECT_NEAR(ComponentOf(state, "C1"), 100e-12, 1e-24);
    EXPECT_NEAR(ComponentOf(state, "C2"), 50e-12, 1e-24);
    // M of the closed form: sqrt(R2/R1)·L1.
    EXPECT_NEAR(state.components[Slot::M],
                std::sqrt(state.components[Slot::L] * state.components[Slot::L2]), 1e-20);
}

TEST(RefusedDesigns, LeaveThePageAndStillFillTheSharedOutputs) {
    struct Refusal {
        int page;
        const char* inputs;
        const char* message;
        const char* bandwidth;
    };
    const Refusal refusals[] = {
        {1, "r1=50 r2=50", "It must be R2>R1! Switch resistances by clicking the button!",
         "    0.000"},
        {2, "r1=50 r2=200 fo=1M", "It must be R1>R2! Switch resistances by clicking the button!",
         "  200.00k"},
        {4, "r1=50 r2=50 fo=1M",
         "R2 must be different from R1! Otherwise no additional matching needed.", "  200.00k"},
        {7, "r1=50 r2=50", "It must be R2<R1! Switch resistances by clicking the button!",
         "infinite"}};
    for (const auto& [page, inputs, message, bandwidth] : refusals) {
        Design state = StateWith(page, inputs);
        const Slots before = state.components;
        const CycleResult result = CycleOf(state);
        state = result.design;
        EXPECT_EQ(result.message, message) << page;
        EXPECT_EQ(state.components, before) << page;
        for (const OutputField& field : PageOf(page).outputs) {
            EXPECT_EQ(result.text(field.object), nullptr) << field.object;
        }
        EXPECT_EQ(*result.text("BAusgabe"), bandwidth) << page;
        EXPECT_EQ(*result.text("dAusgabe"), "   0.000") << page;
        EXPECT_DOUBLE_EQ(result.v, std::sqrt(state.R2 / state.R1)) << page;
    }
}

}  // namespace
}  // namespace kelvro
