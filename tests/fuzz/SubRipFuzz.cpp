#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    LogCapture quiet;
    const std::optional<SubtitleList> cues = VHSubtitle::subtitlesFromSubRipString(fuzzText(data, size));
    checkList(cues);
    if (cues)
        checkRoundTrip(*cues, true, [&] {
            return VHSubtitle::subtitlesFromSubRipString(VHSubtitle::subRipText(*cues, false));
        });
    return 0;
}
