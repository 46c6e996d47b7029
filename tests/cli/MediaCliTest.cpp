// captora-cli's movie commands: tracks, embed, extract.
#include "TestSupport.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QThread>

#include <csignal>
#include <signal.h>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct ToolRun
{
    int status = -1;
    QByteArray out, err;
};

ToolRun run(const QString &program, const QStringList &args)
{
    QProcess process;
    process.start(program, args);
    process.closeWriteChannel();
    if (!process.waitForFinished(60000))
        ADD_FAILURE() << program.toStdString() << " did not finish";
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

ToolRun cli(const QStringList &args)
{
    return run(QStringLiteral(CAPTORA_CLI), args);
}

// A 2-second clip with an English subtitle track.
QString makeMovie(const TempDir &dir)
{
    const QString srt = dir.write(u"track.srt"_s, "1\n00:00:00,500 --> 00:00:01,500\nInside\n");
    const QString movie = dir.path(u"movie.mp4"_s);
    const ToolRun made = run(
        u"ffmpeg"_s, u"-v error -f lavfi -i testsrc=d=2:s=160x120:r=25 -f lavfi -i sine=d=2"_s.split(u' ') +
                         QStringList{u"-i"_s, srt} +
                         u"-map 0 -map 1 -map 2 -c:v libx264 -preset ultrafast -c:a aac -c:s mov_text "
                         "-metadata:s:s:0 language=eng"_s.split(u' ') +
                         QStringList{movie});
    EXPECT_EQ(made.status, 0) << made.err.toStdString();
    QFile::remove(srt);
    return movie;
}
} // namespace

TEST(CliMovies, TracksEmbedAndExtract)
{
    TempDir dir;
    const QString movie = makeMovie(dir);
    dir.write(u"movie.de.srt"_s, "1\n00:00:00,200 --> 00:00:01,000\nDraußen\n");

    const ToolRun tracks = cli({u"tracks"_s, movie});
    ASSERT_EQ(tracks.status, 0) << tracks.err.toStdString();
    const QJsonArray rows = QJsonDocument::fromJson(tracks.out).array();
    ASSERT_EQ(rows.size(), 2) << tracks.out.toStdString();
    EXPECT_EQ(rows[0][u"location"_s].toString(), u"movie.de.srt"_s);
    EXPECT_EQ(rows[0][u"path"_s].toString(), dir.path(u"movie.de.srt"_s));
    EXPECT_EQ(rows[1][u"source"_s].toString(), u"embedded"_s);
    EXPECT_EQ(rows[1][u"trackID"_s].toInt(), 3);
    EXPECT_TRUE(rows[1][u"integrate"_s].toBool());

    // Without a terminal progress comes as plain percentage lines.
    const ToolRun embedded = cli({u"embed"_s, u"--exclude"_s, u"1"_s, u"--replace"_s, movie});
    ASSERT_EQ(embedded.status, 0) << embedded.err.toStdString();
    EXPECT_EQ(embedded.out, dir.path(u"movie.m4v"_s).toUtf8() + '\n');
    EXPECT_TRUE(embedded.err.contains("0%\n")) << embedded.err.toStdString();
    EXPECT_EQ(dir.entries(), (QStringList{u"movie Original.mp4"_s, u"movie.de.srt"_s, u"movie.m4v"_s}));

    QFile::remove(dir.path(u"movie.de.srt"_s));
    const ToolRun extracted = cli({u"extract"_s, dir.path(u"movie.m4v"_s)});
    ASSERT_EQ(extracted.status, 0) << extracted.err.toStdString();
    EXPECT_EQ(extracted.out, dir.path(u"movie.de.srt"_s).toUtf8() + '\n');
    EXPECT_TRUE(dir.read(u"movie.de.srt"_s).contains("Draußen"));

    // An existing file is not overwritten without an answer, and the run fails naming the
    // option; --only-missing keeps it quietly.
    const ToolRun asked = cli({u"extract"_s, dir.path(u"movie.m4v"_s)});
    EXPECT_EQ(asked.status, 1);
    EXPECT_TRUE(asked.err.contains("A subtitle with the name 'movie.de.srt' already exists"))
        << asked.err.toStdString();
    EXPECT_TRUE(asked.err.contains("--only-missing"));
    const ToolRun quiet = cli({u"extract"_s, u"--only-missing"_s, dir.path(u"movie.m4v"_s)});
    EXPECT_EQ(quiet.status, 0);
    EXPECT_TRUE(quiet.err.isEmpty()) << quiet.err.toStdString();
}

TEST(CliMovies, FailuresExitWithOne)
{
    TempDir dir;
    const QString movie = makeMovie(dir);
    const QString notMovie = dir.write(u"notes.mp4"_s, "plain text\n");
    const ToolRun unreadable = cli({u"embed"_s, notMovie});
    EXPECT_EQ(unreadable.status, 1);
    EXPECT_TRUE(unreadable.err.contains("Error: Could not read the movie")) << unreadable.err.toStdString();

    dir.write(u"movie-Output.m4v"_s, "keep");
    const ToolRun exists = cli({u"embed"_s, movie});
    EXPECT_EQ(exists.status, 1);
    EXPECT_TRUE(exists.err.contains("Error: Failed: movie-Output.m4v exists")) << exists.err.toStdString();
    EXPECT_EQ(dir.read(u"movie-Output.m4v"_s), QByteArray("keep"));

    const ToolRun badRow = cli({u"embed"_s, u"--exclude"_s, u"7"_s, movie});
    EXPECT_EQ(badRow.status, 2);
    const ToolRun badInclude = cli({u"embed"_s, u"--include"_s, u"x"_s, movie});
    EXPECT_EQ(badInclude.status, 2);
}

// `embed --replace` when Film.m4v exists: nothing is renamed, the exit status says it failed.
TEST(CliMovies, ReplaceOntoAnExistingMovieFails)
{
    TempDir dir;
    const QString movie = makeMovie(dir);
    dir.write(u"movie.m4v"_s, "someone's movie");
    const ToolRun embedded = cli({u"embed"_s, u"--replace"_s, movie});
    EXPECT_EQ(embedded.status, 1) << embedded.err.toStdString();
    EXPECT_TRUE(embedded.err.contains("Error: The embedded movie stays at")) << embedded.err.toStdString();
    EXPECT_EQ(dir.read(u"movie.m4v"_s), QByteArray("someone's movie"));
    EXPECT_EQ(dir.entries(), (QStringList{u"movie-Output.m4v"_s, u"movie.m4v"_s, u"movie.mp4"_s}));
}

// A damaged movie fails naming the option that embeds it anyway; with the option the output
// is written, but with --replace it never takes the movie's place when it lacks the video.
TEST(CliMovies, DamagedMovieNeedsAcceptDamaged)
{
    TempDir dir;
    const QString movie = makeMovie(dir);
    QFile file(movie);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QByteArray bytes = file.readAll();
    // The video track loses a mandatory sample table.
    bytes.replace(bytes.indexOf("stsc"), 4, "xxxx");
    file.seek(0);
    file.write(bytes);
    file.close();
    const ToolRun refused = cli({u"embed"_s, movie});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.contains("The movie 'movie.mp4' is damaged: ")) << refused.err.toStdString();
    EXPECT_TRUE(refused.err.contains("--accept-damaged")) << refused.err.toStdString();
    EXPECT_EQ(dir.entries(), (QStringList{u"movie.mp4"_s}));

    dir.write(u"movie Original.mp4"_s, "the first original");
    const ToolRun accepted = cli({u"embed"_s, u"--accept-damaged"_s, u"--replace"_s, movie});
    EXPECT_EQ(accepted.status, 1) << accepted.err.toStdString();
    EXPECT_TRUE(accepted.err.contains("Warning: Embedding the damaged movie")) << accepted.err.toStdString();
    EXPECT_TRUE(accepted.err.contains("it lacks the movie's video")) << accepted.err.toStdString();
    EXPECT_EQ(dir.entries(), (QStringList{u"movie Original.mp4"_s, u"movie-Output.m4v"_s, u"movie.mp4"_s}));
    QFile kept(movie);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), bytes);
}

// A run killed with SIGKILL leaves only a temporary of ours, which the next run removes; a
// run stopped with SIGTERM or SIGINT cancels and leaves nothing. The writer is slowed down so
// that the signal lands in the middle of the run.
TEST(CliMovies, KilledOrSignalledEmbeddingLeavesNoOutput)
{
    TempDir dir;
    const QString movie = makeMovie(dir);
    auto temporaries = [&] {
        QStringList out;
        for (const QString &name : dir.entries())
            if (name.endsWith(u".part"_s))
                out.append(name);
        return out;
    };
    auto startSlowEmbed = [&](QProcess &process) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"CAPTORA_EMBED_PACKET_DELAY_MS"_s, u"20"_s);
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(CAPTORA_CLI), {u"embed"_s, movie});
        ASSERT_TRUE(process.waitForStarted());
        process.closeWriteChannel();
        // Wait until the output is being written.
        for (int i = 0; i < 1000 && temporaries().isEmpty(); ++i)
            QThread::msleep(10);
        QThread::msleep(200);
        ASSERT_EQ(process.state(), QProcess::Running);
    };
    for (int signal : {SIGTERM, SIGINT, SIGKILL}) {
        SCOPED_TRACE(signal);
        QProcess process;
        startSlowEmbed(process);
        ASSERT_EQ(temporaries().size(), 1);
        ::kill(pid_t(process.processId()), signal);
        ASSERT_TRUE(process.waitForFinished(30'000));
        EXPECT_FALSE(QFileInfo::exists(dir.path(u"movie-Output.m4v"_s)));
        if (signal == SIGKILL) {
            EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
            EXPECT_EQ(temporaries().size(), 1);
        } else {
            EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
            EXPECT_EQ(process.exitCode(), 128 + signal);
            EXPECT_TRUE(process.readAllStandardError().contains("Error: Embedding was cancelled"));
            EXPECT_TRUE(temporaries().isEmpty());
        }
    }
    // The next run is not refused, and removes what the killed run left.
    const ToolRun again = cli({u"embed"_s, movie});
    EXPECT_EQ(again.status, 0) << again.err.toStdString();
    EXPECT_TRUE(again.err.contains("Info: Removed ")) << again.err.toStdString();
    EXPECT_EQ(dir.entries(), (QStringList{u"movie-Output.m4v"_s, u"movie.mp4"_s}));
}
