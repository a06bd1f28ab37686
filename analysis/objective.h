#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

// A function of n numbers as the optimizer sees it.

namespace kelvro {

/// Why a function value is asked for; the numbers are those of the call table.
enum class CallKind : std::uint8_t { Evaluation = 0, LineSearch = 1, Gradient = 2, Hessian = 3 };

/// How many values of each kind were computed.
class CallCounts {
  public:
    void add(CallKind kind) { ++counts_[static_cast<std::size_t>(kind)]; }
    int of(CallKind kind) const { return counts_[static_cast<std::size_t>(kind)]; }
    int total() const { return counts_[0] + counts_[1] + counts_[2] + counts_[3]; }
    CallCounts& operator+=(const CallCounts& other) {
        for (std::size_t i = 0; i < counts_.size(); ++i) counts_[i] += other.counts_[i];
        return *this;
    }
    bool operator==(const CallCounts&) const = default;

  private:
    std::array<int, 4> counts_{};
};

/// A value where the function has a crease: two smooth functions, of which the sign of a third one
/// chooses. Both sides exist on either side and agree where the offset is zero.
struct Sides {
    double below = 0;   ///< the value where the offset is negative
    double above = 0;   ///< and where it is positive
    double offset = 0;  ///< smooth
    /// What a search is to count beside the value on either side: wishes that are no part of the
    /// function, and small against what matters in it.
    double wishBelow = 0;
    double wishAbove = 0;

    double value() const { return offset < 0 ? below : above; }
    double wish() const { return offset < 0 ? wishBelow : wishAbove; }
};

/// A function to be made small. A value that is not finite marks a point where the function does
/// not exist; whoever searches has to stay away from there.
class Objective {
  public:
    virtual ~Objective() = default;
    virtual double value(std::span<const double> x, CallKind kind) = 0;
    /// The same value with both sides of the crease that is next to x; alike, with an offset of -1
    /// everywhere, where the function is smooth. One call.
    virtual Sides sides(std::span<const double> x, CallKind kind) {
        const double f = value(x, kind);
        return {f, f, -1};
    }
    /// Is a minimum at x all that can be asked for, so that no other one need be looked for? Not
    /// counted as a call.
    virtual bool isGood(std::span<const double> /*x*/) { return true; }
    /// No value is lower.
    virtual double lowerBound() const { return -std::numeric_limits<double>::infinity(); }
};

}  // namespace kelvro
