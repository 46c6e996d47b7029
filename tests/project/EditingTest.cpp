// Selection, the current cue, adding, deleting, searching and replacing, menu states and
// the sheet queue.
#include "ProjectFixture.h"

using namespace Qt::StringLiterals;

namespace {
QStringList textsOf(const SubtitleList &list)
{
    QStringList texts;
    for (const SubtitlePtr &cue : list)
        texts << cue->string();
    return texts;
}
} // namespace

TEST_F(ProjectTest, IndexAtTimeIsTheFirstCueStartingThenOrLater)
{
    EXPECT_EQ(project->subtitleIndexAtTime(3), 0);
    project->setSubtitles(cues({{1, 2}, {5, 6}, {9, 10}}));
    EXPECT_EQ(project->subtitleIndexAtTime(5), 1);
    EXPECT_EQ(project->subtitleIndexAtTime(5.0001), 2);
    EXPECT_EQ(project->subtitleIndexAtTime(10), 3);
    EXPECT_EQ(project->subtitleIndexAtTime(0), 0);
}

TEST_F(ProjectTest, OneSelectedRowIsTheCurrentCueAndSelectingSeeksToIt)
{
    project->setSubtitles(cues({{1, 2}, {5, 6}, {9, 10}}));
    project->subtitles()[2]->setForced(true);

    project->setSelectionIndices({1});
    EXPECT_EQ(project->currentSubtitle(), project->subtitles()[1]);
    EXPECT_EQ(project->subtitleText(), u"c1"_s);
    EXPECT_EQ(project->duration(), 1);
    ASSERT_FALSE(player.seeks.isEmpty());
    EXPECT_DOUBLE_EQ(player.seeks.last(), 5.0001);

    project->setSelectionIndices({1, 2});
    EXPECT_EQ(project->currentSubtitle(), nullptr);
    EXPECT_EQ(project->subtitleText(), u""_s);
    EXPECT_EQ(project->forcedState(), -1);
    project->setForcedState(-1);
    EXPECT_TRUE(project->subtitles()[1]->forced());
    EXPECT_EQ(project->forcedState(), 1);
    EXPECT_TRUE(project->hasChanged());

    Settings::shared().setValue(u"SubtitleNoJump"_s, true);
    player.seeks.clear();
    project->setSelectionIndices({0});
    EXPECT_TRUE(player.seeks.isEmpty());
}

TEST_F(ProjectTest, AddingWithoutAMovieStartsAtZeroOrAfterTheSelectedCue)
{
    project->addSubtitle();
    MainQueue::main().drain();
    ASSERT_EQ(project->subtitles().size(), 1);
    const SubtitlePtr added = project->subtitles()[0];
    EXPECT_EQ(added->string(), u"Subtitle"_s);
    EXPECT_EQ(added->start(), 0);
    EXPECT_EQ(added->end(), 4);
    EXPECT_TRUE(added->fixed());
    EXPECT_EQ(project->currentSubtitle(), added);
    EXPECT_EQ(view.editedRows, QList<qsizetype>{0});
    EXPECT_TRUE(project->hasChanged());

    project->setSubtitles(cues({{0, 2}, {5, 6}}));
    project->setSelectionIndices({0});
    project->addSubtitle();
    MainQueue::main().drain();
    EXPECT_EQ(textsOf(project->subtitles()), (QStringList{u"c0"_s, u"Subtitle"_s, u"c1"_s}));
    EXPECT_EQ(project->subtitles()[1]->start(), 2);
    EXPECT_EQ(project->subtitles()[1]->end(), 5); // cut back at the next cue
}

TEST_F(ProjectTest, AddingWithAMovieInsertsAtThePlaybackTime)
{
    openMovie();
    project->setSubtitles(cues({{10, 14}, {15, 17}}));
    player.time = 12.5;
    project->addSubtitle();
    EXPECT_EQ(project->selectionIndices(), QList<qsizetype>{1});
    MainQueue::main().drain();
    const SubtitlePtr added = project->subtitles()[1];
    EXPECT_EQ(added->string(), u"Subtitle"_s);
    EXPECT_EQ(added->start(), 12.5);
    EXPECT_EQ(added->end(), 15);
    EXPECT_EQ(project->subtitles()[0]->end(), 12.5);
}

TEST_F(ProjectTest, ChapterMarksAreAddedWithRunningNamesAndNeverAllDeleted)
{
    dir.write(u"Film.vtt"_s, "WEBVTT\n\nChapter 1\n00:00:00.000 --> 00:01:40.000\nChapter 1\n\n"
                             "Chapter 2\n00:01:40.000 --> 00:03:20.000\nChapter 2\n\n"
                             "Chapter 3\n00:03:20.000 --> 00:15:00.000\nIntro\n\n");
    openMovie(900);
    project->setSubtitlePath(dir.path(u"Film.vtt"_s));
    player.time = 50;
    project->addSubtitle();
    const SubtitleList &marks = project->subtitles();
    EXPECT_EQ(textsOf(marks), (QStringList{u"Chapter 1"_s, u"Chapter 2"_s, u"Chapter 3"_s, u"Intro"_s}));
    EXPECT_EQ(marks[0]->end(), 50);
    EXPECT_EQ(marks[1]->start(), 50);
    EXPECT_EQ(marks[1]->end(), 100);

    project->setSelectionIndices({0, 1, 2, 3});
    project->deleteSubtitle();
    ASSERT_EQ(project->subtitles().size(), 1);
    EXPECT_EQ(project->subtitles()[0]->string(), u"Chapter 1"_s);
    EXPECT_EQ(project->subtitles()[0]->start(), 0);
}

TEST_F(ProjectTest, DeletingSelectsTheRowThatTookTheFirstDeletedPlace)
{
    SubtitleList ten;
    for (int i = 0; i < 10; ++i)
        ten << VHSubtitle::create(u"c%1"_s.arg(i), i * 10, i * 10 + 5);
    project->setSubtitles(ten);
    project->setSelectionIndices({3, 4, 5});
    EXPECT_EQ(*project->validateMenuItem(u"deleteSubtitle:"_s).title, u"Delete 3 Subtitle Lines"_s);
    project->deleteSubtitle();
    EXPECT_EQ(project->subtitles().size(), 7);
    EXPECT_EQ(project->selectionIndices(), QList<qsizetype>{3});
    EXPECT_EQ(project->currentSubtitle()->string(), u"c6"_s);
    EXPECT_TRUE(project->hasChanged());
    EXPECT_GE(player.redraws, 1);

    project->setSelectionIndices({6});
    project->deleteSubtitle();
    EXPECT_EQ(project->selectionIndices(), QList<qsizetype>{5});
}

TEST_F(ProjectTest, SearchIgnoresAccentsButReplaceDoesNot)
{
    SubtitleList list{VHSubtitle::create(u"École"_s, 0, 1), VHSubtitle::create(u"ecole"_s, 1, 2),
                      VHSubtitle::create(u"banana"_s, 2, 3)};
    project->setSubtitles(list);
    project->setSearchString(u"ECOLE"_s);
    EXPECT_EQ(textsOf(project->arrangedSubtitles()), (QStringList{u"École"_s, u"ecole"_s}));
    EXPECT_EQ(project->replaceAll(u"ecole"_s, u"x"_s), 1); // lines changed
    EXPECT_EQ(textsOf(list), (QStringList{u"École"_s, u"x"_s, u"banana"_s}));
    project->setSearchString(u"a"_s);
    EXPECT_EQ(project->replaceAll(u"A"_s, u"a"_s), 0); // ignoring case, "a" for "A" changes nothing
    EXPECT_EQ(textsOf(list), (QStringList{u"École"_s, u"x"_s, u"banana"_s}));
    project->setSearchString(u"ECOLE"_s);

    project->setSearchCaseSensitive(true);
    EXPECT_TRUE(Settings::shared().boolValue(u"searchCaseSensitive"_s));
    project->setSearchString(u"a"_s);
    EXPECT_EQ(textsOf(project->arrangedSubtitles()), QStringList{u"banana"_s});
    EXPECT_EQ(project->replaceAll(u"a"_s, u"aa"_s), 1);
    EXPECT_EQ(list[2]->string(), u"baanaanaa"_s);
    EXPECT_TRUE(project->hasChanged());
}

TEST_F(ProjectTest, MenuTitlesAndEnabledStates)
{
    auto title = [&](const QString &command) {
        return project->validateMenuItem(command).title.value_or(u"-"_s);
    };
    auto enabled = [&](const QString &command) { return project->validateMenuItem(command).enabled; };
    EXPECT_FALSE(enabled(u"saveSubtitle:"_s));
    EXPECT_FALSE(enabled(u"toggleTap2Sync:"_s));
    EXPECT_TRUE(enabled(u"loadSubtitle:"_s));
    EXPECT_EQ(title(u"extractAllSubtitles:"_s), u"No Extractable Subtitle or Chapter Marks"_s);
    EXPECT_FALSE(enabled(u"extractAllSubtitles:"_s));
    project->setExtractableCounts(0, true);
    EXPECT_EQ(title(u"extractAllSubtitles:"_s), u"Extract Chapter Marks"_s);
    project->setExtractableCounts(3, true);
    EXPECT_EQ(title(u"extractAllSubtitles:"_s), u"Extract 3 Subtitles and Chapter Marks"_s);

    dir.write(u"Film.vtt"_s, "WEBVTT\n\nChapter 1\n00:00:00.000 --> 00:00:10.000\nIntro\n\n");
    openMovie();
    EXPECT_EQ(title(u"saveSubtitle:"_s), u"Save Subtitle"_s);
    EXPECT_EQ(title(u"addSubtitle:"_s), u"Add Subtitle Line"_s);
    EXPECT_FALSE(enabled(u"exportSubtitle:"_s)); // no cue yet
    EXPECT_EQ(title(u"toggleTap2Sync:"_s), u"Enter \"Tap2Sync\" Mode"_s);
    project->setFixMode(FixMode::Tap2Sync);
    EXPECT_EQ(title(u"toggleTap2Sync:"_s), u"Exit \"Tap2Sync\" Mode"_s);
    EXPECT_TRUE(project->validateMenuItem(u"toggleTap2Sync:"_s).checked);
    EXPECT_FALSE(project->validateMenuItem(u"addSubtitle:"_s, true).enabled);

    project->setSubtitlePath(dir.path(u"Film.vtt"_s));
    EXPECT_EQ(title(u"reloadSubtitle:"_s), u"Reload Chapter Marks"_s);
    EXPECT_EQ(title(u"saveSubtitle:"_s), u"Save Chapter Marks"_s);
    EXPECT_EQ(title(u"fixSingleSubtitleStart:"_s), u"Fix Single Chapter Mark Time"_s);
    EXPECT_TRUE(project->validateMenuItem(u"addSubtitle:"_s, true).enabled);
    EXPECT_FALSE(project->validateMenuItem(u"addSubtitle:"_s, false).enabled);

    project->addSheet({u"FixDuration"_s, {}});
    EXPECT_FALSE(enabled(u"loadSubtitle:"_s));
}

TEST_F(ProjectTest, WaitingSheetsAreServedNewestFirst)
{
    const Sheet first{u"A"_s, {}}, second{u"B"_s, 1}, third{u"C"_s, 2};
    project->addSheet(first);
    project->addSheet(second);
    project->addSheet(third);
    EXPECT_EQ(view.begun, QList<Sheet>{first});
    EXPECT_EQ(project->waitingSheetCount(), 2);
    view.endSheet(first, 0);
    view.endSheet(third, 0);
    view.endSheet(second, 0);
    EXPECT_EQ(view.begun, (QList<Sheet>{first, third, second}));

    // A hidden window is brought forward and shows the sheet after the current event.
    view.visible = false;
    project->addSheet(first);
    EXPECT_EQ(view.orderedFront, 1);
    EXPECT_EQ(view.begun.size(), 3);
    MainQueue::main().drain();
    EXPECT_EQ(view.begun.last(), first);
}
