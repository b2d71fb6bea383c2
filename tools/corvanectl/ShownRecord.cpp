#include "ShownRecord.h"

#include "CorvaneMgr.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "DependencySink.h"
#include "NameCompare.h"
#include "RecordSearch.h"
#include "ValueOrigins.h"

namespace
{
// The types know best what their values refer to.
class CReferences final : public IDependencySink
{
public:
    explicit CReferences(const CCorvaneMgr& manager) : m_Manager(manager) {}

    void AddDependency(std::u16string_view, std::u16string_view resource, std::u16string_view kind) override
    {
        SShownReference reference{std::u16string(kind), std::u16string(resource), std::nullopt};
        if (kind == u"Record")
        {
            const CCorvaneRecord* record = m_Manager.FindRecord(resource, nullptr);
            reference.m_sTarget = record ? GetDisplayPath(*record) : std::u16string();
        }
        m_References.push_back(std::move(reference));
    }

    std::vector<SShownReference> m_References;

private:
    const CCorvaneMgr& m_Manager;
};

class CRecordView
{
public:
    CRecordView(CCorvaneMgr& manager, std::uint32_t build)
        : m_Manager(manager), m_nBuild(build), m_Origins(manager.GetContext().m_Files)
    {
    }

    [[nodiscard]] SShownAttribute Show(CCorvaneAttrib& attrib);

private:
    void ShowOrigin(CCorvaneAttrib& attrib, SShownAttribute& shown);
    void ShowRows(const CCorvaneAttrib& attrib, SShownAttribute& shown);

    CCorvaneMgr& m_Manager;
    std::uint32_t m_nBuild;
    CValueOrigins m_Origins;
};

SShownAttribute CRecordView::Show(CCorvaneAttrib& attrib)
{
    SShownAttribute shown;
    shown.m_sName = attrib.GetName();
    if (const auto* type = dynamic_cast<const CCorvaneType*>(&attrib))
        shown.m_sType = type->GetSchemaTypeName();
    if (!attrib.GetBuildRange(shown.m_Builds))
        shown.m_Builds.m_nFirst = attrib.GetBuild();
    shown.m_bAvailable = m_Manager.IsAttributeAvailableForBuild(&attrib, m_nBuild);
    shown.m_bDeletion = attrib.GetAttribData() && attrib.GetAttribData()->TestFlag(ATTRIB_FLAG_DELETED);
    shown.m_State = GetDeferState(attrib);
    shown.m_bOverride = attrib.GetOverride();
    shown.m_bTodo = attrib.IsTodo();
    shown.m_bPlaceHolder = attrib.IsPlaceHolder();
    shown.m_bModified = attrib.IsModified();
    shown.m_sLockUser = attrib.GetLockUser();
    shown.m_sComment = attrib.GetComment();
    shown.m_bStruct = attrib.GetAttribData() && attrib.GetAttribData()->GetMemberStore();
    ShowOrigin(attrib, shown);
    return shown;
}

void CRecordView::ShowOrigin(CCorvaneAttrib& attrib, SShownAttribute& shown)
{
    const SValueOrigin origin = m_Origins.Find(attrib);
    for (const CCorvaneRecord* record : origin.m_Chain)
        shown.m_Chain.push_back(GetDisplayPath(*record));
    shown.m_bStored = origin.m_nStored > 0;
    shown.m_nOlderBuild = origin.m_nOlderBuild;
    if (shown.m_bStruct)
        return ShowRows(attrib, shown);
    for (std::size_t i = 0; i < attrib.GetValueCount(); ++i)
        shown.m_Values.push_back({std::u16string(attrib.GetValue(i)), i >= origin.m_nStored});
    CReferences references(m_Manager);
    // A refusal comes from an attribute without a record, and this one has one.
    static_cast<void>(attrib.SaveToDependency(references, m_nBuild));
    shown.m_References = std::move(references.m_References);
}

void CRecordView::ShowRows(const CCorvaneAttrib& attrib, SShownAttribute& shown)
{
    for (std::size_t row = 0; row < attrib.GetValueCount(); ++row)
    {
        std::vector<SShownAttribute>& members = shown.m_Rows.emplace_back();
        for (std::size_t i = 0; CCorvaneAttrib* member = attrib.GetChildAttributeAt(row, i); ++i)
            members.push_back(Show(*member));
    }
}
} // namespace

SShownRecord ShowRecord(CCorvaneRecord& record, std::uint32_t build, std::u16string_view attribute)
{
    CCorvaneMgr& manager = record.GetManager();
    SShownRecord shown;
    shown.m_sPath = GetDisplayPath(record);
    manager.GetRecordPath(&record, shown.m_sRecordPath);
    shown.m_sFile = record.GetFile();
    shown.m_sSchema = record.GetSchema() ? record.GetSchema()->GetName() : std::u16string();
    shown.m_sComment = record.GetComment();
    shown.m_nBuild = build;
    for (const CCorvaneRecord* parent = record.GetParent(); parent; parent = parent->GetParent())
        shown.m_Referencers.push_back(GetDisplayPath(*parent));
    for (const CRef<CCorvaneRecord>& child : record.GetReferencees())
        shown.m_Referencees.push_back(GetDisplayPath(*child));
    CRecordView view(manager, build);
    for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
    {
        if (attribute.empty() || EqualNames(attrib->GetName(), attribute))
            shown.m_Attributes.push_back(view.Show(*attrib));
    }
    return shown;
}
