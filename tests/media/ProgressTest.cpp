// The progress status of long tasks and the controller that starts them in turn.
#include "ProgressStatus.h"

#include <gtest/gtest.h>

TEST(ProgressStatus, FailedOrStoppedIgnoresEveryLaterValue)
{
    for (double end : {ProgressStatus::Failed, ProgressStatus::Stopped}) {
        ProgressStatus status;
        status.setProgress(0.5);
        status.setProgress(end);
        status.setProgress(ProgressStatus::Done);
        status.setProgress(0.7);
        EXPECT_EQ(status.progress(), end);
        EXPECT_TRUE(status.isEnded());
    }
    ProgressStatus busy;
    busy.setProgress(ProgressStatus::Busy);
    EXPECT_TRUE(busy.isIndeterminate());
    busy.setProgress(ProgressStatus::Done);
    busy.setProgress(ProgressStatus::Stopped); // a success's final step overwrites its 3
    EXPECT_EQ(busy.progress(), ProgressStatus::Stopped);
}

TEST(ProgressController, StartsWaitingTasksAsSlotsFree)
{
    ProgressController controller;
    controller.setMaxRunning(1);
    QList<int> started;
    auto make = [&](int id) {
        auto status = std::make_shared<ProgressStatus>();
        status->setProgress(ProgressStatus::Waiting);
        status->startBlock = [&started, id, weak = std::weak_ptr<ProgressStatus>(status)] {
            started.append(id);
            weak.lock()->setProgress(0);
        };
        return status;
    };
    const ProgressStatusPtr first = make(1), second = make(2);
    controller.addProgressStatus(first);
    controller.addProgressStatus(second);
    EXPECT_EQ(started, QList<int>{1});
    first->setProgress(0.5);
    EXPECT_EQ(started, QList<int>{1});
    first->setProgress(ProgressStatus::Failed);
    EXPECT_EQ(started, (QList<int>{1, 2}));
    EXPECT_EQ(controller.runningCount(), 1);
}
