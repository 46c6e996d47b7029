#include "FixPanel.h"

#include "CTFixButton.h"
#include "CTFixButtonBackground.h"
#include "CTFixPreview.h"
#include "CTWindowController.h"
#include "Settings.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

FixPanel::FixPanel(QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);

    m_background = new CTFixButtonBackground(this);
    auto *plate = new QHBoxLayout(m_background);
    plate->setContentsMargins(8, 6, 8, 6);
    m_button = new CTFixButton(m_background);
    plate->addWidget(m_button, 0, Qt::AlignCenter);
    m_background->setFixedSize(std::max(96, m_button->minimumWidth() + 22), 68);
    m_background->setHideView(new QWidget(m_background));
    m_background->setShiftField(new QLineEdit(m_background));
    m_background->setToolTip(tr("The pending shift of the current line; the ring fills with a shift of a "
                                "tenth of the movie"));
    layout->addWidget(m_background);

    m_preview = new CTFixPreview(this);
    // Larger than its natural size, as high as the control's plate, so that a run of lines
    // can be told apart.
    m_preview->setFixedSize(64, m_background->height());
    m_preview->setToolTip(tr("Left: the lines between the fixed lines as they are, the current one in "
                             "yellow. Right: where the fix puts them, the current one in red. Red all "
                             "over: outside the fixed lines, nothing would move."));
    layout->addWidget(m_preview);

    auto *side = new QVBoxLayout;
    side->setSpacing(2);
    auto *chooser = new QHBoxLayout;
    chooser->setSpacing(0);
    m_modes = new QButtonGroup(this);
    m_modes->setExclusive(true);
    const QString tips[] = {
        tr("Fix: the lines between the nearest fixed lines stretch to follow the current one"),
        tr("Shift: the lines between the nearest fixed lines move by the same amount (hold Shift)"),
        tr("Single: only the current line moves (hold Alt)")};
    for (int mode = 1; mode <= 3; ++mode) {
        auto *button = new QToolButton(this);
        button->setText(modeName(mode));
        button->setToolTip(tips[mode - 1]);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setAutoRaise(false);
        // The chosen mode in the control's blue, so that it reads at a glance.
        button->setStyleSheet(u"QToolButton:checked { color: rgb(68, 166, 218); font-weight: bold; }"_s);
        m_modes->addButton(button, mode);
        chooser->addWidget(button);
        QObject::connect(button, &QToolButton::clicked, this, [this, mode] {
            if (onChooseMode)
                onChooseMode(mode);
        });
    }
    chooser->addSpacing(8);
    m_modeLabel = new QLabel(this);
    QFont bold = m_modeLabel->font();
    bold.setBold(true);
    m_modeLabel->setFont(bold);
    // Never wider than the room beside the chooser: the window keeps its width.
    m_modeLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_modeLabel->setMinimumWidth(m_modeLabel->fontMetrics().horizontalAdvance(modeName(4)) + 4);
    chooser->addWidget(m_modeLabel, 1);
    side->addLayout(chooser);
    m_detailLabel = new QLabel(this);
    m_detailLabel->setWordWrap(true);
    m_detailLabel->setMinimumWidth(160);
    // Whatever it says, the panel keeps its height: room for the chooser and three lines.
    m_detailLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_detailLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    side->addWidget(m_detailLabel, 1);
    layout->addLayout(side, 1);
    setFixedHeight(std::max(m_background->height(), modeButton(1)->sizeHint().height() + side->spacing() +
                                                        3 * m_detailLabel->fontMetrics().lineSpacing() + 2));
}

QToolButton *FixPanel::modeButton(int mode) const
{
    return static_cast<QToolButton *>(m_modes->button(mode));
}

QString FixPanel::modeName(int mode)
{
    switch (mode) {
    case 2:
        return tr("Shift", "fix mode");
    case 3:
        return tr("Single", "fix mode");
    case 4:
        return tr("Tap2Sync");
    default:
        return tr("Fix", "fix mode");
    }
}

QString FixPanel::describe(int mode, qsizetype lines, double shift, bool allowed)
{
    QString what;
    if (mode == 0)
        return tr("Select a line to fix its start.");
    if (mode == 4)
        what = tr("Press space the moment you hear the line; Escape stops.");
    else if (!allowed)
        what = tr("Outside the fixed lines around it: nothing would move.");
    else if (mode == 3 || lines <= 1) // so the counts below are always 2 or more
        what = tr("Only this line moves, by %1.").arg(CTFixButton::formattedShift(shift));
    else if (mode == 2)
        what = tr("%n lines, up to the nearest fixed lines, move by %1 together.", nullptr, int(lines))
                   .arg(CTFixButton::formattedShift(shift));
    else
        what = tr("This line moves by %1; the lines up to the nearest fixed lines stretch with it (%n "
                  "in all).",
                  nullptr, int(lines))
                   .arg(CTFixButton::formattedShift(shift));
    return what;
}

double FixPanel::newTime(const CTWindowController &project, std::optional<double> pendingStart)
{
    if (pendingStart)
        return *pendingStart;
    if (int(project.fixMode()) == 4)
        return project.currentTime() - Settings::shared().doubleValue(u"TapDelaySecs"_s);
    return project.currentTime();
}

bool FixPanel::allowed(const CTWindowController &project, std::optional<double> pendingStart)
{
    if (!pendingStart)
        return project.canFix();
    // The typed start goes through the same rules as a fix at the playing time.
    const SubtitlePtr &cue = project.currentSubtitle();
    const SubtitleList &cues = project.subtitles();
    if (!cue || cues.isEmpty())
        return false;
    const CTWindowController::FixRange &range = project.fixRange();
    const double t = *pendingStart;
    if (int(project.fixMode()) == 2) {
        const double d = t - cue->start();
        const qsizetype last = cues.size() - 1;
        return cues[std::clamp<qsizetype>(range.first, 0, last)]->start() + d >= range.startChange &&
               cues[std::clamp<qsizetype>(range.last, 0, last)]->start() + d <= range.endChange;
    }
    const double h = project.fps() > 0 ? 0.5 / project.fps() : 0;
    return range.startChange - h <= t && t <= range.endChange + h;
}

void FixPanel::showFix(const CTWindowController &project, std::optional<double> pendingStart)
{
    const SubtitlePtr &cue = project.currentSubtitle();
    const SubtitleList &cues = project.subtitles();
    const qsizetype i = cue ? cues.indexOf(cue) : -1;
    const int mode = i >= 0 ? int(project.fixMode()) : 0;
    m_button->setFixMode(int(project.fixMode()));
    m_button->setEnabled(project.canFix() || int(project.fixMode()) == 4);
    m_background->setDuration(project.movieDuration());
    m_background->setHoverEnabled(bool(cue));
    if (QAbstractButton *chosen = m_modes->button(mode)) {
        chosen->setChecked(true);
    } else {
        // No mode of the chooser (none, Tap2Sync): nothing ticked.
        m_modes->setExclusive(false);
        for (QAbstractButton *button : m_modes->buttons())
            button->setChecked(false);
        m_modes->setExclusive(true);
    }
    for (QAbstractButton *button : m_modes->buttons())
        button->setEnabled(int(project.fixMode()) != 4 && !project.isChaptermark());

    const CTWindowController::FixRange &range = project.fixRange();
    m_preview->setMin(range.startChange);
    m_preview->setMax(range.endChange);
    if (i >= 0 && range.first >= 0 && range.last < cues.size() && range.first <= range.last) {
        m_preview->setFirst(cues[range.first]->start());
        m_preview->setLast(cues[range.last]->start());
        m_preview->setPrev(range.first > 0 ? cues[range.first - 1]->start() : range.startChange);
        m_preview->setNext(range.last + 1 < cues.size() ? cues[range.last + 1]->start() : range.endChange);
        m_preview->setSegments(unsigned(range.last - range.first + 1));
        m_preview->setIndex(i - range.first);
        m_preview->setMaxIndex(range.last - range.first);
    } else {
        m_preview->setSegments(0);
        m_preview->setIndex(0);
        m_preview->setMaxIndex(0);
    }
    // A change the strip could not show (less than a point of its height) does not redraw it.
    const double span = range.endChange - range.startChange;
    m_preview->setUpdateThreshold(
        std::isfinite(span) && span > 0 ? span / std::max(1, m_preview->height() - 3) : 0);
    if (cue)
        m_preview->setOrgTime(cue->start());
    m_preview->setFixMode(mode);
    showTime(project, pendingStart);
}

void FixPanel::showTime(const CTWindowController &project, std::optional<double> pendingStart)
{
    const SubtitlePtr &cue = project.currentSubtitle();
    const double shift = pendingStart && cue ? *pendingStart - cue->start() : project.timeShift();
    m_button->setTimeShift(shift);
    m_background->setTimeShift(shift);
    m_preview->setNewTime(newTime(project, pendingStart));
    showText(project, pendingStart);
}

void FixPanel::showText(const CTWindowController &project, std::optional<double> pendingStart)
{
    const SubtitlePtr &cue = project.currentSubtitle();
    const int mode = cue ? int(project.fixMode()) : 0;
    const CTWindowController::FixRange &range = project.fixRange();
    const qsizetype lines = mode == 3 ? 1 : std::max<qsizetype>(range.last - range.first + 1, 1);
    const double shift = cue ? newTime(project, pendingStart) - cue->start() : 0;
    // A typed start says so where the mode's name was; the chooser and the control still name
    // the mode, and the line below keeps its length.
    m_modeLabel->setText(mode == 0                   ? QString()
                         : pendingStart && mode != 4 ? tr("typed, Return applies")
                                                     : modeName(mode));
    const QString text = describe(mode, lines, shift, allowed(project, pendingStart));
    if (m_detailLabel->text() != text)
        m_detailLabel->setText(text);
}
