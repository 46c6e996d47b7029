#pragma once

#include <QString>
#include <QStringView>

#include <optional>

// Numbers and times as the command line's options take them.
namespace NumberOptions {

// A decimal number written with a decimal point or, as in the window's fields and in time
// texts, a decimal comma: "1.5" and "1,5" are both one and a half, and "1,000" is one.
// Grouping separators are not accepted: a number with more than one "," or "." ("1,000.5",
// "1.000.000") is refused, and so are infinities, NaN and trailing text.
std::optional<double> parseNumber(QStringView text);

// The argument of sync's --fix: INDEX=TIME, INDEX a line counted from 0, TIME seconds (a
// number as above) or a time text hh:mm:ss,mmm / mm:ss.mmm. The time is never negative and
// always finite.
struct Fix
{
    qsizetype index = 0;
    double time = 0;
};
std::optional<Fix> parseFix(QStringView text);

} // namespace NumberOptions
