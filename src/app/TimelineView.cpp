#include "TimelineView.h"

#include "CTWindowController.h"
#include "PlaybackControl.h"
#include "Settings.h"
#include "SpeechSnapper.h"
#include "VHTimeValueTransformer.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr int RulerHeight = 14;
constexpr int SpeechHeight = 7;
constexpr int CueHeight = 34;
constexpr double EdgeReach = 5;    // pixels either side of an edge that grab it
constexpr double DefaultSpan = 30; // seconds across the strip when a movie opens

// A tick step for the ruler that leaves at least `minimumPixels` between labels.
double rulerStep(double secondsPerPixel, double minimumPixels)
{
    static const double steps[] = {0.1, 0.2, 0.5, 1, 2, 5, 10, 15, 30, 60, 120, 300, 600, 900, 1800, 3600};
    for (double step : steps) {
        if (step / secondsPerPixel >= minimumPixels)
            return step;
    }
    return 7200;
}

QString rulerText(double seconds, double step)
{
    const qint64 whole = qint64(std::floor(seconds + 1e-9));
    const qint64 h = whole / 3600, m = (whole / 60) % 60, s = whole % 60;
    QString text = h > 0 ? u"%1:%2:%3"_s.arg(h).arg(m, 2, 10, QChar(u'0')).arg(s, 2, 10, QChar(u'0'))
                         : u"%1:%2"_s.arg(m).arg(s, 2, 10, QChar(u'0'));
    if (step < 1)
        text += u".%1"_s.arg(qint64(std::lround((seconds - double(whole)) * 10)) % 10);
    return text;
}
} // namespace

double TimelineScale::limitedSecondsPerPixel(double secondsPerPixel, double length, int width)
{
    const double w = std::max(width, 1);
    const double narrowest = MinimumSpan / w;
    const double widest = std::max(length, MinimumSpan) / w;
    if (!std::isfinite(secondsPerPixel) || secondsPerPixel <= 0)
        return widest;
    return std::clamp(secondsPerPixel, narrowest, widest);
}

double TimelineScale::limitedViewStart(double viewStart, double secondsPerPixel, double length, int width)
{
    const double latest = std::max(0.0, length - std::max(width, 1) * secondsPerPixel);
    if (!std::isfinite(viewStart))
        return 0;
    return std::clamp(viewStart, 0.0, latest);
}

std::vector<double> cueReach(const SubtitleList &cues)
{
    std::vector<double> reach;
    reach.reserve(std::size_t(cues.size()));
    double latest = -std::numeric_limits<double>::infinity();
    for (const SubtitlePtr &cue : cues) {
        latest = std::max(latest, cue->end());
        reach.push_back(latest);
    }
    return reach;
}

std::pair<qsizetype, qsizetype> visibleCueRange(const SubtitleList &cues, const std::vector<double> &reach,
                                                double from, double to)
{
    if (cues.isEmpty() || reach.size() != std::size_t(cues.size()))
        return {0, 0};
    // The first cue whose run of cues reaches past `from`, and the first starting after `to`.
    const auto first = qsizetype(std::upper_bound(reach.cbegin(), reach.cend(), from) - reach.cbegin());
    const qsizetype last =
        std::upper_bound(cues.cbegin() + first, cues.cend(), to,
                         [](double t, const SubtitlePtr &cue) { return t < cue->start(); }) -
        cues.cbegin();
    return {first, std::max(first, last)};
}

std::pair<qsizetype, qsizetype> TimelineView::visibleCues(double from, double to) const
{
    const SubtitleList &cues = m_project->subtitles();
    if (!m_reachValid || m_reachRevision != m_project->revision() ||
        m_reach.size() != std::size_t(cues.size())) {
        m_reach = cueReach(cues);
        m_reachRevision = m_project->revision();
        m_reachValid = true;
    }
    return visibleCueRange(cues, m_reach, from, to);
}

TimelineView::TimelineView(CTWindowController *project, const SpeechSnapper *snapper, QWidget *parent)
    : QWidget(parent)
    , m_project(project)
    , m_snapper(snapper)
{
    setObjectName(u"timeline"_s);
    setMinimumHeight(RulerHeight + SpeechHeight + CueHeight + 24);
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_project->addCueListObserver(this);
    m_projectKeys =
        m_project->observeKey(QString(), [this](Observable *, const QString &key, Observable::Change change) {
            if (change == Observable::Change::Did)
                projectKeyChanged(key);
        });
}

TimelineView::~TimelineView()
{
    m_projectKeys.reset();
    m_project->removeCueListObserver(this);
}

// --- the audio picture -----------------------------------------------------------------------------

void TimelineView::setAnalysis(std::shared_ptr<const AudioAnalysis> analysis)
{
    m_analysis = std::move(analysis);
    m_speech = m_analysis ? m_analysis->speech() : QList<SpeechSegment>();
    m_audioNote.clear();
    invalidateWaveform();
}

void TimelineView::binsFilled(qint64 first, qint64 end)
{
    // Only a change on screen needs drawing.
    const double from = double(first) / AudioAnalysis::binsPerSecond;
    const double to = double(end) / AudioAnalysis::binsPerSecond;
    if (to >= m_scale.viewStart && from <= m_scale.viewEnd(width()))
        invalidateWaveform();
}

void TimelineView::speechChanged()
{
    m_speech = m_analysis ? m_analysis->speech() : QList<SpeechSegment>();
    invalidateWaveform();
}

void TimelineView::setAudioNote(const QString &note)
{
    if (note == m_audioNote)
        return;
    m_audioNote = note;
    update();
}

void TimelineView::invalidateWaveform()
{
    m_waveformValid = false;
    update();
}

// --- the view --------------------------------------------------------------------------------------

double TimelineView::length() const
{
    double length = m_project->movieDuration();
    if (!(length > 0) && m_analysis)
        length = m_analysis->duration();
    if (!(length > 0)) {
        const SubtitleList &cues = m_project->subtitles();
        length = cues.isEmpty() ? 0 : cues.last()->end();
    }
    return std::max(length, TimelineScale::MinimumSpan);
}

void TimelineView::setView(double viewStart, double secondsPerPixel)
{
    const double total = length();
    const double spp = TimelineScale::limitedSecondsPerPixel(secondsPerPixel, total, width());
    const double start = TimelineScale::limitedViewStart(viewStart, spp, total, width());
    if (spp == m_scale.secondsPerPixel && start == m_scale.viewStart)
        return;
    m_scale.secondsPerPixel = spp;
    m_scale.viewStart = start;
    invalidateWaveform();
}

void TimelineView::zoomBy(double factor, std::optional<double> anchorX)
{
    // The time under the anchor (the mouse, else the playhead when it is on screen, else the
    // middle) stays where it is.
    double x = width() / 2.0;
    if (anchorX) {
        x = *anchorX;
    } else {
        const double playhead = m_scale.xAt(m_project->currentTime());
        if (playhead >= 0 && playhead <= width())
            x = playhead;
    }
    const double t = m_scale.timeAt(x);
    const double spp =
        TimelineScale::limitedSecondsPerPixel(m_scale.secondsPerPixel * factor, length(), width());
    m_viewChosen = true;
    setView(t - x * spp, spp);
}

void TimelineView::showWholeMovie()
{
    m_viewChosen = true;
    setView(0, std::numeric_limits<double>::infinity());
}

void TimelineView::followTime(double seconds)
{
    if (m_drag)
        return;
    const double span = m_scale.viewEnd(width()) - m_scale.viewStart;
    const PlaybackControl *player = m_project->movieController();
    const bool playing = player && player->isPlaying();
    if (playing) {
        // Pages on before the playhead reaches the edge, keeping a little of what was heard.
        if (seconds < m_scale.viewStart || seconds > m_scale.viewStart + 0.92 * span)
            setView(seconds - 0.08 * span, m_scale.secondsPerPixel);
    } else if (seconds < m_scale.viewStart || seconds > m_scale.viewStart + span) {
        setView(seconds - 0.5 * span, m_scale.secondsPerPixel);
    }
}

void TimelineView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (!m_viewChosen)
        setView(m_project->currentTime() - DefaultSpan * 0.1, DefaultSpan / std::max(width(), 1));
    else
        setView(m_scale.viewStart, m_scale.secondsPerPixel);
    invalidateWaveform();
}

void TimelineView::projectKeyChanged(const QString &key)
{
    if (key == u"currentTime"_s) {
        followTime(m_project->currentTime());
        update();
        return;
    }
    if (key == u"hasMovie"_s && !m_viewChosen)
        setView(m_project->currentTime() - DefaultSpan * 0.1, DefaultSpan / std::max(width(), 1));
    if (key == u"subtitles"_s) {
        m_reachValid = false;
        m_drag.reset(); // the list changed under a drag
    }
    update();
}

void TimelineView::cuesChanged()
{
    m_reachValid = false;
    update();
}

// --- layout ----------------------------------------------------------------------------------------

QRect TimelineView::cueRect() const
{
    return {0, height() - CueHeight, width(), CueHeight};
}

QRect TimelineView::speechRect() const
{
    return {0, height() - CueHeight - SpeechHeight - 1, width(), SpeechHeight};
}

QRect TimelineView::waveformRect() const
{
    return QRect(QPoint(0, RulerHeight), QPoint(width() - 1, speechRect().top() - 2));
}

QRectF TimelineView::barRect(const VHSubtitle &cue) const
{
    const QRect lane = cueRect();
    const double x0 = m_scale.xAt(cue.start());
    const double x1 = std::max(m_scale.xAt(cue.end()), x0 + 1);
    return {x0, double(lane.top() + 3), x1 - x0, double(lane.height() - 6)};
}

std::pair<TimelineView::Grab, qsizetype> TimelineView::grabAt(QPointF pos) const
{
    if (pos.y() < cueRect().top())
        return {Grab::None, -1};
    const SubtitleList &cues = m_project->subtitles();
    const double reach = EdgeReach * m_scale.secondsPerPixel;
    const double t = m_scale.timeAt(pos.x());
    const auto [first, last] = visibleCues(t - reach, t + reach);
    Grab best = Grab::None;
    qsizetype bestIndex = -1;
    double bestDistance = EdgeReach + 1;
    for (qsizetype i = first; i < last; ++i) {
        const QRectF bar = barRect(*cues[i]);
        const double toStart = std::abs(pos.x() - bar.left());
        const double toEnd = std::abs(pos.x() - bar.right());
        // On a bar too narrow for two edges, its first half is the start.
        const bool startSide = bar.width() < 2 * EdgeReach ? pos.x() <= bar.center().x() : toStart <= toEnd;
        const double distance = startSide ? toStart : toEnd;
        if (distance <= EdgeReach && distance < bestDistance) {
            best = startSide ? Grab::StartEdge : Grab::EndEdge;
            bestIndex = i;
            bestDistance = distance;
        }
    }
    if (best != Grab::None)
        return {best, bestIndex};
    for (qsizetype i = last - 1; i >= first; --i) {
        if (barRect(*cues[i]).contains(pos))
            return {Grab::Body, i};
    }
    return {Grab::None, -1};
}

std::optional<TimelineView::PendingFix> TimelineView::pendingFix() const
{
    const SubtitlePtr &cue = m_project->currentSubtitle();
    const FixMode mode = m_project->fixMode();
    if (!cue || mode == FixMode::None || !m_project->hasMovie())
        return std::nullopt;
    // What setStart() does with the time the fix commands pass it.
    const CTWindowController::FixRange &range = m_project->fixRange();
    double t = m_project->fixTime();
    const double h = m_project->fps() > 0 ? 0.5 / m_project->fps() : 0;
    PendingFix pending;
    pending.from = cue->start();
    pending.allowed = m_project->canFix() && t >= range.startChange - h && t <= range.endChange + h;
    t = std::max(std::min(t, range.endChange), range.startChange);
    if (mode == FixMode::Tap2Sync)
        t -= Settings::shared().doubleValue(u"TapDelaySecs"_s);
    pending.to = t;
    return pending;
}

// --- painting --------------------------------------------------------------------------------------

void TimelineView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QPalette &pal = palette();
    painter.fillRect(rect(), pal.color(QPalette::Base).darker(106));

    const QRect wave = waveformRect().united(speechRect());
    const qreal ratio = devicePixelRatioF();
    if (!m_waveformValid || m_waveformCache.size() != wave.size() * ratio) {
        m_waveformCache = QPixmap(wave.size() * ratio);
        m_waveformCache.setDevicePixelRatio(ratio);
        m_waveformCache.fill(Qt::transparent);
        QPainter cache(&m_waveformCache);
        cache.translate(-wave.topLeft());
        paintWaveform(cache, wave);
        m_waveformValid = true;
    }
    painter.drawPixmap(wave.topLeft(), m_waveformCache);
    paintRuler(painter);
    paintCues(painter);
    paintPending(painter);

    // The playhead over everything.
    const double x = m_scale.xAt(m_project->currentTime());
    if (x >= -1 && x <= width() + 1) {
        painter.setPen(QPen(QColor(230, 40, 40), 1.5));
        painter.drawLine(QPointF(x, 0), QPointF(x, height()));
    }
    if (hasFocus()) {
        painter.setPen(QPen(pal.color(QPalette::Highlight), 1));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void TimelineView::paintWaveform(QPainter &painter, const QRect &rect)
{
    const QRect waveRect = waveformRect();
    const QRect speech = speechRect();
    const double mid = waveRect.center().y() + 0.5;
    const double half = waveRect.height() / 2.0 - 1;
    painter.setPen(QColor(128, 128, 128, 90));
    painter.drawLine(QPointF(0, mid), QPointF(rect.width(), mid));

    // Each pixel column draws the smallest and largest peak of the time it covers.
    if (m_analysis) {
        painter.setPen(QColor(60, 140, 210));
        const QList<AudioAnalysis::Span> columns =
            m_analysis->columns(m_scale.viewStart, m_scale.viewEnd(rect.width()), rect.width());
        for (qsizetype x = 0; x < columns.size(); ++x) {
            const AudioAnalysis::Span &column = columns[x];
            if (column.filled)
                painter.drawLine(QPointF(double(x) + 0.5, mid - double(column.max) * half),
                                 QPointF(double(x) + 0.5, mid - double(column.min) * half - 0.01));
        }
    }

    // The speech band: where speech was detected, over a groove that shows the band's place.
    painter.fillRect(speech, QColor(128, 128, 128, 40));
    const double from = m_scale.viewStart, to = m_scale.viewEnd(rect.width());
    auto firstSpan = std::lower_bound(m_speech.cbegin(), m_speech.cend(), from,
                                      [](const SpeechSegment &span, double t) { return span.end < t; });
    const QColor speechColor(60, 170, 90);
    for (auto span = firstSpan; span != m_speech.cend() && span->start <= to; ++span) {
        const double x0 = m_scale.xAt(span->start), x1 = std::max(m_scale.xAt(span->end), x0 + 1);
        painter.fillRect(QRectF(x0, speech.top(), x1 - x0, speech.height()), speechColor);
    }

    if (!m_audioNote.isEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(waveRect.adjusted(6, 2, -6, -2), Qt::AlignLeft | Qt::AlignTop, m_audioNote);
    }
}

void TimelineView::paintRuler(QPainter &painter)
{
    const double step =
        rulerStep(m_scale.secondsPerPixel, painter.fontMetrics().horizontalAdvance(u"0:00:00"_s) + 16);
    painter.setPen(palette().color(QPalette::WindowText));
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 0.8);
    painter.setFont(font);
    const double end = m_scale.viewEnd(width());
    for (double t = std::ceil(m_scale.viewStart / step) * step; t <= end; t += step) {
        const double x = m_scale.xAt(t);
        painter.drawLine(QPointF(x, RulerHeight - 4), QPointF(x, RulerHeight));
        painter.drawText(QPointF(x + 2, RulerHeight - 4), rulerText(t, step));
    }
}

void TimelineView::paintCues(QPainter &painter)
{
    const SubtitleList &cues = m_project->subtitles();
    const QRect lane = cueRect();
    const QPalette &pal = palette();
    const double from = m_scale.viewStart, to = m_scale.viewEnd(width());

    // The run the next fix moves, between its anchors.
    if (m_project->currentSubtitle() && m_project->fixMode() != FixMode::None) {
        const CTWindowController::FixRange &range = m_project->fixRange();
        const double x0 = std::max(m_scale.xAt(range.startChange), -1.0);
        const double x1 = std::min(m_scale.xAt(std::min(range.endChange, length())), width() + 1.0);
        if (x1 > x0)
            painter.fillRect(QRectF(x0, lane.top(), x1 - x0, lane.height()), QColor(240, 200, 60, 28));
    }

    const auto [first, last] = visibleCues(from, to);
    const VHSubtitle *current = m_project->currentSubtitle().get();
    const QColor barColor = pal.color(QPalette::Button);
    const QColor activeColor = pal.color(QPalette::Button).lighter(115);
    const QColor frameColor = pal.color(QPalette::Mid);
    const QColor anchorColor(230, 140, 20);
    QFont font = painter.font();
    painter.setFont(font);
    const QFontMetrics metrics = painter.fontMetrics();
    double paintedUpTo = -std::numeric_limits<double>::infinity();
    for (qsizetype i = first; i < last; ++i) {
        const VHSubtitle &cue = *cues[i];
        const bool dragged = m_drag && m_drag->cue.get() == &cue;
        QRectF bar = barRect(cue);
        // Zoomed far out, many bars share a pixel: one of them stands for the rest, until
        // one reaches a pixel further.
        if (bar.right() < paintedUpTo + 1 && &cue != current && !cue.fixed() && !dragged)
            continue;
        paintedUpTo = std::max(paintedUpTo, bar.right());
        const bool isCurrent = &cue == current;
        painter.setPen(isCurrent ? QPen(pal.color(QPalette::Highlight).darker(130), 1) : QPen(frameColor, 1));
        painter.setBrush(isCurrent ? pal.color(QPalette::Highlight)
                                   : (cue.active() ? activeColor : barColor));
        painter.drawRect(bar);
        if (bar.width() > 24) {
            painter.setPen(pal.color(isCurrent ? QPalette::HighlightedText : QPalette::ButtonText));
            const QRectF textRect = bar.adjusted(cue.fixed() ? 9 : 4, 1, -3, -1).intersected(QRectF(rect()));
            QString text = cue.string();
            text.replace(u'\n', u" / "_s);
            painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter,
                             metrics.elidedText(text, Qt::ElideRight, int(textRect.width())));
        }
        if (cue.fixed()) {
            // An anchor: a post at its start with a flag on top.
            painter.setPen(QPen(anchorColor, 3));
            painter.drawLine(QPointF(bar.left() + 1, lane.top()), QPointF(bar.left() + 1, lane.bottom()));
            QPainterPath flag;
            flag.moveTo(bar.left() + 2, lane.top());
            flag.lineTo(bar.left() + 8, lane.top() + 4);
            flag.lineTo(bar.left() + 2, lane.top() + 8);
            flag.closeSubpath();
            painter.fillPath(flag, anchorColor);
        }
    }
    painter.setBrush(Qt::NoBrush);
}

void TimelineView::paintPending(QPainter &painter)
{
    const QRect lane = cueRect();
    auto ghost = [&](const VHSubtitle &cue, double start, double end, const QColor &color, bool washed) {
        const double x0 = m_scale.xAt(start), x1 = std::max(m_scale.xAt(end), x0 + 2);
        const QRectF bar(x0, lane.top() + 1, x1 - x0, lane.height() - 2);
        if (washed)
            painter.fillRect(bar, QColor(255, 0, 0, 77));
        else
            painter.fillRect(bar, QColor(color.red(), color.green(), color.blue(), 50));
        painter.setPen(QPen(color, 2, Qt::DashLine));
        painter.drawRect(bar);
        painter.setPen(QPen(color, 3));
        painter.drawLine(QPointF(x0, lane.top() - 2), QPointF(x0, lane.bottom() + 1));
        Q_UNUSED(cue);
    };

    if (m_drag) {
        const VHSubtitle &cue = *m_drag->cue;
        if (m_drag->edge == Grab::StartEdge)
            ghost(cue, m_drag->time, m_drag->time + cue.duration(), QColor(220, 30, 30), false);
        else
            ghost(cue, cue.start(), m_drag->time, QColor(220, 30, 30), false);
        if (m_drag->snappedTo) {
            // The onset it snapped to, marked down through the waveform.
            const double x = m_scale.xAt(*m_drag->snappedTo);
            painter.setPen(QPen(QColor(40, 170, 80), 2));
            painter.drawLine(QPointF(x, RulerHeight), QPointF(x, lane.top()));
        }
        return;
    }
    const std::optional<PendingFix> pending = pendingFix();
    const SubtitlePtr &cue = m_project->currentSubtitle();
    if (!pending || !cue || std::abs(pending->to - pending->from) < 0.0005)
        return;
    // Before the fix in yellow, where it lands in red (red wash when the fix is refused).
    const double x0 = m_scale.xAt(pending->from);
    painter.setPen(QPen(QColor(235, 200, 20), 3));
    painter.drawLine(QPointF(x0, lane.top() - 2), QPointF(x0, lane.bottom() + 1));
    ghost(*cue, pending->to, pending->to + cue->duration(), QColor(220, 30, 30), !pending->allowed);
}

// --- the mouse -------------------------------------------------------------------------------------

void TimelineView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    const auto [grab, index] = grabAt(event->position());
    const SubtitleList &cues = m_project->subtitles();
    const bool tapping = m_project->fixMode() == FixMode::Tap2Sync;
    if ((grab == Grab::StartEdge || grab == Grab::EndEdge) && !tapping && m_project->hasMovie()) {
        m_drag =
            Drag{grab, cues[index], grab == Grab::StartEdge ? cues[index]->start() : cues[index]->end(), {}};
        update();
        return;
    }
    if (grab == Grab::Body && !tapping) {
        selectCue(cues[index]);
        return;
    }
    m_scrubbing = true;
    seekTo(m_scale.timeAt(event->position().x()));
}

void TimelineView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_drag) {
        updateDrag(event->position().x(), event->modifiers());
        return;
    }
    if (m_scrubbing) {
        seekTo(m_scale.timeAt(event->position().x()));
        return;
    }
    const Grab grab = grabAt(event->position()).first;
    setCursor(grab == Grab::StartEdge || grab == Grab::EndEdge ? Qt::SizeHorCursor : Qt::ArrowCursor);
}

void TimelineView::mouseReleaseEvent(QMouseEvent *event)
{
    m_scrubbing = false;
    if (m_drag) {
        updateDrag(event->position().x(), event->modifiers());
        finishDrag();
    }
}

bool TimelineView::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    // Over a line: its times and text; elsewhere what the strip does.
    const auto *help = static_cast<QHelpEvent *>(event);
    const auto [grab, index] = grabAt(help->pos());
    QString text;
    if (index >= 0) {
        const VHSubtitle &cue = *m_project->subtitles()[index];
        text = u"%1 – %2\n%3"_s.arg(VHTimeValueTransformer::stringForTime(cue.start()),
                                    VHTimeValueTransformer::stringForTime(cue.end()), cue.string());
        if (grab == Grab::StartEdge)
            text += u"\n"_s + tr("Drag to fix the line's start here (Meta: without snapping to speech).");
        else if (grab == Grab::EndEdge)
            text += u"\n"_s + tr("Drag to change the line's end.");
    } else {
        text = tr("Click to go to a time, drag to scrub. Ctrl+wheel zooms, the wheel scrolls.");
    }
    QToolTip::showText(help->globalPos(), text, this);
    return true;
}

void TimelineView::leaveEvent(QEvent *event)
{
    unsetCursor();
    QWidget::leaveEvent(event);
}

void TimelineView::updateDrag(double x, Qt::KeyboardModifiers modifiers)
{
    double t = std::clamp(m_scale.timeAt(x), 0.0, length());
    m_drag->snappedTo.reset();
    m_dragModifiers = modifiers;
    if (m_drag->edge == Grab::StartEdge) {
        if (m_snapper)
            m_drag->snappedTo = m_snapper->snapTarget(t, modifiers);
        t = m_drag->snappedTo.value_or(t);
    } else {
        t = std::max(t, m_drag->cue->start());
    }
    m_drag->time = t;
    update();
}

void TimelineView::finishDrag()
{
    const Drag drag = *m_drag;
    m_drag.reset();
    update();
    VHSubtitle &cue = *drag.cue;
    if (drag.edge == Grab::EndEdge) {
        if (std::abs(drag.time - cue.end()) < 0.0005)
            return;
        CTWindowController::EditScope edit(*m_project, tr("End Time"));
        cue.setEnd(drag.time);
        m_project->setHasChanged(true);
        return;
    }
    if (std::abs(drag.time - cue.start()) < 0.0005)
        return;
    // A fix in the current mode at the dropped time: the line becomes the current one, the
    // movie goes to the time, and the fix command does the rest as the fix key would.
    if (m_project->currentSubtitle() != drag.cue)
        selectCue(drag.cue);
    if (m_project->currentSubtitle() != drag.cue)
        return; // not listed (a search hides it)
    if (m_project->fixMode() == FixMode::None)
        m_project->updateFixMode();
    PlaybackControl *player = m_project->movieController();
    if (!player)
        return;
    player->setCurrentTime(drag.time);
    m_committing = true;
    switch (m_project->fixMode()) {
    case FixMode::Shift:
        m_project->shiftSubtitles();
        break;
    case FixMode::Single:
        m_project->fixSingleSubtitleStart();
        break;
    default:
        m_project->fixSubtitleStart();
        break;
    }
    m_committing = false;
}

Qt::KeyboardModifiers TimelineView::modifiersForFix() const
{
    return m_committing ? m_dragModifiers : QGuiApplication::keyboardModifiers();
}

void TimelineView::selectCue(const SubtitlePtr &cue)
{
    const qsizetype row = m_project->arrangedSubtitles().indexOf(cue);
    if (row >= 0)
        m_project->setSelectionIndices({row});
}

void TimelineView::seekTo(double seconds)
{
    if (PlaybackControl *player = m_project->movieController(); player && m_project->hasMovie())
        player->setCurrentTime(std::clamp(seconds, 0.0, length()));
}

// --- wheel and keys --------------------------------------------------------------------------------

void TimelineView::wheelEvent(QWheelEvent *event)
{
    const QPoint delta = event->angleDelta();
    if (event->modifiers() & Qt::ControlModifier) {
        if (delta.y() != 0)
            zoomBy(std::pow(2.0, -delta.y() / 240.0), event->position().x());
    } else {
        // Either wheel scrolls through time; a notch moves a tenth of the view.
        const int steps = delta.x() != 0 ? delta.x() : delta.y();
        m_viewChosen = true;
        setView(m_scale.viewStart - steps / 120.0 * 0.1 * width() * m_scale.secondsPerPixel,
                m_scale.secondsPerPixel);
    }
    event->accept();
}

void TimelineView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        zoomIn();
        break;
    case Qt::Key_Minus:
        zoomOut();
        break;
    case Qt::Key_0:
        showWholeMovie();
        break;
    case Qt::Key_Escape:
        if (m_drag) {
            m_drag.reset();
            update();
        }
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
}
