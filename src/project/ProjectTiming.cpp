// The fix range: the run of cues that moves with the current one, bounded by the nearest
// anchors, and whether a fix is allowed at the current playback time.
#include "CTWindowController.h"
#include "PlaybackControl.h"
#include "VHTimeValueTransformer.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

void CTWindowController::updateRangeNotification()
{
    const qsizetype count = m_subtitles.size();
    const qsizetype i = indexOfSubtitle(m_currentSubtitle.get());
    FixRange range;
    if (!m_currentSubtitle || i < 0) {
        range.first = 0;
        range.last = count - 1;
    } else if (m_fixMode == 3) {
        range.first = range.last = i;
    } else {
        if (i == 0) {
            range.first = 0;
        } else {
            // The nearest anchor before the current cue; cue 0 is looked at last.
            qsizetype j = i - 1;
            while (j >= 1 && !m_subtitles[j]->fixed())
                --j;
            range.first = m_subtitles[j]->fixed() ? j + 1 : j;
        }
        qsizetype k = i + 1 < count ? i + 1 : i;
        while (k < count - 1 && !m_subtitles[k]->fixed())
            ++k;
        range.last = k > i ? (m_subtitles[k]->fixed() ? k - 1 : k) : i;
    }
    const double infinity = std::numeric_limits<double>::infinity();
    const double d = m_movieDuration > 0 ? m_movieDuration : infinity;
    if (range.first <= 0 || range.first > count) {
        range.startChange = 0;
    } else {
        range.startChange = std::min(m_subtitles[range.first - 1]->start(), d);
        if (!(range.startChange > 0))
            range.startChange = 0;
    }
    if (range.last < count - 1 && range.last >= -1)
        range.endChange = std::max(std::min(m_subtitles[range.last + 1]->start(), d), 0.0);
    else
        range.endChange = d;
    m_range = range;

    // What the time view and the scrubber show.
    if (m_movieDuration > 0) {
        static const VHSuccinctTimeTransformer succinct;
        m_rangeDisplay.startFraction = range.startChange / m_movieDuration;
        m_rangeDisplay.endFraction = range.endChange / m_movieDuration;
        m_rangeDisplay.startText = succinct.transformedValue(range.startChange);
        m_rangeDisplay.endText = succinct.transformedValue(range.endChange);
    } else {
        m_rangeDisplay = {};
    }
    m_rangeDisplay.scrubberMinimum = range.startChange > 0 ? std::optional<double>(range.startChange) : std::nullopt;
    m_rangeDisplay.scrubberMaximum =
        range.endChange < m_movieDuration ? std::optional<double>(range.endChange) : std::nullopt;

    const bool hasCurrent = bool(m_currentSubtitle);
    for (qsizetype n = 0; n < count; ++n) {
        const bool active = hasCurrent && n >= range.first && n <= range.last;
        if (m_subtitles[n]->active() != active)
            m_subtitles[n]->setActive(active);
    }
    willChangeValueForKey(u"canFix"_s);
    didChangeValueForKey(u"canFix"_s);
}

bool CTWindowController::canFix() const
{
    if (!hasMovie())
        return false;
    if (m_fixMode == 2)
        return canShift();
    if (!m_currentSubtitle)
        return false;
    const double h = 0.5 / m_fps;
    const double t = m_player->currentTime();
    return m_range.startChange - h <= t && t <= m_range.endChange + h;
}

bool CTWindowController::canShift() const
{
    if (!m_currentSubtitle || m_subtitles.isEmpty() || !m_player)
        return false;
    const double d = m_player->currentTime() - m_start;
    const qsizetype last = m_subtitles.size() - 1;
    const qsizetype f = std::clamp<qsizetype>(m_range.first, 0, last);
    const qsizetype l = std::clamp<qsizetype>(m_range.last, 0, last);
    return m_subtitles[f]->start() + d >= m_range.startChange && m_subtitles[l]->start() + d <= m_range.endChange;
}

double CTWindowController::timeShift() const
{
    return m_currentTime - m_start;
}
