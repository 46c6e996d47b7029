#pragma once

#include "FixMode.h"

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <optional>

class CTWindowController;

// The fix side of the project: the mode (Fix, Shift, Single, Tap2Sync), the run of cues that
// moves with the current one and its bounds, and the re-timing a fix does. It works on the
// project's list through the project's edit path; the project forwards its fix commands here.
//
// Threading: main thread only.
class FixController
{
    // The titles of the edits and the Tap2Sync question keep the project's translations.
    Q_DECLARE_TR_FUNCTIONS(CTWindowController)

public:
    // The run of cues that moves with the current cue (first..last) and the earliest and
    // latest start the current cue may take.
    struct Range
    {
        qsizetype first = 0;
        qsizetype last = -1;
        double startChange = 0;
        double endChange = 0;
    };
    // What the time view and the scrubber show of the range.
    struct RangeDisplay
    {
        double startFraction = 0, endFraction = 0;
        QString startText, endText;
        std::optional<double> scrubberMinimum, scrubberMaximum;
    };

    explicit FixController(CTWindowController &project)
        : m_project(project)
    {}

    FixMode mode() const { return m_mode; }
    void setMode(FixMode mode);
    // The mode a fix takes with no modifier key held: Single for chapter marks; for subtitles
    // the mode chosen on the fix control, else Fix.
    FixMode defaultMode() const;
    // The mode the user picked on the fix control (Fix, Shift or Single; None for none). It
    // becomes the mode now unless Tap2Sync runs.
    FixMode chosenMode() const { return m_chosenMode; }
    void setChosenMode(FixMode mode);
    // Modifier keys held now (CTWindowController::Modifier bits), as the window reports them.
    int modifiers() const { return m_modifiers; }
    void setModifiers(int modifiers) { m_modifiers = modifiers; }
    // Chooses the mode from the modifier keys: no cue None, Shift Shift, Option Single, else
    // the default. Tap2Sync stays until it is left.
    void updateMode();
    // Enters Tap2Sync (after its one-time explanation) or leaves it.
    void toggleTap2Sync();
    // Escape on the fix control, or the control losing the keyboard: back to the default.
    void leaveTap2Sync();
    // Playback stopped or started: stopping ends Tap2Sync.
    void playingChanged(bool playing);
    // Playback reached a time: Tap2Sync ends at the next anchor.
    void timeChanged(double seconds);

    // The time the fix commands set the current cue's start to: the playing time, passed
    // through the adjustment when one is set (the window snaps it to speech). In Tap2Sync the
    // adjustment is asked about the time less the reaction delay, where the cue will land; an
    // adjustment that keeps the time keeps it to the bit.
    void setTimeAdjustment(std::function<double(double)> adjust) { m_timeAdjustment = std::move(adjust); }
    double fixTime() const;

    // The fix commands: the current line's start goes to the playing time.
    void fix();
    void shift();
    void fixSingle();
    // Moves the current cue's start to `t` by the rules of the mode: false when `t` lies
    // outside the range (the cues stay).
    bool moveCurrentStart(double t);
    // Re-times cues first..last: t → (t − origin) × factor + shift + origin for start and end.
    void stretch(qsizetype first, qsizetype last, double factor, double origin, double shift);

    bool canFix() const;
    bool canShift() const;
    const Range &range() const { return m_range; }
    const RangeDisplay &rangeDisplay() const { return m_rangeDisplay; }
    // Finds the range again (the current cue, an anchor or the list changed) and marks the
    // cues inside it active.
    void updateRange();

private:
    CTWindowController &m_project;
    FixMode m_mode = FixMode::None;
    int m_modifiers = 0;
    FixMode m_chosenMode = FixMode::None;
    Range m_range;
    RangeDisplay m_rangeDisplay;
    std::function<double(double)> m_timeAdjustment;
};
