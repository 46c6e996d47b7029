#pragma once

#include "VHSubtitle.h"

// What the project needs of the playback controller: the movie's time, the cues the overlay
// draws, and which cue the overlay shows. The desktop program implements it with libmpv or
// libVLC; headless tests with a fake.
class PlaybackControl
{
public:
    virtual ~PlaybackControl();

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
};
