#include "stringid/CorvaneTypeStringID.h"

#include "CorvaneMgr.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "ValidationSink.h"
#include "common/OutputText.h"
#include "stringid/GlossarState.h"
#include "zrassert.h"

bool CCorvaneTypeStringID::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    return CCorvaneType::Init(defaultText.empty() ? kNoStringID : defaultText, data);
}

bool CCorvaneTypeStringID::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                          CreatorHandle& handle, std::u16string_view prefix)
{
    CTextSender sender(IsWideText(GetAttribData()));
    handle = CreateInDatabase(creator, record, sender.GetValueType(), DBKIND_PLAIN, prefix);
    return SendValues(handle, [&](std::size_t i) { sender.Send(creator, handle, i, GetTypedText(i)); });
}

bool CCorvaneTypeStringID::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                          std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle = CreateInOverride(mgr, database, DBVALUE_TEXT, "StringID",
                                                  "GetStringIDAttribData()", prefix, location);
    CNarrowText narrow;
    return SendValues(handle,
                      [&](std::size_t i) { return mgr->SetText(handle, narrow.Convert(GetTypedText(i))); });
}

bool CCorvaneTypeStringID::SaveToDependency(IDependencySink& sink, std::uint32_t)
{
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::u16string_view value = GetTypedText(i);
        if (!EqualNames(value, kNoStringID) && !AddDependency(sink, value, GetTypeName()))
            return false;
    }
    return true;
}

bool CCorvaneTypeStringID::Validate(IValidationSink* pCore)
{
    ZRASSERT(pCore);
    const CCorvaneSchemaAttribData* data = GetAttribData();
    if (!pCore || !data)
        return false;
    CGlossarState& glossar = data->GetManager().GetTypeState<CGlossarState>();
    if (glossar.GetGlossarDatabase() == 0)
        return false;
    CNarrowText narrow;
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::u16string_view value = GetTypedText(i);
        if (!EqualNames(value, kNoStringID) && !glossar.HasString(narrow.Convert(value)))
            pCore->AddError(ESeverity::Warning, u"Invalid String ID",
                            FormatText(u"Invalid StringID '%s'", value), this, i);
    }
    return true;
}

CRef<CCorvaneType> CCorvaneTypeStringID::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeStringID>(record);
}
