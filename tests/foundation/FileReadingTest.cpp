#include "FileNames.h"
#include "Log.h"
#include "PropertyList.h"
#include "RegularFile.h"
#include "TestSupport.h"

#include <QFile>
#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <chrono>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

TEST(FileNames, AnyBytesDecodeAndEncodeBackToThemselves)
{
    const QList<QByteArray> names{"caf\xe9.srt",
                                  "caf\xc3\xa9.srt",
                                  "\xff\xfe",
                                  "a\xc3",
                                  "\xed\xa0\x80 surrogate",
                                  "\xc0\xaf overlong",
                                  "\xf4\x90\x80\x80 too high",
                                  "\xf0\x9f\x98\x80 emoji",
                                  "plain.srt"};
    for (const QByteArray &name : names)
        EXPECT_EQ(encodeFileName(decodeFileName(name)), name);
    QRandomGenerator random(11);
    for (int round = 0; round < 2000; ++round) {
        QByteArray name;
        for (int i = random.bounded(1, 24); i > 0; --i)
            name.append(char(random.bounded(1, 256)));
        ASSERT_EQ(encodeFileName(decodeFileName(name)), name);
    }
    // Valid UTF-8 is its characters; an invalid byte is U+DC00 + byte.
    EXPECT_EQ(decodeFileName("caf\xc3\xa9"), u"café"_s);
    EXPECT_EQ(decodeFileName("caf\xe9"), u"caf"_s + QChar(0xDCE9));
    EXPECT_EQ(encodeFileName(u"Grüße \U0001F600"_s), QByteArray("Gr\xc3\xbc\xc3\x9f"
                                                                "e \xf0\x9f\x98\x80"));
}

TEST(RegularFile, OnlyRegularFilesAreReadAndNothingBlocksOrFloods)
{
    TempDir dir;
    const QString text = dir.write(u"cues.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nHi\n");
    const QByteArray fifo = encodeFileName(dir.path(u"pipe.srt"_s));
    ASSERT_EQ(::mkfifo(fifo.constData(), 0644), 0);
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, dir.path(u"zero.srt"_s)));
    ASSERT_TRUE(QFile::link(u"loop-b.srt"_s, dir.path(u"loop-a.srt"_s)));
    ASSERT_TRUE(QFile::link(u"loop-a.srt"_s, dir.path(u"loop-b.srt"_s)));

    RegularFile::Failure failure;
    EXPECT_EQ(RegularFile::read(text, 1000, &failure), QByteArray("1\n00:00:01,000 --> 00:00:02,000\nHi\n"));

    const auto started = std::chrono::steady_clock::now();
    struct Case
    {
        QString path, reason;
    };
    for (const Case &c : {Case{dir.path(u"pipe.srt"_s), u"it is a FIFO, not a regular file"_s},
                          Case{u"/dev/zero"_s, u"it is a character device, not a regular file"_s},
                          Case{dir.path(u"zero.srt"_s), u"it is a character device, not a regular file"_s},
                          Case{dir.path(u"loop-a.srt"_s), u"Too many levels of symbolic links"_s},
                          Case{dir.path(u"missing.srt"_s), u"No such file or directory"_s},
                          Case{dir.path(QString()), u"it is a folder, not a regular file"_s}}) {
        failure = {};
        EXPECT_FALSE(RegularFile::read(c.path, RegularFile::SubtitleLimit, &failure)) << qPrintable(c.path);
        EXPECT_EQ(failure.reason, c.reason);
        const auto checked = RegularFile::check(c.path, RegularFile::SubtitleLimit);
        ASSERT_TRUE(checked.has_value());
        EXPECT_EQ(checked->reason, c.reason);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(2));

    // Above the limit: refused before reading, naming the size.
    const QString big = dir.write(u"big.srt"_s, QByteArray(3 << 20, 'x'));
    failure = {};
    EXPECT_FALSE(RegularFile::read(big, 2 << 20, &failure));
    EXPECT_EQ(failure.reason, u"it is 3.0 MB (3145728 bytes), more than the 2.0 MB read at most"_s);
    // 300 MB without writing them: a sparse file.
    QFile sparse(dir.path(u"huge.srt"_s));
    ASSERT_TRUE(sparse.open(QIODevice::WriteOnly) && sparse.resize(qint64(300) << 20));
    sparse.close();
    EXPECT_EQ(RegularFile::check(sparse.fileName(), RegularFile::SubtitleLimit)->reason,
              u"it is 300 MB (314572800 bytes), more than the 256 MB read at most"_s);
}

TEST(RegularFile, ReadsAndWritesNamesThatAreNotUtf8)
{
    TempDir dir;
    const QByteArray native = encodeFileName(dir.path(QString())) + "/caf\xe9.srt";
    const int fd = ::open(native.constData(), O_WRONLY | O_CREAT, 0644);
    ASSERT_GE(fd, 0);
    ASSERT_EQ(::write(fd, "bytes", 5), 5);
    ::close(fd);
    RegularFile::Failure failure;
    EXPECT_EQ(RegularFile::read(decodeFileName(native), 100, &failure), QByteArray("bytes"))
        << qPrintable(failure.reason);
    ::unlink(native.constData()); // QTemporaryDir cannot name it to remove it
}

namespace {
QByteArray nestedPlist(int depth)
{
    return "<?xml version=\"1.0\"?><plist version=\"1.0\">" + QByteArray("<array>").repeated(depth) +
           "<string>x</string>" + QByteArray("</array>").repeated(depth) + "</plist>";
}
} // namespace

TEST(PropertyList, NestingIsCappedSoADeepFileIsUnreadableInsteadOfACrash)
{
    QString error;
    const QVariant fine = PropertyList::fromXml(nestedPlist(PropertyList::MaxDepth), &error);
    EXPECT_TRUE(fine.isValid()) << qPrintable(error);
    EXPECT_FALSE(PropertyList::fromXml(nestedPlist(PropertyList::MaxDepth + 1), &error).isValid());
    EXPECT_TRUE(error.contains(u"nested more than 256 levels"_s)) << qPrintable(error);

    TempDir dir;
    const QString deep = dir.write(u"Boomarks.plist"_s, nestedPlist(100000));
    error.clear();
    EXPECT_FALSE(PropertyList::readFile(deep, &error).isValid());
    EXPECT_FALSE(error.isEmpty());
    ASSERT_EQ(::mkfifo(encodeFileName(dir.path(u"pipe.plist"_s)).constData(), 0644), 0);
    EXPECT_FALSE(PropertyList::readFile(dir.path(u"pipe.plist"_s), &error).isValid());
    EXPECT_EQ(error, u"it is a FIFO, not a regular file"_s);
}

TEST(LogExcerpt, LongLinesAreCutToTwoHundredCharactersWithTheirLength)
{
    EXPECT_EQ(logExcerpt(QString(200, u'a')), QString(200, u'a'));
    EXPECT_EQ(logExcerpt(QString(201, u'a')), QString(200, u'a') + u"\u2026 (201 characters)"_s);
    // A character outside the BMP that the cut would split stays whole or goes whole.
    const QString emoji = QString(199, u'a') + u"\U0001F600"_s + u"bbb"_s;
    EXPECT_EQ(logExcerpt(emoji), QString(199, u'a') + u"\u2026 (204 characters)"_s);
}
