#include "memo/CorvaneTypeMemo.h"

#include "UnicodeFileParse.h"
#include "common/OutputText.h"

bool CCorvaneTypeMemo::AddValue(std::u16string_view text)
{
    return CCorvaneType::AddValue(EncodeMultiLine(text));
}

bool CCorvaneTypeMemo::SetValue(std::size_t index, std::u16string_view text)
{
    return CCorvaneType::SetValue(index, EncodeMultiLine(text));
}

bool CCorvaneTypeMemo::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                      CreatorHandle& handle, std::u16string_view prefix)
{
    CTextSender sender(IsWideText(GetAttribData()));
    handle = CreateInDatabase(creator, record, sender.GetValueType(), DBKIND_PLAIN, prefix);
    std::u16string buffer;
    return SendValues(handle,
                      [&](std::size_t i) { sender.Send(creator, handle, i, GetUnescaped(i, buffer)); });
}

bool CCorvaneTypeMemo::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle =
        CreateInOverride(mgr, database, DBVALUE_TEXT, "Memo", "GetMemoAttribData()", prefix, location);
    if (handle == 0 || !mgr->SetTextLimits(handle, 0, GetMemoAttribData()->GetMaximumLength()))
        return false;
    CNarrowText narrow;
    std::u16string buffer;
    return SendValues(handle, [&](std::size_t i)
                      { return mgr->SetText(handle, narrow.Convert(GetUnescaped(i, buffer))); });
}

CRef<CCorvaneType> CCorvaneTypeMemo::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeMemo>(record);
}

void CCorvaneTypeMemo::GetValue(std::size_t index, std::u16string& out) const
{
    std::u16string buffer;
    out = GetUnescaped(index, buffer);
}

std::u16string_view CCorvaneTypeMemo::GetUnescaped(std::size_t index, std::u16string& buffer) const
{
    // Most memos have one line, and a text without a backslash holds no escape.
    const std::u16string_view stored = GetTypedText(index);
    if (stored.find(u'\\') == std::u16string_view::npos)
        return stored;
    buffer = DecodeMultiLine(stored);
    return buffer;
}

const CCorvaneTypeStringData* CCorvaneTypeMemo::GetMemoAttribData() const
{
    return static_cast<const CCorvaneTypeStringData*>(GetAttribData());
}
