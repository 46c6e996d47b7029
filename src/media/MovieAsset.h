#pragma once

#include <QList>
#include <QString>

#include <memory>

// One track of a movie file as the embedder and the extractor see it.
struct MovieTrack
{
    enum class Kind {
        Video,
        Audio,
        Subtitle, // timed text shown over the picture (tx3g, SubRip, ...)
        Text,     // QuickTime text: the movie's chapter track
        Other,
    };

    int index = 0;   // stream index in libavformat
    int trackID = 0; // the container's track identifier (MP4 track ID, Matroska track number)
    Kind kind = Kind::Other;
    QString languageCode;        // as the container stores it ("eng"); empty for none or "und"
    QString extendedLanguageTag; // the track's 'elng' ("pt-BR"); empty for none
    QString codecName;
    bool enabled = false; // the track plays by default
    int width = 0;
    int height = 0;
};

struct MovieChapter
{
    double start = 0;
    double end = 0;
    QString title;
};

// What libavformat reads from a movie file: its tracks, duration, frame rate and chapters.
// Opening reads the header (and a little of the data to learn the streams) and closes the
// file again; nothing is kept open.
class MovieAsset
{
public:
    // Null when libavformat cannot read the file; `error` then says why.
    static std::shared_ptr<const MovieAsset> open(const QString &path, QString *error = nullptr);

    const QString &path() const { return m_path; }
    double duration() const { return m_duration; }
    // Frames per second of the first video track; 0 when there is none.
    double fps() const { return m_fps; }
    const QList<MovieTrack> &tracks() const { return m_tracks; }
    const QList<MovieChapter> &chapters() const { return m_chapters; }
    const MovieTrack *trackWithID(int trackID) const;

    int subtitleTrackCount() const;
    bool hasTextTrack() const;
    // The movie has chapters, from a chapter track or from its container's chapter list.
    bool hasChapters() const { return hasTextTrack() || !m_chapters.isEmpty(); }

private:
    QString m_path;
    double m_duration = 0;
    double m_fps = 0;
    QList<MovieTrack> m_tracks;
    QList<MovieChapter> m_chapters;
};
