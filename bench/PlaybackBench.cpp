// Playback costs: the overlay following the time over a long cue list, and opening a movie
// up to its first picture with each player. Runs offscreen (software video).
#include "VHMovieController.h"
#include "VHSubtitleView.h"
#include "VLCMovieController.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <clocale>

using namespace Qt::StringLiterals;

namespace {

SubtitleList longList(int count)
{
    SubtitleList list;
    list.reserve(count);
    for (int i = 0; i < count; ++i)
        list << VHSubtitle::create(u"Line %1\nsecond line"_s.arg(i), i * 2.5, i * 2.5 + 2.0);
    return list;
}

// Stepping frame by frame (25 per second) through a 10,000-cue list.
void BM_OverlayFrameSteps(benchmark::State &state)
{
    VHSubtitleView view;
    view.resize(640, 360);
    view.setSubtitles(longList(10000));
    double t = 0;
    for (auto _ : state) {
        view.setCurrentTime(t);
        benchmark::DoNotOptimize(view.currentSegment());
        t += 0.04;
        if (t > 25000)
            t = 0;
    }
}
BENCHMARK(BM_OverlayFrameSteps);

// A jump from the first to the last cue and back: the walk crosses the whole list.
void BM_OverlayJumpAcrossList(benchmark::State &state)
{
    VHSubtitleView view;
    view.setSubtitles(longList(10000));
    bool end = false;
    for (auto _ : state) {
        view.setCurrentTime(end ? 24999.0 : 0.5);
        end = !end;
    }
}
BENCHMARK(BM_OverlayJumpAcrossList);

// Replacing the list (a language change) and drawing the current cue.
void BM_OverlaySetListAndDraw(benchmark::State &state)
{
    VHSubtitleView view;
    view.resize(1280, 720);
    const SubtitleList list = longList(10000);
    QImage canvas(1280, 720, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        view.setSubtitles(list);
        view.setCurrentTime(12345.5);
        QPainter painter(&canvas);
        view.drawSubtitle(painter);
    }
}
BENCHMARK(BM_OverlaySetListAndDraw);

const QString &benchMovie()
{
    static QTemporaryDir dir;
    static const QString path = [] {
        const QString target = dir.filePath(u"bench.mp4"_s);
        QProcess::execute(u"ffmpeg"_s, {u"-hide_banner"_s,
                                        u"-loglevel"_s,
                                        u"error"_s,
                                        u"-f"_s,
                                        u"lavfi"_s,
                                        u"-i"_s,
                                        u"testsrc=size=1280x720:rate=25"_s,
                                        u"-f"_s,
                                        u"lavfi"_s,
                                        u"-i"_s,
                                        u"sine"_s,
                                        u"-t"_s,
                                        u"10"_s,
                                        u"-c:v"_s,
                                        u"libx264"_s,
                                        u"-preset"_s,
                                        u"ultrafast"_s,
                                        u"-c:a"_s,
                                        u"aac"_s,
                                        target});
        return target;
    }();
    return path;
}

// From loadMovieURL() to the load report with the cue list set (what the window waits for
// before it shows the movie).
template <typename Controller> void BM_OpenMovie(benchmark::State &state)
{
    const QString &movie = benchMovie();
    const SubtitleList list = longList(10000);
    for (auto _ : state) {
        Controller controller;
        controller.view()->resize(640, 400);
        bool loaded = false;
        QObject::connect(&controller, &VHMovieController::movieLoaded, [&] { loaded = true; });
        controller.setSubtitles(list);
        controller.loadMovieURL(movie);
        QDeadlineTimer deadline(10000);
        while (!loaded && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        if (!loaded)
            state.SkipWithError("the movie did not load");
        state.PauseTiming();
        controller.unloadMovie();
        state.ResumeTiming();
    }
}
BENCHMARK_TEMPLATE(BM_OpenMovie, VHMovieController)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5)
    ->UseRealTime();
BENCHMARK_TEMPLATE(BM_OpenMovie, VLCMovieController)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5)
    ->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
