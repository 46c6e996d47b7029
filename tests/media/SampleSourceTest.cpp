// The sample sources: timing repair, gap filling, display flags, language from the file
// name, and the samples handed out.
#include "CTSubtitleReader.h"
#include "Log.h"
#include "MovieTestSupport.h"
#include "TestSupport.h"
#include "TimedTextSamples.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QStringList timesOf(const CTSubtitleReader &reader)
{
    QStringList out;
    for (const SubtitlePtr &cue : reader.subtitles())
        out.append(u"%1-%2 %3"_s.arg(cue->start(), 0, 'f', 2).arg(cue->end(), 0, 'f', 2).arg(cue->string()));
    return out;
}
} // namespace

TEST(SubtitleReader, RepairsTimingAndFillsGaps)
{
    TempDir dir;
    struct Case
    {
        const char *name;
        QList<TestCue> cues;
        double duration;
        QStringList expected;
    } cases[] = {
        {"a cue within one frame after the previous end moves onto it",
         {{1, 2, u"A"_s}, {2.02, 3, u"B"_s}},
         100,
         {u"0.00-1.00 "_s, u"1.00-2.00 A"_s, u"2.00-2.98 B"_s}},
        {"a larger gap gets a filler",
         {{1, 2, u"A"_s}, {2.05, 3, u"B"_s}},
         100,
         {u"0.00-1.00 "_s, u"1.00-2.00 A"_s, u"2.00-2.05 "_s, u"2.05-3.00 B"_s}},
        {"an end beyond the movie is cut, a start beyond it removes the cue",
         {{0, 1, u"A"_s}, {9, 12, u"B"_s}, {11, 12, u"C"_s}},
         10,
         {u"0.00-1.00 A"_s, u"1.00-9.00 "_s, u"9.00-10.00 B"_s}},
        {"a cue shorter than one frame is dropped",
         {{0, 1, u"A"_s}, {5, 5.03, u"short"_s}, {6, 7, u"C"_s}},
         100,
         {u"0.00-1.00 A"_s, u"1.00-6.00 "_s, u"6.00-7.00 C"_s}},
    };
    for (const Case &c : cases) {
        LogCapture log;
        const QString path = writeSubRip(dir.path(u"movie.en.srt"_s), c.cues);
        std::unique_ptr<CTSubtitleReader> reader = CTSubtitleReader::initForFile(path, 25, c.duration);
        ASSERT_TRUE(reader) << c.name;
        EXPECT_EQ(timesOf(*reader), c.expected) << c.name;
        EXPECT_EQ(reader->languageCode(), u"en"_s);
    }
    LogCapture log;
    const QString path = writeSubRip(dir.path(u"movie.srt"_s), {{0, 1, u"A"_s}, {5, 5.03, u"short"_s}});
    ASSERT_TRUE(CTSubtitleReader::initForFile(path, 25, 100));
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].startsWith(u"Warning: Zero duration subtitle 00:00:05,000 --> "_s))
        << log.lines()[0].toStdString();
}

TEST(SubtitleReader, ForcedFlagsAndSamples)
{
    TempDir dir;
    auto write = [&](const QString &name, bool secondForced) {
        const SubtitleList cues = {VHSubtitle::create(u"A"_s, 1, 2, true),
                                   VHSubtitle::create(u"B"_s, 3, 4, secondForced)};
        EXPECT_TRUE(VHSubtitle::writeSubtitles(cues, dir.path(name)));
        return dir.path(name);
    };
    // The SubRip reader never applies the marker of a file's last cue; a trailing time line
    // without text (dropped) lets the last real cue keep its own.
    const QString all = dir.write(u"all.en.srt"_s, "1\n00:00:01,000 --> 00:00:02,000 !!!\nA\n\n"
                                                   "2\n00:00:03,000 --> 00:00:04,000 !!!\nB\n\n"
                                                   "3\n00:00:05,000 --> 00:00:06,000\n\n");
    const QString some = write(u"some.en.srt"_s, false);
    const QString none = dir.write(u"none.en.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nA\n");
    EXPECT_EQ(CTSubtitleReader::initForFile(some, 25, 100)->displayFlags(), 0x40000000u);
    EXPECT_EQ(CTSubtitleReader::initForFile(none, 25, 100)->displayFlags(), 0u);

    std::unique_ptr<CTSubtitleReader> reader = CTSubtitleReader::initForFile(all, 25, 100);
    ASSERT_TRUE(reader);
    EXPECT_EQ(reader->displayFlags(), 0xC0000000u);
    EXPECT_EQ(reader->copyFormatDescription().left(4), QByteArray::fromHex("c0000000"));
    QList<TextSample> samples;
    while (std::optional<TextSample> sample = reader->copyNextSampleBuffer())
        samples.append(*sample);
    // Filler, A, filler, B: the fillers are never forced.
    ASSERT_EQ(samples.size(), 4);
    EXPECT_EQ(samples[0].payload, QByteArray::fromHex("0000"));
    EXPECT_EQ(samples[1].payload, QByteArray::fromHex("0001410000000866726364"));
    EXPECT_EQ(samples[2].payload, QByteArray::fromHex("0000"));
    EXPECT_TRUE(samples[3].payload.endsWith("frcd"));
    EXPECT_EQ(samples[1].start, 600);
    EXPECT_EQ(samples[1].duration, 600);
    EXPECT_EQ(samples[2].start, 1200);
    EXPECT_EQ(samples[2].duration, 600);
    EXPECT_FALSE(reader->copyNextSampleBuffer());
    EXPECT_FALSE(reader->copyNextSampleBuffer());
}

TEST(SubtitleReader, LanguageFromTheFileNameAndMetadata)
{
    TempDir dir;
    const QList<TestCue> cues = {{1, 2, u"A"_s}};
    struct Case
    {
        QString name;
        QString language;
    } cases[] = {{u"movie.en.srt"_s, u"en"_s},
                 {u"movie.eng.srt"_s, u"en"_s},
                 {u"movie.ger.srt"_s, u"de"_s},
                 {u"movie.srt"_s, u""_s}};
    for (const Case &c : cases) {
        std::unique_ptr<CTSubtitleReader> reader =
            CTSubtitleReader::initForFile(writeSubRip(dir.path(c.name), cues), 25, 100);
        ASSERT_TRUE(reader);
        EXPECT_EQ(reader->languageCode(), c.language) << c.name.toStdString();
        ASSERT_EQ(reader->metadata().size(), 1);
        EXPECT_EQ(reader->metadata()[0].second, CTSubtitleReader::TranscribesSpokenDialog);
    }
}

TEST(SubtitleReader, UnreadableFilesGiveNoReader)
{
    TempDir dir;
    LogCapture log;
    EXPECT_FALSE(CTSubtitleReader::initForFile(dir.write(u"empty.srt"_s, ""), 25, 100));
    EXPECT_FALSE(CTSubtitleReader::initForFile(dir.write(u"junk.srt"_s, "not a subtitle\n"), 25, 100));
    EXPECT_FALSE(CTSubtitleReader::initForFile(dir.path(u"missing.srt"_s), 25, 100));
    EXPECT_FALSE(CTTextReader::initForFile(dir.write(u"junk.vtt"_s, "WEBVTT\n\nnonsense\n"), 25, 100));
}

TEST(TextReader, ChapterSamples)
{
    TempDir dir;
    const QString path = dir.write(u"movie.vtt"_s, "WEBVTT\n\n1\n00:00:00.000 --> 00:00:10.000\nIntro\n\n"
                                                   "2\n00:00:10.000 --> 00:00:20.000\nMain\n");
    std::unique_ptr<CTTextReader> reader = CTTextReader::initForFile(path, 25, 30);
    ASSERT_TRUE(reader);
    EXPECT_FALSE(reader->isSubtitleTrack());
    EXPECT_TRUE(reader->metadata().isEmpty());
    QList<TextSample> samples;
    while (std::optional<TextSample> sample = reader->copyNextSampleBuffer())
        samples.append(*sample);
    ASSERT_GE(samples.size(), 1);
    EXPECT_EQ(samples[0].payload.size(), 26);
    EXPECT_TRUE(samples[0].payload.endsWith(QByteArray::fromHex("0000000c656e636400000100")));
    EXPECT_EQ(samples[0].duration, 6000);
    // The description says "do not display".
    EXPECT_EQ(reader->copyFormatDescription().left(4), QByteArray::fromHex("00000001"));
}

// Dropping cues past the movie's end and cues shorter than a frame is one pass over the
// list: 300,000 of each took over 8 minutes (one list removal per cue), which the test
// time limit would stop.
TEST(SubtitleReader, DropsHundredsOfThousandsOfCuesInOnePass)
{
    TempDir dir;
    constexpr int count = 300'000;
    QByteArray text;
    text.reserve(count * 2 * 48);
    int number = 0;
    auto append = [&](double start, double end, const char *line) {
        text.append(QByteArray::number(++number)).append('\n');
        text.append(VHSubtitle::formatedTime(start).toLatin1()).append(" --> ");
        text.append(VHSubtitle::formatedTime(end).toLatin1()).append('\n').append(line).append("\n\n");
    };
    append(0, 1, "Kept");
    // Shorter than a frame at 25 fps, all within the movie.
    for (int i = 0; i < count; ++i)
        append(2 + i * 0.05, 2 + i * 0.05 + 0.01, "short");
    // Past the movie's end.
    for (int i = 0; i < count; ++i)
        append(20'000 + i, 20'000 + i + 0.5, "late");
    const QString path = dir.write(u"movie.en.srt"_s, text);
    LogCapture log;
    std::unique_ptr<CTSubtitleReader> reader = CTSubtitleReader::initForFile(path, 25, 19'000);
    ASSERT_TRUE(reader);
    EXPECT_EQ(timesOf(*reader), (QStringList{u"0.00-1.00 Kept"_s}));
    EXPECT_EQ(log.lines().size(), count);

    // The chapter-marks source shares the pass: marks past the movie's end.
    QByteArray marks = "WEBVTT\n\n";
    auto vttTime = [](double seconds) {
        return VHSubtitle::formatedTime(seconds).toLatin1().replace(',', '.');
    };
    for (int i = 0; i < count; ++i)
        marks.append(vttTime(i ? 20 + i : 0)).append(" --> ").append(vttTime(21 + i)).append("\nMark\n\n");
    const QString chapters = dir.write(u"movie.vtt"_s, marks);
    std::unique_ptr<CTTextReader> chapterReader = CTTextReader::initForFile(chapters, 25, 10);
    ASSERT_TRUE(chapterReader);
    EXPECT_EQ(timesOf(*chapterReader), (QStringList{u"0.00-10.00 Mark"_s}));
}
