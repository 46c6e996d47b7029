#pragma once

// Shared pieces of the reader fuzz targets: the input as text, silenced logging, and a
// check that stops the run with a message when an invariant of a reader breaks.

#include "Log.h"
#include "VHSubtitle.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#define FUZZ_CHECK(condition)                                                                                \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "invariant broken: %s (%s:%d)\n", #condition, __FILE__, __LINE__);          \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)

// Files reach the readers as decoded text; undecodable bytes become replacement characters.
inline QString fuzzText(const uint8_t *data, size_t size)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
}

// Every reader answers none rather than an empty list, and never holds a null cue.
inline void checkList(const std::optional<SubtitleList> &cues)
{
    if (!cues)
        return;
    FUZZ_CHECK(!cues->isEmpty());
    for (const SubtitlePtr &cue : *cues)
        FUZZ_CHECK(cue != nullptr);
}

inline bool finiteTimes(const SubtitleList &cues)
{
    for (const SubtitlePtr &cue : cues)
        if (!std::isfinite(cue->start()) || !std::isfinite(cue->end()))
            return false;
    return true;
}

// A list written by one of the program's writers reads back with the same texts in the same
// order, and with the same forced flags when the format writes them. Only the last cue may
// differ: it is dropped when its text is empty, and it never keeps a forced flag.
template <typename Read> void checkRoundTrip(const SubtitleList &written, bool writesForced, Read read)
{
    const std::optional<SubtitleList> again = read();
    qsizetype expected = written.size();
    if (written.last()->string().isEmpty())
        --expected;
    if (expected == 0) {
        FUZZ_CHECK(!again);
        return;
    }
    FUZZ_CHECK(again && again->size() == expected);
    for (qsizetype i = 0; i < expected; ++i) {
        FUZZ_CHECK(again->at(i)->string() == written[i]->string());
        if (writesForced && i + 1 < expected)
            FUZZ_CHECK(again->at(i)->forced() == written[i]->forced());
    }
}
