#include "io/design_report.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "analysis/achieved.h"
#include "core/number_text.h"
#include "core/series.h"
#include "design/pages.h"
#include "design/part_ref.h"

namespace kelvro {

namespace {

std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return "";
    return std::string(text.substr(first, text.find_last_not_of(' ') + 1 - first));
}

/// The nearest standard value, where there can be one.
std::string SeriesText(Series series, double value) {
    return value > 0 && std::isfinite(value) ? Trimmed(SeriesNearest(series, value)) : "";
}

ShownComponent Shown(const PartRef& part, const DesignRun& run) {
    const OutputField& field = *part.field;
    const bool dual = run.page().showsDuals(run.state);
    ShownComponent shown;
    shown.name = field.name;
    shown.shownName = dual ? DualName(field.name) : shown.name;
    shown.label = dual ? DualLabel(field.label) : std::string(field.label);
    shown.value = part.built(run.state);
    shown.unit = dual ? DualUnit(field.unit) : field.unit;
    const std::string* text = run.cycle.text(field.object);
    shown.text = Trimmed(text ? *text : field.format.text(shown.value));
    if (field.hasStandardValues()) shown.series = SeriesText(run.series, shown.value);
    return shown;
}

ShownComponent Shown(const TableRow& row, Series series) {
    ShownComponent shown;
    shown.name = shown.shownName = row.element;
    shown.value = row.value;
    shown.unit = row.unit;
    shown.text = Trimmed(row.text);
    shown.series = SeriesText(series, row.value);
    return shown;
}

OutputField SharedOutput(std::string_view object, std::string_view name, std::string_view label,
                         std::string_view unit, TextFormat format) {
    OutputField field{object, name, label, unit};
    field.format = format;
    return field;
}

const OutputField kSharedOutputs[] = {
    SharedOutput("BAusgabe", "B", "Bandwidth", "Hz", kEngineering),
    SharedOutput("ueAusgabe", "v", "v=V2/V1, at fo", "", Fixed(9, 3)),
    SharedOutput("dBAusgabe", "v_db", "20·log(v)", "dB", Fixed(7, 2)),
    SharedOutput("dAusgabe", "loss_db", "Loss, compared to optimum match", "dB", Fixed(7, 3)),
    SharedOutput("QBgesAusgabe", "Q_total", "Q, total effective element Q-factor", "", Fixed(7, 2)),
};

Json JsonComponents(const DesignRun& run) {
    Json components = Json::array();
    for (const ShownComponent& component : ShownComponents(run)) {
        components.push_back({{"name", component.name},
                              {"label", component.label},
                              {"value", JsonNumber(component.value)},
                              {"unit", component.unit},
                              {"text", component.text},
                              {"series", component.series}});
    }
    return components;
}

/// The shared outputs; null where they do not apply to the page.
Json JsonOutputs(const DesignRun& run) {
    const SharedOutputs shared = run.page().shared;
    const CycleResult& cycle = run.cycle;
    const auto number = [&](double value) {
        return shared == SharedOutputs::All ? JsonNumber(value) : Json(nullptr);
    };
    return {
        {"B", shared == SharedOutputs::None ? Json(nullptr) : JsonBandwidth(cycle.bandwidth)},
        {"v", number(cycle.v)},
        {"v_db", number(cycle.vDb)},
        {"loss_db", number(cycle.lossDb)},
        {"Q_total", number(cycle.QBges)},
    };
}

/// Amplitudes of the load current of a switched stage, in A.
Json JsonHarmonics(const CycleResult& cycle) {
    Json harmonics = Json::array();
    if (!cycle.operation) return harmonics;
    for (int n = 1; n <= kClassEHarmonics; ++n) {
        const double amplitude = cycle.operation->harmonics[static_cast<std::size_t>(n - 1)];
        harmonics.push_back({{"n", n},
                             {"frequency", JsonNumber(n * cycle.design.fo)},
                             {"amplitude", JsonNumber(amplitude)},
                             {"dbc", JsonNumber(cycle.operation->harmonicDb(n))}});
    }
    return harmonics;
}

/// The texts of the window's output fields as the calculation leaves them.
Json JsonTexts(const DesignRun& run) {
    Json texts = Json::object();
    const auto put = [&](std::string_view object, std::string_view initial) {
        const std::string* text = run.cycle.text(object);
        texts[std::string(object)] = text ? *text : std::string(initial);
    };
    for (const OutputField& field : SharedOutputFields()) put(field.object, "");
    for (const OutputField& field : run.page().outputs) put(field.object, field.initial);
    return texts;
}

Json JsonGoal(const DesignRun& run) {
    if (!run.goal) return nullptr;
    return {{"start", JsonNumber(run.goal->start)},
            {"final", JsonNumber(run.goal->final)},
            {"iterations", run.goal->iterations},
            {"calls", run.goal->calls}};
}

std::string InputText(const InputField& field, const Design& state) {
    const double value = field.read(state);
    // Decibels take no prefix.
    const bool fixed = field.format.kind == TextFormat::Kind::Fixed || field.unit == "dB";
    if (!fixed) return WithUnit(value, field.unit);
    std::string text = FormatFixed(0, field.format.decimals, value);
    return field.unit.empty() ? text : text + ' ' + std::string(field.unit);
}

void AddTextRow(TextRows& rows, const CycleResult& cycle, const OutputField& field) {
    const std::string* text = cycle.text(field.object);
    if (!text || text->find_first_not_of(" -") == std::string::npos) return;
    std::string label(field.label);
    std::string unit(field.unit);
    const auto caption = std::ranges::find(cycle.captions, field.object, &FieldCaption::object);
    if (caption != cycle.captions.end()) {
        label = caption->caption;
        unit = caption->unit;
    }
    std::string value = Trimmed(*text);
    const bool engineering = field.format.kind == TextFormat::Kind::Engineering;
    if (engineering) value = WithUnit(value, unit);
    if (!engineering && !unit.empty()) value += ' ' + unit;
    rows.push_back({std::string(field.name), value, label});
}

}  // namespace

const Page& DesignRun::page() const {
    return PageOf(state);
}

std::vector<ShownComponent> ShownComponents(const DesignRun& run) {
    std::vector<ShownComponent> components;
    if (run.refused()) return components;
    for (const PartRef& part : PartsOf(run.state)) {
        if (part.field) components.push_back(Shown(part, run));
    }
    if (run.cycle.table) {
        for (const TableRow& row : *run.cycle.table) {
            components.push_back(Shown(row, run.series));
        }
    }
    return components;
}

Json JsonInputs(const Design& state) {
    Json inputs = {{"R1", JsonNumber(state.R1)}, {"R2", JsonNumber(state.R2)},
                   {"fo", JsonNumber(state.fo)}, {"Q", JsonNumber(state.Q)},
                   {"QB", JsonNumber(state.QB)}, {"QBC", JsonNumber(state.QBC)},
                   {"k", JsonNumber(state.k)},   {"er", JsonNumber(state.er)}};
    for (const InputField& field : PageOf(state).inputs) {
        if (!field.option.empty() && field.hasEffect(state))
            inputs[std::string(field.option)] = JsonNumber(field.read(state));
    }
    return inputs;
}

std::span<const OutputField> SharedOutputFields() {
    return kSharedOutputs;
}

Json JsonAchieved(const CycleResult& cycle) {
    const auto achieved = AchievedBy(cycle);
    if (!achieved) return nullptr;
    Json json = {
        {"loss_db", JsonNumber(achieved->lossDb)},
        {"low", JsonNumber(achieved->band.low)},
        {"high", JsonNumber(achieved->band.high)},
        {"width", JsonNumber(achieved->band.width())},
        {"loaded_q", achieved->loadedQ > 0 ? JsonNumber(achieved->loadedQ) : Json(nullptr)},
        {"other_than_b", achieved->otherThanBandwidth}};
    if (const auto& dip = achieved->dip) {
        json["dip"] = {{"f", JsonNumber(dip->f)}, {"depth_db", JsonNumber(dip->depthDb)}};
    }
    if (const auto& worst = achieved->worst) {
        json["worst_gt"] = {{"from", JsonNumber(worst->band.low)},
                            {"to", JsonNumber(worst->band.high)},
                            {"db", JsonNumber(worst->GTDb)}};
    }
    return json;
}

Json JsonDesign(const DesignRun& run) {
    return {{"page", run.page().number},
            {"caption", run.page().caption},
            {"inputs", JsonInputs(run.state)},
            {"message", run.cycle.message ? Json(*run.cycle.message) : Json(nullptr)},
            {"components", JsonComponents(run)},
            {"outputs", JsonOutputs(run)},
            {"texts", JsonTexts(run)},
            {"harmonics", JsonHarmonics(run.cycle)},
            {"goal", JsonGoal(run)},
            {"achieved", JsonAchieved(run.cycle)}};
}

std::string WithUnit(std::string text, std::string_view unit) {
    text.erase(0, text.find_first_not_of(' '));
    if (text.empty() || text == "infinite") return text;
    if (std::isalpha(static_cast<unsigned char>(text.back())) != 0) {
        const bool micro = text.back() == 'u';
        text.insert(text.size() - 1, " ");
        if (micro) text.replace(text.size() - 1, 1, "µ");
    } else {
        text.pop_back();
        if (!unit.empty()) text += ' ';
    }
    return text + std::string(unit);
}

std::string WithUnit(double value, std::string_view unit) {
    return WithUnit(kEngineering.text(value), unit);
}

std::string Heading(const Design& state, std::string_view caption) {
    const Page& page = PageOf(state);
    std::string heading = std::to_string(page.number) + " ";
    heading += caption.empty() ? std::string_view(page.caption) : caption;
    const char* separator = ": ";
    for (const auto& row : InputRows(state)) {
        heading += separator + row[0] + ' ' + row[1];
        separator = ", ";
    }
    return heading;
}

TextRows InputRows(const Design& state) {
    const Page& page = PageOf(state);
    TextRows rows;
    if (page.shared == SharedOutputs::All) {
        rows.push_back({"R1", WithUnit(state.R1, "Ω"), "Resistance R1, of the source"});
        rows.push_back({"R2", WithUnit(state.R2, "Ω"), "Resistance R2, of the load"});
    }
    if (page.networks && page.atFrequency) {
        rows.push_back({"fo", WithUnit(state.fo, "Hz"), "Frequency fo"});
    }
    if (page.qPanel) {
        rows.push_back({"Q", FormatFixed(0, 2, state.Q), "Q-Factor, loaded"});
        rows.push_back({"Q(L)", FormatFixed(0, 2, state.QB), "Element Q L, of the inductors"});
        rows.push_back({"Q(C)", FormatFixed(0, 2, state.QBC), "Element Q C, of the capacitors"});
    }
    for (const InputField& field : page.inputs) {
        if (!field.hasEffect(state)) continue;
        rows.push_back({std::string(field.option.empty() ? "Q" : field.option),
                        InputText(field, state), std::string(field.label)});
    }
    return rows;
}

TextRows OutputRows(const CycleResult& cycle, const Page& page) {
    TextRows rows;
    for (const OutputField& field : page.outputs) {
        if (field.slot == Slot::None) AddTextRow(rows, cycle, field);
    }
    for (const OutputField& field : kSharedOutputs) AddTextRow(rows, cycle, field);
    return rows;
}

TextRows HarmonicRows(const CycleResult& cycle) {
    TextRows rows;
    if (!cycle.operation) return rows;
    rows.push_back({"n", "Frequency", "Load current", "Relative"});
    for (int n = 1; n <= kClassEHarmonics; ++n) {
        const double amplitude = cycle.operation->harmonics[static_cast<std::size_t>(n - 1)];
        rows.push_back({std::to_string(n), WithUnit(n * cycle.design.fo, "Hz"),
                        WithUnit(amplitude, "A"),
                        FormatFixed(0, 1, cycle.operation->harmonicDb(n)) + " dB"});
    }
    return rows;
}

}  // namespace kelvro
