#pragma once

#include <QPointer>
#include <QWidget>

class QLineEdit;

// The backdrop of the fix control: a round plate (a lighter or a darker one, following the
// window's colours) with a dial of the pending shift against the movie's length. A shift of a
// tenth of the length fills the whole dial, clockwise for later, anticlockwise for earlier.
// Hovering shows the exact shift in `shiftTF` (over `hideView`, which covers what is below).
class CTFixButtonBackground final : public QWidget
{
public:
    explicit CTFixButtonBackground(QWidget *parent = nullptr);

    double duration() const { return m_duration; }
    void setDuration(double seconds);
    double timeShift() const { return m_timeShift; }
    // Also writes the shift into `shiftTF`.
    void setTimeShift(double seconds);
    bool showValue() const { return m_showValue; }
    void setShowValue(bool show);
    // Whether hovering shows the shift field.
    bool hoverEnabled() const { return m_hoverEnabled; }
    void setHoverEnabled(bool enabled);

    void setShiftField(QLineEdit *field);
    QLineEdit *shiftField() const { return m_shiftTF; }
    void setHideView(QWidget *view);
    QWidget *hideView() const { return m_hideView; }

    // "FixButtonBackground-Dark" on dark window colours, else "FixButtonBackground".
    QString imageName() const;
    // The part of the dial the shift fills: shift ÷ duration × 10 within −1..1; 0 without a
    // duration.
    static double dialFraction(double shift, double duration);
    // The dial's colour.
    static QColor dialColor();

    QSize sizeHint() const override { return {96, 68}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showField(bool show);
    void placeField();

    double m_duration = 0;
    double m_timeShift = 0;
    bool m_showValue = true;
    bool m_hoverEnabled = true;
    QString m_imageName;
    QPointer<QLineEdit> m_shiftTF;
    QPointer<QWidget> m_hideView;
};
