#include "VHVideoText.h"

#include "AtomicFile.h"
#include "Log.h"
#include "NotificationCenter.h"
#include "SubRipReader.h"
#include "VHTimeValueTransformer.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

const QString VHVideoText::TimeChangedNotification = u"VHVideoTextTimeChanged"_s;

void VHVideoText::setStart(double start)
{
    VHSubtitle::setStart(start);
    NotificationCenter::defaultCenter().post(TimeChangedNotification, this);
}

void VHVideoText::setEnd(double end)
{
    VHSubtitle::setEnd(end);
    NotificationCenter::defaultCenter().post(TimeChangedNotification, this);
}

const VHTimeValueTransformer &VHVideoText::timeFormatter()
{
    static const VHTimeValueTransformer formatter = [] {
        VHTimeValueTransformer t;
        t.setDecimalSymbol(u"."_s);
        return t;
    }();
    return formatter;
}

std::optional<SubtitleList> VHVideoText::chapterMarksFromVideoTextTracks(const QString &text)
{
    static const SubRipDialect dialect{
        timeFormatter().decimalSymbol(), timeFormatter().alternateDecimalSymbol(), true,
        [](const QString &string, double start, double end, bool forced) -> SubtitlePtr {
            return std::make_shared<VHVideoText>(string, start, end, forced);
        }};
    return readSubRipText(text, dialect);
}

std::optional<SubtitleList> VHVideoText::videoTextsFromFileAtURL(const QString &path, double length,
                                                                 EncodingId encoding, bool encodingIsOptional)
{
    const std::optional<QString> text = stringWithContentsOfURL(path, encoding, encodingIsOptional);
    if (!text)
        return std::nullopt;
    std::optional<SubtitleList> marks = chapterMarksFromVideoTextTracks(*text);
    if (!marks)
        return std::nullopt;
    correctChapterMarks(*marks, length);
    return marks;
}

void VHVideoText::correctChapterMarks(SubtitleList &marks, double length)
{
    if (marks.isEmpty())
        marks.append(create(QString(), 0, 0));
    // Through the setter, so the first mark keeps its duration before its end is fitted.
    marks.first()->setStart(0);
    // A last mark that starts beyond the movie stays where it is, with zero length.
    const double lastStart = marks.last()->start();
    double limit = std::isnan(length) ? lastStart : std::max(length, lastStart);
    for (qsizetype i = marks.size() - 1; i >= 0; --i) {
        VHSubtitle &mark = *marks[i];
        if (mark.start() > limit)
            mark.setStart(limit);
        mark.setEnd(limit);
        limit = mark.start();
    }
}

QString VHVideoText::webVTTText(const SubtitleList &marks, bool useWindowsLineBreak)
{
    const QString &symbol = timeFormatter().decimalSymbol();
    QString text = u"WEBVTT\n\n"_s;
    qsizetype estimate = text.size();
    for (const SubtitlePtr &mark : marks)
        estimate += mark->string().size() + 56;
    text.reserve(estimate);
    quint32 number = 0;
    for (const SubtitlePtr &mark : marks) {
        text.append(u"Chapter ");
        text.append(QString::number(++number));
        text.append(u'\n');
        VHTimeValueTransformer::appendTime(text, mark->start(), symbol);
        text.append(u" --> ");
        VHTimeValueTransformer::appendTime(text, mark->end(), symbol);
        text.append(u'\n');
        text.append(mark->string());
        text.append(u"\n\n");
    }
    if (useWindowsLineBreak)
        text.replace(u"\n"_s, u"\r\n"_s);
    return text;
}

bool VHVideoText::writeVideoText(const SubtitleList &marks, const QString &path, EncodingId encoding,
                                 bool useWindowsLineBreak)
{
    return writeSubtitleText(webVTTText(marks, useWindowsLineBreak), path, encoding);
}

bool VHVideoText::writeVideoText(const SubtitleList &marks, const QString &path)
{
    return writeVideoText(marks, path, Encodings::UTF8, false);
}
