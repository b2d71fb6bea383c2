#include "float/CorvaneTypeFloat.h"

#include "FormatText.h"
#include "NumberText.h"
#include "ValidationSink.h"
#include "common/SchemaName.h"
#include "zrassert.h"

bool CCorvaneTypeFloat::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    const auto& limits = static_cast<const CCorvaneTypeFloatData&>(data);
    const float value = ParseFloat(defaultText);
    if (!limits.IsInRange(value))
        TellInvalidDefault(
            data, FormatText(u"The attribute '%s' of schema '%s' contains an invalid default float of '%f'.",
                             data.GetName(), GetSchemaName(data), value));
    return CCorvaneType::Init(FormatFloat(value), data);
}

bool CCorvaneTypeFloat::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                       CreatorHandle& handle, std::u16string_view prefix)
{
    handle = CreateInDatabase(creator, record, DBVALUE_FLOAT, DBKIND_PLAIN, prefix);
    return SendValues(handle, [&](std::size_t i)
                      { creator.SetFloat(handle, static_cast<std::int32_t>(i), GetFloat(i)); });
}

bool CCorvaneTypeFloat::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                       std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle =
        CreateInOverride(mgr, database, DBVALUE_FLOAT, "Float", "GetFloatAttribData()", prefix, location);
    if (handle == 0)
        return false;
    const CCorvaneTypeFloatData& limits = *GetFloatAttribData();
    if (!mgr->SetFloatLimits(handle, limits.GetMinimum(), limits.GetMaximum()))
        return false;
    return SendValues(handle, [&](std::size_t i) { return mgr->SetFloat(handle, GetFloat(i)); });
}

bool CCorvaneTypeFloat::Validate(IValidationSink* pCore)
{
    ZRASSERT(pCore);
    const CCorvaneTypeFloatData* limits = GetFloatAttribData();
    if (!pCore || !limits)
        return false;
    bool valid = true;
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        const float value = GetFloat(i);
        if (limits->IsInRange(value))
            continue;
        valid = false;
        pCore->AddError(ESeverity::Critical, u"Invalid Float",
                        FormatText(u"The value '%f' is not within the valid range of (%f, %f).", value,
                                   limits->GetMinimum(), limits->GetMaximum()),
                        this, i);
    }
    return valid;
}

CRef<CCorvaneType> CCorvaneTypeFloat::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeFloat>(record);
}

float CCorvaneTypeFloat::GetFloat(std::size_t index) const
{
    return ParseFloat(GetTypedText(index));
}

bool CCorvaneTypeFloat::SetFloat(std::size_t index, float value)
{
    return index < GetValueCount() && SetValue(index, FormatFloat(value));
}

const CCorvaneTypeFloatData* CCorvaneTypeFloat::GetFloatAttribData() const
{
    return static_cast<const CCorvaneTypeFloatData*>(GetAttribData());
}
