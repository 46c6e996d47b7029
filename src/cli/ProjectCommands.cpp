// Subcommands that run the project's own rules: the language menu of a movie, duration
// adjustment and replace-all.
#include "CTWindowController.h"
#include "CliSupport.h"
#include "Commands.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
// Reads FILE's cues into a headless project, with `length` as the movie's length.
bool loadIntoProject(CTWindowController &project, const QString &path, const ReadOptions &options)
{
    std::optional<SubtitleList> cues = readSubtitleFile(path, options);
    if (!cues)
        return false;
    project.setMovieInfo(QString(), 0, options.fps, options.length);
    project.setSubtitles(*cues);
    return true;
}

// "1,3,5-7" → {1, 3, 5, 6, 7}; empty on a malformed list.
std::optional<QList<qsizetype>> parseIndexes(const QString &text)
{
    QList<qsizetype> indexes;
    const QStringList parts = text.split(u',', Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        const QStringList range = part.split(u'-');
        bool ok1 = false, ok2 = true;
        const qsizetype from = range.value(0).trimmed().toLongLong(&ok1);
        const qsizetype to = range.size() == 2 ? range[1].trimmed().toLongLong(&ok2) : from;
        if (!ok1 || !ok2 || range.size() > 2 || from < 0 || to < from || to - from > 10'000'000)
            return std::nullopt;
        for (qsizetype i = from; i <= to; ++i)
            indexes.append(i);
    }
    return indexes;
}
} // namespace

int runLanguages(const QStringList &args)
{
    QCommandLineParser parser;
    parser.addOption({u"subtitle"_s, u"The subtitle file being edited."_s, u"PATH"_s});
    parser.addOption({u"chapters"_s, u"Edit the movie's chapter marks."_s});
    if (int status = parseArguments(
            parser, args, u"Prints the language menu the project builds for a movie, as JSON."_s, u"MOVIE"_s);
        status >= 0)
        return status;
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"languages takes exactly one MOVIE."_s);
    const QString movie = QFileInfo(parser.positionalArguments().first()).absoluteFilePath();
    if (!QFileInfo(movie).isFile()) {
        printError(u"Could not read '%1': No such file"_s.arg(movie));
        return ExitFailure;
    }

    CTWindowController project(nullptr, nullptr);
    project.setMoviePath(movie);
    if (parser.isSet(u"chapters"_s))
        project.runLanguageCommand(u"editChapterMark:"_s);
    else if (parser.isSet(u"subtitle"_s))
        project.setSubtitlePath(QFileInfo(parser.value(u"subtitle"_s)).absoluteFilePath());

    const LanguageList &languages = project.languages();
    const QList<LanguageButtonItem> items = CTWindowController::languageButtonItems(languages);
    QByteArray out = "[";
    for (qsizetype i = 0; i < languages.size(); ++i) {
        const CTLanguage &language = *languages[i];
        const char *kind = language.isSeparator()         ? "separator"
                           : language.menu()              ? "submenu"
                           : !language.action().isEmpty() ? "command"
                                                          : "file";
        auto stringOrNull = [&out](const QString &text) {
            if (text.isEmpty())
                out.append("null");
            else
                appendJsonString(out, text);
        };
        out.append(i ? ",\n  {\"title\": " : "\n  {\"title\": ");
        appendJsonString(out, items[i].title);
        out.append(", \"kind\": \"").append(kind).append("\", \"command\": ");
        stringOrNull(language.action());
        out.append(", \"path\": ");
        stringOrNull(language.path());
        out.append(", \"locale\": ");
        stringOrNull(language.localeIdentifier());
        out.append(", \"current\": ").append(i == project.selectedLanguageIndex() ? "true" : "false");
        out.append('}');
    }
    out.append("\n]\n");
    printOut(out);
    return ExitOk;
}

int runAdjustDurations(const QStringList &args)
{
    QCommandLineParser parser;
    addReadOptions(parser);
    parser.addOption({u"per-char"_s, u"Seconds of display time per character."_s, u"C"_s});
    parser.addOption({u"min"_s, u"Smallest duration in seconds."_s, u"M"_s});
    parser.addOption({u"max"_s, u"Largest duration in seconds."_s, u"X"_s});
    parser.addOption({u"gap"_s, u"Seconds to keep free before the next line."_s, u"G"_s});
    parser.addOption({u"only"_s,
                      u"Only these lines (0-based, e.g. 0,4,7-9); the next listed line limits each."_s,
                      u"INDEXES"_s});
    addOutputOption(parser);
    if (int status = parseArguments(
            parser, args, u"Recomputes durations from reading speed, keeping a gap before the next line."_s,
            u"FILE"_s);
        status >= 0)
        return status;
    ReadOptions options;
    if (const QString problem = takeReadOptions(parser, &options); !problem.isEmpty())
        return usageError(parser, problem);
    bool ok = true;
    double values[4];
    const char *names[4] = {"per-char", "min", "max", "gap"};
    for (int i = 0; i < 4; ++i) {
        const std::optional<double> value = doubleOption(parser, QString::fromLatin1(names[i]), &ok);
        if (!ok || !value)
            return usageError(parser,
                              u"--%1 takes a number and is required."_s.arg(QString::fromLatin1(names[i])));
        values[i] = *value;
    }
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"adjust-durations takes exactly one FILE."_s);
    std::optional<QList<qsizetype>> only;
    if (parser.isSet(u"only"_s)) {
        only = parseIndexes(parser.value(u"only"_s));
        if (!only || only->isEmpty())
            return usageError(parser, u"--only takes indexes such as 0,4,7-9."_s);
    }

    CTWindowController project(nullptr, nullptr);
    const QString file = parser.positionalArguments().first();
    if (!loadIntoProject(project, file, options))
        return ExitFailure;
    if (only) {
        // An index the file does not have is a mistake in the command, not in the file.
        const qsizetype count = project.subtitles().size();
        for (const qsizetype index : std::as_const(*only)) {
            if (index >= count)
                return usageError(
                    parser,
                    u"--only: there is no line %1; the file has %2 lines (counted from 0)."_s.arg(index).arg(
                        count));
        }
        project.setSelectionIndices(*only);
    }
    const QString problem = project.startFixDuration(values[0], values[1], values[2], values[3], bool(only));
    if (!problem.isEmpty()) {
        printError(problem);
        return ExitFailure;
    }
    return writeInPlaceOrOutput(project.subtitles(), parser, file, options.chapters);
}

int runReplace(const QStringList &args)
{
    QCommandLineParser parser;
    addReadOptions(parser);
    parser.addOption({u"search"_s, u"The text to find."_s, u"TEXT"_s});
    parser.addOption({u"replace"_s, u"The text to put in its place."_s, u"TEXT"_s});
    parser.addOption({u"case-sensitive"_s, u"Match upper and lower case exactly."_s});
    addOutputOption(parser);
    if (int status =
            parseArguments(parser, args, u"Replaces a text in every line that contains it."_s, u"FILE"_s);
        status >= 0)
        return status;
    ReadOptions options;
    if (const QString problem = takeReadOptions(parser, &options); !problem.isEmpty())
        return usageError(parser, problem);
    if (!parser.isSet(u"search"_s) || parser.value(u"search"_s).isEmpty() || !parser.isSet(u"replace"_s))
        return usageError(parser, u"replace needs --search TEXT and --replace TEXT."_s);
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"replace takes exactly one FILE."_s);

    CTWindowController project(nullptr, nullptr);
    const QString file = parser.positionalArguments().first();
    if (!loadIntoProject(project, file, options))
        return ExitFailure;
    // As in the window: the search field filters the table, and replace-all works on the
    // lines listed.
    project.setSearchCaseSensitive(parser.isSet(u"case-sensitive"_s));
    project.setSearchString(parser.value(u"search"_s));
    project.replaceAll(parser.value(u"search"_s), parser.value(u"replace"_s));
    return writeInPlaceOrOutput(project.subtitles(), parser, file, options.chapters);
}
