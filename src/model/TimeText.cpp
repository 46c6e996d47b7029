#include "TimeText.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <climits>
#include <cmath>

namespace TimeText {

namespace {
bool isSpace(QChar c)
{
    return c.isSpace();
}
bool isDigit(QChar c)
{
    return c.unicode() >= u'0' && c.unicode() <= u'9';
}

// Whether the number text [first, last) (digits, an optional point, an optional exponent;
// no sign), which a double cannot hold, is too large rather than too small: the position of
// its first significant digit plus its exponent says on which side of 1 it lies. Digits
// alone ("1" and 400 zeros) are as much an overflow as "1e400".
bool overflows(const char *first, const char *last)
{
    const char *e = std::find_if(first, last, [](char c) { return c == 'e' || c == 'E'; });
    qint64 magnitude = 0; // decimal exponent of the first significant digit, plus one
    bool seenPoint = false, seenSignificant = false;
    for (const char *p = first; p != e; ++p) {
        if (*p == '.') {
            seenPoint = true;
        } else if (!seenSignificant && *p == '0') {
            if (seenPoint)
                magnitude = std::max<qint64>(magnitude - 1, -(qint64(1) << 40));
        } else {
            seenSignificant = true;
            if (!seenPoint)
                magnitude = std::min<qint64>(magnitude + 1, qint64(1) << 40);
        }
    }
    if (!seenSignificant)
        return false;
    qint64 exponent = 0;
    if (e != last) {
        const char *p = e + 1;
        const bool negative = p != last && *p == '-';
        if (p != last && (*p == '-' || *p == '+'))
            ++p;
        for (; p != last && *p >= '0' && *p <= '9'; ++p)
            exponent = std::min<qint64>(exponent * 10 + (*p - '0'), qint64(1) << 40);
        if (negative)
            exponent = -exponent;
    }
    return magnitude + exponent > 0;
}
} // namespace

double leadingDouble(QStringView text)
{
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n && isSpace(text[i]))
        ++i;
    const qsizetype begin = i;
    // Fast path: plain digits, which is what time fields nearly always are.
    double value = 0;
    while (i < n && isDigit(text[i])) {
        value = value * 10 + (text[i].unicode() - u'0');
        ++i;
    }
    if (i < n &&
        (text[i] == u'.' || text[i] == u'e' || text[i] == u'E' || text[i] == u'+' || text[i] == u'-')) {
        // Rare forms (signs, decimals, exponents): read the longest number prefix exactly,
        // independent of the C locale.
        QVarLengthArray<char, 64> ascii;
        for (qsizetype j = begin; j < n && text[j].unicode() < 128; ++j)
            ascii.append(char(text[j].unicode()));
        const char *first = ascii.constData();
        const char *last = first + ascii.size();
        bool negative = false;
        if (first != last && (*first == '+' || *first == '-')) {
            negative = *first == '-';
            ++first;
        }
        // Only digits or a point start a number here ("inf" and "nan" are not numbers).
        if (first == last || !(std::isdigit(static_cast<unsigned char>(*first)) || *first == '.'))
            return 0;
        double parsed = 0;
        const std::from_chars_result result =
            std::from_chars(first, last, parsed, std::chars_format::general);
        if (result.ec == std::errc::result_out_of_range) {
            // Too large gives infinity, too small gives 0, as reading a number does in C;
            // the sign is applied below either way.
            parsed = overflows(first, result.ptr) ? HUGE_VAL : 0.0;
        } else if (result.ec != std::errc()) {
            parsed = 0;
        }
        return negative ? -parsed : parsed;
    }
    return value;
}

qint64 leadingInteger(QStringView text)
{
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n && isSpace(text[i]))
        ++i;
    bool negative = false;
    if (i < n && (text[i] == u'-' || text[i] == u'+')) {
        negative = text[i] == u'-';
        ++i;
    }
    qint64 value = 0;
    while (i < n && isDigit(text[i])) {
        const int digit = text[i].unicode() - u'0';
        if (value > (LLONG_MAX - digit) / 10)
            return negative ? LLONG_MIN : LLONG_MAX;
        value = value * 10 + digit;
        ++i;
    }
    return negative ? -value : value;
}

double parse(QStringView text, QStringView decimal, QStringView alternate)
{
    // Symbols are nearly always one character; searching for a QChar is much cheaper. The
    // search starts explicitly at the last character: Qt 6.4's lastIndexOf(QStringView)
    // without a start looks one character past the end of a view, and a field view such as
    // SubStationAlpha's is followed by "," in the text it comes from.
    auto lastIndex = [text](QStringView symbol) -> qsizetype {
        if (symbol.isEmpty())
            return -1;
        return symbol.size() == 1 ? text.lastIndexOf(symbol.front(), -1) : text.lastIndexOf(symbol, -1);
    };
    qsizetype symbol = lastIndex(decimal);
    qsizetype symbolLength = decimal.size();
    if (symbol < 0) {
        symbol = lastIndex(alternate);
        symbolLength = alternate.size();
    }

    double fraction = 0;
    QStringView integral = text;
    if (symbol >= 0) {
        integral = text.first(symbol);
        QStringView digits = text.sliced(symbol + symbolLength);
        while (!digits.isEmpty() && (digits.front() == u' ' || digits.front() == u'\t'))
            digits = digits.sliced(1);
        while (!digits.isEmpty() && (digits.back() == u' ' || digits.back() == u'\t'))
            digits.chop(1);
        // Read from the last character to the first; characters are not checked to be digits.
        for (qsizetype i = digits.size() - 1; i >= 0; --i)
            fraction = (double(int(digits[i].unicode()) - int(u'0')) + fraction) / 10;
    }

    double hours = 0, minutes = 0, seconds = 0;
    const qsizetype lastColon = integral.lastIndexOf(u':');
    if (lastColon < 0) {
        seconds = leadingDouble(integral);
    } else {
        seconds = leadingDouble(integral.sliced(lastColon + 1));
        const QStringView before = integral.first(lastColon);
        const qsizetype colon = before.lastIndexOf(u':');
        if (colon < 0) {
            minutes = leadingDouble(before);
        } else {
            minutes = leadingDouble(before.sliced(colon + 1));
            hours = leadingDouble(before.first(colon));
        }
    }
    return (hours * 60 + minutes) * 60 + seconds + fraction;
}

void appendPadded(QString &out, qint64 value, int width)
{
    // Digits are written from the end of a buffer and appended at once: one append per
    // number instead of one per character (this runs four times per time a file writes).
    char16_t buffer[48];
    char16_t *const end = buffer + std::size(buffer);
    char16_t *first = end;
    // Work in unsigned to print the most negative value correctly.
    quint64 magnitude = value < 0 ? 0ull - quint64(value) : quint64(value);
    do {
        *--first = char16_t(u'0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude);
    if (value < 0)
        --width;
    const int padding = std::min(int(width - (end - first)), int(std::size(buffer)) - int(end - first) - 1);
    for (int i = 0; i < padding; ++i)
        *--first = u'0';
    if (value < 0)
        *--first = u'-';
    out.append(QStringView(first, end));
}

int toInt(double value)
{
    if (std::isnan(value) || value >= 2147483648.0 || value < -2147483648.0)
        return INT_MIN;
    return int(value);
}

} // namespace TimeText
