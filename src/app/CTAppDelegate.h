#pragma once

#include <QCoreApplication>
#include <QLocale>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <memory>

class PreferencesWindow;
class ProgressWindow;
class ProjectWindow;
class QAction;
class QLabel;
class QMenu;
class RecentFilesMenu;

// The application around the project window: the start-up order with the one-time
// disclaimer, the menu items of the application (Preferences, Open Recent, Tasks, About,
// Reset Messages, Find and Replace), files handed over by the desktop, and quitting.
//
// Start-up: the interface is built (the window and its menus, this object), then
// applicationDidFinishLaunching() shows the disclaimer until it is accepted once ("Quit"
// ends the program before any project opens) and selects the stored interface language;
// only then does the project start (and reopen the last movie when asked to).
//
// Quitting, by the Quit command or by closing the window, asks the project first (unsaved
// changes) and then the task list: while a task waits or runs the program does not quit; it
// offers to stop the tasks, and quits once they have ended.
class CTAppDelegate final : public QObject
{
    Q_DECLARE_TR_FUNCTIONS(CTAppDelegate)

public:
    CTAppDelegate(ProjectWindow &window, ProgressWindow &progress);
    ~CTAppDelegate() override;

    // The disclaimer (unless accepted before); false when the user chose "Quit".
    bool applicationDidFinishLaunching();
    // Files from the desktop or the command line, handled as a drop on the window.
    bool applicationOpenFile(const QString &path);
    void applicationOpenFiles(const QStringList &paths);

    enum TerminateReply { TerminateNow, TerminateCancel, TerminateLater };
    // TerminateLater: tasks are being stopped; the program quits when the last one has ended.
    TerminateReply applicationShouldTerminate();
    // The Quit command: asks, and quits when the answer is yes.
    void terminate();

    // Shows the Tap2Sync explanation and the disclaimer again.
    void resetMessage();
    void showPreferences();
    PreferencesWindow *preferencesWindow() const;
    void showTasks();
    // Help › Keyboard Shortcuts: a sheet of every key, as the menus have them now.
    void showKeyboardShortcuts();
    RecentFilesMenu *recentFiles() const { return m_recent; }
    // The note in the window's status bar while the movie needs embedding.
    QLabel *needToEmbedLabel() const { return m_needToEmbed; }

    // The menu items this object adds, by name: "showPreferences:", "showTasks:",
    // "resetMessages:", "showReplace:", "showKeyboardShortcuts:", "orderFrontAboutPanel:".
    QAction *action(const QString &name) const;

    // The locale the interface is shown in: the stored "Locale" choice, or the system's.
    // The program applies it once at start (translations, names of languages).
    static QLocale interfaceLocale();
    static void applyInterfaceLanguage();

    static const QString DisclaimerMessage;
    static const QString DisclaimerInformative;

private:
    void buildMenus();
    void showAbout();
    QAction *addItem(QMenu *menu, QAction *before, const QString &title, const QString &name);

    ProjectWindow &m_window;
    ProgressWindow &m_progress;
    QPointer<ProgressWindow> m_progressAlive;
    QPointer<PreferencesWindow> m_preferences;
    RecentFilesMenu *m_recent = nullptr;
    QList<QAction *> m_actions;
    bool m_quitWhenTasksEnd = false;
    QLabel *m_needToEmbed = nullptr;
    std::shared_ptr<void> m_projectToken;
};
