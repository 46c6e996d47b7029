// captora-cli speech: the speech segments of a movie for scripts.
#include "TestSupport.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct SpeechRun
{
    int status = -1;
    QByteArray out, err;
};

SpeechRun run(const QString &program, const QStringList &args, const QString &cacheHome = {})
{
    QProcess process;
    if (!cacheHome.isEmpty()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CACHE_HOME"_s, cacheHome);
        process.setProcessEnvironment(environment);
    }
    process.start(program, args);
    process.closeWriteChannel();
    if (!process.waitForFinished(120000))
        ADD_FAILURE() << program.toStdString() << " did not finish";
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

// "Hello there" from 1.5 s and "good morning" from 5 s in an 8-second movie with a stereo track.
QString makeSpeechMovie(const TempDir &dir)
{
    const QString movie = dir.path(u"talk.mkv"_s);
    for (const auto &[name, text] : {std::pair{u"a.wav"_s, u"Hello there, how are you?"_s},
                                     std::pair{u"b.wav"_s, u"Good morning to you all."_s}}) {
        const SpeechRun spoken = run(u"espeak-ng"_s, {u"-w"_s, dir.path(name), text});
        EXPECT_EQ(spoken.status, 0) << spoken.err.toStdString();
    }
    const SpeechRun made = run(
        u"ffmpeg"_s,
        QStringList{
            u"-v"_s,
            u"error"_s,
            u"-f"_s,
            u"lavfi"_s,
            u"-i"_s,
            u"testsrc=d=8:s=160x120:r=25"_s,
            u"-i"_s,
            dir.path(u"a.wav"_s),
            u"-i"_s,
            dir.path(u"b.wav"_s),
            u"-filter_complex"_s,
            u"[1:a]adelay=1500|1500,apad[a];[2:a]adelay=5000|5000,apad[b];[a][b]amix=inputs=2:normalize=0,"
            "atrim=0:8,aresample=48000[s]"_s,
            u"-map"_s,
            u"0:v"_s,
            u"-map"_s,
            u"[s]"_s,
            u"-c:v"_s,
            u"mpeg4"_s,
            u"-c:a"_s,
            u"aac"_s,
            u"-ac"_s,
            u"2"_s,
            u"-t"_s,
            u"8"_s,
            movie});
    EXPECT_EQ(made.status, 0) << made.err.toStdString();
    return movie;
}
} // namespace

TEST(CliSpeech, PrintsTheSegmentsAsLinesOrJsonAndCachesThem)
{
    TempDir dir;
    const QString movie = makeSpeechMovie(dir);
    const QString cacheHome = dir.path(u"cache"_s);
    const QString cli = QStringLiteral(CAPTORA_CLI);

    const SpeechRun lines = run(cli, {u"speech"_s, movie}, cacheHome);
    EXPECT_EQ(lines.status, 0) << lines.err.toStdString();
    EXPECT_EQ(lines.err, QByteArray());
    const QList<QByteArray> rows = lines.out.trimmed().split('\n');
    ASSERT_EQ(rows.size(), 2) << lines.out.toStdString();
    // espeak-ng starts each text after a few milliseconds of its own silence.
    EXPECT_NEAR(rows[0].split('\t').value(0).toDouble(), 1.5, 0.1) << rows[0].toStdString();
    EXPECT_NEAR(rows[1].split('\t').value(0).toDouble(), 5.0, 0.1) << rows[1].toStdString();
    EXPECT_GT(rows[0].split('\t').value(1).toDouble(), 2.5);
    // The analysis is cached under $XDG_CACHE_HOME/captora/ and gives the same answer again.
    EXPECT_EQ(QDir(cacheHome + u"/captora"_s).entryList(QDir::Files).size(), 1);

    const SpeechRun json = run(cli, {u"speech"_s, u"--json"_s, movie}, cacheHome);
    EXPECT_EQ(json.status, 0);
    const QJsonObject object = QJsonDocument::fromJson(json.out).object();
    EXPECT_NEAR(object[u"duration"_s].toDouble(), 8.0, 0.05);
    const QJsonArray segments = object[u"segments"_s].toArray();
    ASSERT_EQ(segments.size(), 2) << json.out.toStdString();
    EXPECT_EQ(QByteArray::number(segments[0].toObject()[u"start"_s].toDouble(), 'f', 2) + '\t' +
                  QByteArray::number(segments[0].toObject()[u"end"_s].toDouble(), 'f', 2),
              rows[0]);

    // The first audio track is the only one; there is no second.
    EXPECT_EQ(run(cli, {u"speech"_s, u"--no-cache"_s, u"--track"_s, u"1"_s, movie}).out, lines.out);
    const SpeechRun second = run(cli, {u"speech"_s, u"--no-cache"_s, u"--track"_s, u"2"_s, movie});
    EXPECT_EQ(second.status, 1);
    EXPECT_EQ(second.out, QByteArray());
    EXPECT_EQ(second.err,
              "Info: The sound of \"" + movie.toUtf8() + "\" cannot be analysed: it has no audio track 2.\n");
}

TEST(CliSpeech, UsageErrorsAndFilesThatAreNoMovies)
{
    TempDir dir;
    const QString cli = QStringLiteral(CAPTORA_CLI);
    for (const QStringList &args : {QStringList{u"speech"_s}, QStringList{u"speech"_s, u"a"_s, u"b"_s},
                                    QStringList{u"speech"_s, u"--track"_s, u"0"_s, u"a"_s},
                                    QStringList{u"speech"_s, u"--threads"_s, u"many"_s, u"a"_s}}) {
        const SpeechRun usage = run(cli, args);
        EXPECT_EQ(usage.status, 2) << args.join(u' ').toStdString();
    }
    const QString text = dir.write(u"notes.mp4"_s, "not a movie\n");
    const SpeechRun broken = run(cli, {u"speech"_s, u"--json"_s, u"--no-cache"_s, text});
    EXPECT_EQ(broken.status, 1);
    EXPECT_EQ(broken.out, "{\"duration\": 0, \"segments\": []}\n");
    EXPECT_TRUE(broken.err.startsWith(
        QByteArray("Info: The sound of \"" + text.toUtf8() + "\" cannot be analysed: ")))
        << broken.err.toStdString();
    EXPECT_EQ(broken.err.count('\n'), 1);
    const SpeechRun missing = run(cli, {u"speech"_s, dir.path(u"gone.mkv"_s)});
    EXPECT_EQ(missing.status, 1);
    EXPECT_TRUE(missing.err.startsWith("Error: Could not read ")) << missing.err.toStdString();
}
