#pragma once

#include <QString>
#include <string_view>

namespace kelvro {

/// What the user reads, in the language of the windows, of a text that is written in English: an
/// entry of a table, or what one of the rooms without Qt says. Looked up as it stands; where the
/// catalogue has no such text, in its texts with places ("%1 has no data"), whose places are
/// translated in turn. What is nowhere, such as a name or a number, stays as it is.
/// \param text UTF-8; marked by QT_TRANSLATE_NOOP("kelvro", ...) or listed in
///             translations/texts.txt
QString Shown(std::string_view text);

}  // namespace kelvro
