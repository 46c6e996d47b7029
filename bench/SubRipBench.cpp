// Reading and writing a 100,000-cue SubRip text.
#include "VHSubtitle.h"

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {
QString bigSubRip(int cues)
{
    SubtitleList list;
    list.reserve(cues);
    for (int i = 0; i < cues; ++i) {
        const double start = i * 2.5;
        const QString text = i % 3 ? u"Line %1 of the film, short"_s.arg(i)
                                   : u"Line %1 of the film, with \"quotes\" and Ümlauts\nand a second line"_s.arg(i);
        list.append(VHSubtitle::create(text, start, start + 1.8, i % 50 == 0));
    }
    return VHSubtitle::subRipText(list, false);
}

void BM_ReadSubRip(benchmark::State &state)
{
    const QString text = bigSubRip(int(state.range(0)));
    for (auto _ : state) {
        auto cues = VHSubtitle::subtitlesFromSubRipString(text);
        benchmark::DoNotOptimize(cues);
    }
    state.SetBytesProcessed(state.iterations() * text.size() * 2);
}
BENCHMARK(BM_ReadSubRip)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_WriteSubRip(benchmark::State &state)
{
    const SubtitleList cues = *VHSubtitle::subtitlesFromSubRipString(bigSubRip(int(state.range(0))));
    QTemporaryDir dir;
    const QString path = dir.filePath(u"out.srt"_s);
    for (auto _ : state)
        benchmark::DoNotOptimize(VHSubtitle::writeSubtitles(cues, path));
}
BENCHMARK(BM_WriteSubRip)->Arg(100000)->Unit(benchmark::kMillisecond);
} // namespace

BENCHMARK_MAIN();
