#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "core/number_text.h"
#include "design/cycle.h"
#include "design/pages.h"

namespace kelvro {

/// The names and texts of "r1=50 fo=100M".
inline std::vector<std::pair<std::string, std::string>> Named(const std::string& text) {
    std::vector<std::pair<std::string, std::string>> named;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const auto at = word.find('=');
        named.emplace_back(word.substr(0, at), word.substr(at + 1));
    }
    return named;
}

/// A state as the user leaves it who enters the page and types texts, named as the options of the
/// command line: "r1=50 fo=100M".
inline Design StateWith(int page, const std::string& texts) {
    Design state;
    EnterPage(state, page);
    for (const auto& [option, text] : Named(texts)) {
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

/// What the design formulas make of inputs.
inline CycleResult CycleOf(const Design& inputs) {
    NoServices services;
    return Calculate(inputs, true, services);
}

}  // namespace kelvro
