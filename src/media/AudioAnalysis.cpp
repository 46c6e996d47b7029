// The thread-safe store of a track's peaks and speech, and snapping to speech onsets.
#include "AudioAnalysis.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float peakScale = 127.0f;

} // namespace

qint64 AudioAnalysis::binCount() const
{
    std::lock_guard lock(m_mutex);
    return qint64(m_peaks.size());
}

qint64 AudioAnalysis::filledCount() const
{
    std::lock_guard lock(m_mutex);
    return m_filledCount;
}

bool AudioAnalysis::isComplete() const
{
    std::lock_guard lock(m_mutex);
    return m_complete;
}

bool AudioAnalysis::isFilled(qint64 bin) const
{
    std::lock_guard lock(m_mutex);
    return bin >= 0 && bin < qint64(m_filled.size()) && m_filled[size_t(bin)];
}

PeakBin AudioAnalysis::bin(qint64 bin) const
{
    std::lock_guard lock(m_mutex);
    if (bin < 0 || bin >= qint64(m_filled.size()) || !m_filled[size_t(bin)])
        return {};
    return m_peaks[size_t(bin)];
}

QList<AudioAnalysis::Span> AudioAnalysis::columns(double start, double end, int columns) const
{
    QList<Span> spans;
    if (columns <= 0 || !(end > start))
        return spans;
    spans.resize(columns);
    std::lock_guard lock(m_mutex);
    const auto count = qint64(m_peaks.size());
    const double binsPerColumn = (end - start) * binsPerSecond / columns;
    for (int c = 0; c < columns; ++c) {
        const double from = start * binsPerSecond + c * binsPerColumn;
        auto first = qint64(std::floor(from));
        // A column narrower than a bin still shows the bin it falls in.
        auto last = std::max(first + 1, qint64(std::ceil(from + binsPerColumn)));
        first = std::clamp<qint64>(first, 0, count);
        last = std::clamp<qint64>(last, 0, count);
        Span &span = spans[c];
        int low = 127;
        int high = -127;
        for (qint64 b = first; b < last; ++b) {
            if (!m_filled[size_t(b)])
                continue;
            span.filled = true;
            low = std::min<int>(low, m_peaks[size_t(b)].min);
            high = std::max<int>(high, m_peaks[size_t(b)].max);
        }
        if (span.filled) {
            span.min = float(low) / peakScale;
            span.max = float(high) / peakScale;
        }
    }
    return spans;
}

QList<SpeechSegment> AudioAnalysis::speech() const
{
    std::lock_guard lock(m_mutex);
    return m_speech;
}

QList<double> AudioAnalysis::speechOnsets() const
{
    std::lock_guard lock(m_mutex);
    QList<double> onsets;
    onsets.reserve(m_speech.size());
    for (const SpeechSegment &segment : m_speech)
        onsets.append(segment.start);
    return onsets;
}

void AudioAnalysis::setBinCount(qint64 count)
{
    std::lock_guard lock(m_mutex);
    count = std::max<qint64>(count, 0);
    if (count < qint64(m_filled.size()))
        m_filledCount = std::count(m_filled.begin(), m_filled.begin() + count, true);
    m_peaks.resize(size_t(count));
    m_filled.resize(size_t(count), false);
}

void AudioAnalysis::fill(qint64 first, const PeakBin *peaks, qint64 count)
{
    std::lock_guard lock(m_mutex);
    const auto size = qint64(m_peaks.size());
    for (qint64 i = std::max<qint64>(0, -first); i < count && first + i < size; ++i) {
        const auto b = size_t(first + i);
        m_peaks[b] = peaks[i];
        if (!m_filled[b]) {
            m_filled[b] = true;
            ++m_filledCount;
        }
    }
}

void AudioAnalysis::setSpeech(QList<SpeechSegment> segments)
{
    std::lock_guard lock(m_mutex);
    m_speech = std::move(segments);
}

void AudioAnalysis::markComplete()
{
    std::lock_guard lock(m_mutex);
    m_complete = true;
}

void AudioAnalysis::assign(std::vector<PeakBin> peaks, QList<SpeechSegment> speech)
{
    std::lock_guard lock(m_mutex);
    m_peaks = std::move(peaks);
    m_filled.assign(m_peaks.size(), true);
    m_filledCount = qint64(m_peaks.size());
    m_speech = std::move(speech);
    m_complete = true;
}

std::vector<PeakBin> AudioAnalysis::peaks() const
{
    std::lock_guard lock(m_mutex);
    return m_peaks;
}

std::optional<double> snapToSpeechOnset(const QList<double> &onsets, double time, double window)
{
    if (!std::isfinite(time) || !(window >= 0))
        return std::nullopt;
    const auto after = std::lower_bound(onsets.begin(), onsets.end(), time);
    std::optional<double> best;
    double bestDistance = window;
    if (after != onsets.begin()) {
        const double before = *std::prev(after);
        if (time - before <= bestDistance) {
            best = before;
            bestDistance = time - before;
        }
    }
    if (after != onsets.end() && *after - time <= bestDistance && (!best || *after - time < bestDistance))
        best = *after;
    return best;
}
