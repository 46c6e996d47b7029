// Loading a file: which reader gets to read it. The format is decided by content in a
// fixed order, except that plain text is only read from a file named as one.

#include "FormatTestSupport.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {
QByteArray fixtureBytes(const QString &name)
{
    QFile file(fixturePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}
} // namespace

TEST(LoadingOrder, PlainTextOnlyFromFilesNamedTxtInAnyCase)
{
    LogCapture log;
    ScratchFolder folder;
    const QByteArray bytes = fixtureBytes(u"plain_text_upper_case_extension.TXT"_s);
    EXPECT_TRUE(cuesAre(
        VHSubtitle::subtitlesFromFileAtURL(fixturePath(u"plain_text_upper_case_extension.TXT"_s), 0, 30),
        {{u"First line"_s, 0, 10}, {QString(), 10, 20}, {u"Third line after an empty one"_s, 20, 30}}));
    EXPECT_FALSE(
        VHSubtitle::subtitlesFromFileAtURL(folder.write(u"same_text.dat"_s, bytes), 0, 30).has_value());
    EXPECT_FALSE(VHSubtitle::subtitlesFromFileAtURL(folder.write(u"txt"_s, bytes), 0, 30).has_value());
}

TEST(LoadingOrder, MicroDVDWithoutFrameRateIsTimedAtTwentyFive)
{
    LogCapture log;
    ScratchFolder folder;
    const QString path = folder.write(u"frames.sub"_s, "{25}{50}One\n{100}{150}Two\n");
    EXPECT_TRUE(cuesAre(VHSubtitle::subtitlesFromFileAtURL(path, 0), {{u"One"_s, 1, 2}, {u"Two"_s, 4, 6}}));
    EXPECT_TRUE(
        cuesAre(VHSubtitle::subtitlesFromFileAtURL(path, 50), {{u"One"_s, 0.5, 1}, {u"Two"_s, 2, 3}}));
}

TEST(LoadingOrder, SubRipComesBeforeMicroDVD)
{
    // The first line is a MicroDVD frame-rate cue; MicroDVD alone would make it a cue.
    LogCapture log;
    EXPECT_TRUE(
        cuesAre(VHSubtitle::subtitlesFromFileAtURL(fixturePath(u"subrip_with_microdvd_rate_line.srt"_s)),
                {{u"Hello"_s, 1, 2}}));
}

TEST(LoadingOrder, EarlierReaderWinsWhenSeveralAccept)
{
    const QByteArray events =
        "[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
        "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,SubStationAlpha\n";
    const QByteArray subViewer = "00:00:02.00,00:00:03.00\nSubViewer\n";
    const QByteArray microDVD = "{25}{50}MicroDVD\n";
    struct Case
    {
        const char *name;
        QByteArray bytes;
        CueValues winner;
    };
    const QList<Case> cases = {
        {"a.sub", microDVD + subViewer, {u"SubViewer"_s, 2, 3}},
        {"b.ass", events + subViewer, {u"SubViewer"_s, 2, 3}},
        {"c.ass", microDVD + events, {u"MicroDVD"_s, 1, 2}},
        {"d.txt", events, {u"SubStationAlpha"_s, 1, 2}},
    };
    LogCapture log;
    ScratchFolder folder;
    for (const Case &c : cases)
        EXPECT_TRUE(
            cuesAre(VHSubtitle::subtitlesFromFileAtURL(folder.write(QString::fromLatin1(c.name), c.bytes)),
                    {c.winner}))
            << c.name;
}

TEST(LoadingOrder, RepairRunsOnTheLoadedCues)
{
    LogCapture log;
    EXPECT_TRUE(cuesAre(VHSubtitle::subtitlesFromFileAtURL(fixturePath(u"subviewer_overlapping_cues.sub"_s)),
                        {{u"First"_s, 1, 3}, {u"Second starts inside the first"_s, 3, 4}}));
    EXPECT_EQ(log.count(u"Warning: Correcting subtitle end from 00:00:05,000 to 00:00:03,000"_s), 1);
}

TEST(LoadingOrder, TextNoReaderAcceptsGivesNone)
{
    ScratchFolder folder;
    const QString path = folder.write(u"notes.srt"_s, "Just some notes\nwithout any times\n");
    LogCapture log;
    EXPECT_FALSE(VHSubtitle::subtitlesFromFileAtURL(path).has_value());
    // Only the readers speak: SubRip's rejection and MicroDVD's first malformed line.
    EXPECT_EQ(log.lines(), (QStringList{u"Parsing Warning: Line 0 followed line 0"_s,
                                        u"Warning: Parsing SRT fails in line (2) 'without any times'"_s,
                                        u"Warning: Parsing fails, in line Just some notes "
                                        u"(9223372036854775807, 9223372036854775807)"_s}));
}
