#include "CTLanguage.h"

#include "CTFileHelper.h"
#include "LocaleNames.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

LanguagePtr CTLanguage::languageWithFile(const QString &path, const QString &basePath)
{
    auto language = std::make_shared<CTLanguage>();
    language->m_path = path;
    language->m_postFix = u" Subtitle"_s;

    const QString withoutExtension = CTFileHelper::stringByDeletingPathExtension(path);
    const qsizetype found = withoutExtension.indexOf(basePath);
    if (found < 0)
        return language;
    const qsizetype position = found + basePath.size();
    const QString rest = withoutExtension.mid(position);
    qsizetype identifierLength = 0;
    bool hasLocale = false;
    if (rest.size() >= 2) {
        const QString identifier = rest.mid(1);
        language->m_locale = identifier;
        if (LocaleNames::isLocale(identifier)) {
            language->m_localeIdentifier = identifier;
            identifierLength = identifier.size();
            hasLocale = true;
        } else {
            language->m_locale = QString();
        }
    }
    // The specifier range starts where the base ends in the whole path but is applied to
    // the rest; for any real folder it lies outside the rest and the specifier stays
    // empty. Display names depend on this, so the computation stays as it is.
    const qint64 length = qint64(rest.size()) - qint64(position) - (hasLocale ? identifierLength + 1 : 0);
    if (length >= 0 && qint64(position) + length <= rest.size())
        language->m_specifier = rest.mid(position, length);
    return language;
}

LanguagePtr CTLanguage::languageWithDisplayName(const QString &title, const QString &action)
{
    auto language = std::make_shared<CTLanguage>();
    language->m_displayName = title.isNull() ? u""_s : title;
    language->m_action = action;
    return language;
}

LanguagePtr CTLanguage::languageWithDisplayName(const QString &title, std::shared_ptr<LanguageMenu> menu)
{
    auto language = std::make_shared<CTLanguage>();
    language->m_displayName = title.isNull() ? u""_s : title;
    language->m_menu = std::move(menu);
    return language;
}

void CTLanguage::setLocaleIdentifier(const QString &identifier)
{
    m_localeIdentifier = identifier;
    if (m_locale.isEmpty())
        m_locale = identifier;
}

QString CTLanguage::displayName() const
{
    QString name;
    if (!m_displayName.isNull()) {
        name = m_displayName;
    } else if (!m_locale.isEmpty()) {
        name = LocaleNames::displayName(m_localeIdentifier.isEmpty() ? m_locale : m_localeIdentifier);
        if (name.isNull())
            name = QCoreApplication::translate("CTLanguage", "Unknown", "a language");
    } else {
        name = QCoreApplication::translate("CTLanguage", "Unknown", "a language");
    }
    // A language file is named as one phrase ("English Subtitle"), which languages order
    // differently; other entries carry no postfix.
    if (m_postFix == u" Subtitle"_s)
        return QCoreApplication::translate("CTLanguage", "%1 Subtitle", "a subtitle file in a language")
            .arg(name + m_specifier);
    return name + m_specifier + m_postFix;
}

QString CTLanguage::description() const
{
    const QString self = u"<CTLanguage: 0x%1>"_s.arg(quintptr(this), 0, 16);
    const QString where = m_track.isValid() ? m_track.toString() : m_path;
    return u"%1: %2 (%3)"_s.arg(self, displayName(), where);
}
