#include "CTFixButton.h"

#include <QFontMetrics>
#include <QGraphicsDropShadowEffect>
#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QVariantAnimation>

#include <cmath>

using namespace Qt::StringLiterals;

CTFixButton::CTFixButton(QWidget *parent)
    : QPushButton(parent)
{
    m_subtitle = formattedShift(0);
    // The glow: a round shadow in the text colour, off until Tap2Sync.
    m_glow = new QGraphicsDropShadowEffect(this);
    m_glow->setOffset(0, 0);
    m_glow->setBlurRadius(0);
    QColor clear = textColor();
    clear.setAlphaF(0);
    m_glow->setColor(clear);
    setGraphicsEffect(m_glow);
    setFixMode(0);
    // As wide as the longest mode name of the interface language, so that holding Shift or
    // Alt changes the text but not the size.
    int widest = 0;
    for (const QString &title : {tr("Fix", "fix mode"), tr("Shift", "fix mode"), tr("Single", "fix mode"),
                                 tr("Tap", "fix mode in Tap2Sync")}) {
        widest = std::max(widest, QFontMetrics(titleFont()).horizontalAdvance(title));
    }
    setMinimumSize(std::max(72, widest + 24), 52);
    // Blue text, as the fix control has always shown it, on a plate of its own so that the
    // dial behind it shows only around it.
    setStyleSheet(u"QPushButton { color: rgb(68, 166, 218); font-weight: bold; border-radius: 26px;"
                  " border: 2px solid rgb(68, 166, 218); padding: 4px; background: palette(base); }"
                  "QPushButton:pressed { background: palette(midlight); }"
                  "QPushButton:disabled { color: gray; border-color: gray; }"_s);
}

QFont CTFixButton::titleFont() const
{
    QFont title = font();
    title.setBold(true);
    title.setPointSizeF(title.pointSizeF() * 1.3);
    return title;
}

QFont CTFixButton::subtitleFont() const
{
    // The shift at 60 % of the mode's name.
    QFont subtitle = titleFont();
    subtitle.setPointSizeF(subtitle.pointSizeF() * 0.6);
    return subtitle;
}

void CTFixButton::paintEvent(QPaintEvent *)
{
    // The plate as the style draws it, then the two lines in their own sizes.
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);
    const QColor color =
        isEnabled() ? textColor() : palette().color(QPalette::Disabled, QPalette::ButtonText);
    const QFontMetrics titleMetrics(titleFont()), subtitleMetrics(subtitleFont());
    const int total = titleMetrics.height() + subtitleMetrics.height();
    const int top = (height() - total) / 2;
    painter.setPen(color);
    painter.setFont(titleFont());
    painter.drawText(QRect(0, top, width(), titleMetrics.height()), Qt::AlignCenter, m_title);
    painter.setFont(subtitleFont());
    painter.drawText(QRect(0, top + titleMetrics.height(), width(), subtitleMetrics.height()),
                     Qt::AlignCenter, m_subtitle);
}

double CTFixButton::glowOpacity() const
{
    return m_glow->color().alphaF();
}

double CTFixButton::glowRadius() const
{
    return m_glow->blurRadius();
}

bool CTFixButton::isGlowPulsing() const
{
    return m_pulse && m_pulse->state() == QAbstractAnimation::Running;
}

void CTFixButton::setGlowing(bool glowing)
{
    if (glowing) {
        m_glow->setBlurRadius(24);
        if (!m_pulse) {
            // From clear to full and back, for as long as the mode lasts.
            m_pulse = new QVariantAnimation(this);
            m_pulse->setStartValue(0.0);
            m_pulse->setKeyValueAt(0.5, 1.0);
            m_pulse->setEndValue(0.0);
            m_pulse->setDuration(2 * GlowPulseMs);
            m_pulse->setLoopCount(-1);
            QObject::connect(m_pulse, &QVariantAnimation::valueChanged, m_glow,
                             [this](const QVariant &value) {
                                 QColor color = textColor();
                                 color.setAlphaF(value.toDouble());
                                 m_glow->setColor(color);
                             });
        }
        m_glow->setColor(textColor());
        m_pulse->start();
        return;
    }
    delete m_pulse;
    m_pulse = nullptr;
    QColor clear = textColor();
    clear.setAlphaF(0);
    m_glow->setColor(clear);
    m_glow->setBlurRadius(0);
}

QString CTFixButton::formattedShift(double seconds)
{
    const double rounded = std::round(seconds * 100) / 100;
    return (rounded < 0 ? u"-"_s : u"+"_s) + QString::number(std::fabs(rounded), 'f', 2) + u"s"_s;
}

void CTFixButton::setFixMode(int mode)
{
    if (mode == m_fixMode)
        return;
    m_fixMode = mode;
    m_title = mode == 2   ? tr("Shift", "fix mode")
              : mode == 3 ? tr("Single", "fix mode")
              : mode == 4 ? tr("Tap", "fix mode in Tap2Sync")
                          : tr("Fix", "fix mode");
    // Only Tap2Sync hands the keyboard to the control.
    setFocusPolicy(mode == 4 ? Qt::StrongFocus : Qt::NoFocus);
    setGlowing(mode == 4);
    if (mode != 4 && hasFocus())
        clearFocus();
    updateText();
}

void CTFixButton::setTimeShift(double seconds)
{
    m_timeShift = seconds;
    if (std::fabs(seconds - m_lastTimeShift) > 0.005) {
        m_subtitle = formattedShift(seconds);
        m_lastTimeShift = seconds;
        updateText();
    }
}

void CTFixButton::updateText()
{
    setText(m_title + u'\n' + m_subtitle);
}

void CTFixButton::keyPressEvent(QKeyEvent *event)
{
    if (m_fixMode == 4 && event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
        if (onTap)
            onTap();
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        if (onEscape)
            onEscape();
        return;
    }
    if (m_fixMode == 4 && !event->text().isEmpty())
        return; // other typing does nothing in Tap2Sync
    QPushButton::keyPressEvent(event);
}

void CTFixButton::focusInEvent(QFocusEvent *event)
{
    // Outside Tap2Sync the keyboard stays where it was: the control takes no focus, however
    // it is offered.
    if (m_fixMode != 4) {
        event->ignore();
        clearFocus();
        return;
    }
    QPushButton::focusInEvent(event);
}

void CTFixButton::focusOutEvent(QFocusEvent *event)
{
    QPushButton::focusOutEvent(event);
    // A menu or another window taking the focus for a moment is not the focus going.
    const bool really =
        event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
    if (m_fixMode == 4 && really && onResignFocus)
        onResignFocus();
}
