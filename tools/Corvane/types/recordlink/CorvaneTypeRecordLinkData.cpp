#include "recordlink/CorvaneTypeRecordLinkData.h"

#include "CorvaneMgr.h"
#include "NameCompare.h"
#include "RunState.h"
#include "zrassert.h"

#include <algorithm>

CCorvaneTypeRecordLinkData::CCorvaneTypeRecordLinkData(const SAttribDataConstruct& construct)
    : CCorvaneSchemaAttribData(construct)
{
    Listen();
    // During a load neither schemas nor categories are complete, and the events are still to come.
    if (!GetManager().GetContext().m_Run.Test(APP_LOADING))
        FillLists();
}

CCorvaneTypeRecordLinkData::CCorvaneTypeRecordLinkData(const CCorvaneTypeRecordLinkData& other)
    : CCorvaneSchemaAttribData(other), m_SchemaList(other.m_SchemaList), m_SchemaSet(other.m_SchemaSet),
      m_CategoryList(other.m_CategoryList), m_CategorySet(other.m_CategorySet)
{
    Listen();
}

CRef<CCorvaneSchemaAttribData> CCorvaneTypeRecordLinkData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeRecordLinkData(*this));
}

void CCorvaneTypeRecordLinkData::Listen()
{
    m_Observer =
        GetManager().AddObserver([this](const CCorvaneEvent& event) { return OnManagerEvent(event); });
}

int CCorvaneTypeRecordLinkData::OnManagerEvent(const CCorvaneEvent& event)
{
    switch (event.GetCode())
    {
    case ECorvaneEvent::SchemasLoadEnd:
    // A refresh adds new schemas before it comes to the categories, and may have read the schema of a
    // category anew by its end.
    case ECorvaneEvent::CategoriesLoadBegin:
    case ECorvaneEvent::ReloadEnd:
        FillLists();
        break;
    case ECorvaneEvent::CategoryAdded:
        if (event.GetCategory())
            AddTree(*event.GetCategory());
        break;
    case ECorvaneEvent::CategoryDeleted:
        if (event.GetCategory() && !m_CategoryList.empty())
            RemoveTree(*event.GetCategory());
        break;
    case ECorvaneEvent::CloseBegin:
        Clear();
        break;
    default:
        break;
    }
    return 0;
}

void CCorvaneTypeRecordLinkData::Clear()
{
    m_SchemaList.clear();
    m_SchemaSet.clear();
    m_CategoryList.clear();
    m_CategorySet.clear();
}

void CCorvaneTypeRecordLinkData::FillLists()
{
    Clear();
    ParseData();
    if (!m_SchemaList.empty())
        GetManager().EnumerateCategories([this](CCorvaneCategory& category) { AddCategory(&category); });
}

void CCorvaneTypeRecordLinkData::ParseDataToken(std::u16string_view token)
{
    constexpr std::u16string_view kPublic = u"public ";
    constexpr std::u16string_view kPrivate = u"private ";
    const bool isPrivate = BeginsWithName(token, kPrivate);
    if (isPrivate)
        token.remove_prefix(kPrivate.size());
    else if (BeginsWithName(token, kPublic))
        token.remove_prefix(kPublic.size());
    CCorvaneSchema* schema = token.empty() ? nullptr : GetManager().FindSchema(token);
    if (schema == nullptr)
        return;
    AllowSchema(*schema);
    for (const CRef<CCorvaneSchema>& other : GetManager().GetSchemas())
    {
        if (!isPrivate && other->IsDerivedFrom(*schema))
            AllowSchema(*other);
    }
}

void CCorvaneTypeRecordLinkData::AllowSchema(CCorvaneSchema& schema)
{
    if (m_SchemaSet.insert(&schema).second)
        m_SchemaList.push_back(&schema);
}

bool CCorvaneTypeRecordLinkData::AddCategory(CCorvaneCategory* pCategory)
{
    ZRASSERT(pCategory);
    if (pCategory == nullptr || pCategory->GetSchema() == nullptr || !IsAllowed(*pCategory->GetSchema()))
        return false;
    if (!m_CategorySet.insert(pCategory).second)
        return false;
    m_CategoryList.push_back(pCategory);
    return true;
}

bool CCorvaneTypeRecordLinkData::RemoveCategory(CCorvaneCategory* pCategory)
{
    ZRASSERT(pCategory);
    if (pCategory == nullptr || m_CategorySet.erase(pCategory) == 0)
        return false;
    m_CategoryList.erase(std::find(m_CategoryList.begin(), m_CategoryList.end(), pCategory));
    return true;
}

void CCorvaneTypeRecordLinkData::AddTree(CCorvaneCategory& category)
{
    AddCategory(&category);
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
        AddTree(*child);
}

void CCorvaneTypeRecordLinkData::RemoveTree(CCorvaneCategory& category)
{
    RemoveCategory(&category);
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
        RemoveTree(*child);
}
