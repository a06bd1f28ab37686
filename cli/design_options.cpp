#include "cli/design_options.h"

#include <CLI/Option.hpp>
#include <algorithm>
#include <optional>

#include "core/number_text.h"
#include "design/cycle.h"
#include "design/pages.h"
#include "io/settings_reader.h"

namespace kelvro {

namespace {

std::string PageProblem(const std::string& text) {
    return FindPage(text) ? "" : "'" + text + "' is no page; see kelvro-cli pages";
}

std::string TakeProblem(const std::string& text) {
    const auto [name, value] = SplitAtEquals(text);
    if (name.empty() || text.find('=') == std::string::npos) {
        return "'" + text + "' is not NAME=VALUE";
    }
    return value == kInfinite ? "" : NumberProblem(value);
}

std::string HelpText(const InputField& field) {
    std::string text(field.label);
    if (!field.unit.empty()) text += " (" + std::string(field.unit) + ")";
    return text;
}

void AddInputOption(CLI::App& command, const Session& session, DesignOptions& options,
                    const InputField& field, const std::string& group) {
    if (field.option.empty() || !session.mentions(field.option)) return;
    const std::string name(field.option);
    // Several pages share an input; its option is declared once.
    if (options.inputs.contains(name)) return;
    command.add_option("--" + name, options.inputs[name], HelpText(field))
        ->check(NumberProblem)
        ->type_name("NUMBER")
        ->group(group);
}

void AddFieldOptions(CLI::App& command, const Session& session, DesignOptions& options) {
    for (const InputField& field : SharedInputs()) {
        AddInputOption(command, session, options, field, "Inputs");
    }
    for (const Page& page : Pages()) {
        for (const InputField& field : page.inputs) {
            AddInputOption(command, session, options, field, "Inputs of single pages");
        }
    }
}

/// The field that an input text goes to: the page's own, else the shared one, else another page's.
InputField FieldOf(const Page& page, std::string_view option) {
    const auto matches = [&](const InputField& field) { return field.option == option; };
    if (const auto own = std::ranges::find_if(page.inputs, matches); own != page.inputs.end()) {
        return *own;
    }
    if (const auto shared = std::ranges::find_if(SharedInputs(), matches);
        shared != SharedInputs().end()) {
        InputField field = *shared;
        if (option == "q") field.limits = page.typedQ;
        return field;
    }
    for (const Page& other : Pages()) {
        const auto found = std::ranges::find_if(other.inputs, matches);
        if (found != other.inputs.end()) return *found;
    }
    return SharedInputs().front();  // not reached: options are declared from these tables
}

bool HasInput(const Page& page, const std::string& option) {
    const auto matches = [&](const InputField& field) { return field.option == option; };
    return std::ranges::any_of(page.inputs, matches) ||
           std::ranges::any_of(SharedInputs(), matches);
}

bool HasBox(const Page& page, const std::string& text) {
    const std::string name = SplitAtEquals(text).first;
    return std::ranges::find(page.switches, name, &SwitchField::object) != page.switches.end();
}

Problem Foreign(const Page& page, const std::string& option) {
    return {ExitCode::Usage, option + ": page " + std::string(page.key) + " has no such input"};
}

/// What the page of the options has no field for: it would change nothing.
std::optional<Problem> ForeignInput(const DesignOptions& options, const Page& page) {
    if (options.everyPage) return {};
    for (const auto& [option, text] : options.inputs) {
        if (!text.empty() && !HasInput(page, option)) return Foreign(page, "--" + option);
    }
    for (const auto* boxes : {&options.checks, &options.cleared}) {
        for (const std::string& text : *boxes)
            if (!HasBox(page, text)) return Foreign(page, "--check " + text);
    }
    return {};
}

/// Check boxes with an option of their own.
void AddSwitchOptions(CLI::App& command, const Session& session,
                      const std::shared_ptr<DesignOptions>& options) {
    for (const Page& page : Pages()) {
        for (const SwitchField& field : page.switches) {
            const std::string object(field.object);
            const std::string caption(field.caption);
            const auto add = [&](std::string_view name, std::vector<std::string>& boxes,
                                 const std::string& help) {
                if (name.empty() || !session.mentions(name)) return;
                const auto put = [options, &boxes, object] { boxes.push_back(object); };
                command.add_flag_callback("--" + std::string(name), put, help)
                    ->group("Inputs of single pages");
            };
            add(field.option, options->checks, caption + ": " + std::string(field.hint));
            add(field.offOption, options->cleared, "Without \"" + caption + "\"");
        }
    }
}

const SwitchField* FindSwitch(std::string_view object) {
    for (const Page& page : Pages()) {
        const auto found = std::ranges::find(page.switches, object, &SwitchField::object);
        if (found != page.switches.end()) return &*found;
    }
    return nullptr;
}

std::string CheckProblem(const std::string& text) {
    const auto [name, weight] = SplitAtEquals(text);
    const SwitchField* box = FindSwitch(name);
    if (!box) return "'" + name + "' is no check box of a page";
    if (weight.empty()) return "";
    return box->weight ? NumberProblem(weight) : "'" + name + "' has no weight";
}

void ApplyCheck(Design& state, const std::string& text) {
    const auto [name, weight] = SplitAtEquals(text);
    const SwitchField* box = FindSwitch(name);
    if (!box) return;
    state.*box->flag = true;
    if (box->weight && !weight.empty()) {
        state.*box->weight = static_cast<int>(std::clamp(ParseValue(weight), 0.0, 100.0));
    }
}

/// The defaults, or what the settings file makes of them. A file that cannot be used is no reason
/// to stop, as in the window, but the user hears of it.
Design StartState(const DesignOptions& options, Session& session) {
    if (options.ini.empty()) return {};
    SettingsContent read = ReadSettingsFile(options.ini, {});
    if (read.status == SettingsStatus::Missing)
        read.message = "Cannot read \"" + options.ini + "\": there is no such file.";
    if (!read.message.empty()) session.warn("--ini: " + read.message + " Defaults are used.");
    return read.settings.design;
}

}  // namespace

std::shared_ptr<DesignOptions> AddInputOptions(CLI::App& command, const Session& session) {
    auto options = std::make_shared<DesignOptions>();
    AddFieldOptions(command, session, *options);
    command.add_option("--ini", options->ini, "Settings file to start from")->type_name("FILE");
    command.add_flag("--no-optimize", options->noOptimize, "Leave components as designed");
    return options;
}

std::shared_ptr<DesignOptions> AddDesignOptions(CLI::App& command, const Session& session) {
    auto options = AddInputOptions(command, session);
    command.add_option("PAGE", options->page, "Design page: number or key")
        ->required()
        ->check(PageProblem)
        ->type_name("");
    AddSwitchOptions(command, session, options);
    command.add_flag("--swap-lc", options->swapLC,
                     "Interchange inductors and capacitors; components show their dual values");
    command
        .add_option("--check", options->checks,
                    "Check box of a page, with its weight if it has one")
        ->check(CheckProblem)
        ->type_name("NAME[=WEIGHT]")
        ->allow_extra_args(false);
    command
        .add_option("--take", options->takes,
                    "Component value instead of the designed one; nothing is optimized then. With "
                    "--swap-lc the value still goes into the unswapped component")
        ->check(TakeProblem)
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    return options;
}

void AddSeriesOption(CLI::App& command, DesignOptions& options) {
    command.add_option("--series", options.series, "Standard series: E6, E12, E24, E48 or E96")
        ->check(SeriesProblem)
        ->type_name("SERIES");
}

void AddJsonOption(CLI::App& command, DesignOptions& options) {
    command.add_flag("--json", options.json, "Write JSON");
}

Outcome<Design> StateOf(const DesignOptions& options, Session& session) {
    const Page* page = FindPage(options.page);
    if (!page) return Problem{ExitCode::Usage, "PAGE: " + PageProblem(options.page)};
    if (const auto foreign = ForeignInput(options, *page)) return *foreign;
    Design state = StartState(options, session);
    EnterPage(state, page->number);
    for (const auto& [option, text] : options.inputs) {
        if (!text.empty()) FieldOf(*page, option).write(state, ParseValue(text));
    }
    for (const std::string& check : options.checks) ApplyCheck(state, check);
    for (const std::string& name : options.cleared) state.*FindSwitch(name)->flag = false;
    if (options.swapLC) state.LCSwapped = true;
    return state;
}

Series SeriesOf(const DesignOptions& options) {
    return SeriesByName(options.series).value_or(Preferences{}.ESeries);
}

std::pair<std::string, std::string> SplitAtEquals(const std::string& text) {
    const auto at = text.find('=');
    if (at == std::string::npos) return {text, ""};
    return {text.substr(0, at), text.substr(at + 1)};
}

std::string NumberProblem(const std::string& text) {
    return ParseNumber(text).noDigits ? "'" + text + "' holds no number" : "";
}

std::string PositiveNumberProblem(const std::string& text) {
    std::string problem = NumberProblem(text);
    if (!problem.empty()) return problem;
    return ParseValue(text) > 0 ? "" : "'" + text + "' is not above 0";
}

std::string SeriesProblem(const std::string& text) {
    return SeriesByName(text) ? "" : "'" + text + "' is no series; E6, E12, E24, E48 or E96";
}

}  // namespace kelvro
