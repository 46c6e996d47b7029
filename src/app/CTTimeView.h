#pragma once

#include <QRectF>
#include <QWidget>

// Two time labels at the ends of a range, e.g. under the scrubber at the earliest and latest
// start the current line may be fixed to. `left` and `right` are the labels' positions in the
// view; each text is centred on its position without leaving the view.
class CTTimeView final : public QWidget
{
public:
    explicit CTTimeView(QWidget *parent = nullptr);

    const QString &leftText() const { return m_leftText; }
    void setLeftText(const QString &text);
    const QString &rightText() const { return m_rightText; }
    void setRightText(const QString &text);
    double left() const { return m_left; }
    void setLeft(double position);
    double right() const { return m_right; }
    void setRight(double position);

    // Where the two texts are drawn.
    QRectF leftTextRect() const;
    QRectF rightTextRect() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF textRect(const QString &text, double centre) const;

    QString m_leftText, m_rightText;
    double m_left = 0, m_right = 0;
};
