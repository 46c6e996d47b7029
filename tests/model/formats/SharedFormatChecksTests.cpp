// Checks every reader must pass, run over each format: the same cues written in each
// format's own notation must read back alike, whatever the line ends, a byte-order mark,
// large hours or characters outside the Basic Multilingual Plane.

#include "FormatTestSupport.h"
#include "VHVideoText.h"

#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {
using Cues = QList<CueValues>;

// hh:mm:ss<symbol>f... with `digits` fraction digits; hours grow past two digits as needed.
QString clock(double seconds, QChar symbol, int digits, int hourWidth = 2)
{
    const qint64 units = std::llround(seconds * std::pow(10, digits));
    const qint64 perSecond = qint64(std::llround(std::pow(10, digits)));
    const qint64 whole = units / perSecond;
    return u"%1:%2:%3%4%5"_s.arg(whole / 3600, hourWidth, 10, QChar(u'0'))
        .arg(whole / 60 % 60, 2, 10, QChar(u'0'))
        .arg(whole % 60, 2, 10, QChar(u'0'))
        .arg(symbol)
        .arg(units % perSecond, digits, 10, QChar(u'0'));
}

struct FormatCase
{
    const char *name;
    QString extension;
    std::function<QString(const Cues &, const QString &eol)> render;
    std::function<std::optional<SubtitleList>(const QString &text)> read;
    std::function<std::optional<SubtitleList>(const QString &path)> load;
    bool everyLineIsACue = false; // plain text: no times in the file
    bool allowsHoursAbove99 = true;
};

void PrintTo(const FormatCase &c, std::ostream *out)
{
    *out << c.name;
}

const QList<FormatCase> &formatCases()
{
    static const QList<FormatCase> cases = {
        {"SubRip", u"srt"_s,
         [](const Cues &cues, const QString &eol) {
             QString text;
             for (qsizetype i = 0; i < cues.size(); ++i)
                 text += QString::number(i + 1) + eol + clock(cues[i].start, u',', 3) + u" --> "_s +
                         clock(cues[i].end, u',', 3) + eol + cues[i].text + eol + eol;
             return text;
         },
         [](const QString &text) { return VHSubtitle::subtitlesFromSubRipString(text); },
         [](const QString &path) { return VHSubtitle::subtitlesFromFileAtURL(path); }},
        {"SubViewer", u"sub"_s,
         [](const Cues &cues, const QString &eol) {
             QString text = u"[INFORMATION]"_s + eol + u"[TITLE]Sample"_s + eol + u"[END INFORMATION]"_s +
                            eol + u"[SUBTITLE]"_s + eol;
             for (const CueValues &cue : cues)
                 text +=
                     clock(cue.start, u'.', 2) + u',' + clock(cue.end, u'.', 2) + eol + cue.text + eol + eol;
             return text;
         },
         [](const QString &text) { return VHSubtitle::subtitlesFromSubViewerString(text); },
         [](const QString &path) { return VHSubtitle::subtitlesFromFileAtURL(path); }, false, false},
        {"MicroDVD", u"sub"_s,
         [](const Cues &cues, const QString &eol) {
             QString text;
             for (const CueValues &cue : cues)
                 text += u"{%1}{%2}"_s.arg(std::llround(cue.start * 25)).arg(std::llround(cue.end * 25)) +
                         cue.text + eol;
             return text;
         },
         [](const QString &text) { return VHSubtitle::subtitlesFromMicroDVDString(text, 25); },
         [](const QString &path) { return VHSubtitle::subtitlesFromFileAtURL(path, 25); }},
        {"SubStationAlpha", u"ass"_s,
         [](const Cues &cues, const QString &eol) {
             QString text =
                 u"[Script Info]"_s + eol + u"Title: Sample"_s + eol + eol + u"[Events]"_s + eol +
                 u"Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text"_s + eol;
             for (const CueValues &cue : cues)
                 text += u"Dialogue: 0,"_s + clock(cue.start, u'.', 2, 1) + u',' +
                         clock(cue.end, u'.', 2, 1) + u",Default,,0,0,0,,"_s + cue.text + eol;
             return text;
         },
         [](const QString &text) { return VHSubtitle::subtitlesFromSubStationAlphaString(text); },
         [](const QString &path) { return VHSubtitle::subtitlesFromFileAtURL(path); }},
        {"PlainText", u"txt"_s,
         [](const Cues &cues, const QString &eol) {
             QStringList lines;
             for (const CueValues &cue : cues)
                 lines.append(cue.text);
             return lines.join(eol);
         },
         [](const QString &text) { return VHSubtitle::subtitlesFromText(text, 0); },
         [](const QString &path) { return VHSubtitle::subtitlesFromFileAtURL(path); }, true, false},
        {"ChapterMarks", u"vtt"_s,
         [](const Cues &cues, const QString &eol) {
             QString text = u"WEBVTT"_s + eol + eol;
             for (qsizetype i = 0; i < cues.size(); ++i)
                 text += u"Chapter "_s + QString::number(i + 1) + eol + clock(cues[i].start, u'.', 3) +
                         u" --> "_s + clock(cues[i].end, u'.', 3) + eol + cues[i].text + eol + eol;
             return text;
         },
         [](const QString &text) { return VHVideoText::chapterMarksFromVideoTextTracks(text); },
         // The sample's marks already cover 0 to 4.8 s, so the repair leaves them alone.
         [](const QString &path) {
             return VHVideoText::videoTextsFromFileAtURL(path, 4.8, Encodings::None, true);
         }},
    };
    return cases;
}

// Contiguous from 0, in hundredths and whole frames at 25 fps, so every format can hold it.
const Cues kSample = {{u"Hello, world"_s, 0, 1.2}, {u"Smile \U0001F600 and \U0001D11E"_s, 1.2, 4.8}};

class SharedFormatChecks : public ::testing::TestWithParam<FormatCase>
{
protected:
    // What the reader should give for `cues` written with `eol` line ends.
    Cues expected(const Cues &cues, const QString &eol = u"\n"_s) const
    {
        if (!GetParam().everyLineIsACue)
            return cues;
        // Plain text keeps a line's carriage return; times come from the 4-second slots.
        Cues lines;
        for (qsizetype i = 0; i < cues.size(); ++i)
            lines.append({cues[i].text + (i + 1 < cues.size() ? eol.chopped(1) : QString()), 4.0 * double(i),
                          4.0 * double(i + 1)});
        return lines;
    }
    QString render(const Cues &cues, const QString &eol = u"\n"_s) const
    {
        return GetParam().render(cues, eol);
    }

    LogCapture m_log;
};
} // namespace

TEST_P(SharedFormatChecks, EmptyTextGivesNoCue)
{
    for (const QString &text : {QString(), u"\n\n  \n"_s}) {
        const std::optional<SubtitleList> cues = GetParam().read(text);
        if (GetParam().everyLineIsACue)
            // Plain text has no way to tell: every line of it, even an empty one, is a cue.
            EXPECT_TRUE(cues && cues->size() == text.count(u'\n') + 1);
        else
            EXPECT_FALSE(cues.has_value());
    }
}

TEST_P(SharedFormatChecks, ReadsTheSample)
{
    EXPECT_TRUE(cuesAre(GetParam().read(render(kSample)), expected(kSample)));
}

TEST_P(SharedFormatChecks, WindowsLineEndsReadLikeLineFeeds)
{
    const QString crlf = u"\r\n"_s;
    EXPECT_TRUE(cuesAre(GetParam().read(render(kSample, crlf)), expected(kSample, crlf)));
}

TEST_P(SharedFormatChecks, ByteOrderMarkIsNotPartOfTheText)
{
    ScratchFolder folder;
    const QString path =
        folder.write(u"sample."_s + GetParam().extension, "\xEF\xBB\xBF" + render(kSample).toUtf8());
    EXPECT_TRUE(cuesAre(GetParam().load(path), expected(kSample)));
}

TEST_P(SharedFormatChecks, HoursAboveNinetyNine)
{
    if (!GetParam().allowsHoursAbove99)
        GTEST_SKIP() << "the format has no room for three-digit hours";
    const Cues late = {{u"Late"_s, 100 * 3600, 100 * 3600 + 1.2},
                       {u"Later"_s, 1234 * 3600 + 0.4, 1234 * 3600 + 2}};
    EXPECT_TRUE(cuesAre(GetParam().read(render(late)), expected(late)));
}

TEST_P(SharedFormatChecks, CharactersOutsideTheBasicPlaneSurvive)
{
    const Cues astral = {{u"\U0001F3AC"_s, 0, 1.2}, {u"\U00020000\U0001F600\U0001D11E"_s, 1.2, 2}};
    EXPECT_TRUE(cuesAre(GetParam().read(render(astral)), expected(astral)));
}

INSTANTIATE_TEST_SUITE_P(EveryFormat, SharedFormatChecks, ::testing::ValuesIn(formatCases()),
                         [](const ::testing::TestParamInfo<FormatCase> &info) { return info.param.name; });
