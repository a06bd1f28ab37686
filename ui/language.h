#pragma once

#include <QString>

class QCoreApplication;

namespace kelvro {

/// The language of the windows. Files and the command line stay English in each.
enum class Language { System, English, German };

/// What the user has chosen under Options; System at first.
Language ChosenLanguage();
/// Remembers a choice; it takes effect with the next start.
void RememberLanguage(Language language);

/// Installs the catalogues of a language for the windows that are built from now on: the program's
/// own, and Qt's for its dialogs where the machine has it. System: the first of the desktop's
/// languages that the program knows; English where it knows none.
void SpeakLanguage(QCoreApplication& app, Language language);

/// The code of the language that the windows speak: en, de.
QString LanguageCode();
/// Is a catalogue in use, so that texts may differ from what the sources say?
bool IsTranslated();

}  // namespace kelvro
