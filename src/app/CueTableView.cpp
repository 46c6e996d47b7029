#include "CueTableView.h"

#include "CueTableModel.h"

#include <QHeaderView>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

CueTableView::CueTableView(QWidget *parent)
    : QTableView(parent)
{
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed); // no per-row measuring
    setWordWrap(false);
    setAccessibleName(tr("Subtitle lines"));
}

void CueTableView::sizeColumns()
{
    const QFontMetrics metrics = fontMetrics();
    const int padding = 16;
    const int timeWidth = metrics.horizontalAdvance(u"00:00:00,000"_s) + padding;
    horizontalHeader()->setSectionResizeMode(CueTableModel::TextColumn, QHeaderView::Stretch);
    horizontalHeader()->setMinimumSectionSize(8);
    setColumnWidth(CueTableModel::AnchorColumn, metrics.height() + 8);
    setColumnWidth(CueTableModel::StartColumn, timeWidth);
    setColumnWidth(CueTableModel::EndColumn, timeWidth);
    setColumnWidth(CueTableModel::DurationColumn, timeWidth);
    auto titleWidth = [&](int column) {
        return metrics.horizontalAdvance(model()->headerData(column, Qt::Horizontal).toString()) + padding;
    };
    setColumnWidth(CueTableModel::ReadingSpeedColumn,
                   std::max(metrics.horizontalAdvance(u"99.9"_s) + padding,
                            titleWidth(CueTableModel::ReadingSpeedColumn)));
    setColumnWidth(CueTableModel::ForcedColumn, titleWidth(CueTableModel::ForcedColumn));
}

bool CueTableView::isOnlySelectedRow(int row) const
{
    const QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty())
        return false;
    int top = selection.first().top(), bottom = selection.first().bottom();
    for (const QItemSelectionRange &range : selection) {
        top = std::min(top, range.top());
        bottom = std::max(bottom, range.bottom());
    }
    return top == row && bottom == row;
}

void CueTableView::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool again = event->button() == Qt::LeftButton && index.isValid() &&
                       (modifiers == Qt::NoModifier || modifiers == Qt::AltModifier) &&
                       isOnlySelectedRow(index.row());
    QTableView::mousePressEvent(event);
    if (again && onClickSelectedRow)
        onClickSelectedRow(index.row(), modifiers);
}
