#include "VHSubtitle.h"

#include "ReaderPattern.h"
#include "SubtitleSalvage.h"
#include "TimeText.h"

using namespace Qt::StringLiterals;

namespace {
// One SubViewer cue: "hh:mm:ss.cc,hh:mm:ss.cc", a line end, and the one text line below.
// Every field is exactly two characters wide.
const QRegularExpression &cuePattern()
{
    static const QRegularExpression pattern =
        readerPattern(uR"((..):(..):(..)\.(..),\s*(..):(..):(..)\.(..)\s*\r?\n(.*))");
    return pattern;
}

// A time pair as hand-edited files write it: one- or two-digit fields and one to three
// decimals, alone on its line. The strict pattern's pairs are among these.
const QRegularExpression &looseTimePattern()
{
    static const QRegularExpression pattern = readerPattern(
        uR"(^(\d{1,2}):(\d{1,2}):(\d{1,2})\.(\d{1,3})\s*,\s*(\d{1,2}):(\d{1,2}):(\d{1,2})\.(\d{1,3})$)");
    return pattern;
}

double looseTimeAt(const QRegularExpressionMatch &match, int first)
{
    auto field = [&](int i) { return TimeText::leadingDouble(match.capturedView(first + i)); };
    const QStringView decimals = match.capturedView(first + 3);
    double fraction = 0;
    for (qsizetype i = decimals.size() - 1; i >= 0; --i)
        fraction = (decimals[i].unicode() - u'0' + fraction) / 10;
    return field(0) * 3600 + field(1) * 60 + field(2) + fraction;
}

// Fields `first`..`first + 3` of a match as hours, minutes, seconds and hundredths.
double timeAt(const QRegularExpressionMatch &match, int first)
{
    auto field = [&](int i) { return TimeText::leadingDouble(match.capturedView(first + i)); };
    return field(0) * 3600 + field(1) * 60 + field(2) + field(3) / 100;
}
} // namespace

std::optional<SubtitleList> VHSubtitle::subtitlesFromSubViewerString(const QString &text)
{
    // Cues follow the "[SUBTITLE]" marker; the information block above it can hold
    // anything, including text that looks like a time pair.
    static const QString marker = u"[SUBTITLE]"_s;
    const qsizetype markerAt = text.indexOf(marker);
    const qsizetype from = markerAt < 0 ? 0 : markerAt + marker.size();

    SubtitleList result;
    QRegularExpressionMatchIterator matches = cuePattern().globalMatch(text, from);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        QString string = match.captured(9);
        string.replace(u"[br]"_s, u"\n"_s);
        result.append(std::make_shared<VHSubtitle>(string, timeAt(match, 1), timeAt(match, 5)));
    }
    if (result.isEmpty())
        return std::nullopt;
    return result;
}

TolerantRead readSubViewerTolerantly(const QString &text)
{
    // Line by line from the marker on: a time pair takes the line below it as its text;
    // every other line that is not blank cannot be placed.
    static const QString marker = u"[SUBTITLE]"_s;
    const qsizetype markerAt = text.indexOf(marker);
    const qsizetype from = markerAt < 0 ? 0 : markerAt + marker.size();
    const qsizetype firstLine = QStringView(text).first(from).count(u'\n') + 1;

    TolerantRead read;
    read.reason = QString::fromLatin1(QT_TRANSLATE_NOOP("SubtitleSalvage", "found no cue"));
    const QList<QStringView> lines = QStringView(text).sliced(from).split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QStringView line = lines[i].trimmed();
        if (line.isEmpty())
            continue;
        const QRegularExpressionMatch match = looseTimePattern().match(line);
        if (!match.hasMatch()) {
            read.skipped.append({firstLine + i, line.toString()});
            continue;
        }
        QString string;
        if (i + 1 < lines.size()) {
            QStringView below = lines[++i];
            if (below.endsWith(u'\r'))
                below.chop(1);
            string = below.toString();
            string.replace(u"[br]"_s, u"\n"_s);
        }
        read.cues.append(std::make_shared<VHSubtitle>(string, looseTimeAt(match, 1), looseTimeAt(match, 5)));
    }
    return read;
}
