#pragma once

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "core/number_text.h"
#include "design/cycle.h"
#include "design/pages.h"

namespace kelvro {

/// Input texts by option name, as the command line takes them: {{"r1", "50"}, {"fo", "100M"}}.
using InputTexts = std::vector<std::pair<std::string_view, std::string_view>>;

/// A state as the user leaves it who enters the page and types the texts.
inline Design StateWith(int page, const InputTexts& texts) {
    Design state;
    EnterPage(state, page);
    for (const auto& [option, text] : texts) {
        const auto write = [&, name = option, value = ParseValue(text)](const auto& fields) {
            for (const InputField& field : fields) {
                if (field.option == name) field.write(state, value);
            }
        };
        write(SharedInputs());
        write(PageOf(page).inputs);
    }
    return state;
}

/// Services for tests of the design formulas: a flat response, nothing optimized.
class NoServices : public CycleServices {
  public:
    double responseMagnitude(const Design&, double) override { return 1; }
    Slots optimize(const Design& design) override {
        ++optimizations;
        return design.components;
    }
    int optimizations = 0;
};

}  // namespace kelvro
