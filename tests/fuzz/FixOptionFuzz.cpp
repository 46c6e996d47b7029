// sync's --fix INDEX=TIME and the number options: any argument is either refused or gives a
// line index and a finite, non-negative time, and an accepted argument written back in
// either form (seconds, time text) gives the same fix.
#include "FuzzSupport.h"
#include "NumberOptions.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = fuzzText(data, size);

    if (const std::optional<double> number = NumberOptions::parseNumber(text)) {
        FUZZ_CHECK(std::isfinite(*number));
        // No grouping: at most one separator was accepted.
        FUZZ_CHECK(text.count(QLatin1Char(',')) + text.count(QLatin1Char('.')) <= 1);
        const std::optional<double> again = NumberOptions::parseNumber(QString::number(*number, 'g', 17));
        FUZZ_CHECK(again && *again == *number);
    }

    const std::optional<NumberOptions::Fix> fix = NumberOptions::parseFix(text);
    if (!fix)
        return 0;
    FUZZ_CHECK(fix->index >= 0);
    FUZZ_CHECK(std::isfinite(fix->time) && fix->time >= 0);
    const QString index = QString::number(fix->index) + QLatin1Char('=');
    const std::optional<NumberOptions::Fix> seconds =
        NumberOptions::parseFix(QString(index + QString::number(fix->time, 'g', 17)));
    FUZZ_CHECK(seconds && seconds->index == fix->index && seconds->time == fix->time);
    if (fix->time < 1e9) {
        // As a time text, to the millisecond it says (truncated).
        const std::optional<NumberOptions::Fix> timeText =
            NumberOptions::parseFix(QString(index + VHSubtitle::formatedTime(fix->time)));
        FUZZ_CHECK(timeText && timeText->index == fix->index);
        FUZZ_CHECK(timeText->time <= fix->time + 1e-6 && timeText->time > fix->time - 0.001 - 1e-6);
    }
    return 0;
}
