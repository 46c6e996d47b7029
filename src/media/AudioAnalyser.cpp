// The analyser: finds the track, splits it into chunks, decodes them on worker threads from
// the playing position outwards, and fills the analysis with peaks and speech.
#include "AudioAnalysis.h"

#include "AudioChunkDecoder.h"
#include "Log.h"
#include "RegularFile.h"
#include "SpeechDetection.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <sys/resource.h>

using namespace AudioDecoding;

namespace {

// Chunks are long enough that their run-in costs little, short enough that the first one
// shows soon and the workers share the track evenly.
constexpr double defaultChunkSeconds = 60;
// Decoded before a chunk's start and thrown away: the decoder's overlap, the resampler's
// history and the voice detector's noise estimate settle in it.
constexpr double runInSeconds = 1.5;
// Peaks are handed to the analysis at most this often per worker.
constexpr qint64 flushMilliseconds = 50;
// The speech segments are found again at most this often while the work goes on.
constexpr qint64 speechIntervalMilliseconds = 1000;

struct Chunk
{
    double start;
    double end;
};

// Chunks of the track in the order they are decoded: the one at `position` first, then
// alternately the next after and the next before it.
std::vector<Chunk> chunksOutwardsFrom(double duration, double position, double chunkSeconds)
{
    const auto count = std::max<qint64>(1, qint64(std::ceil(duration / chunkSeconds)));
    const qint64 first = std::clamp<qint64>(qint64(position / chunkSeconds), 0, count - 1);
    std::vector<Chunk> chunks;
    auto add = [&](qint64 i) {
        chunks.push_back(
            {double(i) * chunkSeconds, i == count - 1 ? duration : double(i + 1) * chunkSeconds});
    };
    add(first);
    for (qint64 step = 1; qint64(chunks.size()) < count; ++step) {
        if (first + step < count)
            add(first + step);
        if (first - step >= 0)
            add(first - step);
    }
    return chunks;
}

// The track the request names, or -1.
int findStream(AVFormatContext *input, int audioTrack)
{
    if (audioTrack < 0) {
        const int best = av_find_best_stream(input, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
        return best >= 0 ? best : -1;
    }
    int n = 0;
    for (unsigned i = 0; i < input->nb_streams; ++i) {
        if (input->streams[i]->codecpar->codec_type == AVMEDIA_TYPE_AUDIO && n++ == audioTrack)
            return int(i);
    }
    return -1;
}

// Collects one chunk's bins: peaks and what the voice detector decided.
class ChunkBins
{
public:
    ChunkBins(qint64 firstBin, qint64 endBin, VoiceDetector &detector)
        : m_firstBin(firstBin)
        , m_endBin(endBin)
        , m_detector(detector)
        , m_frame(size_t(samplesPerBin), 0.0f)
        , m_peaks(size_t(std::max<qint64>(0, endBin - firstBin)))
        , m_speech(m_peaks.size())
        , m_filled(m_peaks.size(), false)
    {}

    void add(qint64 first, const float *samples, int count)
    {
        for (int i = 0; i < count; ++i) {
            const qint64 index = first + i;
            const qint64 bin = index >= 0 ? index / samplesPerBin : -1 - (-index - 1) / samplesPerBin;
            if (bin != m_bin) {
                finishBin();
                m_bin = bin;
            }
            m_frame[size_t(index - bin * samplesPerBin)] = samples[i];
            ++m_count;
        }
    }

    // Ends the bin being collected (at the chunk's end or where the track ends).
    void finishBin()
    {
        if (m_count == 0)
            return;
        const bool voice = m_detector.hasVoice(m_frame.data());
        if (m_bin >= m_firstBin && m_bin < m_endBin) {
            const auto at = size_t(m_bin - m_firstBin);
            float low = 0;
            float high = 0;
            for (float s : m_frame) {
                low = std::min(low, s);
                high = std::max(high, s);
            }
            m_peaks[at] = {qint8(std::lround(std::clamp(low, -1.0f, 1.0f) * 127)),
                           qint8(std::lround(std::clamp(high, -1.0f, 1.0f) * 127))};
            m_speech[at] = {std::uint8_t(voice ? 1 : 0), frameLevel(m_frame.data(), samplesPerBin)};
            m_filled[at] = true;
        }
        std::fill(m_frame.begin(), m_frame.end(), 0.0f);
        m_count = 0;
    }

    qint64 firstBin() const { return m_firstBin; }
    const std::vector<PeakBin> &peaks() const { return m_peaks; }
    const std::vector<SpeechBin> &speech() const { return m_speech; }
    const std::vector<bool> &filled() const { return m_filled; }

private:
    qint64 m_firstBin;
    qint64 m_endBin;
    VoiceDetector &m_detector;
    std::vector<float> m_frame;
    qint64 m_bin = std::numeric_limits<qint64>::min();
    int m_count = 0;
    std::vector<PeakBin> m_peaks;
    std::vector<SpeechBin> m_speech;
    std::vector<bool> m_filled;
};

} // namespace

AudioAnalyser::AudioAnalyser(AudioAnalysisRequest request, Callbacks callbacks)
    : m_request(std::move(request))
    , m_callbacks(std::move(callbacks))
    , m_analysis(std::make_shared<AudioAnalysis>())
{}

AudioAnalyser::~AudioAnalyser()
{
    cancel();
    wait();
}

void AudioAnalyser::start()
{
    if (m_thread.joinable() || m_outcome != AudioAnalysisOutcome::Running)
        return;
    m_thread = std::thread([this] {
        // On Linux a nice value belongs to the thread that sets it, and the workers this
        // thread starts inherit it.
        if (m_request.lowPriority)
            ::setpriority(PRIO_PROCESS, 0, 10);
        work();
    });
}

void AudioAnalyser::cancel()
{
    m_cancelled = true;
}

void AudioAnalyser::wait()
{
    if (m_thread.joinable())
        m_thread.join();
}

AudioAnalysisOutcome AudioAnalyser::outcome() const
{
    return m_outcome;
}

QString AudioAnalyser::message() const
{
    std::lock_guard lock(m_mutex);
    return m_message;
}

AudioAnalysisOutcome AudioAnalyser::run()
{
    if (m_thread.joinable())
        wait();
    else if (m_outcome == AudioAnalysisOutcome::Running)
        work();
    return m_outcome;
}

void AudioAnalyser::work()
{
    auto finish = [this](AudioAnalysisOutcome outcome, const QString &message) {
        if (!message.isEmpty())
            logLine(message);
        {
            std::lock_guard lock(m_mutex);
            m_message = message;
        }
        m_outcome = outcome;
        if (m_callbacks.finished)
            m_callbacks.finished(outcome, message);
    };
    auto fail = [&](const QString &reason) {
        m_analysis->setBinCount(0);
        m_analysis->setSpeech({});
        finish(AudioAnalysisOutcome::Failed,
               QStringLiteral("Info: The sound of \"%1\" cannot be analysed: %2.")
                   .arg(m_request.moviePath, reason));
    };

    if (m_request.useCache && AudioAnalysisCache::load(m_request, *m_analysis)) {
        if (m_callbacks.binsFilled)
            m_callbacks.binsFilled(0, m_analysis->binCount());
        if (m_callbacks.speechChanged)
            m_callbacks.speechChanged();
        finish(AudioAnalysisOutcome::FromCache, {});
        return;
    }

    // Only a regular file: the demuxer would wait on a FIFO for ever.
    if (const auto refused = RegularFile::check(m_request.moviePath, std::numeric_limits<qint64>::max()))
        return fail(refused->reason);
    QString error;
    LibAv::Input input = LibAv::openInput(m_request.moviePath, &error);
    if (!input)
        return fail(error);
    const int streamIndex = findStream(input.get(), m_request.audioTrack);
    if (streamIndex < 0)
        return fail(m_request.audioTrack < 0
                        ? QStringLiteral("it has no audio track")
                        : QStringLiteral("it has no audio track %1").arg(m_request.audioTrack + 1));
    const AVStream *stream = input->streams[streamIndex];
    TrackInfo track;
    track.path = m_request.moviePath;
    track.streamIndex = streamIndex;
    track.parameters.reset(avcodec_parameters_alloc());
    if (!track.parameters || avcodec_parameters_copy(track.parameters.get(), stream->codecpar) < 0)
        return fail(QStringLiteral("out of memory"));
    track.timeBase = stream->time_base;
    track.startTime = input->start_time != AV_NOPTS_VALUE ? double(input->start_time) / AV_TIME_BASE : 0;
    track.centreChannelOnly = m_request.centreChannelOnly;
    if (stream->duration != AV_NOPTS_VALUE && stream->duration > 0)
        track.duration = double(stream->duration) * av_q2d(stream->time_base);
    if (track.duration <= 0 && input->duration != AV_NOPTS_VALUE && input->duration > 0)
        track.duration = double(input->duration) / AV_TIME_BASE;
    if (!(track.duration > 0) || track.duration > 1e6)
        return fail(QStringLiteral("its length is unknown"));

    input.reset();
    const auto binCount = qint64(std::ceil(track.duration * AudioAnalysis::binsPerSecond - 1e-6));
    m_analysis->setBinCount(binCount);
    std::vector<SpeechBin> speechBins(static_cast<size_t>(binCount));
    std::mutex speechMutex;
    QElapsedTimer sinceSpeech;

    const std::vector<Chunk> chunks = chunksOutwardsFrom(
        track.duration, m_request.startPosition,
        m_request.chunkSeconds > 0 ? std::max(m_request.chunkSeconds, 1.0) : defaultChunkSeconds);
    std::atomic<size_t> nextChunk{0};
    std::atomic<qint64> decodedSamples{0};
    std::atomic<int> errors{0};
    QString openError;
    std::mutex errorMutex;

    auto worker = [&] {
        ChunkDecoder decoder(track);
        QString workerError;
        if (!decoder.open(&workerError)) {
            std::lock_guard lock(errorMutex);
            openError = workerError;
            return;
        }
        VoiceDetector detector;
        QElapsedTimer sinceFlush;
        for (size_t c = nextChunk++; c < chunks.size() && !m_cancelled; c = nextChunk++) {
            const Chunk &chunk = chunks[c];
            const auto firstBin = qint64(std::llround(chunk.start * AudioAnalysis::binsPerSecond));
            // The last chunk ends with the track's last bin, however little of it there is.
            const auto endBin =
                chunk.end >= track.duration
                    ? binCount
                    : std::min(binCount, qint64(std::llround(chunk.end * AudioAnalysis::binsPerSecond)));
            const qint64 chunkEnd =
                chunk.end >= track.duration ? std::numeric_limits<qint64>::max() / 2 : endBin * samplesPerBin;
            detector.reset();
            ChunkBins bins(firstBin, endBin, detector);
            qint64 flushed = firstBin;
            sinceFlush.start();
            auto flush = [&](qint64 upTo) {
                upTo = std::min(upTo, endBin);
                if (upTo <= flushed)
                    return;
                // Only filled bins go to the analysis: a gap in the track stays empty.
                for (qint64 b = flushed; b < upTo;) {
                    if (!bins.filled()[size_t(b - firstBin)]) {
                        ++b;
                        continue;
                    }
                    qint64 e = b;
                    while (e < upTo && bins.filled()[size_t(e - firstBin)])
                        ++e;
                    m_analysis->fill(b, bins.peaks().data() + (b - firstBin), e - b);
                    b = e;
                }
                if (m_callbacks.binsFilled)
                    m_callbacks.binsFilled(flushed, upTo);
                flushed = upTo;
                sinceFlush.restart();
            };
            const qint64 end =
                decoder.decode(chunk.start, double(chunkEnd) / sampleRate, runInSeconds,
                               [&](qint64 first, const float *samples, int count) {
                                   bins.add(first, samples, count);
                                   if (first + count > firstBin * samplesPerBin)
                                       decodedSamples +=
                                           std::min<qint64>(count, first + count - firstBin * samplesPerBin);
                                   if (sinceFlush.elapsed() >= flushMilliseconds)
                                       flush((first + count - 1) / samplesPerBin); // the last bin may go on
                                   return !m_cancelled.load();
                               });
            bins.finishBin();
            if (m_cancelled)
                break;
            flush(std::max(end / samplesPerBin + 1, endBin));
            bool speechChanged = false;
            {
                std::lock_guard lock(speechMutex);
                for (size_t i = 0; i < bins.speech().size(); ++i) {
                    if (bins.filled()[i])
                        speechBins[size_t(firstBin) + i] = bins.speech()[i];
                }
                // Finding the segments goes over the whole track: while the work goes on, that
                // is done now and then, and once more at the end.
                if (!sinceSpeech.isValid() || sinceSpeech.elapsed() >= speechIntervalMilliseconds) {
                    m_analysis->setSpeech(speechSegments(speechBins));
                    sinceSpeech.start();
                    speechChanged = true;
                }
            }
            if (speechChanged && m_callbacks.speechChanged)
                m_callbacks.speechChanged();
        }
        errors += decoder.errorCount();
    };

    int threads = m_request.threads > 0 ? m_request.threads
                                        : std::clamp(int(std::thread::hardware_concurrency()), 1, 4);
    threads = std::clamp<int>(threads, 1, int(chunks.size()));
    std::vector<std::thread> workers;
    for (int i = 1; i < threads; ++i)
        workers.emplace_back(worker);
    worker();
    for (std::thread &t : workers)
        t.join();

    if (m_cancelled) {
        m_outcome = AudioAnalysisOutcome::Cancelled;
        return;
    }
    if (!openError.isEmpty())
        return fail(openError);
    if (decodedSamples == 0)
        return fail(QStringLiteral("no sound could be decoded"));
    m_analysis->setSpeech(speechSegments(speechBins));
    if (m_callbacks.speechChanged)
        m_callbacks.speechChanged();
    m_analysis->markComplete();
    QString message;
    if (m_analysis->speech().isEmpty())
        message =
            QStringLiteral("Info: No speech was found in the sound of \"%1\".").arg(m_request.moviePath);
    if (m_request.useCache) {
        QString cacheError;
        if (!AudioAnalysisCache::store(m_request, *m_analysis, &cacheError))
            logLine(QStringLiteral("Info: The sound's analysis could not be cached: %1").arg(cacheError));
    }
    finish(AudioAnalysisOutcome::Finished, message);
}
