#include "MainQueue.h"

#include <QCoreApplication>
#include <QMetaObject>

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
    Block block;
    {
        std::lock_guard lock(m_mutex);
        if (m_blocks.empty())
            return false;
        block = std::move(m_blocks.front());
        m_blocks.pop_front();
    }
    block();
    return true;
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
