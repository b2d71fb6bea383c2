// Builds: which number is active, where it is kept, and which entries of an attribute are in force for it.
#include "BuildNumberCache.h"
#include "CorvaneAttrib.h"
#include "CorvaneMgr.h"
#include "CorvaneSchemaAttribData.h"
#include "DeferState.h"
#include "Profile.h"
#include "RunState.h"
#include "zrassert.h"

namespace
{
constexpr std::u16string_view kDatabaseSection = u"Database";
constexpr std::u16string_view kVersion = u"Version";
constexpr std::u16string_view kActiveBuild = u"Active.Build";
constexpr std::u16string_view kUseGameBuild = u"Use.Game.Build";
constexpr std::u16string_view kBuildSection = u"Build";
} // namespace

std::uint32_t CCorvaneMgr::GetBuildNumber(std::u16string_view library)
{
    return m_pBuildNumbers->Get(library.empty() ? std::u16string_view(m_Project.m_sGameServer) : library);
}

void CCorvaneMgr::SetActiveBuild(std::uint32_t build)
{
    if (build == m_nActiveBuild)
        return;
    m_nActiveBuild = build;
    Notify(CCorvaneEvent(ECorvaneEvent::ActiveBuildChanged));
}

void CCorvaneMgr::ChooseActiveBuild()
{
    if (!m_Context.m_Run.Test(APP_EXPERT) || IsGameBuildUsed())
        SetActiveBuild(GetBuildNumber());
    else
        ApplyStoredBuild();
    Notify(CCorvaneEvent(ECorvaneEvent::AttributesChanged, static_cast<CCorvaneRecord*>(nullptr)));
}

void CCorvaneMgr::ApplyStoredBuild()
{
    if (m_PerUser.IsKey(kDatabaseSection, kActiveBuild))
        SetActiveBuild(static_cast<std::uint32_t>(m_PerUser.ReadInteger(kDatabaseSection, kActiveBuild)));
}

void CCorvaneMgr::ToggleExpertMode()
{
    const bool expert = !m_Context.m_Run.Test(APP_EXPERT);
    m_Context.m_Run.Set(APP_EXPERT, expert);
    m_Context.m_Profile.SetInteger(kBuildSection, u"User.Interface", expert ? 1 : 0);
    Notify(CCorvaneEvent(ECorvaneEvent::AttributesChanged, static_cast<CCorvaneRecord*>(nullptr)));
    ChooseActiveBuild();
}

bool CCorvaneMgr::IsGameBuildUsed() const
{
    return m_PerUser.ReadBoolean(kDatabaseSection, kUseGameBuild);
}

void CCorvaneMgr::UseGameBuild(bool use)
{
    m_PerUser.WriteBoolean(kDatabaseSection, kUseGameBuild, use);
}

bool CCorvaneMgr::IsGameBuildDefault() const
{
    return m_Context.m_Profile.GetInteger(kBuildSection, u"Default.Game.Build", 1) != 0;
}

void CCorvaneMgr::WriteBuildSettings()
{
    m_PerUser.WriteInteger(kDatabaseSection, kVersion, m_Root.m_nVersion);
    m_PerUser.WriteInteger(kDatabaseSection, kActiveBuild, static_cast<std::int32_t>(m_nActiveBuild));
    SavePerUserFile();
}

bool CCorvaneMgr::IsAttributeAvailableForBuild(const CCorvaneAttrib* pAttrib, std::uint32_t build) const
{
    ZRASSERT(pAttrib);
    SBuildRange range;
    if (pAttrib == nullptr || pAttrib->GetAttribData() == nullptr || !pAttrib->GetBuildRange(range))
        return false;
    if (range.m_nFirst > build ||
        (range.m_nLast != kBuildOpen && range.m_nLast < static_cast<std::int64_t>(build)))
        return false;
    return !pAttrib->GetAttribData()->TestFlag(ATTRIB_FLAG_DELETED);
}

bool CCorvaneMgr::IsAttributeModifiedForBuild(const CCorvaneAttrib* pAttrib, std::uint32_t build) const
{
    ZRASSERT(pAttrib);
    SBuildRange range;
    if (pAttrib == nullptr || IsAttributeAvailableForBuild(pAttrib, build) || !pAttrib->GetBuildRange(range))
        return false;
    return range.m_nFirst <= build && pAttrib->IsModified();
}

bool CCorvaneMgr::MarkAttributeAsModified(CCorvaneAttrib* pAttrib)
{
    ZRASSERT(pAttrib);
    if (pAttrib == nullptr || pAttrib->GetIndexInRecord() < 0)
        return false;
    if (FindNewerEntry(*pAttrib) != nullptr && pAttrib->SetModified(true))
        pAttrib->GetParentRecord()->SetModified(true);
    return true;
}
