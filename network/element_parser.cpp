// Elements of a ladder: arms, lines, transformers, coils, two-ports, branches.

#include <array>
#include <cmath>
#include <utility>

#include "network/network_parser.h"

namespace kelvro {

namespace {

using At = SettingRule::At;
using Kind = SettingRule::Kind;

constexpr std::array<SettingRule, 8> kLineRules{{
    {"Z", TextUnit::Ohm},
    {"deg", TextUnit::None, At::Required},
    {"len", TextUnit::Metre},
    {"er", TextUnit::None},
    {"att", TextUnit::None, At::Required},
    {"tan", TextUnit::None},
    {"tol", TextUnit::Percent},
    {"name", TextUnit::None, At::Never, Kind::Word},
}};

constexpr std::array<SettingRule, 3> kCoilRules{{
    {"L1", TextUnit::Henry, At::Never, Kind::Part},
    {"L2", TextUnit::Henry, At::Never, Kind::Part},
    {"k", TextUnit::None},
}};

constexpr std::array<SettingRule, 1> kTransformerRules{{{"n", TextUnit::None}}};

}  // namespace

LadderElement NetworkParser::element() {
    reader_.skipBlanks();
    const std::size_t place = reader_.place();
    const std::string kind(reader_.word());
    if (kind.empty() || !reader_.take(":")) {
        reader_.moveTo(place);
        reader_.fail(
            place,
            "expected series:, shunt:, line:, open:, short:, transformer:, coupled:, part: "
            "or another kind of element");
        return {};
    }
    LadderElement element = elementOfKind(kind, place);
    if (!reader_.failed() && reader_.take("->")) element.node = wordOrQuoted();
    return element;
}

LadderElement NetworkParser::elementOfKind(std::string_view kind, std::size_t place) {
    if (kind == "series") return {arm(Place::Series, false)};
    if (kind == "shunt") return {arm(Place::Shunt, false)};
    if (kind == "supply") return {arm(Place::Shunt, true)};
    if (kind == "line") return {line(Line::Form::Through)};
    if (kind == "open") return {line(Line::Form::OpenStub)};
    if (kind == "short") return {line(Line::Form::ShortedStub)};
    if (kind == "transformer") return {transformer()};
    if (kind == "coupled") return {coils()};
    if (kind == "part") return {twoPort()};
    if (kind == "switch") return {switchToGround()};
    if (kind == "branch") return {branch()};
    reader_.fail(place, "'" + std::string(kind) +
                            ":' is no kind of element: expected series:, shunt:, line:, open:, "
                            "short:, transformer:, coupled: or part:");
    return {};
}

Arm NetworkParser::arm(Place where, bool atSupply) {
    // Here a two-port file stands for its port 1, port 2 grounded.
    const bool portNeeded = std::exchange(portNeeded_, false);
    Arm arm{where, series(), atSupply};
    portNeeded_ = portNeeded;
    return arm;
}

Line NetworkParser::line(Line::Form form) {
    reader_.skipBlanks();
    const std::size_t place = reader_.place();
    const auto list = settings(kLineRules);
    Line line;
    line.form = form;
    if (reader_.failed()) return line;
    require(FindSetting(list, "Z") != nullptr, place, "a line needs Z=");
    if (reader_.failed()) return line;
    line.Z0 = positive(list, "Z");
    line.length = lineLength(list, place);
    if (const Setting* loss = FindSetting(list, "att")) {
        line.attenuation = lineLoss(*loss);
        line.attenuationAtHertz = *loss->at;
    }
    if (const Setting* tangent = FindSetting(list, "tan")) line.tangent = lineLoss(*tangent);
    line.tolerance = toleranceOf(list);
    if (const Setting* name = FindSetting(list, "name")) line.name = name->word;
    return line;
}

double NetworkParser::lineLoss(const Setting& loss) {
    require(loss.value >= 0 && std::isfinite(loss.value), loss.place,
            std::string(loss.key) + "= is a number from 0 up");
    return loss.value;
}

LineLength NetworkParser::lineLength(const std::vector<Setting>& settings, std::size_t place) {
    LineLength length;
    const Setting* degrees = FindSetting(settings, "deg");
    const Setting* metres = FindSetting(settings, "len");
    require((degrees != nullptr) != (metres != nullptr), place,
            "the length of a line is deg=90@1G or len=31m");
    if (reader_.failed()) return length;
    const Setting* given = degrees ? degrees : metres;
    require(given->value >= 0 && std::isfinite(given->value), given->place,
            "a length cannot be negative");
    if (degrees) {
        length.degrees = degrees->value;
        length.atHertz = *degrees->at;
    } else {
        length.metres = metres->value;
    }
    if (FindSetting(settings, "er")) length.er = positive(settings, "er");
    return length;
}

Transformer NetworkParser::transformer() {
    const auto list = settings(kTransformerRules);
    if (reader_.failed()) return {};
    require(list[0].value != 0 && std::isfinite(list[0].value), list[0].place,
            "n= has to be other than 0");
    return {list[0].value};
}

CoupledCoils NetworkParser::coils() {
    reader_.skipBlanks();
    const std::size_t place = reader_.place();
    const auto list = settings(kCoilRules);
    const Setting* first = FindSetting(list, "L1");
    const Setting* second = FindSetting(list, "L2");
    const Setting* k = FindSetting(list, "k");
    require(first && second && k, place, "coupled coils need L1=, L2= and k=");
    if (reader_.failed()) return {};
    for (const Setting* coil : {first, second}) {
        require(coil->part.value > 0, coil->place, "coupled coils have to be above 0 H");
    }
    require(k->value != 0 && std::abs(k->value) <= 1, k->place, "k= has to be above 0 and up to 1");
    return {first->part, second->part, k->value};
}

MeasuredTwoPort NetworkParser::twoPort() {
    reader_.skipBlanks();
    const std::size_t place = reader_.place();
    const auto file = fileName();
    if (!file) {
        reader_.expected("a file (.s2p, or in quotes)");
        return {};
    }
    MeasuredTwoPort two{data(*file, place)};
    if (two.data)
        require(two.data->ports == 2, place, "these data have one port, a part needs two");
    return two;
}

Switch NetworkParser::switchToGround() {
    return {wordOrQuoted()};
}

Branch NetworkParser::branch() {
    Branch branch;
    if (!reader_.need("{") || !enter()) return branch;
    while (!reader_.failed()) {
        reader_.skipBlanks();
        const std::size_t place = reader_.place();
        if (reader_.word() == "load") break;
        reader_.moveTo(place);
        branch.ladder.push_back(element());
        if (!reader_.failed()) reader_.need(";");
    }
    leave();
    if (reader_.failed() || !reader_.need(":")) return branch;
    branch.load = series();
    reader_.need("}");
    return branch;
}

Result<Impedance> ParseImpedance(std::string_view text, const DataLoader& load) {
    return NetworkParser(text, load, false).whole<Impedance>(&NetworkParser::series);
}

Result<Termination> ParseTermination(std::string_view text, const DataLoader& load) {
    return NetworkParser(text, load, true).whole<Impedance>(&NetworkParser::series);
}

Result<LadderElement> ParseElement(std::string_view text, const DataLoader& load) {
    return NetworkParser(text, load, true).whole<LadderElement>(&NetworkParser::element);
}

}  // namespace kelvro
