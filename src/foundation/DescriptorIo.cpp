#include "DescriptorIo.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

int writeAll(int fd, const char *data, qint64 size, qint64 offset)
{
    while (size > 0) {
        const size_t piece = size_t(std::min<qint64>(size, qint64(1) << 30));
        const ssize_t written = offset < 0 ? ::write(fd, data, piece) : ::pwrite(fd, data, piece, offset);
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return errno;
        }
        if (written == 0)
            return EIO;
        data += written;
        size -= written;
        if (offset >= 0)
            offset += written;
    }
    return 0;
}

int readAll(int fd, char *buffer, qint64 size, qint64 offset)
{
    while (size > 0) {
        const size_t piece = size_t(std::min<qint64>(size, qint64(1) << 30));
        const ssize_t got = ::pread(fd, buffer, piece, offset);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            return errno;
        }
        if (got == 0)
            return EIO;
        buffer += got;
        size -= got;
        offset += got;
    }
    return 0;
}
