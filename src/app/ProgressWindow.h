#pragma once

#include "ProgressStatus.h"

#include <QCoreApplication>
#include <QList>
#include <QWidget>

#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

// The task list: one row per long task (embedding, extraction) with its title, a progress
// bar, its status, its error text and a cancel button, running and finished ones alike,
// until the user clears the finished ones. The application asks it before quitting: it
// holds no task that is waiting or running.
//
// A status that reaches "done" and then the final "stopped" of a run (an embedding ends that
// way after a success) still shows as done.
class ProgressWindow final : public QWidget
{
    Q_DECLARE_TR_FUNCTIONS(ProgressWindow)

public:
    explicit ProgressWindow(QWidget *parent = nullptr);
    ~ProgressWindow() override;

    // Lists the status; it stays listed after it ends.
    void addProgressStatus(const ProgressStatusPtr &status);
    QList<ProgressStatusPtr> statuses() const;
    // The tasks that are waiting or running.
    QList<ProgressStatusPtr> unfinishedStatuses() const;
    bool canQuit() const { return unfinishedStatuses().isEmpty(); }
    // Cancels every task that can be cancelled; a waiting one is stopped before it starts.
    void cancelAll();
    // Removes the rows of ended tasks.
    void clearFinished();
    // Called whenever the last unfinished task has ended.
    std::function<void()> allEnded;

    // The widgets of a row, for tests.
    struct Row
    {
        ProgressStatusPtr status;
        QWidget *frame = nullptr;
        QLabel *title = nullptr;
        QProgressBar *bar = nullptr;
        QLabel *state = nullptr;
        QLabel *error = nullptr;
        QPushButton *cancel = nullptr;
        QPushButton *show = nullptr;
        Observable::KeyToken token;
        bool reachedDone = false;
    };
    const QList<Row *> &rows() const { return m_rows; }
    // The text the row shows for its status ("Waiting", "42 %", "Done", its message ...).
    static QString stateText(const ProgressStatus &status, bool reachedDone);

private:
    void refresh(Row *row);
    void statusChanged();

    QList<Row *> m_rows;
    QVBoxLayout *m_list = nullptr;
    QLabel *m_empty = nullptr;
    QPushButton *m_clear = nullptr;
    bool m_hadUnfinished = false;
};
