#pragma once

// For test executables that link the model: comparing read cues with what was expected.
#include "VHSubtitle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

// A cue as the tests compare it: text, times and the forced flag.
struct CueValues
{
    QString text;
    double start = 0;
    double end = 0;
    bool forced = false;
};

// Every cue of `cues` matches `expected` (times to a microsecond). Fails when there are none.
inline ::testing::AssertionResult cuesAre(const std::optional<SubtitleList> &cues,
                                          const QList<CueValues> &expected)
{
    if (!cues)
        return ::testing::AssertionFailure() << "no cue list";
    if (cues->size() != expected.size())
        return ::testing::AssertionFailure() << cues->size() << " cues, expected " << expected.size();
    for (qsizetype i = 0; i < expected.size(); ++i) {
        const VHSubtitle &cue = *cues->at(i);
        const CueValues &want = expected[i];
        if (cue.string() != want.text || std::abs(cue.start() - want.start) > 1e-6 ||
            std::abs(cue.end() - want.end) > 1e-6 || cue.forced() != want.forced)
            return ::testing::AssertionFailure()
                   << "cue " << i << " is " << cue.description().toStdString() << " (forced " << cue.forced()
                   << "), expected " << want.start << " --> " << want.end << "\n"
                   << want.text.toStdString() << " (forced " << want.forced << ")";
    }
    return ::testing::AssertionSuccess();
}
