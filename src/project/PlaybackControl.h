#pragma once

#include "VHSubtitle.h"

#include <QList>
#include <QString>

#include <functional>

class PlaybackControl;

// What a playback controller tells its owner (the project). Every call arrives on the main
// thread: player threads only post to it.
class PlaybackControlDelegate
{
public:
    virtual ~PlaybackControlDelegate();

    // The movie is ready to play: duration, fps, aspect ratio and audio tracks are known.
    virtual void movieControllerDidLoadMovie(PlaybackControl *controller) = 0;
    // The player cannot play the movie (the project then tries the fallback player).
    virtual void movieControllerFaildLoading(PlaybackControl *controller) = 0;
    // The playing flag changed; not called while a seek pauses and resumes playback.
    virtual void movieControllerChangedPlaying(PlaybackControl *controller, bool playing) = 0;
    // The controller's current time moved (playback tick, seek, scrub). The project keeps
    // its own current time bound to this.
    virtual void movieControllerChangedTime(PlaybackControl *controller, double seconds) = 0;
};

// One item of the audio-track menu.
struct AudioTrackItem
{
    QString title;
    int tag = 0;          // the track index passed to setAudioTrack()
    bool checked = false; // the current track
};

// What the project needs of the playback controller: the movie's time, the cues the overlay
// draws, and which cue the overlay shows. The desktop program implements it with libmpv
// (kind 1) and libVLC (kind 2); headless tests with a fake.
class PlaybackControl
{
public:
    virtual ~PlaybackControl();

    // 1: libmpv, and the movie is readable by libavformat (can embed and extract);
    // 2: libVLC (cannot). 0 for controllers that are neither (fakes).
    virtual int kind() const { return 0; }

    virtual bool hasMovie() const = 0;
    virtual double currentTime() const = 0;
    virtual void setCurrentTime(double seconds) = 0;
    virtual double fps() const = 0;
    virtual double duration() const = 0;
    virtual bool isPlaying() const = 0;
    virtual void setPlaying(bool playing) = 0;

    // The overlay draws from the same cues as the project's list.
    virtual void setSubtitles(const SubtitleList &subtitles) = 0;
    virtual void setShowSubtitle(bool show) = 0;
    virtual void redrawCurrentSubtitle() = 0;
    // Index of the cue the overlay found for the current time (its walking search).
    virtual qsizetype currentSegmentIndex() const = 0;

    // --- loading ---------------------------------------------------------------------
    // Starts loading a movie file. False when not even a movie object could be made;
    // otherwise one of the delegate's load calls follows.
    virtual bool loadMovieURL(const QString &path)
    {
        Q_UNUSED(path);
        return false;
    }
    virtual void unloadMovie() {}
    // Why the last movie could not be loaded, in a few words for the user ("unrecognized
    // file format"); empty when it loaded or the player cannot tell.
    virtual QString loadError() const { return {}; }
    virtual void setDelegate(PlaybackControlDelegate *delegate) { Q_UNUSED(delegate); }
    // Width ÷ height of the picture; 0 when unknown.
    virtual double aspectRatio() const { return 0; }
    // True when the loaded movie is one libavformat reads (embedding and extraction).
    virtual bool isSystemFrameworkItem() const { return kind() == 1 && hasMovie(); }

    // --- audio tracks ----------------------------------------------------------------
    virtual QList<AudioTrackItem> audioMenuItems() const { return {}; }
    virtual int audioTrack() const { return 0; }
    virtual void setAudioTrack(int index) { Q_UNUSED(index); }

    // --- full screen -----------------------------------------------------------------
    // The movie picture alone fills the screen, or goes back into the window; Escape leaves.
    virtual void toggleFullscreen() {}
    virtual bool isFullscreen() const { return false; }

    // --- speed -----------------------------------------------------------------------
    // How fast the movie plays: 1 is normal, 0.5 half as fast, 2 twice as fast. The sound
    // keeps its pitch. The speed stays for the next movie the controller loads.
    virtual double speed() const { return 1; }
    virtual void setSpeed(double speed) { Q_UNUSED(speed); }

    // --- flags -----------------------------------------------------------------------
    virtual void setAccuracyScrubbing(bool on) { Q_UNUSED(on); }
    virtual void setAutoShowControls(bool on) { Q_UNUSED(on); }
};

// Makes the controller of a kind (1 libmpv, 2 libVLC) for the project. The window owns
// the controllers and their views; the factory returns null for kind 0 or when the
// player cannot be created at all.
using PlaybackControlFactory = std::function<PlaybackControl *(int kind)>;
