#include "CTFixButton.h"

#include <QFontMetrics>
#include <QKeyEvent>

#include <cmath>

using namespace Qt::StringLiterals;

CTFixButton::CTFixButton(QWidget *parent)
    : QPushButton(parent)
{
    m_subtitle = formattedShift(0);
    applyFixMode(FixMode::None);
    // As wide as the longest mode name of the interface language, so that holding Shift or
    // Alt changes the text but not the size.
    int widest = 0;
    for (const QString &title : {tr("Fix", "fix mode"), tr("Shift", "fix mode"), tr("Single", "fix mode"),
                                 tr("Tap", "fix mode in Tap2Sync")}) {
        QFont bold = font();
        bold.setBold(true);
        widest = std::max(widest, QFontMetrics(bold).horizontalAdvance(title));
    }
    setMinimumSize(std::max(72, widest + 24), 52);
    // Blue text, as the fix control has always shown it.
    setStyleSheet(u"QPushButton { color: rgb(68, 166, 218); font-weight: bold; border-radius: 26px;"
                  " border: 2px solid rgb(68, 166, 218); padding: 4px; }"
                  "QPushButton:disabled { color: gray; border-color: gray; }"_s);
}

QString CTFixButton::formattedShift(double seconds)
{
    const double rounded = std::round(seconds * 100) / 100;
    return (rounded < 0 ? u"-"_s : u"+"_s) + QString::number(std::fabs(rounded), 'f', 2) + u"s"_s;
}

void CTFixButton::setFixMode(FixMode mode)
{
    if (mode != m_fixMode)
        applyFixMode(mode);
}

void CTFixButton::applyFixMode(FixMode mode)
{
    m_fixMode = mode;
    switch (mode) {
    case FixMode::Shift:
        m_title = tr("Shift", "fix mode");
        break;
    case FixMode::Single:
        m_title = tr("Single", "fix mode");
        break;
    case FixMode::Tap2Sync:
        m_title = tr("Tap", "fix mode in Tap2Sync");
        break;
    case FixMode::None:
    case FixMode::Fix:
        m_title = tr("Fix", "fix mode");
        break;
    }
    // Only Tap2Sync hands the keyboard to the control.
    setFocusPolicy(mode == FixMode::Tap2Sync ? Qt::StrongFocus : Qt::NoFocus);
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
    if (m_fixMode == FixMode::Tap2Sync && event->key() == Qt::Key_Space &&
        event->modifiers() == Qt::NoModifier) {
        if (onTap)
            onTap();
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        if (onEscape)
            onEscape();
        return;
    }
    if (m_fixMode == FixMode::Tap2Sync && !event->text().isEmpty())
        return; // other typing does nothing in Tap2Sync
    QPushButton::keyPressEvent(event);
}

void CTFixButton::focusOutEvent(QFocusEvent *event)
{
    QPushButton::focusOutEvent(event);
    // A menu or another window taking the focus for a moment is not the focus going.
    const bool really =
        event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
    if (m_fixMode == FixMode::Tap2Sync && really && onResignFocus)
        onResignFocus();
}
