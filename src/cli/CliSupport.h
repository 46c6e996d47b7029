#pragma once

#include "TextCodec.h"
#include "VHSubtitle.h"

#include <QCommandLineParser>
#include <QStringList>

#include <cstdio>
#include <optional>

// Exit statuses shared by every subcommand.
enum ExitStatus { ExitOk = 0, ExitFailure = 1, ExitUsage = 2 };

// Prints "Error: <message>" as one line on standard error.
void printError(const QString &message);
// Writes UTF-8 to standard output.
void printOut(const QByteArray &bytes);

// A usage error: prints the message and the subcommand's help, returns ExitUsage.
int usageError(const QCommandLineParser &parser, const QString &message);

// Parses `args` for a subcommand, answering --help itself. Returns -1 to go on, else the
// exit status.
int parseCommandLine(QCommandLineParser &parser, const QStringList &args, const QString &description,
                     const QString &positionals);

// Parses a number option; reports a usage error through `ok` when it is not one.
std::optional<double> doubleOption(const QCommandLineParser &parser, const QString &name, bool *ok);

// Options every reading subcommand shares: --fps, --length, --encoding.
struct ReadOptions
{
    double fps = 0;
    double length = 0;
    EncodingId encoding = Encodings::None;
};
void addReadOptions(QCommandLineParser &parser);
// Fills `options`; returns an empty string or the usage problem.
QString takeReadOptions(const QCommandLineParser &parser, ReadOptions *options);

// Checks that `path` names a readable regular file; prints the error and returns false
// otherwise.
bool checkReadableFile(const QString &path);

// Reads the cues of a subtitle file as the program loads them; prints why when it cannot.
std::optional<SubtitleList> readSubtitleFile(const QString &path, const ReadOptions &options);

// Appends `value` as the shortest JSON number that reads back to the same double.
void appendJsonNumber(QByteArray &out, double value);
void appendJsonString(QByteArray &out, const QString &text);
