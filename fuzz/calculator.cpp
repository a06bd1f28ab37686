// Formulas of the calculator: a value or an error text, in a moment.

#include "fuzz/require.h"
#include "ui/tools/calculator_engine.h"

using namespace kelvro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static CalculatorEngine engine;
    (void)engine.evaluate(TextOf(data, size));
    return 0;
}
