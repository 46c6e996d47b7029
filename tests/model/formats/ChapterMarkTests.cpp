// Chapter marks: the repair that makes marks cover the movie, the WebVTT writer and the
// marks' change notification. Their reader is with the other readers.

#include "CueAssertions.h"
#include "Log.h"
#include "NotificationCenter.h"
#include "TestSupport.h"
#include "VHVideoText.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {
SubtitleList marksStartingAt(const QList<double> &starts)
{
    SubtitleList marks;
    for (double start : starts)
        marks.append(VHVideoText::create(u"at %1"_s.arg(start), start, start + 1));
    return marks;
}

} // namespace

TEST(ChapterRepair, MarksBecomeContiguousFromZeroToTheMovieEnd)
{
    struct Case
    {
        QList<double> starts;
        double length;
        QList<std::pair<double, double>> times;
    };
    const Case cases[] = {
        {{5, 60, 3000}, 1200, {{0, 60}, {60, 3000}, {3000, 3000}}}, // a mark beyond the movie stays
        {{0, 500, 300}, 1200, {{0, 300}, {300, 300}, {300, 1200}}}, // out of order: pulled back
        {{}, 1200, {{0, 1200}}},                                    // one untitled mark
        {{10, 20}, std::numeric_limits<double>::quiet_NaN(), {{0, 20}, {20, 20}}}, // unknown length: last start
    };
    for (const Case &c : cases) {
        SubtitleList marks = marksStartingAt(c.starts);
        VHVideoText::correctChapterMarks(marks, c.length);
        QList<std::pair<double, double>> times;
        for (const SubtitlePtr &mark : marks)
            times.append({mark->start(), mark->end()});
        EXPECT_EQ(times, c.times);
    }
    // Loading repairs the marks it reads, which are chapter marks.
    const auto loaded = VHVideoText::videoTextsFromFileAtURL(
        fixturePath(u"model"_s, u"chapters_subrip_times_last_beyond_movie.vtt"_s), 1200, Encodings::None, true);
    EXPECT_TRUE(cuesAre(loaded, {{u"One"_s, 0, 60}, {u"Two"_s, 60, 3000}, {u"Beyond the movie"_s, 3000, 3000}}));
    for (const SubtitlePtr &mark : loaded.value_or(SubtitleList()))
        EXPECT_NE(std::dynamic_pointer_cast<VHVideoText>(mark), nullptr);
}

TEST(ChapterWriter, WritesNumberedWebVTTChaptersWithoutTheForcedFlag)
{
    const SubtitleList marks = {VHVideoText::create(u"Intro"_s, 0, 61.5, true),
                                VHVideoText::create(u"End"_s, 61.5, 3723.045)};
    const QByteArray expected = "WEBVTT\n\nChapter 1\n00:00:00.000 --> 00:01:01.500\nIntro\n\n"
                                "Chapter 2\n00:01:01.500 --> 01:02:03.045\nEnd\n\n";
    TempDir dir;
    ASSERT_TRUE(VHVideoText::writeVideoText(marks, dir.path(u"unix.vtt"_s)));
    EXPECT_EQ(dir.read(u"unix.vtt"_s), expected);
    ASSERT_TRUE(VHVideoText::writeVideoText(marks, dir.path(u"windows.vtt"_s), Encodings::None, true));
    EXPECT_EQ(dir.read(u"windows.vtt"_s), QByteArray(expected).replace("\n", "\r\n"));
}

TEST(ChapterWriter, FailedWriteLeavesTheOldFileAndSaysWhy)
{
    TempDir dir;
    const QString path = dir.write(u"chapters.vtt"_s, "old contents");
    LogCapture log;
    constexpr EncodingId kUnknownEncoding = 0xFFFF;
    EXPECT_FALSE(VHVideoText::writeVideoText(marksStartingAt({0}), path, kUnknownEncoding, false));
    EXPECT_EQ(dir.read(u"chapters.vtt"_s), "old contents");
    EXPECT_FALSE(VHVideoText::writeVideoText(marksStartingAt({0}), dir.path(QString())));
    ASSERT_EQ(log.lines().size(), 2);
    for (const QString &line : log.lines())
        EXPECT_TRUE(line.startsWith(u"Warning: Could not save file, because: "_s) && line.size() > 40)
            << line.toStdString();
}

TEST(ChapterNotifications, EveryTimeChangePostsTimeChanged)
{
    const VideoTextPtr mark = VHVideoText::create(u"m"_s, 10, 20);
    QStringList posted;
    const auto record = [&](const Notification &n) { posted.append(n.name); };
    NotificationCenter &center = NotificationCenter::defaultCenter();
    ScopedObserver timeChanged(center.addObserver(VHVideoText::TimeChangedNotification, mark.get(), record));
    ScopedObserver startReduced(center.addObserver(VHSubtitle::StartReducedNotification, mark.get(), record));

    mark->setStart(5); // the end moves first, through setEnd()
    EXPECT_EQ(posted,
              (QStringList{u"VHSubtitleStartReduced"_s, u"VHVideoTextTimeChanged"_s, u"VHVideoTextTimeChanged"_s}));
    EXPECT_DOUBLE_EQ(mark->end(), 15);
    posted.clear();
    mark->setEnd(1);
    mark->setDuration(3);
    mark->replaceStart(0, 1); // re-timing without propagation stays silent
    EXPECT_EQ(posted, (QStringList{u"VHVideoTextTimeChanged"_s, u"VHVideoTextTimeChanged"_s}));
}
