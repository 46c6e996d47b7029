// Commands that change the cue list or move through it, the table's search filter, and
// the titles and enabled states of the menu items.
#include "CTWindowController.h"
#include "NotificationCenter.h"
#include "PlaybackControl.h"
#include "ProjectSettings.h"
#include "ProjectView.h"
#include "Settings.h"
#include "VHVideoText.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
// Folds a text for the case- and diacritic-insensitive filter: base letters only, case
// folded. ASCII, by far the most common, takes a fast path.
QString foldForSearch(QStringView text)
{
    QString out;
    out.reserve(text.size());
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (u < 0x80) {
            out.append(QChar(u >= u'A' && u <= u'Z' ? char16_t(u + 32) : u));
            continue;
        }
        if (c.category() == QChar::Mark_NonSpacing)
            continue; // a combining accent of a decomposed letter
        const QString decomposed = c.decomposition();
        QChar base = c;
        if (!decomposed.isEmpty() && c.decompositionTag() == QChar::Canonical)
            base = decomposed.front();
        out.append(QString(base).toCaseFolded());
    }
    return out;
}
} // namespace

// --- search ----------------------------------------------------------------------------------

void CTWindowController::setSearchString(const QString &text)
{
    const SubtitleList selected = selectedCues();
    m_searchString = text;
    updateSearchPredicate(selected);
}

void CTWindowController::setSearchCaseSensitive(bool caseSensitive)
{
    const SubtitleList selected = selectedCues();
    m_searchCaseSensitive = caseSensitive;
    Preferences::SearchCaseSensitive.set(caseSensitive);
    updateSearchPredicate(selected);
}

void CTWindowController::setShowReplace(bool show)
{
    willChangeValueForKey(u"showReplace"_s);
    m_showReplace = show;
    didChangeValueForKey(u"showReplace"_s);
}

void CTWindowController::resetMessages()
{
    Preferences::ShownDisclaimer.remove();
    Preferences::ShownTap2Sync.remove();
}

void CTWindowController::updateSearchPredicate(const SubtitleList &selected)
{
    // Selected rows are rows of the listed cues. The selection keeps its cues (`selected`, read
    // before the filter or the texts changed), at their rows in the new list; cues the filter
    // now hides leave it. The rows change inside the filter's announcement, so no one reads an
    // old row against the new list.
    commitTypedText();
    willChangeValueForKey(u"searchPredicate"_s);
    willChangeValueForKey(u"selectionIndices"_s);
    m_foldedSearch = m_searchCaseSensitive ? m_searchString : foldForSearch(m_searchString);
    m_searchIsAscii = std::all_of(m_searchString.cbegin(), m_searchString.cend(),
                                  [](QChar c) { return c.unicode() < 0x80; });
    invalidateArranged();
    QList<qsizetype> rows;
    if (!selected.isEmpty()) {
        const SubtitleList &arranged = arrangedSubtitles();
        qsizetype from = 0; // both lists are in list order
        for (const SubtitlePtr &cue : selected) {
            const qsizetype row = arranged.indexOf(cue, from);
            if (row >= 0) {
                rows.append(row);
                from = row + 1;
            }
        }
    }
    m_selection = rows;
    const SubtitlePtr current = rows.size() == 1 ? arrangedSubtitles()[rows.first()] : SubtitlePtr();
    if (current != m_currentSubtitle)
        setCurrentSubtitle(current);
    didChangeValueForKey(u"selectionIndices"_s);
    didChangeValueForKey(u"searchPredicate"_s);
    Q_ASSERT(selectionIsConsistent());
}

bool CTWindowController::searchPredicateAccepts(const VHSubtitle &cue) const
{
    if (m_searchString.isEmpty())
        return true;
    if (m_searchCaseSensitive)
        return cue.string().contains(m_searchString);
    // Most texts are plain ASCII, where ignoring case is all the folding there is: answer
    // those without building a folded copy.
    const QString &text = cue.string();
    if (text.contains(m_searchString, Qt::CaseInsensitive))
        return true;
    const bool ascii = std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; });
    if (ascii && m_searchIsAscii)
        return false;
    return foldForSearch(text).contains(m_foldedSearch);
}

qsizetype CTWindowController::replaceAll(const QString &search, const QString &replacement)
{
    if (search.isEmpty())
        return 0;
    EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Replace All")));
    const Qt::CaseSensitivity cs = m_searchCaseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    qsizetype changed = 0;
    const SubtitleList selected = selectedCues();
    const SubtitleList listed = arrangedSubtitles();
    for (const SubtitlePtr &cue : listed) {
        const QString &text = cue->string();
        qsizetype found = text.indexOf(search, 0, cs);
        if (found < 0)
            continue;
        QString result;
        qsizetype from = 0;
        // Searching resumes after each inserted replacement, so a replacement that
        // contains the search text cannot loop.
        while (found >= 0) {
            result.append(QStringView(text).sliced(from, found - from));
            result.append(replacement);
            from = found + search.size();
            found = text.indexOf(search, from, cs);
        }
        result.append(QStringView(text).sliced(from));
        // Ignoring case, "Hello" replaced by "hello" may leave a line as it was: not a change.
        if (result == text)
            continue;
        cue->setString(result);
        ++changed;
    }
    if (changed > 0) {
        // Lines may have left or joined the filtered list: the table is told, not just the cache.
        updateSearchPredicate(selected);
        markChanged();
    }
    return changed;
}

// --- adding and deleting -----------------------------------------------------------------

void CTWindowController::addSubtitle()
{
    EditScope edit(*this, m_isChaptermark
                              ? editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Add Chapter Mark"))
                              : editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Add Line")));
    double start = 0;
    qsizetype index = 0;
    if (hasMovie()) {
        start = movieController()->currentTime();
        index = subtitleIndexAtTime(start);
    } else if (!m_subtitles.isEmpty()) {
        const SubtitleList selected = selectedCues();
        const SubtitlePtr after = selected.isEmpty() ? m_subtitles.last() : selected.last();
        start = after->end();
        index = indexOfSubtitle(after.get()) + 1;
    }

    // The rows of the old list mean nothing once the cue is in: the selection goes first.
    clearSelection();

    SubtitlePtr cue;
    if (m_isChaptermark) {
        // The default names of the marks after it follow the new numbering.
        const QString name = tr("Chapter %1", "the text of a new chapter mark");
        cue = VHVideoText::create(name.arg(index + 1), start, start + 60);
        for (qsizetype i = index; i < m_subtitles.size(); ++i) {
            if (m_subtitles[i]->string() == name.arg(i + 1))
                m_subtitles[i]->setString(name.arg(i + 2));
        }
    } else {
        const float length = float(Preferences::SubtitleLength.value());
        cue = VHSubtitle::create(tr("Subtitle", "the text of a new subtitle line"), start,
                                 start + double(length));
    }
    cue->setFixed(true);

    m_editor->insert(index, {cue});

    // The new line must be a row of the table to be selected and edited: a search that
    // would hide it is cleared.
    if (!searchPredicateAccepts(*cue))
        setSearchString(QString());
    const qsizetype row = arrangedSubtitles().indexOf(cue);
    setSelectionIndices({row});
    markChanged();

    if (m_isChaptermark) {
        videoTextTimeChanged(cue.get());
    } else {
        NotificationCenter::defaultCenter().post(VHSubtitle::EndGrewNotification, cue.get());
        NotificationCenter::defaultCenter().post(VHSubtitle::StartReducedNotification, cue.get());
    }
    Q_ASSERT(selectionIsConsistent());
    if (m_view && row >= 0)
        m_view->beginEditingText(row);
}

void CTWindowController::deleteSubtitle()
{
    if (m_selection.isEmpty())
        return;
    const qsizetype first = m_selection.last() - m_selection.size() + 1;
    Q_ASSERT(selectionIsConsistent());
    const qsizetype count = m_selection.size();
    EditScope edit(*this, m_isChaptermark ? (count == 1 ? tr("Delete Chapter Mark")
                                                        : tr("Delete %n Chapter Marks", nullptr, int(count)))
                                          : (count == 1 ? tr("Delete Line")
                                                        : tr("Delete %n Lines", nullptr, int(count))));
    const QList<qsizetype> doomed = cueSelection().rows;

    setSelectionIndices({});
    m_editor->removeRows(doomed);

    if (m_isChaptermark) {
        if (!m_subtitles.isEmpty()) {
            const bool old = m_noVerifying;
            m_noVerifying = true;
            VHVideoText::correctChapterMarks(m_subtitles,
                                             hasMovie() ? movieDuration() : m_subtitles.last()->end());
            m_noVerifying = old;
        } else {
            addSubtitle();
        }
    } else {
        updateRangeNotification();
    }
    if (movieController())
        movieController()->redrawCurrentSubtitle();
    markChanged();
    const qsizetype row = std::min(first, arrangedSubtitles().size() - 1);
    if (row >= 0)
        setSelectionIndices({row});
    Q_ASSERT(selectionIsConsistent());
}

// --- stepping ------------------------------------------------------------------------------

void CTWindowController::silentGotoNextSubtitle()
{
    const qsizetype count = arrangedSubtitles().size();
    const qsizetype next = m_selection.isEmpty() ? 0 : m_selection.first() + 1;
    setSelectionIndices(next < count ? QList<qsizetype>{next} : QList<qsizetype>{});
}

void CTWindowController::silentGotoPreviousSubtitle()
{
    if (m_selection.isEmpty() || m_selection.first() == 0) {
        setSelectionIndices({});
        return;
    }
    setSelectionIndices({m_selection.first() - 1});
}

// --- durations ------------------------------------------------------------------------------

QString CTWindowController::startFixDuration(double perCharacter, double minimum, double maximum, double gap,
                                             bool onlySelected)
{
    if (minimum > maximum)
        return tr("Minimum is bigger than Maximum");
    adjustDurationPerCharacter(perCharacter, minimum, maximum, gap, onlySelected);
    return {};
}

void CTWindowController::adjustDurationPerCharacter(double perCharacter, double minimum, double maximum,
                                                    double gap, bool onlySelected)
{
    EditScope edit(*this, editTitle(QT_TRANSLATE_NOOP("CTWindowController", "Adjust Durations")));
    const bool old = m_noVerifying;
    m_noVerifying = true;
    // Selected rows name cues of the table's list; the walk goes over the whole list.
    QList<qsizetype> selected;
    if (onlySelected) {
        for (const SubtitlePtr &cue : selectedCues()) {
            const qsizetype index = indexOfSubtitle(cue.get());
            if (index >= 0)
                selected.append(index);
        }
        std::sort(selected.begin(), selected.end());
    }
    auto firstFrom = [&](qsizetype from) -> qsizetype {
        if (!onlySelected)
            return from;
        const auto it = std::lower_bound(selected.cbegin(), selected.cend(), from);
        return it == selected.cend() ? m_subtitles.size() : *it;
    };
    bool changed = false;
    qsizetype i = firstFrom(0);
    while (i >= 0 && i < m_subtitles.size()) {
        const SubtitlePtr cue = m_subtitles[i];
        const qsizetype next = firstFrom(i + 1);
        const bool last = next >= m_subtitles.size();
        const double limit = last ? movieDuration() : m_subtitles[next]->start();
        const double available = limit - cue->start();
        const double wanted = double(cue->characterCount()) * perCharacter;
        double d = std::min(wanted, available - gap);
        d = std::max(d, minimum);
        d = std::min(d, maximum);
        d = std::min(d, available);
        // Through the cue's setter, so that views and change tracking follow as with any edit.
        const double before = cue->end();
        cue->setDuration(d);
        changed = changed || cue->end() != before;
        if (last)
            break;
        i = next;
    }
    m_noVerifying = old;
    if (changed)
        markChanged();
}
