// What every export has in common, listings, tables and JSON.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "core/number_text.h"
#include "design/part_ref.h"
#include "export_design.h"
#include "io/design_report.h"
#include "io/touchstone.h"
#include "network/ladder_response.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;

std::string LineOf(const std::string& text, const std::string& start) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(start)) return line;
    }
    return "";
}

TEST(Listing, NamesValuesStandardValuesAndErrors) {
    const Design state = DesignedState({"gamma", 13}, 1000);
    const std::string text = ListingOf(Exported(state), {});
    // L = 137.83 nH is nearest to 150 nH of E12: 150/137.83 = 1.0883.
    EXPECT_THAT(LineOf(text, "L "),
                MatchesRegex("L +in series +137.83 nH +150.00 nH +\\+8.83 % +Inductance L"));
    EXPECT_THAT(LineOf(text, "C "),
                MatchesRegex("C +across +13.78 pF +15.00 pF +\\+8.83 % +Capacitance C"));
    EXPECT_THAT(LineOf(text, "R2"), HasSubstr("200.00 Ω"));
    EXPECT_THAT(LineOf(text, "loss_db"), HasSubstr("dB"));
}

/// A quarter wave at 100 MHz is 299.8 m / 100 / 4.
TEST(Listing, SpeaksAsTheWindowDoes) {
    const std::string text = ListingOf(Exported(DesignedState({"line", 6}, 100)), {});
    EXPECT_THAT(LineOf(text, "l "), MatchesRegex("l +749.[45]. mm +Geometrical Length l"));
    EXPECT_THAT(LineOf(text, "R1"), HasSubstr("Resistance R1"));
    EXPECT_EQ(WithUnit("10.67u", "H"), "10.67 µH");
}

TEST(Listing, LeavesOutResistorsThatVanish) {
    const double smallestLoss = std::sqrt(50.0 / 75) / (std::sqrt(1.5) + std::sqrt(0.5));
    const auto calculated = CycleOf({.page = 8, .R1 = 75, .R2 = 50, .v8 = smallestLoss});
    ASSERT_FALSE(calculated.message);
    const ExportDesign design = Exported(calculated.design);
    EXPECT_THAT(ListingOf(design, {}), HasSubstr("infinite"));
    EXPECT_THAT(SpiceNetlist(design, ExportRange::Around(1e6)), HasSubstr("VRb n1 out DC 0"));
}

class EveryPageExports : public testing::TestWithParam<int> {};

TEST_P(EveryPageExports, ItsFormatsWithStandardValuesToo) {
    Design state;
    EnterPage(state, GetParam());
    state = CalculatedEitherWay(state);
    for (const bool standard : {false, true}) {
        const ExportDesign design = Exported(state, {.standardValues = standard});
        for (const Network& network : design.networks) {
            for (const ListedPart& part : ListOf(network)) {
                if (!standard || part.line) continue;
                const double nearest = ParseValue(SeriesNearest(Series::E12, part.value));
                EXPECT_NEAR(part.value, nearest, 1e-9 * nearest) << part.name;
            }
        }
        for (const ExportFormat& format : ExportFormats()) {
            if (!format.available(design.page())) continue;
            const std::string text = format.content(design, ExportRange::Around(state.fo));
            EXPECT_GT(text.size(), 80U) << format.key;
            EXPECT_TRUE(text.ends_with('\n')) << format.key;
            EXPECT_THAT(text, testing::Not(testing::ContainsRegex("[ ,:=(]-?(nan|inf)[ ,)]")))
                << format.key;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, EveryPageExports, testing::Range(1, PageCount() + 1));

TEST(Exports, RefuseWhatThePageRefuses) {
    Design state = DesignedState({"series tank", 1}, 100);
    std::swap(state.R1, state.R2);
    const auto refused = PrepareExport(state, {});
    ASSERT_FALSE(refused);
    EXPECT_THAT(refused.message(), HasSubstr("It must be R2>R1!"));
    // Components that the user has given stand all the same.
    EXPECT_TRUE(PrepareExport(state, {false, true}));
    state.components = {};
    EXPECT_FALSE(PrepareExport(state, {false, true}));
}

TEST(Exports, TakeValuesThatFieldsShowRounded) {
    for (const bool swapped : {false, true}) {
        Design state = DesignedState({"Pi", 3, 50, 200, 5, swapped}, 100);
        const Slots before = state.components;
        // C1 = 106.1 pF, or as dual L1 = 1/(ω²·C1) = 23.9 nH.
        PartsOf(state).at(0).round(state, Series::E6);
        EXPECT_EQ(state.components, before);
        state = AsShown(state);
        const Network built = PageOf(3).builtNetworks(state).front();
        EXPECT_NEAR(ListOf(built)[0].value, swapped ? 22e-9 : 100e-12, 1e-18);
        // Fields as calculated keep all their digits.
        EXPECT_EQ(state.components[Slot::C2], before[Slot::C2]);
        EXPECT_EQ(state.components[Slot::L], before[Slot::L]);
    }
}

class TouchstoneFiles : public testing::TestWithParam<DesignCase> {};

/// Put back between the resistances of the design, the file has its gain and delivers no power.
TEST_P(TouchstoneFiles, DescribeAPassiveReciprocalTwoPortWithTheDesignsGain) {
    Design state = DesignedState(GetParam(), 1000);
    state.QB = 40;
    state.QBC = 150;
    const ExportDesign design = Exported(state);
    const Response response(design.state);
    ExportRange range = ExportRange::Around(state.fo);
    range.points = 41;
    for (const double z0 : {50.0, 75.0}) {
        range.z0 = z0;
        const auto file = ParseTouchstone(TouchstoneFile(design, range), "design.s2p");
        ASSERT_TRUE(file.ok()) << file.message();
        const PortData& data = file->data;
        EXPECT_EQ(data.reference, (std::array{z0, z0}));
        ASSERT_EQ(data.f.size(), 41U);
        EXPECT_EQ(data.f.front(), range.from);
        EXPECT_EQ(data.f.back(), range.to);
        const MeasuredTwoPort twoPort{std::make_shared<const PortData>(data)};
        const LadderResponse between(Network{state.R1, {{twoPort, {}}}, state.R2});
        for (std::size_t i = 0; i < data.f.size(); ++i) {
            EXPECT_EQ(data.s[i][1], data.s[i][2]) << data.f[i];
            const NetworkPoint point = between.at(data.f[i]);
            EXPECT_GE(point.dissipated, -1e-9) << data.f[i];
            const double expected = std::norm(response.transfer(data.f[i])) / (state.R2 / state.R1);
            EXPECT_NEAR(point.GT, expected, 1e-9 * expected) << data.f[i];
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, TouchstoneFiles, testing::ValuesIn(kTwoPorts));

/// Shunt admittance Y: S11 = -Y·Z0/(2 + Y·Z0), with the tank's published reactances.
TEST(TouchstoneFile, ShowsTheCombinedTankAcrossTheLine) {
    ExportRange range;
    range.from = 12e6;
    range.to = 20e6;
    range.points = 2;
    const auto file =
        ParseTouchstone(TouchstoneFile(Exported(DesignedState({"tank", 12}, 1e9)), range), "t.s2p");
    ASSERT_TRUE(file.ok()) << file.message();
    for (std::size_t i = 0; i < 2; ++i) {
        const auto y = 50.0 / std::complex<double>(0, i == 0 ? -237.52 : 33.72);
        EXPECT_NEAR(std::abs(file->data.s[i][0] + y / (2.0 + y)), 0, 1e-4);
        EXPECT_NEAR(std::abs(file->data.s[i][2] - 2.0 / (2.0 + y)), 0, 1e-4);
    }
}

TEST(ResponseCsv, ReadsBackAsTheResponse) {
    const Design state = DesignedState({"T", 4}, 100);
    ExportRange range = ExportRange::Around(state.fo);
    range.points = 5;
    std::istringstream lines(ResponseCsv(Exported(state), range));
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line,
              "f_Hz,re,im,V_dB,GT_dB,phase_deg,group_delay_s,return_loss_dB,VSWR,R_in_ohm,"
              "X_in_ohm,return_loss_out_dB,dissipated_part");
    const Response response(state);
    int rows = 0;
    for (; std::getline(lines, line); ++rows) {
        double f = 0, re = 0, im = 0;
        ASSERT_EQ(std::sscanf(line.c_str(), "%lf,%lf,%lf", &f, &re, &im), 3) << line;
        EXPECT_EQ(response.transfer(f), std::complex<double>(re, im));
    }
    EXPECT_EQ(rows, 5);
}

TEST(DesignJson, CarriesInputsOfThePageAndComponents) {
    const Design state = DesignedState({"broadband", 16, 50, 200, 0.2, false, true}, 100);
    const auto json = nlohmann::json::parse(DesignJson(Exported(state), {}));
    EXPECT_EQ(json["page"], 16);
    ASSERT_EQ(json["components"].size(), 8U);
    EXPECT_EQ(json["components"][7]["name"], "C4");
    EXPECT_NEAR(json["components"][7]["value"].get<double>(), 5.1216e-12, 1e-15);
    const auto pad = nlohmann::json::parse(DesignJson(Exported(DesignedState({"", 8}, 9)), {}));
    EXPECT_EQ(pad["inputs"]["v"], 0.5);
}

struct BadRange {
    double from, to;
    int points;
    double z0;
};

TEST(Ranges, ThatCannotBeUsedAreNamed) {
    const double infinite = std::numeric_limits<double>::infinity();
    for (const BadRange& bad :
         {BadRange{0, 1e6, 11, 50}, BadRange{2e6, 1e6, 11, 50}, BadRange{1e6, infinite, 11, 50},
          BadRange{1e6, 2e6, 1, 50}, BadRange{1e6, 2e6, 11, 0}, BadRange{1e6, 2e6, 1 << 30, 50}}) {
        EXPECT_FALSE(CheckRange({bad.from, bad.to, bad.points, bad.z0}))
            << bad.from << " to " << bad.to;
    }
    EXPECT_TRUE(CheckRange(ExportRange::Around(1e6)));
}

}  // namespace
}  // namespace kelvro
