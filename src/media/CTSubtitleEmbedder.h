#pragma once

#include "MovieAsset.h"
#include "ProgressStatus.h"
#include "Prompter.h"

#include <QList>
#include <QString>

#include <array>
#include <atomic>
#include <memory>
#include <thread>

class CTSubtitleEmbedder;

// One candidate text track of an embedding: a file beside the movie or a track inside it.
struct CandidateRow
{
    bool integrate = false; // goes into the output
    QString language;       // display text: the language's name, or "Chapter Marks"
    QString source;         // "external" or "embedded"
    QString location;       // the file's name, or "Movie-Track: <id>"
    QString path;           // external rows only
    int trackID = 0;        // embedded rows only
    bool isSubtitle = true; // false for chapter marks
};

// What the embedder tells the project. All calls come on the main thread.
class CTSubtitleEmbedderDelegate
{
public:
    virtual ~CTSubtitleEmbedderDelegate();
    virtual void subtitleEmbedderStarted(CTSubtitleEmbedder *embedder);
    virtual void subtitleEmbedderCanceled(CTSubtitleEmbedder *embedder);
    // Returns the file to show for the finished task (stored as the status's related URL
    // on success).
    virtual QString subtitleEmbedderDidFinish(CTSubtitleEmbedder *embedder, bool success) = 0;
};

// Rewrites one movie into "<name>-Output.m4v" beside it: every chosen track of the movie
// copied sample by sample (no decoding), the chosen subtitle files as new timed-text
// tracks, the chapter-marks file as the movie's chapters, the movie's metadata, with the
// index in front of the media data ("fast start") for playing over a network.
//
// Set-up, questions included, runs on the main thread; the samples are written by one
// writer thread that interleaves the movie's packets and the new text samples by time, as
// the muxer needs. Every status change and delegate call is posted to the main queue. The
// source movie is only ever read. The output is written under a temporary name of ours
// beside it (".<output name>.<pid>.part", locked while it is written) and renamed into place,
// never over an existing file, only when it is complete; a failed or cancelled run removes
// it, and a run removes the temporaries that killed runs left.
class CTSubtitleEmbedder : public std::enable_shared_from_this<CTSubtitleEmbedder>
{
public:
    static constexpr int MaxProgressTracks = 64;

    // `asset` is the opened movie (MovieAsset::open), `path` its path.
    static std::shared_ptr<CTSubtitleEmbedder> initWithAsset(std::shared_ptr<const MovieAsset> asset,
                                                             const QString &path, double fps);
    ~CTSubtitleEmbedder();
    CTSubtitleEmbedder(const CTSubtitleEmbedder &) = delete;
    CTSubtitleEmbedder &operator=(const CTSubtitleEmbedder &) = delete;

    const QString &moviePath() const { return m_moviePath; }
    const QString &outputMoviePath() const { return m_outputMoviePath; }
    const std::shared_ptr<const MovieAsset> &asset() const { return m_asset; }
    double fps() const { return m_fps; }
    double duration() const { return m_duration; }
    void setDuration(double duration) { m_duration = duration; }

    QList<CandidateRow> &subtitles() { return m_subtitles; }
    const QList<CandidateRow> &subtitles() const { return m_subtitles; }
    void setSubtitles(const QList<CandidateRow> &rows) { m_subtitles = rows; }
    void updateSubtitles();
    static bool integrateLanguage(const QString &language, const QList<CandidateRow> &rows);

    const ProgressStatusPtr &status() const { return m_status; }
    // Stores the status, marks it waiting and titles it "Embedding Subtitles into <name>".
    void setStatus(const ProgressStatusPtr &status);
    CTSubtitleEmbedderDelegate *delegate() const { return m_delegate; }
    void setDelegate(CTSubtitleEmbedderDelegate *delegate) { m_delegate = delegate; }

    // A damaged movie (reading errors, media tracks that cannot be read) is asked about
    // through the prompter ("Continue" / "Cancel"); with this set it is embedded as far as
    // it can be read, with a warning logged instead.
    bool acceptDamaged() const { return m_acceptDamaged; }
    void setAcceptDamaged(bool accept) { m_acceptDamaged = accept; }
    // The question about a damaged movie, for prompters that answer it differently.
    static bool isDamagedMovieQuestion(const Prompt &prompt);

    bool isWorking() const { return m_isWorking; }
    // The run has ended (its last step ran on the main queue), or ended during set-up.
    bool hasEnded() const { return m_ended; }
    double lastProgress() const { return m_lastProgress; }

    // Hands the status to the progress controller, whose start block runs startEmebdding().
    void createM4V();
    // The cancel action: tells the delegate.
    void cancel();
    // The run; normally started through the status (createM4V()).
    void startEmebdding();

private:
    CTSubtitleEmbedder() = default;
    struct Run;
    void endSetUp();
    void failToStart(const QString &error, bool outputExists);
    bool continueDespiteDamage(const QStringList &reasons);
    bool askFromWriterAboutDamage(const QStringList &reasons);
    void writerThread(std::shared_ptr<Run> run);
    void postProgress(double value);
    static int64_t indexReservation(const Run &run);

    std::shared_ptr<const MovieAsset> m_asset;
    QString m_moviePath;
    QString m_outputMoviePath;
    double m_fps = 0;
    double m_duration = 0;
    QList<CandidateRow> m_subtitles;
    ProgressStatusPtr m_status;
    CTSubtitleEmbedderDelegate *m_delegate = nullptr;
    bool m_acceptDamaged = false;
    bool m_isWorking = false;
    bool m_ended = false;
    double m_lastProgress = 0;
    std::array<double, MaxProgressTracks + 1> m_progresses{};
    unsigned m_progressCount = 0;
    unsigned m_progressMax = 0;
    std::atomic<bool> m_cancelled{false};
    std::thread m_thread;
};
