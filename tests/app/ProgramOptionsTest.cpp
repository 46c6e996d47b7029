// The options of the `captora` program: a legacy-encoded subtitle file opened in the window
// logs none of the detector's per-character lines unless --log-characters asks for them.
#include "ProgramOptions.h"
#include "CTWindowController.h"
#include "CueTableModel.h"
#include "LocaleNames.h"
#include "Log.h"
#include "MainQueue.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "TestSupport.h"

#include <QApplication>
#include <QLoggingCategory>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// A player that has the movie at once.
class LoadedPlayer final : public PlaybackControl
{
public:
    QWidget view;
    PlaybackControlDelegate *delegate = nullptr;
    bool movie = false;
    bool hasMovie() const override { return movie; }
    double currentTime() const override { return 0; }
    void setCurrentTime(double) override {}
    double fps() const override { return 25; }
    double duration() const override { return 3600; }
    bool isPlaying() const override { return false; }
    void setPlaying(bool) override {}
    void setSubtitles(const SubtitleList &) override {}
    void setShowSubtitle(bool) override {}
    void redrawCurrentSubtitle() override {}
    qsizetype currentSegmentIndex() const override { return 0; }
    void setDelegate(PlaybackControlDelegate *d) override { delegate = d; }
    bool loadMovieURL(const QString &) override
    {
        movie = true;
        return true;
    }
};

// Russian dialogue in code page 1251 (А..я are 0xC0..0xFF there), as SubRip.
QByteArray cp1251Subtitles(int cues)
{
    const QString line = u"Привет, как дела? Всё хорошо, спасибо. Это было давно."_s;
    QByteArray bytes;
    for (int i = 0; i < cues; ++i) {
        bytes += QByteArray::number(i + 1) + "\n" + VHSubtitle::formatedTime(2.0 * i + 1).toLatin1() +
                 " --> " + VHSubtitle::formatedTime(2.0 * i + 2).toLatin1() + "\n";
        for (const QChar c : line)
            bytes += c.unicode() >= 0x410 && c.unicode() <= 0x44f ? char(0xc0 + (c.unicode() - 0x410))
                     : c == u'ё'                                  ? char(0xb8)
                                                                  : char(c.unicode());
        bytes += "\n\n";
    }
    return bytes;
}

class ProgramOptionsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Settings::shared().useFile(dir.path(u"settings.ini"_s));
        Settings::shared().setValue(u"Locale"_s, u"en"_s);
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
        LocaleNames::setInterfaceLanguage(u"en"_s);
        CTWindowController::registerDefaults();
        dir.write(u"Film.mp4"_s, "not read by the stand-in player");
        dir.write(u"Film.ru.srt"_s, cp1251Subtitles(200));
    }
    void TearDown() override { QLoggingCategory::setFilterRules(QString()); }

    // Opens the movie in a window as `captora` would with these arguments; answers the
    // number of cues the table shows.
    int openWithArguments(const QStringList &options)
    {
        const QStringList files =
            applyProgramOptions(QStringList{u"captora"_s} + options + QStringList{dir.path(u"Film.mp4"_s)});
        EXPECT_EQ(files, QStringList{dir.path(u"Film.mp4"_s)});
        ProjectWindow window;
        window.setPlayers(
            [](int) -> PlaybackControl * { return new LoadedPlayer; },
            [](PlaybackControl *p) -> QWidget * { return &static_cast<LoadedPlayer *>(p)->view; });
        window.start();
        window.openFiles(files);
        MainQueue::main().drain(); // a drop is handled after the current event
        auto *player = static_cast<LoadedPlayer *>(window.project()->movieController());
        if (!player)
            return -1;
        player->delegate->movieControllerDidLoadMovie(player);
        MainQueue::main().drain();
        QCoreApplication::processEvents();
        return window.cueModel()->rowCount();
    }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
};

TEST_F(ProgramOptionsTest, ALegacyFileLogsNoCharacterLinesUnlessAsked)
{
    {
        LogCapture log;
        EXPECT_EQ(openWithArguments({}), 200);
        EXPECT_FALSE(log.lines().join(u'\n').contains(u"Character '"_s)) << log.lines().size() << " lines";
    }
    {
        LogCapture log;
        EXPECT_EQ(openWithArguments({u"--log-characters"_s}), 200);
        EXPECT_TRUE(log.lines().join(u'\n').contains(u"Character '"_s));
    }
}

} // namespace
