// What a view does with the mouse, with its editor and with the commands on a value.
#include "CorvaneMgr.h"
#include "CorvaneTypeValueDlg.h"
#include "CorvaneTypeView.h"
#include "DeferState.h"
#include "Editor.h"
#include "QtText.h"
#include "SourceGate.h"
#include "UiModule.h"
#include "UndoScope.h"
#include "UndoText.h"
#include "ValueListRestorePoint.h"
#include "ValueSource.h"

#include <QKeyEvent>

EViewUpdate CCorvaneTypeView::OnKeyDown(QKeyEvent&)
{
    return EViewUpdate::None;
}

EViewUpdate CCorvaneTypeView::OnLButtonDown(const QRect& rect, const QPoint& point,
                                            Qt::KeyboardModifiers modifiers)
{
    m_ClickPoint = point;
    const int item = HitTestItem(rect, point);
    if (item == kHeaderItem)
        return OnHeaderClick(rect, point, modifiers);
    const bool again = m_nSelectedItem == item;
    SetActiveSubItem(item);
    if (!again)
        return EViewUpdate::Repaint;
    m_pList->BeginEdit();
    return EViewUpdate::Consumed;
}

EViewUpdate CCorvaneTypeView::OnHeaderClick(const QRect& rect, const QPoint& point,
                                            Qt::KeyboardModifiers modifiers)
{
    const bool header = point.y() < rect.top() + GetCollapsedHeight();
    const EListColumn column = header ? HitTestColumn(rect, point.x()) : COLUMN_COUNT;
    if (column == COLUMN_EXPAND && CanExpand())
    {
        SetExpanded(!m_bExpanded);
        return EViewUpdate::Measure;
    }
    ClearActiveSubItem();
    return OnMarkClick(column, modifiers);
}

EViewUpdate CCorvaneTypeView::OnMarkClick(EListColumn column, Qt::KeyboardModifiers modifiers)
{
    CCorvaneType& attrib = *m_pParentType;
    bool changed = false;
    switch (column)
    {
    case COLUMN_LOCK:
        changed = attrib.EditLock(!attrib.IsLocked(), modifiers.testFlag(Qt::ControlModifier));
        break;
    case COLUMN_REFERENCE:
        changed = attrib.CanEditInherit() && attrib.EditInherit(!attrib.GetInherit());
        break;
    case COLUMN_OVERRIDE:
        changed = attrib.IsEditable() && attrib.EditOverride(!attrib.GetOverride());
        break;
    case COLUMN_TODO:
        changed = attrib.IsEditable() && attrib.EditTodo(!attrib.IsTodo());
        break;
    case COLUMN_PLACEHOLDER:
        changed = attrib.IsEditable() && attrib.EditPlaceHolder(!attrib.IsPlaceHolder());
        break;
    default:
        break;
    }
    return changed ? EViewUpdate::Measure : EViewUpdate::Repaint;
}

EViewUpdate CCorvaneTypeView::OnRButtonDown(const QRect& rect, const QPoint& point)
{
    SetActiveSubItem(HitTestItem(rect, point));
    return EViewUpdate::Repaint;
}

EViewUpdate CCorvaneTypeView::OnLButtonDblClk(const QRect& rect, const QPoint& point)
{
    m_ClickPoint = point;
    const int item = HitTestItem(rect, point);
    if (item == kHeaderItem)
    {
        const EListColumn column = HitTestColumn(rect, point.x());
        const bool isMark = column == COLUMN_EXPAND || (column >= COLUMN_LOCK && column < COLUMN_COUNT);
        if (isMark || point.y() >= rect.top() + GetCollapsedHeight())
            return OnLButtonDown(rect, point, Qt::NoModifier);
        SetExpanded(!m_bExpanded);
        return EViewUpdate::Measure;
    }
    SetActiveSubItem(item);
    m_pList->BeginEdit();
    return EViewUpdate::Consumed;
}

bool CCorvaneTypeView::CanEdit() const
{
    return m_pParentType->IsEditable();
}

std::u16string CCorvaneTypeView::GetEditText(int item) const
{
    // An index past the end reads the default's first value.
    const auto index = static_cast<std::size_t>(item == kAddItem ? -1 : item);
    if (m_pParentType->IsValueSet(index))
        return std::u16string(m_pParentType->GetValue(index));
    const CCorvaneAttrib* fallback = m_pParentType->GetDefault();
    if (fallback == nullptr || fallback->GetOwnValues().GetCount() == 0)
        return {};
    return std::u16string(fallback->GetOwnValues().Get(0));
}

CCorvaneTypeValueDlg* CCorvaneTypeView::CreateValueDialog(QWidget*)
{
    return nullptr;
}

CCorvaneTypeValueDlg* CCorvaneTypeView::GetValueDialog() const
{
    return m_pValueDlg;
}

EViewUpdate CCorvaneTypeView::BeginEdit(const QRect& cell, int item)
{
    CancelEdit();
    SetEditedItem(item);
    if (m_nEditedItem != kHeaderItem)
        m_pValueDlg = CreateValueDialog(m_pList->GetViewport());
    if (!m_pValueDlg)
    {
        ClearActiveSubItem();
        return EViewUpdate::EditEnded;
    }
    m_pValueDlg->SetText(GetEditText(m_nEditedItem));
    ITypeViewList* list = m_pList;
    m_pValueDlg->SetFinishCallback([list] { list->EndEdit(true); });
    MoveValueDialog(cell);
    m_pValueDlg->show();
    m_pValueDlg->TakeFocus(m_ClickPoint - m_pValueDlg->pos());
    return EViewUpdate::None;
}

void CCorvaneTypeView::SetEditedItem(int item)
{
    m_nEditedItem = item == kHeaderItem ? m_nSelectedItem : item;
}

void CCorvaneTypeView::MoveValueDialog(const QRect& cell)
{
    if (m_pValueDlg)
        m_pValueDlg->setGeometry(m_pValueDlg->GetPlacement(cell));
}

EViewUpdate CCorvaneTypeView::EndEdit()
{
    if (!m_pValueDlg)
        return EViewUpdate::None;
    const QPointer<CCorvaneTypeValueDlg> dialog = std::exchange(m_pValueDlg, nullptr);
    dialog->Dismiss();
    return dialog->IsCancelled() ? EViewUpdate::Repaint : ApplyText(dialog->GetText(), dialog->IsChosen());
}

EViewUpdate CCorvaneTypeView::ApplyText(std::u16string_view text, bool chosen)
{
    if (m_nEditedItem == kAddItem)
    {
        if (!IsAddable(text) || !RunEdit(kUndoValueAdded, text, [&] { return ApplyAdd(text); }))
            return EViewUpdate::Repaint;
        SetActiveSubItem(static_cast<int>(GetValueCount()) - 1);
        return EViewUpdate::Measure;
    }
    // The value may have gone while it was edited, by an undo in another window.
    const auto index = static_cast<std::size_t>(m_nEditedItem);
    if (index >= GetValueCount())
        return EViewUpdate::Repaint;
    // One that is not set shows the default; leaving it as it was is no choice of that.
    const bool isSet = m_pParentType->IsValueSet(index);
    if (text == GetEditText(m_nEditedItem) && (isSet || !chosen))
        return EViewUpdate::Repaint;
    RunEdit(kUndoValueModified, text, [&] { return ApplySet(index, text); });
    return EViewUpdate::Measure;
}

void CCorvaneTypeView::CancelEdit()
{
    if (!m_pValueDlg)
        return;
    const QPointer<CCorvaneTypeValueDlg> dialog = std::exchange(m_pValueDlg, nullptr);
    dialog->Dismiss();
}

bool CCorvaneTypeView::IsAddable(std::u16string_view) const
{
    return true;
}

bool CCorvaneTypeView::ApplyAdd(std::u16string_view text)
{
    return m_pParentType->AddValue(text);
}

bool CCorvaneTypeView::ApplySet(std::size_t index, std::u16string_view text)
{
    return m_pParentType->SetValue(index, text);
}

std::u16string CCorvaneTypeView::GetUndoText(std::u16string_view action, std::u16string_view value) const
{
    return GetValueUndoText(action, m_pParentType->GetName(), value);
}

bool CCorvaneTypeView::RunEdit(std::u16string_view action, std::u16string_view value,
                               const std::function<bool()>& change)
{
    const CRef<CCorvaneTypeView> keep(this); // The change may make the lists drop the attribute.
    const CRef<CCorvaneType> attrib = m_pParentType;
    CUndoScope scope(m_pList->GetFrame().GetEditor().GetApplication().GetUndo());
    if (!scope.IsOpen() || !change())
        return false;
    scope.Accept(GetUndoText(action, value));
    attrib->NotifyViews(nullptr, kViewValueChanged);
    return true;
}

bool CCorvaneTypeView::CanChangeValue() const
{
    return m_nSelectedItem >= 0 && m_nSelectedItem < static_cast<int>(GetValueCount()) && IsVariableSize() &&
           m_pParentType->IsEditable();
}

bool CCorvaneTypeView::CanMoveValue(bool up) const
{
    return CanChangeValue() &&
           (up ? m_nSelectedItem > 0 : m_nSelectedItem + 1 < static_cast<int>(GetValueCount()));
}

bool CCorvaneTypeView::DeleteValue()
{
    if (!CanChangeValue())
        return false;
    const int item = m_nSelectedItem;
    const auto index = static_cast<std::size_t>(item);
    const std::u16string value(m_pParentType->GetValue(index));
    if (!RunEdit(kUndoValueDeleted, value, [&] { return ApplyRemove(index); }))
        return false;
    const int count = static_cast<int>(GetValueCount());
    SetActiveSubItem(count == 0 ? kAddItem : std::min(item, count - 1));
    return true;
}

bool CCorvaneTypeView::MoveValue(bool up)
{
    if (!CanMoveValue(up))
        return false;
    const int item = m_nSelectedItem;
    const auto index = static_cast<std::size_t>(item);
    const std::u16string value(m_pParentType->GetValue(index));
    if (!RunEdit(kUndoValueModified, value, [&] { return ApplyMove(index, up); }))
        return false;
    SetActiveSubItem(up ? item - 1 : item + 1);
    return true;
}

bool CCorvaneTypeView::ApplyRemove(std::size_t index)
{
    return RemoveValueUndoable(*m_pParentType, index);
}

bool CCorvaneTypeView::ApplyMove(std::size_t index, bool up)
{
    return MoveValueUndoable(*m_pParentType, index, up);
}

QString CCorvaneTypeView::GetToolTip(const QRect& rect, const QPoint& point) const
{
    constexpr qsizetype kMaxTip = 2000;
    const int item = HitTestItem(rect, point);
    if (item == kHeaderItem)
        return point.y() < rect.top() + GetCollapsedHeight()
                   ? GetHeaderToolTip(HitTestColumn(rect, point.x()))
                   : QString();
    if (item == kAddItem)
        return QStringLiteral("Add a value");
    const QString value = m_pParentType->IsValueSet(static_cast<std::size_t>(item))
                              ? GetValueText(item).left(kMaxTip)
                              : QString();
    const QString source = ToQString(DescribeValueSource(*m_pParentType));
    return value.isEmpty() ? source : value + u'\n' + source;
}

QString CCorvaneTypeView::GetHeaderToolTip(EListColumn column) const
{
    const CCorvaneType& attrib = *m_pParentType;
    switch (column)
    {
    case COLUMN_NAME:
    case COLUMN_TYPE:
        return ToQString(attrib.GetName()) + u'\n' + ToQString(DescribeValueSource(attrib));
    case COLUMN_BUILD:
        return ToQString(GetBuildRangeText(attrib).m_sRange).trimmed();
    case COLUMN_LOCK_USER:
    case COLUMN_LOCK:
        return attrib.IsLocked() ? QStringLiteral("Locked by %1").arg(ToQString(attrib.GetLockUser()))
                                 : QString();
    case COLUMN_REFERENCE:
        return attrib.GetInherit() ? ToQString(DescribeValueSource(attrib)) : QString();
    case COLUMN_OVERRIDE:
        return attrib.GetOverride() ? QStringLiteral("A server may override the value") : QString();
    case COLUMN_TODO:
        return attrib.IsTodo() ? QStringLiteral("There is work left") : QString();
    case COLUMN_PLACEHOLDER:
        return attrib.IsPlaceHolder() ? QStringLiteral("The value is for the time being") : QString();
    default:
        return {};
    }
}
