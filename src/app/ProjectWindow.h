#pragma once

#include "CTWindowController.h"
#include "PlaybackControl.h"
#include "ProjectView.h"
#include "TutorialOverlay.h"

#include <QCoreApplication>
#include <QHash>
#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <memory>
#include <vector>

class RecoveryStore;

class CTFixButton;
class CTTimeView;
class CueItemDelegate;
class CueTableModel;
class FixPanel;
class MoviePlaceholder;
class PlaybackMenu;
class QAction;
class QCheckBox;
class QDialog;
class QLabel;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QSlider;
class QSplitter;
class QTableView;
class QToolButton;
class SpeechSnapper;
class TimelineView;
class WindowStatusBar;

// The project window: the movie area with its control bar, the language pop-up, the cue
// table, the editor fields of the current line, the fix control, search and replace, and
// the menus. It shows the project's state and forwards the user's actions; every rule lives
// in CTWindowController.
//
// Players come from outside (the playback module): setPlayers() gives a factory for the
// controller of a kind and a way to get the widget that shows its picture. Without players
// a movie only names the subtitle files beside it.
class ProjectWindow final : public QMainWindow, public ProjectView
{
    // Built without moc: tr() must name this class, not QMainWindow.
    Q_DECLARE_TR_FUNCTIONS(ProjectWindow)

public:
    explicit ProjectWindow(QWidget *parent = nullptr);
    ~ProjectWindow() override;

    // `factory` makes the controller of a kind (1 libmpv, 2 libVLC), or null when it cannot;
    // the window owns what it returns and deletes it once the project has let it go.
    // `viewOf` answers the widget showing a controller's picture (with its overlay); the
    // controller owns that widget, the window only places it. Call before start().
    using PlayerViewOf = std::function<QWidget *(PlaybackControl *)>;
    void setPlayers(PlaybackControlFactory factory, PlayerViewOf viewOf);
    // Commands the window cannot run itself ("searchOnline:", "embedSubtitle:",
    // "extractAllSubtitles:") go to this handler.
    void setCommandHandler(std::function<void(const QString &)> handler)
    {
        m_commandHandler = std::move(handler);
    }
    const std::function<void(const QString &)> &commandHandler() const { return m_commandHandler; }
    // Sheets of kinds the window does not know ("EmbedOptions", "WebSearch", ...): the factory
    // makes the dialog; the window shows it modal for itself and reports its end.
    using SheetFactory = std::function<QDialog *(const Sheet &sheet, QWidget *parent)>;
    void setSheetFactory(const QString &kind, SheetFactory factory)
    {
        m_sheetFactories[kind] = std::move(factory);
    }

    // Quitting (the Quit command, closing the window) asks this handler when one is set; it
    // decides, and ends with terminateNow() when the program may quit.
    void setTerminationHandler(std::function<void()> handler) { m_terminationHandler = std::move(handler); }
    // Quits without asking again: the project hears that the program terminates, the window
    // closes and the event loop ends.
    void terminateNow();

    // The project's window set-up (remembered folders, the last movie when asked for).
    void start();
    // Files given on the command line or by the desktop: handled as a drop.
    void openFiles(const QStringList &paths);
    CTWindowController *project() const { return m_project.get(); }
    // Keeps recovery copies of unsaved changes in the store (the program's; tests leave it
    // unset): a copy after the autosave interval and whenever the window loses the focus.
    void setRecoveryStore(RecoveryStore *store);

    // The window's commands, in menu order: what each one is called, its keys and what it does.
    // The project titles and enables them (CTWindowController::validateMenuItem()); a command
    // without an action goes to the command handler.
    enum class Menu { File, Edit, Chapters, Timing, Movie };
    struct Command
    {
        Menu menu;
        QString id;        // "saveSubtitle:"
        const char *title; // untranslated, in this class's translation context
        QList<QKeySequence> shortcuts;
        std::optional<bool> inChapterMenu; // none: in neither file-kind menu
        std::function<void(ProjectWindow &, CTWindowController &)> action;
        bool separatorBefore = false;
        bool checkable = false;
    };
    static const QList<Command> &commandTable();
    static const Command *command(const QString &id);
    // Runs a menu command ("saveSubtitle:", "playPause:", ...) if the project enables it.
    void runCommand(const QString &command);
    // The menu item of a command, titled and enabled as the project says after refreshMenus().
    QAction *action(const QString &command) const { return m_actions.value(command); }
    void refreshMenus();

    // Panels answered without a dialog (tests, scripted use). Null functions show dialogs.
    std::function<QString(const QStringList &types, bool folders, const QString &directory)> openPanelHook;
    std::function<QString(SavePanelOptions &options)> savePanelHook;

    // Parts, for tests and for the lead's wiring.
    QTableView *cueTable() const { return m_table; }
    CueTableModel *cueModel() const { return m_model; }
    QLineEdit *startField() const { return m_startField; }
    QLineEdit *durationField() const { return m_durationField; }
    QPlainTextEdit *textField() const { return m_textField; }
    QCheckBox *forcedBox() const { return m_forcedBox; }
    QLineEdit *searchField() const { return m_searchField; }
    QLineEdit *replaceField() const { return m_replaceField; }
    CTFixButton *fixButton() const { return m_fixButton; }
    FixPanel *fixPanel() const { return m_fixPanel; }
    CTTimeView *timeView() const { return m_timeView; }
    // The first-run tutorial while it is shown, else null.
    TutorialOverlay *tutorial() const { return m_tutorial; }
    // Lays the tutorial over the movie area (again).
    void showTutorial();
    QPushButton *playButton() const { return m_playButton; }
    QToolButton *languageButton() const { return m_languageButton; }
    QMenu *audioMenu() const { return m_audioMenu; }
    PlaybackMenu *playbackMenu() const { return m_playbackMenu; }
    MoviePlaceholder *movieArea() const { return m_movieArea; }
    QSlider *scrubber() const { return m_scrubber; }
    // The timeline strip under the movie and the editor, and what its fixes snap to.
    TimelineView *timeline() const { return m_timeline; }
    SpeechSnapper &speechSnapper() const { return *m_snapper; }
    QAction *showTimelineAction() const { return m_showTimeline; }
    WindowStatusBar *windowStatusBar() const { return m_statusBar; }
    const QList<double> &frameSteps() const { return m_frameSteps; }
    double fixBackgroundDuration() const { return m_fixBackgroundDuration; }

    // --- ProjectView ------------------------------------------------------------------------
    void setWindowTitle(const QString &title) override;
    void setDocumentEdited(bool edited) override;
    bool isWindowVisible() const override { return isVisible(); }
    void makeKeyAndOrderFront() override;
    bool hasAttachedSheet() const override { return !m_sheets.isEmpty(); }
    void beginSheet(const Sheet &sheet) override;
    void endSheet(const Sheet &sheet, int returnCode) override;
    QList<Sheet> attachedSheets() const override;
    QString runOpenPanel(const QStringList &allowedTypes, bool chooseFolders,
                         const QString &directory) override;
    QString runSavePanel(SavePanelOptions &options) override;
    void setLanguageButton(const QList<LanguageButtonItem> &items, qsizetype selectedIndex) override;
    void beginEditingText(qsizetype row) override;
    void setPlayButtonKeyEquivalent(const QString &key) override;
    void makeFixControlFirstResponder() override;
    void makePlayButtonFirstResponder() override;
    void setPlayButtonTitle(const QString &title) override;
    void attachMovieController(PlaybackControl *controller) override;
    void detachMovieController(PlaybackControl *controller) override;
    void setPlayerViewVisible(bool visible) override;
    void setBackgroundImageVisible(bool visible) override;
    void setMovieAspectRatio(double ratio) override;
    void setAudioMenuItems(const QList<AudioTrackItem> &items) override;
    void setScrubberRange(double minimum, double maximum) override;
    void setFrameStepAmounts(const QList<double> &seconds) override;
    void setFixBackgroundDuration(double seconds) override;
    void setArrowKeyEquivalentsEnabled(bool enabled) override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildMovieSide();
    QWidget *buildEditorSide();
    void buildMenus();
    void observeProject();
    void projectKeyChanged(const QString &key);
    void scheduleRefresh();
    void refreshStates();
    void refreshEditorFields();
    void applyProjectSelection();
    void tableSelectionChanged();
    // Commits and closes the table's cell editor, if one is open.
    void commitOpenEditor();
    void stepBy(int which);
    void focusChanged(QWidget *now);
    void fixButtonClicked();
    // A start typed into the editor field and not committed yet, while it differs from the
    // line's start.
    std::optional<double> pendingStart() const;
    void showFix();
    void placeTimeView();
    QDialog *makeSheetDialog(const Sheet &sheet);
    void releaseController(PlaybackControl *controller);
    // The timeline strip, its View menu and its place in the window (ProjectWindowTimeline.cpp).
    void setUpTimeline(QSplitter *splitter);

    std::unique_ptr<CTWindowController> m_project;
    QTimer *m_autosaveTimer = nullptr;
    std::vector<std::unique_ptr<PlaybackControl>> m_controllers;
    PlaybackControlFactory m_playerFactory;
    PlayerViewOf m_viewOf;
    std::function<void(const QString &)> m_commandHandler;
    std::function<void()> m_terminationHandler;
    QHash<QString, SheetFactory> m_sheetFactories;
    QList<std::pair<Sheet, QPointer<QDialog>>> m_sheets;
    Observable::KeyToken m_projectKeys;
    QHash<QString, QAction *> m_actions;
    QList<double> m_frameSteps;
    double m_fixBackgroundDuration = 0;
    bool m_refreshPending = false;
    bool m_syncingSelection = false;
    bool m_updatingFields = false;
    bool m_terminating = false;
    bool m_scrubbing = false;
    // The duration sheet's "Only selected lines", as the user last left it.
    bool m_durationOnlySelected = false;

    MoviePlaceholder *m_movieArea = nullptr;
    QPushButton *m_playButton = nullptr;
    QSlider *m_scrubber = nullptr;
    QLabel *m_timeLabel = nullptr;
    QList<QPushButton *> m_stepButtons;
    QToolButton *m_languageButton = nullptr;
    QMenu *m_languageMenu = nullptr;
    QMenu *m_audioMenu = nullptr;
    PlaybackMenu *m_playbackMenu = nullptr;
    QTableView *m_table = nullptr;
    CueTableModel *m_model = nullptr;
    CueItemDelegate *m_delegate = nullptr;
    QLineEdit *m_startField = nullptr;
    QLineEdit *m_durationField = nullptr;
    QPlainTextEdit *m_textField = nullptr;
    QCheckBox *m_forcedBox = nullptr;
    QLineEdit *m_searchField = nullptr;
    QLineEdit *m_replaceField = nullptr;
    QWidget *m_replaceRow = nullptr;
    CTFixButton *m_fixButton = nullptr;
    FixPanel *m_fixPanel = nullptr;
    CTTimeView *m_timeView = nullptr;
    QPointer<TutorialOverlay> m_tutorial;
    QToolButton *m_caseSensitiveButton = nullptr;
    std::unique_ptr<SpeechSnapper> m_snapper;
    TimelineView *m_timeline = nullptr;
    QAction *m_showTimeline = nullptr;
    WindowStatusBar *m_statusBar = nullptr;
};
