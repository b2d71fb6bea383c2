#include "UndoMgr.h"

#include "FormatText.h"
#include "UndoGroup.h"
#include "host/Services.h"
#include "zrassert.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr std::size_t kSlotSize = 4;
constexpr std::size_t kMenuItems = 18;
constexpr std::size_t kMnemonics = 9;

// Holds a mark of the flag word for the length of an operation.
class CFlagScope
{
public:
    CFlagScope(std::uint32_t& word, std::uint32_t flag) : m_Word(word), m_dwFlag(flag) { m_Word |= flag; }
    ~CFlagScope() { m_Word &= ~m_dwFlag; }
    CFlagScope(const CFlagScope&) = delete;
    CFlagScope& operator=(const CFlagScope&) = delete;

private:
    std::uint32_t& m_Word;
    std::uint32_t m_dwFlag;
};

// A group's text as it stands in a menu: two lines, and a name's own '&' is no mnemonic.
std::u16string GetMenuText(std::u16string_view text)
{
    std::u16string out;
    for (const char16_t unit : text)
    {
        if (unit == u'&')
            out += u'&';
        out += unit == u'\t' ? u'\n' : unit;
    }
    return out;
}
} // namespace

CUndoMgr::CUndoMgr(IServices& services) : m_Services(services) {}

CUndoMgr::~CUndoMgr()
{
    ZRASSERT(m_dwGroupRef == 0);
    Clear();
}

bool CUndoMgr::BeginGroup(const char* sourceFile, int line)
{
    if (IsReplaying())
        return false;
    if (m_dwGroupRef == 0)
    {
        m_pCurrentGroup = std::make_unique<CUndoGroup>(sourceFile, line);
        m_dwFlags |= UNDO_FLAG_GROUP_OPEN;
    }
    ++m_dwGroupRef;
    return true;
}

bool CUndoMgr::CloseLevel()
{
    return --m_dwGroupRef == 0;
}

void CUndoMgr::AcceptGroup(std::u16string_view text)
{
    ZRASSERT(m_pCurrentGroup);
    if (!m_pCurrentGroup || !CloseLevel())
        return;
    m_pCurrentGroup->DropRestored();
    m_pCurrentGroup->SetText(text);
    m_UndoList.push_back(std::move(m_pCurrentGroup));
    m_dwFlags &= ~UNDO_FLAG_GROUP_OPEN;
    DestroyNewestFirst(m_RedoList);
    Trim();
}

void CUndoMgr::CancelGroup()
{
    ZRASSERT(m_pCurrentGroup);
    if (!m_pCurrentGroup || !CloseLevel())
        return;
    ReleaseGroup();
    m_pCurrentGroup.reset();
    m_dwFlags &= ~UNDO_FLAG_GROUP_OPEN;
}

void CUndoMgr::RestoreGroup()
{
    ZRASSERT(m_pCurrentGroup);
    if (!m_pCurrentGroup)
        return;
    // Whoever cancels a command is not to be asked about each step that it takes back, nor is such a step to
    // be recorded.
    {
        const CFlagScope restoring(m_dwFlags, UNDO_FLAG_UNDOING);
        m_pCurrentGroup->Restore();
    }
    EndReplay();
}

void CUndoMgr::ReleaseGroup()
{
    ZRASSERT(m_pCurrentGroup);
    if (!m_pCurrentGroup)
        return;
    RestoreGroup();
    m_pCurrentGroup->Empty();
}

void CUndoMgr::AddRestorePoint(std::unique_ptr<CUndoRestorePoint> point)
{
    ZRASSERT(m_pCurrentGroup);
    if (m_pCurrentGroup && point)
        m_pCurrentGroup->Add(std::move(point));
}

bool CUndoMgr::Undo(std::size_t count)
{
    return Replay(UNDO_FLAG_UNDOING, m_UndoList, m_RedoList, count);
}

bool CUndoMgr::Redo(std::size_t count)
{
    return Replay(UNDO_FLAG_REDOING, m_RedoList, m_UndoList, count);
}

bool CUndoMgr::Replay(std::uint32_t flag, GroupList& from, GroupList& to, std::size_t count)
{
    if (from.empty())
    {
        m_Services.Beep();
        return false;
    }
    // A listener of the running replay, or a question of the running command, may come here again.
    if (IsReplaying() || m_pCurrentGroup)
        return false;
    bool done = true;
    {
        const CFlagScope replaying(m_dwFlags, flag);
        for (; count > 0 && !from.empty() && !m_bClearPending; --count)
        {
            CUndoGroup& group = *from.back();
            done = flag == UNDO_FLAG_UNDOING ? group.Undo() : group.Redo();
            if (!done)
                break;
            to.push_back(std::move(from.back()));
            from.pop_back();
        }
    }
    EndReplay();
    return done;
}

void CUndoMgr::EndReplay()
{
    if (std::exchange(m_bClearPending, false))
        Clear();
}

// The group that runs must not go while it runs.
void CUndoMgr::Clear()
{
    if (IsReplaying())
    {
        m_bClearPending = true;
        return;
    }
    DestroyNewestFirst(m_UndoList);
    DestroyNewestFirst(m_RedoList);
}

void CUndoMgr::SetLimit(std::uint32_t flags, std::uint32_t limit, bool memoryEnabled)
{
    constexpr std::uint32_t kLimits = UNDO_FLAG_LIMIT_COUNT | UNDO_FLAG_LIMIT_MEMORY;
    m_dwFlags = (m_dwFlags & ~kLimits) | (flags & kLimits);
    m_dwLimit = limit;
    m_bLimitEnabled = memoryEnabled;
}

void CUndoMgr::Trim()
{
    if ((m_dwFlags & UNDO_FLAG_LIMIT_COUNT) != 0 && m_dwLimit != 0 && m_UndoList.size() > m_dwLimit)
        DestroyOldest(m_UndoList, m_UndoList.size() - m_dwLimit);
    if ((m_dwFlags & UNDO_FLAG_LIMIT_MEMORY) != 0 && m_bLimitEnabled)
        TrimMemory();
}

void CUndoMgr::TrimMemory()
{
    std::size_t size = GetSize();
    std::size_t count = 0;
    for (; size > m_dwLimit && count < m_UndoList.size(); ++count)
        size -= m_UndoList[count]->GetSize();
    DestroyOldest(m_UndoList, count);
}

// What a point does as it dies may bring others here, so a group leaves its list before it goes.
void CUndoMgr::DestroyOldest(GroupList& list, std::size_t count)
{
    const auto last = list.begin() + static_cast<std::ptrdiff_t>(count);
    GroupList old(std::make_move_iterator(list.begin()), std::make_move_iterator(last));
    list.erase(list.begin(), last);
    for (std::unique_ptr<CUndoGroup>& group : old)
        group.reset();
}

void CUndoMgr::DestroyNewestFirst(GroupList& list)
{
    while (!list.empty())
    {
        const std::unique_ptr<CUndoGroup> group = std::move(list.back());
        list.pop_back();
    }
}

bool CUndoMgr::IsRecording() const
{
    return (m_dwFlags & UNDO_FLAG_GROUP_OPEN) != 0 && !IsReplaying();
}

bool CUndoMgr::IsReplaying() const
{
    return (m_dwFlags & (UNDO_FLAG_UNDOING | UNDO_FLAG_REDOING)) != 0;
}

std::size_t CUndoMgr::GetSize() const
{
    std::size_t size = kSlotSize * (m_UndoList.capacity() + m_RedoList.capacity());
    for (const GroupList* list : {&m_UndoList, &m_RedoList})
    {
        for (const std::unique_ptr<CUndoGroup>& group : *list)
            size += group->GetSize();
    }
    return size;
}

bool CUndoMgr::Refers(const CCorvaneRef& object) const
{
    const auto refers = [&](const std::unique_ptr<CUndoGroup>& group) { return group->Refers(object); };
    return std::any_of(m_UndoList.begin(), m_UndoList.end(), refers) ||
           std::any_of(m_RedoList.begin(), m_RedoList.end(), refers) ||
           (m_pCurrentGroup && m_pCurrentGroup->Refers(object));
}

std::vector<std::u16string> CUndoMgr::GetLabels(const GroupList& list)
{
    std::vector<std::u16string> labels;
    for (std::size_t i = 0; i < std::min(list.size(), kMenuItems); ++i)
    {
        const std::u16string text = GetMenuText(list[list.size() - 1 - i]->GetText());
        labels.push_back(FormatText(u"%s%d %s", i < kMnemonics ? u"&" : u"", static_cast<int>(i + 1), text));
    }
    return labels;
}
