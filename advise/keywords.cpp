#include "advise/keywords.h"

#include <array>

#include "core/number_text.h"
#include "core/scalar.h"

namespace kelvro {

namespace {

struct Keyword {
    std::string_view word;
    std::string_view message;
    void (*apply)(KeywordPreset&);
};

constexpr std::array kKeywords = {
    Keyword{"dfp", "Hint: DFP update formulas used instead of BFGS.",
            [](KeywordPreset& p) { p.settings.local.dfp = true; }},
    Keyword{"hessian", "Hint: True H used to create start matrix.",
            [](KeywordPreset& p) { p.settings.local.enhancedStartMatrix = true; }},
    Keyword{"noclamp", "Hint: No parameter clamping.",
            [](KeywordPreset& p) { p.settings.local.noClampings = true; }},
    Keyword{"max",
            "Hint: Max-norm used in case of Q<0.2. Max norm makes optimization more difficult.",
            [](KeywordPreset& p) { p.settings.goal.maxNorm = true; }},
    Keyword{"xls", "Hint: Tables written in optimization. This slows down the operation.",
            [](KeywordPreset& p) { p.settings.writeTable = true; }},
    Keyword{"noise",
            "Hint: Optimization is less accurate due to numerical noise added for goal function "
            "calculation!",
            [](KeywordPreset& p) { p.settings.goal.noise = true; }},
    Keyword{"nopt", {}, [](KeywordPreset& p) { p.settings.disabled = true; }},
    Keyword{"steep",
            "Hint: Optimization using steepest descent, so parameter calculations are a bit "
            "inaccurate and slow!",
            [](KeywordPreset& p) { p.settings.local.steepestDescent = true; }},
    Keyword{"single", {}, [](KeywordPreset& p) { p.settings.singleRun = true; }},
    Keyword{"ssg",
            {},
            [](KeywordPreset& p) { p.settings.local.gradient = GradientChoice::SingleSided; }},
    Keyword{"dsg",
            {},
            [](KeywordPreset& p) { p.settings.local.gradient = GradientChoice::DoubleSided; }},
    Keyword{"trans", {}, [](KeywordPreset& p) { p.settings.goal.transformer = true; }},
    Keyword{"mruns", {}, [](KeywordPreset& p) { p.settings.singleRun = false; }},
    Keyword{"thorough",
            "Hint: Thorough search for the lowest goal. The design may end far from the calculated "
            "one.",
            [](KeywordPreset& p) { p.settings.local.thorough = true; }},
};

double Fraction(const std::string& text) {
    return Clamp(ParseValue(text), 0, 1);
}

}  // namespace

KeywordPreset ReadKeywords(std::span<const std::string> arguments,
                           const OptimizerSettings& defaults) {
    KeywordPreset preset;
    preset.settings = defaults;
    if (arguments.empty()) return preset;
    for (const Keyword& keyword : kKeywords) {
        if (arguments[0].find(keyword.word) == std::string::npos) continue;
        keyword.apply(preset);
        if (!keyword.message.empty()) preset.messages.emplace_back(keyword.message);
    }
    if (arguments.size() >= 2) {
        preset.settings.local.lineAccuracy = Fraction(arguments[1]);
        preset.messages.push_back(
            "Hint: Line accuracy modified (0=fast,1=accurate)! Parameter set to " +
            FormatFixed(0, 2, preset.settings.local.lineAccuracy));
    }
    if (arguments.size() >= 3) {
        preset.settings.local.lineCentre = Fraction(arguments[2]);
        preset.messages.push_back(
            "Hint: Line center parameter modified (0.5=default,0=short)! Parameter set to " +
            FormatFixed(0, 2, preset.settings.local.lineCentre));
    }
    return preset;
}

std::string KeywordList() {
    std::string list;
    for (const Keyword& keyword : kKeywords) {
        if (!list.empty()) list += ' ';
        list += keyword.word;
    }
    return list;
}

}  // namespace kelvro
