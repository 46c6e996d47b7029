#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTranslator>

#include <memory>
#include <vector>

// The interface language: Captora's texts are English in the source and translated by Qt's
// translation tables (captora_<language>.qm), Qt's own standard buttons by Qt's tables
// (qtbase_<language>.qm).
//
// A text is looked up in the user's preferred languages in order and, when none of them has
// it, shown in English, the text itself. English in the list ends it: the languages after it
// are never asked.
namespace InterfaceLanguage {

// The languages to show the interface in, most preferred first: `chosen` (the "Locale"
// preference, when the user picked one) and then `system` (the system's preferred languages,
// QLocale::system().uiLanguages()). Identifiers are written with underscores ("de_AT"),
// duplicates and the C locale are dropped, and the list ends at the first English entry.
QStringList preferredLanguages(const QString &chosen, const QStringList &system);

// Where the translation tables are: $CAPTORA_TRANSLATIONS, the installed folder beside the
// program (../share/captora/translations), or the build tree's.
QString translationsDirectory();

// Loads the tables of `languages` (most preferred first) from `directory` and installs them
// into the application, so that the first language that has a text wins. `prefix` names the
// tables ("captora" finds captora_de.qm, and for "de_AT" first captora_de_AT.qm). Answers
// the translators installed, the most preferred last; they stay installed while they live.
std::vector<std::unique_ptr<QTranslator>> install(const QStringList &languages, const QString &directory,
                                                  const QString &prefix);

// What the program does at start: the preferred languages from the stored choice and the
// system, Captora's tables and Qt's own; language names follow the language of the menus.
// Needs the application and the user's settings.
std::vector<std::unique_ptr<QTranslator>> installForApplication();

} // namespace InterfaceLanguage
