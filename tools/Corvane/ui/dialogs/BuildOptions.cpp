#include "BuildOptions.h"

#include "CorvaneMgr.h"
#include "DatabaseCompiler.h"
#include "Profile.h"
#include "RecentPaths.h"
#include "RunState.h"

namespace
{
constexpr std::u16string_view kSection = u"Build";
constexpr std::u16string_view kDisplayModified = u"Display.Modified";
} // namespace

CBuildOptions::CBuildOptions(CCorvaneMgr& manager, std::uint32_t flags, std::int64_t build,
                             std::u16string_view target)
    : m_dwFlags(flags & ~BUILD_USE_TARGET), m_sTarget(target), m_Manager(manager),
      m_Targets(CRecentPaths(manager.GetPerUserFile(), kSection).Load())
{
    m_nBuild = build != kBuildOfSettings        ? static_cast<std::uint32_t>(build)
               : m_Manager.IsGameBuildDefault() ? GetGameBuild()
                                                : GetActiveBuild();
    if ((flags & BUILD_USE_TARGET) == 0 && !m_Targets.empty())
        m_sTarget = m_Targets.front();
    const CProfile& profile = m_Manager.GetContext().m_Profile;
    if (profile.GetInteger(kSection, u"Force.Save", 1) != 0)
        m_dwFlags |= COMPILE_SAVE;
    if (IsModifiedOffered() && profile.GetInteger(kSection, kDisplayModified, 0) != 0)
        m_dwFlags |= COMPILE_SHOW_MODIFIED;
}

std::uint32_t CBuildOptions::GetActiveBuild() const
{
    return m_Manager.GetActiveBuild();
}

std::uint32_t CBuildOptions::GetGameBuild() const
{
    return m_Manager.GetBuildNumber();
}

bool CBuildOptions::IsModifiedOffered() const
{
    return m_Manager.GetContext().m_Run.Test(APP_EXPERT);
}

void CBuildOptions::Accept()
{
    if (!m_sTarget.empty())
    {
        CRecentPaths(m_Manager.GetPerUserFile(), kSection).Add(m_sTarget);
        m_Manager.SavePerUserFile();
    }
    if (IsModifiedOffered())
        m_Manager.GetContext().m_Profile.SetInteger(kSection, kDisplayModified,
                                                    (m_dwFlags & COMPILE_SHOW_MODIFIED) != 0 ? 1 : 0);
}
