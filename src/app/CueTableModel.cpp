#include "CueTableModel.h"

#include "CTPreferenceController.h"
#include "CTWindowController.h"
#include "Settings.h"
#include "VHTimeValueTransformer.h"

#include <QColor>
#include <QLocale>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
// Times are kept in seconds as read from text with milliseconds: a gap that is exactly two
// frames must not count as shorter because of the last bit of a double.
constexpr double TimeSlack = 1e-6;

// A ship's anchor, drawn in the text colour so that it follows the theme.
QIcon drawAnchorIcon()
{
    QIcon icon;
    for (const int size : {16, 32}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 16.0, size / 16.0);
        QPen pen(QPalette().color(QPalette::Text), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        painter.setPen(pen);
        painter.drawEllipse(QPointF(8, 3), 1.8, 1.8);
        painter.drawLine(QPointF(8, 4.8), QPointF(8, 14.2));
        painter.drawLine(QPointF(5, 7), QPointF(11, 7));
        QPainterPath arms;
        arms.moveTo(2.5, 9.5);
        arms.quadTo(3.5, 14.2, 8, 14.2);
        arms.quadTo(12.5, 14.2, 13.5, 9.5);
        painter.drawPath(arms);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

QColor warningColor(CueTableModel::Warning warning)
{
    // Tints over the row's own background, readable with light and dark themes alike.
    switch (warning) {
    case CueTableModel::Warning::Overlap:
        return QColor(230, 40, 40, 110);
    case CueTableModel::Warning::ShortGap:
        return QColor(240, 160, 0, 110);
    case CueTableModel::Warning::TooFast:
        return QColor(230, 90, 0, 110);
    case CueTableModel::Warning::None:
        break;
    }
    return {};
}
} // namespace

CueTableModel::CueTableModel(CTWindowController *project, QObject *parent)
    : QAbstractTableModel(parent)
    , m_project(project)
{
    m_keys = m_project->observeKey(QString(), [this](Observable *, const QString &key,
                                                     Observable::Change change) { keyChanged(key, change); });
    m_project->addCueListObserver(this);
    m_speedLimit = Settings::shared().doubleValue(CTPreferenceController::MaxCharactersPerSecondKey);
    m_settingsKeys = Settings::shared().observeKey(
        CTPreferenceController::MaxCharactersPerSecondKey,
        [this](Observable *, const QString &, Observable::Change change) {
            if (change != Observable::Change::Did)
                return;
            m_speedLimit = Settings::shared().doubleValue(CTPreferenceController::MaxCharactersPerSecondKey);
            const int rows = rowCount();
            if (rows > 0 && m_resetDepth == 0)
                Q_EMIT dataChanged(index(0, ReadingSpeedColumn), index(rows - 1, ReadingSpeedColumn));
        });
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
        // With a current line, the lines the next fix moves are shaded and the others
        // dimmed; without one, none is.
        refreshRows();
    }
}

void CueTableModel::beginReset()
{
    // Announcements may nest (a new list while the filter changes): one reset spans them.
    if (m_resetDepth++ == 0)
        beginResetModel();
    m_listRowsValid = false;
}

void CueTableModel::endReset()
{
    m_listRowsValid = false;
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
    if (m_structureFiltered) {
        beginReset();
    } else {
        beginInsertRows({}, int(first), int(last));
        m_rowAfterChange = last + 1;
    }
}

void CueTableModel::cueRowsInserted()
{
    if (m_structureFiltered) {
        endReset();
    } else {
        endInsertRows();
        startChanged(m_rowAfterChange); // it has another line before it now
    }
}

void CueTableModel::cueRowsAboutToBeRemoved(qsizetype first, qsizetype last)
{
    m_structureFiltered = filtered() || m_resetDepth > 0;
    if (m_structureFiltered) {
        beginReset();
    } else {
        beginRemoveRows({}, int(first), int(last));
        m_rowAfterChange = first;
    }
}

void CueTableModel::cueRowsRemoved()
{
    if (m_structureFiltered) {
        endReset();
    } else {
        endRemoveRows();
        startChanged(m_rowAfterChange);
    }
}

void CueTableModel::startChanged(qsizetype row)
{
    if (row >= 0 && row < rowCount())
        Q_EMIT dataChanged(index(int(row), StartColumn), index(int(row), StartColumn));
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
    // The row after the changed ones too: its gap to the line before it may have changed.
    Q_EMIT dataChanged(index(int(first), 0),
                       index(int(std::min<qsizetype>(last + 1, rows - 1)), ColumnCount - 1));
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

qsizetype CueTableModel::listRow(int row) const
{
    const SubtitleList &arranged = m_project->arrangedSubtitles();
    if (row < 0 || row >= arranged.size())
        return -1;
    if (!filtered())
        return row; // the table lists the list itself
    if (!m_listRowsValid || qsizetype(m_listRows.size()) != arranged.size()) {
        // Both lists are in list order: one walk finds every listed line.
        const SubtitleList &all = m_project->subtitles();
        m_listRows.clear();
        m_listRows.reserve(size_t(arranged.size()));
        qsizetype n = 0;
        for (const SubtitlePtr &cue : arranged) {
            while (n < all.size() && all[n] != cue)
                ++n;
            m_listRows.push_back(n < all.size() ? n : -1);
            if (n < all.size())
                ++n;
        }
        m_listRowsValid = true;
    }
    return m_listRows[size_t(row)];
}

double CueTableModel::readingSpeed(const VHSubtitle &cue)
{
    const qsizetype characters = cue.characterCount();
    if (characters == 0)
        return 0;
    const double duration = cue.duration();
    return duration > 0 ? double(characters) / duration : std::numeric_limits<double>::infinity();
}

double CueTableModel::shortestGap() const
{
    const double fps = m_project->fps();
    return 2 / (fps > 0 ? fps : 25);
}

CueTableModel::Warning CueTableModel::startWarning(qsizetype row, double *gap) const
{
    // Chapter marks follow each other without gaps by design.
    const SubtitleList &all = m_project->subtitles();
    if (m_project->isChaptermark() || row <= 0 || row >= all.size())
        return Warning::None;
    *gap = all[row]->start() - all[row - 1]->end();
    if (*gap < -TimeSlack)
        return Warning::Overlap;
    if (*gap < shortestGap() - TimeSlack)
        return Warning::ShortGap;
    return Warning::None;
}

bool CueTableModel::movesWithFix(qsizetype row) const
{
    if (!m_project->currentSubtitle() || m_project->fixMode() == FixMode::None)
        return false;
    const CTWindowController::FixRange &range = m_project->fixRange();
    return row >= range.first && row <= range.last;
}

QVariant CueTableModel::data(const QModelIndex &index, int role) const
{
    const SubtitleList &cues = m_project->arrangedSubtitles();
    if (!index.isValid() || index.row() >= cues.size())
        return {};
    const VHSubtitle &cue = *cues[index.row()];
    const int column = index.column();
    const bool chapters = m_project->isChaptermark();
    auto speedWarning = [&] {
        return !chapters && readingSpeed(cue) > m_speedLimit ? Warning::TooFast : Warning::None;
    };
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        switch (column) {
        case StartColumn:
            return VHTimeValueTransformer::stringForTime(cue.start());
        case EndColumn:
            return VHTimeValueTransformer::stringForTime(cue.end());
        case DurationColumn:
            return VHTimeValueTransformer::stringForTime(cue.duration());
        case ReadingSpeedColumn: {
            if (chapters || role == Qt::EditRole)
                return {};
            const double speed = readingSpeed(cue);
            return std::isinf(speed) ? u"∞"_s : QLocale().toString(speed, 'f', 1);
        }
        case TextColumn:
            // One line per row in the table; the editor shows the line breaks.
            return role == Qt::DisplayRole ? QString(cue.string()).replace(u'\n', u" / "_s) : cue.string();
        default:
            return {};
        }
    case Qt::DecorationRole:
        if (column == AnchorColumn && cue.fixed()) {
            if (m_anchorIcon.isNull())
                m_anchorIcon = drawAnchorIcon();
            return m_anchorIcon;
        }
        return {};
    case Qt::CheckStateRole:
        if (column == ForcedColumn)
            return cue.forced() ? Qt::Checked : Qt::Unchecked;
        return {};
    case WarningRole:
        if (column == StartColumn) {
            double gap = 0;
            return int(startWarning(listRow(index.row()), &gap));
        }
        if (column == ReadingSpeedColumn)
            return int(speedWarning());
        return int(Warning::None);
    case MovesWithFixRole:
        return movesWithFix(listRow(index.row()));
    case Qt::BackgroundRole: {
        Warning warning = Warning::None;
        double gap = 0;
        if (column == StartColumn)
            warning = startWarning(listRow(index.row()), &gap);
        else if (column == ReadingSpeedColumn)
            warning = speedWarning();
        if (warning != Warning::None)
            return warningColor(warning);
        if (movesWithFix(listRow(index.row()))) {
            QColor shade = QPalette().color(QPalette::Highlight);
            shade.setAlpha(45);
            return shade;
        }
        return {};
    }
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        if (column == AnchorColumn)
            return cue.fixed() ? tr("Anchor: a fix does not move this line") : QVariant();
        if (column == StartColumn) {
            double gap = 0;
            switch (startWarning(listRow(index.row()), &gap)) {
            case Warning::Overlap:
                return tr("Starts %1 s before the line before it ends").arg(QLocale().toString(-gap, 'f', 3));
            case Warning::ShortGap:
                return tr("Only %1 s after the line before it (less than two frames)")
                    .arg(QLocale().toString(gap, 'f', 3));
            default:
                return {};
            }
        }
        if (column == ReadingSpeedColumn && speedWarning() == Warning::TooFast)
            return tr("Faster than the limit of %1 characters per second")
                .arg(QLocale().toString(m_speedLimit, 'g', 4));
        return {};
    case Qt::AccessibleTextRole:
        if (column == AnchorColumn)
            return cue.fixed() ? tr("Anchor") : QString();
        return {};
    case Qt::ForegroundRole:
        // Lines outside the run that moves with the current line are dimmed.
        if (m_project->currentSubtitle() && !cue.active())
            return QPalette().color(QPalette::Disabled, QPalette::Text);
        return {};
    case Qt::TextAlignmentRole:
        if (column == StartColumn || column == EndColumn || column == DurationColumn ||
            column == ReadingSpeedColumn)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        if (column == AnchorColumn)
            return int(Qt::AlignCenter);
        return {};
    default:
        return {};
    }
}

QVariant CueTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical) {
        // A line keeps its own number while a search lists only some of the lines.
        if (role != Qt::DisplayRole)
            return {};
        const qsizetype row = listRow(section);
        return row >= 0 ? QVariant(row + 1) : QVariant(section + 1);
    }
    if (role == Qt::ToolTipRole) {
        switch (section) {
        case AnchorColumn:
            return tr("Anchors: lines a fix does not move");
        case ReadingSpeedColumn:
            return tr("Reading speed in characters per second");
        default:
            return {};
        }
    }
    if (role == Qt::DecorationRole && section == AnchorColumn) {
        if (m_anchorIcon.isNull())
            m_anchorIcon = drawAnchorIcon();
        return m_anchorIcon;
    }
    if (role != Qt::DisplayRole)
        return {};
    switch (section) {
    case AnchorColumn:
        return QString();
    case StartColumn:
        return tr("Start", "start time of a line");
    case EndColumn:
        return tr("End", "end time of a line");
    case DurationColumn:
        return tr("Duration");
    case ReadingSpeedColumn:
        return tr("CPS", "characters per second, a column title");
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
    else if (index.isValid() && index.column() != AnchorColumn && index.column() != ReadingSpeedColumn)
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
    const int column = index.column();
    if (column == ForcedColumn && role == Qt::CheckStateRole) {
        m_project->setCueForced(index.row(), value.toInt() == Qt::Checked);
    } else if (role == Qt::EditRole && column == TextColumn) {
        m_project->setCueText(index.row(), value.toString());
    } else if (role == Qt::EditRole &&
               (column == StartColumn || column == EndColumn || column == DurationColumn)) {
        const double seconds = VHTimeValueTransformer::timeForString(value.toString());
        if (!current)
            m_project->setSelectionIndices({index.row()});
        if (column == StartColumn)
            m_project->setStart(seconds);
        else if (column == EndColumn)
            m_project->setDuration(seconds - cue->start()); // the end is where the duration ends
        else
            m_project->setDuration(seconds);
    } else {
        return false;
    }
    return true;
}
