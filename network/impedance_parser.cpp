// Impedances: groups, constants, parts with their losses, measured data.

#include <algorithm>
#include <array>
#include <cctype>
#include <memory>
#include <utility>

#include "network/interpolation.h"
#include "network/network_parser.h"

namespace kelvro {

namespace {

using At = SettingRule::At;
using Kind = SettingRule::Kind;

constexpr std::array<SettingRule, 6> kLossRules{{
    {"Q", TextUnit::None, At::Optional},
    {"law", TextUnit::None, At::Never, Kind::Word},
    {"ESR", TextUnit::Ohm},
    {"SRF", TextUnit::Hertz},
    {"tol", TextUnit::Percent},
    {"name", TextUnit::None, At::Never, Kind::Word},
}};

std::string KeysOf(std::span<const SettingRule> rules) {
    std::string keys;
    for (const SettingRule& rule : rules) {
        keys += (keys.empty() ? "" : ", ") + std::string(rule.key) + '=';
    }
    return keys;
}

struct LawName {
    std::string_view name;
    PartLoss::Law law;
};

constexpr std::array<LawName, 5> kLawNames{{{"constant", PartLoss::Law::ConstantQ},
                                            {"f", PartLoss::Law::ProportionalQ},
                                            {"root", PartLoss::Law::RootQ},
                                            {"page", PartLoss::Law::Page},
                                            {"mirrored", PartLoss::Law::PageMirrored}}};

bool IsFileCharacter(char c) {
    constexpr std::string_view others = "._/\\~%#-";
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) != 0 || byte >= 0x80 || others.find(c) != std::string_view::npos;
}

bool HasFileEnding(std::string_view name) {
    std::string lower(name);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c;
    });
    return lower.ends_with(".s1p") || lower.ends_with(".s2p") || lower.ends_with(".ts");
}

/// The file name without quotes that starts a text; empty where something else stands there.
std::string_view FileNameAt(std::string_view text) {
    auto length =
        static_cast<std::size_t>(std::ranges::find_if_not(text, IsFileCharacter) - text.begin());
    if (text.substr(length).starts_with('>') && length > 0) --length;  // the arrow to a node
    const std::string_view name = text.substr(0, length);
    return HasFileEnding(name) ? name : std::string_view();
}

std::optional<PartKind> KindOf(char letter) {
    switch (letter) {
        case 'R':
        case 'r':
            return PartKind::Resistor;
        case 'L':
        case 'l':
            return PartKind::Inductor;
        case 'C':
        case 'c':
            return PartKind::Capacitor;
        default:
            return std::nullopt;
    }
}

TextUnit TextUnitOf(PartKind kind) {
    switch (kind) {
        case PartKind::Resistor:
            break;
        case PartKind::Inductor:
            return TextUnit::Henry;
        case PartKind::Capacitor:
            return TextUnit::Farad;
    }
    return TextUnit::Ohm;
}

}  // namespace

const Setting* FindSetting(const std::vector<Setting>& settings, std::string_view key) {
    const auto found = std::ranges::find(settings, key, &Setting::key);
    return found == settings.end() ? nullptr : &*found;
}

Impedance NetworkParser::series() {
    std::vector<Impedance> members;
    do {
        members.push_back(parallel());
    } while (!reader_.failed() && reader_.take("+"));
    if (members.size() == 1) return std::move(members.front());
    return Impedance::InSeries(std::move(members));
}

Impedance NetworkParser::parallel() {
    std::vector<Impedance> members;
    do {
        members.push_back(atom());
    } while (!reader_.failed() && (reader_.take("||") || reader_.take("|")));
    if (members.size() == 1) return std::move(members.front());
    return Impedance::InParallel(std::move(members));
}

Impedance NetworkParser::grouped() {
    if (!enter()) return {};
    Impedance inner = series();
    leave();
    if (!reader_.failed() && !reader_.sees(")")) reader_.expected("'+', '|' or ')'");
    reader_.take(")");
    return inner;
}

Impedance NetworkParser::atom() {
    if (reader_.take("(")) return grouped();
    reader_.skipBlanks();
    const std::size_t place = reader_.place();
    if (auto file = fileName()) return measured(*file, place);
    if (auto part = named()) return *std::move(part);
    return constant();
}

std::optional<std::string> NetworkParser::fileName() {
    if (auto name = reader_.quoted()) return name;
    const std::string_view name = FileNameAt(reader_.rest());
    if (name.empty()) return std::nullopt;
    reader_.moveTo(reader_.place() + name.size());
    return std::string(name);
}

/// "L=…", "C12=…": a part, and its name where the key is more than a letter.
std::optional<Impedance> NetworkParser::named() {
    const std::size_t place = reader_.place();
    const std::string_view key = reader_.word();
    if (key.empty()) return std::nullopt;
    if (!reader_.take("=")) {
        reader_.moveTo(place);
        const bool imaginary = key[0] == 'j' || key[0] == 'J' || key.starts_with("inf");
        if (!imaginary)
            reader_.fail(place, '\'' + std::string(key) +
                                    "' is no impedance: expected a number, R=, L=, C= "
                                    "or a file (.s1p, .s2p, or in quotes)");
        return imaginary ? std::nullopt : std::optional<Impedance>(Impedance());
    }
    const auto kind = KindOf(key[0]);
    if (!kind) {
        reader_.fail(place, "'" + std::string(key) + "=' is no part: expected R=, L= or C=");
        return Impedance();
    }
    return part(*kind, key.size() > 1 ? std::string(key) : std::string());
}

Part NetworkParser::part(PartKind kind, std::string name) {
    Part part;
    part.kind = kind;
    part.name = std::move(name);
    part.value = reader_.number(TextUnitOf(kind));
    readLosses(part);
    return part;
}

void NetworkParser::readLosses(Part& part) {
    reader_.skipBlanks();
    const std::size_t place = reader_.place();
    if (reader_.failed() || !reader_.take("(")) return;
    const auto list = settings(kLossRules);
    reader_.need(")");
    if (const Setting* name = FindSetting(list, "name")) part.name = name->word;
    part.tolerance = toleranceOf(list);
    part.loss = lossOf(list);
    require(part.kind != PartKind::Resistor || part.loss == PartLoss(), place,
            "a resistor has no Q, ESR or SRF");
}

/// A Q that holds at a frequency follows the skin effect unless a law is given; without a frequency
/// it is constant.
PartLoss NetworkParser::lossOf(const std::vector<Setting>& settings) {
    PartLoss loss;
    if (FindSetting(settings, "ESR")) loss.ESR = FindSetting(settings, "ESR")->value;
    if (FindSetting(settings, "SRF")) loss.SRF = positive(settings, "SRF");
    const Setting* law = FindSetting(settings, "law");
    const Setting* Q = FindSetting(settings, "Q");
    if (!Q) {
        if (law) reader_.fail(law->place, "law= needs Q=");
        return loss;
    }
    loss.Q = positive(settings, "Q");
    loss.f = Q->at.value_or(0);
    loss.law = Q->at ? PartLoss::Law::RootQ : PartLoss::Law::ConstantQ;
    if (!law) return loss;
    const auto found = std::ranges::find(kLawNames, law->word, &LawName::name);
    if (found == kLawNames.end()) {
        reader_.fail(law->place, "expected law=constant, f, root, page or mirrored");
        return loss;
    }
    loss.law = found->law;
    const bool atFrequency =
        loss.law == PartLoss::Law::ProportionalQ || loss.law == PartLoss::Law::RootQ;
    require(Q->at.has_value() || !atFrequency, law->place,
            "this law needs the frequency of Q: Q=40@100M");
    return loss;
}

std::vector<Setting> NetworkParser::settings(std::span<const SettingRule> rules) {
    std::vector<Setting> list;
    do {
        Setting next = setting(rules);
        if (reader_.failed()) break;
        require(!FindSetting(list, next.key), next.place,
                std::string(next.key) + "= stands here twice");
        list.push_back(std::move(next));
    } while (!reader_.failed() && reader_.take(","));
    constexpr std::string_view ends[] = {")", ";", "}", "->"};
    const bool ended = reader_.atEnd() || std::ranges::any_of(ends, [this](std::string_view end) {
                           return reader_.sees(end);
                       });
    if (!ended) reader_.expected("',' or the end");
    return list;
}

Setting NetworkParser::setting(std::span<const SettingRule> rules) {
    reader_.skipBlanks();
    Setting setting;
    setting.place = reader_.place();
    const std::string_view key = reader_.word();
    const auto rule = std::ranges::find(rules, key, &SettingRule::key);
    if (rule == rules.end()) {
        reader_.moveTo(setting.place);
        reader_.expected("one of " + KeysOf(rules));
        return setting;
    }
    setting.key = rule->key;
    reader_.need("=");
    switch (rule->kind) {
        case Kind::Word:
            setting.word = wordOrQuoted();
            break;
        case Kind::Part:
            setting.part = part(PartKind::Inductor, {});
            break;
        default:
            setting.value = reader_.number(rule->unit, rule->unit == TextUnit::None);
    }
    const std::size_t place = reader_.place();
    if (rule->at != At::Never && reader_.take("@")) {
        setting.at = reader_.number(TextUnit::Hertz);
        require(*setting.at > 0 && std::isfinite(*setting.at), place,
                "expected a frequency above 0");
    }
    require(setting.at || rule->at != At::Required, place,
            std::string(rule->key) + "= needs its frequency: " + std::string(rule->key) + "=…@1G");
    return setting;
}

std::string NetworkParser::wordOrQuoted() {
    if (auto text = reader_.quoted()) return *std::move(text);
    const std::string_view word = reader_.word();
    if (word.empty()) reader_.expected("a name");
    return std::string(word);
}

NetworkParser::Term NetworkParser::term() {
    Term term;
    term.imaginary = reader_.take("j") || reader_.take("J");
    if (term.imaginary && !reader_.seesNumber()) {
        term.value = 1;
        return term;
    }
    term.value = reader_.number(TextUnit::Ohm);
    if (!term.imaginary) term.imaginary = reader_.take("j") || reader_.take("J");
    return term;
}

/// "12", "j20", "12-j45", "45j + 12": a sign between a real and an imaginary number makes one
/// constant of both, before "|" and "+" join anything.
Impedance NetworkParser::constant() {
    const auto signedTerm = [this] {
        const bool negative = reader_.take("-");
        if (!negative) reader_.take("+");
        Term next = term();
        if (negative) next.value = -next.value;
        return next;
    };
    const auto value = [](Term t) {
        return t.imaginary ? std::complex<double>(0, t.value) : std::complex<double>(t.value, 0);
    };
    const Term first = signedTerm();
    if (reader_.failed() || !(reader_.sees("+") || (reader_.sees("-") && !reader_.sees("->")))) {
        return value(first);
    }
    const std::size_t place = reader_.place();
    const bool difference = reader_.sees("-");
    reader_.moveTo(place + 1);
    const bool number = (reader_.seesNumber() || reader_.sees("j") || reader_.sees("J")) &&
                        FileNameAt(reader_.rest()).empty();
    reader_.moveTo(place);
    if (number) {
        const Term second = signedTerm();
        if (second.imaginary != first.imaginary) return value(first) + value(second);
        reader_.moveTo(place);
    }
    require(!difference, place,
            "only an imaginary and a real number are subtracted: expected '+', '|' or the end");
    return value(first);
}

std::shared_ptr<const PortData> NetworkParser::data(const std::string& file, std::size_t place) {
    if (!load_) {
        reader_.fail(place, "measured data cannot be used here");
        return nullptr;
    }
    auto loaded = load_(file);
    if (!loaded.ok()) reader_.fail(place, loaded.message());
    if (!loaded.ok() || reader_.failed()) return nullptr;
    require(*loaded != nullptr, place, "there are no data of this name");
    return interpolated(*loaded);
}

/// As the word in parentheses behind the file says; as they are without one.
std::shared_ptr<const PortData> NetworkParser::interpolated(std::shared_ptr<const PortData> data) {
    if (!data || !reader_.take("(")) return data;
    reader_.skipBlanks();
    const std::size_t place = reader_.place();
    const auto* const word = std::ranges::find(kInterpolationWords, reader_.word());
    require(word != kInterpolationWords.end(), place, "expected linear, polar or cubic");
    if (reader_.failed() || !reader_.need(")")) return nullptr;
    return Interpolated(data, static_cast<Interpolation>(word - kInterpolationWords.begin()));
}

Impedance NetworkParser::measured(const std::string& file, std::size_t place) {
    Impedance::Measured measured;
    measured.data = data(file, place);
    if (!measured.data) return {};
    const std::size_t portPlace = reader_.place();
    if (reader_.take(":")) {
        const double port = reader_.number(TextUnit::None);
        require(port == 1 || port == 2, portPlace, "expected port 1 or 2");
        require(port <= measured.data->ports, portPlace, "these data have one port");
        if (!reader_.failed()) measured.port = static_cast<int>(port);
    }
    measured.conjugate = reader_.take("*");
    require(!portNeeded_ || measured.port > 0 || measured.data->ports == 1, place,
            "these data have two ports: write " + file + ":1 or " + file + ":2");
    return measured;
}

/// A part that is off by all of its value is none.
double NetworkParser::toleranceOf(const std::vector<Setting>& settings) {
    const Setting* tolerance = FindSetting(settings, "tol");
    if (!tolerance) return 0;
    require(tolerance->value > 0 && tolerance->value < 100, tolerance->place,
            "tol= is in percent, above 0 and below 100");
    return tolerance->value;
}

double NetworkParser::positive(const std::vector<Setting>& settings, std::string_view key) {
    const Setting& setting = *FindSetting(settings, key);
    require(setting.value > 0 && std::isfinite(setting.value), setting.place,
            std::string(key) + "= has to be above 0");
    return setting.value;
}

}  // namespace kelvro
