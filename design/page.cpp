#include "design/page.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "core/scalar.h"

namespace kelvro {

std::string TextFormat::text(double value) const {
    return ' ' + (kind == Kind::Engineering ? FormatEng(width, decimals, value)
                                            : FormatFixed(width, decimals, value));
}

double InputField::read(const Design& state) const {
    const double held = stored(state);
    return untilTyped && held == 0 ? untilTyped(state) : held;
}

double InputField::stored(const Design& state) const {
    return std::visit([&](auto member) { return static_cast<double>(state.*member); }, value);
}

void InputField::write(Design& state, double x) const {
    store(state, Clamp(x, limits.low, limits.high));
}

void InputField::store(Design& state, double x) const {
    if (const auto* real = std::get_if<double Design::*>(&value)) {
        state.** real = x;
    } else {
        state.*std::get<int Design::*>(value) = static_cast<int>(std::lround(x));
    }
}

bool OutputField::hasStandardValues() const {
    return slot != Slot::None && (unit == "H" || unit == "F" || unit == "Ω");
}

double OutputField::component(const Design& state) const {
    return get ? get(state) : state.components[slot];
}

void OutputField::setComponent(Design& state, double x) const {
    if (set) {
        set(state, x);
    } else {
        state.components[slot] = x;
    }
}

std::vector<Network> Page::builtNetworks(const Design& state) const {
    if (!networks) return {};
    std::vector<Network> built = networks(state);
    if (showsDuals(state)) {
        for (Network& network : built) network = Dual(std::move(network), state.fo);
    }
    return built;
}

std::vector<Network> Page::drawnNetworks(const Design& state) const {
    std::vector<Network> drawn = builtNetworks(state);
    if (alternative) drawn.push_back(alternative(state));
    return drawn;
}

const InputField* Page::input(std::string_view object) const {
    const auto at = std::ranges::find(inputs, object, &InputField::object);
    return at == inputs.end() ? nullptr : &*at;
}

const OutputField* Page::output(std::string_view object) const {
    const auto at = std::ranges::find(outputs, object, &OutputField::object);
    return at == outputs.end() ? nullptr : &*at;
}

}  // namespace kelvro
