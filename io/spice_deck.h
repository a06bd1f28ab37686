#pragma once

#include <string>
#include <string_view>

#include "io/exports.h"

namespace kelvro {

/// A netlist in the making: title, lines, end. SPICE reads plain ASCII.
class SpiceDeck {
  public:
    explicit SpiceDeck(std::string_view title);
    explicit SpiceDeck(const ExportDesign& design);

    void comment(std::string_view text);
    /// Says which Q parts of a loss tangent have; nothing for parts without loss.
    void elementQ(double tangent);
    void line(std::string_view text);
    /// A part between two nodes; its kind is the first letter of its name. A resistor of 0 ohm in a
    /// series arm is written as a source of 0 V, which is a wire.
    void part(const std::string& name, const std::string& from, const std::string& to,
              double value);

    /// A resistor whose value is an expression of the frequency `hertz`.
    void expression(const std::string& name, const std::string& from, const std::string& to,
                    const std::string& ohms);

    /// All lines, closed by ".end".
    std::string text() const;

  private:
    std::string text_;
};

}  // namespace kelvro
