#include "io/plot_choices.h"

#include <algorithm>
#include <sstream>

#include "analysis/trace.h"

namespace kelvro {

namespace {

constexpr int kLooks = 3;

struct Flag {
    const char* name;
    bool PlotChoices::*value;
};

constexpr std::array kFlags = {
    Flag{"harmonics", &PlotChoices::harmonics}, Flag{"levels", &PlotChoices::levels},
    Flag{"edges", &PlotChoices::edges},         Flag{"dark", &PlotChoices::dark},
    Flag{"caption", &PlotChoices::caption},
};

void ReadChoice(const std::string& name, const std::string& value, PlotChoices& choices) {
    for (const Flag& flag : kFlags) {
        if (name != flag.name) continue;
        if (value == "Yes") choices.*flag.value = true;
        if (value == "No") choices.*flag.value = false;
    }
    if (name == "look" && value.size() == 1 && value[0] >= '0' && value[0] < '0' + kLooks)
        choices.look = value[0] - '0';
}

}  // namespace

std::string PlotChoicesText(const PlotChoices& choices) {
    std::string text;
    for (const std::string& key : choices.traces) text += key + ' ';
    text += "look=" + std::to_string(choices.look);
    for (const Flag& flag : kFlags)
        text += std::string(" ") + flag.name + (choices.*flag.value ? "=Yes" : "=No");
    return text;
}

PlotChoices ParsePlotChoices(const std::string& text) {
    PlotChoices choices;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const auto equals = word.find('=');
        if (equals != std::string::npos) {
            ReadChoice(word.substr(0, equals), word.substr(equals + 1), choices);
        } else if (FindTrace(word) &&
                   std::ranges::find(choices.traces, word) == choices.traces.end()) {
            choices.traces.push_back(word);
        }
    }
    return choices;
}

}  // namespace kelvro
