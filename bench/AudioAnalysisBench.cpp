// Times the audio analysis of one movie as the window runs it: the first peaks around a
// playing position, the whole track (peaks and speech), and the reopening from the cache.
// Usage: audio_analysis_bench MOVIE [START_SECONDS] [--centre]
#include "AudioAnalysis.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <atomic>
#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        std::fprintf(stderr, "Usage: audio_analysis_bench MOVIE [START_SECONDS] [--centre]\n");
        return 2;
    }
    QTemporaryDir cache;
    AudioAnalysisRequest request;
    request.moviePath = args.at(1);
    request.startPosition = args.size() > 2 ? args.at(2).toDouble() : 0;
    request.centreChannelOnly = args.contains(QStringLiteral("--centre"));
    request.cacheFolder = cache.path();

    QElapsedTimer clock;
    std::atomic<qint64> firstPeaks{-1};
    const auto startBin = qint64(request.startPosition * AudioAnalysis::binsPerSecond);
    AudioAnalyser::Callbacks callbacks;
    callbacks.binsFilled = [&](qint64 first, qint64 end) {
        qint64 none = -1;
        if (first <= startBin + 100 && end > startBin)
            firstPeaks.compare_exchange_strong(none, clock.nsecsElapsed());
    };
    clock.start();
    AudioAnalyser analyser(request, callbacks);
    analyser.start();
    analyser.wait();
    const double whole = double(clock.nsecsElapsed()) / 1e9;
    const auto analysis = analyser.analysis();
    std::printf("track: %.0f s, %lld of %lld bins filled, %lld speech segments\n", analysis->duration(),
                static_cast<long long>(analysis->filledCount()), static_cast<long long>(analysis->binCount()),
                static_cast<long long>(analysis->speech().size()));
    // Where bins stayed empty (at most a few ranges), to tell a gap from the track's end.
    int shown = 0;
    for (qint64 b = 0; b < analysis->binCount() && shown < 8;) {
        if (analysis->isFilled(b)) {
            ++b;
            continue;
        }
        qint64 e = b;
        while (e < analysis->binCount() && !analysis->isFilled(e))
            ++e;
        std::printf("  empty bins %lld to %lld\n", static_cast<long long>(b), static_cast<long long>(e));
        b = e;
        ++shown;
    }
    std::printf("first peaks at %.0f s: %.3f s\n", request.startPosition, double(firstPeaks.load()) / 1e9);
    std::printf("whole analysis: %.2f s\n", whole);

    clock.restart();
    AudioAnalyser reopened(request);
    const AudioAnalysisOutcome outcome = reopened.run();
    std::printf("cached reopen: %.3f s (%s)\n", double(clock.nsecsElapsed()) / 1e9,
                outcome == AudioAnalysisOutcome::FromCache ? "from the cache" : "NOT from the cache");
    return outcome == AudioAnalysisOutcome::FromCache ? 0 : 1;
}
