#include "BuildNumberCache.h"

#include "Module.h"

namespace
{
std::uint32_t AskModule(const CModule& module)
{
    const auto getBuildNumber = module.FindFunction<std::uint32_t (*)()>("GetBuildNumber");
    if (getBuildNumber == nullptr)
        return 0;
    try
    {
        return getBuildNumber();
    }
    catch (...)
    {
        return 0; // The game's code is not ours to trust.
    }
}
} // namespace

std::uint32_t CBuildNumberCache::Get(std::u16string_view library)
{
    if (library.empty())
        return 0;
    std::vector<SIdentity> files = Identify(library);
    const auto known = m_Entries.find(std::u16string(library));
    if (known != m_Entries.end() && known->second.m_Files == files)
        return known->second.m_nBuild;
    std::u16string error;
    const CModule module = m_Modules.LoadCurrent(library, error);
    if (!module.IsLoaded())
        return 0;
    const std::uint32_t build = AskModule(module);
    m_Entries[std::u16string(library)] = {std::move(files), build};
    return build;
}

std::vector<CBuildNumberCache::SIdentity> CBuildNumberCache::Identify(std::u16string_view library) const
{
    std::vector<SIdentity> files;
    for (std::u16string& candidate : m_Modules.GetCandidates(library))
    {
        SFileInfo info;
        if (m_Files.GetInfo(candidate, info).IsOk() && info.m_bExists)
            files.push_back({std::move(candidate), info.m_Stamp, info.m_nDevice, info.m_nNode});
    }
    return files;
}
