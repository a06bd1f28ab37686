#pragma once

#include <span>
#include <vector>

namespace kelvro {

/// Linear functions of n variables, whose smallest is to become as large as possible.
struct LinearRows {
    std::size_t variables = 0;
    std::vector<double> values;     ///< of each row at the present point
    std::vector<double> gradients;  ///< row by row, `variables` numbers each

    std::size_t size() const { return values.size(); }
    std::span<const double> gradient(std::size_t row) const {
        return {gradients.data() + row * variables, variables};
    }
};

/// Finds the step within a box that makes the smallest of some linear functions largest: the linear
/// programme max t with row(d) >= t, low <= d <= high. Walks from vertex to vertex of the box and
/// the rows (primal simplex with the inverse of the active rows kept). Deterministic; keeps its
/// memory from call to call.
class MaxMinStep {
  public:
    /// The boxes hold 0. Returns the value t reached; `step()` is where. Ends after a number of
    /// exchanges that no regular problem needs, with the best vertex so far.
    double solve(const LinearRows& rows, std::span<const double> low, std::span<const double> high);

    std::span<const double> step() const { return {point_.data(), n_}; }
    /// Rows that hold t down at the solution, and how much each does; the sum is 1.
    struct Weight {
        std::size_t row;
        double weight;
    };
    std::vector<Weight> weights() const;
    /// Exchanges of the last call.
    int exchanges() const { return exchanges_; }

  private:
    /// A constraint normal·(d, t) <= bound: one of the rows or one side of the box.
    struct Constraint {
        bool isRow;
        std::size_t index;  ///< of the row, or of the variable
        double side;        ///< of the box: +1 above, -1 below
    };

    void start(const LinearRows& rows, std::span<const double> low, std::span<const double> high);
    std::size_t leaving() const;
    bool moveAlong(const LinearRows& rows, std::size_t leave, std::span<const double> low,
                   std::span<const double> high);
    void exchange(const LinearRows& rows, std::size_t leave, const Constraint& enter);
    double& inverse(std::size_t row, std::size_t column) {
        return inverse_[row * (n_ + 1) + column];
    }
    double inverse(std::size_t row, std::size_t column) const {
        return inverse_[row * (n_ + 1) + column];
    }

    std::size_t n_ = 0;
    int exchanges_ = 0;
    std::vector<Constraint> active_;  ///< n + 1 of them
    std::vector<double> inverse_;     ///< of the matrix of their normals
    std::vector<double> point_;       ///< d and t
    std::vector<double> slack_;       ///< of each row
    std::vector<double> rate_;        ///< of each slack along the edge
    std::vector<double> edge_;
    std::vector<double> products_;
};

}  // namespace kelvro
