#pragma once

#include <QString>

namespace kelvro {

struct Page;

/// What to know before building the network of a page, as one HTML text with headings.
QString HintHtml(const Page& page);

}  // namespace kelvro
