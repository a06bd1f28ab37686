#include <gtest/gtest.h>

#include <algorithm>

#include "cli_output.h"
#include "core/number_text.h"

namespace kelvro {
namespace {

TEST(TourCommandTest, MonteCarloShowsTheTourOfItsBestRun) {
    const Json document = JsonOf({"tour", "--cities", "12", "--city-seed", "6", "--mc", "--json"});
    EXPECT_EQ(document["monte_carlo"]["runs"], 81);
    EXPECT_EQ(document["seed"], document["monte_carlo"]["best"]);
    EXPECT_EQ(document["length"], document["monte_carlo"]["minimum"]);

    const std::string best = std::to_string(document["monte_carlo"]["best"].get<int>());
    const Json single = JsonOf({"tour", "--cities=12", "--city-seed=6", "--seed", best, "--json"});
    EXPECT_EQ(single["tour"], document["tour"]);
}

TEST(TourCommandTest, CountsTheRunsOnTerminalsOnly) {
    const std::vector<std::string> args = {"tour", "--cities", "5", "--mc"};
    EXPECT_EQ(RunWith(args).err, "");
    std::ostringstream out;
    std::ostringstream err;
    RunCommandLine(args, out, err, true);
    EXPECT_EQ(out.str(), RunWith(args).out);
    const std::string shown = err.str();
    EXPECT_NE(shown.find("\r\x1b[K1 of 81 runs"), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with("81 of 81 runs\r\x1b[K")) << shown;
}

TEST(TourCommandTest, RefusesWhatNoTourCanBeMadeOf) {
    ExpectFaults({{{"tour", "--cities", "4"}, 2, "--cities"},
                  {{"tour", "--cities", "many"}, 2, "--cities"},
                  {{"tour", "--seed", "-1"}, 2, "--seed"},
                  {{"tour", "--accept", "always"}, 2, "--accept"},
                  {{"guide", "--n", "x"}, 2, "--n"}});
}

TEST(GuideCommandTest, TakesTheSituationFromItsOptions) {
    const Output output =
        RunWith({"guide", "--n", "10", "--bad-start", "--nonlinear", "--difficult"});
    EXPECT_EQ(output.out.find("Consider a global optimizer. You can expect"), 0U) << output.out;
    EXPECT_NE(output.out.find(" 420 simulation points."), std::string::npos) << output.out;
}

TEST(ProposeCommandTest, PromisesTheNumbersOfTheDesignCommand) {
    const Json proposals =
        JsonOf({"propose", "--r1", "300", "--r2", "50", "--q", "6", "--dc", "pass", "--json"});
    ASSERT_FALSE(proposals.empty());
    for (const Json& proposal : proposals) {
        if (proposal["switch_r"] || proposal["gt_db"].is_null()) continue;
        std::vector<std::string> args = {"design", proposal["key"], "--r1", "300",   "--r2",
                                         "50",     "--q",           "6",    "--json"};
        if (proposal["swap_lc"]) args.emplace_back("--swap-lc");
        const Json design = JsonOf(args);
        EXPECT_EQ(proposal["v"], design["outputs"]["v"]) << proposal["title"];
        EXPECT_EQ(proposal["gt_db"], -design["outputs"]["loss_db"].get<double>());
    }
}

TEST(OptimizeCommandTest, ReportsGoalAndComponentsBeforeAndAfter) {
    const Json document = JsonOf({"optimize", "pi", "--r1", "50", "--r2", "200", "--json"});
    const Json& goal = document["goal"];
    EXPECT_LT(goal["final"], goal["start"]);
    EXPECT_LE(goal["calls_line_search"].get<int>() + goal["calls_gradient"].get<int>(),
              goal["calls"].get<int>());
    for (const char* name : {"C1", "C2", "L"}) {
        EXPECT_GT(document["before"][name], 0) << name;
        EXPECT_NE(document["before"][name], document["after"][name]) << name;
    }
    const Json design = JsonOf({"design", "pi", "--r1", "50", "--r2", "200", "--json"});
    EXPECT_EQ(design["goal"]["final"], goal["final"]);
    const std::string start = RunWith({"goal", "pi", "--r1", "50", "--r2", "200"}).out;
    EXPECT_DOUBLE_EQ(ParseValue(start), goal["start"]);
}

TEST(OptimizeCommandTest, OptionsSteerTheRun) {
    const auto goalOf = [](std::vector<std::string> extra) {
        std::vector<std::string> args = {"optimize", "pi", "--json"};
        args.insert(args.end(), extra.begin(), extra.end());
        return JsonOf(args)["goal"];
    };
    EXPECT_LE(goalOf({"--max-iterations", "2"})["iterations"], 2);
    EXPECT_GT(goalOf({"--two-runs"})["calls"], goalOf({})["calls"]);
    EXPECT_TRUE(goalOf({"--keywords", "nopt"}).is_null());
    EXPECT_NE(goalOf({"--keywords", "steep"})["final"], goalOf({})["final"]);
    EXPECT_NE(goalOf({"--q", "0.2", "--max-norm"})["start"], goalOf({"--q", "0.2"})["start"]);
}

TEST(OptimizeCommandTest, RefusesWhatCannotBeDone) {
    ExpectFaults({{{"optimize", "passive-pi-t"}, 3, ""},
                  {{"optimize", "t", "--r1", "50", "--r2", "50"}, 3, ""},
                  {{"optimize", "pi", "--max-iterations", "0"}, 2, "--max-iterations"},
                  {{"goal", "pi", "--x", "1,2"}, 2, "--x"}});
}

TEST(OptimizeCommandTest, CarriesTheRunOutWhereItsReportCannotBeWritten) {
    const Output kept = RunWith({"optimize", "pi", "--log", "/dev/null"});
    const Output full = RunWith({"optimize", "pi", "--log", "/dev/full"});
    EXPECT_EQ(full.code, 1);
    EXPECT_EQ(full.out, kept.out);
    EXPECT_EQ(full.err.find("kelvro-cli: Cannot write \"/dev/full\": "), 0U) << full.err;
}

TEST(ProposeCommandTest, NetworksOfTheSearchStandAmongThePages) {
    std::vector<std::string> args = {"propose", "--r1", "50", "--r2", "200", "--json"};
    const Json pages = JsonOf(args);
    args.emplace_back("--search");
    Json both = JsonOf(args);
    double last = 1e9;
    std::size_t networks = 0;
    for (const Json& proposal : both) {
        EXPECT_LE(proposal["score"], last);
        last = proposal["score"];
        if (!proposal["page"].is_null()) continue;
        ++networks;
        EXPECT_LE(proposal["elements"].size(), proposal["parts"]);
    }
    EXPECT_EQ(networks, 3U);
    std::erase_if(both.get_ref<Json::array_t&>(),
                  [](const auto& proposal) { return proposal["page"].is_null(); });
    EXPECT_EQ(both, pages);
}

TEST(ProposeCommandTest, SaysWhenNoPageSuits) {
    const Output output = RunWith({"propose", "--resistive", "--harmonics"});
    EXPECT_EQ(output.code, 3);
    EXPECT_EQ(output.err, "kelvro-cli: no page suits these wishes; --all tells why\n");
    const Output both = RunWith({"propose", "--q", "3", "--bandwidth", "1M"});
    EXPECT_EQ(both.code, 2);
}

}  // namespace
}  // namespace kelvro
