#include "CorvaneTypeView.h"

#include "CorvaneSchemaAttribData.h"
#include "CorvaneTypeValueDlg.h"
#include "Theme.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <algorithm>

CCorvaneTypeView::CCorvaneTypeView(CCorvaneType& attrib, ITypeViewList& list)
    : m_pParentType(&attrib), m_pList(&list)
{
}

CCorvaneTypeView::~CCorvaneTypeView()
{
    if (m_pValueDlg)
        m_pValueDlg->Dismiss();
}

void CCorvaneTypeView::Detach()
{
    if (!m_bAttached)
        return;
    const CRef<CCorvaneTypeView> keep(this); // The attribute may hold the last reference.
    m_bAttached = false;
    CancelEdit();
    m_pParentType->DestroyView(*this);
}

void CCorvaneTypeView::OnNotify(int message, CCorvaneAttrib&)
{
    if (message == kViewValueChanged && m_bAttached)
        m_pList->OnViewChanged(*this);
}

void CCorvaneTypeView::SetExpanded(bool expanded)
{
    m_bExpanded = expanded && CanExpand();
    if (!m_bExpanded)
        ClearActiveSubItem();
}

void CCorvaneTypeView::SetSelected(bool selected)
{
    m_bSelected = selected;
    if (!selected)
        ClearActiveSubItem();
}

void CCorvaneTypeView::SetActiveSubItem(int item)
{
    m_nSelectedItem = item;
}

bool CCorvaneTypeView::SelectAttribute(const CCorvaneAttrib& attrib, int item)
{
    if (&attrib != m_pParentType.Get())
        return false;
    const bool there = item >= 0 && item < static_cast<int>(GetValueCount());
    if (there)
        SetExpanded(true);
    SetActiveSubItem(there ? item : kHeaderItem);
    return true;
}

bool CCorvaneTypeView::SelectNext()
{
    if (m_nSelectedItem == kAddItem)
        return false;
    const int count = static_cast<int>(GetValueCount());
    if (m_nSelectedItem + 1 < count)
        SetActiveSubItem(m_nSelectedItem + 1);
    else if (IsVariableSize())
        SetActiveSubItem(kAddItem);
    else
        return false;
    return true;
}

bool CCorvaneTypeView::SelectPrevious()
{
    const int count = static_cast<int>(GetValueCount());
    if (m_nSelectedItem == kHeaderItem && IsVariableSize())
        SetActiveSubItem(kAddItem);
    else if ((m_nSelectedItem < 0 || m_nSelectedItem > count) && count > 0)
        SetActiveSubItem(count - 1);
    else if (m_nSelectedItem > 0)
        SetActiveSubItem(m_nSelectedItem - 1);
    else
        return false;
    return true;
}

bool CCorvaneTypeView::IsVariableSize() const
{
    const CCorvaneSchemaAttribData* data = m_pParentType->GetAttribData();
    return data != nullptr && data->GetValues() == kVariableValues;
}

int CCorvaneTypeView::GetItemCount() const
{
    return static_cast<int>(GetValueCount()) + (IsVariableSize() ? 1 : 0);
}

int CCorvaneTypeView::GetExpandedHeight(int) const
{
    return GetCollapsedHeight() + GetItemCount() * kListRowHeight;
}

int CCorvaneTypeView::Measure(int width)
{
    return m_bExpanded ? GetExpandedHeight(width) : GetCollapsedHeight();
}

QRect CCorvaneTypeView::GetSubItemRect(const QRect& rect, int item) const
{
    const int count = GetItemCount();
    const int index = item == kAddItem && IsVariableSize() ? count - 1 : item;
    if (index < 0 || index >= count)
        return {};
    const int height = (GetExpandedHeight(rect.width()) - GetCollapsedHeight()) / count;
    return {rect.left() + kListIndent, rect.top() + GetCollapsedHeight() + index * height,
            rect.width() - kListIndent, height};
}

int CCorvaneTypeView::HitTestItem(const QRect& rect, const QPoint& point) const
{
    if (!m_bExpanded || point.y() < rect.top() + GetCollapsedHeight())
        return kHeaderItem;
    if (point.x() < rect.left() + kListIndent || point.x() > rect.right())
        return kHeaderItem;
    const int count = static_cast<int>(GetValueCount());
    for (int item = 0; item < count; ++item)
    {
        if (point.y() <= GetSubItemRect(rect, item).bottom())
            return item;
    }
    return IsVariableSize() ? kAddItem : kHeaderItem;
}

QRect CCorvaneTypeView::GetCellRect(const QRect& rect, EListColumn column) const
{
    const QRect place = m_pList->GetColumnRect(column);
    int left = place.left();
    if (column == COLUMN_EXPAND)
        return {rect.left(), rect.top(), kListIndent, GetCollapsedHeight()};
    if (column == COLUMN_NAME)
        left = rect.left() + kListIndent;
    return {left, rect.top(), std::max(place.right() + 1 - left, 0), GetCollapsedHeight()};
}

EListColumn CCorvaneTypeView::HitTestColumn(const QRect& rect, int x) const
{
    for (int i = 0; i < COLUMN_COUNT; ++i)
    {
        const auto column = static_cast<EListColumn>(i);
        const QRect cell = GetCellRect(rect, column);
        if (x >= cell.left() && x <= cell.right())
            return column;
    }
    return COLUMN_COUNT;
}

void CCorvaneTypeView::AdjustValueRect(QRect& itemRect) const
{
    int width = kListIndexWidth;
    if (GetValueCount() > 999)
        width = QFontMetrics(CTheme::GetValueFont()).horizontalAdvance(QString::number(GetValueCount())) +
                kListTextMargin;
    itemRect.setLeft(itemRect.left() + width);
}

QRect CCorvaneTypeView::GetActiveRect(const QRect& rect) const
{
    if (m_nSelectedItem == kHeaderItem || !m_bExpanded)
        return {rect.left(), rect.top(), rect.width(), GetCollapsedHeight()};
    return GetSubItemRect(rect, m_nSelectedItem);
}

QRect CCorvaneTypeView::GetEditRect(const QRect& rect) const
{
    QRect cell = GetActiveRect(rect);
    if (m_nSelectedItem != kHeaderItem)
        AdjustValueRect(cell);
    return cell;
}

QString CCorvaneTypeView::GetValueText(int item) const
{
    const std::u16string_view text = m_pParentType->GetValue(static_cast<std::size_t>(item));
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

QString CCorvaneTypeView::GetDescription() const
{
    constexpr qsizetype kMaxSpoken = 1000;
    const QString name = QString::fromStdU16String(m_pParentType->GetName());
    if (m_nSelectedItem == kAddItem)
        return QStringLiteral("%1, add a value").arg(name);
    if (m_nSelectedItem >= 0)
        return QStringLiteral("%1, value %2: %3")
            .arg(name, QString::number(m_nSelectedItem + 1), GetValueText(m_nSelectedItem).left(kMaxSpoken));
    QString text = name;
    const int count = std::min(static_cast<int>(GetValueCount()), 8);
    for (int i = 0; i < count; ++i)
        text += (i == 0 ? QStringLiteral(": ") : QStringLiteral("; ")) + GetValueText(i).left(kMaxSpoken);
    return text;
}
