// Damaged movies: embedding asks before it writes what can be read, extraction says what it
// could not read and never writes an impossible time or an empty file, and an output without
// the movie's picture never takes the movie's place.
#include "CTSubtitleEmbedder.h"
#include "CTSubtitleExtractor.h"
#include "EmbeddingFinished.h"
#include "Log.h"
#include "MovieTestSupport.h"
#include "TestSupport.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

// A 6-second Matroska movie (150 frames, a cluster per second) whose middle cluster is
// overwritten: the demuxer skips it with only a logged error.
QString brokenMatroska(const TempDir &dir)
{
    const QString movie = dir.path(u"broken.mkv"_s);
    ffmpeg(clipInputs(6) + clipCodecs() + QStringList{u"-g"_s, u"25"_s, movie});
    QByteArray bytes = bytesOf(movie);
    QList<qsizetype> clusters;
    for (qsizetype at = bytes.indexOf("\x1f\x43\xb6\x75"); at >= 0;
         at = bytes.indexOf("\x1f\x43\xb6\x75", at + 1))
        clusters.append(at);
    EXPECT_GE(clusters.size(), 4);
    bytes.replace(clusters[clusters.size() / 2], 64, QByteArray(64, '\xff'));
    writeBytes(movie, bytes);
    return movie;
}

// An MP4 movie whose video track lost a mandatory sample table: the demuxer keeps the
// track without a single sample.
QString brokenSampleTables(const TempDir &dir, const QString &name)
{
    const QString movie = dir.path(name);
    ffmpeg(clipInputs(2) + clipCodecs() + QStringList{movie});
    QByteArray bytes = bytesOf(movie);
    const qsizetype stsc = bytes.indexOf("stsc");
    EXPECT_GT(stsc, 0);
    bytes.replace(stsc, 4, "xxxx");
    writeBytes(movie, bytes);
    return movie;
}

int videoPackets(const QString &path)
{
    int count = 0;
    for (const QJsonValue &value : probe(path)[u"streams"_s].toArray())
        if (value.toObject()[u"codec_type"_s].toString() == u"video"_s)
            count += 1;
    return count;
}

std::shared_ptr<CTSubtitleEmbedder> embedderFor(const QString &movie)
{
    std::shared_ptr<const MovieAsset> asset = MovieAsset::open(movie);
    EXPECT_TRUE(asset);
    return CTSubtitleEmbedder::initWithAsset(asset, movie, asset ? asset->fps() : 25);
}
} // namespace

TEST(DamagedMovies, EmbeddingAsksContinueOrCancel)
{
    TempDir dir;
    const QString matroska = brokenMatroska(dir);
    const QString mp4 = brokenSampleTables(dir, u"tables.mp4"_s);
    writeSubRip(dir.path(u"broken.en.srt"_s), {{0.5, 1.5, u"Hello"_s}});
    writeSubRip(dir.path(u"tables.en.srt"_s), {{0.5, 1.5, u"Hello"_s}});
    for (const QString &movie : {matroska, mp4}) {
        const QByteArray source = bytesOf(movie);
        for (int answer : {1, 0}) {
            SCOPED_TRACE(movie.toStdString() + (answer ? " Cancel" : " Continue"));
            std::shared_ptr<CTSubtitleEmbedder> embedder = embedderFor(movie);
            RecordingEmbedderDelegate delegate;
            embedder->setDelegate(&delegate);
            ScriptedPrompter prompter;
            prompter.answers = {PromptAnswer{answer}};
            ScopedPrompter scoped(&prompter);
            LogCapture log;
            runToEnd(*embedder);
            ASSERT_EQ(prompter.prompts.size(), 1);
            EXPECT_TRUE(CTSubtitleEmbedder::isDamagedMovieQuestion(prompter.prompts[0]));
            EXPECT_TRUE(prompter.prompts[0].message.startsWith(
                u"The movie '%1' is damaged: "_s.arg(QFileInfo(movie).fileName())))
                << prompter.prompts[0].message.toStdString();
            EXPECT_EQ(prompter.prompts[0].buttons, (QStringList{u"Continue"_s, u"Cancel"_s}));
            if (answer == 1) {
                EXPECT_EQ(delegate.failures, 1);
                EXPECT_EQ(embedder->status()->progress(), ProgressStatus::Failed);
                EXPECT_EQ(embedder->status()->message(), u"Failed: Broken Data"_s);
                EXPECT_FALSE(QFileInfo::exists(embedder->outputMoviePath()));
            } else {
                EXPECT_EQ(delegate.successes, 1);
                EXPECT_TRUE(QFileInfo::exists(embedder->outputMoviePath()));
                QFile::remove(embedder->outputMoviePath());
            }
            // Nothing of ours is left beside the movie, and the movie is as it was.
            for (const QString &name : dir.entries())
                EXPECT_FALSE(name.endsWith(u".part"_s)) << name.toStdString();
            EXPECT_EQ(bytesOf(movie), source);
        }
    }

    // Accepted without asking, with a warning.
    std::shared_ptr<CTSubtitleEmbedder> embedder = embedderFor(matroska);
    embedder->setAcceptDamaged(true);
    RecordingEmbedderDelegate delegate;
    embedder->setDelegate(&delegate);
    ScriptedPrompter prompter;
    ScopedPrompter scoped(&prompter);
    LogCapture log;
    runToEnd(*embedder);
    EXPECT_EQ(delegate.successes, 1);
    EXPECT_TRUE(prompter.prompts.isEmpty());
    ASSERT_FALSE(log.lines().isEmpty());
    EXPECT_TRUE(log.lines().last().startsWith(u"Warning: Embedding the damaged movie "_s))
        << log.lines().join(u'\n').toStdString();
}

// With an earlier original kept, the renaming step deletes the movie: it must never do so
// for an output that lacks the movie's video.
TEST(DamagedMovies, OutputWithoutTheVideoNeverReplacesTheMovie)
{
    TempDir dir;
    const QString movie = dir.path(u"Film.mp4"_s);
    ffmpeg(clipInputs(1) + clipCodecs() + QStringList{movie});
    const QByteArray source = bytesOf(movie);
    dir.write(u"Film Original.mp4"_s, "the first original");
    // Sound only: what a movie whose picture could not be read gives.
    ffmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=d=1"_s, u"-c:a"_s, u"aac"_s, u"-f"_s, u"mp4"_s,
            dir.path(u"Film-Output.m4v"_s)});
    ASSERT_EQ(videoPackets(dir.path(u"Film-Output.m4v"_s)), 0);
    LogCapture log;
    EXPECT_EQ(moveEmbeddedMovieIntoPlace(movie, dir.path(u"Film-Output.m4v"_s)), QString());
    EXPECT_EQ(bytesOf(movie), source);
    EXPECT_EQ(dir.entries(), (QStringList{u"Film Original.mp4"_s, u"Film-Output.m4v"_s, u"Film.mp4"_s}));
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].contains(u"it lacks the movie's video"_s)) << log.lines()[0].toStdString();

    // A free name is needed too: an existing Film.m4v is neither replaced nor is the movie
    // renamed first.
    QFile::remove(dir.path(u"Film Original.mp4"_s));
    QFile::copy(movie, dir.path(u"Film-Output.m4v"_s + u".tmp"_s));
    QFile::remove(dir.path(u"Film-Output.m4v"_s));
    QFile::rename(dir.path(u"Film-Output.m4v.tmp"_s), dir.path(u"Film-Output.m4v"_s));
    dir.write(u"Film.m4v"_s, "someone's file");
    EXPECT_EQ(moveEmbeddedMovieIntoPlace(movie, dir.path(u"Film-Output.m4v"_s)), QString());
    EXPECT_EQ(dir.entries(), (QStringList{u"Film-Output.m4v"_s, u"Film.m4v"_s, u"Film.mp4"_s}));
    EXPECT_EQ(dir.read(u"Film.m4v"_s), QByteArray("someone's file"));
}

// A movie cut short gives the cues that could be read, with a warning, and says so; its
// damaged chapter list gives no impossible time.
TEST(DamagedMovies, ExtractionWarnsAndWritesOnlyPossibleTimes)
{
    TempDir dir;
    const QString srt = writeSubRip(dir.path(u"cues.srt"_s),
                                    {{0.5, 1.0, u"One"_s}, {2.0, 3.0, u"Two"_s}, {5.0, 5.8, u"Three"_s}});
    const QString movie = dir.path(u"movie.mp4"_s);
    ffmpeg(clipInputs(6) + QStringList{u"-i"_s, srt} + u"-map 0 -map 1 -map 2"_s.split(u' ') + clipCodecs() +
           u"-c:s mov_text -metadata:s:s:0 language=eng -movflags +faststart"_s.split(u' ') +
           QStringList{movie});
    QByteArray bytes = bytesOf(movie);
    writeBytes(movie, bytes.left(bytes.size() * 2 / 3));

    LogCapture log;
    bool damaged = false;
    const QString out = dir.path(u"movie.en.srt"_s);
    CTSubtitleExtractor::extractTextTrack(movie, 3, out, true, &damaged);
    EXPECT_TRUE(damaged);
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].startsWith(u"Warning: Reading Movie-Track: 3 of "_s))
        << log.lines()[0].toStdString();
    EXPECT_TRUE(log.lines()[0].contains(u"holds what could be read"_s));
    const QStringList cues = cueLines(out);
    EXPECT_EQ(cues.mid(0, 2), (QStringList{u"0.500-1.000 One"_s, u"2.000-3.000 Two"_s}));
    EXPECT_LT(cues.size(), 3);

    // Times no file could hold are left out: a Matroska chapter whose start has its top
    // byte damaged reads as -7,199,254 s (it was written as "-2000:12:25.259").
    const QString chapters =
        dir.write(u"chapters.txt"_s, ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\n"
                                     "END=1000\ntitle=Good\n[CHAPTER]\nTIMEBASE=1/1\n"
                                     "START=9000000000\nEND=9000000001\ntitle=Bad\n");
    const QString marked = dir.path(u"marked.mkv"_s);
    ffmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=d=2:s=64x48:r=10"_s, u"-i"_s, chapters, u"-map"_s, u"0"_s,
            u"-map_chapters"_s, u"1"_s, u"-c:v"_s, u"libx264"_s, u"-preset"_s, u"ultrafast"_s, marked});
    QByteArray chapterBytes = bytesOf(marked);
    // ChapterTimeStart (0x91), 8 bytes: 9e18 ns.
    const QByteArray start = QByteArray::fromHex("91887ce66c50e2840000");
    const qsizetype at = chapterBytes.indexOf(start);
    ASSERT_GT(at, 0);
    chapterBytes[at + 2] = char(0xff);
    writeBytes(marked, chapterBytes);
    log.clear();
    damaged = false;
    EXPECT_TRUE(CTSubtitleExtractor::extractTextTrack(marked, 0, dir.path(u"marked.vtt"_s), false, &damaged));
    EXPECT_TRUE(damaged);
    const QByteArray vtt = dir.read(u"marked.vtt"_s);
    EXPECT_TRUE(vtt.contains("00:00:00.000 --> 00:00:01.000\nGood")) << vtt.toStdString();
    EXPECT_FALSE(vtt.contains("Bad")) << vtt.toStdString();
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].contains(u"samples with impossible times were left out: 1"_s))
        << log.lines()[0].toStdString();
}

// SubStationAlpha tracks come out as their dialogue text; picture subtitles are skipped with
// one line; a track without text writes an empty file.
TEST(DamagedMovies, SubStationAlphaAndPictureSubtitles)
{
    TempDir dir;
    const QString ass = dir.write(
        u"styled.ass"_s,
        "[Script Info]\nScriptType: v4.00+\n\n[V4+ Styles]\nFormat: Name, Fontname, Fontsize, PrimaryColour, "
        "SecondaryColour, OutlineColour, BackColour, Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, "
        "Spacing, Angle, BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, Encoding\n"
        "Style: Default,Arial,20,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,100,0,0,1,2,0,2,10,"
        "10,10,1\n\n[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, "
        "Text\n"
        "Dialogue: 0,0:00:00.50,0:00:01.50,Default,,0,0,0,,{\\i1}Hello{\\i0}, you\\Nthere\n"
        "Dialogue: 0,0:00:02.00,0:00:03.00,Default,,0,0,0,,{\\pos(10,10)}Second\n");
    // A picture subtitle stream (PGS) of two empty display sets, written by hand.
    auto segment = [](quint8 type, const QByteArray &payload, quint32 pts) -> QByteArray {
        QByteArray out("PG");
        for (int shift : {24, 16, 8, 0})
            out.append(char(pts >> shift));
        out.append(QByteArray(4, '\0')).append(char(type));
        out.append(char(payload.size() >> 8)).append(char(payload.size()));
        return out + payload;
    };
    const QByteArray composition("\x00\x40\x00\x30\x10\x00\x00\x80\x00\x00\x00", 11);
    const QString sup =
        dir.write(u"pictures.sup"_s, segment(0x16, composition, 90000) + segment(0x80, {}, 90000));
    const QString movie = dir.path(u"movie.mkv"_s);
    // Picture only: an audio track's priming would move every time by its delay.
    ffmpeg(
        QStringList{u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=d=4:s=160x120:r=25"_s, u"-i"_s, ass, u"-f"_s,
                    u"sup"_s, u"-i"_s, sup} +
        u"-map 0 -map 1 -map 2 -c:v libx264 -preset ultrafast"_s.split(u' ') +
        u"-c:s:0 copy -c:s:1 copy -metadata:s:s:0 language=eng -metadata:s:s:1 language=ger"_s.split(u' ') +
        QStringList{movie});

    LogCapture log;
    RecordingExtractorDelegate delegate;
    auto extractor = CTSubtitleExtractor::initWithAsset(MovieAsset::open(movie), movie, nullptr);
    extractor->setDelegate(&delegate);
    extractor->extractSubtitles(true, false, false);
    waitForExtraction(delegate);
    EXPECT_EQ(extractor->queuedPaths(), (QStringList{dir.path(u"movie.en.srt"_s)}));
    EXPECT_EQ(cueLines(dir.path(u"movie.en.srt"_s)),
              (QStringList{u"0.500-1.500 Hello, you\nthere"_s, u"2.000-3.000 Second"_s}));
    EXPECT_EQ(log.lines(), (QStringList{u"Info: Movie-Track: 3 holds picture subtitles (hdmv_pgs_subtitle), "
                                        "which cannot be extracted as text"_s}));
    EXPECT_EQ(extractor->damagedTracks(), 0);
    EXPECT_FALSE(QFileInfo::exists(dir.path(u"movie.de.srt"_s)));

    // A track that gives no text still writes its file, empty, and is no damage.
    log.clear();
    bool damaged = true;
    EXPECT_TRUE(CTSubtitleExtractor::extractTextTrack(movie, 1, dir.path(u"video.srt"_s), true, &damaged));
    EXPECT_FALSE(damaged);
    EXPECT_TRUE(QFileInfo::exists(dir.path(u"video.srt"_s)));
    EXPECT_EQ(dir.read(u"video.srt"_s), QByteArray());
    EXPECT_TRUE(log.lines().isEmpty()) << log.lines().join(u'\n').toStdString();
}
