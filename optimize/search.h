#pragma once

#include <vector>

#include "optimize/descent.h"

namespace kelvro {

/// A minimum that a descent has found.
struct Minimum {
    DescentResult result;
    int descent = 0;      ///< which one, counted from 0
    double distance = 0;  ///< largest change of a parameter against the origin
    bool good = false;    ///< as the objective judges it

    double f() const { return result.at.f; }
};

/// The descents of a run. The first one is the rule; others follow where its minimum is not a good
/// one: from points all over the box around the origin, then, where nothing in it is good and lower
/// values are possible, in a wider box and a very wide one. A thorough search knows no box and ends
/// with its iterations.
class Search {
  public:
    Search(SearchRun& run, Summary& summary, const Vector& origin);

    void find(Position start, Matrix inverse);
    /// Of the minima found within reach, those as low as the lowest of them, and of these the one
    /// nearest to the origin; but one that the objective calls good before others. Where one out of
    /// reach is lower by so much that it is worth the way, all count. A thorough search takes the
    /// lowest. None is above the value at the start.
    const Minimum& chosen() const;

  private:
    bool descend(const Box& box, Position start, Matrix inverse, double rival);
    bool descendFrom(const Box& box, const Vector& x);
    bool descendFromFurther(const Box& box, double partOfIterations);
    void searchAround(double factor, double partOfIterations);
    bool within(const Minimum& minimum) const { return box_.contains(minimum.result.at.x); }
    double lowest(bool withinOnly) const;
    void dropUnfinished();
    bool mayGoLower() const;
    bool startsLeft() const;

    SearchRun& run_;
    const SearchTuning& tuning_;
    Summary& summary_;
    Vector start_;
    double startValue_ = 0;
    Box box_;
    std::vector<Minimum> minima_;
};

}  // namespace kelvro
