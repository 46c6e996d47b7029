// Checks every reader must pass, run over each format: the same cues written in each
// format's own notation (tests/data/model/sample_<format>.*) must read back alike, whatever
// the line ends, a byte-order mark, large hours or characters outside the Basic
// Multilingual Plane.

#include "CueAssertions.h"
#include "Log.h"
#include "TestSupport.h"
#include "VHVideoText.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {
struct FormatCase
{
    const char *name;
    QString sample;    // the fixture with kSample
    QString lateHours; // the fixture with kLateHours; none when the format has no room for them
    std::function<std::optional<SubtitleList>(const QString &text)> read;
    // Loading a file of the format; subtitle loading unless given.
    std::function<std::optional<SubtitleList>(const QString &path)> load = [](const QString &path) {
        return VHSubtitle::subtitlesFromFileAtURL(path);
    };
};

void PrintTo(const FormatCase &c, std::ostream *out)
{
    *out << c.name;
}

const QList<FormatCase> kFormats = {
    {"SubRip", u"sample_subrip.srt"_s, u"late_hours_subrip.srt"_s,
     [](const QString &text) { return VHSubtitle::subtitlesFromSubRipString(text); }},
    {"SubViewer", u"sample_subviewer.sub"_s, {},
     [](const QString &text) { return VHSubtitle::subtitlesFromSubViewerString(text); }},
    // Loading times it at the default 25 frames a second.
    {"MicroDVD", u"sample_microdvd.sub"_s, u"late_hours_microdvd.sub"_s,
     [](const QString &text) { return VHSubtitle::subtitlesFromMicroDVDString(text, 25); }},
    {"SubStationAlpha", u"sample_ssa.ass"_s, u"late_hours_ssa.ass"_s,
     [](const QString &text) { return VHSubtitle::subtitlesFromSubStationAlphaString(text); }},
    {"ChapterMarks", u"sample_chapters.vtt"_s, u"late_hours_chapters.vtt"_s,
     [](const QString &text) { return VHVideoText::chapterMarksFromVideoTextTracks(text); },
     // The sample's marks already cover 0 to 4.8 s, so the repair leaves them alone.
     [](const QString &path) { return VHVideoText::videoTextsFromFileAtURL(path, 4.8, Encodings::None, true); }},
};

// Contiguous from 0, in hundredths and whole frames at 25 fps, so every format can hold it.
const QList<CueValues> kSample = {{u"\U0001F3AC Hello, world"_s, 0, 1.2},
                                  {u"Smile \U0001F600 and \U0001D11E\U00020000"_s, 1.2, 4.8}};
const QList<CueValues> kLateHours = {{u"Late"_s, 100 * 3600, 100 * 3600 + 1.2},
                                     {u"Later"_s, 1234 * 3600 + 0.4, 1234 * 3600 + 2}};

class SharedFormatChecks : public ::testing::TestWithParam<FormatCase>
{
protected:
    QByteArray sample() const { return fixtureBytes(u"model"_s, GetParam().sample); }

    LogCapture m_log;
};
} // namespace

TEST_P(SharedFormatChecks, EmptyTextGivesNoCue)
{
    EXPECT_FALSE(GetParam().read(QString()).has_value());
    EXPECT_FALSE(GetParam().read(u"\n\n  \n"_s).has_value());
}

TEST_P(SharedFormatChecks, ReadsTheSampleWithEitherLineEnd)
{
    EXPECT_TRUE(cuesAre(GetParam().read(QString::fromUtf8(sample())), kSample));
    EXPECT_TRUE(cuesAre(GetParam().read(QString::fromUtf8(sample().replace("\n", "\r\n"))), kSample));
}

TEST_P(SharedFormatChecks, ByteOrderMarkIsNotPartOfTheText)
{
    TempDir dir;
    EXPECT_TRUE(cuesAre(GetParam().load(dir.write(GetParam().sample, "\xEF\xBB\xBF" + sample())), kSample));
}

TEST_P(SharedFormatChecks, HoursAboveNinetyNine)
{
    if (GetParam().lateHours.isEmpty())
        GTEST_SKIP() << "the format has no room for three-digit hours";
    EXPECT_TRUE(cuesAre(GetParam().read(QString::fromUtf8(fixtureBytes(u"model"_s, GetParam().lateHours))), kLateHours));
}

INSTANTIATE_TEST_SUITE_P(EveryFormat, SharedFormatChecks, ::testing::ValuesIn(kFormats),
                         [](const ::testing::TestParamInfo<FormatCase> &info) { return info.param.name; });
