// How a view draws: the header row with its cells, the value rows, the rule below.
#include "CorvaneTypeView.h"

#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "DeferState.h"
#include "IconSet.h"
#include "NameCompare.h"
#include "QtText.h"
#include "RunState.h"
#include "Theme.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>

namespace
{
// The longest text that one cell lays out: more than a screen shows.
constexpr qsizetype kMaxCellText = 2000;
constexpr int kMaxIndexText = 30;
constexpr qreal kMinBuildPoints = 6;

QColor GetColor(EThemeColor color)
{
    return CTheme::Get().GetColor(color);
}

bool IsGrey(const CCorvaneType& attrib)
{
    return attrib.IsUnderLock() || attrib.GetInherit();
}

// False between the entries of one attribute for several builds, which belong together.
bool EndsAttribute(const CCorvaneType& attrib)
{
    if (const CCorvaneAttrib* parent = attrib.GetParentAttrib())
    {
        std::ptrdiff_t row = -1;
        const std::ptrdiff_t place = parent->FindChildAttribute(attrib, row);
        const CCorvaneAttrib* behind = place < 0
                                           ? nullptr
                                           : parent->GetChildAttributeAt(static_cast<std::size_t>(row),
                                                                         static_cast<std::size_t>(place) + 1);
        return behind == nullptr || !EqualNames(behind->GetName(), attrib.GetName());
    }
    const std::ptrdiff_t index = attrib.GetIndexInRecord();
    if (index < 0)
        return true;
    const auto list = attrib.GetParentRecord()->GetAttributeList();
    const auto next = static_cast<std::size_t>(index) + 1;
    return next >= list.size() || !EqualNames(list[next]->GetName(), attrib.GetName());
}

QString CutText(const QString& text)
{
    QString cut = text.left(kMaxCellText);
    if (!cut.isEmpty() && cut.back().isHighSurrogate())
        cut.chop(1);
    for (QChar& unit : cut)
    {
        if (unit.unicode() < u' ' || unit == QChar::LineSeparator || unit == QChar::ParagraphSeparator)
            unit = u' ';
    }
    return cut;
}

// The font, as much smaller as the text needs to fit.
QFont FitFont(QFont font, const QString& text, int width)
{
    while (font.pointSizeF() > kMinBuildPoints && QFontMetrics(font).horizontalAdvance(text) > width)
        font.setPointSizeF(font.pointSizeF() - 0.5);
    return font;
}
} // namespace

void CCorvaneTypeView::DrawCellText(QPainter& painter, const QRect& cell, const QString& text)
{
    const QRect inner = cell.adjusted(kListTextMargin, 0, -kListTextMargin, 0);
    if (inner.width() <= 0 || text.isEmpty())
        return;
    const QString shown = painter.fontMetrics().elidedText(CutText(text), Qt::ElideRight, inner.width());
    painter.drawText(inner, Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

void CCorvaneTypeView::Draw(QPainter& painter, const QRect& rect, const QRect& clip)
{
    DrawHeader(painter, rect);
    if (m_bExpanded)
        DrawItem_Expanded(painter, rect, clip);
    DrawFooter(painter, rect);
}

void CCorvaneTypeView::DrawHeader(QPainter& painter, const QRect& rect)
{
    painter.save();
    const QRect name = GetCellRect(rect, COLUMN_NAME);
    const QRect header(name.left(), rect.top(), rect.right() + 1 - name.left(), GetCollapsedHeight());
    if (m_bSelected && m_nSelectedItem == kHeaderItem)
    {
        painter.fillRect(header, GetColor(EThemeColor::SelectedRow));
        if (m_pList->IsActive())
        {
            painter.setPen(GetColor(EThemeColor::Accent));
            painter.drawRect(header.adjusted(0, 0, -1, -1));
        }
    }
    if (CanExpand())
    {
        QStyleOption option;
        option.initFrom(m_pList->GetViewport());
        option.rect = QRect(0, 0, kListIconSize, kListIconSize);
        option.rect.moveCenter(GetCellRect(rect, COLUMN_EXPAND).center());
        option.state |= QStyle::State_Children | (m_bExpanded ? QStyle::State_Open : QStyle::State_None);
        m_pList->GetViewport()->style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, &painter);
    }
    painter.setPen(GetColor(IsGrey(*m_pParentType) ? EThemeColor::GreyText : EThemeColor::Text));
    painter.setFont(CTheme::GetNameFont());
    DrawCellText(painter, name, ToQString(m_pParentType->GetName()));
    painter.setFont(CTheme::GetValueFont());
    DrawCellText(painter, GetCellRect(rect, COLUMN_TYPE), ToQString(GetTypeName()));
    if (m_pParentType->IsLocked())
        DrawCellText(painter, GetCellRect(rect, COLUMN_LOCK_USER), ToQString(m_pParentType->GetLockUser()));
    DrawBuildCell(painter, GetCellRect(rect, COLUMN_BUILD));
    DrawMarks(painter, rect);
    painter.restore();
}

// Words show whole in a column that was measured for smaller fonts; only what has an end stands out.
void CCorvaneTypeView::DrawBuildCell(QPainter& painter, const QRect& cell) const
{
    const QRect inner = cell.adjusted(kListTextMargin, 0, -kListTextMargin, 0);
    const CCorvaneMgr* manager = m_pParentType->GetManager();
    if (manager == nullptr || !manager->GetContext().m_Run.Test(APP_EXPERT))
    {
        const QString state = ToQString(GetDeferStateText(GetDeferState(*m_pParentType)));
        painter.setPen(GetColor(EThemeColor::Deferred));
        painter.setFont(FitFont(CTheme::GetNameFont(), state, inner.width()));
        DrawCellText(painter, cell, state);
        return;
    }
    const SBuildRangeText text = GetBuildRangeText(*m_pParentType);
    const QString range = ToQString(text.m_sRange);
    const QString label = ToQString(text.m_sLabel);
    if (!label.isEmpty())
        painter.setPen(GetColor(EThemeColor::Deferred));
    const int gap = label.isEmpty() ? 0 : kListTextMargin;
    painter.setFont(FitFont(CTheme::GetValueFont(), label + range, inner.width() - gap));
    painter.drawText(inner, Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine,
                     range);
    painter.drawText(inner, Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine, label);
}

void CCorvaneTypeView::DrawMarks(QPainter& painter, const QRect& rect) const
{
    const struct
    {
        EListColumn m_Column;
        bool m_bShown;
        const char* m_sIcon;
    } marks[] = {
        {COLUMN_LOCK, m_pParentType->IsLocked(), "lock"},
        {COLUMN_REFERENCE, m_pParentType->GetInherit(), "inherit"},
        {COLUMN_OVERRIDE, m_pParentType->GetOverride(), "override"},
        {COLUMN_TODO, m_pParentType->IsTodo(), "todo"},
        {COLUMN_PLACEHOLDER, m_pParentType->IsPlaceHolder(), "placeholder"},
    };
    for (const auto& mark : marks)
    {
        if (!mark.m_bShown)
            continue;
        const QRect cell = GetCellRect(rect, mark.m_Column);
        GetIcon(mark.m_sIcon)
            .paint(&painter,
                   QRect(cell.left() + (cell.width() - kListIconSize) / 2,
                         cell.top() + (cell.height() - kListIconSize) / 2, kListIconSize, kListIconSize));
    }
}

void CCorvaneTypeView::DrawItem_Expanded(QPainter& painter, const QRect& rect, const QRect& clip)
{
    const auto draw = [&](int item)
    {
        const QRect itemRect = GetSubItemRect(rect, item);
        if (itemRect.intersects(clip))
            DrawSubItem(painter, itemRect, item);
    };
    // Only the rows that show are looked at, however many there are.
    const int count = static_cast<int>(GetValueCount());
    const QPoint top(rect.left() + kListIndent, std::max(clip.top(), rect.top() + GetCollapsedHeight()));
    const int first = HitTestItem(rect, top);
    for (int item = std::max(first, 0); first >= 0 && item < count; ++item)
    {
        if (GetSubItemRect(rect, item).top() > clip.bottom())
            return;
        draw(item);
    }
    if (IsVariableSize())
        draw(kAddItem);
}

void CCorvaneTypeView::DrawSubItem(QPainter& painter, const QRect& itemRect, int item)
{
    DrawItemBackground(painter, itemRect, item);
    BeginDrawValue(painter, item);
    DrawItemIndex(painter, itemRect, item);
    QRect cell = itemRect;
    AdjustValueRect(cell);
    if (item >= 0 && m_pParentType->IsValueSet(static_cast<std::size_t>(item)))
        DrawValue(painter, cell, item);
    EndDrawValue(painter);
}

void CCorvaneTypeView::DrawItemBackground(QPainter& painter, const QRect& itemRect, int item) const
{
    const bool selected = m_bSelected && m_nSelectedItem == item;
    painter.fillRect(itemRect, GetColor(selected ? EThemeColor::SelectedRow : EThemeColor::AlternateRow));
    if (!selected || !m_pList->IsActive())
        return;
    painter.save();
    painter.setPen(GetColor(EThemeColor::Accent));
    painter.drawRect(itemRect.adjusted(0, 0, -1, -1));
    painter.restore();
}

void CCorvaneTypeView::DrawItemIndex(QPainter& painter, const QRect& itemRect, int item) const
{
    QRect cell = itemRect;
    AdjustValueRect(cell);
    const QRect index(itemRect.left(), itemRect.top(), cell.left() - itemRect.left(), kListRowHeight);
    const QString text = item == kAddItem ? QStringLiteral("+") : QString::number(item + 1);
    painter.drawText(index, Qt::AlignCenter | Qt::TextSingleLine, text.left(kMaxIndexText));
}

void CCorvaneTypeView::DrawFooter(QPainter& painter, const QRect& rect) const
{
    if (!EndsAttribute(*m_pParentType))
        return;
    painter.save();
    painter.setPen(GetColor(EThemeColor::Shadow));
    painter.drawLine(rect.left(), rect.bottom(), rect.right(), rect.bottom());
    painter.restore();
}

void CCorvaneTypeView::BeginDrawValue(QPainter& painter, int) const
{
    painter.save();
    painter.setFont(CTheme::GetValueFont());
    painter.setPen(GetColor(IsGrey(*m_pParentType) ? EThemeColor::GreyText : EThemeColor::Text));
}

void CCorvaneTypeView::EndDrawValue(QPainter& painter) const
{
    painter.restore();
}

void CCorvaneTypeView::DrawValue(QPainter& painter, const QRect& cell, int item)
{
    DrawCellText(painter, cell, GetValueText(item));
}
