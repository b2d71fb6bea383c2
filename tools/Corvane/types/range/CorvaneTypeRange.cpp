#include "range/CorvaneTypeRange.h"

#include "FormatText.h"
#include "ValidationSink.h"
#include "common/SchemaName.h"
#include "zrassert.h"

#include <array>

namespace
{
std::array<float, 2> ToVector(const SRange& range)
{
    return {range.m_fMinimum, range.m_fMaximum};
}

// What is wrong with a range; empty when nothing is.
std::u16string DescribeFault(const SRange& range, const CCorvaneTypeRangeData& limits)
{
    if (!limits.IsInRange(range))
        return FormatText(u"The range (%f, %f) is not within the allowed range of (%f, %f).",
                          range.m_fMinimum, range.m_fMaximum, limits.GetMinimum(), limits.GetMaximum());
    if (range.m_fMinimum > range.m_fMaximum)
        return FormatText(u"The min value exceeds the max value. (%f, %f)", range.m_fMinimum,
                          range.m_fMaximum);
    return {};
}
} // namespace

bool CCorvaneTypeRange::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    const auto& limits = static_cast<const CCorvaneTypeRangeData&>(data);
    const SRange range = ParseRange(defaultText);
    if (!limits.IsInRange(range))
        TellInvalidDefault(
            data,
            FormatText(u"The attribute '%s' of schema '%s' contains an invalid default range of '%f, %f'.",
                       data.GetName(), GetSchemaName(data), range.m_fMinimum, range.m_fMaximum));
    const SRange clamped{limits.Clamp(range.m_fMinimum), limits.Clamp(range.m_fMaximum)};
    return CCorvaneType::Init(FormatRange(clamped), data);
}

bool CCorvaneTypeRange::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                       CreatorHandle& handle, std::u16string_view prefix)
{
    handle = CreateInDatabase(creator, record, DBVALUE_VECTOR2, DBKIND_PLAIN, prefix);
    return SendValues(
        handle, [&](std::size_t i)
        { creator.SetVector2(handle, static_cast<std::int32_t>(i), ToVector(GetRange(i)).data()); });
}

bool CCorvaneTypeRange::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                       std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle =
        CreateInOverride(mgr, database, DBVALUE_VECTOR2, "Range", "GetRangeAttribData()", prefix, location);
    return SendValues(handle,
                      [&](std::size_t i) { return mgr->SetVector2(handle, ToVector(GetRange(i)).data()); });
}

bool CCorvaneTypeRange::Validate(IValidationSink* pCore)
{
    ZRASSERT(pCore);
    const CCorvaneTypeRangeData* limits = GetRangeAttribData();
    if (!pCore || !limits)
        return false;
    bool valid = true;
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::u16string fault = DescribeFault(GetRange(i), *limits);
        if (fault.empty())
            continue;
        valid = false;
        pCore->AddError(ESeverity::Critical, u"Invalid Range", fault, this, i);
    }
    return valid;
}

CRef<CCorvaneType> CCorvaneTypeRange::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeRange>(record);
}

SRange CCorvaneTypeRange::GetRange(std::size_t index) const
{
    return ParseRange(GetTypedText(index));
}

bool CCorvaneTypeRange::SetRange(std::size_t index, const SRange& range)
{
    return index < GetValueCount() && SetValue(index, FormatRange(range));
}

const CCorvaneTypeRangeData* CCorvaneTypeRange::GetRangeAttribData() const
{
    return static_cast<const CCorvaneTypeRangeData*>(GetAttribData());
}
