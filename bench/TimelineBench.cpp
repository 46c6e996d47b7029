// The timeline strip on the offscreen platform with 100,000 lines and a two-hour waveform:
// one repaint as the playhead moves (the waveform comes from its cached picture), at 30 s
// across and with the whole film across, and one repaint after the view moved (the waveform
// drawn again from 720,000 peaks).

#include "AudioAnalysis.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "TimelineView.h"
#include "VHSubtitle.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr int kLines = 100000;
constexpr double kLength = 7200;

struct Strip
{
    QTemporaryDir dir;
    std::unique_ptr<ProjectWindow> window;
    QImage image{1200, 150, QImage::Format_ARGB32_Premultiplied};
    Strip()
    {
        Settings::shared().useFile(dir.filePath(u"settings.ini"_s));
        window = std::make_unique<ProjectWindow>();
        SubtitleList cues;
        cues.reserve(kLines);
        const double step = kLength / kLines;
        for (int i = 0; i < kLines; ++i)
            cues << VHSubtitle::create(u"Line %1 of the film, with a few words"_s.arg(i + 1), i * step,
                                       i * step + step * 0.8);
        window->project()->setSubtitles(cues);
        auto analysis = std::make_shared<AudioAnalysis>();
        std::vector<PeakBin> peaks(std::size_t(kLength * AudioAnalysis::binsPerSecond));
        for (std::size_t i = 0; i < peaks.size(); ++i) {
            const auto level = qint8(60 + 60 * std::sin(double(i) * 0.01));
            peaks[i] = {qint8(-level), level};
        }
        analysis->assign(std::move(peaks), {{10, 12}, {3600, 3602}});
        TimelineView *timeline = window->timeline();
        timeline->resize(image.size());
        timeline->setAnalysis(analysis);
    }
    void paint()
    {
        QPainter painter(&image);
        window->timeline()->render(&painter);
    }
};

Strip &strip()
{
    static Strip instance;
    return instance;
}

void BM_RepaintAt30Seconds(benchmark::State &state)
{
    Strip &s = strip();
    s.window->timeline()->setView(3600, 30.0 / 1200);
    s.paint();
    for (auto _ : state)
        s.paint();
}
BENCHMARK(BM_RepaintAt30Seconds)->Unit(benchmark::kMicrosecond);

void BM_RepaintWholeFilm(benchmark::State &state)
{
    Strip &s = strip();
    s.window->timeline()->showWholeMovie();
    s.paint();
    for (auto _ : state)
        s.paint();
}
BENCHMARK(BM_RepaintWholeFilm)->Unit(benchmark::kMicrosecond);

void BM_ScrollWholeFilmWaveform(benchmark::State &state)
{
    Strip &s = strip();
    TimelineView *timeline = s.window->timeline();
    timeline->showWholeMovie();
    for (auto _ : state) {
        timeline->binsFilled(0, 1); // the waveform is drawn again
        s.paint();
    }
}
BENCHMARK(BM_ScrollWholeFilmWaveform)->Unit(benchmark::kMicrosecond);

void BM_ScrollAt30Seconds(benchmark::State &state)
{
    Strip &s = strip();
    TimelineView *timeline = s.window->timeline();
    double start = 100;
    for (auto _ : state) {
        timeline->setView(start, 30.0 / 1200);
        start = start > 7000 ? 100 : start + 7;
        s.paint();
    }
}
BENCHMARK(BM_ScrollAt30Seconds)->Unit(benchmark::kMicrosecond);
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
