#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "design/page.h"

namespace kelvro {

/// All pages in notebook order; Pages()[i] has the number i + 1.
std::span<const Page> Pages();
int PageCount();

/// The page of a number; numbers of no page give page 1.
const Page& PageOf(int number);
inline const Page& PageOf(const Design& state) {
    return PageOf(state.page);
}

/// The page of a number text or key ("3", "pi"); null when there is none.
const Page* FindPage(std::string_view numberOrKey);

/// R1, R2, fo, Q, QB, QBC: the inputs beside the notebook, with the texts that recalculating writes
/// and the limits of typed values. Q's typed limits are those of the page (Page::typedQ).
std::span<const InputField> SharedInputs();

/// What happens to the state when a page is entered, before its calculation.
void EnterPage(Design& state, int number);

}  // namespace kelvro
