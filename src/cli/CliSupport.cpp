#include "CliSupport.h"

#include "Log.h"
#include "NumberOptions.h"
#include "RegularFile.h"
#include "SubRipReader.h"
#include "VHVideoText.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

void printError(const QString &message)
{
    logLine(u"Error: "_s + message);
}

void printOut(const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
}

QString helpText(const QCommandLineParser &parser, const QString &command)
{
    // Qt names the program by its full path; name the subcommand the way it is typed.
    QString text = parser.helpText();
    const qsizetype lineEnd = text.indexOf(u'\n');
    const QString firstLine = text.left(lineEnd);
    const qsizetype options = firstLine.indexOf(u" [options]"_s);
    if (firstLine.startsWith(u"Usage: "_s) && options > 0)
        text.replace(7, options - 7, u"captora-cli "_s + command);
    return text;
}

int usageError(const QCommandLineParser &parser, const QString &message)
{
    const QString command = QCoreApplication::arguments().value(1);
    std::fprintf(stderr, "%s\n\n%s", qPrintable(message), qPrintable(helpText(parser, command)));
    return ExitUsage;
}

std::optional<double> doubleOption(const QCommandLineParser &parser, const QString &name, bool *ok)
{
    if (!parser.isSet(name))
        return std::nullopt;
    const std::optional<double> value = NumberOptions::parseNumber(parser.value(name));
    if (!value)
        *ok = false;
    return value.value_or(0);
}

int parseArguments(QCommandLineParser &parser, const QStringList &args, const QString &description,
                   const QString &positionals)
{
    parser.setApplicationDescription(description);
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption help(QStringList{u"h"_s, u"help"_s}, u"Show this help."_s);
    parser.addOption(help);
    if (!positionals.isEmpty())
        parser.addPositionalArgument(positionals, QString());
    if (!parser.parse(args))
        return usageError(parser, parser.errorText());
    if (parser.isSet(help)) {
        std::fputs(qPrintable(helpText(parser, QCoreApplication::arguments().value(1))), stdout);
        return ExitOk;
    }
    return -1;
}

void addReadOptions(QCommandLineParser &parser)
{
    parser.addOption({u"fps"_s, u"Frame rate for frame-based formats (default 25)."_s, u"F"_s});
    parser.addOption({u"length"_s, u"Movie length in seconds."_s, u"S"_s});
    parser.addOption(
        {u"encoding"_s, u"Text encoding number to read with (see 'captora-cli encodings')."_s, u"N"_s});
    parser.addOption({u"strict-encoding"_s, u"Read in --encoding only; no detection."_s});
    parser.addOption({u"chapters"_s, u"Read the file as chapter marks."_s});
    parser.addOption({u"salvage"_s, u"When no format accepts the file, read the cues that can be placed "
                                    u"and warn about each line left out."_s});
}

QString takeReadOptions(const QCommandLineParser &parser, ReadOptions *options)
{
    bool ok = true;
    if (auto fps = doubleOption(parser, u"fps"_s, &ok); ok && fps) {
        if (*fps < 0)
            return u"--fps must not be negative."_s;
        options->fps = *fps;
    }
    if (!ok)
        return u"--fps takes a number."_s;
    if (auto length = doubleOption(parser, u"length"_s, &ok); ok && length)
        options->length = *length;
    if (!ok)
        return u"--length takes a number of seconds."_s;
    if (parser.isSet(u"encoding"_s)) {
        bool valid = false;
        const qulonglong number = parser.value(u"encoding"_s).toULongLong(&valid);
        if (!valid || number > 0xFFFFFFFFull)
            return u"--encoding takes an encoding number."_s;
        options->encoding = Encodings::canonical(EncodingId(number));
    }
    options->strictEncoding = parser.isSet(u"strict-encoding"_s);
    if (options->strictEncoding && !parser.isSet(u"encoding"_s))
        return u"--strict-encoding needs --encoding."_s;
    options->chapters = parser.isSet(u"chapters"_s);
    options->salvage = parser.isSet(u"salvage"_s);
    if (options->salvage && options->chapters)
        return u"--salvage reads subtitle files, not --chapters."_s;
    return {};
}

bool checkReadableFile(const QString &path)
{
    // Only a regular file of a sane size: a FIFO or a device is refused at once, never read.
    if (const auto failure = RegularFile::check(path, RegularFile::SubtitleLimit)) {
        printError(u"Could not read '%1': %2"_s.arg(path, failure->reason));
        return false;
    }
    return true;
}

std::optional<SubtitleList> readSubtitleFile(const QString &path, const ReadOptions &options)
{
    if (!checkReadableFile(path))
        return std::nullopt;
    const bool optional = !options.strictEncoding;
    // --strict-encoding: the given encoding or nothing, no detection after it.
    VHSubtitle::setDetectionAfterGivenEncoding(!options.strictEncoding);
    std::optional<SubtitleList> cues =
        options.chapters
            ? VHVideoText::videoTextsFromFileAtURL(path, options.length, options.encoding, optional)
            : VHSubtitle::subtitlesFromFileAtURL(
                  path, options.fps, options.length, options.encoding, optional,
                  options.salvage ? VHSubtitle::Salvage::Always : VHSubtitle::Salvage::Never);
    if (!cues) {
        // Read with a limit of 0 bytes, only an empty file gives bytes (none).
        RegularFile::Failure unused;
        if (RegularFile::read(path, 0, &unused) == QByteArray())
            printError(u"'%1' is empty"_s.arg(path));
        else
            printError(u"No subtitles could be read from '%1'"_s.arg(path));
    }
    return cues;
}

bool writeSubtitleFile(const SubtitleList &cues, const QString &path, bool webVTT, EncodingId encoding,
                       bool windowsLineBreaks)
{
    if (QFileInfo(path).isDir()) {
        printError(u"'%1' is a folder; give the path of the file to write"_s.arg(path));
        return false;
    }
    QString reason;
    const bool written =
        webVTT ? writeSubtitleText(VHVideoText::webVTTText(cues, windowsLineBreaks), path, encoding, &reason)
               : writeSubRipFile(cues, path, encoding, windowsLineBreaks, &reason);
    if (!written)
        printError(u"Could not write '%1': %2"_s.arg(path, reason));
    return written;
}

void addOutputOption(QCommandLineParser &parser)
{
    parser.addOption({QStringList{u"o"_s, u"output"_s}, u"Write here instead of FILE."_s, u"OUT"_s});
}

int writeInPlaceOrOutput(const SubtitleList &cues, const QCommandLineParser &parser, const QString &file,
                         bool chapters)
{
    const QString target = parser.isSet(u"output"_s) ? parser.value(u"output"_s) : file;
    return writeSubtitleFile(cues, target, chapters, Encodings::UTF8, false) ? ExitOk : ExitFailure;
}

void printCuesAsJson(const SubtitleList &cues)
{
    QByteArray out;
    out.reserve(1 << 16);
    out.append('[');
    bool first = true;
    for (const SubtitlePtr &cue : cues) {
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
}

void appendJsonNumber(QByteArray &out, double value)
{
    if (!std::isfinite(value)) {
        out.append("null"); // JSON has no NaN or infinity
        return;
    }
    out.append(QByteArray::number(value, 'g', QLocale::FloatingPointShortest));
}

void appendJsonString(QByteArray &out, const QString &text)
{
    static const char hex[] = "0123456789abcdef";
    out.append('"');
    const QByteArray utf8 = text.toUtf8();
    for (char c : utf8) {
        switch (c) {
        case '"':
            out.append("\\\"");
            break;
        case '\\':
            out.append("\\\\");
            break;
        case '\n':
            out.append("\\n");
            break;
        case '\r':
            out.append("\\r");
            break;
        case '\t':
            out.append("\\t");
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                out.append("\\u00");
                out.append(hex[(c >> 4) & 0xF]);
                out.append(hex[c & 0xF]);
            } else {
                out.append(c);
            }
        }
    }
    out.append('"');
}
