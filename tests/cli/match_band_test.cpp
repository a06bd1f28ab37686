// The search over bands and the limit, on the command line.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <fstream>
#include <set>
#include <thread>

#include "cli_output.h"
#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

using testing::HasSubstr;

/// 40 ohm with 120 nH at 50 ohm from 295 MHz to 405 MHz: -2.655 dB with two parts, -1.215 dB with
/// three, -0.215 dB with any number.
std::vector<std::string> Antenna(const std::string& command, std::vector<std::string> more = {}) {
    std::vector<std::string> args = {command,         "--source", "50",       "--load",
                                     "R=40 + L=120n", "--band",   "295M:405M"};
    args.insert(args.end(), more.begin(), more.end());
    return args;
}

TEST(MatchBandCommand, SaysWhatItFoundAndTheLimit) {
    const Json document =
        JsonOf(Antenna("match", {"--parts", "3", "--series", "E12", "--top", "4", "--json"}));
    EXPECT_NEAR(document["limit_db"].get<double>(), -0.2150, 5e-4);
    EXPECT_EQ(document["limit_is_estimate"], false);
    const Json& networks = document["networks"];
    ASSERT_EQ(networks.size(), 4U);
    EXPECT_EQ(networks[0]["parts"], 3);
    EXPECT_GT(networks[0]["worst_db"].get<double>(), -1.215 - 1e-3 * 4.34);
    for (const Json& network : networks) {
        EXPECT_GE(network["mean_db"], network["worst_db"]);
        EXPECT_LE(network["standard"]["worst_db"], 0.0);
        EXPECT_GE(network["standard"]["worst_db"], network["standard"]["rounded_db"]);
        EXPECT_GE(network["yield"], 0.0);
        EXPECT_LE(network["yield"], 1.0);
        ASSERT_EQ(network["values"].size(), network["elements"].size());
        int parts = 0;
        for (std::size_t i = 0; i < network["values"].size(); ++i) {
            const Json& value = network["values"][i];
            const std::string text = network["elements"][i];
            EXPECT_EQ(text.find(value["place"].get<std::string>() + ":"), 0U) << text;
            EXPECT_EQ(value["connection"] == "single", value["parts"].size() == 1) << text;
            EXPECT_EQ(value["connection"] == "parallel", text.find('|') != std::string::npos);
            for (const Json& part : value["parts"]) {
                EXPECT_THAT(text, HasSubstr(part["kind"].get<std::string>() + "="));
                EXPECT_GT(part["value"], 0.0);
                ++parts;
            }
        }
        EXPECT_EQ(network["parts"], parts);
    }
}

/// The worst gain is that of the printed elements, at four times as many frequencies too.
TEST(MatchBandCommand, WhatItPrintsIsWhatAnalyzeTakes) {
    const Json document = JsonOf(Antenna("match", {"--parts", "2", "--top", "2", "--json"}));
    for (const Json& network : document["networks"]) {
        std::vector<std::string> args = {"analyze", "--source", "50",    "--load", "R=40 + L=120n",
                                         "--from",  "295M",     "--to",  "405M",   "--points",
                                         "2404",    "--linear", "--json"};
        for (const Json& element : network["elements"]) args.push_back(element);
        double worst = 0;
        for (const Json& point : JsonOf(args))
            worst = std::min(worst, point["gt_db"].get<double>());
        EXPECT_NEAR(worst, network["worst_db"].get<double>(), 1e-3);
    }
}

TEST(MatchBandCommand, TheBestBecomesAProjectWithItsBand) {
    const TemporaryFolder folder;
    const std::string file = (folder.path() / "best.kelvro").string();
    const Json found = JsonOf(Antenna("match", {"--parts", "2", "--json", "-o", file}));
    double worst = 0;
    for (const Json& point : JsonOf({"analyze", "--network", file, "--from", "295M", "--to", "405M",
                                     "--points", "401", "--linear", "--json"})) {
        worst = std::min(worst, point["gt_db"].get<double>());
    }
    EXPECT_NEAR(worst, found["networks"][0]["worst_db"].get<double>(), 1e-3);
    std::ifstream stream(file);
    const Json project = Json::parse(stream, nullptr, false);
    EXPECT_THAT(project.dump(), HasSubstr(found["networks"][0]["elements"][0]));
    EXPECT_THAT(project.dump(), HasSubstr("405"));
    // It brings source, load and band along.
    const Json again = JsonOf({"match", "--network", file, "--parts", "2", "--json"});
    EXPECT_EQ(again["networks"], found["networks"]);
    EXPECT_NEAR(JsonOf({"limit", "--network", file, "--json"})["limit_db"].get<double>(), -0.2150,
                5e-4);
}

TEST(MatchBandCommand, StandardValuesComeFromAListOfOwnParts) {
    const TemporaryFolder folder;
    const std::string list = (folder.path() / "drawer.txt").string();
    std::ofstream(list) << "C: 1.5p 2.2p 6.8p  # what is there\nL: 27n 33n\n";
    const Json document = JsonOf(Antenna("match", {"--parts", "2", "--own", list, "--json"}));
    for (const Json& value : document["networks"][0]["standard"]["values"]) {
        const double owned = value["parts"][0]["value"];
        EXPECT_TRUE((std::set{1.5e-12, 2.2e-12, 6.8e-12, 27e-9, 33e-9}.contains(owned))) << owned;
    }
}

/// Ctrl+C while eight parts are searched, which takes minutes.
TEST(MatchBandCommand, AnInterruptEndsTheSearchWithTheBestSoFar) {
    const auto before = std::signal(SIGINT, SIG_IGN);
    std::thread user([] {
        struct sigaction now = {};
        while (sigaction(SIGINT, nullptr, &now) == 0 && now.sa_handler == SIG_IGN) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        std::this_thread::sleep_for(std::chrono::seconds(2));
        std::raise(SIGINT);
    });
    const Output outcome = RunWith(Antenna("match", {"--parts", "8", "--json"}));
    user.join();
    std::signal(SIGINT, before);
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("interrupted: the best so far"));
    EXPECT_EQ(outcome.err.find('\r'), std::string::npos) << "progress without a terminal";
    EXPECT_FALSE(Json::parse(outcome.out, nullptr, false)["networks"].empty());
}

TEST(LimitCommand, SaysWhenItIsAnEstimate) {
    const Output outcome =
        RunWith({"limit", "--source", "12-j45", "--load", "50 | C=2p", "--band", "1G:1.2G"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("estimate"));
    EXPECT_THAT(RunWith(Antenna("limit")).out,
                HasSubstr("No lossless network does better than -0.2150 dB."));
}

TEST(MatchBandCommand, FaultsEndWithTheirCodeAndTheReason) {
    ExpectFaults({{Antenna("match", {"--at", "300M"}), 2, "either --at or --band"},
                  {Antenna("match", {"--band", "130M:70M"}), 2, "a lower and a higher frequency"},
                  {Antenna("limit", {"--band", "130M"}), 2, "a lower and a higher frequency"},
                  {{"limit", "--source", "50", "--load", "60"}, 2, "--band is required"},
                  {Antenna("match", {"--parts", "0"}), 2, "--parts"},
                  {Antenna("match", {"--kinds", "L,X"}), 2, "--kinds"},
                  {Antenna("match", {"--ql", "good"}), 2, "--ql: expected a Q"},
                  {Antenna("match", {"--harmonics", "2"}), 2, "--harmonics: expected order"},
                  {Antenna("match", {"--absorb-load", "R=5"}), 2, "--absorb-load: expected a part"},
                  {Antenna("match", {"--min-l", "1u", "--max-l", "1n"}), 3, "value"},
                  {Antenna("match", {"--low-pass", "--dc", "block"}), 3, "no ladder"},
                  {Antenna("match", {"--own", "/no/list.txt"}), 1, "cannot be read"},
                  {{"match", "--source", "50", "--load", "j50", "--band", "1M:2M"},
                   3,
                   "the resistance of the load"},
                  {{"limit", "--source", "50", "--load", "j50", "--band", "1M:2M"},
                   3,
                   "the resistance of the load"}});
}

}  // namespace
}  // namespace kelvro
