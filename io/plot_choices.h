#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace kelvro {

enum class PlotWindow : std::uint8_t { Gain, Phase, Count };

/// What a plot window shows, as chosen in its menus.
struct PlotChoices {
    std::vector<std::string> traces = {};  ///< keys, the leading one first; none: as it opens
    int look = 0;                          ///< of the curve: line, line with dots, dashes
    bool harmonics = true;                 ///< lines at the multiples of fo
    bool levels = true;                    ///< lines at -1 dB and -3 dB
    bool edges = false;                    ///< edges of the band
    bool dark = false;                     ///< a dark ground
    bool caption = true;                   ///< lines below saved and printed pictures

    bool operator==(const PlotChoices&) const = default;
};

using PlotChoicesOfWindows = std::array<PlotChoices, static_cast<std::size_t>(PlotWindow::Count)>;

/// "v gt look=1 harmonics=No": traces, then what else was chosen.
std::string PlotChoicesText(const PlotChoices& choices);

/// The choices of such a text; what it does not say, or says in unknown words, is as by default.
PlotChoices ParsePlotChoices(const std::string& text);

}  // namespace kelvro
