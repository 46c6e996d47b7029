// The movie side of the project: opening a movie with the libmpv player and falling back to
// libVLC, taking over what the loaded movie tells (frame rate, length, picture shape, audio
// tracks), extraction on first opening and the question whether to embed before leaving.
#include "CTFileHelper.h"
#include "CTWindowController.h"
#include "Log.h"
#include "MainQueue.h"
#include "PlaybackControl.h"
#include "ProjectView.h"
#include "Prompter.h"
#include "Settings.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
constexpr double DefaultAspectRatio = 16.0 / 9.0;

// The player that tries a movie first ("PreferredPlayer": 2 libVLC, else libmpv); the other
// one is the fallback. Read when a movie opens, so a change counts from the next movie on.
int firstPlayerKind()
{
    return Settings::shared().integerValue(u"PreferredPlayer"_s) == 2 ? 2 : 1;
}
} // namespace

QStringList CTWindowController::movieExtensions()
{
    return {u"m4v"_s,  u"mp4"_s, u"mpg4"_s, u"mov"_s,  u"avi"_s, u"vfw"_s,  u"mkv"_s, u"divx"_s,
            u"mpeg"_s, u"mpg"_s, u"wmv"_s,  u"webm"_s, u"ts"_s,  u"m2ts"_s, u"flv"_s, u"ogv"_s};
}

void CTWindowController::openMovie()
{
    if (!canDropSubtitle() || !m_view)
        return;
    m_view->makeKeyAndOrderFront();
    const QString directory = m_moviePath.isEmpty() ? QString() : QFileInfo(m_moviePath).absolutePath();
    const QString chosen = m_view->runOpenPanel(movieExtensions(), false, directory);
    if (!chosen.isEmpty())
        setMoviePath(chosen);
}

void CTWindowController::setMoviePath(const QString &path)
{
    willChangeValueForKey(u"hasMovie"_s);
    const bool hadMovie = !m_moviePath.isEmpty();
    m_moviePath = path;
    // The previous movie's edits get their chance to be embedded before it goes.
    // (Closing the project has asked already, and quitting leaves no time for it.)
    if (!m_willTerminate && !m_closing)
        m_willAutoEmbed ? m_willAutoEmbed() : willAutoEmbed();
    m_movieDuration = 0;
    m_fps = 0;
    m_movieLoadErrors.clear();
    if (hadMovie) {
        setSubtitles({}); // clears the selection and the current cue first
    }
    didChangeValueForKey(u"hasMovie"_s);
    if (m_view)
        m_view->setBackgroundImageVisible(true);

    if (!path.isEmpty() && QFileInfo(path).isFile() && canGetAccessToFolder(path)) {
        if (!m_controllerFactory && !m_player) {
            // Headless, without any player: the movie only names the project's files. Nothing
            // has read it, so it counts as neither player's (no embedding, no extraction).
            movieDidLoad();
            return;
        }
        if (m_view)
            m_view->setPlayerViewVisible(true);
        m_firstPlayerKind = firstPlayerKind();
        prepareMovieController(m_firstPlayerKind);
        if (!m_player || !m_player->loadMovieURL(path))
            movieFaildLoading();
        return;
    }

    // No movie: the project lives on without one.
    willChangeValueForKey(u"hasMovie"_s);
    m_moviePath.clear();
    Settings::shared().remove(u"LastVideo"_s);
    if (m_view)
        m_view->setPlayerViewVisible(false);
    prepareMovieController(0);
    didChangeValueForKey(u"hasMovie"_s);
    setBasePath(QString());
    storeSubtitlePath(QString());
    updateLanguages();
}

void CTWindowController::prepareMovieController(int kind)
{
    if (kind == m_movieKind)
        return;
    if (m_player) {
        // The old controller stops reporting times before the project's time goes back to 0.
        m_player->setDelegate(nullptr);
        m_player->unloadMovie();
        if (m_view)
            m_view->detachMovieController(m_player);
    }
    setCurrentTime(0);
    m_movieKind = kind;
    if (m_controllerFactory)
        m_player = kind == 0 ? nullptr : m_controllerFactory(kind);
    if (kind == 0) {
        if (m_view)
            m_view->setMovieAspectRatio(DefaultAspectRatio);
        return;
    }
    if (m_player) {
        m_player->setDelegate(this);
        if (m_view)
            m_view->attachMovieController(m_player);
        m_player->setSubtitles(m_subtitles);
        m_player->setShowSubtitle(true);
    }
}

void CTWindowController::movieControllerFaildLoading(PlaybackControl *controller)
{
    if (controller == m_player)
        movieFaildLoading();
}

void CTWindowController::movieFaildLoading()
{
    if (m_player) {
        const QString why = m_player->loadError();
        if (!why.isEmpty())
            m_movieLoadErrors << why;
    }
    if (const int fallback = m_firstPlayerKind == 2 ? 1 : 2;
        !m_moviePath.isEmpty() && m_movieKind != fallback) {
        prepareMovieController(fallback);
        if (m_player && m_player->loadMovieURL(m_moviePath))
            return; // the fallback player reports back
    }
    resetAfterFailing();
}

void CTWindowController::resetAfterFailing()
{
    willChangeValueForKey(u"hasMovie"_s);
    setBasePath(QString());
    if (m_view)
        m_view->setMovieAspectRatio(DefaultAspectRatio);
    m_audioItems = {AudioTrackItem{tr("No Audio Track"), -1, false}};
    showAudioMenu();
    storeSubtitlePath(QString());
    if (!m_moviePath.isEmpty()) {
        logLine(u"Warning: Movie at %1 could not be opened!"_s.arg(m_moviePath));
        tellMovieCouldNotBeOpened(m_moviePath, m_movieLoadErrors);
    } else {
        Settings::shared().remove(u"LastVideo"_s);
    }
    m_movieLoadErrors.clear();
    m_moviePath.clear();
    if (m_view)
        m_view->setPlayerViewVisible(false);
    prepareMovieController(0);
    didChangeValueForKey(u"hasMovie"_s);
    setFixMode(0);
    updateLanguages();
}

void CTWindowController::tellMovieCouldNotBeOpened(const QString &path, const QStringList &reasons)
{
    Prompt prompt;
    prompt.message = tr("The movie “%1” could not be opened.").arg(QFileInfo(path).fileName());
    // Each player's reason on a line of its own, then where the file is.
    prompt.informative = reasons.isEmpty() ? tr("No player here can play it.\n\n%1").arg(path)
                                           : u"%1.\n\n%2"_s.arg(reasons.join(u".\n"_s), path);
    prompt.buttons = {tr("OK")};
    // Asked after the current call: this runs inside a player's report, and the question
    // waits for the user.
    MainQueue::main().post([alive = std::weak_ptr<void>(m_alive), prompt] {
        if (!alive.expired())
            Prompter::shared().ask(prompt);
    });
}

void CTWindowController::movieControllerDidLoadMovie(PlaybackControl *controller)
{
    if (controller == m_player)
        movieDidLoad();
}

void CTWindowController::movieDidLoad()
{
    if (m_moviePath.isEmpty()) {
        logLine(u"Warning: A movie finished loading, but no movie is open"_s);
        return;
    }
    willChangeValueForKey(u"hasMovie"_s);
    Settings &settings = Settings::shared();
    setBasePath(CTFileHelper::stringByDeletingPathExtension(m_moviePath));
    m_firstWebSearch = true;
    settings.setValue(u"LastVideo"_s, m_moviePath);

    storeSubtitlePath(QString());
    autoSelectSubtitle();
    setEmbeddingState(0);
    setFixMode(defaultFixMode());

    fillAudioMenu();

    const double fps = m_player ? m_player->fps() : 0;
    m_fps = fps > 1 ? fps : 0; // below one frame a second there is nothing to step through
    m_frameSteps.clear();
    if (m_fps > 0)
        m_frameSteps = {-5 / m_fps, -1 / m_fps, 1 / m_fps, 5 / m_fps};
    if (m_view)
        m_view->setFrameStepAmounts(m_frameSteps);

    m_movieDuration = m_player ? m_player->duration() : 0;
    const double aspect = m_player ? m_player->aspectRatio() : 0;
    didChangeValueForKey(u"hasMovie"_s);
    if (m_view) {
        m_view->setMovieAspectRatio(aspect > 0 ? aspect : DefaultAspectRatio);
        m_view->setPlayerViewVisible(true);
        m_view->setScrubberRange(0, m_movieDuration);
        m_view->setFixBackgroundDuration(m_movieDuration);
    }
    updateRangeNotification();

    const bool subtitles = settings.boolValue(u"AutoExtract"_s);
    const bool chapters = settings.boolValue(u"AutoExtractVTT"_s);
    if ((subtitles || chapters) && m_movieKind == 1 && m_player && m_extractionHook)
        m_extractionHook(subtitles, chapters);
    else
        subtitleExtractorFinished();

    if (m_view) {
        m_view->makeKeyAndOrderFront();
        m_view->setBackgroundImageVisible(false);
    }
}

void CTWindowController::fillAudioMenu()
{
    m_audioItems = m_player ? m_player->audioMenuItems() : QList<AudioTrackItem>();
    if (m_audioItems.isEmpty()) {
        m_audioItems = {AudioTrackItem{tr("No Audio Track"), -1, false}};
        showAudioMenu();
        return;
    }
    // A track index remembered from a movie with more tracks falls back to the first one.
    const int stored = Settings::shared().value(u"AudioTrack"_s).toInt();
    setActiveTrack(stored >= 0 && stored < m_audioItems.size() ? stored : 0);
}

void CTWindowController::setActiveTrack(int index)
{
    // Only real tracks can be chosen ("No Audio Track" has no tag).
    if (index < 0 || index >= m_audioItems.size() || m_audioItems[index].tag < 0)
        return;
    for (qsizetype i = 0; i < m_audioItems.size(); ++i)
        m_audioItems[i].checked = i == index;
    showAudioMenu();
    if (m_player)
        m_player->setAudioTrack(index);
    Settings::shared().setValue(u"AudioTrack"_s, index);
}

void CTWindowController::showAudioMenu()
{
    if (m_view)
        m_view->setAudioMenuItems(m_audioItems);
}

void CTWindowController::subtitleExtractorFinished()
{
    autoSelectSubtitle();
    if (hasMovie() && Settings::shared().boolValue(u"AutoOpenSearch"_s) && m_subtitles.isEmpty() &&
        m_commandHandler)
        m_commandHandler(u"searchOnline:"_s);
}

void CTWindowController::movieControllerChangedPlaying(PlaybackControl *controller, bool playing)
{
    if (controller == m_player)
        movieChangedPlaying(playing);
}

void CTWindowController::movieControllerChangedTime(PlaybackControl *controller, double seconds)
{
    if (controller == m_player)
        setCurrentTime(seconds);
}

bool CTWindowController::canEmbed() const
{
    const QString last = Settings::shared().stringValue(u"LastVideo"_s);
    return m_movieKind == 1 && !last.isEmpty() && QFileInfo(last).isFile() && m_player &&
           m_player->isSystemFrameworkItem();
}

bool CTWindowController::willAutoEmbed()
{
    if (!Settings::shared().boolValue(u"AutoEmbed"_s) || m_embeddingState != 2 || !canEmbed())
        return false;
    Prompt prompt;
    prompt.message = tr("Do you want to embed your subtitles into the M4V file?");
    prompt.buttons = {tr("Open Embedding Options"), tr("Don't Embed Subtitles")};
    if (Prompter::shared().ask(prompt).button != 0)
        return false;
    embedSubtitle();
    return true;
}

void CTWindowController::embedSubtitle()
{
    if (m_movieDuration > 0 && m_player && m_player->isSystemFrameworkItem() && m_commandHandler)
        m_commandHandler(u"embedSubtitle:"_s);
}

void CTWindowController::setObservedResponderIsTextEditor(bool textEditor)
{
    m_allowArrows = !textEditor;
    if (m_view)
        m_view->setArrowKeyEquivalentsEnabled(m_allowArrows);
}
