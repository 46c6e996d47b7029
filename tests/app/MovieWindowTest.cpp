// The window with the real players and the real media side, as `captora` wires them: a movie
// made by ffmpeg is played by libmpv, its text track is extracted on opening, a broken movie
// resets the window, and embedding puts the new movie in place of the old one.
#include "CTWindowController.h"
#include "EmbedOptionsDialog.h"
#include "LocaleNames.h"
#include "Log.h"
#include "MainQueue.h"
#include "PlayerWiring.h"
#include "ProgressWindow.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "TestSupport.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTableWidget>

#include <gtest/gtest.h>

#include <clocale>

using namespace Qt::StringLiterals;

namespace {

bool waitFor(const std::function<bool()> &done, int milliseconds = 20000)
{
    QElapsedTimer timer;
    timer.start();
    while (!done()) {
        if (timer.elapsed() > milliseconds)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        MainQueue::main().drain();
    }
    return true;
}

class MovieWindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Settings::shared().useFile(dir.path(u"settings.ini"_s));
        Settings::shared().setValue(u"Locale"_s, u"en"_s);
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
        LocaleNames::setInterfaceLanguage(u"en"_s);
        CTWindowController::registerDefaults();
        window = std::make_unique<ProjectWindow>();
        progress = connectPlayers(*window);
        window->start();
        window->show();
    }
    void TearDown() override
    {
        window.reset();
        MainQueue::main().drain();
    }

    // Film.mp4: three seconds of testsrc at 25 fps over a tone, with an English text track.
    QString makeMovie()
    {
        const QString srt = dir.write(u"track.srt"_s, "1\n00:00:00,500 --> 00:00:01,500\nInside the movie\n\n"
                                                      "2\n00:00:02,000 --> 00:00:02,800\nSecond inside\n\n");
        const QString movie = dir.path(u"Film.mp4"_s);
        QProcess ffmpeg;
        ffmpeg.start(u"ffmpeg"_s, {u"-v"_s,
                                   u"error"_s,
                                   u"-y"_s,
                                   u"-f"_s,
                                   u"lavfi"_s,
                                   u"-i"_s,
                                   u"testsrc=size=320x240:rate=25:decimals=2"_s,
                                   u"-f"_s,
                                   u"lavfi"_s,
                                   u"-i"_s,
                                   u"sine=frequency=440"_s,
                                   u"-i"_s,
                                   srt,
                                   u"-map"_s,
                                   u"0"_s,
                                   u"-map"_s,
                                   u"1"_s,
                                   u"-map"_s,
                                   u"2"_s,
                                   u"-t"_s,
                                   u"3"_s,
                                   u"-c:v"_s,
                                   u"libx264"_s,
                                   u"-preset"_s,
                                   u"ultrafast"_s,
                                   u"-pix_fmt"_s,
                                   u"yuv420p"_s,
                                   u"-c:a"_s,
                                   u"aac"_s,
                                   u"-c:s"_s,
                                   u"mov_text"_s,
                                   u"-metadata:s:s:0"_s,
                                   u"language=eng"_s,
                                   movie});
        EXPECT_TRUE(ffmpeg.waitForFinished(60000));
        EXPECT_EQ(ffmpeg.exitCode(), 0) << ffmpeg.readAllStandardError().toStdString();
        QFile::remove(srt);
        return movie;
    }

    bool waitLoaded()
    {
        return waitFor([this] { return window->project()->movieDuration() > 0; });
    }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
    LogCapture log;
    std::unique_ptr<ProjectWindow> window;
    ProgressWindow *progress = nullptr;
};

TEST_F(MovieWindowTest, OpeningAMovieTakesOverItsTimingAndExtractsItsTextTrack)
{
    const QString movie = makeMovie();
    window->openFiles({movie});
    ASSERT_TRUE(waitLoaded()) << log.lines().join(u'\n').toStdString();
    CTWindowController *project = window->project();
    EXPECT_EQ(project->movieKind(), 1);
    EXPECT_DOUBLE_EQ(project->fps(), 25);
    EXPECT_NEAR(project->movieDuration(), 3, 0.1);

    // The English track lands beside the movie and becomes the file being edited.
    ASSERT_TRUE(waitFor([&] { return project->subtitles().size() == 2; }))
        << log.lines().join(u'\n').toStdString();
    EXPECT_TRUE(QFile::exists(dir.path(u"Film.en.srt"_s)));
    EXPECT_EQ(project->subtitles().first()->string(), u"Inside the movie"_s);
    window->refreshMenus();
    EXPECT_EQ(window->action(u"extractAllSubtitles:"_s)->text(), u"Extract 1 Subtitle"_s);

    // A click on the second line seeks the player there.
    project->setSelectionIndices({1});
    EXPECT_TRUE(waitFor([&] { return std::abs(project->movieController()->currentTime() - 2.0001) < 0.01; }));
}

TEST_F(MovieWindowTest, AFileNeitherPlayerOpensResetsTheWindow)
{
    const QString broken = dir.write(u"Broken.mp4"_s, QByteArray(4096, 'x'));
    window->openFiles({broken});
    ASSERT_TRUE(waitFor([&] {
        return log.lines().contains(u"Warning: Movie at %1 could not be opened!"_s.arg(broken));
    })) << log.lines().join(u'\n').toStdString();
    EXPECT_EQ(window->project()->movieKind(), 0);
    EXPECT_TRUE(window->project()->moviePath().isEmpty());
    EXPECT_EQ(QFile(broken).size(), 4096);
}

TEST_F(MovieWindowTest, EmbeddingKeepsTheOriginalAndOpensTheNewMovie)
{
    const QString movie = makeMovie();
    QFile original(movie);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    const QByteArray movieBytes = original.readAll();
    original.close();
    dir.write(u"Film.de.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nHallo\n\n");
    window->openFiles({movie});
    ASSERT_TRUE(waitLoaded());
    ASSERT_TRUE(waitFor([&] { return !window->project()->subtitles().isEmpty(); }));
    ASSERT_TRUE(waitFor([&] { return QFile::exists(dir.path(u"Film.en.srt"_s)) && progress->canQuit(); }));

    // "Embed Subtitles into Movie" opens the options: the two files beside the movie (the
    // English one extracted from it on opening) are ticked; the movie's own English track is
    // not, as a file of that language is offered.
    window->project()->runLanguageCommand(u"embedSubtitle:"_s);
    EmbedOptionsDialog *options = nullptr;
    ASSERT_TRUE(waitFor([&] {
        options = window->findChild<EmbedOptionsDialog *>();
        return options && options->isVisible();
    }));
    QTableWidget *table = options->table();
    QStringList rows;
    for (int row = 0; row < table->rowCount(); ++row)
        rows << u"%1|%2|%3|%4"_s.arg(
            table->item(row, EmbedOptionsDialog::IntegrateColumn)->checkState() == Qt::Checked ? u"x"_s
                                                                                               : u" "_s,
            table->item(row, EmbedOptionsDialog::LanguageColumn)->text(),
            table->item(row, EmbedOptionsDialog::SourceColumn)->text(),
            table->item(row, EmbedOptionsDialog::LocationColumn)->text());
    ASSERT_EQ(rows.size(), 3) << rows.join(u'\n').toStdString();
    EXPECT_TRUE(rows.contains(u"x|German Subtitle|File beside the movie|Film.de.srt"_s))
        << rows.join(u'\n').toStdString();
    EXPECT_TRUE(rows.contains(u"x|English Subtitle|File beside the movie|Film.en.srt"_s))
        << rows.join(u'\n').toStdString();
    EXPECT_TRUE(rows.last().startsWith(u" |English|Track in the movie|Movie-Track: "_s))
        << rows.join(u'\n').toStdString();
    EXPECT_EQ(options->embedButton()->text(), u"Embed"_s);
    EXPECT_EQ(options->cancelButton()->text(), u"Cancel"_s);
    options->embedButton()->click();

    // The run is listed in the task list, which comes up; until it has ended the program
    // cannot quit.
    const ProgressWindow::Row *task = nullptr;
    ASSERT_TRUE(waitFor([&] {
        task = progress->rows().size() > 1 ? progress->rows().last() : nullptr;
        return task != nullptr;
    })) << log.lines().join(u'\n').toStdString();
    EXPECT_EQ(task->title->text(), u"Embedding Subtitles into Film"_s);
    EXPECT_EQ(progress->canQuit(), task->status->isEnded());
    EXPECT_TRUE(progress->isVisible());
    const QString embedded = dir.path(u"Film.m4v"_s);
    ASSERT_TRUE(waitFor([&] { return window->project()->moviePath() == embedded; }, 60000))
        << log.lines().join(u'\n').toStdString();
    ASSERT_TRUE(prompter.prompts.size() >= 1);
    EXPECT_EQ(
        prompter.prompts.last().message,
        u"Finished embedding the file you are currently editing. We need to reload the file to avoid conflicts."_s);
    // The old movie is kept byte for byte under its new name; the new one plays.
    QFile kept(dir.path(u"Film Original.mp4"_s));
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), movieBytes);
    EXPECT_FALSE(QFile::exists(movie));
    EXPECT_FALSE(QFile::exists(dir.path(u"Film-Output.m4v"_s)));
    ASSERT_TRUE(waitLoaded());
    EXPECT_EQ(window->project()->movieKind(), 1);
    ASSERT_TRUE(waitFor([&] { return progress->canQuit(); }));
    EXPECT_EQ(task->state->text(), u"Done"_s);
    EXPECT_TRUE(task->error->text().isEmpty());
}

TEST_F(MovieWindowTest, CancellingTheEmbeddingOptionsWritesNothing)
{
    const QString movie = makeMovie();
    dir.write(u"Film.vtt"_s, "WEBVTT\n\n00:00:00.000 --> 00:00:01.500\nOpening\n\n"
                             "00:00:01.500 --> 00:00:03.000\nEnding\n\n");
    window->openFiles({movie});
    ASSERT_TRUE(waitLoaded());
    ASSERT_TRUE(waitFor([&] { return !window->project()->subtitles().isEmpty(); }));
    window->project()->runLanguageCommand(u"embedSubtitle:"_s);
    EmbedOptionsDialog *options = nullptr;
    ASSERT_TRUE(waitFor([&] {
        options = window->findChild<EmbedOptionsDialog *>();
        return options && options->isVisible();
    }));
    // The chapter marks file is a row of its own, ticked.
    QTableWidget *table = options->table();
    ASSERT_EQ(table->rowCount(), 3);
    EXPECT_EQ(table->item(2, EmbedOptionsDialog::LanguageColumn)->text(), u"Chapter Marks"_s);
    EXPECT_EQ(table->item(2, EmbedOptionsDialog::LocationColumn)->text(), u"Film.vtt"_s);
    EXPECT_EQ(table->item(2, EmbedOptionsDialog::IntegrateColumn)->checkState(), Qt::Checked);
    const QPointer<EmbedOptionsDialog> closing = options;
    options->cancelButton()->click();
    ASSERT_TRUE(waitFor([&] { return !closing || !closing->isVisible(); }));
    EXPECT_TRUE(progress->canQuit());
    EXPECT_FALSE(QFile::exists(dir.path(u"Film-Output.m4v"_s)));
    EXPECT_TRUE(QFile::exists(movie));
    for (const ProgressWindow::Row *row : progress->rows())
        EXPECT_EQ(row->title->text(), u"Extract Subtitles"_s);
}

} // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("CAPTORA_AUDIO_OUTPUT"))
        qputenv("CAPTORA_AUDIO_OUTPUT", "null");
    QApplication app(argc, argv);
    // libmpv needs the C number format, which QApplication has just replaced.
    std::setlocale(LC_NUMERIC, "C");
    QStandardPaths::setTestModeEnabled(true);
    MainQueue::main().attachToEventLoop();
    return RUN_ALL_TESTS();
}
