// Tap2Sync: re-timing a film by tapping each line as it is heard.
#include "ProjectFixture.h"

#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {
// A player that remembers whether it plays, so that entering and leaving the mode show.
class PlayingPlayer final : public PlaybackControl
{
public:
    double time = 0;
    bool playing = false;
    QList<double> seeks;

    bool hasMovie() const override { return true; }
    double currentTime() const override { return time; }
    void setCurrentTime(double seconds) override { seeks << (time = seconds); }
    double fps() const override { return 25; }
    double duration() const override { return 100; }
    bool isPlaying() const override { return playing; }
    void setPlaying(bool p) override { playing = p; }
    void setSubtitles(const SubtitleList &) override {}
    void setShowSubtitle(bool) override {}
    void redrawCurrentSubtitle() override {}
    qsizetype currentSegmentIndex() const override { return 0; }
    bool loadMovieURL(const QString &) override { return true; }
};

// Cues of 4 s at 10, 20, 30 and 40 s in a 100 s movie at 25 fps; the explanation is
// suppressed except where it is the subject.
class Tap2SyncTest : public ProjectTest
{
protected:
    void SetUp() override
    {
        ProjectTest::SetUp();
        project = std::make_unique<CTWindowController>(&view, &playing);
        view.project = project.get();
        project->windowDidLoad();
        const QString movie = dir.write(u"Film.m4v"_s, "movie");
        project->setMoviePath(movie);
        project->movieControllerDidLoadMovie(&playing);
        project->setSubtitles(cues({{10, 14}, {20, 24}, {30, 34}, {40, 44}}));
        Settings::shared().setValue(u"ShownTap2Sync"_s, true);
    }
    SubtitlePtr cue(qsizetype i) const { return project->subtitles()[i]; }
    void playAt(double t)
    {
        playing.time = t;
        project->setCurrentTime(t);
    }
    QString menuTitle() const
    {
        return project->validateMenuItem(u"toggleTap2Sync:"_s).title.value_or(QString());
    }

    PlayingPlayer playing;
};
} // namespace

TEST_F(Tap2SyncTest, TheExplanationShowsUntilSuppressedAndCancelKeepsTheMode)
{
    Settings::shared().remove(u"ShownTap2Sync"_s);
    prompter.answers = {PromptAnswer{1, 0, true}, PromptAnswer{0, 0, false}, PromptAnswer{0, 0, true}};
    project->toggleTap2Sync();
    ASSERT_EQ(prompter.prompts.size(), 1);
    const Prompt &prompt = prompter.prompts[0];
    EXPECT_EQ(prompt.message, u"How to use \"Tap2Sync\""_s);
    EXPECT_EQ(prompt.informative,
              u"Tap2Sync let's you quickly sync a full video by watching it. Whenever you hear the current "
              "subtitle instantly press space. It will fix that subtitle and move to the next."_s);
    EXPECT_EQ(prompt.buttons, (QStringList{u"Start"_s, u"Cancel"_s}));
    EXPECT_FALSE(prompt.checkboxTitle.isEmpty());
    EXPECT_EQ(project->fixMode(), FixMode::Fix); // cancelled, box ticked or not
    EXPECT_EQ(menuTitle(), u"Enter \"Tap2Sync\" Mode"_s);

    project->toggleTap2Sync(); // Start, box not ticked
    EXPECT_EQ(project->fixMode(), FixMode::Tap2Sync);
    EXPECT_EQ(project->modeIsFix(), -1);
    EXPECT_EQ(menuTitle(), u"Exit \"Tap2Sync\" Mode"_s);
    project->toggleTap2Sync();
    EXPECT_EQ(project->fixMode(), FixMode::Fix);
    EXPECT_FALSE(Settings::shared().boolValue(u"ShownTap2Sync"_s));

    project->toggleTap2Sync(); // Start, box ticked
    project->toggleTap2Sync();
    project->toggleTap2Sync();
    EXPECT_EQ(project->fixMode(), FixMode::Tap2Sync);
    EXPECT_EQ(prompter.prompts.size(), 3); // never for leaving, and not after the tick
    EXPECT_TRUE(Settings::shared().boolValue(u"ShownTap2Sync"_s));
}

TEST_F(Tap2SyncTest, EnteringShowsAllCuesSelectsTheCueBeforeThePlayheadAndRewinds)
{
    project->setSearchString(u"c3"_s);
    ASSERT_EQ(project->arrangedSubtitles().size(), 1);
    playAt(35);
    project->toggleTap2Sync();
    EXPECT_EQ(project->searchString(), u""_s);
    EXPECT_EQ(project->arrangedSubtitles().size(), 4);
    EXPECT_EQ(project->selectionIndices(), QList<qsizetype>{2});
    // Its predecessor became the anchor the re-timing starts from.
    EXPECT_TRUE(cue(1)->fixed());
    EXPECT_FALSE(cue(0)->fixed());
    EXPECT_EQ(project->fixRange().startChange, 20);
    // Selecting in the mode does not seek; entering it rewinds by three seconds and plays.
    EXPECT_EQ(playing.seeks, QList<double>{32});
    EXPECT_EQ(project->currentTime(), 32);
    EXPECT_TRUE(playing.playing);
}

TEST_F(Tap2SyncTest, TheRewindStopsJustAfterTheAnchorAndOnlyHappensWhenPaused)
{
    auto enterAt = [&](double t) {
        project->setSelectionIndices({2});
        playAt(t);
        playing.seeks.clear();
        project->toggleTap2Sync();
    };
    enterAt(21);
    ASSERT_EQ(playing.seeks.size(), 1);
    EXPECT_DOUBLE_EQ(playing.seeks[0], 20 + 0.001);
    project->toggleTap2Sync();
    EXPECT_FALSE(playing.playing);

    Settings::shared().setValue(u"TapFixPrev"_s, false);
    cue(1)->setFixed(false);
    enterAt(21);
    EXPECT_FALSE(cue(1)->fixed());
    EXPECT_EQ(playing.seeks, QList<double>{18});
    project->toggleTap2Sync();

    playing.playing = true;
    enterAt(25);
    EXPECT_TRUE(playing.seeks.isEmpty());
    EXPECT_TRUE(playing.playing);
}

TEST_F(Tap2SyncTest, ATapFixesTheStartLessTheDelayAndMovesOnUntilTheLastCue)
{
    Settings::shared().setValue(u"TapDelaySecs"_s, 0.3);
    project->setSelectionIndices({0});
    playAt(9);
    project->toggleTap2Sync();
    playAt(12);
    project->fixSubtitleStart();
    MainQueue::main().drain();
    // The run after is stretched from the delayed start: (100 - 11.7)/(100 - 10) about 10 s.
    const double f = 88.3 / 90;
    EXPECT_NEAR(cue(0)->start(), 11.7, 1e-9);
    EXPECT_NEAR(cue(0)->end(), 11.7 + 4 * f, 1e-9);
    EXPECT_NEAR(cue(1)->start(), 11.7 + 10 * f, 1e-9);
    EXPECT_NEAR(cue(3)->end(), 11.7 + 34 * f, 1e-9);
    EXPECT_TRUE(cue(0)->fixed());
    EXPECT_EQ(project->currentSubtitle(), cue(1));
    EXPECT_EQ(project->fixMode(), FixMode::Tap2Sync);

    for (double t : {22.0, 32.0, 42.0}) {
        playAt(t);
        project->fixSubtitleStart();
        MainQueue::main().drain();
    }
    for (qsizetype i = 1; i < 4; ++i)
        EXPECT_NEAR(cue(i)->start(), 10 * i + 11.7, 1e-9) << "cue " << i;
    EXPECT_EQ(project->fixMode(), FixMode::Fix);
    EXPECT_FALSE(playing.playing);
}

TEST_F(Tap2SyncTest, AnAdjustedTapLandsOnTheAdjustedTimeAfterTheDelay)
{
    // The adjustment (the window's snapping to speech) is asked where the line would land,
    // the tap time less the delay, and the line lands where it answers.
    Settings::shared().setValue(u"TapDelaySecs"_s, 0.3);
    QList<double> asked;
    project->setFixTimeAdjustment([&asked](double t) {
        asked << t;
        return std::abs(t - 12.0) <= 0.25 ? 12.0 : t;
    });
    project->setSelectionIndices({0});
    playAt(9);
    project->toggleTap2Sync();
    playAt(12.2);
    project->fixSubtitleStart();
    MainQueue::main().drain();
    ASSERT_FALSE(asked.isEmpty());
    EXPECT_NEAR(asked.last(), 11.9, 1e-12);
    EXPECT_NEAR(cue(0)->start(), 12.0, 1e-12);
    // Nothing near: the tap is what it was without an adjustment.
    playAt(22.5);
    project->fixSubtitleStart();
    MainQueue::main().drain();
    EXPECT_NEAR(cue(1)->start(), 22.2, 1e-12);
}

TEST_F(Tap2SyncTest, TheDelayComesOffAfterTheLimit)
{
    project->setSelectionIndices({2});
    playAt(25);
    project->toggleTap2Sync(); // the anchor before is cue 1 at 20 s
    playAt(20 - 0.01);         // within half a frame: limited to 20 s, then 0.3 s earlier
    project->fixSubtitleStart();
    EXPECT_NEAR(cue(2)->start(), 19.7, 1e-9);
    EXPECT_EQ(cue(1)->end(), 20);
    MainQueue::main().drain(); // the anchor's start is as early as it may go
    EXPECT_NEAR(cue(2)->start(), 20, 1e-9);
    EXPECT_EQ(project->currentSubtitle(), cue(3));
}

TEST_F(Tap2SyncTest, EscapeFocusLossStoppedPlaybackAndTheNextAnchorEndTheMode)
{
    cue(3)->setFixed(true);
    const std::function<void()> exits[] = {
        [&] { project->fixButtonGotEscape(); }, [&] { project->fixButtonDidResignFirstResponder(); },
        [&] { project->movieChangedPlaying(false); }, [&] { playAt(40); }, // the anchor after the run
    };
    for (const auto &leave : exits) {
        SCOPED_TRACE(&leave - exits);
        project->setSelectionIndices({1});
        playAt(25);
        project->toggleTap2Sync();
        ASSERT_EQ(project->fixMode(), FixMode::Tap2Sync);
        ASSERT_TRUE(playing.playing);
        playAt(39.99);
        project->movieChangedPlaying(true);
        EXPECT_EQ(project->fixMode(), FixMode::Tap2Sync);
        leave();
        EXPECT_EQ(project->fixMode(), FixMode::Fix);
        EXPECT_FALSE(playing.playing);
    }
}

TEST_F(Tap2SyncTest, TheModeChosenOnTheControlIsWhereModifiersEscapeAndTap2SyncReturnTo)
{
    project->setSelectionIndices({1});
    project->setChosenFixMode(FixMode::Shift);
    EXPECT_EQ(project->fixMode(), FixMode::Shift);
    EXPECT_EQ(project->defaultFixMode(), FixMode::Shift);
    project->setModifierKeys(CTWindowController::OptionModifier);
    project->updateFixMode();
    EXPECT_EQ(project->fixMode(), FixMode::Single);
    project->setModifierKeys(CTWindowController::NoModifier);
    project->updateFixMode();
    EXPECT_EQ(project->fixMode(), FixMode::Shift);

    // A fix in the chosen mode moves the run together and leaves the mode as it was.
    playAt(21);
    project->fixSubtitleStart();
    EXPECT_DOUBLE_EQ(cue(0)->start(), 11);
    EXPECT_DOUBLE_EQ(cue(3)->start(), 41);
    EXPECT_EQ(project->fixMode(), FixMode::Shift);

    project->toggleTap2Sync();
    ASSERT_EQ(project->fixMode(), FixMode::Tap2Sync);
    project->setChosenFixMode(FixMode::Single); // not while tapping
    EXPECT_EQ(project->fixMode(), FixMode::Tap2Sync);
    project->fixButtonGotEscape();
    EXPECT_EQ(project->fixMode(), FixMode::Single);
    project->setChosenFixMode(FixMode::None); // back to the default of the file
    EXPECT_EQ(project->fixMode(), FixMode::Fix);
}
