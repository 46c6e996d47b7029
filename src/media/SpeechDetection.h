#pragma once

// Speech detection for the analyser: the WebRTC voice detector decides per 10 ms frame, and a
// pure smoothing step turns those decisions and the frames' loudness into speech segments.

#include "AudioAnalysis.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace webrtc {
class AudioProcessing;
}

// What the detector keeps of one 10 ms bin.
struct SpeechBin
{
    static constexpr std::uint8_t unknown = 255;
    std::uint8_t voice = unknown; // 1 when the voice detector heard speech, 0 when not
    std::int8_t level = -127;     // loudness in dB below full scale (RMS), -127 for silence
};

// One voice detector, fed 10 ms frames of 8 kHz mono in order. Not thread-safe: one per
// worker thread.
class VoiceDetector
{
public:
    static constexpr int frameSamples = 80;
    VoiceDetector();
    ~VoiceDetector();
    VoiceDetector(const VoiceDetector &) = delete;
    VoiceDetector &operator=(const VoiceDetector &) = delete;
    bool isValid() const { return m_processing != nullptr; }
    // Starts over (a new stretch of the track).
    void reset();
    // The decision for the next frame of `frameSamples` samples in -1..1.
    bool hasVoice(const float *frame);

private:
    std::unique_ptr<webrtc::AudioProcessing> m_processing;
    std::vector<float> m_scratch;
};

// The loudness of a frame in dB below full scale, as a `SpeechBin` keeps it.
std::int8_t frameLevel(const float *samples, int count);

struct SpeechSmoothing
{
    bool useVoiceDetector = true; // a bin is speech only where the voice detector heard it
    int levelSmoothing = 5;       // bins over which the loudness is averaged
    double floorWindow = 3.0;     // seconds each side over which the background level is found
    int floorPercentile = 10;     // the background is this percentile of the bins' loudness
    int speechAbove = 6;          // dB above the background that speech stands out by
    int edgeAbove = 6;            // dB above the background where a segment's edges are placed
    int quietest = -55;           // quieter bins are never speech (dB below full scale)
    double hangover = 0.30;       // gaps shorter than this inside speech are bridged
    double minimumSpeech = 0.10;  // shorter bursts are dropped
    double edgeSearch = 0.05;     // how far beyond a detected edge the true edge is looked for
};

// The speech segments of a track's bins (bins whose voice is `unknown` count as no speech).
// A bin is speech when it stands out from the background around it (a low percentile of the
// loudness over a few seconds, so steady noise or music below the voices is not speech) and,
// with `useVoiceDetector`, when the voice detector heard a voice in it.
QList<SpeechSegment> speechSegments(const std::vector<SpeechBin> &bins,
                                    const SpeechSmoothing &smoothing = SpeechSmoothing());
