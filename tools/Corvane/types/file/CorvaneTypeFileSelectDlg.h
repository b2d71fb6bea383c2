// The small strip at the right end of a selected file: one button, which opens or plays the file. It is
// drawn, not a widget, so that it moves with its row and costs nothing while another row is selected.
#pragma once

#include <QRect>

class QPainter;
class QWidget;

class CCorvaneTypeFileSelectDlg
{
public:
    // `icon` is a name of an icon and lives as long as the strip.
    explicit CCorvaneTypeFileSelectDlg(const char* icon) : m_sIcon(icon) {}

    // The place of the button in a value's cell.
    [[nodiscard]] QRect GetButtonRect(const QRect& cell) const;
    // What the strip leaves of the cell.
    [[nodiscard]] QRect GetTextRect(const QRect& cell) const;
    // In the style of `surface`.
    void Draw(QPainter& painter, const QRect& cell, const QWidget& surface) const;

private:
    const char* m_sIcon;
};
