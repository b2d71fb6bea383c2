// What a Struct attribute gives to outputs and checks: itself, and then whatever its members give.
#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "NumberText.h"
#include "ValidationSink.h"
#include "struct/CorvaneTypeStruct.h"
#include "zrassert.h"

template <class Use>
bool CCorvaneTypeStruct::ForEachInBuild(std::uint32_t build, std::u16string_view prefix, Use use) const
{
    const CStructRows rows = GetAttributePointerList();
    const CCorvaneMgr* manager = GetManager();
    if (rows.empty() || manager == nullptr)
        return true;
    // A row holds the same members as the first.
    std::vector<bool> available;
    available.reserve(m_nStride);
    for (const CRef<CCorvaneType>& member : rows[0])
        available.push_back(manager->IsAttributeAvailableForBuild(member.Get(), build));
    std::u16string name(prefix);
    name += u'.';
    for (std::size_t row = 0; row < rows.size(); ++row)
    {
        name.resize(prefix.size() + 1);
        name += FormatInteger(static_cast<std::int64_t>(row));
        const auto members = rows[row];
        for (std::size_t i = 0; i < members.size(); ++i)
        {
            if (available[i] && !use(*members[i], name))
                return false;
        }
    }
    return true;
}

bool CCorvaneTypeStruct::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record,
                                        std::uint32_t build, CreatorHandle& handle,
                                        std::u16string_view prefix)
{
    handle = CreateInDatabase(creator, record, DBVALUE_STRUCT, DBKIND_PLAIN, prefix);
    if (handle == 0)
        return false;
    std::u16string name;
    GetQualifiedName(name, prefix);
    return ForEachInBuild(build, name,
                          [&](CCorvaneType& member, std::u16string_view row)
                          {
                              CreatorHandle created = 0;
                              return member.SaveToDatabase(creator, record, build, created, row);
                          });
}

bool CCorvaneTypeStruct::SaveToOverride(IDatabaseCreatorUnpackedMgr* pDatabaseMgr, CreatorHandle hDatabase,
                                        std::u16string_view prefix, std::u16string_view location)
{
    ZRASSERT(pDatabaseMgr);
    ZRASSERT(hDatabase);
    const CCorvaneMgr* manager = GetManager();
    if (pDatabaseMgr == nullptr || hDatabase == 0 || manager == nullptr || !GetOverride())
        return false;
    std::u16string name;
    GetQualifiedName(name, location);
    // The override output is made for the active build.
    return ForEachInBuild(manager->GetActiveBuild(), name,
                          [&](CCorvaneType& member, std::u16string_view row)
                          {
                              if (member.GetOverride())
                                  static_cast<void>(
                                      member.SaveToOverride(pDatabaseMgr, hDatabase, prefix, row));
                              return true;
                          });
}

bool CCorvaneTypeStruct::SaveToDependency(IDependencySink& sink, std::uint32_t build)
{
    return ForEachInBuild(build, {},
                          [&](CCorvaneType& member, std::u16string_view)
                          { return member.SaveToDependency(sink, build); });
}

bool CCorvaneTypeStruct::Validate(IValidationSink* pCore)
{
    ZRASSERT(pCore);
    if (pCore == nullptr)
        return false;
    bool valid = true;
    static_cast<void>(ForEachInBuild(pCore->GetBuild(), {},
                                     [&](CCorvaneType& member, std::u16string_view)
                                     {
                                         valid = member.Validate(pCore) && valid;
                                         return true;
                                     }));
    return valid;
}
