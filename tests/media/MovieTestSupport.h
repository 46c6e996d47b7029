#pragma once

#include "CTSubtitleEmbedder.h"
#include "CTSubtitleExtractor.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

// Runs the ffmpeg command line (quiet, overwriting); fails the running test when it fails.
void ffmpeg(const QStringList &args);
// ffprobe's JSON of a file: "streams", "chapters", "format".
QJsonObject probe(const QString &path);
// A short clip: 160x120 test picture at 25 fps (H.264) and a sine tone (AAC), `seconds` long.
QStringList clipInputs(double seconds);
QStringList clipCodecs();
// A clip of `seconds` at `path` with three mov_text tracks (`english` twice, in English, and
// `german`, in German) and two chapters, "Intro" up to 2 s and "Main" to the end.
QString makeTrackMovie(const QString &path, double seconds, const QString &english, const QString &german);

// Writes a SubRip file of (start, end, text) cues.
struct TestCue
{
    double start;
    double end;
    QString text;
};
QString writeSubRip(const QString &path, const QList<TestCue> &cues);

// The embedder's delegate for tests: counts how runs ended.
class RecordingEmbedderDelegate final : public CTSubtitleEmbedderDelegate
{
public:
    int started = 0;
    int successes = 0;
    int failures = 0;
    QString subtitleEmbedderDidFinish(CTSubtitleEmbedder *embedder, bool success) override;
    void subtitleEmbedderStarted(CTSubtitleEmbedder *) override { ++started; }
};

class RecordingExtractorDelegate final : public CTSubtitleExtractorDelegate
{
public:
    int finished = 0;
    void subtitleExtractorFinished(CTSubtitleExtractor *) override { ++finished; }
};

// Starts the run through the status (createM4V) and drives the main queue until it ends.
void runToEnd(CTSubtitleEmbedder &embedder);
// Drives the main queue until the delegate has been told.
void waitForExtraction(const RecordingExtractorDelegate &delegate);
// The cues of a SubRip file as "start-end text" lines, for comparisons.
QStringList cueLines(const QString &path);
