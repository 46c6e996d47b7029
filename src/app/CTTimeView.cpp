#include "CTTimeView.h"

#include <QPainter>

#include <algorithm>

CTTimeView::CTTimeView(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void CTTimeView::setLeftText(const QString &text)
{
    m_leftText = text;
    update();
}

void CTTimeView::setRightText(const QString &text)
{
    m_rightText = text;
    update();
}

void CTTimeView::setLeft(double position)
{
    m_left = position;
    update();
}

void CTTimeView::setRight(double position)
{
    m_right = position;
    update();
}

QSize CTTimeView::sizeHint() const
{
    return {100, fontMetrics().height() + 2};
}

QSize CTTimeView::minimumSizeHint() const
{
    return {0, fontMetrics().height() + 2};
}

QRectF CTTimeView::textRect(const QString &text, double centre) const
{
    const double width = fontMetrics().horizontalAdvance(text);
    double x = centre - width / 2;
    // Neither text leaves the view.
    x = std::min(x, double(this->width()) - width);
    x = std::max(x, 0.0);
    return {x, 0, width, double(height())};
}

QRectF CTTimeView::leftTextRect() const
{
    // Centred on its position, but never left of the view's edge.
    return textRect(m_leftText, std::max(m_left, 0.0));
}

QRectF CTTimeView::rightTextRect() const
{
    double centre = m_right;
    // Close to the left edge the right text moves over a little.
    if (m_right < 8)
        centre += 4 - m_right / 2;
    return textRect(m_rightText, centre);
}

void CTTimeView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.setFont(font());
    if (!m_leftText.isEmpty())
        painter.drawText(leftTextRect(), Qt::AlignLeft | Qt::AlignVCenter, m_leftText);
    if (!m_rightText.isEmpty())
        painter.drawText(rightTextRect(), Qt::AlignLeft | Qt::AlignVCenter, m_rightText);
}
