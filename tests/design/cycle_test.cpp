// The calculation cycle: its order, shared outputs, interchanged components, taken values.

#include "design/cycle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/series.h"
#include "design/part_ref.h"
#include "page_input.h"

namespace kelvro {
namespace {

/// Writes down what the cycle asks for; the network passes a fixed ratio.
class RecordedServices : public CycleServices {
  public:
    explicit RecordedServices(double ratio = 1) : ratio_(ratio) {}
    double responseMagnitude(const Design&, double f) override {
        calls += f == frequency ? "v" : "?";
        return ratio_;
    }
    Slots optimize(const Design& design) override {
        calls += "o";
        Slots refined = design.components;
        refined[Slot::C1] *= 2;  // what the optimizer leaves is what counts
        return refined;
    }
    std::string calls;
    double frequency = 100e6;

  private:
    double ratio_;
};

TEST(CycleTest, OptimizesBeforeItEvaluatesExceptOnTheLineAndResistivePages) {
    for (const auto& [page, calls] :
         {std::pair{1, "ov"}, {3, "ov"}, {5, "ov"}, {6, "vo"}, {7, "vo"}}) {
        Design state;
        state.page = page;
        if (page == 7) std::swap(state.R1, state.R2);
        RecordedServices services;
        state = Calculate(state, true, services).design;
        EXPECT_EQ(services.calls, calls) << page;
    }
    Design refused;
    refused.page = 7;
    RecordedServices services;
    EXPECT_TRUE(Calculate(refused, true, services).message);
    EXPECT_EQ(services.calls, "o");
}

TEST(CycleTest, SharedOutputsFollowFromVAndTheResistances) {
    // R2/R1 = 4: ideal ratio 2. v = 1.5: 3.52 dB, loss -20·log(0.75) = 2.499 dB.
    Design state;
    state.page = 3;
    state.QB = 100;
    state.QBC = 300;
    RecordedServices services(1.5);
    const CycleResult result = Calculate(state, true, services);
    state = result.design;
    EXPECT_EQ(*result.text("ueAusgabe"), "     1.500");
    EXPECT_EQ(*result.text("dBAusgabe"), "    3.52");
    EXPECT_EQ(*result.text("dAusgabe"), "   2.499");
    EXPECT_EQ(*result.text("QBgesAusgabe"), "  150.00");
    EXPECT_EQ(*result.text("BAusgabe"), "   20.00M");
    EXPECT_EQ(result.v, 1.5);
    EXPECT_EQ(result.QBges, 150);
    RecordedServices ideal(2);
    const CycleResult lossless = Calculate(state, true, ideal);
    EXPECT_EQ(*lossless.text("dAusgabe"), "   0.000");
    EXPECT_FALSE(std::signbit(lossless.lossDb));
    RecordedServices nothing(0);
    const CycleResult blocked = Calculate(state, true, nothing);
    EXPECT_EQ(*blocked.text("ueAusgabe"), "     0.000");
    EXPECT_EQ(*blocked.text("dBAusgabe"), "-infinite");
    EXPECT_EQ(*blocked.text("dAusgabe"), "infinite");
}

/// The balun feeds two loads: sqrt(R2/(2·R1)) = 1 for 50 and 100 ohm, so v = 0.5 loses 6.021 dB.
/// The resistive pad loses against a lossless match: -20·log(0.3/sqrt(1/2)) = 7.447 dB.
TEST(CycleTest, LossIsAgainstTheIdealRatioOfThePage) {
    for (const auto& [page, resistances, v, loss] :
         {std::tuple{9, "r2=100", 0.5, "   6.021"}, {7, "r1=100 r2=50", 0.3, "   7.447"}}) {
        RecordedServices services(v);
        EXPECT_EQ(*Calculate(StateWith(page, resistances), true, services).text("dAusgabe"), loss);
    }
}

TEST(CycleTest, PagesWithoutNetworkShowDashes) {
    for (const int page : {10, 11, 12, 15, 19}) {
        Design state;
        EnterPage(state, page);
        RecordedServices services;
        const CycleResult result = Calculate(state, true, services);
        state = result.design;
        for (const char* object : {"ueAusgabe", "dBAusgabe", "dAusgabe", "QBgesAusgabe"}) {
            EXPECT_EQ(*result.text(object), "     -") << page;
        }
        EXPECT_EQ(*result.text("BAusgabe"), page == 15 ? "   20.00M" : "     -") << page;
    }
}

TEST(CycleTest, ASmallQCountsAsAThousandth) {
    Design tiny = StateWith(3, "");
    tiny.Q = 0;
    Design thousandth = tiny;
    thousandth.Q = 0.001;
    tiny = CycleOf(tiny).design;
    thousandth = CycleOf(thousandth).design;
    EXPECT_EQ(tiny.components, thousandth.components);
}

TEST(CycleTest, InterchangedPagesShowDualValuesAndKeepTheirComponents) {
    for (const int page : {1, 2, 3, 4, 13, 14}) {
        Design plain;
        plain.page = page;
        if (page == 2) std::swap(plain.R1, plain.R2);
        Design swapped = plain;
        swapped.LCSwapped = true;
        plain = CycleOf(plain).design;
        const CycleResult result = CycleOf(swapped);
        swapped = result.design;
        EXPECT_EQ(swapped.components, plain.components) << page;
        for (const OutputField& field : PageOf(page).outputs) {
            if (field.slot == Slot::None) continue;
            const double dual = 1 / (std::pow(Omega(plain), 2) * field.component(plain));
            EXPECT_EQ(*result.text(field.object), kEngineering.text(dual)) << field.object;
        }
    }
    const Network network = PageOf(3).networks(Design()).front();
    const auto parts = ListOf(network);
    const auto twice = ListOf(Dual(Dual(network, 1e8), 1e8));
    for (std::size_t i = 0; i < parts.size(); ++i) {
        EXPECT_EQ(twice[i].name, parts[i].name);
        EXPECT_EQ(twice[i].kind, parts[i].kind);
    }
}

TEST(CycleTest, TakenComponentsAreNotDesignedAnew) {
    Design state = StateWith(3, "fo=10M");
    NoServices services;
    state = Calculate(state, true, services).design;
    state.components[Slot::L] = 680e-9;
    const CycleResult result = Calculate(state, false, services);
    state = result.design;
    EXPECT_EQ(*result.text("L3Ausgabe"), "  680.00n");
    EXPECT_EQ(*result.text("C13Ausgabe"), "    1.06n");
}

TEST(CycleTest, ComponentsCanBeShownWithoutBeingJudged) {
    Design state = StateWith(1, "r1=300 r2=50");
    state.components[Slot::C1] = 1e-9;
    const Slots before = state.components;
    NoServices services;
    const CycleResult result = ShowComponents(state, services);
    EXPECT_FALSE(result.message);
    EXPECT_EQ(*result.text("C11Ausgabe"), "    1.00n");
    EXPECT_EQ(*result.text("BAusgabe"), "    0.000") << "as the page has it";
    EXPECT_EQ(state.components, before);
    EXPECT_EQ(services.optimizations, 0);
}

TEST(TakeTest, ReadsTheFieldsOfThePageAndOneOfAnother) {
    Design design;
    design.LCSwapped = true;  // no reason to refuse
    design.shown.set({{1, Slot::L}, 10.004e-6});
    design.shown.set({{1, Slot::C1}, 1.5e-9, ShownPart::Form::Standard, Series::E12});
    design.shown.set({{1, Slot::C2}, 9.99e-9});
    design.shown.set({{2, Slot::C1}, 470e-12, ShownPart::Form::Standard, Series::E6});
    Take(design);
    EXPECT_DOUBLE_EQ(design.components[Slot::L], 10e-6) << "as its text says";
    EXPECT_DOUBLE_EQ(design.components[Slot::C1], 1.5e-9);
    EXPECT_DOUBLE_EQ(design.components[Slot::C2], 470e-12) << "C1 of the parallel tank's page";
}

TEST(TakeTest, IsZeroWhereAFieldHasShownNothingYet) {
    Design design;
    design.components[Slot::C2] = 1e-9;
    Take(design);
    EXPECT_EQ(design.components[Slot::C2], 0);
}

TEST(TakeTest, KeepsAllDigitsOfATypedValue) {
    Design design = StateWith(5, "");
    design = CycleOf(design).design;
    const PartRef L1 = PartsOf(design).at(0);
    L1.type(design, 1.23456789e-6);
    Take(design);
    EXPECT_EQ(design.components[Slot::L], 1.23456789e-6);
}

TEST(PartRefTest, RoundsWhatIsShownAndKeepsTheComponent) {
    for (const bool swapped : {false, true}) {
        Design design = StateWith(3, "fo=10M");
        design.LCSwapped = swapped;
        design = CycleOf(design).design;
        const Slots before = design.components;
        for (const PartRef& part : PartsOf(design)) {
            const std::string text = part.shownText(design);
            EXPECT_EQ(text, kEngineering.text(part.built(design)));
            part.round(design, Series::E24);
            EXPECT_EQ(part.shownText(design), "  " + SeriesNearest(Series::E24, ParseValue(text)));
            const Design once = design;
            part.round(design, Series::E24);
            EXPECT_EQ(design, once);
            part.round(design, Series::E6);
            EXPECT_EQ(part.shownText(design),
                      "  " + SeriesNearest(Series::E6, ParseValue(part.shownText(once))));
        }
        EXPECT_EQ(design.components, before);
        // Only a new calculation writes the fields anew.
        EXPECT_NE(design.shown, CycleOf(design).design.shown);
    }
}

TEST(EnterPageTest, OnlyThreePagesChangeTheState) {
    for (const Page& page : Pages()) {
        Design state;
        state.LCSwapped = true;
        EnterPage(state, page.number);
        EXPECT_EQ(state.page, page.number);
        EXPECT_EQ(state.Q, page.number == 16 ? 0.2 : 5) << page.number;
        EXPECT_EQ(state.LCSwapped, page.number < 18) << page.number;
    }
}

TEST(InputFieldTest, TypedValuesStayInTheirRange) {
    struct Case {
        const char* option;
        const char* text;
        double value;
    };
    constexpr Case cases[] = {{"r1", "0", 0.001},    {"r2", "2M", 1e6},   {"fo", "5M", 5e6},
                              {"fo", "100G", 2e10},  {"fo", "-3", 1},     {"q", "0", 0.2},
                              {"q", "1k", 500},      {"qb", "1", 5},      {"qbc", "1M", 10000},
                              {"r1", "junk", 0.001}, {"r2", "1e999", 1e6}};
    for (const auto& [option, text, value] : cases) {
        const Design state = StateWith(1, std::string(option) + '=' + text);
        for (const InputField& field : SharedInputs()) {
            if (field.option == option) {
                EXPECT_EQ(field.read(state), value) << option << ' ' << text;
            }
        }
    }
    EXPECT_EQ(StateWith(5, "k=2").k, 1);
    EXPECT_EQ(StateWith(5, "k=0").k, 0.1);
    EXPECT_EQ(StateWith(6, "er=0").er, 1);
    Design state;
    SharedInputs()[0].write(state, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(state.R1, 0.001);
}

TEST(PagesTest, AreFoundByNumberAndKey) {
    for (const Page& page : Pages()) {
        EXPECT_EQ(FindPage(std::to_string(page.number)), &page);
        EXPECT_EQ(FindPage(page.key), &page);
        EXPECT_EQ(&PageOf(page.number), &page);
    }
    for (const char* text : {"", "0", "20", "Pi", "pi ", "01", "3.0", "-1"}) {
        EXPECT_EQ(FindPage(text), nullptr) << text;
    }
}

}  // namespace
}  // namespace kelvro
