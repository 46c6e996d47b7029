#pragma once

#include "PlaybackControl.h"
#include "ProjectView.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class CTWindowController;

// The movie the project is open on: which player plays it (libmpv first, libVLC as the
// fallback, or none), what the loaded movie tells (frame rate, length, picture shape, audio
// tracks), what happens when it cannot be opened, extraction on first opening and the offer to
// embed before it is left. The project forwards its movie operations and the player's reports
// here.
//
// Threading: main thread only.
class MovieSession
{
    // The questions keep the project's translations.
    Q_DECLARE_TR_FUNCTIONS(CTWindowController)

public:
    // `player` serves every movie kind when no controller factory is set (tests, the CLI).
    MovieSession(CTWindowController &project, PlaybackControl *player)
        : m_project(project)
        , m_player(player)
    {}

    const QString &moviePath() const { return m_moviePath; }
    PlaybackControl *player() const { return m_player; }
    double fps() const { return m_fps; }
    double duration() const { return m_movieDuration; }
    int kind() const { return m_movieKind; }
    const QList<AudioTrackItem> &audioMenuItems() const { return m_audioItems; }
    const QList<double> &frameStepAmounts() const { return m_frameSteps; }
    bool isFirstWebSearch() const { return m_firstWebSearch; }
    void setFirstWebSearch(bool first) { m_firstWebSearch = first; }
    // For callers that know the movie without a player (the CLI's clock, tests).
    void setInfo(const QString &moviePath, int kind, double fps, double duration)
    {
        m_moviePath = moviePath;
        m_movieKind = kind;
        m_fps = fps;
        m_movieDuration = duration;
    }
    void setControllerFactory(PlaybackControlFactory factory) { m_controllerFactory = std::move(factory); }
    void setExtractionHook(std::function<void(bool, bool)> hook) { m_extractionHook = std::move(hook); }

    static QStringList movieExtensions();
    void openMovie();
    void setMoviePath(const QString &path);
    void prepareController(int kind);
    void resetAfterFailing();
    void setActiveTrack(int index);
    void subtitleExtractorFinished();
    bool canEmbed() const;
    bool willAutoEmbed();
    void embedSubtitle();

    // The player's reports (the project is the players' delegate and forwards them).
    void controllerDidLoad(PlaybackControl *controller);
    void controllerFailedLoading(PlaybackControl *controller);
    void controllerChangedPlaying(PlaybackControl *controller, bool playing);
    void controllerChangedTime(PlaybackControl *controller, double seconds);

private:
    void movieDidLoad();
    void movieFaildLoading();
    void tellMovieCouldNotBeOpened(const QString &path, const QStringList &reasons);
    void fillAudioMenu();
    void showAudioMenu();

    CTWindowController &m_project;
    PlaybackControl *m_player;
    QString m_moviePath;
    double m_fps = 0;
    double m_movieDuration = 0;
    int m_movieKind = 0;
    int m_firstPlayerKind = 1; // the player the open movie was tried with first
    PlaybackControlFactory m_controllerFactory;
    std::function<void(bool, bool)> m_extractionHook;
    QList<AudioTrackItem> m_audioItems;
    // What each player said when it could not open the movie being opened.
    QStringList m_movieLoadErrors;
    QList<double> m_frameSteps;
    bool m_firstWebSearch = true;
};
