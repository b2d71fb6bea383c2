#include "struct/CorvaneTypeStruct.h"

#include "CorvaneMgr.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "SourceGate.h"
#include "host/Questions.h"
#include "struct/KeptSections.h"
#include "zrassert.h"

#include <utility>

CCorvaneTypeStruct::CCorvaneTypeStruct() = default;

CCorvaneTypeStruct::~CCorvaneTypeStruct()
{
    for (const CRef<CCorvaneType>& member : m_Members)
        ReleaseMember(*member);
    if (CStructFile* file = GetStructFile())
        file->Leave(*this);
}

CStructFile* CCorvaneTypeStruct::GetStructFile() const
{
    const CCorvaneTypeStructData* data = GetStructAttribData();
    return data ? data->GetStructFile() : nullptr;
}

const CCorvaneTypeStructData* CCorvaneTypeStruct::GetStructAttribData() const
{
    return static_cast<const CCorvaneTypeStructData*>(GetAttribData());
}

bool CCorvaneTypeStruct::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    SetBuild(data.GetBuild());
    SetAttribData(&data);
    return CCorvaneAttrib::Init(defaultText, data);
}

void CCorvaneTypeStruct::SetDefaultRows()
{
    const CStructFile* file = GetStructFile();
    SetRowCounts(0, 0);
    if (file == nullptr)
        return;
    const auto rows = static_cast<std::uint64_t>(std::max(GetAttribData()->GetValues(), 1));
    if (rows * std::max<std::uint64_t>(file->GetRowSize(), 1) <= kMaxFixedMembers)
    {
        SetRowCounts(static_cast<std::size_t>(rows), 0);
        return;
    }
    if (GetDefault() == this)
        file->GetManager().GetContext().m_Questions.Tell(
            u"Invalid Attribute",
            FormatText(
                u"The fixed counts of the struct attribute '%s' make more than %u members.  It is left "
                u"without rows.\n\n%s",
                GetAttribData()->GetName(), static_cast<unsigned>(kMaxFixedMembers), file->GetPath()));
}

void CCorvaneTypeStruct::SetAttribData(CCorvaneSchemaAttribData* data)
{
    const CRef<CStructFile> before(GetStructFile());
    CCorvaneType::SetAttribData(data);
    CStructFile* file = GetStructFile();
    if (before == file)
        return;
    if (before)
        before->Leave(*this);
    if (file)
        file->Enter(*this);
    Synchronize();
}

void CCorvaneTypeStruct::Assign(const CCorvaneAttrib& source)
{
    const auto& other = static_cast<const CCorvaneTypeStruct&>(source);
    SetRowCounts(0, 0);
    SetAttribData(other.GetAttribData());
    CCorvaneType::Assign(source);
    m_nStride = other.m_nStride;
    m_nOwnRows = other.m_nOwnRows;
    m_nInheritedRows = other.m_nInheritedRows;
    m_Members.reserve(other.m_Members.size());
    for (const CRef<CCorvaneType>& member : other.m_Members)
    {
        m_Members.push_back(member->Clone(GetParentRecord()));
        m_Members.back()->SetParentAttrib(this);
    }
    Renumber(0);
    m_pKept = other.m_pKept ? std::make_unique<CKeptSections>(*other.m_pKept) : nullptr;
}

CRef<CCorvaneType> CCorvaneTypeStruct::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeStruct>(record);
}

void CCorvaneTypeStruct::Clear()
{
    CCorvaneAttrib::Clear();
    m_pKept.reset();
    SetRowCounts(0, 0);
    if (GetDefault() != this)
        SetDefaultRows();
}

void CCorvaneTypeStruct::SetParentRecord(CCorvaneRecord* record)
{
    CCorvaneType::SetParentRecord(record);
    for (const CRef<CCorvaneType>& member : m_Members)
        member->SetParentRecord(record);
}

void CCorvaneTypeStruct::GetSectionName(std::u16string& out, std::u16string_view prefix) const
{
    out = FormatText(u"%s.%s.%u", prefix.empty() ? u"Attrib" : prefix, GetName(), GetBuild());
}

void CCorvaneTypeStruct::GetHelp(std::size_t index, std::u16string& out) const
{
    if (GetAttribData() == nullptr)
        ZRASSERT_SITE("m_pAttribData", "");
    out.clear();
    CCorvaneType::GetHelp(index, out);
}

bool CCorvaneTypeStruct::GetOverride() const
{
    const auto members = GetAttributePointerList().GetMembers();
    return std::any_of(members.begin(), members.end(),
                       [](const CRef<CCorvaneType>& member) { return member->GetOverride(); });
}

// Members and builds.

std::ptrdiff_t CCorvaneTypeStruct::FindPlace(const CCorvaneAttrib& child) const
{
    const auto isChild = [&child](const CCorvaneAttrib* member) { return member == &child; };
    const std::size_t hint = GetPlace(child);
    if (hint < m_Members.size() && isChild(m_Members[hint].Get()))
        return static_cast<std::ptrdiff_t>(hint);
    const auto found = std::find_if(m_Members.begin(), m_Members.end(),
                                    [&](const CRef<CCorvaneType>& member) { return isChild(member.Get()); });
    return found != m_Members.end() ? found - m_Members.begin() : -1;
}

std::size_t CCorvaneTypeStruct::FindMember(const CCorvaneAttrib& child) const
{
    const CStructFile* file = GetStructFile();
    if (file == nullptr)
        return SStructMember::kNone;
    const std::ptrdiff_t place = FindPlace(child);
    return place >= 0 && file->GetMembers().size() == m_nStride ? static_cast<std::size_t>(place) % m_nStride
                                                                : file->FindMember(child);
}

bool CCorvaneTypeStruct::GetChildBuildRange(const CCorvaneAttrib& child, SBuildRange& range) const
{
    range = {child.GetBuild(), kBuildOpen};
    const std::size_t member = FindMember(child);
    if (member == SStructMember::kNone)
        return false;
    range.m_nLast = GetStructFile()->GetMembers()[member].m_nLast;
    return true;
}

bool CCorvaneTypeStruct::IsChildDeferred(const CCorvaneAttrib& child) const
{
    const std::size_t member = FindMember(child);
    return member != SStructMember::kNone && GetStructFile()->GetMembers()[member].m_bDeferred;
}

std::ptrdiff_t CCorvaneTypeStruct::FindChildAttribute(const CCorvaneAttrib& child,
                                                      std::ptrdiff_t& valueIndex) const
{
    const std::ptrdiff_t place = FindPlace(child);
    valueIndex = place < 0 ? -1 : place / static_cast<std::ptrdiff_t>(m_nStride);
    return place < 0 ? -1 : place % static_cast<std::ptrdiff_t>(m_nStride);
}

CCorvaneAttrib* CCorvaneTypeStruct::GetChildAttribute(std::size_t valueIndex, const CGuid& guid) const
{
    const CStructRows rows = GetAttributePointerList();
    if (valueIndex >= rows.size())
        return nullptr;
    for (const CRef<CCorvaneType>& member : rows[valueIndex])
    {
        if (member->GetGuid() == guid)
            return member.Get();
    }
    return nullptr;
}

CCorvaneAttrib* CCorvaneTypeStruct::GetChildAttributeAt(std::size_t valueIndex, std::size_t member) const
{
    const CStructRows rows = GetAttributePointerList();
    return valueIndex < rows.size() && member < m_nStride ? rows[valueIndex][member].Get() : nullptr;
}

CCorvaneAttrib* CCorvaneTypeStruct::FindChildIn(const CCorvaneAttrib& child,
                                                const CCorvaneAttrib& other) const
{
    const std::ptrdiff_t place = FindPlace(child);
    if (place < 0 || other.GetTypeGuid() != kTypeGuid)
        return nullptr;
    const CStructRows rows = static_cast<const CCorvaneTypeStruct&>(other).GetAttributePointerList();
    const auto row = static_cast<std::size_t>(place) / m_nStride;
    const auto member = static_cast<std::size_t>(place) % m_nStride;
    if (row >= rows.size())
        return nullptr;
    const auto members = rows[row];
    if (member < members.size() && members[member]->IsSameAttribute(child))
        return members[member].Get();
    const auto same =
        std::find_if(members.begin(), members.end(),
                     [&](const CRef<CCorvaneType>& candidate) { return candidate->IsSameAttribute(child); });
    return same != members.end() ? same->Get() : nullptr;
}

bool CCorvaneTypeStruct::EnumerateChildren(const std::function<bool(CCorvaneAttrib&)>& callback)
{
    const CRef<CCorvaneTypeStruct> keepAlive(this);
    const auto members = GetAttributePointerList().GetMembers();
    // A copy, since the callback may change the rows.
    for (const CRef<CCorvaneType>& member : Row(members.begin(), members.end()))
    {
        if (!callback(*member) || !member->EnumerateChildren(callback))
            return false;
    }
    return true;
}

// Deferring a member.

bool CCorvaneTypeStruct::DeferDeprecateAttribute(CCorvaneAttrib& child, std::uint32_t build)
{
    return DeferMember(child, build, false);
}

bool CCorvaneTypeStruct::DeferDeleteAttribute(CCorvaneAttrib& child, std::uint32_t build)
{
    return DeferMember(child, build, true);
}

bool CCorvaneTypeStruct::DeferMember(CCorvaneAttrib& child, std::uint32_t build, bool deleted)
{
    const CRef<CCorvaneTypeStruct> keepAlive(this);
    const CRef<CCorvaneAttrib> keepChild(&child);
    const CRef<CStructFile> file(GetStructFile());
    ZRASSERT(!GetAttributePointerList().empty());
    if (GetAttributePointerList().empty() || !file)
        return false;
    const auto members = file->GetMembers();
    for (std::size_t i = 0; i < members.size(); ++i)
    {
        if (!EqualNames(members[i].m_pDefault->GetName(), child.GetName()) ||
            members[i].m_pData->GetBuild() != build)
            continue;
        file->SetMemberDeleted(i, deleted);
        return true;
    }
    std::size_t index = 0;
    const std::size_t source = FindMember(child);
    if (source == SStructMember::kNone || !file->ComputeDeferAttributeLocation(child.GetName(), build, index))
        return false;
    CCorvaneMgr& manager = file->GetManager();
    if (!manager.GetGate().CheckOutForEdit(file->GetPath()))
    {
        manager.GetContext().m_Questions.Tell(
            u"Check Out Failed",
            FormatText(deleted
                           ? u"Failed to check out the following 'struct' file.  The deletion operation "
                             u"will be aborted.\n\n%s"
                           : u"Failed to check out the following 'struct' file.  The deprecation operation "
                             u"will be aborted.\n\n%s",
                       file->GetPath()));
        return false;
    }
    file->InsertCopy(source, index, build, deleted);
    file->SynchronizeStructAttributes();
    manager.Notify(CCorvaneEvent(
        deleted ? ECorvaneEvent::StructMemberDeleted : ECorvaneEvent::AttributeDeprecated, &child));
    return true;
}
