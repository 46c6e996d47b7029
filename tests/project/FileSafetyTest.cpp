// The project meets files that are not subtitles: a FIFO named like one, a store nested
// deeper than any the program writes.
#include "FileNames.h"
#include "ProjectFixture.h"

#include <QElapsedTimer>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

TEST_F(ProjectTest, AFifoNamedLikeASubtitleIsReportedAtOnceInsteadOfFreezing)
{
    const QString fifo = dir.path(u"Film.srt"_s);
    ASSERT_EQ(::mkfifo(encodeFileName(fifo).constData(), 0644), 0);
    prompter.prompts.clear();
    QElapsedTimer timer;
    timer.start();
    project->setSubtitlePath(fifo);
    EXPECT_LT(timer.elapsed(), 5000);
    EXPECT_EQ(
        log.count(
            u"Warning: Could not load subtitle '%1', because: it is a FIFO, not a regular file"_s.arg(fifo)),
        1);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message,
              u"The subtitle file cannot be parsed. It's probably malformatted or an unusual format."_s);
    struct stat info
    {
    };
    ASSERT_EQ(::lstat(encodeFileName(fifo).constData(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
}

TEST(FolderPermissionStore, AStoreNestedTooDeepIsLoggedAndIgnoredWhenTheWindowStarts)
{
    TempDir dir;
    MainQueue::main().drain();
    Settings::shared().useFile(dir.path(u"settings.ini"_s));
    const QString store =
        dir.write(u"Boomarks.plist"_s, "<?xml version=\"1.0\"?><plist version=\"1.0\">" +
                                           QByteArray("<dict><key>k</key>").repeated(100000) +
                                           QByteArray("</dict>").repeated(100000) + "</plist>");
    LogCapture log;
    FakeView view;
    FakePlayer player;
    {
        CTWindowController project(&view, &player);
        project.setFolderPermissionStore(store);
        project.windowDidLoad();
        MainQueue::main().drain();
    }
    ASSERT_FALSE(log.lines()
                     .filter(u"Warning: The folder permissions in '%1' could not be read"_s.arg(store))
                     .isEmpty())
        << qPrintable(log.lines().join(u'\n'));
    EXPECT_TRUE(log.lines().join(u'\n').contains(u"nested more than 256 levels"_s));
}
