// Networks on the command line: analyze, match, touchstone.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <fstream>

#include "cli_output.h"
#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

using testing::HasSubstr;
using Cx = std::complex<double>;

Cx ComplexOf(const Json& pair) {
    return {pair.at(0).get<double>(), pair.at(1).get<double>()};
}

std::string DataFile(const std::string& name) {
    return std::string(TEST_DATA) + "/touchstone/" + name;
}

/// A file as an impedance, in quotes: folders may have blanks in their names.
std::string LoadOf(const std::string& file) {
    return '"' + file + '"';
}

/// A source of 5 + j50 straight at 50 ohm: GT = 4·5·50/|55 + j50|² = 0.180995 and, in power waves,
/// Γ = (50 - 5 + j50)/(50 + 5 + j50) = 0.900452 + j0.090498.
TEST(AnalyzeCommand, ShowsTheBareMismatchWithoutElements) {
    const Json records = JsonOf({"analyze", "--source", "5+j50", "--load", "50", "--from", "1G",
                                 "--to", "2G", "--points", "3", "--linear", "--json"});
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[1]["f"], 1.5e9);
    for (const Json& record : records) {
        EXPECT_NEAR(record["gt_db"].get<double>(), 10 * std::log10(0.1809955), 1e-5);
        EXPECT_NEAR(std::abs(ComplexOf(record["gamma_in"]) - Cx(0.900452, 0.090498)), 0, 2e-6);
        EXPECT_EQ(ComplexOf(record["zin"]), Cx(50, 0));
        EXPECT_EQ(ComplexOf(record["zout"]), Cx(5, 50));
        const double size = std::abs(Cx(0.900452, 0.090498));
        EXPECT_NEAR(record["vswr"].get<double>(), (1 + size) / (1 - size), 1e-2);
        EXPECT_NEAR(record["dissipated"].get<double>(), 0, 1e-12);
    }
    const std::vector<std::string> keys = {
        "f",         "gt_db", "gamma_in",  "vswr",          "zin",
        "gamma_out", "zout",  "phase_deg", "group_delay_s", "dissipated"};
    for (const std::string& key : keys) EXPECT_TRUE(records[0].contains(key)) << key;
    EXPECT_EQ(records[0].size(), keys.size());
}

/// A quarter-wave line of 70.71 ohm matches 50 to 100 ohm; its delay at the centre is that of the
/// line with both its standing waves: dφ/dω = -(π/2/ω0)·(Z0/100 + 100/Z0)/2.
TEST(AnalyzeCommand, TakesElementsFromSourceToLoad) {
    const Json records = JsonOf({"analyze", "line: Z=70.71067811865476, deg=90@1G", "--source",
                                 "50", "--load", "100", "--from", "1G", "--to", "1G", "--json"});
    ASSERT_EQ(records.size(), 1U);
    EXPECT_NEAR(records[0]["gt_db"].get<double>(), 0, 1e-12);
    EXPECT_NEAR(records[0]["phase_deg"].get<double>(), -90, 1e-9);
    const double q = 1 / std::sqrt(2.0);
    EXPECT_NEAR(records[0]["group_delay_s"].get<double>(), 0.25e-9 * (q + 1 / q) / 2, 1e-15);
    // From source to load: the shunt capacitor stands beside the load.
    const Json order = JsonOf({"analyze", "series: L=100n", "shunt: C=1p", "--source", "50",
                               "--load", "50", "--from", "1G", "--to", "1G", "--json"});
    const double omega = 2 * std::acos(-1.0) * 1e9;
    const Cx expected = Cx(0, omega * 100e-9) + 1.0 / Cx(0.02, omega * 1e-12);
    EXPECT_NEAR(std::abs(ComplexOf(order[0]["zin"]) - expected), 0, 1e-6);
}

TEST(AnalyzeCommand, KeepsTheNetworkAsAProject) {
    const TemporaryFolder folder;
    const std::string file = (folder / "a.kelvro").string();
    const Json direct =
        JsonOf({"analyze", "shunt: C=1p(Q=90@1G)", "--source", "50", "--load",
                LoadOf(DataFile("impedance.s1p")), "--points", "5", "--save", file, "--json"});
    const Json again = JsonOf({"analyze", "--network", file, "--points", "5", "--json"});
    ASSERT_EQ(direct.size(), 5U) << "the range of the data";
    EXPECT_EQ(direct[4]["f"], 2e9);
    EXPECT_EQ(direct, again);
    const Json other = JsonOf(
        {"analyze", "--network", file, "--load", "50", "--from", "3G", "--to", "4G", "--json"});
    EXPECT_EQ(other.size(), 201U);
}

/// What a project cannot read is named, unless it is not needed.
TEST(AnalyzeCommand, SaysWhichFileOfAProjectIsMissing) {
    const TemporaryFolder folder;
    const std::string file = (folder / "a.kelvro").string();
    std::ofstream(file) << R"({"version": 1, "network": {"source": "50", "load": "whip.s1p"},
                               "data": {"whip.s1p": {"path": "gone/whip.s1p"}}})";
    const Output refused =
        RunWith({"analyze", "--network", file, "--from", "1G", "--to", "2G", "--json"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_THAT(refused.err, HasSubstr("a.kelvro needs whip.s1p: there is no file"));
    EXPECT_EQ(JsonOf({"analyze", "--network", file, "--load", "75", "--from", "1G", "--to", "2G",
                      "--points", "2", "--json"})
                  .size(),
              2U);
}

TEST(MatchCommand, GivesAllSolutionsAtAFrequency) {
    const Json document =
        JsonOf({"match", "--at", "500M", "--source", "100", "--load", "200-j100", "--json"});
    const Json& networks = document["networks"];
    ASSERT_EQ(networks.size(), 2U);
    const auto first =
        std::ranges::find_if(networks, [](const Json& n) { return n["values"][0]["kind"] == "L"; });
    ASSERT_NE(first, networks.end());
    EXPECT_EQ((*first)["elements"], Json({"series: L=38.985n", "shunt: C=922.77f"}));
    EXPECT_EQ((*first)["values"][0]["place"], "series");
    EXPECT_NEAR((*first)["values"][0]["value"].get<double>(), 38.985e-9, 5e-13);
    EXPECT_NEAR((*first)["gt_db"].get<double>(), 0, 1e-9);
    EXPECT_EQ((*first)["dc"], "passed");
    EXPECT_LT((*first)["band_1db"]["low"].get<double>(), 500e6);
    EXPECT_GT((*first)["band_1db"]["high"].get<double>(), 500e6);
}

/// What match prints is what analyze takes.
TEST(MatchCommand, PrintsElementsThatMatch) {
    const std::string load = LoadOf(DataFile("impedance.s1p"));
    for (const char* topology : {"l", "pi", "t"}) {
        const Json document = JsonOf({"match", "--at", "1.5G", "--source", "20-j10", "--load", load,
                                      "--topology", topology, "--json"});
        ASSERT_GE(document["networks"].size(), 2U);
        for (const Json& network : document["networks"]) {
            std::vector<std::string> args = {"analyze", "--source", "20-j10", "--load", load,
                                             "--from",  "1.5G",     "--to",   "1.5G",   "--json"};
            for (const Json& element : network["elements"]) args.push_back(element);
            EXPECT_NEAR(JsonOf(args)[0]["gt_db"].get<double>(), 0, 1e-6);
        }
    }
}

/// Antennas that NEC-2 computed: a dipole, a short whip, a loop of a wavelength.
TEST(MatchCommand, MatchesTheExampleAntennas) {
    for (const auto& [name, f] : {std::pair{"dipole", "145M"}, {"whip", "27M"}, {"loop", "145M"}}) {
        const std::string antenna = std::string(TEST_DATA) + "/../../examples/" + name + ".s1p";
        const Json file = JsonOf({"touchstone", antenna, "--json"});
        EXPECT_EQ(file["points"], 61) << name;
        EXPECT_TRUE(file["active"][0].empty()) << name;
        EXPECT_TRUE(file["warnings"].empty()) << name;
        const Json networks = JsonOf({"match", "--at", f, "--source", "50", "--load",
                                      LoadOf(antenna), "--json"})["networks"];
        ASSERT_GE(networks.size(), 2U) << name;
        EXPECT_NEAR(networks[0]["gt_db"].get<double>(), 0, 1e-6) << name;
    }
}

TEST(TouchstoneCommand, TellsWhatIsInAFile) {
    const Json file = JsonOf({"touchstone", DataFile("references.s2p"), "--json"});
    EXPECT_EQ(file["ports"], 2);
    EXPECT_EQ(file["reference"], Json({50.0, 75.0}));
    EXPECT_EQ(file["points"], 2);
    EXPECT_EQ(file["from"], 1e9);
    EXPECT_EQ(file["version"], 2);
    EXPECT_EQ(file["device"].size(), 2U);
    EXPECT_THAT(file["warnings"][0].get<std::string>(), HasSubstr("[Colour]"));
    const Output human = RunWith({"touchstone", DataFile("defaults.s1p")});
    EXPECT_EQ(human.code, 0);
    EXPECT_THAT(human.out, HasSubstr("1.000 GHz to 2.000 GHz"));
    EXPECT_THAT(human.out, HasSubstr("turn by up to 143°"));
}

/// Pozar's transistor; its values stand in the tests of devices.
TEST(TouchstoneCommand, ShowsADeviceAtAFrequency) {
    const TemporaryFolder folder;
    const std::string file = (folder / "fet.s2p").string();
    std::ofstream(file) << "# GHz S MA R 50\n3 .8 -90 2.6 90 .02 50 .7 -40\n"
                           "4 .72 -116 2.60 76 .03 57 .73 -54\n";
    const Json device =
        JsonOf({"touchstone", file, "--at", "4G", "--gain", "15", "--json"})["device"];
    ASSERT_EQ(device.size(), 1U);
    EXPECT_NEAR(device[0]["k"].get<double>(), 1.19476, 5e-6);
    EXPECT_NEAR(device[0]["match"]["gain_db"].get<double>(), 16.710, 5e-4);
    EXPECT_NEAR(std::abs(ComplexOf(device[0]["match"]["source"])), 0.87176, 5e-6);
    EXPECT_TRUE(device[0]["operating_gain_circle"].contains("radius"));
    const Output human = RunWith({"touchstone", file, "--at", "4G", "--gain", "15"});
    EXPECT_THAT(human.out, HasSubstr("0.8718∠123.41°"));
    EXPECT_THAT(human.out, HasSubstr("Gp = 15.00 dB, load"));
    const Output outside = RunWith({"touchstone", file, "--at", "5G"});
    EXPECT_EQ(outside.code, 3);
    EXPECT_THAT(outside.err, HasSubstr("fet.s2p covers 3.000 GHz to 4.000 GHz, not 5.000 GHz"));
}

std::vector<std::string> Analyze(std::vector<std::string> more) {
    more.insert(more.begin(), {"analyze", "--from", "1G", "--to", "3G"});
    return more;
}

std::vector<std::string> Match(std::vector<std::string> more) {
    more.insert(more.begin(), {"match", "--source", "50"});
    return more;
}

TEST(NetworkCommands, FaultsEndWithTheirCodeAndOneLine) {
    ExpectFaults(
        {{Analyze({"--source", "50"}), 2, "--load is required"},
         {Analyze({"--source", "50", "--load", "5x"}), 2,
          "--load: column 2: expected the end of the number"},
         {Analyze({"--source", "50", "--load", "50", "shunt C=1p"}), 2,
          "\"shunt C=1p\": column 1: expected series:"},
         {Analyze({"--source", "50", "--load", "no.s1p"}), 1, "there is no file \"no.s1p\""},
         {Analyze({"--source", "50", "--load", LoadOf(DataFile("descending.s1p"))}), 1,
          "line 3: expected a frequency above"},
         {Analyze({"--source", "50", "--load", LoadOf(DataFile("tabs.s1p"))}), 3,
          "tabs.s1p covers 1.000 GHz to 2.000 GHz, not 1.000 GHz to 3.000 GHz"},
         {Analyze({"--source", "50", "--load", "50", "--points", "0"}), 2, "--points"},
         {Analyze({"--network", "no.kelvro"}), 1, "there is no file"},
         {{"analyze", "--source", "50", "--load", "50"}, 2, "--from and --to are required"},
         {{"analyze", "--source", "50", "--load", "50", "--from", "2G", "--to", "1G"},
          2,
          "--from has to be below --to"},
         {{"analyze", "--source", "50", "--load", "50", "--from", "0", "--to", "1G", "--linear"},
          2,
          "above 0 Hz"},
         {Match({"--at", "1G"}), 2, "--load is required"},
         {Match({"--at", "0", "--load", "50"}), 2, "--at"},
         {Match({"--at", "1G", "--load", "j20"}), 3, "the load has 0"},
         {Match({"--at", "1G", "--load", "200", "--topology", "pi", "--q", "1"}), 3,
          "need a Q of 1.732 or more"},
         {Match({"--at", "1G", "--load", "200", "--topology", "x"}), 2, "--topology"},
         {Match({"--at", "1G", "--load", "200", "--q", "5"}), 2, "--q is for"},
         {Match({"--at", "3G", "--load", LoadOf(DataFile("tabs.s1p"))}), 3,
          "covers 1.000 GHz to 2.000 GHz, not 3.000 GHz"},
         {{"touchstone", "no.s1p"}, 1, "there is no file \"no.s1p\""},
         {{"touchstone"}, 2, "FILE is required"}});
}

}  // namespace
}  // namespace kelvro
