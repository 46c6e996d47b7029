#include "VHSubtitle.h"

#include "ReaderPattern.h"
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

    explicit FieldOrder(QStringView formatList)
    {
        const QList<QStringView> names = formatList.split(u',');
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
