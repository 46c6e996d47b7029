#pragma once

#include <QtGlobal>

// Whole reads and writes on a file descriptor: short transfers are continued and EINTR is
// retried, so a caller sees either everything done or the reason it stopped.

// Writes all of `size` bytes at `offset` (or at the current position when it is -1);
// returns 0 or the errno of the write that failed. A short write is followed by another
// write, which then reports the reason (a full disk, a size limit).
int writeAll(int fd, const char *data, qint64 size, qint64 offset = -1);

// Reads exactly `size` bytes at `offset`; returns 0, the errno of the read that failed, or
// EIO when the file ends first.
int readAll(int fd, char *buffer, qint64 size, qint64 offset);
