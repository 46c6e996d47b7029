// Where each import reader accepts a text and where it gives up. A text that is not the
// reader's format must give no cue at all, since the loader then tries the next format.

#include "CueAssertions.h"
#include "Log.h"
#include "TestSupport.h"
#include "VHVideoText.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {
using Reader = std::function<std::optional<SubtitleList>(const QString &)>;

const Reader subRip = [](const QString &text) { return VHSubtitle::subtitlesFromSubRipString(text); };
const Reader subViewer = [](const QString &text) { return VHSubtitle::subtitlesFromSubViewerString(text); };
const Reader ssa = [](const QString &text) { return VHSubtitle::subtitlesFromSubStationAlphaString(text); };
const Reader chapters = [](const QString &text) { return VHVideoText::chapterMarksFromVideoTextTracks(text); };
Reader microDVD(double fps = 25)
{
    return [fps](const QString &text) { return VHSubtitle::subtitlesFromMicroDVDString(text, fps); };
}
Reader plainText(double length)
{
    return [length](const QString &text) { return VHSubtitle::subtitlesFromText(text, length); };
}
QString fixture(const QString &name)
{
    return QString::fromUtf8(fixtureBytes(u"model"_s, name));
}

struct ReaderCase
{
    Reader read;
    QString text;
    QList<CueValues> cues; // none: the reader gives up
    QStringList log = {};
};

void expectRead(const QList<ReaderCase> &cases)
{
    for (const ReaderCase &c : cases) {
        SCOPED_TRACE(c.text.left(60).toStdString());
        LogCapture log;
        const std::optional<SubtitleList> cues = c.read(c.text);
        if (c.cues.isEmpty())
            EXPECT_FALSE(cues.has_value());
        else
            EXPECT_TRUE(cuesAre(cues, c.cues));
        EXPECT_EQ(log.lines(), c.log);
    }
}

const QString kNotFound = u"9223372036854775807"_s;
const QString kEvents = u"[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"_s;
const QString kDialogue = u"Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,Hi\n"_s;
} // namespace

// The reader itself, without the repair loading adds: times stay as written.
TEST(SubRipReader, IrregularTextsAreLoggedAndAccepted)
{
    expectRead({
        {subRip, fixture(u"no_numbers.srt"_s), {{u"First"_s, 1, 2}, {u"Second"_s, 3, 4}}},
        {subRip, fixture(u"numbers_out_of_order.srt"_s), {{u"One"_s, 1, 2}, {u"Two"_s, 3, 4}},
         {u"Parsing Warning: Line 2 followed line 0"_s, u"Parsing Warning: Line 1 followed line 2"_s}},
        {subRip, u"My Movie\n00:00:01,000 --> 00:00:02,000\nHi\n"_s, {{u"Hi"_s, 1, 2}},
         {u"Parsing Warning: Line 0 followed line 0"_s}},
        {subRip, fixture(u"mixed_decimal_symbols.srt"_s), {{u"Mixed"_s, 1.5, 2.75}}},
        {subRip, fixture(u"reversed_and_overlapping_times.srt"_s), {{u"Backwards"_s, 5, 4}, {u"Overlaps"_s, 3, 6}},
         {u"Parsing Warning: Line '00:00:05,000 --> 00:00:04,000' ends 00:00:04,000 before it starts 00:00:05,000"_s,
          u"Parsing Warning: Line '00:00:03,000 --> 00:00:06,000' starts 00:00:03,000 before last end 00:00:04,000"_s}},
        // The warning comes from the sixth line on, and the count starts again with each cue.
        {subRip, fixture(u"seven_text_lines.srt"_s),
         {{u"one\ntwo\nthree\nfour\nfive\nsix\nseven"_s, 1, 2}, {u"1\n2\n3\n4\n5"_s, 3, 4}},
         {u"Parsing Warning: More then 4 Lines in one subtitle (six)"_s,
          u"Parsing Warning: More then 4 Lines in one subtitle (seven)"_s}},
        {subRip, fixture(u"forced_last_cue.srt"_s),
         {{u"Forced middle"_s, 1, 2, true}, {u"Plain"_s, 3, 4}, {u"Forced last"_s, 5, 6}}},
        {subRip, fixture(u"carriage_return_only.srt"_s), {{u"Indented"_s, 1, 2.5}, {u"Two\nlines"_s, 3, 4}}},
        {subRip, u"1\r\n00:00:01,000 --> 00:00:02,500\r\n   Indented\t\r\n\r\n"_s, {{u"Indented"_s, 1, 2.5}}},
        {subRip, fixture(u"arrow_inside_text.srt"_s), {{u"a --> b\nc --> d"_s, 1, 2}, {u"next"_s, 3, 4}}},
        {subRip, fixture(u"text_after_blank_inside_cue.srt"_s), {{u"first\nabc"_s, 1, 2}, {u"second"_s, 3, 4}}},
        // A cue without text is kept, unless it is the last.
        {subRip,
         u"00:00:01,000 --> 00:00:02,000\n\n00:00:03,000 --> 00:00:04,000\nx\n\n00:00:05,000 --> 00:00:06,000\n\n"_s,
         {{{}, 1, 2}, {u"x"_s, 3, 4}}},
    });
}

// Also the cues read before the failing line are dropped.
TEST(SubRipReader, TextsItCannotPlaceAreRejected)
{
    expectRead({
        {subRip, fixture(u"unplaceable_line_after_number.srt"_s), {},
         {u"Warning: Parsing SRT fails in line (6) 'abc'"_s}},
        {subRip, u"1\n\n   abc  \n00:00:01,000 --> 00:00:02,000\nx\n"_s, {},
         {u"Warning: Parsing SRT fails in line (3) 'abc'"_s}},
        {subRip, u"1\n00:00:01,000 --> 00:00:02,000\n"_s, {}},
    });
}

TEST(SubViewerReader, ReadsTimePairsWithOneTextLineAndGivesUpSilentlyOnOtherTexts)
{
    expectRead({
        // Only after the [SUBTITLE] marker when there is one, else from the beginning.
        {subViewer, fixture(u"subviewer_time_pair_before_header.sub"_s),
         {{u"Hello\nWorld"_s, 1.5, 3}, {u"Only this line"_s, 4, 6.25}}},
        {subViewer, u"00:00:01.50,00:00:03.00\nHello[br]World"_s, {{u"Hello\nWorld"_s, 1.5, 3}}},
        {subViewer, u"1\n00:00:01,500 --> 00:00:03,000\nSubRip\n"_s, {}},
        {subViewer, u"{25}{50}MicroDVD\n"_s, {}},
        {subViewer, u"0:00:01.50,0:00:03.00\nsingle-digit hours\n"_s, {}}, // every field is two characters
        {subViewer, u"00:00:01.50,00:00:03.00"_s, {}},                     // no line end, so no text line
        {subViewer, u"[SUBTITLE]"_s, {}},
    });
}

TEST(MicroDVDReader, ReadsFramePairsAndNamesWhereAMalformedLineFails)
{
    const double fps = 23.976;
    expectRead({
        {microDVD(), u"\n   {25}{50}Hi|there   \n\n"_s, {{u"Hi\nthere"_s, 1, 2}}},
        // The frame-rate line is an ordinary cue, and styling codes stay.
        {microDVD(fps), fixture(u"microdvd_frame_rate_first_line.sub"_s),
         {{u"23.976"_s, 1 / fps, 1 / fps}, {u"{y:i}One\nTwo"_s, 24 / fps, 48 / fps}}},
        {microDVD(), u"{50}{25}backwards"_s, {{u"backwards"_s, 2, 2}}}, // clamped like an edit
        // A malformed line stops reading; the earlier cues stay.
        {microDVD(), fixture(u"microdvd_malformed_third_line.sub"_s), {{u"First"_s, 0, 1}, {u"Second"_s, 1, 2}},
         {u"Warning: Parsing fails, in line this line has no frames (%1, %1)"_s.arg(kNotFound)}},
        // The warning names the positions of the failing brace pair; the second pair is
        // searched after the first "}", and its positions count from there.
        {microDVD(), u"}1{{2}x"_s, {}, {u"Warning: Parsing fails, in line }1{{2}x (2, 0)"_s}},
        {microDVD(), u"{10}x}y{"_s, {}, {u"Warning: Parsing fails, in line {10}x}y{ (3, 1)"_s}},
        {microDVD(), u"{10}"_s, {}, {u"Warning: Parsing fails, in line {10} (%1, %1)"_s.arg(kNotFound)}},
        {microDVD(), u"1\n00:00:01,000 --> 00:00:02,000\nSubRip"_s, {},
         {u"Warning: Parsing fails, in line 1 (%1, %1)"_s.arg(kNotFound)}},
        // The line is logged exactly as read, also when it holds what looks like a
        // placeholder of the message.
        {microDVD(), u"50%2 off}{"_s, {}, {u"Warning: Parsing fails, in line 50%2 off}{ (9, 8)"_s}},
        {microDVD(), u"%1%3 }%2{"_s, {}, {u"Warning: Parsing fails, in line %1%3 }%2{ (8, 5)"_s}},
    });
}

TEST(SubStationAlphaReader, ReadsDialogueLinesOfTheEventsSectionAndGivesUpSilentlyWithoutThem)
{
    expectRead({
        // The text is the rest of the line as written.
        {ssa, fixture(u"ssa_text_field_with_commas.ass"_s),
         {{u"Well, {\\i1}this{\\i0}, keeps commas\\Nand codes"_s, 1.5, 3}, {u"Second"_s, 3723.04, 3725}}},
        {ssa, fixture(u"ssa_repeated_start_field.ssa"_s), {{u"Which start"_s, 1, 3}}}, // the later position
        {ssa, fixture(u"ssa_last_dialogue_without_line_end.ssa"_s), {{u"Ends with a line end"_s, 1, 2}}},
        // Times follow the time-text rules: the fraction is not checked to be digits ("a" is
        // 49 above "0" and adds 0.49 s), and hours and minutes may be left out.
        {ssa, u"[Events]\nFormat: Start, End, Text\nDialogue: 0:00:01.0a,62.5,x,,,,,,,\n"_s, {{u"x"_s, 1.49, 62.5}}},
        {ssa, fixture(u"ssa_format_without_text_field.ssa"_s), {}},
        {ssa, kEvents.mid(9) + kDialogue, {}},  // no [Events]
        {ssa, kEvents.left(9) + kDialogue, {}}, // no Format line
        // Text as an eleventh field lies beyond the ten a Dialogue line yields.
        {ssa, QString(kEvents).replace(u"Effect, Text"_s, u"Effect, Extra, Text"_s) + kDialogue, {}},
        {ssa, kEvents, {}},
    });
}

// The chapter dialect of the SubRip reader: "Chapter <n>" lines number marks.
TEST(ChapterReader, ChapterLinesNumberMarksWhereSubRipWouldNotAndLinesItCannotPlaceGiveNone)
{
    expectRead({
        // The WebVTT header counts as number zero.
        {chapters, fixture(u"chapters_webvtt_header.vtt"_s), {{u"Intro"_s, 0, 60}, {u"End"_s, 60, 1200}},
         {u"Parsing Warning: Line 0 followed line 0"_s}},
        // "chapter 0" after a blank line inside a mark: SubRip would take it as text.
        {chapters, fixture(u"chapters_number_zero_after_text.vtt"_s),
         {{u"Intro"_s, 0, 10}, {u"After a zero"_s, 10, 20}},
         {u"Parsing Warning: Line 0 followed line 0"_s, u"Parsing Warning: Line 0 followed line 1"_s}},
        // A chapter line right after a number line; SubRip would reject the whole text.
        {chapters, u"Chapter 3\nChapter 7\n00:00:01.5 --> 2,25\nx\n"_s, {{u"x"_s, 1.5, 2.25}},
         {u"Parsing Warning: Line 3 followed line 0"_s, u"Parsing Warning: Line 7 followed line 3"_s}},
        {chapters, u"-2\n00:00:01.000 --> 00:00:02.000\nx\n"_s, {{u"x"_s, 1, 2}}, // logged unsigned
         {u"Parsing Warning: Line 18446744073709551614 followed line 0"_s}},
        // A chapter line directly under a time is title text.
        {chapters,
         u"Chapter 1\n00:00:00.000 --> 00:00:05.000 !!!\nChapter 1 title\n\n"
         u"Chapter 2\n00:00:05.000 --> 00:00:09.000 !!!\nLast\n"_s,
         {{u"Chapter 1 title"_s, 0, 5, true}, {u"Last"_s, 5, 9, false}}},
        {chapters, fixture(u"chapters_only_header.vtt"_s), {}, {u"Parsing Warning: Line 0 followed line 0"_s}},
        {chapters, fixture(u"chapters_unplaceable_line.vtt"_s), {},
         {u"Parsing Warning: Line 0 followed line 0"_s, u"Warning: Parsing SRT fails in line (4) 'not a time line'"_s}},
    });
}

TEST(PlainTextReader, LinesShareTheLengthOrFollowEveryFourSeconds)
{
    const QList<CueValues> fourSeconds = {{u"a"_s, 0, 4}, {u"b"_s, 4, 8}, {u"c"_s, 8, 12}};
    expectRead({
        {plainText(30), u"a\nb\nc"_s, {{u"a"_s, 0, 10}, {u"b"_s, 10, 20}, {u"c"_s, 20, 30}}},
        {plainText(0), u"a\nb\nc"_s, fourSeconds},
        {plainText(-5), u"a\nb\nc"_s, fourSeconds},
        // Lines end at line feeds only: a Windows line end leaves its carriage return.
        {plainText(0), u"a\r\nb\r\nc"_s, {{u"a\r"_s, 0, 4}, {u"b\r"_s, 4, 8}, {u"c"_s, 8, 12}}},
        {plainText(0), QString(), {{{}, 0, 4}}}, // never gives up: even no text is one empty line
    });
}
