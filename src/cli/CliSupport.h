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

// The subcommand's help, naming it as typed ("captora-cli dump").
QString helpText(const QCommandLineParser &parser, const QString &command);
// A usage error: prints the message and the subcommand's help, returns ExitUsage.
int usageError(const QCommandLineParser &parser, const QString &message);

// Parses a number option (a decimal point or comma, no grouping: NumberOptions::parseNumber);
// reports a usage error through `ok` when it is not one.
std::optional<double> doubleOption(const QCommandLineParser &parser, const QString &name, bool *ok);

// Parses `args`, answering --help itself. Returns -1 to go on, else the exit status.
int parseArguments(QCommandLineParser &parser, const QStringList &args, const QString &description,
                   const QString &positionals);

// Options every reading subcommand shares: --fps, --length, --encoding, --strict-encoding,
// --chapters, --salvage.
struct ReadOptions
{
    double fps = 0;
    double length = 0;
    EncodingId encoding = Encodings::None;
    bool strictEncoding = false; // read in --encoding only, no detection
    bool chapters = false;       // the file holds chapter marks
    bool salvage = false;        // a file no reader accepts: take what a tolerant pass reads
};
void addReadOptions(QCommandLineParser &parser);
// Fills `options`; returns an empty string or the usage problem.
QString takeReadOptions(const QCommandLineParser &parser, ReadOptions *options);

// Checks that `path` names a readable regular file; prints the error and returns false
// otherwise.
bool checkReadableFile(const QString &path);

// Reads the cues (or chapter marks) of a file as the program loads them; prints why when it
// cannot.
std::optional<SubtitleList> readSubtitleFile(const QString &path, const ReadOptions &options);

// Writes SubRip, or WebVTT chapter marks when `webVTT`; prints why when it cannot.
bool writeSubtitleFile(const SubtitleList &cues, const QString &path, bool webVTT, EncodingId encoding,
                       bool windowsLineBreaks);

// Adds -o/--output OUT, and writes the cues there or, without it, back into FILE (SubRip,
// or WebVTT chapter marks). Returns the exit status.
void addOutputOption(QCommandLineParser &parser);
int writeInPlaceOrOutput(const SubtitleList &cues, const QCommandLineParser &parser, const QString &file,
                         bool chapters);

// Prints the cues as one JSON array, an object per cue: start, end, forced, text. Streams
// in chunks, so a long list never sits in memory twice.
void printCuesAsJson(const SubtitleList &cues);

// Appends `value` as the shortest JSON number that reads back to the same double.
void appendJsonNumber(QByteArray &out, double value);
void appendJsonString(QByteArray &out, const QString &text);
