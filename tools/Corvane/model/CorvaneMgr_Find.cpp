// Look-ups by name, path and file. Each answers as a scan in list order would; the indexes only make it fast.
#include "CorvaneMgr.h"

#include "CategoryNames.h"
#include "CorvaneAttrib.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "NumberedNames.h"
#include "Path.h"
#include "PointerIndex.h"
#include "zrassert.h"

#include <utility>

namespace
{
// Depth first, parents before children.
CCorvaneCategory* ScanByFile(std::span<const CRef<CCorvaneCategory>> categories, std::u16string_view file)
{
    for (const CRef<CCorvaneCategory>& category : categories)
    {
        if (EqualNames(category->GetFile(), file))
            return category.Get();
        if (CCorvaneCategory* found = ScanByFile(category->GetChildren(), file))
            return found;
    }
    return nullptr;
}

void PrependName(std::u16string& path, std::u16string_view name)
{
    if (!path.empty())
        path.insert(0, 1, u'/');
    path.insert(0, name);
}

void PrependCategories(const CCorvaneCategory* category, bool systemOnly, std::u16string& path)
{
    for (; category != nullptr; category = category->GetParent())
    {
        if (!systemOnly || category->IsSystem())
            PrependName(path, category->GetName());
    }
}
} // namespace

CCorvaneSchema* CCorvaneMgr::FindSchema(std::u16string_view name) const
{
    bool ambiguous = false;
    CCorvaneSchema* found = m_pSchemaNames->FindOnly(HashName(name), ambiguous,
                                                     [&](const CCorvaneSchema& schema)
                                                     { return EqualNames(schema.GetName(), name); });
    for (std::size_t i = 0; ambiguous && found == nullptr; ++i)
    {
        if (EqualNames(m_Schemas[i]->GetName(), name))
            found = m_Schemas[i].Get();
    }
    return found;
}

CCorvaneCategory* CCorvaneMgr::FindCategoryByFile(std::u16string_view path) const
{
    const std::u16string file = std::u16string(GetDirectoryPart(path)) + u"cvd.category";
    bool ambiguous = false;
    CCorvaneCategory* found =
        m_pCategoryFiles->FindOnly(HashName(file), ambiguous,
                                   [&](const CCorvaneCategory& category)
                                   { return EqualNames(category.GetFile(), file) && category.IsAttached(); });
    return ambiguous ? ScanByFile(m_RootCategories, file) : found;
}

CCorvaneCategory* CCorvaneMgr::GetCategoryForRecord(const CCorvaneRecord* pRecord) const
{
    ZRASSERT(pRecord);
    if (pRecord == nullptr)
        return nullptr;
    return pRecord->GetFile().empty() ? pRecord->GetCategory() : FindCategoryByFile(pRecord->GetFile());
}

CCorvaneCategory* CCorvaneMgr::FindCategory(std::u16string_view path, CCorvaneCategory* category) const
{
    while (true)
    {
        const std::size_t slash = path.find(u'/');
        const std::u16string_view name = path.substr(0, slash);
        category = category ? category->FindChild(name) : FindRootCategory(name);
        if (category == nullptr || slash == std::u16string_view::npos)
            return category;
        path = path.substr(slash + 1);
    }
}

CCorvaneCategory* CCorvaneMgr::FindRootCategory(std::u16string_view name) const
{
    bool ambiguous = false;
    CCorvaneCategory* found = m_pRootIndex->FindOnly(name, ambiguous);
    for (std::size_t i = 0; ambiguous && found == nullptr; ++i)
    {
        if (EqualNames(m_RootCategories[i]->GetName(), name))
            found = m_RootCategories[i].Get();
    }
    return found;
}

CCorvaneRecord* CCorvaneMgr::FindRecord(std::u16string_view path, CCorvaneCategory* category) const
{
    const std::size_t slash = path.rfind(u'/');
    if (slash == std::u16string_view::npos)
        return category ? category->FindRecordInNamespace(path) : nullptr;
    category = FindCategory(path.substr(0, slash), category);
    return category ? category->FindRecordInNamespace(path.substr(slash + 1)) : nullptr;
}

CCorvaneRecord* CCorvaneMgr::FindRecordByFile(std::u16string_view path) const
{
    const CCorvaneCategory* category = FindCategoryByFile(path);
    return category ? category->FindRecordByFile(path) : nullptr;
}

bool CCorvaneMgr::GetRecordPath(const CCorvaneRecord* record, std::u16string& out) const
{
    out = record ? record->GetName() : std::u16string(u"<Invalid Record>");
    if (record)
        PrependCategories(record->GetCategory(), true, out);
    return record != nullptr;
}

bool CCorvaneMgr::GetRecordDisplayPath(const CCorvaneRecord* record, std::u16string& out) const
{
    out = record ? record->GetName() : std::u16string(u"<Invalid Record>");
    if (record)
        PrependCategories(record->GetCategory(), false, out);
    return record != nullptr;
}

bool CCorvaneMgr::GetCategoryPath(const CCorvaneCategory* category, std::u16string& out) const
{
    out.clear();
    if (category)
        PrependCategories(category, false, out);
    else
        out = u"<Invalid Category>";
    return category != nullptr;
}

bool CCorvaneMgr::IsCategoryNameFree(const CCorvaneCategory* parent, std::u16string_view name) const
{
    return (parent ? parent->FindChild(name) : FindRootCategory(name)) == nullptr;
}

bool CCorvaneMgr::IsRecordNameFree(const CCorvaneCategory& category, std::u16string_view name,
                                   const CCorvaneRecord* except) const
{
    return !category.HasOtherInNamespace(name, except);
}

std::u16string CCorvaneMgr::MakeCategoryNameUnique(const CCorvaneCategory* parent,
                                                   std::u16string_view name) const
{
    return parent ? parent->MakeChildNameUnique(name) : m_pRootIndex->MakeUnique(name);
}

std::u16string CCorvaneMgr::MakeRecordNameUnique(const CCorvaneCategory& category, std::u16string_view name,
                                                 const CCorvaneRecord* except) const
{
    if (IsRecordNameFree(category, name, except))
        return std::u16string(name);
    const int number = category.FindFreeNumberInNamespace(name);
    // The index knows no exception: the one name that it frees may come earlier in the row.
    const int own = except ? CNumberedNames::GetNumber(except->GetName(), name) : 0;
    if (own != 0 && own < number && IsRecordNameFree(category, except->GetName(), except))
        return MakeNumberedName(name, own);
    return MakeNumberedName(name, number);
}

namespace
{
// The entry of the list that stands for the same attribute and build as `wanted`, else the first with its
// GUID: a deferred entry keeps the GUID of the older one, whose values are other ones. Attributes of one
// schema stand at the same index in every record, so that the search begins there.
CCorvaneAttrib* FindByGuid(std::span<const CRef<CCorvaneAttrib>> list, const CCorvaneAttrib& wanted)
{
    const std::ptrdiff_t hint = wanted.GetIndexInRecord();
    if (hint >= 0 && static_cast<std::size_t>(hint) < list.size() &&
        list[static_cast<std::size_t>(hint)]->IsSameAttribute(wanted))
        return list[static_cast<std::size_t>(hint)].Get();
    const CGuid guid = wanted.GetGuid();
    CCorvaneAttrib* first = nullptr;
    for (const CRef<CCorvaneAttrib>& attrib : list)
    {
        if (attrib->GetGuid() != guid)
            continue;
        if (attrib->GetBuild() == wanted.GetBuild())
            return attrib.Get();
        if (first == nullptr)
            first = attrib.Get();
    }
    return first;
}
} // namespace

bool CCorvaneMgr::FindSymmetricAttribute(const CCorvaneRecord* pRecordFrom, const CCorvaneAttrib* pAttribFrom,
                                         const CCorvaneRecord* pRecordTo, CCorvaneAttrib*& out) const
{
    ZRASSERT(pRecordFrom);
    ZRASSERT(pAttribFrom);
    ZRASSERT(pRecordTo);
    if (pRecordFrom == nullptr || pAttribFrom == nullptr || pRecordTo == nullptr)
        return false;

    std::vector<const CCorvaneAttrib*> path;
    const CCorvaneAttrib* attrib = pAttribFrom;
    for (const CCorvaneAttrib* parent = attrib->GetParentAttrib(); parent != nullptr;
         parent = parent->GetParentAttrib())
    {
        std::ptrdiff_t idxValue = -1;
        const std::ptrdiff_t idxAttrib = parent->FindChildAttribute(*attrib, idxValue);
        ZRASSERT(idxValue != -1);
        ZRASSERT(idxAttrib != -1);
        if (idxValue == -1 || idxAttrib == -1)
            return false;
        path.push_back(attrib);
        attrib = parent;
    }
    CCorvaneAttrib* found = FindByGuid(pRecordTo->GetAttributeList(), *attrib);
    for (auto step = path.rbegin(); found != nullptr && step != path.rend(); ++step)
        found = (*step)->GetParentAttrib()->FindChildIn(**step, *found);
    if (found == nullptr)
        return false;
    out = found;
    return true;
}
