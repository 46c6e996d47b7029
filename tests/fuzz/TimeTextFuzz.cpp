// The time-text parser and the time writers: any text reads as some time without a crash,
// every time is written in the one form a time text has (never a fourth fraction digit,
// never a field that reads back as another time), and what is written reads back as itself.
#include "FuzzSupport.h"
#include "TimeText.h"
#include "VHTimeValueTransformer.h"

#include <QRegularExpression>

#include <cstring>

namespace {
const QRegularExpression &fullForm()
{
    static const QRegularExpression form(QStringLiteral("^(-\\d+|\\d{2,}):\\d{2}:\\d{2}[,.]\\d{3}$"));
    return form;
}

void checkTime(const VHTimeValueTransformer &full, const VHSuccinctTimeTransformer &succinct, double t)
{
    const QString text = full.transformedValue(t);
    FUZZ_CHECK(fullForm().match(text).hasMatch());
    const double again = full.reverseTransformedValue(text);
    FUZZ_CHECK(std::isfinite(again));
    // What is written reads back as itself: writing it once more gives the same text, for
    // every time whose double still tells milliseconds apart from their neighbours (below
    // about 2,300 hours), and for the largest and smallest texts.
    if (std::abs(again) < 8e6 || !std::isfinite(t) || std::abs(t) >= 7.7e12)
        FUZZ_CHECK(full.transformedValue(again) == text);
    // A time a text can hold is written to within a millisecond (truncated), and keeps its sign.
    if (std::isfinite(t) && std::abs(t) < 1e9) {
        FUZZ_CHECK(again <= t + 1e-6 && again > t - 0.001 - 1e-6);
    }
    if (t >= 0 || std::isnan(t))
        FUZZ_CHECK(again >= 0);
    // The succinct form says the same time (negative times are not written succinctly).
    if (again >= 0)
        FUZZ_CHECK(succinct.reverseTransformedValue(succinct.transformedValue(t)) == again);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static VHTimeValueTransformer comma = [] {
        VHTimeValueTransformer t;
        t.setDecimalSymbol(QStringLiteral(","));
        return t;
    }();
    static VHTimeValueTransformer point = [] {
        VHTimeValueTransformer t;
        t.setDecimalSymbol(QStringLiteral("."));
        return t;
    }();
    static VHSuccinctTimeTransformer succinct = [] {
        VHSuccinctTimeTransformer t;
        t.setDecimalSymbol(QStringLiteral(","));
        return t;
    }();

    // The input as a text to read.
    const QString text = fuzzText(data, size);
    for (const VHTimeValueTransformer *t : {&comma, &point}) {
        const double read = t->reverseTransformedValue(text);
        checkTime(comma, succinct, read);
    }
    // A field's number keeps its sign: "-" before a number never reads as a positive time.
    const double field = TimeText::leadingDouble(text);
    if (!std::isnan(field)) {
        const QString trimmed = text.trimmed();
        if (trimmed.startsWith(QLatin1Char('-')) && field != 0)
            FUZZ_CHECK(field < 0);
        if (trimmed.startsWith(QLatin1Char('+')) || (!trimmed.isEmpty() && trimmed.front().isDigit()))
            FUZZ_CHECK(field >= 0);
    }

    // The input's first eight bytes as a time to write.
    if (size >= sizeof(double)) {
        double t;
        std::memcpy(&t, data, sizeof t);
        checkTime(comma, succinct, t);
    }
    return 0;
}
