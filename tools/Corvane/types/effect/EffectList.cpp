#include "effect/EffectList.h"

#include "CorvaneMgr.h"
#include "FileSystem.h"
#include "FormatText.h"
#include "effect/EffectFile.h"
#include "host/Questions.h"

namespace
{
constexpr std::u16string_view kFolder = u"VisualFX\\";
constexpr std::u16string_view kEnding = u"Fx00p";

// The ending needs no point before it, but something.
bool IsEffectFileName(std::u16string_view name)
{
    return name.size() > kEnding.size() && EqualNames(name.substr(name.size() - kEnding.size()), kEnding);
}
} // namespace

CEffectList::CEffectList(CCorvaneMgr& manager)
    : m_Manager(manager), m_LoadHandle(manager.AddObserver(
                              [this](const CCorvaneEvent& event)
                              {
                                  // The project of the database that is about to load is not known yet: the
                                  // first attribute that asks comes after it was located.
                                  if (event.GetCode() == ECorvaneEvent::LoadBegin)
                                      m_bFilled = false;
                                  return 0;
                              }))
{
}

std::span<const std::u16string> CEffectList::GetNames()
{
    if (!m_bFilled)
        Fill();
    return m_Names;
}

std::optional<std::size_t> CEffectList::Find(std::u16string_view name)
{
    if (!m_bFilled)
        Fill();
    const auto found = m_Places.find(name);
    return found == m_Places.end() ? std::nullopt : std::optional(found->second);
}

void CEffectList::Fill()
{
    m_bFilled = true;
    m_Places.clear();
    m_Names.assign(1, std::u16string(kNoEffect));
    const std::u16string folder = std::u16string(m_Manager.GetProject().m_sResourceRoot).append(kFolder);
    SDirectoryFilter filter;
    filter.m_bDirectories = false;
    std::vector<SDirectoryEntry> entries;
    const CFileError error = m_Manager.GetContext().m_Files.ListDirectory(folder, filter, entries);
    if (!error.IsOk() && error.m_Code != EFileError::NotFound)
        TellFault(folder, error.GetText());
    CFileBuffer content;
    for (const SDirectoryEntry& entry : entries)
    {
        if (IsEffectFileName(entry.m_sName))
            ReadFile(folder + entry.m_sName, content);
    }
    for (std::size_t i = 0; i < m_Names.size(); ++i)
        m_Places.emplace(m_Names[i], i);
}

void CEffectList::ReadFile(std::u16string_view path, CFileBuffer& content)
{
    IFileSystem& files = m_Manager.GetContext().m_Files;
    SFileInfo info;
    CFileError error = files.GetInfo(path, info);
    if (error.IsOk() && info.m_Stamp.m_nSize > kLongestEffectFile)
        return TellFault(path, u"the file is too long");
    if (error.IsOk())
        error = files.ReadFile(path, content, nullptr);
    if (!error.IsOk())
        return TellFault(path, error.GetText());
    if (ReadEffectNames(content.GetBytes(), m_Names) == EEffectFile::Damaged)
        TellFault(path, u"the file is damaged");
}

void CEffectList::TellFault(std::u16string_view path, std::u16string_view cause)
{
    m_Manager.GetContext().m_Questions.Tell(
        u"File Open Failed", FormatText(u"The effects could not be read: %s.\n\n%s", cause, path));
}
