#include "design/pages.h"

#include <algorithm>
#include <vector>

#include "core/number_text.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

std::vector<Page> NumberedPages() {
#define KELVRO_MAKE_PAGE(NAME) NAME(),
    std::vector<Page> pages = {KELVRO_PAGES(KELVRO_MAKE_PAGE)};
#undef KELVRO_MAKE_PAGE
    for (std::size_t i = 0; i < pages.size(); ++i) pages[i].number = static_cast<int>(i) + 1;
    return pages;
}

}  // namespace

std::span<const Page> Pages() {
    static const std::vector<Page> pages = NumberedPages();
    return pages;
}

int PageCount() {
    return static_cast<int>(Pages().size());
}

const Page& PageOf(int number) {
    const std::span<const Page> pages = Pages();
    const auto index = static_cast<std::size_t>(number) - 1;  // of numbers below 1: beyond the last
    return pages[index < pages.size() ? index : 0];
}

const Page* FindPage(std::string_view numberOrKey) {
    const auto at = std::ranges::find_if(Pages(), [&](const Page& page) {
        return page.key == numberOrKey || std::to_string(page.number) == numberOrKey;
    });
    return at == Pages().end() ? nullptr : &*at;
}

std::span<const InputField> SharedInputs() {
    constexpr std::string_view qHint =
        "for transfer function, not always realizable (esp. for very high or low Q)";
    constexpr Limits ohms{0.001, 1e6};
    constexpr Limits hertz{1, 2e10};
    constexpr Limits loadedQ{0.2, 500};
    constexpr Limits anyQ{0.2, 1000};  // the spin button reaches further than typed values
    constexpr Limits elementQ{5, 10000};
    constexpr TextFormat q = Fixed(8, 2);
    static const std::vector<InputField> inputs = {
        {"R1Eingabe", "Resistance R1", "Ω", "Resistance of the source", "r1", "R1", &Design::R1,
         ohms},
        {"R2Eingabe", "Resistance R2", "Ω", "Resistance of the load", "r2", "R2", &Design::R2,
         ohms},
        {"foEingabe", "Frequency fo", "Hz", "Centre frequency of the match", "fo", "fo",
         &Design::fo, hertz},
        {"QEingabe", "Q-Factor", "", qHint, "q", SettingsKey("Q", SettingsKey::Form::Compact, anyQ),
         &Design::Q, loadedQ, q},
        {"QBEingabe", "Element Q", "L", "Q of the inductors", "qb", "QB(L)", &Design::QB, elementQ,
         q},
        {"QBCEingabe", "Element Q", "C", "Q of the capacitors", "qbc", "QB(C)", &Design::QBC,
         elementQ, q}};
    return inputs;
}

void EnterPage(Design& state, int number) {
    const Page& page = PageOf(number);
    state.page = page.number;
    state.Q = page.entryQ.value_or(state.Q);
    if (page.unswapsLC) state.LCSwapped = false;
}

OutputField Component(std::string_view object, std::string_view name, std::string_view label,
                      std::string_view unit, Slot slot) {
    OutputField field{object, name, label, unit};
    field.slot = slot;
    return field;
}

}  // namespace kelvro
