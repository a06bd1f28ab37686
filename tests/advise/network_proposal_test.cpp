#include "advise/network_proposal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "advise/page_problem.h"
#include "advise/proposal.h"
#include "design/pages.h"
#include "network/ladder_response.h"
#include "synthesis/refine.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

Design Inputs(double R1, double R2) {
    return {.R1 = R1, .R2 = R2};
}

std::vector<NetworkProposal> FoundFor(const Design& state, const Wishes& wishes) {
    const auto search = SearchFor(state, wishes);
    EXPECT_TRUE(search) << search.message();
    const auto found = SearchNetworks(search->problem, search->options);
    EXPECT_TRUE(found) << found.message();
    return ProposeNetworks(*search, found->networks);
}

/// A page's own design, with its band and losses, is nothing that the search does not find.
TEST(NetworkProposalTest, NoPageWithSoFewPartsIsBetter) {
    int compared = 0;
    for (const double R2 : {10.0, 200.0}) {
        const auto proposals = FoundFor(Inputs(50, R2), {});
        ASSERT_FALSE(proposals.empty());
        for (const Page& page : Pages()) {
            Design design = Inputs(50, R2);
            EnterPage(design, page.number);
            const CycleResult cycle = CycleOf(design);
            const auto problem = PageProblem(cycle.design);
            if (cycle.message || !problem || problem->ladder.empty()) continue;
            const auto parts = ListOf(*problem);
            if (parts.size() > 4 || std::ranges::any_of(parts, &ListedPart::line) ||
                std::ranges::any_of(problem->ladder, [](const LadderElement& element) {
                    return !std::holds_alternative<Arm>(element.is);
                })) {
                continue;
            }
            ++compared;
            double best = 0;
            for (const NetworkProposal& proposal : proposals) {
                if (proposal.parts <= static_cast<int>(parts.size())) {
                    best = std::max(best, proposal.found.worstGT);
                }
            }
            // The pages reckon the loss of a capacitor a little differently.
            EXPECT_GT(best, WorstGain(*problem) * (1 - 1e-3)) << page.number << " to " << R2;
        }
    }
    EXPECT_GE(compared, 6);
}

TEST(NetworkProposalTest, KeepsTheWishes) {
    Wishes wishes;
    wishes.bandwidth = 30e6;
    wishes.dc = Wishes::Dc::Pass;
    wishes.suppressHarmonics = true;
    const auto proposals = FoundFor(Inputs(50, 200), wishes);
    ASSERT_GE(proposals.size(), 2U);
    double last = INFINITY;
    for (const NetworkProposal& proposal : proposals) {
        const FrequencyBand& band = proposal.found.network.bands.front();
        EXPECT_NEAR(band.high - band.low, 30e6, 1e3);  // edges of six digits
        EXPECT_NEAR(band.high * band.low, 1e16, 1e11);
        EXPECT_EQ(DcPathOf(proposal.found.network), Wishes::Dc::Pass) << proposal.reason;
        EXPECT_GT(*proposal.secondHarmonicDb, 5.5) << proposal.reason;
        EXPECT_GT(*proposal.gtDb, -1) << proposal.reason;
        EXPECT_GT(proposal.passband->width(), 30e6) << proposal.reason;
        EXPECT_TRUE(proposal.practical) << proposal.reason;
        EXPECT_LE(proposal.score, last);
        last = proposal.score;
    }
}

TEST(NetworkProposalTest, WhatNoLosslessTwoPortDoesIsRefused) {
    Wishes resistive, balanced, amplifier, attenuated, matched;
    resistive.resistive = balanced.balancedOutput = amplifier.amplifierStage = true;
    attenuated.voltageRatio = 1;
    matched.voltageRatio = 2;
    for (const Wishes& wishes : {resistive, balanced, amplifier, attenuated}) {
        EXPECT_FALSE(SearchFor(Inputs(50, 200), wishes));
    }
    EXPECT_TRUE(SearchFor(Inputs(50, 200), matched));
}

}  // namespace
}  // namespace kelvro
