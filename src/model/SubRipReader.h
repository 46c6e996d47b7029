#pragma once

#include "SubtitleSalvage.h"
#include "VHSubtitle.h"

#include <QStringView>

#include <functional>
#include <optional>

// The line-state reader behind SubRip cues and WebVTT chapter marks. The two dialects
// differ only in the kind of cue they make, the decimal symbols of their times, and whether
// a line containing "chapter" numbers the next cue.
struct SubRipDialect
{
    QStringView decimalSymbol;
    QStringView alternateDecimalSymbol;
    bool chapterNumberLines = false;
    std::function<SubtitlePtr(const QString &text, double start, double end, bool forced)> makeCue;
};

// Reads the cues of a text, or none when it holds none or has a line that cannot be placed.
// With `skipped` given, the pass is tolerant and quiet: a line that cannot be placed is
// recorded there and left out, and reading goes on; the reader's warnings are not logged
// (the strict pass before it already said them up to where it stopped).
std::optional<SubtitleList> readSubRipText(const QString &text, const SubRipDialect &dialect,
                                           QList<SkippedLine> *skipped = nullptr);

// Encodes a finished file text (encoding 0 means UTF-8, no byte-order mark) and writes it
// atomically; on failure logs "Warning: Could not save file, because: ..." and returns false
// with the reason in `error` (if given).
bool writeSubtitleText(const QString &text, const QString &path, EncodingId encoding,
                       QString *error = nullptr);

// The SubRip file of `subtitles` in UTF-8, as bytes: the bytes subRipText() encodes to,
// built without the text. None when a cue's text cannot be encoded (a lone surrogate).
std::optional<QByteArray> subRipUtf8(const SubtitleList &subtitles, bool useWindowsLineBreak);

// Writes the SubRip file of `subtitles` as VHSubtitle::writeSubtitles() does, with the reason
// of a failure in `error` (if given).
bool writeSubRipFile(const SubtitleList &subtitles, const QString &path, EncodingId encoding,
                     bool useWindowsLineBreak, QString *error = nullptr);

// Splits at line feeds, or at carriage returns when there is no line feed at all.
QList<QStringView> splitSubtitleLines(const QString &text);
