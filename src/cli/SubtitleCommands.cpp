#include "CTFileHelper.h"
#include "CliSupport.h"
#include "Commands.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

int runDump(const QStringList &args)
{
    QCommandLineParser parser;
    addReadOptions(parser);
    if (int status = parseArguments(parser, args, u"Prints the cues of a subtitle file as one JSON array."_s,
                                    u"FILE"_s);
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

    printCuesAsJson(*cues);
    return ExitOk;
}

int runConvert(const QStringList &args)
{
    QCommandLineParser parser;
    addReadOptions(parser);
    parser.addOption({u"windows-line-breaks"_s, u"End lines with carriage return and line feed."_s});
    parser.addOption({u"format"_s,
                      u"srt (default) or vtt (WebVTT chapter marks); OUT ending in .vtt means vtt."_s,
                      u"FORMAT"_s});
    parser.addOption({u"out-encoding"_s, u"Text encoding number to write with (default UTF-8)."_s, u"N"_s});
    if (int status = parseArguments(
            parser, args, u"Reads a subtitle file and writes it as SubRip or WebVTT."_s, u"IN OUT"_s);
        status >= 0)
        return status;
    ReadOptions options;
    if (const QString problem = takeReadOptions(parser, &options); !problem.isEmpty())
        return usageError(parser, problem);
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 2)
        return usageError(parser, u"convert takes IN and OUT."_s);

    QString out = positional[1];
    bool webVTT = out.endsWith(u".vtt"_s, Qt::CaseInsensitive);
    if (parser.isSet(u"format"_s)) {
        const QString format = parser.value(u"format"_s).toLower();
        if (format != u"srt"_s && format != u"vtt"_s)
            return usageError(parser, u"--format takes srt or vtt."_s);
        webVTT = format == u"vtt"_s;
    }
    // As the window's export does: a name without extension gets the format's.
    if (CTFileHelper::pathExtension(out).isEmpty() && !QFileInfo(out).isDir())
        out += webVTT ? u".vtt"_s : u".srt"_s;
    EncodingId outEncoding = Encodings::UTF8;
    if (parser.isSet(u"out-encoding"_s)) {
        bool valid = false;
        const qulonglong number = parser.value(u"out-encoding"_s).toULongLong(&valid);
        if (!valid || number > 0xFFFFFFFFull)
            return usageError(parser, u"--out-encoding takes an encoding number."_s);
        outEncoding = Encodings::canonical(EncodingId(number));
    }

    const std::optional<SubtitleList> cues = readSubtitleFile(positional[0], options);
    if (!cues)
        return ExitFailure;
    return writeSubtitleFile(*cues, out, webVTT, outEncoding, parser.isSet(u"windows-line-breaks"_s))
               ? ExitOk
               : ExitFailure;
}
