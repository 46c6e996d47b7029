#include "TutorialOverlay.h"

#include "Settings.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

TutorialOverlay::TutorialOverlay(QWidget *area, const QKeySequence &fixKey, const QKeySequence &tapKey)
    : QFrame(area)
{
    setObjectName(u"tutorial"_s);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(u"#tutorial { background: rgba(24, 26, 30, 232); border: 1px solid rgb(68, 166, 218);"
                  " border-radius: 10px; } #tutorial QLabel, #tutorial QCheckBox { color: white; }"
                  " #tutorial QLabel#number { color: rgb(68, 166, 218); font-weight: bold; }"_s);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 14, 18, 14);
    auto *title = new QLabel(tr("Three things to know"), this);
    QFont big = title->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.25);
    title->setFont(big);
    layout->addWidget(title);

    const QString fix = fixKey.toString(QKeySequence::NativeText);
    const QString tap = tapKey.toString(QKeySequence::NativeText);
    const QString points[][2] = {
        {tr("Click a line to go there."),
         tr("The movie jumps to the line's start. Alt-click selects it without moving the movie.")},
        {tr("Press the fix key (%1) when you hear it.").arg(fix),
         tr("The line starts at that moment, and the lines up to the nearest fixed lines follow. The strip "
            "beside the fix button shows where they will go before you press it.")},
        {tr("Tap2Sync for a whole film."),
         tr("Timing › Enter \"Tap2Sync\" Mode (%1): watch the film and press space each time a line is "
            "spoken.")
             .arg(tap)},
    };
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(8);
    for (int i = 0; i < 3; ++i) {
        auto *number = new QLabel(QString::number(i + 1), this);
        number->setObjectName(u"number"_s);
        number->setFont(big);
        grid->addWidget(number, i, 0, Qt::AlignTop);
        auto *text = new QLabel(
            u"<b>%1</b><br>%2"_s.arg(points[i][0].toHtmlEscaped(), points[i][1].toHtmlEscaped()), this);
        text->setWordWrap(true);
        grid->addWidget(text, i, 1);
    }
    grid->setColumnStretch(1, 1);
    layout->addLayout(grid);

    auto *bottom = new QHBoxLayout;
    m_dontShow = new QCheckBox(tr("Do not show this again"), this);
    m_dontShow->setFocusPolicy(Qt::NoFocus);
    bottom->addWidget(m_dontShow);
    bottom->addStretch(1);
    m_close = new QPushButton(tr("Got It"), this);
    // The keyboard stays with the window: the overlay is closed with the mouse.
    m_close->setFocusPolicy(Qt::NoFocus);
    connect(m_close, &QPushButton::clicked, this, [this] { dismiss(); });
    bottom->addWidget(m_close);
    layout->addLayout(bottom);

    area->installEventFilter(this);
    place();
    raise();
}

void TutorialOverlay::dismiss()
{
    if (m_dontShow->isChecked())
        Settings::shared().setValue(u"ShowTutorial"_s, false);
    hide();
    deleteLater();
}

bool TutorialOverlay::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && (event->type() == QEvent::Resize || event->type() == QEvent::ChildAdded))
        place();
    return QFrame::eventFilter(watched, event);
}

void TutorialOverlay::place()
{
    QWidget *area = parentWidget();
    const int width = std::min(area->width() - 24, 460);
    const int height = std::min(area->height() - 24,
                                heightForWidth(width) > 0 ? heightForWidth(width) : sizeHint().height());
    setGeometry((area->width() - width) / 2, (area->height() - height) / 2, std::max(width, 0),
                std::max(height, 0));
    raise();
}
