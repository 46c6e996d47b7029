#include "CTFixPreview.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

CTFixPreview::CTFixPreview(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

void CTFixPreview::redraw()
{
    m_lastUpdate = m_newTime;
    ++m_redraws;
    update();
}

void CTFixPreview::setOrgTime(double seconds)
{
    m_orgTime = seconds;
    redraw();
}

void CTFixPreview::setFixMode(int mode)
{
    m_fixMode = mode;
    redraw();
}

void CTFixPreview::setNewTime(double seconds)
{
    m_newTime = seconds;
    if (std::fabs(m_lastUpdate - seconds) > m_updateThreshold || m_fixMode == 1)
        redraw();
}

CTFixPreview::Geometry CTFixPreview::geometry(QSizeF size) const
{
    Geometry g;
    if (m_fixMode == 0 || std::isinf(m_max) || std::isnan(m_max) || std::isinf(m_min))
        return g;
    g.gradientOnly = false;
    // With a run of several lines Tap2Sync stretches as Fix does; a run of one line (or none)
    // can only move that line.
    g.drawingMode = m_segments > 1 ? (m_fixMode == 4 ? 1 : m_fixMode) : 3;
    if (g.drawingMode < 1 || g.drawingMode > 3)
        g.drawingMode = 1;
    g.outlineColor = g.drawingMode == 3 ? QColor(Qt::lightGray) : QColor(Qt::white);

    constexpr double inset = 2;
    const double height = size.height() - 3;
    const double width = size.width();
    const double top = inset, bottom = std::max(top + 1, height - inset);
    const double lo = m_min, hi = std::max(m_max, m_min);
    auto yOf = [&](double t) {
        if (!(hi > lo))
            return top;
        return top + (std::clamp(t, lo, hi) - lo) / (hi - lo) * (bottom - top);
    };
    const double outlineHalf = OutlineWidth / 2;
    g.outline = QRectF(inset + outlineHalf, top, width - 2 * inset - OutlineWidth, bottom - top);
    const double leftA = inset + OutlineWidth + 2, leftB = width * 0.38;
    const double rightA = width * 0.62, rightB = width - inset - OutlineWidth - 2;

    // Where a line of the run is now: the first and last lines of the run at their times, the
    // current one at its start, the others evenly between.
    const qint64 index = std::clamp<qint64>(m_index, 0, std::max<qint64>(m_maxIndex, 0));
    const qint64 maxIndex = std::max<qint64>(m_maxIndex, index);
    auto before = [&](qint64 k) {
        if (k == index)
            return m_orgTime;
        if (k < index)
            return m_first + (m_orgTime - m_first) * double(k) / double(index);
        return m_orgTime + (m_last - m_orgTime) * double(k - index) / double(maxIndex - index);
    };
    // Where the fix puts it.
    const double shift = m_newTime - m_orgTime;
    auto after = [&](qint64 k, double t) {
        if (k == index)
            return m_newTime;
        if (g.drawingMode == 2)
            return t + shift;
        if (k < index)
            return lo + (t - lo) * (m_newTime - lo) / std::max(m_orgTime - lo, 0.0001);
        return m_newTime + (t - m_orgTime) * (hi - m_newTime) / std::max(hi - m_orgTime, 0.0001);
    };

    double earliest = m_newTime, latest = m_newTime;
    if (g.drawingMode != 3) {
        // One step per line of the run, at most MaxSteps of them, always the current line's.
        const qint64 lines = maxIndex + 1;
        const qint64 steps = std::clamp<qint64>(qint64(m_segments), 1, MaxSteps);
        QList<qint64> picked;
        for (qint64 n = 0; n < steps; ++n)
            picked << (steps == 1 ? index
                                  : qint64(std::llround(double(n) * double(lines - 1) / double(steps - 1))));
        if (!picked.contains(index))
            picked << index;
        for (qint64 k : std::as_const(picked)) {
            const double t0 = before(k);
            const double t1 = after(k, t0);
            earliest = std::min(earliest, t1);
            latest = std::max(latest, t1);
            if (k == index)
                continue;
            const double y0 = yOf(t0), y1 = yOf(t1);
            g.stepsBefore << QLineF(leftA, y0, leftB, y0);
            g.stepsAfter << QLineF(rightA, y1, rightB, y1);
            g.links << QLineF(leftB, y0, rightA, y1);
        }
    }
    const double yBefore = yOf(m_orgTime), yAfter = yOf(m_newTime);
    g.before = QLineF(leftA, yBefore, leftB, yBefore);
    g.after = QLineF(rightA, yAfter, rightB, yAfter);
    g.links << QLineF(leftB, yBefore, rightA, yAfter);
    // Outside the anchors nothing would move: the whole strip says so.
    constexpr double tolerance = 1e-9;
    g.washed = earliest < lo - tolerance || latest > hi + tolerance;
    return g;
}

void CTFixPreview::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // The backdrop, top to bottom from white level 0.3 to 0.5.
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0, QColor::fromRgbF(0.3, 0.3, 0.3));
    gradient.setColorAt(1, QColor::fromRgbF(0.5, 0.5, 0.5));
    painter.fillRect(rect(), gradient);

    const Geometry g = geometry(size());
    if (g.gradientOnly)
        return;
    painter.setPen(QPen(g.outlineColor, OutlineWidth));
    painter.drawRect(g.outline);
    QColor step = g.outlineColor;
    step.setAlphaF(0.7);
    painter.setPen(QPen(step, 1));
    painter.drawLines(g.stepsBefore);
    painter.drawLines(g.stepsAfter);
    step.setAlphaF(0.35);
    painter.setPen(QPen(step, 1));
    painter.drawLines(g.links);
    painter.setPen(QPen(beforeColor(), MarkWidth, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(g.before);
    painter.setPen(QPen(afterColor(), MarkWidth, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(g.after);
    if (g.washed)
        painter.fillRect(rect(), washColor());
}
