#pragma once

// Decodes stretches of one audio track to 8 kHz mono for the analyser. Each worker thread
// owns one decoder (its own demuxer, decoder and resampler) and asks it for chunk after
// chunk; a chunk is decoded from a seek point a little before its start so that the
// decoder and the speech detector have settled when its first bin begins.

#include "LibAv.h"

#include <functional>
#include <memory>

struct AVCodecContext;
struct SwrContext;

namespace AudioDecoding {

constexpr int sampleRate = 8000;
constexpr int samplesPerBin = sampleRate / 100;

// The track as the main thread found it; shared read-only with the workers.
struct TrackInfo
{
    QString path;
    int streamIndex = -1;
    struct ParametersFree
    {
        void operator()(AVCodecParameters *parameters) const { avcodec_parameters_free(&parameters); }
    };
    // A copy: the demuxer that found the track is closed before the workers open theirs,
    // so that only theirs hold the file's index (some 10 MB for a two-hour MP4).
    std::unique_ptr<AVCodecParameters, ParametersFree> parameters;
    AVRational timeBase{1, 1};
    double startTime = 0; // the file's start: time 0 of the timeline
    double duration = 0;
    bool centreChannelOnly = false;
};

// Receives the samples of a chunk in order: `first` is the absolute index (at 8 kHz, from
// time 0) of samples[0]. Samples before the chunk's start (the run-in) come too, so that a
// detector can settle; the receiver keeps from the chunk's start on. Returning false stops
// the chunk (cancelled).
using SampleSink = std::function<bool(qint64 first, const float *samples, int count)>;

class ChunkDecoder
{
public:
    ChunkDecoder(const TrackInfo &track);
    ~ChunkDecoder();
    ChunkDecoder(const ChunkDecoder &) = delete;
    ChunkDecoder &operator=(const ChunkDecoder &) = delete;

    // Opens the file and the decoder; false with `error` set when it cannot.
    bool open(QString *error);
    // Decodes [start, end) seconds, beginning `runIn` seconds earlier, handing the samples to
    // `sink`. Returns the absolute index after the last sample handed over (the chunk's end,
    // or earlier when the track ends or breaks off).
    qint64 decode(double start, double end, double runIn, const SampleSink &sink);
    // Read or decoding errors met so far.
    int errorCount() const { return m_errors; }

private:
    bool resetResampler();
    bool emitFrame(AVFrame *frame, qint64 endSample, const SampleSink &sink, bool *stop);

    const TrackInfo &m_track;
    LibAv::Input m_input;
    AVCodecContext *m_codec = nullptr;
    SwrContext *m_swr = nullptr;
    int m_swrChannels = 0;
    int m_swrRate = 0;
    int m_swrFormat = -1;
    qint64 m_position = -1; // absolute index of the next resampled sample; -1 before the first
    std::vector<float> m_buffer;
    int m_errors = 0;
};

} // namespace AudioDecoding
