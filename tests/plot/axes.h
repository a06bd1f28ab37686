#pragma once

#include <QTest>
#include <cmath>

#include "plot/frame.h"

// Axes and views for tests of plots.

namespace kelvro {

inline bool Near(double a, double b) {
    return std::fabs(a - b) <= 1e-12 * std::fabs(b);
}

inline Axis MakeAxis(AxisMode mode, double min, double max, double origin = 0) {
    return {.mode = mode, .min = min, .max = max, .origin = origin};
}

/// As a gain window opens for a design at 1 MHz.
inline View GainView(double ymax) {
    return {.x = DefaultFrequencyAxis(1e6), .y = {.min = -40, .max = ymax, .step = 1}};
}

inline void CompareAxis(const Axis& axis, double min, double max, double origin, double step) {
    const auto text = QString("min %1 max %2 origin %3 step %4")
                          .arg(axis.min)
                          .arg(axis.max)
                          .arg(axis.origin)
                          .arg(axis.step);
    QVERIFY2(Near(axis.min, min) && Near(axis.max, max) && Near(axis.origin, origin) &&
                 Near(axis.step, step),
             qPrintable(text));
}

}  // namespace kelvro
