#pragma once

#include "VHSubtitle.h"

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QSizeF>
#include <QString>

#include <memory>
#include <optional>

// One timed-text sample ready for a movie track: its payload and its timing in the 1/600
// time base of text tracks.
struct TextSample
{
    QByteArray payload;
    qint64 start = 0;    // presentation time, 1/600 s
    qint64 duration = 0; // 1/600 s
    // The cue's own times in seconds, for interleaving and for chapter lists.
    double startSeconds = 0;
    double endSeconds = 0;
    QString text;
};

// A track-level metadata item: a key of the QuickTime user-data key space and its value.
using MetadataItem = QPair<QString, QString>;

// Turns one subtitle file into the samples of a timed-text ('tx3g') subtitle track: loads
// the cues, checks and repairs their timing against the movie's duration and frame rate,
// decides the forced display flags, names the language from the file name, fills the gaps
// between cues with empty cues so that the track is continuous, and hands out one sample
// per cue.
//
// Used by one thread at a time: built where the embedding is set up, then drained by the
// writer thread.
class CTSubtitleReader
{
public:
    virtual ~CTSubtitleReader();
    CTSubtitleReader(const CTSubtitleReader &) = delete;
    CTSubtitleReader &operator=(const CTSubtitleReader &) = delete;

    // A ready reader, or null when the file holds no cue or a timing fault (logged).
    static std::unique_ptr<CTSubtitleReader> initForFile(const QString &path, double fps, double duration);

    const SubtitleList &subtitles() const { return m_subtitles; }
    quint32 displayFlags() const { return m_displayFlags; }
    double fps() const { return m_fps; }
    double duration() const { return m_duration; }
    bool isSDH() const { return m_isSDH; }
    void setIsSDH(bool isSDH) { m_isSDH = isSDH; }
    const QString &languageCode() const { return m_languageCode; }
    void setLanguageCode(const QString &code) { m_languageCode = code; }
    const QString &extendedLanguageTag() const { return m_extendedLanguageTag; }
    void setExtendedLanguageTag(const QString &tag) { m_extendedLanguageTag = tag; }
    const QList<MetadataItem> &metadata() const { return m_metadata; }
    QSizeF size() const { return m_size; }
    void setSize(QSizeF size) { m_size = size; }
    // True for subtitle tracks, false for chapter (QuickTime text) tracks.
    virtual bool isSubtitleTrack() const { return true; }

    // The sample description's bytes after the data-reference index: the new track's
    // extradata.
    virtual QByteArray copyFormatDescription() const;
    virtual TextSample copySampleBufferFor(const VHSubtitle &cue) const;
    // The next cue's sample; none once every cue has been handed out (and ever after).
    std::optional<TextSample> copyNextSampleBuffer();
    // The start (seconds) of the sample copyNextSampleBuffer() returns next; none at the end.
    std::optional<double> nextSampleStart() const;

    static const QString TaggedCharacteristicKey; // "tagc" of the QuickTime user data
    static const QString TranscribesSpokenDialog; // public.accessibility.transcribes-spoken-dialog
    static const QString DescribesMusicAndSound;  // public.accessibility.describes-music-and-sound

protected:
    CTSubtitleReader() = default;
    bool init(const QString &path, double fps, double duration);

    virtual std::optional<SubtitleList> subtitlesFromFile(const QString &path, double fps, double duration);
    virtual void setupFormatDescription();
    virtual void setupMetadata();
    bool testSubtitle();
    void completeSubtitles();

    SubtitleList m_subtitles;
    quint32 m_displayFlags = 0;
    QByteArray m_formatDescription;
    double m_fps = 0;
    double m_duration = 0;
    qsizetype m_index = 0;
    bool m_isSDH = false;
    QString m_languageCode;
    QString m_extendedLanguageTag;
    QList<MetadataItem> m_metadata;
    QSizeF m_size;
};

// The chapter-track variant: reads a chapter-marks file and hands out QuickTime text
// samples (UTF-16 with a byte-order mark and an "encd" box). The track is the movie's
// chapter list and is not displayed.
class CTTextReader final : public CTSubtitleReader
{
public:
    static std::unique_ptr<CTTextReader> initForFile(const QString &path, double fps, double duration);

    bool isSubtitleTrack() const override { return false; }
    QByteArray copyFormatDescription() const override;
    TextSample copySampleBufferFor(const VHSubtitle &cue) const override;
    static QByteArray createQTTextBlockBuffer(const QString &string);

protected:
    std::optional<SubtitleList> subtitlesFromFile(const QString &path, double fps, double duration) override;
    void setupFormatDescription() override;
    void setupMetadata() override;

private:
    CTTextReader() = default;
};
