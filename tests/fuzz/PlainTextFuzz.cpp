#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    LogCapture quiet;
    const QString text = fuzzText(data, size);
    const double length = size > 0 ? double(data[0]) - 16 : 0;
    const std::optional<SubtitleList> cues = VHSubtitle::subtitlesFromText(text, length);
    // Every line is a cue, so there is always at least one.
    FUZZ_CHECK(cues && cues->size() == text.count(u'\n') + 1);
    checkList(cues);
    for (qsizetype i = 1; i < cues->size(); ++i)
        FUZZ_CHECK(cues->at(i)->start() == cues->at(i - 1)->end());
    return 0;
}
