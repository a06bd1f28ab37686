#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli_output.h"
#include "design/pages.h"
#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

json JsonOf(std::vector<std::string> args) {
    args.emplace_back("--json");
    return kelvro::JsonOf(args);
}

std::vector<std::vector<double>> CsvRows(const std::string& csv) {
    std::istringstream lines(csv);
    std::string line;
    std::getline(lines, line);
    EXPECT_THAT(line, StartsWith("f_Hz,re,im,"));
    std::vector<std::vector<double>> rows;
    while (std::getline(lines, line)) {
        std::istringstream cells(line);
        std::string cell;
        rows.emplace_back();
        while (std::getline(cells, cell, ',')) {
            // Nothing stands where a trace has no value, as the delay at 0 Hz.
            rows.back().push_back(cell.empty() ? std::numeric_limits<double>::quiet_NaN()
                                               : json::parse(cell).get<double>());
        }
    }
    return rows;
}

// ---------------------------------------------------------------- usage

TEST(Usage, FaultsEndWithTheirCodeAndOneLine) {
    ExpectFaults(
        {{{}, 2, "subcommand"},
         {{"fly"}, 2, "fly"},
         {{"--fly", "pi"}, 2, "--fly"},
         {{"number"}, 2, "TEXT"},
         {{"series", "E12"}, 2, "TEXT"},
         {{"series", "E13", "5"}, 2, "SERIES"},
         {{"series", "E12", "x"}, 2, "'x'"},
         {{"series", "E12", "-5"}, 2, "not above 0"},
         {{"design"}, 2, "PAGE"},
         {{"design", "20"}, 2, "'20' is no page"},
         {{"design", "pi\n\x1b[2J"}, 2, "'pi  [2J' is no page"},
         {{"design", "pi", "--r1"}, 2, "--r1"},
         {{"design", "pi", "--r1", "ohm"}, 2, "--r1: 'ohm'"},
         {{"design", "pi", "--fo", ""}, 2, "--fo"},
         {{"design", "pi", "--what", "1"}, 2, "--what"},
         {{"design", "pi", "--ini", ""}, 2, "--ini: no file name"},
         {{"optimize", "pi", "--log", ""}, 2, "--log: no file name"},
         {{"design", "pi", "--series", "E13"}, 2, "--series"},
         {{"design", "pi", "--take", "L"}, 2, "--take"},
         {{"design", "pi", "--take", "L=x"}, 2, "--take"},
         {{"design", "pi", "--take", "L1=1n"}, 2, "no component 'L1' (it has: C1, C2, L)"},
         {{"response", "pi", "--to", "1M"}, 2, "--from"},
         {{"response", "pi", "--from", "0", "--to", "1M"}, 2, "--from"},
         {{"response", "pi", "--from", "1", "--to", "-1M"}, 2, "--to"},
         {{"response", "pi", "--from", "1", "--to", "1e999", "--linear"}, 2, "--to"},
         {{"response", "pi", "--from", "1", "--to", "2", "--points", "1"}, 2, "--points"},
         {{"response", "pi", "--from", "1", "--to", "2", "--points", "x"}, 2, "--points"},
         {{"response", "pi", "--from", "1", "--to", "2", "--trace", "s21"}, 2, "no trace"},
         {{"design", "lc-series", "--r1", "50", "--r2", "10"}, 3, "It must be R2>R1!"},
         {{"response", "2", "--r1", "50", "--from", "1", "--to", "2"}, 3, "It must be R1>R2!"},
         {{"design", "1", "--r2", "10", "--take", "L=1u", "--take", "C1=1n"},
          3,
          "no value for C2"}});
    EXPECT_THAT(RunWith({"fly"}).err, StartsWith("kelvro-cli: "));
}

TEST(CommandLineTest, HelpAndVersionAreNoFaults) {
    EXPECT_EQ(RunWith({"--version"}).out, "kelvro-cli " KELVRO_VERSION "\n");
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"--help"}, {"design", "--help"}, {"number", "--help"}}) {
        const Output outcome = RunWith(args);
        EXPECT_EQ(outcome.code, 0);
        EXPECT_THAT(outcome.out, HasSubstr("Usage: kelvro-cli"));
        EXPECT_EQ(outcome.err, "");
    }
}

/// Loading Qt would take longer than most commands; one of its headers in the wrong place is
/// enough.
TEST(CommandLineTest, TheProgramLoadsNoQt) {
    FILE* libraries = ::popen("LD_TRACE_LOADED_OBJECTS=1 '" CLI_PROGRAM "'", "r");
    ASSERT_NE(libraries, nullptr);
    std::string text(8192, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), libraries));
    ::pclose(libraries);
    EXPECT_THAT(text, HasSubstr("libstdc++"));
    EXPECT_THAT(text, Not(HasSubstr("libQt")));
}

// ---------------------------------------------------------------- numbers

TEST(NumberCommand, TreatsEveryArgumentAsAText) {
    EXPECT_EQ(RunWith({"number", "4,7k"}).out, "4700\t   4.70k\t4.70k\n");
    EXPECT_EQ(RunWith({"number", "-2e2", "--5", "abc", "", "-h"}).out,
              "-200\t-200.000\t-200.00\n0\t   0.000\t0.0\n0\t   0.000\t0.0\n0\t   0.000\t0.0\n"
              "0\t   0.000\t0.0\n");
    EXPECT_EQ(RunWith({"number", "--", "0.1"}).out, "0.10000000000000001\t 100.00m\t0.10\n");
}

TEST(SeriesCommand, WritesBelowAboveAndNearest) {
    EXPECT_EQ(RunWith({"series", "e12", "1.3n", "100"}).out,
              "  1.20n\t  1.50n\t  1.20n\n 82.000\t100.000\t100.000\n");
}

TEST(PagesCommand, ListsNumberKeyAndCaption) {
    const std::string out = RunWith({"pages"}).out;
    EXPECT_THAT(out, StartsWith("1\tlc-series\tLC Series Tank\n2\tlc-parallel\t"));
    EXPECT_THAT(out, HasSubstr("\n19\tr-divider\tR-Divider\n"));
    EXPECT_EQ(std::ranges::count(out, '\n'), 19);
}

// ---------------------------------------------------------------- design

TEST(DesignCommand, WritesThePiSectionAsJson) {
    const json design = JsonOf(
        {"design", "pi", "--r1", "50", "--r2", "200", "--fo", "10M", "--q", "5", "--no-optimize"});
    EXPECT_EQ(design["page"], 3);
    EXPECT_EQ(design["caption"], "Pi Section");
    EXPECT_EQ(design["inputs"], (json{{"R1", 50},
                                      {"R2", 200},
                                      {"fo", 1e7},
                                      {"Q", 5},
                                      {"QB", 100},
                                      {"QBC", 1000},
                                      {"k", 0.9},
                                      {"er", 1}}));
    EXPECT_TRUE(design["message"].is_null());
    EXPECT_TRUE(design["goal"].is_null());
    const json& C1 = design["components"].at(0);
    EXPECT_EQ(C1["name"], "C1");
    EXPECT_EQ(C1["unit"], "F");
    EXPECT_EQ(C1["text"], "1.06n");
    EXPECT_EQ(C1["series"], "1.00n");
    EXPECT_DOUBLE_EQ(C1["value"], 1.0610329539459689e-9);  // 10/(150·ω)
    EXPECT_EQ(design["texts"]["C13Ausgabe"], "    1.06n");
    EXPECT_EQ(design["texts"]["BAusgabe"], "    2.00M");
    EXPECT_EQ(design["outputs"]["B"], 2e6);
    EXPECT_DOUBLE_EQ(design["outputs"]["Q_total"], 2000.0 / 11);
}

TEST(DesignCommand, EveryPageGivesItsFieldsAndOutputs) {
    for (const Page& page : Pages()) {
        std::vector<std::string> args = {"design", std::string(page.key), "--no-optimize"};
        if (RunWith(args).code == 3) args.insert(args.end(), {"--r1", "200", "--r2", "50"});
        const json design = JsonOf(args);
        ASSERT_TRUE(design.is_object()) << std::string_view(page.key);
        for (const char* output : {"B", "v", "v_db", "loss_db", "Q_total"}) {
            EXPECT_TRUE(design["outputs"].contains(output)) << std::string_view(page.key);
        }
        for (const OutputField& field : page.outputs) {
            EXPECT_TRUE(design["texts"].contains(field.object)) << field.object;
        }
        for (const json& component : design["components"]) {
            EXPECT_EQ(component["value"].is_number(), component["value"] != "infinite");
            EXPECT_NE(component["name"], "");
        }
        EXPECT_THAT(RunWith(args).out, HasSubstr(std::string(page.caption)));
    }
}

TEST(DesignCommand, NamesTheInputsThatThePageWorksWith) {
    EXPECT_THAT(RunWith({"design", "rlopt", "--ub", "24"}).out,
                StartsWith("10 RLopt: p 1.00 W, ub 24.00 V, usat 500.00 mV\n"));
    EXPECT_THAT(RunWith({"design", "trl", "--er", "4"}).out,
                StartsWith("6 TRL: R1 50.00 Ω, R2 200.00 Ω, fo 100.00 MHz, Q 0.50, "
                           "Q(L) 100.00, Q(C) 1000.00, er 4.00\n"));
}

TEST(DesignCommand, ARefusedDesignStillSaysWhatItCan) {
    const Output outcome = RunWith({"design", "lc-parallel", "--fo", "1M", "--q", "5", "--json"});
    EXPECT_EQ(outcome.code, 3);
    const json design = json::parse(outcome.out);
    EXPECT_THAT(design["message"], HasSubstr("It must be R1>R2!"));
    EXPECT_EQ(design["components"], json::array());
    EXPECT_EQ(design["outputs"]["B"], 2e5);
}

TEST(DesignCommand, WritesInfiniteNumbersAsText) {
    EXPECT_EQ(JsonOf({"design", "7", "--r1", "100", "--r2", "50"})["outputs"]["B"], "infinite");
    // XC1 = 2·0.5·10 - sqrt(10·10) = 0.
    const json design =
        JsonOf({"design", "1", "--r1", "10", "--r2", "20", "--q", "0.5", "--no-optimize"});
    EXPECT_EQ(design["components"].at(1)["name"], "C1");
    EXPECT_EQ(design["components"].at(1)["value"], "infinite");
    EXPECT_NEAR(design["outputs"]["v"], std::sqrt(2), 0.01);  // C1 is a short
    const json blocked = JsonOf({"design", "1", "--take", "C1=0"});
    EXPECT_EQ(blocked["outputs"]["v_db"], "-infinite");
    EXPECT_EQ(blocked["texts"]["dAusgabe"], "infinite");
}

TEST(DesignCommand, LengthsHaveNoStandardValue) {
    const json components = JsonOf({"design", "trl"})["components"];
    EXPECT_EQ(components.at(0)["series"], "100.000");
    EXPECT_EQ(components.at(1)["name"], "l");
    EXPECT_EQ(components.at(1)["series"], "");
}

TEST(DesignCommand, ClampsItsInputsLikeTheWindow) {
    const json inputs =
        JsonOf({"design", "transformer", "--r1", "0", "--k", "7", "--no-optimize"})["inputs"];
    EXPECT_EQ(inputs["R1"], 0.001);
    EXPECT_EQ(inputs["k"], 1);
    EXPECT_EQ(JsonOf({"design", "class-e", "--q", "0"})["inputs"]["Q"], 1.9);
    EXPECT_EQ(JsonOf({"design", "broadband", "--no-optimize"})["inputs"]["Q"], 0.2);
}

TEST(DesignCommand, ABandOfABroadbandMatchHasItsWorstGain) {
    const auto achieved = [](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"design", "broadband", "--r1", "50", "--r2", "500"});
        return JsonOf(arguments)["achieved"];
    };
    const json usual = achieved({})["worst_gt"];
    EXPECT_NEAR(usual["from"].get<double>(), 70e6, 1);
    EXPECT_NEAR(usual["to"].get<double>(), 130e6, 1);
    const json typed = achieved({"--band-low", "90M", "--band-high", "110M"})["worst_gt"];
    EXPECT_NEAR(typed["from"].get<double>(), 90e6, 1);
    EXPECT_GT(typed["db"], usual["db"]);
    EXPECT_FALSE(achieved({"--no-band"}).contains("worst_gt"));
}

TEST(DesignCommand, SimulatesAClassEStageBesideItsComputation) {
    const json document = JsonOf({"design", "class-e", "--p", "10", "--fo", "10M", "--usat", "0",
                                  "--choke", "20", "--ngspice"});
    EXPECT_EQ(document["harmonics"].size(), 10U);
    const json& rows = document["ngspice"];
    ASSERT_GE(rows.size(), 7U);
    for (const json& row : rows) {
        const double computed = row["computed"];
        EXPECT_NEAR(row["simulated"], computed, 0.01 + 0.003 * std::fabs(computed)) << row["name"];
    }
    EXPECT_FALSE(JsonOf({"design", "class-e"}).contains("ngspice"));
    EXPECT_EQ(JsonOf({"design", "class-e", "--infinite-choke"})["components"][1]["text"],
              "infinite");
    EXPECT_EQ(RunWith({"design", "pi", "--ngspice"}).code, 1);
}

TEST(DesignCommand, InterchangedComponentsKeepTheNamesOfTheirFields) {
    const json design = JsonOf({"design", "pi", "--fo", "1M", "--swap-lc", "--no-optimize"});
    const json& C1 = design["components"].at(0);
    EXPECT_EQ(C1["name"], "C1");
    EXPECT_EQ(C1["label"], "Inductance L1");
    EXPECT_EQ(C1["unit"], "H");
    // C1 = 10/(150·ω) becomes 1/(ω²·C1) = 15/ω.
    EXPECT_NEAR(C1["value"], 15 * 1.5915494309189535e-7, 1e-18);
}

TEST(DesignCommand, TakenComponentsReplaceDesignedOnes) {
    const json design =
        JsonOf({"design", "pi", "--fo", "10M", "--take", "L=680n", "--take", "C2=infinite"});
    EXPECT_EQ(design["components"].at(0)["text"], "1.06n");
    EXPECT_EQ(design["components"].at(1)["value"], "infinite");
    EXPECT_DOUBLE_EQ(design["components"].at(2)["value"], 680e-9);
    EXPECT_TRUE(design["goal"].is_null());
}

TEST(DesignCommand, StartsFromASettingsFile) {
    const TemporaryFolder folder;
    const std::string file = folder / "settings.ini";
    std::ofstream(file) << "[Variablen]\nR1=75\nR2=300\nfo=5M\nTyp=1\n";
    const json inputs = JsonOf({"design", "pi", "--ini", file, "--r2", "600"})["inputs"];
    EXPECT_EQ(inputs["R1"], 75);
    EXPECT_EQ(inputs["R2"], 600);
    EXPECT_EQ(inputs["fo"], 5e6);
    const Output missing = RunWith({"design", "pi", "--ini", file + ".not"});
    EXPECT_EQ(missing.code, 0);
    EXPECT_THAT(missing.err, HasSubstr("--ini: Cannot read"));
}

// ---------------------------------------------------------------- response

TEST(ResponseCommand, SpreadsItsPointsEvenlyOrInEqualRatios) {
    const std::string text =
        RunWith({"response", "pi", "--from", "1M", "--to", "100M", "--points", "5"}).out;
    EXPECT_THAT(text, StartsWith("f_Hz,re,im,V_dB,GT_dB,phase_deg,group_delay_s,"));
    const auto logarithmic = CsvRows(text);
    ASSERT_EQ(logarithmic.size(), 5U);
    EXPECT_EQ(logarithmic[0][0], 1e6);
    EXPECT_NEAR(logarithmic[2][0], 1e7, 1e-6);
    EXPECT_EQ(logarithmic[4][0], 1e8);
    const auto linear = CsvRows(
        RunWith({"response", "pi", "--from", "0", "--to", "100M", "--points", "5", "--linear"})
            .out);
    EXPECT_EQ(linear[1][0], 25e6);
    EXPECT_DOUBLE_EQ(linear[0][1], 1.6);  // 2·R2/(R1 + R2) without reactances
    EXPECT_EQ(CsvRows(RunWith({"response", "pi", "--from", "1M", "--to", "2M"}).out).size(), 255U);
}

TEST(ResponseCommand, LongOutputHasItsLinesInOrderWhicheverThreadWroteThem) {
    const auto linesOf = [](const std::string& points) {
        const auto text = RunWith({"response", "pi", "--linear", "--from", "1M", "--to", "31M",
                                   "--points", points})
                              .out;
        std::vector<std::string> lines;
        std::istringstream in(text);
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        return lines;
    };
    constexpr std::size_t kFiner = 5000;
    const auto few = linesOf("4");
    const auto many = linesOf(std::to_string(3 * kFiner + 1));
    ASSERT_EQ(many.size(), 3 * kFiner + 2);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(many[1 + i * kFiner], few[1 + i]);
    const auto f = [&many](std::size_t line) { return std::stod(many[line]); };
    for (std::size_t i = 2; i < many.size(); ++i) ASSERT_GT(f(i), f(i - 1));
}

TEST(ResponseCommand, WritesTheSameAsJson) {
    const std::vector<std::string> args = {"response", "trl", "--from",   "10M",
                                           "--to",     "1G",  "--points", "7"};
    const auto rows = CsvRows(RunWith(args).out);
    const json points = JsonOf(args);
    ASSERT_EQ(points.size(), rows.size());
    auto chosen = args;
    chosen.insert(chosen.begin() + 1, {"--trace", "gt,phi,gt"});
    const auto few = CsvRows(RunWith(chosen).out);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(points[i]["f_Hz"], rows[i][0]);
        EXPECT_EQ(points[i]["GT_dB"], rows[i][4]);
        EXPECT_THAT(few[i],
                    ElementsAre(rows[i][0], rows[i][1], rows[i][2], rows[i][4], rows[i][5]));
    }
}

}  // namespace
}  // namespace kelvro
