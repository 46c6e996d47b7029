#pragma once

#include <QString>
#include <QVariantMap>

class ProjectView;

// The folders the user gave Captora write access to, kept in "Boomarks.plist" in the
// per-user data folder: a dictionary from folder path to the data that finds the folder
// again. Linux has no sandbox, so the data is the folder's path and access is what the file
// system grants; the flow still asks the user to pick a folder they can write to when the
// movie's own folder is not writable.
class FolderPermissions
{
public:
    // Reads the store at `path` (the default store when empty); a missing or unreadable
    // file gives an empty store.
    explicit FolderPermissions(const QString &path = QString());

    static QString defaultStorePath();
    const QVariantMap &folders() const { return m_folders; }

    // True when the movie's folder may be written to, after asking the user to choose a
    // folder they can write to as often as needed; false when they deny or cancel.
    bool canGetAccessToFolder(const QString &moviePath, ProjectView *view);

    // Resolves every stored folder: drops those that are gone, renews stale entries, and
    // starts (or stops) using them; then writes the store back.
    void activateBookmarks(bool start);

    static bool isWritableFolder(const QString &folder);

private:
    bool write() const;
    QString m_path;
    QVariantMap m_folders;
};
