// The timeline strip: its scale and zoom limits, which cues it looks at, what it draws of the
// sound, and the edits made on it (fix by dragging a start, set an end), which go through the
// project's edit path as one undo step each, snapped to speech as the fix key is.
#include "AudioAnalysis.h"
#include "CTPreferenceController.h"
#include "LocaleNames.h"
#include "Log.h"
#include "MainQueue.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "SpeechSnapper.h"
#include "TestSupport.h"
#include "TimelineAudio.h"
#include "TimelineView.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QTableView>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

TEST(TimelineScale, ZoomStaysBetweenTwoSecondsAndTheWholeMovieAcross)
{
    // Two hours on 1,000 pixels: at most 7.2 s a pixel, at least 2 ms.
    EXPECT_DOUBLE_EQ(TimelineScale::limitedSecondsPerPixel(100, 7200, 1000), 7.2);
    EXPECT_DOUBLE_EQ(TimelineScale::limitedSecondsPerPixel(1e-6, 7200, 1000), 0.002);
    EXPECT_DOUBLE_EQ(TimelineScale::limitedSecondsPerPixel(0.5, 7200, 1000), 0.5);
    // A movie shorter than 2 s still spans 2 s; nonsense asks for the whole length.
    EXPECT_DOUBLE_EQ(TimelineScale::limitedSecondsPerPixel(1, 0.5, 100), 0.02);
    EXPECT_DOUBLE_EQ(TimelineScale::limitedSecondsPerPixel(std::nan(""), 60, 600), 0.1);
    EXPECT_DOUBLE_EQ(TimelineScale::limitedSecondsPerPixel(0, 60, 0), 60);
    // The view neither starts before 0 nor runs past the end.
    EXPECT_DOUBLE_EQ(TimelineScale::limitedViewStart(-5, 0.01, 60, 1000), 0);
    EXPECT_DOUBLE_EQ(TimelineScale::limitedViewStart(55, 0.01, 60, 1000), 50);
    EXPECT_DOUBLE_EQ(TimelineScale::limitedViewStart(20, 0.1, 60, 1000), 0); // all of it shows

    const TimelineScale scale{12.5, 0.02};
    EXPECT_DOUBLE_EQ(scale.xAt(12.5), 0);
    EXPECT_DOUBLE_EQ(scale.xAt(13.5), 50);
    EXPECT_DOUBLE_EQ(scale.timeAt(50), 13.5);
    EXPECT_DOUBLE_EQ(scale.timeAt(scale.xAt(47.123)), 47.123);
    EXPECT_DOUBLE_EQ(scale.viewEnd(1000), 32.5);
}

SubtitleList cuesEvery(int count, double step, double length)
{
    SubtitleList cues;
    cues.reserve(count);
    for (int i = 0; i < count; ++i)
        cues << VHSubtitle::create(u"Line %1"_s.arg(i), i * step, i * step + length);
    return cues;
}

TEST(TimelineCues, TheVisibleCuesOfAHundredThousandAreExactlyThoseOnScreen)
{
    SubtitleList cues = cuesEvery(100000, 2.0, 1.5);
    // One long cue that starts early and runs far into later ones.
    cues[5000]->setEnd(10030);
    const std::vector<double> reach = cueReach(cues);
    auto check = [&](double from, double to) {
        const auto [first, last] = visibleCueRange(cues, reach, from, to);
        qsizetype expectedFirst = -1, expectedLast = -1;
        for (qsizetype i = 0; i < cues.size(); ++i) {
            if (cues[i]->end() > from && cues[i]->start() <= to) {
                if (expectedFirst < 0)
                    expectedFirst = i;
                expectedLast = i;
            }
        }
        if (expectedFirst < 0) {
            EXPECT_EQ(first, last) << from << ".." << to;
            return;
        }
        EXPECT_EQ(first, expectedFirst) << from << ".." << to;
        EXPECT_EQ(last, expectedLast + 1) << from << ".." << to;
    };
    check(0, 10);
    check(1001.7, 1003.2); // starts inside a cue
    check(1001.6, 1001.9); // between two cues: the one after
    check(10020, 10040);   // the long cue reaches in
    check(199990, 200100); // the end
    check(0, 200000);      // everything
    // Nothing to show.
    const auto [first, last] = visibleCueRange(cues, reach, 300000, 300010);
    EXPECT_EQ(first, last);
    const auto [none1, none2] = visibleCueRange(SubtitleList(), {}, 0, 10);
    EXPECT_EQ(none1, none2);
}

// A player whose picture is a plain widget and whose movie is 60 s long.
class FakePlayer final : public PlaybackControl
{
public:
    QWidget view;
    PlaybackControlDelegate *delegate = nullptr;
    bool movie = false, playing = false;
    double time = 0;
    QList<double> seeks;
    QList<AudioTrackItem> audio{{u"English"_s, 0, false}, {u"Commentary"_s, 1, false}};

    QList<AudioTrackItem> audioMenuItems() const override { return audio; }
    bool hasMovie() const override { return movie; }
    double currentTime() const override { return time; }
    void setCurrentTime(double seconds) override
    {
        seeks << seconds;
        time = seconds;
        if (delegate)
            delegate->movieControllerChangedTime(this, seconds);
    }
    double fps() const override { return 25; }
    double duration() const override { return 60; }
    bool isPlaying() const override { return playing; }
    void setPlaying(bool p) override { playing = p; }
    void setSubtitles(const SubtitleList &) override {}
    void setShowSubtitle(bool) override {}
    void redrawCurrentSubtitle() override {}
    qsizetype currentSegmentIndex() const override { return 0; }
    bool loadMovieURL(const QString &) override { return true; }
    void setDelegate(PlaybackControlDelegate *d) override { delegate = d; }
    int kind() const override { return 1; }
};

class TimelineWindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        MainQueue::main().drain();
        Settings::shared().useFile(dir.path(u"settings.ini"_s));
        Settings::shared().setValue(u"Locale"_s, u"en"_s);
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
        LocaleNames::setInterfaceLanguage(u"en"_s);
        makeWindow();
        movie = dir.write(u"Film.mp4"_s, "movie");
        dir.write(u"Film.en.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nHello there\n\n"
                                    "2\n00:00:05,000 --> 00:00:07,500\nSecond line\n\n"
                                    "3\n00:00:10,000 --> 00:00:12,000\nThird hello\n\n");
    }
    void TearDown() override
    {
        MainQueue::main().drain();
        window.reset();
    }
    void makeWindow()
    {
        window = std::make_unique<ProjectWindow>();
        window->setPlayers(
            [this](int) -> PlaybackControl * { return player = new FakePlayer; },
            [](PlaybackControl *p) -> QWidget * { return &static_cast<FakePlayer *>(p)->view; });
        window->start();
        window->resize(1200, 720);
        window->show();
        QApplication::setActiveWindow(window.get());
    }
    void openMovie()
    {
        window->project()->setMoviePath(movie);
        player->movie = true;
        player->delegate->movieControllerDidLoadMovie(player);
        QCoreApplication::processEvents();
        // 20 ms a pixel from 0 s: cue 2 (5 s .. 7.5 s) lies at x 250 .. 375.
        timeline()->setView(0, 0.02);
    }
    TimelineView *timeline() const { return window->timeline(); }
    const SubtitleList &cues() const { return window->project()->subtitles(); }
    QPoint at(double seconds) const
    {
        return {int(std::lround(timeline()->scale().xAt(seconds))), timeline()->cueRect().center().y()};
    }
    // Drags from one time to another in the cue lane, releasing with `modifiers` held.
    void drag(double from, double to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mousePress(timeline(), Qt::LeftButton, Qt::NoModifier, at(from));
        QTest::mouseMove(timeline(), at((from + to) / 2));
        QTest::mouseMove(timeline(), at(to));
        QTest::mouseRelease(timeline(), Qt::LeftButton, modifiers, at(to));
        MainQueue::main().drain();
    }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
    LogCapture log;
    FakePlayer *player = nullptr;
    std::unique_ptr<ProjectWindow> window;
    QString movie;
};

TEST_F(TimelineWindowTest, DraggingAStartEdgeIsAFixInTheCurrentModeAndOneUndoStep)
{
    openMovie();
    ASSERT_EQ(cues().size(), 3);
    EXPECT_EQ(timeline()->grabAt(at(5)).first, TimelineView::Grab::StartEdge);
    EXPECT_EQ(timeline()->grabAt(at(7.5)).first, TimelineView::Grab::EndEdge);
    EXPECT_EQ(timeline()->grabAt(at(6.2)).first, TimelineView::Grab::Body);
    EXPECT_EQ(timeline()->grabAt(at(3.5)).first, TimelineView::Grab::None);

    drag(5, 6);
    // The dragged line became the current one and was fixed at 6 s: an anchor now, and the
    // lines before it stretched between 0 and the new start (factor 6/5).
    EXPECT_EQ(window->project()->currentSubtitle(), cues()[1]);
    EXPECT_DOUBLE_EQ(cues()[1]->start(), 6.0);
    EXPECT_TRUE(cues()[1]->fixed());
    EXPECT_NEAR(cues()[0]->start(), 1.2, 1e-9);
    EXPECT_TRUE(window->project()->hasChanged());
    EXPECT_EQ(window->project()->editor().undoTitle(), u"Undo Fix"_s);

    window->project()->undo();
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(cues()[0]->start(), 1.0);
    EXPECT_DOUBLE_EQ(cues()[1]->start(), 5.0);
    EXPECT_DOUBLE_EQ(cues()[1]->end(), 7.5);
    EXPECT_FALSE(cues()[1]->fixed());
    EXPECT_FALSE(window->project()->canUndo()); // one step

    // In Single mode the same drag moves only that line.
    window->project()->setFixMode(FixMode::Single);
    drag(5, 6);
    EXPECT_DOUBLE_EQ(cues()[0]->start(), 1.0);
    EXPECT_DOUBLE_EQ(cues()[1]->start(), 6.0);
    EXPECT_DOUBLE_EQ(cues()[2]->start(), 10.0);
}

TEST_F(TimelineWindowTest, DraggingAnEndEdgeSetsTheEndInOneUndoStep)
{
    openMovie();
    drag(2, 3);
    EXPECT_DOUBLE_EQ(cues()[0]->end(), 3.0);
    EXPECT_DOUBLE_EQ(cues()[0]->start(), 1.0);
    EXPECT_FALSE(cues()[0]->fixed());
    window->project()->undo();
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(cues()[0]->end(), 2.0);
    EXPECT_FALSE(window->project()->canUndo());

    // An end dragged before its start stops at the start; one dragged into the next line
    // stops at that line's start, as the neighbour rules keep lines from overlapping.
    drag(2, 0.2);
    EXPECT_DOUBLE_EQ(cues()[0]->end(), 1.0);
    window->project()->undo();
    drag(7.5, 10.5);
    EXPECT_DOUBLE_EQ(cues()[1]->end(), 10.0);
    EXPECT_DOUBLE_EQ(cues()[2]->start(), 10.0);
    window->project()->undo();
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(cues()[1]->end(), 7.5);
    EXPECT_DOUBLE_EQ(cues()[2]->start(), 10.0);
}

TEST_F(TimelineWindowTest, ADraggedStartSnapsToSpeechUnlessTheBypassKeyIsHeld)
{
    openMovie();
    window->speechSnapper().setOnsets({6.1, 20.0});
    drag(5, 6);
    EXPECT_DOUBLE_EQ(cues()[1]->start(), 6.1);
    window->project()->undo();

    drag(5, 6, SpeechSnapper::BypassModifier);
    EXPECT_DOUBLE_EQ(cues()[1]->start(), 6.0);
    window->project()->undo();

    // Outside the window (±0.25 s by default) nothing snaps; a wider window reaches it.
    drag(5, 5.8);
    EXPECT_DOUBLE_EQ(cues()[1]->start(), 5.8);
    window->project()->undo();
    Settings::shared().setValue(SpeechSnapper::WindowKey, 0.4);
    drag(5, 5.8);
    EXPECT_DOUBLE_EQ(cues()[1]->start(), 6.1);
    window->project()->undo();

    Settings::shared().setValue(SpeechSnapper::EnabledKey, false);
    drag(5, 6);
    EXPECT_DOUBLE_EQ(cues()[1]->start(), 6.0);
}

TEST_F(TimelineWindowTest, TheFixKeySnapsThroughTheProjectAndShowsWhereItWillLand)
{
    openMovie();
    window->cueTable()->selectRow(1);
    player->time = 5.5;
    EXPECT_DOUBLE_EQ(window->project()->fixTime(), 5.5);

    window->speechSnapper().setOnsets({5.62});
    const std::optional<TimelineView::PendingFix> pending = timeline()->pendingFix();
    ASSERT_TRUE(pending);
    EXPECT_DOUBLE_EQ(pending->from, 5.0);
    EXPECT_DOUBLE_EQ(pending->to, 5.62);
    EXPECT_TRUE(pending->allowed);

    window->cueTable()->setFocus();
    QCoreApplication::processEvents(); // the menus take the project's states
    QTest::keyClick(window->cueTable(), Qt::Key_Return, Qt::ControlModifier);
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(cues()[1]->start(), 5.62);
    window->project()->undo();
    MainQueue::main().drain();
    QCoreApplication::processEvents();

    // With the bypass key held too, the key fixes at the playing time as it is.
    QTest::keyClick(window->cueTable(), Qt::Key_Return, Qt::ControlModifier | SpeechSnapper::BypassModifier);
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(cues()[1]->start(), 5.5);
}

TEST_F(TimelineWindowTest, WithoutSpeechTheFixTimeIsThePlayingTimeToTheBit)
{
    openMovie();
    window->cueTable()->selectRow(1);
    // In Tap2Sync the snapping is asked about the time less the reaction delay; without an
    // onset the time must come back unchanged, not rounded through the delay.
    Settings::shared().setValue(u"TapDelaySecs"_s, 0.3);
    window->project()->setFixMode(FixMode::Tap2Sync);
    for (double t : {12.345678901, 0.844, 0.971, 0.032, 59.99}) { // 0.844 - 0.3 + 0.3 is not 0.844
        player->time = t;
        EXPECT_EQ(window->project()->fixTime(), t);
    }
    // With an onset the tap lands on it: the delay comes off again when the start is set.
    window->speechSnapper().setOnsets({12.0});
    player->time = 12.2;
    EXPECT_NEAR(window->project()->fixTime(), 12.3, 1e-12);
    const std::optional<TimelineView::PendingFix> pending = timeline()->pendingFix();
    ASSERT_TRUE(pending);
    EXPECT_NEAR(pending->to, 12.0, 1e-12);
}

TEST_F(TimelineWindowTest, AClickSeeksAndAClickOnALineSelectsIt)
{
    openMovie();
    QTest::mouseClick(timeline(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(int(timeline()->scale().xAt(3.0)), timeline()->waveformRect().center().y()));
    EXPECT_NEAR(player->time, 3.0, 0.02);
    QTest::mouseClick(timeline(), Qt::LeftButton, Qt::NoModifier, at(11));
    EXPECT_EQ(window->project()->currentSubtitle(), cues()[2]);
    EXPECT_EQ(window->project()->selectionIndices(), QList<qsizetype>{2});
    EXPECT_FALSE(window->project()->canUndo()); // selecting is no edit
}

TEST_F(TimelineWindowTest, ZoomingKeepsTheTimeUnderTheMouseWithinTheLimits)
{
    openMovie();
    const double width = timeline()->width();
    const QPointF mouse(400, 30);
    const double under = timeline()->scale().timeAt(mouse.x());
    QWheelEvent wheel(mouse, timeline()->mapToGlobal(mouse), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(timeline(), &wheel);
    EXPECT_NEAR(timeline()->scale().secondsPerPixel, 0.02 / std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(timeline()->scale().timeAt(mouse.x()), under, 1e-9);

    for (int i = 0; i < 20; ++i)
        window->findChild<QAction *>(u"timelineZoomIn"_s)->trigger();
    EXPECT_DOUBLE_EQ(timeline()->scale().secondsPerPixel, 2.0 / width);
    for (int i = 0; i < 20; ++i)
        window->findChild<QAction *>(u"timelineZoomOut"_s)->trigger();
    EXPECT_DOUBLE_EQ(timeline()->scale().secondsPerPixel, 60.0 / width);
    EXPECT_DOUBLE_EQ(timeline()->scale().viewStart, 0);

    // A plain wheel scrolls through time.
    timeline()->setView(10, 0.01);
    QWheelEvent scroll(mouse, timeline()->mapToGlobal(mouse), QPoint(), QPoint(0, -120), Qt::NoButton,
                       Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(timeline(), &scroll);
    EXPECT_NEAR(timeline()->scale().viewStart, 10 + 0.1 * width * 0.01, 1e-9);
}

TEST_F(TimelineWindowTest, TheViewFollowsPlayback)
{
    openMovie();
    timeline()->setView(0, 0.01); // 0 .. about 12 s
    const double span = timeline()->scale().viewEnd(timeline()->width());
    player->playing = true;
    player->setCurrentTime(span * 0.5);
    EXPECT_DOUBLE_EQ(timeline()->scale().viewStart, 0); // still on screen: the view stays
    player->setCurrentTime(span * 0.95);
    EXPECT_GT(timeline()->scale().viewStart, 0);
    EXPECT_LT(timeline()->scale().xAt(player->time), timeline()->width() * 0.2);
    // Paused, a jump far away centres the playhead.
    player->playing = false;
    player->setCurrentTime(40);
    EXPECT_NEAR(timeline()->scale().xAt(40), timeline()->width() / 2.0, 1);
}

TEST_F(TimelineWindowTest, TheWaveformShowsOnlyFilledPeaksAndTheSpeechBand)
{
    openMovie();
    auto analysis = std::make_shared<AudioAnalysis>();
    analysis->setBinCount(6000);
    // Loud from 1 s to 2 s; nothing known after 4 s.
    std::vector<PeakBin> peaks(400, PeakBin{-10, 10});
    for (int i = 100; i < 200; ++i)
        peaks[std::size_t(i)] = {-120, 120};
    analysis->fill(0, peaks.data(), qint64(peaks.size()));
    analysis->setSpeech({{1.0, 2.0}});
    timeline()->setAnalysis(analysis);
    const QImage image = timeline()->grab().toImage();
    const QRect wave = timeline()->waveformRect();
    auto coloured = [&](double seconds, int y) {
        const QColor c = image.pixelColor(int(timeline()->scale().xAt(seconds)), y);
        return c.blue() > c.red() + 60;
    };
    const int nearTop = wave.top() + 4;
    EXPECT_TRUE(coloured(1.5, nearTop));                // loud: reaches the top
    EXPECT_FALSE(coloured(3.0, nearTop));               // quiet: stays near the middle
    EXPECT_TRUE(coloured(3.0, wave.center().y() + 1));  // but is drawn
    EXPECT_FALSE(coloured(5.0, wave.center().y() + 1)); // not analysed yet: nothing
    auto speech = [&](double seconds) {
        const QColor c =
            image.pixelColor(int(timeline()->scale().xAt(seconds)), timeline()->speechRect().center().y());
        return c.green() > c.red() + 60 && c.green() > c.blue() + 40;
    };
    EXPECT_TRUE(speech(1.5));
    EXPECT_FALSE(speech(3.0));
}

TEST_F(TimelineWindowTest, TheSoundIsAnalysedForTheChosenTrackWhileTheMovieIsOpen)
{
    TimelineAudio audio(*window);
    audio.setCacheFolder(dir.path(u"cache"_s));
    openMovie();
    QCoreApplication::processEvents(); // looked at once the movie has loaded
    ASSERT_TRUE(audio.analyser());
    EXPECT_EQ(timeline()->analysis(), audio.analyser()->analysis());
    EXPECT_EQ(audio.analyser()->request().moviePath, movie);
    EXPECT_EQ(audio.analyser()->request().audioTrack, 0);
    EXPECT_TRUE(audio.analyser()->request().centreChannelOnly);
    // "Film.mp4" holds no sound at all: the strip says so, once the analysis gave up.
    for (int i = 0; i < 200 && timeline()->audioNote().isEmpty(); ++i)
        QTest::qWait(20);
    EXPECT_EQ(timeline()->audioNote(), u"No sound to show"_s);

    // Another track, or the other channel choice, is another analysis.
    const AudioAnalyser *first = audio.analyser();
    window->audioMenu()->actions()[1]->trigger();
    QCoreApplication::processEvents();
    ASSERT_TRUE(audio.analyser());
    EXPECT_NE(audio.analyser(), first);
    EXPECT_EQ(audio.analyser()->request().audioTrack, 1);
    EXPECT_TRUE(timeline()->audioNote().isEmpty());
    Settings::shared().setValue(CTPreferenceController::TimelineCentreChannelKey, false);
    QCoreApplication::processEvents();
    EXPECT_FALSE(audio.analyser()->request().centreChannelOnly);
    // The same choice again starts nothing new.
    const AudioAnalyser *current = audio.analyser();
    window->audioMenu()->actions()[1]->trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(audio.analyser(), current);

    // Closing the movie stops the analysis and empties the strip.
    window->speechSnapper().setOnsets({1.0});
    window->project()->setMoviePath(QString());
    QCoreApplication::processEvents();
    EXPECT_FALSE(audio.analyser());
    EXPECT_FALSE(timeline()->analysis());
    EXPECT_TRUE(window->speechSnapper().onsets().isEmpty());
}

TEST_F(TimelineWindowTest, TheStripCanBeHiddenAndTheWindowRemembersIt)
{
    QAction *show = window->showTimelineAction();
    ASSERT_TRUE(show);
    EXPECT_TRUE(timeline()->isVisible());
    EXPECT_EQ(show->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T));
    show->trigger();
    EXPECT_FALSE(timeline()->isVisible());
    window.reset();
    makeWindow();
    EXPECT_FALSE(timeline()->isVisible());
    EXPECT_FALSE(window->showTimelineAction()->isChecked());
    window->showTimelineAction()->trigger();
    EXPECT_TRUE(timeline()->isVisible());
}

} // namespace
