#include "file/CorvaneTypeFileSelectDlg.h"

#include "IconSet.h"
#include "Theme.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QWidget>

namespace
{
constexpr int kButtonWidth = CTheme::kIconSize + 2 * CTheme::kGrid;
}

QRect CCorvaneTypeFileSelectDlg::GetButtonRect(const QRect& cell) const
{
    return {cell.right() - kButtonWidth, cell.top() + 1, kButtonWidth, cell.height() - 2};
}

QRect CCorvaneTypeFileSelectDlg::GetTextRect(const QRect& cell) const
{
    return cell.adjusted(0, 0, -kButtonWidth - CTheme::kGrid, 0);
}

void CCorvaneTypeFileSelectDlg::Draw(QPainter& painter, const QRect& cell, const QWidget& surface) const
{
    QStyleOptionButton option;
    option.initFrom(&surface);
    option.rect = GetButtonRect(cell);
    option.state = QStyle::State_Enabled | QStyle::State_Raised;
    surface.style()->drawPrimitive(QStyle::PE_PanelButtonTool, &option, &painter, &surface);
    QRect icon(0, 0, CTheme::kIconSize, CTheme::kIconSize);
    icon.moveCenter(option.rect.center());
    GetIcon(m_sIcon).paint(&painter, icon);
}
