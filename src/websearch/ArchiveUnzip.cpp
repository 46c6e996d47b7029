#include "ArchiveUnzip.h"

#include "FileNames.h"
#include "Log.h"

#include <QCoreApplication>
#include <QList>

#include <minizip/unzip.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <type_traits>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using ArchiveUnzip::MaxEntries;
using ArchiveUnzip::MaxTotalBytes;

struct ArchiveCloser
{
    void operator()(std::remove_pointer_t<unzFile> *archive) const { unzClose(archive); }
};
using Archive = std::unique_ptr<std::remove_pointer_t<unzFile>, ArchiveCloser>;

// A descriptor closed when it goes out of scope.
class Descriptor
{
public:
    explicit Descriptor(int fd = -1)
        : m_fd(fd)
    {}
    Descriptor(Descriptor &&other) noexcept
        : m_fd(std::exchange(other.m_fd, -1))
    {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    int get() const { return m_fd; }
    bool isValid() const { return m_fd >= 0; }

private:
    int m_fd;
};

// Names are kept as the archive's bytes, so that they are created exactly as stored; the
// log shows them through the lossless file-name mapping.
QString shown(const QByteArray &name)
{
    return logExcerpt(decodeFileName(name));
}

QString tr(const char *text)
{
    return QCoreApplication::translate("ArchiveUnzip", text);
}

struct Entry
{
    QByteArray rawName;
    QList<QByteArray> components; // "." and empty parts dropped
    bool folder = false;
    bool unsafe = false;
    bool link = false;
    bool encrypted = false;
};

Entry describe(const QByteArray &raw, const unz_file_info64 &info)
{
    Entry entry;
    entry.rawName = raw;
    QByteArray name = raw;
    name.replace('\\', '/');
    const bool drive = name.size() >= 2 && name[1] == ':' &&
                       ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= 'a' && name[0] <= 'z'));
    entry.unsafe = name.startsWith('/') || drive || name.contains('\0');
    entry.folder = name.endsWith('/');
    for (const QByteArray &part : name.split('/')) {
        if (part == "..")
            entry.unsafe = true;
        else if (!part.isEmpty() && part != ".")
            entry.components << part;
    }
    if (entry.components.isEmpty())
        entry.unsafe = true;
    // Zips made on Unix keep the file's mode in the high half of the external attributes.
    entry.link = ((info.external_fa >> 16) & S_IFMT) == S_IFLNK;
    entry.encrypted = (info.flag & 1) != 0;
    return entry;
}

class Unzipper
{
public:
    Unzipper(const QString &archivePath, QStringList *problems)
        : m_archivePath(archivePath)
        , m_problems(problems)
    {}

    bool run(const QString &folder);

private:
    void problem(const QString &logText, const QString &userText)
    {
        logLine(logText);
        if (m_problems)
            m_problems->append(userText);
    }
    void skip(const Entry &entry, const QString &why, const QString &userWhy)
    {
        problem(u"Warning: Skipped \"%1\" in %2: %3"_s.arg(shown(entry.rawName), m_archivePath, why),
                tr("“%1” was not unpacked: %2").arg(shown(entry.rawName), userWhy));
    }
    bool checkLimits(unzFile archive);
    bool extract(unzFile archive, const Entry &entry);
    Descriptor openFolders(const QList<QByteArray> &components, qsizetype count, QString *error);
    void removeCreated();

    QString m_archivePath;
    QStringList *m_problems;
    Descriptor m_root;
    // What this run made, in order, relative to the root; removed again when the run stops.
    QList<std::pair<QByteArray, bool>> m_created; // path, is a folder
};

bool Unzipper::checkLimits(unzFile archive)
{
    unz_global_info64 global{};
    if (unzGetGlobalInfo64(archive, &global) != UNZ_OK) {
        problem(u"Warning: %1 is not a readable zip archive"_s.arg(m_archivePath),
                tr("The download is not a readable zip archive."));
        return false;
    }
    const auto tooMany = [this] {
        problem(u"Warning: Stopped unzipping %1: it has more than %2 entries"_s.arg(m_archivePath)
                    .arg(MaxEntries),
                tr("The archive was not unpacked: it has more than %1 files.").arg(MaxEntries));
        return false;
    };
    if (global.number_entry > ZPOS64_T(MaxEntries))
        return tooMany();
    // The central directory may claim fewer entries than it lists, and sizes that do not add
    // up: walk it and count for ourselves.
    int count = 0;
    ZPOS64_T total = 0;
    for (int status = unzGoToFirstFile(archive); status != UNZ_END_OF_LIST_OF_FILE;
         status = unzGoToNextFile(archive)) {
        unz_file_info64 info{};
        if (status != UNZ_OK ||
            unzGetCurrentFileInfo64(archive, &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK) {
            problem(u"Warning: %1 is a damaged zip archive"_s.arg(m_archivePath),
                    tr("The archive is damaged and was not unpacked."));
            return false;
        }
        if (++count > MaxEntries)
            return tooMany();
        total += info.uncompressed_size;
        if (info.uncompressed_size > ZPOS64_T(MaxTotalBytes) || total > ZPOS64_T(MaxTotalBytes)) {
            problem(u"Warning: Stopped unzipping %1: its entries would unpack to more than %2 MB"_s
                        .arg(m_archivePath)
                        .arg(MaxTotalBytes / (1024 * 1024)),
                    tr("The archive was not unpacked: its files would take more than %1 MB.")
                        .arg(MaxTotalBytes / (1024 * 1024)));
            return false;
        }
    }
    return true;
}

Descriptor Unzipper::openFolders(const QList<QByteArray> &components, qsizetype count, QString *error)
{
    Descriptor current(::fcntl(m_root.get(), F_DUPFD_CLOEXEC, 0));
    QByteArray path;
    for (qsizetype i = 0; i < count && current.isValid(); ++i) {
        path += (path.isEmpty() ? QByteArray() : QByteArrayLiteral("/")) + components[i];
        if (::mkdirat(current.get(), components[i].constData(), 0700) == 0) {
            m_created.append({path, true});
        } else if (errno != EEXIST) {
            *error = errnoText(errno);
            return Descriptor();
        }
        // A name that is there already must be a real folder: a link is never followed.
        current = Descriptor(::openat(current.get(), components[i].constData(),
                                      O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    }
    if (!current.isValid())
        *error = errnoText(errno);
    return current;
}

bool Unzipper::extract(unzFile archive, const Entry &entry)
{
    QString error;
    const qsizetype folders = entry.folder ? entry.components.size() : entry.components.size() - 1;
    const Descriptor parent = openFolders(entry.components, folders, &error);
    if (!parent.isValid()) {
        skip(entry, error, error);
        return false;
    }
    if (entry.folder)
        return true;
    const QByteArray &name = entry.components.last();
    const QByteArray path = entry.components.join('/');
    Descriptor file(
        ::openat(parent.get(), name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!file.isValid()) {
        const QString reason = errno == EEXIST ? u"the name is taken already"_s : errnoText(errno);
        skip(entry, reason, errno == EEXIST ? tr("a file of that name was unpacked already") : reason);
        return false;
    }
    m_created.append({path, false});
    bool ok = unzOpenCurrentFile(archive) == UNZ_OK;
    char buffer[64 * 1024];
    qint64 written = 0;
    while (ok) {
        const int got = unzReadCurrentFile(archive, buffer, sizeof buffer);
        if (got == 0)
            break;
        if (got < 0 || written + got > MaxTotalBytes) {
            ok = false;
            break;
        }
        for (int done = 0; done < got && ok;) {
            const ssize_t n = ::write(file.get(), buffer + done, size_t(got - done));
            if (n > 0)
                done += int(n);
            else if (n < 0 && errno != EINTR)
                ok = false;
        }
        written += got;
    }
    // Closing checks the checksum of what was read.
    if (unzCloseCurrentFile(archive) != UNZ_OK)
        ok = false;
    if (!ok) {
        ::unlinkat(parent.get(), name.constData(), 0);
        m_created.removeLast();
        skip(entry, u"its data is damaged"_s, tr("its data is damaged"));
    }
    return ok;
}

void Unzipper::removeCreated()
{
    for (auto it = m_created.crbegin(); it != m_created.crend(); ++it)
        ::unlinkat(m_root.get(), it->first.constData(), it->second ? AT_REMOVEDIR : 0);
    m_created.clear();
}

bool Unzipper::run(const QString &folder)
{
    m_root = Descriptor(
        ::open(encodeFileName(folder).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!m_root.isValid()) {
        problem(u"Warning: Cannot unzip into %1: %2"_s.arg(folder, errnoText(errno)),
                tr("The archive could not be unpacked: %1").arg(errnoText(errno)));
        return false;
    }
    const Archive archive(unzOpen64(encodeFileName(m_archivePath).constData()));
    if (!archive) {
        problem(u"Warning: %1 is not a readable zip archive"_s.arg(m_archivePath),
                tr("The download is not a readable zip archive."));
        return false;
    }
    if (!checkLimits(archive.get()))
        return false;

    bool everything = true;
    int count = 0;
    for (int status = unzGoToFirstFile(archive.get()); status != UNZ_END_OF_LIST_OF_FILE;
         status = unzGoToNextFile(archive.get())) {
        unz_file_info64 info{};
        char name[4096];
        if (status != UNZ_OK || ++count > MaxEntries ||
            unzGetCurrentFileInfo64(archive.get(), &info, name, sizeof name, nullptr, 0, nullptr, 0) !=
                UNZ_OK) {
            // The walk that counted went through; a second one that does not is no archive
            // to trust.
            removeCreated();
            problem(u"Warning: %1 is a damaged zip archive"_s.arg(m_archivePath),
                    tr("The archive is damaged and was not unpacked."));
            return false;
        }
        const Entry entry =
            describe(QByteArray(name, int(std::min<uLong>(info.size_filename, sizeof name))), info);
        if (info.size_filename >= sizeof name) {
            skip(entry, u"its name is too long"_s, tr("its name is too long"));
            everything = false;
        } else if (entry.unsafe) {
            skip(entry, u"its name leads outside the folder"_s, tr("its name leads outside the folder"));
            everything = false;
        } else if (entry.link) {
            skip(entry, u"it is a symbolic link"_s, tr("it is a symbolic link"));
            everything = false;
        } else if (entry.encrypted) {
            skip(entry, u"it is encrypted, and Captora does not unpack password-protected files"_s,
                 tr("it is protected by a password, which Captora does not support"));
            everything = false;
        } else if (!extract(archive.get(), entry)) {
            everything = false;
        }
    }
    return everything;
}

} // namespace

bool ArchiveUnzip::unzip(const QString &archivePath, const QString &folder, QStringList *problems)
{
    return Unzipper(archivePath, problems).run(folder);
}
