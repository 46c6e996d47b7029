#pragma once

#include "VHSubtitle.h"

#include <QHash>
#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

// Follows the rows of the edited list as they change, so that a view can update exactly
// those rows instead of listing everything again. Rows are rows of the whole list.
class CueListObserver
{
public:
    virtual ~CueListObserver();
    virtual void cueRowsAboutToBeInserted(qsizetype first, qsizetype last) = 0;
    virtual void cueRowsInserted() = 0;
    virtual void cueRowsAboutToBeRemoved(qsizetype first, qsizetype last) = 0;
    virtual void cueRowsRemoved() = 0;
    virtual void cueListAboutToBeReset() = 0;
    virtual void cueListReset() = 0;
    virtual void cueRowsChanged(qsizetype first, qsizetype last) = 0;
};

// The selection an undo step puts back: rows of the whole list, and the current cue's row.
struct CueSelection
{
    QList<qsizetype> rows;
    qsizetype current = -1;
};

// What the editor needs of its owner around changes of the list's structure and to take
// and put back the selection.
class CueListEditorDelegate
{
public:
    virtual ~CueListEditorDelegate();
    virtual void cueListWillChange() = 0;
    virtual void cueListDidChange() = 0;
    virtual CueSelection cueSelection() const = 0;
};

// The one path every change of the edited list takes. A user action opens an edit; every
// cue change that follows (the action's own, and the neighbour corrections that the main
// queue runs after it) is recorded as the cue's values before and after, and the edit
// closes when the action has returned and the main queue has drained. Closed edits are the
// steps of an undo history, kept per file: only what changed is stored, by row, never a
// copy of the list.
//
// Threading: main thread only.
class CueListEditor final : public CueEditListener
{
public:
    CueListEditor(SubtitleList &list, CueListEditorDelegate *delegate);
    ~CueListEditor() override;

    // --- the list ------------------------------------------------------------------------
    const SubtitleList &list() const { return m_list; }
    // Structural changes: recorded into the open edit (one opens for the call when none is).
    void insert(qsizetype row, const SubtitleList &cues);
    void remove(qsizetype row, qsizetype count);
    // Removes the given rows (sorted or not), as runs of adjacent rows.
    void removeRows(QList<qsizetype> rows);
    void replace(const SubtitleList &list);
    // A new list that is not an edit (a file was loaded): a fresh history starts.
    void load(const SubtitleList &list);
    // The list as it is now starts a fresh history (what came before is not undoable).
    void restartHistory();
    // Increases with every change of the list's cues or rows.
    quint64 revision() const { return m_revision; }
    void addObserver(CueListObserver *observer);
    void removeObserver(CueListObserver *observer);

    // --- edits ------------------------------------------------------------------------------
    // Opens an edit titled for the undo menu. Edits nest: the outermost title counts. A
    // non-zero merge key makes the edit join the previous step when that was closed with the
    // same key and nothing came between (typing into one field).
    void beginEdit(const QString &title, quint64 mergeKey = 0);
    void endEdit();
    bool isEditOpen() const { return m_open; }
    // Inside a command (an edit scope is running), as opposed to waiting for the queue.
    bool inEdit() const { return m_depth > 0; }
    // Tells the observers that rows changed that no edit recorded (the dimming of lines
    // outside the run that moves with the current one).
    void rowsChanged(qsizetype first, qsizetype last) { announceChanged(first, last); }
    // Closes an edit that is only waiting for the main queue to drain.
    void settle();
    // How many main-queue blocks an edit may run before its corrections count as chasing
    // each other (0: 100,000 and ten per cue); the edit is then rolled back and `capped()`
    // is true until the next edit.
    void setBlockLimit(quint64 limit) { m_blockLimit = limit; }
    bool capped() const { return m_capped; }
    // Called when an edit had to be rolled back because its corrections never settled.
    void setCappedHandler(std::function<void()> handler) { m_cappedHandler = std::move(handler); }
    // Whether queued corrections posted under the given generation may still run: a capped
    // edit retires every correction it queued.
    quint64 correctionGeneration() const { return m_generation; }

    // --- undo -------------------------------------------------------------------------------
    bool canUndo() const;
    bool canRedo() const;
    QString undoTitle() const;
    QString redoTitle() const;
    // Undoes or redoes one step; the selection of that step, or none when there was none.
    std::optional<CueSelection> undo();
    std::optional<CueSelection> redo();
    // The list as it is now is what the file holds (after saving or loading it).
    void markClean();
    bool isClean() const;
    // The list differs from the file in a way no undo takes back (a file read under another
    // name, a recovered copy): no state of the history is the saved one.
    void markUnsaved() { m_history->clean = -1; }

    // The history of the file at `path` (empty: none) becomes the current one. A history
    // kept from earlier for that file is taken up again when the list is the file as it
    // was last saved or loaded; its steps then undo and redo from there.
    void adoptHistory(const QString &path);
    // Bytes the current history holds, for keeping an eye on its size.
    qsizetype historyBytes() const;

    // CueEditListener
    void cueWillChange(VHSubtitle &cue) override;

private:
    struct Change
    {
        qsizetype row;
        CueState before, after;
    };
    struct Operation
    {
        enum Kind { Values, Insert, Remove, Replace } kind = Values;
        qsizetype row = 0;
        std::vector<Change> changes;
        SubtitleList cues;    // Insert, Remove: the rows' cues; Replace: the old list
        SubtitleList newCues; // Replace: the new list
    };
    struct Step
    {
        QString title;
        quint64 mergeKey = 0;
        std::vector<Operation> operations;
        CueSelection before, after;
        bool changesFile = false; // more than anchors changed
    };
    struct History
    {
        std::vector<Step> steps;
        qsizetype position = 0; // steps applied
        qsizetype clean = 0;    // -1: the clean state cannot be reached
        size_t cleanFingerprint = 0;
    };

    void open(const QString &title, quint64 mergeKey);
    void finish();
    void flush();
    void rollBack();
    void onBlockRun(bool drained);
    qsizetype rowOf(const VHSubtitle *cue);
    void adopt(const SubtitleList &cues);
    void release(const SubtitleList &cues);
    void applyInsert(qsizetype row, const SubtitleList &cues);
    void applyRemove(qsizetype row, qsizetype count);
    void applyReplace(const SubtitleList &list);
    void applyValues(const Operation &operation, bool after);
    void undoOperation(Operation &operation);
    void redoOperation(Operation &operation);
    void announceChanged(qsizetype first, qsizetype last);
    static size_t fingerprint(const SubtitleList &list);
    static qsizetype stepBytes(const Step &step);

    SubtitleList &m_list;
    CueListEditorDelegate *m_delegate;
    std::vector<CueListObserver *> m_observers;
    quint64 m_revision = 0;

    // The open edit.
    bool m_open = false;
    int m_depth = 0;
    bool m_applying = false;
    Step m_step;
    // The mark of the cues whose values m_recorded holds; a new one for every new record, so
    // that marks left on cues by earlier records never match.
    quint64 m_recordMark = newRecordMark();
    static quint64 newRecordMark();
    std::vector<std::pair<const VHSubtitle *, CueState>> m_recorded;
    qsizetype m_rowHint = 0;
    // Rows of the list's cues, made when first needed and kept until rows move.
    QHash<const VHSubtitle *, qsizetype> m_rowCache;
    quint64 m_blocksAtOpen = 0;
    quint64 m_blockLimit = 0;
    quint64 m_effectiveLimit = 0;
    int m_queueToken = 0;
    bool m_capped = false;
    quint64 m_generation = 0;
    std::function<void()> m_cappedHandler;
    quint64 m_lastMergeKey = 0;

    std::shared_ptr<History> m_history = std::make_shared<History>();
    QHash<QString, std::shared_ptr<History>> m_histories;
};
