#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "design/design.h"
#include "network/network.h"

// What a page tells the optimizer: what it may move, and what beside the gain it should look at.

namespace kelvro {

/// Designs for a larger loaded Q hold it; others are as broad as can be.
inline constexpr double kNarrowBandQ = 0.21;

/// Where the gain of a broad-band design counts, and how much.
struct BandPoint {
    double f = 0;  ///< Hz
    double weight = 1;
};

struct Band {
    std::array<BandPoint, 7> points{};
    std::size_t count = 0;
    double scale = 1;  ///< of the weighted sum
};

/// sqrt of the resistance ratio, less 1: how far source and load are apart; 0 for equal ones.
double TransformationTerm(const Design& design);

/// fo and two points on each side of it. `width` is the distance of the outer ones from fo,
/// relative to it, between equal resistances; it shrinks with the transformation.
Band FivePointBand(const Design& design, double width);

/// (a - b)/(a + b): 0 for equal values.
double Imbalance(double a, double b);

/// Between which edges the worst gain of a design counts; nothing where it does not.
std::optional<FrequencyBand> WorstGainBand(const Design& design);

/// Where a worst gain between two edges is looked for: rising, both edges included, denser towards
/// them as the ripples of the best ladders are.
std::vector<double> WorstGainFrequencies(const FrequencyBand& band);

/// What the optimizer makes small on a page. A page says which of the kinds its goal is; there is
/// no goal by default.
struct PageGoal {
    /// A page without anything to optimize.
    static PageGoal Nothing();
    /// Minus the transducer gain, over the components of these slots.
    static PageGoal Components(std::vector<Slot> (*moved)(const Design&));
    /// A function with a known minimum in place of the page's design, to study the optimizer.
    static PageGoal Test(std::size_t parameters, double (*function)(std::span<const double>));

    /// Components that are moved, in the order of the parameters; null on other pages.
    std::vector<Slot> (*moved)(const Design&) = nullptr;
    /// The values behind the parameters, where these are not just what the slots hold, and back.
    std::vector<double> (*values)(const Design&, const std::vector<Slot>&) = nullptr;
    void (*setValues)(Design&, const std::vector<Slot>&, std::span<const double>) = nullptr;

    /// Where broad-band designs are judged; of most pages FivePointBand of a quarter.
    Band (*band)(const Design&) = nullptr;
    /// Between which edges the worst gain of the design, a ladder of single parts, counts in place
    /// of all that; nothing where it does not. null: never.
    std::optional<FrequencyBand> (*worstIn)(const Design&) = nullptr;
    /// What is added to the goal; null: nothing.
    double (*penalty)(const Design&) = nullptr;
    /// What counts in place of the gain, on pages without a response; null: the gain.
    double (*residual)(const Design&) = nullptr;

    std::size_t testParameters = 0;
    double (*test)(std::span<const double>) = nullptr;

  private:
    PageGoal() = default;
};

}  // namespace kelvro
