// A list of a dialog: whole rows with grid lines, one line a row. Enter activates a row and never presses the
// dialog's default button; Space ticks the row where the model has a box in its first column.
#pragma once

#include <QTableView>
#include <span>

class CDialogTable final : public QTableView
{
public:
    // `model` is not owned. Widths are those of the columns in logical pixels; the last one takes what is
    // left.
    CDialogTable(QAbstractItemModel& model, std::span<const int> widths);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] bool ToggleTick();
};
