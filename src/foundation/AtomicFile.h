#pragma once

#include <QByteArray>
#include <QString>

// Writes `data` to `path` so that the file holds either its old content or all of the new
// one, never a part, whatever goes wrong (a full disk, a quota, a file size limit, a kill):
//
// - The target must be missing, a regular file, or a symbolic link to a regular file (the
//   link stays and the file it points to is replaced). A FIFO, a device, a socket, a folder,
//   a dangling link or a link loop is refused with the reason and left as it is.
// - The data goes to a temporary file beside the target, named
//   ".<name>.captora-<pid>-<random>.tmp"; every write, the flush to disk and the close are
//   checked, and only then is the temporary renamed over the target. On any failure the
//   temporary is removed and the old file is untouched. Temporaries of this naming beside the
//   same target whose process is gone (a killed run) are removed before writing.
// - The replacement keeps the old file's mode (setgid included), its owner and group where
//   the process may set them, and its extended attributes.
// - A file with several hard links is written in place, so that every name keeps seeing it:
//   its old content is first copied to ".<name>.captora-<pid>-<random>.old" beside it and
//   flushed, the new content is written over the file and flushed, and the copy is removed.
//   If writing fails, the old content is put back from the copy; should even that fail, the
//   copy stays and the error names it.
//
// On failure `error` (if given) receives the reason, in the system's words where the system
// refused ("No space left on device", "File too large", "Permission denied").
bool writeFileAtomically(const QString &path, const QByteArray &data, QString *error = nullptr);
