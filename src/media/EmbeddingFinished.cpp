#include "EmbeddingFinished.h"

#include "CTFileHelper.h"
#include "CTWindowController.h"
#include "Log.h"
#include "MovieAsset.h"
#include "Prompter.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
int pictureTracks(const MovieAsset &asset)
{
    int count = 0;
    for (const MovieTrack &track : asset.tracks())
        count += track.kind == MovieTrack::Kind::Video;
    return count;
}

// Why the output must not replace the movie, or an empty string.
QString whyNotInPlace(const QString &moviePath, const QString &outputPath)
{
    if (!QFileInfo(outputPath).isFile())
        return u"%1 does not exist"_s.arg(outputPath);
    const std::shared_ptr<const MovieAsset> movie = MovieAsset::open(moviePath);
    // A movie that cannot be read any more has nothing to compare; an output that cannot
    // be read is no movie.
    if (!movie)
        return {};
    const std::shared_ptr<const MovieAsset> output = MovieAsset::open(outputPath);
    if (!output)
        return u"it cannot be read as a movie"_s;
    if (pictureTracks(*output) < pictureTracks(*movie))
        return u"it lacks the movie's video"_s;
    return {};
}
} // namespace

QString moveEmbeddedMovieIntoPlace(const QString &moviePath, const QString &outputPath)
{
    const QString original = CTFileHelper::stringByDeletingPathExtension(moviePath) +
                             u" Original.%1"_s.arg(CTFileHelper::pathExtension(moviePath));
    const QString target = CTFileHelper::stringByDeletingLocaleAndPathExtension(moviePath) + u".m4v"_s;
    // Nothing is renamed or deleted unless the output can take the movie's place: it must
    // carry the movie's pictures, and the new name must be free (or the movie's own).
    if (const QString why = whyNotInPlace(moviePath, outputPath); !why.isEmpty()) {
        logLine(u"Warning: Movie with embedded subtitles could not be renamed, because %1\n%2 --> %3"_s.arg(
            why, outputPath, moviePath));
        return {};
    }
    if (target != moviePath && QFileInfo(target).exists()) {
        logLine(u"Warning: Movie with embedded subtitles could not be renamed, because %1\n%2 --> %3"_s.arg(
            u"%1 exists"_s.arg(target), outputPath, target));
        return {};
    }
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
        prompt.message = QCoreApplication::translate(
            "CTSubtitleEmbedder", "Finished embedding the file you are currently editing. We "
                                  "need to reload the file to avoid conflicts.");
        prompt.buttons = {QCoreApplication::translate("CTSubtitleEmbedder", "OK")};
        Prompter::shared().ask(prompt);
        project.setMoviePath(moved);
    }
    return moved;
}
