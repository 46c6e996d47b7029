#include "NumberOptions.h"

#include "VHSubtitle.h"
#include "VHTimeValueTransformer.h"

#include <QLocale>
#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace NumberOptions {

std::optional<double> parseNumber(QStringView text)
{
    text = text.trimmed();
    if (text.isEmpty() || text.count(u',') + text.count(u'.') > 1)
        return std::nullopt;
    QString number = text.toString();
    number.replace(u',', u'.');
    QLocale c = QLocale::c();
    c.setNumberOptions(QLocale::RejectGroupSeparator);
    bool ok = false;
    const double value = c.toDouble(number, &ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<Fix> parseFix(QStringView text)
{
    const qsizetype eq = text.indexOf(u'=');
    if (eq <= 0)
        return std::nullopt;
    const QStringView indexText = text.first(eq).trimmed();
    const QStringView timeText = text.sliced(eq + 1).trimmed();
    if (indexText.isEmpty() || timeText.isEmpty())
        return std::nullopt;
    for (const QChar c : indexText)
        if (c < u'0' || c > u'9')
            return std::nullopt;
    bool indexOk = false;
    const qlonglong index = indexText.toLongLong(&indexOk);
    if (!indexOk || index < 0)
        return std::nullopt;

    double time = 0;
    if (timeText.contains(u':')) {
        // Minutes and seconds, or hours, minutes and seconds, with an optional fraction.
        static const QRegularExpression form(u"^\\d+(:\\d+){1,2}([.,]\\d+)?$"_s);
        if (!form.match(timeText.toString()).hasMatch())
            return std::nullopt;
        time = VHSubtitle::timeFormatter().reverseTransformedValue(timeText);
    } else {
        const std::optional<double> seconds = parseNumber(timeText);
        if (!seconds)
            return std::nullopt;
        time = *seconds;
    }
    if (!std::isfinite(time) || time < 0)
        return std::nullopt;
    return Fix{qsizetype(index), time + 0.0}; // + 0.0: "-0" is 0
}

} // namespace NumberOptions
