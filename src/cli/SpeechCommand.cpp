// captora-cli speech MOVIE: the speech segments of a movie's sound, as the timeline shows them.
#include "AudioAnalysis.h"
#include "CliSupport.h"
#include "Commands.h"
#include "FileNames.h"
#include "RegularFile.h"

#include <climits>
#include <unistd.h>

#include <limits>

using namespace Qt::StringLiterals;

int runSpeech(const QStringList &args)
{
    QCommandLineParser parser;
    parser.addOption({u"json"_s, u"Print the segments as JSON."_s});
    parser.addOption(
        {u"track"_s, u"Analyse the N-th audio track (from 1; default: the movie's own choice)."_s, u"N"_s});
    parser.addOption(
        {u"centre"_s, u"Listen to the centre channel only, where a 5.1 or 7.1 track has its dialogue."_s});
    parser.addOption({u"no-cache"_s, u"Neither read nor write the cache of analyses."_s});
    parser.addOption(
        {u"threads"_s, u"Decode N parts of the track at once (default: one per core, at most 4)."_s, u"N"_s});
    if (int status = parseArguments(parser, args,
                                    u"Prints the stretches of MOVIE's sound where speech was detected, one "
                                    "per line as start and end in seconds."_s,
                                    u"MOVIE"_s);
        status >= 0)
        return status;
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"speech takes exactly one MOVIE."_s);
    AudioAnalysisRequest request;
    // Made absolute by hand: QFileInfo would turn the bytes of a name that is not UTF-8 into
    // U+FFFD, and the file could not be opened (FileNames.h).
    request.moviePath = parser.positionalArguments().first();
    if (!request.moviePath.startsWith(u'/')) {
        char folder[PATH_MAX];
        if (::getcwd(folder, sizeof folder))
            request.moviePath = decodeFileName(QByteArray(folder)) + u'/' + request.moviePath;
    }
    for (const auto &[name, target, least] :
         {std::tuple{u"track"_s, &request.audioTrack, 1}, std::tuple{u"threads"_s, &request.threads, 1}}) {
        if (!parser.isSet(name))
            continue;
        bool ok = false;
        const int value = parser.value(name).toInt(&ok);
        if (!ok || value < least || value > 64)
            return usageError(parser, u"--%1 takes a whole number from %2 to 64."_s.arg(name).arg(least));
        *target = name == u"track"_s ? value - 1 : value;
    }
    // A regular file (a FIFO would block the demuxer), of any size: a film is gigabytes.
    if (const auto failure = RegularFile::check(request.moviePath, std::numeric_limits<qint64>::max())) {
        printError(u"Could not read '%1': %2"_s.arg(request.moviePath, failure->reason));
        return ExitFailure;
    }
    request.centreChannelOnly = parser.isSet(u"centre"_s);
    request.useCache = !parser.isSet(u"no-cache"_s);

    AudioAnalyser analyser(request);
    const AudioAnalysisOutcome outcome = analyser.run();
    const QList<SpeechSegment> speech = analyser.analysis()->speech();
    QByteArray out;
    if (parser.isSet(u"json"_s)) {
        out.append("{\"duration\": ");
        appendJsonNumber(out, analyser.analysis()->duration());
        out.append(", \"segments\": [");
        for (qsizetype i = 0; i < speech.size(); ++i) {
            out.append(i ? ",\n  {\"start\": " : "\n  {\"start\": ");
            appendJsonNumber(out, speech[i].start);
            out.append(", \"end\": ");
            appendJsonNumber(out, speech[i].end);
            out.append("}");
        }
        out.append(speech.isEmpty() ? "]}\n" : "\n]}\n");
    } else {
        for (const SpeechSegment &segment : speech)
            out.append(QByteArray::number(segment.start, 'f', 2) + '\t' +
                       QByteArray::number(segment.end, 'f', 2) + '\n');
    }
    printOut(out);
    return outcome == AudioAnalysisOutcome::Failed ? ExitFailure : ExitOk;
}
