// The build numbers that game libraries export. A library is loaded once and then only when its file has
// changed: a number is asked for at every load of a database and every choice of the active build.
//
// A library that could not be loaded is tried again at the next question.
#pragma once

#include "FileSystem.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class CModuleFinder;

class CBuildNumberCache
{
public:
    // Both are not owned.
    CBuildNumberCache(IFileSystem& files, const CModuleFinder& modules) : m_Files(files), m_Modules(modules)
    {
    }

    // `library` is looked for as the module finder does. 0 for a library that is missing, cannot be loaded,
    // exports no `GetBuildNumber` or throws.
    [[nodiscard]] std::uint32_t Get(std::u16string_view library);

private:
    // What tells a file from the one that stood there before.
    struct SIdentity
    {
        std::u16string m_sPath;
        SFileStamp m_Stamp;
        std::uint64_t m_nDevice = 0;
        std::uint64_t m_nNode = 0;
        bool operator==(const SIdentity&) const = default;
    };
    struct SEntry
    {
        std::vector<SIdentity> m_Files;
        std::uint32_t m_nBuild = 0;
    };

    [[nodiscard]] std::vector<SIdentity> Identify(std::u16string_view library) const;

    IFileSystem& m_Files;
    const CModuleFinder& m_Modules;
    std::unordered_map<std::u16string, SEntry> m_Entries;
};
