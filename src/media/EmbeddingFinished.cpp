#include "EmbeddingFinished.h"

#include "CTFileHelper.h"
#include "CTWindowController.h"
#include "Log.h"
#include "Prompter.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QString moveEmbeddedMovieIntoPlace(const QString &moviePath, const QString &outputPath)
{
    const QString original = CTFileHelper::stringByDeletingPathExtension(moviePath) +
                             u" Original.%1"_s.arg(CTFileHelper::pathExtension(moviePath));
    QFile movie(moviePath);
    if (QFileInfo::exists(original)) {
        // An earlier original is kept; this movie is itself an output of ours.
        if (!movie.remove())
            logLine(
                u"Warning: Movie could not be deleted, because %1\n%2"_s.arg(movie.errorString(), moviePath));
    } else if (!movie.rename(original)) {
        logLine(u"Warning: Movie could not be renamed to \u2026Original, because %1\n%2 --> %3"_s.arg(
            movie.errorString(), moviePath, original));
    }
    const QString target = CTFileHelper::stringByDeletingLocaleAndPathExtension(moviePath) + u".m4v"_s;
    QFile output(outputPath);
    if (!output.rename(target)) {
        logLine(u"Warning: Movie with embedded subtitles could not be renamed, because %1\n%2 --> %3"_s.arg(
            output.errorString(), outputPath, moviePath));
        return {};
    }
    return target;
}

void subtitleEmbedderStarted(CTWindowController &project, const QString &embeddedMoviePath)
{
    if (embeddedMoviePath == project.moviePath())
        project.setEmbeddingState(1);
}

QString subtitleEmbedderDidFinish(CTWindowController &project, const QString &embeddedMoviePath,
                                  const QString &outputPath, bool success)
{
    if (!success) {
        project.setEmbeddingState(2);
        return {};
    }
    const bool editingIt = embeddedMoviePath == project.moviePath();
    if (editingIt && project.embeddingState() == 1)
        project.setEmbeddingState(0);
    const QString moved = moveEmbeddedMovieIntoPlace(embeddedMoviePath, outputPath);
    if (!moved.isEmpty() && editingIt) {
        Prompt prompt;
        prompt.message =
            u"Finished embedding the file you are currently editing. We need to reload the file to avoid conflicts."_s;
        prompt.buttons = {u"OK"_s};
        Prompter::shared().ask(prompt);
        project.setMoviePath(moved);
    }
    return moved;
}
