#include "RecentFilesMenu.h"

#include "CTWindowController.h"
#include "Settings.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

const QString RecentFilesMenu::Key = u"RecentFiles"_s;

RecentFilesMenu::RecentFilesMenu(CTWindowController &project, QWidget *parent)
    : QMenu(tr("Open Recent"), parent)
    , m_project(project)
{
    Settings &settings = Settings::shared();
    // A movie that loaded is stored as "LastVideo"; a subtitle file as "LastSubtitle".
    m_movieToken = settings.observeKey(
        u"LastVideo"_s, [this](Observable *, const QString &key, Observable::Change change) {
            if (change == Observable::Change::Did && !Settings::shared().stringValue(key).isEmpty()) {
                addFile(Settings::shared().stringValue(key));
                rebuild();
            }
        });
    m_subtitleToken = settings.observeKey(
        u"LastSubtitle"_s, [this](Observable *, const QString &key, Observable::Change change) {
            if (change == Observable::Change::Did && m_project.moviePath().isEmpty() &&
                !Settings::shared().stringValue(key).isEmpty()) {
                addFile(Settings::shared().stringValue(key));
                rebuild();
            }
        });
    connect(this, &QMenu::aboutToShow, this, [this] { rebuild(); });
    rebuild();
}

RecentFilesMenu::~RecentFilesMenu() = default;

QStringList RecentFilesMenu::files()
{
    return Settings::shared().value(Key).toStringList();
}

void RecentFilesMenu::addFile(const QString &path)
{
    if (path.isEmpty())
        return;
    QStringList list = files();
    list.removeAll(path);
    list.prepend(path);
    while (list.size() > MaxFiles)
        list.removeLast();
    Settings::shared().setValue(Key, list);
}

void RecentFilesMenu::clearFiles()
{
    Settings::shared().remove(Key);
}

void RecentFilesMenu::rebuild()
{
    clear();
    const QStringList list = files();
    for (const QString &path : list) {
        const QFileInfo file(path);
        QAction *item = addAction(tr("%1 — %2").arg(file.fileName(), file.absolutePath()));
        item->setData(path);
        item->setEnabled(file.isFile());
        connect(item, &QAction::triggered, this, [this, path] {
            if (open)
                open(path);
        });
    }
    if (!list.isEmpty())
        addSeparator();
    QAction *clearItem = addAction(tr("Clear Menu"));
    clearItem->setEnabled(!list.isEmpty());
    connect(clearItem, &QAction::triggered, this, [this] {
        clearFiles();
        rebuild();
    });
}
