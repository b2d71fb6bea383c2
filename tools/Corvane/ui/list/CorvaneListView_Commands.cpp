// The commands of the attribute list: each with the guard that enables it.
#include "Commands.h"
#include "CorvaneListView.h"
#include "CorvaneListViewList.h"
#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "CorvaneSchema.h"
#include "CorvaneSchemaAttribData.h"
#include "DeferDeleteAttribDlg.h"
#include "DeferDeprecatedAttribDlg.h"
#include "Editor.h"
#include "MemberStore.h"
#include "PropertiesSheet.h"
#include "RunState.h"
#include "UiModule.h"
#include "host/Questions.h"

#include <QPointer>
#include <algorithm>

struct CCorvaneListView::SCommandRow
{
    int m_nId;
    void (CCorvaneListView::*m_State)(SCommandState&) const;
    void (CCorvaneListView::*m_Run)();
};

const CCorvaneListView::SCommandRow* CCorvaneListView::FindCommandRow(int id)
{
    using View = CCorvaneListView;
    static constexpr SCommandRow rows[] = {
        {ID_EDIT, &View::GetEditState, &View::Edit},
        {ID_MOVE_UP, &View::GetMoveUpState, &View::MoveUp},
        {ID_MOVE_DOWN, &View::GetMoveDownState, &View::MoveDown},
        {ID_DELETE, &View::GetDeleteState, &View::Delete},
        {ID_EXPAND, &View::GetExpandState, &View::Expand},
        {ID_COLLAPSE, &View::GetCollapseState, &View::Collapse},
        {ID_EXPAND_ALL, &View::GetAllState, &View::ExpandAll},
        {ID_COLLAPSE_ALL, &View::GetAllState, &View::CollapseAll},
        {ID_LOCK, &View::GetLockState, &View::ToggleLock},
        {ID_REFERENCE, &View::GetReferenceState, &View::ToggleReference},
        {ID_OVERRIDE, &View::GetOverrideState, &View::ToggleOverride},
        {ID_TODO, &View::GetTodoState, &View::ToggleTodo},
        {ID_PLACEHOLDER, &View::GetPlaceHolderState, &View::TogglePlaceHolder},
        {ID_DEFER_DELETE, &View::GetExpertState, &View::DeferDelete},
        {ID_DEFER_DEPRECATE, &View::GetExpertState, &View::DeferDeprecate},
        {ID_IMMEDIATE_DELETE, &View::GetExpertState, &View::ImmediateDelete},
        {ID_PROPERTIES, &View::GetPropertiesState, &View::Properties},
    };
    const auto found = std::find_if(std::begin(rows), std::end(rows),
                                    [id](const SCommandRow& row) { return row.m_nId == id; });
    return found == std::end(rows) ? nullptr : found;
}

bool CCorvaneListView::GetCommandState(int id, SCommandState& state)
{
    const SCommandRow* row = FindCommandRow(id);
    if (row == nullptr)
        return false;
    state = {};
    (this->*row->m_State)(state);
    return true;
}

bool CCorvaneListView::RunCommand(int id)
{
    const SCommandRow* row = FindCommandRow(id);
    if (row == nullptr)
        return false;
    EndEdit(true);
    (this->*row->m_Run)();
    return true;
}

bool CCorvaneListView::IsExpert() const
{
    return m_Frame.GetEditor().GetApplication().GetContext().m_Run.Test(APP_EXPERT);
}

void CCorvaneListView::GetEditState(SCommandState& state) const
{
    const CCorvaneTypeView* view = GetTarget();
    state.m_bEnabled = view != nullptr && view->GetActiveSubItem() != kHeaderItem && view->CanEdit();
    state.m_sLabel = QStringLiteral("&Edit");
}

void CCorvaneListView::Edit()
{
    m_pList->BeginEdit();
}

void CCorvaneListView::GetMoveUpState(SCommandState& state) const
{
    const CCorvaneTypeView* view = GetTarget();
    state.m_bEnabled = view != nullptr && view->CanMoveValue(true);
}

void CCorvaneListView::MoveUp()
{
    MoveValue(true);
}

void CCorvaneListView::GetMoveDownState(SCommandState& state) const
{
    const CCorvaneTypeView* view = GetTarget();
    state.m_bEnabled = view != nullptr && view->CanMoveValue(false);
}

void CCorvaneListView::MoveDown()
{
    MoveValue(false);
}

void CCorvaneListView::MoveValue(bool up)
{
    // A check-out may ask, and the window may go meanwhile.
    const CRef<CCorvaneTypeView> view(GetTarget());
    const QPointer<CCorvaneListView> guard(this);
    if (!view || !view->MoveValue(up) || !guard)
        return;
    m_pList->Flush();
    m_pList->MakeSelectionVisible();
    UpdateHelp();
}

void CCorvaneListView::GetDeleteState(SCommandState& state) const
{
    const CCorvaneTypeView* view = GetTarget();
    state.m_bEnabled = view != nullptr && view->CanChangeValue();
    state.m_sLabel = QStringLiteral("&Delete Value");
}

void CCorvaneListView::Delete()
{
    const CRef<CCorvaneTypeView> view(GetTarget());
    const QPointer<CCorvaneListView> guard(this);
    if (!view || !view->DeleteValue() || !guard)
        return;
    m_pList->Flush();
    m_pList->MakeSelectionVisible();
    UpdateHelp();
}

void CCorvaneListView::GetExpandState(SCommandState& state) const
{
    const CCorvaneTypeView* view = GetTarget();
    state.m_bEnabled = view != nullptr && view->CanExpand() && view->GetActiveSubItem() == kHeaderItem;
    state.m_sLabel = QStringLiteral("&Expand\tSpace");
}

void CCorvaneListView::Expand()
{
    m_pList->ExpandSelected(true);
}

void CCorvaneListView::GetCollapseState(SCommandState& state) const
{
    GetExpandState(state);
    state.m_sLabel = QStringLiteral("&Collapse\tSpace");
}

void CCorvaneListView::Collapse()
{
    m_pList->ExpandSelected(false);
}

void CCorvaneListView::GetAllState(SCommandState& state) const
{
    state.m_bEnabled = m_pList->GetRecord() != nullptr;
}

void CCorvaneListView::ExpandAll()
{
    m_pList->SetAllExpanded(true);
}

void CCorvaneListView::CollapseAll()
{
    m_pList->SetAllExpanded(false);
}

void CCorvaneListView::GetLockState(SCommandState& state) const
{
    CCorvaneTypeView* view = GetTarget();
    state.m_bEnabled = view != nullptr;
    state.m_bChecked = view != nullptr && view->GetParentType().IsLocked();
}

void CCorvaneListView::ToggleLock()
{
    CCorvaneTypeView* view = GetTarget();
    if (view == nullptr)
        return;
    const CRef<CCorvaneType> attrib(&view->GetParentType());
    const QPointer<CCorvaneListView> guard(this);
    if (attrib->EditLock(!attrib->IsLocked(), false) && guard)
        m_pList->InvalidateHeights();
}

void CCorvaneListView::GetReferenceState(SCommandState& state) const
{
    CCorvaneTypeView* view = GetTarget();
    state.m_bEnabled = view != nullptr && view->GetParentType().CanEditInherit();
    state.m_bChecked = view != nullptr && view->GetParentType().GetInherit();
}

void CCorvaneListView::ToggleReference()
{
    if (const CCorvaneTypeView* view = GetTarget())
        RunOnAttribute(&CCorvaneType::EditInherit, !view->GetParentType().GetInherit());
}

void CCorvaneListView::GetMarkState(SCommandState& state, bool (CCorvaneAttrib::*mark)() const) const
{
    const CCorvaneTypeView* view = GetTarget();
    state.m_bEnabled = view != nullptr && view->GetParentType().IsEditable();
    state.m_bChecked = view != nullptr && (view->GetParentType().*mark)();
}

void CCorvaneListView::GetOverrideState(SCommandState& state) const
{
    GetMarkState(state, &CCorvaneAttrib::GetOverride);
}

void CCorvaneListView::ToggleOverride()
{
    if (const CCorvaneTypeView* view = GetTarget())
        RunOnAttribute(&CCorvaneType::EditOverride, !view->GetParentType().GetOverride());
}

void CCorvaneListView::GetTodoState(SCommandState& state) const
{
    GetMarkState(state, &CCorvaneAttrib::IsTodo);
}

void CCorvaneListView::ToggleTodo()
{
    if (const CCorvaneTypeView* view = GetTarget())
        RunOnAttribute(&CCorvaneType::EditTodo, !view->GetParentType().IsTodo());
}

void CCorvaneListView::GetPlaceHolderState(SCommandState& state) const
{
    GetMarkState(state, &CCorvaneAttrib::IsPlaceHolder);
}

void CCorvaneListView::TogglePlaceHolder()
{
    if (const CCorvaneTypeView* view = GetTarget())
        RunOnAttribute(&CCorvaneType::EditPlaceHolder, !view->GetParentType().IsPlaceHolder());
}

void CCorvaneListView::RunOnAttribute(bool (CCorvaneType::*edit)(bool), bool on)
{
    const CRef<CCorvaneType> attrib(&GetTarget()->GetParentType());
    const QPointer<CCorvaneListView> guard(this);
    if (((*attrib).*edit)(on) && guard)
        m_pList->InvalidateHeights();
}

void CCorvaneListView::GetExpertState(SCommandState& state) const
{
    state.m_bEnabled = IsExpert() && GetTarget() != nullptr;
    if (!IsExpert())
        state.m_sWhyNot = QStringLiteral("Only in expert mode");
}

template <class Dialog>
void CCorvaneListView::Defer(bool (CCorvaneMgr::*defer)(CCorvaneAttrib*, std::uint32_t))
{
    CCorvaneTypeView* view = GetTarget();
    if (view == nullptr)
        return;
    const CRef<CCorvaneType> attrib(&view->GetParentType());
    CCorvaneMgr& manager = m_Frame.GetEditor().GetApplication().GetManager();
    const QPointer<CCorvaneListView> guard(this);
    Dialog dialog(manager.GetActiveBuild(), m_Frame.GetWindow());
    if (dialog.exec() != QDialog::Accepted || !guard)
        return;
    // The record may have gone while the dialog was open.
    const CCorvaneRecord* record = attrib->GetOwnerRecord();
    if (record == nullptr || record != m_pList->GetRecord())
        return;
    if ((manager.*defer)(attrib.Get(), dialog.GetBuild()))
        m_pList->InvalidateRows();
}

void CCorvaneListView::DeferDelete()
{
    Defer<CDeferDeleteAttribDlg>(&CCorvaneMgr::DeferDeleteAttribute);
}

void CCorvaneListView::DeferDeprecate()
{
    Defer<CDeferDeprecatedAttribDlg>(&CCorvaneMgr::DeferDeprecateAttribute);
}

void CCorvaneListView::GetPropertiesState(SCommandState& state) const
{
    state.m_bEnabled = GetTarget() != nullptr;
    state.m_sLabel = QStringLiteral("P&roperties");
}

void CCorvaneListView::Properties()
{
    CCorvaneTypeView* view = GetTarget();
    if (view == nullptr)
        return;
    const CRef<CCorvaneType> attrib(&view->GetParentType());
    const QPointer<CCorvaneListView> guard(this);
    const bool changed = ShowProperties(m_Frame, *attrib);
    if (guard && changed)
        m_pList->InvalidateRows();
}

void CCorvaneListView::ImmediateDelete()
{
    CCorvaneTypeView* view = GetTarget();
    if (view == nullptr)
        return;
    const CRef<CCorvaneType> attrib(&view->GetParentType());
    const QPointer<CCorvaneListView> guard(this);
    const bool deleted = DeleteFromSchema(*attrib);
    if (!guard)
        return;
    if (deleted)
        m_pList->InvalidateRows();
    m_pList->InvalidateHeights();
}

namespace
{
// Removes the attribute where `data` declares it: in its schema, or in the file of the struct around it.
bool RemoveEntry(CCorvaneType& attrib, CCorvaneSchemaAttribData& data)
{
    CCorvaneMgr& manager = data.GetManager();
    if (CCorvaneSchema* schema = data.GetSchema())
    {
        const std::ptrdiff_t index = schema->FindAttribData(data);
        return index >= 0 && manager.DeleteDeferredAttribute(schema, static_cast<std::size_t>(index));
    }
    const CCorvaneAttrib* parent = attrib.GetParentAttrib();
    CCorvaneSchemaAttribData* structData = parent ? parent->GetAttribData() : nullptr;
    IMemberStore* store = structData ? structData->GetMemberStore() : nullptr;
    for (std::size_t i = 0; store != nullptr && i < store->GetMemberCount(); ++i)
    {
        if (&store->GetMemberData(i) == &data)
            return manager.DeleteDeferredAttribute(structData, i);
    }
    return false;
}

bool IsDeclared(const CCorvaneType& attrib, CCorvaneSchemaAttribData& data)
{
    return data.GetSchema() != nullptr ? data.GetSchema()->FindAttribData(data) >= 0
                                       : attrib.GetParentAttrib() != nullptr;
}
} // namespace

bool CCorvaneListView::DeleteFromSchema(CCorvaneType& attrib)
{
    const CRef<CCorvaneSchemaAttribData> entry(attrib.GetAttribData());
    if (!entry || !IsDeclared(attrib, *entry))
        return false;
    const CCorvaneContext& context = entry->GetManager().GetContext();
    if (!context.m_Run.m_bSilent &&
        context.m_Questions.Ask(MakeQuestion(
            u"Immediate Delete Attribute",
            u"This operation will remove the selected attribute from the schema file and all records created "
            u"from the schema.  This operation cannot be undone.\n\nAre you sure you want to permanently "
            u"remove "
            u"this attribute?",
            EButtons::YesNo, EIcon::Exclamation)) != EAnswer::Yes)
        return false;
    return RemoveEntry(attrib, *entry);
}
