// Loading a file: which reader gets to read it. The format is decided by content in a
// fixed order, except that plain text is only read from a file named as one.

#include "CueAssertions.h"
#include "Log.h"
#include "TestSupport.h"

using namespace Qt::StringLiterals;

TEST(LoadingOrder, TheFirstReaderInOrderThatAcceptsTheTextWins)
{
    const QByteArray plain = fixtureBytes(u"model"_s, u"plain_text_upper_case_extension.TXT"_s);
    const QByteArray events =
        "[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
        "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,SubStationAlpha\n";
    const QByteArray subViewer = "00:00:02.00,00:00:03.00\nSubViewer\n";
    const QByteArray microDVD = "{25}{50}MicroDVD\n{100}{150}Two\n";
    struct Case
    {
        QString name;
        QByteArray bytes;
        double fps;
        QList<CueValues> cues; // none: no reader accepts the file
    };
    const Case cases[] = {
        // Plain text only from a file named .txt, in any case; every line is a cue.
        {u"upper.TXT"_s,
         plain,
         0,
         {{u"First line"_s, 0, 10}, {{}, 10, 20}, {u"Third line after an empty one"_s, 20, 30}}},
        {u"same_text.dat"_s, plain, 0, {}},
        {u"txt"_s, plain, 0, {}},
        // MicroDVD without a frame rate is timed at 25 frames a second.
        {u"a.sub"_s, microDVD, 0, {{u"MicroDVD"_s, 1, 2}, {u"Two"_s, 4, 6}}},
        {u"b.sub"_s, microDVD, 50, {{u"MicroDVD"_s, 0.5, 1}, {u"Two"_s, 2, 3}}},
        // SubRip before MicroDVD: the first line would be a MicroDVD frame-rate cue.
        {u"c.srt"_s,
         fixtureBytes(u"model"_s, u"subrip_with_microdvd_rate_line.srt"_s),
         0,
         {{u"Hello"_s, 1, 2}}},
        {u"d.sub"_s, microDVD + subViewer, 0, {{u"SubViewer"_s, 2, 3}}},
        {u"e.ass"_s, events + subViewer, 0, {{u"SubViewer"_s, 2, 3}}},
        {u"f.ass"_s, microDVD + events, 0, {{u"MicroDVD"_s, 1, 2}, {u"Two"_s, 4, 6}}},
        {u"g.txt"_s, events, 0, {{u"SubStationAlpha"_s, 1, 2}}},
    };
    LogCapture log;
    TempDir dir;
    for (const Case &c : cases) {
        const auto cues = VHSubtitle::subtitlesFromFileAtURL(dir.write(c.name, c.bytes), c.fps, 30);
        if (c.cues.isEmpty())
            EXPECT_FALSE(cues.has_value()) << c.name.toStdString();
        else
            EXPECT_TRUE(cuesAre(cues, c.cues)) << c.name.toStdString();
    }
}

TEST(LoadingOrder, RepairRunsOnTheLoadedCues)
{
    LogCapture log;
    EXPECT_TRUE(cuesAre(
        VHSubtitle::subtitlesFromFileAtURL(fixturePath(u"model"_s, u"subviewer_overlapping_cues.sub"_s)),
        {{u"First"_s, 1, 3}, {u"Second starts inside the first"_s, 3, 4}}));
    EXPECT_EQ(log.count(u"Warning: Correcting subtitle end from 00:00:05,000 to 00:00:03,000"_s), 1);
}

TEST(LoadingOrder, TextNoReaderAcceptsGivesNone)
{
    TempDir dir;
    const QString path = dir.write(u"notes.srt"_s, "Just some notes\nwithout any times\n");
    LogCapture log;
    EXPECT_FALSE(VHSubtitle::subtitlesFromFileAtURL(path).has_value());
    // Only the readers speak: SubRip's rejection and MicroDVD's first malformed line.
    EXPECT_EQ(log.lines(), (QStringList{u"Parsing Warning: Line 0 followed line 0"_s,
                                        u"Warning: Parsing SRT fails in line (2) 'without any times'"_s,
                                        u"Warning: Parsing fails, in line Just some notes "
                                        u"(9223372036854775807, 9223372036854775807)"_s}));
}

TEST(LoadingOrder, TheLoaderSaysWhichEncodingItReadTheFileIn)
{
    const QByteArray cue = "1\n00:00:01,000 --> 00:00:02,000\nCaf\xc3\xa9\n";
    QByteArray utf16 = "\xff\xfe";
    for (QChar c : QString::fromUtf8(cue)) {
        utf16 += char(c.unicode() & 0xff);
        utf16 += char(c.unicode() >> 8);
    }
    struct Case
    {
        const char *name;
        QByteArray bytes;
        EncodingId asked;
        bool optional;
        EncodingId used;
    };
    const Case cases[] = {
        {"strict UTF-8, nothing asked", cue, Encodings::None, true, Encodings::UTF8},
        {"a byte-order mark beats the suggestion", utf16, Encodings::ISOLatin1, true, Encodings::UTF16},
        {"asked for and decoding", "1\n00:00:01,000 --> 00:00:02,000\nCaf\xe9\n", Encodings::ISOLatin1, false,
         Encodings::ISOLatin1},
        {"suggested, when not UTF-8", "1\n00:00:01,000 --> 00:00:02,000\nCaf\xe9\n", Encodings::ISOLatin1,
         true, Encodings::ISOLatin1},
    };
    TempDir dir;
    LogCapture log;
    for (const Case &c : cases) {
        EncodingId used = Encodings::None;
        const auto cues =
            VHSubtitle::subtitlesFromFileAtURL(dir.write(u"a.srt"_s, c.bytes), 0, 10, c.asked, c.optional,
                                               VHSubtitle::Salvage::Never, nullptr, &used);
        ASSERT_TRUE(cues.has_value()) << c.name;
        EXPECT_EQ(cues->first()->string(), u"Café"_s) << c.name;
        EXPECT_EQ(used, c.used) << c.name;
    }
}
