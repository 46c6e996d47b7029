#include "VHSubtitle.h"

#include "ReaderPattern.h"
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
