#pragma once

#include "Observable.h"

#include <QCoreApplication>
#include <QMenu>

#include <functional>

class CTWindowController;

// File › Open Recent: the movies that opened, and subtitle files opened without a movie,
// newest first, at most MaxFiles, kept in the settings ("RecentFiles"). Files that are not
// there now are listed but cannot be chosen. "Clear Menu" empties the list.
class RecentFilesMenu final : public QMenu
{
    Q_DECLARE_TR_FUNCTIONS(RecentFilesMenu)

public:
    static const QString Key; // "RecentFiles"
    static constexpr int MaxFiles = 10;

    RecentFilesMenu(CTWindowController &project, QWidget *parent);
    ~RecentFilesMenu() override;

    static QStringList files();
    static void addFile(const QString &path);
    static void clearFiles();

    // Opens a chosen file (the window handles it as a drop).
    std::function<void(const QString &)> open;

private:
    void rebuild();

    CTWindowController &m_project;
    Observable::KeyToken m_movieToken;
    Observable::KeyToken m_subtitleToken;
};
