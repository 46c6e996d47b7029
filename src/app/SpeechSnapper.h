#pragma once

#include <QList>
#include <QString>
#include <Qt>

#include <optional>

// Where a fix, a Tap2Sync tap or a dragged start edge lands: on the nearest speech onset
// within a window around the time asked for, so that a line starts where its words start.
// Snapping is off when the "SnapToSpeech" preference is off, while the bypass modifier is
// held, and wherever no onset lies within the window; the time then stays as it was asked.
//
// Threading: main thread only (the onsets are handed over by the analysis wiring).
class SpeechSnapper
{
public:
    static const QString EnabledKey; // "SnapToSpeech": true
    static const QString WindowKey;  // "SnapWindowSecs": 0.25 (seconds either side)
    // Held, it fixes at the time as it is. Alt (and Shift) already choose the fix mode, and
    // Control is part of the fix keys, so the key left for this is Meta (the Super key).
    static constexpr Qt::KeyboardModifier BypassModifier = Qt::MetaModifier;

    static void registerDefaults();

    // Speech onsets in seconds, in time order.
    void setOnsets(QList<double> onsets) { m_onsets = std::move(onsets); }
    const QList<double> &onsets() const { return m_onsets; }
    void clear() { m_onsets.clear(); }

    // The onset `seconds` would snap to with these modifiers held, or none.
    std::optional<double> snapTarget(double seconds, Qt::KeyboardModifiers modifiers) const;
    // `seconds`, or the onset it snaps to.
    double snapped(double seconds, Qt::KeyboardModifiers modifiers) const
    {
        return snapTarget(seconds, modifiers).value_or(seconds);
    }

private:
    QList<double> m_onsets;
};
