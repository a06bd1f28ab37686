// Designs of all pages taken over as networks.

#include "design/opened_network.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "analysis/response.h"
#include "core/number_text.h"
#include "design/pages.h"
#include "design/part_ref.h"
#include "network/ladder_response.h"
#include "network/network_text.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

using testing::HasSubstr;

Design Designed(int page, bool swapped) {
    Design design;
    EnterPage(design, page);
    design.QB = 80;
    design.QBC = 300;
    design.LCSwapped = swapped;
    design.eightElements = swapped;
    return CalculatedEitherWay(design);
}

class OpenedPages : public testing::TestWithParam<int> {};

/// GT of the network between its resistances against the page's own closed form: a ladder's voltage
/// transfer 2·V2/V1 has the gain |2·V2/V1|²·R1/R2.
TEST_P(OpenedPages, HaveTheCurvesOfTheirPage) {
    const Page& page = PageOf(GetParam());
    for (const bool swapped : {false, true}) {
        const Design design = Designed(page.number, swapped);
        const auto opened = OpenedNetwork(design);
        ASSERT_TRUE(opened.ok()) << opened.message();
        EXPECT_EQ(opened->designFrequency, design.fo);
        const Response response(design);
        const LadderResponse network(*opened);
        for (const double x : {0.2, 0.7, 0.95, 1.0, 1.02, 1.6, 4.0}) {
            const double f = x * design.fo;
            const std::complex<double> H = response.transfer(f);
            const NetworkPoint at = network.at(f);
            EXPECT_NEAR(at.GT / (std::norm(H) * design.R1 / design.R2), 1, 1e-12) << f;
            EXPECT_NEAR(std::abs(at.transfer / std::abs(at.transfer) - H / std::abs(H)), 0, 1e-12)
                << f;
        }
    }
}

std::vector<int> PagesWithResponse() {
    std::vector<int> numbers;
    for (const Page& page : Pages()) {
        if (page.transfer) numbers.push_back(page.number);
    }
    return numbers;
}

INSTANTIATE_TEST_SUITE_P(Pages, OpenedPages, testing::ValuesIn(PagesWithResponse()),
                         [](const auto& page) { return std::to_string(page.param); });

TEST(OpenedNetwork, TakesTheStandardValuesThatFieldsShow) {
    Design design = Designed(3, false);
    const PartRef coil = PartsOf(design).back();
    coil.round(design, Series::E6);
    const auto opened = OpenedNetwork(design);
    ASSERT_TRUE(opened.ok());
    const double value = ListOf(*opened)[1].value;
    EXPECT_NE(value, coil.read(design));
    EXPECT_EQ(value, ParseValue(SeriesNearest(Series::E6, coil.read(design))));
}

/// 1 µH with 10 pF across and 5 Ω in series, at 20 MHz: Y = 1/(5 + j125.664) + j1.25664e-3 S.
TEST(OpenedNetwork, PutsWhatHasOneEndInPlaceOfTheLoad) {
    Design design;
    EnterPage(design, 11);
    design.L = 1e-6;
    design.C = 10e-12;
    design.R = 5;
    design.fo = 20e6;
    const auto opened = OpenedNetwork(design);
    ASSERT_TRUE(opened.ok()) << opened.message();
    const std::complex<double> Y =
        1.0 / std::complex(5.0, 125.66370614359172) + std::complex(0.0, 1.2566370614359172e-3);
    EXPECT_NEAR(std::abs(LadderResponse(*opened).at(20e6).Zin * Y - 1.0), 0, 1e-12);
}

TEST(OpenedNetwork, DrivesALoadNetworkFromAResistanceLikeItsLoad) {
    const Design design = Designed(15, false);
    const auto opened = OpenedNetwork(design);
    ASSERT_TRUE(opened.ok()) << opened.message();
    EXPECT_EQ(impedance(opened->source, design.fo).real(), design.components[Slot::X5]);
    EXPECT_TRUE(std::isfinite(LadderResponse(*opened).at(design.fo).GT));
}

TEST(OpenedNetwork, SaysWhyThereIsNone) {
    for (const Page& page : Pages()) {
        if (page.networks && page.atFrequency) continue;
        Design design;
        EnterPage(design, page.number);
        const auto opened = OpenedNetwork(design);
        ASSERT_FALSE(opened.ok());
        EXPECT_THAT(opened.message(), HasSubstr(page.caption));
    }
}

}  // namespace
}  // namespace kelvro
