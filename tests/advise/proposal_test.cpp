#include "advise/proposal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "design/pages.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

Design Inputs(double R1, double R2, double fo = 100e6) {
    return {.R1 = R1, .R2 = R2, .fo = fo};
}

std::vector<Proposal> ProposalsFor(const Design& state, const Wishes& wishes) {
    ResponseServices services;
    return Propose(state, wishes, services);
}

const Proposal& Of(const std::vector<Proposal>& proposals, int page, bool swapped = false) {
    const auto at = std::ranges::find_if(proposals, [&](const Proposal& p) {
        return p.page == page && (p.LCSwapped == swapped || !p.suited);
    });
    if (at == proposals.end()) throw std::runtime_error("no proposal of the page");
    return *at;
}

struct Case {
    const char* name;
    double R1, R2;
    void (*wish)(Wishes&);
    const char* suited;    ///< pages that must be among the suited ones, in ranked order
    const char* unsuited;  ///< pages that must not
};

Wishes With(void (*wish)(Wishes&)) {
    Wishes wishes;
    wish(wishes);
    return wishes;
}

std::vector<int> PagesIn(const char* text) {
    std::istringstream words(text);
    return {std::istream_iterator<int>(words), {}};
}

const Case kCases[] = {
    {"AnyMatch", 50, 200, [](Wishes&) {}, "13 3 17", "7 8 9 10 11 12 15 19"},
    {"EqualResistances", 50, 50, [](Wishes&) {}, "6 3", "1 2 4 13 14 16 18"},
    {"NarrowBand", 50, 200, [](Wishes& w) { w.bandwidth = 20e6; }, "1 13", "8"},
    {"DcPass", 50, 200, [](Wishes& w) { w.dc = Wishes::Dc::Pass; }, "6 13 3", "1 2 5 14 17 18"},
    {"DcBlock", 50, 200, [](Wishes& w) { w.dc = Wishes::Dc::Block; }, "13 1 17", "6 16"},
    {"Harmonics", 50, 200, [](Wishes& w) { w.suppressHarmonics = true; }, "3 13", "6 16 18"},
    {"Balanced", 50, 200, [](Wishes& w) { w.balancedOutput = true; }, "9", "1 3 13 17"},
    {"Resistive", 200, 50, [](Wishes& w) { w.resistive = true; }, "7", "1 9 13"},
    {"ResistiveAmplifier", 200, 50, [](Wishes& w) { w.resistive = w.amplifierStage = true; }, "7",
     "10 15"},
    {"ResistiveBalanced", 200, 50, [](Wishes& w) { w.resistive = w.balancedOutput = true; }, "",
     "7 8 9"},
    {"Attenuation", 50, 50, [](Wishes& w) { w.voltageRatio = 0.5; }, "8 6", "10"},
    {"AmplifierStage", 50, 200, [](Wishes& w) { w.amplifierStage = true; }, "10 15 13", "7 9"},
};

class ProposalTest : public testing::TestWithParam<Case> {};

TEST_P(ProposalTest, RanksWhatTheWishesAskFor) {
    const Case& row = GetParam();
    const auto proposals = ProposalsFor(Inputs(row.R1, row.R2), With(row.wish));
    auto from = proposals.begin();
    for (const int page : PagesIn(row.suited)) {
        from = std::find_if(from, proposals.end(),
                            [&](const Proposal& p) { return p.page == page && p.suited; });
        ASSERT_NE(from, proposals.end()) << "page " << page << " missing or ranked too high";
    }
    for (const int page : PagesIn(row.unsuited)) {
        for (const Proposal& p : proposals) EXPECT_FALSE(p.page == page && p.suited) << p.reason;
    }
    double last = INFINITY;
    bool unsuited = false;
    for (const Proposal& p : proposals) {
        EXPECT_TRUE(p.reason.ends_with('.') || p.reason.ends_with('!')) << p.reason;
        EXPECT_FALSE(unsuited && p.suited) << "suited pages come first";
        unsuited = !p.suited;
        if (!p.suited) continue;
        EXPECT_LE(p.score, last) << Title(p);
        last = p.score;
    }
}

/// Following a proposal shows exactly the design that it promised.
TEST_P(ProposalTest, PromisesWhatItsPageCalculates) {
    const Case& row = GetParam();
    for (const Proposal& p : ProposalsFor(Inputs(row.R1, row.R2), With(row.wish))) {
        if (!p.suited) continue;
        Design state = Inputs(row.R1, row.R2);
        state.LCSwapped = true;  // as some other page left it
        Apply(p, state, true);
        EnterPage(state, p.page);
        const CycleResult cycle = CycleOf(state);
        state = cycle.design;
        EXPECT_FALSE(cycle.message) << Title(p) << ": " << *cycle.message;
        EXPECT_EQ(state.components, p.state.components) << Title(p);
        EXPECT_EQ(cycle.v, p.cycle.v) << Title(p);
        if (p.gtDb && p.page != 9) {
            EXPECT_NEAR(*p.gtDb, 20 * std::log10(cycle.v / std::sqrt(state.R2 / state.R1)), 1e-7);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Wishes, ProposalTest, testing::ValuesIn(kCases),
                         [](const auto& row) { return row.param.name; });

/// L-section 50 to 200 ohm at 100 MHz: X(L) = √3·50 = 86.6 ohm, X(C) = 200/√3 = 115.5 ohm. With x =
/// (f/fo)² its |D|² = (1/40 - 3x/200)² + 3e-4·x is 4e-4 at fo and 2.425e-3 at 2·fo: 7.83 dB less.
TEST(ProposalNumbersTest, OfAnLSectionAreThoseOfItsFormulas) {
    Design inputs = Inputs(50, 200);
    inputs.QB = inputs.QBC = 1e4;
    const auto proposals = ProposalsFor(inputs, {});
    const Proposal& gamma = Of(proposals, 13);
    EXPECT_NEAR(*gamma.gtDb, 0, 2e-3);
    EXPECT_NEAR(*gamma.secondHarmonicDb, 7.83, 0.01);
    EXPECT_EQ(gamma.parts, 2);
    EXPECT_EQ(gamma.smallest->text(), "L 137.83 nH");
    EXPECT_EQ(gamma.largest->text(), "C 13.78 pF");
    EXPECT_NEAR(gamma.smallest->impedance, 86.60, 0.01);
    EXPECT_NEAR(gamma.largest->impedance, 115.47, 0.01);
    EXPECT_TRUE(gamma.practical);
    EXPECT_EQ(Title(Of(proposals, 18)), "Double-L Section, R1 and R2 switched");
}

/// The L pad steps down only: from 50 to 200 ohm it stands reversed. Its least loss of 11.44 dB
/// leaves √(200/50)·0.268 = 0.536 of the voltage, not the 0.134 of its own direction.
TEST(ProposalNumbersTest, TurnedNetworksAreJudgedInTheDirectionOfUse) {
    const auto proposals =
        ProposalsFor(Inputs(50, 200), With([](Wishes& w) { w.voltageRatio = 0.536; }));
    const Proposal& pad = Of(proposals, 7);
    ASSERT_TRUE(pad.suited) << pad.reason;
    EXPECT_TRUE(pad.turned);
    EXPECT_NEAR(pad.v, 0.536, 1e-3);
    EXPECT_NE(pad.reason.find("v is 0.536"), std::string::npos) << pad.reason;
    EXPECT_NE(pad.reason.find("built from the load's side"), std::string::npos) << pad.reason;
    EXPECT_GT(pad.score, 85);
    // A matched pad of less loss than the least does not exist in either direction.
    const auto impossible =
        ProposalsFor(Inputs(200, 50), With([](Wishes& w) { w.voltageRatio = 0.4; }));
    EXPECT_FALSE(Of(impossible, 8).suited);
}

TEST(ProposalNumbersTest, ResistancesStayUnlessTheirExchangeIsAgreed) {
    const auto proposals = ProposalsFor(Inputs(50, 200), {});
    const Proposal& turned = Of(proposals, 18);
    ASSERT_TRUE(turned.turned);
    Design kept = Inputs(50, 200);
    Apply(turned, kept, false);
    EXPECT_EQ(kept.R1, 50);
    Apply(turned, kept, true);
    EXPECT_EQ(kept.R1, 200);
    EXPECT_EQ(kept.R2, 50);
}

/// "Cannot be chosen" is said exactly where another Q gives the same band.
TEST(ProposalNumbersTest, OnlyFixedBandsCannotBeChosen) {
    const auto proposals =
        ProposalsFor(Inputs(50, 200), With([](Wishes& w) { w.bandwidth = 10e6; }));
    const auto says = [&](int page) {
        return Of(proposals, page).reason.find("cannot be chosen") != std::string::npos;
    };
    for (const int page : {1, 3, 17}) EXPECT_FALSE(says(page)) << Of(proposals, page).reason;
    for (const int page : {6, 13, 14}) EXPECT_TRUE(says(page)) << Of(proposals, page).reason;
}

TEST(ProposalNumbersTest, ALineIsNoLowPass) {
    for (const double elementQ : {20.0, 100.0}) {
        Design inputs = Inputs(50, 270);
        inputs.QB = inputs.QBC = elementQ;
        const auto proposals = ProposalsFor(inputs, {});
        EXPECT_EQ(Of(proposals, 6).reason.find("low-pass"), std::string::npos)
            << Of(proposals, 6).reason;
    }
}

TEST(ProposalNumbersTest, ValuesThatCannotBeBuiltAreNamed) {
    const auto high = ProposalsFor(Inputs(50, 200, 20e9), {});
    EXPECT_FALSE(Of(high, 13).practical);
    EXPECT_NE(Of(high, 13).reason.find("C 68.92 fF is too small to be built"), std::string::npos)
        << Of(high, 13).reason;
    const auto low = ProposalsFor(Inputs(50, 200, 50), {});
    EXPECT_NE(Of(low, 6).reason.find("the line would be "), std::string::npos) << Of(low, 6).reason;
}

TEST(ProposalNumbersTest, ExtremeInputsGiveFiniteScores) {
    for (const double R1 : {0.001, 50.0, 1e6}) {
        for (const double fo : {1.0, 2e10}) {
            for (const double Q : {0.2, 500.0}) {
                Wishes wishes;
                wishes.Q = Q;
                wishes.voltageRatio = 1e-4;
                for (const Proposal& p : ProposalsFor(Inputs(R1, 1e3, fo), wishes)) {
                    EXPECT_TRUE(std::isfinite(p.score)) << Title(p) << ' ' << p.reason;
                    EXPECT_EQ(p.reason.find("nan"), std::string::npos) << p.reason;
                }
            }
        }
    }
}

}  // namespace
}  // namespace kelvro
