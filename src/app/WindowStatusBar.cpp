#include "WindowStatusBar.h"

#include "CTWindowController.h"
#include "VHEncoding.h"
#include "VHTimeValueTransformer.h"

#include <QLabel>

using namespace Qt::StringLiterals;

WindowStatusBar::WindowStatusBar(CTWindowController *project, QWidget *parent)
    : QStatusBar(parent)
    , m_project(project)
{
    setAccessibleName(tr("Status"));
    auto label = [this](const QString &name, const QString &toolTip) {
        auto *item = new QLabel(this);
        item->setAccessibleName(name);
        item->setToolTip(toolTip);
        addPermanentWidget(item);
        return item;
    };
    m_time = label(tr("Playing time"), tr("The movie's playing time"));
    m_mode = label(tr("Fix mode"), QString()); // the tool tip explains the mode shown
    m_encoding = label(tr("Encoding"), tr("The encoding the subtitle file was read in"));
    m_lines = label(tr("Lines"), tr("The number of lines in the file"));
    // The time does not jump in width as its digits change.
    m_time->setMinimumWidth(fontMetrics().horizontalAdvance(VHTimeValueTransformer::stringForTime(0)) + 8);
    m_keys =
        m_project->observeKey(QString(), [this](Observable *, const QString &key, Observable::Change change) {
            if (change == Observable::Change::Did)
                keyChanged(key);
        });
    showTime();
    showMode();
    showEncoding();
    showLines();
}

void WindowStatusBar::keyChanged(const QString &key)
{
    if (key == u"currentTime"_s)
        showTime();
    else if (key == u"fixMode"_s || key == u"currentSubtitle"_s)
        showMode();
    else if (key == u"fileEncoding"_s)
        showEncoding();
    else if (key == u"subtitles"_s || key == u"searchPredicate"_s)
        showLines();
}

QString WindowStatusBar::shortModeName(FixMode fixMode)
{
    switch (fixMode) {
    case FixMode::Fix:
        return tr("Mode: Fix");
    case FixMode::Shift:
        return tr("Mode: Shift");
    case FixMode::Single:
        return tr("Mode: Single");
    case FixMode::Tap2Sync:
        return tr("Mode: Tap2Sync");
    default:
        return tr("No line to fix");
    }
}

QString WindowStatusBar::modeName(FixMode fixMode)
{
    switch (fixMode) {
    case FixMode::Fix:
        return tr("Fix: the lines between the anchors stretch");
    case FixMode::Shift:
        return tr("Shift: the lines between the anchors move by as much");
    case FixMode::Single:
        return tr("Single: only this line moves");
    case FixMode::Tap2Sync:
        return tr("Tap2Sync: tap as each line begins");
    default:
        return tr("No line to fix");
    }
}

void WindowStatusBar::showTime()
{
    m_time->setText(VHTimeValueTransformer::stringForTime(m_project->currentTime()));
}

void WindowStatusBar::showMode()
{
    // The short name, so that the bar keeps its width; the explanation is the tool tip.
    // Without a current line no fix can be made, whatever mode the next one will take.
    const FixMode mode = m_project->currentSubtitle() ? m_project->fixMode() : FixMode::None;
    m_mode->setText(shortModeName(mode));
    m_mode->setToolTip(modeName(mode));
}

void WindowStatusBar::showEncoding()
{
    const EncodingId encoding = m_project->fileEncoding();
    m_encoding->setText(encoding == Encodings::None ? QString() : VHEncoding::nameForEncoding(encoding));
    m_encoding->setVisible(encoding != Encodings::None);
}

void WindowStatusBar::showLines()
{
    const qsizetype all = m_project->subtitles().size();
    if (m_project->searchString().isEmpty()) {
        m_lines->setText(all == 1 ? tr("1 line") : tr("%n lines", nullptr, int(all)));
    } else {
        const qsizetype listed = m_project->arrangedSubtitles().size();
        m_lines->setText(
            (all == 1 ? tr("%1 of 1 line") : tr("%1 of %n lines", nullptr, int(all))).arg(listed));
    }
}
