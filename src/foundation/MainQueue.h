#pragma once

#include <QtGlobal>

#include <deque>
#include <functional>
#include <mutex>
#include <vector>

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
    // How many blocks have run since the start, for counting the blocks one change set off.
    quint64 blocksRun() const { return m_blocksRun; }

    // While held (a question is open), no block runs: a modal dialog's event loop must not
    // run work queued behind the change that asked the question. Holds nest; the last
    // release schedules what waited.
    void hold();
    void release();
    bool isHeld() const { return m_holds > 0; }
    class HoldScope
    {
    public:
        explicit HoldScope(MainQueue &queue = MainQueue::main())
            : m_queue(queue)
        {
            m_queue.hold();
        }
        ~HoldScope() { m_queue.release(); }
        HoldScope(const HoldScope &) = delete;
        HoldScope &operator=(const HoldScope &) = delete;

    private:
        MainQueue &m_queue;
    };

    // Called on the draining thread after each block that ran; `drained` says whether the
    // queue is empty now (the projects' edit paths close their edits then). Returns a token
    // for removeBlockObserver().
    int addBlockObserver(std::function<void(bool drained)> observer);
    void removeBlockObserver(int token);

    // Drives the queue from QCoreApplication's event loop. Call on the main thread after
    // the application object exists, and only for a queue that outlives the event loop
    // (the process-wide main() queue): the posted events refer to the queue.
    void attachToEventLoop();

private:
    void schedule();
    mutable std::mutex m_mutex;
    std::deque<Block> m_blocks;
    bool m_attached = false;
    bool m_running = false;
    int m_holds = 0;
    int m_missedTurns = 0;
    quint64 m_blocksRun = 0;
    std::vector<std::pair<int, std::function<void(bool)>>> m_observers;
    int m_nextObserver = 1;
};
