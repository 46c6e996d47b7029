#include "VHTimeValueTransformer.h"

#include "TimeText.h"

#include <QLocale>

#include <climits>
#include <cmath>

using namespace Qt::StringLiterals;

VHTimeValueTransformer::VHTimeValueTransformer()
{
    setLocalized(true);
}

VHTimeValueTransformer::~VHTimeValueTransformer() = default;

void VHTimeValueTransformer::setLocalized(bool localized)
{
    m_localized = localized;
    setDecimalSymbol(localized ? QLocale::system().decimalPoint() : u","_s);
}

void VHTimeValueTransformer::setDecimalSymbol(const QString &symbol)
{
    m_decimalSymbol = symbol;
    m_alternateDecimalSymbol = symbol == u"."_s ? u","_s : u"."_s;
}

namespace {
// floor() without a library call on the hot path of every writer: exact for every double
// whose magnitude is below 2^62 (a larger one is already an integer or infinite, NaN stays
// NaN), since the conversion to an integer truncates toward zero.
inline double fastFloor(double x)
{
    if (!(std::abs(x) < 4.6e18))
        return std::floor(x);
    const double truncated = double(qint64(x));
    return truncated > x ? truncated - 1 : truncated;
}
} // namespace

VHTimeValueTransformer::Fields VHTimeValueTransformer::fields(double t)
{
    // A time text holds an int's worth of hours. Beyond that, and for infinities, it says the
    // nearest time it can hold, which reads back as that time; NaN is no time at all and is
    // written as 0. Any other text would read back as a different, usually negative, time.
    constexpr double HourLimit = 2147483648.0; // 2^31
    const Fields largest{INT_MAX, 59, 59, 999, HourLimit - 1, 59};
    const Fields smallest{INT_MIN, 0, 0, 0, -HourLimit, 0};
    if (std::isnan(t))
        return {0, 0, 0, 0, 0, 0};
    if (t >= HourLimit * 3600)
        return largest;
    if (t < -HourLimit * 3600)
        return smallest;

    // The order of operations matters for the truncated milliseconds; keep it.
    double h = fastFloor(t / 60 / 60);
    const double r = t - h * 3600;
    double m = fastFloor(r / 60);
    const double sPrime = r - m * 60;
    double s = fastFloor(sPrime);
    // Milliseconds are truncated, but a time read as "03,900" is the double just below 3.9:
    // the millionth of a millisecond added keeps such a time from losing a millisecond on
    // every read and write, and is far below anything a time text can say.
    double ms = fastFloor((sPrime - s) * 1000 + 1e-6);
    // That millionth can make a full second of a time a billionth below it (1.9999999995 s),
    // and rounding can make a full minute or hour of one just below (a tiny negative time
    // gives -1 hours and 60 minutes): carry them, since a time text has three fraction
    // digits and fields below 60, and reads back as the time it says.
    if (ms >= 1000) {
        ms -= 1000;
        ++s;
    }
    if (s >= 60) {
        s -= 60;
        ++m;
    }
    if (m >= 60) {
        m -= 60;
        ++h;
    }
    if (h >= HourLimit)
        return largest;
    return {TimeText::toInt(h), TimeText::toInt(m), TimeText::toInt(s), TimeText::toInt(ms), h, m};
}

void VHTimeValueTransformer::appendTime(QString &out, double seconds, QStringView symbol)
{
    const Fields f = fields(seconds);
    TimeText::appendPadded(out, f.hours, 2);
    out.append(u':');
    TimeText::appendPadded(out, f.minutes, 2);
    out.append(u':');
    TimeText::appendPadded(out, f.seconds, 2);
    out.append(symbol);
    TimeText::appendPadded(out, f.milliseconds, 3);
}

QString VHTimeValueTransformer::transformedValue(double seconds) const
{
    QString out;
    out.reserve(16);
    appendTime(out, seconds, m_decimalSymbol);
    return out;
}

double VHTimeValueTransformer::reverseTransformedValue(QStringView text) const
{
    return TimeText::parse(text, m_decimalSymbol, m_alternateDecimalSymbol);
}

VHTimeValueTransformer &VHTimeValueTransformer::shared()
{
    static VHTimeValueTransformer transformer;
    return transformer;
}

QString VHTimeValueTransformer::stringForTime(double seconds)
{
    return shared().transformedValue(seconds);
}

double VHTimeValueTransformer::timeForString(QStringView text)
{
    return shared().reverseTransformedValue(text);
}

QString VHSuccinctTimeTransformer::transformedValue(double seconds) const
{
    const Fields f = fields(seconds);
    QString out;
    if (f.rawHours < 1 && f.rawMinutes < 1) {
        TimeText::appendPadded(out, f.seconds, 1);
    } else {
        if (f.rawHours >= 1) {
            TimeText::appendPadded(out, f.hours, 2);
            out.append(u':');
        }
        TimeText::appendPadded(out, f.minutes, 2);
        out.append(u':');
        TimeText::appendPadded(out, f.seconds, 2);
    }
    out.append(decimalSymbol());
    TimeText::appendPadded(out, f.milliseconds, 3);
    return out;
}
