// The questions the project asks before it leaves, overwrites or deletes a file.
#include "ProjectFixture.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
const QByteArray OneCue = "1\n00:00:01,000 --> 00:00:02,000\nOne\n\n";

class LeavingTest : public ProjectTest
{
protected:
    void SetUp() override
    {
        ProjectTest::SetUp();
        dir.write(u"Film.en.srt"_s, OneCue);
        openMovie();
        project->setSelectionIndices({0});
        project->setSubtitleText(u"Edited"_s);
        ASSERT_TRUE(project->hasChanged());
    }
    void answer(int button) { prompter.answers << PromptAnswer{button, 0, false}; }
};
} // namespace

TEST_F(LeavingTest, UnsavedChangesQuestionOffersSaveDiscardCancel)
{
    answer(2);
    EXPECT_FALSE(project->closeProject());
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message, u"You have unsaved changes. Do you want to save them?"_s);
    EXPECT_EQ(prompter.prompts[0].buttons,
              (QStringList{u"Save Subtitle"_s, u"Discard Changes"_s, u"Cancel"_s}));
    EXPECT_FALSE(project->moviePath().isEmpty());

    answer(1);
    EXPECT_TRUE(project->canDropSubtitle());
    EXPECT_EQ(dir.read(u"Film.en.srt"_s), OneCue);

    answer(0);
    EXPECT_TRUE(project->closeProject());
    EXPECT_EQ(dir.read(u"Film.en.srt"_s), "1\n00:00:01,000 --> 00:00:02,000\nEdited\n\n");
    EXPECT_FALSE(project->hasChanged());
    EXPECT_TRUE(project->moviePath().isEmpty());
    EXPECT_TRUE(project->basePath().isEmpty());
    EXPECT_TRUE(project->subtitlePath().isEmpty());
    EXPECT_EQ(view.titles.last(), QCoreApplication::applicationName());
}

TEST_F(LeavingTest, AFailedSaveKeepsTheChangesAndRefusesToLeave)
{
    Settings::shared().setValue(u"LastSubtitle"_s, dir.path(u"gone/Film.en.srt"_s));
    answer(0);
    EXPECT_FALSE(project->closeProject());
    EXPECT_TRUE(project->hasChanged());
    EXPECT_EQ(project->embeddingState(), 2);
    EXPECT_EQ(log.lines().filter(u"Warning: Could not save file, because: "_s).size(), 1);
}

TEST_F(LeavingTest, WithoutChangesNothingIsAskedAndAnAutomaticEmbeddingHoldsTheProject)
{
    answer(1);
    ASSERT_TRUE(project->canDropSubtitle());
    project->setHasChanged(false);
    prompter.prompts.clear();
    bool embedding = false;
    project->setWillAutoEmbed([&] { return embedding = true; });
    EXPECT_TRUE(project->canDropSubtitle());
    EXPECT_FALSE(embedding);
    EXPECT_FALSE(project->closeProject());
    EXPECT_TRUE(embedding);
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST_F(LeavingTest, ChapterMarksAskBeforeAForeignFileReplacesThem)
{
    answer(1);
    ASSERT_TRUE(project->canDropSubtitle());
    dir.write(u"Film.vtt"_s, "WEBVTT\n\nChapter 1\n00:00:00.000 --> 00:01:00.000\nOld\n\n");
    const QString foreign = dir.write(u"Other.vtt"_s, "WEBVTT\n\nChapter 1\n00:00:00.000 --> 00:01:00.000\nNew\n\n");
    prompter.prompts.clear();

    answer(1); // Cancel: the foreign file stays the edited one
    project->setSubtitlePath(foreign);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message, u"Overwrite Chaper Marks File?"_s);
    EXPECT_EQ(prompter.prompts[0].buttons, (QStringList{u"Overwrite"_s, u"Cancel"_s}));
    EXPECT_EQ(project->subtitlePath(), foreign);
    EXPECT_FALSE(project->hasChanged());

    answer(0);
    project->setSubtitlePath(foreign);
    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.vtt"_s));
    EXPECT_TRUE(project->hasChanged());
    project->saveSubtitle();
    EXPECT_TRUE(dir.read(u"Film.vtt"_s).contains("New"));

    // Reloading the chapter file itself overwrites nothing, so nothing is asked.
    prompter.prompts.clear();
    project->reloadSubtitle();
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.vtt"_s));

    project->setHasChanged(true);
    answer(2);
    EXPECT_FALSE(project->canDropSubtitle());
    EXPECT_EQ(prompter.prompts.last().buttons[0], u"Save Chapter Marks"_s);
}

TEST_F(LeavingTest, DeletingTheFileAsksByNameAndPicksAnother)
{
    answer(1);
    ASSERT_TRUE(project->canDropSubtitle());
    project->setHasChanged(false);
    dir.write(u"Film.de.srt"_s, OneCue);
    const QString english = dir.path(u"Film.en.srt"_s);
    prompter.prompts.clear();

    project->deleteSubtitleFile(); // declined
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message, u"Are you sure your want to delete 'English Subtitle'\n%1"_s.arg(english));
    EXPECT_EQ(prompter.prompts[0].buttons, (QStringList{u"Delete 'English Subtitle'"_s, u"Cancel"_s}));
    EXPECT_TRUE(QFileInfo::exists(english));

    answer(0);
    project->deleteSubtitleFile();
    EXPECT_FALSE(QFileInfo::exists(english));
    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.de.srt"_s));
}

TEST_F(LeavingTest, ARefusedSwitchKeepsTheLanguageSelected)
{
    const qsizetype selected = project->selectedLanguageIndex();
    dir.write(u"Film.de.srt"_s, OneCue);
    project->updateLanguages();
    const qsizetype german = project->selectedLanguageIndex() + 1;
    answer(2);
    project->selectSubtitleLanguage(german);
    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.en.srt"_s));
    EXPECT_EQ(view.buttonSelected, selected);
    EXPECT_TRUE(project->hasChanged());
}
