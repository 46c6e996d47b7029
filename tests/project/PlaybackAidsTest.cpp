// The playback aids against a player that plays when the test says: playing a line once or in
// a loop, from before it, the speed, and setting the line's start or end to the playing time.
#include "PlaybackAids.h"
#include "ProjectFixture.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double Frame = 0.04;

// Three lines in a 60 s movie at 25 fps; the second (5 s .. 7.5 s) is current.
class AidsTest : public ProjectTest
{
protected:
    void SetUp() override
    {
        ProjectTest::SetUp();
        openMovie(60, 25);
        player.reportsSeeks = true;
        project->setSubtitles(cues({{1, 2}, {5, 7.5}, {10, 12}}));
        project->setSelectionIndices({1});
        MainQueue::main().drain();
        aids = std::make_unique<PlaybackAids>(*project);
        player.seeks.clear();
        player.playingCalls.clear();
    }
    void TearDown() override
    {
        aids.reset();
        ProjectTest::TearDown();
    }
    SubtitlePtr line(qsizetype i) const { return project->subtitles()[i]; }
    // Plays on frame by frame, as the player's periodic update reports, until `until` or a
    // pause.
    void playUntil(double until)
    {
        for (int i = 0; i < 1000 && player.playing && player.time + Frame / 2 < until; ++i)
            player.playFor(Frame);
    }

    // Plays on for `count` frames (or until a pause), whatever seeks happen meanwhile.
    void playFrames(int count)
    {
        for (int i = 0; i < count && player.playing; ++i)
            player.playFor(Frame);
    }

    std::unique_ptr<PlaybackAids> aids;
};

} // namespace

TEST_F(AidsTest, PlayingTheLineStartsAtItsStartAndPausesAtItsEnd)
{
    player.time = 20;
    aids->playLine();
    EXPECT_EQ(player.seeks, (QList<double>{5.0}));
    EXPECT_TRUE(player.playing);
    EXPECT_EQ(aids->playing(), PlaybackAids::Playing::Line);

    playUntil(7.48);
    EXPECT_TRUE(player.playing) << "paused before the end, at " << player.time;
    player.playFor(Frame); // 7.52: past the end
    EXPECT_FALSE(player.playing);
    EXPECT_DOUBLE_EQ(player.time, 7.5);
    EXPECT_DOUBLE_EQ(project->currentTime(), 7.5);
    EXPECT_EQ(aids->playing(), PlaybackAids::Playing::Nothing);

    // Played again from there, the movie plays on past the line.
    player.setPlaying(true);
    playUntil(9);
    EXPECT_TRUE(player.playing);

    // While the movie plays, the line starts over at once.
    aids->playLine();
    EXPECT_DOUBLE_EQ(player.seeks.last(), 5.0);
    EXPECT_TRUE(player.playing);
    playUntil(8);
    EXPECT_FALSE(player.playing);
    EXPECT_DOUBLE_EQ(player.time, 7.5);
}

TEST_F(AidsTest, TheLoopGoesBackToTheStartUntilTheUserPausesOrAnotherLineIsCurrent)
{
    aids->toggleLoop();
    EXPECT_TRUE(aids->isLooping());
    for (int round = 0; round < 3; ++round) {
        playFrames(62); // 7.48
        EXPECT_NEAR(player.time, 7.48, 1e-9) << "round " << round;
        playFrames(1); // past the end
        EXPECT_DOUBLE_EQ(player.time, 5.0) << "round " << round;
        EXPECT_TRUE(player.playing);
    }
    EXPECT_EQ(player.seeks, (QList<double>{5.0, 5.0, 5.0, 5.0}));

    // The user's pause ends it: played again, the movie goes on past the line.
    player.playFor(1.0);
    player.setPlaying(false);
    EXPECT_FALSE(aids->isLooping());
    player.setPlaying(true);
    playUntil(8);
    EXPECT_GT(player.time, 7.5);

    // Another line becoming current ends it as well; playback goes on from there.
    project->setSelectionIndices({1});
    aids->toggleLoop();
    ASSERT_TRUE(aids->isLooping());
    project->setSelectionIndices({2});
    EXPECT_FALSE(aids->isLooping());
    EXPECT_TRUE(player.playing);
    playUntil(12.5);
    EXPECT_GT(player.time, 12.0);

    // The command again stops the loop without pausing.
    project->setSelectionIndices({1});
    aids->toggleLoop();
    playFrames(20);
    aids->toggleLoop();
    EXPECT_FALSE(aids->isLooping());
    EXPECT_TRUE(player.playing);
    playUntil(8);
    EXPECT_GT(player.time, 7.5);
}

TEST_F(AidsTest, TheLoopWaitsForItsSeekAndFollowsTheLinesTimes)
{
    aids->toggleLoop();
    playFrames(63);
    ASSERT_EQ(player.seeks.size(), 2);
    // A player that still reports where it was before the seek landed (libVLC's coarse clock)
    // is not asked to seek again.
    player.time = 7.56;
    player.playFor(0);
    EXPECT_EQ(player.seeks.size(), 2);
    EXPECT_TRUE(aids->isLooping());
    player.time = 5.0;
    playFrames(63);
    EXPECT_EQ(player.seeks.size(), 3);

    // Setting the end while looping: the loop turns at the new end.
    playFrames(38); // 6.52
    aids->setEndToPlayingTime();
    MainQueue::main().drain();
    EXPECT_NEAR(line(1)->end(), 6.52, 1e-9);
    EXPECT_TRUE(aids->isLooping());
    playFrames(1);
    EXPECT_DOUBLE_EQ(player.time, 5.0);

    // A pause while the seek back is under way is the user's all the same.
    player.setPlaying(false);
    EXPECT_FALSE(aids->isLooping());
}

TEST_F(AidsTest, TheUsersSeekOrAnotherMovieEndsPlayingTheLine)
{
    aids->playLine();
    playUntil(6);
    player.setCurrentTime(30); // the scrubber, while playing
    EXPECT_EQ(aids->playing(), PlaybackAids::Playing::Nothing);
    EXPECT_TRUE(player.playing);

    project->setSelectionIndices({1});
    aids->playLine();
    playFrames(3);
    player.setCurrentTime(2); // back before the line
    EXPECT_EQ(aids->playing(), PlaybackAids::Playing::Nothing);
    playUntil(8);
    EXPECT_TRUE(player.playing);

    aids->toggleLoop();
    openMovie(60, 25);
    EXPECT_FALSE(aids->isLooping());
}

TEST_F(AidsTest, PlayingFromBeforeTheLineStartsHalfASecondEarlierAndPlaysOn)
{
    aids->playFromLeadIn();
    EXPECT_EQ(player.seeks, (QList<double>{4.5}));
    EXPECT_TRUE(player.playing);
    EXPECT_EQ(aids->playing(), PlaybackAids::Playing::Nothing);
    playUntil(8);
    EXPECT_TRUE(player.playing);

    // Never before the movie's start.
    line(0)->setStart(0.2);
    project->setSelectionIndices({0});
    aids->playFromLeadIn();
    EXPECT_DOUBLE_EQ(player.seeks.last(), 0.0);
}

TEST_F(AidsTest, NothingPlaysWithoutALineThatLastsOrInTap2Sync)
{
    project->setSelectionIndices({});
    EXPECT_FALSE(aids->canPlayLine());
    aids->playLine();
    aids->toggleLoop();
    aids->playFromLeadIn();
    EXPECT_TRUE(player.seeks.isEmpty());
    EXPECT_FALSE(player.playing);
    EXPECT_FALSE(aids->isLooping());

    line(2)->setEnd(10);
    project->setSelectionIndices({2});
    EXPECT_FALSE(aids->canPlayLine()) << "a line of no length";

    project->setSelectionIndices({1});
    EXPECT_TRUE(aids->canPlayLine());
    prompter.answers = {PromptAnswer{0, 0, false}}; // Start
    project->toggleTap2Sync();
    ASSERT_EQ(project->fixMode(), FixMode::Tap2Sync);
    EXPECT_FALSE(aids->canPlayLine());

    // Without a movie there is nothing to play, and the speed waits for one.
    project->setMoviePath(QString());
    EXPECT_FALSE(aids->canPlayLine());
    EXPECT_FALSE(aids->canSetEnd());
    EXPECT_FALSE(aids->canSetStart());
}

TEST_F(AidsTest, TheSpeedGoesToThePlayerAndStaysForTheNextMovie)
{
    EXPECT_DOUBLE_EQ(aids->speed(), 1.0);
    EXPECT_EQ(PlaybackAids::speeds(), (QList<double>{0.5, 0.75, 1.0, 1.5, 2.0}));
    aids->setSpeed(0.75);
    EXPECT_DOUBLE_EQ(player.rate, 0.75);
    aids->setSpeed(0);
    aids->setSpeed(-1);
    EXPECT_DOUBLE_EQ(aids->speed(), 0.75);

    // A player that starts every movie at normal speed gets the session's speed.
    player.rate = 1;
    openMovie(30, 25);
    EXPECT_DOUBLE_EQ(player.rate, 0.75);
    project->setMoviePath(QString());
    aids->setSpeed(2);
    player.rate = 1;
    openMovie(30, 25);
    EXPECT_DOUBLE_EQ(player.rate, 2.0);
}

TEST_F(AidsTest, SettingTheStartFollowsTheFixRulesOfTheModeAsOneStep)
{
    // Fix mode: the lines before move with the start, stretched from the movie's start.
    player.time = 6;
    ASSERT_TRUE(aids->canSetStart());
    aids->setStartToPlayingTime();
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(line(1)->start(), 6.0);
    // The lines after it stretch towards the movie's end: the line keeps 54/55 of its length.
    EXPECT_NEAR(line(1)->end(), 6 + 2.5 * 54 / 55, 1e-9);
    EXPECT_TRUE(line(1)->fixed());
    EXPECT_NEAR(line(0)->start(), 1.2, 1e-9);
    EXPECT_EQ(project->editor().undoTitle(), u"Undo Fix"_s);
    project->undo();
    EXPECT_DOUBLE_EQ(line(1)->start(), 5.0);
    EXPECT_DOUBLE_EQ(line(0)->start(), 1.0);
    EXPECT_FALSE(line(1)->fixed());

    // Shift mode (Shift held): every line of the run moves by the same amount.
    project->setModifierKeys(CTWindowController::ShiftModifier);
    project->updateFixMode();
    aids->setStartToPlayingTime();
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(line(0)->start(), 2.0);
    EXPECT_DOUBLE_EQ(line(1)->start(), 6.0);
    EXPECT_DOUBLE_EQ(line(2)->start(), 11.0);
    project->setModifierKeys(CTWindowController::NoModifier);
    project->updateFixMode();

    // Outside the fix range the key does nothing, as the fix key does.
    line(2)->setFixed(true);
    project->setSelectionIndices({1});
    player.time = 20;
    EXPECT_FALSE(aids->canSetStart());
    aids->setStartToPlayingTime();
    EXPECT_DOUBLE_EQ(line(1)->start(), 6.0);
}

TEST_F(AidsTest, SettingTheEndTakesThePlayingTimeAsOneStep)
{
    player.time = 7.0;
    ASSERT_TRUE(aids->canSetEnd());
    project->setHasChanged(false);
    aids->setEndToPlayingTime();
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(line(1)->end(), 7.0);
    EXPECT_DOUBLE_EQ(line(1)->start(), 5.0);
    EXPECT_DOUBLE_EQ(project->duration(), 2.0); // the editor's field
    EXPECT_TRUE(project->hasChanged());
    EXPECT_EQ(project->editor().undoTitle(), u"Undo Set End"_s);

    // Past the next line's start, the end stops there (lines do not overlap); still one step.
    player.time = 10.5;
    aids->setEndToPlayingTime();
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(line(1)->end(), 10.0);
    EXPECT_DOUBLE_EQ(line(2)->start(), 10.0);
    project->undo();
    EXPECT_DOUBLE_EQ(line(1)->end(), 7.0);
    project->undo();
    EXPECT_DOUBLE_EQ(line(1)->end(), 7.5);

    // Not at or before the start, nor less than half a frame after it (a click on a line
    // seeks a tenth of a millisecond into it).
    player.time = 5.0;
    EXPECT_FALSE(aids->canSetEnd());
    player.time = 5.0001;
    EXPECT_FALSE(aids->canSetEnd());
    player.time = 5.02;
    EXPECT_TRUE(aids->canSetEnd());
    player.time = 5.0;
    aids->setEndToPlayingTime();
    EXPECT_DOUBLE_EQ(line(1)->end(), 7.5);
}
