#pragma once

#include "FixMode.h"

#include <QCoreApplication>
#include <QPushButton>

#include <functional>

// The round fix control: names the fix mode ("Fix", "Shift", "Single", "Tap" in Tap2Sync),
// shows the pending time shift below it, and in Tap2Sync takes the keyboard: space taps,
// Escape leaves the mode.
class CTFixButton final : public QPushButton
{
    Q_DECLARE_TR_FUNCTIONS(CTFixButton)

public:
    explicit CTFixButton(QWidget *parent = nullptr);

    FixMode fixMode() const { return m_fixMode; }
    void setFixMode(FixMode mode);
    double timeShift() const { return m_timeShift; }
    // Shifts within 5 ms of the one shown leave the text alone, so that it does not flicker
    // while the movie plays.
    void setTimeShift(double seconds);
    QString title() const { return m_title; }
    QString subtitle() const { return m_subtitle; }

    // "+0.00s" / "-0.00s".
    static QString formattedShift(double seconds);

    std::function<void()> onTap;         // space in Tap2Sync
    std::function<void()> onEscape;      // Escape
    std::function<void()> onResignFocus; // the focus left the control

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void updateText();
    void applyFixMode(FixMode mode);

    FixMode m_fixMode = FixMode::None;
    double m_timeShift = 0;
    double m_lastTimeShift = 0;
    QString m_title;
    QString m_subtitle;
};
