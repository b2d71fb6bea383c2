// The entries that are due for their final removal at a build, with a tick for each, and who uses them.
// Without a window.
#pragma once

#include "DeferredAttributes.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class CCorvaneMgr;
class CProfile;

class CDeferredList
{
public:
    // `manager` is not owned.
    explicit CDeferredList(CCorvaneMgr& manager) : m_Manager(manager) {}

    // Nothing found is ticked.
    void Find(EDeferOperation operation, std::uint32_t build);
    void Clear();
    [[nodiscard]] std::span<const SDeferredEntry> GetEntries() const { return m_Found.m_Entries; }
    [[nodiscard]] std::span<const SAttributeUse> GetUses() const { return m_Found.m_Uses; }
    [[nodiscard]] bool IsTicked(std::size_t entry) const { return m_Ticks[entry]; }
    void Tick(std::size_t entry, bool ticked) { m_Ticks[entry] = ticked; }
    [[nodiscard]] bool HasTicks() const;

    // Removes the ticked entries from their schemas, struct files and records, and from these lists with
    // their uses: first what marks a deletion, then the rest, each from the highest index down. False at the
    // first failure; what was removed until then is gone.
    [[nodiscard]] bool DeleteTicked();

private:
    [[nodiscard]] std::vector<std::size_t> GetOrderOfRemoval() const;
    [[nodiscard]] bool Remove(const SDeferredEntry& entry);
    void Forget(const std::vector<bool>& removed);

    CCorvaneMgr& m_Manager;
    SDeferredAttributes m_Found;
    std::vector<bool> m_Ticks; // By entry.
};

// The builds that were looked for, kept in the profile.
class CBuildHistory
{
public:
    static constexpr std::size_t kMaxBuilds = 8;

    explicit CBuildHistory(CProfile& profile) : m_Profile(profile) {}
    // Newest first.
    [[nodiscard]] std::vector<std::uint32_t> Load() const;
    void Add(std::uint32_t build);

private:
    CProfile& m_Profile;
};
