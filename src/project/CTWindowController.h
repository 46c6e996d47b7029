#pragma once

#include "CTLanguage.h"
#include "CueListEditor.h"
#include "FixController.h"
#include "FixMode.h"
#include "LanguageFiles.h"
#include "MovieSession.h"
#include "NotificationCenter.h"
#include "Observable.h"
#include "RecoveryStore.h"
#include "SheetQueue.h"
#include "VHSubtitle.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

#include "PlaybackControl.h"
#include "ProjectView.h"

class FolderPermissions;

// The project: one movie, the subtitle file being edited for it (one language at a time,
// or the chapter marks), its cues, the selection, the current cue and the playback time.
// Every editing command is an operation of this object. It runs without a display: the
// window implements ProjectView and forwards the user's actions here, questions go through
// the shared Prompter, and the playback controller is reached through PlaybackControl.
//
// Observable keys: subtitlePath, subtitles, currentSubtitle, selectionIndices, start,
// duration, subtitleText, forced, hasChanged, hasSubtitleFile, hasMovie, hasPrevious,
// hasNext, fixMode, canFix, forcedState, searchPredicate, languages, basePath, fileEncoding, playing
// (announced when the player starts or stops; the player has the state).
//
// Threading: main thread only.
class CTWindowController : public Observable, public PlaybackControlDelegate, private CueListEditorDelegate
{
    // Titles and questions go through the translation tables (the CLI loads none: English).
    Q_DECLARE_TR_FUNCTIONS(CTWindowController)

public:
    static const QString SubLoadedNotification; // "SubLoaded"

    // Registers the project's user defaults (both registrations). Safe to call repeatedly.
    static void registerDefaults();

    // `player` serves every movie kind when no controller factory is set (tests, the CLI's
    // clock); with neither a player nor a factory, a movie only names the project's files.
    CTWindowController(ProjectView *view, PlaybackControl *player);
    ~CTWindowController() override;

    // Window set-up: remembered folders, search option, empty lists, the last movie and
    // subtitle when "AutoLoadLast" is set, the cue notifications.
    void windowDidLoad();

    // --- state ---------------------------------------------------------------------
    const QString &moviePath() const { return m_movie->moviePath(); }
    const QString &basePath() const { return m_basePath; }
    void setBasePath(const QString &basePath);
    QString subtitlePath() const;        // stored as "LastSubtitle"
    QString visibleSubtitlePath() const; // the path, or "/" when empty
    bool isChaptermark() const { return m_isChaptermark; }

    const SubtitleList &subtitles() const { return m_subtitles; }
    void setSubtitles(const SubtitleList &subtitles);
    // The cues the table lists: those the search predicate accepts, in list order.
    const SubtitleList &arrangedSubtitles() const;

    const SubtitlePtr &currentSubtitle() const { return m_currentSubtitle; }
    void setCurrentSubtitle(const SubtitlePtr &cue);
    // Seeks to the current cue's start, as selecting it does (a click on the line that is
    // selected already seeks again); not in Tap2Sync, and as "SubtitleNoJump" and the Option
    // key decide.
    void seekToCurrentSubtitle();
    // Rows of the arranged list. Exactly one selected row makes its cue current.
    const QList<qsizetype> &selectionIndices() const { return m_selection; }
    void setSelectionIndices(QList<qsizetype> rows);
    // The cues of the selected rows, in row order.
    SubtitleList selectedCues() const;

    double currentTime() const { return m_currentTime; }
    void setCurrentTime(double seconds);

    // Editor fields, bound to the current cue.
    double start() const { return m_start; }
    virtual void setStart(double seconds);
    double duration() const { return m_duration; }
    void setDuration(double seconds);
    const QString &subtitleText() const { return m_subtitleText; }
    void setSubtitleText(const QString &text);
    bool forced() const { return m_forced; }
    void setForced(bool forced);

    bool hasChanged() const { return m_hasChanged; }
    void setHasChanged(bool changed);
    // The encoding the file being edited was read in (UTF-8 once saved); none for a new file
    // or chapter marks. Observable key "fileEncoding".
    EncodingId fileEncoding() const { return m_fileEncoding; }
    void setFileEncoding(EncodingId encoding);
    bool isFixed() const { return m_isFixed; }

    FixMode fixMode() const { return m_fix->mode(); }
    void setFixMode(FixMode mode) { m_fix->setMode(mode); }
    // Check-box style views of the mode: modeIsFix is 1 in Fix, -1 (mixed) in Tap2Sync.
    int modeIsFix() const
    {
        return fixMode() == FixMode::Fix ? 1 : (fixMode() == FixMode::Tap2Sync ? -1 : 0);
    }
    void setModeIsFix(bool on) { setFixMode(on ? FixMode::Fix : FixMode::None); }
    bool modeIsShift() const { return fixMode() == FixMode::Shift; }
    void setModeIsShift(bool on) { setFixMode(on ? FixMode::Shift : FixMode::Fix); }
    bool modeIsSingle() const { return fixMode() == FixMode::Single; }
    void setModeIsSingle(bool on) { setFixMode(on ? FixMode::Single : FixMode::Fix); }
    // The fix side of the project (mode, range, re-timing).
    FixController &fixController() { return *m_fix; }
    const FixController &fixController() const { return *m_fix; }

    // Modifier keys held now, as the window reports them.
    enum Modifier { NoModifier = 0, ShiftModifier = 1, OptionModifier = 2 };
    void setModifierKeys(int modifiers) { m_fix->setModifiers(modifiers); }
    // Chooses the mode from the modifier keys: no cue None, Shift Shift, Option Single, else
    // the default.
    void updateFixMode() { m_fix->updateMode(); }
    void fixSubtitleStart() { m_fix->fix(); }
    void shiftSubtitles() { m_fix->shift(); }
    void fixSingleSubtitleStart() { m_fix->fixSingle(); }
    void toggleTap2Sync() { m_fix->toggleTap2Sync(); }
    void fixButtonGotEscape() { m_fix->leaveTap2Sync(); }
    // The time the fix commands set the current cue's start to: the playing time, passed
    // through the adjustment when one is set (the window snaps it to speech). In Tap2Sync the
    // adjustment is asked about the time less the reaction delay, where the cue will land.
    void setFixTimeAdjustment(std::function<double(double)> adjust)
    {
        m_fix->setTimeAdjustment(std::move(adjust));
    }
    double fixTime() const { return m_fix->fixTime(); }
    // The mode the user picked on the fix control (Fix, Shift or Single; None for none): it
    // becomes the default mode for subtitles, and the mode now unless Tap2Sync runs.
    FixMode chosenFixMode() const { return m_fix->chosenMode(); }
    void setChosenFixMode(FixMode mode) { m_fix->setChosenMode(mode); }
    void fixButtonDidResignFirstResponder() { fixButtonGotEscape(); }
    // The playback controller's report that playback started or stopped.
    void movieChangedPlaying(bool playing);
    // Keyboard focus moved into (or out of) a text editor: the arrow keys step frames only
    // outside one.
    void setObservedResponderIsTextEditor(bool textEditor);
    bool allowArrows() const { return m_allowArrows; }
    // Re-times cues a..b: t → (t − origin) × factor + shift + origin for start and end.
    void stretch(qsizetype first, qsizetype last, double factor, double origin, double shift)
    {
        m_fix->stretch(first, last, factor, origin, shift);
    }
    FixMode defaultFixMode() const { return m_fix->defaultMode(); }
    double timeShift() const;

    // The run of cues that moves with the current cue (first..last) and the earliest and
    // latest start the current cue may take; what the time view and the scrubber show of it.
    using FixRange = FixController::Range;
    using RangeDisplay = FixController::RangeDisplay;
    const FixRange &fixRange() const { return m_fix->range(); }
    const RangeDisplay &rangeDisplay() const { return m_fix->rangeDisplay(); }

    bool hasMovie() const;
    bool canFix() const { return m_fix->canFix(); }
    bool hasSubtitleFile() const { return !m_subtitles.isEmpty(); }
    bool canChangeForced() const { return !m_selection.isEmpty(); }
    bool hasPrevious() const;
    bool hasNext() const;
    double fps() const { return m_movie->fps(); }
    double movieDuration() const { return m_movie->duration(); }
    int movieKind() const { return m_movie->kind(); }
    // For the movie side of the project (opened movies, player kind).
    void setMovieInfo(const QString &moviePath, int kind, double fps, double duration)
    {
        m_movie->setInfo(moviePath, kind, fps, duration);
    }

    // First cue starting at or after the time; the count when none; 0 for no cues.
    qsizetype subtitleIndexAtTime(double seconds) const;

    // 0 off, 1 on, -1 mixed.
    int forcedState() const;
    void setForcedState(int state);

    // --- languages -------------------------------------------------------------------
    const LanguageList &languages() const { return m_languageFiles->languages(); }
    qsizetype selectedLanguageIndex() const { return m_languageFiles->selectedIndex(); }
    void updateLanguages() { m_languageFiles->update(); }
    void selectSubtitleLanguage(qsizetype index) { m_languageFiles->select(index); }
    // Renames the current file to the locale (empty: no language).
    void switchLanguage(const QString &localeIdentifier) { m_languageFiles->switchTo(localeIdentifier); }
    void autoSelectSubtitle() { m_languageFiles->autoSelect(); }
    // The identifier for the next file loaded as a new language.
    void setNewLocale(const QString &identifier) { m_languageFiles->setNewLocale(identifier); }
    // The locales the "Set Subtitle Language" submenu offers.
    static std::shared_ptr<LanguageMenu> sharedLanguageMenu() { return LanguageFiles::sharedMenu(); }
    // The pop-up's items for a language list: separators, and titles made unique with "~".
    static QList<LanguageButtonItem> languageButtonItems(const LanguageList &languages)
    {
        return LanguageFiles::buttonItems(languages);
    }
    // Asks for a language and starts an empty subtitle file for it.
    void addSubtitleLanguage() { m_languageFiles->addLanguage(); }
    // Runs a command of the language menu ("loadSubtitle:", "deleteSubtitleFile:", ...).
    // Commands the project cannot run itself (web search, embedding) go to the handler.
    void runLanguageCommand(const QString &command) { m_languageFiles->runCommand(command); }
    void setCommandHandler(std::function<void(const QString &)> handler)
    {
        m_commandHandler = std::move(handler);
    }

    // --- files ---------------------------------------------------------------------------
    void setSubtitlePath(const QString &path);
    void setSubtitlePath(const QString &path, bool chapterMark);
    void loadSubtitle();
    void reloadSubtitle();
    void saveSubtitle();
    bool saveSubtitleAt(const QString &path);
    bool saveChapterMarkAt(const QString &path);
    void exportSubtitle();
    void newSubtitle();
    void convertChapterMarkToSubtitle();
    void deleteSubtitleFile();
    void droppedFiles(const QStringList &paths);
    void finishedDownloading(const QString &path);
    // What the web search window downloads besides archives: MIME fragments and extensions.
    static QStringList acceptedDownloadTypes();
    int embeddingState() const { return m_embeddingState; }
    // The movie needs embedding: its subtitles were saved with changes since, or the last
    // embedding failed (embedding state 2).
    bool needToEmbed() const { return m_embeddingState == 2; }
    void setEmbeddingState(int state) { m_embeddingState = state; }

    // --- leaving and closing ---------------------------------------------------------
    bool canDropSubtitle() { return canDropSubtitleTryEmbed(false); }
    bool canDropSubtitleTryEmbed(bool tryEmbed);
    bool closeProject();
    bool windowShouldClose();
    bool applicationShouldTerminate();
    void applicationWillTerminate() { m_willTerminate = true; }
    // Replaces willAutoEmbed() in the unsaved-changes flow (tests script the answer).
    void setWillAutoEmbed(std::function<bool()> willAutoEmbed) { m_willAutoEmbed = std::move(willAutoEmbed); }

    // --- the movie (MovieSession) ----------------------------------------------------------
    // Movies the open panel and the drop target take, by extension.
    static QStringList movieExtensions() { return MovieSession::movieExtensions(); }
    // Where controllers of kinds 1 and 2 come from. The window owns what it returns; the
    // project lets a controller go through ProjectView::detachMovieController().
    void setMovieControllerFactory(PlaybackControlFactory factory)
    {
        m_movie->setControllerFactory(std::move(factory));
    }
    PlaybackControl *movieController() const { return m_movie->player(); }
    // Opens a movie: the previous one is closed, the player of kind 1 loads it, and the
    // delegate calls below finish the work (falling back to kind 2 when it cannot).
    void setMoviePath(const QString &path) { m_movie->setMoviePath(path); }
    // The open panel for a movie, after the unsaved-changes question.
    void openMovie() { m_movie->openMovie(); }
    // Switches to a player kind (0 none, 1 libmpv, 2 libVLC); nothing when it is current.
    void prepareMovieController(int kind) { m_movie->prepareController(kind); }
    // Neither player could open the movie: back to no movie, and the user is told (after the
    // current call, never from inside a player's report) which file and why.
    void resetAfterFailing() { m_movie->resetAfterFailing(); }
    // Ticks the n-th audio track, hands it to the player and remembers it as "AudioTrack".
    void setActiveTrack(int index) { m_movie->setActiveTrack(index); }
    const QList<AudioTrackItem> &audioMenuItems() const { return m_movie->audioMenuItems(); }
    // The movie's extraction finished (or there was none to run).
    void subtitleExtractorFinished() { m_movie->subtitleExtractorFinished(); }
    // Runs an extraction of the loaded movie (the media side): subtitles and/or chapter
    // marks, only for files missing beside it; it calls subtitleExtractorFinished() when done.
    void setExtractionHook(std::function<void(bool subtitles, bool chapters)> hook)
    {
        m_movie->setExtractionHook(std::move(hook));
    }
    bool canEmbed() const { return m_movie->canEmbed(); }
    // Offers to embed edited subtitles before the movie is left; true when embedding started.
    bool willAutoEmbed() { return m_movie->willAutoEmbed(); }
    // Opens the embedding options for the movie (through the command handler).
    void embedSubtitle() { m_movie->embedSubtitle(); }
    // True until the first web search for the loaded movie has been opened.
    bool isFirstWebSearch() const { return m_movie->isFirstWebSearch(); }
    void setFirstWebSearch(bool first) { m_movie->setFirstWebSearch(first); }
    // What the rewind/step buttons move by, in seconds; empty while frame stepping is off.
    const QList<double> &frameStepAmounts() const { return m_movie->frameStepAmounts(); }

    void movieControllerDidLoadMovie(PlaybackControl *controller) override
    {
        m_movie->controllerDidLoad(controller);
    }
    void movieControllerFaildLoading(PlaybackControl *controller) override
    {
        m_movie->controllerFailedLoading(controller);
    }
    void movieControllerChangedPlaying(PlaybackControl *controller, bool playing) override
    {
        m_movie->controllerChangedPlaying(controller, playing);
    }
    void movieControllerChangedTime(PlaybackControl *controller, double seconds) override
    {
        m_movie->controllerChangedTime(controller, seconds);
    }
    // True when the movie's folder can be written to (asking the user for a folder if not).
    bool canGetAccessToFolder(const QString &moviePath);
    // The store of folders the user gave access to ("Boomarks.plist"); tests point it
    // elsewhere before windowDidLoad().
    void setFolderPermissionStore(const QString &path) { m_permissionStorePath = path; }

    // --- sheets ----------------------------------------------------------------------------
    void addSheet(const Sheet &sheet) { m_sheets->add(sheet); }
    void showNextSheet() { m_sheets->showNext(); }
    void didEndSheet(const Sheet &sheet, int returnCode) { m_sheets->didEnd(sheet, returnCode); }
    qsizetype waitingSheetCount() const { return m_sheets->waitingCount(); }
    bool hasWaitingSheet(const Sheet &sheet) const { return m_sheets->isWaiting(sheet); }

    // --- editing commands ----------------------------------------------------------------
    void addSubtitle();
    void deleteSubtitle();
    const QString &searchString() const { return m_searchString; }
    void setSearchString(const QString &text);
    bool searchCaseSensitive() const { return m_searchCaseSensitive; }
    void setSearchCaseSensitive(bool caseSensitive);
    // Whether the table's filter accepts the cue.
    bool searchPredicateAccepts(const VHSubtitle &cue) const;
    // Replaces the text in every listed line; answers how many lines changed.
    qsizetype replaceAll(const QString &search, const QString &replacement);
    // Whether the window shows the replace field (observable key "showReplace").
    bool showReplace() const { return m_showReplace; }
    void setShowReplace(bool show);
    // The one-time notices (the disclaimer, the Tap2Sync explanation) show again.
    void resetMessages();
    void silentGotoNextSubtitle();
    void silentGotoPreviousSubtitle();

    struct MenuState
    {
        bool enabled = true;
        std::optional<QString> title; // none: the item keeps its own title
        bool checked = false;
    };
    // Title and enabled state of a command, as the menus and the CLI show them. `inChapterMenu`
    // says whether the item belongs to the chapter-mark menu rather than the subtitle menu
    // (none: to neither).
    MenuState validateMenuItem(const QString &command,
                               std::optional<bool> inChapterMenu = std::nullopt) const;
    // Counts the movie side reports for the extract command.
    void setExtractableCounts(int subtitleTracks, bool chapterTrack)
    {
        m_extractableSubtitles = subtitleTracks;
        m_extractableChapters = chapterTrack;
    }
    int extractableSubtitleCount() const { return m_extractableSubtitles; }
    bool hasExtractableChapters() const { return m_extractableChapters; }

    // --- durations ------------------------------------------------------------------
    // The duration sheet's start button: the validation message, or empty after running.
    QString startFixDuration(double perCharacter, double minimum, double maximum, double gap,
                             bool onlySelected);
    void adjustDurationPerCharacter(double perCharacter, double minimum, double maximum, double gap,
                                    bool onlySelected);

    bool noVerifying() const { return m_noVerifying; }

    // --- the edit path and undo -------------------------------------------------------------
    // Every change of the list is one edit: it opens here, collects every cue change that
    // follows (the neighbour corrections queued after it included) and closes when the main
    // queue has drained. Scopes nest; the outermost title names the undo step.
    class EditScope
    {
    public:
        EditScope(CTWindowController &project, const QString &title, quint64 mergeKey = 0)
            : m_editor(*project.m_editor)
        {
            m_editor.beginEdit(title, mergeKey);
        }
        ~EditScope() { m_editor.endEdit(); }
        EditScope(const EditScope &) = delete;
        EditScope &operator=(const EditScope &) = delete;

    private:
        CueListEditor &m_editor;
    };
    CueListEditor &editor() { return *m_editor; }
    const CueListEditor &editor() const { return *m_editor; }
    quint64 revision() const { return m_editor->revision(); }
    void addCueListObserver(CueListObserver *observer) { m_editor->addObserver(observer); }
    void removeCueListObserver(CueListObserver *observer) { m_editor->removeObserver(observer); }
    bool canUndo() const { return m_editor->canUndo(); }
    bool canRedo() const { return m_editor->canRedo(); }
    void undo();
    void redo();
    // The table's edits of rows other than the current one (rows of the listed cues).
    void setCueText(qsizetype row, const QString &text);
    void setCueForced(qsizetype row, bool forced);
    // Tells the user that an edit's corrections never settled and it was taken back.
    void editWasCapped();

    // --- recovery copies --------------------------------------------------------------------
    // Where copies of unsaved changes go; none (the default) writes none. Not owned.
    void setRecoveryStore(RecoveryStore *store) { m_recovery = store; }
    RecoveryStore *recoveryStore() const { return m_recovery; }
    // Writes a copy now when there are unsaved changes the last copy does not hold (the
    // window lost the focus).
    void writeRecoveryCopy();
    // Called regularly (every second in the program) with a monotonic clock: writes a copy
    // once changes have waited `intervalSeconds` since the first of them.
    void autosaveTick(qint64 nowMs, double intervalSeconds);
    // Seconds between copies: "AutosaveInterval", or CAPTORA_AUTOSAVE_INTERVAL when set.
    static double autosaveInterval();
    // Offers the recovery copies of files other than the open ones, one after another (at
    // start-up). A copy of a file of the open movie is offered when that file is opened.
    void offerRecoveries();

protected:
    QStringList dependentKeys(const QString &key) const override;

private:
    friend class NoVerifyingScope;
    friend class FixController;
    friend class MovieSession;
    friend class LanguageFiles;
    // CueListEditorDelegate
    void cueListWillChange() override;
    void cueListDidChange() override;
    CueSelection cueSelection() const override;
    void applyHistoryStep(bool redo);
    // Posts a neighbour correction; it does nothing once the project is gone or its edit was
    // taken back.
    void postCorrection(std::function<void()> correction);
    static QString editTitle(const char *title);
    // Asks whether to recover the copy of the file just opened, if there is a newer one.
    void offerRecoveryOf(const QString &path);
    // "Recover unsaved changes to … from …?": true for Recover.
    bool askToRecover(const RecoveryStore::Copy &copy);
    bool recoverFromCopy(const QString &path);
    void removeRecoveryCopy();
    RecoveryStore *m_recovery = nullptr;
    quint64 m_copiedRevision = 0;
    std::optional<qint64> m_changesWaitingSince;
    QStringList m_recoveryOffered;
    QString m_recoverWithoutAsking;
    // Typing into one cue's text joins one undo step.
    static quint64 typingKey(const VHSubtitle *cue) { return quint64(quintptr(cue)) | 1; }
    void storeSubtitlePath(const QString &path);
    void commitTypedText();
    void bindEditorFields(const SubtitlePtr &cue);
    void refreshEditorFields();
    void announceEditorFields();
    void invalidateArranged();
    void clearSelection();
    // Every selected row lies inside the listed cues, in order, and one selected row is
    // exactly the current cue (checked by assertions in debug builds).
    bool selectionIsConsistent() const;
    void updateSearchPredicate(const SubtitleList &selected);
    void observeCueNotifications();
    void subtitleEndGrew(const SubtitlePtr &cue);
    void subtitleStartReduced(const SubtitlePtr &cue);
    void videoTextTimeChanged(VHSubtitle *mark);
    bool canShift() const { return m_fix->canShift(); }
    void updateRangeNotification() { m_fix->updateRange(); }
    void markChanged() { setHasChanged(true); }
    qsizetype indexOfSubtitle(const VHSubtitle *cue) const;

    ProjectView *m_view;
    std::unique_ptr<MovieSession> m_movie;

    QString m_basePath;
    bool m_isChaptermark = false;
    SubtitleList m_subtitles;
    mutable SubtitleList m_arranged;
    mutable bool m_arrangedValid = false;
    SubtitlePtr m_currentSubtitle;
    QList<qsizetype> m_selection;
    double m_currentTime = 0;
    double m_start = 0;
    double m_duration = 0;
    QString m_subtitleText;
    bool m_forced = false;
    bool m_isFixed = false;
    bool m_hasChanged = false;
    EncodingId m_fileEncoding = Encodings::None;
    QString m_searchString;
    QString m_foldedSearch;
    bool m_searchIsAscii = true;
    bool m_searchCaseSensitive = false;
    bool m_showReplace = false;
    std::unique_ptr<LanguageFiles> m_languageFiles = std::make_unique<LanguageFiles>(*this);
    std::unique_ptr<SheetQueue> m_sheets = std::make_unique<SheetQueue>(m_view);
    QString m_permissionStorePath;
    std::unique_ptr<FolderPermissions> m_permissions;
    int m_embeddingState = 0;
    int m_extractableSubtitles = 0;
    bool m_extractableChapters = false;
    bool m_noVerifying = false;
    bool m_noAdjust = false;
    bool m_willTerminate = false;
    std::function<bool()> m_willAutoEmbed;
    bool m_allowArrows = true;
    bool m_closing = false;
    // Deferred work holds a weak reference to this, so that it does nothing once the project
    // is gone.
    std::shared_ptr<int> m_alive = std::make_shared<int>(0);
    std::function<void(const QString &)> m_commandHandler;
    Observable::KeyToken m_cueBinding;
    std::vector<ScopedObserver> m_cueObservers;
    std::unique_ptr<FixController> m_fix = std::make_unique<FixController>(*this);
    // Last, so that it goes first: it stops listening to the cues of the list above.
    std::unique_ptr<CueListEditor> m_editor;
};
