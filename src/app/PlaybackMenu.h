#pragma once

#include "Observable.h"
#include "PlaybackAids.h"

#include <QCoreApplication>
#include <QMenu>

#include <functional>
#include <vector>

class CTWindowController;
class ProjectView;
class QAction;
class QActionGroup;

// The Playback menu: the playback aids with their keys (the current line played once, in a
// loop or from just before it; the speeds, the one in use ticked; the line's start or end set
// to the playing time). Items are enabled and ticked as the aids and the project say, and
// all are off while a sheet is open on the window.
class PlaybackMenu final : public QMenu
{
    Q_DECLARE_TR_FUNCTIONS(PlaybackMenu)

public:
    // The items' object names, for lookups and the keys they carry.
    static constexpr const char *PlayLine = "playLine:";
    static constexpr const char *LoopLine = "loopLine:";
    static constexpr const char *PlayFromLeadIn = "playFromLeadIn:";
    static constexpr const char *SetStart = "setStartToPlayingTime:";
    static constexpr const char *SetEnd = "setEndToPlayingTime:";
    // "speed:0.5" ... "speed:2"
    static QString speedName(double speed);

    PlaybackMenu(CTWindowController &project, ProjectView &view, QWidget *parent);
    ~PlaybackMenu() override;

    PlaybackAids &aids() { return m_aids; }
    QAction *item(const QString &name) const;
    // Runs before an item that edits the lines (the window commits a cell being edited).
    std::function<void()> beforeEdit;
    void refresh();

private:
    QAction *addItem(const QString &title, const char *name, const QKeySequence &key,
                     std::function<void()> run);
    void refreshTimeDependent();

    CTWindowController &m_project;
    ProjectView &m_view;
    PlaybackAids m_aids;
    QActionGroup *m_speedGroup = nullptr;
    std::vector<Observable::KeyToken> m_observations;
};
