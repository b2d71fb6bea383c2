#include "TreeDestination.h"

#include "CorvaneCategory.h"
#include "CorvaneRecord.h"
#include "TreeItem.h"

namespace
{
const CCorvaneCategory* GetRealCategory(const CCorvaneCategory* category)
{
    while (category != nullptr && !category->IsSystem())
        category = category->GetParent();
    return category;
}

bool IsBelow(const CCorvaneCategory* category, const CCorvaneCategory& top)
{
    while (category != nullptr && category != &top)
        category = category->GetParent();
    return category != nullptr;
}
} // namespace

bool IsDestinationValid(const CCorvaneRecord* pRecordSrc, const CCorvaneCategory* pCategoryDest, bool cut)
{
    if (pRecordSrc == nullptr || pCategoryDest == nullptr)
        return false;
    const CCorvaneCategory* source = GetRealCategory(pRecordSrc->GetCategory());
    const CCorvaneCategory* dest = GetRealCategory(pCategoryDest);
    if (source == nullptr || dest == nullptr)
        return false;
    if (source != dest)
        return source->GetSchema() == dest->GetSchema();
    return !cut || pRecordSrc->GetCategory() != pCategoryDest;
}

bool IsDestinationValid(const CCorvaneCategory* pCategorySrc, const CCorvaneCategory* pCategoryDest, bool cut)
{
    if (pCategorySrc == nullptr || pCategoryDest == nullptr)
        return false;
    if (pCategorySrc->IsSystem())
        return pCategoryDest->IsSystem();
    if (IsBelow(pCategoryDest, *pCategorySrc) ||
        GetRealCategory(pCategorySrc) != GetRealCategory(pCategoryDest))
        return false;
    return !cut || pCategorySrc->GetParent() != pCategoryDest;
}

bool IsDestinationValid(const CTreeItem& source, const CCorvaneCategory* pCategoryDest, bool cut)
{
    return source.IsRecord() ? IsDestinationValid(source.GetRecord(), pCategoryDest, cut)
                             : IsDestinationValid(source.GetCategory(), pCategoryDest, cut);
}
