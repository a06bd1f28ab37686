#pragma once

#include <string>
#include <string_view>

namespace kelvro {

/// What a field makes of the text that a user typed.
struct FieldReading {
    double value = 0;     ///< SI unit; 0 where the text holds no number
    std::string unread;   ///< the part of the text that does not count; empty: all of it does
    bool asMeant = true;  ///< false where people may mean another number than was read
};

/// ParseValue for a field with a unit, in UTF-8. Beyond its rules both signs of micro are "u", and
/// the field's own unit may follow, also behind a blank and with a prefix: "433.92 MHz", "10 µF".
/// Ohms may be spelled out. "3k3" is 3000 with "3" unread; "10F" of a capacitance is ten femto,
/// which nobody means.
FieldReading ReadField(std::string_view text, std::string_view unit);

}  // namespace kelvro
