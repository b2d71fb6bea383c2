// The project locator (*.proj00), which stands somewhere above a database and tells where the project's
// directories and binaries are. Its form is described in docs/formats/project-locator.md.
#pragma once

#include <string>
#include <string_view>

class IFileSystem;

struct CProjectInfo
{
    std::u16string m_sGame;
    std::u16string m_sProjectDirectory; // The locator's directory with its last separator.
    std::u16string m_sResourceRoot;     // Directories end in a separator.
    std::u16string m_sToolsRoot;
    std::u16string m_sPC;
    std::u16string m_sXenon;
    std::u16string m_sVisualFx; // Binaries are file paths.
    std::u16string m_sGameServer;
    std::u16string m_sGameDatabase;
    std::u16string m_sProvider; // Class id text of the source control provider.
    std::u16string m_sDatabase; // The provider's project.
    std::u16string m_sPCBinary;
    std::u16string m_sPCWorking;
    std::u16string m_sXenonBinary;
    std::u16string m_sXenonWorking;

    // Fills everything from a locator file. Always true: what cannot be read is empty.
    bool ReadProjectFile(IFileSystem& files, std::u16string_view path);
};

// Finds the nearest locator at or above the root file's directory and reads it. False when there is none.
// A relative path is taken from the current directory.
[[nodiscard]] bool LocateProject(IFileSystem& files, std::u16string_view rootFile, CProjectInfo& info);
// The first locator of a directory in the stable order.
[[nodiscard]] bool FindProjectFile(IFileSystem& files, std::u16string_view directory, std::u16string& path);
