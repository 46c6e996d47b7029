#include "CliSupport.h"
#include "Commands.h"
#include "CliPrompter.h"
#include "Log.h"
#include "Prompter.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
const char kUsage[] =
    "Usage: captora-cli COMMAND [OPTIONS] ARGUMENTS\n"
    "\n"
    "Captora's subtitle engine for scripts.\n"
    "\n"
    "Commands:\n"
    "  dump FILE          Print the cues of a subtitle file as JSON.\n"
    "  convert IN OUT     Read a subtitle file and write it as SubRip or WebVTT.\n"
    "  languages MOVIE    Print the language menu of a movie as JSON.\n"
    "  adjust-durations FILE  Recompute durations from reading speed.\n"
    "  replace FILE       Replace a text in every line.\n"
    "  shift FILE         Move every line by the same amount.\n"
    "  sync FILE          Re-time lines through anchors (--fix INDEX=TIME ...).\n"
    "  encodings          List the text encodings offered, with their numbers.\n"
    "  detect-encoding FILE\n"
    "                     Find the text encoding of a file by the language rules.\n"
    "\n"
    "Run 'captora-cli COMMAND --help' for the options of a command.\n"
    "Options: --help, --version\n";
} // namespace

int main(int argc, char *argv[])
{
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
    CliPrompter prompter(u"Pass --encoding N to read the file in encoding N ('captora-cli encodings' lists them)."_s);
    Prompter::setShared(&prompter);

    QStringList args = QCoreApplication::arguments();
    if (args.size() < 2) {
        std::fputs(kUsage, stderr);
        return ExitUsage;
    }
    const QString command = args.at(1);
    if (command == u"--help"_s || command == u"-h"_s || command == u"help"_s) {
        std::fputs(kUsage, stdout);
        return ExitOk;
    }
    if (command == u"--version"_s) {
        std::printf("captora-cli %s\n", CAPTORA_VERSION);
        return ExitOk;
    }
    // The subcommand sees itself as the program name.
    args.removeAt(1);
    args[0] = u"captora-cli "_s + command;
    if (command == u"dump"_s)
        return runDump(args);
    if (command == u"convert"_s)
        return runConvert(args);
    if (command == u"languages"_s)
        return runLanguages(args);
    if (command == u"adjust-durations"_s)
        return runAdjustDurations(args);
    if (command == u"replace"_s)
        return runReplace(args);
    if (command == u"shift"_s)
        return runShift(args);
    if (command == u"sync"_s)
        return runSync(args);
    if (command == u"encodings"_s)
        return runEncodings(args);
    if (command == u"detect-encoding"_s)
        return runDetectEncoding(args);
    std::fprintf(stderr, "Unknown command '%s'.\n\n%s", qPrintable(command), kUsage);
    return ExitUsage;
}
