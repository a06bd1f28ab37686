#pragma once

#include <span>
#include <vector>

#include "optimize/complex_row.h"
#include "optimize/max_min.h"
#include "optimize/stages.h"

// Gains of ladders over frequency with their exact gradients, made for an inner loop: everything
// relative to one resistance and one frequency, real and imaginary parts in arrays of their own.

namespace kelvro {

/// What ladders are evaluated against: terminations and unit parts at some frequencies, relative to
/// a resistance R0 and a frequency f0. A parameter of a ladder is ln(ω0·L/R0), ln(ω0·C·R0),
/// ln(Z0/R0), ln(angle at f0, radians) or ln(turns ratio).
struct ModelGrid {
    double R0 = 50;
    double f0 = 1;
    std::vector<double> f;
    ComplexRow source;  ///< ZS/R0
    ComplexRow load;    ///< ZL/R0
    // The inductor with ω0·L = R0 and the capacitor with ω0·C = 1/R0, their losses included.
    ComplexRow inductorZ;        ///< Z/R0
    ComplexRow inductorY;        ///< Y·R0
    ComplexRow capacitorZ;       ///< Z/R0
    ComplexRow capacitorY;       ///< Y·R0
    std::vector<double> fourRR;  ///< 4·Re ZS·Re ZL/R0²
    /// A row of the goal is sign·(ln GT - ceiling): in the bands ln GT itself, at a harmonic how
    /// far it stays below what is allowed, weighted.
    std::vector<double> sign;
    std::vector<double> ceiling;

    std::size_t size() const { return f.size(); }
};

/// Some of the frequencies of a grid.
void Gather(const ModelGrid& grid, std::span<const std::size_t> which, ModelGrid& some);

/// Losses of all inductors and all capacitors of a search: only laws of Q and self-resonances,
/// whose impedance is proportional to the value.
struct SearchLosses {
    PartLoss inductor;
    PartLoss capacitor;
    bool operator==(const SearchLosses&) const = default;
};

/// The grid of frequencies between terminations. Frequencies have to lie where both have values.
ModelGrid GridOf(const Termination& source, const Termination& load, const SearchLosses& losses,
                 double R0, double f0, std::span<const double> f);

/// Evaluates ladders on a grid. One object per thread: it keeps its memory.
class LadderModel {
  public:
    /// Goal rows (ln GT in the bands) at the parameters x, without gradients.
    void values(const ModelGrid& grid, const Stages& topology, std::span<const double> x,
                std::vector<double>& rows);
    /// The same with gradients.
    void rows(const ModelGrid& grid, const Stages& topology, std::span<const double> x,
              LinearRows& rows);

  private:
    /// Voltage and current behind a stage, towards the load.
    struct Wave {
        ComplexRow voltage;
        ComplexRow current;
    };
    /// A stage at all frequencies. Of an arm: impedance if in series, else admittance. Of a line:
    /// cosine and sine of its angle.
    struct StageRows {
        ComplexRow value;
        ComplexRow derivative[2];  ///< of an arm, to its parameters
    };
    struct StageAt;

    void backward(const ModelGrid& grid, const Stages& topology, std::span<const double> x);
    void gradients(const ModelGrid& grid, const Stages& topology, std::span<const double> x,
                   LinearRows& rows);

    std::vector<Wave> waves_;  ///< in front of each stage, and last at the load
    std::vector<StageRows> stages_;
    ComplexRow determinant_;  ///< A·ZL + B + ZS·(C·ZL + D)
    ComplexRow inverse_;      ///< -2 over it
    Wave adjoint_;            ///< of the determinant to voltage and current in front of a stage
    Wave scratch_;
};

/// The rows of one ladder as a goal.
class LadderGoal : public MaxMinGoal {
  public:
    LadderGoal(LadderModel& model, const ModelGrid& grid, const Stages& topology)
        : model_(model), grid_(grid), topology_(topology) {}

    void rows(std::span<const double> x, LinearRows& rows) override {
        model_.rows(grid_, topology_, x, rows);
    }
    void someRows(std::span<const std::size_t> which, std::span<const double> x,
                  LinearRows& rows) override {
        Gather(grid_, which, some_);
        model_.rows(some_, topology_, x, rows);
    }

  private:
    LadderModel& model_;
    const ModelGrid& grid_;
    const Stages& topology_;
    ModelGrid some_;
};

}  // namespace kelvro
