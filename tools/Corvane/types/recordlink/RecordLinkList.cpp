#include "recordlink/RecordLinkList.h"

#include "CorvaneMgr.h"
#include "NameCompare.h"
#include "RunState.h"
#include "UndoRecorder.h"
#include "recordlink/CorvaneTypeRecordLink.h"

#include <algorithm>

namespace
{
// Below this many places, an untidy list is not worth a tidying.
constexpr std::size_t kSmallList = 1024;

const CCorvaneTypeRecordLink* AsLink(const CCorvaneAttrib* attrib)
{
    return attrib && attrib->GetTypeGuid() == CCorvaneTypeRecordLink::kTypeGuid
               ? static_cast<const CCorvaneTypeRecordLink*>(attrib)
               : nullptr;
}

// Whether the attribute, or a struct around it, takes its values from the parent record.
bool MayInherit(const CCorvaneAttrib& attrib)
{
    for (const CCorvaneAttrib* a = &attrib; a != nullptr; a = a->GetParentAttrib())
    {
        if (a->GetInherit())
            return true;
    }
    return false;
}

// The neighbour of `attrib` in its record or struct row when it is another build of the same entry; `step` is
// 1 for the one behind, -1 for the one before.
const CCorvaneAttrib* FindOtherBuild(const CCorvaneAttrib& attrib, std::ptrdiff_t step)
{
    const CCorvaneAttrib* other = nullptr;
    if (const CCorvaneAttrib* parent = attrib.GetParentAttrib())
    {
        std::ptrdiff_t row = -1;
        const std::ptrdiff_t member = parent->FindChildAttribute(attrib, row);
        if (member >= 0 && row >= 0 && member + step >= 0)
            other = parent->GetChildAttributeAt(static_cast<std::size_t>(row),
                                                static_cast<std::size_t>(member + step));
    }
    else if (const std::ptrdiff_t index = attrib.GetIndexInRecord(); index >= 0 && index + step >= 0)
    {
        const auto list = attrib.GetParentRecord()->GetAttributeList();
        const auto place = static_cast<std::size_t>(index + step);
        other = place < list.size() ? list[place].Get() : nullptr;
    }
    return other && other->GetGuid() == attrib.GetGuid() ? other : nullptr;
}

const CCorvaneAttrib& FindFirstBuild(const CCorvaneAttrib& attrib)
{
    const CCorvaneAttrib* first = &attrib;
    while (const CCorvaneAttrib* before = FindOtherBuild(*first, -1))
        first = before;
    return *first;
}
} // namespace

// Keeps the places of the links still.
class CRecordLinkList::CRoundScope
{
public:
    explicit CRoundScope(CRecordLinkList& list) : m_List(list) { ++m_List.m_nRounds; }
    ~CRoundScope() { --m_List.m_nRounds; }
    CRoundScope(const CRoundScope&) = delete;
    CRoundScope& operator=(const CRoundScope&) = delete;

private:
    CRecordLinkList& m_List;
};

CRecordLinkList::CRecordLinkList(CCorvaneMgr& manager)
    : m_Manager(manager),
      m_Observer(manager.AddObserver([this](const CCorvaneEvent& event) { return OnManagerEvent(event); }))
{
}

CRecordLinkList::~CRecordLinkList()
{
    // A link that somebody still holds must not look for its list.
    ForEach([](CCorvaneTypeRecordLink& link) { link.m_pList = nullptr; });
}

void CRecordLinkList::Join(CCorvaneTypeRecordLink& link)
{
    if (m_nRounds == 0 && m_Links.size() > kSmallList && m_nLeft * 2 > m_Links.size())
        Compact();
    link.m_pList = this;
    link.m_nSlot = static_cast<std::uint32_t>(m_Links.size());
    m_Links.push_back(&link);
    OnValuesChanged(link);
}

void CRecordLinkList::Leave(CCorvaneTypeRecordLink& link)
{
    if (link.m_bAccepted)
        m_Accepted.erase(&link);
    m_Links[link.m_nSlot] = nullptr;
    ++m_nLeft;
}

void CRecordLinkList::Compact()
{
    DropIndex(); // It knows the links by their places.
    std::uint32_t slot = 0;
    for (CCorvaneTypeRecordLink* link : m_Links)
    {
        if (link == nullptr)
            continue;
        link->m_nSlot = slot;
        m_Links[slot++] = link;
    }
    m_Links.resize(slot);
    m_nLeft = 0;
}

void CRecordLinkList::DropIndex()
{
    for (const std::uint32_t slot : m_Changed)
    {
        if (slot < m_Links.size() && m_Links[slot])
            m_Links[slot]->m_bChanged = false;
    }
    m_Changed.clear();
    m_Index.Clear();
    m_bIndexed = false;
}

void CRecordLinkList::OnValuesChanged(CCorvaneTypeRecordLink& link)
{
    if (!m_bIndexed || link.m_bChanged)
        return;
    link.m_bChanged = true;
    m_Changed.push_back(link.m_nSlot);
}

void CRecordLinkList::AddToIndex(const CCorvaneTypeRecordLink& link)
{
    const CCorvaneValueList& values = link.GetOwnValues();
    for (std::size_t i = 0; i < values.GetCount(); ++i)
    {
        if (!IsNoRecord(values.Get(i)))
            m_Index.Add(values.Get(i), link.m_nSlot);
    }
}

void CRecordLinkList::BringInLine()
{
    // Texts that are gone stay in the index; when they are the greater part of it, it is built anew.
    if (m_bIndexed && m_Index.GetSize() > 2 * m_nFreshSize + kSmallList)
        DropIndex();
    if (!m_bIndexed)
    {
        ForEach([this](const CCorvaneTypeRecordLink& link) { AddToIndex(link); });
        m_bIndexed = true;
        m_nFreshSize = m_Index.GetSize();
        return;
    }
    for (const std::uint32_t slot : m_Changed)
    {
        if (CCorvaneTypeRecordLink* link = m_Links[slot])
        {
            link->m_bChanged = false;
            AddToIndex(*link);
        }
    }
    m_Changed.clear();
}

void CRecordLinkList::AddInheriting(const CCorvaneTypeRecordLink& from,
                                    std::unordered_set<std::uint32_t>& found,
                                    std::vector<const CCorvaneTypeRecordLink*>& open) const
{
    const CCorvaneRecord* record = from.GetOwnerRecord();
    if (record == nullptr || record->GetReferencees().empty() || !from.IsShown())
        return;
    const auto take = [&](const CCorvaneAttrib* attrib)
    {
        const CCorvaneTypeRecordLink* link = attrib && MayInherit(*attrib) ? AsLink(attrib) : nullptr;
        if (link && found.insert(link->m_nSlot).second)
            open.push_back(link);
    };
    for (const CRef<CCorvaneRecord>& child : record->GetReferencees())
    {
        CCorvaneAttrib* symmetric = nullptr;
        // Entries for several builds share the identity by which a child finds its value, so that one that
        // the parent lacks shows another's.
        const bool isFound = m_Manager.FindSymmetricAttribute(record, &from, child.Get(), symmetric);
        for (const CCorvaneAttrib* attrib = isFound ? &FindFirstBuild(*symmetric) : nullptr; attrib != nullptr;
             attrib = FindOtherBuild(*attrib, 1))
            take(attrib);
        // A struct that stands for several builds is found by its own.
        take(from.FindCounterpart(*child));
    }
}

// A repair in the round changes values to texts that do not name the record and takes inheritance away,
// which may bring an own text to light: all holders of the text are here, whether they show it or not, and
// so is every link below them that inherits now. So the candidates stay complete to the end of the round.
std::vector<std::uint32_t> CRecordLinkList::FindCandidates(const CLinkTarget& target)
{
    BringInLine();
    std::unordered_set<std::uint32_t> found;
    std::vector<const CCorvaneTypeRecordLink*> open;
    for (const std::u16string* text : {&target.GetRecordPath(), &target.GetDisplayPath()})
    {
        m_Index.Find(*text,
                     [&](std::uint32_t slot)
                     {
                         const CCorvaneTypeRecordLink* link = m_Links[slot];
                         if (link && link->OwnsNameOf(target) && found.insert(slot).second)
                             open.push_back(link);
                     });
    }
    while (!open.empty())
    {
        const CCorvaneTypeRecordLink& link = *open.back();
        open.pop_back();
        AddInheriting(link, found, open);
    }
    std::vector<std::uint32_t> slots(found.begin(), found.end());
    std::sort(slots.begin(), slots.end());
    return slots;
}

bool CRecordLinkList::IsUnattended() const
{
    const CRunState& run = m_Manager.GetContext().m_Run;
    return run.m_bSilent || run.Test(APP_CLOSING | APP_RELOADING) || m_Manager.GetUndo().IsReplaying();
}

int CRecordLinkList::OnManagerEvent(const CCorvaneEvent& event)
{
    switch (event.GetCode())
    {
    case ECorvaneEvent::CloseBegin:
        // The records of a database that closes are reported as deleted, and no link is repaired for that.
        m_bClosing = true;
        DropIndex();
        return 0;
    case ECorvaneEvent::CloseEnd:
        m_bClosing = false;
        Compact();
        return 0;
    case ECorvaneEvent::RecordDeleting:
    case ECorvaneEvent::RecordMoving:
        return IsUnattended() ? 0 : RunRound(event);
    case ECorvaneEvent::RecordDeleted:
    case ECorvaneEvent::RecordRenamed:
        return RunRound(event);
    case ECorvaneEvent::RecordReloaded:
        if (event.GetRecord())
            AskForLostValues(*event.GetRecord());
        return 0;
    default:
        return 0;
    }
}

int CRecordLinkList::RunRound(const CCorvaneEvent& event)
{
    if (m_bClosing)
        return 0;
    const CLinkTarget target(event);
    if (IsNoRecord(target.GetRecordPath()))
        return 0;
    const CRoundScope scope(*this);
    const std::size_t firstNew = m_Links.size();
    int answer = 0;
    const auto visit = [&](std::size_t slot)
    {
        // A repair may replace the rows of a struct, and with them links.
        if (const CRef<CCorvaneTypeRecordLink> link{m_Links[slot]})
            answer = link->OnManagerEvent(event, target);
    };
    const std::vector<std::uint32_t> candidates = FindCandidates(target);
    for (std::size_t i = 0; i < candidates.size() && answer == 0; ++i)
        visit(candidates[i]);
    for (std::size_t slot = firstNew; slot < m_Links.size() && answer == 0; ++slot)
        visit(slot);
    return answer;
}

void CRecordLinkList::AskForLostValues(CCorvaneRecord& record)
{
    std::vector<std::uint32_t> slots;
    const auto collect = [&](const CCorvaneAttrib& attrib)
    {
        if (const CCorvaneTypeRecordLink* link = AsLink(&attrib))
            slots.push_back(link->m_nSlot);
        return true;
    };
    for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
    {
        collect(*attrib);
        static_cast<void>(attrib->EnumerateChildren(collect));
    }
    std::sort(slots.begin(), slots.end());
    const CRoundScope scope(*this);
    for (const std::uint32_t slot : slots)
    {
        if (const CRef<CCorvaneTypeRecordLink> link{m_Links[slot]})
            link->AskForLostValues();
    }
}

void CRecordLinkList::Accept(CCorvaneTypeRecordLink& link, std::u16string_view value)
{
    m_Accepted[&link].emplace_back(value);
    link.m_bAccepted = true;
}

bool CRecordLinkList::IsAccepted(const CCorvaneTypeRecordLink& link, std::u16string_view value) const
{
    if (!link.m_bAccepted)
        return false;
    const std::vector<std::u16string>& values = m_Accepted.at(&link);
    return std::any_of(values.begin(), values.end(),
                       [value](const std::u16string& accepted) { return EqualNames(accepted, value); });
}
