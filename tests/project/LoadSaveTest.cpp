// Loading the edited file, saving it under its name beside the movie, and exporting copies.
#include "ProjectFixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {
QByteArray canonical()
{
    return fixtureBytes(u"project"_s, u"three_cues_canonical.srt"_s);
}
} // namespace

TEST_F(ProjectTest, SubRipBesideTheMovieLoadsAsItsOwnTargetAndSavesUnchanged)
{
    copyFixture(u"three_cues_canonical.srt"_s, u"Film.en.srt"_s);
    openMovie();

    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.en.srt"_s));
    ASSERT_EQ(project->subtitles().size(), 3);
    EXPECT_EQ(project->subtitles()[1]->string(), u"École"_s);
    EXPECT_TRUE(project->subtitles()[1]->forced());
    EXPECT_FALSE(project->hasChanged());
    EXPECT_FALSE(view.edited);
    EXPECT_EQ(project->fixMode(), FixMode::Fix);

    project->saveSubtitle();
    EXPECT_EQ(dir.read(u"Film.en.srt"_s), canonical());
    EXPECT_EQ(dir.entries().filter(u".srt"_s), QStringList{u"Film.en.srt"_s});
}

TEST_F(ProjectTest, FileFromAnotherFolderIsChangedUntilSavedUnderItsTargetName)
{
    QDir(dir.path(QString())).mkdir(u"downloads"_s);
    const QString foreign = copyFixture(u"three_cues_canonical.srt"_s, u"downloads/Film.de.srt"_s);
    dir.write(u"Film.srt"_s, "taken");
    openMovie();
    ASSERT_EQ(project->subtitlePath(), dir.path(u"Film.srt"_s));

    project->setSubtitlePath(foreign);
    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film-1.srt"_s));
    EXPECT_EQ(project->subtitles().size(), 3);
    EXPECT_TRUE(project->hasChanged());
    EXPECT_TRUE(view.edited);

    project->saveSubtitle();
    EXPECT_FALSE(project->hasChanged());
    EXPECT_FALSE(view.edited);
    EXPECT_EQ(dir.read(u"Film-1.srt"_s), canonical());
    EXPECT_EQ(dir.read(u"Film.srt"_s), "taken");
    EXPECT_EQ(dir.read(u"downloads/Film.de.srt"_s), canonical());
}

TEST_F(ProjectTest, OtherFormatsAreSavedAsSubRip)
{
    openMovie(900, 25);
    copyFixture(u"microdvd_two_cues_25fps.sub"_s, u"Film.sub"_s);
    project->setSubtitlePath(dir.path(u"Film.sub"_s));
    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.srt"_s));
    EXPECT_TRUE(project->hasChanged());
    project->saveSubtitle();
    EXPECT_EQ(dir.read(u"Film.srt"_s), "1\n00:00:01,000 --> 00:00:02,000\nHello\nthere\n\n"
                                       "2\n00:00:03,000 --> 00:00:04,000\nSecond\n\n");

    copyFixture(u"ssa_text_with_commas_and_codes.ssa"_s, u"Film.fr.ssa"_s);
    project->setSubtitlePath(dir.path(u"Film.fr.ssa"_s));
    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.fr.srt"_s));
    project->saveSubtitle();
    EXPECT_EQ(dir.read(u"Film.fr.srt"_s), "1\n00:00:01,000 --> 00:00:02,500\nHello, {\\i1}world{\\i0}\n\n"
                                          "2\n00:00:03,000 --> 00:00:04,000\nSecond\\Nline\n\n");
}

TEST_F(ProjectTest, UnparsableFileIsReportedAndStaysSelected)
{
    openMovie();
    const QString path = copyFixture(u"number_then_text_no_reader_accepts.srt"_s, u"Film.srt"_s);
    prompter.prompts.clear();
    project->setSubtitlePath(path);

    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message,
              u"The subtitle file cannot be parsed. It's probably malformatted or an unusual format."_s);
    EXPECT_EQ(prompter.prompts[0].buttons, QStringList{u"OK"_s});
    EXPECT_EQ(log.count(u"Warning: Subtitles/Chapter Mark at %1 could not be loaded"_s.arg(path)), 1);
    EXPECT_TRUE(project->subtitles().isEmpty());
    EXPECT_EQ(project->subtitlePath(), path);
    EXPECT_FALSE(project->hasChanged());
}

TEST_F(ProjectTest, AFileNoReaderAcceptsOffersTheLinesThatCanBeReadAndSavesThemClean)
{
    openMovie();
    const QByteArray broken = fixtureBytes(u"model"_s, u"typo_in_time_line_900_lines.srt"_s);
    const QString path = dir.write(u"Film.srt"_s, broken);

    // Cancel: nothing loads, as for any file no reader accepts.
    prompter.prompts.clear();
    prompter.answers << PromptAnswer{1, 0, false};
    project->setSubtitlePath(path);
    ASSERT_EQ(prompter.prompts.size(), 2);
    EXPECT_EQ(prompter.prompts[0].buttons,
              (QStringList{u"Load the 224 lines that could be read"_s, u"Cancel"_s}));
    EXPECT_TRUE(prompter.prompts[0].informative.startsWith(
        u"SubRip stopped at line 412: “00:07:02,636 - > 00:07:04,792”\n"_s));
    EXPECT_EQ(prompter.prompts[1].buttons, QStringList{u"OK"_s});
    EXPECT_TRUE(project->subtitles().isEmpty());
    EXPECT_FALSE(project->hasChanged());

    // Load: the cues that could be read, marked changed although the file is the target.
    prompter.prompts.clear();
    prompter.answers << PromptAnswer{0, 0, false};
    project->setSubtitlePath(path);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(project->subtitlePath(), path);
    ASSERT_EQ(project->subtitles().size(), 224);
    EXPECT_EQ(project->subtitles()[102]->string(), u"Line 104 of the film"_s);
    EXPECT_TRUE(project->hasChanged());
    EXPECT_TRUE(view.edited);
    EXPECT_EQ(dir.read(u"Film.srt"_s), broken); // nothing written before the user saves

    project->saveSubtitle();
    EXPECT_FALSE(project->hasChanged());
    const QByteArray saved = dir.read(u"Film.srt"_s);
    EXPECT_FALSE(saved.contains("- >"));
    log.clear();
    const auto again = VHSubtitle::subtitlesFromSubRipString(QString::fromUtf8(saved));
    ASSERT_TRUE(again.has_value());
    EXPECT_EQ(again->size(), 224);
    EXPECT_TRUE(log.lines().isEmpty()) << log.lines().join(u'\n').toStdString();
}

TEST_F(ProjectTest, ChapterMarksLoadAndSaveAsWebVTT)
{
    const QByteArray marks = fixtureBytes(u"project"_s, u"three_chapter_marks_900s.vtt"_s);
    dir.write(u"Film.vtt"_s, marks);
    openMovie(900);
    project->setSubtitlePath(dir.path(u"Film.vtt"_s));
    ASSERT_TRUE(project->isChaptermark());
    ASSERT_EQ(project->subtitles().size(), 3);
    EXPECT_EQ(project->subtitles()[2]->end(), 900);
    EXPECT_FALSE(project->hasChanged());

    project->setHasChanged(true);
    project->saveSubtitle();
    EXPECT_EQ(dir.read(u"Film.vtt"_s), marks);
    EXPECT_FALSE(project->hasChanged());
    EXPECT_EQ(project->embeddingState(), 2);
}

TEST_F(ProjectTest, ExportWritesACopyInTheChosenFormat)
{
    copyFixture(u"three_cues_canonical.srt"_s, u"Film.srt"_s);
    openMovie();
    project->setHasChanged(true);
    QDir(dir.path(QString())).mkdir(u"out"_s);

    view.saveAnswers << FakeView::SaveAnswer{dir.path(u"out/copy"_s), 1, 0, true};
    project->exportSubtitle();
    QByteArray vtt = dir.read(u"out/copy.vtt"_s);
    EXPECT_TRUE(
        vtt.startsWith("WEBVTT\r\n\r\nChapter 1\r\n00:00:01.000 --> 00:00:02.500\r\nHello\r\nworld\r\n\r\n"))
        << vtt.constData();
    EXPECT_FALSE(vtt.replace("\r\n", "").contains('\n'));
    EXPECT_EQ(Settings::shared().integerValue(u"ExportType"_s), 1);
    EXPECT_TRUE(Settings::shared().boolValue(u"WindowsLineBreaks"_s));
    EXPECT_EQ(Settings::shared().integerValue(u"ExportEncoding"_s), 0);

    // The next panel starts from the stored choices.
    view.saveAnswers << FakeView::SaveAnswer{dir.path(u"out/copy"_s), 0, 4, false};
    project->exportSubtitle();
    ASSERT_EQ(view.savePanels.size(), 2);
    EXPECT_EQ(view.savePanels[1].exportType, 1);
    EXPECT_TRUE(view.savePanels[1].windowsLineBreaks);
    EXPECT_EQ(view.savePanels[1].allowedTypes, QStringList{u"vtt"_s});
    EXPECT_EQ(dir.read(u"out/copy.srt"_s), canonical());
    EXPECT_EQ(Settings::shared().integerValue(u"ExportEncoding"_s), 4);

    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.srt"_s));
    EXPECT_TRUE(project->hasChanged());

    project->exportSubtitle(); // cancelled
    EXPECT_EQ(QDir(dir.path(u"out"_s)).entryList(QDir::Files), (QStringList{u"copy.srt"_s, u"copy.vtt"_s}));
}

// Settings written by earlier versions name "Cyrillic (DOS)" by the number 0x80000413.
TEST_F(ProjectTest, AnOldCyrillicDosNumberInTheSettingsStillMeansCodePage866)
{
    Settings::shared().setValue(u"Encoding"_s, qint64(2147484691));
    Settings::shared().setValue(u"ExportEncoding"_s, qint64(2147484691));
    dir.write(u"Film.srt"_s, QByteArray("1\n00:00:01,000 --> 00:00:02,000\n\x8f\xe0\xa8\xa2\xa5\xe2\n\n"));
    openMovie();
    ASSERT_EQ(project->subtitles().size(), 1);
    EXPECT_EQ(project->subtitles()[0]->string(), u"Привет"_s);

    project->exportSubtitle(); // cancelled: only the panel's starting choices matter
    ASSERT_EQ(view.savePanels.size(), 1);
    EXPECT_EQ(view.savePanels[0].exportEncoding, Encodings::DOSRussian);
}
