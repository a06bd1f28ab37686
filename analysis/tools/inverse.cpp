#include "analysis/tools/inverse.h"

#include <cmath>
#include <limits>

namespace kelvro {

double InverseOf(const std::function<double(double)>& function, double target, double lo,
                 double hi) {
    // Twelve decades of x and 52 bits of a double are used up after less than 100 halvings.
    constexpr int cap = 110;
    const double first = function(lo);
    const double last = function(hi);
    const bool rising = first <= target && target <= last;
    const bool falling = last <= target && target <= first;
    if (!rising && !falling) return std::numeric_limits<double>::quiet_NaN();
    const auto below = [&](double x) {
        return rising ? function(x) < target : function(x) > target;
    };
    double a = std::log(lo);
    double b = std::log(hi);
    for (int i = 0; i < cap && a < b; ++i) {
        const double middle = a + (b - a) / 2;
        (below(std::exp(middle)) ? a : b) = middle;
    }
    return std::exp(b);
}

}  // namespace kelvro
