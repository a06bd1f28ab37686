#include "io/project_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <thread>
#include <vector>

#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

using Cx = std::complex<double>;
using testing::HasSubstr;

std::shared_ptr<const PortData> Antenna() {
    PortData data;
    data.name = "antenna.s1p";
    data.f = {1e9, 1.1e9, 2e9};
    data.s = {{Cx(0.1, 1.0 / 3)}, {Cx(0.2, -0.7)}, {Cx(0.3, 0.4)}};
    data.reference = {75, 75};
    data.interpolation = Interpolation::MonotoneCubic;
    return std::make_shared<const PortData>(data);
}

Network Example() {
    Network network;
    network.source = Cx(12, -45);
    network.ladder = {
        SeriesArm(Part::L(20.8e-9, "L1")), ShuntArm(Part::C(1e-12 / 3)), {Transformer{2}, "n2"}};
    network.load = Impedance::Measured{Antenna()};
    network.designFrequency = 1.5e9;
    network.bands = {{1.2e9, 1.6e9}, {1.8e9, 1.9e9}};
    network.caption = "Dipole";
    return network;
}

TEST(ProjectFile, IsReadBackAsItWasWritten) {
    const TemporaryFolder folder;
    Project project;
    project.network = Example();
    project.snapshots = {{"as it was", Example(), false}, {"without an antenna", {}, true}};
    project.snapshots[0].network.ladder.pop_back();
    project.snapshots[1].network.load = 75;
    project.ghost = Example();
    project.ghost->ladder.erase(project.ghost->ladder.begin());
    project.locked = {{1, 0, Tunable::Quantity::PartValue}, {2, 0, Tunable::Quantity::Turns}};
    project.markers = {1.25e9, 1.9e9};
    ASSERT_EQ(WriteProject(folder / "a.kelvro", project).message(), "");
    const auto read = ReadProject(folder / "a.kelvro");
    ASSERT_TRUE(read.ok()) << read.message();
    EXPECT_EQ(read->network, project.network);
    EXPECT_EQ(read->snapshots, project.snapshots);
    EXPECT_EQ(read->ghost, project.ghost);
    EXPECT_EQ(read->locked, project.locked);
    EXPECT_EQ(read->markers, project.markers);
    EXPECT_TRUE(read->messages.empty());
    EXPECT_FALSE(read->readOnly);
}

/// An antenna measured twice under one name stays two antennas, each where it belongs.
TEST(ProjectFile, KeepsDataOfOneNameApart) {
    const TemporaryFolder folder;
    auto anew = *Antenna();
    anew.s[1][0] = Cx(0.5, 0);
    const auto second = std::make_shared<const PortData>(anew);
    Project project;
    project.network = Example();
    project.snapshots = {{"first", Example()}, {"anew", Example()}, {"both", Example()}};
    project.snapshots[1].network.load = Impedance::Measured{second};
    project.snapshots[2].network.ladder = {SeriesArm(Impedance::Measured{second})};
    project.linkedData["antenna.s1p"] = folder / "antenna.s1p";
    WriteFile(folder / "antenna.s1p", "# GHz S RI R 50\n1 0 0\n");
    ASSERT_EQ(WriteProject(folder / "a.kelvro", project).message(), "");
    const auto read = ReadProject(folder / "a.kelvro");
    ASSERT_TRUE(read.ok()) << read.message();
    EXPECT_EQ(read->network, project.network);
    EXPECT_EQ(read->snapshots[0], project.snapshots[0]);
    anew.name = "antenna-2.s1p";
    EXPECT_EQ(*std::get<Impedance::Measured>(read->snapshots[1].network.load.is).data, anew);
    const Network& both = read->snapshots[2].network;
    const auto& arm = std::get<Arm>(both.ladder[0].is);
    EXPECT_EQ(*std::get<Impedance::Measured>(arm.impedance.is).data, anew);
    EXPECT_EQ(both.load, project.network.load);
}

TEST(ProjectFile, KeepsWhatOthersWroteIntoIt) {
    const TemporaryFolder folder;
    const char* const text = R"({"version": 1, "window": {"zoom": [1, 2.5]},
        "network": {"source": "50", "ladder": ["series: L=1n"], "load": "antenna.s1p",
                    "tolerance": "E24"},
        "ghost": {"network": {"source": "50", "load": "75"}, "opacity": 0.5},
        "locked": [{"element": 0, "part": 0, "quantity": "value", "by": "Tom"},
                   {"element": 3, "part": 0, "quantity": "value"}],
        "data": {"antenna.s1p": {"touchstone": "# GHz S RI R 50\n1 0.1 0.2\n", "colour": "red"}}})";
    WriteFile(folder / "a.kelvro", text);
    auto project = ReadProject(folder / "a.kelvro");
    ASSERT_TRUE(project.ok()) << project.message();
    project->network.source = 75;
    ASSERT_TRUE(WriteProject(folder / "a.kelvro", *project).ok());
    const Json written = Json::parse(ReadFile(folder / "a.kelvro"));
    EXPECT_EQ(written["window"]["zoom"][1], 2.5);
    EXPECT_EQ(written["network"]["tolerance"], "E24");
    EXPECT_EQ(written["network"]["source"], "75");
    EXPECT_EQ(written["data"]["antenna.s1p"]["colour"], "red");
    EXPECT_EQ(written["ghost"]["opacity"], 0.5);
    ASSERT_EQ(written["locked"].size(), 1U) << "there is no element 3";
    EXPECT_EQ(written["locked"][0]["by"], "Tom");
    EXPECT_EQ(written.begin().key(), "version") << "keys stay in their order";
}

TEST(ProjectFile, LinksDataByARelativePath) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "parts");
    WriteFile(folder / "parts" / "antenna.s1p", "# GHz S RI R 50\n1 0.1 0.2\n2 0.3 0.4\n");
    WriteFile(folder / "a.kelvro", R"({"version": 1,
        "network": {"source": "50", "ladder": [], "load": "whip"},
        "data": {"whip": {"path": "parts/antenna.s1p"}}})");
    // A name without ending has to be quoted in texts.
    EXPECT_THAT(ReadProject(folder / "a.kelvro").message(), HasSubstr("network.load: column 1"));
    WriteFile(folder / "a.kelvro", R"({"version": 1,
        "network": {"source": "50", "ladder": [], "load": "\"whip\""},
        "data": {"whip": {"path": "parts/antenna.s1p"}}})");
    auto project = ReadProject(folder / "a.kelvro");
    ASSERT_TRUE(project.ok()) << project.message();
    ASSERT_TRUE(WriteProject(folder / "a.kelvro", *project).ok());
    const Json entry = Json::parse(ReadFile(folder / "a.kelvro"))["data"]["whip"];
    EXPECT_EQ(entry["path"], "parts/antenna.s1p");
    // That of sha256sum.
    EXPECT_EQ(entry["checksum"],
              "sha256:82ed56b50d8954cb7668808890f35c4ac77d4d60830755c1b8f53078ab1a8366");
    EXPECT_FALSE(entry.contains("touchstone"));
    EXPECT_TRUE(ReadProject(folder / "a.kelvro")->messages.empty());
    WriteFile(folder / "parts" / "antenna.s1p", "# GHz S RI R 50\n1 0.1 0.2\n2 0.3 0.5\n");
    const auto changed = ReadProject(folder / "a.kelvro");
    ASSERT_TRUE(changed.ok());
    ASSERT_EQ(changed->dataProblems.size(), 1U);
    EXPECT_THAT(changed->dataProblems[0].what, HasSubstr("has changed since a.kelvro was saved"));
    EXPECT_FALSE(changed->dataProblems[0].missing);
}

/// Nothing is lost of what is not there: where the file was, what it was, how it is read.
TEST(ProjectFile, IsThereWithoutALinkedFile) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "moved");
    const std::string data = R"({"amp.s2p": {"path": "parts/amp.s2p", "checksum": "sha256:12",
                                              "interpolation": "polar", "colour": "red"}})";
    WriteFile(folder / "a.kelvro", R"({"version": 1, "network": {"source": "amp.s2p:2*",
        "ladder": ["part: amp.s2p"], "load": "50"}, "data": )" +
                                       data + "}");
    std::filesystem::create_directory(folder / "parts");
    // There is no file, one that is no Touchstone file, one of another number of ports.
    for (const char* content : {"", "1 2", "# GHz S RI R 50\n1 0.1 0.2\n"}) {
        if (*content) WriteFile(folder / "parts" / "amp.s2p", content);
        auto project = ReadProject(folder / "a.kelvro");
        ASSERT_TRUE(project.ok()) << project.message();
        ASSERT_EQ(project->dataProblems.size(), 1U);
        EXPECT_EQ(project->dataProblems[0].name, "amp.s2p");
        EXPECT_TRUE(project->dataProblems[0].missing);
        EXPECT_THAT(project->dataProblems[0].what, HasSubstr("amp.s2p"));
        project->network.load = 75;
        ASSERT_TRUE(WriteProject(folder / "moved" / "b.kelvro", *project).ok());
        const Json written = Json::parse(ReadFile(folder / "moved" / "b.kelvro"));
        Json entry = Json::parse(data)["amp.s2p"];
        entry["path"] = "../parts/amp.s2p";
        entry["ports"] = 2;
        EXPECT_EQ(written["data"]["amp.s2p"], entry);
        EXPECT_EQ(written["network"]["source"], "amp.s2p(polar):2*");
        EXPECT_EQ(written["network"]["load"], "75");
    }
}

TEST(ProjectFile, OfALaterVersionIsLookedAtOnly) {
    const TemporaryFolder folder;
    const std::string text =
        R"({"version": 2, "network": {"source": "50", "load": "75", "optics": "blue"}})";
    WriteFile(folder / "a.kelvro", text);
    auto project = ReadProject(folder / "a.kelvro");
    ASSERT_TRUE(project.ok()) << project.message();
    EXPECT_TRUE(project->readOnly);
    EXPECT_THAT(project->messages.at(0), HasSubstr("later version"));
    EXPECT_EQ(project->network.load, Impedance(75));
    EXPECT_FALSE(WriteProject(folder / "a.kelvro", *project).ok());
    EXPECT_EQ(ReadFile(folder / "a.kelvro"), text);
    EXPECT_FALSE(WriteProject(folder / "a.kelvro", Project()).ok()) << "whatever would be written";
    ASSERT_TRUE(WriteProject(folder / "b.kelvro", *project).ok());
    EXPECT_EQ(ReadFile(folder / "b.kelvro").find("optics"), std::string::npos);
    project = ReadProject(folder / "b.kelvro");
    ASSERT_TRUE(project.ok()) << project.message();
    EXPECT_FALSE(project->readOnly);
    EXPECT_EQ(project->network.load, Impedance(75));
}

TEST(ProjectFile, ThatCannotBeWrittenLeavesTheOldOne) {
    const TemporaryFolder folder;
    Project project;
    std::filesystem::create_directory(folder / "taken.kelvro");
    EXPECT_THAT(WriteProject(folder / "taken.kelvro", project).message(),
                HasSubstr("Cannot write"));
    EXPECT_FALSE(WriteProject(folder / "no folder" / "a.kelvro", project).ok());
    EXPECT_FALSE(WriteProject("/dev/full", project).ok());
    EXPECT_TRUE(std::filesystem::is_empty(folder / "taken.kelvro"));
}

/// Several at once: who knows the file as it is saves it, all others are told and change nothing.
TEST(ProjectFile, IsSavedByOneOfSeveralThatHaveReadIt) {
    const TemporaryFolder folder;
    const auto file = folder / "a.kelvro";
    ASSERT_TRUE(WriteProject(file, Project(), "").ok());
    for (int round = 0; round < 20; ++round) {
        const auto read = ReadProject(file);
        ASSERT_TRUE(read.ok()) << read.message();
        std::array<Result<std::string>, 4> saved{Status(), Status(), Status(), Status()};
        {
            std::vector<std::jthread> programs;
            programs.reserve(saved.size());
            for (std::size_t i = 0; i < saved.size(); ++i)
                programs.emplace_back([&, i] {
                    Project own = *read;
                    own.network.designFrequency = 1 + round + 100.0 * static_cast<double>(i);
                    saved[i] = WriteProject(file, own, read->checksum);
                });
        }
        ASSERT_EQ(std::ranges::count_if(saved, &Result<std::string>::ok), 1) << round;
        const auto winner = std::ranges::find_if(saved, &Result<std::string>::ok) - saved.begin();
        EXPECT_EQ(ReadProject(file)->network.designFrequency,
                  1 + round + 100.0 * static_cast<double>(winner));
        EXPECT_THAT(saved[winner == 0 ? 1 : 0].message(), HasSubstr("by another program"));
    }
    std::filesystem::remove(file);
    EXPECT_TRUE(WriteProject(file, Project(), "sha256:gone").ok()) << "nobody's work is lost";
}

TEST(ProjectFile, NestedBeyondTheStackIsRefused) {
    const std::string deep =
        R"({"version": 1, "note": "]\"[", "other": )" + std::string(400000, '[');
    EXPECT_THAT(ParseProject(deep, {}, "a.kelvro").message(), HasSubstr("nested deeper"));
}

/// A project in which only the rest can be wrong.
std::string Besides(const std::string& rest) {
    return R"({"version": 1, "network": {"source": "50", "load": "50"}, )" + rest + '}';
}

std::string WithNetwork(const std::string& rest) {
    return R"({"version": 1, "network": {"source": "50", )" + rest + "}}";
}

TEST(ProjectFile, FaultyOnesAreRefusedWithTheirPlace) {
    const std::pair<std::string, const char*> faults[] = {
        {"", "line 1: this is not JSON"},
        {"{\"version\": 1,\n\n \"network\": }", "line 3: this is not JSON"},
        {"[]", "expected a JSON object"},
        {R"({"version": 1, "other": 1e400})", "larger than any number"},
        {"{}", "version: expected the version"},
        {R"({"version": "1"})", "version: expected"},
        {R"({"version": 1})", "network: expected an object with source"},
        {R"({"version": 1, "network": {"source": 50}})", "source: expected"},
        {WithNetwork(R"("load": "5x")"), "network.load: column 2"},
        {WithNetwork(R"("load": "no.s1p")"), "network.load: column 1: there is no file \"no.s1p\""},
        {WithNetwork(R"("load": "50", "ladder": ["series: L=1n", "shunt C=1p"])"),
         "network.ladder[1]: column 1"},
        {WithNetwork(R"("load": "50", "ladder": {})"), "ladder: expected a list"},
        {WithNetwork(R"("load": "50", "designFrequency": -1)"),
         "designFrequency: expected a frequency"},
        {WithNetwork(R"("load": "50", "bands": [{"low": 2, "high": 1}])"),
         "network.bands[0]: expected low"},
        {R"({"version": 1, "data": {"a.s1p": {}}})",
         "data.a.s1p: expected \"touchstone\" or \"path\""},
        {R"({"version": 1, "data": {"a.s1p": {"touchstone": "1 2"}}})",
         "data.a.s1p: a.s1p, line 1"},
        {R"({"version": 1, "data": {"a.s1p": {"touchstone": "1 0 0", "interpolation": 3}}})",
         "data.a.s1p.interpolation: expected"},
        {Besides(R"("ghost": {"network": {"source": "50", "load": "x"}})"),
         "ghost.network.load: column 1"},
        {Besides(R"("locked": [{"element": -1}])"), "locked[0]: expected the numbers"},
        {Besides(R"("locked": [{"element": 0, "quantity": "weight"}])"),
         "locked[0].quantity: expected one of value"},
        {Besides(R"("markers": [1e9, "2G"])"), "markers: expected frequencies"}};
    for (const auto& [text, message] : faults) {
        const auto read = ParseProject(text, {}, "a.kelvro");
        ASSERT_FALSE(read.ok()) << text;
        EXPECT_THAT(read.message(), testing::StartsWith("a.kelvro, ")) << text;
        EXPECT_THAT(read.message(), HasSubstr(message)) << text;
        EXPECT_EQ(read.message().find('\n'), std::string::npos) << text;
    }
}

}  // namespace
}  // namespace kelvro
