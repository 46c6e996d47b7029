#include "TimelineAudio.h"

#include "CTPreferenceController.h"
#include "CTWindowController.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "SpeechSnapper.h"
#include "TimelineView.h"

#include <QPointer>
#include <QTimer>

using namespace Qt::StringLiterals;

TimelineAudio::TimelineAudio(ProjectWindow &window)
    : m_window(window)
{
    CTPreferenceController::registerDefaults();
    m_projectKeys = window.project()->observeKey(
        u"hasMovie"_s, [this](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did)
                scheduleUpdate();
        });
    // The Audio menu stores the chosen track; the preferences the channel choice.
    m_settingsKeys = Settings::shared().observeKey(
        QString(), [this](Observable *, const QString &key, Observable::Change change) {
            if (change == Observable::Change::Did &&
                (key == u"AudioTrack"_s || key == CTPreferenceController::TimelineCentreChannelKey))
                scheduleUpdate();
        });
    scheduleUpdate();
}

TimelineAudio::~TimelineAudio()
{
    m_projectKeys.reset();
    m_settingsKeys.reset();
    // Cancels and waits: no report comes after this.
    m_analyser.reset();
}

void TimelineAudio::scheduleUpdate()
{
    // Loading a movie announces it and stores its track in one go: one look afterwards.
    if (m_updatePending)
        return;
    m_updatePending = true;
    QTimer::singleShot(0, this, [this] { update(); });
}

void TimelineAudio::stop()
{
    ++m_generation;
    m_analyser.reset();
    m_window.timeline()->setAnalysis(nullptr);
    m_window.speechSnapper().clear();
}

void TimelineAudio::update()
{
    m_updatePending = false;
    const CTWindowController &project = *m_window.project();
    if (project.moviePath().isEmpty() || !project.hasMovie() || project.movieDuration() <= 0) {
        if (m_analyser)
            stop();
        return;
    }
    AudioAnalysisRequest request;
    request.moviePath = project.moviePath();
    // The checked item of the Audio menu is the n-th audio track of the file.
    const QList<AudioTrackItem> &tracks = project.audioMenuItems();
    for (qsizetype i = 0; i < tracks.size(); ++i) {
        if (tracks[i].checked && tracks[i].tag >= 0)
            request.audioTrack = int(i);
    }
    request.centreChannelOnly =
        Settings::shared().boolValue(CTPreferenceController::TimelineCentreChannelKey);
    request.startPosition = project.currentTime();
    request.cacheFolder = m_cacheFolder;
    if (m_analyser) {
        const AudioAnalysisRequest &running = m_analyser->request();
        if (running.moviePath == request.moviePath && running.audioTrack == request.audioTrack &&
            running.centreChannelOnly == request.centreChannelOnly)
            return;
    }
    stop();

    // The callbacks come from the analyser's threads: each hops to the GUI thread, where a
    // report of an analyser replaced meanwhile is dropped.
    const quint64 generation = m_generation;
    QPointer<TimelineAudio> self(this);
    auto onGui = [self, generation](auto work) {
        QMetaObject::invokeMethod(
            self.data(),
            [self, generation, work = std::move(work)] {
                if (self && self->m_generation == generation && self->m_analyser)
                    work(*self);
            },
            Qt::QueuedConnection);
    };
    AudioAnalyser::Callbacks callbacks;
    callbacks.binsFilled = [onGui](qint64 first, qint64 end) {
        onGui([first, end](TimelineAudio &audio) { audio.m_window.timeline()->binsFilled(first, end); });
    };
    callbacks.speechChanged = [onGui] {
        onGui([](TimelineAudio &audio) {
            audio.m_window.timeline()->speechChanged();
            audio.m_window.speechSnapper().setOnsets(audio.m_analyser->analysis()->speechOnsets());
        });
    };
    callbacks.finished = [onGui](AudioAnalysisOutcome outcome, const QString &) {
        onGui([outcome](TimelineAudio &audio) {
            TimelineView *timeline = audio.m_window.timeline();
            timeline->speechChanged();
            timeline->binsFilled(0, audio.m_analyser->analysis()->binCount());
            audio.m_window.speechSnapper().setOnsets(audio.m_analyser->analysis()->speechOnsets());
            if (outcome == AudioAnalysisOutcome::Failed)
                timeline->setAudioNote(tr("No sound to show"));
        });
    };
    m_analyser = std::make_unique<AudioAnalyser>(request, std::move(callbacks));
    m_window.timeline()->setAnalysis(m_analyser->analysis());
    m_analyser->start();
}
