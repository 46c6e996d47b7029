#include "CTWindowController.h"
#include "ProjectSettings.h"

#include "CTFileHelper.h"
#include "FolderPermissions.h"
#include "LocaleNames.h"
#include "Log.h"
#include "MainQueue.h"
#include "PlaybackControl.h"
#include "ProjectView.h"
#include "Prompter.h"
#include "RecoveryStore.h"
#include "Settings.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

const QString CTWindowController::SubLoadedNotification = u"SubLoaded"_s;

ProjectView::~ProjectView() = default;
PlaybackControl::~PlaybackControl() = default;
PlaybackControlDelegate::~PlaybackControlDelegate() = default;

void CTWindowController::registerDefaults()
{
    Settings &settings = Settings::shared();
    QString locale = LocaleNames::currentLocaleIdentifier();
    if (locale.size() >= 3)
        locale = locale.left(2);
    if (locale.isEmpty())
        locale = u"en"_s;
    settings.registerDefaults({
        {Preferences::SubtitleLength.name(), 4.0},
        {Preferences::ShowTutorial.name(), true},
        {Preferences::Locale.name(), locale},
        {Preferences::AutoConvert.name(), true},
        {Preferences::AutoExtract.name(), true},
        {Preferences::AutoExtractVTT.name(), false},
        {Preferences::AutoEmbed.name(), true},
        {Preferences::TapRewindSecs.name(), 3.0},
        {Preferences::TapDelaySecs.name(), 0.3},
        {Preferences::TapFixPrev.name(), true},
        {Preferences::AutoOpenSearch.name(), true},
        {Preferences::WindowsLineBreaks.name(), false},
        {Preferences::AutosaveInterval.name(), 30.0},
    });
    // Exports use the reading encoding until the user picks one of their own.
    const QVariant encoding = settings.value(Preferences::Encoding.name());
    settings.registerDefaults(
        {{Preferences::ExportEncoding.name(), encoding.isValid() ? encoding : QVariant(0)}});
}

CTWindowController::CTWindowController(ProjectView *view, PlaybackControl *player)
    : m_view(view)
    , m_movie(std::make_unique<MovieSession>(*this, player))
    , m_editor(std::make_unique<CueListEditor>(m_subtitles, static_cast<CueListEditorDelegate *>(this)))
{
    registerDefaults();
    m_editor->setCappedHandler([this] { editWasCapped(); });
}

CTWindowController::~CTWindowController()
{
    if (m_permissions)
        m_permissions->activateBookmarks(false);
}

bool CTWindowController::canGetAccessToFolder(const QString &moviePath)
{
    if (!m_permissions)
        m_permissions = std::make_unique<FolderPermissions>(m_permissionStorePath);
    return m_permissions->canGetAccessToFolder(moviePath, m_view);
}

QStringList CTWindowController::dependentKeys(const QString &key) const
{
    if (key == u"subtitles"_s)
        return {u"hasSubtitleFile"_s, u"hasPrevious"_s, u"hasNext"_s};
    if (key == u"selectionIndices"_s)
        return {u"canChangeForced"_s, u"forcedState"_s};
    if (key == u"subtitlePath"_s)
        return {u"visibleSubtitlePath"_s};
    return {};
}

void CTWindowController::windowDidLoad()
{
    m_permissions = std::make_unique<FolderPermissions>(m_permissionStorePath);
    m_permissions->activateBookmarks(true);
    m_searchCaseSensitive = Preferences::SearchCaseSensitive.value();
    m_languageFiles->clear();
    m_sheets->clear();
    setBasePath(QString());
    observeCueNotifications();
    if (Preferences::AutoLoadLast.value()) {
        if (const QString movie = Preferences::LastVideo.value(); !movie.isEmpty())
            setMoviePath(movie);
        if (const QString subtitle = Preferences::LastSubtitle.value(); !subtitle.isEmpty())
            setSubtitlePath(subtitle);
    } else {
        Preferences::LastVideo.remove();
        willChangeValueForKey(u"subtitlePath"_s);
        Preferences::LastSubtitle.remove();
        didChangeValueForKey(u"subtitlePath"_s);
    }
}

// --- state ---------------------------------------------------------------------------------

void CTWindowController::setBasePath(const QString &basePath)
{
    willChangeValueForKey(u"basePath"_s);
    m_basePath = basePath;
    didChangeValueForKey(u"basePath"_s);
    const QString app =
        QCoreApplication::applicationName().isEmpty() ? u"Captora"_s : QCoreApplication::applicationName();
    if (m_view)
        m_view->setWindowTitle(
            basePath.isEmpty() ? app : u"%1 - %2"_s.arg(app, CTFileHelper::lastPathComponent(basePath)));
}

QString CTWindowController::subtitlePath() const
{
    return Preferences::LastSubtitle.value();
}

QString CTWindowController::visibleSubtitlePath() const
{
    const QString path = subtitlePath();
    return path.isEmpty() ? u"/"_s : path;
}

void CTWindowController::storeSubtitlePath(const QString &path)
{
    willChangeValueForKey(u"subtitlePath"_s);
    if (path.isEmpty())
        Preferences::LastSubtitle.remove();
    else
        Preferences::LastSubtitle.set(path);
    didChangeValueForKey(u"subtitlePath"_s);
}

void CTWindowController::setSubtitles(const SubtitleList &subtitles)
{
    // Rows and the current cue name cues of the old list: they go before the list does, so
    // that nothing reads an old row against the new list.
    clearSelection();
    if (m_editor->inEdit()) {
        m_editor->replace(subtitles); // one step of the running edit
    } else {
        // A new list: a file was loaded (or started). Its history starts here; a file that
        // is loaded takes up the history it had when it was left (setSubtitlePath()).
        m_editor->load(subtitles);
    }
    updateRangeNotification();
    if (movieController())
        movieController()->setShowSubtitle(true);
    Q_ASSERT(selectionIsConsistent());
}

void CTWindowController::cueListWillChange()
{
    willChangeValueForKey(u"subtitles"_s);
}

void CTWindowController::cueListDidChange()
{
    invalidateArranged();
    didChangeValueForKey(u"subtitles"_s);
    if (movieController())
        movieController()->setSubtitles(m_subtitles);
}

CueSelection CTWindowController::cueSelection() const
{
    CueSelection selection;
    const SubtitleList cues = selectedCues();
    if (cues.size() <= 8) {
        for (const SubtitlePtr &cue : cues)
            selection.rows.append(indexOfSubtitle(cue.get()));
    } else {
        QHash<const VHSubtitle *, qsizetype> rows;
        rows.reserve(m_subtitles.size());
        for (qsizetype i = 0; i < m_subtitles.size(); ++i)
            rows.insert(m_subtitles[i].get(), i);
        for (const SubtitlePtr &cue : cues)
            selection.rows.append(rows.value(cue.get(), -1));
    }
    selection.rows.removeAll(-1);
    selection.current = indexOfSubtitle(m_currentSubtitle.get());
    return selection;
}

QString CTWindowController::editTitle(const char *title)
{
    return QCoreApplication::translate("CTWindowController", title);
}

void CTWindowController::undo()
{
    applyHistoryStep(false);
}

void CTWindowController::redo()
{
    applyHistoryStep(true);
}

void CTWindowController::applyHistoryStep(bool redo)
{
    if (redo ? !m_editor->canRedo() : !m_editor->canUndo())
        return;
    // Text typed into the field belongs to the step being undone; rows may move.
    commitTypedText();
    clearSelection();
    const std::optional<CueSelection> selection = redo ? m_editor->redo() : m_editor->undo();
    if (selection) {
        const SubtitleList &arranged = arrangedSubtitles();
        QList<qsizetype> rows;
        for (qsizetype row : selection->rows) {
            if (row >= 0 && row < m_subtitles.size()) {
                const qsizetype listed = m_searchString.isEmpty() ? row : arranged.indexOf(m_subtitles[row]);
                if (listed >= 0)
                    rows.append(listed);
            }
        }
        // The movie stays where it is: undo puts back lines, not the playback time.
        const bool oldNoAdjust = m_noAdjust;
        m_noAdjust = true;
        const int oldModifiers = m_fix->modifiers();
        m_fix->setModifiers(Preferences::SubtitleNoJump.value() ? NoModifier : OptionModifier);
        setSelectionIndices(rows);
        m_fix->setModifiers(oldModifiers);
        m_noAdjust = oldNoAdjust;
    }
    refreshEditorFields();
    announceEditorFields();
    updateRangeNotification();
    if (movieController())
        movieController()->redrawCurrentSubtitle();
    setHasChanged(!m_editor->isClean());
    if (!m_hasChanged)
        removeRecoveryCopy(); // back to the saved file
}

void CTWindowController::setCueText(qsizetype row, const QString &text)
{
    const SubtitleList &cues = arrangedSubtitles();
    if (row < 0 || row >= cues.size())
        return;
    const SubtitlePtr cue = cues[row];
    if (cue == m_currentSubtitle) {
        setSubtitleText(text);
        return;
    }
    if (cue->string() == text)
        return;
    EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Typing")));
    cue->setString(text);
    markChanged();
}

void CTWindowController::setCueForced(qsizetype row, bool forced)
{
    const SubtitleList &cues = arrangedSubtitles();
    if (row < 0 || row >= cues.size())
        return;
    const SubtitlePtr cue = cues[row];
    if (cue == m_currentSubtitle) {
        setForcedState(forced ? 1 : 0);
        return;
    }
    if (cue->forced() == forced)
        return;
    EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Forced")));
    cue->setForced(forced);
    markChanged();
}

void CTWindowController::editWasCapped()
{
    logLine(u"Warning: The corrections after an edit did not settle; the edit was taken back"_s);
    refreshEditorFields();
    announceEditorFields();
    updateRangeNotification();
    if (movieController())
        movieController()->redrawCurrentSubtitle();
    setHasChanged(!m_editor->isClean());
    // Told after the current call: the question must not open inside the queue's turn.
    Prompt prompt;
    prompt.message = editTitle(QT_TRANSLATE_NOOP(
        "CTWindowController", "This change leaves the lines after it no room before the next anchor."));
    prompt.informative = editTitle(QT_TRANSLATE_NOOP(
        "CTWindowController", "It was taken back. Choose an earlier time, or remove the anchor after it."));
    prompt.buttons = {editTitle(QT_TRANSLATE_NOOP("CTWindowController", "OK"))};
    Prompter::shared().ask(prompt);
}

void CTWindowController::clearSelection()
{
    if (!m_selection.isEmpty() || m_currentSubtitle)
        setSelectionIndices({});
}

bool CTWindowController::selectionIsConsistent() const
{
    const SubtitleList &arranged = arrangedSubtitles();
    for (qsizetype n = 0; n < m_selection.size(); ++n) {
        if (m_selection[n] < 0 || m_selection[n] >= arranged.size())
            return false;
        if (n > 0 && m_selection[n] <= m_selection[n - 1])
            return false;
    }
    if (m_selection.size() == 1)
        return m_currentSubtitle == arranged[m_selection.first()];
    // Several rows or none: no current cue.
    return !m_currentSubtitle;
}

void CTWindowController::invalidateArranged()
{
    m_arrangedValid = false;
}

const SubtitleList &CTWindowController::arrangedSubtitles() const
{
    // Without a search the table lists the cue list itself; no copy that an edit of the
    // list would then have to detach from.
    if (m_searchString.isEmpty())
        return m_subtitles;
    if (!m_arrangedValid) {
        m_arranged.clear();
        for (const SubtitlePtr &cue : m_subtitles) {
            if (searchPredicateAccepts(*cue))
                m_arranged.append(cue);
        }
        m_arrangedValid = true;
    }
    return m_arranged;
}

qsizetype CTWindowController::indexOfSubtitle(const VHSubtitle *cue) const
{
    if (!cue)
        return -1;
    for (qsizetype i = 0; i < m_subtitles.size(); ++i) {
        if (m_subtitles[i].get() == cue)
            return i;
    }
    return -1;
}

void CTWindowController::setSelectionIndices(QList<qsizetype> rows)
{
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    const SubtitleList &arranged = arrangedSubtitles();
    rows.removeIf([&](qsizetype row) { return row < 0 || row >= arranged.size(); });
    // The current cue follows inside the announcement, so that whoever hears of the new
    // selection finds the current cue already matching it. Text typed for the old current
    // cue goes to it first, while the selection still names it.
    commitTypedText();
    willChangeValueForKey(u"selectionIndices"_s);
    m_selection = rows;
    setCurrentSubtitle(m_selection.size() == 1 ? arranged[m_selection.first()] : SubtitlePtr());
    didChangeValueForKey(u"selectionIndices"_s);
    Q_ASSERT(selectionIsConsistent());
}

SubtitleList CTWindowController::selectedCues() const
{
    const SubtitleList &arranged = arrangedSubtitles();
    SubtitleList cues;
    cues.reserve(m_selection.size());
    for (qsizetype row : m_selection) {
        if (row >= 0 && row < arranged.size())
            cues.append(arranged[row]);
    }
    return cues;
}

void CTWindowController::setCurrentTime(double seconds)
{
    willChangeValueForKey(u"currentTime"_s);
    m_currentTime = seconds;
    didChangeValueForKey(u"currentTime"_s);
    m_fix->timeChanged(seconds);
}

void CTWindowController::setCurrentSubtitle(const SubtitlePtr &cue)
{
    const bool oldNoAdjust = m_noAdjust;
    m_noAdjust = true;
    commitTypedText();
    m_cueBinding.reset();

    willChangeValueForKey(u"currentSubtitle"_s);
    m_currentSubtitle = cue;
    m_isFixed = false;
    didChangeValueForKey(u"currentSubtitle"_s);

    if (cue) {
        bindEditorFields(cue);
        seekToCurrentSubtitle();
    } else {
        willChangeValueForKey(u"subtitleText"_s);
        m_subtitleText = u""_s;
        m_start = 0;
        m_duration = 0;
        didChangeValueForKey(u"subtitleText"_s);
        announceEditorFields();
    }
    updateRangeNotification();
    m_noAdjust = oldNoAdjust;
}

void CTWindowController::seekToCurrentSubtitle()
{
    PlaybackControl *player = movieController();
    if (!m_currentSubtitle || fixMode() == FixMode::Tap2Sync || !player)
        return;
    // A click seeks unless "SubtitleNoJump" is set; the Option key inverts that.
    const bool option = m_fix->modifiers() & OptionModifier;
    if (option == Preferences::SubtitleNoJump.value())
        player->setCurrentTime(m_currentSubtitle->start() + 0.0001);
}

void CTWindowController::commitTypedText()
{
    // Keep an edit that was typed into the text field but not committed yet.
    if (m_currentSubtitle && m_cueBinding && m_currentSubtitle->string() != m_subtitleText) {
        const bool oldNoAdjust = m_noAdjust;
        m_noAdjust = true;
        EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Typing")),
                       typingKey(m_currentSubtitle.get()));
        m_currentSubtitle->setString(m_subtitleText);
        m_noAdjust = oldNoAdjust;
    }
}

void CTWindowController::bindEditorFields(const SubtitlePtr &cue)
{
    refreshEditorFields();
    announceEditorFields();
    // Follow the cue: its changes show in the editor fields.
    m_cueBinding = cue->observeKey(QString(), [this](Observable *, const QString &key, Change change) {
        if (change != Change::Did)
            return;
        if (key == u"start"_s || key == u"end"_s || key == u"duration"_s || key == u"string"_s ||
            key == u"forced"_s) {
            refreshEditorFields();
            announceEditorFields();
        }
    });
}

void CTWindowController::refreshEditorFields()
{
    if (!m_currentSubtitle)
        return;
    m_start = m_currentSubtitle->start();
    m_duration = m_currentSubtitle->duration();
    m_subtitleText = m_currentSubtitle->string();
    m_forced = m_currentSubtitle->forced();
}

void CTWindowController::announceEditorFields()
{
    // Bound controls refresh these together.
    for (const QString &key :
         {u"start"_s, u"duration"_s, u"subtitleText"_s, u"forced"_s, u"hasPrevious"_s, u"hasNext"_s}) {
        willChangeValueForKey(key);
        didChangeValueForKey(key);
    }
}

double CTWindowController::timeShift() const
{
    return m_currentTime - m_start;
}

void CTWindowController::setStart(double t)
{
    // While a cue is bound to the fields (or none is current) the field only follows; a typed
    // time is a fix of the current cue, and one the range refuses leaves the cues as they are.
    if (m_noAdjust || !m_currentSubtitle || !m_fix->moveCurrentStart(t))
        m_start = t;
}

void CTWindowController::setDuration(double seconds)
{
    m_duration = seconds;
    EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Duration")));
    // A difference below the field's precision (5 µs) is no edit of the cue.
    if (m_currentSubtitle && !m_noAdjust &&
        std::lround(std::abs(seconds - m_currentSubtitle->duration()) * 100000) != 0)
        m_currentSubtitle->setDuration(seconds);
    if (!m_noAdjust)
        markChanged();
}

void CTWindowController::setSubtitleText(const QString &text)
{
    m_subtitleText = text;
    if (m_currentSubtitle && !m_noAdjust && m_currentSubtitle->string() != text) {
        EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Typing")),
                       typingKey(m_currentSubtitle.get()));
        m_currentSubtitle->setString(text);
    }
    if (!m_noAdjust)
        markChanged();
}

void CTWindowController::setForced(bool forced)
{
    m_forced = forced;
    if (m_noAdjust || !m_currentSubtitle || m_currentSubtitle->forced() == forced)
        return;
    EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Forced")));
    m_currentSubtitle->setForced(forced);
    markChanged();
}

void CTWindowController::setHasChanged(bool changed)
{
    willChangeValueForKey(u"hasChanged"_s);
    m_hasChanged = changed;
    didChangeValueForKey(u"hasChanged"_s);
    if (m_view)
        m_view->setDocumentEdited(changed);
}

void CTWindowController::setFileEncoding(EncodingId encoding)
{
    if (encoding == m_fileEncoding)
        return;
    willChangeValueForKey(u"fileEncoding"_s);
    m_fileEncoding = encoding;
    didChangeValueForKey(u"fileEncoding"_s);
}

bool CTWindowController::hasMovie() const
{
    return movieController() && movieController()->hasMovie();
}

bool CTWindowController::hasPrevious() const
{
    if (m_subtitles.isEmpty() || !movieController())
        return false;
    const qsizetype index = movieController()->currentSegmentIndex();
    if (index > 0)
        return true;
    if (index < 0 || index >= m_subtitles.size())
        return false;
    return movieController()->currentTime() > m_subtitles[index]->end();
}

bool CTWindowController::hasNext() const
{
    if (m_subtitles.isEmpty() || !movieController())
        return false;
    return movieController()->currentSegmentIndex() < m_subtitles.size() - 1;
}

qsizetype CTWindowController::subtitleIndexAtTime(double seconds) const
{
    // Cues are kept in start order, so the first start at or after the time is a bound.
    const auto it = std::lower_bound(m_subtitles.cbegin(), m_subtitles.cend(), seconds,
                                     [](const SubtitlePtr &cue, double t) { return cue->start() < t; });
    return it - m_subtitles.cbegin();
}

int CTWindowController::forcedState() const
{
    Q_ASSERT(selectionIsConsistent());
    if (m_currentSubtitle)
        return m_forced ? 1 : 0;
    const SubtitleList cues = selectedCues();
    const auto forcedCount =
        std::count_if(cues.cbegin(), cues.cend(), [](const SubtitlePtr &cue) { return cue->forced(); });
    if (forcedCount == 0)
        return 0;
    return forcedCount == cues.size() ? 1 : -1;
}

void CTWindowController::setForcedState(int state)
{
    const bool on = state != 0; // mixed counts as on
    willChangeValueForKey(u"forcedState"_s);
    if (m_currentSubtitle) {
        setForced(on);
    } else {
        Q_ASSERT(selectionIsConsistent());
        EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Forced")));
        bool changed = false;
        for (const SubtitlePtr &cue : selectedCues()) {
            if (cue->forced() != on) {
                cue->setForced(on);
                changed = true;
            }
        }
        if (changed)
            markChanged();
    }
    didChangeValueForKey(u"forcedState"_s);
}

// --- leaving and closing -----------------------------------------------------------------------

bool CTWindowController::canDropSubtitleTryEmbed(bool tryEmbed)
{
    if (m_hasChanged) {
        Prompt prompt;
        prompt.message = tr("You have unsaved changes. Do you want to save them?");
        prompt.buttons = {m_isChaptermark ? tr("Save Chapter Marks") : tr("Save Subtitle"),
                          tr("Discard Changes"), tr("Cancel")};
        const PromptAnswer answer = Prompter::shared().ask(prompt);
        if (answer.button == 0) {
            saveSubtitle();
            if (m_hasChanged)
                return false;
        } else if (answer.button == 1) {
            removeRecoveryCopy(); // the user let the changes go
            return true;
        } else {
            return false;
        }
    }
    if (tryEmbed && (m_willAutoEmbed ? m_willAutoEmbed() : willAutoEmbed()))
        return false;
    return true;
}

bool CTWindowController::closeProject()
{
    if (!canDropSubtitleTryEmbed(true))
        return false;
    removeRecoveryCopy();
    if (moviePath().isEmpty()) {
        storeSubtitlePath(QString());
        setBasePath(QString());
    } else {
        m_closing = true;
        setMoviePath(QString());
        m_closing = false;
    }
    return true;
}

bool CTWindowController::windowShouldClose()
{
    if (m_view) {
        const QList<Sheet> sheets = m_view->attachedSheets();
        for (const Sheet &sheet : sheets)
            m_view->endSheet(sheet, 0);
    }
    if (m_willTerminate)
        return canDropSubtitleTryEmbed(true);
    if (!closeProject())
        return false;
    return !(m_view && m_view->hasAttachedSheet());
}

bool CTWindowController::applicationShouldTerminate()
{
    return canDropSubtitleTryEmbed(true);
}

// --- recovery copies ---------------------------------------------------------------------------

double CTWindowController::autosaveInterval()
{
    bool ok = false;
    const double forced = qEnvironmentVariable("CAPTORA_AUTOSAVE_INTERVAL").toDouble(&ok);
    if (ok && forced >= 0)
        return forced;
    const double stored = Preferences::AutosaveInterval.value();
    return stored > 0 ? stored : 30;
}

void CTWindowController::writeRecoveryCopy()
{
    if (!m_recovery || !m_hasChanged || m_editor->isEditOpen())
        return;
    const QString path = subtitlePath();
    if (path.isEmpty() || m_editor->revision() == m_copiedRevision)
        return;
    m_recovery->write(path, m_subtitles, m_isChaptermark);
    m_copiedRevision = m_editor->revision();
    m_changesWaitingSince.reset();
}

void CTWindowController::autosaveTick(qint64 nowMs, double intervalSeconds)
{
    if (!m_recovery)
        return;
    const quint64 revision = m_editor->revision();
    if (!m_hasChanged || revision == m_copiedRevision) {
        m_changesWaitingSince.reset();
        return;
    }
    if (!m_changesWaitingSince)
        m_changesWaitingSince = nowMs;
    if (double(nowMs - *m_changesWaitingSince) >= intervalSeconds * 1000)
        writeRecoveryCopy();
}

void CTWindowController::removeRecoveryCopy()
{
    if (!m_recovery)
        return;
    m_recovery->remove(subtitlePath());
    m_copiedRevision = m_editor->revision();
    m_changesWaitingSince.reset();
}

bool CTWindowController::askToRecover(const RecoveryStore::Copy &copy)
{
    Prompt prompt;
    prompt.message =
        editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Recover unsaved changes to %1 from %2?"))
            .arg(CTFileHelper::lastPathComponent(copy.path),
                 QLocale::system().toString(copy.time, QLocale::ShortFormat));
    prompt.buttons = {editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Recover")),
                      editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Discard"))};
    return Prompter::shared().ask(prompt).button == 0;
}

void CTWindowController::offerRecoveryOf(const QString &path)
{
    if (!m_recovery || path.isEmpty())
        return;
    const auto copy = m_recovery->copyFor(path);
    if (!copy || copy->chapterMarks != m_isChaptermark)
        return;
    // Offered once a session: a file loaded again (the movie's report after a start-up
    // recovery) keeps what the user answered.
    if (m_recoveryOffered.contains(path) && m_recoverWithoutAsking != path)
        return;
    if (!m_recoveryOffered.contains(path))
        m_recoveryOffered.append(path);
    if (!RecoveryStore::isNewerThanFile(*copy)) {
        m_recovery->remove(path); // the file was saved after the copy
        return;
    }
    if (m_recoverWithoutAsking != path && !askToRecover(*copy)) {
        m_recovery->remove(path);
        return;
    }
    const std::optional<SubtitleList> cues = RecoveryStore::readCopy(*copy, fps(), movieDuration());
    if (!cues) {
        logLine(u"Warning: The recovery copy '%1' of '%2' could not be read"_s.arg(copy->copyPath, path));
        return;
    }
    {
        // One step: undoing it gives back the file as it is on disk.
        EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Recover Unsaved Changes")));
        setSubtitles(*cues);
    }
    setHasChanged(true);
    // The copy stays until the changes are saved or let go.
    m_copiedRevision = m_editor->revision();
}

void CTWindowController::offerRecoveries()
{
    if (!m_recovery)
        return;
    const QList<RecoveryStore::Copy> copies = m_recovery->copies();
    for (const RecoveryStore::Copy &copy : copies) {
        if (m_recoveryOffered.contains(copy.path) || copy.path == subtitlePath())
            continue;
        // A file of the movie being opened (it loads when the player reports): offered when it
        // is opened.
        const QString base = CTFileHelper::stringByDeletingLocaleAndPathExtension(copy.path);
        if ((!m_basePath.isEmpty() && base == m_basePath) ||
            (!moviePath().isEmpty() && base == CTFileHelper::stringByDeletingPathExtension(moviePath())))
            continue;
        m_recoveryOffered.append(copy.path);
        if (!RecoveryStore::isNewerThanFile(copy)) {
            m_recovery->remove(copy.path);
            continue;
        }
        if (!askToRecover(copy)) {
            m_recovery->remove(copy.path);
            continue;
        }
        // The file is opened on its own (it may belong to another movie), and its copy
        // applied without asking again.
        if (!closeProject())
            continue;
        m_recoverWithoutAsking = copy.path;
        setSubtitlePath(copy.path, copy.chapterMarks);
        m_recoverWithoutAsking.clear();
    }
}

void CTWindowController::movieChangedPlaying(bool playing)
{
    // Followers of playback (the playback aids) ask the player for the new state.
    willChangeValueForKey(u"playing"_s);
    didChangeValueForKey(u"playing"_s);
    m_fix->playingChanged(playing);
}

void CTWindowController::setObservedResponderIsTextEditor(bool textEditor)
{
    m_allowArrows = !textEditor;
    if (m_view)
        m_view->setArrowKeyEquivalentsEnabled(m_allowArrows);
}
