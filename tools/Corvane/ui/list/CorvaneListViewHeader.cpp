#include "CorvaneListViewHeader.h"

#include "IconSet.h"
#include "Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QToolTip>
#include <algorithm>

namespace
{
constexpr int kHeight = CTheme::kRowHeight;
constexpr int kSortMarkSize = 8;
} // namespace

CCorvaneListViewHeader::CCorvaneListViewHeader(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("AttributeListHeader"));
    setAccessibleName(QStringLiteral("Columns"));
    setMouseTracking(true);
    setFixedHeight(kHeight);
}

void CCorvaneListViewHeader::AddColumn(const QString& title, const QString& tooltip, int width,
                                       const char* icon)
{
    const bool shares = width == kSharedWidth;
    m_Columns.push_back({title, tooltip, shares ? 0 : width, shares, icon});
}

void CCorvaneListViewHeader::Layout(int width)
{
    resize(width, kHeight);
    int fixed = 0;
    int sharing = 0;
    for (const SColumn& column : m_Columns)
    {
        fixed += column.m_bShares ? 0 : column.m_nWidth;
        sharing += column.m_bShares ? 1 : 0;
    }
    for (SColumn& column : m_Columns)
    {
        if (column.m_bShares)
            column.m_nWidth = std::max(width - fixed, 0) / sharing;
    }
    update();
}

QRect CCorvaneListViewHeader::GetColumnRect(int index) const
{
    int left = 0;
    for (int i = 0; i < index; ++i)
        left += m_Columns[static_cast<std::size_t>(i)].m_nWidth;
    return {left, 0, std::max(m_Columns[static_cast<std::size_t>(index)].m_nWidth - 1, 0), kHeight};
}

int CCorvaneListViewHeader::HitTest(const QPoint& point) const
{
    for (int i = 0; i < GetColumnCount(); ++i)
    {
        if (GetColumnRect(i).contains(point))
            return i;
    }
    return -1;
}

void CCorvaneListViewHeader::SetSortMark(int column, bool descending)
{
    m_nSorted = column;
    m_bDescending = descending;
    update();
}

bool CCorvaneListViewHeader::IsClickable(int index) const
{
    if (index < 0)
        return false;
    const SColumn& column = m_Columns[static_cast<std::size_t>(index)];
    return !column.m_sTitle.isEmpty() || column.m_sIcon != nullptr;
}

void CCorvaneListViewHeader::SetHot(int index)
{
    if (m_nHot == index)
        return;
    m_nHot = index;
    update();
}

bool CCorvaneListViewHeader::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int index = HitTest(help->pos());
    const QString tip = index < 0 ? QString() : m_Columns[static_cast<std::size_t>(index)].m_sToolTip;
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), tip, this, GetColumnRect(index));
    return true;
}

void CCorvaneListViewHeader::resizeEvent(QResizeEvent*)
{
    Layout(width());
}

void CCorvaneListViewHeader::mousePressEvent(QMouseEvent* event)
{
    const int index = HitTest(event->pos());
    if (event->button() != Qt::LeftButton || !IsClickable(index))
        return;
    m_nPressed = index;
    update();
}

void CCorvaneListViewHeader::mouseMoveEvent(QMouseEvent* event)
{
    const int index = HitTest(event->pos());
    SetHot(IsClickable(index) ? index : -1);
}

void CCorvaneListViewHeader::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int pressed = std::exchange(m_nPressed, -1);
    update();
    if (pressed >= 0 && pressed == HitTest(event->pos()) && m_OnSort)
        m_OnSort(pressed);
}

void CCorvaneListViewHeader::leaveEvent(QEvent*)
{
    SetHot(-1);
}

void CCorvaneListViewHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), CTheme::Get().GetColor(EThemeColor::Header));
    for (int i = 0; i < GetColumnCount(); ++i)
        DrawColumn(painter, i);
    painter.setPen(CTheme::Get().GetColor(EThemeColor::Shadow));
    painter.drawLine(0, height() - 1, width(), height() - 1);
}

void CCorvaneListViewHeader::DrawColumn(QPainter& painter, int index) const
{
    const SColumn& column = m_Columns[static_cast<std::size_t>(index)];
    const QRect cell = GetColumnRect(index);
    const CTheme& theme = CTheme::Get();
    painter.setPen(theme.GetColor(EThemeColor::Shadow));
    painter.drawLine(cell.right() + 1, cell.top() + 3, cell.right() + 1, cell.bottom() - 4);
    const bool pressed = m_nPressed == index && m_nHot == index;
    const bool hot = m_nHot == index && m_nPressed < 0;
    if (hot || pressed)
    {
        painter.fillRect(cell, theme.GetColor(pressed ? EThemeColor::SelectedRow : EThemeColor::HotRow));
        painter.drawRect(cell.adjusted(0, 0, -1, -1));
    }
    QRect inner = cell.translated(0, pressed ? 1 : 0);
    if (column.m_sTitle.isEmpty() && column.m_sIcon != nullptr)
    {
        QRect icon(0, 0, CTheme::kIconSize, CTheme::kIconSize);
        icon.moveCenter(inner.center());
        GetIcon(column.m_sIcon).paint(&painter, icon);
    }
    inner.adjust(CTheme::kGrid, 0, -CTheme::kGrid, 0);
    if (m_nSorted == index)
    {
        DrawSortMark(painter, cell);
        inner.setRight(inner.right() - kSortMarkSize);
    }
    painter.setFont(CTheme::GetValueFont());
    painter.setPen(theme.GetColor(EThemeColor::Text));
    painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(column.m_sTitle, Qt::ElideRight, inner.width()));
}

void CCorvaneListViewHeader::DrawSortMark(QPainter& painter, const QRect& cell) const
{
    QStyleOption option;
    option.initFrom(this);
    const bool narrow = cell.width() < 2 * CTheme::kIconSize;
    option.rect =
        narrow ? QRect(cell.center().x() - 3, cell.bottom() - 6, 6, 6)
               : QRect(cell.right() - kSortMarkSize - 2, cell.center().y() - 3, kSortMarkSize, kSortMarkSize);
    style()->drawPrimitive(m_bDescending ? QStyle::PE_IndicatorArrowDown : QStyle::PE_IndicatorArrowUp,
                           &option, &painter, this);
}
