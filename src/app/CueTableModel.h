#pragma once

#include "CueListEditor.h"
#include "Observable.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QIcon>

#include <vector>

class CTWindowController;

// The cue table's rows: the project's arranged list (the cues the search accepts, in list
// order), read straight from the project. It follows the project's rows: inserted and
// removed rows move only those rows, an edit repaints the rows it changed, a new list or
// filter resets. No per-row objects are kept, so a list of 100,000 cues costs nothing until
// rows are drawn: every cell (reading speed, gap to the line before, whether the next fix
// moves the line) is computed when the view asks for it.
// Edits of cells go through the project, never into a cue.
class CueTableModel final : public QAbstractTableModel, private CueListObserver
{
    Q_DECLARE_TR_FUNCTIONS(CueTableModel)

public:
    enum Column {
        AnchorColumn, // an icon for the lines a fix does not move (fixed lines)
        StartColumn,
        EndColumn,
        DurationColumn,
        ReadingSpeedColumn, // characters per second
        TextColumn,
        ForcedColumn,
        ColumnCount
    };

    // Why a cell is coloured (Qt::UserRole of a cell; Warning::None when it is not).
    enum class Warning { None, ShortGap, Overlap, TooFast };
    static constexpr int WarningRole = Qt::UserRole + 1;
    // Whether the line moves with the next fix (Qt::UserRole + 2 of every cell).
    static constexpr int MovesWithFixRole = Qt::UserRole + 2;

    explicit CueTableModel(CTWindowController *project, QObject *parent = nullptr);
    ~CueTableModel() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    bool isResetting() const { return m_resetDepth > 0; }
    // Repaints every row (the view draws only the visible ones).
    void refreshRows();

    // The row of the whole list that a table row shows (under a search, the table lists
    // only some of the lines; they keep their own numbers).
    qsizetype listRow(int row) const;
    // Characters per second the line asks the reader for: its character count (as durations
    // from reading speed count them) over its duration; infinite for text shown no time.
    static double readingSpeed(const VHSubtitle &cue);
    // The limit above which a line reads too fast ("MaxCharactersPerSecond").
    double readingSpeedLimit() const { return m_speedLimit; }
    // Gaps shorter than this between a line and the one before it are coloured: two frames
    // of the movie (25 frames per second when it is not known).
    double shortestGap() const;

private:
    void keyChanged(const QString &key, Observable::Change change);
    // While a search filters the list, rows of the list are not rows of the table: the
    // table then lists everything again.
    bool filtered() const;
    Warning startWarning(qsizetype listRow, double *gap) const;
    bool movesWithFix(qsizetype listRow) const;
    void cueRowsAboutToBeInserted(qsizetype first, qsizetype last) override;
    void cueRowsInserted() override;
    void cueRowsAboutToBeRemoved(qsizetype first, qsizetype last) override;
    void cueRowsRemoved() override;
    void cueListAboutToBeReset() override;
    void cueListReset() override;
    void cueRowsChanged(qsizetype first, qsizetype last) override;
    void beginReset();
    void endReset();
    // The gap before the line at this row may have changed.
    void startChanged(qsizetype row);

    CTWindowController *m_project;
    Observable::KeyToken m_keys;
    Observable::KeyToken m_settingsKeys;
    int m_resetDepth = 0;
    bool m_structureFiltered = false;
    qsizetype m_rowAfterChange = -1;
    double m_speedLimit = 17;
    // Under a search: the list row of each table row, made when first asked for and dropped
    // whenever the table's rows change.
    mutable std::vector<qsizetype> m_listRows;
    mutable bool m_listRowsValid = false;
    mutable QIcon m_anchorIcon;
};
