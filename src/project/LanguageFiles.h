#pragma once

#include "CTLanguage.h"
#include "ProjectView.h"

#include <QCoreApplication>
#include <QString>

#include <memory>

class CTWindowController;

// The subtitle files of the project's movie, one per language, as the language pop-up lists
// them with its commands; choosing one, renaming the current file to a language, adding an
// empty one, and picking the file to open when a movie opens. The project forwards its
// language operations here.
//
// Threading: main thread only.
class LanguageFiles
{
    // The pop-up's titles keep the project's translations.
    Q_DECLARE_TR_FUNCTIONS(CTWindowController)

public:
    explicit LanguageFiles(CTWindowController &project)
        : m_project(project)
    {}

    const LanguageList &languages() const { return m_languages; }
    qsizetype selectedIndex() const { return m_selectedIndex; }
    void clear() { m_languages.clear(); }
    // Lists the files beside the movie again, with the commands around them, and shows them.
    void update();
    // A row of the pop-up chosen: a command runs, a file opens (after the unsaved-changes
    // question).
    void select(qsizetype index);
    // Renames the current file to the locale (empty: no language).
    void switchTo(const QString &localeIdentifier);
    // The file of the preferred language, else the first one, unless there are unsaved changes.
    void autoSelect();
    // Runs a command of the pop-up ("loadSubtitle:", "deleteSubtitleFile:", ...); others go to
    // the project's command handler.
    void runCommand(const QString &command);
    // Asks for a language and starts an empty subtitle file for it.
    void addLanguage();
    // The identifier for the next file loaded as a new language; taken once.
    void setNewLocale(const QString &identifier) { m_newLocale = identifier; }
    QString takeNewLocale() { return std::exchange(m_newLocale, QString()); }
    const QString &newLocale() const { return m_newLocale; }
    // The title of the selected row ("" when none).
    QString selectedTitle() const;

    static std::shared_ptr<LanguageMenu> sharedMenu();
    static QList<LanguageButtonItem> buttonItems(const LanguageList &languages);

private:
    void rebuildButton();

    CTWindowController &m_project;
    LanguageList m_languages;
    qsizetype m_selectedIndex = -1;
    QString m_newLocale;
};
