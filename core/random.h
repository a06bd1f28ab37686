#pragma once

#include <cstdint>
#include <random>

namespace kelvro {

/// Uniform random numbers in [0, 1), the same for a seed on every machine (the standard library's
/// distributions are not).
class UniformStream {
  public:
    explicit UniformStream(std::uint64_t seed) : engine_(seed) {}

    /// The upper 53 bits of the generator: every value is exact and below 1.
    double next() { return static_cast<double>(engine_() >> 11) * 0x1p-53; }
    /// A whole number from 0 to n - 1, n at most 2^31.
    int below(int n) { return static_cast<int>(next() * n); }

  private:
    std::mt19937_64 engine_;
};

}  // namespace kelvro
