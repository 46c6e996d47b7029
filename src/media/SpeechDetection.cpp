// The WebRTC voice detector and the smoothing of its decisions into speech segments.
#include "SpeechDetection.h"

#include <webrtc/modules/audio_processing/include/audio_processing.h>

#include <algorithm>
#include <array>
#include <cmath>

VoiceDetector::VoiceDetector()
    : m_scratch(frameSamples)
{
    reset();
}

VoiceDetector::~VoiceDetector() = default;

void VoiceDetector::reset()
{
    m_processing.reset(webrtc::AudioProcessing::Create());
    if (!m_processing)
        return;
    webrtc::VoiceDetection *detection = m_processing->voice_detection();
    if (detection->Enable(true) != webrtc::AudioProcessing::kNoError ||
        detection->set_likelihood(webrtc::VoiceDetection::kLowLikelihood) !=
            webrtc::AudioProcessing::kNoError)
        m_processing.reset();
}

bool VoiceDetector::hasVoice(const float *frame)
{
    if (!m_processing)
        return false;
    const webrtc::StreamConfig config(8000, 1, false);
    const float *source[] = {frame};
    float *destination[] = {m_scratch.data()};
    if (m_processing->ProcessStream(source, config, config, destination) != webrtc::AudioProcessing::kNoError)
        return false;
    return m_processing->voice_detection()->stream_has_voice();
}

std::int8_t frameLevel(const float *samples, int count)
{
    double sum = 0;
    for (int i = 0; i < count; ++i)
        sum += double(samples[i]) * samples[i];
    if (count <= 0 || sum <= 0)
        return -127;
    const double db = 10 * std::log10(sum / count);
    return std::int8_t(std::clamp(std::lround(db), -127L, 0L));
}

namespace {

// The background loudness around every bin: a low percentile of the known bins' levels in a
// sliding window, kept as a histogram of the 128 possible levels.
std::vector<std::int8_t> backgroundLevels(const std::vector<SpeechBin> &bins, qint64 halfWindow,
                                          int percentile)
{
    const auto count = qint64(bins.size());
    std::vector<std::int8_t> floor(bins.size(), -127);
    // Buckets by quietness: bucket q holds the level -q.
    std::array<int, 128> histogram{};
    int known = 0;
    int bucket = 127;    // the percentile's bucket so far
    int atOrQuieter = 0; // known levels in `bucket` and the quieter ones
    auto change = [&](qint64 b, int delta) {
        if (b < 0 || b >= count || bins[size_t(b)].voice == SpeechBin::unknown)
            return;
        const int q = -bins[size_t(b)].level;
        histogram[size_t(q)] += delta;
        known += delta;
        if (q >= bucket)
            atOrQuieter += delta;
    };
    for (qint64 b = 0; b < std::min(count, halfWindow); ++b)
        change(b, 1);
    for (qint64 b = 0; b < count; ++b) {
        change(b + halfWindow, 1);
        change(b - halfWindow - 1, -1);
        if (known == 0)
            continue;
        const int wanted = std::max(1, known * percentile / 100);
        // The window moved by one bin: the percentile moves by a few buckets at most.
        while (atOrQuieter < wanted && bucket > 0)
            atOrQuieter += histogram[size_t(--bucket)];
        while (bucket < 127 && atOrQuieter - histogram[size_t(bucket)] >= wanted)
            atOrQuieter -= histogram[size_t(bucket++)];
        floor[size_t(b)] = std::int8_t(-bucket);
    }
    return floor;
}

// Powers of the 128 levels, and the level of a power, without a logarithm per bin.
const std::array<double, 128> &levelPowers()
{
    static const std::array<double, 128> powers = [] {
        std::array<double, 128> p{};
        for (int q = 0; q < 128; ++q)
            p[size_t(q)] = std::pow(10.0, -q / 10.0);
        return p;
    }();
    return powers;
}

std::int8_t levelOfPower(double power)
{
    // The nearest level in decibels: thresholds halfway (in dB) between neighbouring levels.
    static const std::array<double, 128> thresholds = [] {
        std::array<double, 128> t{};
        for (int q = 0; q < 128; ++q)
            t[size_t(q)] = std::pow(10.0, (-q - 0.5) / 10.0);
        return t;
    }();
    // thresholds fall with q: find the first q whose threshold the power reaches.
    const auto at = std::upper_bound(thresholds.begin(), thresholds.end(), power, std::greater<double>());
    return std::int8_t(-std::min<qint64>(127, at - thresholds.begin()));
}

} // namespace

QList<SpeechSegment> speechSegments(const std::vector<SpeechBin> &bins, const SpeechSmoothing &smoothing)
{
    const auto count = qint64(bins.size());
    const auto perSecond = AudioAnalysis::binsPerSecond;
    const auto hangover = qint64(std::lround(smoothing.hangover * perSecond));
    const auto minimum = qint64(std::lround(smoothing.minimumSpeech * perSecond));
    const auto search = qint64(std::lround(smoothing.edgeSearch * perSecond));
    // The loudness over a few bins around each: a single 10 ms bin of noise often stands out
    // from the noise around it, a stretch of speech stands out as a whole.
    std::vector<SpeechBin> smoothed = bins;
    const int reach = smoothing.levelSmoothing / 2;
    for (qint64 b = 0; b < count; ++b) {
        double power = 0;
        int n = 0;
        for (qint64 i = std::max<qint64>(0, b - reach); i <= std::min(count - 1, b + reach); ++i) {
            if (bins[size_t(i)].voice == SpeechBin::unknown)
                continue;
            power += levelPowers()[size_t(-bins[size_t(i)].level)];
            ++n;
        }
        if (n > 0)
            smoothed[size_t(b)].level = levelOfPower(power / n);
    }
    const std::vector<std::int8_t> floor = backgroundLevels(
        smoothed, qint64(std::lround(smoothing.floorWindow * perSecond)), smoothing.floorPercentile);

    auto above = [&](const std::vector<SpeechBin> &levels, qint64 b, int margin) {
        const SpeechBin &bin = levels[size_t(b)];
        return bin.voice != SpeechBin::unknown && bin.level >= smoothing.quietest &&
               bin.level >= floor[size_t(b)] + margin;
    };
    auto isSpeech = [&](qint64 b) {
        return above(smoothed, b, smoothing.speechAbove) &&
               (!smoothing.useVoiceDetector || bins[size_t(b)].voice == 1);
    };

    // Runs of speech bins, with short gaps bridged.
    struct Run
    {
        qint64 first;
        qint64 end;
    };
    std::vector<Run> runs;
    for (qint64 b = 0; b < count;) {
        if (!isSpeech(b)) {
            ++b;
            continue;
        }
        qint64 e = b;
        while (e < count && isSpeech(e))
            ++e;
        if (!runs.empty() && b - runs.back().end < hangover)
            runs.back().end = e;
        else
            runs.push_back({b, e});
        b = e;
    }

    QList<SpeechSegment> segments;
    for (Run run : runs) {
        if (run.end - run.first < minimum)
            continue;
        // The edges: where the loudness first rises above the background before the run, and
        // last stays above it after.
        for (qint64 limit = std::max<qint64>(0, run.first - search);
             run.first > limit && above(bins, run.first - 1, smoothing.edgeAbove);)
            --run.first;
        for (qint64 limit = std::min(count, run.end + search);
             run.end < limit && above(bins, run.end, smoothing.edgeAbove);)
            ++run.end;
        const SpeechSegment segment{double(run.first) / perSecond, double(run.end) / perSecond};
        if (!segments.isEmpty() && segment.start <= segments.back().end)
            segments.back().end = std::max(segments.back().end, segment.end);
        else
            segments.append(segment);
    }
    return segments;
}
