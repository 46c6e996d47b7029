#pragma once

#include "Observable.h"
#include "VHSubtitle.h"

#include <QCoreApplication>
#include <QList>

#include <cmath>
#include <vector>

class CTWindowController;
class PlaybackControl;

// The listening aids of the timing work, for the project's current line: play it once and
// pause at its end, play it over and over, play from half a second before it, play slower or
// faster, and set its start or end to the playing time.
//
// It follows the project (its playing time, whether the movie plays, its current line and its
// movie) and drives the project's player through PlaybackControl. Playing a line ends when
// another line becomes current, when the user pauses or seeks away, or when the movie
// changes; the loop goes back to the line's start each time playback reaches its end.
// The speed is kept for the session and given to every player the project loads a movie with.
//
// Threading: main thread, with the project.
class PlaybackAids
{
    Q_DECLARE_TR_FUNCTIONS(PlaybackAids)

public:
    // How far before the line "play from before" starts.
    static constexpr double LeadIn = 0.5;
    // The speeds offered, slowest first.
    static const QList<double> &speeds();

    explicit PlaybackAids(CTWindowController &project);
    ~PlaybackAids();
    PlaybackAids(const PlaybackAids &) = delete;
    PlaybackAids &operator=(const PlaybackAids &) = delete;

    enum class Playing { Nothing, Line, Loop };
    // What is being played now: nothing of its own, the line once, or the line in a loop.
    Playing playing() const { return m_playing; }
    bool isLooping() const { return m_playing == Playing::Loop; }
    // The line being played or looped (none while nothing is).
    const SubtitlePtr &line() const { return m_line; }

    // A movie and a current line that lasts, outside Tap2Sync (which plays on by itself).
    bool canPlayLine() const;
    // From the line's start to its end, then pauses there.
    void playLine();
    // Starts looping the current line, or stops the loop (playback goes on).
    void toggleLoop();
    // From half a second before the line's start (or the movie's start), playing on.
    void playFromLeadIn();

    double speed() const { return m_speed; }
    // One of speeds(), or any positive factor; the player takes it at once.
    void setSpeed(double speed);

    // The fix key's rules: the current line's start moves to the playing time as a fix in the
    // current mode would move it (one undo step).
    bool canSetStart() const;
    void setStartToPlayingTime();
    // The current line's end moves to the playing time (one undo step); the time must lie
    // at least half a frame after the line's start. Not for chapter marks, which end where the next one
    // starts.
    bool canSetEnd() const;
    void setEndToPlayingTime();

private:
    PlaybackControl *player() const;
    void start(Playing kind);
    void stop();
    // Where playing the line ends: its end, or a frame before the movie's end when the line
    // runs past it (the player stops there by itself).
    double endOf(const VHSubtitle &line) const;
    void timeChanged(double seconds);
    void playingChanged();
    void currentLineChanged();
    void movieChanged();

    CTWindowController &m_project;
    Playing m_playing = Playing::Nothing;
    SubtitlePtr m_line;
    // A seek of ours back to the line's start is under way: times outside the line are from
    // before it landed.
    bool m_seeking = false;
    double m_lastTime = NAN;
    double m_speed = 1;
    std::vector<Observable::KeyToken> m_observations;
};
