#pragma once

#include <QString>

// Locale identifiers ("en", "pt_BR") and their names, from ICU's locale data.
namespace LocaleNames {

// True when ICU knows a display name for the identifier: "en", "pt_BR", "sr_Latn" are
// locales; "xx", "part2" and "" are not.
bool isLocale(const QString &identifier);

// The identifier's display name in the interface language ("English",
// "Portuguese (Brazil)"), or a null string when it is not a locale.
QString displayName(const QString &identifier);

// The identifier's display name in its own language ("Deutsch" for "de"), or a null string
// when it is not a locale.
QString nativeDisplayName(const QString &identifier);

// The language names are shown in: the user's interface language, "en" when the system
// locale is C/POSIX. The application may set it (its interface-language preference).
QString interfaceLanguage();
void setInterfaceLanguage(const QString &identifier);

// The user's current locale identifier ("de_CH"), "" for the C locale.
QString currentLocaleIdentifier();

// The version of the ICU library the program runs with ("72.1").
QString icuVersion();

} // namespace LocaleNames
