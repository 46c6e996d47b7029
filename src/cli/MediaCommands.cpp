// Subcommands on movie files: the candidate tracks of an embedding, embedding subtitle
// and chapter files into an M4V movie, and extracting a movie's text tracks.
#include "CTSubtitleEmbedder.h"
#include "CTSubtitleExtractor.h"
#include "CliPrompter.h"
#include "CliSupport.h"
#include "Commands.h"
#include "EmbeddingFinished.h"
#include "MainQueue.h"
#include "MovieAsset.h"

#include <QFileInfo>
#include <QThread>

#include <cmath>
#include <csignal>
#include <signal.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
// Opens MOVIE (the only positional argument); prints why when it cannot.
std::shared_ptr<const MovieAsset> openMovie(const QCommandLineParser &parser, QString *path)
{
    *path = QFileInfo(parser.positionalArguments().first()).absoluteFilePath();
    if (!checkReadableFile(*path))
        return nullptr;
    QString error;
    std::shared_ptr<const MovieAsset> asset = MovieAsset::open(*path, &error);
    if (!asset)
        printError(u"Could not read the movie '%1': %2"_s.arg(*path, error));
    return asset;
}

// Runs the main queue until `done` answers true.
template <typename Done> void runMainQueueUntil(Done done)
{
    while (!done()) {
        if (!MainQueue::main().runNext())
            QThread::msleep(10);
    }
}

QByteArray rowsAsJson(const QList<CandidateRow> &rows)
{
    QByteArray out = "[";
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const CandidateRow &row = rows[i];
        out.append(i ? ",\n  {" : "\n  {");
        out.append("\"integrate\": ").append(row.integrate ? "true" : "false");
        out.append(", \"language\": ");
        appendJsonString(out, row.language);
        out.append(", \"source\": ");
        appendJsonString(out, row.source);
        out.append(", \"location\": ");
        appendJsonString(out, row.location);
        if (row.source == u"external"_s) {
            out.append(", \"path\": ");
            appendJsonString(out, row.path);
        } else {
            out.append(", \"trackID\": ").append(QByteArray::number(row.trackID));
        }
        out.append(", \"isSubtitle\": ").append(row.isSubtitle ? "true" : "false");
        out.append("}");
    }
    out.append(rows.isEmpty() ? "]\n" : "\n]\n");
    return out;
}

// Shows an embedding's progress: a bar on a terminal, a line per whole percent otherwise.
class ProgressPrinter
{
public:
    explicit ProgressPrinter(ProgressStatus &status)
        : m_terminal(isatty(STDERR_FILENO))
    {
        m_token = status.observeKey(
            QString(), [this, &status](Observable *, const QString &, Observable::Change change) {
                if (change == Observable::Change::Did)
                    show(status);
            });
    }
    ~ProgressPrinter()
    {
        if (m_terminal && m_drawn)
            std::fputs("\n", stderr);
    }

private:
    void show(const ProgressStatus &status)
    {
        const double progress = status.progress();
        QString line;
        if (progress >= 0 && progress <= 1) {
            const int percent = int(std::floor(progress * 100));
            if (percent == m_lastPercent)
                return;
            m_lastPercent = percent;
            if (m_terminal) {
                const int filled = percent * 40 / 100;
                line =
                    u"["_s + QString(filled, u'#') + QString(40 - filled, u' ') + u"] %1%"_s.arg(percent, 3);
            } else {
                line = u"%1%"_s.arg(percent);
            }
        } else if (progress == ProgressStatus::Busy && !status.message().isEmpty() &&
                   m_lastMessage != status.message()) {
            m_lastMessage = status.message();
            line = status.message();
        } else {
            return;
        }
        if (m_terminal) {
            std::fprintf(stderr, "\r%-60s", qPrintable(line));
            m_drawn = true;
        } else {
            std::fprintf(stderr, "%s\n", qPrintable(line));
        }
        std::fflush(stderr);
    }

    bool m_terminal;
    bool m_drawn = false;
    int m_lastPercent = -1;
    QString m_lastMessage;
    Observable::KeyToken m_token;
};

// The embedder's delegate for the command line: remembers how the run ended.
class EmbedOutcome final : public CTSubtitleEmbedderDelegate
{
public:
    bool finished = false;
    bool success = false;
    QString subtitleEmbedderDidFinish(CTSubtitleEmbedder *embedder, bool ok) override
    {
        finished = true;
        success = ok;
        return ok ? embedder->outputMoviePath() : QString();
    }
};

// Asks the embedder's questions with the option that answers each one without a terminal.
class EmbedPrompter final : public Prompter
{
public:
    PromptAnswer ask(const Prompt &prompt) override
    {
        return CTSubtitleEmbedder::isDamagedMovieQuestion(prompt) ? m_damaged.ask(prompt)
                                                                  : m_subtitle.ask(prompt);
    }

private:
    CliPrompter m_subtitle{
        u"Pass --exclude ROWINDEX to embed without that file ('captora-cli tracks' lists the rows)."_s};
    CliPrompter m_damaged{u"Pass --accept-damaged to embed the movie as far as it can be read."_s};
};

// SIGINT and SIGTERM cancel a running embedding: the handler only notes the signal, the
// main loop cancels the run, which removes its output.
volatile std::sig_atomic_t s_stopSignal = 0;

void noteStopSignal(int signal)
{
    s_stopSignal = signal;
}

class StopSignals
{
public:
    StopSignals()
    {
        struct sigaction action = {};
        action.sa_handler = &noteStopSignal;
        sigemptyset(&action.sa_mask);
        sigaction(SIGINT, &action, &m_previousInt);
        sigaction(SIGTERM, &action, &m_previousTerm);
    }
    ~StopSignals()
    {
        sigaction(SIGINT, &m_previousInt, nullptr);
        sigaction(SIGTERM, &m_previousTerm, nullptr);
    }

private:
    struct sigaction m_previousInt = {};
    struct sigaction m_previousTerm = {};
};

class ExtractOutcome final : public CTSubtitleExtractorDelegate
{
public:
    bool finished = false;
    void subtitleExtractorFinished(CTSubtitleExtractor *) override { finished = true; }
};
} // namespace

int runTracks(const QStringList &args)
{
    QCommandLineParser parser;
    if (int status =
            parseArguments(parser, args,
                           u"Prints the candidate text tracks of embedding into MOVIE as JSON: subtitle "
                           "and chapter files beside it and the text tracks inside it."_s,
                           u"MOVIE"_s);
        status >= 0)
        return status;
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"tracks takes exactly one MOVIE."_s);
    QString path;
    std::shared_ptr<const MovieAsset> asset = openMovie(parser, &path);
    if (!asset)
        return ExitFailure;
    std::shared_ptr<CTSubtitleEmbedder> embedder =
        CTSubtitleEmbedder::initWithAsset(asset, path, asset->fps());
    printOut(rowsAsJson(embedder->subtitles()));
    return ExitOk;
}

int runEmbed(const QStringList &args)
{
    QCommandLineParser parser;
    parser.addOption(
        {u"exclude"_s, u"Leave out row ROWINDEX of 'tracks' (counted from 0); repeatable."_s, u"ROWINDEX"_s});
    parser.addOption({u"include"_s,
                      u"Also embed row ROWINDEX of 'tracks', which is left out by default (a "
                      "second track of a language, one without a language); repeatable."_s,
                      u"ROWINDEX"_s});
    parser.addOption({u"accept-damaged"_s,
                      u"Embed a damaged movie (reading errors, unreadable tracks) as far as it can be "
                      "read instead of failing."_s});
    parser.addOption({u"replace"_s,
                      u"Afterwards keep the movie as '<name> Original.<ext>' and move the result "
                      "to '<name>.m4v'."_s});
    if (int status = parseArguments(parser, args,
                                    u"Writes MOVIE with its subtitle and chapter files embedded into "
                                    "'<name>-Output.m4v' beside it, and prints that path."_s,
                                    u"MOVIE"_s);
        status >= 0)
        return status;
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"embed takes exactly one MOVIE."_s);
    QString path;
    std::shared_ptr<const MovieAsset> asset = openMovie(parser, &path);
    if (!asset)
        return ExitFailure;
    std::shared_ptr<CTSubtitleEmbedder> embedder =
        CTSubtitleEmbedder::initWithAsset(asset, path, asset->fps());
    for (const QString &option : {u"include"_s, u"exclude"_s}) {
        const QStringList rows = parser.values(option);
        for (const QString &text : rows) {
            bool ok = false;
            const qsizetype row = text.toLongLong(&ok);
            if (!ok || row < 0 || row >= embedder->subtitles().size())
                return usageError(parser,
                                  u"--%1 %2 names no row of 'captora-cli tracks'."_s.arg(option, text));
            embedder->subtitles()[row].integrate = option == u"include"_s;
        }
    }

    // A subtitle file that cannot be read and a damaged movie are asked about; without a
    // terminal the run stops, naming the option that answers.
    EmbedPrompter prompter;
    ScopedPrompter scoped(&prompter);
    embedder->setAcceptDamaged(parser.isSet(u"accept-damaged"_s));
    StopSignals stopSignals;
    s_stopSignal = 0;
    EmbedOutcome outcome;
    auto status = std::make_shared<ProgressStatus>();
    embedder->setDelegate(&outcome);
    embedder->setStatus(status);
    bool stopping = false;
    {
        ProgressPrinter printer(*status);
        embedder->createM4V();
        runMainQueueUntil([&] {
            if (s_stopSignal && !stopping && !embedder->hasEnded()) {
                stopping = true;
                status->cancel();
            }
            return embedder->hasEnded();
        });
    }
    // A signal that came after the output was complete changes nothing.
    if (stopping && !outcome.success) {
        printError(u"Embedding was cancelled by signal %1; nothing was written"_s.arg(int(s_stopSignal)));
        return 128 + int(s_stopSignal);
    }
    if (!outcome.success) {
        QString why = status->message();
        if (!status->errorMessage().isEmpty())
            why = why.isEmpty() ? status->errorMessage() : why + u": "_s + status->errorMessage();
        if (!outcome.finished && why.isEmpty())
            why = u"Embedding was cancelled"_s;
        printError(why.isEmpty() ? u"Embedding failed"_s : why);
        return ExitFailure;
    }
    QString result = embedder->outputMoviePath();
    if (parser.isSet(u"replace"_s)) {
        result = moveEmbeddedMovieIntoPlace(embedder->moviePath(), embedder->outputMoviePath());
        if (result.isEmpty()) {
            printError(u"The embedded movie stays at '%1'"_s.arg(embedder->outputMoviePath()));
            return ExitFailure;
        }
    }
    printOut(result.toUtf8() + '\n');
    return ExitOk;
}

int runExtract(const QStringList &args)
{
    QCommandLineParser parser;
    parser.addOption({u"chapters"_s, u"Also write the movie's chapters as '<name>.vtt'."_s});
    parser.addOption({u"only-missing"_s, u"Leave existing files alone, without asking."_s});
    if (int status = parseArguments(parser, args,
                                    u"Writes the subtitle tracks of MOVIE into SubRip files beside it "
                                    "('<name>.<language>.srt') and prints their paths."_s,
                                    u"MOVIE"_s);
        status >= 0)
        return status;
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"extract takes exactly one MOVIE."_s);
    QString path;
    std::shared_ptr<const MovieAsset> asset = openMovie(parser, &path);
    if (!asset)
        return ExitFailure;
    CliPrompter prompter(u"Pass --only-missing to keep existing files."_s);
    ScopedPrompter scoped(&prompter);
    ExtractOutcome outcome;
    std::shared_ptr<CTSubtitleExtractor> extractor =
        CTSubtitleExtractor::initWithAsset(asset, path, std::make_shared<ProgressStatus>());
    extractor->setDelegate(&outcome);
    extractor->extractSubtitles(true, parser.isSet(u"chapters"_s), parser.isSet(u"only-missing"_s));
    runMainQueueUntil([&] { return outcome.finished; });
    QByteArray out;
    for (const QString &written : extractor->queuedPaths())
        if (QFileInfo::exists(written))
            out.append(written.toUtf8()).append('\n');
    printOut(out);
    // A question nobody could answer left files out, or a damaged movie gave only part of a
    // track (said in a warning): say so through the exit status.
    return prompter.declinedForLackOfTerminal() || extractor->damagedTracks() > 0 ? ExitFailure : ExitOk;
}
