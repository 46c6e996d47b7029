#include "RegularFile.h"

#include "FileNames.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace RegularFile {

namespace {
QString megabytes(qint64 bytes)
{
    return QString::number(double(bytes) / double(1 << 20), 'f', bytes >= (qint64(10) << 20) ? 0 : 1);
}

Failure systemFailure(int error)
{
    return {error, errnoText(error)};
}

std::optional<Failure> refusal(const struct stat &info, qint64 limit)
{
    if (!S_ISREG(info.st_mode))
        return Failure{0, u"it is %1, not a regular file"_s.arg(kindName(info.st_mode))};
    if (info.st_size > limit)
        return Failure{0, tooLargeReason(info.st_size, limit)};
    return std::nullopt;
}

// Opens `path` for reading if it is a regular file within the limit; -1 with `failure` set
// otherwise. The type is checked before opening (opening a device can have effects of its
// own) and again on the open descriptor, in case the name was replaced in between; the
// open does not block, whatever the name has become.
int openChecked(const QString &path, qint64 limit, Failure *failure, struct stat *info)
{
    const QByteArray name = encodeFileName(path);
    if (::stat(name.constData(), info) != 0) {
        *failure = systemFailure(errno);
        return -1;
    }
    if (auto refused = refusal(*info, limit)) {
        *failure = *refused;
        return -1;
    }
    const int fd = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        *failure = systemFailure(errno);
        return -1;
    }
    std::optional<Failure> refused;
    if (::fstat(fd, info) != 0)
        refused = systemFailure(errno);
    else
        refused = refusal(*info, limit);
    if (refused) {
        ::close(fd);
        *failure = *refused;
        return -1;
    }
    return fd;
}
} // namespace

QString kindName(mode_t mode)
{
    if (S_ISDIR(mode))
        return u"a folder"_s;
    if (S_ISFIFO(mode))
        return u"a FIFO"_s;
    if (S_ISCHR(mode))
        return u"a character device"_s;
    if (S_ISBLK(mode))
        return u"a block device"_s;
    if (S_ISSOCK(mode))
        return u"a socket"_s;
    if (S_ISLNK(mode))
        return u"a symbolic link"_s;
    return S_ISREG(mode) ? u"a regular file"_s : u"not a file"_s;
}

QString tooLargeReason(qint64 size, qint64 limit)
{
    return u"it is %1 MB (%2 bytes), more than the %3 MB read at most"_s.arg(megabytes(size))
        .arg(size)
        .arg(megabytes(limit));
}

std::optional<Failure> check(const QString &path, qint64 limit)
{
    Failure failure;
    struct stat info
    {
    };
    const int fd = openChecked(path, limit, &failure, &info);
    if (fd < 0)
        return failure;
    ::close(fd);
    return std::nullopt;
}

std::optional<QByteArray> read(const QString &path, qint64 limit, Failure *failure)
{
    struct stat info
    {
    };
    const int fd = openChecked(path, limit, failure, &info);
    if (fd < 0)
        return std::nullopt;
    QByteArray bytes;
    bytes.reserve(qsizetype(info.st_size) + (1 << 16));
    constexpr qsizetype chunk = 1 << 16;
    for (;;) {
        const qsizetype used = bytes.size();
        // Files whose size the system does not know (some under /proc) grow in chunks; one
        // byte beyond the limit is enough to know the file is too large.
        bytes.resize(used + chunk);
        const ssize_t got = ::read(fd, bytes.data() + used, size_t(chunk));
        if (got < 0) {
            if (errno == EINTR) {
                bytes.resize(used);
                continue;
            }
            *failure = systemFailure(errno);
            ::close(fd);
            return std::nullopt;
        }
        bytes.resize(used + got);
        if (got == 0)
            break;
        if (bytes.size() > limit) {
            *failure = {0, tooLargeReason(bytes.size(), limit)};
            ::close(fd);
            return std::nullopt;
        }
    }
    ::close(fd);
    return bytes;
}

} // namespace RegularFile
