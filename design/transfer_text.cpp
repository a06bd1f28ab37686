#include "design/transfer_text.h"

#include <array>

#include "design/page.h"

namespace kelvro {

namespace {

struct DualText {
    std::string_view key;  ///< of the page
    std::string_view text;
};

/// sC is put for 1/(sL) and the reverse, and the fraction is made whole.
constexpr std::array kDuals = {
    DualText{"lc-series",
             "V(s) = s²L[2]CG[1] / (s³L[1]L[2]CG[1]G[2] + s²C(L[1]G[1] + L[2]G[1] + L[2]G[2]) + "
             "s(L[2]G[1]G[2] + C) + G[1])"},
    DualText{"lc-parallel",
             "V(s) = sL[2]G[1] / (s³L[1]L[2]CG[2] + s²(C(L[1] + L[2]) + L[1]L[2]G[1]G[2]) + "
             "s(L[2]G[2] + G[1](L[1] + L[2])) + 1)"},
    DualText{"pi",
             "V(s) = s³L[1]L[2]CG[1] / (s³L[1]L[2]C(G[1] + G[2]) + "
             "s²(L[1]C + L[2]C + L[1]L[2]G[1]G[2]) + s(L[1]G[1] + L[2]G[2]) + 1)"},
    DualText{"t",
             "V(s) = s³LC[1]C[2]G[1] / (s³LC[1]C[2](G[1] + G[2]) + "
             "s²(LG[1]G[2](C[1] + C[2]) + C[1]C[2]) + s(C[1]G[2] + C[2]G[1]) + G[1]G[2])"},
};

}  // namespace

std::string_view TransferText(const Page& page, bool duals) {
    if (!duals) return page.transferText;
    for (const DualText& dual : kDuals)
        if (dual.key == page.key) return dual.text;
    return {};
}

}  // namespace kelvro
