#include "CueTableModel.h"

#include "CTWindowController.h"
#include "VHTimeValueTransformer.h"

#include <QColor>
#include <QPalette>

using namespace Qt::StringLiterals;

CueTableModel::CueTableModel(CTWindowController *project, QObject *parent)
    : QAbstractTableModel(parent)
    , m_project(project)
{
    m_keys = m_project->observeKey(QString(), [this](Observable *, const QString &key,
                                                     Observable::Change change) { keyChanged(key, change); });
    m_project->addCueListObserver(this);
}

CueTableModel::~CueTableModel()
{
    m_project->removeCueListObserver(this);
}

void CueTableModel::keyChanged(const QString &key, Observable::Change change)
{
    if (key == u"searchPredicate"_s) {
        if (change == Observable::Change::Will)
            beginReset();
        else
            endReset();
    } else if (change == Observable::Change::Did && (key == u"currentSubtitle"_s || key == u"fixMode"_s)) {
        // With a current line, the lines outside its run are dimmed; without one, none is.
        refreshRows();
    }
}

void CueTableModel::beginReset()
{
    // Announcements may nest (a new list while the filter changes): one reset spans them.
    if (m_resetDepth++ == 0)
        beginResetModel();
}

void CueTableModel::endReset()
{
    if (m_resetDepth > 0 && --m_resetDepth == 0)
        endResetModel();
}

bool CueTableModel::filtered() const
{
    return !m_project->searchString().isEmpty();
}

void CueTableModel::cueRowsAboutToBeInserted(qsizetype first, qsizetype last)
{
    m_structureFiltered = filtered() || m_resetDepth > 0;
    if (m_structureFiltered)
        beginReset();
    else
        beginInsertRows({}, int(first), int(last));
}

void CueTableModel::cueRowsInserted()
{
    if (m_structureFiltered)
        endReset();
    else
        endInsertRows();
}

void CueTableModel::cueRowsAboutToBeRemoved(qsizetype first, qsizetype last)
{
    m_structureFiltered = filtered() || m_resetDepth > 0;
    if (m_structureFiltered)
        beginReset();
    else
        beginRemoveRows({}, int(first), int(last));
}

void CueTableModel::cueRowsRemoved()
{
    if (m_structureFiltered)
        endReset();
    else
        endRemoveRows();
}

void CueTableModel::cueListAboutToBeReset()
{
    beginReset();
}

void CueTableModel::cueListReset()
{
    endReset();
}

void CueTableModel::cueRowsChanged(qsizetype first, qsizetype last)
{
    if (m_resetDepth > 0)
        return;
    if (filtered()) {
        refreshRows();
        return;
    }
    const int rows = rowCount();
    if (first < 0 || first >= rows)
        return;
    Q_EMIT dataChanged(index(int(first), 0),
                       index(int(std::min<qsizetype>(last, rows - 1)), ColumnCount - 1));
}

void CueTableModel::refreshRows()
{
    if (m_resetDepth > 0)
        return;
    const int rows = rowCount();
    if (rows > 0)
        Q_EMIT dataChanged(index(0, 0), index(rows - 1, ColumnCount - 1));
}

int CueTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_project->arrangedSubtitles().size());
}

int CueTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CueTableModel::data(const QModelIndex &index, int role) const
{
    const SubtitleList &cues = m_project->arrangedSubtitles();
    if (!index.isValid() || index.row() >= cues.size())
        return {};
    const VHSubtitle &cue = *cues[index.row()];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        switch (index.column()) {
        case StartColumn:
            return VHTimeValueTransformer::stringForTime(cue.start());
        case DurationColumn:
            return VHTimeValueTransformer::stringForTime(cue.duration());
        case TextColumn:
            // One line per row in the table; the editor shows the line breaks.
            return role == Qt::DisplayRole ? QString(cue.string()).replace(u'\n', u" / "_s) : cue.string();
        default:
            return {};
        }
    case Qt::CheckStateRole:
        if (index.column() == ForcedColumn)
            return cue.forced() ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::ForegroundRole:
        // Lines outside the run that moves with the current line are dimmed.
        if (m_project->currentSubtitle() && !cue.active())
            return QPalette().color(QPalette::Disabled, QPalette::Text);
        return {};
    case Qt::TextAlignmentRole:
        if (index.column() == StartColumn || index.column() == DurationColumn)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default:
        return {};
    }
}

QVariant CueTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    switch (section) {
    case StartColumn:
        return tr("Start", "start time of a line");
    case DurationColumn:
        return tr("Duration");
    case TextColumn:
        return tr("Text");
    case ForcedColumn:
        return tr("Forced");
    default:
        return {};
    }
}

Qt::ItemFlags CueTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.column() == ForcedColumn)
        flags |= Qt::ItemIsUserCheckable;
    else if (index.isValid())
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool CueTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const SubtitleList &cues = m_project->arrangedSubtitles();
    if (!index.isValid() || index.row() >= cues.size())
        return false;
    const SubtitlePtr cue = cues[index.row()];
    // Edits go through the project: through the editor fields when the row is the current
    // line, so that the neighbours follow exactly as when the fields are typed in.
    const bool current = m_project->currentSubtitle() == cue;
    if (index.column() == ForcedColumn && role == Qt::CheckStateRole) {
        m_project->setCueForced(index.row(), value.toInt() == Qt::Checked);
    } else if (role == Qt::EditRole && index.column() == TextColumn) {
        m_project->setCueText(index.row(), value.toString());
    } else if (role == Qt::EditRole && (index.column() == StartColumn || index.column() == DurationColumn)) {
        const double seconds = VHTimeValueTransformer::timeForString(value.toString());
        if (!current)
            m_project->setSelectionIndices({index.row()});
        if (index.column() == StartColumn)
            m_project->setStart(seconds);
        else
            m_project->setDuration(seconds);
    } else {
        return false;
    }
    return true;
}
