#include "CliSupport.h"
#include "Commands.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

int runDump(const QStringList &args)
{
    QCommandLineParser parser;
    addReadOptions(parser);
    if (int status = parseCommandLine(parser, args,
                                    u"Prints the cues of a subtitle file as one JSON array."_s, u"FILE"_s);
        status >= 0)
        return status;
    ReadOptions options;
    if (const QString problem = takeReadOptions(parser, &options); !problem.isEmpty())
        return usageError(parser, problem);
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"dump takes exactly one FILE."_s);

    const std::optional<SubtitleList> cues = readSubtitleFile(parser.positionalArguments().first(), options);
    if (!cues)
        return ExitFailure;

    QByteArray out;
    out.reserve(1 << 16);
    out.append('[');
    bool first = true;
    for (const SubtitlePtr &cue : *cues) {
        out.append(first ? "\n  {\"start\": " : ",\n  {\"start\": ");
        first = false;
        appendJsonNumber(out, cue->start());
        out.append(", \"end\": ");
        appendJsonNumber(out, cue->end());
        out.append(cue->forced() ? ", \"forced\": true, \"text\": " : ", \"forced\": false, \"text\": ");
        appendJsonString(out, cue->string());
        out.append('}');
        if (out.size() > (1 << 16) - 1024) {
            printOut(out);
            out.clear();
        }
    }
    out.append("\n]\n");
    printOut(out);
    return ExitOk;
}

int runConvert(const QStringList &args)
{
    QCommandLineParser parser;
    addReadOptions(parser);
    parser.addOption({u"windows-line-breaks"_s, u"End lines with carriage return and line feed."_s});
    if (int status = parseCommandLine(parser, args, u"Reads a subtitle file and writes it as SubRip."_s,
                                    u"IN OUT"_s);
        status >= 0)
        return status;
    ReadOptions options;
    if (const QString problem = takeReadOptions(parser, &options); !problem.isEmpty())
        return usageError(parser, problem);
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 2)
        return usageError(parser, u"convert takes IN and OUT."_s);

    const std::optional<SubtitleList> cues = readSubtitleFile(positional[0], options);
    if (!cues)
        return ExitFailure;
    const QString &out = positional[1];
    if (QFileInfo(out).isDir()) {
        printError(u"'%1' is a folder; give the path of the file to write"_s.arg(out));
        return ExitFailure;
    }
    if (!VHSubtitle::writeSubtitles(*cues, out, Encodings::UTF8, parser.isSet(u"windows-line-breaks"_s))) {
        printError(u"Could not write '%1'"_s.arg(out));
        return ExitFailure;
    }
    return ExitOk;
}
