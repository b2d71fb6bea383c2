#include "struct/StructFile.h"

#include "CorvaneMgr.h"
#include "CorvaneSchemaAttribData.h"
#include "NameCompare.h"
#include "NumberText.h"
#include "struct/CorvaneTypeStruct.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

CStructFile::CStructFile(CCorvaneMgr& manager, std::u16string_view path) : m_Manager(manager), m_sPath(path)
{
}

CStructFile::~CStructFile() = default;

std::size_t CStructFile::FindMember(const CCorvaneAttrib& attrib) const
{
    const auto found =
        std::find_if(m_Members.begin(), m_Members.end(),
                     [&](const SStructMember& member) { return member.m_pDefault->IsSameAttribute(attrib); });
    return found != m_Members.end() ? static_cast<std::size_t>(found - m_Members.begin())
                                    : SStructMember::kNone;
}

bool CStructFile::Reaches(const CStructFile& file) const
{
    std::vector<const CStructFile*> open{this};
    std::unordered_set<const CStructFile*> seen{this};
    while (!open.empty())
    {
        const CStructFile& current = *open.back();
        open.pop_back();
        if (&current == &file)
            return true;
        for (const SStructMember& member : current.m_Members)
        {
            const CStructFile* nested = member.m_pStruct ? member.m_pStruct->GetStructFile() : nullptr;
            if (nested != nullptr && seen.insert(nested).second)
                open.push_back(nested);
        }
    }
    return false;
}

void CStructFile::Index()
{
    m_nRowSize = 0;
    m_nDepth = 1;
    for (SStructMember& member : m_Members)
    {
        member.m_sBuild = FormatInteger(member.m_pData->GetBuild());
        member.m_pStruct = member.m_pDefault->GetTypeGuid() == CCorvaneTypeStruct::kTypeGuid
                               ? static_cast<CCorvaneTypeStruct*>(member.m_pDefault.Get())
                               : nullptr;
        ++m_nRowSize;
        if (member.m_pStruct == nullptr)
            continue;
        const CStructFile* nested = member.m_pStruct->GetStructFile();
        m_nDepth = std::max(m_nDepth, 1 + (nested ? nested->GetDepth() : 1));
        if (nested)
            m_nRowSize += nested->GetRowSize() * member.m_pStruct->GetValueCount();
    }
    IndexBuilds();
}

// What a member's builds are hangs on the entries of its name, wherever they stand in the file.
void CStructFile::IndexBuilds()
{
    std::unordered_map<std::u16string_view, std::vector<std::size_t>, CNameHash, CNameEqual> byName;
    for (std::size_t i = 0; i < m_Members.size(); ++i)
        byName[m_Members[i].m_pDefault->GetName()].push_back(i);
    for (auto& [name, entries] : byName)
    {
        std::sort(entries.begin(), entries.end(),
                  [this](std::size_t a, std::size_t b)
                  { return m_Members[a].m_pData->GetBuild() > m_Members[b].m_pData->GetBuild(); });
        for (std::size_t i = 0; i < entries.size(); ++i)
        {
            SStructMember& member = m_Members[entries[i]];
            const std::int64_t build = member.m_pData->GetBuild();
            member.m_bDeferred = i > 0;
            member.m_nOlder = i + 1 < entries.size() ? entries[i + 1] : SStructMember::kNone;
            member.m_nLast = member.m_pData->TestFlag(ATTRIB_FLAG_DELETED) ? build : kBuildOpen;
            if (i > 0)
                member.m_nLast = static_cast<std::int64_t>(m_Members[entries[i - 1]].m_pData->GetBuild()) - 1;
        }
    }
}

bool CStructFile::ComputeDeferAttributeLocation(std::u16string_view name, std::uint32_t build,
                                                std::size_t& index) const
{
    const auto isNamed = [name](const SStructMember& member)
    { return EqualNames(member.m_pDefault->GetName(), name); };
    auto member = std::find_if(m_Members.begin(), m_Members.end(), isNamed);
    if (member == m_Members.end())
        return false;
    while (member != m_Members.end() && isNamed(*member) && member->m_pData->GetBuild() >= build)
        ++member;
    index = static_cast<std::size_t>(member - m_Members.begin());
    return true;
}

void CStructFile::InsertCopy(std::size_t source, std::size_t index, std::uint32_t build, bool deleted)
{
    SStructMember copy;
    copy.m_pData = m_Members[source].m_pData->Clone();
    copy.m_pData->SetBuild(build);
    copy.m_pData->SetFlag(ATTRIB_FLAG_DELETED, deleted);
    copy.m_pDefault = m_Members[source].m_pDefault->Clone(nullptr);
    copy.m_pDefault->SetBuild(build);
    copy.m_pDefault->SetAttribData(copy.m_pData.Get());
    copy.m_pDefault->SetDefaultRecord(copy.m_pDefault.Get());
    m_Members.insert(m_Members.begin() + static_cast<std::ptrdiff_t>(index), std::move(copy));
    Index();
    SetModified(true);
}

void CStructFile::RemoveMember(std::size_t index)
{
    m_Members.erase(m_Members.begin() + static_cast<std::ptrdiff_t>(index));
    Index();
    SetModified(true);
}

void CStructFile::SetMemberDeleted(std::size_t index, bool deleted)
{
    m_Members[index].m_pData->SetFlag(ATTRIB_FLAG_DELETED, deleted);
    Index();
    SetModified(true);
}

void CStructFile::SynchronizeStructAttributes()
{
    const CRef<CStructFile> keepAlive(this);
    // A listener may make attributes and let others go.
    std::vector<CRef<CCorvaneTypeStruct>> live;
    for (CCorvaneTypeStruct* attrib = m_pFirst; attrib != nullptr; attrib = attrib->m_pNext)
        live.emplace_back(attrib);
    for (const CRef<CCorvaneTypeStruct>& attrib : live)
        attrib->Synchronize();
    // New nested structs show as many rows as their counterparts above them.
    for (const CRef<CCorvaneTypeStruct>& attrib : live)
    {
        if (HasNestedStructs() && !attrib->GetInherit())
            attrib->RefreshBelow(0);
    }
    for (const CRef<CCorvaneTypeStruct>& attrib : live)
        attrib->TellSynchronized();
}

void CStructFile::Enter(CCorvaneTypeStruct& attrib)
{
    attrib.m_pPrevious = m_pLast;
    (m_pLast ? m_pLast->m_pNext : m_pFirst) = &attrib;
    m_pLast = &attrib;
}

void CStructFile::Leave(CCorvaneTypeStruct& attrib)
{
    (attrib.m_pPrevious ? attrib.m_pPrevious->m_pNext : m_pFirst) = attrib.m_pNext;
    (attrib.m_pNext ? attrib.m_pNext->m_pPrevious : m_pLast) = attrib.m_pPrevious;
    attrib.m_pPrevious = attrib.m_pNext = nullptr;
}
