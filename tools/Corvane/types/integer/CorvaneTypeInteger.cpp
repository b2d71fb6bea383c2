#include "integer/CorvaneTypeInteger.h"

#include "FormatText.h"
#include "NumberText.h"
#include "ValidationSink.h"
#include "common/SchemaName.h"
#include "zrassert.h"

bool CCorvaneTypeInteger::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    const auto& limits = static_cast<const CCorvaneTypeIntegerData&>(data);
    const std::int32_t value = ParseInteger(defaultText);
    if (!limits.IsInRange(value))
        TellInvalidDefault(
            data,
            FormatText(u"The attribute '%s' of schema '%s' contains an invalid default integer of '%d'.",
                       data.GetName(), GetSchemaName(data), value));
    return CCorvaneType::Init(FormatInteger(limits.Clamp(value)), data);
}

bool CCorvaneTypeInteger::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                         CreatorHandle& handle, std::u16string_view prefix)
{
    handle = CreateInDatabase(creator, record, DBVALUE_INTEGER, DBKIND_PLAIN, prefix);
    return SendValues(handle, [&](std::size_t i)
                      { creator.SetInteger(handle, static_cast<std::int32_t>(i), GetInteger(i)); });
}

bool CCorvaneTypeInteger::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                         std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle = CreateInOverride(mgr, database, DBVALUE_INTEGER, "Integer",
                                                  "GetIntegerAttribData()", prefix, location);
    if (handle == 0)
        return false;
    const CCorvaneTypeIntegerData& limits = *GetIntegerAttribData();
    if (!mgr->SetIntegerLimits(handle, limits.GetMinimum(), limits.GetMaximum()))
        return false;
    return SendValues(handle, [&](std::size_t i) { return mgr->SetInteger(handle, GetInteger(i)); });
}

bool CCorvaneTypeInteger::Validate(IValidationSink* pCore)
{
    ZRASSERT(pCore);
    const CCorvaneTypeIntegerData* limits = GetIntegerAttribData();
    if (!pCore || !limits)
        return false;
    bool valid = true;
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::int32_t value = GetInteger(i);
        if (limits->IsInRange(value))
            continue;
        valid = false;
        pCore->AddError(ESeverity::Critical, u"Invalid Integer",
                        FormatText(u"The value '%d' is not within the valid range of (%d, %d).", value,
                                   limits->GetMinimum(), limits->GetMaximum()),
                        this, i);
    }
    return valid;
}

CRef<CCorvaneType> CCorvaneTypeInteger::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeInteger>(record);
}

std::int32_t CCorvaneTypeInteger::GetInteger(std::size_t index) const
{
    return ParseInteger(GetTypedText(index));
}

bool CCorvaneTypeInteger::SetInteger(std::size_t index, std::int32_t value)
{
    return index < GetValueCount() && SetValue(index, FormatInteger(value));
}

const CCorvaneTypeIntegerData* CCorvaneTypeInteger::GetIntegerAttribData() const
{
    return static_cast<const CCorvaneTypeIntegerData*>(GetAttribData());
}
