// The movie session of the project: opening a movie with the libmpv player and falling back to
// libVLC, taking over what the loaded movie tells (frame rate, length, picture shape, audio
// tracks), extraction on first opening and the question whether to embed before leaving.
#include "MovieSession.h"
#include "CTFileHelper.h"
#include "CTWindowController.h"
#include "Log.h"
#include "MainQueue.h"
#include "PlaybackControl.h"
#include "ProjectSettings.h"
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
    return Preferences::PreferredPlayer.value() == 2 ? 2 : 1;
}
} // namespace

QStringList MovieSession::movieExtensions()
{
    return {u"m4v"_s,  u"mp4"_s, u"mpg4"_s, u"mov"_s,  u"avi"_s, u"vfw"_s,  u"mkv"_s, u"divx"_s,
            u"mpeg"_s, u"mpg"_s, u"wmv"_s,  u"webm"_s, u"ts"_s,  u"m2ts"_s, u"flv"_s, u"ogv"_s};
}

void MovieSession::openMovie()
{
    if (!m_project.canDropSubtitle() || !m_project.m_view)
        return;
    m_project.m_view->makeKeyAndOrderFront();
    const QString directory = m_moviePath.isEmpty() ? QString() : QFileInfo(m_moviePath).absolutePath();
    const QString chosen = m_project.m_view->runOpenPanel(movieExtensions(), false, directory);
    if (!chosen.isEmpty())
        setMoviePath(chosen);
}

void MovieSession::setMoviePath(const QString &path)
{
    m_project.willChangeValueForKey(u"hasMovie"_s);
    const bool hadMovie = !m_moviePath.isEmpty();
    m_moviePath = path;
    // The previous movie's edits get their chance to be embedded before it goes.
    // (Closing the project has asked already, and quitting leaves no time for it.)
    if (!m_project.m_willTerminate && !m_project.m_closing)
        m_project.m_willAutoEmbed ? m_project.m_willAutoEmbed() : willAutoEmbed();
    m_movieDuration = 0;
    m_fps = 0;
    m_movieLoadErrors.clear();
    if (hadMovie) {
        m_project.setSubtitles({}); // clears the selection and the current cue first
    }
    m_project.didChangeValueForKey(u"hasMovie"_s);
    if (m_project.m_view)
        m_project.m_view->setBackgroundImageVisible(true);

    if (!path.isEmpty() && QFileInfo(path).isFile() && m_project.canGetAccessToFolder(path)) {
        if (!m_controllerFactory && !m_player) {
            // Headless, without any player: the movie only names the project's files. Nothing
            // has read it, so it counts as neither player's (no embedding, no extraction).
            movieDidLoad();
            return;
        }
        if (m_project.m_view)
            m_project.m_view->setPlayerViewVisible(true);
        m_firstPlayerKind = firstPlayerKind();
        prepareController(m_firstPlayerKind);
        if (!m_player || !m_player->loadMovieURL(path))
            movieFaildLoading();
        return;
    }

    // No movie: the project lives on without one.
    m_project.willChangeValueForKey(u"hasMovie"_s);
    m_moviePath.clear();
    Preferences::LastVideo.remove();
    if (m_project.m_view)
        m_project.m_view->setPlayerViewVisible(false);
    prepareController(0);
    m_project.didChangeValueForKey(u"hasMovie"_s);
    m_project.setBasePath(QString());
    m_project.storeSubtitlePath(QString());
    m_project.updateLanguages();
}

void MovieSession::prepareController(int kind)
{
    if (kind == m_movieKind)
        return;
    if (m_player) {
        // The old controller stops reporting times before the project's time goes back to 0.
        m_player->setDelegate(nullptr);
        m_player->unloadMovie();
        if (m_project.m_view)
            m_project.m_view->detachMovieController(m_player);
    }
    m_project.setCurrentTime(0);
    m_movieKind = kind;
    if (m_controllerFactory)
        m_player = kind == 0 ? nullptr : m_controllerFactory(kind);
    if (kind == 0) {
        if (m_project.m_view)
            m_project.m_view->setMovieAspectRatio(DefaultAspectRatio);
        return;
    }
    if (m_player) {
        m_player->setDelegate(&m_project);
        if (m_project.m_view)
            m_project.m_view->attachMovieController(m_player);
        m_player->setSubtitles(m_project.m_subtitles);
        m_player->setShowSubtitle(true);
    }
}

void MovieSession::controllerFailedLoading(PlaybackControl *controller)
{
    if (controller == m_player)
        movieFaildLoading();
}

void MovieSession::movieFaildLoading()
{
    if (m_player) {
        const QString why = m_player->loadError();
        if (!why.isEmpty())
            m_movieLoadErrors << why;
    }
    if (const int fallback = m_firstPlayerKind == 2 ? 1 : 2;
        !m_moviePath.isEmpty() && m_movieKind != fallback) {
        prepareController(fallback);
        if (m_player && m_player->loadMovieURL(m_moviePath))
            return; // the fallback player reports back
    }
    resetAfterFailing();
}

void MovieSession::resetAfterFailing()
{
    m_project.willChangeValueForKey(u"hasMovie"_s);
    m_project.setBasePath(QString());
    if (m_project.m_view)
        m_project.m_view->setMovieAspectRatio(DefaultAspectRatio);
    m_audioItems = {AudioTrackItem{tr("No Audio Track"), -1, false}};
    showAudioMenu();
    m_project.storeSubtitlePath(QString());
    if (!m_moviePath.isEmpty()) {
        logLine(u"Warning: Movie at %1 could not be opened!"_s.arg(m_moviePath));
        tellMovieCouldNotBeOpened(m_moviePath, m_movieLoadErrors);
    } else {
        Preferences::LastVideo.remove();
    }
    m_movieLoadErrors.clear();
    m_moviePath.clear();
    if (m_project.m_view)
        m_project.m_view->setPlayerViewVisible(false);
    prepareController(0);
    m_project.didChangeValueForKey(u"hasMovie"_s);
    m_project.setFixMode(FixMode::None);
    m_project.updateLanguages();
}

void MovieSession::tellMovieCouldNotBeOpened(const QString &path, const QStringList &reasons)
{
    Prompt prompt;
    prompt.message = tr("The movie “%1” could not be opened.").arg(QFileInfo(path).fileName());
    // Each player's reason on a line of its own, then where the file is.
    prompt.informative = reasons.isEmpty() ? tr("No player here can play it.\n\n%1").arg(path)
                                           : u"%1.\n\n%2"_s.arg(reasons.join(u".\n"_s), path);
    prompt.buttons = {tr("OK")};
    // Asked after the current call: this runs inside a player's report, and the question
    // waits for the user.
    MainQueue::main().post([alive = std::weak_ptr<void>(m_project.m_alive), prompt] {
        if (!alive.expired())
            Prompter::shared().ask(prompt);
    });
}

void MovieSession::controllerDidLoad(PlaybackControl *controller)
{
    if (controller == m_player)
        movieDidLoad();
}

void MovieSession::movieDidLoad()
{
    if (m_moviePath.isEmpty()) {
        logLine(u"Warning: A movie finished loading, but no movie is open"_s);
        return;
    }
    m_project.willChangeValueForKey(u"hasMovie"_s);
    m_project.setBasePath(CTFileHelper::stringByDeletingPathExtension(m_moviePath));
    m_firstWebSearch = true;
    Preferences::LastVideo.set(m_moviePath);

    m_project.storeSubtitlePath(QString());
    m_project.autoSelectSubtitle();
    m_project.setEmbeddingState(0);
    m_project.setFixMode(m_project.defaultFixMode());

    fillAudioMenu();

    const double fps = m_player ? m_player->fps() : 0;
    m_fps = fps > 1 ? fps : 0; // below one frame a second there is nothing to step through
    m_frameSteps.clear();
    if (m_fps > 0)
        m_frameSteps = {-5 / m_fps, -1 / m_fps, 1 / m_fps, 5 / m_fps};
    if (m_project.m_view)
        m_project.m_view->setFrameStepAmounts(m_frameSteps);

    m_movieDuration = m_player ? m_player->duration() : 0;
    const double aspect = m_player ? m_player->aspectRatio() : 0;
    m_project.didChangeValueForKey(u"hasMovie"_s);
    if (m_project.m_view) {
        m_project.m_view->setMovieAspectRatio(aspect > 0 ? aspect : DefaultAspectRatio);
        m_project.m_view->setPlayerViewVisible(true);
        m_project.m_view->setScrubberRange(0, m_movieDuration);
        m_project.m_view->setFixBackgroundDuration(m_movieDuration);
    }
    m_project.updateRangeNotification();

    const bool subtitles = Preferences::AutoExtract.value();
    const bool chapters = Preferences::AutoExtractVTT.value();
    if ((subtitles || chapters) && m_movieKind == 1 && m_player && m_extractionHook)
        m_extractionHook(subtitles, chapters);
    else
        subtitleExtractorFinished();

    if (m_project.m_view) {
        m_project.m_view->makeKeyAndOrderFront();
        m_project.m_view->setBackgroundImageVisible(false);
    }
}

void MovieSession::fillAudioMenu()
{
    m_audioItems = m_player ? m_player->audioMenuItems() : QList<AudioTrackItem>();
    if (m_audioItems.isEmpty()) {
        m_audioItems = {AudioTrackItem{tr("No Audio Track"), -1, false}};
        showAudioMenu();
        return;
    }
    // A track index remembered from a movie with more tracks falls back to the first one.
    const int stored = Preferences::AudioTrack.value();
    setActiveTrack(stored >= 0 && stored < m_audioItems.size() ? stored : 0);
}

void MovieSession::setActiveTrack(int index)
{
    // Only real tracks can be chosen ("No Audio Track" has no tag).
    if (index < 0 || index >= m_audioItems.size() || m_audioItems[index].tag < 0)
        return;
    for (qsizetype i = 0; i < m_audioItems.size(); ++i)
        m_audioItems[i].checked = i == index;
    showAudioMenu();
    if (m_player)
        m_player->setAudioTrack(index);
    Preferences::AudioTrack.set(index);
}

void MovieSession::showAudioMenu()
{
    if (m_project.m_view)
        m_project.m_view->setAudioMenuItems(m_audioItems);
}

void MovieSession::subtitleExtractorFinished()
{
    m_project.autoSelectSubtitle();
    if (m_project.hasMovie() && Preferences::AutoOpenSearch.value() && m_project.m_subtitles.isEmpty() &&
        m_project.m_commandHandler)
        m_project.m_commandHandler(u"searchOnline:"_s);
}

void MovieSession::controllerChangedPlaying(PlaybackControl *controller, bool playing)
{
    if (controller == m_player)
        m_project.movieChangedPlaying(playing);
}

void MovieSession::controllerChangedTime(PlaybackControl *controller, double seconds)
{
    if (controller == m_player)
        m_project.setCurrentTime(seconds);
}

bool MovieSession::canEmbed() const
{
    const QString last = Preferences::LastVideo.value();
    return m_movieKind == 1 && !last.isEmpty() && QFileInfo(last).isFile() && m_player &&
           m_player->isSystemFrameworkItem();
}

bool MovieSession::willAutoEmbed()
{
    if (!Preferences::AutoEmbed.value() || m_project.m_embeddingState != 2 || !canEmbed())
        return false;
    Prompt prompt;
    prompt.message = tr("Do you want to embed your subtitles into the M4V file?");
    prompt.buttons = {tr("Open Embedding Options"), tr("Don't Embed Subtitles")};
    if (Prompter::shared().ask(prompt).button != 0)
        return false;
    embedSubtitle();
    return true;
}

void MovieSession::embedSubtitle()
{
    if (m_movieDuration > 0 && m_player && m_player->isSystemFrameworkItem() && m_project.m_commandHandler)
        m_project.m_commandHandler(u"embedSubtitle:"_s);
}
