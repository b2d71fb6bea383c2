#include "text/CorvaneTypeString.h"

#include "common/OutputText.h"

bool CCorvaneTypeString::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                        CreatorHandle& handle, std::u16string_view prefix)
{
    CTextSender sender(IsWideText(GetAttribData()));
    handle = CreateInDatabase(creator, record, sender.GetValueType(), DBKIND_PLAIN, prefix);
    return SendValues(handle, [&](std::size_t i) { sender.Send(creator, handle, i, GetTypedText(i)); });
}

bool CCorvaneTypeString::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                        std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle =
        CreateInOverride(mgr, database, DBVALUE_TEXT, "Text", "GetStringAttribData()", prefix, location);
    if (handle == 0 || !mgr->SetTextLimits(handle, 0, GetStringAttribData()->GetMaximumLength()))
        return false;
    CNarrowText narrow;
    return SendValues(handle,
                      [&](std::size_t i) { return mgr->SetText(handle, narrow.Convert(GetTypedText(i))); });
}

CRef<CCorvaneType> CCorvaneTypeString::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeString>(record);
}

const CCorvaneTypeStringData* CCorvaneTypeString::GetStringAttribData() const
{
    return static_cast<const CCorvaneTypeStringData*>(GetAttribData());
}
