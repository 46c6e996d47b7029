// Salvage: a file that no reader accepts still loads as nothing by default; asked for, the
// tolerant passes read the cues they can place and say which line stopped which reader.

#include "CueAssertions.h"
#include "Log.h"
#include "SubtitleSalvage.h"
#include "TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QList<qsizetype> numbersOf(const QList<SkippedLine> &skipped)
{
    QList<qsizetype> numbers;
    for (const SkippedLine &line : skipped)
        numbers << line.number;
    return numbers;
}

QString stopsOf(const QList<ReaderStop> &stops)
{
    QStringList parts;
    for (const ReaderStop &stop : stops)
        parts << (stop.line > 0 ? u"%1@%2"_s.arg(stop.reader).arg(stop.line)
                                : stop.reader + u": "_s + stop.reason);
    return parts.join(u" | "_s);
}
} // namespace

TEST(Salvage, ATypoInA900LineSubRipFileStillLoadsAsNothingByDefault)
{
    LogCapture log;
    const QString path = fixturePath(u"model"_s, u"typo_in_time_line_900_lines.srt"_s);
    EXPECT_FALSE(VHSubtitle::subtitlesFromFileAtURL(path).has_value());
    EXPECT_FALSE(
        VHSubtitle::subtitlesFromFileAtURL(path, 0, 0, Encodings::None, true, VHSubtitle::Salvage::Never)
            .has_value());
    EXPECT_EQ(log.count(u"Warning: Parsing SRT fails in line (412) '00:07:02,636 - > 00:07:04,792'"_s), 2);
    EXPECT_TRUE(log.lines().filter(u"Skipped"_s).isEmpty());
}

TEST(Salvage, ATypoInA900LineSubRipFileLosesOnlyItsOwnCue)
{
    LogCapture log;
    const QString path = fixturePath(u"model"_s, u"typo_in_time_line_900_lines.srt"_s);
    bool salvaged = false;
    const auto cues = VHSubtitle::subtitlesFromFileAtURL(path, 0, 0, Encodings::None, true,
                                                         VHSubtitle::Salvage::Always, &salvaged);
    ASSERT_TRUE(cues.has_value());
    EXPECT_TRUE(salvaged);
    ASSERT_EQ(cues->size(), 224);
    EXPECT_EQ(cues->at(0)->string(), u"Line 1 of the film\nwith a second\nand a third line"_s);
    EXPECT_EQ(cues->at(101)->string(), u"Line 102 of the film"_s);
    EXPECT_EQ(cues->at(102)->string(), u"Line 104 of the film"_s);
    EXPECT_EQ(cues->at(102)->start(), 60 + 103 * 1.8);
    EXPECT_EQ(cues->last()->string(), u"Line 225 of the film"_s);

    // The strict pass says where it stopped once; the tolerant pass names each line it left
    // out and repeats none of the reader's other warnings.
    EXPECT_EQ(log.lines().filter(u"Parsing SRT fails"_s).size(), 1);
    EXPECT_EQ(log.count(u"Info: SubRip stopped at line 412 '00:07:02,636 - > 00:07:04,792'"_s), 1);
    EXPECT_EQ(log.count(u"Warning: Skipped line (412) '00:07:02,636 - > 00:07:04,792'"_s), 1);
    EXPECT_EQ(log.count(u"Warning: Skipped line (413) 'Line 103 of the film'"_s), 1);
    EXPECT_EQ(log.count(u"Info: Read 224 cues of '%1' as SubRip, leaving out 2 lines"_s.arg(path)), 1);
    EXPECT_TRUE(log.lines().filter(u"Parsing Warning"_s).isEmpty()) << log.lines().join(u'\n').toStdString();

    // Written out, the salvaged cues make a file every reader rule accepts as it is.
    const auto again = VHSubtitle::subtitlesFromSubRipString(VHSubtitle::subRipText(*cues, false));
    ASSERT_TRUE(again.has_value());
    EXPECT_EQ(again->size(), 224);
}

TEST(Salvage, EachReaderSkipsWhatItCannotPlaceAndTheFullestReadingWins)
{
    struct Case
    {
        const char *name;
        QByteArray text;
        QString reader;
        QList<CueValues> cues;
        QList<qsizetype> skipped;
        QString stops;
    };
    const Case cases[] = {
        {"SubRip: a number and no time line",
         "1\n00:00:01,000 --> 00:00:02,000\nOne\n\n2\nno time line\nfor this one\n\n"
         "3\n00:00:05,000 --> 00:00:06,000\nThree\n",
         u"SubRip"_s,
         {{u"One"_s, 1, 2}, {u"Three"_s, 5, 6}},
         {6, 7},
         u"SubRip@6 | SubViewer: found no cue | MicroDVD@1 | SubStationAlpha: found no [Events] section"_s},
        {"SubRip: a text line starting with a number after a blank line inside a cue",
         "5\n00:00:10,000 --> 00:00:12,000\nHe said\n\n3 days later\nhe came back\n\n"
         "6\n00:00:13,000 --> 00:00:14,000\nSix\n",
         u"SubRip"_s,
         {{u"He said"_s, 10, 12}, {u"Six"_s, 13, 14}},
         {6},
         u"SubRip@6 | SubViewer: found no cue | MicroDVD@1 | SubStationAlpha: found no [Events] section"_s},
        {"SubRip: a blank line between number and text",
         "1\n00:00:01,000 --> 00:00:02,000\nOne\n\n2\n\nlost\n\n3\n00:00:05,000 --> 00:00:06,000\nThree\n",
         u"SubRip"_s,
         {{u"One"_s, 1, 2}, {u"Three"_s, 5, 6}},
         {7},
         u"SubRip@7 | SubViewer: found no cue | MicroDVD@1 | SubStationAlpha: found no [Events] section"_s},
        {"MicroDVD: a header line and a broken brace",
         "# typed by hand\n{25}{50}One\n{75}(100}Two\n{125}{150}Three|lines\n",
         u"MicroDVD"_s,
         {{u"One"_s, 1, 2}, {u"Three\nlines"_s, 5, 6}},
         {1, 3},
         u"SubRip@2 | SubViewer: found no cue | MicroDVD@1 | SubStationAlpha: found no [Events] section"_s},
        {"SubViewer: one-digit hours and one-digit decimals",
         "[INFORMATION]\n[SUBTITLE]\n0:00:01.5,0:00:03.0\nHello[br]World\n\n0:00:04.25, 0:00:05.125\nTwo\n"
         "garbage\n",
         u"SubViewer"_s,
         {{u"Hello\nWorld"_s, 1.5, 3}, {u"Two"_s, 4.25, 5.125}},
         {8},
         u"SubRip@2 | SubViewer: found no cue | MicroDVD@1 | SubStationAlpha: found no [Events] section"_s},
        {"SubStationAlpha: no Format line, a short Dialogue line, the last without a line end",
         "[Script Info]\nTitle: x\n\n[Events]\nDialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,One, two\n"
         "Dialogue: 0,0:00:03.00,Default,Broken\nDialogue: 0,0:00:05.00,0:00:06.50,Default,,0,0,0,,Three",
         u"SubStationAlpha"_s,
         {{u"One, two"_s, 1, 2}, {u"Three"_s, 5, 6.5}},
         {6},
         u"SubRip@2 | SubViewer: found no cue | MicroDVD@1 | SubStationAlpha: found no Format line under [Events]"_s},
        {"SubStationAlpha: a Format line of five fields",
         "[Events]\nFormat: Layer, Start, End, Style, Text\nDialogue: 0,0:00:01.00,0:00:02.00,Default,One, "
         "two\n"
         "Dialogue: 0,0:00:04.00\n",
         u"SubStationAlpha"_s,
         {{u"One, two"_s, 1, 2}},
         {4},
         u"SubRip@2 | SubViewer: found no cue | MicroDVD@1 | SubStationAlpha@4"_s},
    };
    LogCapture log;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        const QString text = QString::fromUtf8(c.text);
        // The strict readers all refuse these texts...
        ASSERT_FALSE(VHSubtitle::subtitlesFromSubRipString(text).has_value());
        ASSERT_FALSE(VHSubtitle::subtitlesFromSubViewerString(text).has_value());
        ASSERT_FALSE(VHSubtitle::subtitlesFromMicroDVDString(text, 25).has_value());
        ASSERT_FALSE(VHSubtitle::subtitlesFromSubStationAlphaString(text).has_value());
        // ...and the tolerant passes keep what they can place.
        const std::optional<SalvagedSubtitles> salvaged = salvageSubtitles(text, 25);
        ASSERT_TRUE(salvaged.has_value());
        EXPECT_EQ(salvaged->reader, c.reader);
        EXPECT_TRUE(cuesAre(salvaged->cues, c.cues));
        EXPECT_EQ(numbersOf(salvaged->skipped), c.skipped);
        EXPECT_EQ(stopsOf(salvaged->stops), c.stops);
    }
}

TEST(Salvage, TextsNoTolerantPassCanPlaceGiveNothingAndAcceptedTextsAreNeverSalvaged)
{
    LogCapture log;
    for (const char *text :
         {"", "\n\n", "1\nno time line follows the number\n", "just some words\nand more\n",
          "[Events]\nFormat: Layer, Start, End, Style, Text\n"})
        EXPECT_FALSE(salvageSubtitles(QString::fromUtf8(text), 25).has_value()) << text;

    // A missing blank line makes the next cue part of the text, as the SubRip rules read
    // it; the file is accepted, so there is nothing to salvage and nothing is flagged.
    TempDir dir;
    const QString merged = dir.write(
        u"merged.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nOne\n2\n00:00:03,000 --> 00:00:04,000\nTwo\n");
    bool salvaged = true;
    EXPECT_TRUE(cuesAre(VHSubtitle::subtitlesFromFileAtURL(merged, 0, 0, Encodings::None, true,
                                                           VHSubtitle::Salvage::Always, &salvaged),
                        {{u"One\n2\n00:00:03,000 --> 00:00:04,000\nTwo"_s, 1, 2}}));
    EXPECT_FALSE(salvaged);
    // MicroDVD keeps the cues before its first malformed line: accepted, not salvaged.
    const QString stopped = dir.write(u"stopped.sub"_s, "{25}{50}One\n{75}(100}Two\n{125}{150}Three\n");
    EXPECT_TRUE(cuesAre(VHSubtitle::subtitlesFromFileAtURL(stopped, 0, 0, Encodings::None, true,
                                                           VHSubtitle::Salvage::Always, &salvaged),
                        {{u"One"_s, 1, 2}}));
    EXPECT_FALSE(salvaged);
}

TEST(Salvage, AskingShowsWhichLineStoppedWhichReaderAndCancelLoadsNothing)
{
    LogCapture log;
    ScriptedPrompter prompter;
    ScopedPrompter scope(&prompter);
    const QString path = fixturePath(u"model"_s, u"typo_in_time_line_900_lines.srt"_s);
    bool salvaged = true;
    prompter.answers << PromptAnswer{1, 0, false};
    EXPECT_FALSE(VHSubtitle::subtitlesFromFileAtURL(path, 0, 0, Encodings::None, true,
                                                    VHSubtitle::Salvage::Ask, &salvaged)
                     .has_value());
    EXPECT_FALSE(salvaged);
    ASSERT_EQ(prompter.prompts.size(), 1);
    const Prompt &prompt = prompter.prompts[0];
    EXPECT_EQ(prompt.message, u"No reader accepts this subtitle file."_s);
    EXPECT_EQ(prompt.buttons, (QStringList{u"Load the 224 lines that could be read"_s, u"Cancel"_s}));
    EXPECT_EQ(prompt.informative, u"SubRip stopped at line 412: “00:07:02,636 - > 00:07:04,792”\n"
                                  u"SubViewer found no cue.\n"
                                  u"MicroDVD stopped at line 1: “1”\n"
                                  u"SubStationAlpha found no [Events] section.\n\n"
                                  u"Read as SubRip, leaving out 2 line(s) it cannot place. Saving writes a "
                                  u"clean file."_s);
    EXPECT_TRUE(log.lines().filter(u"Skipped"_s).isEmpty());

    prompter.answers << PromptAnswer{0, 0, false};
    const auto cues = VHSubtitle::subtitlesFromFileAtURL(path, 0, 0, Encodings::None, true,
                                                         VHSubtitle::Salvage::Ask, &salvaged);
    ASSERT_TRUE(cues.has_value());
    EXPECT_EQ(cues->size(), 224);
    EXPECT_TRUE(salvaged);
    EXPECT_EQ(log.lines().filter(u"Warning: Skipped line"_s).size(), 2);
}
