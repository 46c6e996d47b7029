#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    LogCapture quiet;
    const QString text = fuzzText(data, size);
    const std::optional<SubtitleList> cues = VHSubtitle::subtitlesFromSubStationAlphaString(text);
    checkList(cues);
    if (!cues)
        return 0;
    FUZZ_CHECK(text.contains(u"[Events]"));
    FUZZ_CHECK(cues->size() <= text.count(u"Dialogue"));
    return 0;
}
