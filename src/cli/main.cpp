#include "CliPrompter.h"
#include "CliSupport.h"
#include "Commands.h"
#include "FileNames.h"
#include "Log.h"
#include "Prompter.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <malloc.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
#ifdef CAPTORA_CLI_MEDIA
int runTracksHere(const QStringList &args)
{
    return runTracks(args);
}
int runEmbedHere(const QStringList &args)
{
    return runEmbed(args);
}
int runExtractHere(const QStringList &args)
{
    return runExtract(args);
}
int runSpeechHere(const QStringList &args)
{
    return runSpeech(args);
}
#else
char **s_argv = nullptr;

// Replaces this process with captora-cli-media, given the same arguments: beside this
// program (the build tree), else in the helper folder of the installation this program is
// in, else in the one it was built for.
// Returns only when it could not be started.
int runInMediaHelper(const QStringList &)
{
    const QString here = QCoreApplication::applicationDirPath();
    const QStringList folders{here, here + QStringLiteral("/" CAPTORA_MEDIA_HELPER_RELATIVE),
                              QStringLiteral(CAPTORA_MEDIA_HELPER_DIRS)};
    for (const QString &folder : folders) {
        const QByteArray helper = encodeFileName(folder + u"/captora-cli-media"_s);
        if (::access(helper.constData(), X_OK) == 0) {
            ::execv(helper.constData(), s_argv);
            std::fprintf(stderr, "Error: Could not start '%s': %s\n", helper.constData(),
                         std::strerror(errno));
            return ExitFailure;
        }
    }
    std::fprintf(stderr,
                 "Error: The movie commands need captora-cli-media, which was not found beside "
                 "captora-cli or in %s\n",
                 CAPTORA_MEDIA_HELPER_DIRS);
    return ExitFailure;
}
const auto runTracksHere = runInMediaHelper;
const auto runEmbedHere = runInMediaHelper;
const auto runExtractHere = runInMediaHelper;
const auto runSpeechHere = runInMediaHelper;
#endif

struct Command
{
    const char *name;
    const char *synopsis; // as the usage lists it
    int (*run)(const QStringList &args);
};

const Command kCommands[] = {
    {"dump", "dump FILE          Print the cues of a subtitle file as JSON.", runDump},
    {"convert", "convert IN OUT     Read a subtitle file and write it as SubRip or WebVTT.", runConvert},
    {"languages", "languages MOVIE    Print the language menu of a movie as JSON.", runLanguages},
    {"adjust-durations",
     "adjust-durations FILE\n                     Recompute durations from reading speed.",
     runAdjustDurations},
    {"replace", "replace FILE       Replace a text in every line.", runReplace},
    {"shift", "shift FILE         Move every line by the same amount.", runShift},
    {"sync", "sync FILE          Re-time lines through anchors (--fix INDEX=TIME ...).", runSync},
    {"encodings", "encodings          List the text encodings offered, with their numbers.", runEncodings},
    {"detect-encoding",
     "detect-encoding FILE\n                     Find the text encoding of a file by the language rules.",
     runDetectEncoding},
    {"tracks", "tracks MOVIE       Print the candidate text tracks of embedding as JSON.", runTracksHere},
    {"embed", "embed MOVIE        Embed subtitle and chapter files into '<name>-Output.m4v'.", runEmbedHere},
    {"extract", "extract MOVIE      Write the movie's subtitle (and chapter) tracks into files.",
     runExtractHere},
    {"speech", "speech MOVIE       Print where the movie's sound has speech.", runSpeechHere},
};

void printUsage(FILE *to)
{
    std::fputs("Usage: captora-cli COMMAND [OPTIONS] ARGUMENTS\n\nCaptora's subtitle engine for scripts.\n\n"
               "Commands:\n",
               to);
    for (const Command &command : kCommands)
        std::fprintf(to, "  %s\n", command.synopsis);
    std::fputs(
        "\nRun 'captora-cli COMMAND --help' for the options of a command.\nOptions: --help, --version\n", to);
}
} // namespace

int main(int argc, char *argv[])
{
#ifndef CAPTORA_CLI_MEDIA
    s_argv = argv;
#endif
    // A command holds a few large buffers one after the other (the file's bytes, its text,
    // the cues, the bytes written). By default glibc maps each large buffer on its own and
    // unmaps it when freed, so every one of them is faulted in page by page afresh: on a
    // 10 MB subtitle file that kernel work was a third of the run. Kept in the heap and not
    // trimmed, freed buffers are reused by the next ones; the process is short-lived.
    mallopt(M_MMAP_THRESHOLD, 64 << 20);
    mallopt(M_TRIM_THRESHOLD, 256 << 20);
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(u"captora-cli"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(CAPTORA_VERSION));
    installLogHandler();
    // The detector's per-character diagnostics ("Character '%C'", one line per suspicious
    // character per language tried) run to hundreds of thousands of lines for one legacy
    // file; commands keep them off unless asked (detect-encoding --log-characters, or
    // QT_LOGGING_RULES=captora.encoding.characters=true).
    QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
    // Questions of the engine (an encoding that cannot be guessed, an overwrite) are asked on
    // a terminal; without one the command explains which option answers them and fails.
    CliPrompter prompter(
        u"Pass --encoding N to read the file in encoding N ('captora-cli encodings' lists them)."_s);
    Prompter::setShared(&prompter);

    // Arguments are file names more often than not: decoded so that names that are not UTF-8
    // reach the files they name (Qt would turn their bytes into U+FFFD).
    QStringList args;
    for (int i = 0; i < argc; ++i)
        args.append(decodeFileName(QByteArray(argv[i])));
    if (args.size() < 2) {
        printUsage(stderr);
        return ExitUsage;
    }
    const QString command = args.at(1);
    if (command == u"--help"_s || command == u"-h"_s || command == u"help"_s) {
        printUsage(stdout);
        return ExitOk;
    }
    if (command == u"--version"_s) {
        std::printf("captora-cli %s\n", CAPTORA_VERSION);
        return ExitOk;
    }
    // The subcommand sees itself as the program name.
    args.removeAt(1);
    args[0] = u"captora-cli "_s + command;
    for (const Command &entry : kCommands) {
        if (command == QLatin1StringView(entry.name))
            return entry.run(args);
    }
    std::fprintf(stderr, "Unknown command '%s'.\n\n", qPrintable(command));
    printUsage(stderr);
    return ExitUsage;
}
