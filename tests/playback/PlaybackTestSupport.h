#pragma once

#include "PlaybackControl.h"
#include "TestSupport.h"

#include <QImage>
#include <QRect>
#include <QString>

#include <functional>

// A 6-second 320×240 movie at 25 frames a second whose frames show their own time
// (ffmpeg's testsrc with two decimals) over a sine tone, made once per test process with
// the ffmpeg command line. Fails the running test and answers "" when ffmpeg fails.
QString testMovie();
// A file no player opens: bytes that look like nothing, named like a movie.
QString brokenMovie();

// Runs the event loop until `condition` holds or `timeoutMs` passes; answers the condition.
bool waitFor(const std::function<bool()> &condition, int timeoutMs = 10000);

// The test movie's frame at `seconds`, decoded by the ffmpeg command line (320×240).
QImage referenceFrame(double seconds);
// Mean difference per colour channel (0..255) between `picture` (where a frame of the test
// movie is drawn at `pictureRect`) and `reference` scaled to that rectangle, leaving out
// the pixels of `excluded` (the overlay's box).
double frameDistance(const QImage &picture, const QRect &pictureRect, const QImage &reference,
                     const QRect &excluded);

// Every frame of the test movie, decoded once by the ffmpeg command line (320×240).
const QList<QImage> &movieFrames();
// The index (at 25 frames a second) of the test movie's frame that `picture` (a grab of a
// player's view) shows, found among the frames `from`..`to` by comparing it with each decoded
// frame: the frames differ in the time burnt into them. Fails the running test when the
// picture is none of them.
int shownFrame(const QImage &picture, int from, int to);

// How many pixels of `area` are near white (the overlay's text colour).
int whitePixels(const QImage &image, const QRect &area);

// Records what a controller tells its delegate.
class RecordingDelegate final : public PlaybackControlDelegate
{
public:
    int loaded = 0;
    int failed = 0;
    QList<bool> playingChanges;
    QList<double> times;

    void movieControllerDidLoadMovie(PlaybackControl *) override { ++loaded; }
    void movieControllerFaildLoading(PlaybackControl *) override { ++failed; }
    void movieControllerChangedPlaying(PlaybackControl *, bool playing) override
    {
        playingChanges << playing;
    }
    void movieControllerChangedTime(PlaybackControl *, double seconds) override { times << seconds; }
};
