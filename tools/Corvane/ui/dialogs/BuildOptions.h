// What a compile is asked to do, as its dialog starts with it and as it comes out: the targets that were used
// before, the build numbers, the flags. Without a window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneMgr;

// Instead of a number: the game's build or the active one, as the user's settings have it.
inline constexpr std::int64_t kBuildOfSettings = -1;

// Beside the compile's own flags: the given target is offered even where others were used before.
inline constexpr std::uint32_t BUILD_USE_TARGET = 0x10000;

class CBuildOptions
{
public:
    // `manager` is not owned. Flags are those of the compile, and BUILD_USE_TARGET.
    CBuildOptions(CCorvaneMgr& manager, std::uint32_t flags, std::int64_t build, std::u16string_view target);

    // Newest first.
    [[nodiscard]] const std::vector<std::u16string>& GetTargets() const { return m_Targets; }
    [[nodiscard]] std::uint32_t GetActiveBuild() const;
    [[nodiscard]] std::uint32_t GetGameBuild() const;
    // The wish for the dialog of modified attributes is for expert mode only.
    [[nodiscard]] bool IsModifiedOffered() const;
    // Keeps the target as the newest and the wish for the modified attributes.
    void Accept();

    // The flags of the compile alone.
    std::uint32_t m_dwFlags;
    std::uint32_t m_nBuild;
    std::u16string m_sTarget; // Empty for the compile's own choice.

private:
    CCorvaneMgr& m_Manager;
    std::vector<std::u16string> m_Targets;
};
