#include "MainQueue.h"
#include "TestSupport.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(MainQueue, RunsOneBlockPerTurnAndBlocksPostedWhileRunningWaitBehindTheOthers)
{
    MainQueue queue;
    QStringList ran;
    queue.post([&] {
        ran << u"a"_s;
        queue.post([&] { ran << u"posted by a"_s; });
    });
    queue.post([&] { ran << u"b"_s; });
    queue.post([&] { ran << u"c"_s; });

    EXPECT_TRUE(queue.runNext());
    EXPECT_EQ(ran, QStringList{u"a"_s});
    EXPECT_EQ(queue.pending(), 3);
    EXPECT_EQ(queue.drain(), 3);
    EXPECT_EQ(ran, (QStringList{u"a"_s, u"b"_s, u"c"_s, u"posted by a"_s}));
    EXPECT_FALSE(queue.runNext());
    EXPECT_EQ(queue.drain(), 0);
}

TEST(MainQueue, AttachedQueueIsDrivenByTheEventLoop)
{
    MainQueue queue;
    QStringList ran;
    queue.post([&] { ran << u"before attaching"_s; });
    queue.attachToEventLoop();
    queue.post([&] {
        ran << u"after attaching"_s;
        queue.post([&] { ran << u"posted while running"_s; });
    });
    EXPECT_TRUE(ran.isEmpty()); // nothing runs until the loop turns

    QDeadlineTimer deadline(5000);
    while (queue.pending() > 0 && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    QCoreApplication::processEvents(); // surplus wake-ups must run before the queue goes
    EXPECT_EQ(ran, (QStringList{u"before attaching"_s, u"after attaching"_s, u"posted while running"_s}));
}
