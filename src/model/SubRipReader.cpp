#include "SubRipReader.h"

#include "Log.h"
#include "TimeText.h"

#include <QVarLengthArray>

#include <algorithm>
#include <climits>

using namespace Qt::StringLiterals;

QList<QStringView> splitSubtitleLines(const QString &text)
{
    const QStringView view(text);
    QList<QStringView> lines = view.split(u'\n');
    if (lines.size() == 1)
        lines = view.split(u'\r');
    return lines;
}

namespace {
// 0 at the start; 1 after a number line; 2 after blanks following a number; 3 after a time
// or text line; 4 after blanks following state 3.
enum State { Start = 0, AfterNumber = 1, BlankAfterNumber = 2, InCue = 3, BlankInCue = 4 };

// The first occurrence of a three-character marker ("-->", "!!!"). Searching for its first
// character and checking the next two is much cheaper than a general substring search, and
// this runs on nearly every line.
qsizetype indexOfMarker(QStringView text, const char16_t (&marker)[4])
{
    for (qsizetype from = 0;;) {
        const qsizetype found = text.indexOf(QChar(marker[0]), from);
        if (found < 0 || found + 2 >= text.size())
            return -1;
        if (text[found + 1] == marker[1] && text[found + 2] == marker[2])
            return found;
        from = found + 1;
    }
}

QString formatted(double seconds)
{
    return VHSubtitle::formatedTime(seconds);
}
} // namespace

std::optional<SubtitleList> readSubRipText(const QString &text, const SubRipDialect &dialect,
                                           QList<SkippedLine> *skipped)
{
    const bool quiet = skipped != nullptr;
    // Lines are taken one at a time from the text rather than split into a list first:
    // same lines, without a second copy of the file's structure in memory.
    const QStringView all(text);
    const char16_t separator = all.contains(u'\n') ? u'\n' : u'\r';
    SubtitleList result;

    int state = Start;
    // The pending text is kept as its lines, views into `text`, and made into one string of
    // exactly its size when its cue is finished: growing a string line by line cost two
    // allocations per cue and left every cue holding spare capacity.
    QVarLengthArray<QStringView, 8> pendingLines;
    bool hasPending = false; // pending text is "none" until the first time line
    double pendingStart = 0, pendingEnd = 0;
    bool pendingForced = false;
    qint64 lastNumber = 0;

    auto appendText = [&](QStringView line) {
        pendingLines.append(line);
        // Lines after the first are extra lines; the warning comes from the fifth on.
        if (pendingLines.size() > 5 && !quiet)
            logLine(u"Parsing Warning: More then 4 Lines in one subtitle (%1)"_s.arg(logExcerpt(line)));
    };
    auto pendingText = [&]() {
        if (pendingLines.isEmpty())
            return QString();
        qsizetype size = pendingLines.size() - 1;
        for (const QStringView line : pendingLines)
            size += line.size();
        QString joined(size, Qt::Uninitialized);
        QChar *out = joined.data();
        for (qsizetype i = 0; i < pendingLines.size(); ++i) {
            if (i > 0)
                *out++ = u'\n';
            out = std::copy(pendingLines[i].begin(), pendingLines[i].end(), out);
        }
        return joined;
    };

    auto numberLine = [&](qint64 number) {
        // Printed unsigned, as this warning has always shown its numbers: a negative cue
        // number appears as its 64-bit two's complement.
        if ((lastNumber == LLONG_MAX || number != lastNumber + 1) && !quiet)
            logLine(
                u"Parsing Warning: Line %1 followed line %2"_s.arg(quint64(number)).arg(quint64(lastNumber)));
        lastNumber = number;
        state = AfterNumber;
    };

    qsizetype index = 0; // 0-based number of the current line
    for (qsizetype from = 0; from <= all.size(); ++index) {
        qsizetype to = all.indexOf(separator, from);
        if (to < 0)
            to = all.size();
        const QStringView line = all.sliced(from, to - from).trimmed();
        from = to + 1;
        if (line.isEmpty()) {
            state = state == Start ? Start : (state >= InCue ? BlankInCue : BlankAfterNumber);
            continue;
        }
        if (state == InCue) {
            appendText(line);
            continue;
        }
        const qsizetype arrow = indexOfMarker(line, u"-->");
        if (arrow >= 0) {
            const QStringView startText = line.first(arrow);
            QStringView endText = line.sliced(arrow + 3);
            const qsizetype marker = indexOfMarker(endText, u"!!!");
            const bool forced = marker >= 0;
            if (forced)
                endText = endText.first(marker);
            const double start =
                TimeText::parse(startText, dialect.decimalSymbol, dialect.alternateDecimalSymbol);
            const double end =
                TimeText::parse(endText, dialect.decimalSymbol, dialect.alternateDecimalSymbol);
            if (start < pendingEnd && !quiet)
                logLine(u"Parsing Warning: Line '%1' starts %2 before last end %3"_s.arg(
                    logExcerpt(line), formatted(start), formatted(pendingEnd)));
            if (end < start && !quiet)
                logLine(u"Parsing Warning: Line '%1' ends %2 before it starts %3"_s.arg(
                    logExcerpt(line), formatted(end), formatted(start)));
            if (hasPending)
                result.append(dialect.makeCue(pendingText(), pendingStart, pendingEnd, pendingForced));
            hasPending = true;
            pendingLines.clear();
            pendingStart = start;
            pendingEnd = end;
            pendingForced = forced;
            state = InCue;
            continue;
        }
        if (dialect.chapterNumberLines) {
            const qsizetype chapter = line.indexOf(u"chapter", 0, Qt::CaseInsensitive);
            if (chapter >= 0) {
                numberLine(TimeText::leadingInteger(line.sliced(chapter + 7)));
                continue;
            }
        }
        const qint64 value = TimeText::leadingInteger(line);
        if (value < 1 && state != Start) {
            if (state == BlankInCue) {
                appendText(line);
                continue;
            }
            if (skipped) {
                // The state stays: the text lines of a cue whose time line was lost cannot be
                // placed either, and go with it, up to the next blank line and number.
                skipped->append({index + 1, line.toString()});
                continue;
            }
            logLine(u"Warning: Parsing SRT fails in line (%1) '%2'"_s.arg(index + 1).arg(logExcerpt(line)));
            return std::nullopt;
        }
        numberLine(value);
    }

    if (!pendingLines.isEmpty())
        result.append(dialect.makeCue(pendingText(), pendingStart, pendingEnd, false));
    if (result.isEmpty())
        return std::nullopt;
    return result;
}
