// What the project does with a file or an unpacked folder the web search hands over.
#include "ProjectFixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

const QByteArray Srt = "1\n00:00:01,000 --> 00:00:02,000\nFrom the web\n\n";

class DownloadTest : public ProjectTest
{
protected:
    // A folder as an unpacked archive leaves it, below the project's own folder.
    QString unpacked(const QList<std::pair<QString, QByteArray>> &files)
    {
        for (const auto &[name, bytes] : files) {
            QDir().mkpath(QFileInfo(dir.path(u"unzipped/"_s + name)).absolutePath());
            dir.write(u"unzipped/"_s + name, bytes);
        }
        QDir().mkpath(dir.path(u"unzipped"_s));
        return dir.path(u"unzipped"_s);
    }
};

TEST_F(DownloadTest, AFolderGivesItsSubRipFileFirstAndTheSheetEnds)
{
    openMovie();
    view.attached = {{u"WebSearch"_s, {}}};
    const QString folder = unpacked(
        {{u"Film.ssa"_s, "[Script Info]\n"}, {u"deeper/Film.srt"_s, Srt}, {u"readme.txt"_s, "hello"}});
    project->finishedDownloading(folder);
    ASSERT_EQ(project->subtitles().size(), 1);
    EXPECT_EQ(project->subtitles()[0]->string(), u"From the web"_s);
    EXPECT_EQ(view.ended, (QList<Sheet>{{u"WebSearch"_s, {}}}));
    EXPECT_TRUE(project->hasChanged());
    EXPECT_TRUE(view.edited);
    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.srt"_s));

    project->saveSubtitle();
    EXPECT_EQ(dir.read(u"Film.srt"_s), Srt);
    EXPECT_EQ(dir.read(u"unzipped/deeper/Film.srt"_s), Srt);
}

TEST_F(DownloadTest, NothingHappensForAMissingPathOrAFolderWithoutSubtitles)
{
    openMovie();
    view.attached = {{u"WebSearch"_s, {}}};
    project->finishedDownloading(dir.path(u"gone"_s));
    project->finishedDownloading(unpacked({{u"readme.nfo"_s, "no subtitles"}, {u"cover.jpg"_s, "jpeg"}}));
    EXPECT_TRUE(project->subtitles().isEmpty());
    EXPECT_TRUE(view.ended.isEmpty());
    EXPECT_FALSE(project->hasChanged());
}

TEST_F(DownloadTest, AnUnreadableFileLeavesTheSheetOpen)
{
    openMovie();
    view.attached = {{u"WebSearch"_s, {}}};
    project->finishedDownloading(dir.write(u"download"_s, "<html>not a subtitle</html>"));
    EXPECT_TRUE(project->subtitles().isEmpty());
    EXPECT_TRUE(view.ended.isEmpty());
    EXPECT_EQ(prompter.prompts.size(), 1); // "The subtitle file cannot be parsed. ..."
}

TEST_F(DownloadTest, WithoutAMovieTheSavePanelNamesTheFileFirst)
{
    QDir().mkpath(dir.path(u"dl"_s));
    const QString file = dir.write(u"dl/Some Film.srt"_s, Srt);
    view.saveAnswers = {{QString()}};
    project->finishedDownloading(file);
    ASSERT_EQ(view.savePanels.size(), 1);
    EXPECT_EQ(view.savePanels[0].allowedTypes, QStringList{u"srt"_s});
    EXPECT_EQ(view.savePanels[0].nameFieldValue, u"Some Film.srt"_s);
    EXPECT_TRUE(project->subtitles().isEmpty()); // cancelled: nothing loaded

    QDir().mkpath(dir.path(u"mine"_s));
    view.saveAnswers = {{dir.path(u"mine/Chosen.srt"_s)}};
    project->finishedDownloading(file);
    ASSERT_EQ(project->subtitles().size(), 1);
    EXPECT_EQ(project->subtitlePath(), dir.path(u"mine/Chosen.srt"_s));
    project->saveSubtitle();
    EXPECT_EQ(dir.read(u"mine/Chosen.srt"_s), Srt);
}

TEST_F(DownloadTest, TheWebSearchIsToldWhatToDownload)
{
    EXPECT_EQ(
        CTWindowController::acceptedDownloadTypes(),
        (QStringList{u"zip"_s, u"rar"_s, u"srt"_s, u"application/txt"_s, u"sub"_s, u"ass"_s, u"ssa"_s}));
}

} // namespace
