// The libmpv player drawn offscreen (software renderer), on a real short movie, and the
// parts of the view that need no display.
#include "VHMovieController.h"
#include "VLCMovieController.h"

#include "Log.h"
#include "PlaybackTestSupport.h"
#include "VHSubtitleView.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QMenu>
#include <QProcess>
#include <QSlider>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// One frame of the 25 frames-a-second test movie.
constexpr double Frame = 0.04;

struct LoadedController
{
    RecordingDelegate delegate;
    VHMovieController controller;

    explicit LoadedController(const QString &path = testMovie())
    {
        controller.setDelegate(&delegate);
        controller.setAccuracyScrubbing(true);
        controller.view()->resize(640, 520);
        EXPECT_TRUE(controller.loadMovieURL(path));
    }
    bool waitLoaded()
    {
        return waitFor([this] { return delegate.loaded + delegate.failed > 0; });
    }
    // The player shows the frame that is on screen at t: the last one starting at or before it.
    bool waitPlayerAt(double t)
    {
        return waitFor([&] {
            const double shown = controller.playerTime();
            return shown <= t + 0.001 && shown > t - Frame + 0.001;
        });
    }
};

// A one-second movie with a safe (AAC) and an unsafe (AC-3) audio track.
QString twoAudioTracksMovie(const TempDir &dir)
{
    const QString path = dir.path(u"two-audio.mkv"_s);
    QProcess ffmpeg;
    ffmpeg.start(u"ffmpeg"_s,
                 u"-hide_banner -loglevel error -f lavfi -i testsrc=size=160x120:rate=25 -f lavfi "
                 "-i sine=frequency=300 -f lavfi -i sine=frequency=600 -map 0 -map 1 -map 2 -t 1 "
                 "-c:v libx264 -preset ultrafast -c:a:0 aac -c:a:1 ac3 -metadata:s:a:0 language=eng "
                 "-metadata:s:a:1 language=fre"_s.split(u' ') +
                     QStringList{path});
    if (!ffmpeg.waitForFinished(60000) || ffmpeg.exitCode() != 0)
        ADD_FAILURE() << ffmpeg.readAllStandardError().toStdString();
    return path;
}

} // namespace

TEST(MovieController, LoadsAMovieAndReportsItsProperties)
{
    LoadedController player;
    ASSERT_TRUE(player.waitLoaded());
    EXPECT_EQ(player.delegate.loaded, 1);
    EXPECT_EQ(player.delegate.failed, 0);
    EXPECT_EQ(player.controller.kind(), 1);
    EXPECT_TRUE(player.controller.hasMovie());
    EXPECT_TRUE(player.controller.isSystemFrameworkItem());
    EXPECT_FALSE(player.controller.usesOpenGL());
    EXPECT_NEAR(player.controller.duration(), 6.0, 0.1);
    EXPECT_DOUBLE_EQ(player.controller.fps(), 25.0);
    EXPECT_DOUBLE_EQ(player.controller.aspectRatio(), 320.0 / 240.0);
    EXPECT_FALSE(player.controller.isPlaying());
    const QList<AudioTrackItem> audio = player.controller.audioMenuItems();
    ASSERT_EQ(audio.size(), 1);
    EXPECT_TRUE(audio[0].title.endsWith(u"\t\tAAC"_s)) << audio[0].title.toStdString();
    EXPECT_TRUE(audio[0].checked);
}

TEST(MovieController, AFileThePlayerCannotOpenReportsFailedLoading)
{
    LoadedController player(brokenMovie());
    ASSERT_TRUE(player.waitLoaded());
    EXPECT_EQ(player.delegate.failed, 1);
    EXPECT_EQ(player.delegate.loaded, 0);
}

TEST(MovieController, TimesSetBeforeReadyWaitAndTheLastOneWins)
{
    LoadedController player;
    player.controller.setCurrentTime(2.0);
    player.controller.setCurrentTime(4.2);
    EXPECT_TRUE(player.delegate.times.isEmpty()); // nothing moves before the movie is ready
    ASSERT_TRUE(player.waitLoaded());
    EXPECT_DOUBLE_EQ(player.controller.currentTime(), 4.2);
    EXPECT_EQ(player.delegate.times, QList<double>{4.2});
    EXPECT_TRUE(player.waitPlayerAt(4.2)) << player.controller.playerTime();
}

TEST(MovieController, TimesAreClampedToTheMovie)
{
    LoadedController player;
    ASSERT_TRUE(player.waitLoaded());
    const double length = player.controller.duration();
    auto *slider = player.controller.view()->findChild<QSlider *>(u"scrubSlider"_s);
    ASSERT_TRUE(slider);
    const std::pair<double, double> rows[] = {{100, length}, {-3, 0}, {3, 3}};
    for (const auto &[asked, expected] : rows) {
        player.controller.setCurrentTime(asked);
        EXPECT_DOUBLE_EQ(player.controller.currentTime(), expected) << asked;
        EXPECT_EQ(slider->value(), qRound(expected / length * slider->maximum())) << asked;
    }
    EXPECT_TRUE(player.waitPlayerAt(3)) << player.controller.playerTime();
    player.controller.jumpToBeginning();
    EXPECT_EQ(player.controller.currentTime(), 0);
    EXPECT_EQ(player.delegate.times.last(), 0);
    EXPECT_TRUE(player.waitPlayerAt(0)) << player.controller.playerTime();
}

TEST(MovieController, WithoutAMovieTimesStayAtZero)
{
    VHMovieController controller;
    controller.setCurrentTime(5);
    EXPECT_EQ(controller.currentTime(), 0);
    EXPECT_EQ(controller.view()->findChild<QSlider *>(u"scrubSlider"_s)->value(), 0);
    controller.setPlaying(true);
    EXPECT_FALSE(controller.isPlaying());
}

TEST(MovieController, ASeekWhilePlayingResumesWithoutAPlayReport)
{
    LoadedController player;
    ASSERT_TRUE(player.waitLoaded());
    player.controller.setPlaying(true);
    EXPECT_EQ(player.delegate.playingChanges, QList<bool>{true});
    ASSERT_TRUE(waitFor([&] { return player.controller.playerTime() > 0.2; }));

    bool finished = false;
    QObject::connect(&player.controller, &VHMovieController::seekFinished, [&] { finished = true; });
    player.controller.setCurrentTime(1.0);
    EXPECT_FALSE(player.controller.isPlaying()); // paused for the seek
    ASSERT_TRUE(waitFor([&] { return finished; }));
    EXPECT_TRUE(player.controller.isPlaying());
    // The periodic update carries on from the new time.
    const qsizetype reports = player.delegate.times.size();
    ASSERT_TRUE(waitFor([&] { return player.delegate.times.size() > reports + 3; }));
    EXPECT_GE(player.delegate.times.last(), 1.0);
    EXPECT_LT(player.delegate.times.last(), 3.0);

    player.controller.togglePlayPause();
    QCoreApplication::processEvents();
    EXPECT_FALSE(player.controller.isPlaying());
    EXPECT_EQ(player.delegate.playingChanges, (QList<bool>{true, false}));
}

// The user pauses while a seek of playback is under way (a loop going back to its start):
// the pause holds when the seek lands, and it is reported.
TEST(MovieController, APauseDuringASeekWhilePlayingHolds)
{
    LoadedController player;
    ASSERT_TRUE(player.waitLoaded());
    player.controller.setPlaying(true);
    ASSERT_TRUE(waitFor([&] { return player.controller.playerTime() > 0.2; }));
    bool finished = false;
    QObject::connect(&player.controller, &VHMovieController::seekFinished, [&] { finished = true; });
    player.controller.setCurrentTime(1.0);
    player.controller.setPlaying(false);
    EXPECT_EQ(player.delegate.playingChanges, (QList<bool>{true, false}));
    ASSERT_TRUE(waitFor([&] { return finished; }));
    waitFor([] { return false; }, 300);
    EXPECT_FALSE(player.controller.isPlaying());
    EXPECT_TRUE(player.waitPlayerAt(1.0)) << player.controller.playerTime();
    EXPECT_EQ(player.delegate.playingChanges, (QList<bool>{true, false}));
}

TEST(MovieController, PlayingToTheEndStopsThereAndReportsIt)
{
    LoadedController player;
    ASSERT_TRUE(player.waitLoaded());
    player.controller.setCurrentTime(5.7);
    ASSERT_TRUE(player.waitPlayerAt(5.7));
    player.controller.setPlaying(true);
    ASSERT_TRUE(waitFor([&] { return !player.controller.isPlaying(); }));
    EXPECT_EQ(player.delegate.playingChanges, (QList<bool>{true, false}));
    EXPECT_NEAR(player.controller.currentTime(), player.controller.duration(), 2 * Frame);
    // The movie stays open: seeking back still works.
    player.controller.setCurrentTime(1.0);
    EXPECT_TRUE(player.waitPlayerAt(1.0)) << player.controller.playerTime();
}

TEST(MovieController, ASoftwareFrameShowsTheCueOfTheTime)
{
    LoadedController player;
    player.controller.setSubtitles(
        {VHSubtitle::create(u"First"_s, 0.5, 1.5), VHSubtitle::create(u"MMMMMMMM"_s, 3.4, 3.7)});
    player.controller.view()->show();
    ASSERT_TRUE(player.waitLoaded());
    player.controller.setCurrentTime(3.52);
    ASSERT_TRUE(player.waitPlayerAt(3.52));
    QCoreApplication::processEvents();
    VHSubtitleView *overlay = player.controller.subtitleView();
    ASSERT_TRUE(overlay->currentSubtitle());
    EXPECT_EQ(overlay->currentSubtitle()->string(), u"MMMMMMMM"_s);

    // The picture arrives: testsrc's colour bars are not black.
    QImage frame;
    const auto brightness = [&] {
        frame = player.controller.grabFrame();
        const QRgb middle = frame.pixel(frame.width() / 2, frame.height() / 3);
        return qRed(middle) + qGreen(middle) + qBlue(middle);
    };
    EXPECT_TRUE(waitFor([&] { return brightness() > 60; }, 3000));
    const auto layout = overlay->currentLayout(u"MMMMMMMM"_s);
    EXPECT_GT(whitePixels(frame, layout.textRect.toRect()), 30);
}

TEST(MovieController, UnsafeAudioTracksNeedConfirmation)
{
    TempDir dir;
    LoadedController player(twoAudioTracksMovie(dir));
    ASSERT_TRUE(player.waitLoaded());
    ASSERT_EQ(player.controller.audioMenuItems().size(), 2);
    EXPECT_EQ(player.controller.audioMenuItems()[0].title, u"English\t\tAAC"_s);
    EXPECT_EQ(player.controller.audioMenuItems()[1].title, u"French\t\tAC3"_s);

    ScriptedPrompter prompter;
    ScopedPrompter scope(&prompter);
    prompter.answers << PromptAnswer{1}; // Cancel
    player.controller.setAudioTrack(1);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message,
              u"The audio track you selected may not play on your system or even make the app crash. \n"
              u"Do you want to continue?"_s);
    EXPECT_EQ(prompter.prompts[0].buttons, (QStringList{u"Use Unsafe Audio Track"_s, u"Cancel"_s}));
    EXPECT_EQ(player.controller.audioTrack(), 0);

    prompter.answers << PromptAnswer{0}; // Use Unsafe Audio Track
    player.controller.setAudioTrack(1);
    EXPECT_EQ(player.controller.audioTrack(), 1);
    // The safe track needs no question; the menu ticks the current one.
    player.controller.setAudioTrack(0);
    EXPECT_EQ(prompter.prompts.size(), 2);
    QMenu menu;
    player.controller.fillAudioMenu(&menu);
    ASSERT_EQ(menu.actions().size(), 2);
    EXPECT_TRUE(menu.actions()[0]->isChecked());
    EXPECT_FALSE(menu.actions()[1]->isChecked());
    // An index past the end selects nothing.
    player.controller.setAudioTrack(2);
    EXPECT_EQ(player.controller.audioTrack(), 0);
}

TEST(MovieControllerView, SubtitleButtonAndFading)
{
    VHMovieController controller;
    auto *button = controller.view()->findChild<QToolButton *>(u"subtitleButton"_s);
    ASSERT_TRUE(button);
    EXPECT_TRUE(button->isHidden());
    controller.setSubtitles({VHSubtitle::create(u"a"_s, 1, 2)});
    EXPECT_FALSE(button->isHidden());
    controller.toggleSubtitle();
    EXPECT_FALSE(controller.showSubtitle());
    EXPECT_FALSE(button->isChecked());
    EXPECT_TRUE(waitFor([&] { return controller.subtitleView()->opacity() == 0; }, 2000));
    controller.setShowSubtitle(true);
    EXPECT_TRUE(waitFor([&] { return controller.subtitleView()->opacity() == 1; }, 2000));
    controller.setSubtitles({});
    EXPECT_TRUE(button->isHidden());
}

TEST(MovieControllerView, FullScreenLeavesAndRegainsItsPlace)
{
    VHMovieController controller;
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *above = new QWidget;
    layout->addWidget(above);
    layout->addWidget(controller.view());
    window.show();
    QList<bool> changes;
    QObject::connect(&controller, &VHMovieController::fullscreenChanged, [&](bool on) { changes << on; });

    controller.toggleFullscreen();
    EXPECT_TRUE(controller.isFullscreen());
    EXPECT_TRUE(controller.view()->isWindow());
    EXPECT_EQ(layout->indexOf(controller.view()), -1);
    controller.toggleFullscreen();
    EXPECT_FALSE(controller.isFullscreen());
    EXPECT_EQ(controller.view()->parentWidget(), &window);
    EXPECT_EQ(layout->indexOf(controller.view()), 1);
    controller.cancelFullscreen(); // only leaves
    EXPECT_EQ(changes, (QList<bool>{true, false}));
}

TEST(VLCMovieController, PassesTimesThroughAndWarnsOfAnUnknownRate)
{
    VLCMovieController controller;
    EXPECT_EQ(controller.kind(), 2);
    LogCapture log;
    EXPECT_EQ(controller.fps(), 25);
    EXPECT_EQ(log.lines(), QStringList{u"Warning: Unknown Framerate, using 25fps instead"_s});
    controller.setCurrentTime(100); // no clamping, no wait for readiness
    EXPECT_EQ(controller.currentTime(), 100);
    EXPECT_EQ(controller.timeWhenPaused(), 100);
}

TEST(MovieController, TheFactoryMakesThePlayerOfEachKind)
{
    for (int kind : {0, 1, 2, 3}) {
        std::unique_ptr<VHMovieController> controller(VHMovieController::controllerOfKind(kind));
        if (kind == 1 || kind == 2) {
            ASSERT_TRUE(controller) << kind;
            EXPECT_EQ(controller->kind(), kind);
            EXPECT_EQ(dynamic_cast<VLCMovieController *>(controller.get()) != nullptr, kind == 2);
            EXPECT_EQ(VHMovieController::viewOf(controller.get()), controller->view());
        } else {
            EXPECT_FALSE(controller) << kind;
        }
    }
}

TEST(VLCMovieController, AFileNeitherPlayerOpensReportsFailedLoading)
{
    RecordingDelegate delegate;
    VLCMovieController controller;
    controller.setDelegate(&delegate);
    ASSERT_TRUE(controller.loadMovieURL(brokenMovie()));
    ASSERT_TRUE(waitFor([&] { return delegate.loaded + delegate.failed > 0; }));
    EXPECT_EQ(delegate.failed, 1);
    EXPECT_EQ(delegate.loaded, 0);
}

TEST(MovieController, ReplacingAndUnloadingTheMovie)
{
    TempDir dir;
    LoadedController player;
    ASSERT_TRUE(player.waitLoaded());
    player.controller.setPlaying(true);
    ASSERT_TRUE(player.controller.loadMovieURL(twoAudioTracksMovie(dir)));
    EXPECT_FALSE(player.controller.isPlaying()); // a new movie starts paused
    ASSERT_TRUE(waitFor([&] { return player.delegate.loaded == 2; }));
    EXPECT_EQ(player.delegate.failed, 0);
    EXPECT_NEAR(player.controller.duration(), 1.0, 0.1);
    EXPECT_DOUBLE_EQ(player.controller.aspectRatio(), 160.0 / 120.0);

    player.controller.unloadMovie();
    EXPECT_FALSE(player.controller.hasMovie());
    EXPECT_FALSE(player.controller.isPlaying());
    EXPECT_EQ(player.controller.duration(), 0);
    EXPECT_TRUE(std::isnan(player.controller.playerTime()));
    waitFor([] { return false; }, 200);
    EXPECT_EQ(player.delegate.failed, 0); // stopping is not a failure
}

// The project may drop a controller from inside one of its reports.
TEST(MovieController, ADelegateMayDeleteTheControllerFromItsReport)
{
    struct Dropping : PlaybackControlDelegate
    {
        VHMovieController *controller = nullptr;
        int calls = 0;
        void drop()
        {
            ++calls;
            delete std::exchange(controller, nullptr);
        }
        void movieControllerDidLoadMovie(PlaybackControl *) override { drop(); }
        void movieControllerFaildLoading(PlaybackControl *) override { drop(); }
        void movieControllerChangedPlaying(PlaybackControl *, bool) override {}
        void movieControllerChangedTime(PlaybackControl *, double) override {}
    };
    const QString movies[] = {brokenMovie(), testMovie(), testMovie()};
    for (int i = 0; i < 3; ++i) {
        Dropping delegate;
        delegate.controller = i < 2 ? new VHMovieController : new VLCMovieController;
        delegate.controller->setDelegate(&delegate);
        ASSERT_TRUE(delegate.controller->loadMovieURL(movies[i]));
        EXPECT_TRUE(waitFor([&] { return delegate.calls > 0; })) << i;
        waitFor([] { return false; }, 200); // events queued for the deleted controller go nowhere
        EXPECT_EQ(delegate.calls, 1);
    }
}
