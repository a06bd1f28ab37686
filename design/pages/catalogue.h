#pragma once

#include "design/page.h"

// The table of pages in notebook order: one row per page, the function that makes its record.

#define KELVRO_PAGES(ROW)   \
    ROW(LcSeriesTankPage)   \
    ROW(LcParallelTankPage) \
    ROW(PiSectionPage)      \
    ROW(TSectionPage)       \
    ROW(TransformerPage)    \
    ROW(LinePage)           \
    ROW(PassiveLPage)       \
    ROW(PassivePiTPage)     \
    ROW(LcBalunPage)        \
    ROW(RlOptPage)          \
    ROW(LeffCeffPage)       \
    ROW(CombLcPage)         \
    ROW(LcGammaPage)        \
    ROW(LcclMatchPage)      \
    ROW(ClassEPage)         \
    ROW(BroadbandMatchPage) \
    ROW(BandPassPage)       \
    ROW(DoubleLPage)        \
    ROW(RDividerPage)

namespace kelvro {

#define KELVRO_DECLARE_PAGE(NAME) Page NAME();
KELVRO_PAGES(KELVRO_DECLARE_PAGE)
#undef KELVRO_DECLARE_PAGE

// Texts that several pages share.

inline constexpr std::string_view kNeedsR2Larger =
    "It must be R2>R1! Switch resistances by clicking the button!";
inline constexpr std::string_view kNeedsR1Larger =
    "It must be R1>R2! Switch resistances by clicking the button!";
inline constexpr std::string_view kNeedsR2Smaller =
    "It must be R2<R1! Switch resistances by clicking the button!";
inline constexpr std::string_view kNeedsDifferentR =
    "R2 must be different from R1! Otherwise no additional matching needed.";
inline constexpr std::string_view kNeedsSupply = "It must be Ub>Usat!";
inline constexpr NoteField kQNotAdjustable{"Q-factor is not adjustable, depends on R ratio",
                                           "depends on ratio R1/R2"};

/// Broad bands of four reactances, see FivePointBand.
inline constexpr double kWideBand = 0.5;

/// An output with a slot, written in engineering form: a component of the network.
OutputField Component(std::string_view object, std::string_view name, std::string_view label,
                      std::string_view unit, Slot slot);

/// Output power and supply, which two pages share; the edits have names of their own.
std::vector<InputField> SupplyInputs(std::string_view P, std::string_view Ub,
                                     std::string_view Usat);

}  // namespace kelvro
