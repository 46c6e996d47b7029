// The audio analysis: the peaks store and snapping, the smoothing of speech decisions, and
// whole analyses of real movies made with the ffmpeg command line.
#include "AudioAnalysis.h"
#include "FileNames.h"
#include "Log.h"
#include "MovieTestSupport.h"
#include "SpeechDetection.h"
#include "TestSupport.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <thread>

#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

// A movie of `seconds` with the given audio filter graph as its sound (48 kHz), and a small
// test picture.
QString makeMovie(const QString &path, double seconds, const QString &audio,
                  const QStringList &audioCodec = {})
{
    ffmpeg(QStringList{u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=d=%1:s=160x120:r=25"_s.arg(seconds), u"-f"_s,
                       u"lavfi"_s, u"-i"_s, audio, u"-t"_s, QString::number(seconds), u"-c:v"_s, u"mpeg4"_s,
                       u"-c:a"_s, u"aac"_s} +
           audioCodec + QStringList{u"-shortest"_s, path});
    return path;
}

// One second of a loud tone from 2 s to 3 s, silence around it.
QString toneBurst(double seconds)
{
    return u"aevalsrc='0.8*sin(2*PI*440*t)*between(t,2,3)':s=48000:d=%1"_s.arg(seconds);
}

AudioAnalysisRequest requestFor(const QString &movie, const TempDir &dir)
{
    AudioAnalysisRequest request;
    request.moviePath = movie;
    request.cacheFolder = dir.path(u"cache"_s);
    return request;
}

int peakHeight(const AudioAnalysis &analysis, qint64 bin)
{
    const PeakBin peak = analysis.bin(bin);
    return std::max(-int(peak.min), int(peak.max));
}

} // namespace

TEST(AudioPeaks, BinsAreEmptyUntilFilledAndColumnsSpanTheirBins)
{
    AudioAnalysis analysis;
    EXPECT_EQ(analysis.binCount(), 0);
    EXPECT_TRUE(analysis.columns(0, 10, 5).size() == 5 && !analysis.columns(0, 10, 5)[0].filled);
    analysis.setBinCount(1000);
    const std::vector<PeakBin> peaks{{-10, 20}, {-127, 127}, {0, 5}};
    analysis.fill(500, peaks.data(), 3);
    // Bins past the end are ignored, not written.
    analysis.fill(999, peaks.data(), 3);
    EXPECT_EQ(analysis.filledCount(), 4);
    EXPECT_FALSE(analysis.isFilled(499));
    EXPECT_TRUE(analysis.isFilled(502));
    EXPECT_EQ(analysis.bin(501).max, 127);
    EXPECT_EQ(analysis.bin(499).max, 0);

    // Ten columns over 4.9 s to 5.1 s: two bins each.
    const QList<AudioAnalysis::Span> spans = analysis.columns(4.9, 5.1, 10);
    ASSERT_EQ(spans.size(), 10);
    EXPECT_FALSE(spans[4].filled);
    EXPECT_TRUE(spans[5].filled);
    EXPECT_FLOAT_EQ(spans[5].min, -1.0f);
    EXPECT_FLOAT_EQ(spans[5].max, 1.0f);
    EXPECT_TRUE(spans[6].filled);
    EXPECT_FLOAT_EQ(spans[6].max, 5 / 127.0f);
    // Columns narrower than a bin show the bin they fall in; columns past the end are empty.
    const QList<AudioAnalysis::Span> zoomed = analysis.columns(5.0, 5.01, 4);
    EXPECT_TRUE(zoomed[0].filled && zoomed[3].filled);
    EXPECT_FALSE(analysis.columns(20, 30, 3)[1].filled);
    EXPECT_TRUE(analysis.columns(5, 4, 3).isEmpty());
    // Shrinking forgets what lay beyond the new end.
    analysis.setBinCount(501);
    EXPECT_EQ(analysis.filledCount(), 1);
}

TEST(AudioPeaks, SnappingTakesTheNearestOnsetWithinTheWindowOnly)
{
    const QList<double> onsets{1.0, 2.0, 2.5, 10.0};
    EXPECT_EQ(snapToSpeechOnset(onsets, 1.1), 1.0);
    EXPECT_EQ(snapToSpeechOnset(onsets, 2.3), 2.5);
    EXPECT_EQ(snapToSpeechOnset(onsets, 2.25), 2.0); // a tie: the earlier one
    EXPECT_EQ(snapToSpeechOnset(onsets, 0.76), 1.0);
    EXPECT_EQ(snapToSpeechOnset(onsets, 0.74), std::nullopt);
    EXPECT_EQ(snapToSpeechOnset(onsets, 5.0), std::nullopt);
    EXPECT_EQ(snapToSpeechOnset(onsets, 9.0, 1.0), 10.0);
    EXPECT_EQ(snapToSpeechOnset(onsets, 10.0, 0.0), 10.0);
    EXPECT_EQ(snapToSpeechOnset({}, 1.0), std::nullopt);
    EXPECT_EQ(snapToSpeechOnset(onsets, std::nan(""), 1.0), std::nullopt);
    EXPECT_EQ(snapToSpeechOnset(onsets, 1.0, -1.0), std::nullopt);
}

TEST(SpeechSmoothing, LoudVoicedStretchesBecomeSegmentsWithShortGapsBridgedAndBurstsDropped)
{
    // 10 s of a steady background at -40 dB; "speech" at -25 dB, voiced, in three places.
    std::vector<SpeechBin> bins(1000, SpeechBin{0, -40});
    auto speak = [&](int from, int to) {
        for (int b = from; b < to; ++b)
            bins[size_t(b)] = {1, -25};
    };
    speak(100, 180);
    speak(200, 260); // 200 ms after the first: bridged
    speak(500, 505); // 50 ms: too short
    speak(700, 800);
    // Loud but not voiced (a door slam), and voiced but no louder than the background.
    for (int b = 600; b < 630; ++b)
        bins[size_t(b)] = {0, -20};
    for (int b = 850; b < 950; ++b)
        bins[size_t(b)].voice = 1;
    const QList<SpeechSegment> segments = speechSegments(bins);
    ASSERT_EQ(segments.size(), 2);
    EXPECT_DOUBLE_EQ(segments[0].start, 1.0);
    EXPECT_DOUBLE_EQ(segments[0].end, 2.6);
    EXPECT_DOUBLE_EQ(segments[1].start, 7.0);
    EXPECT_DOUBLE_EQ(segments[1].end, 8.0);

    // A segment's edges reach out to where the loudness still stands out, a few bins at most.
    bins[99] = {0, -30};
    bins[98] = {0, -31};
    bins[97] = {0, -39};
    EXPECT_DOUBLE_EQ(speechSegments(bins)[0].start, 0.98);

    // Without the voice detector's say, loudness alone decides: the door slam is speech.
    SpeechSmoothing loudnessOnly;
    loudnessOnly.useVoiceDetector = false;
    EXPECT_EQ(speechSegments(bins, loudnessOnly).size(), 3);
}

TEST(SpeechSmoothing, UnknownBinsAreNoSpeechAndDoNotCountTowardsTheBackground)
{
    std::vector<SpeechBin> bins(600);
    for (int b = 0; b < 300; ++b)
        bins[size_t(b)] = {0, -50};
    for (int b = 100; b < 200; ++b)
        bins[size_t(b)] = {1, -30};
    // Bins 300.. are not decoded yet: they neither end the speech early nor lift the background.
    const QList<SpeechSegment> segments = speechSegments(bins);
    ASSERT_EQ(segments.size(), 1);
    EXPECT_DOUBLE_EQ(segments[0].start, 1.0);
    EXPECT_DOUBLE_EQ(segments[0].end, 2.0);
    EXPECT_TRUE(speechSegments(std::vector<SpeechBin>(50)).isEmpty());
    EXPECT_TRUE(speechSegments({}).isEmpty());
}

TEST(AudioAnalysisRun, PeaksLieWhereTheSoundIsInMp4AndMatroska)
{
    TempDir dir;
    for (const QString &name : {u"burst.mp4"_s, u"burst.mkv"_s}) {
        SCOPED_TRACE(name.toStdString());
        const QString movie = makeMovie(dir.path(name), 6, toneBurst(6));
        AudioAnalysisRequest request = requestFor(movie, dir);
        request.useCache = false;
        AudioAnalyser analyser(request);
        EXPECT_EQ(analyser.run(), AudioAnalysisOutcome::Finished);
        const auto analysis = analyser.analysis();
        // Matroska keeps the encoder's 21 ms of priming, so its sound starts and ends later.
        const int late = name.endsWith(u".mkv"_s) ? 2 : 0;
        EXPECT_EQ(analysis->binCount(), 600 + late + (late ? 1 : 0));
        EXPECT_GE(analysis->filledCount(), 600 + late);
        EXPECT_TRUE(analysis->isComplete());
        // The tone's 0.8 is 101 of 127.
        for (qint64 b : {195, 198}) {
            EXPECT_LT(peakHeight(*analysis, b + late), 5) << b;
        }
        for (qint64 b : {201, 250, 297}) {
            EXPECT_GT(peakHeight(*analysis, b + late), 90) << b;
        }
        for (qint64 b : {303, 310, 500}) {
            EXPECT_LT(peakHeight(*analysis, b + late), 5) << b;
        }
    }
}

TEST(AudioAnalysisRun, ChunksDecodedInParallelJoinExactly)
{
    TempDir dir;
    // A sweep makes every bin different, so that a chunk put one bin off shows.
    const QString movie =
        makeMovie(dir.path(u"sweep.mp4"_s), 20,
                  u"aevalsrc='0.9*sin(2*PI*(100+40*t)*t)*(0.3+0.7*abs(sin(t*3)))':s=48000:d=20"_s);
    AudioAnalysisRequest whole = requestFor(movie, dir);
    whole.useCache = false;
    whole.threads = 1;
    whole.chunkSeconds = 60;
    AudioAnalyser one(whole);
    ASSERT_EQ(one.run(), AudioAnalysisOutcome::Finished);

    AudioAnalysisRequest parts = whole;
    parts.threads = 2;
    parts.chunkSeconds = 3;
    parts.startPosition = 10.5;
    std::vector<std::pair<qint64, qint64>> ranges;
    std::mutex mutex;
    AudioAnalyser::Callbacks callbacks;
    callbacks.binsFilled = [&](qint64 first, qint64 end) {
        std::lock_guard lock(mutex);
        ranges.emplace_back(first, end);
    };
    AudioAnalyser many(parts, callbacks);
    ASSERT_EQ(many.run(), AudioAnalysisOutcome::Finished);

    const std::vector<PeakBin> a = one.analysis()->peaks();
    const std::vector<PeakBin> b = many.analysis()->peaks();
    ASSERT_EQ(a.size(), 2000u);
    ASSERT_EQ(b.size(), a.size());
    EXPECT_EQ(many.analysis()->filledCount(), 2000);
    // Chunks begin on the sample their first frame's time names, the whole track on the
    // count of the samples before: the two may differ by a sample or two, never by a bin (in
    // this sweep a bin's neighbour differs by two or more). The first bins hold the
    // encoder's priming, the last the end of the resampler's filter.
    for (size_t i = 3; i + 3 < a.size(); ++i) {
        EXPECT_TRUE(std::abs(a[i].min - b[i].min) <= 1 && std::abs(a[i].max - b[i].max) <= 1)
            << "bin " << i << ": " << int(a[i].min) << " " << int(a[i].max) << " in one piece, "
            << int(b[i].min) << " " << int(b[i].max) << " in parts; before it " << int(a[i - 1].min) << " "
            << int(a[i - 1].max);
    }
    // The part holding the playing position (9 s to 12 s) was begun first, with the one
    // after it on the other thread; the parts before came later.
    ASSERT_FALSE(ranges.empty());
    EXPECT_TRUE(ranges.front().first >= 900 && ranges.front().first < 1500) << ranges.front().first;
    const auto positionPart =
        std::find_if(ranges.begin(), ranges.end(), [](auto r) { return r.first == 900; });
    const auto earlierPart = std::find_if(ranges.begin(), ranges.end(), [](auto r) { return r.first < 900; });
    EXPECT_LT(positionPart - ranges.begin(), earlierPart - ranges.begin());
}

TEST(AudioAnalysisRun, TheCentreChannelAloneIsTakenWhenAskedForAndThereIsOne)
{
    TempDir dir;
    // Loud noise on the sides, a quiet tone in the centre.
    const QString movie = makeMovie(
        dir.path(u"surround.mp4"_s), 4,
        u"aevalsrc='0.9*random(0)|0.9*random(1)|0.2*sin(2*PI*300*t)|0|0.9*random(2)|0.9*random(3)':s=48000:c=5.1:d=4"_s,
        {u"-b:a"_s, u"256k"_s});
    AudioAnalysisRequest request = requestFor(movie, dir);
    request.useCache = false;
    AudioAnalyser mixed(request);
    ASSERT_EQ(mixed.run(), AudioAnalysisOutcome::Finished);
    request.centreChannelOnly = true;
    AudioAnalyser centre(request);
    ASSERT_EQ(centre.run(), AudioAnalysisOutcome::Finished);
    EXPECT_GT(peakHeight(*mixed.analysis(), 200), 40);
    EXPECT_NEAR(peakHeight(*centre.analysis(), 200), 25, 4);
}

TEST(AudioAnalysisRun, BrokenMissingOrSilentSoundEndsWithOneInfoLineAndNoHang)
{
    TempDir dir;
    const QString garbage = dir.write(u"garbage.mp4"_s, QByteArray(200'000, 'x'));
    const QString noSound = dir.path(u"picture.mp4"_s);
    ffmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=d=2:s=160x120:r=25"_s, u"-c:v"_s, u"mpeg4"_s, noSound});
    const QString silent = makeMovie(dir.path(u"silent.mkv"_s), 5, u"anullsrc=r=48000:cl=stereo"_s);
    const QString fifo = dir.path(u"fifo.mkv"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    // A movie cut off in the middle of its data.
    const QString whole = makeMovie(dir.path(u"whole.mkv"_s), 8, toneBurst(8));
    QByteArray bytes = dir.read(u"whole.mkv"_s);
    const QString cut = dir.write(u"cut.mkv"_s, bytes.left(bytes.size() / 2));

    struct Case
    {
        QString movie;
        AudioAnalysisOutcome outcome;
        QString info;
    };
    const QList<Case> cases{
        {garbage, AudioAnalysisOutcome::Failed,
         u"Info: The sound of \"%1\" cannot be analysed: Invalid data found when processing input."_s.arg(
             garbage)},
        {fifo, AudioAnalysisOutcome::Failed,
         u"Info: The sound of \"%1\" cannot be analysed: it is a FIFO, not a regular file."_s.arg(fifo)},
        {noSound, AudioAnalysisOutcome::Failed,
         u"Info: The sound of \"%1\" cannot be analysed: it has no audio track."_s.arg(noSound)},
        {silent, AudioAnalysisOutcome::Finished,
         u"Info: No speech was found in the sound of \"%1\"."_s.arg(silent)},
        // The tone in it is loud and steady enough to pass for speech: no line.
        {cut, AudioAnalysisOutcome::Finished, {}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.movie.toStdString());
        LogCapture log;
        int finished = 0;
        QString message;
        AudioAnalysisRequest request = requestFor(c.movie, dir);
        AudioAnalyser analyser(request, {{}, {}, [&](AudioAnalysisOutcome, const QString &m) {
                                             ++finished;
                                             message = m;
                                         }});
        QElapsedTimer clock;
        clock.start();
        analyser.start();
        analyser.wait();
        EXPECT_LT(clock.elapsed(), 20'000);
        EXPECT_EQ(analyser.outcome(), c.outcome);
        EXPECT_EQ(finished, 1);
        EXPECT_EQ(message, c.info);
        EXPECT_EQ(log.lines(), c.info.isEmpty() ? QStringList() : QStringList{c.info});
        if (!c.info.isEmpty()) {
            EXPECT_TRUE(analyser.analysis()->speech().isEmpty());
        }
        if (c.outcome == AudioAnalysisOutcome::Failed) {
            EXPECT_EQ(analyser.analysis()->binCount(), 0);
        }
    }
    // What the cut movie still has is there: its tone at 2 s.
    AudioAnalysisRequest request = requestFor(cut, dir);
    request.useCache = false;
    AudioAnalyser analyser(request);
    analyser.run();
    EXPECT_GT(peakHeight(*analyser.analysis(), 250), 90);
    // An audio track that does not exist.
    request.audioTrack = 1;
    AudioAnalyser second(request);
    EXPECT_EQ(second.run(), AudioAnalysisOutcome::Failed);
    EXPECT_EQ(second.message(),
              u"Info: The sound of \"%1\" cannot be analysed: it has no audio track 2."_s.arg(cut));
}

TEST(AudioAnalysisRun, CancellingStopsAtOnceWithoutFinishingOrCaching)
{
    TempDir dir;
    const QString movie = makeMovie(dir.path(u"long.mp4"_s), 120, toneBurst(120));
    int finished = 0;
    AudioAnalysisRequest request = requestFor(movie, dir);
    request.chunkSeconds = 5;
    auto analyser = std::make_unique<AudioAnalyser>(
        request,
        AudioAnalyser::Callbacks{{}, {}, [&](AudioAnalysisOutcome, const QString &) { ++finished; }});
    analyser->start();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    QElapsedTimer clock;
    clock.start();
    analyser->cancel();
    analyser->wait();
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_EQ(analyser->outcome(), AudioAnalysisOutcome::Cancelled);
    EXPECT_FALSE(analyser->analysis()->isComplete());
    // A low priority is the analysis's threads' own: the caller's stays as it was.
    AudioAnalysisRequest low = request;
    low.lowPriority = true;
    low.useCache = false;
    std::atomic<int> workerNice{-100};
    AudioAnalyser niced(low, {[&](qint64, qint64) { workerNice = ::getpriority(PRIO_PROCESS, 0); }, {}, {}});
    niced.start();
    niced.wait();
    EXPECT_EQ(workerNice.load(), 10);
    EXPECT_EQ(::getpriority(PRIO_PROCESS, 0), 0);
    // Dropping a running analyser cancels it too.
    analyser = std::make_unique<AudioAnalyser>(request);
    analyser->start();
    analyser.reset();
    EXPECT_EQ(finished, 0);
    EXPECT_FALSE(QFileInfo::exists(AudioAnalysisCache::cacheFilePath(request)));
}

TEST(AudioAnalysisCacheTest, TheNextOpeningReadsTheCacheUntilTheFileChanges)
{
    TempDir dir;
    const QString movie = makeMovie(dir.path(u"film.mp4"_s), 6, toneBurst(6));
    AudioAnalysisRequest request = requestFor(movie, dir);
    AudioAnalyser first(request);
    ASSERT_EQ(first.run(), AudioAnalysisOutcome::Finished);
    const QString entry = AudioAnalysisCache::cacheFilePath(request);
    EXPECT_TRUE(entry.startsWith(request.cacheFolder + u'/'));
    EXPECT_EQ(QDir(request.cacheFolder).entryList(QDir::Files | QDir::Hidden),
              QStringList{QFileInfo(entry).fileName()});

    AudioAnalyser second(request);
    EXPECT_EQ(second.run(), AudioAnalysisOutcome::FromCache);
    const std::vector<PeakBin> a = first.analysis()->peaks();
    const std::vector<PeakBin> b = second.analysis()->peaks();
    EXPECT_TRUE(std::equal(a.begin(), a.end(), b.begin(), b.end(),
                           [](PeakBin x, PeakBin y) { return x.min == y.min && x.max == y.max; }));
    EXPECT_EQ(second.analysis()->speech(), first.analysis()->speech());
    EXPECT_EQ(second.analysis()->filledCount(), 600);

    // Another track choice is another entry; a moved copy of the file is the same film.
    AudioAnalysisRequest centre = request;
    centre.centreChannelOnly = true;
    EXPECT_NE(AudioAnalysisCache::cacheFilePath(centre), entry);
    ASSERT_TRUE(QFile::copy(movie, dir.path(u"copy.mp4"_s)));
    QFile copy(dir.path(u"copy.mp4"_s));
    ASSERT_TRUE(copy.open(QIODevice::ReadWrite));
    ASSERT_TRUE(copy.setFileTime(QFileInfo(movie).lastModified(), QFileDevice::FileModificationTime));
    copy.close();
    AudioAnalysisRequest moved = request;
    moved.moviePath = copy.fileName();
    EXPECT_EQ(AudioAnalysisCache::cacheFilePath(moved), entry);

    // A damaged entry is analysed afresh and written anew.
    QFile damaged(entry);
    ASSERT_TRUE(damaged.resize(damaged.size() / 2));
    AudioAnalyser third(request);
    EXPECT_EQ(third.run(), AudioAnalysisOutcome::Finished);
    AudioAnalyser fourth(request);
    EXPECT_EQ(fourth.run(), AudioAnalysisOutcome::FromCache);

    // A changed file (same size, another time) is another film.
    QFile touched(movie);
    ASSERT_TRUE(touched.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        touched.setFileTime(QDateTime::currentDateTime().addSecs(-3600), QFileDevice::FileModificationTime));
    touched.close();
    EXPECT_NE(AudioAnalysisCache::cacheFilePath(request), entry);
    AudioAnalyser fifth(request);
    EXPECT_EQ(fifth.run(), AudioAnalysisOutcome::Finished);
}

TEST(AudioAnalysisCacheTest, AFileWhoseNameIsNotUtf8IsAnalysedAndCached)
{
    TempDir dir;
    const QString made = makeMovie(dir.path(u"plain.mkv"_s), 4, toneBurst(4));
    const QString name = decodeFileName(QFile::encodeName(dir.path(QString())) + "/caf\xe9.mkv");
    ASSERT_TRUE(renameFile(made, name));
    AudioAnalysisRequest request = requestFor(name, dir);
    AudioAnalyser first(request);
    EXPECT_EQ(first.run(), AudioAnalysisOutcome::Finished) << first.message().toStdString();
    EXPECT_GT(peakHeight(*first.analysis(), 250), 90);
    AudioAnalyser second(request);
    EXPECT_EQ(second.run(), AudioAnalysisOutcome::FromCache);
    // QTemporaryDir cannot name it to remove it.
    EXPECT_TRUE(removeFile(name));
}

TEST(AudioAnalysisCacheTest, TheFolderFollowsXdgCacheHome)
{
    const QByteArray saved = qgetenv("XDG_CACHE_HOME");
    qputenv("XDG_CACHE_HOME", "/var/tmp/some cache");
    EXPECT_EQ(AudioAnalysisCache::defaultFolder(), u"/var/tmp/some cache/captora"_s);
    // A relative value is ignored: XDG folders must be absolute.
    qputenv("XDG_CACHE_HOME", "relative");
    EXPECT_EQ(AudioAnalysisCache::defaultFolder(), QDir::homePath() + u"/.cache/captora"_s);
    qunsetenv("XDG_CACHE_HOME");
    EXPECT_EQ(AudioAnalysisCache::defaultFolder(), QDir::homePath() + u"/.cache/captora"_s);
    if (!saved.isNull())
        qputenv("XDG_CACHE_HOME", saved);
}
