#include "VHSubtitleView.h"

#include "Settings.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPropertyAnimation>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

const QString VHSubtitleView::VerticalPositionKey = u"verticalSubtitlePosition"_s;

namespace {

// Text drawing flags: centred lines, wrapped inside the box when wider than it.
constexpr int TextFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;

double storedVerticalPosition()
{
    // Unset means the bottom; nothing registers a default.
    return Settings::shared().doubleValue(VHSubtitleView::VerticalPositionKey);
}

} // namespace

VHSubtitleView::VHSubtitleView(QWidget *parent)
    : QWidget(parent)
    , m_verticalPosition(storedVerticalPosition())
{
    // A pane of glass: no background of its own, clicks go to the movie beneath.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_TranslucentBackground);
    setAutoFillBackground(false);
    setFocusPolicy(Qt::NoFocus);

    m_positionToken = Settings::shared().observeKey(
        VerticalPositionKey, [this](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did)
                setVerticalPosition(storedVerticalPosition());
        });
}

VHSubtitleView::~VHSubtitleView() = default;

void VHSubtitleView::setSubtitles(const SubtitleList &subtitles)
{
    setObservedSubtitle(nullptr);
    m_subtitles = subtitles;
    const qsizetype n = m_subtitles.size();
    m_currentSegment = n == 0 ? -1 : std::clamp<qsizetype>(m_currentSegment, 0, n - 1);
    setCurrentTime(m_currentTime);
    update();
}

void VHSubtitleView::setCurrentTime(double seconds)
{
    m_currentTime = seconds;
    const SubtitlePtr cue = currentSubtitle();
    if (cue != m_observedSubtitle) {
        update();
        Q_EMIT subtitleViewDidChangeSubtitle(this, cue);
    }
}

SubtitlePtr VHSubtitleView::currentSubtitle()
{
    const qsizetype n = m_subtitles.size();
    if (n == 0)
        return nullptr;
    qsizetype s = std::clamp<qsizetype>(m_currentSegment, 0, n - 1);
    const double t = m_currentTime;
    const VHSubtitle *c = m_subtitles[s].get();
    while (c->start() > t && s >= 1)
        c = m_subtitles[--s].get();
    while (s < n - 1 && t > c->end())
        c = m_subtitles[++s].get();
    m_currentSegment = s;
    if (c->start() <= t && t <= c->end())
        return m_subtitles[s];
    return nullptr;
}

void VHSubtitleView::setVerticalPosition(double position)
{
    if (position == m_verticalPosition)
        return;
    m_verticalPosition = position;
    update();
}

void VHSubtitleView::setObservedSubtitle(const SubtitlePtr &cue)
{
    if (cue == m_observedSubtitle)
        return;
    m_observedToken.reset();
    m_observedSubtitle = cue;
    if (!cue)
        return;
    // One observation of every key; the cue's text and both times are what is drawn.
    m_observedToken = cue->observeKey(QString(), [this](Observable *, const QString &key,
                                                        Observable::Change change) {
        if (change == Observable::Change::Did && (key == u"string"_s || key == u"start"_s || key == u"end"_s))
            update();
    });
}

void VHSubtitleView::setOpacity(double opacity)
{
    m_opacity = std::clamp(opacity, 0.0, 1.0);
    update();
}

void VHSubtitleView::fadeTo(double opacity)
{
    if (!m_fade) {
        m_fade = new QPropertyAnimation(this, "opacity", this);
        m_fade->setDuration(250);
    }
    m_fade->stop();
    m_fade->setStartValue(m_opacity);
    m_fade->setEndValue(opacity);
    m_fade->start();
}

double VHSubtitleView::fontSizeForWidth(double viewWidth)
{
    return std::max(viewWidth / 600.0 * 12.0, 6.0);
}

VHSubtitleView::Layout VHSubtitleView::layoutFor(QSizeF viewSize, QSizeF textSize, double verticalPosition)
{
    Layout layout;
    layout.fontSize = fontSizeForWidth(viewSize.width());
    // std::round rounds halves away from zero.
    layout.margin = std::round(layout.fontSize);
    const double p = layout.margin;
    const double w = std::min(textSize.width(), viewSize.width() - 2 * p);
    const double h = textSize.height();
    const double x = (viewSize.width() - w) / 2;
    // Measured from the bottom edge: 0 puts the text p above the bottom, 1 p below the top.
    const double yFromBottom = verticalPosition * (viewSize.height() - h - 2 * p) + p;
    const double top = viewSize.height() - yFromBottom - h;
    layout.textRect = QRectF(x, top, w, h);
    layout.boxRect = layout.textRect.adjusted(-p, -p, p, p);
    return layout;
}

VHSubtitleView::Layout VHSubtitleView::currentLayout(const QString &text, QFont *fontOut) const
{
    const double fontSize = fontSizeForWidth(width());
    QFont font = QGuiApplication::font();
    // Sizes are in the view's own units (logical pixels), whatever the screen's dots per inch.
    font.setPointSizeF(fontSize * 72.0 / std::max(1, logicalDpiY()));
    const QFontMetricsF metrics(font);
    const QSizeF natural =
        metrics.boundingRect(QRectF(0, 0, 1e6, 1e6), Qt::AlignHCenter | Qt::AlignTop, text).size();
    if (fontOut)
        *fontOut = font;
    return layoutFor(QSizeF(size()), natural, m_verticalPosition);
}

void VHSubtitleView::drawSubtitle(QPainter &painter)
{
    const SubtitlePtr cue = currentSubtitle();
    if (cue && !cue->string().isEmpty() && m_opacity > 0) {
        QFont font;
        const Layout layout = currentLayout(cue->string(), &font);
        painter.save();
        painter.setOpacity(m_opacity);
        painter.fillRect(layout.boxRect, QColor(0, 0, 0, qRound(0.6 * 255)));
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.setClipRect(layout.boxRect);
        painter.drawText(layout.textRect, TextFlags, cue->string());
        painter.restore();
    }
    setObservedSubtitle(cue);
}

void VHSubtitleView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::TextAntialiasing);
    drawSubtitle(painter);
}
