#include "recordlink/RecordLinkMru.h"

#include "CorvaneMgr.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "recordlink/CorvaneTypeRecordLink.h"
#include "zrassert.h"

namespace
{
constexpr std::u16string_view kSection = u"RecordLinkMRU";
} // namespace

std::u16string CRecordLinkMru::GetKey() const
{
    ZRASSERT(m_pRecordLink);
    const CCorvaneRecord* pRecordParent = m_pRecordLink ? m_pRecordLink->GetOwnerRecord() : nullptr;
    if (m_pRecordLink == nullptr)
        return {};
    ZRASSERT(pRecordParent);
    if (pRecordParent == nullptr)
        return {};
    const CCorvaneCategory* pCategory = pRecordParent->GetCategory();
    ZRASSERT(pCategory);
    if (pCategory == nullptr)
        return {};
    const CCorvaneSchema* pSchema = pCategory->GetSchema();
    ZRASSERT(pSchema);
    return pSchema ? FormatText(u"%s@%s", pSchema->GetName(), m_pRecordLink->GetName()) : std::u16string();
}

void CRecordLinkMru::Save(std::u16string_view recordPath) const
{
    const std::u16string key = GetKey();
    if (key.empty())
        return;
    CCorvaneMgr& manager = *m_pRecordLink->GetManager();
    IUnicodeFileParse& file = manager.GetPerUserFile();
    std::u16string pending(recordPath);
    for (int slot = 0; slot < kSlots; ++slot)
    {
        const std::u16string slotKey = FormatText(u"%s_%d", key, slot);
        std::u16string before;
        const bool taken = file.ReadString(kSection, slotKey, before);
        file.WriteString(kSection, slotKey, pending);
        if (!taken || EqualNames(before, recordPath))
            break;
        pending = before;
    }
    manager.SavePerUserFile();
}

std::vector<std::u16string> CRecordLinkMru::Load() const
{
    std::vector<std::u16string> paths;
    const std::u16string key = GetKey();
    for (int slot = 0; slot < kSlots && !key.empty(); ++slot)
    {
        const CCorvaneMgr& manager = *m_pRecordLink->GetManager();
        std::u16string path;
        if (!m_pRecordLink->GetManager()->GetPerUserFile().ReadString(kSection,
                                                                      FormatText(u"%s_%d", key, slot), path))
            break;
        if (manager.FindRecord(path, nullptr))
            paths.push_back(path);
    }
    return paths;
}
