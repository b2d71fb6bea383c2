// How categories leave the tree and come back.
#include "CorvaneMgr.h"

#include "CategoryNames.h"
#include "CategoryRestorePoint.h"
#include "RunState.h"
#include "UndoRecorder.h"
#include "zrassert.h"

#include <algorithm>
#include <memory>

bool CCorvaneMgr::DeleteCategory(CCorvaneCategory& category, bool prompt)
{
    // A category that is deleted already must not reach for the file, which may be another one's by now.
    if (!category.IsAttached())
        return false;
    const CRef<CCorvaneCategory> keepAlive(&category);
    const bool attended = !m_Context.m_Run.Test(APP_CLOSING | APP_RELOADING);
    if (attended && !category.IsSystem())
    {
        const CStateScope moving(m_Context.m_Run, APP_MOVING);
        return DeleteVirtualRelativeCategory(&category, prompt);
    }
    prompt = prompt && attended;
    if (prompt && !ConfirmCategoryDelete(category))
        return false;
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryDeleting, &category));
    if (attended && !RecycleFile(category.GetFile()))
        return false;
    DeleteContents(category, prompt);
    if (!category.IsAttached())
        return true; // A special category went with its last record.
    // Records that were lifted out of a virtual child have written it anew.
    if (attended && !RecycleFile(category.GetFile()))
        return false;
    const CRef<CCorvaneCategory> parent(category.GetParent());
    if (!RemoveFromTree(category))
        return false;
    FinishDelete(category, parent.Get());
    return true;
}

bool CCorvaneMgr::ConfirmCategoryDelete(const CCorvaneCategory& category) const
{
    // A special category goes by itself, and an undo was asked for already.
    return category.GetCategoryType() != 0 || m_Undo.IsReplaying() ||
           AskYes(u"Delete System Category",
                  u"You are about to delete a system category.  System category are usually hard-coded into "
                  u"the game.  By deleting this category the game may no longer function.  Are you sure you "
                  u"want to continue?");
}

void CCorvaneMgr::DeleteContents(CCorvaneCategory& category, bool prompt)
{
    // What was deleted with the category has restore points of its own. The rest stays in the category, as it
    // did the first time: no point could bring it back.
    if (m_Undo.IsReplaying())
        return;
    // Each delete shortens the list under the loop, so that every second record and child is passed over. It
    // stays in the category outside the tree, and its file stays on the disk.
    for (std::size_t i = 0; i < category.GetRecords().size(); ++i)
        static_cast<void>(DeleteRecord(*category.GetRecords()[i], prompt));
    for (std::size_t i = 0; i < category.GetChildren().size(); ++i)
        static_cast<void>(DeleteCategory(*category.GetChildren()[i], prompt));
}

bool CCorvaneMgr::DeleteVirtualRelativeCategory(CCorvaneCategory* pCategory, bool)
{
    ZRASSERT(pCategory);
    if (pCategory == nullptr || pCategory->GetParent() == nullptr)
        return false;
    const CRef<CCorvaneCategory> keepAlive(pCategory);
    const CRef<CCorvaneCategory> parent(pCategory->GetParent());
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryDeleting, pCategory));
    if (!CheckOutCategory(*pCategory))
        return false;
    const std::vector<CRef<CCorvaneRecord>> records(pCategory->GetRecords().rbegin(),
                                                    pCategory->GetRecords().rend());
    for (const CRef<CCorvaneRecord>& record : records)
        static_cast<void>(MoveRecord(parent.Get(), *record, false));
    const std::vector<CRef<CCorvaneCategory>> children(pCategory->GetChildren().rbegin(),
                                                       pCategory->GetChildren().rend());
    for (const CRef<CCorvaneCategory>& child : children)
        static_cast<void>(MoveCategory(parent.Get(), child.Get()));
    // A record whose move was refused would leave the tree with the category, which is never to delete one.
    if (!pCategory->GetRecords().empty() || !pCategory->GetChildren().empty() || !RemoveFromTree(*pCategory))
        return false;
    for (const CRef<CCorvaneRecord>& record : records)
        static_cast<void>(SaveRecord(record.Get(), false));
    for (const CRef<CCorvaneCategory>& child : children)
        static_cast<void>(SaveChildRecordsAsModified(child.Get()));
    FinishDelete(*pCategory, parent.Get());
    return true;
}

bool CCorvaneMgr::RemoveFromTree(CCorvaneCategory& category)
{
    if (CCorvaneCategory* parent = category.GetParent(); parent && !parent->RemoveChildCategory(category))
        return false;
    // A root category that was moved stands in both lists.
    if (category.m_bRoot)
    {
        category.m_bRoot = false;
        m_pRootIndex->Remove(category.GetName(), category);
        m_RootCategories.erase(
            std::find(m_RootCategories.begin(), m_RootCategories.end(), CRef<CCorvaneCategory>(&category)));
    }
    return true;
}

void CCorvaneMgr::FinishDelete(CCorvaneCategory& category, CCorvaneCategory* parent)
{
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryDeleted, &category));
    AddCategoryPoint(category, ERestoreAction::Deleted, parent);
    const bool remembered = m_Undo.IsRecording() || m_Undo.IsReplaying();
    if (!remembered && category.GetCategoryType() == 0)
        ReleaseDeletedCategory(category);
}

bool CCorvaneMgr::ReinsertCategory(CCorvaneCategory& category, CCorvaneCategory* pParent)
{
    if (category.IsAttached())
        return true;
    if (pParent && !pParent->IsAttached())
        return false;
    const CRef<CCorvaneCategory> keepAlive(&category);
    category.SetName(MakeCategoryNameUnique(pParent, category.GetName()));
    if (pParent)
        pParent->AddChildCategory(category);
    else
        AddRootCategory(category);
    // The file went with the delete. A refresh would take the category away again if it stayed missing.
    if (!category.GetFile().empty() && !m_Context.m_Files.Exists(category.GetFile()))
        static_cast<void>(SaveCategory(&category, nullptr));
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryAdded, &category));
    AddCategoryPoint(category, ERestoreAction::Inserted);
    return true;
}

void CCorvaneMgr::ReleaseDeletedCategory(CCorvaneCategory& category)
{
    // Records and categories refer to each other: emptying the records breaks that.
    for (const CRef<CCorvaneRecord>& record : category.TakeRecords())
        record->Clear();
    for (const CRef<CCorvaneCategory>& child : category.TakeChildren())
    {
        // A root category that was moved here is in the root list still.
        if (!child->m_bRoot)
            ReleaseDeletedCategory(*child);
        child->m_pParent = nullptr; // An undo entry may hold the child longer than its parent lives.
    }
}

void CCorvaneMgr::AddCategoryPoint(CCorvaneCategory& category, ERestoreAction action,
                                   CCorvaneCategory* parent)
{
    if (m_Undo.IsRecording())
        m_Undo.AddRestorePoint(std::make_unique<CCategoryRestorePoint>(category, action, parent));
}
