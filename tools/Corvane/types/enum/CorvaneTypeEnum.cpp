#include "enum/CorvaneTypeEnum.h"

#include "FormatText.h"
#include "ValidationSink.h"
#include "common/OutputText.h"
#include "common/SchemaName.h"
#include "zrassert.h"

namespace
{
std::u16string FormatInvalidDefault(const CCorvaneSchemaAttribData& data, std::u16string_view text)
{
    if (data.GetSchema() == nullptr)
        return FormatText(u"The attribute '%s' of a struct contains an invalid default enum of '%s'.",
                          data.GetName(), text);
    return FormatText(u"The attribute '%s' of schema '%s' contains an invalid default enum of '%s'.",
                      data.GetName(), GetSchemaName(data), text);
}
} // namespace

bool CCorvaneTypeEnum::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    const auto& words = static_cast<const CCorvaneTypeEnumData&>(data);
    if (words.IsValueValid(defaultText))
        return CCorvaneType::Init(defaultText, data);
    TellInvalidDefault(data, FormatInvalidDefault(data, defaultText));
    const auto list = words.GetValueList();
    return CCorvaneType::Init(list.empty() ? std::u16string_view(u"") : list.front(), data);
}

bool CCorvaneTypeEnum::IsValueValid(std::u16string_view text) const
{
    const CCorvaneTypeEnumData* words = GetEnumAttribData();
    return words && words->IsValueValid(text);
}

bool CCorvaneTypeEnum::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                      CreatorHandle& handle, std::u16string_view prefix)
{
    CTextSender sender(IsWideText(GetAttribData()));
    handle = CreateInDatabase(creator, record, sender.GetValueType(), DBKIND_PLAIN, prefix);
    return SendValues(handle, [&](std::size_t i) { sender.Send(creator, handle, i, GetTypedText(i)); });
}

bool CCorvaneTypeEnum::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle =
        CreateInOverride(mgr, database, DBVALUE_TEXT, "Enum", "GetEnumAttribData()", prefix, location);
    CNarrowText narrow;
    return SendValues(handle,
                      [&](std::size_t i) { return mgr->SetText(handle, narrow.Convert(GetTypedText(i))); });
}

bool CCorvaneTypeEnum::Validate(IValidationSink* pCore)
{
    ZRASSERT(pCore);
    const CCorvaneTypeEnumData* words = GetEnumAttribData();
    if (!pCore || !words)
        return false;
    bool valid = true;
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::u16string_view value = GetTypedText(i);
        if (words->IsValueValid(value))
            continue;
        valid = false;
        pCore->AddError(ESeverity::Critical, u"Invalid Enum",
                        FormatText(u"The value '%s' is not a valid enum", value), this, i);
    }
    return valid;
}

CRef<CCorvaneType> CCorvaneTypeEnum::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeEnum>(record);
}

const CCorvaneTypeEnumData* CCorvaneTypeEnum::GetEnumAttribData() const
{
    return static_cast<const CCorvaneTypeEnumData*>(GetAttribData());
}
