#include "Log.h"
#include "MainQueue.h"
#include "NotificationCenter.h"
#include "TestSupport.h"
#include "VHSubtitle.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {
const QString EndGrew = u"VHSubtitleEndGrew"_s;
const QString StartReduced = u"VHSubtitleStartReduced"_s;
const QStringList EndChanged{u"end will"_s, u"duration will"_s, u"end did"_s, u"duration did"_s};
const QStringList StartChanged{u"start will"_s, u"start did"_s};

// Records everything the cue tells the world, in order: notifications posted for it by
// name, key announcements as "<key> will" / "<key> did".
class CueTiming : public ::testing::Test
{
protected:
    void SetUp() override { MainQueue::main().drain(); }
    QStringList take() { return std::exchange(events, {}); }

    SubtitlePtr cue = VHSubtitle::create(u"text"_s, 10, 20);
    QStringList events;

private:
    ScopedObserver m_endGrew = NotificationCenter::defaultCenter().addObserver(
        EndGrew, cue.get(), [this](const Notification &n) { events << n.name; });
    ScopedObserver m_startReduced = NotificationCenter::defaultCenter().addObserver(
        StartReduced, cue.get(), [this](const Notification &n) { events << n.name; });
    Observable::KeyToken m_keys = cue->observeKey({}, [this](Observable *, const QString &key, auto change) {
        events << key + (change == Observable::Change::Will ? u" will"_s : u" did"_s);
    });
};
} // namespace

TEST_F(CueTiming, EndIsClampedToTheStartAndEndGrewFollowsTheRequestedEnd)
{
    cue->setEnd(5);
    EXPECT_EQ(cue->end(), 10);
    EXPECT_EQ(take(), EndChanged);
    cue->setEnd(std::nan(""));
    EXPECT_EQ(cue->end(), 10);
    EXPECT_EQ(take(), EndChanged);

    cue->setEnd(30);
    EXPECT_EQ(cue->end(), 30);
    EXPECT_EQ(take(), EndChanged + QStringList{EndGrew});

    // With the end before the start (only replaceStart makes that), a request below the old
    // end posts nothing although the stored end, the start, lies after the old end.
    cue->replaceStart(30, 20);
    take();
    cue->setEnd(15);
    EXPECT_EQ(cue->end(), 30);
    EXPECT_EQ(take(), EndChanged);
    cue->replaceStart(30, 20);
    take();
    cue->setEnd(25);
    EXPECT_EQ(cue->end(), 30);
    EXPECT_EQ(take(), EndChanged + QStringList{EndGrew});
}

TEST_F(CueTiming, MovingTheStartMovesTheWholeCue)
{
    cue->setStart(4);
    EXPECT_EQ(cue->end(), 14);
    EXPECT_EQ(take(), StartChanged + QStringList{StartReduced} + EndChanged);

    cue->setStart(15);
    EXPECT_EQ(cue->end(), 25);
    EXPECT_EQ(take(), StartChanged + EndChanged + QStringList{EndGrew});

    cue->setStart(15);
    EXPECT_EQ(take(), StartChanged + EndChanged);
}

TEST_F(CueTiming, ClampedDurationIsAnnouncedAgainOnceAfterTheMainQueueRuns)
{
    cue->setEnd(12);
    take();
    cue->setDuration(-1);
    EXPECT_EQ(cue->end(), 10);
    EXPECT_EQ(cue->duration(), 0);
    EXPECT_EQ(take(), EndChanged);

    EXPECT_EQ(MainQueue::main().drain(), 1);
    EXPECT_EQ(take(), (QStringList{u"duration will"_s, u"duration did"_s}));
    EXPECT_EQ(MainQueue::main().drain(), 0);

    cue->setDuration(5);
    EXPECT_EQ(cue->end(), 15);
    EXPECT_EQ(take(), EndChanged + QStringList{EndGrew});
    EXPECT_EQ(MainQueue::main().pending(), 0);

    // The deferred announcement does not keep a cue alive.
    auto other = VHSubtitle::create({}, 3, 4);
    other->setDuration(-2);
    other.reset();
    EXPECT_EQ(MainQueue::main().drain(), 1);
}

TEST_F(CueTiming, ReplaceStartAndPlainSettersOnlyAnnounceKeys)
{
    cue->replaceStart(30, 25);
    EXPECT_EQ(cue->start(), 30);
    EXPECT_EQ(cue->end(), 25);
    EXPECT_EQ(take(), StartChanged + EndChanged);

    cue->setActive(true);
    EXPECT_EQ(cue->activeColor(), VHSubtitle::LabelColor::Standard);
    EXPECT_EQ(take(), (QStringList{u"active will"_s, u"activeColor will"_s, u"active did"_s, u"activeColor did"_s}));
}

TEST(CueText, DescriptionIsOneSubRipCueBody)
{
    EXPECT_EQ(VHSubtitle(u"a\nb"_s, 1.5, 3.25, true).description(), u"00:00:01,500 --> 00:00:03,250 !!!\na\nb"_s);
    EXPECT_EQ(VHSubtitle(u"x"_s, 0, 1.9999).description(), u"00:00:00,000 --> 00:00:01,999\nx"_s);
}

TEST(CueRepair, LaterCueStartingEarlierIsMovedThenThePreviousEndIsTrimmed)
{
    SubtitleList cues{VHSubtitle::create(u"a"_s, 10, 20), VHSubtitle::create(u"b"_s, 5, 8)};
    LogCapture log;
    VHSubtitle::correctSubtitles(cues);
    EXPECT_EQ(log.lines(), (QStringList{u"Warning: Correcting subtitle start from 00:00:05,000 to 00:00:10,000"_s,
                                        u"Warning: Correcting subtitle end from 00:00:20,000 to 00:00:10,000"_s}));
    EXPECT_EQ(cues[0]->end(), 10);
    EXPECT_EQ(cues[1]->start(), 10);
    EXPECT_EQ(cues[1]->end(), 13);

    // The next cue is compared with the corrected one.
    cues.append(VHSubtitle::create(u"c"_s, 7, 9));
    log.clear();
    VHSubtitle::correctSubtitles(cues);
    EXPECT_EQ(log.lines(), (QStringList{u"Warning: Correcting subtitle start from 00:00:07,000 to 00:00:10,000"_s,
                                        u"Warning: Correcting subtitle end from 00:00:13,000 to 00:00:10,000"_s}));
    EXPECT_EQ(cues[2]->end(), 12);
}

TEST(CueRepair, ReversedCueGetsZeroLengthAndASingleCueIsLeftAlone)
{
    SubtitleList cues{VHSubtitle::create(u"a"_s, 0, 1), VHSubtitle::create(u"b"_s, 5, 3)};
    SubtitleList single{VHSubtitle::create(u"c"_s, 5, 3)};
    LogCapture log;
    VHSubtitle::correctSubtitles(single);
    VHSubtitle::correctSubtitles(cues);
    EXPECT_EQ(single[0]->end(), 3);
    EXPECT_EQ(cues[1]->end(), 5);
    EXPECT_EQ(log.lines(),
              QStringList{u"Warning: Correcting subtitle end from 00:00:03,000 to 00:00:05,000 (has now 0 length)"_s});
}
