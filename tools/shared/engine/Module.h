// Libraries loaded at run time: creator libraries, a game's binary, plug-ins.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class IFileSystem;

// A loaded library; unloaded with the object unless it is told to stay.
class CModule
{
public:
    CModule() = default;
    ~CModule();
    CModule(CModule&& other) noexcept;
    CModule& operator=(CModule&& other) noexcept;

    [[nodiscard]] bool IsLoaded() const { return m_pHandle != nullptr; }
    // The exported symbol, or null.
    [[nodiscard]] void* FindExport(const char* name) const;
    template <class Function> [[nodiscard]] Function FindFunction(const char* name) const
    {
        return reinterpret_cast<Function>(FindExport(name));
    }
    // Keeps the library in the process for good, as one whose interfaces outlive the object must be.
    void KeepLoaded() { m_bKeep = true; }
    // The file that was loaded.
    [[nodiscard]] const std::u16string& GetPath() const { return m_sPath; }

private:
    friend class CModuleFinder;
    void* m_pHandle = nullptr;
    bool m_bKeep = false;
    std::u16string m_sPath;
};

// Finds modules for a team on several systems: a path is tried as it stands, then with this system's name
// for it ("Creator.dll" -> "libCreator.so") in the same directory, then both by base name beside the
// program and in the program's module directory.
class CModuleFinder
{
public:
    // `files` is not owned. `programDirectory` and `moduleDirectory` are path texts.
    CModuleFinder(IFileSystem& files, std::u16string programDirectory, std::u16string moduleDirectory);

    // The places where `path` may lie, in the order of the search. Empty for an empty path.
    [[nodiscard]] std::vector<std::u16string> GetCandidates(std::u16string_view path) const;
    // The first candidate that exists is loaded; one that is another system's library is passed over. When
    // none exists or it cannot be loaded, the result is not loaded and `error` says why, naming the file.
    [[nodiscard]] CModule Load(std::u16string_view path, std::u16string& error) const;
    // The same for a library that may have changed since this process loaded it: the system answers with the
    // image that it still holds, so that a private copy of the file is loaded then.
    [[nodiscard]] CModule LoadCurrent(std::u16string_view path, std::u16string& error) const;
    // The first candidate that exists, or the empty text.
    [[nodiscard]] std::u16string Find(std::u16string_view path) const;

    [[nodiscard]] const std::u16string& GetProgramDirectory() const { return m_sProgramDirectory; }

private:
    using FOpen = void* (*)(std::string native);
    [[nodiscard]] CModule LoadWith(FOpen open, std::u16string_view path, std::u16string& error) const;
    [[nodiscard]] bool IsFile(std::u16string_view path) const;

    IFileSystem& m_Files;
    std::u16string m_sProgramDirectory;
    std::u16string m_sModuleDirectory;
};

// The directory of the running program's own file, with its last separator.
[[nodiscard]] std::u16string GetProgramDirectory();
// The running program's own file.
[[nodiscard]] std::u16string GetProgramFile();
