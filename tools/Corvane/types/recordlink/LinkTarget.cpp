#include "recordlink/LinkTarget.h"

#include "CorvaneMgr.h"
#include "NameCompare.h"

bool IsNoRecord(std::u16string_view value)
{
    return value.empty() || EqualNames(value, kNoRecord);
}

CLinkTarget::CLinkTarget(const CCorvaneEvent& event)
{
    const SRecordRenamed* renamed = event.GetRecordRenamed();
    const CCorvaneRecord* record = renamed ? renamed->m_pRecord : event.GetRecord();
    if (record == nullptr)
        return;
    record->GetManager().GetRecordPath(record, m_sRecordPath);
    if (renamed)
        TakeRename(*record, renamed->m_sOldPath, renamed->m_sNewPath);
    else
        record->GetManager().GetRecordDisplayPath(record, m_sDisplayPath);
}

void CLinkTarget::TakeRename(const CCorvaneRecord& record, std::u16string_view oldDisplayPath,
                             std::u16string_view newDisplayPath)
{
    m_sDisplayPath = oldDisplayPath;
    m_sNewDisplayPath = newDisplayPath;
    m_sNewRecordPath = m_sRecordPath;
    // A name may hold a separator itself, so that the old name is what follows the categories, which the
    // rename left alone.
    const std::size_t name = record.GetName().size();
    if (newDisplayPath.size() < name || oldDisplayPath.size() < newDisplayPath.size() - name)
    {
        m_sRecordPath = oldDisplayPath;
        return;
    }
    m_sRecordPath.resize(m_sNewRecordPath.size() - name);
    m_sRecordPath += oldDisplayPath.substr(newDisplayPath.size() - name);
}

bool CLinkTarget::Names(std::u16string_view value) const
{
    return !IsNoRecord(value) && (EqualNames(value, m_sDisplayPath) || EqualNames(value, m_sRecordPath));
}

std::u16string_view CLinkTarget::GetReplacement(std::u16string_view value) const
{
    if (!Names(value))
        return {};
    const std::u16string& text = EqualNames(value, m_sDisplayPath) ? m_sNewDisplayPath : m_sNewRecordPath;
    // After a rename in letter case only, a repaired text still equals the old one; an inheriting link that
    // shows it must not be written.
    return value == text ? std::u16string_view() : std::u16string_view(text);
}
