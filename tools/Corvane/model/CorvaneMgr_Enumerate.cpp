#include "CorvaneMgr.h"

#include "CustomFile.h"
#include "zrassert.h"

namespace
{
void VisitCategories(std::span<const CRef<CCorvaneCategory>> categories,
                     const std::function<void(CCorvaneCategory&)>& fn)
{
    for (const CRef<CCorvaneCategory>& category : categories)
    {
        fn(*category);
        VisitCategories(category->GetChildren(), fn);
    }
}

bool VisitRecords(std::span<const CRef<CCorvaneCategory>> categories,
                  const std::function<bool(CCorvaneRecord&)>& fn)
{
    for (const CRef<CCorvaneCategory>& category : categories)
    {
        for (const CRef<CCorvaneRecord>& record : category->GetRecords())
        {
            if (!fn(*record))
                return false;
        }
        if (!VisitRecords(category->GetChildren(), fn))
            return false;
    }
    return true;
}
} // namespace

void CCorvaneMgr::EnumerateCategories(const std::function<void(CCorvaneCategory&)>& fn) const
{
    VisitCategories(m_RootCategories, fn);
}

bool CCorvaneMgr::EnumerateRecords(const std::function<bool(CCorvaneRecord&)>& fn) const
{
    return VisitRecords(m_RootCategories, fn);
}

bool CCorvaneMgr::EnumerateSchemas(const std::function<bool(CCorvaneSchema&)>& fn) const
{
    for (const CRef<CCorvaneSchema>& schema : m_Schemas)
    {
        if (!fn(*schema))
            return false;
    }
    return true;
}

void CCorvaneMgr::EnumerateCustomFiles(const std::function<void(ICorvaneCustomFile&)>& pfnCallback)
{
    ZRASSERT(pfnCallback);
    if (pfnCallback)
        Notify(CCorvaneEvent(ECorvaneEvent::EnumerateCustomFiles, SEnumerateCustomFiles{&pfnCallback}));
}
