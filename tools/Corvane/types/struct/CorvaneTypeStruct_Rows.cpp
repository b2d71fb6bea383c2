// The two lists of rows: how they grow and shrink, and how they follow the parent record and the struct file.
#include "struct/CorvaneTypeStruct.h"

#include "CorvaneMgr.h"
#include "NameCompare.h"
#include "struct/KeptSections.h"
#include "struct/StructRowRestorePoint.h"
#include "zrassert.h"

#include <iterator>
#include <unordered_map>
#include <utility>

CStructRows CCorvaneTypeStruct::GetAttributePointerList() const
{
    // Without a parent there is nothing to show.
    const bool shownOwn = !GetInherit();
    return {m_Members, m_nStride, shownOwn ? m_nOwnRows : IsInheriting() ? m_nInheritedRows : 0};
}

CStructRows CCorvaneTypeStruct::GetSavedRows() const
{
    return {m_Members, m_nStride, IsInheriting() ? m_nInheritedRows : m_nOwnRows};
}

std::size_t CCorvaneTypeStruct::GetValueCount() const
{
    return GetAttributePointerList().size();
}

std::u16string_view CCorvaneTypeStruct::GetValue(std::size_t) const
{
    return u"";
}

// Members enter and leave.

void CCorvaneTypeStruct::AdoptMember(CCorvaneType& member)
{
    member.SetParentRecord(GetParentRecord());
    member.SetParentAttrib(this);
}

// Somebody may still hold the member, an undo list perhaps: it must not look for what it lay in.
void CCorvaneTypeStruct::ReleaseMember(CCorvaneType& member)
{
    if (member.GetRefCount() == 1)
        return;
    member.SetParentAttrib(nullptr);
    member.SetParentRecord(nullptr);
}

CCorvaneTypeStruct::Row CCorvaneTypeStruct::MakeRow()
{
    Row row;
    const auto members = GetStructFile()->GetMembers();
    row.reserve(members.size());
    for (const SStructMember& member : members)
    {
        row.push_back(member.m_pDefault->Clone(GetParentRecord()));
        row.back()->SetParentAttrib(this);
    }
    return row;
}

void CCorvaneTypeStruct::Renumber(std::size_t first)
{
    for (std::size_t place = first * m_nStride; place < m_Members.size(); ++place)
        SetPlace(*m_Members[place], place);
}

void CCorvaneTypeStruct::SetRowCounts(std::size_t own, std::size_t inherited)
{
    const std::size_t before = GetStoredRows();
    const std::size_t after = std::max(own, inherited);
    m_nOwnRows = static_cast<std::uint32_t>(own);
    m_nInheritedRows = static_cast<std::uint32_t>(inherited);
    if (before == 0 && GetStructFile())
        m_nStride = static_cast<std::uint32_t>(GetStructFile()->GetMembers().size());
    if (after > before + 1) // A load appends row by row.
        m_Members.reserve(after * m_nStride);
    for (std::size_t row = before; row < after; ++row)
    {
        Row added = MakeRow();
        std::move(added.begin(), added.end(), std::back_inserter(m_Members));
    }
    for (; m_Members.size() > after * m_nStride; m_Members.pop_back())
        ReleaseMember(*m_Members.back());
    Renumber(before);
}

void CCorvaneTypeStruct::PlaceRow(std::size_t index, Row row)
{
    for (const CRef<CCorvaneType>& member : row)
        AdoptMember(*member);
    m_Members.insert(m_Members.begin() + static_cast<std::ptrdiff_t>(index * m_nStride),
                     std::make_move_iterator(row.begin()), std::make_move_iterator(row.end()));
    ++m_nOwnRows;
    Renumber(index);
}

CCorvaneTypeStruct::Row CCorvaneTypeStruct::TakeRow(std::size_t index)
{
    const auto first = m_Members.begin() + static_cast<std::ptrdiff_t>(index * m_nStride);
    const auto last = first + static_cast<std::ptrdiff_t>(m_nStride);
    Row row(std::make_move_iterator(first), std::make_move_iterator(last));
    m_Members.erase(first, last);
    --m_nOwnRows;
    Renumber(index);
    for (const CRef<CCorvaneType>& member : row)
    {
        member->SetParentAttrib(nullptr);
        member->SetParentRecord(nullptr);
    }
    return row;
}

// Changes of the rows by a user.

bool CCorvaneTypeStruct::BeginRowChange()
{
    if (!PrepareForEdit())
        return false;
    if (GetParentAttrib())
        GetParentAttrib()->OnMemberWrite(*this);
    else if (CCorvaneMgr* manager = GetManager())
        manager->MarkAttributeAsModified(this);
    TakeOverRows();
    if (CCorvaneRecord* record = GetOwnerRecord())
        record->SetModified(true);
    return true;
}

bool CCorvaneTypeStruct::InsertRow(std::size_t index)
{
    if (!IsVariableSize() || GetStructFile() == nullptr || index > GetSavedRows().size() || !BeginRowChange())
        return false;
    UnfollowRows(index);
    PlaceRow(index, MakeRow());
    RecordRowInsertion(*this, index);
    OnRowsChanged(index);
    return true;
}

bool CCorvaneTypeStruct::AddValue(std::u16string_view)
{
    return InsertRow(GetSavedRows().size());
}

bool CCorvaneTypeStruct::InsertValue(std::size_t, std::u16string_view)
{
    ZRASSERT_FORCED("CCorvaneTypeStruct::InsertValue - Not Supported");
    return false;
}

bool CCorvaneTypeStruct::SetValue(std::size_t, std::u16string_view)
{
    ZRASSERT_FORCED("CCorvaneTypeStruct::SetValue - Not Supported");
    return false;
}

bool CCorvaneTypeStruct::RemoveValue(std::size_t index)
{
    Row removed;
    return CutRow(index, removed);
}

bool CCorvaneTypeStruct::CutRow(std::size_t index, Row& row)
{
    if (!IsVariableSize() || index >= GetValueCount() || !BeginRowChange())
        return false;
    UnfollowRows(index);
    row = TakeRow(index); // A listener sees the attribute without it.
    OnRowsChanged(index);
    return true;
}

bool CCorvaneTypeStruct::MoveValueUp(std::size_t index)
{
    return index > 0 && MoveRow(index, index - 1);
}

bool CCorvaneTypeStruct::MoveValueDown(std::size_t index)
{
    return MoveRow(index, index + 1);
}

bool CCorvaneTypeStruct::MoveRow(std::size_t index, std::size_t to)
{
    if (!IsVariableSize() || std::max(index, to) >= GetValueCount() || !BeginRowChange())
        return false;
    UnfollowRows(std::min(index, to));
    const auto at = [this](std::size_t row)
    { return m_Members.begin() + static_cast<std::ptrdiff_t>(row * m_nStride); };
    std::swap_ranges(at(index), at(index + 1), at(to));
    Renumber(std::min(index, to));
    OnRowsChanged(std::min(index, to));
    return true;
}

// Rows from `first` on are about to change their numbers, by which they follow the parent's rows.
void CCorvaneTypeStruct::UnfollowRows(std::size_t first)
{
    const CCorvaneRecord* record = GetParentRecord();
    if (record == nullptr || record->GetParent() == nullptr)
        return;
    for (std::size_t place = first * m_nStride; place < m_Members.size(); ++place)
    {
        m_Members[place]->KeepShownValues();
        m_Members[place]->SetInherit(false, true);
    }
}

void CCorvaneTypeStruct::OnRowsChanged(std::size_t index)
{
    if (GetParentRecord())
        GetParentRecord()->OnAttributeChanged(*this, index);
    NotifyViews(nullptr, kViewValueChanged);
    RefreshBelow(index);
}

void CCorvaneTypeStruct::CopyValuesFrom(const CCorvaneAttrib& older)
{
    if (older.GetTypeGuid() != kTypeGuid || GetStructFile() == nullptr)
        return;
    // The rows that a save keeps: those of a record that lost its parent are its own, though none shows.
    const CStructRows source = static_cast<const CCorvaneTypeStruct&>(older).GetSavedRows();
    SetRowCounts(source.size(), m_nInheritedRows);
    for (std::size_t row = 0; row < source.size(); ++row)
    {
        for (std::size_t i = 0; i < m_nStride; ++i)
        {
            CCorvaneType& member = *m_Members[row * m_nStride + i];
            // The entries mostly share a struct file, so that the search begins at the same place.
            const auto candidates = source[row];
            const auto matches = [&](const CRef<CCorvaneType>& candidate) {
                return candidate->GetBuild() == member.GetBuild() &&
                       EqualNames(candidate->GetName(), member.GetName());
            };
            auto found = candidates.begin() + static_cast<std::ptrdiff_t>(std::min(i, candidates.size()));
            if (found == candidates.end() || !matches(*found))
                found = std::find_if(candidates.begin(), candidates.end(), matches);
            if (found != candidates.end())
                member.CopyValuesFrom(**found);
        }
    }
}

// Inheritance.

void CCorvaneTypeStruct::SetInherit(bool value, bool recursive)
{
    const bool before = GetInherit();
    CCorvaneType::SetInherit(value, recursive);
    if (recursive)
    {
        for (const CRef<CCorvaneType>& member : Row(m_Members))
            member->SetInherit(value, true);
    }
    // What is hidden by now needs no rows; what is shown by now follows the parent. The rows in force change
    // even where the second list does not: that of a parent without rows is empty before and after.
    if (GetInherit() == before)
        return;
    static_cast<void>(RefreshInherited());
    RefreshBelow(0);
}

bool CCorvaneTypeStruct::IsMemberShown(const CCorvaneAttrib& child) const
{
    const std::ptrdiff_t place = FindPlace(child);
    return place >= 0 && static_cast<std::size_t>(place) < GetAttributePointerList().GetMembers().size();
}

void CCorvaneTypeStruct::OnMemberWrite(CCorvaneAttrib& child)
{
    if (GetParentAttrib())
        GetParentAttrib()->OnMemberWrite(*this);
    else if (CCorvaneMgr* manager = GetManager())
        manager->MarkAttributeAsModified(this);
    // An older entry that changes behind a newer one, as the marks of a schema's entries tell it.
    if (IsChildDeferred(child))
        static_cast<void>(child.SetModified(true));
    if (IsMemberShown(child))
        TakeOverRows();
}

void CCorvaneTypeStruct::OnMemberInheritEnd(CCorvaneAttrib& child)
{
    if (IsMemberShown(child))
        TakeOverRows();
}

void CCorvaneTypeStruct::TakeOverRows()
{
    if (!GetInherit())
        return;
    if (GetParentAttrib() && GetParentAttrib()->GetInherit())
        GetParentAttrib()->OnMemberInheritEnd(*this);
    KeepShownValues();
    CCorvaneType::SetInherit(false, false);
}

void CCorvaneTypeStruct::KeepShownValues()
{
    for (const CRef<CCorvaneType>& member : GetAttributePointerList().GetMembers())
        member->KeepShownValues();
    if (IsInheriting())
        SetRowCounts(m_nInheritedRows, m_nInheritedRows);
}

void CCorvaneTypeStruct::OnHierarchyEvent(EHierarchyEvent, CCorvaneRecord&, CCorvaneAttrib*)
{
    static_cast<void>(RefreshInherited());
}

// Makes the second list as long as the parent's rows. True when the rows in force may have changed.
bool CCorvaneTypeStruct::RefreshInherited()
{
    const CStructFile* file = GetStructFile();
    const bool nested = file != nullptr && file->HasNestedStructs();
    if (file == nullptr || (!GetInherit() && m_nInheritedRows == 0 && !nested))
        return false;
    std::size_t count = 0;
    if (IsInheriting())
    {
        const CCorvaneAttrib* source = FindCounterpart(*GetParentRecord()->GetParent());
        count = source ? source->GetValueCount() : 0;
    }
    const bool changed = count != m_nInheritedRows;
    SetRowCounts(m_nOwnRows, count);
    bool nestedChanged = false;
    const auto members = file->GetMembers();
    for (std::size_t i = 0; nested && i < members.size(); ++i)
    {
        for (std::size_t place = i; members[i].m_pStruct && place < m_Members.size(); place += m_nStride)
            nestedChanged =
                static_cast<CCorvaneTypeStruct&>(*m_Members[place]).RefreshInherited() || nestedChanged;
    }
    return changed || nestedChanged;
}

// Everybody below whose rows follow these. A list of its own instead of recursion: a chain of parents may be
// as long as the database is large.
void CCorvaneTypeStruct::RefreshBelow(std::size_t index)
{
    const CCorvaneRecord* record = GetParentRecord();
    if (record == nullptr || record->GetReferencees().empty())
        return;
    std::vector<CRef<CCorvaneRecord>> open(record->GetReferencees().begin(), record->GetReferencees().end());
    while (!open.empty())
    {
        const CRef<CCorvaneRecord> below = std::move(open.back());
        open.pop_back();
        CCorvaneAttrib* found = FindCounterpart(*below);
        if (found == nullptr || found->GetTypeGuid() != kTypeGuid)
            continue;
        auto& counterpart = static_cast<CCorvaneTypeStruct&>(*found);
        if (!counterpart.RefreshInherited())
            continue;
        below->OnAttributeChanged(counterpart, index);
        counterpart.NotifyViews(nullptr, kViewValueChanged);
        open.insert(open.end(), below->GetReferencees().begin(), below->GetReferencees().end());
    }
}

// The struct file.

void CCorvaneTypeStruct::Synchronize()
{
    const CStructFile* file = GetStructFile();
    const std::size_t rows = GetStoredRows();
    if (file == nullptr)
    {
        SetRowCounts(0, 0);
        return;
    }
    // What is its own default holds no values but those.
    if (GetDefault() == this)
    {
        SetDefaultRows();
        return;
    }
    const auto members = file->GetMembers();
    if (rows == 0)
    {
        m_nStride = static_cast<std::uint32_t>(members.size());
        return;
    }
    // All rows stand in one order, so that the first one tells where each member was.
    std::unordered_multimap<std::u16string_view, std::size_t, CNameHash, CNameEqual> before;
    for (std::size_t i = 0; i < m_nStride; ++i)
        before.emplace(m_Members[i]->GetName(), i);
    std::vector<std::size_t> sources(members.size(), SStructMember::kNone);
    for (std::size_t i = 0; i < members.size(); ++i)
    {
        const CCorvaneType& entry = *members[i].m_pDefault;
        const auto [first, last] = before.equal_range(entry.GetName());
        for (auto known = first; known != last; ++known)
        {
            const CCorvaneType& member = *m_Members[known->second];
            if (member.GetBuild() == entry.GetBuild() &&
                EqualNames(member.GetSchemaTypeName(), entry.GetSchemaTypeName()))
                sources[i] = known->second;
        }
    }
    std::vector<CRef<CCorvaneType>> old = std::exchange(m_Members, {});
    const std::size_t oldStride = std::exchange(m_nStride, static_cast<std::uint32_t>(members.size()));
    m_Members.reserve(rows * m_nStride);
    for (std::size_t row = 0; row < rows; ++row)
        AppendMatchedRow(std::span(old).subspan(row * oldStride, oldStride), sources);
    for (const CRef<CCorvaneType>& member : old)
    {
        if (member)
            ReleaseMember(*member);
    }
    Renumber(0);
}

void CCorvaneTypeStruct::AppendMatchedRow(std::span<CRef<CCorvaneType>> old,
                                          std::span<const std::size_t> sources)
{
    const auto members = GetStructFile()->GetMembers();
    const std::size_t start = m_Members.size();
    std::vector<std::size_t> added;
    for (std::size_t i = 0; i < members.size(); ++i)
    {
        if (sources[i] == SStructMember::kNone)
        {
            m_Members.push_back(members[i].m_pDefault->Clone(GetParentRecord()));
            m_Members.back()->SetParentAttrib(this);
            added.push_back(i);
            continue;
        }
        CRef<CCorvaneType> member = std::move(old[sources[i]]);
        // A file that was read again has new data and defaults for the members that it kept.
        member->AdoptIdentity(*members[i].m_pDefault);
        member->SetAttribData(members[i].m_pData.Get());
        member->SetDefaultRecord(members[i].m_pDefault.Get());
        m_Members.push_back(std::move(member));
    }
    // A new entry starts from the values of the next older one of its name.
    SortOldestFirst(added);
    for (const std::size_t i : added)
    {
        if (members[i].m_nOlder != SStructMember::kNone)
            m_Members[start + i]->CopyValuesFrom(*m_Members[start + members[i].m_nOlder]);
    }
}

void CCorvaneTypeStruct::SortOldestFirst(std::vector<std::size_t>& indices) const
{
    const auto members = GetStructFile()->GetMembers();
    std::sort(indices.begin(), indices.end(),
              [&](std::size_t a, std::size_t b)
              { return members[a].m_pData->GetBuild() < members[b].m_pData->GetBuild(); });
}

bool CCorvaneTypeStruct::IsRowOfFile(const Row& row) const
{
    const CStructFile* file = GetStructFile();
    return file != nullptr &&
           std::equal(row.begin(), row.end(), file->GetMembers().begin(), file->GetMembers().end(),
                      [](const CRef<CCorvaneType>& member, const SStructMember& entry)
                      { return member->IsSameAttribute(*entry.m_pDefault); });
}

void CCorvaneTypeStruct::TellSynchronized()
{
    CCorvaneRecord* record = GetOwnerRecord();
    const std::size_t rows = GetValueCount();
    for (std::size_t row = 0; record != nullptr && row < rows; ++row)
        record->GetManager().Notify(CCorvaneEvent(ECorvaneEvent::AttributesChanged, record));
}
