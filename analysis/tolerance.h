#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/random.h"
#include "design/design.h"
#include "design/page.h"
#include "design/part_ref.h"

// Monte Carlo analysis: how a response spreads when parts deviate from their values.

namespace kelvro {

class Response;

/// Tolerances of the part groups in percent.
struct Tolerances {
    double capacitance = 5;
    double inductance = 5;
    double lineImpedance = 5;
    double resistance = 5;

    bool operator==(const Tolerances&) const = default;
    double of(ToleranceGroup group) const;
};

inline constexpr Limits kToleranceLimits{0.1, 35};
/// A tolerance as it is typed, held to its limits.
double ClampTolerance(double percent);

/// A seed that differs from call to call.
std::uint64_t ClockSeed();

/// A part with a tolerance. Where a page shows dual values it is the part that is built, and its
/// group the one of that part.
struct TolerancePart {
    std::string name;
    ToleranceGroup group = ToleranceGroup::None;
    PartRef ref;           ///< keeps the part, or the reciprocal one
    bool dual = false;     ///< the design keeps the reciprocal part
    std::size_t draw = 0;  ///< which random number of a run it takes
};

/// The parts of a design that a run varies, in the order of their random numbers: capacitances 1
/// and 2, inductances 1 and 2, capacitances 3 and 4, inductances 3 and 4, line impedance; behind
/// them, on pages with more, capacitances and inductances from the fifth on, and resistances. A
/// design without some of them leaves their numbers unused.
std::vector<TolerancePart> ToleranceParts(const Design& state);

/// Draws part values around those of a design, which stays as it is.
class ToleranceRuns {
  public:
    ToleranceRuns(const Design& nominal, const Tolerances& tolerances, std::uint64_t seed);

    /// The design with part values drawn for one more run: each equally distributed within its
    /// tolerance. Valid until the next call.
    const Design& next();

    const std::vector<TolerancePart>& parts() const { return parts_; }
    /// How far each part was off in the last run, as a fraction of its value.
    std::span<const double> deviations() const { return deviations_; }

  private:
    Design nominal_;
    Design varied_;
    Tolerances tolerances_;
    UniformStream generator_;
    std::vector<TolerancePart> parts_;
    std::vector<double> deviations_;
    std::vector<double> draws_;
};

/// What a set of numbers looks like; those that are not finite are left out of all but `count` and
/// `yield`. NaN where too few numbers are left.
struct Spread {
    std::size_t count = 0;
    std::size_t finite = 0;
    double min = 0;
    double mean = 0;
    double max = 0;
    double deviation = 0;  ///< standard deviation, of a sample
    double percentile5 = 0;
    double percentile95 = 0;
    double yield = 0;  ///< fraction of `count` at or above the limit
};
Spread SpreadOf(std::vector<double> values, double limit);

/// The value below which this part of sorted numbers (at least one) lies, between two by their
/// distance.
double PercentileOf(std::span<const double> sorted, double part);

/// Pearson's correlation of two equally long rows; NaN where one of them does not vary. Pairs with
/// a number that is not finite are left out.
double Correlation(std::span<const double> x, std::span<const double> y);

/// How a part's deviation and the transducer gain at fo hang together. In a matched design either
/// direction of a deviation costs gain: then the size of the deviation tells more.
struct PartInfluence {
    TolerancePart part;
    double correlation = 0;        ///< of the deviation with GT at fo
    double correlationOfSize = 0;  ///< of the deviation's magnitude with GT at fo
};

struct ToleranceReport {
    double nominalGain = 0;  ///< GT at fo in dB
    double limit = 0;        ///< lowest GT that counts as good, dB
    Spread gain;             ///< of GT at fo in dB; empty where there is no part to vary
    std::vector<PartInfluence> parts;
};

/// How far a good build may fall below the nominal gain at fo where no limit is given, dB.
inline constexpr double kYieldMargin = 1;

/// The gain of a build at its fo as all judge it: against the reference of the nominal design, dB.
double BuildGain(const Response& nominal, const Design& build);

/// The lowest gain at fo that counts as good where no limit is given, dB.
double YieldLimit(const Response& nominal, const Design& design);

/// `runs` runs of a design, judged by the transducer gain at fo against a limit in dB, or by
/// YieldLimit. No runs where there is no part to vary.
ToleranceReport AnalyseTolerance(const Design& nominal, const Tolerances& tolerances, int runs,
                                 std::uint64_t seed, std::optional<double> limitDb = {});

}  // namespace kelvro
