// Virtual relative categories: groups of records in the tree that no directory stands for. They exist because
// records name them.
#include "CorvaneMgr.h"

#include "zrassert.h"

#include <algorithm>

namespace
{
// How deep an offset may go. The walks over the tree recurse, so that a hostile offset must not decide how
// deep.
constexpr int kMaxDepth = 256;
} // namespace

CCorvaneCategory* CCorvaneMgr::CreateVirtualRelativeCategory(CCorvaneCategory* pParent,
                                                             std::u16string_view name)
{
    ZRASSERT(pParent);
    if (pParent == nullptr)
        return nullptr;
    const CRef<CCorvaneCategory> category(new CCorvaneCategory(*this, MakeCategoryNameUnique(pParent, name),
                                                               pParent->GetHelp(), pParent->GetComment(),
                                                               pParent->GetSchema(), pParent, 0));
    pParent->AddChildCategory(*category);
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryAdded, category.Get()));
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryComplete, category.Get()));
    return category.Get();
}

bool CCorvaneMgr::GetVirtualRelativeCategoryOffset(const CCorvaneRecord* pRecord, std::u16string& out) const
{
    ZRASSERT(pRecord);
    out.clear();
    if (pRecord == nullptr)
        return false;
    for (const CCorvaneCategory* category = pRecord->GetCategory();
         category != nullptr && !category->IsSystem(); category = category->GetParent())
    {
        if (!out.empty())
            out.insert(0, 1, u'/');
        out.insert(0, category->GetName());
    }
    return true;
}

CCorvaneCategory* CCorvaneMgr::GetVirtualRelativeCategory(CCorvaneCategory* pParent,
                                                          std::u16string_view offset)
{
    ZRASSERT(pParent);
    if (pParent == nullptr)
        return nullptr;
    if (!pParent->IsSystem())
    {
        ZRASSERT_SITE("pParent->TestFlag(CATEGORY_FLAG_SYSTEM)", "");
        return nullptr;
    }
    std::u16string path(offset);
    std::replace(path.begin(), path.end(), u'\\', u'/');
    CCorvaneCategory* current = pParent;
    std::u16string_view rest = path;
    for (int depth = 0; !rest.empty() && depth < kMaxDepth; ++depth)
    {
        const std::size_t slash = rest.find(u'/');
        const std::u16string_view name = rest.substr(0, slash);
        rest = slash == std::u16string_view::npos ? std::u16string_view() : rest.substr(slash + 1);
        CCorvaneCategory* pVirtualRelativeCategory = current->FindVirtualChild(name);
        if (pVirtualRelativeCategory == nullptr)
            pVirtualRelativeCategory = CreateVirtualRelativeCategory(current, name);
        current = pVirtualRelativeCategory;
    }
    return current;
}

CCorvaneCategory* CCorvaneMgr::GetSystemCategory(CCorvaneCategory* category) const
{
    while (category != nullptr && !category->IsSystem())
        category = category->GetParent();
    return category;
}

bool CCorvaneMgr::MoveRecordVirtual(CCorvaneCategory* pDest, CCorvaneRecord* pRecord, bool silent)
{
    ZRASSERT(pDest);
    ZRASSERT(pRecord);
    if (pDest == nullptr || pRecord == nullptr)
        return false;
    const CRef<CCorvaneCategory> source(pRecord->GetCategory());
    if (GetSystemCategory(source.Get()) != GetSystemCategory(pDest))
    {
        ZRASSERT_SITE("pSystemSrc != pSystemDest", "");
        return false;
    }
    const CRef<CCorvaneRecord> keepAlive(pRecord);
    // Ahead of the removal: a refused check-out leaves the record where it is.
    if (!source || !pRecord->SetCategory(pDest, silent))
        return false;
    source->RemoveRecord(*pRecord);
    pDest->AddRecord(*pRecord);
    // A file that could not be written was told, and the record waits for the next save.
    static_cast<void>(SaveRecord(pRecord, silent));
    return true;
}
