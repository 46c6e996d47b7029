#include "CueListEditor.h"

#include <atomic>

#include "MainQueue.h"

#include <QCoreApplication>

#include <algorithm>

CueListObserver::~CueListObserver() = default;
CueListEditorDelegate::~CueListEditorDelegate() = default;

namespace {
// Both kinds of change count for the undo menu's title: "Undo Typing", "Redo Delete 3 Lines".
QString menuTitle(const char *verb, const QString &title)
{
    return QCoreApplication::translate("CueListEditor", verb).arg(title);
}
} // namespace

CueListEditor::CueListEditor(SubtitleList &list, CueListEditorDelegate *delegate)
    : m_list(list)
    , m_delegate(delegate)
{
    adopt(m_list);
    m_history->cleanFingerprint = fingerprint(m_list);
    m_queueToken = MainQueue::main().addBlockObserver([this](bool drained) { onBlockRun(drained); });
}

CueListEditor::~CueListEditor()
{
    MainQueue::main().removeBlockObserver(m_queueToken);
    release(m_list);
}

void CueListEditor::addObserver(CueListObserver *observer)
{
    m_observers.push_back(observer);
}

void CueListEditor::removeObserver(CueListObserver *observer)
{
    std::erase(m_observers, observer);
}

// --- listening to cues ---------------------------------------------------------------------

void CueListEditor::adopt(const SubtitleList &cues)
{
    for (const SubtitlePtr &cue : cues)
        cue->setEditListener(this);
}

void CueListEditor::release(const SubtitleList &cues)
{
    for (const SubtitlePtr &cue : cues) {
        if (cue->editListener() == this)
            cue->setEditListener(nullptr);
    }
}

quint64 CueListEditor::newRecordMark()
{
    // Unique across editors: a cue taken from one list into another never carries a mark that
    // the other editor's record could mistake for its own.
    static std::atomic<quint64> next{1};
    return next.fetch_add(1, std::memory_order_relaxed);
}

void CueListEditor::cueWillChange(VHSubtitle &cue)
{
    if (m_applying)
        return;
    if (!m_open) {
        // A change outside any command (a correction queued by an earlier edit that was
        // already closed, or a caller changing a cue directly) is an edit of its own. It
        // closes with the queue like any other.
        open(QCoreApplication::translate("CueListEditor", "Change"), 0);
    }
    if (cue.editMark() == m_recordMark)
        return;
    cue.setEditMark(m_recordMark);
    m_recorded.emplace_back(&cue, cue.values());
}

// --- edits -----------------------------------------------------------------------------------

void CueListEditor::beginEdit(const QString &title, quint64 mergeKey)
{
    if (m_open && m_depth == 0) {
        // The previous action's corrections have not all run yet; a new action starts a new
        // step, and whatever of them still runs joins it.
        finish();
    }
    if (!m_open)
        open(title, mergeKey);
    ++m_depth;
}

void CueListEditor::endEdit()
{
    Q_ASSERT(m_depth > 0);
    if (m_depth > 0)
        --m_depth;
    if (m_depth == 0)
        settle();
}

void CueListEditor::settle()
{
    if (m_open && m_depth == 0 && MainQueue::main().pending() == 0)
        finish();
}

void CueListEditor::open(const QString &title, quint64 mergeKey)
{
    m_open = true;
    m_capped = false;
    m_step = Step();
    m_step.title = title;
    m_step.mergeKey = mergeKey;
    if (m_delegate)
        m_step.before = m_delegate->cueSelection();
    m_blocksAtOpen = MainQueue::main().blocksRun();
    if (m_blockLimit == 0)
        m_effectiveLimit = 100'000 + 10 * quint64(m_list.size());
    else
        m_effectiveLimit = m_blockLimit;
}

void CueListEditor::onBlockRun(bool drained)
{
    if (!m_open || m_applying)
        return;
    if (MainQueue::main().blocksRun() - m_blocksAtOpen > m_effectiveLimit) {
        rollBack();
        return;
    }
    if (drained && m_depth == 0)
        finish();
}

qsizetype CueListEditor::rowOf(const VHSubtitle *cue)
{
    // Edits mostly touch runs of neighbours in order: look next to the last row found first.
    for (qsizetype row : {m_rowHint, m_rowHint + 1, m_rowHint - 1}) {
        if (row >= 0 && row < m_list.size() && m_list[row].get() == cue) {
            m_rowHint = row;
            return row;
        }
    }
    if (m_rowCache.isEmpty()) {
        m_rowCache.reserve(m_list.size());
        for (qsizetype i = 0; i < m_list.size(); ++i)
            m_rowCache.insert(m_list[i].get(), i);
    }
    qsizetype row = m_rowCache.value(cue, -1);
    if (row >= m_list.size() || (row >= 0 && m_list[row].get() != cue)) {
        // Stale (the list changed without the editor): made again.
        m_rowCache.clear();
        return rowOf(cue);
    }
    if (row >= 0)
        m_rowHint = row;
    return row;
}

void CueListEditor::flush()
{
    if (m_recorded.empty())
        return;
    Operation operation;
    operation.kind = Operation::Values;
    qsizetype first = -1, last = -1;
    for (const auto &[cue, before] : m_recorded) {
        const qsizetype row = rowOf(cue);
        if (row < 0)
            continue; // no longer in the list: its removal is recorded with its values
        const CueState after = cue->values();
        if (after == before)
            continue;
        operation.changes.push_back({row, before, after});
        first = first < 0 ? row : std::min(first, row);
        last = std::max(last, row);
    }
    m_recorded.clear();
    m_recordMark = newRecordMark();
    if (operation.changes.empty())
        return;
    m_step.operations.push_back(std::move(operation));
    ++m_revision;
    announceChanged(first, last);
}

void CueListEditor::announceChanged(qsizetype first, qsizetype last)
{
    for (CueListObserver *observer : m_observers)
        observer->cueRowsChanged(first, last);
}

void CueListEditor::finish()
{
    if (!m_open)
        return;
    flush();
    m_open = false;
    m_depth = 0;
    if (m_step.operations.empty())
        return;
    for (const Operation &operation : m_step.operations) {
        if (operation.kind != Operation::Values) {
            m_step.changesFile = true;
            break;
        }
        for (const Change &change : operation.changes) {
            CueState before = change.before, after = change.after;
            before.fixed = after.fixed;
            if (before != after) {
                m_step.changesFile = true;
                break;
            }
        }
    }
    if (m_delegate)
        m_step.after = m_delegate->cueSelection();
    History &history = *m_history;
    // Only anchors were set (entering Tap2Sync marks the line before): no step of its own,
    // the later steps' values bring the anchors back as they were.
    if (!m_step.changesFile)
        return;
    if (history.clean > history.position)
        history.clean = -1; // the saved state was undone and is now replaced
    history.steps.resize(size_t(history.position));

    // Typing on in the same field joins the step before, unless a save came between.
    if (m_step.mergeKey != 0 && history.position > 0 && history.clean != history.position &&
        history.steps.back().mergeKey == m_step.mergeKey && m_lastMergeKey == m_step.mergeKey &&
        history.steps.back().operations.size() == 1 && m_step.operations.size() == 1 &&
        history.steps.back().operations.front().kind == Operation::Values &&
        m_step.operations.front().kind == Operation::Values) {
        std::vector<Change> &changes = history.steps.back().operations.front().changes;
        for (const Change &change : m_step.operations.front().changes) {
            auto it = std::find_if(changes.begin(), changes.end(),
                                   [&](const Change &c) { return c.row == change.row; });
            if (it != changes.end())
                it->after = change.after;
            else
                changes.push_back(change);
        }
        history.steps.back().after = m_step.after;
        return;
    }
    m_lastMergeKey = m_step.mergeKey;
    history.steps.push_back(std::move(m_step));
    history.position = qsizetype(history.steps.size());
    m_step = Step();
}

void CueListEditor::rollBack()
{
    flush();
    const bool old = m_applying;
    m_applying = true;
    for (auto it = m_step.operations.rbegin(); it != m_step.operations.rend(); ++it)
        undoOperation(*it);
    m_applying = old;
    m_step = Step();
    m_open = false;
    m_depth = 0;
    m_capped = true;
    ++m_generation; // the corrections still queued do nothing now
    ++m_revision;
    if (m_cappedHandler)
        m_cappedHandler();
}

// --- structure -------------------------------------------------------------------------------

void CueListEditor::applyInsert(qsizetype row, const SubtitleList &cues)
{
    m_rowCache.clear(); // rows move: looked up afresh
    if (cues.isEmpty())
        return;
    if (m_delegate)
        m_delegate->cueListWillChange();
    for (CueListObserver *observer : m_observers)
        observer->cueRowsAboutToBeInserted(row, row + cues.size() - 1);
    m_list.insert(row, cues.size(), SubtitlePtr());
    std::copy(cues.cbegin(), cues.cend(), m_list.begin() + row);
    adopt(cues);
    ++m_revision;
    for (CueListObserver *observer : m_observers)
        observer->cueRowsInserted();
    if (m_delegate)
        m_delegate->cueListDidChange();
}

void CueListEditor::applyRemove(qsizetype row, qsizetype count)
{
    m_rowCache.clear(); // rows move: looked up afresh
    if (count <= 0)
        return;
    if (m_delegate)
        m_delegate->cueListWillChange();
    for (CueListObserver *observer : m_observers)
        observer->cueRowsAboutToBeRemoved(row, row + count - 1);
    release(m_list.mid(row, count));
    m_list.remove(row, count);
    ++m_revision;
    for (CueListObserver *observer : m_observers)
        observer->cueRowsRemoved();
    if (m_delegate)
        m_delegate->cueListDidChange();
}

void CueListEditor::applyReplace(const SubtitleList &list)
{
    m_rowCache.clear(); // rows move: looked up afresh
    if (m_delegate)
        m_delegate->cueListWillChange();
    for (CueListObserver *observer : m_observers)
        observer->cueListAboutToBeReset();
    release(m_list);
    m_list = list;
    adopt(m_list);
    ++m_revision;
    for (CueListObserver *observer : m_observers)
        observer->cueListReset();
    if (m_delegate)
        m_delegate->cueListDidChange();
}

void CueListEditor::insert(qsizetype row, const SubtitleList &cues)
{
    row = std::clamp<qsizetype>(row, 0, m_list.size());
    beginEdit(QCoreApplication::translate("CueListEditor", "Change"));
    flush();
    Operation operation;
    operation.kind = Operation::Insert;
    operation.row = row;
    operation.cues = cues;
    // A cue set up before it joined the list is recorded as it is now.
    applyInsert(row, cues);
    m_step.operations.push_back(std::move(operation));
    endEdit();
}

void CueListEditor::remove(qsizetype row, qsizetype count)
{
    if (row < 0 || count <= 0 || row + count > m_list.size())
        return;
    beginEdit(QCoreApplication::translate("CueListEditor", "Change"));
    flush();
    Operation operation;
    operation.kind = Operation::Remove;
    operation.row = row;
    operation.cues = m_list.mid(row, count);
    applyRemove(row, count);
    m_step.operations.push_back(std::move(operation));
    endEdit();
}

void CueListEditor::removeRows(QList<qsizetype> rows)
{
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    // From the last run backwards, so that the rows of the runs before stay valid.
    qsizetype n = rows.size();
    while (n > 0) {
        qsizetype first = n - 1;
        while (first > 0 && rows[first - 1] == rows[first] - 1)
            --first;
        remove(rows[first], rows[n - 1] - rows[first] + 1);
        n = first;
    }
}

void CueListEditor::replace(const SubtitleList &list)
{
    beginEdit(QCoreApplication::translate("CueListEditor", "Change"));
    flush();
    Operation operation;
    operation.kind = Operation::Replace;
    operation.cues = m_list;
    operation.newCues = list;
    applyReplace(list);
    m_step.operations.push_back(std::move(operation));
    endEdit();
}

void CueListEditor::load(const SubtitleList &list)
{
    // Whatever was open belongs to the list that goes.
    if (m_open) {
        flush();
        m_step = Step();
        m_open = false;
        m_depth = 0;
    }
    m_recorded.clear();
    m_recordMark = newRecordMark();
    applyReplace(list);
    m_history = std::make_shared<History>();
    m_history->cleanFingerprint = fingerprint(m_list);
    m_lastMergeKey = 0;
}

void CueListEditor::restartHistory()
{
    if (m_open) {
        m_depth = 0;
        finish();
    }
    m_history = std::make_shared<History>();
    m_history->cleanFingerprint = fingerprint(m_list);
    m_lastMergeKey = 0;
}

void CueListEditor::adoptHistory(const QString &path)
{
    if (path.isEmpty())
        return;
    const auto kept = m_histories.value(path);
    if (kept && kept != m_history && kept->clean >= 0 &&
        kept->cleanFingerprint == m_history->cleanFingerprint && m_history->steps.empty()) {
        kept->position = kept->clean;
        m_history = kept;
    } else {
        m_histories.insert(path, m_history);
    }
    m_lastMergeKey = 0;
}

// --- undo ------------------------------------------------------------------------------------

void CueListEditor::applyValues(const Operation &operation, bool after)
{
    qsizetype first = -1, last = -1;
    const auto apply = [&](const Change &change) {
        if (change.row < 0 || change.row >= m_list.size())
            return;
        m_list[change.row]->restoreValues(after ? change.after : change.before);
        first = first < 0 ? change.row : std::min(first, change.row);
        last = std::max(last, change.row);
    };
    // Undone from the last change back to the first.
    if (after)
        std::for_each(operation.changes.cbegin(), operation.changes.cend(), apply);
    else
        std::for_each(operation.changes.crbegin(), operation.changes.crend(), apply);
    if (first >= 0) {
        ++m_revision;
        announceChanged(first, last);
    }
}

void CueListEditor::undoOperation(Operation &operation)
{
    switch (operation.kind) {
    case Operation::Values:
        applyValues(operation, false);
        break;
    case Operation::Insert: {
        const qsizetype count = std::min(operation.cues.size(), m_list.size() - operation.row);
        operation.cues = m_list.mid(operation.row, count);
        applyRemove(operation.row, count);
        break;
    }
    case Operation::Remove:
        applyInsert(operation.row, operation.cues);
        break;
    case Operation::Replace:
        operation.newCues = m_list;
        applyReplace(operation.cues);
        break;
    }
}

void CueListEditor::redoOperation(Operation &operation)
{
    switch (operation.kind) {
    case Operation::Values:
        applyValues(operation, true);
        break;
    case Operation::Insert:
        applyInsert(operation.row, operation.cues);
        break;
    case Operation::Remove: {
        const qsizetype count = std::min(operation.cues.size(), m_list.size() - operation.row);
        operation.cues = m_list.mid(operation.row, count);
        applyRemove(operation.row, count);
        break;
    }
    case Operation::Replace:
        operation.cues = m_list;
        applyReplace(operation.newCues);
        break;
    }
}

bool CueListEditor::canUndo() const
{
    return m_history->position > 0 || (m_open && (!m_recorded.empty() || !m_step.operations.empty()));
}

bool CueListEditor::canRedo() const
{
    return !m_open && m_history->position < qsizetype(m_history->steps.size());
}

QString CueListEditor::undoTitle() const
{
    if (m_open && (!m_recorded.empty() || !m_step.operations.empty()))
        return menuTitle(QT_TRANSLATE_NOOP("CueListEditor", "Undo %1"), m_step.title);
    if (m_history->position > 0)
        return menuTitle(QT_TRANSLATE_NOOP("CueListEditor", "Undo %1"),
                         m_history->steps[size_t(m_history->position - 1)].title);
    return QCoreApplication::translate("CueListEditor", "Undo");
}

QString CueListEditor::redoTitle() const
{
    if (canRedo())
        return menuTitle(QT_TRANSLATE_NOOP("CueListEditor", "Redo %1"),
                         m_history->steps[size_t(m_history->position)].title);
    return QCoreApplication::translate("CueListEditor", "Redo");
}

std::optional<CueSelection> CueListEditor::undo()
{
    if (m_open) {
        m_depth = 0;
        finish();
    }
    History &history = *m_history;
    if (history.position <= 0)
        return std::nullopt;
    Step &step = history.steps[size_t(--history.position)];
    m_applying = true;
    for (auto it = step.operations.rbegin(); it != step.operations.rend(); ++it)
        undoOperation(*it);
    m_applying = false;
    m_lastMergeKey = 0;
    return step.before;
}

std::optional<CueSelection> CueListEditor::redo()
{
    if (m_open) {
        m_depth = 0;
        finish();
    }
    History &history = *m_history;
    if (history.position >= qsizetype(history.steps.size()))
        return std::nullopt;
    Step &step = history.steps[size_t(history.position++)];
    m_applying = true;
    for (Operation &operation : step.operations)
        redoOperation(operation);
    m_applying = false;
    m_lastMergeKey = 0;
    return step.after;
}

void CueListEditor::markClean()
{
    if (m_open) {
        m_depth = 0;
        finish();
    }
    m_history->clean = m_history->position;
    m_history->cleanFingerprint = fingerprint(m_list);
    m_lastMergeKey = 0;
}

bool CueListEditor::isClean() const
{
    return !m_open && m_history->clean == m_history->position;
}

size_t CueListEditor::fingerprint(const SubtitleList &list)
{
    // What a file keeps of the list: times to the millisecond as written, texts, forced.
    size_t seed = qHash(list.size());
    for (const SubtitlePtr &cue : list) {
        seed = qHashMulti(seed, VHSubtitle::formatedTime(cue->start()), VHSubtitle::formatedTime(cue->end()),
                          cue->string(), cue->forced());
    }
    return seed;
}

qsizetype CueListEditor::stepBytes(const Step &step)
{
    qsizetype bytes = qsizetype(sizeof(Step)) + step.title.capacity() * 2;
    for (const Operation &operation : step.operations) {
        bytes += qsizetype(sizeof(Operation));
        bytes += qsizetype(operation.changes.capacity() * sizeof(Change));
        for (const Change &change : operation.changes) {
            // A text is stored once for every value that does not share it.
            bytes += change.before.string.capacity() * 2;
            if (!change.after.string.isSharedWith(change.before.string))
                bytes += change.after.string.capacity() * 2;
        }
        bytes += (operation.cues.size() + operation.newCues.size()) * qsizetype(sizeof(SubtitlePtr));
    }
    return bytes;
}

qsizetype CueListEditor::historyBytes() const
{
    qsizetype bytes = 0;
    for (const Step &step : m_history->steps)
        bytes += stepBytes(step);
    return bytes;
}
