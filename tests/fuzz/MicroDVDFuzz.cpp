#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // The first byte picks the frame rate, 0 included (the loader never passes it, callers may).
    static const double rates[] = {25, 23.976, 29.97, 0.5, 0};
    const double fps = size > 0 ? rates[data[0] % std::size(rates)] : 25;
    LogCapture quiet;
    const std::optional<SubtitleList> cues =
        VHSubtitle::subtitlesFromMicroDVDString(fuzzText(data, size), fps);
    checkList(cues);
    if (!cues)
        return 0;
    for (const SubtitlePtr &cue : *cues) {
        // Built through the setters, so the end is never before the start.
        if (std::isfinite(cue->start()) && std::isfinite(cue->end()))
            FUZZ_CHECK(cue->end() >= cue->start());
        FUZZ_CHECK(!cue->string().contains(u'|'));
    }
    return 0;
}
