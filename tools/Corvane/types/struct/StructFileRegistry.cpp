#include "struct/StructFileRegistry.h"

#include "CorvaneMgr.h"
#include "FormatText.h"
#include "Path.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <algorithm>

namespace
{
// One text for both forms of separator.
std::u16string MakeKey(std::u16string_view path)
{
    std::u16string key(path);
    std::replace(key.begin(), key.end(), u'\\', u'/');
    return key;
}
} // namespace

CStructFileRegistry::CStructFileRegistry(CCorvaneMgr& manager)
    : m_Manager(manager),
      m_Observer(manager.AddObserver([this](const CCorvaneEvent& event) { return OnEvent(event); }))
{
}

CRef<CStructFile> CStructFileRegistry::Open(std::u16string_view path, std::u16string_view owner,
                                            std::u16string_view attribute)
{
    std::u16string key = MakeKey(path);
    const auto known = m_Index.find(key);
    CRef<CStructFile> file(known != m_Index.end() ? known->second : new CStructFile(m_Manager, path));
    if (!MayNest(*file, attribute))
        return nullptr;
    if (known != m_Index.end())
        return file;
    // Known from here on, so that a struct file that reaches itself finds itself.
    m_Index.emplace(key, file.Get());
    if (!Read(*file, owner))
    {
        m_Index.erase(key);
        ZRASSERT_FORCED("");
        return nullptr;
    }
    m_Files.push_back(file);
    return file;
}

bool CStructFileRegistry::Read(CStructFile& file, std::u16string_view owner)
{
    m_Reading.push_back(&file);
    const bool read = file.Load(owner);
    m_Reading.pop_back();
    return read;
}

bool CStructFileRegistry::MayNest(const CStructFile& file, std::u16string_view attribute) const
{
    if (m_Reading.empty())
        return true;
    // A file that is being read has no members yet, so that a circle shows as soon as it closes.
    const bool isCircle = std::any_of(m_Reading.begin(), m_Reading.end(),
                                      [&](const CStructFile* reading) { return file.Reaches(*reading); });
    if (isCircle || m_Reading.size() + file.GetDepth() > kMaxDepth)
    {
        TellCircle(file, attribute);
        return false;
    }
    return true;
}

void CStructFileRegistry::TellCircle(const CStructFile& file, std::u16string_view attribute) const
{
    const bool isCircle = m_Reading.size() + file.GetDepth() <= kMaxDepth;
    std::u16string files;
    for (const CStructFile* reading : m_Reading)
        files += reading->GetPath() + u'\n';
    files += file.GetPath();
    m_Manager.GetContext().m_Questions.Tell(
        u"Invalid Struct Path",
        FormatText(
            isCircle ? u"The member '%s' leads its struct file back to itself and is left without rows.  The "
                       u"files on the way are:\n\n%s"
                     : u"The member '%s' nests struct files too deeply and is left without rows.  The files "
                       u"on the way are:\n\n%s",
            attribute, files));
}

int CStructFileRegistry::OnEvent(const CCorvaneEvent& event)
{
    switch (event.GetCode())
    {
    case ECorvaneEvent::CloseBegin:
        m_Index.clear();
        m_Files.clear();
        break;
    case ECorvaneEvent::SchemasSaveEnd:
        SaveModified();
        break;
    case ECorvaneEvent::EnumerateCustomFiles:
        for (const CRef<CStructFile>& file : std::vector(m_Files))
            (*event.GetEnumerateCustomFiles()->m_pCallback)(*file);
        break;
    default:
        break;
    }
    return 0;
}

void CStructFileRegistry::SaveModified()
{
    for (const CRef<CStructFile>& file : std::vector(m_Files))
    {
        // A file that could not be written has told so, and stays marked.
        if (file->IsModified())
            static_cast<void>(file->Save());
    }
}
