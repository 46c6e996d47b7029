#include "ProgressWindow.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr int BarRange = 1000;

bool isUnfinished(const ProgressStatus &status)
{
    return !status.isEnded();
}
} // namespace

ProgressWindow::ProgressWindow(QWidget *parent)
    : QWidget(parent, Qt::Window)
{
    setWindowTitle(tr("Tasks"));
    auto *layout = new QVBoxLayout(this);
    auto *scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    auto *content = new QWidget(scroll);
    m_list = new QVBoxLayout(content);
    m_empty = new QLabel(tr("No tasks"), content);
    m_empty->setAlignment(Qt::AlignCenter);
    m_list->addWidget(m_empty);
    m_list->addStretch(1);
    scroll->setWidget(content);
    layout->addWidget(scroll, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    m_clear = new QPushButton(tr("Clear Finished"), this);
    connect(m_clear, &QPushButton::clicked, this, [this] { clearFinished(); });
    buttons->addWidget(m_clear);
    layout->addLayout(buttons);
    m_clear->setEnabled(false);
    resize(480, 320);
}

ProgressWindow::~ProgressWindow()
{
    for (Row *row : std::as_const(m_rows)) {
        row->token.reset();
        delete row;
    }
}

void ProgressWindow::addProgressStatus(const ProgressStatusPtr &status)
{
    for (const Row *row : std::as_const(m_rows))
        if (row->status == status)
            return;
    auto *row = new Row;
    row->status = status;
    auto *frame = new QFrame(m_list->parentWidget());
    frame->setFrameShape(QFrame::StyledPanel);
    auto *grid = new QVBoxLayout(frame);
    row->frame = frame;
    row->title = new QLabel(frame);
    QFont bold = row->title->font();
    bold.setBold(true);
    row->title->setFont(bold);
    row->title->setWordWrap(true);
    grid->addWidget(row->title);
    auto *barLine = new QHBoxLayout;
    row->bar = new QProgressBar(frame);
    row->bar->setRange(0, BarRange);
    row->bar->setTextVisible(false);
    barLine->addWidget(row->bar, 1);
    row->cancel = new QPushButton(tr("Cancel"), frame);
    barLine->addWidget(row->cancel);
    row->show = new QPushButton(tr("Show"), frame);
    row->show->setToolTip(tr("Open the folder of the file this task wrote"));
    barLine->addWidget(row->show);
    grid->addLayout(barLine);
    row->state = new QLabel(frame);
    row->state->setWordWrap(true);
    grid->addWidget(row->state);
    row->error = new QLabel(frame);
    row->error->setWordWrap(true);
    row->error->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QPalette red = row->error->palette();
    red.setColor(QPalette::WindowText, Qt::red);
    row->error->setPalette(red);
    grid->addWidget(row->error);
    m_list->insertWidget(m_list->count() - 1, frame);
    m_empty->hide();

    const std::weak_ptr<ProgressStatus> weak = status;
    connect(row->cancel, &QPushButton::clicked, this, [weak] {
        const ProgressStatusPtr task = weak.lock();
        if (!task || task->isEnded())
            return;
        if (task->progress() == ProgressStatus::Waiting)
            task->setProgress(ProgressStatus::Stopped); // never started: nothing to undo
        else
            task->cancel();
    });
    connect(row->show, &QPushButton::clicked, this, [weak] {
        if (const ProgressStatusPtr task = weak.lock(); task && !task->relatedURL().isEmpty())
            QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(task->relatedURL()).absolutePath()));
    });
    row->token =
        status->observeKey(QString(), [this, row](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did) {
                refresh(row);
                statusChanged();
            }
        });
    m_rows << row;
    refresh(row);
    statusChanged();
}

QList<ProgressStatusPtr> ProgressWindow::statuses() const
{
    QList<ProgressStatusPtr> result;
    for (const Row *row : m_rows)
        result << row->status;
    return result;
}

QList<ProgressStatusPtr> ProgressWindow::unfinishedStatuses() const
{
    QList<ProgressStatusPtr> result;
    for (const Row *row : m_rows)
        if (isUnfinished(*row->status))
            result << row->status;
    return result;
}

void ProgressWindow::cancelAll()
{
    // Cancelling may end a task at once and change the list: walk over a copy.
    const QList<ProgressStatusPtr> unfinished = unfinishedStatuses();
    for (const ProgressStatusPtr &status : unfinished) {
        if (status->progress() == ProgressStatus::Waiting)
            status->setProgress(ProgressStatus::Stopped);
        else
            status->cancel();
    }
}

void ProgressWindow::clearFinished()
{
    for (qsizetype i = m_rows.size() - 1; i >= 0; --i) {
        Row *row = m_rows[i];
        if (isUnfinished(*row->status))
            continue;
        row->token.reset();
        row->frame->deleteLater();
        m_rows.removeAt(i);
        delete row;
    }
    m_empty->setVisible(m_rows.isEmpty());
    m_clear->setEnabled(false);
}

QString ProgressWindow::stateText(const ProgressStatus &status, bool reachedDone)
{
    const double progress = status.progress();
    if (!status.message().isEmpty() && progress != ProgressStatus::Stopped)
        return status.message();
    if (progress == ProgressStatus::Waiting)
        return tr("Waiting");
    if (progress == ProgressStatus::Failed)
        return tr("Failed");
    if (progress == ProgressStatus::Done || (progress == ProgressStatus::Stopped && reachedDone))
        return status.message().isEmpty() ? tr("Done") : status.message();
    if (progress == ProgressStatus::Stopped)
        return tr("Cancelled");
    if (progress == ProgressStatus::Busy)
        return tr("Working…");
    return tr("%1 %").arg(int(std::floor(std::clamp(progress, 0.0, 1.0) * 100)));
}

void ProgressWindow::refresh(Row *row)
{
    const ProgressStatus &status = *row->status;
    const double progress = status.progress();
    if (progress == ProgressStatus::Done)
        row->reachedDone = true;
    row->title->setText(status.title());
    if (progress == ProgressStatus::Busy) {
        row->bar->setRange(0, 0);
    } else {
        row->bar->setRange(0, BarRange);
        if (progress >= 0 && progress <= 1)
            row->bar->setValue(int(std::lround(progress * BarRange)));
        else if (row->reachedDone)
            row->bar->setValue(BarRange);
        else if (progress == ProgressStatus::Waiting)
            row->bar->setValue(0);
    }
    row->state->setText(stateText(status, row->reachedDone));
    row->error->setText(status.errorMessage());
    row->error->setVisible(!status.errorMessage().isEmpty());
    const bool waiting = progress == ProgressStatus::Waiting;
    row->cancel->setEnabled(!status.isEnded() && (waiting || bool(status.cancelBlock)));
    row->show->setVisible(!status.relatedURL().isEmpty());
}

void ProgressWindow::statusChanged()
{
    const bool unfinished = !canQuit();
    m_clear->setEnabled(m_rows.size() > unfinishedStatuses().size());
    if (m_hadUnfinished && !unfinished) {
        m_hadUnfinished = false;
        if (allEnded)
            allEnded();
        return;
    }
    m_hadUnfinished = unfinished;
}
