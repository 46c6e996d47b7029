// The extractor's sample decoder: any bytes give a text or none, never a crash, and a text it
// returns, written again as a sample, reads back the same.
#include "TimedTextSamples.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#define SAMPLE_CHECK(condition)                                                                              \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "invariant broken: %s (%s:%d)\n", #condition, __FILE__, __LINE__);          \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
    const std::optional<QString> text = TimedText::stringFromSampleBytes(bytes);
    if (!text)
        return 0;
    SAMPLE_CHECK(!text->isNull());
    SAMPLE_CHECK(!text->contains(QChar(0)));
    const std::optional<QString> back = TimedText::stringFromSampleBytes(TimedText::tx3gSamplePayload(*text, true));
    if (text->isEmpty())
        SAMPLE_CHECK(!back); // a zero length reads as no text
    else
        SAMPLE_CHECK(back && *back == *text);
    return 0;
}
