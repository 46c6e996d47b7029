#pragma once

#include "CueListEditor.h"
#include "Observable.h"

#include <QAbstractTableModel>
#include <QCoreApplication>

class CTWindowController;

// The cue table's rows: the project's arranged list (the cues the search accepts, in list
// order), read straight from the project. It follows the project's rows: inserted and
// removed rows move only those rows, an edit repaints the rows it changed, a new list or
// filter resets. No per-row objects are kept, so a list of 100,000 cues costs nothing until
// rows are drawn. Edits of cells go through the project, never into a cue.
class CueTableModel final : public QAbstractTableModel, private CueListObserver
{
    Q_DECLARE_TR_FUNCTIONS(CueTableModel)

public:
    enum Column { StartColumn, DurationColumn, TextColumn, ForcedColumn, ColumnCount };

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

private:
    void keyChanged(const QString &key, Observable::Change change);
    // While a search filters the list, rows of the list are not rows of the table: the
    // table then lists everything again.
    bool filtered() const;
    void cueRowsAboutToBeInserted(qsizetype first, qsizetype last) override;
    void cueRowsInserted() override;
    void cueRowsAboutToBeRemoved(qsizetype first, qsizetype last) override;
    void cueRowsRemoved() override;
    void cueListAboutToBeReset() override;
    void cueListReset() override;
    void cueRowsChanged(qsizetype first, qsizetype last) override;
    void beginReset();
    void endReset();

    CTWindowController *m_project;
    Observable::KeyToken m_keys;
    int m_resetDepth = 0;
    bool m_structureFiltered = false;
};
