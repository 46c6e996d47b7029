#include "FuzzSupport.h"
#include "VHVideoText.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    LogCapture quiet;
    std::optional<SubtitleList> marks = VHVideoText::chapterMarksFromVideoTextTracks(fuzzText(data, size));
    checkList(marks);
    if (!marks)
        return 0;
    for (const SubtitlePtr &mark : *marks)
        FUZZ_CHECK(std::dynamic_pointer_cast<VHVideoText>(mark) != nullptr);
    checkRoundTrip(*marks, false, [&] {
        return VHVideoText::chapterMarksFromVideoTextTracks(VHVideoText::webVTTText(*marks, false));
    });

    if (!finiteTimes(*marks))
        return 0;
    const double length = 3600;
    // The limit is taken after the first mark was moved to 0.
    const double lastStart = marks->size() == 1 ? 0 : marks->last()->start();
    VHVideoText::correctChapterMarks(*marks, length);
    // Contiguous marks, the last ending at the movie's end or at its own start beyond it.
    for (qsizetype i = 0; i + 1 < marks->size(); ++i)
        FUZZ_CHECK(marks->at(i)->end() == marks->at(i + 1)->start());
    for (const SubtitlePtr &mark : *marks)
        FUZZ_CHECK(mark->end() >= mark->start());
    FUZZ_CHECK(marks->last()->end() == std::max(length, lastStart));
    return 0;
}
