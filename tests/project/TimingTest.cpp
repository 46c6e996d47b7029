// Neighbours following a changed cue, the duration field, and durations from reading speed.
#include "ProjectFixture.h"

using namespace Qt::StringLiterals;

namespace {
class PropagationTest : public ProjectTest
{
protected:
    void SetUp() override
    {
        ProjectTest::SetUp();
        project->setSubtitles(cues({{10, 12}, {13, 15}}));
    }
    SubtitlePtr cue(qsizetype i) const { return project->subtitles()[i]; }
};

void expectTimes(const SubtitleList &list, const QList<std::pair<double, double>> &expected)
{
    ASSERT_EQ(list.size(), expected.size());
    for (qsizetype i = 0; i < list.size(); ++i) {
        EXPECT_NEAR(list[i]->start(), expected[i].first, 1e-9) << "start of cue " << i;
        EXPECT_NEAR(list[i]->end(), expected[i].second, 1e-9) << "end of cue " << i;
    }
}
} // namespace

TEST_F(PropagationTest, AGrownEndIsCutAtTheNextStartAfterTheChange)
{
    cue(0)->setEnd(14);
    EXPECT_EQ(cue(0)->end(), 14); // the correction waits for the change to finish
    MainQueue::main().drain();
    expectTimes(project->subtitles(), {{10, 13}, {13, 15}});
}

TEST_F(PropagationTest, AnEarlierStartShortensThePredecessorButNeverPassesIt)
{
    cue(1)->setStart(11);
    MainQueue::main().drain();
    expectTimes(project->subtitles(), {{10, 11}, {11, 13}});

    cue(1)->setStart(9);
    MainQueue::main().drain();
    expectTimes(project->subtitles(), {{10, 10}, {10, 12}});

    cue(0)->setStart(-1);
    MainQueue::main().drain();
    EXPECT_EQ(cue(0)->start(), 0);
}

TEST_F(PropagationTest, TheLastEndIsCutAtTheMovieEndOnlyWithAMovie)
{
    cue(1)->setEnd(120);
    MainQueue::main().drain();
    expectTimes(project->subtitles(), {{10, 12}, {13, 120}});

    openMovie(100);
    project->setSubtitles(cues({{10, 12}, {13, 15}}));
    cue(1)->setEnd(120);
    MainQueue::main().drain();
    EXPECT_EQ(cue(1)->end(), 100);
    EXPECT_EQ(cue(1)->start(), 13);
}

TEST_F(PropagationTest, TheDurationFieldIgnoresDifferencesBelowFiveMicroseconds)
{
    project->setSubtitles(cues({{10, 12}, {12.5, 15}}));
    project->setSelectionIndices({0});
    project->setDuration(2.000001);
    EXPECT_EQ(cue(0)->end(), 12);
    EXPECT_TRUE(project->hasChanged());

    project->setDuration(3);
    EXPECT_EQ(cue(0)->end(), 13);
    MainQueue::main().drain();
    EXPECT_EQ(cue(0)->end(), 12.5);
    EXPECT_EQ(project->duration(), 2.5);
}

TEST_F(ProjectTest, ChapterMarksKeepTilingTheMovie)
{
    copyFixture(u"three_chapter_marks_900s.vtt"_s, u"Film.vtt"_s);
    openMovie(900);
    project->setSubtitlePath(dir.path(u"Film.vtt"_s));
    const SubtitleList &marks = project->subtitles();
    ASSERT_EQ(marks.size(), 3);

    marks[1]->setStart(250);
    expectTimes(marks, {{0, 250}, {250, 600}, {600, 900}});
    marks[0]->setStart(20);
    expectTimes(marks, {{0, 250}, {250, 600}, {600, 900}});
    marks[2]->setEnd(800);
    EXPECT_EQ(marks[2]->end(), 900);
}

TEST_F(ProjectTest, DurationsFollowReadingSpeedWithinTheirBounds)
{
    const QString twenty(20, u'x');
    SubtitleList list{VHSubtitle::create(twenty, 0, 0.1), VHSubtitle::create(twenty, 3, 3.1),
                      VHSubtitle::create(twenty, 4, 4.1), VHSubtitle::create(u"x"_s, 4.5, 4.6)};
    project->setSubtitles(list);
    EXPECT_EQ(project->startFixDuration(0.06, 1, 5, 0.1, false), u""_s);
    // Reading time wins with room to spare, the minimum beats the gap, the room beats the
    // minimum, and with no movie length the last cue keeps no duration.
    expectTimes(list, {{0, 1.2}, {3, 4}, {4, 4.5}, {4.5, 4.5}});

    openMovie(10);
    project->setSubtitles({VHSubtitle::create(QString(200, u'x'), 8, 8.5)});
    project->adjustDurationPerCharacter(0.06, 3, 5, 0.1, false);
    EXPECT_EQ(project->subtitles()[0]->end(), 10);
}

TEST_F(ProjectTest, OnlySelectedCuesAreTimedAndTheNextSelectedOneIsTheLimit)
{
    openMovie(100);
    SubtitleList list{VHSubtitle::create(QString(100, u'x'), 0, 0.5), VHSubtitle::create(u"b"_s, 1, 2),
                      VHSubtitle::create(QString(100, u'x'), 3, 3.5)};
    project->setSubtitles(list);
    project->setSelectionIndices({0, 2});
    project->adjustDurationPerCharacter(0.06, 0, 10, 0, true);
    MainQueue::main().drain();
    expectTimes(list, {{0, 3}, {1, 2}, {3, 9}});
}

TEST_F(ProjectTest, AMinimumAboveTheMaximumIsRefused)
{
    project->setSubtitles(cues({{0, 1}, {5, 6}}));
    EXPECT_EQ(project->startFixDuration(1, 3, 2, 0, false), u"Minimum is bigger than Maximum"_s);
    EXPECT_EQ(project->subtitles()[0]->end(), 1);
    EXPECT_EQ(project->startFixDuration(1, 2, 2, 0, false), u""_s);
    EXPECT_EQ(project->subtitles()[0]->end(), 2);
}
