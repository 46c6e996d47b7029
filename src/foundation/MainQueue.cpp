#include "MainQueue.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <algorithm>

MainQueue &MainQueue::main()
{
    static MainQueue queue;
    return queue;
}

void MainQueue::post(Block block)
{
    bool attached;
    {
        std::lock_guard lock(m_mutex);
        m_blocks.push_back(std::move(block));
        attached = m_attached;
    }
    if (attached)
        schedule();
}

void MainQueue::schedule()
{
    if (auto *app = QCoreApplication::instance())
        QMetaObject::invokeMethod(
            app, [this] { runNext(); }, Qt::QueuedConnection);
}

bool MainQueue::runNext()
{
    // A block never runs inside another: a nested event loop (a dialog opened by a block)
    // would otherwise run queued work in the middle of the change that queued it.
    Q_ASSERT_X(!m_running || m_holds > 0, "MainQueue::runNext", "a block ran inside another block");
    if (m_running || m_holds > 0) {
        if (m_running && m_holds == 0)
            ++m_missedTurns; // given back when the running block returns
        return false;
    }
    Block block;
    bool drained;
    {
        std::lock_guard lock(m_mutex);
        if (m_blocks.empty())
            return false;
        block = std::move(m_blocks.front());
        m_blocks.pop_front();
    }
    m_running = true;
    block();
    m_running = false;
    ++m_blocksRun;
    if (m_missedTurns > 0 && m_attached) {
        for (; m_missedTurns > 0; --m_missedTurns)
            schedule();
    }
    {
        std::lock_guard lock(m_mutex);
        drained = m_blocks.empty();
    }
    // By token: an observer may remove itself or another (a project closing) while told.
    if (!m_observers.empty()) {
        std::vector<int> tokens;
        tokens.reserve(m_observers.size());
        for (const auto &entry : m_observers)
            tokens.push_back(entry.first);
        for (int token : tokens) {
            const auto it = std::find_if(m_observers.begin(), m_observers.end(),
                                         [token](const auto &entry) { return entry.first == token; });
            if (it != m_observers.end()) {
                const auto observer = it->second;
                observer(drained);
            }
        }
    }
    return true;
}

int MainQueue::addBlockObserver(std::function<void(bool)> observer)
{
    const int token = m_nextObserver++;
    m_observers.emplace_back(token, std::move(observer));
    return token;
}

void MainQueue::removeBlockObserver(int token)
{
    std::erase_if(m_observers, [token](const auto &entry) { return entry.first == token; });
}

void MainQueue::hold()
{
    ++m_holds;
}

void MainQueue::release()
{
    Q_ASSERT(m_holds > 0);
    if (m_holds > 0 && --m_holds == 0 && m_attached) {
        // The turns that found the queue held ran nothing: give every waiting block its turn.
        for (qsizetype i = pending(); i > 0; --i)
            schedule();
    }
}

int MainQueue::drain(int maxBlocks)
{
    int ran = 0;
    while ((maxBlocks < 0 || ran < maxBlocks) && runNext())
        ++ran;
    return ran;
}

qsizetype MainQueue::pending() const
{
    std::lock_guard lock(m_mutex);
    return qsizetype(m_blocks.size());
}

void MainQueue::attachToEventLoop()
{
    qsizetype waiting;
    {
        std::lock_guard lock(m_mutex);
        m_attached = true;
        waiting = qsizetype(m_blocks.size());
    }
    for (qsizetype i = 0; i < waiting; ++i)
        schedule();
}
