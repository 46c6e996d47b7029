#include "Log.h"
#include "TestSupport.h"
#include "TextCodec.h"
#include "VHSubtitle.h"

#include <QDir>

#include <cmath>
#include <limits>

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

// Every time written reads back as the time the file says, also for times no time text can
// hold (clamped to the largest one) and for a time a billionth below a full second.
TEST_F(SubRipWriter, WrittenTimesReadBackAsWrittenEvenAtAndBeyondTheirLimits)
{
    const double inf = std::numeric_limits<double>::infinity();
    const SubtitleList extreme{
        VHSubtitle::create(u"a"_s, 1.9999999995, 2.5), VHSubtitle::create(u"b"_s, 3, 1e300),
        VHSubtitle::create(u"c"_s, 2147483648.0 * 3600, inf), VHSubtitle::create(u"d"_s, 4, std::nan(""))};
    ASSERT_TRUE(VHSubtitle::writeSubtitles(extreme, target));
    const QByteArray bytes = written();
    EXPECT_EQ(bytes, "1\n00:00:02,000 --> 00:00:02,500\na\n\n"
                     "2\n00:00:03,000 --> 2147483647:59:59,999\nb\n\n"
                     "3\n2147483647:59:59,999 --> 2147483647:59:59,999\nc\n\n"
                     "4\n00:00:04,000 --> 00:00:00,000\nd\n\n");
    const std::optional<SubtitleList> read = VHSubtitle::subtitlesFromSubRipString(QString::fromUtf8(bytes));
    ASSERT_TRUE(read);
    ASSERT_EQ(read->size(), 4);
    for (const SubtitlePtr &cue : *read) {
        EXPECT_TRUE(std::isfinite(cue->start()) && cue->start() >= 0);
        EXPECT_TRUE(std::isfinite(cue->end()) && cue->end() >= 0);
    }
    ASSERT_TRUE(VHSubtitle::writeSubtitles(*read, target));
    EXPECT_EQ(written(), bytes);
}

// UTF-8 files are built as bytes without the text; they must be the bytes the text encodes
// to, for every kind of time and text, and a text strict UTF-8 cannot hold must still be
// refused with the reason instead of being written with a replacement character.
TEST_F(SubRipWriter, UTF8BytesAreTheEncodedTextAndUnencodableTextsAreRefused)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    SubtitleList varied = cues;
    for (const auto &[from, to] : {std::pair{-0.0005, 1e-9}, {-3725.5, -1.0}, {59.9999999995, 3599.9995},
                                   {360000.5, 9e15}, {nan, inf}, {-inf, 7.1}})
        varied << VHSubtitle::create(u"x\r\n\n\ty"_s, from, to, varied.size() % 2);
    varied << VHSubtitle::create(QString(), 1, 2) << VHSubtitle::create(u"\U0010FFFF\u00e9\u0000z"_s, 1, 2);
    for (const bool windows : {false, true}) {
        QByteArray expected;
        ASSERT_TRUE(TextCodec::encode(VHSubtitle::subRipText(varied, windows), Encodings::UTF8, &expected));
        ASSERT_TRUE(VHSubtitle::writeSubtitles(varied, target, 0, windows));
        EXPECT_EQ(written(), expected);
        ASSERT_TRUE(VHSubtitle::writeSubtitles(varied, target, Encodings::UTF8, windows));
        EXPECT_EQ(written(), expected);
    }

    dir.write(u"movie.srt"_s, "old");
    LogCapture log;
    for (const QString &text : {u"lone \xD800 high"_s, u"lone low \xDC00"_s, u"high at the end \xD83D"_s}) {
        EXPECT_FALSE(VHSubtitle::writeSubtitles({cues[0], VHSubtitle::create(text, 4, 5)}, target));
        EXPECT_EQ(written(), "old");
    }
    EXPECT_EQ(log.count(u"Warning: Could not save file, because: The text has characters that the encoding "
                        u"'UTF-8' cannot represent."_s),
              3)
        << log.lines().join(u'\n').toStdString();
}
