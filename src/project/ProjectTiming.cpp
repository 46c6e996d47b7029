// The fix range: the run of cues that moves with the current one, bounded by the nearest
// anchors, and whether a fix is allowed at the current playback time.
#include "CTWindowController.h"
#include "Log.h"
#include "PlaybackControl.h"
#include "ProjectView.h"
#include "Prompter.h"
#include "Settings.h"
#include "VHTimeValueTransformer.h"

#include <algorithm>
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
    m_rangeDisplay.scrubberMinimum =
        range.startChange > 0 ? std::optional<double>(range.startChange) : std::nullopt;
    m_rangeDisplay.scrubberMaximum =
        range.endChange < m_movieDuration ? std::optional<double>(range.endChange) : std::nullopt;

    const bool hasCurrent = bool(m_currentSubtitle);
    qsizetype firstFlipped = -1, lastFlipped = -1;
    for (qsizetype n = 0; n < count; ++n) {
        const bool active = hasCurrent && n >= range.first && n <= range.last;
        if (m_subtitles[n]->active() != active) {
            m_subtitles[n]->setActive(active);
            if (firstFlipped < 0)
                firstFlipped = n;
            lastFlipped = n;
        }
    }
    // The table dims the lines outside the run: only the lines that changed are drawn again.
    if (firstFlipped >= 0)
        m_editor->rowsChanged(firstFlipped, lastFlipped);
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
    return m_subtitles[f]->start() + d >= m_range.startChange &&
           m_subtitles[l]->start() + d <= m_range.endChange;
}

double CTWindowController::timeShift() const
{
    return m_currentTime - m_start;
}

// --- modes ---------------------------------------------------------------------------------------

void CTWindowController::setFixMode(int mode)
{
    const int old = m_fixMode;
    willChangeValueForKey(u"fixMode"_s);
    m_fixMode = mode;
    didChangeValueForKey(u"fixMode"_s);
    updateRangeNotification();

    if (mode == 4 && old != 4) {
        // The whole list shows while tapping.
        if (!m_searchString.isEmpty())
            setSearchString(QString());
        if (!m_currentSubtitle) {
            const qsizetype index = std::max<qsizetype>(subtitleIndexAtTime(m_currentTime) - 1, 0);
            if (index < arrangedSubtitles().size())
                setSelectionIndices({index});
        }
        if (Settings::shared().boolValue(u"TapFixPrev"_s) && !m_selection.isEmpty() &&
            m_selection.first() > 0) {
            arrangedSubtitles()[m_selection.first() - 1]->setFixed(true);
            updateRangeNotification();
        }
        if (m_view) {
            m_view->setPlayButtonKeyEquivalent(QString());
            m_view->makeFixControlFirstResponder();
        }
        if (m_player && !m_player->isPlaying()) {
            const double rewind = Settings::shared().doubleValue(u"TapRewindSecs"_s);
            const double time = std::max(m_currentTime - rewind, m_range.startChange + 0.001);
            m_player->setCurrentTime(time);
            setCurrentTime(time);
            m_player->setPlaying(true);
        }
    } else if (old == 4 && mode != 4) {
        if (m_view) {
            m_view->setPlayButtonKeyEquivalent(u" "_s);
            m_view->makePlayButtonFirstResponder();
        }
        if (m_player && m_player->isPlaying())
            m_player->setPlaying(false);
    }
}

void CTWindowController::updateFixMode()
{
    if (m_fixMode == 4)
        return;
    if (!m_currentSubtitle)
        setFixMode(0);
    else if (m_modifiers & ShiftModifier)
        setFixMode(2);
    else if (m_modifiers & OptionModifier)
        setFixMode(3);
    else
        setFixMode(defaultFixMode());
}

void CTWindowController::setChosenFixMode(int mode)
{
    m_chosenFixMode = mode >= 1 && mode <= 3 ? mode : 0;
    if (m_fixMode != 4)
        setFixMode(defaultFixMode());
}

void CTWindowController::toggleTap2Sync()
{
    if (m_fixMode == 4) {
        setFixMode(defaultFixMode());
        return;
    }
    Settings &settings = Settings::shared();
    if (!settings.boolValue(u"ShownTap2Sync"_s)) {
        Prompt prompt;
        prompt.message = tr("How to use \"Tap2Sync\"");
        prompt.informative =
            tr("Tap2Sync let's you quickly sync a full video by watching it. Whenever you hear "
               "the current subtitle instantly press space. It will fix that subtitle and move to "
               "the next.");
        prompt.buttons = {tr("Start", "button: begin Tap2Sync"), tr("Cancel")};
        prompt.checkboxTitle = tr("Do not show this message again");
        const PromptAnswer answer = Prompter::shared().ask(prompt);
        if (answer.button != 0)
            return;
        if (answer.checkboxChecked)
            settings.setValue(u"ShownTap2Sync"_s, true);
    }
    setFixMode(4);
}

void CTWindowController::fixButtonGotEscape()
{
    setFixMode(defaultFixMode());
    updateFixMode();
}

void CTWindowController::movieChangedPlaying(bool playing)
{
    if (!playing && m_fixMode == 4)
        setFixMode(defaultFixMode());
    if (m_view)
        m_view->setPlayButtonTitle(playing ? tr("Pause") : tr("Play"));
}

// --- fixing ----------------------------------------------------------------------------------

void CTWindowController::fixSubtitleStart()
{
    if (!m_currentSubtitle || !canFix())
        return;
    EditScope edit(*this, m_fixMode == 4 ? editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Tap2Sync"))
                                         : editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Fix")));
    setStart(m_player->currentTime());
    if (m_fixMode != 4)
        return;
    // A tap moves on to the next line whenever there is one, anchor or not, so that a second
    // pass over anchors set earlier keeps tapping; after the last line the mode ends.
    const qsizetype index = indexOfSubtitle(m_currentSubtitle.get());
    if (index >= 0 && index + 1 < m_subtitles.size()) {
        const qsizetype row = arrangedSubtitles().indexOf(m_subtitles[index + 1]);
        setSelectionIndices(row >= 0 ? QList<qsizetype>{row} : QList<qsizetype>{});
    } else {
        setFixMode(defaultFixMode());
    }
}

void CTWindowController::shiftSubtitles()
{
    if (!m_currentSubtitle)
        return;
    EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Shift")));
    setFixMode(2);
    if (canFix())
        setStart(m_player->currentTime());
    updateFixMode();
}

void CTWindowController::fixSingleSubtitleStart()
{
    if (!m_currentSubtitle)
        return;
    EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Fix Single Line")));
    setFixMode(3);
    if (canFix())
        setStart(m_player->currentTime());
    updateFixMode();
}

void CTWindowController::setStart(double t)
{
    if (m_noAdjust || !m_currentSubtitle) {
        m_start = t;
        return;
    }
    const double h = 0.5 / m_fps;
    const FixRange range = m_range;
    if (t < range.startChange - h || t > range.endChange + h) {
        m_start = t; // refused: the field keeps the typed value, the cues stay
        return;
    }
    t = std::min(t, range.endChange);
    t = std::max(t, range.startChange);
    if (m_fixMode == 4)
        t -= Settings::shared().doubleValue(u"TapDelaySecs"_s);

    EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Start Time")));
    const bool oldNoAdjust = m_noAdjust;
    m_noAdjust = true;
    markChanged();
    const SubtitlePtr cue = m_currentSubtitle;
    cue->setFixed(true);
    const qsizetype i = indexOfSubtitle(cue.get());
    const double s0 = cue->start();
    const double oldDuration = cue->duration();
    double factor = 1;

    if (range.first < i) {
        if (m_fixMode == 2) {
            factor = 1;
            stretch(range.first, i - 1, 1, range.startChange, t - s0);
        } else {
            factor = (t - range.startChange) / std::max(s0 - range.startChange, 0.0001);
            if (factor > 0)
                stretch(range.first, i - 1, factor, range.startChange, 0);
            else
                logLine(u"Warning: Adjustive stretch never should be negative. %1"_s.arg(factor, 0, 'f', 6));
        }
        if (range.first > 0)
            subtitleEndGrew(m_subtitles[range.first - 1]);
    }
    if (i >= 0 && i < range.last) {
        const double m = std::max(range.endChange, m_subtitles[range.last]->end());
        if (m_fixMode == 2 || std::isinf(range.endChange)) {
            factor = 1;
            stretch(i + 1, range.last, 1, s0, t - s0);
        } else {
            factor = (range.endChange - t) / std::max(m - s0, 0.0001);
            if (factor > 0)
                stretch(i + 1, range.last, factor, s0, t - s0);
            else
                logLine(u"Warning: Adjustive stretch never should be negative. %1"_s.arg(factor, 0, 'f', 6));
        }
    }

    {
        const bool oldNoVerifying = m_noVerifying;
        m_noVerifying = true;
        cue->setStart(t);
        cue->setEnd(t + oldDuration * factor);
        m_noVerifying = oldNoVerifying;
    }
    subtitleStartReduced(cue);
    subtitleEndGrew(cue);
    // Chapter marks tile the movie: the neighbours meet the moved mark again.
    videoTextTimeChanged(cue.get());
    if (m_player)
        m_player->redrawCurrentSubtitle();
    m_noAdjust = oldNoAdjust;
    m_start = t;
    refreshEditorFields();
    announceEditorFields();
    updateRangeNotification();
}

void CTWindowController::stretch(qsizetype first, qsizetype last, double factor, double origin, double shift)
{
    if (first > last)
        return;
    const bool old = m_noVerifying;
    m_noVerifying = true;
    for (qsizetype n = std::max<qsizetype>(first, 0); n <= last && n < m_subtitles.size(); ++n) {
        VHSubtitle &cue = *m_subtitles[n];
        const double start = (cue.start() - origin) * factor + shift + origin;
        const double end = (cue.end() - origin) * factor + shift + origin;
        cue.replaceStart(start, end);
    }
    m_noVerifying = old;
}
