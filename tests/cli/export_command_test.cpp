#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli_output.h"
#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(ExportCommand, FaultsEndWithTheirCodeAndOneLine) {
    ExpectFaults(
        {{{"export", "pi", "--format", "pdf"}, 2, "'pdf' is no format; listing, spice"},
         {{"export", "rlopt", "--format", "spice"}, 2, "no export of the format spice"},
         {{"export", "pi", "--format", "csv", "--from", "2G", "--to", "1G"}, 2, "above the lower"},
         {{"export", "pi", "--format", "csv", "--from", "0"}, 2, "--from"},
         {{"export", "pi", "--format", "csv", "--points", "1"}, 2, "--points"},
         {{"export", "pi", "--format", "touchstone", "--z0", "-50"}, 2, "--z0"},
         {{"export", "lc-series", "--r1", "200", "--r2", "50"}, 3, "It must be R2>R1!"},
         {{"export", "pi", "-o", ""}, 2, "no file name"},
         {{"export", "pi", "-o", "/no such folder/pi.txt"}, 1, "Cannot write"}});
}

TEST(ExportCommand, WritesTheSameToAFileAsToItsOutput) {
    const TemporaryFolder folder;
    const auto path = folder / "kelvro export ü.s2p";
    const std::vector<std::string> args = {"export",   "broadband",  "--ext",  "--r2", "1k",
                                           "--format", "touchstone", "--from", "50M",  "--to",
                                           "200M",     "--points",   "11",     "--z0", "75"};
    const Output shown = RunWith(args);
    ASSERT_EQ(shown.code, 0) << shown.err;
    EXPECT_THAT(shown.out, HasSubstr("# HZ S RI R 75\n5e+07 "));
    auto saving = args;
    saving.insert(saving.end(), {"-o", path.string()});
    const Output saved = RunWith(saving);
    EXPECT_EQ(saved.code, 0) << saved.err;
    EXPECT_EQ(saved.out, "");
    EXPECT_EQ(ReadFile(path), shown.out);
}

TEST(ExportCommand, TakesTheSeriesAndGivenComponents) {
    const Output rounded =
        RunWith({"export", "pi", "--format", "json", "--e-series", "--series", "E6"});
    ASSERT_EQ(rounded.code, 0) << rounded.err;
    const auto document = nlohmann::json::parse(rounded.out);
    for (const auto& component : document.at("components")) {
        EXPECT_EQ(component["text"], component["series"]) << component;
    }
    // Given components stand, although the page would refuse to design them.
    const Output given =
        RunWith({"export", "lc-series", "--r1", "200", "--r2", "50", "--take", "L=1u", "--take",
                 "C1=2p", "--take", "C2=3p", "--format", "spice"});
    ASSERT_EQ(given.code, 0) << given.err;
    EXPECT_THAT(given.out, StartsWith("Kelvro: LC Series Tank, 200.00 ohm to 50.00 ohm"));
    EXPECT_THAT(given.out, HasSubstr("C2 out 0 3e-12"));
}

}  // namespace
}  // namespace kelvro
