#pragma once

#include "VHMovieController.h"

#include <cmath>
#include <memory>

#include <QElapsedTimer>
#include <QSize>

struct libvlc_instance_t;
struct libvlc_media_player_t;
struct libvlc_media_t;
struct libvlc_event_t;

// The fallback player, on libVLC 3, for movies libmpv cannot open. It keeps the view, the
// overlay and the control bar of VHMovieController and replaces the playing operations.
// Frames come through libVLC's video callbacks into an image that the same view paints,
// so it needs neither a native window nor OpenGL (it runs under Xvfb and "offscreen").
//
// Differences from the libmpv player: no wait for readiness (a time set while loading goes
// to the player at once), no clamping of times, and while paused the current time is the
// one last set or reached. A movie is ready once libVLC knows its tracks and names at least
// one audio track. An unknown frame rate reads as 25 with a warning line.
//
// Threading: libVLC calls back on its own threads; the callbacks only copy the frame under
// a lock and post to the GUI thread, where everything else happens.
class VLCMovieController : public VHMovieController
{
    Q_OBJECT

public:
    explicit VLCMovieController(QObject *parent = nullptr);
    ~VLCMovieController() override;

    int kind() const override { return 2; }
    bool hasMovie() const override { return m_media != nullptr; }
    double currentTime() const override;
    void setCurrentTime(double seconds) override;
    double fps() const override;
    double duration() const override;
    void setPlaying(bool playing) override;
    bool loadMovieURL(const QString &path) override;
    void setMovie(const QString &path) override;
    double aspectRatio() const override { return m_aspectRatio; }
    QList<AudioTrackItem> audioMenuItems() const override;
    int audioTrack() const override;
    void setAudioTrack(int index) override;
    // libVLC's rate; its audio time-stretching (on by default) keeps the pitch.
    void setSpeed(double speed) override;

    double position() const override;
    void setPosition(double position);
    void togglePlayPause() override;
    void jumpToBeginning() override;
    void scrubThroughMovie() override;
    double playerTime() const override;
    double timeWhenPaused() const { return m_timeWhenPaused; }
    bool isLoading() const { return m_isLoading; }

protected:
    void setIsPlaying(bool playing) override;
    void updateScrobberTimed() override;
    void windowWillClose() override;

private:
    struct FrameSink;
    static void onEvent(const libvlc_event_t *event, void *controller);
    Q_INVOKABLE void movieStateChanged(int eventType);
    Q_INVOKABLE void takeFrame();
    bool playerIsPlaying() const;
    // The time while playing, between libVLC's coarse updates.
    double playingTime() const;
    // The start of the frame that covers `seconds`.
    double frameStart(double seconds) const;
    // The time (milliseconds) to seek libVLC to for showing the frame that covers `seconds`.
    long long seekTarget(double seconds) const;
    void stepToFrameAt(double seconds);
    void seekWhilePaused(double seconds);
    void endStep();

    libvlc_instance_t *m_vlc = nullptr;
    libvlc_media_player_t *m_vlcPlayer = nullptr;
    libvlc_media_t *m_media = nullptr;
    std::unique_ptr<FrameSink> m_sink;
    mutable double m_duration = 0;
    double m_aspectRatio = 0;
    QSize m_pictureSize;
    bool m_isLoading = false;
    double m_timeWhenPaused = 0;
    // libVLC's time as last seen, and since when (playingTime()).
    mutable double m_clockValue = NAN;
    mutable QElapsedTimer m_clockSeen;
    // The user paused and the player has not yet confirmed it.
    bool m_pausePending = false;
    // While playing onto a frame: the time of the frame to pause on (NaN otherwise).
    double m_stepTarget = NAN;
    bool m_holdFrame = false;
    bool m_pausingAfterStep = false;
    // A seek while playing pauses libVLC for a moment: no change of the playing flag until it
    // plays again.
    bool m_seekWhilePlaying = false;
};
