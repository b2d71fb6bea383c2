#include "Module.h"

#include "FileSystem.h"
#include "NameCompare.h"
#include "Path.h"
#include "Unicode.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <unistd.h>
#include <utility>

namespace
{
// "Creator.dll" -> "libCreator.so". Empty when the name already is this system's or stands for no library.
std::u16string GetSystemName(std::u16string_view name)
{
    const SPathParts parts = SplitPath(name);
    const bool foreign = EqualNames(parts.extension, u".dll") || EqualNames(parts.extension, u".dylib");
    if (parts.name.empty() || !(foreign || parts.extension.empty() || parts.extension == u".so"))
        return {};
    std::u16string out(parts.name.starts_with(u"lib") ? u"" : u"lib");
    out.append(parts.name) += u".so";
    return out == name ? std::u16string() : out;
}

// Whether the file is a library in this system's format at all; another system's library may lie in front
// of ours, under the very name that the locator gives.
bool HasSystemFormat(IFileSystem& files, std::u16string_view path)
{
    constexpr char kMark[] = {'\x7F', 'E', 'L', 'F'};
    CFileBuffer content;
    if (!files.ReadFile(path, content, nullptr).IsOk() || content.GetBytes().size() < sizeof kMark)
        return false;
    return std::memcmp(content.GetBytes().data(), kMark, sizeof kMark) == 0;
}

// A name without a directory would be looked for on the system's own library path.
void* OpenLibrary(std::string native)
{
    if (native.find('/') == std::string::npos)
        native.insert(0, "./");
    return ::dlopen(native.c_str(), RTLD_NOW | RTLD_LOCAL);
}

// Loads the file's bytes under a name that this process has not seen. The name is gone again afterwards.
void* OpenCopy(const std::string& native)
{
    namespace fs = std::filesystem;
    std::error_code error;
    std::string copy = (fs::temp_directory_path(error) / "corvane-module-XXXXXX").string();
    const int descriptor = ::mkstemp(copy.data());
    if (descriptor < 0)
        return nullptr;
    ::close(descriptor);
    const bool copied = fs::copy_file(native, copy, fs::copy_options::overwrite_existing, error);
    void* handle = copied ? OpenLibrary(copy) : nullptr;
    ::unlink(copy.c_str());
    return handle;
}

void* OpenCurrentLibrary(std::string native)
{
    if (native.find('/') == std::string::npos)
        native.insert(0, "./");
    void* resident = ::dlopen(native.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (resident == nullptr)
        return OpenLibrary(std::move(native));
    ::dlclose(resident);
    return OpenCopy(native);
}
} // namespace

CModule::~CModule()
{
    if (m_pHandle != nullptr && !m_bKeep)
        ::dlclose(m_pHandle);
}

CModule::CModule(CModule&& other) noexcept
    : m_pHandle(std::exchange(other.m_pHandle, nullptr)), m_bKeep(other.m_bKeep),
      m_sPath(std::move(other.m_sPath))
{
}

CModule& CModule::operator=(CModule&& other) noexcept
{
    std::swap(m_pHandle, other.m_pHandle);
    std::swap(m_bKeep, other.m_bKeep);
    m_sPath.swap(other.m_sPath);
    return *this;
}

void* CModule::FindExport(const char* name) const
{
    return m_pHandle != nullptr ? ::dlsym(m_pHandle, name) : nullptr;
}

CModuleFinder::CModuleFinder(IFileSystem& files, std::u16string programDirectory,
                             std::u16string moduleDirectory)
    : m_Files(files), m_sProgramDirectory(std::move(programDirectory)),
      m_sModuleDirectory(std::move(moduleDirectory))
{
}

std::vector<std::u16string> CModuleFinder::GetCandidates(std::u16string_view path) const
{
    std::vector<std::u16string> candidates;
    const auto add = [&](std::u16string candidate)
    {
        if (std::find(candidates.begin(), candidates.end(), candidate) == candidates.end())
            candidates.push_back(std::move(candidate));
    };
    const std::u16string_view name = GetFileNamePart(path);
    if (name.empty())
        return candidates;
    const std::u16string systemName = GetSystemName(name);
    add(std::u16string(path));
    if (!systemName.empty())
        add(std::u16string(GetDirectoryPart(path)) + systemName);
    for (const std::u16string_view directory : {m_sProgramDirectory, m_sModuleDirectory})
    {
        if (directory.empty())
            continue;
        add(JoinPath(directory, name));
        if (!systemName.empty())
            add(JoinPath(directory, systemName));
    }
    return candidates;
}

bool CModuleFinder::IsFile(std::u16string_view path) const
{
    SFileInfo info;
    return m_Files.GetInfo(path, info).IsOk() && info.m_bExists && !info.m_bDirectory;
}

CModule CModuleFinder::Load(std::u16string_view path, std::u16string& error) const
{
    return LoadWith(OpenLibrary, path, error);
}

CModule CModuleFinder::LoadCurrent(std::u16string_view path, std::u16string& error) const
{
    return LoadWith(OpenCurrentLibrary, path, error);
}

CModule CModuleFinder::LoadWith(FOpen open, std::u16string_view path, std::u16string& error) const
{
    CModule module;
    error.clear();
    for (std::u16string& candidate : GetCandidates(path))
    {
        if (!IsFile(candidate))
            continue;
        module.m_pHandle = open(m_Files.GetNativePath(candidate));
        if (module.IsLoaded())
        {
            module.m_sPath = std::move(candidate);
            error.clear();
            return module;
        }
        const char* cause = ::dlerror();
        if (error.empty())
            error = candidate + u": " + ToWide(cause != nullptr ? cause : "cannot be loaded");
        if (HasSystemFormat(m_Files, candidate))
            return module;
    }
    if (error.empty())
        error = std::u16string(path) + u": " + CFileError{EFileError::NotFound, 0}.GetText();
    return module;
}

std::u16string CModuleFinder::Find(std::u16string_view path) const
{
    const std::vector<std::u16string> candidates = GetCandidates(path);
    const auto found = std::find_if(candidates.begin(), candidates.end(),
                                    [&](const std::u16string& candidate) { return IsFile(candidate); });
    return found != candidates.end() ? *found : std::u16string();
}

std::u16string GetProgramFile()
{
    char path[PATH_MAX];
    const ssize_t length = ::readlink("/proc/self/exe", path, sizeof path);
    return length <= 0 ? std::u16string() : ToWide({path, static_cast<std::size_t>(length)});
}

std::u16string GetProgramDirectory()
{
    return std::u16string(GetDirectoryPart(GetProgramFile()));
}
