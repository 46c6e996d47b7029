// Editing a 100,000-cue subtitle in a headless project: adding and deleting a line, the
// table's search filter, replacing all, a fix in each mode and a Tap2Sync tap. Fixes and taps
// include the deferred neighbour corrections.

#include "CTWindowController.h"
#include "MainQueue.h"
#include "PlaybackControl.h"
#include "RecoveryStore.h"
#include "Settings.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
constexpr int kCues = 100000;
constexpr double kDuration = 10 + 2.0 * kCues + 100;

class BenchPlayer final : public PlaybackControl
{
public:
    double time = 0;
    bool playing = false;
    bool hasMovie() const override { return true; }
    double currentTime() const override { return time; }
    void setCurrentTime(double seconds) override { time = seconds; }
    double fps() const override { return 25; }
    double duration() const override { return kDuration; }
    bool isPlaying() const override { return playing; }
    void setPlaying(bool p) override { playing = p; }
    void setSubtitles(const SubtitleList &) override {}
    void setShowSubtitle(bool) override {}
    void redrawCurrentSubtitle() override {}
    qsizetype currentSegmentIndex() const override { return 0; }
};

// Cue i runs from 10 + 2i to 11.5 + 2i seconds.
struct Project
{
    BenchPlayer player;
    std::unique_ptr<CTWindowController> project;

    Project()
    {
        project = std::make_unique<CTWindowController>(nullptr, &player);
        project->windowDidLoad();
        project->setMovieInfo(u"/nonexistent/Film.m4v"_s, 1, 25, kDuration);
        SubtitleList list;
        list.reserve(kCues);
        for (int i = 0; i < kCues; ++i)
            list << VHSubtitle::create(u"Line %1 of the text, with some words in it"_s.arg(i), 10 + 2.0 * i,
                                       11.5 + 2.0 * i);
        project->setSubtitles(list);
        project->setFixMode(FixMode::Fix);
    }
    ~Project()
    {
        MainQueue::main().drain();
        project.reset();
    }
    void playAt(double t)
    {
        player.time = t;
        project->setCurrentTime(t);
    }
};

constexpr qsizetype kMiddle = kCues / 2;

void BM_AddSubtitle(benchmark::State &state)
{
    Project p;
    p.playAt(10 + 2.0 * kMiddle + 1.7);
    for (auto _ : state) {
        p.project->addSubtitle();
        MainQueue::main().drain();
        state.PauseTiming();
        p.project->deleteSubtitle(); // the new line is the selected one
        MainQueue::main().drain();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_AddSubtitle)->Unit(benchmark::kMillisecond);

void BM_DeleteSubtitle(benchmark::State &state)
{
    Project p;
    p.playAt(10 + 2.0 * kMiddle + 1.7);
    for (auto _ : state) {
        state.PauseTiming();
        p.project->addSubtitle();
        MainQueue::main().drain();
        state.ResumeTiming();
        p.project->deleteSubtitle();
        MainQueue::main().drain();
    }
}
BENCHMARK(BM_DeleteSubtitle)->Unit(benchmark::kMillisecond);

void BM_Search(benchmark::State &state)
{
    Project p;
    const QString searches[] = {u"line 4242 "_s, u"WORDS IN IT"_s};
    int n = 0;
    for (auto _ : state) {
        p.project->setSearchString(searches[n++ % 2]);
        benchmark::DoNotOptimize(p.project->arrangedSubtitles().size());
    }
}
BENCHMARK(BM_Search)->Unit(benchmark::kMillisecond);

void BM_ReplaceAll(benchmark::State &state)
{
    Project p;
    int n = 0;
    for (auto _ : state) {
        if (n++ % 2 == 0)
            p.project->replaceAll(u"words"_s, u"terms"_s);
        else
            p.project->replaceAll(u"terms"_s, u"words"_s);
    }
}
BENCHMARK(BM_ReplaceAll)->Unit(benchmark::kMillisecond);

// The middle cue, with no anchor anywhere, fixed half a second later and earlier in turn: in
// Fix and Shift mode the whole list moves with it.
void BM_Fix(benchmark::State &state)
{
    const int mode = int(state.range(0));
    Project p;
    const SubtitlePtr cue = p.project->subtitles()[kMiddle];
    const double base = cue->start();
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        cue->setFixed(false);
        p.project->setSelectionIndices({kMiddle});
        p.player.time = base + (n++ % 2 ? -0.5 : 0.5);
        state.ResumeTiming();
        if (mode == 1)
            p.project->fixSubtitleStart();
        else if (mode == 2)
            p.project->shiftSubtitles();
        else
            p.project->fixSingleSubtitleStart();
        MainQueue::main().drain();
    }
    if (!cue->fixed())
        state.SkipWithError("the fix was refused");
}
BENCHMARK(BM_Fix)->ArgName("mode")->Arg(1)->Arg(2)->Arg(3)->Unit(benchmark::kMillisecond);

// A tap in Tap2Sync mode: re-times the current cue, stretches the rest of the list and
// selects the next cue.
void BM_Tap2SyncTap(benchmark::State &state)
{
    Project p;
    Settings::shared().setValue(u"ShownTap2Sync"_s, true);
    auto enter = [&] {
        p.project->setFixMode(FixMode::Fix);
        p.project->setSelectionIndices({kMiddle});
        p.playAt(p.project->currentSubtitle()->start());
        p.project->toggleTap2Sync();
    };
    enter();
    const double delay = Settings::shared().doubleValue(u"TapDelaySecs"_s);
    for (auto _ : state) {
        if (p.project->fixMode() != FixMode::Tap2Sync || !p.project->currentSubtitle()) {
            state.PauseTiming();
            enter();
            state.ResumeTiming();
        }
        p.playAt(p.project->currentSubtitle()->start() + delay + 0.01);
        p.project->fixSubtitleStart();
        MainQueue::main().drain();
    }
}
BENCHMARK(BM_Tap2SyncTap)->Unit(benchmark::kMillisecond);

// Undo and redo of a Fix that moved every cue of the list (the fix itself is not timed).
void BM_UndoRedoFix(benchmark::State &state)
{
    const bool redo = state.range(0) == 1;
    Project p;
    const SubtitlePtr cue = p.project->subtitles()[kMiddle];
    p.project->setSelectionIndices({kMiddle});
    p.player.time = cue->start() + 0.5;
    p.project->fixSubtitleStart();
    MainQueue::main().drain();
    if (!p.project->canUndo())
        state.SkipWithError("no step to undo");
    for (auto _ : state) {
        if (redo) {
            state.PauseTiming();
            p.project->undo();
            state.ResumeTiming();
            p.project->redo();
        } else {
            p.project->undo();
            state.PauseTiming();
            p.project->redo();
            state.ResumeTiming();
        }
    }
}
BENCHMARK(BM_UndoRedoFix)->ArgName("redo")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// An autosave of the whole list: what the GUI thread spends (taking the values) and the
// whole write on the worker thread, made and written atomically.
void BM_Autosave(benchmark::State &state)
{
    const bool whole = state.range(0) == 1;
    QTemporaryDir folder;
    RecoveryStore store(folder.path());
    Project p;
    p.project->setRecoveryStore(&store);
    Settings::shared().setValue(u"LastSubtitle"_s, folder.filePath(u"Film.srt"_s));
    p.project->setSelectionIndices({kMiddle});
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        p.project->setSubtitleText(u"Edit %1"_s.arg(n++));
        store.waitUntilIdle();
        state.ResumeTiming();
        p.project->writeRecoveryCopy();
        if (whole)
            store.waitUntilIdle();
    }
    store.waitUntilIdle();
    p.project->setRecoveryStore(nullptr);
}
BENCHMARK(BM_Autosave)->ArgName("whole")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The undo history after 1,000 typing steps, each into another line.
void BM_HistoryOfTypingSteps(benchmark::State &state)
{
    Project p;
    for (auto _ : state) {
        for (int step = 0; step < 1000; ++step) {
            p.project->setSelectionIndices({kMiddle + step % 2});
            p.project->setSubtitleText(u"Typed %1"_s.arg(step));
        }
    }
    state.counters["history_MB"] = double(p.project->editor().historyBytes()) / (1024.0 * 1024.0);
}
BENCHMARK(BM_HistoryOfTypingSteps)->Iterations(1)->Unit(benchmark::kMillisecond);
} // namespace

BENCHMARK_MAIN();
