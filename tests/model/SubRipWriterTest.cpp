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
    SubtitleList cues{VHSubtitle::create(u"Hi"_s, 0, 1.5), VHSubtitle::create(u"a\nb"_s, 2, 3, true)};
};
} // namespace

TEST_F(SubRipWriter, WritesNumberedCueBlocksByteForByteWithEitherLineBreak)
{
    ASSERT_TRUE(VHSubtitle::writeSubtitles({cues[0]}, target));
    EXPECT_EQ(written(), "1\n00:00:00,000 --> 00:00:01,500\nHi\n\n");

    const QByteArray lineFeeds = "1\n00:00:00,000 --> 00:00:01,500\nHi\n\n2\n00:00:02,000 --> 00:00:03,000 !!!\na\nb\n\n";
    ASSERT_TRUE(VHSubtitle::writeSubtitles(cues, target, 0, false));
    EXPECT_EQ(written(), lineFeeds);
    // Every line feed, also those inside cue texts, gets its carriage return.
    ASSERT_TRUE(VHSubtitle::writeSubtitles(cues, target, 0, true));
    EXPECT_EQ(written(), QByteArray(lineFeeds).replace("\n", "\r\n"));
}

TEST_F(SubRipWriter, NoEncodingMeansUtf8WithoutByteOrderMark)
{
    const QString text = u"Grüße \U0001F600 – 東京"_s;
    ASSERT_TRUE(VHSubtitle::writeSubtitles({VHSubtitle::create(text, 0, 1)}, target, 0, false));
    EXPECT_EQ(written(), "1\n00:00:00,000 --> 00:00:01,000\n" + text.toUtf8() + "\n\n");
}

TEST_F(SubRipWriter, WrittenFileReadsBackToTheSameCues)
{
    const SubtitleList cues{VHSubtitle::create(u"one\ntwo"_s, 0.25, 1.5), VHSubtitle::create(u"forced"_s, 2, 3, true),
                            VHSubtitle::create(u"\U0001D11E clef"_s, 3599.125, 3600.5),
                            VHSubtitle::create(u"late"_s, 360000, 360001.75)};
    for (bool windows : {false, true}) {
        ASSERT_TRUE(VHSubtitle::writeSubtitles(cues, target, 0, windows));
        LogCapture log;
        const auto read = VHSubtitle::subtitlesFromSubRipString(QString::fromUtf8(written()));
        ASSERT_TRUE(read.has_value());
        ASSERT_EQ(read->size(), cues.size());
        for (qsizetype i = 0; i < cues.size(); ++i) {
            EXPECT_EQ((*read)[i]->description(), cues[i]->description());
            EXPECT_EQ((*read)[i]->end(), cues[i]->end());
        }
        EXPECT_TRUE(log.lines().isEmpty());
    }
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
