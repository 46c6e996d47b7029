#pragma once

#include "ProjectView.h"

#include <QList>

#include <memory>

// The window's sheets, one at a time: a sheet asked for while another is open (or while the
// window is hidden) waits, and the newest waiting one is shown when the open one ends.
//
// Threading: main thread only.
class SheetQueue
{
public:
    // `view` may be null (no window: nothing is shown, nothing waits).
    explicit SheetQueue(ProjectView *view)
        : m_view(view)
    {}

    // Shows the sheet now if the window is free and visible; else it waits (and a hidden window
    // is brought to the front, the sheet following after the current call).
    void add(const Sheet &sheet);
    // Shows the newest waiting sheet, if any.
    void showNext();
    // A sheet ended (by the user or by the program): the next one follows.
    void didEnd(const Sheet &sheet, int returnCode);
    void clear() { m_waiting.clear(); }

    qsizetype waitingCount() const { return m_waiting.size(); }
    bool isWaiting(const Sheet &sheet) const { return m_waiting.contains(sheet); }

private:
    ProjectView *m_view;
    QList<Sheet> m_waiting;
    // The deferred showNext() does nothing once the queue is gone.
    std::shared_ptr<int> m_alive = std::make_shared<int>(0);
};
