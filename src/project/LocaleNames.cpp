#include "LocaleNames.h"

#include <QLocale>

#include <unicode/uloc.h>
#include <unicode/uversion.h>

using namespace Qt::StringLiterals;

namespace LocaleNames {

namespace {
QString s_interfaceLanguage;

using ComponentGetter = int32_t (*)(const char *, const char *, UChar *, int32_t, UErrorCode *);
using CodeGetter = int32_t (*)(const char *, char *, int32_t, UErrorCode *);

// One part of an identifier (language, script, region, variant) is known when ICU's English
// data names it: ICU answers an unknown code with the code itself. The test looks at the
// name, never at the status: a status below zero is only a warning (ICU used a parent or the
// default locale's data), and which warning comes back depends on the display locale and on
// the process's locale environment (LANG, LC_ALL), not on the identifier.
bool componentKnown(const char *id, CodeGetter code, ComponentGetter name, bool required)
{
    char raw[ULOC_FULLNAME_CAPACITY];
    UErrorCode status = U_ZERO_ERROR;
    const int32_t rawLength = code(id, raw, ULOC_FULLNAME_CAPACITY, &status);
    if (U_FAILURE(status) || rawLength >= ULOC_FULLNAME_CAPACITY)
        return false;
    if (rawLength <= 0)
        return !required;
    UChar buffer[256];
    status = U_ZERO_ERROR;
    const int32_t length = name(id, "en", buffer, 256, &status);
    if (U_FAILURE(status) || length <= 0 || length > 256)
        return false;
    const QString shown = QString::fromUtf16(reinterpret_cast<const char16_t *>(buffer), length);
    return shown.compare(QLatin1StringView(raw, rawLength), Qt::CaseInsensitive) != 0;
}

bool icuKnows(const QString &identifier)
{
    if (identifier.isEmpty())
        return false;
    const QByteArray id = identifier.toUtf8();
    return componentKnown(id.constData(), uloc_getLanguage, uloc_getDisplayLanguage, true) &&
           componentKnown(id.constData(), uloc_getScript, uloc_getDisplayScript, false) &&
           componentKnown(id.constData(), uloc_getCountry, uloc_getDisplayCountry, false) &&
           componentKnown(id.constData(), uloc_getVariant, uloc_getDisplayVariant, false);
}

// The display name in the given locale. Only U_FAILURE is a failure: ICU reports falling
// back from "en_US" to "en" (or to its default locale) with a warning below zero, and the
// name it returns then is the right one.
QString icuDisplayName(const QString &identifier, const QString &displayLocale)
{
    if (!icuKnows(identifier))
        return {};
    const QByteArray id = identifier.toUtf8();
    // A display locale ICU has no data for ("C", "POSIX") would fall back to ICU's default
    // locale, which follows LANG; names then come in English, the program's own language.
    const QByteArray in = icuKnows(displayLocale) ? displayLocale.toUtf8() : QByteArray("en");
    UChar buffer[256];
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = uloc_getDisplayName(id.constData(), in.constData(), buffer, 256, &status);
    if (U_FAILURE(status) || length <= 0 || length > 256)
        return {};
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(buffer), length);
}
} // namespace

bool isLocale(const QString &identifier)
{
    return icuKnows(identifier);
}

QString displayName(const QString &identifier)
{
    return icuDisplayName(identifier, interfaceLanguage());
}

QString nativeDisplayName(const QString &identifier)
{
    return icuDisplayName(identifier, identifier);
}

QString interfaceLanguage()
{
    if (!s_interfaceLanguage.isEmpty())
        return s_interfaceLanguage;
    const QString system = QLocale::system().name();
    return system.isEmpty() || system == u"C"_s ? u"en"_s : system;
}

void setInterfaceLanguage(const QString &identifier)
{
    s_interfaceLanguage = identifier;
}

QString currentLocaleIdentifier()
{
    const QString name = QLocale::system().name();
    return name == u"C"_s ? QString() : name;
}

QString icuVersion()
{
    UVersionInfo version;
    u_getVersion(version);
    char text[U_MAX_VERSION_STRING_LENGTH];
    u_versionToString(version, text);
    return QString::fromLatin1(text);
}

} // namespace LocaleNames
