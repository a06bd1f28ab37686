#include "network/ladder_sweep.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "network/ladder_response.h"
#include "network/ladder_values.h"

// One source text for all registers. With optimization gcc inlines everything into the two
// functions that are compiled for them, and a block of four frequencies takes half the time in wide
// ones (bench_network, six lossy parts: 55 to 36 ns a frequency); without, or elsewhere, nothing is
// won.
#if defined(__x86_64__) && defined(__OPTIMIZE__) && !defined(__clang__)
#define KELVRO_WIDE_LANES [[gnu::target("avx2"), gnu::flatten]]
#endif

namespace kelvro::ladder {

namespace {

template <typename T>
T StandingWaves(T reflected) {
    const T size = lanes::SquareRoot(reflected);
    const T infinite = std::numeric_limits<double>::infinity();
    return lanes::Select(size < T(1.0), (T(1.0) + size) / (T(1.0) - size), infinite + size);
}

/// `count` values from place i on; a last block may be filled partly.
template <typename T>
void Store(T x, std::vector<double>& into, std::size_t i, std::size_t count) {
    if (count == T::size) return x.to(&into[i]);
    for (std::size_t lane = 0; lane < count; ++lane) into[i + lane] = x.lane(lane);
}

template <typename T>
[[gnu::always_inline]] inline void Fill(const LadderProgram& program, NetworkSweep& sweep) {
    for (std::size_t i = 0; i < sweep.size(); i += T::size) {
        const std::size_t count = std::min(T::size, sweep.size() - i);
        double block[T::size];
        for (std::size_t lane = 0; lane < T::size; ++lane) {
            block[lane] = std::max(sweep.f[i + std::min(lane, count - 1)], kLowestFrequency);
        }
        const Values<T> values = ValuesAt(program, Frequency<T>::Of(T::From(block)));
        const auto store = [&](const T& x, std::vector<double>& into) { Store(x, into, i, count); };
        store(values.GT, sweep.GT);
        store(lanes::ArcTangent(values.direction.im, values.direction.re), sweep.phase);
        store(values.groupDelay, sweep.groupDelay);
        store(values.dissipated, sweep.dissipated);
        store(StandingWaves(values.reflected), sweep.VSWR);
        store(values.gammaIn.re, sweep.gammaInRe);
        store(values.gammaIn.im, sweep.gammaInIm);
        store(values.gammaOut.re, sweep.gammaOutRe);
        store(values.gammaOut.im, sweep.gammaOutIm);
        store(values.Zin.re, sweep.ZinRe);
        store(values.Zin.im, sweep.ZinIm);
        store(values.Zout.re, sweep.ZoutRe);
        store(values.Zout.im, sweep.ZoutIm);
    }
}

[[gnu::flatten]] void FillFour(const LadderProgram& program, NetworkSweep& sweep) {
    Fill<lanes::Four>(program, sweep);
}

#ifdef KELVRO_WIDE_LANES
KELVRO_WIDE_LANES void FillWide(const LadderProgram& program, NetworkSweep& sweep) {
    Fill<lanes::Wide>(program, sweep);
}
#endif

}  // namespace

Lanes BestLanes() {
#ifdef KELVRO_WIDE_LANES
    if (__builtin_cpu_supports("avx2")) return Lanes::Wide;
#endif
    return Lanes::Four;
}

void Sweep(const LadderProgram& program, NetworkSweep& sweep, [[maybe_unused]] Lanes lanes) {
#ifdef KELVRO_WIDE_LANES
    if (lanes == Lanes::Wide) return FillWide(program, sweep);
#endif
    FillFour(program, sweep);
}

}  // namespace kelvro::ladder
