#include "DeferredAttributes.h"

#include "CorvaneMgr.h"
#include "CorvaneType.h"
#include "MemberStore.h"
#include "NameCompare.h"

#include <unordered_set>

namespace
{
// Every attribute of the record, then what its values consist of.
void VisitAttributes(CCorvaneRecord& record, const std::function<void(CCorvaneAttrib&)>& visit)
{
    for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
    {
        visit(*attrib);
        static_cast<void>(attrib->EnumerateChildren(
            [&visit](CCorvaneAttrib& child)
            {
                visit(child);
                return true;
            }));
    }
}

class CDeferredSearch
{
public:
    CDeferredSearch(CCorvaneMgr& manager, EDeferOperation operation, std::uint32_t build)
        : m_Manager(manager), m_Operation(operation), m_nBuild(build)
    {
    }

    SDeferredAttributes Run();

private:
    [[nodiscard]] bool IsDue(const CCorvaneSchemaAttribData& data,
                             const CCorvaneSchemaAttribData* before) const;
    void SearchSchema(CCorvaneSchema& schema);
    void SearchStruct(CCorvaneSchemaAttribData& structData);
    void AddEntry(SDeferredEntry entry);
    void AddUse(CCorvaneRecord& record, CCorvaneAttrib& attrib);

    CCorvaneMgr& m_Manager;
    EDeferOperation m_Operation;
    std::uint32_t m_nBuild;
    SDeferredAttributes m_Result;
    std::unordered_map<const CCorvaneSchemaAttribData*, std::size_t> m_ByData;
    // Struct files that were searched; several attributes may use one.
    std::unordered_set<std::u16string, CNameHash, CNameEqual> m_Files;
};

SDeferredAttributes CDeferredSearch::Run()
{
    for (const CRef<CCorvaneSchema>& schema : m_Manager.GetSchemas())
        SearchSchema(*schema);
    for (const CRef<CCorvaneSchema>& schema : m_Manager.GetSchemas())
    {
        for (const CRef<CCorvaneSchemaAttribData>& data : schema->GetAttribDataList())
            SearchStruct(*data);
    }
    if (!m_ByData.empty())
        m_Manager.EnumerateRecords(
            [this](CCorvaneRecord& record)
            {
                VisitAttributes(record, [&](CCorvaneAttrib& attrib) { AddUse(record, attrib); });
                return true;
            });
    return std::move(m_Result);
}

bool CDeferredSearch::IsDue(const CCorvaneSchemaAttribData& data,
                            const CCorvaneSchemaAttribData* before) const
{
    if (data.TestFlag(ATTRIB_FLAG_DELETED))
        return m_Operation == EDeferOperation::Deleted && data.GetBuild() <= m_nBuild;
    if (before == nullptr || before->GetBuild() > m_nBuild || !EqualNames(before->GetName(), data.GetName()))
        return false;
    return before->TestFlag(ATTRIB_FLAG_DELETED) == (m_Operation == EDeferOperation::Deleted);
}

void CDeferredSearch::SearchSchema(CCorvaneSchema& schema)
{
    // The template tells the entry before also where an ancestor declares it.
    const auto list = schema.GetTemplate()->GetAttributeList();
    std::size_t index = 0;
    for (std::size_t i = schema.GetFirstOwnAttribute(); i < list.size(); ++i)
    {
        const CRef<CCorvaneSchemaAttribData> data(list[i]->GetAttribData());
        if (data->GetBuild() != list[i]->GetBuild())
            continue; // Left over from a deferral that was refused; not in the schema's list.
        if (IsDue(*data, i > 0 ? list[i - 1]->GetAttribData() : nullptr))
        {
            const std::u16string type(static_cast<const CCorvaneType&>(*list[i]).GetTypeName());
            AddEntry({CRef<CCorvaneSchema>(&schema), nullptr, schema.GetName(), index, data, type});
        }
        ++index;
    }
}

void CDeferredSearch::SearchStruct(CCorvaneSchemaAttribData& structData)
{
    const IMemberStore* store = structData.GetMemberStore();
    if (store == nullptr || !m_Files.insert(store->GetFile()).second)
        return;
    for (std::size_t i = 0; i < store->GetMemberCount(); ++i)
    {
        const CRef<CCorvaneSchemaAttribData> data(&store->GetMemberData(i));
        if (IsDue(*data, i > 0 ? &store->GetMemberData(i - 1) : nullptr))
            AddEntry({nullptr, CRef<CCorvaneSchemaAttribData>(&structData), store->GetFile(), i, data, {}});
    }
    for (std::size_t i = 0; i < store->GetMemberCount(); ++i)
        SearchStruct(store->GetMemberData(i));
}

void CDeferredSearch::AddEntry(SDeferredEntry entry)
{
    m_ByData[entry.m_pData.Get()] = m_Result.m_Entries.size();
    m_Result.m_Entries.push_back(std::move(entry));
}

void CDeferredSearch::AddUse(CCorvaneRecord& record, CCorvaneAttrib& attrib)
{
    const auto found = m_ByData.find(attrib.GetAttribData());
    if (found == m_ByData.end())
        return;
    SDeferredEntry& entry = m_Result.m_Entries[found->second];
    if (entry.m_sType.empty())
        entry.m_sType = static_cast<const CCorvaneType&>(attrib).GetTypeName();
    if (entry.m_pData->TestFlag(ATTRIB_FLAG_DELETED))
        return;
    entry.m_bModified = entry.m_bModified || m_Manager.IsAttributeModifiedForBuild(&attrib, m_nBuild);
    m_Result.m_Uses.push_back({CRef<CCorvaneRecord>(&record), CRef<CCorvaneAttrib>(&attrib), found->second});
}
} // namespace

SDeferredAttributes FindDeferredAttributes(CCorvaneMgr& manager, EDeferOperation operation,
                                           std::uint32_t build)
{
    return CDeferredSearch(manager, operation, build).Run();
}

std::vector<SModifiedAttribute> FindModifiedAttributes(CCorvaneMgr& manager, std::uint32_t build)
{
    std::vector<SModifiedAttribute> found;
    manager.EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            VisitAttributes(
                record,
                [&](CCorvaneAttrib& attrib)
                {
                    if (attrib.IsModified() && manager.IsAttributeModifiedForBuild(&attrib, build))
                        found.push_back({CRef<CCorvaneRecord>(&record), CRef<CCorvaneAttrib>(&attrib)});
                });
            return true;
        });
    return found;
}
