#pragma once

#include <QtGlobal>

#include <deque>
#include <functional>
#include <mutex>

// "Run this after the current change": blocks posted here run later on the main thread,
// one at a time, in the order they were posted. A block posted while another runs waits
// for a later turn.
//
// In the programs the queue is attached to the Qt event loop (attachToEventLoop()), which
// runs one block per posted event. Tests leave it detached and run blocks step by step.
// post() may be called from any thread; blocks always run on the thread that drains.
class MainQueue
{
public:
    using Block = std::function<void()>;

    static MainQueue &main();

    void post(Block block);

    // Runs the oldest waiting block; false when none was waiting.
    bool runNext();
    // Runs blocks until none is waiting, including those posted meanwhile, or until
    // `maxBlocks` have run (no limit when negative). Returns how many ran.
    int drain(int maxBlocks = -1);
    qsizetype pending() const;

    // Drives the queue from QCoreApplication's event loop. Call on the main thread after
    // the application object exists, and only for a queue that outlives the event loop
    // (the process-wide main() queue): the posted events refer to the queue.
    void attachToEventLoop();

private:
    void schedule();
    mutable std::mutex m_mutex;
    std::deque<Block> m_blocks;
    bool m_attached = false;
};
