#include "network/network_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "tests/network/drawn_networks.h"

namespace kelvro {
namespace {

using testing::HasSubstr;

std::shared_ptr<const PortData> Data(std::string name, int ports) {
    return std::make_shared<PortData>(
        PortData{std::move(name), ports, {1e9, 2e9}, {{Cx(0.1, 0.2)}, {Cx(0.3, 0.4)}}});
}

const std::map<std::string, std::shared_ptr<const PortData>, std::less<>> kFiles = {
    {"antenna.s1p", Data("antenna.s1p", 1)},
    {"amp.s2p", Data("amp.s2p", 2)},
    {"my \"best\" antenna.dat", Data("my \"best\" antenna.dat", 1)},
    {"../dir/50-x.S1P", Data("../dir/50-x.S1P", 1)},
};

Result<std::shared_ptr<const PortData>> Load(std::string_view file) {
    const auto found = kFiles.find(file);
    if (found == kFiles.end()) return Status::Failure("there is no \"" + std::string(file) + '"');
    return found->second;
}

Impedance::Measured Measured(const char* file, int port = 0, bool conjugate = false) {
    return {kFiles.at(file), port, conjugate};
}

Impedance::Measured Read(Impedance::Measured measured, Interpolation form) {
    PortData data = *measured.data;
    data.interpolation = form;
    measured.data = std::make_shared<const PortData>(std::move(data));
    return measured;
}

Part Lossy(Part part, PartLoss loss) {
    part.loss = loss;
    return part;
}

using Law = PartLoss::Law;

struct ImpedanceCase {
    const char* text;
    Impedance is;
};

class ImpedanceTexts : public testing::TestWithParam<ImpedanceCase> {};

TEST_P(ImpedanceTexts, AreRead) {
    SCOPED_TRACE(GetParam().text);
    const auto read = ParseImpedance(GetParam().text, Load);
    ASSERT_TRUE(read.ok()) << read.message();
    EXPECT_EQ(*read, GetParam().is) << ImpedanceText(*read);
}

const ImpedanceCase kImpedances[] = {
    {"50", 50},
    {" 50 Ω ", 50},
    {"4.7kohm", 4700},
    {"2,2k", 2200},
    {"12-j45", Cx(12, -45)},
    {"12 + 45j", Cx(12, 45)},
    {"12+j4.5k", Cx(12, 4500)},
    {"-j20", Cx(0, -20)},
    {"j", Cx(0, 1)},
    {"j20 + 5", Cx(5, 20)},
    {"-3", -3},
    {"10 + 20", Impedance::InSeries({10, 20})},
    {"R=10 + L=2n + C=3p", Impedance::InSeries({Part::R(10), Part::L(2e-9), Part::C(3e-12)})},
    {"50 | C=2p", Impedance::InParallel({50, Part::C(2e-12)})},
    {"50 || C=2pF||L=1 nH", Impedance::InParallel({50, Part::C(2e-12), Part::L(1e-9)})},
    {"L=2.3 + (1 | C=1.2)",
     Impedance::InSeries({Part::L(2.3), Impedance::InParallel({1, Part::C(1.2)})})},
    {"5 + 50 | C=2p", Impedance::InSeries({5, Impedance::InParallel({50, Part::C(2e-12)})})},
    {"12-j45 | C=2p", Impedance::InParallel({Cx(12, -45), Part::C(2e-12)})},
    {"C=2F", Part::C(2)},
    {"C=2f", Part::C(2e-15)},
    {"L=2.2µH", Part::L(2.2e-6)},
    {"C=inf", Part::C(INFINITY)},
    {"L12=1n", Part::L(1e-9, "L12")},
    {"C1'=1n(name=\"C1 (left)\")", Part::C(1e-9, "C1 (left)")},
    {"antenna.s1p", Measured("antenna.s1p")},
    {"amp.s2p:2*", Measured("amp.s2p", 2, true)},
    {"antenna.s1p(polar)", Read(Measured("antenna.s1p"), Interpolation::Polar)},
    {"amp.s2p ( cubic ):2*", Read(Measured("amp.s2p", 2, true), Interpolation::MonotoneCubic)},
    {"\"my \"\"best\"\" antenna.dat\"(linear)", Measured("my \"best\" antenna.dat")},
    {"\"my \"\"best\"\" antenna.dat\"", Measured("my \"best\" antenna.dat")},
    {"../dir/50-x.S1P | 12", Impedance::InParallel({Measured("../dir/50-x.S1P"), 12})},
    {"L=10n(Q=40)", Lossy(Part::L(10e-9), {Law::ConstantQ, 40})},
    {"L=10n( Q = 40 @ 100 MHz )", Lossy(Part::L(10e-9), {Law::RootQ, 40, 100e6})},
    {"L=10n(Q=40@100M,law=f)", Lossy(Part::L(10e-9), {Law::ProportionalQ, 40, 100e6})},
    {"C=2p(ESR=0.1,SRF=3G)", Lossy(Part::C(2e-12), {Law::Lossless, 0, 0, 0.1, 3e9})},
    {"C=2p(Q=80,law=page)", Lossy(Part::C(2e-12), {Law::Page, 80})},
    {"R1=50(tol=0.5 %)", Part{PartKind::Resistor, 50, {}, "R1", 0.5}},
};

INSTANTIATE_TEST_SUITE_P(Examples, ImpedanceTexts, testing::ValuesIn(kImpedances));

struct ElementCase {
    const char* text;
    LadderElement is;
};

class ElementTexts : public testing::TestWithParam<ElementCase> {};

TEST_P(ElementTexts, AreRead) {
    SCOPED_TRACE(GetParam().text);
    const auto read = ParseElement(GetParam().text, Load);
    ASSERT_TRUE(read.ok()) << read.message();
    EXPECT_EQ(*read, GetParam().is) << ElementText(*read);
}

const ElementCase kElements[] = {
    {"series: L=20.8n", {Arm{Place::Series, Part::L(20.8e-9)}}},
    {" shunt :C=16.4p | L=18.24n -> n2",
     {Arm{Place::Shunt, Impedance::InParallel({Part::C(16.4e-12), Part::L(18.24e-9)})}, "n2"}},
    {"supply: L=10u", {Arm{Place::Shunt, Part::L(10e-6), true}}},
    {"line: Z=50, deg=90@2.4G", {Line{Line::Form::Through, 50, {90, 2.4e9}}}},
    {"line:len=31m,er=2.2,Z=50", {Line{Line::Form::Through, 50, {0, 0, 0.031, 2.2}}}},
    {"line: Z=50, len=31 mm", {Line{Line::Form::Through, 50, {0, 0, 0.031}}}},
    {"open: Z=50, deg=45@1G, att=0.3@1G, name=T1",
     {Line{Line::Form::OpenStub, 50, {45, 1e9}, 0.3, 1e9, 0, "T1"}}},
    {"short: Z=75, len=1c, tan=0.01",
     {Line{Line::Form::ShortedStub, 75, {0, 0, 0.01}, 0, 0, 0.01}}},
    {"line: Z=50, len=1c, tol=3", {Line{Line::Form::Through, 50, {0, 0, 0.01}, 0, 0, 0, "", 3}}},
    {"transformer: n=2", {Transformer{2}}},
    {"coupled: L1=1u(Q=50), L2=2u, k=0.9",
     {CoupledCoils{Lossy(Part::L(1e-6), {Law::ConstantQ, 50}), Part::L(2e-6), 0.9}}},
    {"part: amp.s2p", {MeasuredTwoPort{kFiles.at("amp.s2p")}}},
    {"shunt: amp.s2p", {Arm{Place::Shunt, Measured("amp.s2p")}}},
    {"switch: S1", {Switch{"S1"}}},
    {"branch: {series: L=1n; shunt: C=2p -> o; load: 50 | C=1p}",
     {Branch{{{Arm{Place::Series, Part::L(1e-9)}}, {Arm{Place::Shunt, Part::C(2e-12)}, "o"}},
             Impedance::InParallel({50, Part::C(1e-12)})}}},
};

INSTANTIATE_TEST_SUITE_P(Examples, ElementTexts, testing::ValuesIn(kElements));

struct FaultyText {
    std::string text;
    const char* message;
};

class FaultyTexts : public testing::TestWithParam<FaultyText> {};

/// Texts with a colon and blank behind a word are elements, the others impedances.
Status StatusOf(const std::string& text) {
    return text.find(": ") != std::string::npos ? ParseElement(text, Load).status()
                                                : ParseTermination(text, Load).status();
}

TEST_P(FaultyTexts, NameThePlace) {
    SCOPED_TRACE(GetParam().text.substr(0, 60));
    const Status status = StatusOf(GetParam().text);
    EXPECT_FALSE(status.ok());
    EXPECT_THAT(status.message(), HasSubstr(GetParam().message));
    EXPECT_EQ(status.message().find('\n'), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Faults, FaultyTexts,
    testing::Values(
        FaultyText{"", "column 1: expected a number, the text ends"},
        FaultyText{"50 |", "column 5: expected a number, the text ends"},
        FaultyText{"1/50", "column 2: expected '+', '|' or the end, found '/'"},
        FaultyText{"50 - 20", "column 4: only an imaginary"},
        FaultyText{"(50 | 20", "column 9: expected '+', '|' or ')', the text ends"},
        FaultyText{"50)", "column 3: expected '+', '|' or the end, found ')'"},
        FaultyText{"Ω | 5", "column 1: expected a number, found 'Ω'"},
        FaultyText{"50Ω | L=", "column 9: expected a number"},
        FaultyText{"L=2x", "column 4: expected the end of the number, found 'x'"},
        FaultyText{"C=-2p", "column 3: expected a number, found '-'"},
        FaultyText{"L=1e999", "column 3: this number is too large"},
        FaultyText{"Z=50", "column 1: 'Z=' is no part"},
        FaultyText{"coil", "column 1: 'coil' is no impedance"},
        FaultyText{"5 + nofile.s1p", "column 5: there is no \"nofile.s1p\""},
        FaultyText{"5 + \"half", "column 5: this quote is not closed"},
        FaultyText{"amp.s2p", "column 1: these data have two ports: write amp.s2p:1 or amp.s2p:2"},
        FaultyText{"antenna.s1p:2", "column 12: these data have one port"},
        FaultyText{"antenna.s1p(spline)", "column 13: expected linear, polar or cubic"},
        FaultyText{"antenna.s1p(polar", "column 18: expected ')'"},
        FaultyText{"amp.s2p:3", "column 8: expected port 1 or 2"},
        FaultyText{"L=1n(Q=-4)", "column 6: Q= has to be above 0"},
        FaultyText{"L=1n(law=f)", "column 6: law= needs Q="},
        FaultyText{"L=1n(Q=4,law=f)", "column 10: this law needs the frequency"},
        FaultyText{"L=1n(Q=4@0)", "column 9: expected a frequency above 0"},
        FaultyText{"L=1n(Q=4", "column 9: expected ')', the text ends"},
        FaultyText{"L=1n(K=4)",
                   "column 6: expected one of Q=, law=, ESR=, SRF=, tol=, name="
                   ", found 'K'"},
        FaultyText{"L=1n(tol=0)", "column 6: tol= is in percent, above 0 and below 100"},
        FaultyText{"L=1n(tol=100)", "column 6: tol= is in percent"},
        FaultyText{"R=1(Q=4)", "column 4: a resistor has no Q"},
        FaultyText{"loop: L=1n", "column 1: 'loop:' is no kind of element"},
        FaultyText{" : L=1n", "column 2: expected series:, shunt:"},
        FaultyText{"line: deg=90@1G", "column 7: a line needs Z="},
        FaultyText{"line: Z=50, deg=0@1G, att=inf@1G", "column 23: att= is a number from 0 up"},
        FaultyText{"short: Z=50, deg=9@1G, tan=-1", "column 24: tan= is a number from 0 up"},
        FaultyText{"line: Z=50", "column 7: the length of a line"},
        FaultyText{"line: Z=50, deg=90", "column 19: deg= needs its frequency"},
        FaultyText{"line: Z=50, Z=60, len=1m", "column 13: Z= stands here twice"},
        FaultyText{"line: Z=50 deg=90@1G", "column 12: expected ',' or the end, found 'd'"},
        FaultyText{"transformer: n=0", "column 14: n= has to be other than 0"},
        FaultyText{"coupled: L1=1n, L2=1n, k=1.1", "column 24: k= has to be"},
        FaultyText{"coupled: L1=1n, k=1", "column 10: coupled coils need"},
        FaultyText{"part: antenna.s1p", "column 7: these data have one port"},
        FaultyText{"part: 50", "column 7: expected a file"},
        FaultyText{"branch: {series: L=1n; load: 50", "column 32: expected '}'"},
        FaultyText{std::string(5000, '('), "nested too deeply"},
        FaultyText{std::string(200'000, '5'), "the text is too long"}));

/// Every text cut short and with any one character replaced is read or refused, never more.
TEST(NetworkTexts, OfAnyKindAreReadOrRefused) {
    const std::string alphabet = "()+-|:,@*=\"j.e5LZ{};>\xCE\0 ";
    const auto examine = [](const std::string& text) {
        const auto read = ParseElement(text, Load);
        if (!read.ok()) {
            EXPECT_THAT(read.message(), HasSubstr("column "));
        } else if (*read == *read) {  // a NaN is not
            EXPECT_EQ(ParseElement(ElementText(*read), Load).message(), "") << text;
        }
    };
    for (const ElementCase& c : kElements) {
        const std::string text = c.text;
        for (std::size_t i = 0; i <= text.size(); ++i) {
            examine(text.substr(0, i));
            for (const char other : alphabet) {
                examine(text.substr(0, i) + other + text.substr(std::min(i + 1, text.size())));
            }
        }
    }
}

TEST(NetworkTexts, PrintedAreReadBackAsTheSameNetwork) {
    Draw draw;
    const auto load = [&](std::string_view file) {
        return Result<std::shared_ptr<const PortData>>(draw.files.find(file)->second);
    };
    const auto name = [&] {
        const char* const names[] = {"", "", "T1", "C1'", "two words", "a\"quote", "L", "L7"};
        return names[draw.random() % std::size(names)];
    };
    for (int i = 0; i < 3000; ++i) {
        std::vector<LadderElement> ladder{draw.anyElement(1e9)};
        LadderElement& element = ladder.front();
        element.node = name();
        auto* arm = std::get_if<Arm>(&element.is);
        if (arm) arm->atSupply = arm->place == Place::Shunt && draw.coin();
        for (Part* part : PartsOf(ladder)) {
            part->name = name();
            part->tolerance = draw.coin() ? 0 : draw.between(0.5, 90);
        }
        const std::string text = ElementText(element);
        const auto read = ParseElement(text, load);
        ASSERT_TRUE(read.ok()) << text << "\n" << read.message();
        ASSERT_EQ(*read, element) << text << "\n" << ElementText(*read);
    }
}

TEST(NetworkTexts, AreRoundedWhereAsked) {
    EXPECT_EQ(ElementText({Arm{Place::Series, Part::L(38.984839e-9)}}, 5), "series: L=38.985n");
    EXPECT_EQ(
        ImpedanceText(Impedance::InSeries({Part::L(2.3), Impedance::InParallel({1, Cx(0, -2)})})),
        "L=2.3 + (1 | -j2)");
}

}  // namespace
}  // namespace kelvro
