#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "design/page.h"

// The components of a page, whatever keeps them: the one way to read, write, round and take one.

namespace kelvro {

/// One component of a page. Values are SI units.
struct PartRef {
    const Page* page = nullptr;
    Slot slot = Slot::None;              ///< that keeps it
    const OutputField* field = nullptr;  ///< that shows it; null in element tables
    const InputField* input = nullptr;   ///< the component is this input and has no slot

    PartKey key() const { return {page->number, slot}; }
    /// "C1": that of its field, whatever is interchanged, or of the table's element.
    std::string name(const Design& design) const;
    bool operator==(const PartRef&) const = default;

    /// The component that the design keeps.
    double read(const Design& design) const;
    void write(Design& design, double value) const;

    /// The part that is to be built: the dual one where the page interchanges L and C.
    double built(const Design& design) const;
    void build(Design& design, double value) const;

    /// The text of its field or table row, with the leading spaces of fields: "  470.00p" rounded
    /// to a standard series, "    1.06n" as calculated, "infinite". Empty in a table, the field's
    /// starting text else, while nothing has been shown.
    std::string shownText(const Design& design) const;
    /// The value that the text says.
    double shown(const Design& design) const;

    /// Shows the value of the series that is nearest to what is shown. The design keeps its
    /// component until that is taken. Shown values that are not above 0 stay.
    void round(Design& design, Series series) const;
    /// Keeps a value that the user has typed, and shows it with all its digits.
    void type(Design& design, double value) const;
    /// Keeps what its field shows; where the page says so, what the field of another page shows.
    void take(Design& design) const;
};

/// The components of the design's page: those of its visible fields, then those of its table.
std::vector<PartRef> PartsOf(const Design& design);

/// The component behind a part of one of the page's networks, found by its name in the page's
/// record; nothing for parts that stand for themselves. `dual`: the network is built interchanged.
std::optional<PartRef> PartOf(const Page& page, const Network& network, std::string_view name,
                              bool dual);

/// The networks of the design's page as they are to be built, with the values that the fields show:
/// standard values where the user has chosen them. Taken where L and C are interchanged, components
/// are those of another network; the picture stays with the fields. The page's alternative stands
/// last.
std::vector<Network> ShownNetworks(const Design& design);

/// Keeps what all fields of the design's page show ("Take Entries"). On interchanged pages the
/// shown duals go into the components as they are: users compare both with the plain circuit.
void Take(Design& design);

/// A component's text as a number; "infinite" is a resistor that is left out.
double ParseComponent(std::string_view text);

}  // namespace kelvro
