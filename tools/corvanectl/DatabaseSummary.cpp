#include "DatabaseSummary.h"

#include "CorvaneMgr.h"
#include "CorvaneSchemaAttribData.h"
#include "CustomFile.h"
#include "DeferredAttributes.h"
#include "MemberStore.h"

#include <limits>
#include <map>

namespace
{
class CSummary
{
public:
    explicit CSummary(CCorvaneMgr& manager) : m_Manager(manager) {}

    [[nodiscard]] SDatabaseSummary Make();

private:
    void AddSchemas();
    void AddBuilds(CCorvaneSchemaAttribData& data);
    void AddCategories();
    void AddRecords();
    void AddCustomFiles();
    void AddFile(SFileCount& count, std::u16string_view path) const;
    static void AddFile(SFileCount& count, const SFileStamp& stamp)
    {
        ++count.m_nFiles;
        count.m_nBytes += stamp.m_nSize;
    }
    [[nodiscard]] std::size_t CountDeferred(EDeferOperation operation) const
    {
        return FindDeferredAttributes(m_Manager, operation, std::numeric_limits<std::uint32_t>::max())
            .m_Entries.size();
    }

    CCorvaneMgr& m_Manager;
    SDatabaseSummary m_Result;
    std::map<const CCorvaneSchema*, std::size_t> m_Places; // In m_Result.m_Schemas.
    std::set<std::u16string> m_StructFiles;                // Those whose builds were added.
};

SDatabaseSummary CSummary::Make()
{
    AddFile(m_Result.m_RootFile, m_Manager.GetRootFilePath());
    AddSchemas();
    AddCategories();
    AddRecords();
    AddCustomFiles();
    m_Result.m_nDeprecated = CountDeferred(EDeferOperation::Deprecated);
    m_Result.m_nDeleted = CountDeferred(EDeferOperation::Deleted);
    return std::move(m_Result);
}

void CSummary::AddSchemas()
{
    for (const CRef<CCorvaneSchema>& schema : m_Manager.GetSchemas())
    {
        m_Places[schema.Get()] = m_Result.m_Schemas.size();
        SSchemaSummary& summary = m_Result.m_Schemas.emplace_back();
        summary.m_sName = schema->GetName();
        summary.m_sParent = schema->GetParentName();
        summary.m_sFile = schema->GetFile();
        summary.m_nEntries = schema->GetAttribDataList().size();
        summary.m_nAttributes = schema->GetTemplate()->GetAttributeList().size();
        for (const CRef<CCorvaneSchemaAttribData>& data : schema->GetAttribDataList())
        {
            summary.m_Builds.insert(data->GetBuild());
            AddBuilds(*data);
        }
        m_Result.m_nEntries += summary.m_nEntries;
        AddFile(m_Result.m_SchemaFiles, schema->GetFileStamp());
    }
}

void CSummary::AddBuilds(CCorvaneSchemaAttribData& data)
{
    m_Result.m_Builds.insert(data.GetBuild());
    const IMemberStore* members = data.GetMemberStore();
    if (members == nullptr || !m_StructFiles.insert(members->GetFile()).second)
        return;
    for (std::size_t i = 0; i < members->GetMemberCount(); ++i)
        AddBuilds(members->GetMemberData(i));
}

void CSummary::AddCategories()
{
    m_Manager.EnumerateCategories(
        [this](CCorvaneCategory& category)
        {
            if (!category.IsSystem())
                ++m_Result.m_nVirtualCategories;
            else if (category.GetCategoryType() == 0)
            {
                ++m_Result.m_nSystemCategories;
                AddFile(m_Result.m_CategoryFiles, category.GetFileStamp());
            }
        });
}

void CSummary::AddRecords()
{
    m_Manager.EnumerateRecords(
        [this](CCorvaneRecord& record)
        {
            ++m_Result.m_nRecords;
            m_Result.m_nInheriting += record.GetParent() ? 1 : 0;
            m_Result.m_nAttributes += record.GetAttributeList().size();
            AddFile(m_Result.m_RecordFiles, record.GetFileStamp());
            if (const auto place = m_Places.find(record.GetSchema()); place != m_Places.end())
                ++m_Result.m_Schemas[place->second].m_nRecords;
            return true;
        });
}

void CSummary::AddCustomFiles()
{
    m_Manager.EnumerateCustomFiles(
        [this](ICorvaneCustomFile& file)
        {
            std::u16string path;
            file.GetFilePath(path);
            AddFile(m_Result.m_CustomFiles, path);
        });
}

void CSummary::AddFile(SFileCount& count, std::u16string_view path) const
{
    SFileInfo info;
    if (m_Manager.GetContext().m_Files.GetInfo(path, info).IsOk() && info.m_bExists)
        AddFile(count, info.m_Stamp);
}
} // namespace

SDatabaseSummary SummarizeDatabase(CCorvaneMgr& manager)
{
    return CSummary(manager).Make();
}
