#include "AtomicFile.h"

#include "DescriptorIo.h"
#include "FileNames.h"
#include "RegularFile.h"

#include <QList>
#include <QRandomGenerator>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <mutex>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
// A descriptor closed when it goes; close() reports the error of a checked close.
class Descriptor
{
public:
    explicit Descriptor(int fd = -1)
        : m_fd(fd)
    {}
    ~Descriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    int get() const { return m_fd; }
    bool valid() const { return m_fd >= 0; }
    // 0, or the errno of a failed close (NFS reports write errors there).
    int close()
    {
        const int result = ::close(m_fd);
        m_fd = -1;
        return result == 0 ? 0 : errno;
    }

private:
    int m_fd;
};

// Copies the whole of `from` (from its start) to `to` at offset 0; 0 or the errno.
int copyContent(int from, int to)
{
    char buffer[1 << 16];
    off_t offset = 0;
    for (;;) {
        const ssize_t got = ::pread(from, buffer, sizeof buffer, offset);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            return errno;
        }
        if (got == 0)
            return 0;
        if (const int error = writeAll(to, buffer, got, offset))
            return error;
        offset += got;
    }
}

// A save that meets the file size limit must fail with EFBIG, not kill the program with
// SIGXFSZ and leave the work unsaved; a handler someone installed is left alone.
void ignoreFileSizeSignal()
{
    static std::once_flag once;
    std::call_once(once, [] {
        struct sigaction current
        {
        };
        if (sigaction(SIGXFSZ, nullptr, &current) == 0 && current.sa_handler == SIG_DFL) {
            struct sigaction ignore
            {
            };
            ignore.sa_handler = SIG_IGN;
            sigaction(SIGXFSZ, &ignore, nullptr);
        }
    });
}

// The name part our temporaries carry: at most 200 bytes of the target's name, so that
// the whole temporary name stays within the 255 bytes a name may have.
QByteArray namePart(const QByteArray &fileName)
{
    return '.' + fileName.left(200) + ".captora-";
}

QByteArray ourName(const QByteArray &fileName, const char *suffix)
{
    return namePart(fileName) + QByteArray::number(qint64(::getpid())) + '-' +
           QByteArray::number(QRandomGenerator::global()->generate64() & 0xFFFFFFFFFFFFull, 16) + suffix;
}

// Removes ".<name>.captora-<pid>-<hex>.tmp" files beside the target whose process no
// longer runs: what a killed run left behind. Copies of old content (".old") stay, since
// they may be the only copy left after a crash while writing in place.
void removeStaleTemporaries(const QByteArray &folder, const QByteArray &fileName)
{
    DIR *dir = ::opendir(folder.constData());
    if (!dir)
        return;
    const QByteArray prefix = namePart(fileName);
    while (const dirent *entry = ::readdir(dir)) {
        const QByteArray name(entry->d_name);
        if (!name.startsWith(prefix) || !name.endsWith(".tmp"))
            continue;
        const QByteArray rest = name.mid(prefix.size(), name.size() - prefix.size() - 4);
        const qsizetype dash = rest.indexOf('-');
        bool pidOk = false, randomOk = false;
        const qint64 pid = rest.left(dash).toLongLong(&pidOk);
        rest.mid(dash + 1).toULongLong(&randomOk, 16);
        if (dash <= 0 || !pidOk || !randomOk || pid <= 0 || pid > INT_MAX || pid == ::getpid())
            continue;
        if (::kill(pid_t(pid), 0) == 0 || errno != ESRCH)
            continue; // still running (or not ours to ask): its writer may be at work
        struct stat info
        {
        };
        if (::fstatat(::dirfd(dir), name.constData(), &info, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISREG(info.st_mode))
            ::unlinkat(::dirfd(dir), name.constData(), 0);
    }
    ::closedir(dir);
}

// Copies the extended attributes of `from` onto the descriptor `to`. Those of the user
// namespace must arrive; others (security labels, ACLs, trusted attributes) are copied
// where the process may set them.
QString copyExtendedAttributes(const QByteArray &from, int to)
{
    ssize_t size = ::listxattr(from.constData(), nullptr, 0);
    if (size < 0)
        return errno == ENOTSUP ? QString()
                                : u"could not list its extended attributes: "_s + errnoText(errno);
    QByteArray names(size, '\0');
    size = ::listxattr(from.constData(), names.data(), size_t(names.size()));
    if (size < 0)
        return u"could not list its extended attributes: "_s + errnoText(errno);
    names.truncate(size);
    for (const QByteArray &name : names.split('\0')) {
        if (name.isEmpty())
            continue;
        const bool mustKeep = name.startsWith("user.");
        const ssize_t length = ::getxattr(from.constData(), name.constData(), nullptr, 0);
        QByteArray value(std::max<ssize_t>(length, 0), '\0');
        if (length < 0 ||
            ::getxattr(from.constData(), name.constData(), value.data(), size_t(value.size())) < 0 ||
            ::fsetxattr(to, name.constData(), value.constData(), size_t(value.size()), 0) != 0) {
            if (mustKeep)
                return u"could not keep its extended attribute '%1': %2"_s.arg(decodeFileName(name),
                                                                               errnoText(errno));
        }
    }
    return {};
}

void syncFolder(const QByteArray &folder)
{
    const Descriptor dir(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.valid())
        ::fsync(dir.get()); // the rename is durable once the folder is; a failure changes nothing now
}

struct Target
{
    QByteArray path;     // the file itself, symbolic links resolved
    QByteArray folder;   // its folder
    QByteArray fileName; // its name in the folder
    bool exists = false;
    struct stat info
    {
    };
};

// Finds the file that writing `path` replaces, or the reason not to write it.
QString resolveTarget(const QString &path, Target *target)
{
    const QByteArray name = encodeFileName(path);
    struct stat link
    {
    };
    target->path = name;
    if (::lstat(name.constData(), &link) != 0) {
        if (errno != ENOENT)
            return errnoText(errno);
    } else {
        if (S_ISLNK(link.st_mode)) {
            if (::stat(name.constData(), &target->info) != 0) {
                if (errno == ENOENT)
                    return u"'%1' is a symbolic link to a file that does not exist"_s.arg(path);
                return errnoText(errno); // a loop: "Too many levels of symbolic links"
            }
            char *resolved = ::realpath(name.constData(), nullptr);
            if (!resolved)
                return errnoText(errno);
            target->path = QByteArray(resolved);
            std::free(resolved);
        } else {
            target->info = link;
        }
        if (!S_ISREG(target->info.st_mode))
            return u"'%1' is %2, not a regular file; it was left as it is"_s.arg(
                path, RegularFile::kindName(target->info.st_mode));
        target->exists = true;
    }
    const qsizetype slash = target->path.lastIndexOf('/');
    target->folder = slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : target->path.left(slash);
    target->fileName = target->path.mid(slash + 1);
    if (target->fileName.isEmpty())
        return u"'%1' names a folder, not a file"_s.arg(path);
    return {};
}

QString replaceThroughTemporary(const Target &target, const QByteArray &data)
{
    const QByteArray temporary = target.folder + '/' + ourName(target.fileName, ".tmp");
    Descriptor file(::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.valid())
        return errnoText(errno);
    auto fail = [&](const QString &reason) {
        ::unlink(temporary.constData());
        return reason;
    };
    if (const int error = writeAll(file.get(), data.constData(), data.size()))
        return fail(errnoText(error));
    if (target.exists) {
        if (const QString problem = copyExtendedAttributes(target.path, file.get()); !problem.isEmpty())
            return fail(problem);
        // Owner first: changing it clears the setuid and setgid bits that the mode then sets.
        if (::fchown(file.get(), target.info.st_uid, target.info.st_gid) != 0)
            (void)::fchown(file.get(), uid_t(-1), target.info.st_gid); // not permitted: keep what we may
        if (::fchmod(file.get(), target.info.st_mode & 07777) != 0)
            return fail(errnoText(errno));
    }
    if (::fsync(file.get()) != 0)
        return fail(errnoText(errno));
    if (const int error = file.close())
        return fail(errnoText(error));
    if (::rename(temporary.constData(), target.path.constData()) != 0)
        return fail(errnoText(errno));
    syncFolder(target.folder);
    return {};
}

// For a file with several hard links: see the header.
QString overwriteInPlace(const Target &target, const QByteArray &data)
{
    Descriptor file(::open(target.path.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!file.valid())
        return errnoText(errno);
    struct stat info
    {
    };
    if (::fstat(file.get(), &info) != 0)
        return errnoText(errno);
    if (!S_ISREG(info.st_mode) || info.st_ino != target.info.st_ino || info.st_dev != target.info.st_dev)
        return u"the file was replaced while it was being saved"_s;

    const QByteArray copyPath = target.folder + '/' + ourName(target.fileName, ".old");
    Descriptor copy(::open(copyPath.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!copy.valid())
        return u"could not keep a copy of the old content: "_s + errnoText(errno);
    int error = copyContent(file.get(), copy.get());
    if (!error && ::fsync(copy.get()) != 0)
        error = errno;
    if (error) {
        ::unlink(copyPath.constData());
        return u"could not keep a copy of the old content: "_s + errnoText(error);
    }

    // Reserve the space first where the filesystem can: a full disk then fails here, before
    // the first byte of the file changes.
    if (data.size() > info.st_size && ::fallocate(file.get(), 0, 0, data.size()) != 0 &&
        errno != EOPNOTSUPP && errno != ENOSYS) {
        error = errno;
        (void)::ftruncate(file.get(), info.st_size);
        ::unlink(copyPath.constData());
        return errnoText(error);
    }
    error = writeAll(file.get(), data.constData(), data.size(), 0);
    if (!error && ::ftruncate(file.get(), data.size()) != 0)
        error = errno;
    if (!error && ::fsync(file.get()) != 0)
        error = errno;
    if (error) {
        const bool restored = copyContent(copy.get(), file.get()) == 0 &&
                              ::ftruncate(file.get(), info.st_size) == 0 && ::fsync(file.get()) == 0;
        if (!restored)
            return u"%1; the old content is kept in '%2'"_s.arg(errnoText(error), decodeFileName(copyPath));
        ::unlink(copyPath.constData());
        return errnoText(error);
    }
    ::unlink(copyPath.constData());
    return {};
}
} // namespace

bool writeFileAtomically(const QString &path, const QByteArray &data, QString *error)
{
    ignoreFileSizeSignal();
    Target target;
    QString problem = resolveTarget(path, &target);
    if (problem.isEmpty() && target.exists && ::access(target.path.constData(), W_OK) != 0)
        problem = errnoText(errno); // a read-only file stays read-only, although its folder is writable
    if (problem.isEmpty()) {
        removeStaleTemporaries(target.folder, target.fileName);
        problem = target.exists && target.info.st_nlink > 1 ? overwriteInPlace(target, data)
                                                            : replaceThroughTemporary(target, data);
    }
    if (problem.isEmpty())
        return true;
    if (error)
        *error = problem;
    return false;
}
