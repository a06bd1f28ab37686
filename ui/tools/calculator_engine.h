#pragma once

#include <memory>
#include <string_view>

#include "core/result.h"

namespace kelvro {

/// Expressions with engineering prefixes: "4.7k*2u", "1/(2*pi*sqrt(100n*22p))". Comma and point are
/// both decimal; arguments of functions are separated by ";" or, without a ";" in the expression,
/// by
/// ",". Independent of the locale; no input fails in any other way than by an error text.
class CalculatorEngine {
  public:
    CalculatorEngine();
    ~CalculatorEngine();
    CalculatorEngine(const CalculatorEngine&) = delete;
    CalculatorEngine& operator=(const CalculatorEngine&) = delete;

    /// The value, which is finite; an empty expression is worth 0. A failure is one line.
    Result<double> evaluate(std::string_view expression);

    /// The value that "ans" stands for from here on.
    void setAnswer(double value);

  private:
    struct Parser;
    std::unique_ptr<Parser> parser_;
};

}  // namespace kelvro
