#include "Log.h"
#include "TestSupport.h"
#include "VHSubtitle.h"

#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct Read
{
    std::optional<SubtitleList> cues;
    QStringList log;

    // One line per cue: "<start> <end>[ forced] | <text>", times as exact shortest numbers.
    QStringList summary() const
    {
        QStringList out;
        for (const SubtitlePtr &cue : cues.value_or(SubtitleList{})) {
            out << QString::number(cue->start(), 'g', QLocale::FloatingPointShortest) + u' ' +
                       QString::number(cue->end(), 'g', QLocale::FloatingPointShortest) +
                       (cue->forced() ? u" forced"_s : QString()) + u" | "_s + cue->string();
        }
        return out;
    }
};

Read readText(const QString &text)
{
    LogCapture capture;
    Read read{VHSubtitle::subtitlesFromSubRipString(text), {}};
    read.log = capture.lines();
    return read;
}

Read readFixture(const QString &name)
{
    return readText(QString::fromUtf8(fixtureBytes(u"model"_s, name)));
}
} // namespace

// Irregular files that are logged and accepted.

TEST(SubRipReaderLenient, CuesWithoutNumbersReadCompletely)
{
    const Read read = readFixture(u"no_numbers.srt"_s);
    EXPECT_EQ(read.summary(), (QStringList{u"1 2 | First"_s, u"3 4 | Second"_s}));
    EXPECT_TRUE(read.log.isEmpty());
}

TEST(SubRipReaderLenient, NumbersOutOfOrderAreReportedAndFileOrderKept)
{
    const Read read = readFixture(u"numbers_out_of_order.srt"_s);
    EXPECT_EQ(read.summary(), (QStringList{u"1 2 | One"_s, u"3 4 | Two"_s}));
    EXPECT_EQ(read.log, (QStringList{u"Parsing Warning: Line 2 followed line 0"_s,
                                     u"Parsing Warning: Line 1 followed line 2"_s}));
}

TEST(SubRipReaderLenient, StrayFirstLineCountsAsANumber)
{
    const Read read = readText(u"My Movie\n00:00:01,000 --> 00:00:02,000\nHi\n"_s);
    EXPECT_EQ(read.summary(), QStringList{u"1 2 | Hi"_s});
    EXPECT_EQ(read.log, QStringList{u"Parsing Warning: Line 0 followed line 0"_s});
}

TEST(SubRipReaderLenient, EitherDecimalSymbolIsAcceptedInTimeLines)
{
    const Read read = readFixture(u"mixed_decimal_symbols.srt"_s);
    EXPECT_EQ(read.summary(), QStringList{u"1.5 2.75 | Mixed"_s});
    EXPECT_TRUE(read.log.isEmpty());
}

TEST(SubRipReaderLenient, ReversedAndOverlappingTimesAreKeptAsRead)
{
    const Read read = readFixture(u"reversed_and_overlapping_times.srt"_s);
    EXPECT_EQ(read.summary(), (QStringList{u"5 4 | Backwards"_s, u"3 6 | Overlaps"_s}));
    EXPECT_EQ(read.log,
              (QStringList{u"Parsing Warning: Line '00:00:05,000 --> 00:00:04,000' ends 00:00:04,000 before it "
                           "starts 00:00:05,000"_s,
                           u"Parsing Warning: Line '00:00:03,000 --> 00:00:06,000' starts 00:00:03,000 before "
                           "last end 00:00:04,000"_s}));
}

TEST(SubRipReaderLenient, LongCuesWarnFromTheirSixthLine)
{
    const Read read = readFixture(u"seven_text_lines.srt"_s);
    EXPECT_EQ(read.summary(), (QStringList{u"1 2 | one\ntwo\nthree\nfour\nfive\nsix\nseven"_s,
                                           u"3 4 | 1\n2\n3\n4\n5"_s}));
    EXPECT_EQ(read.log, (QStringList{u"Parsing Warning: More then 4 Lines in one subtitle (six)"_s,
                                     u"Parsing Warning: More then 4 Lines in one subtitle (seven)"_s}));
}

TEST(SubRipReaderLenient, ForcedMarkerIsKeptExceptOnTheLastCue)
{
    const Read read = readFixture(u"forced_last_cue.srt"_s);
    EXPECT_EQ(read.summary(),
              (QStringList{u"1 2 forced | Forced middle"_s, u"3 4 | Plain"_s, u"5 6 | Forced last"_s}));
}

TEST(SubRipReaderLenient, AnyLineEndingReadsAlike)
{
    const QByteArray crOnly = fixtureBytes(u"model"_s, u"carriage_return_only.srt"_s);
    const QStringList expected{u"1 2.5 | Indented"_s, u"3 4 | Two\nlines"_s};
    EXPECT_EQ(readText(QString::fromUtf8(crOnly)).summary(), expected);
    EXPECT_EQ(readText(QString::fromUtf8(QByteArray(crOnly).replace('\r', "\r\n"))).summary(), expected);
    EXPECT_EQ(readText(QString::fromUtf8(QByteArray(crOnly).replace('\r', '\n'))).summary(), expected);
}

TEST(SubRipReaderLenient, TextLinesMayHoldArrowsAndFollowABlankLine)
{
    const Read arrows = readFixture(u"arrow_inside_text.srt"_s);
    EXPECT_EQ(arrows.summary(), (QStringList{u"1 2 | a --> b\nc --> d"_s, u"3 4 | next"_s}));
    EXPECT_TRUE(arrows.log.isEmpty());

    const Read blank = readFixture(u"text_after_blank_inside_cue.srt"_s);
    EXPECT_EQ(blank.summary(), (QStringList{u"1 2 | first\nabc"_s, u"3 4 | second"_s}));
    EXPECT_TRUE(blank.log.isEmpty());
}

TEST(SubRipReaderLenient, CueWithoutTextIsKeptUnlessItIsTheLast)
{
    const Read read = readText(u"00:00:01,000 --> 00:00:02,000\n\n00:00:03,000 --> 00:00:04,000\nx\n\n"
                               "00:00:05,000 --> 00:00:06,000\n\n"_s);
    EXPECT_EQ(read.summary(), (QStringList{u"1 2 | "_s, u"3 4 | x"_s}));
}

// Texts the reader gives up on.

TEST(SubRipReaderRejecting, UnplaceableLineRejectsTheWholeFile)
{
    const Read afterNumber = readFixture(u"unplaceable_line_after_number.srt"_s);
    EXPECT_FALSE(afterNumber.cues.has_value());
    EXPECT_EQ(afterNumber.log, QStringList{u"Warning: Parsing SRT fails in line (6) 'abc'"_s});

    const Read afterBlank = readText(u"1\n\n   abc  \n00:00:01,000 --> 00:00:02,000\nx\n"_s);
    EXPECT_FALSE(afterBlank.cues.has_value());
    EXPECT_EQ(afterBlank.log, QStringList{u"Warning: Parsing SRT fails in line (3) 'abc'"_s});
}

TEST(SubRipReaderRejecting, TextWithoutCuesGivesNoneSilently)
{
    for (const QString &text : {QString(), u"\n \r\n\t\n\n"_s, u"1\n00:00:01,000 --> 00:00:02,000\n"_s}) {
        const Read read = readText(text);
        EXPECT_FALSE(read.cues.has_value()) << read.summary().join(u'/').toStdString();
        EXPECT_TRUE(read.log.isEmpty());
    }
}
