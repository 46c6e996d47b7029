// The project's language menu: building it from the files beside the movie, choosing a
// row, renaming the current file to a language, and picking a file when a movie opens.
#include "CTFileHelper.h"
#include "CTWindowController.h"
#include "FileNames.h"
#include "LocaleNames.h"
#include "Log.h"
#include "ProjectView.h"
#include "Prompter.h"
#include "Settings.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

std::shared_ptr<LanguageMenu> CTWindowController::sharedLanguageMenu()
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

void CTWindowController::updateLanguages()
{
    willChangeValueForKey(u"languages"_s);
    m_languages = CTFileHelper::languagesAtBasePath(m_basePath);
    const QString current = subtitlePath();
    LanguagePtr currentEntry;
    for (const LanguagePtr &language : std::as_const(m_languages)) {
        if (language->path() == current) {
            currentEntry = language;
            break;
        }
    }
    if (!currentEntry && !m_basePath.isEmpty() && !m_isChaptermark) {
        // A file opened from elsewhere, or not saved yet.
        currentEntry = CTLanguage::languageWithFile(current, m_basePath);
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
        !m_basePath.isEmpty() && pathExists(CTFileHelper::chapterMarksPath(m_basePath));
    if (hasChapterFile || m_isChaptermark) {
        const LanguagePtr chapters = command(tr("Chapter Marks"), u"editChapterMark:"_s);
        m_languages.prepend(chapters);
        if (m_isChaptermark) {
            currentEntry = chapters;
            m_languages.prepend(separator());
            m_languages.prepend(command(tr("Delete Chapter Marks File"), u"deleteSubtitleFile:"_s));
        }
    }
    if (!m_isChaptermark) {
        m_languages.prepend(separator());
        m_languages.prepend(
            CTLanguage::languageWithDisplayName(tr("Set Subtitle Language"), sharedLanguageMenu()));
        m_languages.prepend(command(tr("Delete Current Language"), u"deleteSubtitleFile:"_s));
    }
    m_languages.prepend(separator());
    m_languages.prepend(command(tr("Rescan Subtitles"), u"updateLanguages:"_s));
    m_languages.prepend(command(tr("Download via Web Search"), u"searchOnline:"_s));
    m_languages.prepend(command(tr("Open Existing Subtitle"), u"loadSubtitle:"_s));
    m_languages.prepend(command(tr("Add Empty Subtitle"), u"addSubtitleLanguage:"_s));

    m_languages.append(separator());
    if (m_movieKind == 1)
        m_languages.append(command(tr("Embed Subtitles into Movie"), u"embedSubtitle:"_s));

    m_selectedLanguageIndex = currentEntry ? m_languages.indexOf(currentEntry) : -1;
    didChangeValueForKey(u"languages"_s);
    rebuildLanguageButton();
    if (m_selectedLanguageIndex < 0)
        logLine(u"Warning: Current subtitle not found in Button"_s);
}

QList<LanguageButtonItem> CTWindowController::languageButtonItems(const LanguageList &languages)
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

void CTWindowController::rebuildLanguageButton()
{
    if (m_view)
        m_view->setLanguageButton(languageButtonItems(m_languages), m_selectedLanguageIndex);
}

void CTWindowController::selectSubtitleLanguage(qsizetype index)
{
    if (index == m_selectedLanguageIndex || index < 0 || index >= m_languages.size())
        return;
    const LanguagePtr language = m_languages[index];
    if (!language->action().isEmpty()) {
        runLanguageCommand(language->action());
        rebuildLanguageButton(); // commands never stay selected
        return;
    }
    if (language->path().isEmpty()) {
        logLine(u"Warning: Selected Item withaout action or path: %1"_s.arg(language->description()));
        return;
    }
    if (canDropSubtitle())
        setSubtitlePath(language->path());
    else
        rebuildLanguageButton();
}

void CTWindowController::switchLanguage(const QString &localeIdentifier)
{
    if (m_basePath.isEmpty())
        return;
    const QString current = subtitlePath();
    const QString extension = localeIdentifier.isEmpty() ? u"srt"_s : localeIdentifier + u".srt"_s;
    const QString target = CTFileHelper::pathWithBase(m_basePath, extension, current);
    if (target != current) {
        if (pathExists(current))
            renameFile(current, target); // a failed move is not reported; the path changes anyway
        storeSubtitlePath(target);
    }
    updateLanguages();
}

void CTWindowController::autoSelectSubtitle()
{
    if (m_hasChanged)
        return;
    const LanguageList files = CTFileHelper::languagesAtBasePath(m_basePath);
    const QString preferred = Settings::shared().stringValue(u"Locale"_s);
    LanguagePtr chosen;
    for (const LanguagePtr &language : files) {
        if (language->localeIdentifier() == preferred)
            chosen = language;
    }
    if (!chosen && !files.isEmpty())
        chosen = files.first();
    setSubtitlePath(chosen ? chosen->path() : QString());
}

void CTWindowController::runLanguageCommand(const QString &command)
{
    if (command == u"editChapterMark:"_s) {
        if (canDropSubtitle())
            setSubtitlePath(CTFileHelper::chapterMarksPath(m_basePath), true);
    } else if (command == u"deleteSubtitleFile:"_s) {
        deleteSubtitleFile();
    } else if (command == u"updateLanguages:"_s) {
        updateLanguages();
    } else if (command == u"loadSubtitle:"_s) {
        loadSubtitle();
    } else if (command == u"addSubtitleLanguage:"_s) {
        addSubtitleLanguage();
    } else if (command == u"embedSubtitle:"_s) {
        embedSubtitle();
    } else if (m_commandHandler) {
        m_commandHandler(command);
    }
}

void CTWindowController::addSubtitleLanguage()
{
    if (m_basePath.isEmpty() || !canDropSubtitle())
        return;
    const std::shared_ptr<LanguageMenu> menu = sharedLanguageMenu();
    Prompt prompt;
    prompt.message = tr("Add Empty Subtitle");
    prompt.informative = tr("Choose the language of the new subtitle file:");
    prompt.buttons = {tr("Add"), tr("Cancel")};
    const QString preferred = Settings::shared().stringValue(u"Locale"_s);
    for (qsizetype i = 0; i < menu->items.size(); ++i) {
        prompt.choices.append({menu->items[i].title, qint64(i), false});
        if (menu->items[i].localeIdentifier == preferred)
            prompt.selectedTag = i;
    }
    const PromptAnswer answer = Prompter::shared().ask(prompt);
    if (answer.button != 0 || answer.selectedTag < 0 || answer.selectedTag >= menu->items.size())
        return;
    m_newLocale = menu->items[answer.selectedTag].localeIdentifier;
    setSubtitlePath(QString(), false);
}
