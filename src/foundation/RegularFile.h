#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <sys/types.h>

// Reading files whole, safely: only regular files (or symbolic links to one) are opened, and
// they are opened without blocking, so a FIFO, a device or a socket gets a message at once
// instead of hanging the program or filling its memory. A file above a size limit is not
// read; the limit is checked before reading and again while reading, since a file may grow.
namespace RegularFile {

// Limits of what one read pulls into memory. Subtitle and chapter files are far below
// 256 MB in practice (a feature film has some 100 KB); the property lists and encoding rules
// the program keeps are a few KB.
inline constexpr qint64 SubtitleLimit = qint64(256) << 20;
inline constexpr qint64 PropertyListLimit = qint64(32) << 20;
inline constexpr qint64 RulesLimit = qint64(4) << 20;

struct Failure
{
    int errorNumber = 0; // errno when the system refused, 0 when the file was refused here
    QString reason;      // "No such file or directory", "it is a FIFO, not a regular file", ...
};

// Checks that `path` is a regular file of at most `limit` bytes that can be opened for
// reading, without reading it.
std::optional<Failure> check(const QString &path, qint64 limit);

// The whole content of `path`, or the failure.
std::optional<QByteArray> read(const QString &path, qint64 limit, Failure *failure);

// "a FIFO", "a character device", "a socket", "a block device", "a folder" for a mode that
// is not a regular file's.
QString kindName(mode_t mode);
// The reason for refusing a file of `size` bytes above `limit`, naming both.
QString tooLargeReason(qint64 size, qint64 limit);

} // namespace RegularFile
