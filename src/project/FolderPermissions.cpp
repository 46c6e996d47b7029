#include "FolderPermissions.h"

#include "FileNames.h"
#include "Log.h"
#include "ProjectView.h"
#include "Prompter.h"
#include "PropertyList.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <unistd.h>

using namespace Qt::StringLiterals;

FolderPermissions::FolderPermissions(const QString &path)
    : m_path(path.isEmpty() ? defaultStorePath() : path)
{
    QString error;
    const QVariant stored = PropertyList::readFile(m_path, &error);
    if (!stored.isValid() && error != u"No such file or directory"_s)
        logLine(
            u"Warning: The folder permissions in '%1' could not be read, because: %2"_s.arg(m_path, error));
    m_folders = stored.toMap();
}

QString FolderPermissions::defaultStorePath()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (folder.isEmpty())
        folder = QDir::homePath() + u"/.local/share/Captora"_s;
    return folder + u"/Boomarks.plist"_s;
}

bool FolderPermissions::isWritableFolder(const QString &folder)
{
    const QByteArray native = encodeFileName(folder);
    return QFileInfo(folder).isDir() && ::access(native.constData(), W_OK) == 0;
}

bool FolderPermissions::write() const
{
    QDir().mkpath(QFileInfo(m_path).path());
    return PropertyList::writeFile(m_path, m_folders);
}

bool FolderPermissions::canGetAccessToFolder(const QString &moviePath, ProjectView *view)
{
    const QString folder = QFileInfo(moviePath).absolutePath();
    while (!isWritableFolder(folder)) {
        Prompt prompt;
        prompt.message = QCoreApplication::translate(
            "FolderPermissions",
            "To work with subtitle files we need your permission to write in to the folder your "
            "movie is in.\nPlease Open this folder in the upcoming window. (Make sure you have "
            "write permission for the folder.)");
        prompt.buttons = {QCoreApplication::translate("FolderPermissions", "Understood"),
                          QCoreApplication::translate("FolderPermissions", "Deny Access")};
        if (Prompter::shared().ask(prompt).button != 0 || !view)
            return false;
        const QString chosen = view->runOpenPanel({}, true, folder);
        if (chosen.isNull())
            return false;
        const QString canonical = QFileInfo(chosen).absoluteFilePath();
        m_folders.insert(canonical, canonical.toUtf8());
        write();
    }
    return true;
}

void FolderPermissions::activateBookmarks(bool start)
{
    Q_UNUSED(start); // without a sandbox there is no access to start or stop
    QVariantMap resolved;
    for (auto it = m_folders.cbegin(); it != m_folders.cend(); ++it) {
        const QString folder = QString::fromUtf8(it.value().toByteArray());
        if (!QFileInfo(folder).isDir())
            continue; // cannot be resolved: dropped
        // An entry stored under another path than the one its data finds is stale: renew it
        // under the folder's current path.
        resolved.insert(folder, folder.toUtf8());
    }
    m_folders = resolved;
    write();
}
