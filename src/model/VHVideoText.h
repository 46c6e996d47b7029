#pragma once

#include "VHSubtitle.h"

class VHVideoText;
using VideoTextPtr = std::shared_ptr<VHVideoText>;

// Chapter lists are SubtitleLists whose elements are VHVideoText marks. The project edits
// chapter marks with the same views, commands and list operations as cues (selection,
// editing commands, the current-cue slot, the overlay), all written against SubtitleList;
// a list type of its own would need each of them twice, or conversions that copy the list
// and the views would then hold other pointers than the project. What makes a mark a mark
// (its notification, its time text) comes through the virtual setters and the chapter
// operations below, so nothing is lost by holding the marks as cues. Code that needs the
// chapter type of an element uses std::dynamic_pointer_cast<VHVideoText>.

// One chapter mark: a title from a start to an end time. Besides the cue notifications it
// posts "VHVideoTextTimeChanged" on every change of its start or end, so that the project
// can re-fit the neighbouring marks. Chapter files are WebVTT files of numbered chapter cues
// whose times use "." before the milliseconds.
class VHVideoText : public VHSubtitle
{
public:
    static const QString TimeChangedNotification; // "VHVideoTextTimeChanged"

    using VHSubtitle::VHSubtitle;

    static VideoTextPtr create(const QString &string, double from, double to, bool forced = false)
    {
        return std::make_shared<VHVideoText>(string, from, to, forced);
    }

    // Moves the whole mark as a cue does, then posts "VHVideoTextTimeChanged". The inherited
    // move sets the end through setEnd(), so one start change posts it twice.
    void setStart(double start) override;
    // Sets the end as a cue does, then posts "VHVideoTextTimeChanged".
    void setEnd(double end) override;

    // The formatter of chapter times: "." before the milliseconds, "," also accepted.
    static const VHTimeValueTransformer &timeFormatter();

    // Reads chapter marks (WebVTT chapter cues; SubRip-style times and numbers are accepted
    // too), or none when the text holds no mark or has a line that cannot be placed.
    static std::optional<SubtitleList> chapterMarksFromVideoTextTracks(const QString &text);
    // Decodes the file as subtitle loading does, reads its marks and makes them cover the
    // movie; none when the file could not be decoded or holds no mark.
    static std::optional<SubtitleList> videoTextsFromFileAtURL(const QString &path, double length,
                                                               EncodingId encoding, bool encodingIsOptional);
    // Makes the marks contiguous from 0 to the movie length (seconds), adding one untitled
    // mark to an empty list. Titles and forced flags stay as they are.
    static void correctChapterMarks(SubtitleList &marks, double length);

    // Writes the marks as a WebVTT chapter file, atomically; false (after logging why) when
    // the file could not be written. Encoding 0 means UTF-8.
    static bool writeVideoText(const SubtitleList &marks, const QString &path, EncodingId encoding,
                               bool useWindowsLineBreak);
    static bool writeVideoText(const SubtitleList &marks, const QString &path);
    // The text writeVideoText() writes, before encoding.
    static QString webVTTText(const SubtitleList &marks, bool useWindowsLineBreak);
};
