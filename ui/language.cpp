#include "ui/language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QSettings>
#include <QTranslator>
#include <array>

/// The catalogues lie in a static library, whose resources the linker drops unless they are named.
static void LoadCatalogues() {
    Q_INIT_RESOURCE(translations);
}

namespace kelvro {

namespace {

constexpr char kKey[] = "language";
/// As the choice is remembered and the catalogues are named, in the order of Language.
constexpr std::array kCodes = {"system", "en", "de"};

QSettings Remembered() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("kelvro"),
                     QStringLiteral("windows"));
}

Language LanguageOf(const QString& code) {
    for (std::size_t i = 0; i < kCodes.size(); ++i)
        if (code == QLatin1String(kCodes[i])) return static_cast<Language>(i);
    return Language::System;
}

Language LanguageOfDesktop() {
    for (const QString& name : QLocale::system().uiLanguages()) {
        const Language known = LanguageOf(name.left(2).toLower());
        if (known != Language::System) return known;
    }
    return Language::English;
}

void Install(QCoreApplication& app, const QString& catalogue, const QString& folder) {
    auto* translator = new QTranslator(&app);
    if (translator->load(catalogue, folder)) {
        QCoreApplication::installTranslator(translator);
    } else {
        delete translator;
    }
}

}  // namespace

Language ChosenLanguage() {
    return LanguageOf(Remembered().value(QLatin1String(kKey)).toString());
}

void RememberLanguage(Language language) {
    Remembered().setValue(QLatin1String(kKey),
                          QLatin1String(kCodes[static_cast<std::size_t>(language)]));
}

void SpeakLanguage(QCoreApplication& app, Language language) {
    LoadCatalogues();
    if (language == Language::System) language = LanguageOfDesktop();
    if (language == Language::English) return;
    const QString code = QLatin1String(kCodes[static_cast<std::size_t>(language)]);
    Install(app, QStringLiteral("qtbase_") + code,
            QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    Install(app, QStringLiteral("kelvro_") + code, QStringLiteral(":/translations"));
}

QString LanguageCode() {
    //: The code of this language, such as de
    return QCoreApplication::translate("kelvro", "en");
}

bool IsTranslated() {
    return LanguageCode() != QLatin1String("en");
}

}  // namespace kelvro
