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

/// A value's text: its word for no limit ("infinite", "-infinite") as the user reads it, numbers as
/// they are.
QString ShownValue(std::string_view text);
/// Is a text that the user has typed, or that was shown, that word?
bool IsInfinite(const QString& text);

/// "Undo Round R1": a menu's verb with the name of the step that it would take, "&" of the name
/// printed; the verb alone without a step.
QString StepCaption(const QString& verb, std::string_view step);

}  // namespace kelvro
