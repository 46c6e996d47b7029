#pragma once

#include <QString>

class CTWindowController;

// After a successful embedding: keeps the old movie as "<name> Original.<ext>" (or, when
// such an original is kept already, deletes the movie), then moves the output to
// "<name without locale>.m4v". Failures are logged, never shown. Returns the new movie's
// path when the move succeeded, else an empty string.
QString moveEmbeddedMovieIntoPlace(const QString &moviePath, const QString &outputPath);

// The project's side of an embedding's start (the embedder's subtitleEmbedderStarted):
// an embedding of the project's own movie puts the project in embedding state 1.
void subtitleEmbedderStarted(CTWindowController &project, const QString &embeddedMoviePath);

// The project's side of an embedding's end (the embedder's delegate call): the embedding
// state (2 after a failure; 0 after a success on the project's running embedding), the
// renames, and, when the project is editing that movie, the notice that it is reloaded
// and the reload. Returns the file to show: the new movie, or an empty string.
QString subtitleEmbedderDidFinish(CTWindowController &project, const QString &embeddedMoviePath,
                                  const QString &outputPath, bool success);
