#include "struct/CorvaneTypeStructView.h"

#include "QtText.h"
#include "Theme.h"
#include "UndoText.h"
#include "struct/CorvaneTypeStruct.h"
#include "struct/StructRowRestorePoint.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

CCorvaneTypeStructView::CCorvaneTypeStructView(CCorvaneTypeStruct& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

CCorvaneTypeStructView::~CCorvaneTypeStructView() = default;

void CCorvaneTypeStructView::Detach()
{
    const CRef<CCorvaneTypeView> keep(this);
    CancelEdit();
    m_pMember = nullptr;
    m_Rows.Clear();
    CCorvaneTypeView::Detach();
}

// Views and selection.

void CCorvaneTypeStructView::CreateViews()
{
    m_bCreated = true;
    m_Rows.Update(m_Attrib.GetAttributePointerList());
}

void CCorvaneTypeStructView::UpdateView()
{
    if (!m_bCreated || !IsAttached())
        return;
    // A member that is being edited may have gone.
    if (m_pEdited && !m_Attrib.IsMemberShown(m_pEdited->GetParentType()))
        GetList().EndEdit(false);
    const int row = m_pMember ? m_Rows.Find(m_pMember.Get()).m_nRow : GetActiveSubItem();
    if (m_Rows.Update(m_Attrib.GetAttributePointerList()))
        KeepSelection(row);
}

// After a change of the rows; `row` had the selection.
void CCorvaneTypeStructView::KeepSelection(int row)
{
    if (!m_pMember && row < m_Rows.GetRowCount())
        return;
    const SPlace place = m_Rows.Find(m_pMember.Get());
    if (place.m_nRow >= 0)
        return CCorvaneTypeView::SetActiveSubItem(place.m_nRow);
    const int last = m_Rows.GetRowCount() - 1;
    SetActiveSubItem(last >= 0 && IsVariableSize() ? std::min(row, last) : kHeaderItem);
}

CCorvaneTypeView& CCorvaneTypeStructView::GetSelectedView()
{
    return m_pMember ? m_pMember->GetSelectedView() : *this;
}

bool CCorvaneTypeStructView::SelectAttribute(const CCorvaneAttrib& attrib, int item)
{
    if (&attrib == &GetParentType())
        return CCorvaneTypeView::SelectAttribute(attrib, item);
    // The member of this struct that is, or holds, the attribute.
    const CCorvaneAttrib* member = &attrib;
    while (member != nullptr && member->GetParentAttrib() != &m_Attrib)
        member = member->GetParentAttrib();
    if (member == nullptr)
        return false;
    SetExpanded(true);
    UpdateView();
    SPlace place;
    std::ptrdiff_t row = -1;
    place.m_nMember = static_cast<int>(m_Attrib.FindChildAttribute(*member, row));
    place.m_nRow = static_cast<int>(row);
    const SMember* shown = m_Rows.GetMember(place);
    if (shown == nullptr)
        return false;
    SelectPlace(place);
    return shown->m_pView->SelectAttribute(attrib, item);
}

void CCorvaneTypeStructView::SetMember(CRef<CCorvaneTypeView> member)
{
    if (m_pMember == member)
        return;
    if (const CRef<CCorvaneTypeView> before = std::exchange(m_pMember, member))
        before->SetSelected(false);
    if (member)
        member->SetSelected(IsSelected());
}

void CCorvaneTypeStructView::SelectPlace(const SPlace& place)
{
    const SMember* member = m_Rows.GetMember(place);
    SetMember(member ? member->m_pView : CRef<CCorvaneTypeView>());
    CCorvaneTypeView::SetActiveSubItem(place.m_nRow);
}

void CCorvaneTypeStructView::SetActiveSubItem(int item)
{
    SetMember(nullptr);
    CCorvaneTypeView::SetActiveSubItem(item);
}

void CCorvaneTypeStructView::SetExpanded(bool expanded)
{
    CCorvaneTypeView::SetExpanded(expanded);
    if (expanded && !m_bCreated && IsAttached())
        CreateViews();
}

void CCorvaneTypeStructView::SetAllExpanded(bool expanded)
{
    SetExpanded(expanded);
    UpdateView();
    for (const CStructRowsView::SRow& row : m_Rows.GetRows())
    {
        for (const SMember& member : row.m_Members)
            member.m_pView->SetAllExpanded(expanded);
    }
}

bool CCorvaneTypeStructView::SelectFrom(SPlace place)
{
    for (; place.m_nRow < m_Rows.GetRowCount(); place = {place.m_nRow + 1, -1})
    {
        if (place.m_nMember < 0 && !IsVariableSize())
            place.m_nMember = 0;
        if (place.m_nMember < 0 || m_Rows.GetMember(place))
        {
            SelectPlace(place);
            return true;
        }
    }
    if (!IsVariableSize() || GetActiveSubItem() == kAddItem)
        return false;
    SetActiveSubItem(kAddItem);
    return true;
}

bool CCorvaneTypeStructView::SelectBackFrom(SPlace place)
{
    while (place.m_nRow >= 0)
    {
        if (const SMember* member = m_Rows.GetMember(place))
        {
            SelectPlace(place);
            if (member->m_pView->IsExpanded())
                member->m_pView->SelectPrevious(); // From its header: its last item.
            return true;
        }
        if (IsVariableSize())
        {
            SelectPlace(place);
            return true;
        }
        --place.m_nRow;
        if (place.m_nRow >= 0)
            place.m_nMember = static_cast<int>(m_Rows.GetRow(place.m_nRow).m_Members.size()) - 1;
    }
    return false;
}

bool CCorvaneTypeStructView::SelectNext()
{
    UpdateView();
    if (m_pMember)
    {
        if (m_pMember->IsExpanded() && m_pMember->SelectNext())
            return true;
        const SPlace place = m_Rows.Find(m_pMember.Get());
        return SelectFrom({place.m_nRow, place.m_nMember + 1});
    }
    const int item = GetActiveSubItem();
    if (item == kAddItem)
        return false;
    return item == kHeaderItem ? SelectFrom({0, -1}) : SelectFrom({item, 0});
}

bool CCorvaneTypeStructView::SelectPrevious()
{
    UpdateView();
    const auto lastOf = [this](int row)
    { return row < 0 ? -1 : static_cast<int>(m_Rows.GetRow(row).m_Members.size()) - 1; };
    if (m_pMember)
    {
        if (m_pMember->GetActiveSubItem() != kHeaderItem)
        {
            if (!m_pMember->SelectPrevious())
                m_pMember->ClearActiveSubItem();
            return true;
        }
        const SPlace place = m_Rows.Find(m_pMember.Get());
        return SelectBackFrom({place.m_nRow, place.m_nMember - 1});
    }
    const int item = GetActiveSubItem();
    if (item == kHeaderItem && IsVariableSize())
    {
        SetActiveSubItem(kAddItem);
        return true;
    }
    const int row = item >= 0 ? item - 1 : m_Rows.GetRowCount() - 1;
    return SelectBackFrom({row, lastOf(row)});
}

// Geometry.

int CCorvaneTypeStructView::GetIndexWidth() const
{
    QRect cell(0, 0, 0, 0);
    AdjustValueRect(cell);
    return cell.left();
}

int CCorvaneTypeStructView::Measure(int width)
{
    if (!IsExpanded())
        return GetCollapsedHeight();
    UpdateView();
    m_Rows.Layout(GetCollapsedHeight(), width - kListIndent - GetIndexWidth());
    return GetExpandedHeight(width);
}

int CCorvaneTypeStructView::GetExpandedHeight(int) const
{
    return std::max(m_Rows.GetBottom(), GetCollapsedHeight()) + (IsVariableSize() ? kListRowHeight : 0);
}

QRect CCorvaneTypeStructView::GetSubItemRect(const QRect& rect, int item) const
{
    const int left = rect.left() + kListIndent;
    const int width = rect.width() - kListIndent;
    if (item == kAddItem && IsVariableSize())
        return {left, rect.top() + GetExpandedHeight(rect.width()) - kListRowHeight, width, kListRowHeight};
    if (item < 0 || item >= m_Rows.GetRowCount())
        return {};
    const CStructRowsView::SRow& row = m_Rows.GetRow(item);
    return {left, rect.top() + row.m_nTop, width, row.m_nHeight};
}

int CCorvaneTypeStructView::HitTestItem(const QRect& rect, const QPoint& point) const
{
    const int y = point.y() - rect.top();
    if (!IsExpanded() || y < GetCollapsedHeight() || point.x() < rect.left() + kListIndent ||
        point.x() > rect.right())
        return kHeaderItem;
    const int row = y < m_Rows.GetBottom() ? m_Rows.FindRow(y) : -1;
    return row >= 0 ? row : IsVariableSize() ? kAddItem : kHeaderItem;
}

QRect CCorvaneTypeStructView::GetMemberRect(const QRect& rect, const SMember& member) const
{
    const int left = rect.left() + kListIndent + GetIndexWidth();
    return {left, rect.top() + member.m_nTop, rect.right() + 1 - left, member.m_nHeight};
}

QRect CCorvaneTypeStructView::GetMemberRect(const QRect& rect) const
{
    const SMember* member = m_Rows.GetMember(m_Rows.Find(m_pMember.Get()));
    return member ? GetMemberRect(rect, *member) : QRect();
}

CStructRowsView::SPlace CCorvaneTypeStructView::FindMember(const QRect& rect, const QPoint& point) const
{
    const int row = HitTestItem(rect, point);
    if (row < 0)
        return {};
    const std::vector<SMember>& members = m_Rows.GetRow(row).m_Members;
    const auto found =
        std::find_if(members.begin(), members.end(),
                     [&](const SMember& member) { return GetMemberRect(rect, member).contains(point); });
    return found != members.end() ? SPlace{row, static_cast<int>(found - members.begin())} : SPlace{};
}

QRect CCorvaneTypeStructView::GetActiveRect(const QRect& rect) const
{
    if (m_pMember)
        return m_pMember->GetActiveRect(GetMemberRect(rect));
    QRect active = CCorvaneTypeView::GetActiveRect(rect);
    active.setHeight(std::min(active.height(), kListRowHeight)); // A row may be higher than the list.
    return active;
}

QRect CCorvaneTypeStructView::GetEditRect(const QRect& rect) const
{
    return m_pMember ? m_pMember->GetEditRect(GetMemberRect(rect)) : CCorvaneTypeView::GetEditRect(rect);
}

// Drawing.

void CCorvaneTypeStructView::DrawItem_Expanded(QPainter& painter, const QRect& rect, const QRect& clip)
{
    const int first = m_Rows.FindRow(clip.top() - rect.top());
    for (int row = first; row >= 0 && row < m_Rows.GetRowCount(); ++row)
    {
        const QRect rowRect = GetSubItemRect(rect, row);
        if (rowRect.top() > clip.bottom())
            break;
        for (const SMember& member : m_Rows.GetRow(row).m_Members)
        {
            const QRect memberRect = GetMemberRect(rect, member);
            if (memberRect.intersects(clip))
                member.m_pView->Draw(painter, memberRect, clip);
        }
        DrawRowNumber(painter, rowRect, row);
    }
    const int rule = rect.top() + GetCollapsedHeight() - 1;
    painter.save();
    painter.setPen(CTheme::Get().GetColor(EThemeColor::Shadow));
    painter.drawLine(rect.left() + kListIndent, rule, rect.right(), rule);
    painter.restore();
    const QRect add = GetSubItemRect(rect, kAddItem);
    if (add.intersects(clip))
        DrawSubItem(painter, add, kAddItem);
}

void CCorvaneTypeStructView::DrawRowNumber(QPainter& painter, const QRect& rowRect, int row) const
{
    const QRect cell(rowRect.left(), rowRect.top(), GetIndexWidth(), rowRect.height());
    const bool selected = IsSelected() && !m_pMember && GetActiveSubItem() == row;
    const CTheme& theme = CTheme::Get();
    BeginDrawValue(painter, row);
    painter.fillRect(cell, theme.GetColor(selected ? EThemeColor::SelectedRow : EThemeColor::AlternateRow));
    DrawItemIndex(painter, rowRect, row);
    painter.setPen(theme.GetColor(EThemeColor::Shadow));
    painter.drawLine(cell.topRight(), cell.bottomRight());
    painter.drawLine(cell.bottomLeft(), cell.bottomRight());
    if (selected && GetList().IsActive())
    {
        painter.setPen(theme.GetColor(EThemeColor::Accent));
        painter.drawRect(rowRect.adjusted(0, 0, -1, -1));
    }
    EndDrawValue(painter);
}

// Input.

template <class Handle>
bool CCorvaneTypeStructView::Forward(const QRect& rect, const QPoint& point, EViewUpdate& update,
                                     Handle handle)
{
    const SPlace place = FindMember(rect, point);
    const SMember* member = m_Rows.GetMember(place);
    if (member == nullptr)
        return false;
    const CRef<CCorvaneTypeView> view = member->m_pView; // What it does may change the rows.
    const QRect memberRect = GetMemberRect(rect, *member);
    SelectPlace(place);
    update = handle(*view, memberRect);
    return true;
}

EViewUpdate CCorvaneTypeStructView::OnLButtonDown(const QRect& rect, const QPoint& point,
                                                  Qt::KeyboardModifiers modifiers)
{
    EViewUpdate update = EViewUpdate::None;
    if (Forward(rect, point, update,
                [&](CCorvaneTypeView& view, const QRect& place)
                { return view.OnLButtonDown(place, point, modifiers); }))
        return update;
    return CCorvaneTypeView::OnLButtonDown(rect, point, modifiers);
}

EViewUpdate CCorvaneTypeStructView::OnRButtonDown(const QRect& rect, const QPoint& point)
{
    EViewUpdate update = EViewUpdate::None;
    if (Forward(rect, point, update,
                [&](CCorvaneTypeView& view, const QRect& place) { return view.OnRButtonDown(place, point); }))
        return update;
    return CCorvaneTypeView::OnRButtonDown(rect, point);
}

EViewUpdate CCorvaneTypeStructView::OnLButtonDblClk(const QRect& rect, const QPoint& point)
{
    EViewUpdate update = EViewUpdate::None;
    if (Forward(rect, point, update,
                [&](CCorvaneTypeView& view, const QRect& place)
                { return view.OnLButtonDblClk(place, point); }))
        return update;
    return CCorvaneTypeView::OnLButtonDblClk(rect, point);
}

EViewUpdate CCorvaneTypeStructView::OnKeyDown(QKeyEvent& event)
{
    if (const CRef<CCorvaneTypeView> member = m_pMember)
    {
        const EViewUpdate update = member->OnKeyDown(event);
        if (update != EViewUpdate::None)
            return update;
    }
    const int row = GetActiveSubItem();
    if (event.key() != Qt::Key_Insert || row < 0 || !IsVariableSize() || !m_Attrib.IsEditable())
        return EViewUpdate::None;
    if (!RunEdit(kUndoValueAdded, {}, [&] { return m_Attrib.InsertRow(static_cast<std::size_t>(row)); }))
        return EViewUpdate::Consumed;
    UpdateView();
    SetActiveSubItem(row);
    return EViewUpdate::Measure;
}

QString CCorvaneTypeStructView::GetToolTip(const QRect& rect, const QPoint& point) const
{
    if (const SMember* member = m_Rows.GetMember(FindMember(rect, point)))
        return member->m_pView->GetToolTip(GetMemberRect(rect, *member), point);
    return CCorvaneTypeView::GetToolTip(rect, point);
}

QString CCorvaneTypeStructView::GetDescription() const
{
    const QString name = ToQString(m_Attrib.GetName());
    const int item = GetActiveSubItem();
    if (item == kAddItem)
        return QStringLiteral("%1, add a row").arg(name);
    if (item < 0)
        return QStringLiteral("%1: %2 %3")
            .arg(name, QString::number(GetValueCount()),
                 GetValueCount() == 1 ? QStringLiteral("row") : QStringLiteral("rows"));
    const QString row = QStringLiteral("%1, row %2").arg(name, QString::number(item + 1));
    return m_pMember ? row + QStringLiteral(", ") + m_pMember->GetDescription() : row;
}

// Editing.

bool CCorvaneTypeStructView::CanEdit() const
{
    if (m_pMember)
        return m_pMember->GetActiveSubItem() != kHeaderItem && m_pMember->CanEdit();
    return GetActiveSubItem() == kAddItem && m_Attrib.GetStructFile() != nullptr &&
           CCorvaneTypeView::CanEdit();
}

EViewUpdate CCorvaneTypeStructView::BeginEdit(const QRect& cell, int item)
{
    if (m_pMember)
    {
        const CRef<CCorvaneTypeView> member = m_pMember;
        m_pEdited = member;
        const EViewUpdate update = member->BeginEdit(cell, item);
        if (update == EViewUpdate::EditEnded || update == EViewUpdate::MeasureEditEnded)
            m_pEdited = nullptr;
        return update;
    }
    SetEditedItem(item);
    if (GetEditedItem() != kAddItem)
        return EViewUpdate::EditEnded;
    const EViewUpdate update = ApplyText({}, true);
    return update == EViewUpdate::Measure ? EViewUpdate::MeasureEditEnded : EViewUpdate::EditEnded;
}

EViewUpdate CCorvaneTypeStructView::EndEdit()
{
    const CRef<CCorvaneTypeView> edited = std::exchange(m_pEdited, nullptr);
    return edited ? edited->EndEdit() : EViewUpdate::None;
}

void CCorvaneTypeStructView::CancelEdit()
{
    if (const CRef<CCorvaneTypeView> edited = std::exchange(m_pEdited, nullptr))
        edited->CancelEdit();
}

void CCorvaneTypeStructView::MoveValueDialog(const QRect& cell)
{
    if (m_pEdited)
        m_pEdited->MoveValueDialog(cell);
}

CCorvaneTypeValueDlg* CCorvaneTypeStructView::GetValueDialog() const
{
    return m_pEdited ? m_pEdited->GetValueDialog() : nullptr;
}

bool CCorvaneTypeStructView::ApplyRemove(std::size_t index)
{
    return CStructRowRestorePoint::RemoveRow(m_Attrib, index);
}

bool CCorvaneTypeStructView::ApplyMove(std::size_t index, bool up)
{
    return MoveRowUndoable(m_Attrib, index, up);
}
