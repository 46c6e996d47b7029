#include "SheetQueue.h"

#include "MainQueue.h"

void SheetQueue::add(const Sheet &sheet)
{
    if (m_view && !m_view->hasAttachedSheet() && m_view->isWindowVisible()) {
        m_view->beginSheet(sheet);
        return;
    }
    m_waiting.append(sheet);
    if (m_view && !m_view->isWindowVisible()) {
        m_view->makeKeyAndOrderFront();
        MainQueue::main().post([this, alive = std::weak_ptr<void>(m_alive)] {
            if (!alive.expired())
                showNext();
        });
    }
}

void SheetQueue::showNext()
{
    // Served last in, first out, on purpose: the newest question is the one the user just
    // caused.
    if (m_waiting.isEmpty() || !m_view)
        return;
    const Sheet sheet = m_waiting.takeLast();
    m_view->beginSheet(sheet);
}

void SheetQueue::didEnd(const Sheet &, int)
{
    showNext();
}
