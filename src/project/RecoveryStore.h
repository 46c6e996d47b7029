#pragma once

#include "VHSubtitle.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

// Recovery copies of files with unsaved changes: one SubRip (or WebVTT, for chapter marks)
// file per edited file in a folder of their own, named after a hash of the file's path,
// with a second small file naming that path. Copies are written atomically by a worker
// thread, in the order they were asked for, so that writing a large list never holds up
// the window and a kill during a write leaves the old copy or the new one, never a torn
// one. The user's own file is never written here.
class RecoveryStore
{
public:
    struct Copy
    {
        QString path;     // the edited file
        QString copyPath; // its recovery copy
        QDateTime time;   // when the copy was written
        bool chapterMarks = false;
    };

    // $XDG_STATE_HOME/captora/recovery, or ~/.local/state/captora/recovery.
    static QString defaultFolder();

    explicit RecoveryStore(const QString &folder = defaultFolder());
    // Finishes every write asked for.
    ~RecoveryStore();
    RecoveryStore(const RecoveryStore &) = delete;
    RecoveryStore &operator=(const RecoveryStore &) = delete;

    const QString &folder() const { return m_folder; }

    // Queues a copy of the cues as the file at `path` now has them. The values are taken
    // now; the text is made and written on the worker thread.
    void write(const QString &path, const SubtitleList &cues, bool chapterMarks);
    // Queues the removal of the copy of `path` (after any write queued before).
    void remove(const QString &path);
    // Waits until every queued write and removal is done.
    void waitUntilIdle();

    // The copy of `path`, if one was written (after waiting for queued work).
    std::optional<Copy> copyFor(const QString &path);
    // Every copy in the folder, oldest first.
    QList<Copy> copies();
    // Whether the copy holds changes the file does not: it was written after the file was
    // last changed, or the file is gone.
    static bool isNewerThanFile(const Copy &copy);
    // Reads a copy's cues back; none when it cannot be read.
    static std::optional<SubtitleList> readCopy(const Copy &copy, double fps, double movieDuration);

private:
    QString baseName(const QString &path) const;
    void run();
    void post(std::function<void()> job);

    QString m_folder;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::condition_variable m_idle;
    std::deque<std::function<void()>> m_jobs;
    bool m_busy = false;
    bool m_stopping = false;
    std::thread m_worker;
};
