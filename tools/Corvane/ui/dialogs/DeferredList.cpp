#include "DeferredList.h"

#include "CorvaneMgr.h"
#include "FormatText.h"
#include "MemberStore.h"
#include "NumberText.h"
#include "Profile.h"

#include <algorithm>
#include <optional>

namespace
{
constexpr std::u16string_view kSection = u"Dialogs\\Deferred Attribute";

std::u16string GetBuildKey(std::size_t index)
{
    return FormatText(u"Build.Item.%d", index);
}

std::optional<std::size_t> FindMember(const IMemberStore& store, const CCorvaneSchemaAttribData& data)
{
    for (std::size_t i = 0; i < store.GetMemberCount(); ++i)
    {
        if (&store.GetMemberData(i) == &data)
            return i;
    }
    return std::nullopt;
}
} // namespace

void CDeferredList::Find(EDeferOperation operation, std::uint32_t build)
{
    m_Found = FindDeferredAttributes(m_Manager, operation, build);
    m_Ticks.assign(m_Found.m_Entries.size(), false);
}

void CDeferredList::Clear()
{
    m_Found = {};
    m_Ticks.clear();
}

bool CDeferredList::HasTicks() const
{
    return std::find(m_Ticks.begin(), m_Ticks.end(), true) != m_Ticks.end();
}

std::vector<std::size_t> CDeferredList::GetOrderOfRemoval() const
{
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < m_Ticks.size(); ++i)
    {
        if (m_Ticks[i])
            order.push_back(i);
    }
    const auto isMark = [this](std::size_t i)
    { return m_Found.m_Entries[i].m_pData->TestFlag(ATTRIB_FLAG_DELETED); };
    const auto others = std::stable_partition(order.begin(), order.end(), isMark);
    const auto byIndex = [this](std::size_t a, std::size_t b)
    { return m_Found.m_Entries[a].m_nIndex > m_Found.m_Entries[b].m_nIndex; };
    std::stable_sort(order.begin(), others, byIndex);
    std::stable_sort(others, order.end(), byIndex);
    return order;
}

bool CDeferredList::DeleteTicked()
{
    std::vector<bool> removed(m_Ticks.size(), false);
    bool succeeded = true;
    for (const std::size_t entry : GetOrderOfRemoval())
    {
        succeeded = Remove(m_Found.m_Entries[entry]);
        if (!succeeded)
            break;
        removed[entry] = true;
    }
    Forget(removed);
    return succeeded;
}

// Earlier removals have moved the entries behind them, so that the place is looked up again.
bool CDeferredList::Remove(const SDeferredEntry& entry)
{
    if (entry.m_pSchema)
    {
        const std::ptrdiff_t index = entry.m_pSchema->FindAttribData(*entry.m_pData);
        return index >= 0 &&
               m_Manager.DeleteDeferredAttribute(entry.m_pSchema.Get(), static_cast<std::size_t>(index));
    }
    const IMemberStore* store = entry.m_pStructData->GetMemberStore();
    const auto index = store ? FindMember(*store, *entry.m_pData) : std::nullopt;
    return index && m_Manager.DeleteDeferredAttribute(entry.m_pStructData.Get(), *index);
}

void CDeferredList::Forget(const std::vector<bool>& removed)
{
    std::vector<std::size_t> places(removed.size());
    std::vector<SDeferredEntry> entries;
    std::vector<bool> ticks;
    for (std::size_t i = 0; i < removed.size(); ++i)
    {
        if (removed[i])
            continue;
        places[i] = entries.size();
        entries.push_back(std::move(m_Found.m_Entries[i]));
        ticks.push_back(m_Ticks[i]);
    }
    std::vector<SAttributeUse> uses;
    for (SAttributeUse& use : m_Found.m_Uses)
    {
        if (!removed[use.m_nEntry])
            uses.push_back({std::move(use.m_pRecord), std::move(use.m_pAttrib), places[use.m_nEntry]});
    }
    m_Found.m_Entries = std::move(entries);
    m_Found.m_Uses = std::move(uses);
    m_Ticks = std::move(ticks);
}

std::vector<std::uint32_t> CBuildHistory::Load() const
{
    std::vector<std::uint32_t> builds;
    for (std::size_t i = 0; i < kMaxBuilds; ++i)
    {
        const std::u16string text = m_Profile.GetString(kSection, GetBuildKey(i), u"");
        if (!text.empty())
            builds.push_back(static_cast<std::uint32_t>(ParseInteger(text)));
    }
    return builds;
}

void CBuildHistory::Add(std::uint32_t build)
{
    std::vector<std::uint32_t> builds = Load();
    std::erase(builds, build);
    builds.insert(builds.begin(), build);
    builds.resize(std::min(builds.size(), kMaxBuilds));
    for (std::size_t i = 0; i < builds.size(); ++i)
        m_Profile.SetInteger(kSection, GetBuildKey(i), static_cast<std::int32_t>(builds[i]));
}
