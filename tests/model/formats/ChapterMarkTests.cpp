// Chapter marks: the chapter dialect of the line reader, the repair that makes marks cover
// the movie, the WebVTT writer and the marks' change notification.

#include "FormatTestSupport.h"
#include "NotificationCenter.h"
#include "VHVideoText.h"

#include <QFile>

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

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

TEST(ChapterReader, HeaderCountsAsNumberZeroAndMarksAreChapterMarks)
{
    LogCapture log;
    const std::optional<SubtitleList> marks =
        VHVideoText::chapterMarksFromVideoTextTracks(fixtureText(u"chapters_webvtt_header.vtt"_s));
    EXPECT_TRUE(cuesAre(marks, {{u"Intro"_s, 0, 60}, {u"End"_s, 60, 1200}}));
    EXPECT_EQ(log.lines(), QStringList{u"Parsing Warning: Line 0 followed line 0"_s});
    for (const SubtitlePtr &mark : marks.value_or(SubtitleList()))
        EXPECT_NE(std::dynamic_pointer_cast<VHVideoText>(mark), nullptr);
}

TEST(ChapterReader, ChapterLinesNumberMarksWhereSubRipWouldNotAccept)
{
    LogCapture log;
    // "chapter 0" after a blank line inside a mark: SubRip would take it as text.
    EXPECT_TRUE(cuesAre(
        VHVideoText::chapterMarksFromVideoTextTracks(fixtureText(u"chapters_number_zero_after_text.vtt"_s)),
        {{u"Intro"_s, 0, 10}, {u"After a zero"_s, 10, 20}}));
    EXPECT_EQ(log.count(u"Parsing Warning: Line 0 followed line 1"_s), 1);
    // A chapter line right after a number line; SubRip would reject the whole text.
    EXPECT_TRUE(cuesAre(
        VHVideoText::chapterMarksFromVideoTextTracks(u"Chapter 3\nChapter 7\n00:00:01.5 --> 2,25\nx\n"_s),
        {{u"x"_s, 1.5, 2.25}}));
    EXPECT_EQ(log.count(u"Parsing Warning: Line 3 followed line 0"_s), 1);
    EXPECT_EQ(log.count(u"Parsing Warning: Line 7 followed line 3"_s), 1);
}

TEST(ChapterReader, NegativeNumbersAreLoggedUnsigned)
{
    LogCapture log;
    EXPECT_TRUE(
        cuesAre(VHVideoText::chapterMarksFromVideoTextTracks(u"-2\n00:00:01.000 --> 00:00:02.000\nx\n"_s),
                {{u"x"_s, 1, 2}}));
    EXPECT_EQ(log.lines(), QStringList{u"Parsing Warning: Line 18446744073709551614 followed line 0"_s});
}

TEST(ChapterReader, ChapterLineDirectlyUnderATimeIsTitleText)
{
    EXPECT_TRUE(cuesAre(VHVideoText::chapterMarksFromVideoTextTracks(
                            u"Chapter 1\n00:00:00.000 --> 00:00:05.000 !!!\nChapter 1 title\n\n"
                            u"Chapter 2\n00:00:05.000 --> 00:00:09.000 !!!\nLast\n"_s),
                        {{u"Chapter 1 title"_s, 0, 5, true}, {u"Last"_s, 5, 9, false}}));
}

TEST(ChapterReader, FilesWithoutMarksOrWithUnplaceableLinesGiveNone)
{
    LogCapture log;
    EXPECT_FALSE(VHVideoText::chapterMarksFromVideoTextTracks(QString()).has_value());
    EXPECT_FALSE(
        VHVideoText::chapterMarksFromVideoTextTracks(fixtureText(u"chapters_only_header.vtt"_s)).has_value());
    log.clear();
    EXPECT_FALSE(VHVideoText::chapterMarksFromVideoTextTracks(fixtureText(u"chapters_unplaceable_line.vtt"_s))
                     .has_value());
    EXPECT_EQ(log.count(u"Warning: Parsing SRT fails in line (4) 'not a time line'"_s), 1);
}

TEST(ChapterRepair, MarksBecomeContiguousFromZeroToTheMovieEnd)
{
    struct Case
    {
        QList<double> starts;
        double length;
        QList<std::pair<double, double>> times;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const QList<Case> cases = {
        {{5, 60, 3000}, 1200, {{0, 60}, {60, 3000}, {3000, 3000}}}, // a mark beyond the movie stays
        {{0, 500, 300}, 1200, {{0, 300}, {300, 300}, {300, 1200}}}, // out of order: pulled back
        {{}, 1200, {{0, 1200}}},                                    // one untitled mark
        {{10, 20}, nan, {{0, 20}, {20, 20}}},                       // unknown length: last start
    };
    for (const Case &c : cases) {
        SubtitleList marks = marksStartingAt(c.starts);
        VHVideoText::correctChapterMarks(marks, c.length);
        ASSERT_EQ(marks.size(), c.times.size());
        for (qsizetype i = 0; i < marks.size(); ++i) {
            EXPECT_DOUBLE_EQ(marks[i]->start(), c.times[i].first)
                << "mark " << i << " of case " << c.times.size();
            EXPECT_DOUBLE_EQ(marks[i]->end(), c.times[i].second)
                << "mark " << i << " of case " << c.times.size();
        }
    }
}

TEST(ChapterRepair, LoadingRepairsTheMarksItReads)
{
    EXPECT_TRUE(cuesAre(
        VHVideoText::videoTextsFromFileAtURL(fixturePath(u"chapters_subrip_times_last_beyond_movie.vtt"_s),
                                             1200, Encodings::None, true),
        {{u"One"_s, 0, 60}, {u"Two"_s, 60, 3000}, {u"Beyond the movie"_s, 3000, 3000}}));
}

TEST(ChapterWriter, WritesNumberedWebVTTChapters)
{
    const SubtitleList marks = {VHVideoText::create(u"Intro"_s, 0, 61.5, true),
                                VHVideoText::create(u"End"_s, 61.5, 3723.045)};
    const QString expected = u"WEBVTT\n\nChapter 1\n00:00:00.000 --> 00:01:01.500\nIntro\n\n"
                             u"Chapter 2\n00:01:01.500 --> 01:02:03.045\nEnd\n\n"_s;
    ScratchFolder folder;
    ASSERT_TRUE(VHVideoText::writeVideoText(marks, folder.path(u"unix.vtt"_s)));
    EXPECT_EQ(fileBytes(folder.path(u"unix.vtt"_s)), expected.toUtf8());
    ASSERT_TRUE(VHVideoText::writeVideoText(marks, folder.path(u"windows.vtt"_s), Encodings::None, true));
    EXPECT_EQ(fileBytes(folder.path(u"windows.vtt"_s)),
              QString(expected).replace(u"\n"_s, u"\r\n"_s).toUtf8());

    // Reading back gives the same marks; the forced flag is not written.
    EXPECT_TRUE(cuesAre(
        VHVideoText::videoTextsFromFileAtURL(folder.path(u"windows.vtt"_s), 3723.045, Encodings::None, true),
        {{u"Intro"_s, 0, 61.5}, {u"End"_s, 61.5, 3723.045}}));
}

TEST(ChapterWriter, FailedWriteLeavesTheOldFileAndSaysWhy)
{
    ScratchFolder folder;
    const QString path = folder.write(u"chapters.vtt"_s, "old contents");
    LogCapture log;
    constexpr EncodingId kUnknownEncoding = 0xFFFF;
    EXPECT_FALSE(VHVideoText::writeVideoText(marksStartingAt({0}), path, kUnknownEncoding, false));
    EXPECT_EQ(fileBytes(path), "old contents");
    EXPECT_FALSE(VHVideoText::writeVideoText(marksStartingAt({0}), folder.path(QString())));
    ASSERT_EQ(log.lines().size(), 2);
    for (const QString &line : log.lines())
        EXPECT_TRUE(line.startsWith(u"Warning: Could not save file, because: "_s) && line.size() > 40)
            << line.toStdString();
}

TEST(ChapterNotifications, EveryTimeChangePostsTimeChanged)
{
    const VideoTextPtr mark = VHVideoText::create(u"m"_s, 10, 20);
    QStringList posted;
    auto record = [&](const Notification &n) {
        if (n.object == mark.get())
            posted.append(n.name);
    };
    ScopedObserver timeChanged(NotificationCenter::defaultCenter().addObserver(
        VHVideoText::TimeChangedNotification, nullptr, record));
    ScopedObserver startReduced(NotificationCenter::defaultCenter().addObserver(
        VHSubtitle::StartReducedNotification, nullptr, record));

    mark->setStart(5); // the end moves first, through setEnd()
    EXPECT_EQ(posted, (QStringList{u"VHSubtitleStartReduced"_s, u"VHVideoTextTimeChanged"_s,
                                   u"VHVideoTextTimeChanged"_s}));
    EXPECT_DOUBLE_EQ(mark->end(), 15);
    posted.clear();
    mark->setEnd(1);
    mark->setDuration(3);
    mark->replaceStart(0, 1); // re-timing without propagation stays silent
    EXPECT_EQ(posted, (QStringList{u"VHVideoTextTimeChanged"_s, u"VHVideoTextTimeChanged"_s}));
}
