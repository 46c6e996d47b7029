// Re-timing from the command line: a common shift, and fixes at given times exactly as the
// project makes them when the user selects a line, plays to a time and presses the fix key.
#include "CTWindowController.h"
#include "CliSupport.h"
#include "Commands.h"
#include "MainQueue.h"
#include "NumberOptions.h"
#include "PlaybackControl.h"
#include "VHTimeValueTransformer.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
// A movie that is only a clock: the time a fix is made at, the length and frame rate given
// on the command line. Without --length the movie has no known end: its duration is
// infinite, so that the last line, which the project keeps within the movie, may move
// anywhere later instead of being cut back to 0.
class ScriptedPlayback final : public PlaybackControl
{
public:
    ScriptedPlayback(double fps, double duration)
        : m_fps(fps)
        , m_duration(duration)
    {}
    bool hasMovie() const override { return true; }
    double currentTime() const override { return m_time; }
    void setCurrentTime(double seconds) override { m_time = seconds; }
    double fps() const override { return m_fps; }
    double duration() const override
    {
        return m_duration > 0 ? m_duration : std::numeric_limits<double>::infinity();
    }
    bool isPlaying() const override { return false; }
    void setPlaying(bool) override {}
    void setSubtitles(const SubtitleList &) override {}
    void setShowSubtitle(bool) override {}
    void redrawCurrentSubtitle() override {}
    qsizetype currentSegmentIndex() const override { return -1; }

private:
    double m_fps;
    double m_duration;
    double m_time = 0;
};

} // namespace

int runShift(const QStringList &args)
{
    QCommandLineParser parser;
    addReadOptions(parser);
    parser.addOption({u"by"_s, u"Seconds to move every line by (negative: earlier)."_s, u"SECONDS"_s});
    addOutputOption(parser);
    if (int status = parseArguments(parser, args, u"Moves every line by the same amount."_s, u"FILE"_s);
        status >= 0)
        return status;
    ReadOptions options;
    if (const QString problem = takeReadOptions(parser, &options); !problem.isEmpty())
        return usageError(parser, problem);
    bool ok = true;
    const std::optional<double> by = doubleOption(parser, u"by"_s, &ok);
    if (!ok || !by)
        return usageError(parser, u"shift needs --by SECONDS."_s);
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"shift takes exactly one FILE."_s);

    const QString file = parser.positionalArguments().first();
    std::optional<SubtitleList> cues = readSubtitleFile(file, options);
    if (!cues)
        return ExitFailure;
    // No line moves before the movie's start: a time there is no time in the movie, and a
    // negative time text would read back as another time. As the Shift fix mode does, a shift
    // that would take the earliest line there is refused, not clamped (clamping would pile
    // the first lines up at 0).
    double earliest = std::numeric_limits<double>::infinity();
    for (const SubtitlePtr &cue : std::as_const(*cues))
        earliest = std::min(earliest, cue->start());
    if (*by < 0 && earliest + *by < 0) {
        printError(u"Shifting by %1 s would move the first line (at %2) before the start; the largest shift "
                   "earlier is %3 s"_s.arg(QString::number(*by), VHSubtitle::formatedTime(earliest),
                                           QString::number(earliest > 0 ? -earliest : 0)));
        return ExitFailure;
    }
    CTWindowController project(nullptr, nullptr);
    project.setSubtitles(*cues);
    project.stretch(0, cues->size() - 1, 1, 0, *by);
    return writeInPlaceOrOutput(project.subtitles(), parser, file, options.chapters);
}

int runSync(const QStringList &args)
{
    QCommandLineParser parser;
    addReadOptions(parser);
    parser.addOption({u"fix"_s,
                      u"Fix line INDEX (0-based) to start at TIME (seconds or hh:mm:ss,mmm); repeatable."_s,
                      u"INDEX=TIME"_s});
    parser.addOption({u"mode"_s, u"fix (stretch between anchors, default), shift or single."_s, u"MODE"_s});
    parser.addOption({u"json"_s, u"Print the resulting lines as JSON."_s});
    addOutputOption(parser);
    if (int status =
            parseArguments(parser, args,
                           u"Re-times lines through anchors: each --fix makes a line start at a time, "
                           "and the lines around it follow."_s,
                           u"FILE"_s);
        status >= 0)
        return status;
    ReadOptions options;
    if (const QString problem = takeReadOptions(parser, &options); !problem.isEmpty())
        return usageError(parser, problem);
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"sync takes exactly one FILE."_s);
    const QString mode = parser.isSet(u"mode"_s) ? parser.value(u"mode"_s).toLower() : u"fix"_s;
    if (mode != u"fix"_s && mode != u"shift"_s && mode != u"single"_s)
        return usageError(parser, u"--mode takes fix, shift or single."_s);

    using NumberOptions::Fix;
    QList<Fix> fixes;
    const QStringList fixTexts = parser.values(u"fix"_s);
    for (const QString &text : fixTexts) {
        const std::optional<Fix> fix = NumberOptions::parseFix(text);
        if (!fix)
            return usageError(parser, u"--fix takes INDEX=TIME, e.g. 12=754.2 or 12=00:12:34,200; '%1' is "
                                      "not one."_s.arg(text));
        fixes.append(*fix);
    }
    if (fixes.isEmpty())
        return usageError(parser, u"sync needs at least one --fix INDEX=TIME."_s);

    const QString file = parser.positionalArguments().first();
    std::optional<SubtitleList> cues = readSubtitleFile(file, options);
    if (!cues)
        return ExitFailure;

    // The frame rate decides how far outside its range a fix may land (half a frame); without
    // --fps it is the documented default.
    const double fps = options.fps > 0 ? options.fps : 25;
    ScriptedPlayback movie(fps, options.length);
    CTWindowController project(nullptr, &movie);
    project.setMovieInfo(QString(), 1, fps, options.length);
    project.setSubtitles(*cues);
    project.setFixMode(FixMode::Fix);
    for (const Fix &fix : std::as_const(fixes)) {
        if (fix.index >= project.subtitles().size()) {
            printError(u"There is no line %1; the file has %2 lines (counted from 0)"_s.arg(fix.index).arg(
                project.subtitles().size()));
            return ExitFailure;
        }
        project.setSelectionIndices({fix.index});
        movie.setCurrentTime(fix.time);
        project.setCurrentTime(fix.time);
        // The range a fix may land in depends on the mode: check it in the mode the fix is
        // made in (a Single fix may not pass the neighbours that a Fix stretches along).
        project.setFixMode(mode == u"shift"_s    ? FixMode::Shift
                           : mode == u"single"_s ? FixMode::Single
                                                 : FixMode::Fix);
        if (!project.canFix()) {
            const auto range = project.fixRange();
            printError(
                u"Line %1 cannot start at %2: with the anchors set so far it must start between %3 and %4"_s
                    .arg(fix.index)
                    .arg(VHSubtitle::formatedTime(fix.time), VHSubtitle::formatedTime(range.startChange),
                         std::isinf(range.endChange) ? u"the end"_s
                                                     : VHSubtitle::formatedTime(range.endChange)));
            return ExitFailure;
        }
        if (mode == u"shift"_s)
            project.shiftSubtitles();
        else if (mode == u"single"_s)
            project.fixSingleSubtitleStart();
        else
            project.fixSubtitleStart();
        // The neighbour corrections that follow each fix. They settle after a few rounds
        // unless the fix collapsed the lines after it onto the next anchor, when the lines
        // would be left out of order and the corrections chase each other for ever.
        MainQueue::main().drain(100'000 + 10 * int(project.subtitles().size()));
        const SubtitleList &after = project.subtitles();
        const bool ordered =
            std::is_sorted(after.cbegin(), after.cend(), [](const SubtitlePtr &a, const SubtitlePtr &b) {
                return a->start() < b->start();
            });
        if (MainQueue::main().pending() > 0 || !ordered) {
            printError(u"Line %1 at %2 leaves the lines after it no room before the next anchor; choose an "
                       "earlier time"_s.arg(fix.index)
                           .arg(VHSubtitle::formatedTime(fix.time)));
            return ExitFailure;
        }
    }
    if (parser.isSet(u"json"_s))
        printCuesAsJson(project.subtitles());
    return writeInPlaceOrOutput(project.subtitles(), parser, file, options.chapters);
}
