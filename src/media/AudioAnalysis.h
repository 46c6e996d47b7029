#pragma once

// What the timeline shows of a movie's sound: a waveform as peaks (the lowest and highest
// sample of every 10 ms) and where speech is. An `AudioAnalyser` decodes one audio track off
// the GUI thread and fills an `AudioAnalysis` progressively, outwards from the playing
// position; the result is cached per file so that the next opening shows it at once.
//
// Thread safety: an `AudioAnalysis` may be read from any thread while the analyser writes it;
// every member function takes its own lock. The analyser's callbacks run on its worker
// threads: a GUI posts them to its own thread (QMetaObject::invokeMethod with a context
// object) and reads the analysis there.

#include <QList>
#include <QString>
#include <QtGlobal>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

// One 10 ms bin of the waveform: its lowest and highest sample, scaled to -127..127.
struct PeakBin
{
    qint8 min = 0;
    qint8 max = 0;
};

// A stretch of detected speech, in seconds of the movie.
struct SpeechSegment
{
    double start = 0;
    double end = 0;
    friend bool operator==(const SpeechSegment &, const SpeechSegment &) = default;
};

// The peaks and speech of one audio track, filled bin by bin. A bin that is not filled yet
// (or could not be decoded) has no peak; the timeline draws nothing there.
class AudioAnalysis
{
public:
    static constexpr int binsPerSecond = 100;

    // The lowest and highest sample (-1..1) over a span of bins; `filled` is false when no
    // bin of the span is filled yet.
    struct Span
    {
        float min = 0;
        float max = 0;
        bool filled = false;
    };

    AudioAnalysis() = default;
    AudioAnalysis(const AudioAnalysis &) = delete;
    AudioAnalysis &operator=(const AudioAnalysis &) = delete;

    // Bins of the whole track (its duration × 100, rounded up); 0 until the track's duration
    // is known.
    qint64 binCount() const;
    double duration() const { return double(binCount()) / binsPerSecond; }
    qint64 filledCount() const;
    bool isComplete() const;
    bool isFilled(qint64 bin) const;
    // The bin's peak; {0, 0} when it is not filled.
    PeakBin bin(qint64 bin) const;

    // The peaks of `columns` equal columns from `start` to `end` seconds (a pixel column
    // each), under one lock: what a paint event asks for.
    QList<Span> columns(double start, double end, int columns) const;

    // Detected speech, in time order, not overlapping. While the analysis runs these are the
    // segments found so far in the filled parts.
    QList<SpeechSegment> speech() const;
    // The starts of the speech segments, in time order.
    QList<double> speechOnsets() const;

    // Filling, for the analyser and the cache. `setBinCount` keeps what is filled.
    void setBinCount(qint64 count);
    // Fills bins [first, first + count); bins outside the track are ignored.
    void fill(qint64 first, const PeakBin *peaks, qint64 count);
    void setSpeech(QList<SpeechSegment> segments);
    void markComplete();
    // Everything at once (a cache hit): the bins, all filled, and the speech.
    void assign(std::vector<PeakBin> peaks, QList<SpeechSegment> speech);
    // Copies of the bins and their filled state, for writing the cache.
    std::vector<PeakBin> peaks() const;

private:
    mutable std::mutex m_mutex;
    std::vector<PeakBin> m_peaks;
    std::vector<bool> m_filled;
    qint64 m_filledCount = 0;
    QList<SpeechSegment> m_speech;
    bool m_complete = false;
};

// What to analyse.
struct AudioAnalysisRequest
{
    QString moviePath;
    // The n-th audio track of the file (0-based, in the order of the file's streams); -1 for
    // the track the file marks as its default, or else its first.
    int audioTrack = -1;
    // Takes only the centre channel of a track with one (5.1, 7.1), where films keep their
    // dialogue; else every channel is mixed down to one.
    bool centreChannelOnly = false;
    // The playing position in seconds: the peaks around it are produced first, then outwards.
    double startPosition = 0;
    // The folder of the cache; empty for `AudioAnalysisCache::defaultFolder()`. No cache is
    // read or written when `useCache` is false.
    QString cacheFolder;
    bool useCache = true;
    // Parts decoded at once, from different seek points; 0 for the number of cores (at most 4).
    int threads = 0;
    // Length of the parts the track is decoded in; 0 for the analyser's own choice. Tests
    // use short parts to check that the parts join exactly.
    double chunkSeconds = 0;
    // With start(), runs the analysis's threads at a lower priority (nice 10), so that a
    // window's own threads (drawing, the player) stay quick while the analysis uses what is
    // left of the cores.
    bool lowPriority = false;
};

// Where an analysis ended.
enum class AudioAnalysisOutcome {
    Running,
    Finished,  // every bin filled and speech detected (or read from the cache)
    FromCache, // the same, read from the cache
    Failed,    // no usable track: the analysis stays empty; `message()` is its "Info:" line
    Cancelled,
};

// Decodes one audio track on threads of its own and fills an `AudioAnalysis`. The
// destructor cancels and waits, so a window simply drops its analyser when the movie changes.
class AudioAnalyser
{
public:
    struct Callbacks
    {
        // Bins [first, end) were filled (any thread; may come often, at most about every
        // 50 ms per worker). Also called once with the whole range on a cache hit.
        std::function<void(qint64 first, qint64 end)> binsFilled;
        // The speech segments changed (any thread).
        std::function<void()> speechChanged;
        // Called exactly once at the end (any thread), unless cancelled: with
        // Finished/FromCache, or with Failed and the "Info:" line that was logged.
        std::function<void(AudioAnalysisOutcome outcome, const QString &message)> finished;
    };

    explicit AudioAnalyser(AudioAnalysisRequest request, Callbacks callbacks = {});
    ~AudioAnalyser();
    AudioAnalyser(const AudioAnalyser &) = delete;
    AudioAnalyser &operator=(const AudioAnalyser &) = delete;

    // Starts the work in the background and returns at once.
    void start();
    // Asks the work to stop; `finished` is then not called. Returns at once.
    void cancel();
    // Blocks until the work has ended (finished, failed or cancelled).
    void wait();

    const AudioAnalysisRequest &request() const { return m_request; }
    // The analysis being filled; valid from construction, shared with the reader.
    std::shared_ptr<const AudioAnalysis> analysis() const { return m_analysis; }
    AudioAnalysisOutcome outcome() const;
    // The "Info:" line of a failure; empty otherwise.
    QString message() const;

    // Runs the whole analysis on the calling thread (with worker threads of its own) and
    // returns when it ends: for the command line and tests.
    AudioAnalysisOutcome run();

private:
    void work();

    AudioAnalysisRequest m_request;
    Callbacks m_callbacks;
    std::shared_ptr<AudioAnalysis> m_analysis;
    std::atomic<bool> m_cancelled{false};
    std::atomic<AudioAnalysisOutcome> m_outcome{AudioAnalysisOutcome::Running};
    mutable std::mutex m_mutex;
    QString m_message;
    std::thread m_thread;
};

// The cache of analyses under $XDG_CACHE_HOME/captora/ (default ~/.cache/captora/): one
// file per movie file, track and channel choice, keyed by the file's identity (size,
// modification time and a hash of its first and last megabyte), written atomically.
namespace AudioAnalysisCache {

QString defaultFolder();
// The identity of the file as a hex string; empty when it cannot be read.
QString fileIdentity(const QString &moviePath);
// The cache file of a request; empty when the movie cannot be read.
QString cacheFilePath(const AudioAnalysisRequest &request);
// Fills `analysis` from the cache; false (and `analysis` untouched) on a miss or an
// unreadable entry.
bool load(const AudioAnalysisRequest &request, AudioAnalysis &analysis);
// Writes a complete analysis; false with `error` set when it cannot.
bool store(const AudioAnalysisRequest &request, const AudioAnalysis &analysis, QString *error = nullptr);

} // namespace AudioAnalysisCache

// The speech onset nearest to `time` no farther than `window` seconds away, or none.
// `onsets` are in time order. On a tie the earlier onset wins.
std::optional<double> snapToSpeechOnset(const QList<double> &onsets, double time, double window = 0.25);
