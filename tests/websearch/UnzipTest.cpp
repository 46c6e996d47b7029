// Unpacking downloaded archives: good ones completely, hostile ones without writing anything
// outside the fresh folder. The archives are made by make_archives.py.
#include "ArchiveUnzip.h"
#include "Log.h"
#include "TestSupport.h"
#include "WebSearchTestSupport.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class UnzipTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir().mkpath(root.path(u"deep/down/out"_s)));
        out = root.path(u"deep/down/out"_s);
    }

    // Unzips a test archive copied into the root, and answers success.
    bool unzip(const QString &name)
    {
        const QString archive = root.path(u"deep/down/"_s + name);
        QFile::remove(archive);
        EXPECT_TRUE(QFile::copy(testArchive(name), archive));
        problems.clear();
        return ArchiveUnzip::unzip(archive, out, &problems);
    }
    // Every file and folder under the root, relative to it, except the copied archives.
    QStringList everything() const
    {
        QStringList found;
        QDirIterator it(root.path(QString()),
                        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        const QDir base(root.path(QString()));
        while (it.hasNext()) {
            const QString path = base.relativeFilePath(it.next());
            if (!path.endsWith(u".zip"_s) && path != u"deep"_s && path != u"deep/down"_s)
                found << path;
        }
        found.sort();
        return found;
    }

    TempDir root;
    QString out;
    QStringList problems;
    LogCapture log;
};

TEST_F(UnzipTest, GoodArchiveUnpacksWithItsFolders)
{
    EXPECT_TRUE(unzip(u"good.zip"_s));
    EXPECT_EQ(everything(), (QStringList{u"deep/down/out"_s, u"deep/down/out/Film.srt"_s,
                                         u"deep/down/out/extra"_s, u"deep/down/out/extra/notes.txt"_s}));
    EXPECT_EQ(QFileInfo(out + u"/Film.srt"_s).size(), 89);
    EXPECT_TRUE(log.lines().isEmpty()) << log.lines().join(u'\n').toStdString();
    EXPECT_TRUE(problems.isEmpty());
}

TEST_F(UnzipTest, NamesLeadingOutsideAreSkippedAndTheRestUnpacks)
{
    for (const QString &name : {u"slip.zip"_s, u"absolute.zip"_s}) {
        SCOPED_TRACE(name.toStdString());
        log.clear();
        QDir(out).removeRecursively();
        QDir().mkpath(out);
        EXPECT_FALSE(unzip(name));
        EXPECT_EQ(everything(), (QStringList{u"deep/down/out"_s, u"deep/down/out/good.srt"_s}));
        ASSERT_EQ(log.lines().size(), 1);
        EXPECT_TRUE(log.lines()[0].startsWith(u"Warning: Skipped \""_s));
        EXPECT_TRUE(log.lines()[0].endsWith(u": its name leads outside the folder"_s))
            << log.lines()[0].toStdString();
        EXPECT_EQ(problems.size(), 1);
    }
    EXPECT_FALSE(QFileInfo::exists(u"/tmp/captora-absolute.srt"_s));
}

TEST_F(UnzipTest, BackslashesDriveLettersAndInnerDotsAreCaughtToo)
{
    EXPECT_FALSE(unzip(u"windows_names.zip"_s));
    EXPECT_EQ(everything(),
              (QStringList{u"deep/down/out"_s, u"deep/down/out/ok"_s, u"deep/down/out/ok/fine.srt"_s}));
    EXPECT_EQ(log.lines().size(), 3);
}

TEST_F(UnzipTest, SymbolicLinksAreNotMade)
{
    EXPECT_FALSE(unzip(u"symlink.zip"_s));
    EXPECT_EQ(everything(), (QStringList{u"deep/down/out"_s, u"deep/down/out/good.srt"_s}));
    EXPECT_EQ(log.count(u"Warning: Skipped \"link.srt\" in %1: it is a symbolic link"_s.arg(
                  root.path(u"deep/down/symlink.zip"_s))),
              1);
}

TEST_F(UnzipTest, EncryptedEntriesAreSkippedWithAMessage)
{
    EXPECT_FALSE(unzip(u"encrypted.zip"_s));
    EXPECT_EQ(everything(), (QStringList{u"deep/down/out"_s, u"deep/down/out/open.srt"_s}));
    ASSERT_EQ(problems.size(), 1);
    EXPECT_TRUE(problems[0].contains(u"password"_s));
    EXPECT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].contains(u"encrypted"_s));
}

TEST_F(UnzipTest, BombsAndCrowdsStopBeforeAnythingIsWritten)
{
    testArchive(u"bomb.zip"_s); // made before the clock starts
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(unzip(u"bomb.zip"_s));
    EXPECT_LT(timer.elapsed(), 5000);
    EXPECT_EQ(log.lines(),
              QStringList{u"Warning: Stopped unzipping %1: its entries would unpack to more than 50 MB"_s.arg(
                  root.path(u"deep/down/bomb.zip"_s))});
    EXPECT_EQ(everything(), QStringList{u"deep/down/out"_s});

    log.clear();
    EXPECT_FALSE(unzip(u"many.zip"_s));
    EXPECT_EQ(log.lines(), QStringList{u"Warning: Stopped unzipping %1: it has more than 1000 entries"_s.arg(
                               root.path(u"deep/down/many.zip"_s))});
    EXPECT_EQ(everything(), QStringList{u"deep/down/out"_s});
}

TEST_F(UnzipTest, AnEntryThatLiesAboutItsSizeLeavesNothing)
{
    EXPECT_FALSE(unzip(u"lying.zip"_s));
    EXPECT_EQ(everything(), QStringList{u"deep/down/out"_s});
    EXPECT_EQ(log.lines().size(), 1);
}

TEST_F(UnzipTest, DamagedArchivesAndDuplicatesFailCleanly)
{
    EXPECT_FALSE(unzip(u"truncated.zip"_s));
    EXPECT_EQ(everything(), QStringList{u"deep/down/out"_s});

    EXPECT_FALSE(unzip(u"duplicate.zip"_s));
    EXPECT_EQ(everything(), (QStringList{u"deep/down/out"_s, u"deep/down/out/dup.srt"_s}));
    EXPECT_EQ(QFileInfo(out + u"/dup.srt"_s).size(), 89); // the first one stays
}

TEST_F(UnzipTest, ALinkPlantedInTheFolderIsNotFollowed)
{
    // Whatever is in the folder already, a link among it is never written through.
    TempDir elsewhere;
    ASSERT_TRUE(QFile::link(elsewhere.path(QString()), out + u"/extra"_s));
    EXPECT_FALSE(unzip(u"good.zip"_s));
    EXPECT_TRUE(elsewhere.entries().isEmpty());
    EXPECT_TRUE(QFileInfo::exists(out + u"/Film.srt"_s));
}

} // namespace
