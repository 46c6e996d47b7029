#pragma once

#include <QCoreApplication>
#include <QTableView>

#include <functional>

// The cue table: rows selected whole, columns sized for their contents (times, reading
// speed, the anchor icon), the text taking the rest. A click on the one line that is selected
// already changes no selection, so it is reported on its own: the window seeks to that line
// again.
class CueTableView final : public QTableView
{
    Q_DECLARE_TR_FUNCTIONS(CueTableView)

public:
    explicit CueTableView(QWidget *parent = nullptr);

    // Sizes the columns for the model's contents; call after setModel().
    void sizeColumns();

    // A plain (or Alt-) click on the row that is the whole selection, with the keys held.
    std::function<void(int row, Qt::KeyboardModifiers modifiers)> onClickSelectedRow;

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    bool isOnlySelectedRow(int row) const;
};
