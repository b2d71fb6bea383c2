#include "TreeItem.h"

#include "CorvaneCategory.h"
#include "CorvaneRecord.h"
#include "NameCompare.h"

CTreeItem::CTreeItem(CCorvaneCategory& category) : m_Kind(EKind::Category), m_pObject(&category) {}

CTreeItem::CTreeItem(CCorvaneRecord& record) : m_Kind(EKind::Record), m_pObject(&record) {}

CTreeItem CTreeItem::MakeRoot()
{
    CTreeItem item;
    item.m_Kind = EKind::Root;
    return item;
}

CCorvaneCategory* CTreeItem::GetCategory() const
{
    return IsCategory() ? static_cast<CCorvaneCategory*>(m_pObject.Get()) : nullptr;
}

CCorvaneRecord* CTreeItem::GetRecord() const
{
    return IsRecord() ? static_cast<CCorvaneRecord*>(m_pObject.Get()) : nullptr;
}

const std::u16string& CTreeItem::GetName() const
{
    static const std::u16string sNone;
    if (const CCorvaneRecord* record = GetRecord())
        return record->GetName();
    const CCorvaneCategory* category = GetCategory();
    return category ? category->GetName() : sNone;
}

const std::u16string& CTreeItem::GetFile() const
{
    static const std::u16string sNone;
    if (const CCorvaneRecord* record = GetRecord())
        return record->GetFile();
    const CCorvaneCategory* category = GetCategory();
    return category ? category->GetFile() : sNone;
}

CCorvaneCategory* CTreeItem::GetParent() const
{
    if (const CCorvaneRecord* record = GetRecord())
        return record->GetCategory();
    const CCorvaneCategory* category = GetCategory();
    return category ? category->GetParent() : nullptr;
}

CCorvaneCategory* CTreeItem::GetDestination() const
{
    return IsRecord() ? GetRecord()->GetCategory() : GetCategory();
}

bool CTreeItem::IsInTree() const
{
    if (const CCorvaneRecord* record = GetRecord())
        return record->IsInTree();
    return IsRoot() || (IsCategory() && GetCategory()->IsAttached());
}

bool CTreeItem::IsSpecial() const
{
    const CCorvaneCategory* category = GetDestination();
    if (category != nullptr && category->GetCategoryType() != 0)
        return true;
    return IsRecord() && GetRecord()->TestFlag(RECORD_FLAG_COMPARE_TARGET | RECORD_FLAG_COMPARE);
}

bool IsTreeOrder(const CTreeItem& a, const CTreeItem& b)
{
    if (a.IsRecord() != b.IsRecord())
        return b.IsRecord();
    return ZRStrICmp(a.GetName(), b.GetName()) < 0;
}
