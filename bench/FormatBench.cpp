// Reading a whole 100,000-cue text in each format, as the loader does after decoding.

#include "Log.h"
#include "VHSubtitle.h"
#include "VHVideoText.h"

#include <benchmark/benchmark.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace {
constexpr int kCues = 100000;

// Cue i runs from 2i to 2i + 1.5 seconds.
QString clock(double seconds, QChar symbol, int digits, int hourWidth = 2)
{
    const qint64 hundredths = qint64(seconds * 100 + 0.5);
    const qint64 whole = hundredths / 100;
    QString fraction = QString::number(hundredths % 100).rightJustified(2, u'0');
    if (digits == 3)
        fraction += u'0';
    return u"%1:%2:%3%4%5"_s.arg(whole / 3600, hourWidth, 10, QChar(u'0'))
        .arg(whole / 60 % 60, 2, 10, QChar(u'0'))
        .arg(whole % 60, 2, 10, QChar(u'0'))
        .arg(symbol)
        .arg(fraction);
}

QString generate(const std::function<void(QString &, int, double, double, const QString &)> &cue,
                 const QString &header = QString())
{
    QString text = header;
    text.reserve(kCues * 80);
    for (int i = 0; i < kCues; ++i)
        cue(text, i, 2.0 * i, 2.0 * i + 1.5, u"Line %1 of the text, with some words in it"_s.arg(i));
    return text;
}

const QString &subRipText()
{
    static const QString text = generate([](QString &t, int i, double from, double to, const QString &line) {
        t += QString::number(i + 1) + u'\n' + clock(from, u',', 3) + u" --> "_s + clock(to, u',', 3) + u'\n' +
             line + u"\nsecond line\n\n"_s;
    });
    return text;
}

const QString &subViewerText()
{
    static const QString text = generate(
        [](QString &t, int, double from, double to, const QString &line) {
            t += clock(from, u'.', 2) + u',' + clock(to, u'.', 2) + u'\n' + line + u"[br]second line\n\n"_s;
        },
        u"[INFORMATION]\n[TITLE]Bench\n[END INFORMATION]\n[SUBTITLE]\n"_s);
    return text;
}

const QString &microDVDText()
{
    static const QString text = generate([](QString &t, int, double from, double to, const QString &line) {
        t += u"{%1}{%2}"_s.arg(qint64(from * 25)).arg(qint64(to * 25)) + line + u"|second line\n"_s;
    });
    return text;
}

const QString &subStationAlphaText()
{
    static const QString text = generate(
        [](QString &t, int, double from, double to, const QString &line) {
            t += u"Dialogue: 0,"_s + clock(from, u'.', 2, 1) + u',' + clock(to, u'.', 2, 1) +
                 u",Default,,0,0,0,,"_s + line + u"\\Nsecond line\n"_s;
        },
        u"[Script Info]\nTitle: Bench\n\n[V4+ Styles]\nFormat: Name, Fontname\nStyle: Default,Arial\n\n[Events]\n"
        u"Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"_s);
    return text;
}

const QString &plainText()
{
    static const QString text = generate(
        [](QString &t, int i, double, double, const QString &line) { t += (i ? u"\n"_s : QString()) + line; });
    return text;
}

const QString &chapterText()
{
    static const QString text = generate(
        [](QString &t, int i, double from, double to, const QString &line) {
            t += u"Chapter "_s + QString::number(i + 1) + u'\n' + clock(from, u'.', 3) + u" --> "_s +
                 clock(to, u'.', 3) + u'\n' + line + u"\n\n"_s;
        },
        u"WEBVTT\n\n"_s);
    return text;
}

void run(benchmark::State &state, const QString &text, const std::function<std::optional<SubtitleList>()> &read)
{
    LogCapture quiet; // the chapter header's numbering warning, once per run
    for (auto _ : state) {
        std::optional<SubtitleList> cues = read();
        if (!cues || cues->size() != kCues)
            state.SkipWithError("the generated text did not read completely");
        benchmark::DoNotOptimize(cues);
        quiet.clear();
    }
    state.SetItemsProcessed(state.iterations() * kCues);
    state.SetBytesProcessed(state.iterations() * text.size() * qsizetype(sizeof(QChar)));
}
} // namespace

static void BM_SubRip(benchmark::State &state)
{
    run(state, subRipText(), [] { return VHSubtitle::subtitlesFromSubRipString(subRipText()); });
}
static void BM_SubViewer(benchmark::State &state)
{
    run(state, subViewerText(), [] { return VHSubtitle::subtitlesFromSubViewerString(subViewerText()); });
}
static void BM_MicroDVD(benchmark::State &state)
{
    run(state, microDVDText(), [] { return VHSubtitle::subtitlesFromMicroDVDString(microDVDText(), 25); });
}
static void BM_SubStationAlpha(benchmark::State &state)
{
    run(state, subStationAlphaText(),
        [] { return VHSubtitle::subtitlesFromSubStationAlphaString(subStationAlphaText()); });
}
static void BM_PlainText(benchmark::State &state)
{
    run(state, plainText(), [] { return VHSubtitle::subtitlesFromText(plainText(), 0); });
}
static void BM_ChapterMarks(benchmark::State &state)
{
    run(state, chapterText(), [] { return VHVideoText::chapterMarksFromVideoTextTracks(chapterText()); });
}

BENCHMARK(BM_SubRip)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SubViewer)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MicroDVD)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SubStationAlpha)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainText)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ChapterMarks)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
