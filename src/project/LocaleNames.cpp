#include "LocaleNames.h"

#include <QLocale>

#include <unicode/uloc.h>

using namespace Qt::StringLiterals;

namespace LocaleNames {

namespace {
QString s_interfaceLanguage;

QString icuDisplayName(const QString &identifier, const QString &displayLocale, bool *known)
{
    const QByteArray id = identifier.toUtf8();
    const QByteArray in = displayLocale.toUtf8();
    UChar buffer[256];
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = uloc_getDisplayName(id.constData(), in.constData(), buffer, 256, &status);
    // ICU answers unknown codes with the code itself and a "using default" warning.
    *known = !identifier.isEmpty() && status == U_ZERO_ERROR && length > 0;
    if (U_FAILURE(status) || length <= 0)
        return {};
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(buffer), qMin(length, 256));
}
} // namespace

bool isLocale(const QString &identifier)
{
    bool known = false;
    icuDisplayName(identifier, u"en"_s, &known);
    return known;
}

QString displayName(const QString &identifier)
{
    bool known = false;
    const QString name = icuDisplayName(identifier, interfaceLanguage(), &known);
    return known ? name : QString();
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

} // namespace LocaleNames
