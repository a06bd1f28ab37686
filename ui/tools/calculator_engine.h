#pragma once

#include <memory>
#include <string>
#include <string_view>

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

    struct Result {
        double value = 0;
        std::string error;  ///< one line; empty for a finite value
    };
    /// An empty expression has neither an error nor a value other than 0.
    Result evaluate(std::string_view expression);

    /// The value that "ans" stands for from here on.
    void setAnswer(double value);

  private:
    struct Parser;
    std::unique_ptr<Parser> parser_;
};

}  // namespace kelvro
