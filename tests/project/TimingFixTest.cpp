// Fixing a cue's start while the movie plays: the run that moves with it, the three modes,
// the half-frame tolerance, and what the time view and scrubber show of the range.
#include "ProjectFixture.h"

#include <QLocale>

#include <cmath>
#include <random>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {
using Times = QList<std::pair<double, double>>;

void expectTimes(const SubtitleList &list, const Times &expected)
{
    ASSERT_EQ(list.size(), expected.size());
    for (qsizetype i = 0; i < list.size(); ++i) {
        EXPECT_NEAR(list[i]->start(), expected[i].first, 1e-9) << "start of cue " << i;
        EXPECT_NEAR(list[i]->end(), expected[i].second, 1e-9) << "end of cue " << i;
    }
}

// Four cues of 4 s at 10, 20, 30 and 40 s in a 100 s movie at 25 fps (half a frame is 0.02 s).
class FixTest : public ProjectTest
{
protected:
    void SetUp() override
    {
        ProjectTest::SetUp();
        openMovie(100, 25);
        project->setSubtitles(cues({{10, 14}, {20, 24}, {30, 34}, {40, 44}}));
    }
    SubtitlePtr cue(qsizetype i) const { return project->subtitles()[i]; }
    // Anchors first, then the selection, which recomputes the range.
    void select(qsizetype i, std::initializer_list<qsizetype> anchors = {})
    {
        for (qsizetype a : anchors)
            cue(a)->setFixed(true);
        project->setSelectionIndices({i});
    }
    void playAt(double t)
    {
        player.time = t;
        project->setCurrentTime(t);
    }
    using Range = std::tuple<qsizetype, qsizetype, double, double>; // F, L, S, E
    Range range() const
    {
        const auto &r = project->fixRange();
        return {r.first, r.last, r.startChange, r.endChange};
    }
    void fixAt(double t)
    {
        playAt(t);
        project->fixSubtitleStart();
        MainQueue::main().drain();
    }
    QList<bool> activeFlags() const
    {
        QList<bool> flags;
        for (const SubtitlePtr &c : project->subtitles())
            flags << c->active();
        return flags;
    }
};

// Succinct time texts use the locale's decimal point.
QString seconds(const QString &whole)
{
    return whole + QLocale::system().decimalPoint() + u"000"_s;
}
} // namespace

// --- range -----------------------------------------------------------------------------------

TEST_F(FixTest, TheRangeIsTheRunOfFreeCuesBetweenTheNearestAnchorsAndOnlyItIsActive)
{
    project->setSelectionIndices({});
    EXPECT_EQ(range(), Range(0, 3, 0, 100)); // no current cue
    EXPECT_EQ(activeFlags(), (QList<bool>{false, false, false, false}));
    select(2);
    EXPECT_EQ(range(), Range(0, 3, 0, 100));
    select(2, {1});
    EXPECT_EQ(range(), Range(2, 3, 20, 100));
    EXPECT_EQ(activeFlags(), (QList<bool>{false, false, true, true}));
    select(2, {3});
    EXPECT_EQ(range(), Range(2, 2, 20, 40));
    project->setFixMode(FixMode::Single);
    cue(1)->setFixed(false);
    cue(3)->setFixed(false);
    select(2);
    EXPECT_EQ(range(), Range(2, 2, 20, 40)); // Single: the neighbours bound the cue, fixed or not
    EXPECT_EQ(activeFlags(), (QList<bool>{false, false, true, false}));

    project->setFixMode(FixMode::Fix);
    select(3, {0});
    EXPECT_EQ(range(), Range(1, 3, 10, 100));
    cue(0)->setFixed(false);
    select(0, {2});
    EXPECT_EQ(range(), Range(0, 1, 0, 30));
    project->setSelectionIndices({0, 1});
    EXPECT_EQ(activeFlags(), (QList<bool>{false, false, false, false}));
}

TEST_F(FixTest, EveryFixCommandFixesAtTheAdjustedTime)
{
    // The window snaps fixes to speech through this adjustment; here an onset at 33 s.
    project->setFixTimeAdjustment([](double t) { return std::abs(t - 33.0) <= 0.25 ? 33.0 : t; });
    select(2);
    fixAt(33.2);
    EXPECT_DOUBLE_EQ(cue(2)->start(), 33.0);
    EXPECT_NEAR(cue(1)->start(), 22.0, 1e-9); // stretched by 33/30 as for a fix at 33 s
    project->undo();
    MainQueue::main().drain();

    playAt(32.9);
    project->shiftSubtitles();
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(cue(2)->start(), 33.0);
    EXPECT_DOUBLE_EQ(cue(0)->start(), 13.0);
    project->undo();
    MainQueue::main().drain();

    playAt(33.1);
    project->fixSingleSubtitleStart();
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(cue(2)->start(), 33.0);
    EXPECT_DOUBLE_EQ(cue(1)->start(), 20.0);
    project->undo();
    MainQueue::main().drain();

    // Far from the onset the time stays as it is.
    fixAt(35.5);
    EXPECT_DOUBLE_EQ(cue(2)->start(), 35.5);
}

TEST_F(FixTest, TheTimeViewAndScrubberShowTheRange)
{
    select(2, {1, 3});
    const auto &d = project->rangeDisplay();
    EXPECT_DOUBLE_EQ(d.startFraction, 0.2);
    EXPECT_DOUBLE_EQ(d.endFraction, 0.4);
    EXPECT_EQ(d.startText, seconds(u"20"_s));
    EXPECT_EQ(d.endText, seconds(u"40"_s));
    EXPECT_EQ(d.scrubberMinimum, std::optional<double>(20));
    EXPECT_EQ(d.scrubberMaximum, std::optional<double>(40));

    project->setSelectionIndices({});
    EXPECT_EQ(project->rangeDisplay().startText, seconds(u"0"_s));
    EXPECT_EQ(project->rangeDisplay().endText, seconds(u"01:40"_s));
    EXPECT_EQ(project->rangeDisplay().scrubberMinimum, std::nullopt); // S = 0: no limit
    EXPECT_EQ(project->rangeDisplay().scrubberMaximum, std::nullopt); // E = the duration
}

// --- Fix --------------------------------------------------------------------------------------

TEST_F(FixTest, FixStretchesBothRunsSoThatTheAnchorsStay)
{
    select(2);
    fixAt(33);
    // Before: 33/30 about 0. After: (100 - 33)/(100 - 30) about 30, shifted by 3; the fixed
    // cue's length scales with the run after it.
    const double after = 67.0 / 70.0;
    expectTimes(project->subtitles(),
                {{11, 15.4}, {22, 26.4}, {33, 33 + 4 * after}, {33 + 10 * after, 33 + 14 * after}});
    EXPECT_TRUE(cue(2)->fixed());
    EXPECT_EQ(project->start(), 33);
    EXPECT_TRUE(project->hasChanged());
    EXPECT_GT(player.redraws, 0);
}

TEST_F(FixTest, TheRunAfterEndsOnTheAnchorOrMovieEndOrIsShiftedWhenThereIsNoEnd)
{
    // The last cue runs past the movie's end: the run's end, not the movie's, maps onto it.
    project->setSubtitles(cues({{10, 14}, {20, 24}, {30, 34}, {40, 110}}));
    select(2);
    fixAt(33);
    const double after = 67.0 / 80.0;
    expectTimes(project->subtitles(), {{11, 15.4}, {22, 26.4}, {33, 33 + 4 * after}, {33 + 10 * after, 100}});

    project->setMovieInfo(project->moviePath(), 1, 25, 0); // length unknown: E is infinite
    project->setSubtitles(cues({{10, 14}, {20, 24}, {30, 34}, {40, 44}}));
    select(2);
    fixAt(33);
    expectTimes(project->subtitles(), {{11, 15.4}, {22, 26.4}, {33, 37}, {43, 47}});
    EXPECT_EQ(project->rangeDisplay().endText, u""_s);
}

TEST_F(FixTest, TheAnchorBeforeTheRunIsCutOnlyAfterTheFixCompletes)
{
    select(2, {0});
    playAt(12);
    project->fixSubtitleStart();
    // The run 20..24 s was squeezed by (12 - 10)/(30 - 10) about the anchor at 10 s.
    EXPECT_NEAR(cue(1)->start(), 11, 1e-9);
    EXPECT_EQ(cue(0)->end(), 14);
    ASSERT_TRUE(MainQueue::main().runNext());
    EXPECT_NEAR(cue(0)->end(), 11, 1e-9);
    MainQueue::main().drain();
    const double after = 88.0 / 70.0;
    expectTimes(project->subtitles(),
                {{10, 11}, {11, 11.4}, {12, 12 + 4 * after}, {12 + 10 * after, 12 + 14 * after}});
}

TEST_F(FixTest, ANonPositiveFactorIsLoggedAndItsRunLeftButItStillSizesTheFixedCue)
{
    select(1, {3});
    playAt(40); // the anchor after: nothing is left for the run 30..34 s
    project->fixSubtitleStart();
    EXPECT_EQ(log.count(u"Warning: Adjustive stretch never should be negative. 0.000000"_s), 1);
    expectTimes(project->subtitles(), {{20, 28}, {40, 40}, {30, 34}, {40, 44}});
    MainQueue::main().drain();
    expectTimes(project->subtitles(), {{20, 28}, {30, 30}, {30, 34}, {40, 44}});
}

// --- Shift --------------------------------------------------------------------------------------

TEST_F(FixTest, ShiftMovesTheWholeRunByTheSameAmount)
{
    select(2, {0});
    playAt(33);
    project->shiftSubtitles();
    MainQueue::main().drain();
    expectTimes(project->subtitles(), {{10, 14}, {23, 27}, {33, 37}, {43, 47}});
    EXPECT_EQ(project->fixMode(), FixMode::Fix); // the modifier keys choose again

    project->setModeIsShift(true);
    select(2);
    playAt(33 - 13.1); // the run would start before the anchor at 10 s
    EXPECT_FALSE(project->canFix());
    playAt(33 + 57); // its last cue would start exactly at the movie's end
    EXPECT_TRUE(project->canFix());
    playAt(33 + 57.1);
    EXPECT_FALSE(project->canFix());
    project->shiftSubtitles(); // refused
    EXPECT_EQ(project->fixMode(), FixMode::Fix);
    EXPECT_TRUE(project->canFix()); // Fix only asks for the cue itself to stay in range
    MainQueue::main().drain();
    expectTimes(project->subtitles(), {{10, 14}, {23, 27}, {33, 37}, {43, 47}});
}

// --- Single -------------------------------------------------------------------------------------

TEST_F(FixTest, SingleMovesOnlyTheCurrentCueAndKeepsItsLength)
{
    select(2);
    playAt(36);
    project->fixSingleSubtitleStart();
    MainQueue::main().drain();
    expectTimes(project->subtitles(), {{10, 14}, {20, 24}, {36, 40}, {40, 44}});
    EXPECT_EQ(project->fixMode(), FixMode::Fix);
}

// --- tolerance ----------------------------------------------------------------------------------

TEST_F(FixTest, HalfAFrameBeforeTheRangeIsClampedAndAnythingEarlierRefused)
{
    select(2, {1});
    const double edge = 20 - 0.5 / 25;
    const double below = std::nextafter(edge, 0.0);

    playAt(below);
    EXPECT_FALSE(project->canFix());
    project->setStart(below);
    EXPECT_EQ(project->start(), below); // the field keeps what was typed
    MainQueue::main().drain();
    expectTimes(project->subtitles(), {{10, 14}, {20, 24}, {30, 34}, {40, 44}});
    EXPECT_FALSE(cue(2)->fixed());

    playAt(edge);
    EXPECT_TRUE(project->canFix());
    project->setStart(edge);
    MainQueue::main().drain();
    const double after = 80.0 / 70.0;
    expectTimes(project->subtitles(),
                {{10, 14}, {20, 20}, {20, 20 + 4 * after}, {20 + 10 * after, 20 + 14 * after}});
    EXPECT_EQ(project->start(), 20);
}

// --- properties ---------------------------------------------------------------------------------

// Random lists with random anchors, fixed at random times inside the range: anchors stay, the
// list keeps its order, and the deferred corrections leave no overlap behind. (Exactly at S or
// E a run is left where it was; the tests above cover that.)
TEST_F(ProjectTest, FixingKeepsAnchorsOrderAndNoOverlap)
{
    openMovie(600, 25);
    std::mt19937 random(20240611);
    auto uniform = [&](double a, double b) { return std::uniform_real_distribution<double>(a, b)(random); };
    for (int iteration = 0; iteration < 200; ++iteration) {
        SCOPED_TRACE(iteration);
        const int count = std::uniform_int_distribution<int>(5, 40)(random);
        SubtitleList list;
        double t = uniform(0, 5);
        for (int n = 0; n < count; ++n) {
            const double length = uniform(0.2, 5);
            list << VHSubtitle::create(u"c%1"_s.arg(n), t, t + length);
            list.last()->setFixed(uniform(0, 1) < 0.2);
            t += length + uniform(0, 8);
        }
        project->setSubtitles(list);
        for (int fix = 0; fix < 5; ++fix) {
            const qsizetype i = std::uniform_int_distribution<qsizetype>(0, count - 1)(random);
            project->setSelectionIndices({i});
            const auto range = project->fixRange();
            const double time = uniform(range.startChange, range.endChange);
            QList<std::pair<qsizetype, double>> anchors;
            for (qsizetype n = 0; n < count; ++n)
                if (n != i && list[n]->fixed())
                    anchors.append({n, list[n]->start()});
            player.time = time;
            project->setCurrentTime(time);
            ASSERT_TRUE(project->canFix());
            project->fixSubtitleStart();
            int blocks = 0;
            while (blocks < 10000 && MainQueue::main().runNext())
                ++blocks;
            if (MainQueue::main().pending() > 0) {
                project->setSubtitles({}); // lets the corrections run out
                MainQueue::main().drain();
                FAIL() << "the corrections do not settle after a fix at " << time;
            }
            for (const auto &[n, start] : anchors)
                EXPECT_EQ(list[n]->start(), start) << "anchor " << n;
            for (qsizetype n = 0; n + 1 < count; ++n) {
                EXPECT_LE(list[n]->start(), list[n + 1]->start()) << "order at " << n;
                EXPECT_LE(list[n]->end(), list[n + 1]->start()) << "overlap at " << n;
            }
        }
    }
}
