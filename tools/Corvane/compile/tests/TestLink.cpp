#include "TestLink.h"

#include "CorvaneMgr.h"

const CGuid& CTestLink::GetTypeGuid() const
{
    static const CGuid guid = CGuid::Create();
    return guid;
}

bool CTestLink::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                               CreatorHandle& handle, std::u16string_view prefix)
{
    handle = CreateInDatabase(creator, record, DBVALUE_RECORDLINK, DBKIND_PLAIN, prefix);
    const CCorvaneRecord* target = GetManager()->FindRecord(GetValue(0), nullptr);
    if (handle != 0 && target)
        creator.SetRecordLink(handle, 0, GetManager()->GetCompiledRecordHandle(*target));
    return handle != 0;
}
