// Loading, saving, exporting, creating, converting and deleting the project's file, and
// files that arrive by drop or download.
#include "CTFileHelper.h"
#include "CTWindowController.h"
#include "FileNames.h"
#include "Log.h"
#include "MainQueue.h"
#include "PlaybackControl.h"
#include "ProjectSettings.h"
#include "Prompter.h"
#include "Settings.h"
#include "VHVideoText.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
// Holds a project flag for the lifetime of the scope and restores its earlier value.
class FlagScope
{
public:
    FlagScope(bool &flag)
        : m_flag(flag)
        , m_old(flag)
    {
        m_flag = true;
    }
    ~FlagScope() { m_flag = m_old; }

private:
    bool &m_flag;
    bool m_old;
};

bool isWebVTTPath(const QString &path)
{
    return CTFileHelper::pathExtension(path) == u"vtt"_s;
}
} // namespace

void CTWindowController::setSubtitlePath(const QString &path)
{
    setSubtitlePath(path, isWebVTTPath(path));
}

void CTWindowController::setSubtitlePath(const QString &path, bool chapterMark)
{
    FlagScope noVerifying(m_noVerifying);
    willChangeValueForKey(u"hasSubtitleFile"_s);
    willChangeValueForKey(u"subtitlePath"_s);

    clearSelection();

    QString target;
    if (chapterMark) {
        target = CTFileHelper::chapterMarksPath(m_basePath);
        if (path != target && (pathExists(target) || m_isChaptermark)) {
            Prompt prompt;
            prompt.message = tr("Overwrite Chaper Marks File?");
            prompt.buttons = {tr("Overwrite"), tr("Cancel")};
            if (Prompter::shared().ask(prompt).button != 0)
                target = path;
        }
    } else {
        if (moviePath().isEmpty() && !path.isEmpty() && (m_basePath.isEmpty() || !path.contains(m_basePath)))
            setBasePath(CTFileHelper::stringByDeletingLocaleAndPathExtension(path));
        QString identifier = m_languageFiles->takeNewLocale();
        if (identifier.isNull() && !path.isEmpty())
            identifier = CTLanguage::languageWithFile(path, m_basePath)->localeIdentifier();
        const QString extension = identifier.isEmpty() ? u"srt"_s : identifier + u".srt"_s;
        target = CTFileHelper::pathWithBase(m_basePath, extension, path);
    }

    m_isChaptermark = chapterMark;

    bool loaded = false;
    bool salvaged = false; // a file no reader accepts, read tolerantly: saving makes it clean
    EncodingId fileEncoding = Encodings::None;
    if (!path.isEmpty() && pathExists(path)) {
        const auto encoding = Encodings::canonical(EncodingId(Preferences::Encoding.value()));
        const bool optional = target == path;
        std::optional<SubtitleList> cues =
            chapterMark
                ? VHVideoText::videoTextsFromFileAtURL(path, movieDuration(), encoding, optional)
                : VHSubtitle::subtitlesFromFileAtURL(path, fps(), movieDuration(), encoding, optional,
                                                     VHSubtitle::Salvage::Ask, &salvaged, &fileEncoding);
        setSubtitles(cues.value_or(SubtitleList()));
        setFixMode(defaultFixMode());
        if (!m_subtitles.isEmpty()) {
            m_isFixed = false;
            NotificationCenter::defaultCenter().post(SubLoadedNotification, this);
        } else {
            Prompt prompt;
            prompt.message = chapterMark ? tr("The chapter mark file cannot be parsed. It's probably "
                                              "malformatted or an unusual format.")
                                         : tr("The subtitle file cannot be parsed. It's probably "
                                              "malformatted or an unusual format.");
            prompt.buttons = {tr("OK")};
            Prompter::shared().ask(prompt);
            logLine(u"Warning: Subtitles/Chapter Mark at %1 could not be loaded"_s.arg(path));
        }
        loaded = true;
    }
    if (!loaded) {
        setSubtitles({});
        if (chapterMark) {
            addSubtitle();
            setFixMode(defaultFixMode());
            // The first mark of a new chapter file is where it starts, not an edit to undo.
            m_editor->restartHistory();
        }
    }

    setFileEncoding(m_subtitles.isEmpty() ? Encodings::None : fileEncoding);
    setHasChanged((target != path || salvaged) && !path.isEmpty() && !m_subtitles.isEmpty());
    // The undo history of the file: kept from an earlier visit when the file is as it was
    // then saved or loaded.
    m_editor->adoptHistory(target);
    if (m_hasChanged)
        m_editor->markUnsaved();

    if (target.isEmpty())
        Preferences::LastSubtitle.remove();
    else
        Preferences::LastSubtitle.set(target);
    didChangeValueForKey(u"subtitlePath"_s);
    didChangeValueForKey(u"hasSubtitleFile"_s);
    if (!target.isEmpty() && m_view)
        m_view->makeKeyAndOrderFront();
    updateLanguages();
    // Unsaved changes to this file that a crash or a kill left behind.
    offerRecoveryOf(target);
}

void CTWindowController::loadSubtitle()
{
    if (!m_view)
        return;
    // Every kind of file the readers take, not only SubRip.
    const QString path =
        m_view->runOpenPanel(CTFileHelper::subtitleExtensions(), false, QFileInfo(m_basePath).path());
    if (!path.isNull())
        setSubtitlePath(path);
}

void CTWindowController::reloadSubtitle()
{
    const QString path = subtitlePath();
    if (path.isEmpty() || !canDropSubtitle())
        return;
    setSubtitlePath(path, m_isChaptermark);
}

void CTWindowController::saveSubtitle()
{
    QString path = subtitlePath();
    if (path.isEmpty()) {
        if (!m_view)
            return;
        SavePanelOptions options;
        options.allowedTypes = {m_isChaptermark ? u"vtt"_s : u"srt"_s};
        options.directory = QFileInfo(m_basePath).path();
        path = m_view->runSavePanel(options);
        if (path.isNull())
            return;
        storeSubtitlePath(path);
    }
    if (m_isChaptermark)
        saveChapterMarkAt(path);
    else
        saveSubtitleAt(path);
}

bool CTWindowController::saveSubtitleAt(const QString &path)
{
    if (m_hasChanged)
        m_embeddingState = 2; // the movie needs embedding again
    if (path.isEmpty())
        return false;
    if (!VHSubtitle::writeSubtitles(m_subtitles, path))
        return false;
    removeRecoveryCopy();
    m_editor->markClean();
    setFileEncoding(Encodings::UTF8); // what saving writes
    setHasChanged(false);
    return true;
}

bool CTWindowController::saveChapterMarkAt(const QString &path)
{
    if (m_hasChanged)
        m_embeddingState = 2;
    if (path.isEmpty())
        return false;
    if (!VHVideoText::writeVideoText(m_subtitles, path))
        return false;
    removeRecoveryCopy();
    m_editor->markClean();
    setFileEncoding(Encodings::UTF8); // what saving writes
    setHasChanged(false);
    return true;
}

void CTWindowController::exportSubtitle()
{
    if (m_isChaptermark || !m_view)
        return;
    SavePanelOptions options;
    options.exportAccessory = true;
    options.exportType = int(Preferences::ExportType.value());
    options.exportEncoding = Encodings::canonical(EncodingId(Preferences::ExportEncoding.value()));
    options.windowsLineBreaks = Preferences::WindowsLineBreaks.value();
    options.allowedTypes = {options.exportType == 1 ? u"vtt"_s : u"srt"_s};
    options.directory = QFileInfo(m_basePath).path();
    QString path = m_view->runSavePanel(options);
    if (path.isNull())
        return;
    const bool webVTT = options.exportType == 1;
    if (CTFileHelper::pathExtension(path).isEmpty())
        path += webVTT ? u".vtt"_s : u".srt"_s;
    if (webVTT)
        VHVideoText::writeVideoText(m_subtitles, path, options.exportEncoding, options.windowsLineBreaks);
    else
        VHSubtitle::writeSubtitles(m_subtitles, path, options.exportEncoding, options.windowsLineBreaks);
    Preferences::ExportEncoding.set(qint64(options.exportEncoding));
    Preferences::WindowsLineBreaks.set(options.windowsLineBreaks);
    Preferences::ExportType.set(options.exportType);
}

void CTWindowController::newSubtitle()
{
    if (!closeProject() || !m_view)
        return;
    SavePanelOptions options;
    options.allowedTypes = {u"srt"_s};
    const QString path = m_view->runSavePanel(options);
    if (path.isNull())
        return;
    // A new, empty file: the chosen name becomes the subtitle path, so the next save
    // writes there.
    setBasePath(CTFileHelper::stringByDeletingLocaleAndPathExtension(path));
    setSubtitles({});
    storeSubtitlePath(path);
    setHasChanged(false);
    updateLanguages();
}

void CTWindowController::convertChapterMarkToSubtitle()
{
    if (!m_isChaptermark)
        return;
    const QString target = CTFileHelper::pathWithBase(m_basePath, u"srt"_s, QString());
    if (!canDropSubtitle())
        return;
    saveSubtitleAt(target);
    updateLanguages();
    setSubtitlePath(target, false);
    const double length = Preferences::SubtitleLength.value();
    adjustDurationPerCharacter(100000, length, length, 0, false);
    saveSubtitle();
}

void CTWindowController::deleteSubtitleFile()
{
    const QString path = subtitlePath();
    const QString name = m_languageFiles->selectedTitle();
    Prompt prompt;
    prompt.message = tr("Are you sure your want to delete '%1'\n%2").arg(name, path);
    prompt.buttons = {tr("Delete '%1'").arg(name), tr("Cancel")};
    if (Prompter::shared().ask(prompt).button != 0)
        return;
    if (pathExists(path))
        removeFile(path); // failure ignored
    storeSubtitlePath(QString());
    setHasChanged(false);
    autoSelectSubtitle();
}

void CTWindowController::droppedFiles(const QStringList &paths)
{
    if (m_view) {
        const QList<Sheet> sheets = m_view->attachedSheets();
        for (const Sheet &sheet : sheets)
            m_view->endSheet(sheet, 0);
    }
    QString subtitle, movie;
    for (const QString &path : paths) {
        const QString extension = CTFileHelper::pathExtension(path).toLower();
        if (CTFileHelper::subtitleExtensions().contains(extension) || extension == u"vtt"_s)
            subtitle = path;
        else
            movie = path;
    }
    MainQueue::main().post([this, alive = std::weak_ptr<void>(m_alive), subtitle, movie] {
        if (alive.expired() || (subtitle.isEmpty() && movie.isEmpty()) || !canDropSubtitle())
            return;
        if (!movie.isEmpty())
            setMoviePath(movie);
        if (!subtitle.isEmpty())
            setSubtitlePath(subtitle);
    });
}

QStringList CTWindowController::acceptedDownloadTypes()
{
    return {u"zip"_s, u"rar"_s, u"srt"_s, u"application/txt"_s, u"sub"_s, u"ass"_s, u"ssa"_s};
}

void CTWindowController::finishedDownloading(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return;
    QString file;
    if (info.isDir()) {
        // An unpacked archive: the last file of the first extension that has any.
        for (const QString &extension : CTFileHelper::subtitleExtensions()) {
            QDirIterator it(path, {u"*."_s + extension}, QDir::Files, QDirIterator::Subdirectories);
            QString found;
            while (it.hasNext()) {
                const QString candidate = it.next();
                if (CTFileHelper::pathExtension(candidate).toLower() == extension)
                    found = candidate;
            }
            if (!found.isEmpty()) {
                file = found;
                break;
            }
        }
    } else {
        file = path;
    }
    if (file.isEmpty())
        return;
    // Without a movie there is no name to save the download under: the user picks one, and
    // it becomes the file the next save writes to.
    QString chosen;
    if (moviePath().isEmpty() && m_view) {
        SavePanelOptions options;
        options.allowedTypes = {u"srt"_s};
        options.nameFieldValue = QFileInfo(file).fileName();
        chosen = m_view->runSavePanel(options);
        if (chosen.isNull())
            return;
        setBasePath(CTFileHelper::stringByDeletingLocaleAndPathExtension(chosen));
    }
    ScopedObserver loaded(NotificationCenter::defaultCenter().addObserver(
        SubLoadedNotification, this, [this](const Notification &) {
            // The downloaded text is saved under its canonical name.
            if (m_view) {
                const QList<Sheet> sheets = m_view->attachedSheets();
                if (!sheets.isEmpty())
                    m_view->endSheet(sheets.last(), 0);
            }
            markChanged();
            m_editor->markUnsaved();
        }));
    setSubtitlePath(file);
    if (!chosen.isEmpty()) {
        storeSubtitlePath(chosen);
        updateLanguages();
    }
}
