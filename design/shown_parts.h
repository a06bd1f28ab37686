#pragma once

#include <cstdint>
#include <vector>

#include "core/series.h"
#include "design/slots.h"

namespace kelvro {

/// Which component: a slot of a page. Pages share slots, so the slot alone does not tell.
struct PartKey {
    int page = 0;
    Slot slot = Slot::None;
    bool operator==(const PartKey&) const = default;
};

/// A component as its field shows it, which is what "Take Entries" takes and what is exported.
struct ShownPart {
    enum class Form : std::uint8_t {
        Calculated,  ///< written in the field's format; taken, it has the digits of that text
        Standard,    ///< rounded to the standard series
        Typed,       ///< entered by the user, with all digits
    };

    PartKey key;
    double value = 0;  ///< SI unit; where a page interchanges L and C, of the part to be built
    Form form = Form::Calculated;
    Series series = Series::None;  ///< that the value was rounded to
    bool operator==(const ShownPart&) const = default;
};

/// What the component fields of all pages show. A refused design leaves its page as it was, and a
/// page is remembered while others use the slots.
class ShownParts {
  public:
    /// Null while the field has shown no component yet.
    const ShownPart* find(const PartKey& key) const;
    void set(const ShownPart& part);
    /// Forgets a page whose fields are about to be written anew.
    void clear(int page);

    bool operator==(const ShownParts&) const = default;

  private:
    std::vector<ShownPart> parts_;  ///< by page and slot
};

}  // namespace kelvro
