#pragma once

#include <QString>
#include <string>

// Distances within a plot's picture, in logical pixels, shared by its layout and its painter.

namespace kelvro::metrics {

inline constexpr double kGap = 4;  ///< between texts and what they stand beside
inline constexpr double kEdge = 8;
inline constexpr double kLegendLine = 18;

inline QString ToText(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace kelvro::metrics
