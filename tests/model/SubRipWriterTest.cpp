#include "Log.h"
#include "TestSupport.h"
#include "VHSubtitle.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
class SubRipWriter : public ::testing::Test
{
protected:
    TempDir dir;
    QString target = dir.path(u"movie.srt"_s);
    QByteArray written() const { return dir.read(u"movie.srt"_s); }
    SubtitleList cues{VHSubtitle::create(u"Grüße \U0001F600 – 東京"_s, 0, 1.9999),
                      VHSubtitle::create(u"a\nb"_s, 2, 3, true)};
};
} // namespace

// Encoding 0 means UTF-8 without a byte-order mark; milliseconds are truncated. Each write
// after the first replaces a longer file.
TEST_F(SubRipWriter, WritesNumberedCueBlocksByteForByteWithEitherLineBreak)
{
    const QByteArray lineFeeds = "1\n00:00:00,000 --> 00:00:01,999\n" + u"Grüße \U0001F600 – 東京"_s.toUtf8() +
                                 "\n\n2\n00:00:02,000 --> 00:00:03,000 !!!\na\nb\n\n";
    // Every line feed, also those inside cue texts, gets its carriage return.
    ASSERT_TRUE(VHSubtitle::writeSubtitles(cues, target, 0, true));
    EXPECT_EQ(written(), QByteArray(lineFeeds).replace("\n", "\r\n"));
    ASSERT_TRUE(VHSubtitle::writeSubtitles(cues, target, 0, false));
    EXPECT_EQ(written(), lineFeeds);
    ASSERT_TRUE(VHSubtitle::writeSubtitles({cues[1]}, target));
    EXPECT_EQ(written(), "1\n00:00:02,000 --> 00:00:03,000 !!!\na\nb\n\n");
}

TEST_F(SubRipWriter, FailedWriteReportsWhyAndLeavesTheOldFileIntact)
{
    const QByteArray old = "1\r\n00:00:01,000 --> 00:00:02,000\r\nold\r\n\r\n";
    dir.write(u"movie.srt"_s, old);
    const SubtitleList many(2000, VHSubtitle::create(u"a line long enough to pass the limit"_s, 0, 1));
    LogCapture log;
    {
        FileSizeLimit limit(4096);
        EXPECT_FALSE(VHSubtitle::writeSubtitles(many, target));
    }
    EXPECT_EQ(written(), old);
    EXPECT_EQ(dir.entries(), QStringList{u"movie.srt"_s});

    ASSERT_TRUE(QDir().mkdir(dir.path(u"folder.srt"_s)));
    EXPECT_FALSE(VHSubtitle::writeSubtitles(cues, dir.path(u"folder.srt"_s)));

    ASSERT_EQ(log.lines().size(), 2);
    for (const QString &line : log.lines()) {
        EXPECT_TRUE(line.startsWith(u"Warning: Could not save file, because: "_s)) << line.toStdString();
        EXPECT_GT(line.size(), 40) << "the reason is missing";
        EXPECT_FALSE(line.contains(u'\n'));
    }
}
