// What the selection and the current cue name after the list under them changed: another
// file, another filter, a new line; and that every way of changing cues marks the project.
#include "ProjectFixture.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {
QByteArray subRip(int lines)
{
    QByteArray text;
    for (int i = 0; i < lines; ++i)
        text += QStringLiteral("%1\n00:00:%2,000 --> 00:00:%3,000\nLine %1\n\n")
                    .arg(i + 1)
                    .arg(i * 5 + 1, 2, 10, QChar(u'0'))
                    .arg(i * 5 + 3, 2, 10, QChar(u'0'))
                    .toUtf8();
    return text;
}

void expectTimes(const SubtitleList &list, const QList<std::pair<double, double>> &expected)
{
    ASSERT_EQ(list.size(), expected.size());
    for (qsizetype i = 0; i < list.size(); ++i) {
        EXPECT_NEAR(list[i]->start(), expected[i].first, 1e-9) << "start of mark " << i;
        EXPECT_NEAR(list[i]->end(), expected[i].second, 1e-9) << "end of mark " << i;
    }
}

qsizetype languageIndex(const CTWindowController &project, const QString &path)
{
    for (qsizetype i = 0; i < project.languages().size(); ++i) {
        if (project.languages()[i]->path() == path)
            return i;
    }
    return -1;
}
} // namespace

TEST_F(ProjectTest, AnotherFileClearsTheSelectionAndNothingActsOnItsOldRows)
{
    dir.write(u"Film.en.srt"_s, subRip(7));
    dir.write(u"Film.de.srt"_s, subRip(2));
    openMovie(900);
    project->setSubtitlePath(dir.path(u"Film.en.srt"_s));
    ASSERT_EQ(project->subtitles().size(), 7);

    // Lines 5-7 selected, then the language with two lines: rows 4-6 do not exist there.
    project->setSelectionIndices({4, 5, 6});
    project->selectSubtitleLanguage(languageIndex(*project, dir.path(u"Film.de.srt"_s)));
    ASSERT_EQ(project->subtitles().size(), 2);
    EXPECT_TRUE(project->selectionIndices().isEmpty());
    EXPECT_FALSE(project->currentSubtitle());
    EXPECT_EQ(project->subtitleText(), u""_s);
    EXPECT_EQ(project->forcedState(), 0);
    EXPECT_FALSE(project->canChangeForced());
    project->setForcedState(1);
    project->deleteSubtitle();
    EXPECT_EQ(project->subtitles().size(), 2);
    EXPECT_FALSE(project->subtitles()[0]->forced() || project->subtitles()[1]->forced());
    EXPECT_FALSE(project->hasChanged());

    // A single selected row is cleared as well, and the next line added goes after the last
    // line of the new file, not after the old row.
    project->setSelectionIndices({1});
    project->setSubtitlePath(dir.path(u"Film.en.srt"_s));
    project->setSelectionIndices({6});
    project->setSubtitlePath(dir.path(u"Film.de.srt"_s));
    EXPECT_TRUE(project->selectionIndices().isEmpty());
    EXPECT_FALSE(project->currentSubtitle());

    // Lines 1-4 selected, then the chapter marks (a new file with one mark), twice.
    project->setSubtitlePath(dir.path(u"Film.en.srt"_s));
    project->setSelectionIndices({0, 1, 2, 3});
    project->runLanguageCommand(u"editChapterMark:"_s);
    ASSERT_TRUE(project->isChaptermark());
    ASSERT_EQ(project->subtitles().size(), 1);
    EXPECT_EQ(project->selectionIndices(), QList<qsizetype>{0}); // the new first mark
    EXPECT_EQ(project->currentSubtitle(), project->subtitles()[0]);
    EXPECT_EQ(project->forcedState(), 0);
    project->setHasChanged(false);
    project->runLanguageCommand(u"editChapterMark:"_s);
    EXPECT_EQ(project->forcedState(), 0);
    EXPECT_EQ(project->subtitles().size(), 1);

    // Closing the movie leaves nothing selected either.
    project->setSelectionIndices({0});
    project->setMoviePath(QString());
    EXPECT_TRUE(project->selectionIndices().isEmpty());
    EXPECT_FALSE(project->currentSubtitle());
}

TEST_F(ProjectTest, TheSelectionKeepsItsLinesWhenTheFilterChanges)
{
    const SubtitleList list{VHSubtitle::create(u"apple"_s, 0, 1), VHSubtitle::create(u"pear"_s, 2, 3),
                            VHSubtitle::create(u"apple pie"_s, 4, 5), VHSubtitle::create(u"plum"_s, 6, 7)};
    project->setSubtitles(list);
    project->setSelectionIndices({2});
    project->setSearchString(u"apple"_s);
    EXPECT_EQ(project->selectionIndices(), QList<qsizetype>{1}); // "apple pie", now the second row
    EXPECT_EQ(project->currentSubtitle(), list[2]);

    project->setSearchString(u"pear"_s); // hides it
    EXPECT_TRUE(project->selectionIndices().isEmpty());
    EXPECT_FALSE(project->currentSubtitle());
    EXPECT_EQ(project->forcedState(), 0);

    // Several lines, of which the filter keeps one: that one is the current line.
    project->setSearchString(QString());
    project->setSelectionIndices({1, 3});
    list[3]->setForced(true);
    EXPECT_EQ(project->forcedState(), -1);
    project->setSearchString(u"plu"_s);
    EXPECT_EQ(project->selectionIndices(), QList<qsizetype>{0});
    EXPECT_EQ(project->currentSubtitle(), list[3]);
    EXPECT_EQ(project->forcedState(), 1);

    // Replacing can take the selected line out of the filtered list.
    project->replaceAll(u"plum"_s, u"cherry"_s);
    EXPECT_TRUE(project->arrangedSubtitles().isEmpty());
    EXPECT_TRUE(project->selectionIndices().isEmpty());
    project->setForcedState(0);
    project->deleteSubtitle();
    EXPECT_EQ(project->subtitles().size(), 4);
}

TEST_F(ProjectTest, ANewLineIsTheOnlySelectedRowTheCurrentLineAndItsTextIsEdited)
{
    project->setSubtitles(cues({{0, 2}, {5, 6}, {8, 9}}));
    project->setSelectionIndices({0, 2});
    project->addSubtitle();
    ASSERT_EQ(project->subtitles().size(), 4);
    const SubtitlePtr added = project->subtitles()[3]; // after the last selected line
    EXPECT_EQ(added->string(), u"Subtitle"_s);
    EXPECT_EQ(project->selectionIndices(), QList<qsizetype>{3});
    EXPECT_EQ(project->currentSubtitle(), added);
    EXPECT_EQ(project->subtitleText(), u"Subtitle"_s);
    EXPECT_EQ(project->start(), 9);
    EXPECT_EQ(view.editedRows, QList<qsizetype>{3});

    // A search that would hide the new line is cleared, so that it has a row to edit.
    project->setSearchString(u"c1"_s);
    project->setSelectionIndices({0});
    project->addSubtitle();
    EXPECT_EQ(project->searchString(), u""_s);
    EXPECT_EQ(project->arrangedSubtitles().size(), 5);
    EXPECT_EQ(project->selectionIndices(), QList<qsizetype>{2});
    EXPECT_EQ(project->currentSubtitle()->string(), u"Subtitle"_s);
    EXPECT_EQ(view.editedRows.last(), 2);
    MainQueue::main().drain();
    EXPECT_EQ(project->subtitles()[2]->end(), 8); // cut back at the next line
    EXPECT_EQ(project->duration(), 2);
}

TEST_F(ProjectTest, EveryWayOfChangingLinesMarksTheProjectChanged)
{
    const QString chapters =
        dir.write(u"Film.vtt"_s, "WEBVTT\n\nChapter 1\n00:00:00.000 --> 00:00:30.000\nIntro\n\n"
                                 "Chapter 2\n00:00:30.000 --> 00:01:00.000\nMiddle part\n\n");
    openMovie(100);
    auto subtitles = [&] {
        project->setSubtitlePath(QString(), false);
        project->setSubtitles(cues({{10, 12}, {20, 22}, {30, 32}, {40, 42}}));
    };
    auto select = [&](qsizetype row) { project->setSelectionIndices({row}); };
    const std::vector<std::pair<const char *, std::function<void()>>> paths = {
        {"adjust durations", [&] { subtitles(), project->startFixDuration(0.5, 1, 5, 0.1, false); }},
        {"adjust selected durations",
         [&] {
             subtitles(), project->setSelectionIndices({1, 2}),
                 project->startFixDuration(0.5, 1, 5, 0.1, true);
         }},
        {"replace all", [&] { subtitles(), project->replaceAll(u"c"_s, u"line "_s); }},
        {"fix", [&] { subtitles(), select(2), player.time = 31, project->fixSubtitleStart(); }},
        {"shift", [&] { subtitles(), select(2), player.time = 31, project->shiftSubtitles(); }},
        {"single fix", [&] { subtitles(), select(2), player.time = 31, project->fixSingleSubtitleStart(); }},
        {"Tap2Sync tap",
         [&] {
             subtitles(), Settings::shared().setValue(u"ShownTap2Sync"_s, true), select(2),
                 project->toggleTap2Sync();
             project->setHasChanged(false), player.time = 31, project->fixSubtitleStart();
         }},
        {"start field", [&] { subtitles(), select(1), project->setStart(19); }},
        {"duration field", [&] { subtitles(), select(1), project->setDuration(1); }},
        {"text field", [&] { subtitles(), select(1), project->setSubtitleText(u"new"_s); }},
        {"forced of several lines",
         [&] {
             subtitles(), project->setSelectionIndices({0, 1}), project->setForcedState(1);
         }},
        {"add", [&] { subtitles(), project->addSubtitle(); }},
        {"delete", [&] { subtitles(), select(1), project->deleteSubtitle(); }},
        {"chapter start", [&] { project->setSubtitlePath(chapters), select(1), project->setStart(25); }},
        {"chapter title",
         [&] { project->setSubtitlePath(chapters), select(1), project->setSubtitleText(u"Two"_s); }},
        {"chapter add",
         [&] { project->setSubtitlePath(chapters), player.time = 50, project->addSubtitle(); }},
        {"chapter delete", [&] { project->setSubtitlePath(chapters), select(1), project->deleteSubtitle(); }},
    };
    for (const auto &[name, change] : paths) {
        SCOPED_TRACE(name);
        project->setHasChanged(false);
        change();
        MainQueue::main().drain();
        EXPECT_TRUE(project->hasChanged());
        EXPECT_TRUE(view.edited);
        project->setFixMode(project->defaultFixMode());
        project->setHasChanged(false);
    }
}

TEST_F(ProjectTest, ChapterMarksAreEditedInSingleMode)
{
    dir.write(u"Film.vtt"_s, "WEBVTT\n\nChapter 1\n00:00:00.000 --> 00:00:30.000\nIntro\n\n"
                             "Chapter 2\n00:00:30.000 --> 00:01:00.000\nMiddle part\n\n"
                             "Chapter 3\n00:01:00.000 --> 00:15:00.000\nFinale\n\n");
    openMovie(900);
    project->setSubtitlePath(dir.path(u"Film.vtt"_s));
    EXPECT_EQ(project->fixMode(), FixMode::Single);
    const SubtitleList &marks = project->subtitles();
    project->setSelectionIndices({1});
    project->updateFixMode(); // no modifier key held
    EXPECT_EQ(project->fixMode(), FixMode::Single);

    project->setStart(25); // the start field
    expectTimes(marks, {{0, 25}, {25, 60}, {60, 900}});
    player.time = 28; // the fix key
    project->fixSubtitleStart();
    expectTimes(marks, {{0, 28}, {28, 60}, {60, 900}});
    project->fixButtonGotEscape();
    EXPECT_EQ(project->fixMode(), FixMode::Single);

    // Back to a subtitle file: Fix mode again.
    dir.write(u"Film.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nHello\n\n");
    project->setSubtitlePath(dir.path(u"Film.srt"_s));
    EXPECT_EQ(project->fixMode(), FixMode::Fix);
}
