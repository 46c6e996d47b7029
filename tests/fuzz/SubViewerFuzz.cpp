#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    LogCapture quiet;
    const std::optional<SubtitleList> cues = VHSubtitle::subtitlesFromSubViewerString(fuzzText(data, size));
    checkList(cues);
    if (!cues)
        return 0;
    for (const SubtitlePtr &cue : *cues) {
        // One text line per cue: only the line feeds made from "[br]" break it.
        for (const QChar c : cue->string())
            FUZZ_CHECK(c != u'\r' && c != u'\v' && c != u'\f' && c != QChar(0x85) && c != QChar(0x2028) &&
                       c != QChar(0x2029));
        FUZZ_CHECK(!cue->string().contains(u"[br]"));
    }
    return 0;
}
