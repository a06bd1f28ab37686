#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace kelvro {

/// Places for component values. The first eight are X1..X8 of the response formulas and of the
/// optimizer; a page decides what it keeps in them (see its OutputFields and its circuit).
enum class Slot : std::uint8_t {
    C1,
    C2,
    L,
    L2,
    X5,
    X6,
    X7,
    X8,
    ZL,                ///< characteristic impedance of the line, ohm
    NormalizedLength,  ///< of the line, in wavelengths
    Length,            ///< of the line, m
    M,                 ///< coupling inductance of the transformer's closed form, H
    FirstCoupling,     ///< band-pass couplings: this slot and the eight behind it, F
    FirstResonator = FirstCoupling + 9,  ///< band-pass resonator capacitors: eight slots, F
    Count = FirstResonator + 8,
    None = 255,
};

inline constexpr Slot SlotBehind(Slot first, int offset) {
    return static_cast<Slot>(static_cast<int>(first) + offset);
}

/// Component values by slot; SI units.
class Slots {
  public:
    double& operator[](Slot slot) { return values_[static_cast<std::size_t>(slot)]; }
    double operator[](Slot slot) const { return values_[static_cast<std::size_t>(slot)]; }
    bool operator==(const Slots&) const = default;

  private:
    std::array<double, static_cast<std::size_t>(Slot::Count)> values_{};
};

}  // namespace kelvro
