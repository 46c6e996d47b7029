#pragma once

#include "MovieAsset.h"
#include "ProgressStatus.h"
#include "VHSubtitle.h"

#include <QString>
#include <QStringList>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <optional>

class CTSubtitleExtractor;

class CTSubtitleExtractorDelegate
{
public:
    virtual ~CTSubtitleExtractorDelegate();
    // Every queued extraction has ended; on the main thread.
    virtual void subtitleExtractorFinished(CTSubtitleExtractor *extractor) = 0;
};

// Writes the subtitle tracks and the chapter track a movie carries into files beside it
// (movie.en.srt, movie.en-1.srt, movie.srt; movie.vtt), one job per track on a pool of
// worker threads, each with its own reader. Planning and its questions run on the main
// thread; the delegate is told on the main thread once every job has ended.
class CTSubtitleExtractor : public std::enable_shared_from_this<CTSubtitleExtractor>
{
public:
    static std::shared_ptr<CTSubtitleExtractor> initWithAsset(std::shared_ptr<const MovieAsset> asset,
                                                              const QString &path,
                                                              const ProgressStatusPtr &status);
    ~CTSubtitleExtractor();
    CTSubtitleExtractor(const CTSubtitleExtractor &) = delete;
    CTSubtitleExtractor &operator=(const CTSubtitleExtractor &) = delete;

    const ProgressStatusPtr &status() const { return m_status; }
    CTSubtitleExtractorDelegate *delegate() const { return m_delegate; }
    void setDelegate(CTSubtitleExtractorDelegate *delegate) { m_delegate = delegate; }

    // Plans and queues the extractions. An existing file is asked about ("Overwrite",
    // "Keep Both", "Skip"), or silently kept with `onlyMissing`.
    void extractSubtitles(bool subtitles, bool chapterMarks, bool onlyMissing);
    // The files the last planning queued, in order.
    const QStringList &queuedPaths() const { return m_queuedPaths; }
    // Jobs have been queued and their end has not yet been reported (main thread).
    bool isRunning() const { return m_running; }
    // Blocks until every job has ended (the delegate is still told through the main queue).
    void waitForDone() { m_pool.waitForDone(); }

    // Extracts one track (Kind::Text: the chapter track; trackID 0 with isSubtitle false:
    // the container's chapter list) into `path`; returns whether the file was written. Runs
    // on a worker thread.
    // A damaged movie gives what could be read, with a "Warning:" line, and `damaged` set;
    // samples with impossible times (negative, or beyond what a time text holds) are left
    // out, and a track without any text writes no file.
    static bool extractTextTrack(const QString &moviePath, int trackID, const QString &path, bool isSubtitle,
                                 bool *damaged = nullptr);
    // How many tracks of the last request were damaged or gave no file.
    int damagedTracks() const { return m_damaged; }

    // The text of one sample: UTF-8 after a 16-bit length, up to the first zero byte.
    static std::optional<QString> stringFromSampleBuffer(const QByteArray &sample);

    // The number of subtitle tracks of a movie; 0 for none (a movie libavformat cannot
    // read, played by the fallback player).
    static int extractableSubtitles(const MovieAsset *asset);
    // Whether the movie carries chapters.
    static bool extractableChapterMark(const MovieAsset *asset);

private:
    CTSubtitleExtractor() = default;
    void queue(int trackID, const QString &path, bool isSubtitle);
    void operationEnded();

    std::shared_ptr<const MovieAsset> m_asset;
    QString m_moviePath;
    ProgressStatusPtr m_status;
    CTSubtitleExtractorDelegate *m_delegate = nullptr;
    QThreadPool m_pool;
    std::atomic<int> m_pending{0}; // jobs queued or running
    std::atomic<int> m_damaged{0};
    bool m_running = false;
    QStringList m_queuedPaths;
};
