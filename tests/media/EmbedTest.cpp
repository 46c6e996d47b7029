// Embedding into M4V with the real FFmpeg libraries: what ffprobe and our extractor find in
// the output, the candidate rows, and every failure leaving the user's files as they were.
#include "CTSubtitleEmbedder.h"
#include "CTSubtitleExtractor.h"
#include "CTWindowController.h"
#include "EmbeddingFinished.h"
#include "Log.h"
#include "MainQueue.h"
#include "MovieTestSupport.h"
#include "TestSupport.h"
#include "TimedTextSamples.h"
#include "VHSubtitle.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
const QList<TestCue> kEnglish = {{0.5, 1.5, u"Hello"_s}, {2.0, 3.0, u"World"_s}};
const QList<TestCue> kGerman = {{0.0, 1.0, u"Eins"_s}, {3.0, 3.5, u"Zwei"_s}};

// Movies made on first use and copied into each test's folder (ctest runs every test in a
// process of its own, so each makes only the movies it needs).
class Movies
{
public:
    // 4 s, video and audio.
    static const QString &plain()
    {
        static const QString path = make(u"plain.mp4"_s, clipInputs(4) + clipCodecs());
        return path;
    }
    // 4 s, with English, English and German mov_text tracks and two chapters.
    static const QString &tracks()
    {
        static const QString path = makeTrackMovie(dir().filePath(u"tracks.mp4"_s), 4, srt(), germanSrt());
        return path;
    }
    // 30 s, every frame a key frame: long enough to cancel mid-run.
    static const QString &longer()
    {
        static const QString path =
            make(u"longer.mp4"_s, QStringList{u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=d=30:s=320x240:r=25"_s,
                                              u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=d=30"_s} +
                                      clipCodecs() + QStringList{u"-g"_s, u"1"_s});
        return path;
    }
    // MKV with a SubRip track and chapters.
    static const QString &matroska()
    {
        static const QString path = make(
            u"matroska.mkv"_s,
            clipInputs(4) +
                QStringList{u"-i"_s, srt(), u"-i"_s, chapters(), u"-map"_s, u"0"_s, u"-map"_s, u"1"_s,
                            u"-map"_s, u"2"_s, u"-map_chapters"_s, u"3"_s} +
                clipCodecs() + QStringList{u"-c:s"_s, u"srt"_s, u"-metadata:s:s:0"_s, u"language=eng"_s});
        return path;
    }
    // MKV whose audio MP4 cannot carry.
    static const QString &pcm()
    {
        static const QString path =
            make(u"pcm.mkv"_s, clipInputs(2) + QStringList{u"-c:v"_s, u"libx264"_s, u"-preset"_s,
                                                           u"ultrafast"_s, u"-c:a"_s, u"pcm_s16le"_s});
        return path;
    }

private:
    static QTemporaryDir &dir()
    {
        static QTemporaryDir folder;
        return folder;
    }
    static QString make(const QString &name, const QStringList &args)
    {
        const QString path = dir().filePath(name);
        ffmpeg(args + QStringList{path});
        return path;
    }
    static QString srt()
    {
        static const QString path = writeSubRip(dir().filePath(u"cues.srt"_s), kEnglish);
        return path;
    }
    static QString germanSrt()
    {
        static const QString path = writeSubRip(dir().filePath(u"de.srt"_s), kGerman);
        return path;
    }
    static QString chapters()
    {
        static const QString path = [] {
            const QString file = dir().filePath(u"chapters.txt"_s);
            QFile out(file);
            out.open(QIODevice::WriteOnly);
            out.write(";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=2000\ntitle=Intro\n"
                      "[CHAPTER]\nTIMEBASE=1/1000\nSTART=2000\nEND=4000\ntitle=Main\n");
            return file;
        }();
        return path;
    }
};

QString copyInto(const TempDir &dir, const QString &movie, const QString &name)
{
    const QString target = dir.path(name);
    EXPECT_TRUE(QFile::copy(movie, target));
    return target;
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::shared_ptr<CTSubtitleEmbedder> embedderFor(const QString &movie)
{
    std::shared_ptr<const MovieAsset> asset = MovieAsset::open(movie);
    EXPECT_TRUE(asset);
    return CTSubtitleEmbedder::initWithAsset(asset, movie, asset ? asset->fps() : 0);
}

QStringList streamSummary(const QJsonObject &probed)
{
    QStringList out;
    for (const QJsonValue &value : probed[u"streams"_s].toArray()) {
        const QJsonObject stream = value.toObject();
        out.append(stream[u"codec_type"_s].toString() + u'/' + stream[u"codec_tag_string"_s].toString() +
                   u'/' + stream[u"tags"_s].toObject()[u"language"_s].toString());
    }
    return out;
}

QStringList chapterTitles(const QJsonObject &probed)
{
    QStringList out;
    for (const QJsonValue &value : probed[u"chapters"_s].toArray())
        out.append(value.toObject()[u"tags"_s].toObject()[u"title"_s].toString());
    return out;
}

// "start+duration:size" of every packet of one stream, as ffprobe reads them.
QStringList packetsOf(const QString &path, int stream)
{
    QProcess process;
    process.start(u"ffprobe"_s,
                  {u"-v"_s, u"error"_s, u"-select_streams"_s, QString::number(stream), u"-show_entries"_s,
                   u"packet=pts_time,duration_time,size"_s, u"-of"_s, u"csv=p=0"_s, path});
    process.waitForFinished(30'000);
    QStringList out;
    const QStringList lines =
        QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList fields = line.split(u',');
        if (fields.size() == 3)
            out.append(u"%1+%2:%3"_s.arg(fields[0].toDouble(), 0, 'f', 3)
                           .arg(fields[1].toDouble(), 0, 'f', 3)
                           .arg(fields[2]));
    }
    return out;
}

// The top-level boxes of an MP4 file, in order.
QStringList topLevelBoxes(const QString &path)
{
    QStringList boxes;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return boxes;
    qint64 offset = 0;
    while (offset + 8 <= file.size()) {
        file.seek(offset);
        const QByteArray header = file.read(16);
        quint64 size = qFromBigEndian<quint32>(header.constData());
        if (size == 1)
            size = qFromBigEndian<quint64>(header.constData() + 8);
        boxes.append(QString::fromLatin1(header.mid(4, 4)));
        if (size < 8)
            break;
        offset += qint64(size);
    }
    return boxes;
}
} // namespace

TEST(Embedder, WritesSubtitleFilesAndChaptersIntoAnM4V)
{
    TempDir dir;
    const QString movie = copyInto(dir, Movies::plain(), u"movie.mp4"_s);
    const QByteArray source = bytesOf(movie);
    writeSubRip(dir.path(u"movie.en.srt"_s), kEnglish);
    writeSubRip(dir.path(u"movie.de.srt"_s), kGerman);
    dir.write(u"movie.vtt"_s, "WEBVTT\n\n1\n00:00:00.000 --> 00:00:01.500\nOpening\n\n"
                              "2\n00:00:01.500 --> 00:00:04.000\nClosing\n");

    std::shared_ptr<CTSubtitleEmbedder> embedder = embedderFor(movie);
    RecordingEmbedderDelegate delegate;
    embedder->setDelegate(&delegate);
    auto status = std::make_shared<ProgressStatus>();
    embedder->setStatus(status);
    EXPECT_EQ(status->progress(), ProgressStatus::Waiting);
    EXPECT_EQ(status->title(), u"Embedding Subtitles into movie"_s);
    QList<double> progresses;
    auto token =
        status->observeKey(u"progress"_s, [&](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did)
                progresses.append(status->progress());
        });
    runToEnd(*embedder);

    EXPECT_EQ(delegate.started, 1);
    EXPECT_EQ(delegate.successes, 1);
    EXPECT_EQ(delegate.failures, 0);
    // Done, then the final "stopped" of the completion, which a success also ends with.
    ASSERT_GE(progresses.size(), 3);
    EXPECT_EQ(progresses.first(), 0);
    EXPECT_EQ(progresses.mid(progresses.size() - 4), (QList<double>{1, 2, 3, -1}));
    EXPECT_EQ(status->message(), QString());
    EXPECT_EQ(status->relatedURL(), dir.path(u"movie-Output.m4v"_s));
    EXPECT_EQ(bytesOf(movie), source);

    const QString output = embedder->outputMoviePath();
    const QJsonObject probed = probe(output);
    EXPECT_EQ(streamSummary(probed),
              (QStringList{u"video/avc1/und"_s, u"audio/mp4a/und"_s, u"subtitle/tx3g/deu"_s,
                           u"subtitle/tx3g/eng"_s, u"data/text/eng"_s}));
    EXPECT_EQ(chapterTitles(probed), (QStringList{u"Opening"_s, u"Closing"_s}));
    EXPECT_NEAR(probed[u"format"_s].toObject()[u"duration"_s].toString().toDouble(), 4.0, 0.1);
    EXPECT_EQ(
        probed[u"streams"_s].toArray()[2].toObject()[u"tags"_s].toObject()[u"handler_name"_s].toString(),
        u"SubtitleHandler"_s);
    // Our sample description and samples are in the file byte for byte.
    const QByteArray fileBytes = bytesOf(output);
    EXPECT_TRUE(fileBytes.contains(TimedText::tx3gSampleDescription(0)));
    EXPECT_TRUE(fileBytes.contains(TimedText::tx3gSamplePayload(u"Hello"_s, false)));
    // The English track is the cues with empty samples in the gaps, and nothing else.
    EXPECT_EQ(packetsOf(output, 3),
              (QStringList{u"0.000+0.500:2"_s, u"0.500+1.000:7"_s, u"1.500+0.500:2"_s, u"2.000+1.000:7"_s}));
    // Fast start: the index lies before the media data.
    const QStringList boxes = topLevelBoxes(output);
    ASSERT_TRUE(boxes.contains(u"moov"_s) && boxes.contains(u"mdat"_s)) << boxes.join(u' ').toStdString();
    EXPECT_LT(boxes.indexOf(u"moov"_s), boxes.indexOf(u"mdat"_s));

    // Our extractor reads back exactly the non-empty cues.
    std::shared_ptr<const MovieAsset> written = MovieAsset::open(output);
    ASSERT_TRUE(written);
    RecordingExtractorDelegate extracted;
    auto extractor = CTSubtitleExtractor::initWithAsset(written, output, status);
    extractor->setDelegate(&extracted);
    extractor->extractSubtitles(true, true, false);
    waitForExtraction(extracted);
    EXPECT_EQ(cueLines(dir.path(u"movie-Output.en.srt"_s)), cueLines(dir.path(u"movie.en.srt"_s)));
    EXPECT_EQ(cueLines(dir.path(u"movie-Output.de.srt"_s)), cueLines(dir.path(u"movie.de.srt"_s)));
    EXPECT_TRUE(dir.read(u"movie-Output.vtt"_s).contains("Opening"));
}

TEST(Embedder, CandidateRows)
{
    TempDir dir;
    const QString movie = copyInto(dir, Movies::tracks(), u"movie.mp4"_s);
    auto rowsText = [&] {
        QStringList out;
        const std::shared_ptr<CTSubtitleEmbedder> embedder = embedderFor(movie);
        for (const CandidateRow &row : embedder->subtitles())
            out.append(u"%1 %2 %3 %4"_s.arg(row.integrate ? u"+"_s : u"-"_s, row.language, row.source,
                                            row.location));
        return out;
    };
    // Only the movie's own tracks: all of them go in.
    EXPECT_EQ(
        rowsText(),
        (QStringList{u"+ English embedded Movie-Track: 3"_s, u"- English embedded Movie-Track: 4"_s,
                     u"+ Deutsch embedded Movie-Track: 5"_s, u"+ Chapter Marks embedded Movie-Track: 6"_s}));
    // An English file beside the movie replaces its English tracks; a chapter file its chapters.
    writeSubRip(dir.path(u"movie.en.srt"_s), kEnglish);
    dir.write(u"movie.vtt"_s, "WEBVTT\n\n1\n00:00:00.000 --> 00:00:04.000\nAll\n");
    EXPECT_EQ(
        rowsText(),
        (QStringList{u"+ English Subtitle external movie.en.srt"_s, u"- English embedded Movie-Track: 3"_s,
                     u"- English embedded Movie-Track: 4"_s, u"+ Deutsch embedded Movie-Track: 5"_s,
                     u"+ Chapter Marks external movie.vtt"_s, u"- Chapter Marks embedded Movie-Track: 6"_s}));
    EXPECT_FALSE(CTSubtitleEmbedder::integrateLanguage(QString(), {}));
}

TEST(Embedder, CarriesOverTheChosenTracksAndTheMoviesChapters)
{
    TempDir dir;
    const QString movie = copyInto(dir, Movies::tracks(), u"movie.mp4"_s);
    std::shared_ptr<CTSubtitleEmbedder> embedder = embedderFor(movie);
    // The first English track stays out, the second (unchecked as a second English) goes in.
    embedder->subtitles()[0].integrate = false;
    embedder->subtitles()[1].integrate = true;
    RecordingEmbedderDelegate delegate;
    embedder->setDelegate(&delegate);
    auto status = std::make_shared<ProgressStatus>();
    embedder->setStatus(status);
    QList<double> progresses;
    auto token =
        status->observeKey(u"progress"_s, [&](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did)
                progresses.append(status->progress());
        });
    runToEnd(*embedder);
    // The fraction is the mean over all six tracks of the movie, of which only the video and
    // the audio track report: done, it is 2/6.
    ASSERT_GE(progresses.size(), 4);
    EXPECT_DOUBLE_EQ(progresses[progresses.size() - 4], 2.0 / 6.0);
    ASSERT_EQ(delegate.successes, 1);
    const QJsonObject probed = probe(embedder->outputMoviePath());
    EXPECT_EQ(streamSummary(probed),
              (QStringList{u"video/avc1/und"_s, u"audio/mp4a/und"_s, u"subtitle/tx3g/eng"_s,
                           u"subtitle/tx3g/ger"_s, u"data/text/eng"_s}));
    EXPECT_EQ(chapterTitles(probed), (QStringList{u"Intro"_s, u"Main"_s}));
}

TEST(Embedder, MatroskaIsRemuxedWithItsSubRipTrackAsTimedText)
{
    TempDir dir;
    const QString movie = copyInto(dir, Movies::matroska(), u"movie.mkv"_s);
    std::shared_ptr<CTSubtitleEmbedder> embedder = embedderFor(movie);
    RecordingEmbedderDelegate delegate;
    embedder->setDelegate(&delegate);
    runToEnd(*embedder);
    ASSERT_EQ(delegate.successes, 1);
    const QString output = embedder->outputMoviePath();
    const QJsonObject probed = probe(output);
    EXPECT_EQ(streamSummary(probed), (QStringList{u"video/avc1/und"_s, u"audio/mp4a/und"_s,
                                                  u"subtitle/tx3g/eng"_s, u"data/text/eng"_s}));
    EXPECT_EQ(chapterTitles(probed), (QStringList{u"Intro"_s, u"Main"_s}));
    RecordingExtractorDelegate extracted;
    auto extractor = CTSubtitleExtractor::initWithAsset(MovieAsset::open(output), output, nullptr);
    extractor->setDelegate(&extracted);
    extractor->extractSubtitles(true, false, false);
    waitForExtraction(extracted);
    // The muxer moves every track alike so that none starts before 0 (the audio's priming
    // samples start at -23 ms in Matroska): the cues keep their place against the picture.
    const QJsonArray streams = probed[u"streams"_s].toArray();
    const double videoStart = streams[0].toObject()[u"start_time"_s].toString().toDouble();
    const std::optional<SubtitleList> cues =
        VHSubtitle::subtitlesFromFileAtURL(dir.path(u"movie-Output.en.srt"_s));
    ASSERT_TRUE(cues);
    ASSERT_EQ(cues->size(), 2);
    EXPECT_EQ((*cues)[0]->string(), u"Hello"_s);
    EXPECT_EQ((*cues)[1]->string(), u"World"_s);
    EXPECT_NEAR((*cues)[0]->start() - videoStart, 0.5, 0.002);
    EXPECT_NEAR((*cues)[1]->end() - videoStart, 3.0, 0.002);
}

TEST(EmbedderFailure, ExistingOutputFileIsReportedAndKept)
{
    TempDir dir;
    const QString movie = copyInto(dir, Movies::plain(), u"movie.mp4"_s);
    writeSubRip(dir.path(u"movie.en.srt"_s), kEnglish);
    dir.write(u"movie-Output.m4v"_s, "an earlier result");
    std::shared_ptr<CTSubtitleEmbedder> embedder = embedderFor(movie);
    RecordingEmbedderDelegate delegate;
    embedder->setDelegate(&delegate);
    LogCapture log;
    runToEnd(*embedder);
    EXPECT_EQ(delegate.failures, 1);
    EXPECT_EQ(embedder->status()->progress(), ProgressStatus::Failed);
    EXPECT_EQ(embedder->status()->message(), u"Failed: movie-Output.m4v exists"_s);
    EXPECT_EQ(log.count(u"Warning: Asset writer failed to start writing: File exists"_s), 1);
    EXPECT_EQ(dir.read(u"movie-Output.m4v"_s), QByteArray("an earlier result"));
    EXPECT_EQ(bytesOf(movie), bytesOf(Movies::plain()));
}

TEST(EmbedderFailure, BrokenSubtitleFileAsksToContinueOrCancel)
{
    for (int answer : {0, 1}) {
        TempDir dir;
        const QString movie = copyInto(dir, Movies::plain(), u"movie.mp4"_s);
        writeSubRip(dir.path(u"movie.en.srt"_s), kEnglish);
        dir.write(u"movie.fr.srt"_s, "this is no subtitle file\n");
        std::shared_ptr<CTSubtitleEmbedder> embedder = embedderFor(movie);
        RecordingEmbedderDelegate delegate;
        embedder->setDelegate(&delegate);
        ScriptedPrompter prompter;
        prompter.answers = {PromptAnswer{answer}};
        ScopedPrompter scoped(&prompter);
        LogCapture log;
        runToEnd(*embedder);
        ASSERT_EQ(prompter.prompts.size(), 1);
        EXPECT_EQ(prompter.prompts[0].message, u"Subtitle 'movie.fr.srt' cannot be embedded (file or "
                                               u"structure broken).\n Do you want to continue "
                                               "embedding without this subtitle"_s);
        EXPECT_EQ(prompter.prompts[0].buttons, (QStringList{u"Continue"_s, u"Cancel"_s}));
        EXPECT_EQ(log.count(u"Error: Subtitle %1 cannot be embedded!"_s.arg(dir.path(u"movie.fr.srt"_s))), 1);
        if (answer == 0) {
            EXPECT_EQ(delegate.successes, 1);
            EXPECT_EQ(streamSummary(probe(embedder->outputMoviePath())),
                      (QStringList{u"video/avc1/und"_s, u"audio/mp4a/und"_s, u"subtitle/tx3g/eng"_s}));
        } else {
            EXPECT_EQ(delegate.successes + delegate.failures, 0);
            EXPECT_EQ(embedder->status()->progress(), ProgressStatus::Stopped);
            EXPECT_FALSE(QFileInfo::exists(embedder->outputMoviePath()));
            EXPECT_FALSE(embedder->isWorking());
        }
        EXPECT_EQ(bytesOf(movie), bytesOf(Movies::plain()));
    }
}

TEST(EmbedderFailure, UnreadableAndTruncatedMovies)
{
    TempDir dir;
    LogCapture log;
    const QString text = dir.write(u"text.mp4"_s, "not a movie at all\n");
    QString error;
    EXPECT_FALSE(MovieAsset::open(text, &error));
    EXPECT_FALSE(error.isEmpty());
    std::shared_ptr<CTSubtitleEmbedder> unreadable = CTSubtitleEmbedder::initWithAsset(nullptr, text, 25);
    runToEnd(*unreadable);
    EXPECT_EQ(unreadable->status()->progress(), ProgressStatus::Failed);
    EXPECT_TRUE(log.lines().last().startsWith(u"error creating asset reader. exiting: "_s));
    EXPECT_FALSE(QFileInfo::exists(unreadable->outputMoviePath()));

    // Cut in the middle of its media data: the index is there, half the samples are not.
    const QString faststart = dir.path(u"cut.mp4"_s);
    ffmpeg({u"-i"_s, Movies::longer(), u"-c"_s, u"copy"_s, u"-movflags"_s, u"+faststart"_s, faststart});
    QFile file(faststart);
    ASSERT_TRUE(file.resize(file.size() / 2));
    const QByteArray cut = bytesOf(faststart);
    std::shared_ptr<CTSubtitleEmbedder> truncated = embedderFor(faststart);
    RecordingEmbedderDelegate delegate;
    truncated->setDelegate(&delegate);
    runToEnd(*truncated);
    EXPECT_EQ(delegate.failures, 1);
    EXPECT_EQ(truncated->status()->progress(), ProgressStatus::Failed);
    EXPECT_EQ(truncated->status()->message(), u"Failed: Broken Data"_s);
    EXPECT_FALSE(QFileInfo::exists(truncated->outputMoviePath()));
    EXPECT_EQ(bytesOf(faststart), cut);
}

TEST(EmbedderFailure, CodecsMP4CannotCarryAreNamed)
{
    TempDir dir;
    const QString movie = copyInto(dir, Movies::pcm(), u"movie.mkv"_s);
    std::shared_ptr<CTSubtitleEmbedder> embedder = embedderFor(movie);
    RecordingEmbedderDelegate delegate;
    embedder->setDelegate(&delegate);
    LogCapture log;
    runToEnd(*embedder);
    EXPECT_EQ(delegate.failures, 1);
    EXPECT_EQ(
        embedder->status()->errorMessage(),
        u"Movie-Track: 2 cannot be written into an M4V movie: its codec pcm_s16le is not one MP4 can carry"_s);
    EXPECT_FALSE(QFileInfo::exists(embedder->outputMoviePath()));
}

TEST(EmbedderFailure, CancelMidRunLeavesNoOutput)
{
    TempDir dir;
    const QString movie = copyInto(dir, Movies::longer(), u"movie.mp4"_s);
    writeSubRip(dir.path(u"movie.en.srt"_s), kEnglish);
    std::shared_ptr<CTSubtitleEmbedder> embedder = embedderFor(movie);
    RecordingEmbedderDelegate delegate;
    embedder->setDelegate(&delegate);
    auto status = std::make_shared<ProgressStatus>();
    embedder->setStatus(status);
    // The run starts inside createM4V(); the cancel reaches the writer thread while it copies.
    bool cancelled = false;
    auto token =
        status->observeKey(u"progress"_s, [&](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did && status->progress() == 0 && !cancelled) {
                cancelled = true;
                MainQueue::main().post([status] { status->cancel(); });
            }
        });
    runToEnd(*embedder);
    EXPECT_TRUE(cancelled);
    EXPECT_EQ(delegate.successes + delegate.failures, 0);
    EXPECT_EQ(status->progress(), ProgressStatus::Stopped);
    EXPECT_FALSE(QFileInfo::exists(embedder->outputMoviePath()));
    EXPECT_EQ(bytesOf(movie), bytesOf(Movies::longer()));
}

TEST(EmbeddingFinished, KeepsTheOriginalAndMovesTheResult)
{
    TempDir dir;
    dir.write(u"Film.mp4"_s, "source");
    dir.write(u"Film-Output.m4v"_s, "first result");
    EXPECT_EQ(moveEmbeddedMovieIntoPlace(dir.path(u"Film.mp4"_s), dir.path(u"Film-Output.m4v"_s)),
              dir.path(u"Film.m4v"_s));
    EXPECT_EQ(dir.entries(), (QStringList{u"Film Original.mp4"_s, u"Film.m4v"_s}));
    EXPECT_EQ(dir.read(u"Film Original.mp4"_s), QByteArray("source"));

    // Embedding Film.m4v again: the first original survives, Film.m4v is replaced.
    dir.write(u"Film Original.m4v"_s, "older original");
    dir.write(u"Film-Output.m4v"_s, "second result");
    EXPECT_EQ(moveEmbeddedMovieIntoPlace(dir.path(u"Film.m4v"_s), dir.path(u"Film-Output.m4v"_s)),
              dir.path(u"Film.m4v"_s));
    EXPECT_EQ(dir.read(u"Film.m4v"_s), QByteArray("second result"));
    EXPECT_EQ(dir.read(u"Film Original.m4v"_s), QByteArray("older original"));

    LogCapture log;
    EXPECT_EQ(moveEmbeddedMovieIntoPlace(dir.path(u"Film.m4v"_s), dir.path(u"missing.m4v"_s)), QString());
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].startsWith(
        u"Warning: Movie with embedded subtitles could not be renamed, because "_s));
    EXPECT_TRUE(
        log.lines()[0].endsWith(u"\n%1 --> %2"_s.arg(dir.path(u"missing.m4v"_s), dir.path(u"Film.m4v"_s))));
}

TEST(EmbeddingFinished, ProjectState)
{
    TempDir dir;
    CTWindowController project(nullptr, nullptr);
    project.setMovieInfo(dir.path(u"Film.mp4"_s), 1, 25, 4);
    subtitleEmbedderStarted(project, dir.path(u"Other.mp4"_s));
    EXPECT_EQ(project.embeddingState(), 0);
    subtitleEmbedderStarted(project, dir.path(u"Film.mp4"_s));
    EXPECT_EQ(project.embeddingState(), 1);
    EXPECT_EQ(
        subtitleEmbedderDidFinish(project, dir.path(u"Film.mp4"_s), dir.path(u"Film-Output.m4v"_s), false),
        QString());
    EXPECT_EQ(project.embeddingState(), 2);

    // Success on the movie being edited: state 0, the renames, the notice and the reload.
    dir.write(u"Film.mp4"_s, "source");
    dir.write(u"Film-Output.m4v"_s, "result");
    project.setEmbeddingState(1);
    ScriptedPrompter prompter;
    ScopedPrompter scoped(&prompter);
    EXPECT_EQ(
        subtitleEmbedderDidFinish(project, dir.path(u"Film.mp4"_s), dir.path(u"Film-Output.m4v"_s), true),
        dir.path(u"Film.m4v"_s));
    EXPECT_EQ(project.embeddingState(), 0);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message,
              u"Finished embedding the file you are currently editing. We need to reload "
              "the file to avoid conflicts."_s);
    EXPECT_EQ(project.moviePath(), dir.path(u"Film.m4v"_s));
    EXPECT_EQ(dir.entries(), (QStringList{u"Film Original.mp4"_s, u"Film.m4v"_s}));
}
