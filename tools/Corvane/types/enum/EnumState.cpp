#include "enum/EnumState.h"

#include "CorvaneMgr.h"

CEnumState::CEnumState(CCorvaneMgr& manager) : m_Files(manager.GetContext().m_Files) {}

CFileError CEnumState::GetFileValues(const std::u16string& path,
                                     std::shared_ptr<const CEnumValueList>& values)
{
    SFileInfo info;
    SSharedFile& shared = m_Shared[path];
    const std::shared_ptr<const CEnumValueList> known = shared.m_pValues.lock();
    if (known && m_Files.GetInfo(path, info).IsOk() && info.m_Stamp == shared.m_Stamp)
    {
        values = known;
        return {};
    }
    SEnumFile file;
    if (const CFileError error = CEnumFileReader(m_Files).Read(path, file); !error.IsOk())
        return error;
    shared = {file.m_pValues, file.m_Stamp};
    values = std::move(file.m_pValues);
    return {};
}
