#pragma once

#include <string_view>

namespace kelvro {

struct Page;

/// The printed transfer function of a page, "V(s) = G[1] / (...)": as its record has it, or with
/// capacitors in place of inductors and the reverse, under their own names. Empty where the page
/// prints none.
std::string_view TransferText(const Page& page, bool duals);

}  // namespace kelvro
