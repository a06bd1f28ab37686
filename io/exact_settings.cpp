#include "io/exact_settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <span>
#include <sstream>
#include <string>
#include <variant>

#include "core/number_text.h"
#include "core/scalar.h"
#include "design/pages.h"

namespace kelvro {

namespace {

constexpr const char* kSection = "Design";
constexpr const char* kVersion = "Version";
constexpr const char* kByDrop = "Q by d";
constexpr const char* kSwapped = "L <--> C";
constexpr const char* kRatio = "v";
constexpr const char* kSeries = "Series";
constexpr const char* kStandardValues = "Standard values for export";
constexpr const char* kSweep = "Sweep factor";
constexpr const char* kComponents = "Components";
constexpr std::array<const char*, static_cast<std::size_t>(PlotWindow::Count)> kPlots = {
    "Gain plot", "Phase plot"};

struct ToleranceKey {
    const char* name;
    double Tolerances::*percent;
};

constexpr std::array kTolerances = {
    ToleranceKey{"Tolerance C", &Tolerances::capacitance},
    ToleranceKey{"Tolerance L", &Tolerances::inductance},
    ToleranceKey{"Tolerance ZL", &Tolerances::lineImpedance},
    ToleranceKey{"Tolerance R", &Tolerances::resistance},
};

/// Names of the slots in files, whatever their order in memory.
constexpr std::array<const char*, static_cast<std::size_t>(Slot::Count)> kSlots = {
    "C1",         "C2",         "L",          "L2",         "X5",         "X6",
    "X7",         "X8",         "ZL",         "NL",         "Length",     "M",
    "Coupling1",  "Coupling2",  "Coupling3",  "Coupling4",  "Coupling5",  "Coupling6",
    "Coupling7",  "Coupling8",  "Coupling9",  "Resonator1", "Resonator2", "Resonator3",
    "Resonator4", "Resonator5", "Resonator6", "Resonator7", "Resonator8"};

constexpr std::array kForms = {"calculated", "standard", "typed"};

// ---------------------------------------------------------------- texts

/// A whole text as a number, "inf" included; nothing for any other text.
std::optional<double> ExactNumber(const std::string& text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool read = error == std::errc() && end == text.data() + text.size();
    if (!read || std::isnan(number)) return std::nullopt;
    return number;
}

template <typename Names>
std::optional<std::size_t> IndexOf(const Names& names, const std::string& name) {
    for (std::size_t i = 0; i < names.size(); ++i)
        if (name == names[i]) return i;
    return std::nullopt;
}

std::string YesOrNo(bool on) {
    return on ? "Yes" : "No";
}

std::string ShownKey(int page) {
    return "Shown on page " + std::to_string(page);
}

std::string ComponentsText(const Slots& components) {
    std::string text;
    for (std::size_t i = 0; i < kSlots.size(); ++i) {
        if (i > 0) text += ' ';
        text += kSlots[i] + std::string("=") + FormatShortest(components[static_cast<Slot>(i)]);
    }
    return text;
}

/// "L calculated 1e-07 0; C1 standard 4.7e-10 2": slot, form, value, series.
std::string ShownText(const ShownParts& shown, const Page& page) {
    std::string text;
    for (std::size_t i = 0; i < kSlots.size(); ++i) {
        const auto slot = static_cast<Slot>(i);
        const ShownPart* part = shown.find({page.number, slot});
        if (!part) continue;
        if (!text.empty()) text += "; ";
        text += kSlots[i] + std::string(" ") + kForms[static_cast<std::size_t>(part->form)] + ' ' +
                FormatShortest(part->value) + ' ' + std::to_string(static_cast<int>(part->series));
    }
    return text;
}

std::optional<ShownPart> ShownPartOf(const std::string& text, int page) {
    std::istringstream words(text);
    std::string slotName;
    std::string formName;
    std::string value;
    int series = -1;
    words >> slotName >> formName >> value >> series;
    const auto slot = IndexOf(kSlots, slotName);
    const auto form = IndexOf(kForms, formName);
    const auto number = ExactNumber(value);
    const bool known =
        slot && form && number && series >= 0 && series <= static_cast<int>(Series::E96);
    if (!known) return std::nullopt;
    return ShownPart{{page, static_cast<Slot>(*slot)},
                     *number,
                     static_cast<ShownPart::Form>(*form),
                     static_cast<Series>(series)};
}

// ---------------------------------------------------------------- reading

/// The values of one section.
class Section {
  public:
    explicit Section(const ProfileText& profile) : profile_(profile) {}

    std::optional<std::string> text(std::string_view key) const {
        return profile_.value(kSection, std::string(key).c_str());
    }
    void read(std::string_view key, bool& flag) const {
        const auto found = text(key);
        if (found == "Yes") flag = true;
        if (found == "No") flag = false;
    }
    std::optional<double> number(std::string_view key) const {
        const auto found = text(key);
        return found ? ExactNumber(*found) : std::nullopt;
    }
    void read(std::string_view key, Limits limits, double& value) const {
        if (const auto found = number(key)) value = Clamp(*found, limits.low, limits.high);
    }

  private:
    const ProfileText& profile_;
};

void ReadComponents(const Section& section, Slots& components) {
    std::istringstream words(section.text(kComponents).value_or(std::string()));
    for (std::string word; words >> word;) {
        const auto equals = word.find('=');
        if (equals == std::string::npos) continue;
        const auto slot = IndexOf(kSlots, word.substr(0, equals));
        const auto value = ExactNumber(word.substr(equals + 1));
        if (slot && value) components[static_cast<Slot>(*slot)] = *value;
    }
}

void ReadShown(const Section& section, const Page& page, ShownParts& shown) {
    const auto text = section.text(ShownKey(page.number));
    if (!text) return;
    shown.clear(page.number);
    std::istringstream parts(*text);
    for (std::string part; std::getline(parts, part, ';');)
        if (const auto read = ShownPartOf(part, page.number)) shown.set(*read);
}

/// Does it stand in the rounded texts too? They are compared with what was stored, and computed
/// values reach further than typed ones.
bool IsRoundedToo(const InputField& field) {
    return std::holds_alternative<double Design::*>(field.value) &&
           !SettingsKey(field.settings).name.empty();
}

void ReadPreferences(const Section& section, Settings& settings) {
    constexpr Limits series{1, 5};
    double chosen = static_cast<double>(settings.preferences.ESeries);
    section.read(kSeries, series, chosen);
    settings.preferences.ESeries = static_cast<Series>(static_cast<int>(chosen));
    if (const auto factor = section.number(kSweep)) settings.preferences.SweepFactor = *factor;
    section.read(kStandardValues, settings.standardValues);
    for (std::size_t i = 0; i < kPlots.size(); ++i)
        if (const auto text = section.text(kPlots[i])) settings.plots[i] = ParsePlotChoices(*text);
    for (const ToleranceKey& key : kTolerances)
        section.read(key.name, kToleranceLimits, settings.tolerances.*key.percent);
}

}  // namespace

int VersionOf(const ProfileText& profile) {
    const auto version = Section(profile).number(kVersion);
    return version && *version > 1 ? static_cast<int>(std::min(*version, 1e9)) : 1;
}

void WriteExact(const Settings& settings, ProfileText& profile) {
    const Design& design = settings.design;
    const auto set = [&](std::string_view key, const std::string& text) {
        profile.set(kSection, std::string(key).c_str(), text);
    };
    const auto setInputs = [&](std::span<const InputField> inputs) {
        for (const InputField& field : inputs)
            set(field.object, FormatShortest(field.stored(design)));
    };
    set(kVersion, std::to_string(kSettingsVersion));
    set(kByDrop, YesOrNo(design.QByBandwidth));
    set(kSwapped, YesOrNo(design.LCSwapped));
    setInputs(SharedInputs());
    for (const Page& page : Pages()) {
        setInputs(page.inputs);
        for (const SwitchField& box : page.switches) {
            set(box.object, YesOrNo(design.*box.flag));
            if (box.weight) set(box.weightObject, std::to_string(design.*box.weight));
        }
        set(ShownKey(page.number), ShownText(design.shown, page));
    }
    set(kComponents, ComponentsText(design.components));
    set(kRatio, FormatShortest(settings.v));
    set(kSeries, std::to_string(static_cast<int>(settings.preferences.ESeries)));
    set(kSweep, FormatShortest(settings.preferences.SweepFactor));
    set(kStandardValues, YesOrNo(settings.standardValues));
    for (std::size_t i = 0; i < kPlots.size(); ++i)
        set(kPlots[i], PlotChoicesText(settings.plots[i]));
    for (const ToleranceKey& key : kTolerances)
        set(key.name, FormatShortest(settings.tolerances.*key.percent));
}

bool ReadExact(const ProfileText& profile, Settings& settings) {
    if (!profile.hasSection(kSection)) return false;
    const Section section(profile);
    Design& design = settings.design;
    const auto readInputs = [&](std::span<const InputField> inputs) {
        for (const InputField& field : inputs) {
            const auto value = section.number(field.object);
            if (!value) continue;
            if (IsRoundedToo(field)) {
                field.store(design, *value);
            } else {
                field.write(design, *value);
            }
        }
    };
    section.read(kByDrop, design.QByBandwidth);
    section.read(kSwapped, design.LCSwapped);
    readInputs(SharedInputs());
    for (const Page& page : Pages()) {
        readInputs(page.inputs);
        for (const SwitchField& box : page.switches) {
            section.read(box.object, design.*box.flag);
            if (!box.weight) continue;
            double weight = design.*box.weight;
            section.read(box.weightObject, {0, 100}, weight);
            design.*box.weight = static_cast<int>(weight);
        }
        ReadShown(section, page, design.shown);
    }
    ReadComponents(section, design.components);
    if (const auto ratio = section.number(kRatio)) settings.v = *ratio;
    ReadPreferences(section, settings);
    return true;
}

}  // namespace kelvro
