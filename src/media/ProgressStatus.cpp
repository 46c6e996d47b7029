#include "ProgressStatus.h"

using namespace Qt::StringLiterals;

void ProgressStatus::setTitle(const QString &title)
{
    willChangeValueForKey(u"title"_s);
    m_title = title;
    didChangeValueForKey(u"title"_s);
}

void ProgressStatus::setProgress(double progress)
{
    if (m_progress == Failed || m_progress == Stopped)
        return;
    willChangeValueForKey(u"progress"_s);
    m_progress = progress;
    didChangeValueForKey(u"progress"_s);
}

void ProgressStatus::setMessage(const QString &message)
{
    willChangeValueForKey(u"message"_s);
    m_message = message;
    didChangeValueForKey(u"message"_s);
}

void ProgressStatus::setErrorMessage(const QString &message)
{
    willChangeValueForKey(u"errorMessage"_s);
    m_errorMessage = message;
    didChangeValueForKey(u"errorMessage"_s);
}

void ProgressStatus::setRelatedURL(const QString &path)
{
    willChangeValueForKey(u"relatedURL"_s);
    m_relatedURL = path;
    didChangeValueForKey(u"relatedURL"_s);
}

void ProgressStatus::start()
{
    if (startBlock)
        startBlock();
}

void ProgressStatus::cancel()
{
    if (cancelBlock)
        cancelBlock();
}

ProgressController &ProgressController::shared()
{
    static ProgressController controller;
    return controller;
}

void ProgressController::addProgressStatus(const ProgressStatusPtr &status)
{
    Entry entry;
    entry.status = status;
    // A running task that ends frees its slot for the next waiting one.
    entry.token =
        status->observeKey(u"progress"_s, [this](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did)
                startWaiting();
        });
    m_entries.append(std::move(entry));
    startWaiting();
}

QList<ProgressStatusPtr> ProgressController::statuses() const
{
    QList<ProgressStatusPtr> result;
    for (const Entry &entry : m_entries)
        result.append(entry.status);
    return result;
}

qsizetype ProgressController::runningCount() const
{
    qsizetype count = 0;
    for (const Entry &entry : m_entries)
        count += entry.started && !entry.status->isEnded();
    return count;
}

void ProgressController::startWaiting()
{
    // Ended tasks are forgotten; the display keeps its own list.
    m_entries.removeIf([](const Entry &entry) { return entry.started && entry.status->isEnded(); });
    for (qsizetype i = 0; i < m_entries.size() && runningCount() < m_maxRunning; ++i) {
        Entry &entry = m_entries[i];
        if (entry.started || entry.status->progress() != ProgressStatus::Waiting)
            continue;
        entry.started = true;
        // Keep the status alive while its start block runs; it may end the task at once.
        const ProgressStatusPtr status = entry.status;
        status->start();
        return startWaiting();
    }
}
