// The movie picture in the window with the real players: Full Screen shows the picture alone
// and Escape brings it back into the window, still playing and showing its cue; a file
// neither player opens is reported to the user with the file and the players' reasons.
#include "CTWindowController.h"
#include "LocaleNames.h"
#include "Log.h"
#include "MainQueue.h"
#include "MoviePlaceholder.h"
#include "PlayerWiring.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "TestSupport.h"
#include "VHMovieController.h"
#include "VHSubtitleView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <clocale>

using namespace Qt::StringLiterals;

namespace {

bool waitUntil(const std::function<bool()> &done, int milliseconds = 20000)
{
    QElapsedTimer timer;
    timer.start();
    while (!done()) {
        if (timer.elapsed() > milliseconds)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}

class MovieViewTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Settings::shared().useFile(dir.path(u"settings.ini"_s));
        Settings::shared().setValue(u"Locale"_s, u"en"_s);
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
        Settings::shared().setValue(u"AutoExtract"_s, false);
        Settings::shared().setValue(u"AutoExtractVTT"_s, false);
        LocaleNames::setInterfaceLanguage(u"en"_s);
        CTWindowController::registerDefaults();
        window = std::make_unique<ProjectWindow>();
        connectPlayers(*window);
        window->start();
        window->show();
    }
    void TearDown() override
    {
        window.reset();
        MainQueue::main().drain();
    }

    // Film.mp4: three seconds of testsrc at 25 fps, with an English subtitle file beside it.
    QString makeMovie()
    {
        const QString movie = dir.path(u"Film.mp4"_s);
        QProcess ffmpeg;
        ffmpeg.start(u"ffmpeg"_s,
                     {u"-v"_s, u"error"_s, u"-y"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                      u"testsrc=size=320x240:rate=25:decimals=2"_s, u"-t"_s, u"3"_s, u"-c:v"_s, u"libx264"_s,
                      u"-preset"_s, u"ultrafast"_s, u"-pix_fmt"_s, u"yuv420p"_s, movie});
        EXPECT_TRUE(ffmpeg.waitForFinished(60000));
        EXPECT_EQ(ffmpeg.exitCode(), 0) << ffmpeg.readAllStandardError().toStdString();
        dir.write(u"Film.en.srt"_s, "1\n00:00:00,000 --> 00:00:03,000\nMMMMMMMM\n\n");
        return movie;
    }

    VHMovieController *player() const
    {
        return dynamic_cast<VHMovieController *>(window->project()->movieController());
    }

    bool showsPicture() const
    {
        const QImage frame = player()->grabFrame();
        const QRgb middle = frame.pixel(frame.width() / 2, frame.height() / 3);
        return qRed(middle) + qGreen(middle) + qBlue(middle) > 60;
    }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
    LogCapture log;
    std::unique_ptr<ProjectWindow> window;
};

TEST_F(MovieViewTest, FullScreenShowsTheMovieAloneAndEscapeBringsItBack)
{
    window->openFiles({makeMovie()});
    ASSERT_TRUE(waitUntil([&] { return window->project()->movieDuration() > 0; }))
        << log.lines().join(u'\n').toStdString();
    ASSERT_TRUE(waitUntil([&] { return window->project()->subtitles().size() == 1; }));
    VHMovieController *movie = player();
    ASSERT_TRUE(movie);
    QWidget *view = movie->view();
    ASSERT_EQ(view->parentWidget(), window->movieArea());
    EXPECT_EQ(view->geometry(), window->movieArea()->pictureRect());

    auto *fullScreen = window->findChild<QToolButton *>(u"fullScreenButton"_s);
    ASSERT_TRUE(fullScreen);
    fullScreen->click();
    // The movie alone, not the editor window.
    EXPECT_FALSE(window->isFullScreen());
    EXPECT_TRUE(view->isWindow());
    EXPECT_TRUE(view->windowState() & Qt::WindowFullScreen);
    EXPECT_TRUE(movie->isFullscreen());
    EXPECT_TRUE(waitUntil([&] { return showsPicture(); }, 5000));

    // Escape, wherever the keyboard is inside the full-screen picture.
    ASSERT_TRUE(waitUntil([&] { return QApplication::activeWindow() == view; }, 5000));
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : view, Qt::Key_Escape);
    EXPECT_FALSE(movie->isFullscreen());
    EXPECT_FALSE(view->isWindow());
    EXPECT_EQ(view->parentWidget(), window->movieArea());
    EXPECT_TRUE(view->isVisible());
    // Back in its place: the picture's rectangle of the movie area (the area itself may have
    // moved by a pixel or two as the window's bar took over again).
    EXPECT_TRUE(waitUntil([&] { return view->geometry() == window->movieArea()->pictureRect(); }, 2000));
    EXPECT_FALSE(window->isFullScreen());

    // Back in the window the picture, the overlay and the controls work as before.
    movie->setCurrentTime(1.0);
    EXPECT_TRUE(waitUntil([&] { return showsPicture(); }, 5000));
    ASSERT_TRUE(movie->subtitleView()->currentSubtitle());
    EXPECT_EQ(movie->subtitleView()->currentSubtitle()->string(), u"MMMMMMMM"_s);
    window->playButton()->click();
    EXPECT_TRUE(waitUntil([&] { return window->project()->currentTime() > 1.3; }, 5000));
    window->playButton()->click();
    EXPECT_TRUE(waitUntil([&] { return !movie->isPlaying(); }, 5000));

    // Full Screen again, and out by the button of the picture's own bar.
    fullScreen->click();
    EXPECT_TRUE(view->isWindow());
    auto *ownButton = view->findChild<QToolButton *>(u"fullscreenButton"_s);
    ASSERT_TRUE(ownButton);
    EXPECT_TRUE(ownButton->isVisible());
    ownButton->click();
    EXPECT_FALSE(view->isWindow());
    EXPECT_FALSE(ownButton->isVisible()) << "the window's bar serves the picture in the window";
}

TEST_F(MovieViewTest, AMovieNeitherPlayerOpensIsReportedWithTheFileAndTheReasons)
{
    const QString broken = dir.write(u"Broken.mp4"_s, QByteArray(4096, 'x'));
    window->openFiles({broken});
    ASSERT_TRUE(waitUntil([&] { return !prompter.prompts.isEmpty(); }))
        << log.lines().join(u'\n').toStdString();
    ASSERT_EQ(prompter.prompts.size(), 1);
    const Prompt &told = prompter.prompts.first();
    EXPECT_EQ(told.message, u"The movie “Broken.mp4” could not be opened."_s);
    EXPECT_TRUE(told.informative.startsWith(u"libmpv: "_s)) << told.informative.toStdString();
    EXPECT_TRUE(told.informative.contains(u"\nlibVLC: "_s)) << told.informative.toStdString();
    EXPECT_TRUE(told.informative.endsWith(u"\n\n"_s + broken)) << told.informative.toStdString();
    EXPECT_TRUE(log.lines().contains(u"Warning: Movie at %1 could not be opened!"_s.arg(broken)));
    EXPECT_EQ(window->project()->movieKind(), 0);
}

} // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("CAPTORA_AUDIO_OUTPUT"))
        qputenv("CAPTORA_AUDIO_OUTPUT", "null");
    // As the program does: the libmpv picture keeps its GL context in a window of its own.
    if (!qEnvironmentVariableIsSet("CAPTORA_TEST_UNSHARED_GL"))
        QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    // libmpv needs the C number format, which QApplication has just replaced.
    std::setlocale(LC_NUMERIC, "C");
    QStandardPaths::setTestModeEnabled(true);
    MainQueue::main().attachToEventLoop();
    return RUN_ALL_TESTS();
}
