#pragma once

#include "design/page.h"

// One function per page; each page group has a file of its own. The table of pages.cpp calls them.

namespace kelvro {

Page LcSeriesTankPage();
Page LcParallelTankPage();
Page PiSectionPage();
Page TSectionPage();
Page TransformerPage();
Page LinePage();
Page PassiveLPage();
Page PassivePiTPage();
Page LcBalunPage();
Page RlOptPage();
Page LeffCeffPage();
Page CombLcPage();
Page LcGammaPage();
Page LcclMatchPage();
Page ClassEPage();
Page BroadbandMatchPage();
Page BandPassPage();
Page DoubleLPage();
Page RDividerPage();

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

/// An output with a slot, written in engineering form: a component of the network.
OutputField Component(std::string_view object, std::string_view name, std::string_view label,
                      std::string_view unit, Slot slot);

/// Output power and supply, which two pages share; the edits have names of their own.
std::vector<InputField> SupplyInputs(std::string_view P, std::string_view Ub,
                                     std::string_view Usat);

/// An element of a circuit that keeps its value in a slot.
Element PagePart(ElementKind kind, Place place, std::string_view name, const Design& state,
                 Slot slot, std::string_view field);

}  // namespace kelvro
