// Real video on an X server (run under xvfb-run): libmpv through OpenGL and libVLC through
// its frame callbacks, each seeking to a frame of the test movie and showing the cue of
// that time over it.
#include "VHMovieController.h"
#include "VLCMovieController.h"

#include "PlaybackTestSupport.h"
#include "VHSubtitleView.h"
#include "VideoSurface.h"

#include <QBoxLayout>
#include <QGuiApplication>

#include <cmath>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr double Frame = 0.04;
const QString CueText = u"MMMMMMMM"_s;

SubtitleList testCues()
{
    return {VHSubtitle::create(u"First"_s, 0.5, 1.5), VHSubtitle::create(CueText, 3.4, 3.7),
            VHSubtitle::create(u"Last"_s, 5.0, 5.5)};
}

// A window holding the controller's view, as the program's window does.
struct Window
{
    QWidget window;
    RecordingDelegate delegate;

    explicit Window(VHMovieController &controller)
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(controller.view());
        window.resize(640, 520);
        controller.setDelegate(&delegate);
        controller.setAccuracyScrubbing(true);
        controller.setSubtitles(testCues());
        window.show();
    }
    bool waitLoaded()
    {
        return waitFor([this] { return delegate.loaded + delegate.failed > 0; }, 20000);
    }
};

// The grabbed frame shows the picture and the cue of 3.52 s in the overlay's box.
// `framesOff`: how many frames from 3.52 s the picture may be.
void expectCueOverPicture(VHMovieController &controller, int framesOff)
{
    VHSubtitleView *overlay = controller.subtitleView();
    ASSERT_TRUE(overlay->currentSubtitle());
    EXPECT_EQ(overlay->currentSubtitle()->string(), CueText);
    const QRect textRect = overlay->currentLayout(CueText).textRect.toRect();

    const QImage frame = controller.grabFrame();
    EXPECT_GT(whitePixels(frame, textRect), 30);
    const QRgb middle = frame.pixel(frame.width() / 2, frame.height() / 3);
    EXPECT_GT(qRed(middle) + qGreen(middle) + qBlue(middle), 60) << "no picture";

    // The picture is the movie's frame nearest to it among the frames around 3.52 s.
    const QRect pictureRect = ImageVideoSurface::frameRect({320, 240}, QRect(QPoint(), frame.size()));
    const QRect box = overlay->currentLayout(CueText).boxRect.toAlignedRect();
    int nearest = 0;
    double nearestDistance = 255;
    for (int step = -2; step <= 2; ++step) {
        const double distance = frameDistance(frame, pictureRect, referenceFrame(3.52 + step * Frame), box);
        if (distance < nearestDistance) {
            nearest = step;
            nearestDistance = distance;
        }
    }
    EXPECT_LE(std::abs(nearest), framesOff) << "shows the frame " << nearest << " frames from 3.52 s";
    EXPECT_LT(nearestDistance, 12.0);

    // What the screen shows: the widget grab of the whole view.
    const QImage screen = controller.view()->grab().toImage();
    const QPoint offset = overlay->mapTo(controller.view(), QPoint());
    EXPECT_GT(whitePixels(screen, textRect.translated(offset)), 30);
}

} // namespace

TEST(RealPlayback, MpvSeeksToAFrameAndTheOverlayShowsItsCue)
{
    ASSERT_NE(QGuiApplication::platformName(), u"offscreen"_s);
    VHMovieController controller;
    Window window(controller);
    EXPECT_TRUE(controller.usesOpenGL());
    ASSERT_TRUE(controller.loadMovieURL(testMovie()));
    ASSERT_TRUE(window.waitLoaded());
    ASSERT_EQ(window.delegate.loaded, 1);

    controller.setCurrentTime(3.52);
    EXPECT_DOUBLE_EQ(controller.currentTime(), 3.52);
    ASSERT_TRUE(waitFor([&] { return std::abs(controller.playerTime() - 3.52) < Frame / 2; }))
        << controller.playerTime();
    waitFor([] { return false; }, 300); // the frame reaches the widget
    expectCueOverPicture(controller, 0);

    // A time inside that frame's turn on screen shows the same frame, not the next one.
    controller.setCurrentTime(3.52 + 0.75 * Frame);
    waitFor([] { return false; }, 500);
    expectCueOverPicture(controller, 0);
}

TEST(RealPlayback, MpvKeepsShowingVideoThroughFullScreen)
{
    VHMovieController controller;
    Window window(controller);
    ASSERT_TRUE(controller.loadMovieURL(testMovie()));
    ASSERT_TRUE(window.waitLoaded());
    const auto showsPicture = [&] {
        const QImage frame = controller.grabFrame();
        const QRgb middle = frame.pixel(frame.width() / 2, frame.height() / 3);
        return qRed(middle) + qGreen(middle) + qBlue(middle) > 60;
    };
    controller.setCurrentTime(2.0);
    ASSERT_TRUE(waitFor(showsPicture));
    // Full screen moves the view into a window of its own, which gets a new GL context.
    controller.toggleFullscreen();
    ASSERT_TRUE(controller.view()->isWindow());
    controller.setCurrentTime(2.4);
    EXPECT_TRUE(waitFor(showsPicture, 5000));
    EXPECT_TRUE(waitFor([&] { return std::abs(controller.playerTime() - 2.4) < Frame / 2; }));
    controller.cancelFullscreen();
    controller.setCurrentTime(2.8);
    EXPECT_TRUE(waitFor(showsPicture, 5000));
    EXPECT_TRUE(waitFor([&] { return std::abs(controller.playerTime() - 2.8) < Frame / 2; }));
}

TEST(RealPlayback, MpvReportsAFileItCannotOpen)
{
    VHMovieController controller;
    Window window(controller);
    ASSERT_TRUE(controller.loadMovieURL(brokenMovie()));
    ASSERT_TRUE(window.waitLoaded());
    EXPECT_EQ(window.delegate.failed, 1);
    EXPECT_EQ(window.delegate.loaded, 0);
}

TEST(RealPlayback, VLCSeeksToAFrameAndTheOverlayShowsItsCue)
{
    VLCMovieController controller;
    Window window(controller);
    ASSERT_TRUE(controller.loadMovieURL(testMovie()));
    ASSERT_TRUE(window.waitLoaded());
    ASSERT_EQ(window.delegate.loaded, 1);
    EXPECT_FALSE(controller.isPlaying());
    EXPECT_NEAR(controller.duration(), 6.0, 0.1);
    EXPECT_DOUBLE_EQ(controller.aspectRatio(), 320.0 / 240.0);

    controller.setCurrentTime(3.52);
    EXPECT_DOUBLE_EQ(controller.currentTime(), 3.52);
    ASSERT_TRUE(waitFor([&] { return std::abs(controller.playerTime() - 3.52) < Frame; }))
        << controller.playerTime();
    waitFor([] { return false; }, 500);
    // It stopped on that frame.
    EXPECT_NEAR(controller.playerTime(), 3.52, Frame);
    EXPECT_FALSE(controller.isPlaying());
    // libVLC gives no time stamps with its frames; it stops on a neighbour at worst.
    expectCueOverPicture(controller, 1);

    // Showing the first frame and the seek played muted: no change of the playing state.
    EXPECT_TRUE(window.delegate.playingChanges.isEmpty());
    controller.setPlaying(true);
    ASSERT_TRUE(waitFor([&] { return controller.isPlaying(); }));
    ASSERT_TRUE(waitFor([&] { return controller.currentTime() > 3.8; }));
    controller.setPlaying(false);
    ASSERT_TRUE(waitFor([&] { return !controller.isPlaying(); }));
    EXPECT_EQ(window.delegate.playingChanges, (QList<bool>{true, false}));
    // Paused, the time is the start of the frame reached when it stopped.
    EXPECT_NEAR(std::remainder(controller.currentTime(), Frame), 0.0, 1e-9) << controller.currentTime();
    EXPECT_GE(controller.currentTime(), 3.8 - Frame);
}

namespace {

int shownFrame(VHMovieController &controller, int from, int to)
{
    return shownFrame(controller.grabFrame(), from, to);
}

// The frame that covers `seconds`.
int frameAt(double seconds)
{
    return int(std::floor(seconds / Frame + 1e-6));
}

// Plays from `from` until the time passes `until`, pauses, and checks that the time the
// controller and its delegate report right away, and once the player has settled, is the
// time of the frame on screen; then that one frame step right after a pause shows the frame
// after the one paused on. `framesOff`: how many frames the picture may be from the time.
void expectPauseAndStepAgreeWithThePicture(VHMovieController &controller, Window &window, double from,
                                           double until, int framesOff)
{
    // Getting there: libVLC now and then loses a seek that follows the end of a step closely
    // (the step under test below is checked by the picture); ask once more then.
    controller.setCurrentTime(from);
    if (!waitFor([&] { return std::abs(controller.playerTime() - from) < Frame; }, 3000))
        controller.setCurrentTime(from);
    ASSERT_TRUE(waitFor([&] { return std::abs(controller.playerTime() - from) < Frame; }));
    controller.setPlaying(true);
    ASSERT_TRUE(waitFor([&] { return controller.isPlaying() && controller.currentTime() > until; }));
    controller.setPlaying(false);
    EXPECT_FALSE(controller.isPlaying());
    const double atPause = controller.currentTime();
    waitFor([] { return false; }, 600); // the player settles; the last frame reaches the screen
    const double settled = controller.currentTime();
    const int shown = shownFrame(controller, frameAt(settled) - 8, frameAt(settled) + 8);
    EXPECT_LE(std::abs(frameAt(settled) - shown), framesOff)
        << "reported " << settled << " s, the picture shows " << shown * Frame << " s";
    EXPECT_EQ(atPause, settled) << "right after the pause: " << atPause << " s";
    ASSERT_FALSE(window.delegate.times.isEmpty());
    EXPECT_DOUBLE_EQ(window.delegate.times.last(), settled) << "the label's time";

    // Right after a pause, a step of one frame from the reported time shows the frame after
    // the one the player stopped on.
    controller.setPlaying(true);
    ASSERT_TRUE(waitFor([&] { return controller.isPlaying() && controller.currentTime() > until + 0.5; }));
    controller.setPlaying(false);
    const double pausedAt = controller.currentTime();
    controller.setCurrentTime(pausedAt + Frame);
    waitFor([] { return false; }, 600);
    EXPECT_FALSE(controller.isPlaying());
    const double stepped = controller.currentTime();
    EXPECT_EQ(frameAt(stepped), frameAt(pausedAt) + 1) << "paused at " << pausedAt << " s";
    const int afterStep = shownFrame(controller, frameAt(stepped) - 8, frameAt(stepped) + 8);
    EXPECT_LE(std::abs(frameAt(stepped) - afterStep), framesOff)
        << "stepped to " << stepped << " s, the picture shows " << afterStep * Frame << " s";
    EXPECT_DOUBLE_EQ(window.delegate.times.last(), stepped);
    controller.setPlaying(false);
}

} // namespace

TEST(RealPlayback, MpvReportsTheFrameOnScreenAfterPauseAndStep)
{
    VHMovieController controller;
    Window window(controller);
    ASSERT_TRUE(controller.loadMovieURL(testMovie()));
    ASSERT_TRUE(window.waitLoaded());
    for (int attempt = 0; attempt < 3; ++attempt) {
        SCOPED_TRACE(attempt);
        expectPauseAndStepAgreeWithThePicture(controller, window, 0.5 + attempt, 1.3 + attempt, 0);
    }
}

// libVLC gives no time stamps with its frames and moves its own time on only every quarter
// of a second: after a pause it shows the frame of the time reported then, up to one frame off.
TEST(RealPlayback, VLCReportsTheFrameOnScreenAfterPauseAndStep)
{
    VLCMovieController controller;
    Window window(controller);
    ASSERT_TRUE(controller.loadMovieURL(testMovie()));
    ASSERT_TRUE(window.waitLoaded());
    for (int attempt = 0; attempt < 3; ++attempt) {
        SCOPED_TRACE(attempt);
        expectPauseAndStepAgreeWithThePicture(controller, window, 0.5 + attempt, 1.3 + attempt, 1);
    }
}
