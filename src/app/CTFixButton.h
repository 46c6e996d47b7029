#pragma once

#include <QColor>
#include <QCoreApplication>
#include <QPushButton>

#include <functional>

class QGraphicsDropShadowEffect;
class QVariantAnimation;

// The round fix control: names the fix mode ("Fix", "Shift", "Single", "Tap" in Tap2Sync),
// shows the pending time shift below it, and in Tap2Sync takes the keyboard: space taps,
// Escape leaves the mode.
class CTFixButton final : public QPushButton
{
    Q_DECLARE_TR_FUNCTIONS(CTFixButton)

public:
    explicit CTFixButton(QWidget *parent = nullptr);

    int fixMode() const { return m_fixMode; }
    void setFixMode(int mode);
    double timeShift() const { return m_timeShift; }
    // Shifts within 5 ms of the one shown leave the text alone, so that it does not flicker
    // while the movie plays.
    void setTimeShift(double seconds);
    QString title() const { return m_title; }
    QString subtitle() const { return m_subtitle; }

    // "+0.00s" / "-0.00s".
    static QString formattedShift(double seconds);
    // The mode's name, and the shift below it at 60 % of its size.
    QFont titleFont() const;
    QFont subtitleFont() const;
    // The control's blue.
    static QColor textColor() { return QColor::fromRgbF(0.2667, 0.651, 0.855, 1); }

    // The round glow of Tap2Sync: its opacity (0..1) and radius now, and whether it pulses.
    double glowOpacity() const;
    double glowRadius() const;
    bool isGlowPulsing() const;
    // One way of the pulse, in milliseconds.
    static constexpr int GlowPulseMs = 600;

    std::function<void()> onTap;         // space in Tap2Sync
    std::function<void()> onEscape;      // Escape
    std::function<void()> onResignFocus; // the focus left the control

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void updateText();
    void setGlowing(bool glowing);

    int m_fixMode = -1;
    double m_timeShift = 0;
    double m_lastTimeShift = 0;
    QString m_title;
    QString m_subtitle;
    QGraphicsDropShadowEffect *m_glow = nullptr;
    QVariantAnimation *m_pulse = nullptr;
};
