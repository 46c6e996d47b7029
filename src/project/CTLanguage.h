#pragma once

#include <QList>
#include <QString>
#include <QVariant>

#include <memory>

class CTLanguage;
using LanguagePtr = std::shared_ptr<CTLanguage>;
using LanguageList = QList<LanguagePtr>;

// A submenu of the language pop-up: the locales offered for renaming the current file.
struct LanguageMenu
{
    struct Item
    {
        QString title;
        QString localeIdentifier; // empty: no language
    };
    QList<Item> items;
};

// One row of a project's language menu: a subtitle file beside the movie (with the locale
// read from its name), a command row, a row opening a submenu, or a separator.
class CTLanguage
{
public:
    // A file entry: the locale is the text after the base path in the file name, kept only
    // when it names a real locale.
    static LanguagePtr languageWithFile(const QString &path, const QString &basePath);
    // A command row; an empty title makes a separator.
    static LanguagePtr languageWithDisplayName(const QString &title, const QString &action);
    // A row opening a submenu.
    static LanguagePtr languageWithDisplayName(const QString &title, std::shared_ptr<LanguageMenu> menu);

    const QString &locale() const { return m_locale; }
    const QString &localeIdentifier() const { return m_localeIdentifier; }
    // Also sets the locale when none is set.
    void setLocaleIdentifier(const QString &identifier);
    const QString &path() const { return m_path; }
    const QString &specifier() const { return m_specifier; }
    const QString &postFix() const { return m_postFix; }
    const QVariant &track() const { return m_track; }
    void setTrack(const QVariant &track) { m_track = track; }
    const QString &action() const { return m_action; }
    const std::shared_ptr<LanguageMenu> &menu() const { return m_menu; }

    // The explicit title, else the locale's name in the interface language, else
    // "Unknown"; then the specifier and the postfix (" Subtitle" for files).
    QString displayName() const;
    void setDisplayName(const QString &name) { m_displayName = name; }
    // A row whose explicit title is the empty string.
    bool isSeparator() const { return !m_displayName.isNull() && m_displayName.isEmpty(); }

    QString description() const;

private:
    QString m_locale;           // null: none
    QString m_localeIdentifier; // null: none
    QString m_path;
    QString m_specifier;
    QString m_postFix;
    QVariant m_track;
    QString m_displayName; // null: computed
    QString m_action;
    std::shared_ptr<LanguageMenu> m_menu;
};
