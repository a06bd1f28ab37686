#include "io/touchstone.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <fstream>
#include <numbers>
#include <random>

#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

using Cx = std::complex<double>;
using testing::HasSubstr;
using testing::StartsWith;

std::filesystem::path DataFile(const std::string& name) {
    return std::filesystem::path(TEST_DATA) / "touchstone" / name;
}

/// A file of the folder. All of them say 0.3 + 0.4j for S11 at 1 GHz and end at 2 GHz, one-ports
/// with -0.5j; the two-ports say 2 + j for S21.
struct GoodFile {
    const char* name;
    int ports = 1;
    double R = 50;
    const char* warning = nullptr;
    double last = 2e9;
};

class TouchstoneReading : public testing::TestWithParam<GoodFile> {};

TEST_P(TouchstoneReading, GivesTheNumbers) {
    SCOPED_TRACE(GetParam().name);
    const GoodFile& file = GetParam();
    const auto read = ReadTouchstone(DataFile(file.name), file.name);
    ASSERT_TRUE(read.ok()) << read.message();
    const PortData& data = read->data;
    EXPECT_EQ(data.name, file.name);
    ASSERT_EQ(data.ports, file.ports);
    EXPECT_EQ(data.reference[0], file.R);
    EXPECT_EQ(data.f.size(), file.last == 2e9 ? 2U : 1U);
    ASSERT_EQ(data.f.size(), data.s.size());
    EXPECT_EQ(data.f.front(), 1e9);
    EXPECT_EQ(data.f.back(), file.last);
    EXPECT_LE(std::abs(data.s[0][0] - Cx(0.3, 0.4)), 1e-12) << data.s[0][0];
    if (file.ports == 1 && file.last == 2e9) {
        EXPECT_LE(std::abs(data.s[1][0] - Cx(0, -0.5)), 1e-12) << data.s[1][0];
    }
    if (file.ports == 2) {
        const bool reciprocal = file.name == std::string("lower_matrix.s2p");
        EXPECT_EQ(data.s[1][1], reciprocal ? Cx(2, 1) : Cx(0.01, -0.02)) << "S12";
        EXPECT_EQ(data.s[1][2], Cx(2, 1)) << "S21";
        EXPECT_EQ(data.s[1][3], Cx(-0.1, 0.2)) << "S22";
    }
    if (!file.warning) {
        EXPECT_TRUE(read->warnings.empty()) << read->warnings[0];
    } else {
        ASSERT_EQ(read->warnings.size(), 1U);
        EXPECT_THAT(read->warnings[0], HasSubstr(file.warning));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Files, TouchstoneReading,
    testing::Values(
        GoodFile{"defaults.s1p", 1, 50, "line 1: no option line"}, GoodFile{"blankless.s1p"},
        GoodFile{"shuffled_options.s1p"}, GoodFile{"umlauts.s1p"}, GoodFile{"latin1.s1p"},
        GoodFile{"carriage_returns.s1p"}, GoodFile{"dos_lines.s1p"}, GoodFile{"tabs.s1p"},
        GoodFile{"byte_order_mark.s1p"},
        GoodFile{"second_option_line.s1p", 1, 50, "line 3: a second option line"},
        GoodFile{"fortran.s1p"}, GoodFile{"one_point.s1p", 1, 50, "one frequency only", 1e9},
        GoodFile{"impedance.s1p"}, GoodFile{"admittance.s1p"}, GoodFile{"impedance_v2.s1p"},
        GoodFile{"reference75.s1p", 1, 75}, GoodFile{"no_ending.txt"}, GoodFile{"order.s2p", 2},
        GoodFile{"no_ending_two_ports.dat", 2}, GoodFile{"broken_rows.s2p", 2},
        GoodFile{"noise.s2p", 2}, GoodFile{"noise_right_away.s2p", 2}, GoodFile{"order21.ts", 2},
        GoodFile{"order12.ts", 2},
        GoodFile{"references.s2p", 2, 50, "line 11: [Colour] is not known"},
        GoodFile{"noise_v2.s2p", 2}, GoodFile{"lower_matrix.s2p", 2}));

TEST(TouchstoneReading, TellsWhatElseIsInTheFile) {
    const auto references = ReadTouchstone(DataFile("references.s2p"), "references.s2p");
    EXPECT_EQ(references->data.reference, (std::array<double, 2>{50, 75}));
    EXPECT_EQ(references->version, 2);
    EXPECT_TRUE(ReadTouchstone(DataFile("noise.s2p"), "noise.s2p")->noise);
    EXPECT_TRUE(ReadTouchstone(DataFile("noise_v2.s2p"), "noise_v2.s2p")->noise);
    const auto umlauts = ReadTouchstone(DataFile("umlauts.s1p"), "umlauts.s1p");
    EXPECT_EQ(umlauts->comments[0], "Antenne für Göttingen, 50 Ω");
    const auto impedance = ReadTouchstone(DataFile("impedance.s1p"), "impedance.s1p");
    EXPECT_EQ(impedance->parameter, 'Z');
    EXPECT_EQ(impedance->format, "RI");
}

/// A shunt 50 ohm has Z = 50 ohm in all four places, whatever R normalizes it; between 50 ohm its
/// S11 is -1/3 and its S21 2/3, between R: S11 = -R/(2·50 + R), S21 = 100/(100 + R).
TEST(TouchstoneReading, NormalizesTwoPortImpedances) {
    for (const double R : {50.0, 75.0}) {
        const std::string z = std::to_string(50 / R) + " 0 ";
        const auto read = ParseTouchstone(
            "# GHz Z RI R " + std::to_string(R) + "\n1 " + z + z + z + z + '\n', "shunt.s2p");
        ASSERT_TRUE(read.ok()) << read.message();
        EXPECT_NEAR(read->data.s[0][0].real(), -R / (100 + R), 1e-6);
        EXPECT_NEAR(read->data.s[0][2].real(), 100 / (100 + R), 1e-6);
    }
}

struct FaultyFile {
    const char* name;
    const char* message;
};

class TouchstoneFaults : public testing::TestWithParam<FaultyFile> {};

TEST_P(TouchstoneFaults, AreOneLineWithFileAndLine) {
    SCOPED_TRACE(GetParam().name);
    const FaultyFile& file = GetParam();
    const auto read = ReadTouchstone(DataFile(file.name), file.name);
    ASSERT_FALSE(read.ok());
    EXPECT_THAT(read.message(), StartsWith(std::string(file.name) + ", line "));
    EXPECT_THAT(read.message(), HasSubstr(file.message));
    EXPECT_EQ(read.message().find('\n'), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Files, TouchstoneFaults,
    testing::Values(
        FaultyFile{"empty.s1p", "line 1: expected rows of data"},
        FaultyFile{"comments_only.s1p", "expected rows of data"},
        FaultyFile{"options_only.s1p", "expected rows of data"},
        FaultyFile{"descending.s1p", "line 3: expected a frequency above 2e+09 Hz, found 1e+09 Hz"},
        FaultyFile{"repeated.s2p", "line 3: expected a frequency above 1e+09 Hz"},
        FaultyFile{"too_few.s2p", "line 3: expected 9 numbers, found 8"},
        FaultyFile{"too_many.s1p", "line 2: expected 3 numbers for a frequency, found 9"},
        FaultyFile{"decimal_comma.s1p", "line 2: expected a number with a decimal point"},
        FaultyFile{"word.s1p", "line 3: expected a number, found 'none'"},
        FaultyFile{"not_a_number.s1p", "line 2: expected a number, found 'nan'"},
        FaultyFile{"hybrid.s2p", "line 1: expected S, Y or Z parameters, found H"},
        FaultyFile{"bad_option.s1p", "line 1: expected a unit, S, Y or Z"},
        FaultyFile{"no_reference.s1p", "line 1: expected a resistance above 0 behind R"},
        FaultyFile{"negative_reference.s1p", "line 1: expected a resistance above 0"},
        FaultyFile{"negative_frequency.s1p", "line 2: expected a frequency, found -1e+09"},
        FaultyFile{"three_ports.s3p", "expected one or two ports, found 3"},
        FaultyFile{"three_ports_v2.ts", "line 3: expected one or two ports, found '3'"},
        FaultyFile{"mixed_mode.s2p", "line 4: expected single-ended data"},
        FaultyFile{"prose.txt", "line 1: expected an option line (# GHz S MA R 50) or numbers"},
        FaultyFile{"sentence.s1p", "line 2: expected a number, found 'Once'"},
        FaultyFile{"no_network_data.ts", "line 4: expected [Network Data]"},
        FaultyFile{"one_reference_missing.ts", "line 5: expected the references of all ports"},
        FaultyFile{"open_circuit_y.s1p", "line 2: expected finite parameters"},
        FaultyFile{"late_options.s1p", "line 2: expected the option line before the data"}));

/// What is no text, or far too long, ends at once.
TEST(TouchstoneFaults, OfSizeAndKindAreFoundAtOnce) {
    const TemporaryFolder folder;
    const auto write = [&](const char* name, const std::string& content, std::uintmax_t size) {
        std::ofstream(folder / name, std::ios::binary) << content;
        std::filesystem::resize_file(folder / name, size);
    };
    write("huge.s2p", "# GHz S RI R 50\n", 100'000'000);
    write("binary.s1p",
          "\x7F"
          "ELF",
          20'000'000);
    write("wide.s1p", std::string("#\0 \0G\0", 6), 6);
    std::ofstream rows(folder / "long.s1p");
    for (int i = 1; i <= 1'000'000; ++i) rows << i << " 0.123456789 0.987654321\n";
    rows.close();
    const std::clock_t start = std::clock();
    const auto message = [&](const char* name) {
        return ReadTouchstone(folder / name, name).message();
    };
    EXPECT_THAT(message("huge.s2p"), HasSubstr("expected at most 32 MB of data, found 100 MB"));
    EXPECT_THAT(message("binary.s1p"), HasSubstr("line 1: expected text, found binary data"));
    EXPECT_THAT(message("wide.s1p"), HasSubstr("expected text, found binary data"));
    EXPECT_THAT(message("missing.s1p"), HasSubstr("there is no file"));
    EXPECT_THAT(ReadTouchstone("/dev/zero", "/dev/zero").message(), HasSubstr("no"));
    EXPECT_THAT(ReadTouchstone(folder.path(), "folder").message(), HasSubstr("is not a file"));
    const std::clock_t refused = std::clock();
    EXPECT_LT(refused - start, 2 * CLOCKS_PER_SEC);
    EXPECT_THAT(message("long.s1p"), "") << "28 MB, nearly as much as is read at all";
    EXPECT_LT(std::clock() - refused, 30 * CLOCKS_PER_SEC);  // no time limit: sanitizers take long
}

/// Files of any length, cut anywhere or with bytes turned over, are read or refused.
TEST(TouchstoneFaults, OfAnyKindAreReadOrRefused) {
    std::mt19937_64 random(1);
    int refused = 0;
    for (const auto& entry : std::filesystem::directory_iterator(DataFile(""))) {
        const std::string text = ReadFile(entry.path());
        for (int i = 0; i < 300; ++i) {
            std::string changed = text.substr(0, random() % (text.size() + 1));
            for (int k = 0; k < 2 && !changed.empty(); ++k) {
                changed[random() % changed.size()] = static_cast<char>(random());
            }
            const auto read = ParseTouchstone(changed, entry.path().filename().string());
            refused += read.ok() ? 0 : 1;
            if (!read.ok()) continue;
            ASSERT_EQ(read->data.f.size(), read->data.s.size());
            ASSERT_TRUE(std::isfinite(std::abs(read->data.s[0][0])));
        }
    }
    EXPECT_GT(refused, 1000);
}

PortData RandomData(int ports, std::array<double, 2> reference) {
    std::mt19937_64 random(7);
    const auto number = [&] { return std::ldexp(static_cast<double>(random()), -63) - 1; };
    PortData data;
    data.name = ports == 1 ? "written.s1p" : "written.s2p";
    data.ports = ports;
    data.reference = reference;
    for (int i = 0; i < 50; ++i) {
        data.f.push_back(1e6 * std::pow(1.1, i));
        data.s.push_back({Cx(number(), number())});
        if (ports == 2) {
            for (std::size_t k = 1; k < 4; ++k) data.s.back()[k] = Cx(number(), number());
        }
    }
    return data;
}

TEST(TouchstoneWriting, IsReadBackAsTheSameData) {
    const std::vector<std::string> comments = {"Kelvro: a design", "two\nlines"};
    for (const PortData& data :
         {RandomData(1, {75, 75}), RandomData(2, {50, 50}), RandomData(2, {50, 33.3})}) {
        const std::string text = TouchstoneText(data, comments);
        const auto read = ParseTouchstone(text, data.name);
        ASSERT_TRUE(read.ok()) << read.message();
        EXPECT_EQ(read->data, data);
        EXPECT_EQ(read->comments, (std::vector<std::string>{"Kelvro: a design", "two lines"}));
        EXPECT_TRUE(read->warnings.empty());
    }
}

}  // namespace
}  // namespace kelvro
