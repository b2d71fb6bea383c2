#include "recordlink/CorvaneTypeRecordLink.h"

#include "CorvaneMgr.h"
#include "FormatText.h"
#include "SourceGate.h"
#include "ValidationSink.h"
#include "common/OutputText.h"
#include "recordlink/RecordLinkList.h"
#include "zrassert.h"

// Large databases hold links by the hundred thousand.
static_assert(sizeof(CCorvaneTypeRecordLink) <= sizeof(CCorvaneType) + 16);

CCorvaneTypeRecordLink::~CCorvaneTypeRecordLink()
{
    if (m_pList)
        m_pList->Leave(*this);
}

bool CCorvaneTypeRecordLink::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    if (!CCorvaneType::Init(defaultText.empty() ? kNoRecord : defaultText, data))
        return false;
    JoinList(data.GetManager().GetTypeState<CRecordLinkList>());
    return true;
}

void CCorvaneTypeRecordLink::Assign(const CCorvaneAttrib& source)
{
    CCorvaneType::Assign(source);
    if (source.GetTypeGuid() != kTypeGuid)
        return;
    if (CRecordLinkList* list = static_cast<const CCorvaneTypeRecordLink&>(source).m_pList)
        JoinList(*list);
}

void CCorvaneTypeRecordLink::JoinList(CRecordLinkList& list)
{
    if (m_pList == nullptr)
        list.Join(*this);
}

void CCorvaneTypeRecordLink::OnOwnValuesChanged()
{
    if (m_pList)
        m_pList->OnValuesChanged(*this);
}

std::u16string_view CCorvaneTypeRecordLink::GetValue(std::size_t index) const
{
    const std::u16string_view text = CCorvaneType::GetValue(index);
    return text.empty() ? kNoRecord : text;
}

bool CCorvaneTypeRecordLink::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                            CreatorHandle& handle, std::u16string_view prefix)
{
    handle = CreateInDatabase(creator, record, DBVALUE_RECORDLINK, DBKIND_PLAIN, prefix);
    return SendValues(handle,
                      [&](std::size_t i)
                      {
                          if (const CCorvaneRecord* target = GetRecord(i))
                              creator.SetRecordLink(handle, static_cast<std::int32_t>(i),
                                                    target->GetManager().GetCompiledRecordHandle(*target));
                      });
}

bool CCorvaneTypeRecordLink::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                            std::u16string_view prefix, std::u16string_view location)
{
    // The override output has no setter for records: whoever applies it finds them by their paths.
    const CreatorHandle handle = CreateInOverride(mgr, database, DBVALUE_RECORDLINK, "RecordLink",
                                                  "GetRecordLinkAttribData()", prefix, location);
    CNarrowText narrow;
    return SendValues(handle,
                      [&](std::size_t i) { return mgr->SetText(handle, narrow.Convert(GetTargetPath(i))); });
}

bool CCorvaneTypeRecordLink::SaveToDependency(IDependencySink& sink, std::uint32_t)
{
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        if (!IsNoRecord(GetValue(i)) && !AddDependency(sink, GetTargetPath(i), u"Record"))
            return false;
    }
    return true;
}

bool CCorvaneTypeRecordLink::Validate(IValidationSink* pCore)
{
    ZRASSERT(pCore);
    if (!pCore || !GetRecordLinkAttribData())
        return false;
    bool valid = true;
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
        valid = ValidateValue(*pCore, i) && valid;
    return valid;
}

bool CCorvaneTypeRecordLink::ValidateValue(IValidationSink& core, std::size_t index)
{
    const std::u16string_view value = GetValue(index);
    bool valid = true;
    const auto report = [&](std::u16string_view text)
    {
        valid = false;
        core.AddError(ESeverity::Critical, u"Invalid Record Link", FormatText(text, value), this, index);
    };
    const CCorvaneRecord* record = GetRecord(index);
    if (record == nullptr || record->GetManager().GetGate().IsDeletePending(*record))
    {
        if (!IsNoRecord(value))
            report(u"Invalid record '%s'");
        if (record == nullptr)
            return valid;
    }
    const CCorvaneSchema* schema = record->GetSchema();
    if (schema == nullptr)
        report(u"Invalid record '%s'.  The record has an invalid parent category or schema.");
    else if (!GetRecordLinkAttribData()->IsAllowed(*schema))
        report(u"Invalid record '%s'.  The record is of an invalid schema type.");
    return valid;
}

CRef<CCorvaneType> CCorvaneTypeRecordLink::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeRecordLink>(record);
}

CCorvaneRecord* CCorvaneTypeRecordLink::GetRecord(std::size_t index) const
{
    const std::u16string_view value = GetValue(index);
    const CCorvaneMgr* manager = IsNoRecord(value) ? nullptr : GetManager();
    return manager ? manager->FindRecord(value, nullptr) : nullptr;
}

void CCorvaneTypeRecordLink::GetRecordName(std::size_t index, std::u16string& out) const
{
    out = GetRecord(index) ? GetValue(index) : kNoRecord;
}

std::u16string CCorvaneTypeRecordLink::GetTargetPath(std::size_t index) const
{
    const CCorvaneRecord* record = GetRecord(index);
    if (record == nullptr)
        return std::u16string(GetValue(index));
    std::u16string path;
    record->GetManager().GetRecordPath(record, path);
    return path;
}

const CCorvaneTypeRecordLinkData* CCorvaneTypeRecordLink::GetRecordLinkAttribData() const
{
    return static_cast<const CCorvaneTypeRecordLinkData*>(GetAttribData());
}
