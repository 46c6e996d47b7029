#include "Log.h"
#include "TestSupport.h"
#include "VHSubtitle.h"

#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
// A fixture file of tests/data/model (name ending in ".srt") or an inline text, with the
// cues it reads as ("<start> <end>[ forced] | <text>", exact shortest times) and its log.
struct ReaderCase
{
    QString input;
    QStringList cues;
    QStringList log;
};

void PrintTo(const ReaderCase &c, std::ostream *os)
{
    *os << c.input.left(40).toStdString();
}

QStringList readAndLog(const ReaderCase &c, QStringList *log)
{
    const QString text = c.input.endsWith(u".srt"_s) ? QString::fromUtf8(fixtureBytes(u"model"_s, c.input)) : c.input;
    LogCapture capture;
    const std::optional<SubtitleList> cues = VHSubtitle::subtitlesFromSubRipString(text);
    *log = capture.lines();
    if (!cues)
        return {u"none"_s};
    QStringList out;
    for (const SubtitlePtr &cue : *cues)
        out << QString::number(cue->start(), 'g', QLocale::FloatingPointShortest) + u' ' +
                   QString::number(cue->end(), 'g', QLocale::FloatingPointShortest) +
                   (cue->forced() ? u" forced"_s : QString()) + u" | "_s + cue->string();
    return out;
}

class SubRipReader : public ::testing::TestWithParam<ReaderCase>
{
};

std::string caseName(const ::testing::TestParamInfo<ReaderCase> &info)
{
    const QString &input = info.param.input;
    if (input.endsWith(u".srt"_s))
        return input.chopped(4).toStdString();
    return "inline_text_" + std::to_string(info.index);
}
} // namespace

TEST_P(SubRipReader, ReadsTheCuesAndLogsTheWarnings)
{
    QStringList log;
    EXPECT_EQ(readAndLog(GetParam(), &log), GetParam().cues);
    EXPECT_EQ(log, GetParam().log);
}

// Irregular texts that are logged and accepted.
INSTANTIATE_TEST_SUITE_P(Lenient, SubRipReader, ::testing::Values(
    ReaderCase{u"no_numbers.srt"_s, {u"1 2 | First"_s, u"3 4 | Second"_s}, {}},
    ReaderCase{u"numbers_out_of_order.srt"_s, {u"1 2 | One"_s, u"3 4 | Two"_s},
               {u"Parsing Warning: Line 2 followed line 0"_s, u"Parsing Warning: Line 1 followed line 2"_s}},
    ReaderCase{u"My Movie\n00:00:01,000 --> 00:00:02,000\nHi\n"_s, {u"1 2 | Hi"_s},
               {u"Parsing Warning: Line 0 followed line 0"_s}},
    ReaderCase{u"mixed_decimal_symbols.srt"_s, {u"1.5 2.75 | Mixed"_s}, {}},
    ReaderCase{u"reversed_and_overlapping_times.srt"_s, {u"5 4 | Backwards"_s, u"3 6 | Overlaps"_s},
               {u"Parsing Warning: Line '00:00:05,000 --> 00:00:04,000' ends 00:00:04,000 before it starts "
                "00:00:05,000"_s,
                u"Parsing Warning: Line '00:00:03,000 --> 00:00:06,000' starts 00:00:03,000 before last end "
                "00:00:04,000"_s}},
    // The warning comes from the sixth line on, and the count starts again with each cue.
    ReaderCase{u"seven_text_lines.srt"_s,
               {u"1 2 | one\ntwo\nthree\nfour\nfive\nsix\nseven"_s, u"3 4 | 1\n2\n3\n4\n5"_s},
               {u"Parsing Warning: More then 4 Lines in one subtitle (six)"_s,
                u"Parsing Warning: More then 4 Lines in one subtitle (seven)"_s}},
    ReaderCase{u"forced_last_cue.srt"_s,
               {u"1 2 forced | Forced middle"_s, u"3 4 | Plain"_s, u"5 6 | Forced last"_s}, {}},
    ReaderCase{u"carriage_return_only.srt"_s, {u"1 2.5 | Indented"_s, u"3 4 | Two\nlines"_s}, {}},
    ReaderCase{u"1\r\n00:00:01,000 --> 00:00:02,500\r\n   Indented\t\r\n\r\n"_s, {u"1 2.5 | Indented"_s}, {}},
    ReaderCase{u"arrow_inside_text.srt"_s, {u"1 2 | a --> b\nc --> d"_s, u"3 4 | next"_s}, {}},
    ReaderCase{u"text_after_blank_inside_cue.srt"_s, {u"1 2 | first\nabc"_s, u"3 4 | second"_s}, {}},
    // A cue without text is kept, unless it is the last.
    ReaderCase{u"00:00:01,000 --> 00:00:02,000\n\n00:00:03,000 --> 00:00:04,000\nx\n\n"
               "00:00:05,000 --> 00:00:06,000\n\n"_s, {u"1 2 | "_s, u"3 4 | x"_s}, {}}),
    caseName);

// Texts the reader gives up on, also the cues it had read.
INSTANTIATE_TEST_SUITE_P(Rejecting, SubRipReader, ::testing::Values(
    ReaderCase{u"unplaceable_line_after_number.srt"_s, {u"none"_s},
               {u"Warning: Parsing SRT fails in line (6) 'abc'"_s}},
    ReaderCase{u"1\n\n   abc  \n00:00:01,000 --> 00:00:02,000\nx\n"_s, {u"none"_s},
               {u"Warning: Parsing SRT fails in line (3) 'abc'"_s}},
    ReaderCase{QString(), {u"none"_s}, {}},
    ReaderCase{u"\n \r\n\t\n\n"_s, {u"none"_s}, {}},
    ReaderCase{u"1\n00:00:01,000 --> 00:00:02,000\n"_s, {u"none"_s}, {}}),
    caseName);
