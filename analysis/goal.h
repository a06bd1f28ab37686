#pragma once

#include <span>
#include <vector>

#include "analysis/goal_options.h"
#include "analysis/objective.h"
#include "analysis/response.h"
#include "design/design.h"
#include "design/page_goal.h"

namespace kelvro {

/// What the optimizer makes small on a page. On pages with components: minus the transducer gain in
/// dB plus squared penalties, over the logarithms of the components relative to those at the start,
/// so that x = 0 is the design as it stands. On pages with a test function: that function of x.
class Goal : public Objective {
  public:
    /// The design's components are the start values; the goal works on a copy of its own.
    Goal(const Design& design, const GoalOptions& options);

    /// Number of parameters; 0 on a page with nothing to optimize.
    std::size_t size() const { return size_; }
    /// f(x) for size() parameters. Not finite where the network does not exist.
    double value(std::span<const double> x, CallKind kind) override;
    /// In narrow-band designs by the drop of gain, a side for each edge of the band.
    Sides sides(std::span<const double> x, CallKind kind) override;
    /// Does the network of x lose no more at fo than the Q of its parts explains, and has it the
    /// wanted Q? Test functions and resistor strings have nothing better to look for either.
    bool isGood(std::span<const double> x) override;
    /// No passive network has gain.
    double lowerBound() const override;
    /// The components of x.
    Slots components(std::span<const double> x);

    /// Where the worst gain is the goal, the frequencies that it is the worst of; else none.
    std::span<const double> bandFrequencies() const { return bandFrequencies_; }
    bool countsWorstGain() const { return !bandFrequencies_.empty(); }

    const CallCounts& calls() const { return calls_; }
    /// A call that somebody else has made who knows the goal in another form.
    void count(CallKind kind) { calls_.add(kind); }

  private:
    void write(std::span<const double> x);
    double designed(std::span<const double> x);
    double network() const;
    Sides edges() const;
    bool mindsOneEdge() const;
    bool isMatched() const;
    bool hasWantedQ() const;
    bool isNetwork() const;

    const PageGoal& page_;
    Design trial_;  ///< with the components of the last x
    GoalOptions options_;
    std::vector<Slot> slots_;
    std::vector<double> starts_;  ///< element values, relative ones in the extended ladder
    std::size_t size_;
    std::vector<double> bandFrequencies_;
    CallCounts calls_;
};

/// The function with a known minimum that a page has in place of a goal; 0 on other pages.
double TestFunction(int page, std::span<const double> x);

/// exp x, cut off below -300 and continued in a straight line above 300.
double GuardedExp(double x);

}  // namespace kelvro
