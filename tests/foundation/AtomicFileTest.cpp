#include "AtomicFile.h"
#include "TestSupport.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(AtomicFile, ReplacesTheWholeFileOrOnFailureLeavesTheOldOneByteForByteAndNoTemporaryFile)
{
    TempDir dir;
    const QString target = dir.write(u"cues.srt"_s, "an older and much longer content");
    QString error;
    EXPECT_TRUE(writeFileAtomically(target, "new", &error)) << qPrintable(error);
    EXPECT_EQ(dir.read(u"cues.srt"_s), "new");

    const QByteArray old = QByteArray("1\r\n00:00:01,000 --> 00:00:02,000\r\n\xc3\xa9t\xc3\xa9\r\n\r\n").repeated(8);
    dir.write(u"cues.srt"_s, old);
    const QByteArray big(1 << 20, 'x');
    QString replaceError, createError;
    bool replaced, created;
    {
        FileSizeLimit limit(4096);
        replaced = writeFileAtomically(target, big, &replaceError);
        created = writeFileAtomically(dir.path(u"new.srt"_s), big, &createError);
    }
    EXPECT_FALSE(replaced);
    EXPECT_FALSE(replaceError.isEmpty());
    EXPECT_FALSE(created);
    EXPECT_FALSE(createError.isEmpty());
    EXPECT_EQ(dir.read(u"cues.srt"_s), old);
    EXPECT_EQ(dir.entries(), QStringList{u"cues.srt"_s});
}

TEST(AtomicFile, RefusesAFolderOrAMissingFolderAsTarget)
{
    TempDir dir;
    ASSERT_TRUE(QDir().mkdir(dir.path(u"movie.srt"_s)));
    dir.write(u"movie.srt/inside"_s, "kept");

    QString error;
    EXPECT_FALSE(writeFileAtomically(dir.path(u"movie.srt"_s), "text", &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(dir.read(u"movie.srt/inside"_s), "kept");
    EXPECT_EQ(QDir(dir.path(u"movie.srt"_s)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{u"inside"_s});
    EXPECT_EQ(dir.entries(), QStringList{u"movie.srt"_s});

    error.clear();
    EXPECT_FALSE(writeFileAtomically(dir.path(u"no/such/folder.srt"_s), "text", &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(dir.entries(), QStringList{u"movie.srt"_s});
}
