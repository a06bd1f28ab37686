#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "cli_output.h"
#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

class PlotCommands : public testing::Test {
  protected:
    std::string path(const std::string& name) const { return folder_ / name; }
    std::string content(const std::string& name) const { return ReadFile(path(name)); }
    /// The picture of a Pi section.
    std::string plot(std::vector<std::string> options, const std::string& name) {
        options.insert(options.begin(), {"plot", "pi", "--fo", "10M", "-o", path(name)});
        const Output output = RunWith(options);
        EXPECT_EQ(output.code, 0) << output.err;
        EXPECT_EQ(output.out + output.err, "");
        return content(name);
    }

  private:
    TemporaryFolder folder_;
};

TEST_F(PlotCommands, PlotWritesEveryFormatByItsEnding) {
    const std::pair<const char*, std::string> starts[] = {
        {"a.png", "\x89PNG\r\n"},     {"a.svg", "<?xml"},
        {"a.pdf", "%PDF-"},           {"a.bmp", "BM"},
        {"a.jpg", "\xFF\xD8\xFF"},    {"a.gif", "GIF8"},
        {"a.WMF", "\xD7\xCD\xC6\x9A"}};
    for (const auto& [name, start] : starts) {
        EXPECT_EQ(plot({"--size", "300x200"}, name).substr(0, start.size()), start) << name;
    }
}

TEST_F(PlotCommands, PlotNeedsNoDisplayAndNoSurroundings) {
    const std::string command =
        "env -i '" CLI_PROGRAM "' plot t --r2 20 --quantity phi --linear -o " + path("t.png");
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_GT(content("t.png").size(), 1000U);
}

TEST_F(PlotCommands, TheSameSeedGivesTheSamePicture) {
    const std::string first = plot({"--mc", "5", "--seed", "3"}, "a.png");
    EXPECT_EQ(plot({"--mc", "5", "--seed", "3"}, "b.png"), first);
    EXPECT_NE(plot({"--mc", "5", "--seed", "4"}, "c.png"), first);
    EXPECT_NE(plot({"--mc", "5", "--seed", "3", "--ctol", "20"}, "d.png"), first);
}

TEST_F(PlotCommands, OptionsOfTheViewChangeThePicture) {
    std::vector<std::string> pictures{plot({}, "a.png")};
    for (const std::vector<std::string>& options : {std::vector<std::string>{"--quantity", "v"},
                                                    {"--quantity", "phi"},
                                                    {"--trace", "gt,v"},
                                                    {"--trace", "gt,delay"},
                                                    {"--linear"},
                                                    {"--from", "1M", "--to", "20M"},
                                                    {"--autoscale"},
                                                    {"--edges"},
                                                    {"--marker", "9M,12M"},
                                                    {"--dpi", "150"},
                                                    {"--no-caption"},
                                                    {"--no-harmonics"},
                                                    {"--no-levels"},
                                                    {"--dark"},
                                                    {"--size", "200x100"}}) {
        pictures.push_back(plot(options, "a.png"));
        EXPECT_EQ(std::ranges::count(pictures, pictures.back()), 1) << options.front();
    }
}

TEST_F(PlotCommands, TableRunsFromOneEndToTheOther) {
    const Output output = RunWith(
        {"table", "pi", "--fo", "10M", "--from", "10", "--to", "10240", "-o", path("pi.tab")});
    ASSERT_EQ(output.code, 0) << output.err;
    const std::string table = content("pi.tab");
    EXPECT_EQ(std::ranges::count(table, '\n'), 514);
    EXPECT_NE(table.find("\r\n 10.0000 "), std::string::npos);
    EXPECT_NE(table.find("\r\n 10.240k "), std::string::npos);
}

TEST_F(PlotCommands, ToleranceReportsSpreadYieldAndParts) {
    const std::vector<std::string> args{
        "tolerance", "lc-series", "--fo", "10M",    "--runs", "500",    "--seed",
        "7",         "--ctol",    "50",   "--ltol", "0",      "--json", "--no-optimize"};
    const Json document = JsonOf(args);
    EXPECT_EQ(document["runs"], 500);
    EXPECT_EQ(document["seed"], 7);
    const auto at = [&document](const char* key) { return document[key].get<double>(); };
    const double rising[] = {at("minimum_db"), at("percentile_5_db"), at("mean_db"),
                             at("percentile_95_db"), at("maximum_db")};
    EXPECT_TRUE(std::ranges::is_sorted(rising));
    const Json& parts = document["parts"];
    ASSERT_EQ(parts.size(), 3U);
    EXPECT_EQ(parts[0]["tolerance_percent"], 35);
    EXPECT_EQ(parts[2]["tolerance_percent"], 0.1);
    // C1 lies in the resonant branch; a coil of 0.1 percent has no say beside it.
    EXPECT_GT(std::abs(parts[0]["correlation"].get<double>()), 0.3);
    EXPECT_LT(std::abs(parts[2]["correlation"].get<double>()), 0.2);

    EXPECT_EQ(JsonOf(args), document);
    std::vector<std::string> lenient = args;
    lenient.insert(lenient.end(), {"--limit-db", "-300"});
    EXPECT_EQ(JsonOf(lenient)["yield"], 1);
}

TEST_F(PlotCommands, ToleranceVariesResistorsAndJudgesByTheNominalGain) {
    const auto document = [](std::vector<std::string> args) {
        args.insert(args.end(), {"--runs", "200", "--seed", "1", "--json"});
        return JsonOf(args);
    };
    const auto pad =
        document({"tolerance", "passive-pi-t", "--r1", "50", "--r2", "50", "--rtol", "1"});
    EXPECT_EQ(pad["parts"].size(), 3U);
    EXPECT_EQ(pad["parts"][0]["group"], "resistance");
    EXPECT_EQ(pad["parts"][0]["tolerance_percent"], 1);
    EXPECT_GT(pad["standard_deviation_db"].get<double>(), 0);
    const auto balun = document({"tolerance", "lc-balun", "--ctol", "1", "--ltol", "1"});
    EXPECT_NEAR(balun["limit_db"].get<double>(), balun["nominal_db"].get<double>() - 1, 1e-9);
    EXPECT_EQ(balun["yield"], 1);
}

TEST_F(PlotCommands, ToleranceWithoutASeedSaysWhichOneItTook) {
    const auto seed = [] {
        const Json report = JsonOf({"tolerance", "pi", "--runs", "2", "--json"});
        return report["seed"].get<std::uint64_t>();
    };
    EXPECT_NE(seed(), seed());
}

TEST_F(PlotCommands, WhatCannotBeDoneEndsWithOneLineAndItsCode) {
    const std::string png = path("a.png");
    ExpectFaults({{{"plot", "pi", "-o", path("a.tiff")}, 2, ""},
                  {{"plot", "pi"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--size", "10x10"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--size", "300"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--size", "300x99999999999"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--quantity", "s21"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--trace", "gt,s21"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--trace", "gt,phi,delay"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--from", "0"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--dpi", "0"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--from", "2M", "--to", "1M"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--mc", "-1"}, 2, ""},
                  {{"plot", "pi", "-o", png, "--mc", "1", "--seed", "-1"}, 2, ""},
                  {{"plot", "lc-series", "--r1", "200", "--r2", "50", "-o", png}, 3, ""},
                  {{"plot", "r-divider", "-o", png}, 3, ""},
                  {{"plot", "pi", "-o", path("missing/a.png")}, 1, ""},
                  {{"table", "pi", "--from", "1M", "-o", path("a.tab")}, 2, ""},
                  {{"table", "pi", "--from", "-1", "--to", "1", "--linear", "-o", "x"}, 2, ""},
                  {{"table", "pi", "--from", "1", "--to", "2", "-o", path("no/a.tab")}, 1, ""},
                  {{"tolerance", "pi", "--runs", "0"}, 2, ""},
                  {{"tolerance", "pi", "--ctol", "much"}, 2, ""},
                  {{"tolerance", "rlopt"}, 3, ""}});
    EXPECT_FALSE(std::filesystem::exists(png));
}

}  // namespace
}  // namespace kelvro
