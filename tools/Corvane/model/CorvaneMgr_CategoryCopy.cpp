// Copies of categories with all that is in them.
#include "CorvaneMgr.h"

#include "UndoRecorder.h"
#include "zrassert.h"

CCorvaneCategory* CCorvaneMgr::CopyCategory_Clone(CCorvaneCategory* pParent, CCorvaneCategory* pSource,
                                                  bool addPrefix)
{
    return CopyCategory(pParent, pSource, addPrefix ? u"Clone of " : u"", ERestoreAction::Cloned);
}

CCorvaneCategory* CCorvaneMgr::CopyCategory_Reference(CCorvaneCategory* pParent, CCorvaneCategory* pSource,
                                                      bool addPrefix)
{
    return CopyCategory(pParent, pSource, addPrefix ? u"Reference of " : u"", ERestoreAction::Referenced);
}

CCorvaneCategory* CCorvaneMgr::CopyCategory(CCorvaneCategory* pParent, CCorvaneCategory* pSource,
                                            std::u16string_view prefix, ERestoreAction kind)
{
    ZRASSERT(pParent);
    ZRASSERT(pSource);
    if (pParent == nullptr || pSource == nullptr || !MayCopyCategory(*pParent, *pSource))
        return nullptr;
    const CRef<CCorvaneCategory> copy = pSource->Clone();
    copy->m_pParent = pParent;
    copy->SetComment({});
    copy->SetName(MakeCopyName(*pParent, std::u16string(prefix) + pSource->GetName(), *pSource, kind));
    // Ahead of the points of its contents: an undo then empties the category before it goes, and a redo
    // brings it back before them.
    AddCategoryPoint(*copy, kind);
    // Copies of the lists, since the new category may become a child of its source.
    const std::vector<CRef<CCorvaneCategory>> children(pSource->GetChildren().begin(),
                                                       pSource->GetChildren().end());
    const std::vector<CRef<CCorvaneRecord>> records(pSource->GetRecords().begin(),
                                                    pSource->GetRecords().end());
    for (const CRef<CCorvaneCategory>& child : children)
        CopyCategory(copy.Get(), child.Get(), {}, kind);
    pParent->AddChildCategory(*copy);
    for (const CRef<CCorvaneRecord>& record : records)
    {
        if (kind == ERestoreAction::Cloned)
            CopyRecord_Clone(copy.Get(), record.Get(), false);
        else
            CopyRecord_Reference(copy.Get(), record.Get(), false);
    }
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryAdded, copy.Get()));
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryComplete, copy.Get()));
    return copy.Get();
}

// The records of a virtual category lie in the directory of its system category, and the next load would
// leave them out there when the schemas differ. No directory can lie in a virtual category. A special
// category has no copies.
bool CCorvaneMgr::MayCopyCategory(const CCorvaneCategory& parent, const CCorvaneCategory& source) const
{
    return source.GetCategoryType() == 0 &&
           (source.IsSystem() ? parent.IsSystem() : source.GetSchema() == parent.GetSchema());
}

// A reference's name is held against the records of the parent only, so that it may be that of a sibling.
std::u16string CCorvaneMgr::MakeCopyName(const CCorvaneCategory& parent, std::u16string_view name,
                                         const CCorvaneCategory& source, ERestoreAction kind) const
{
    if (kind == ERestoreAction::Referenced)
        return MakeRecordNameUnique(parent, name, nullptr);
    return source.IsSystem() ? MakeDirectoryNameUnique(&parent, name) : MakeCategoryNameUnique(&parent, name);
}
