#include "VHSubtitle.h"

#include "Log.h"
#include "SubtitleSalvage.h"
#include "TimeText.h"

using namespace Qt::StringLiterals;

namespace {
// A missing position is logged as the "not found" index of the platform this format's
// warning was first written for (the largest signed 64-bit integer), so that log lines
// match those of files converted there.
constexpr quint64 kNotFound = 9223372036854775807ULL;

// The first "{" and the first "}" of a text; usable when "{" stands before "}".
struct BracePair
{
    qsizetype open;
    qsizetype close;

    explicit BracePair(QStringView text)
        : open(text.indexOf(u'{'))
        , close(text.indexOf(u'}'))
    {}
    bool usable() const { return open >= 0 && close >= 0 && open < close; }
    qint64 number(QStringView text) const
    {
        return TimeText::leadingInteger(text.sliced(open + 1, close - open - 1));
    }
    static quint64 logged(qsizetype position) { return position < 0 ? kNotFound : quint64(position); }
    void logFailure(QStringView line) const
    {
        // One multi-argument arg(): the line is inserted as read, even when it holds "%2".
        logLine(u"Warning: Parsing fails, in line %1 (%2, %3)"_s.arg(
            logExcerpt(line), QString::number(logged(open)), QString::number(logged(close))));
    }
};
} // namespace

namespace {
// Reads "{start}{end}text" lines. The strict pass (no `skipped`) logs the first malformed line
// and stops there; the tolerant pass records every malformed line and reads on.
SubtitleList readMicroDVD(const QString &text, double fps, QList<SkippedLine> *skipped)
{
    const double frameLength = 1 / fps;
    SubtitleList result;
    qsizetype number = 0;
    for (const QStringView rawLine : QStringView(text).tokenize(u'\n')) {
        ++number;
        const QStringView line = rawLine.trimmed();
        if (line.isEmpty())
            continue;
        const BracePair first(line);
        const QStringView rest = first.usable() ? line.sliced(first.close + 1) : QStringView();
        const BracePair second(rest);
        if (!first.usable() || !second.usable()) {
            if (skipped) {
                skipped->append({number, line.toString()});
                continue;
            }
            (first.usable() ? second : first).logFailure(line);
            break;
        }
        QString string = rest.sliced(second.close + 1).toString();
        string.replace(u'|', u'\n');
        // Built through the setters, so the end is clamped to the start like an edit would be.
        auto cue = std::make_shared<VHSubtitle>();
        cue->setStart(double(first.number(line)) * frameLength);
        cue->setEnd(double(second.number(rest)) * frameLength);
        cue->setString(string);
        result.append(std::move(cue));
    }
    return result;
}
} // namespace

std::optional<SubtitleList> VHSubtitle::subtitlesFromMicroDVDString(const QString &text, double fps)
{
    SubtitleList result = readMicroDVD(text, fps, nullptr);
    if (result.isEmpty())
        return std::nullopt;
    return result;
}

TolerantRead readMicroDVDTolerantly(const QString &text, double fps)
{
    TolerantRead read;
    read.cues = readMicroDVD(text, fps, &read.skipped);
    return read;
}
