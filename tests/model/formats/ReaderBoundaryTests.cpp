// Where each import reader accepts a text and where it gives up. A text that is not the
// reader's format must give no cue at all, since the loader then tries the next format.

#include "FormatTestSupport.h"

using namespace Qt::StringLiterals;

namespace {
const QString kNotFound = u"9223372036854775807"_s;

std::optional<SubtitleList> microDVD(const QString &text, double fps = 25)
{
    return VHSubtitle::subtitlesFromMicroDVDString(text, fps);
}
} // namespace

TEST(SubViewerReader, ReadsOnlyAfterTheSubtitleMarkerAndOneTextLinePerCue)
{
    EXPECT_TRUE(cuesAre(
        VHSubtitle::subtitlesFromSubViewerString(fixtureText(u"subviewer_time_pair_before_header.sub"_s)),
        {{u"Hello\nWorld"_s, 1.5, 3}, {u"Only this line"_s, 4, 6.25}}));
}

TEST(SubViewerReader, ScansFromTheBeginningWithoutMarker)
{
    EXPECT_TRUE(
        cuesAre(VHSubtitle::subtitlesFromSubViewerString(u"00:00:01.50,00:00:03.00\nHello[br]World"_s),
                {{u"Hello\nWorld"_s, 1.5, 3}}));
}

TEST(SubViewerReader, OtherTextsGiveNoCueAndNoWarning)
{
    const QStringList others = {
        u"1\n00:00:01,500 --> 00:00:03,000\nSubRip\n"_s,
        u"{25}{50}MicroDVD\n"_s,
        u"0:00:01.50,0:00:03.00\nsingle-digit hours\n"_s, // every field is two characters
        u"00:00:01.50,00:00:03.00"_s,                     // no line end, so no text line
        u"[SUBTITLE]"_s,
    };
    for (const QString &text : others) {
        LogCapture log;
        EXPECT_FALSE(VHSubtitle::subtitlesFromSubViewerString(text).has_value()) << text.toStdString();
        EXPECT_TRUE(log.lines().isEmpty()) << text.toStdString();
    }
}

TEST(MicroDVDReader, FramesBecomeSecondsAndBarsBreakLines)
{
    EXPECT_TRUE(cuesAre(microDVD(u"\n   {25}{50}Hi|there   \n\n"_s), {{u"Hi\nthere"_s, 1, 2}}));
}

TEST(MicroDVDReader, FrameRateLineIsAnOrdinaryCueAndStylingCodesStay)
{
    const double fps = 23.976;
    EXPECT_TRUE(cuesAre(microDVD(fixtureText(u"microdvd_frame_rate_first_line.sub"_s), fps),
                        {{u"23.976"_s, 1 / fps, 1 / fps}, {u"{y:i}One\nTwo"_s, 24 / fps, 48 / fps}}));
}

TEST(MicroDVDReader, EndBeforeStartIsClampedLikeAnEdit)
{
    EXPECT_TRUE(cuesAre(microDVD(u"{50}{25}backwards"_s), {{u"backwards"_s, 2, 2}}));
}

TEST(MicroDVDReader, MalformedLineStopsReadingAndKeepsEarlierCues)
{
    LogCapture log;
    EXPECT_TRUE(cuesAre(microDVD(fixtureText(u"microdvd_malformed_third_line.sub"_s)),
                        {{u"First"_s, 0, 1}, {u"Second"_s, 1, 2}}));
    EXPECT_EQ(
        log.lines(),
        QStringList{u"Warning: Parsing fails, in line this line has no frames (%1, %1)"_s.arg(kNotFound)});
}

TEST(MicroDVDReader, WarningNamesThePositionsOfTheFailingBracePair)
{
    struct Case
    {
        QString text;
        QString warning;
    };
    const QList<Case> cases = {
        {u"}1{{2}x"_s, u"Warning: Parsing fails, in line }1{{2}x (2, 0)"_s},
        // The second pair is searched after the first "}", and its positions count from there.
        {u"{10}x}y{"_s, u"Warning: Parsing fails, in line {10}x}y{ (3, 1)"_s},
        {u"{10}"_s, u"Warning: Parsing fails, in line {10} (%1, %1)"_s.arg(kNotFound)},
        {u"1\n00:00:01,000 --> 00:00:02,000\nSubRip"_s,
         u"Warning: Parsing fails, in line 1 (%1, %1)"_s.arg(kNotFound)},
    };
    for (const Case &c : cases) {
        LogCapture log;
        EXPECT_FALSE(microDVD(c.text).has_value()) << c.text.toStdString();
        EXPECT_EQ(log.lines(), QStringList{c.warning});
    }
}

TEST(SubStationAlphaReader, TextIsTheRestOfTheLineAsWritten)
{
    EXPECT_TRUE(cuesAre(
        VHSubtitle::subtitlesFromSubStationAlphaString(fixtureText(u"ssa_text_field_with_commas.ass"_s)),
        {{u"Well, {\\i1}this{\\i0}, keeps commas\\Nand codes"_s, 1.5, 3}, {u"Second"_s, 3723.04, 3725}}));
}

TEST(SubStationAlphaReader, RepeatedFieldNameTakesItsLaterPosition)
{
    EXPECT_TRUE(cuesAre(
        VHSubtitle::subtitlesFromSubStationAlphaString(fixtureText(u"ssa_repeated_start_field.ssa"_s)),
        {{u"Which start"_s, 1, 3}}));
}

TEST(SubStationAlphaReader, DialogueLineNeedsItsLineEnd)
{
    EXPECT_TRUE(cuesAre(VHSubtitle::subtitlesFromSubStationAlphaString(
                            fixtureText(u"ssa_last_dialogue_without_line_end.ssa"_s)),
                        {{u"Ends with a line end"_s, 1, 2}}));
}

TEST(SubStationAlphaReader, TimesFollowTheTimeTextRules)
{
    // The fraction is read character by character and not checked to be digits, so the
    // "a" (49 above "0") adds 0.49 s; hours and minutes may be left out.
    const QString text = u"[Events]\nFormat: Start, End, Text\n"
                         u"Dialogue: 0:00:01.0a,62.5,x,,,,,,,\n"_s;
    EXPECT_TRUE(cuesAre(VHSubtitle::subtitlesFromSubStationAlphaString(text), {{u"x"_s, 1.49, 62.5}}));
}

TEST(SubStationAlphaReader, TextsWithoutUsableEventsGiveNoCueAndNoWarning)
{
    const QString dialogue = u"Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,Hi\n"_s;
    const QStringList others = {
        fixtureText(u"ssa_format_without_text_field.ssa"_s),
        u"Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"_s + dialogue,
        u"[Events]\n"_s + dialogue,
        // Text as an eleventh field lies beyond the ten a Dialogue line yields.
        u"[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Extra, Text\n"_s +
            dialogue,
        u"[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"_s,
    };
    for (const QString &text : others) {
        LogCapture log;
        EXPECT_FALSE(VHSubtitle::subtitlesFromSubStationAlphaString(text).has_value()) << text.toStdString();
        EXPECT_TRUE(log.lines().isEmpty());
    }
}

TEST(PlainTextReader, LinesShareTheLengthOrFollowEveryFourSeconds)
{
    const QString text = u"a\nb\nc"_s;
    EXPECT_TRUE(cuesAre(VHSubtitle::subtitlesFromText(text, 30),
                        {{u"a"_s, 0, 10}, {u"b"_s, 10, 20}, {u"c"_s, 20, 30}}));
    EXPECT_TRUE(
        cuesAre(VHSubtitle::subtitlesFromText(text, 0), {{u"a"_s, 0, 4}, {u"b"_s, 4, 8}, {u"c"_s, 8, 12}}));
    EXPECT_TRUE(
        cuesAre(VHSubtitle::subtitlesFromText(text, -5), {{u"a"_s, 0, 4}, {u"b"_s, 4, 8}, {u"c"_s, 8, 12}}));
}
