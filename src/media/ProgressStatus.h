#pragma once

#include "Observable.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>

// The record of one long task (embedding, extraction) as the progress display shows it:
// a title, a progress number, a status message, an error message, a related file, a
// start and a cancel block.
//
// The progress number carries fractions and state codes: -3 waiting, -2 failed, -1
// stopped, 0..1 the fraction done, 2 busy without a measurable fraction (indeterminate),
// 3 done. Once failed or stopped it ignores every further value.
//
// Observable keys: title, progress, message, errorMessage, relatedURL.
// Threading: main thread only. Workers post their changes through MainQueue::post().
class ProgressStatus : public Observable
{
public:
    static constexpr double Waiting = -3;
    static constexpr double Failed = -2;
    static constexpr double Stopped = -1;
    static constexpr double Busy = 2;
    static constexpr double Done = 3;

    const QString &title() const { return m_title; }
    void setTitle(const QString &title);
    double progress() const { return m_progress; }
    void setProgress(double progress);
    // Busy with no fraction to show.
    bool isIndeterminate() const { return m_progress == Busy; }
    // Failed, stopped or done: the task has nothing more to report.
    bool isEnded() const { return m_progress == Failed || m_progress == Stopped || m_progress == Done; }
    const QString &message() const { return m_message; }
    void setMessage(const QString &message);
    const QString &errorMessage() const { return m_errorMessage; }
    void setErrorMessage(const QString &message);
    const QString &relatedURL() const { return m_relatedURL; }
    void setRelatedURL(const QString &path);

    std::function<void()> startBlock;
    std::function<void()> cancelBlock;

    // Runs the start block (the progress controller does, when the task's turn comes).
    void start();
    // Runs the cancel block, as the display's cancel button does.
    void cancel();

private:
    QString m_title;
    double m_progress = 0;
    QString m_message;
    QString m_errorMessage;
    QString m_relatedURL;
};

using ProgressStatusPtr = std::shared_ptr<ProgressStatus>;

// Runs the waiting tasks, at most maxRunning() at a time: a status added while a slot is
// free starts at once (inside addProgressStatus()), the others when a running one ends.
// Main thread only.
class ProgressController
{
public:
    static ProgressController &shared();

    void addProgressStatus(const ProgressStatusPtr &status);
    int maxRunning() const { return m_maxRunning; }
    void setMaxRunning(int count) { m_maxRunning = count; }
    // Every status added and not yet forgotten, in the order they came.
    QList<ProgressStatusPtr> statuses() const;
    qsizetype runningCount() const;

private:
    struct Entry
    {
        ProgressStatusPtr status;
        Observable::KeyToken token;
        bool started = false;
    };
    void startWaiting();
    QList<Entry> m_entries;
    int m_maxRunning = 2;
};
