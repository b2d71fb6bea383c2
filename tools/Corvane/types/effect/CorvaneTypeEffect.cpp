#include "effect/CorvaneTypeEffect.h"

#include "CorvaneMgr.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "ValidationSink.h"
#include "common/OutputText.h"
#include "common/SchemaName.h"
#include "effect/EffectList.h"
#include "zrassert.h"

bool CCorvaneTypeEffect::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    // Also an empty default asks, so that the list is that of the moment when the schemas were loaded.
    const bool isListed = data.GetManager().GetTypeState<CEffectList>().Find(defaultText).has_value();
    if (defaultText.empty() || isListed)
        return CCorvaneType::Init(defaultText, data);
    TellInvalidDefault(
        data, FormatText(u"The attribute '%s' of schema '%s' contains an invalid default effect of '%s'.",
                         data.GetName(), GetSchemaName(data), defaultText));
    return CCorvaneType::Init(kNoEffect, data);
}

bool CCorvaneTypeEffect::SetValue(std::size_t index, std::u16string_view text)
{
    return CCorvaneType::SetValue(index, EqualNames(text, kNoEffect) ? std::u16string_view(u"") : text);
}

std::u16string_view CCorvaneTypeEffect::GetValue(std::size_t index) const
{
    const std::u16string_view text = CCorvaneType::GetValue(index);
    return text.empty() ? kNoEffect : text;
}

bool CCorvaneTypeEffect::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                        CreatorHandle& handle, std::u16string_view prefix)
{
    CTextSender sender(IsWideText(GetAttribData()));
    handle = CreateInDatabase(creator, record, sender.GetValueType(), DBKIND_EFFECT, prefix);
    return SendValues(handle, [&](std::size_t i) { sender.Send(creator, handle, i, GetOutputText(i)); });
}

bool CCorvaneTypeEffect::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                        std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle =
        CreateInOverride(mgr, database, DBVALUE_TEXT, "Effect", "GetEffectAttribData()", prefix, location);
    CNarrowText narrow;
    return SendValues(handle,
                      [&](std::size_t i) { return mgr->SetText(handle, narrow.Convert(GetOutputText(i))); });
}

bool CCorvaneTypeEffect::SaveToDependency(IDependencySink& sink, std::uint32_t)
{
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::u16string_view effect = GetOutputText(i);
        if (!effect.empty() && !AddDependency(sink, effect, GetTypeName()))
            return false;
    }
    return true;
}

bool CCorvaneTypeEffect::Validate(IValidationSink* pCore)
{
    ZRASSERT(pCore);
    CEffectList* effects = GetEffectList();
    if (!pCore || !effects)
        return false;
    bool valid = true;
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::u16string_view value = GetValue(i);
        if (effects->Find(value))
            continue;
        valid = false;
        pCore->AddError(ESeverity::Critical, u"Invalid Effect", FormatText(u"Invalid effect '%s'", value),
                        this, i);
    }
    return valid;
}

CRef<CCorvaneType> CCorvaneTypeEffect::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeEffect>(record);
}

CEffectList* CCorvaneTypeEffect::GetEffectList() const
{
    const CCorvaneSchemaAttribData* data = GetAttribData();
    return data ? &data->GetManager().GetTypeState<CEffectList>() : nullptr;
}

std::u16string_view CCorvaneTypeEffect::GetOutputText(std::size_t index) const
{
    const std::u16string_view value = GetValue(index);
    return EqualNames(value, kNoEffect) ? std::u16string_view(u"") : value;
}
