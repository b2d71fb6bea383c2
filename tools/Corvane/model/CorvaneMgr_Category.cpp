// What a user does to categories: the tree, the files, the event line and the undo group are kept in step.
#include "CorvaneMgr.h"

#include "CategoryMoveRestorePoint.h"
#include "CategoryRenameRestorePoint.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "NumberedNames.h"
#include "Path.h"
#include "RunState.h"
#include "SourceGate.h"
#include "UndoRecorder.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <algorithm>
#include <memory>

namespace
{
// True when the name comes back from the disk as it went there: a system category's is that of a directory, a
// virtual one's a part of a path in its records.
bool IsNameKept(const CCorvaneCategory& category, std::u16string_view name)
{
    if (category.IsSystem())
        return MakeFileBaseName(name) == name;
    return !name.empty() &&
           std::none_of(name.begin(), name.end(),
                        [](char16_t unit) { return unit == u'/' || unit == u'\\' || unit < u' '; });
}

// Whether `category` is `top` or lies below it.
bool IsBelow(const CCorvaneCategory* category, const CCorvaneCategory& top)
{
    while (category != nullptr && category != &top)
        category = category->GetParent();
    return category != nullptr;
}

// Records that inherit from one below the category name it by its path.
void MarkReferenceesBelow(const CCorvaneCategory& category)
{
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
        record->MarkReferenceesModified();
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
        MarkReferenceesBelow(*child);
}
} // namespace

CCorvaneCategory* CCorvaneMgr::InsertCategory(CCorvaneCategory* pParent, CCorvaneSchema* pSchema)
{
    if (pParent && !pParent->IsSystem())
        return nullptr;
    const CRef<CCorvaneCategory> category(
        new CCorvaneCategory(*this, MakeDirectoryNameUnique(pParent, u"New Category"), {}, {}, pSchema,
                             pParent, CATEGORY_FLAG_SYSTEM));
    AddCategory(category);
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryComplete, category.Get()));
    return category.Get();
}

// A directory may hold the file of a category that is left out of the database, or that went by another name:
// the first save of a new one must not write over it.
std::u16string CCorvaneMgr::MakeDirectoryNameUnique(const CCorvaneCategory* parent,
                                                    std::u16string_view name) const
{
    const CCorvaneCategory* system = parent;
    while (system && !system->IsSystem())
        system = system->GetParent();
    const std::u16string directory(system ? GetDirectoryPart(system->GetFile()) : m_sDirectory);
    const auto isTaken = [&](const std::u16string& text)
    {
        const std::u16string path = directory + text + GetSeparator(directory) + u"cvd.category";
        return !directory.empty() && m_Context.m_Files.Exists(path);
    };
    std::u16string unique = MakeCategoryNameUnique(parent, name);
    for (int number = 2; isTaken(unique); ++number)
        unique = MakeCategoryNameUnique(parent, MakeNumberedName(name, number));
    return unique;
}

// Inside the database a virtual category stands for a key of the records below it, whose files stay in one
// directory, so that no directory can lie in it; and a destination outside the tree would take the category
// out of it.
bool CCorvaneMgr::MayMoveCategory(CCorvaneCategory* pDest, CCorvaneCategory* pCategory) const
{
    return pDest != nullptr && pCategory != nullptr && pDest->IsAttached() && !IsBelow(pDest, *pCategory) &&
           (pCategory->IsSystem() ? pDest->IsSystem()
                                  : GetSystemCategory(pDest) == GetSystemCategory(pCategory));
}

bool CCorvaneMgr::MoveCategory(CCorvaneCategory* pDest, CCorvaneCategory* pCategory)
{
    if (!MayMoveCategory(pDest, pCategory))
        return false;
    const CRef<CCorvaneCategory> keepAlive(pCategory);
    const CRef<CCorvaneCategory> source(pCategory->GetParent());
    const std::u16string formerName = pCategory->GetName();
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryMoving, pCategory));
    if (source && !source->RemoveChildCategory(*pCategory))
        return false;
    pCategory->SetName(MakeCategoryNameUnique(pDest, formerName));
    pDest->AddChildCategory(*pCategory);
    MarkRecordsOfMoved(*pCategory);
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryMoved, pCategory));
    if (m_Undo.IsRecording())
        m_Undo.AddRestorePoint(
            std::make_unique<CCategoryMoveRestorePoint>(*pCategory, source.Get(), formerName));
    return true;
}

bool CCorvaneMgr::MoveCategoryToRoot(CCorvaneCategory& category)
{
    const CRef<CCorvaneCategory> parent(category.GetParent());
    if (!category.m_bRoot || !parent)
        return false;
    const CRef<CCorvaneCategory> keepAlive(&category);
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryMoving, &category));
    if (!parent->RemoveChildCategory(category))
        return false;
    MarkRecordsOfMoved(category);
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryMoved, &category));
    return true;
}

// The files of the records below hold the path of a virtual category, and lie in the directory of a system
// category. The next save brings them all to the new directory, else the next load would find the records in
// the old one.
void CCorvaneMgr::MarkRecordsOfMoved(CCorvaneCategory& category)
{
    MarkChildRecordsAsModified(&category);
    if (category.IsSystem())
        MarkReferenceesBelow(category);
}

bool CCorvaneMgr::RenameCategory(CCorvaneCategory& category, std::u16string_view name)
{
    const CRef<CCorvaneCategory> keepAlive(&category);
    const std::u16string oldName = category.GetName();
    const std::u16string newName(name);
    if (!m_Undo.IsReplaying() && oldName != newName && !IsNameKept(category, newName))
    {
        TellRenameError(category, category.IsSystem()
                                      ? u"The name you specified cannot be the name of a directory."
                                      : u"The name you specified cannot be part of a path.");
        return false;
    }
    if (!category.IsSystem() && oldName != newName && !PrepareVirtualRename(category))
        return false;
    category.SetName(newName);
    if (category.IsSystem() && oldName != newName)
        MarkRecordsOfMoved(category);
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryRenamed, SCategoryRenamed{&category, oldName, newName}));
    if (m_Undo.IsRecording())
        m_Undo.AddRestorePoint(std::make_unique<CCategoryRenameRestorePoint>(category, oldName));
    return true;
}

bool CCorvaneMgr::PrepareVirtualRename(CCorvaneCategory& category)
{
    if (category.GetRecords().empty() && category.GetChildren().empty())
        return true;
    // An undo was asked for already.
    if (!m_Undo.IsReplaying() &&
        !AskYes(u"Virtual Category Rename",
                u"In order to rename this virtual category all child records must be modified.\n\n"
                u"Do you wish to continue with this rename operation?"))
        return false;
    if (!CheckOutCategory(category))
        return false;
    MarkChildRecordsAsModified(&category);
    return true;
}

bool CCorvaneMgr::CheckOutCategory(CCorvaneCategory& category) const
{
    return !m_Gate.IsConnected() ||
           (m_Gate.CanCategoryBeCheckedOut(category) && m_Gate.CheckOutForEdit(category));
}

bool CCorvaneMgr::CheckCategoryRename(const CCorvaneCategory& category, std::u16string_view name) const
{
    if (EqualNames(category.GetName(), name) || IsCategoryNameFree(category.GetParent(), name))
        return true;
    TellRenameError(category, u"A category with the name you specified already exists.");
    return false;
}

void CCorvaneMgr::TellRenameError(const CCorvaneCategory& category, std::u16string_view reason) const
{
    if (!m_Context.m_Run.m_bSilent)
        m_Context.m_Questions.Tell(
            u"Error renaming category",
            FormatText(u"Cannot rename %s: %s Specify a different name.", category.GetName(), reason));
}

void CCorvaneMgr::AddSpecialCategory(CRef<CCorvaneCategory> category)
{
    ZRASSERT(category && category->GetCategoryType() != 0);
    if (category)
        m_SpecialCategories.push_back(std::move(category));
}

CCorvaneCategory* CCorvaneMgr::GetSpecialCategory(int type) const
{
    const auto found = std::find_if(m_SpecialCategories.begin(), m_SpecialCategories.end(),
                                    [type](const auto& one) { return one->GetCategoryType() == type; });
    return found == m_SpecialCategories.end() ? nullptr : found->Get();
}
