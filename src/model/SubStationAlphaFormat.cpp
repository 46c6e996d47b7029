#include "VHSubtitle.h"

#include "ReaderPattern.h"
#include "SubtitleSalvage.h"
#include "TimeText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
// A Dialogue line captures ten fields: nine without commas and the rest of the line,
// which is the cue text in every common field order and may itself hold commas.
constexpr int kDialogueFields = 10;

const QRegularExpression &formatPattern()
{
    static const QRegularExpression pattern = readerPattern(uR"(Format\s*:(.*)\r?\n)");
    return pattern;
}

const QRegularExpression &dialoguePattern()
{
    static const QRegularExpression pattern = readerPattern(
        uR"(Dialogue\s*:\s*([^,]*),([^,]*),([^,]*),([^,]*),([^,]*),([^,]*),([^,]*),([^,]*),([^,]*),(.*)\r?\n)");
    return pattern;
}

// Positions (0-based) of the fields the reader needs in the Format line's list.
struct FieldOrder
{
    qsizetype start = -1;
    qsizetype end = -1;
    qsizetype text = -1;
    qsizetype count = kDialogueFields; // fields of a line; the last one takes the rest

    explicit FieldOrder(QStringView formatList)
    {
        const QList<QStringView> names = formatList.split(u',');
        count = names.size();
        for (qsizetype i = 0; i < names.size(); ++i) {
            // A repeated name moves its field: the later position counts.
            const QString name = names[i].trimmed().toString().toLower();
            if (name == u"start")
                start = i;
            else if (name == u"end")
                end = i;
            else if (name == u"text")
                text = i;
        }
    }
    FieldOrder(qsizetype start, qsizetype end, qsizetype text, qsizetype count)
        : start(start)
        , end(end)
        , text(text)
        , count(count)
    {}
    bool complete() const { return start >= 0 && end >= 0 && text >= 0; }
    qsizetype highest() const { return std::max({start, end, text}); }
};

double timeOf(QStringView field)
{
    // h:mm:ss.cc reads right: "." is the alternate decimal symbol of cue times.
    return TimeText::parse(field, u",", u".");
}
} // namespace

std::optional<SubtitleList> VHSubtitle::subtitlesFromSubStationAlphaString(const QString &text)
{
    static const QString events = u"[Events]"_s;
    const qsizetype eventsAt = text.indexOf(events);
    if (eventsAt < 0)
        return std::nullopt;
    // The style section has a Format line of its own; only the one under [Events] counts.
    const QRegularExpressionMatch format = formatPattern().match(text, eventsAt + events.size());
    if (!format.hasMatch())
        return std::nullopt;
    const FieldOrder order(format.capturedView(1));
    // Field i of the Format line is capture i + 1 of a Dialogue match; a field named
    // beyond the captured ones cannot be read from any line.
    if (!order.complete() || order.highest() >= kDialogueFields)
        return std::nullopt;

    SubtitleList result;
    QRegularExpressionMatchIterator lines = dialoguePattern().globalMatch(text, format.capturedEnd(0));
    while (lines.hasNext()) {
        const QRegularExpressionMatch line = lines.next();
        auto field = [&](qsizetype position) { return line.capturedView(int(position) + 1); };
        result.append(std::make_shared<VHSubtitle>(field(order.text).toString(), timeOf(field(order.start)),
                                                   timeOf(field(order.end))));
    }
    if (result.isEmpty())
        return std::nullopt;
    return result;
}

namespace {
// "Name:" at the start of a line (white space allowed before the colon); the rest of the
// line after the colon, or none.
std::optional<QStringView> afterKey(QStringView line, QStringView name)
{
    if (!line.startsWith(name))
        return std::nullopt;
    const QStringView rest = line.sliced(name.size()).trimmed();
    if (!rest.startsWith(u':'))
        return std::nullopt;
    return rest.sliced(1);
}
} // namespace

TolerantRead readSubStationAlphaTolerantly(const QString &text)
{
    // Line by line. Without an [Events] section the whole text is searched; without a
    // usable Format line the fields are taken in the order both SubStation versions write
    // by default (Layer or Marked, Start, End, Style, Name, MarginL, MarginR, MarginV,
    // Effect, Text). Unlike the strict reader's pattern of ten fields, a line has as many
    // fields as the Format line names, the last taking the rest; a Dialogue line with fewer
    // cannot be placed.
    TolerantRead read;
    static const QString events = u"[Events]"_s;
    const qsizetype eventsAt = text.indexOf(events);
    const qsizetype from = eventsAt < 0 ? 0 : eventsAt + events.size();
    if (eventsAt < 0)
        read.reason = QString::fromLatin1(QT_TRANSLATE_NOOP("SubtitleSalvage", "found no [Events] section"));
    const qsizetype firstLine = QStringView(text).first(from).count(u'\n') + 1;

    FieldOrder order(1, 2, 9, kDialogueFields);
    bool formatSeen = false;
    const QList<QStringView> lines = QStringView(text).sliced(from).split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QStringView line = lines[i].trimmed();
        if (!formatSeen) {
            if (const std::optional<QStringView> fields = afterKey(line, u"Format")) {
                formatSeen = true;
                const FieldOrder given(*fields);
                if (given.complete())
                    order = given;
                else if (read.reason.isEmpty())
                    read.reason = QString::fromLatin1(QT_TRANSLATE_NOOP(
                        "SubtitleSalvage", "found no Start, End and Text in its Format line"));
                continue;
            }
        }
        const std::optional<QStringView> dialogue = afterKey(line, u"Dialogue");
        if (!dialogue)
            continue;
        QList<QStringView> fields;
        QStringView rest = dialogue->trimmed();
        while (fields.size() < order.count - 1) {
            const qsizetype comma = rest.indexOf(u',');
            if (comma < 0)
                break;
            fields.append(rest.first(comma));
            rest = rest.sliced(comma + 1);
        }
        if (fields.size() < order.count - 1) {
            read.skipped.append({firstLine + i, line.toString()});
            continue;
        }
        fields.append(rest);
        read.cues.append(std::make_shared<VHSubtitle>(
            fields[order.text].toString(), timeOf(fields[order.start]), timeOf(fields[order.end])));
    }
    if (!formatSeen && read.reason.isEmpty())
        read.reason =
            QString::fromLatin1(QT_TRANSLATE_NOOP("SubtitleSalvage", "found no Format line under [Events]"));
    if (read.reason.isEmpty() && read.skipped.isEmpty())
        read.reason = QString::fromLatin1(QT_TRANSLATE_NOOP("SubtitleSalvage", "found no Dialogue line"));
    return read;
}
