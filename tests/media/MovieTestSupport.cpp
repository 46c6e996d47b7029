#include "MovieTestSupport.h"

#include "MainQueue.h"
#include "VHSubtitle.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QProcess>
#include <QThread>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QByteArray runTool(const QString &program, const QStringList &args)
{
    QProcess process;
    process.start(program, args);
    const bool finished = process.waitForFinished(120'000);
    EXPECT_TRUE(finished && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        << program.toStdString() << " " << args.join(u' ').toStdString() << "\n"
        << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}
} // namespace

void ffmpeg(const QStringList &args)
{
    runTool(u"ffmpeg"_s, QStringList{u"-v"_s, u"error"_s, u"-y"_s} + args);
}

QJsonObject probe(const QString &path)
{
    const QByteArray json =
        runTool(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-of"_s, u"json"_s, u"-show_streams"_s,
                               u"-show_chapters"_s, u"-show_format"_s, path});
    return QJsonDocument::fromJson(json).object();
}

QStringList clipInputs(double seconds)
{
    const QString d = QString::number(seconds);
    return {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=d=%1:s=160x120:r=25"_s.arg(d),
            u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=d=%1"_s.arg(d)};
}

QStringList clipCodecs()
{
    return {u"-c:v"_s, u"libx264"_s, u"-preset"_s, u"ultrafast"_s, u"-c:a"_s, u"aac"_s};
}

QString makeTrackMovie(const QString &path, double seconds, const QString &english, const QString &german)
{
    const QString chapters = path + u".chapters.txt"_s;
    QFile file(chapters);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=2000\ntitle=Intro\n"
               "[CHAPTER]\nTIMEBASE=1/1000\nSTART=2000\nEND=" +
               QByteArray::number(qRound(seconds * 1000)) + "\ntitle=Main\n");
    file.close();
    const QStringList mapping = u"-map 0 -map 1 -map 2 -map 3 -map 4 -map_chapters 5"_s.split(u' ');
    const QStringList subtitleCodec =
        u"-c:s mov_text -metadata:s:s:0 language=eng -metadata:s:s:1 language=eng "
        "-metadata:s:s:2 language=ger"_s.split(u' ');
    ffmpeg(clipInputs(seconds) +
           QStringList{u"-i"_s, english, u"-i"_s, english, u"-i"_s, german, u"-i"_s, chapters} + mapping +
           clipCodecs() + subtitleCodec + QStringList{path});
    return path;
}

QString writeSubRip(const QString &path, const QList<TestCue> &cues)
{
    SubtitleList list;
    for (const TestCue &cue : cues)
        list.append(VHSubtitle::create(cue.text, cue.start, cue.end));
    EXPECT_TRUE(VHSubtitle::writeSubtitles(list, path));
    return path;
}

QString RecordingEmbedderDelegate::subtitleEmbedderDidFinish(CTSubtitleEmbedder *embedder, bool success)
{
    ++(success ? successes : failures);
    return success ? embedder->outputMoviePath() : QString();
}

void runToEnd(CTSubtitleEmbedder &embedder)
{
    if (!embedder.status())
        embedder.setStatus(std::make_shared<ProgressStatus>());
    embedder.createM4V();
    QElapsedTimer timer;
    timer.start();
    while (!embedder.hasEnded() && timer.elapsed() < 120'000) {
        if (!MainQueue::main().runNext())
            QThread::msleep(2);
    }
    ASSERT_TRUE(embedder.hasEnded());
    MainQueue::main().drain();
}

void waitForExtraction(const RecordingExtractorDelegate &delegate)
{
    QElapsedTimer timer;
    timer.start();
    while (delegate.finished == 0 && timer.elapsed() < 60'000) {
        if (!MainQueue::main().runNext())
            QThread::msleep(2);
    }
    ASSERT_EQ(delegate.finished, 1);
}

QStringList cueLines(const QString &path)
{
    QStringList lines;
    const std::optional<SubtitleList> cues = VHSubtitle::subtitlesFromFileAtURL(path);
    if (!cues)
        return lines;
    for (const SubtitlePtr &cue : *cues)
        lines.append(
            u"%1-%2 %3"_s.arg(cue->start(), 0, 'f', 3).arg(cue->end(), 0, 'f', 3).arg(cue->string()));
    return lines;
}
