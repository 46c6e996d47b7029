#include "WebDownloads.h"

#include "AtomicFile.h"
#include "FileNames.h"
#include "RegularFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
const QString FolderPrefix = u"captora-websearch-"_s;
} // namespace

bool WebDownloads::mimeTriggersDownload(const QString &mimeType, const QStringList &fragments)
{
    for (const QString &fragment : fragments) {
        if (!fragment.isEmpty() && mimeType.contains(fragment, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

bool WebDownloads::acceptsDownload(const QString &mimeType, const QString &suggestedName,
                                   const QStringList &fragments)
{
    if (mimeTriggersDownload(mimeType, fragments))
        return true;
    static const QStringList bytes{u"application/octet-stream"_s,   u"binary/octet-stream"_s,
                                   u"application/force-download"_s, u"application/x-download"_s,
                                   u"application/download"_s,       u"application/unknown"_s};
    const QString type = mimeType.section(u';', 0, 0).trimmed().toLower();
    if (type.isEmpty() || bytes.contains(type))
        return true;
    const QString extension = QFileInfo(suggestedName).suffix().toLower();
    return !extension.isEmpty() && fragments.contains(extension, Qt::CaseInsensitive);
}

WebDownloads::Handling WebDownloads::handlingForName(const QString &suggestedName)
{
    const QString extension = QFileInfo(suggestedName).suffix().toLower();
    return {extension == u"zip"_s, extension == u"rar"_s};
}

WebDownloads::Handling WebDownloads::sniffFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray start = file.read(7);
    return {start.startsWith("PK"), start == QByteArray("Rar!\x1a\x07\x00", 7)};
}

QString WebDownloads::safeFileName(const QString &suggestedName)
{
    QString name = suggestedName.section(u'/', -1).section(u'\\', -1).trimmed();
    name.remove(QChar(0));
    if (name.isEmpty() || name == u"."_s || name == u".."_s)
        return u"download"_s;
    return name;
}

QString WebDownloads::makePrivateFolder()
{
    // QTemporaryDir makes the folder with mode 0700.
    QTemporaryDir folder(QDir::tempPath() + u'/' + FolderPrefix + QString::number(::getpid()) + u"-XXXXXX"_s);
    if (!folder.isValid())
        return {};
    folder.setAutoRemove(false);
    return folder.path();
}

int WebDownloads::removeStalePrivateFolders()
{
    int removed = 0;
    const QDir temporary(QDir::tempPath());
    const QStringList names =
        temporary.entryList({FolderPrefix + u"*"_s}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    static const QRegularExpression naming(u"^captora-websearch-(\\d+)-.+$"_s);
    for (const QString &name : names) {
        const QRegularExpressionMatch match = naming.match(name);
        if (!match.hasMatch())
            continue;
        const QString path = temporary.filePath(name);
        struct stat info
        {
        };
        if (::lstat(encodeFileName(path).constData(), &info) != 0 || !S_ISDIR(info.st_mode) ||
            info.st_uid != ::getuid())
            continue;
        bool ok = false;
        const pid_t pid = match.captured(1).toInt(&ok);
        // A process that still runs (or that we may not signal: another user's) keeps its folder.
        if (!ok || pid <= 0 || pid == ::getpid() || ::kill(pid, 0) == 0 || errno != ESRCH)
            continue;
        if (QDir(path).removeRecursively())
            ++removed;
    }
    return removed;
}

bool WebDownloads::moveFile(const QString &from, const QString &to, QString *error)
{
    if (::rename(encodeFileName(from).constData(), encodeFileName(to).constData()) == 0)
        return true;
    if (errno != EXDEV) {
        if (error)
            *error = errnoText(errno);
        return false;
    }
    RegularFile::Failure failure;
    const std::optional<QByteArray> data = RegularFile::read(from, RegularFile::SubtitleLimit, &failure);
    if (!data) {
        if (error)
            *error = failure.reason;
        return false;
    }
    if (!writeFileAtomically(to, *data, error))
        return false;
    removeFile(from);
    return true;
}
