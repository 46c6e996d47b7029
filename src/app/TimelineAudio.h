#pragma once

#include "AudioAnalysis.h"
#include "Observable.h"

#include <QCoreApplication>
#include <QObject>

#include <memory>

class ProjectWindow;

// Runs the analysis of the open movie's sound for the window's timeline: it starts when a
// movie has loaded (from the playing position outwards), starts again when the user picks
// another audio track or changes the centre-channel preference, and stops when the movie
// closes. The analyser works on threads of its own; what it reports is queued to the GUI
// thread, where the timeline draws the new peaks and the snapping learns the new onsets.
class TimelineAudio final : public QObject
{
    Q_DECLARE_TR_FUNCTIONS(TimelineAudio)

public:
    // Lives shorter than the window (it holds observations of the window's project).
    explicit TimelineAudio(ProjectWindow &window);
    ~TimelineAudio() override;

    // The running (or finished) analyser; null without a movie.
    const AudioAnalyser *analyser() const { return m_analyser.get(); }
    // Where the cache lives (tests point it elsewhere); empty for the default folder.
    void setCacheFolder(const QString &folder) { m_cacheFolder = folder; }

    // Compares what should be analysed with what is, and starts or stops accordingly.
    void update();

private:
    void scheduleUpdate();
    void stop();

    ProjectWindow &m_window;
    std::unique_ptr<AudioAnalyser> m_analyser;
    // Reports of an analyser that was replaced are dropped by this count.
    quint64 m_generation = 0;
    QString m_cacheFolder;
    bool m_updatePending = false;
    Observable::KeyToken m_projectKeys;
    Observable::KeyToken m_settingsKeys;
};
