// The project's language files and pop-up: building it from the files beside the movie, choosing a
// row, renaming the current file to a language, and picking a file when a movie opens.
#include "LanguageFiles.h"
#include "CTFileHelper.h"
#include "CTWindowController.h"
#include "FileNames.h"
#include "LocaleNames.h"
#include "Log.h"
#include "ProjectSettings.h"
#include "ProjectView.h"
#include "Prompter.h"
#include "Settings.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

std::shared_ptr<LanguageMenu> LanguageFiles::sharedMenu()
{
    // Languages people write subtitles in most, by their names in the interface language;
    // "No Language" names a file without locale.
    static const std::shared_ptr<LanguageMenu> menu = [] {
        auto m = std::make_shared<LanguageMenu>();
        const QStringList codes{u"ar"_s, u"bg"_s,    u"ca"_s, u"cs"_s, u"da"_s, u"de"_s,      u"el"_s,
                                u"en"_s, u"es"_s,    u"et"_s, u"fa"_s, u"fi"_s, u"fr"_s,      u"he"_s,
                                u"hi"_s, u"hr"_s,    u"hu"_s, u"id"_s, u"is"_s, u"it"_s,      u"ja"_s,
                                u"ko"_s, u"lt"_s,    u"lv"_s, u"ms"_s, u"nb"_s, u"nl"_s,      u"pl"_s,
                                u"pt"_s, u"pt_BR"_s, u"ro"_s, u"ru"_s, u"sk"_s, u"sl"_s,      u"sr"_s,
                                u"sv"_s, u"th"_s,    u"tr"_s, u"uk"_s, u"vi"_s, u"zh_Hans"_s, u"zh_Hant"_s};
        for (const QString &code : codes)
            m->items.append({LocaleNames::displayName(code), code});
        std::sort(m->items.begin(), m->items.end(),
                  [](const LanguageMenu::Item &a, const LanguageMenu::Item &b) { return a.title < b.title; });
        m->items.prepend({tr("No Language"), QString()});
        return m;
    }();
    return menu;
}

void LanguageFiles::update()
{
    m_project.willChangeValueForKey(u"languages"_s);
    m_languages = CTFileHelper::languagesAtBasePath(m_project.m_basePath);
    const QString current = m_project.subtitlePath();
    LanguagePtr currentEntry;
    for (const LanguagePtr &language : std::as_const(m_languages)) {
        if (language->path() == current) {
            currentEntry = language;
            break;
        }
    }
    if (!currentEntry && !m_project.m_basePath.isEmpty() && !m_project.m_isChaptermark) {
        // A file opened from elsewhere, or not saved yet.
        currentEntry = CTLanguage::languageWithFile(current, m_project.m_basePath);
        m_languages.append(currentEntry);
    }
    std::stable_sort(m_languages.begin(), m_languages.end(), [](const LanguagePtr &a, const LanguagePtr &b) {
        return a->displayName() < b->displayName();
    });

    auto command = [](const QString &title, const QString &action) {
        return CTLanguage::languageWithDisplayName(title, action);
    };
    auto separator = [] { return CTLanguage::languageWithDisplayName(u""_s, QString()); };

    const bool hasChapterFile =
        !m_project.m_basePath.isEmpty() && pathExists(CTFileHelper::chapterMarksPath(m_project.m_basePath));
    if (hasChapterFile || m_project.m_isChaptermark) {
        const LanguagePtr chapters = command(tr("Chapter Marks"), u"editChapterMark:"_s);
        m_languages.prepend(chapters);
        if (m_project.m_isChaptermark) {
            currentEntry = chapters;
            m_languages.prepend(separator());
            m_languages.prepend(command(tr("Delete Chapter Marks File"), u"deleteSubtitleFile:"_s));
        }
    }
    if (!m_project.m_isChaptermark) {
        m_languages.prepend(separator());
        m_languages.prepend(CTLanguage::languageWithDisplayName(tr("Set Subtitle Language"), sharedMenu()));
        m_languages.prepend(command(tr("Delete Current Language"), u"deleteSubtitleFile:"_s));
    }
    m_languages.prepend(separator());
    m_languages.prepend(command(tr("Rescan Subtitles"), u"updateLanguages:"_s));
    m_languages.prepend(command(tr("Download via Web Search"), u"searchOnline:"_s));
    m_languages.prepend(command(tr("Open Existing Subtitle"), u"loadSubtitle:"_s));
    m_languages.prepend(command(tr("Add Empty Subtitle"), u"addSubtitleLanguage:"_s));

    m_languages.append(separator());
    if (m_project.movieKind() == 1)
        m_languages.append(command(tr("Embed Subtitles into Movie"), u"embedSubtitle:"_s));

    m_selectedIndex = currentEntry ? m_languages.indexOf(currentEntry) : -1;
    m_project.didChangeValueForKey(u"languages"_s);
    rebuildButton();
    if (m_selectedIndex < 0)
        logLine(u"Warning: Current subtitle not found in Button"_s);
}

QList<LanguageButtonItem> LanguageFiles::buttonItems(const LanguageList &languages)
{
    QList<LanguageButtonItem> items;
    QStringList titles;
    for (const LanguagePtr &language : languages) {
        if (language->isSeparator()) {
            items.append({QString(), true, false});
            continue;
        }
        QString title = language->displayName();
        while (titles.contains(title))
            title += u'~';
        titles.append(title);
        items.append({title, false, bool(language->menu())});
    }
    return items;
}

QString LanguageFiles::selectedTitle() const
{
    return m_selectedIndex >= 0 && m_selectedIndex < m_languages.size()
               ? m_languages[m_selectedIndex]->displayName()
               : QString();
}

void LanguageFiles::rebuildButton()
{
    if (m_project.m_view)
        m_project.m_view->setLanguageButton(buttonItems(m_languages), m_selectedIndex);
}

void LanguageFiles::select(qsizetype index)
{
    if (index == m_selectedIndex || index < 0 || index >= m_languages.size())
        return;
    const LanguagePtr language = m_languages[index];
    if (!language->action().isEmpty()) {
        runCommand(language->action());
        rebuildButton(); // commands never stay selected
        return;
    }
    if (language->path().isEmpty()) {
        logLine(u"Warning: Selected Item withaout action or path: %1"_s.arg(language->description()));
        return;
    }
    if (m_project.canDropSubtitle())
        m_project.setSubtitlePath(language->path());
    else
        rebuildButton();
}

void LanguageFiles::switchTo(const QString &localeIdentifier)
{
    if (m_project.m_basePath.isEmpty())
        return;
    const QString current = m_project.subtitlePath();
    const QString extension = localeIdentifier.isEmpty() ? u"srt"_s : localeIdentifier + u".srt"_s;
    const QString target = CTFileHelper::pathWithBase(m_project.m_basePath, extension, current);
    if (target != current) {
        if (pathExists(current))
            renameFile(current, target); // a failed move is not reported; the path changes anyway
        m_project.storeSubtitlePath(target);
    }
    update();
}

void LanguageFiles::autoSelect()
{
    if (m_project.m_hasChanged)
        return;
    const LanguageList files = CTFileHelper::languagesAtBasePath(m_project.m_basePath);
    const QString preferred = Preferences::Locale.value();
    LanguagePtr chosen;
    for (const LanguagePtr &language : files) {
        if (language->localeIdentifier() == preferred)
            chosen = language;
    }
    if (!chosen && !files.isEmpty())
        chosen = files.first();
    m_project.setSubtitlePath(chosen ? chosen->path() : QString());
}

void LanguageFiles::runCommand(const QString &command)
{
    // The pop-up's commands; the others (web search) belong to the wiring around the window.
    using Action = void (*)(LanguageFiles &);
    static const QHash<QString, Action> actions = {
        {u"editChapterMark:"_s,
         [](LanguageFiles &files) {
             CTWindowController &p = files.m_project;
             if (p.canDropSubtitle())
                 p.setSubtitlePath(CTFileHelper::chapterMarksPath(p.m_basePath), true);
         }},
        {u"deleteSubtitleFile:"_s, [](LanguageFiles &files) { files.m_project.deleteSubtitleFile(); }},
        {u"updateLanguages:"_s, [](LanguageFiles &files) { files.update(); }},
        {u"loadSubtitle:"_s, [](LanguageFiles &files) { files.m_project.loadSubtitle(); }},
        {u"addSubtitleLanguage:"_s, [](LanguageFiles &files) { files.addLanguage(); }},
        {u"embedSubtitle:"_s, [](LanguageFiles &files) { files.m_project.embedSubtitle(); }},
    };
    if (const Action action = actions.value(command))
        action(*this);
    else if (m_project.m_commandHandler)
        m_project.m_commandHandler(command);
}

void LanguageFiles::addLanguage()
{
    if (m_project.m_basePath.isEmpty() || !m_project.canDropSubtitle())
        return;
    const std::shared_ptr<LanguageMenu> menu = sharedMenu();
    Prompt prompt;
    prompt.message = tr("Add Empty Subtitle");
    prompt.informative = tr("Choose the language of the new subtitle file:");
    prompt.buttons = {tr("Add"), tr("Cancel")};
    const QString preferred = Preferences::Locale.value();
    for (qsizetype i = 0; i < menu->items.size(); ++i) {
        prompt.choices.append({menu->items[i].title, qint64(i), false});
        if (menu->items[i].localeIdentifier == preferred)
            prompt.selectedTag = i;
    }
    const PromptAnswer answer = Prompter::shared().ask(prompt);
    if (answer.button != 0 || answer.selectedTag < 0 || answer.selectedTag >= menu->items.size())
        return;
    m_newLocale = menu->items[answer.selectedTag].localeIdentifier;
    m_project.setSubtitlePath(QString(), false);
}
