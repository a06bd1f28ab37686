#pragma once

#include <QString>

namespace kelvro {

/// What an engineer tells a colleague about a network before he builds it. HTML fragments.
struct PageHint {
    const char* use;         ///< what the network is good for
    const char* limits;      ///< where it stops being good
    const char* parasitics;  ///< where pads, leads and parasitics of real parts go
    const char* values;      ///< values that can be built
};

/// The hints of a page, 1..19.
const PageHint& HintOfPage(int page);

/// The hints as one HTML text with headings, ready for a text view.
QString HintHtml(int page);

}  // namespace kelvro
