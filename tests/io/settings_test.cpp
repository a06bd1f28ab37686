#include "io/settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cmath>
#include <filesystem>
#include <random>

#include "design/cycle.h"
#include "design/pages.h"
#include "design/part_ref.h"
#include "optimize/page_optimizer.h"
#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

namespace fs = std::filesystem;
using ReadStatus = SettingsRead::Status;
using SaveStatus = SettingsSave::Status;

class SettingsTest : public testing::Test {
  protected:
    fs::path file(const char* name = "kelvro.ini") const { return folder_ / name; }
    static QString path(const fs::path& file) { return QString::fromStdString(file.string()); }

    fs::path holding(const std::string& bytes, const char* name = "kelvro.ini") const {
        WriteFile(file(name), bytes);
        return file(name);
    }
    Design stateAfterReading(const std::string& bytes, const Design& before = {}) const {
        return ReadSettings(path(holding(bytes)), {before}).settings.design;
    }
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder_.path())) {
            found.push_back(entry.path().filename().string());
        }
        std::ranges::sort(found);
        return found;
    }

    TemporaryFolder folder_;
};

/// Each text derived by hand from the two formats; the u umlaut is the byte FC.
constexpr const char* kDefaults =
    "[Variablen]\nQ=5.00\nQB(C)=1.00k\nQB(L)=100.00\nfo=100.00M\nk=0.90\ner=1.00\n\xFC=2.00\n"
    "R1=50.00\nR2=200.00\nP=1.00\nUb=12.00\nUsat=0.50\nL=0.10u\nC=1.00p\nR=1.00\nLs=1.00u\n"
    "Cs=0.10n\nLp=1.00u\nL(BP)=50.00n\nN(BP)=3\nRipple(BP)=0.50\nSweep=1.05\nTyp=1\n"
    "Q by phase=Yes\nVbg=   1.200\nIbg= 100.00u\nRtot= 100.00k\nVref=   2.400\nVlow1= 400.00m\n"
    "Vlow2= 600.00m\nVmid1=   1.100\nVmid2=   1.300\nVhi1=   1.800\nVhi2=   2.000\n"
    "Choke=143.00\nQ by d=Yes\n";

TEST_F(SettingsTest, ANewFileHoldsEveryKeyInItsOrderAndFormat) {
    const fs::path target = folder_ / "new" / "folders" / "kelvro.ini";
    ASSERT_EQ(WriteSettings(path(target), {}).status, SaveStatus::Saved);
    EXPECT_EQ(ReadFile(target).substr(0, std::string(kDefaults).size()), kDefaults);
}

/// What another program leaves of a file: the section that all of them know.
std::string RoundedTexts(const std::string& bytes) {
    return bytes.substr(0, bytes.find("[Design]"));
}

TEST_F(SettingsTest, RoundedTextsAloneGiveTheValuesRounded) {
    Design written;
    written.page = 6;
    written.R1 = 1234.5;
    written.Q = 800;  // within reach of the spin button only
    written.NBP = 7;
    written.Vlow1 = 0.123456;
    ASSERT_EQ(WriteSettings(path(file()), {written}).status, SaveStatus::Saved);
    const SettingsRead read = ReadSettings(path(holding(RoundedTexts(ReadFile(file())))), {});
    EXPECT_EQ(read.status, ReadStatus::Read);
    EXPECT_FALSE(read.whole);
    Design expected;
    expected.page = 6;
    expected.R1 = 1230;
    expected.Q = 800;
    expected.NBP = 7;
    expected.Vlow1 = 0.12346;
    EXPECT_EQ(read.settings.design, expected);
}

/// A design as a user may leave it: random inputs, calculated, some parts rounded, typed, taken.
Settings RandomSettings(std::mt19937& random) {
    const auto unit = [&] { return std::uniform_real_distribution<double>()(random); };
    const auto yes = [&] { return unit() < 0.5; };
    Settings settings;
    Design& design = settings.design;
    const auto fill = [&](const InputField& field) {
        const double low = std::max(field.limits.low, 1e-15);
        field.write(design, low * std::pow(field.limits.high / low, unit()));
    };
    for (const InputField& field : SharedInputs()) fill(field);
    for (const Page& page : Pages()) {
        for (const InputField& field : page.inputs) fill(field);
        for (const SwitchField& box : page.switches) {
            design.*box.flag = yes();
            if (box.weight) design.*box.weight = static_cast<int>(100 * unit());
        }
    }
    design.LCSwapped = yes();
    design.QByBandwidth = yes();
    settings.preferences = {static_cast<Series>(1 + static_cast<int>(5 * unit())), 1 + 3 * unit()};
    settings.tolerances = {1 + unit(), 2 + unit(), 3 + unit(), 4 + unit()};
    settings.standardValues = yes();
    for (PlotChoices& plot : settings.plots) {
        plot.traces = {yes() ? "v" : "gt", "phi"};
        plot.look = static_cast<int>(3 * unit());
        plot.harmonics = yes();
        plot.levels = yes();
        plot.edges = yes();
        plot.dark = yes();
        plot.caption = yes();
    }
    OptimizerServices services;
    services.settings.disabled = true;
    for (int visits = 0; visits < 3; ++visits) {
        EnterPage(design, 1 + static_cast<int>(PageCount() * unit()));
        const CycleResult result = Calculate(design, true, services);
        design = result.design;
        settings.v = result.v;
        for (const PartRef& part : PartsOf(design)) {
            if (yes()) part.round(design, Series::E24);
            if (unit() < 0.2) part.type(design, 1e-9 * (1 + unit()));
        }
        if (yes()) Take(design);
    }
    return settings;
}

TEST_F(SettingsTest, OwnFilesRestoreEveryDesignExactly) {
    std::mt19937 random(20261122);
    int designs = 0;
    for (int i = 0; i < 200; ++i) {
        const Settings written = RandomSettings(random);
        if (written != written) continue;  // absurd inputs may leave a component undefined
        ++designs;
        ASSERT_EQ(WriteSettings(path(file()), written).status, SaveStatus::Saved);
        const SettingsRead read = ReadSettings(path(file()), {});
        EXPECT_TRUE(read.whole) << ReadFile(file());
        ASSERT_TRUE(read.settings == written) << ReadFile(file());
    }
    EXPECT_GT(designs, 100);
}

TEST_F(SettingsTest, PlotChoicesThatAreNotUnderstoodAreAsByDefault) {
    const PlotChoices usual;
    EXPECT_EQ(ParsePlotChoices(""), usual);
    EXPECT_EQ(ParsePlotChoices("nosuch look=7 look=x dark=maybe grid=Yes caption"), usual);
    const PlotChoices read = ParsePlotChoices("gt nosuch gt phi levels=No look=2 dark=Yes");
    EXPECT_EQ(read.traces, (std::vector<std::string>{"gt", "phi"}));
    EXPECT_EQ(read.look, 2);
    EXPECT_TRUE(read.dark && !read.levels && read.harmonics);
}

TEST_F(SettingsTest, RoundedTextsThatSomeoneHasChangedCount) {
    Settings written;
    written.design.R1 = 12.3456789;
    written.design.fp12 = 12345678;
    written.design.QByBandwidth = true;
    written.design.components[Slot::C1] = 1e-12;
    ASSERT_EQ(WriteSettings(path(file()), written).status, SaveStatus::Saved);
    std::string bytes = ReadFile(file());
    bytes.replace(bytes.find("R2=200.00"), 9, "R2=75");
    const SettingsRead read = ReadSettings(path(holding(bytes)), {});
    EXPECT_FALSE(read.whole);
    EXPECT_EQ(read.settings.design.R2, 75);
    EXPECT_EQ(read.settings.design.R1, 12.35);  // the file of another program now
    EXPECT_EQ(read.settings.design.fp12, 12345678);
    EXPECT_TRUE(read.settings.design.QByBandwidth);
    EXPECT_EQ(read.settings.design.components, Slots());
}

TEST_F(SettingsTest, AbsurdExactValuesHarmNothing) {
    ASSERT_EQ(WriteSettings(path(file()), {}).status, SaveStatus::Saved);
    std::string bytes = ReadFile(file());
    const auto change = [&](const std::string& key, const std::string& value) {
        const auto at = bytes.find('\n' + key + '=', bytes.find("[Design]")) + 1;
        bytes.replace(at, bytes.find('\n', at) - at, key + '=' + value);
    };
    change("fp12Eingabe", "1e300");
    change("R1Eingabe", "nan");
    change("Tolerance C", "-7");
    change("Series", "99");
    change("ScrollBarW", "1e9");
    change("Components", "C1=12;L==;X9=3 C2=1e-12");
    change("Shown on page 1", "C1 typed x 0; L wrong 1 0; C2 typed 1e-12 77; ;;");
    const SettingsRead read = ReadSettings(path(holding(bytes)), {});
    EXPECT_EQ(read.status, ReadStatus::Read);
    Settings expected;
    expected.design.fp12 = 2e10;
    expected.design.components[Slot::C2] = 1e-12;
    expected.design.equalInductancesWeight = 100;
    expected.tolerances.capacitance = 0.1;
    expected.preferences.ESeries = Series::E96;
    EXPECT_EQ(read.settings.tolerances, expected.tolerances);
    EXPECT_EQ(read.settings.preferences, expected.preferences);
    EXPECT_EQ(read.settings.design.R1, 50);
    EXPECT_LE(read.settings.design.fp12, 2e10);
    EXPECT_EQ(read.settings.design.components, expected.design.components);
    EXPECT_EQ(read.settings.design.shown, expected.design.shown);
}

TEST_F(SettingsTest, WhatAFileDoesNotNameStaysExceptThePage) {
    Design before;
    before.page = 5;
    before.R1 = 1234.5678;
    before.QByBandwidth = false;
    Design expected = before;
    expected.page = 1;
    expected.fo = 10e6;
    expected.QByBandwidth = true;
    EXPECT_EQ(stateAfterReading("[Variablen]\nfo=10M\n", before), expected);
    expected.fo = before.fo;
    EXPECT_EQ(stateAfterReading("[Other]\nfo=10M\n", before), before) << "no settings file";
    EXPECT_EQ(ReadSettings(path(file("missing.ini")), {before}).settings.design, expected);
    EXPECT_EQ(ReadSettings(path(file("missing.ini")), {before}).status, ReadStatus::Missing);
}

TEST_F(SettingsTest, KeepEdgesOfABandThatNobodyHasTyped) {
    Settings written;
    written.design.bandHigh = 123.456789e6;
    written.design.matchBand = false;
    ASSERT_EQ(WriteSettings(path(file()), written).status, SaveStatus::Saved);
    const Design read = ReadSettings(path(file()), {}).settings.design;
    EXPECT_EQ(read.bandLow, 0) << "follows fo as before";
    EXPECT_EQ(read.bandHigh, 123.456789e6);
    EXPECT_FALSE(read.matchBand);
}

/// A key of its own restores the box exactly, whatever the one of other programs says.
TEST_F(SettingsTest, OnlyJaSetsTheFlagByPhase) {
    const auto after = [&](const std::string& text) {
        return stateAfterReading("[Variablen]\nQ by phase=" + text).QByBandwidth;
    };
    EXPECT_TRUE(after("Ja\n"));
    for (const char* text : {"Yes", "No", "ja", "", "1"}) EXPECT_FALSE(after(text)) << text;
    EXPECT_FALSE(after("Ja\nQ by d=No\n"));
    EXPECT_TRUE(after("Yes\nQ by d=Yes\n"));
}

TEST_F(SettingsTest, TheChokeIsFiniteInfiniteOrNotNamed) {
    const auto after = [&](const std::string& line) {
        Design before;
        before.chokeRatio = 20;
        before.infiniteChoke = true;
        const Design read = stateAfterReading("[Variablen]\n" + line, before);
        return std::pair(read.infiniteChoke, read.chokeRatio);
    };
    EXPECT_EQ(after(""), std::pair(true, 20.0));
    EXPECT_EQ(after("Choke=57.5"), std::pair(false, 57.5));
    EXPECT_EQ(after("Choke=1k"), std::pair(false, 200.0));
    EXPECT_EQ(after("Choke=infinite"), std::pair(true, 20.0));
}

TEST_F(SettingsTest, ValuesAreClampedAndUnreadableOnesAreZeroBeforeThat) {
    struct Case {
        const char* line;
        double Design::*number;
        double value;
    };
    constexpr Case cases[] = {
        {"R1=nonsense", &Design::R1, 0.001},
        {"R2=1T", &Design::R2, 1e6},
        {"fo=-5", &Design::fo, 1},
        {"fo=1e999", &Design::fo, 2e10},
        {"Q=", &Design::Q, 0.2},
        {"Q=1e9", &Design::Q, 1000},
        {"QB(C)=1", &Design::QBC, 5},
        {"k=7", &Design::k, 1},
        {"er=0", &Design::er, 1},
        {"  r1 = 4,7k ohm", &Design::R1, 4700},
    };
    for (const auto& [line, number, value] : cases) {
        EXPECT_DOUBLE_EQ(stateAfterReading("[VARIABLEN]\r\n" + std::string(line)).*number, value)
            << line;
    }
    const auto after = [&](const char* line) {
        return ReadSettings(path(holding(std::string("[Variablen]\n") + line)), {}).settings;
    };
    EXPECT_EQ(after("Sweep=1").preferences.SweepFactor, 1.0001);
    EXPECT_EQ(after("\xFC=-3").v, 0);
    for (const auto& [text, page] : {std::pair{"18", 18},
                                     {"19.9", 19},
                                     {"20", 1},
                                     {"0", 1},
                                     {"-3", 1},
                                     {"x", 1},
                                     {"1e30", 1}}) {
        EXPECT_EQ(stateAfterReading("[Variablen]\nTyp=" + std::string(text)).page, page) << text;
    }
    for (const auto& [text, N] :
         {std::pair{"8", 8}, {"99", 8}, {"-1", 1}, {"4.5", 3}, {"999999999999", 3}}) {
        EXPECT_EQ(stateAfterReading("[Variablen]\nN(BP)=" + std::string(text)).NBP, N) << text;
    }
}

TEST_F(SettingsTest, FilesOfOtherEditorsAreRead) {
    EXPECT_EQ(stateAfterReading("\xEF\xBB\xBF[Variablen]\nR1=75\n").R1, 75);
    EXPECT_EQ(stateAfterReading("[Variablen] ; mine\r\nR1 = \"75\"\r\n").R1, 75);
    EXPECT_EQ(stateAfterReading("[variablen]\rr1='75'\r").R1, 75);
}

TEST_F(SettingsTest, TheWantedRatioOfThePassivePadComesBackAsVAtFo) {
    EXPECT_DOUBLE_EQ(stateAfterReading("[Variablen]\nTyp=8\n\xFC=0.25\n").v8, 0.25);
    EXPECT_DOUBLE_EQ(stateAfterReading("[Variablen]\nTyp=7\n\xFC=0.25\n").v8, Design().v8);
}

TEST_F(SettingsTest, EveryKeyOfAnInputTakesItsLimitsFromTheField) {
    // An absurd file must leave a state that every input field accepts.
    std::string bytes = kDefaults;
    for (auto at = bytes.find('='); at != std::string::npos; at = bytes.find('=', at + 1)) {
        bytes.insert(at + 1, "1e300 ");
    }
    const Design state = stateAfterReading(bytes);
    for (const Page& page : Pages()) {
        for (const InputField& field : page.inputs) {
            const auto* number = std::get_if<double Design::*>(&field.value);
            if (number && *number == &Design::Q) continue;  // its spin button reaches further
            EXPECT_GE(field.read(state), field.limits.low) << field.object;
            EXPECT_LE(field.read(state), field.limits.high) << field.object;
        }
    }
}

TEST_F(SettingsTest, SavingKeepsWhatElseTheFileHolds) {
    holding(
        "; bench set-up\n\n[Window]\nLeft=12\n\n[Variablen]\n; from the data sheet\nR1=75\n"
        "Colour=\xE9\n");
    Design state;
    state.R1 = 300;
    EXPECT_EQ(WriteSettings(path(file()), {state}).message.toStdString(), "");
    const std::string saved = ReadFile(file());
    for (const char* kept :
         {"; bench set-up\n", "[Window]\nLeft=12\n", "; from the data sheet\nR1=300.00\n",
          "Colour=\xE9\n", "fo=100.00M\n"}) {
        EXPECT_NE(saved.find(kept), std::string::npos) << kept << "\nin\n" << saved;
    }
    EXPECT_EQ(saved.find("R1=75"), std::string::npos);
    EXPECT_EQ(WriteSettings(path(file()), {state}).status, SaveStatus::Saved);
    EXPECT_EQ(ReadFile(file()), saved) << "the second save changes nothing";
    EXPECT_EQ(names(), std::vector<std::string>{"kelvro.ini"});
}

TEST_F(SettingsTest, AFileOfALaterVersionIsReadAndLeftAsItIs) {
    ASSERT_EQ(WriteSettings(path(file()), {}).status, SaveStatus::Saved);
    const std::string own = ReadFile(file());
    const auto at = own.find("Version=1\n");
    ASSERT_NE(at, std::string::npos) << own;
    struct Case {
        const char* version;
        bool later;
    };
    for (const Case c : {Case{"Version=2\nR3=7\n", true}, Case{"Version=1e99\n", true},
                         Case{"Version=1\n", false}, Case{"Version=x\n", false}, Case{"", false}}) {
        SCOPED_TRACE(c.version);
        const std::string bytes = own.substr(0, at) + c.version + own.substr(at + 10);
        const SettingsRead read = ReadSettings(path(holding(bytes)), {});
        EXPECT_EQ(read.status, ReadStatus::Read);
        EXPECT_EQ(read.settings.design.R2, 200);
        EXPECT_EQ(read.later, c.later);
        EXPECT_EQ(read.message.contains("later version"), c.later);
        Design changed = read.settings.design;
        changed.R2 = 300;
        const SettingsSave saved = WriteSettings(path(file()), {changed});
        EXPECT_EQ(saved.status, c.later ? SaveStatus::Failed : SaveStatus::Saved);
        EXPECT_EQ(ReadFile(file()) == bytes, c.later);
        EXPECT_EQ(WriteSettings(path(file("other.ini")), {changed}).status, SaveStatus::Saved);
    }
}

TEST_F(SettingsTest, WhatAnotherProgramHasSavedMeanwhileIsNotOverwrittenUnseen) {
    const std::string first = WriteSettings(path(file()), {}).checksum;
    EXPECT_EQ(ReadSettings(path(file()), {}).checksum, first);
    Settings other;
    other.design.R2 = 300;
    ASSERT_EQ(WriteSettings(path(file()), other, first).status, SaveStatus::Saved);
    const std::string bytes = ReadFile(file());
    EXPECT_EQ(WriteSettings(path(file()), {}, first).status, SaveStatus::Changed);
    EXPECT_EQ(WriteSettings(path(file()), {}, "").status, SaveStatus::Changed);
    EXPECT_EQ(ReadFile(file()), bytes);
    EXPECT_EQ(WriteSettings(path(file("new.ini")), {}, "").status, SaveStatus::Saved);
}

std::string RandomBytes(std::size_t count) {
    std::mt19937 random(7);
    std::string bytes(count, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    return bytes;
}

TEST_F(SettingsTest, FilesThatAreNoSettingsReadAsDefaultsAndAreKeptAside) {
    const std::string random = RandomBytes(5000);
    for (const std::string& bytes : {random, std::string("\0\0\0", 3), std::string(3000000, 'x'),
                                     std::string("my thesis"), "[Variablen]\nR1=75\n" + random}) {
        fs::remove_all(folder_.path());
        fs::create_directory(folder_.path());
        holding(bytes);
        const SettingsSave save = WriteSettings(path(file()), {});
        EXPECT_EQ(save.status, SaveStatus::Saved);
        EXPECT_NE(save.message.toStdString().find("kelvro.ini.bak"), std::string::npos);
        EXPECT_EQ(ReadFile(file("kelvro.ini.bak")), bytes);
        const SettingsRead reread = ReadSettings(path(file()), {});
        EXPECT_EQ(reread.status, ReadStatus::Read) << reread.message.toStdString();
        // A second foreign file must not replace the first copy.
        holding("my second thesis");
        const SettingsRead read = ReadSettings(path(file()), {});
        EXPECT_EQ(read.status, ReadStatus::Unusable);
        EXPECT_FALSE(read.message.isEmpty());
        EXPECT_EQ(read.settings.design, Design());
        WriteSettings(path(file()), {});
        EXPECT_EQ(ReadFile(file("kelvro.ini.bak")), bytes);
        EXPECT_EQ(ReadFile(file("kelvro.ini.bak2")), "my second thesis");
    }
}

TEST_F(SettingsTest, FoldersPipesDevicesAndHugeFilesAreReportedAtOnce) {
    fs::create_directory(file("folder"));
    ASSERT_EQ(::mkfifo(file("pipe").c_str(), 0600), 0);
    fs::create_symlink("/dev/full", file("full"));
    holding("", "huge");
    fs::resize_file(file("huge"), 100 << 20);
    for (const char* name : {"folder", "pipe", "full", "huge"}) {
        const SettingsRead read = ReadSettings(path(file(name)), {});
        EXPECT_EQ(read.status, ReadStatus::Unusable) << name;
        EXPECT_NE(read.message.toStdString().find(name), std::string::npos) << name;
        EXPECT_EQ(read.settings.design, Design()) << name;
    }
    const auto before = names();
    for (const char* name : {"folder", "pipe", "full"}) {
        EXPECT_EQ(WriteSettings(path(file(name)), {}).status, SaveStatus::Failed) << name;
    }
    EXPECT_EQ(names(), before);
}

TEST_F(SettingsTest, AFolderThatCannotBeWrittenIsReported) {
    for (const char* target : {"/proc/kelvro.ini", "/dev/null/kelvro.ini", ""}) {
        const SettingsSave save = WriteSettings(target, {});
        EXPECT_EQ(save.status, SaveStatus::Failed) << target;
        EXPECT_FALSE(save.message.isEmpty()) << target;
    }
}

TEST_F(SettingsTest, AFullDiskLeavesTheOldFileAndNothingElse) {
    for (const std::string& old : {std::string("[Variablen]\nR1=75\n"), std::string("my thesis")}) {
        holding(old);
        const SettingsSave save = [&] {
            const FullDisk full;
            return WriteSettings(path(file()), {});
        }();
        EXPECT_EQ(save.status, SaveStatus::Failed);
        EXPECT_NE(save.message.toStdString().find("kelvro.ini"), std::string::npos);
        EXPECT_EQ(ReadFile(file()), old);
        EXPECT_EQ(names(), std::vector<std::string>{"kelvro.ini"});
    }
}

TEST_F(SettingsTest, TheDefaultFileLiesInTheConfigurationFolder) {
    const char* before = std::getenv("XDG_CONFIG_HOME");
    const std::string old = before ? before : "";
    ::setenv("XDG_CONFIG_HOME", folder_.path().c_str(), 1);
    EXPECT_EQ(DefaultSettingsFile().toStdString(), (folder_ / "kelvro" / "kelvro.ini").string());
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_TRUE(DefaultSettingsFile().endsWith("/.config/kelvro/kelvro.ini"));
    if (before) ::setenv("XDG_CONFIG_HOME", old.c_str(), 1);
}

}  // namespace
}  // namespace kelvro
