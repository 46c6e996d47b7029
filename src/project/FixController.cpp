// The fix range: the run of cues that moves with the current one, bounded by the nearest
// anchors, whether a fix is allowed at the current playback time, and the fix itself.
#include "FixController.h"

#include "CTWindowController.h"
#include "Log.h"
#include "PlaybackControl.h"
#include "ProjectSettings.h"
#include "ProjectView.h"
#include "Prompter.h"
#include "VHTimeValueTransformer.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

void FixController::updateRange()
{
    CTWindowController &p = m_project;
    const SubtitleList &cues = p.m_subtitles;
    const qsizetype count = cues.size();
    const qsizetype i = p.indexOfSubtitle(p.m_currentSubtitle.get());
    Range range;
    if (!p.m_currentSubtitle || i < 0) {
        range.first = 0;
        range.last = count - 1;
    } else if (m_mode == FixMode::Single) {
        range.first = range.last = i;
    } else {
        if (i == 0) {
            range.first = 0;
        } else {
            // The nearest anchor before the current cue; cue 0 is looked at last.
            qsizetype j = i - 1;
            while (j >= 1 && !cues[j]->fixed())
                --j;
            range.first = cues[j]->fixed() ? j + 1 : j;
        }
        qsizetype k = i + 1 < count ? i + 1 : i;
        while (k < count - 1 && !cues[k]->fixed())
            ++k;
        range.last = k > i ? (cues[k]->fixed() ? k - 1 : k) : i;
    }
    const double movieDuration = p.movieDuration();
    const double infinity = std::numeric_limits<double>::infinity();
    const double d = movieDuration > 0 ? movieDuration : infinity;
    if (range.first <= 0 || range.first > count) {
        range.startChange = 0;
    } else {
        range.startChange = std::min(cues[range.first - 1]->start(), d);
        if (!(range.startChange > 0))
            range.startChange = 0;
    }
    if (range.last < count - 1 && range.last >= -1)
        range.endChange = std::max(std::min(cues[range.last + 1]->start(), d), 0.0);
    else
        range.endChange = d;
    m_range = range;

    // What the time view and the scrubber show.
    if (movieDuration > 0) {
        static const VHSuccinctTimeTransformer succinct;
        m_rangeDisplay.startFraction = range.startChange / movieDuration;
        m_rangeDisplay.endFraction = range.endChange / movieDuration;
        m_rangeDisplay.startText = succinct.transformedValue(range.startChange);
        m_rangeDisplay.endText = succinct.transformedValue(range.endChange);
    } else {
        m_rangeDisplay = {};
    }
    m_rangeDisplay.scrubberMinimum =
        range.startChange > 0 ? std::optional<double>(range.startChange) : std::nullopt;
    m_rangeDisplay.scrubberMaximum =
        range.endChange < movieDuration ? std::optional<double>(range.endChange) : std::nullopt;

    const bool hasCurrent = bool(p.m_currentSubtitle);
    qsizetype firstFlipped = -1, lastFlipped = -1;
    for (qsizetype n = 0; n < count; ++n) {
        const bool active = hasCurrent && n >= range.first && n <= range.last;
        if (cues[n]->active() != active) {
            cues[n]->setActive(active);
            if (firstFlipped < 0)
                firstFlipped = n;
            lastFlipped = n;
        }
    }
    // The table dims the lines outside the run: only the lines that changed are drawn again.
    if (firstFlipped >= 0)
        p.m_editor->rowsChanged(firstFlipped, lastFlipped);
    p.willChangeValueForKey(u"canFix"_s);
    p.didChangeValueForKey(u"canFix"_s);
}

bool FixController::canFix() const
{
    const CTWindowController &p = m_project;
    if (!p.hasMovie())
        return false;
    if (m_mode == FixMode::Shift)
        return canShift();
    if (!p.m_currentSubtitle)
        return false;
    const double h = 0.5 / p.fps();
    const double t = p.movieController()->currentTime();
    return m_range.startChange - h <= t && t <= m_range.endChange + h;
}

bool FixController::canShift() const
{
    const CTWindowController &p = m_project;
    const SubtitleList &cues = p.m_subtitles;
    if (!p.m_currentSubtitle || cues.isEmpty() || !p.movieController())
        return false;
    const double d = p.movieController()->currentTime() - p.m_start;
    const qsizetype last = cues.size() - 1;
    const qsizetype f = std::clamp<qsizetype>(m_range.first, 0, last);
    const qsizetype l = std::clamp<qsizetype>(m_range.last, 0, last);
    return cues[f]->start() + d >= m_range.startChange && cues[l]->start() + d <= m_range.endChange;
}

// --- modes ---------------------------------------------------------------------------------------

FixMode FixController::defaultMode() const
{
    if (m_project.isChaptermark())
        return FixMode::Single;
    return m_chosenMode != FixMode::None ? m_chosenMode : FixMode::Fix;
}

void FixController::setChosenMode(FixMode mode)
{
    const bool choosable = mode == FixMode::Fix || mode == FixMode::Shift || mode == FixMode::Single;
    m_chosenMode = choosable ? mode : FixMode::None;
    if (m_mode != FixMode::Tap2Sync)
        setMode(defaultMode());
}

void FixController::setMode(FixMode mode)
{
    CTWindowController &p = m_project;
    const FixMode old = m_mode;
    p.willChangeValueForKey(u"fixMode"_s);
    m_mode = mode;
    p.didChangeValueForKey(u"fixMode"_s);
    updateRange();

    PlaybackControl *player = p.movieController();
    if (mode == FixMode::Tap2Sync && old != FixMode::Tap2Sync) {
        // The whole list shows while tapping.
        if (!p.searchString().isEmpty())
            p.setSearchString(QString());
        if (!p.m_currentSubtitle) {
            const qsizetype index = std::max<qsizetype>(p.subtitleIndexAtTime(p.currentTime()) - 1, 0);
            if (index < p.arrangedSubtitles().size())
                p.setSelectionIndices({index});
        }
        const QList<qsizetype> &selection = p.selectionIndices();
        if (Preferences::TapFixPrev.value() && !selection.isEmpty() && selection.first() > 0) {
            p.arrangedSubtitles()[selection.first() - 1]->setFixed(true);
            updateRange();
        }
        if (p.m_view) {
            p.m_view->setPlayButtonKeyEquivalent(QString());
            p.m_view->makeFixControlFirstResponder();
        }
        if (player && !player->isPlaying()) {
            const double time =
                std::max(p.currentTime() - Preferences::TapRewindSecs.value(), m_range.startChange + 0.001);
            player->setCurrentTime(time);
            p.setCurrentTime(time);
            player->setPlaying(true);
        }
    } else if (old == FixMode::Tap2Sync && mode != FixMode::Tap2Sync) {
        if (p.m_view) {
            p.m_view->setPlayButtonKeyEquivalent(u" "_s);
            p.m_view->makePlayButtonFirstResponder();
        }
        if (player && player->isPlaying())
            player->setPlaying(false);
    }
}

void FixController::updateMode()
{
    if (m_mode == FixMode::Tap2Sync)
        return;
    if (!m_project.m_currentSubtitle)
        setMode(FixMode::None);
    else if (m_modifiers & CTWindowController::ShiftModifier)
        setMode(FixMode::Shift);
    else if (m_modifiers & CTWindowController::OptionModifier)
        setMode(FixMode::Single);
    else
        setMode(defaultMode());
}

void FixController::toggleTap2Sync()
{
    if (m_mode == FixMode::Tap2Sync) {
        setMode(defaultMode());
        return;
    }
    if (!Preferences::ShownTap2Sync.value()) {
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
            Preferences::ShownTap2Sync.set(true);
    }
    setMode(FixMode::Tap2Sync);
}

void FixController::leaveTap2Sync()
{
    setMode(defaultMode());
    updateMode();
}

void FixController::playingChanged(bool playing)
{
    if (!playing && m_mode == FixMode::Tap2Sync)
        setMode(defaultMode());
    if (m_project.m_view)
        m_project.m_view->setPlayButtonTitle(playing ? tr("Pause") : tr("Play"));
}

void FixController::timeChanged(double seconds)
{
    // Tap2Sync ends when playback reaches the next anchor.
    if (m_mode == FixMode::Tap2Sync && seconds >= m_range.endChange)
        setMode(defaultMode());
}

// --- fixing ----------------------------------------------------------------------------------

void FixController::fix()
{
    CTWindowController &p = m_project;
    if (!p.m_currentSubtitle || !canFix())
        return;
    const bool tapping = m_mode == FixMode::Tap2Sync;
    CTWindowController::EditScope edit(
        p, tapping ? CTWindowController::editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Tap2Sync"))
                   : CTWindowController::editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Fix")));
    p.setStart(fixTime());
    if (!tapping)
        return;
    // A tap moves on to the next line whenever there is one, anchor or not, so that a second
    // pass over anchors set earlier keeps tapping; after the last line the mode ends.
    const SubtitleList &cues = p.m_subtitles;
    const qsizetype index = p.indexOfSubtitle(p.m_currentSubtitle.get());
    if (index >= 0 && index + 1 < cues.size()) {
        const qsizetype row = p.arrangedSubtitles().indexOf(cues[index + 1]);
        p.setSelectionIndices(row >= 0 ? QList<qsizetype>{row} : QList<qsizetype>{});
    } else {
        setMode(defaultMode());
    }
}

double FixController::fixTime() const
{
    const CTWindowController &p = m_project;
    const double t = p.movieController() ? p.movieController()->currentTime() : p.currentTime();
    if (!m_timeAdjustment)
        return t;
    const double delay = m_mode == FixMode::Tap2Sync ? Preferences::TapDelaySecs.value() : 0.0;
    const double landing = t - delay;
    const double adjusted = m_timeAdjustment(landing);
    return adjusted == landing ? t : adjusted + delay;
}

void FixController::shift()
{
    CTWindowController &p = m_project;
    if (!p.m_currentSubtitle)
        return;
    CTWindowController::EditScope edit(
        p, CTWindowController::editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Shift")));
    setMode(FixMode::Shift);
    if (canFix())
        p.setStart(fixTime());
    updateMode();
}

void FixController::fixSingle()
{
    CTWindowController &p = m_project;
    if (!p.m_currentSubtitle)
        return;
    CTWindowController::EditScope edit(
        p, CTWindowController::editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Fix Single Line")));
    setMode(FixMode::Single);
    if (canFix())
        p.setStart(fixTime());
    updateMode();
}

bool FixController::moveCurrentStart(double t)
{
    CTWindowController &p = m_project;
    const double h = 0.5 / p.fps();
    const Range range = m_range;
    if (t < range.startChange - h || t > range.endChange + h)
        return false; // refused: the field keeps the typed value, the cues stay
    t = std::min(t, range.endChange);
    t = std::max(t, range.startChange);
    if (m_mode == FixMode::Tap2Sync)
        t -= Preferences::TapDelaySecs.value();

    CTWindowController::EditScope edit(
        p, CTWindowController::editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Start Time")));
    const bool oldNoAdjust = p.m_noAdjust;
    p.m_noAdjust = true;
    p.markChanged();
    const SubtitleList &cues = p.m_subtitles;
    const SubtitlePtr cue = p.m_currentSubtitle;
    cue->setFixed(true);
    const qsizetype i = p.indexOfSubtitle(cue.get());
    const double s0 = cue->start();
    const double oldDuration = cue->duration();
    const bool shifting = m_mode == FixMode::Shift;
    double factor = 1;

    if (range.first < i) {
        if (shifting) {
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
            p.subtitleEndGrew(cues[range.first - 1]);
    }
    if (i >= 0 && i < range.last) {
        const double m = std::max(range.endChange, cues[range.last]->end());
        if (shifting || std::isinf(range.endChange)) {
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
        const bool oldNoVerifying = p.m_noVerifying;
        p.m_noVerifying = true;
        cue->setStart(t);
        cue->setEnd(t + oldDuration * factor);
        p.m_noVerifying = oldNoVerifying;
    }
    p.subtitleStartReduced(cue);
    p.subtitleEndGrew(cue);
    // Chapter marks tile the movie: the neighbours meet the moved mark again.
    p.videoTextTimeChanged(cue.get());
    if (PlaybackControl *player = p.movieController())
        player->redrawCurrentSubtitle();
    p.m_noAdjust = oldNoAdjust;
    p.m_start = t;
    p.refreshEditorFields();
    p.announceEditorFields();
    updateRange();
    return true;
}

void FixController::stretch(qsizetype first, qsizetype last, double factor, double origin, double shift)
{
    if (first > last)
        return;
    CTWindowController &p = m_project;
    const SubtitleList &cues = p.m_subtitles;
    const bool old = p.m_noVerifying;
    p.m_noVerifying = true;
    for (qsizetype n = std::max<qsizetype>(first, 0); n <= last && n < cues.size(); ++n) {
        VHSubtitle &cue = *cues[n];
        const double start = (cue.start() - origin) * factor + shift + origin;
        const double end = (cue.end() - origin) * factor + shift + origin;
        cue.replaceStart(start, end);
    }
    p.m_noVerifying = old;
}
