#pragma once

#include "Observable.h"
#include "TextCodec.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

class VHSubtitle;
class VHTimeValueTransformer;

// What an edit can change of a cue, and what undoing it puts back.
struct CueState
{
    double start = 0;
    double end = 0;
    QString string;
    bool forced = false;
    bool fixed = false;

    bool operator==(const CueState &) const = default;
};

// Hears of every change of a cue's times, text or flags just before it happens. The
// project's list sets itself as the listener of the cues it holds, so that every change,
// whoever makes it, is part of an edit that can be undone.
class CueEditListener
{
public:
    virtual ~CueEditListener();
    virtual void cueWillChange(VHSubtitle &cue) = 0;
};

// Cues are shared: the list that holds them, the project's current-cue slot and the
// overlay all keep the same cue alive through these pointers. A list owns its cues only in
// the sense that it holds references; a cue lives as long as anyone holds it.
using SubtitlePtr = std::shared_ptr<VHSubtitle>;
using SubtitleList = QList<SubtitlePtr>;

// One subtitle cue: text shown from a start to an end time (seconds), with the flags
// forced, fixed and active. Its end never lies before its start, moving its start moves the
// whole cue, and every change that can make it overlap a neighbour is posted
// ("VHSubtitleEndGrew", "VHSubtitleStartReduced") so that the project can move the
// neighbours. Observable keys: start, end, duration, string, forced, fixed, active,
// activeColor.
//
// Create cues with std::make_shared (or create()); the deferred "duration" announcement
// of setDuration() only reaches cues held that way.
class VHSubtitle : public Observable, public std::enable_shared_from_this<VHSubtitle>
{
public:
    static const QString EndGrewNotification;      // "VHSubtitleEndGrew"
    static const QString StartReducedNotification; // "VHSubtitleStartReduced"

    enum class LabelColor { Standard, Secondary };

    // Null text, times 0, flags false.
    VHSubtitle();
    // Stores the values as given: no clamping, no notification.
    VHSubtitle(const QString &string, double from, double to, bool forced = false);
    ~VHSubtitle() override;

    static SubtitlePtr create(const QString &string, double from, double to, bool forced = false)
    {
        return std::make_shared<VHSubtitle>(string, from, to, forced);
    }

    double start() const { return m_start; }
    double end() const { return m_end; }
    double duration() const { return m_end - m_start; }
    const QString &string() const { return m_string; }
    bool forced() const { return m_forced; }
    bool fixed() const { return m_fixed; }
    bool active() const { return m_active; }
    LabelColor activeColor() const { return m_active ? LabelColor::Standard : LabelColor::Secondary; }
    // How many characters a reader has to read: the text's 16-bit units, line breaks
    // included. Durations from reading speed and the reading speed shown for a line both
    // count this way.
    qsizetype characterCount() const { return m_string.size(); }

    // Moves the whole cue; posts "VHSubtitleStartReduced" when it moves earlier.
    virtual void setStart(double start);
    // Stores the larger of `end` and the start; posts "VHSubtitleEndGrew" when the requested
    // end lies after the old one.
    virtual void setEnd(double end);
    // Sets the end to start + duration; when that was clamped, announces "duration" again
    // later on the main queue so that a bound field shows the clamped value.
    void setDuration(double duration);
    void setString(const QString &string);
    void setForced(bool forced);
    void setFixed(bool fixed);
    void setActive(bool active);

    // Sets both times as given, with no clamping and no notification besides the key
    // announcements of "start" and then "end".
    void replaceStart(double start, double end);

    CueState values() const { return {m_start, m_end, m_string, m_forced, m_fixed}; }
    // Puts back values taken earlier: no clamping and no notification besides the key
    // announcements of what differs (undo must not set off the neighbour corrections again).
    void restoreValues(const CueState &values);

    // The listener told of every change (null: none). Not owned.
    void setEditListener(CueEditListener *listener) { m_editListener = listener; }
    CueEditListener *editListener() const { return m_editListener; }
    // A number the edit listener stamps on the cue once it has kept its values for the edit
    // being recorded, so that it asks no table whether it has seen the cue before.
    quint64 editMark() const { return m_editMark; }
    void setEditMark(quint64 mark) { m_editMark = mark; }

    // hh:mm:ss,mmm with truncated milliseconds.
    static QString formatedTime(double seconds);
    // "<start> --> <end>[ !!!]\n<text>": one SubRip cue body.
    QString description() const;
    // Appends description() to `out` without building it on its own.
    void appendDescription(QString &out) const;

    // Repairs ordering and overlaps of neighbours in one forward pass, logging each fix.
    static void correctSubtitles(SubtitleList &subtitles);

    // SubRip: reads a whole text, or none when it holds no cue or has a line that cannot
    // be placed.
    static std::optional<SubtitleList> subtitlesFromSubRipString(const QString &text);
    // Writes atomically; false (after logging why) when the file could not be written.
    static bool writeSubtitles(const SubtitleList &subtitles, const QString &path, EncodingId encoding,
                               bool useWindowsLineBreak);
    static bool writeSubtitles(const SubtitleList &subtitles, const QString &path);
    // The text writeSubtitles() writes, before encoding.
    static QString subRipText(const SubtitleList &subtitles, bool useWindowsLineBreak);

    // The import-only formats. Each reads a whole decoded text and answers none when it
    // finds no cue, so that the loader can try the next format.
    // SubViewer: "hh:mm:ss.cc,hh:mm:ss.cc" lines each followed by one text line ("[br]"
    // breaks it), scanned from after the first "[SUBTITLE]" when there is one.
    static std::optional<SubtitleList> subtitlesFromSubViewerString(const QString &text);
    // MicroDVD: "{start frame}{end frame}text" lines ("|" breaks the text). Stops at the
    // first malformed line, keeping the cues read before it.
    static std::optional<SubtitleList> subtitlesFromMicroDVDString(const QString &text, double fps);
    // SubStationAlpha / Advanced SubStation: the Dialogue lines of the [Events] section, read
    // in the field order its Format line gives. Texts keep their override codes.
    static std::optional<SubtitleList> subtitlesFromSubStationAlphaString(const QString &text);
    // Plain text: every line is a cue; the lines share the movie length evenly, or follow
    // each other every 4 seconds when the length is not positive.
    static std::optional<SubtitleList> subtitlesFromText(const QString &text, double length);

    // What loading does with a text that no reader accepts.
    enum class Salvage {
        Never,  // loads nothing, as the reading rules say
        Ask,    // asks the prompter whether to load what a tolerant pass reads (SubtitleSalvage.h)
        Always, // loads what a tolerant pass reads, logging each line it leaves out
    };

    // Loading a subtitle file of any supported format; see SubtitleLoading.cpp.
    static std::optional<SubtitleList> subtitlesFromFileAtURL(const QString &path, double fps, double length,
                                                              EncodingId encoding, bool encodingIsOptional);
    // The same, and with salvage allowed, a file no reader accepts may still give cues; then
    // `salvaged` (when given) is set, and the file should be saved again to be clean.
    // `usedEncoding` (when given) gets the encoding the text was read in.
    static std::optional<SubtitleList> subtitlesFromFileAtURL(const QString &path, double fps, double length,
                                                              EncodingId encoding, bool encodingIsOptional,
                                                              Salvage salvage, bool *salvaged = nullptr,
                                                              EncodingId *usedEncoding = nullptr);
    static std::optional<SubtitleList> subtitlesFromFileAtURL(const QString &path, double fps = 0,
                                                              double length = 0);
    // The file's text; `used` (when given) gets the encoding it was read in.
    static std::optional<QString> stringWithContentsOfURL(const QString &path, EncodingId encoding,
                                                          bool encodingIsOptional,
                                                          EncodingId *used = nullptr);
    // The settings key under which an encoding the user chose when a file could not be
    // decoded may be remembered ("Encoding" in the program); while it is empty the choice
    // is not offered.
    static void setEncodingDefaultsKey(const QString &key);
    static const QString &encodingDefaultsKey();
    // Whether a file whose encoding is given (not optional) but does not decode in it goes
    // on to detection and the question (the default), or fails at once: the command line's
    // --strict-encoding.
    static void setDetectionAfterGivenEncoding(bool allowed);

    // The formatter of cue times: not localized, "," before the milliseconds.
    static const VHTimeValueTransformer &timeFormatter();

protected:
    QStringList dependentKeys(const QString &key) const override;
    // Stores an end after the rules of setEnd() and posts its notification; returns
    // nothing. Shared with subclasses that add their own notification.
    void storeEnd(double end);

    void willEdit()
    {
        if (m_editListener)
            m_editListener->cueWillChange(*this);
    }

private:
    CueEditListener *m_editListener = nullptr;
    quint64 m_editMark = 0;
    QString m_string;
    double m_start = 0;
    double m_end = 0;
    bool m_forced = false;
    bool m_fixed = false;
    bool m_active = false;
};
