#include "Log.h"
#include "MainQueue.h"
#include "NotificationCenter.h"
#include "TestSupport.h"
#include "VHSubtitle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {
const QStringList EndGrew{u"VHSubtitleEndGrew"_s};
const QStringList StartReduced{u"VHSubtitleStartReduced"_s};
const QStringList EndChanged{u"end will"_s, u"duration will"_s, u"end did"_s, u"duration did"_s};
const QStringList StartChanged{u"start will"_s, u"start did"_s};

// A change made to the cue, the end it leaves and everything the cue told the world, in
// order: notifications posted for it by name, key announcements as "<key> will" / "<key> did".
struct Step
{
    std::function<void(VHSubtitle &)> change;
    double end;
    QStringList events;
};

class CueTiming : public ::testing::Test
{
protected:
    void SetUp() override { MainQueue::main().drain(); }
    QStringList take() { return std::exchange(events, {}); }
    void expectSteps(const QList<Step> &steps)
    {
        for (qsizetype i = 0; i < steps.size(); ++i) {
            steps[i].change(*cue);
            EXPECT_EQ(cue->end(), steps[i].end) << "step " << i;
            EXPECT_EQ(take(), steps[i].events) << "step " << i;
        }
    }

    SubtitlePtr cue = VHSubtitle::create(u"text"_s, 10, 20);
    QStringList events;

private:
    std::function<void(const Notification &)> m_record = [this](const Notification &n) { events << n.name; };
    ScopedObserver m_endGrew = NotificationCenter::defaultCenter().addObserver(EndGrew[0], cue.get(), m_record);
    ScopedObserver m_startReduced =
        NotificationCenter::defaultCenter().addObserver(StartReduced[0], cue.get(), m_record);
    Observable::KeyToken m_keys = cue->observeKey({}, [this](Observable *, const QString &key, auto change) {
        events << key + (change == Observable::Change::Will ? u" will"_s : u" did"_s);
    });
};

auto setEnd(double end) { return [end](VHSubtitle &c) { c.setEnd(end); }; }
auto setStart(double start) { return [start](VHSubtitle &c) { c.setStart(start); }; }
auto replaceStart(double start, double end) { return [=](VHSubtitle &c) { c.replaceStart(start, end); }; }
} // namespace

TEST_F(CueTiming, EndIsClampedToTheStartAndEndGrewFollowsTheRequestedEnd)
{
    expectSteps({
        {setEnd(5), 10, EndChanged},
        {setEnd(std::nan("")), 10, EndChanged},
        {setEnd(30), 30, EndChanged + EndGrew},
        // replaceStart sets both times unclamped and only announces the keys.
        {replaceStart(30, 20), 20, StartChanged + EndChanged},
        // With the end before the start, a request below the old end posts nothing although
        // the stored end, the start, lies after the old end.
        {setEnd(15), 30, EndChanged},
        {replaceStart(30, 20), 20, StartChanged + EndChanged},
        {setEnd(25), 30, EndChanged + EndGrew},
    });
}

TEST_F(CueTiming, MovingTheStartMovesTheWholeCue)
{
    expectSteps({
        {setStart(4), 14, StartChanged + StartReduced + EndChanged},
        {setStart(15), 25, StartChanged + EndChanged + EndGrew},
        {setStart(15), 25, StartChanged + EndChanged},
    });
}

TEST_F(CueTiming, ClampedDurationIsAnnouncedAgainOnceAfterTheMainQueueRuns)
{
    expectSteps({{setEnd(12), 12, EndChanged}, {[](VHSubtitle &c) { c.setDuration(-1); }, 10, EndChanged}});
    EXPECT_EQ(cue->duration(), 0);
    EXPECT_EQ(MainQueue::main().drain(), 1);
    EXPECT_EQ(take(), (QStringList{u"duration will"_s, u"duration did"_s}));
    EXPECT_EQ(MainQueue::main().drain(), 0);

    expectSteps({{[](VHSubtitle &c) { c.setDuration(5); }, 15, EndChanged + EndGrew}});
    EXPECT_EQ(MainQueue::main().pending(), 0);

    // The deferred announcement does not keep a cue alive.
    auto other = VHSubtitle::create({}, 3, 4);
    other->setDuration(-2);
    other.reset();
    EXPECT_EQ(MainQueue::main().drain(), 1);
}

TEST_F(CueTiming, ActiveAnnouncesItsDerivedColour)
{
    cue->setActive(true);
    EXPECT_EQ(cue->activeColor(), VHSubtitle::LabelColor::Standard);
    EXPECT_EQ(take(), (QStringList{u"active will"_s, u"activeColor will"_s, u"active did"_s, u"activeColor did"_s}));
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
