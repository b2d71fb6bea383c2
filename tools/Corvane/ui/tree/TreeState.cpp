#include "TreeState.h"

#include "CorvaneCategory.h"
#include "FormatText.h"
#include "SourceGate.h"
#include "TreeItem.h"

#include <array>

namespace
{
struct SState
{
    std::u16string_view m_sText;
    const char* m_sIcon;
};

// By index.
constexpr std::array<SState, 11> kStates{{
    {u"", nullptr},
    {u"Checked in", "state-checked-in"},
    {u"Checked out for edit", "state-mine"},
    {u"Not under source control", "state-uncontrolled"},
    {u"Checked out by another user", "state-other"},
    {u"", nullptr},
    {u"Checked out by you and other users", "state-mine-others"},
    {u"Checked out by multiple other users", "state-many-others"},
    {u"Checked out for delete", "state-delete"},
    {u"Imported/Created, Checked out for edit", "state-add-edit"},
    {u"Imported/Created", "state-add"},
}};

// Whether there is a file of its own that source control could know.
bool HasControl(const CSourceGate& gate, const CTreeItem& item)
{
    if (!gate.IsConnected() || item.IsNone() || item.IsRoot() || item.IsSpecial())
        return false;
    return item.IsRecord() || item.GetCategory()->IsSystem();
}
} // namespace

int ReadStateIndex(CSourceGate& gate, const CTreeItem& item)
{
    if (!HasControl(gate, item))
        return TREE_STATE_NONE;
    const std::u16string file = item.GetFile();
    if (file.empty() || !gate.IsControlled(file))
        return TREE_STATE_UNCONTROLLED;
    const std::uint32_t flags = gate.GetFileFlags(file);
    const bool pendingAdd = (flags & FILE_FLAG_PENDING_ADD) != 0;
    if ((flags & FILE_FLAG_MINE) != 0)
    {
        if (pendingAdd)
            return TREE_STATE_ADD_EDIT;
        return gate.GetCheckOutState(file) == ECheckOutState::ForDelete ? TREE_STATE_DELETE : TREE_STATE_EDIT;
    }
    if ((flags & FILE_FLAG_SOMEBODY_ELSES) != 0)
        return TREE_STATE_OTHER;
    if ((flags & FILE_FLAG_OPEN) != 0)
        return pendingAdd ? TREE_STATE_ADD_EDIT : TREE_STATE_EDIT;
    return pendingAdd ? TREE_STATE_ADD : TREE_STATE_IN;
}

std::u16string_view GetStateText(int state)
{
    return kStates.at(static_cast<std::size_t>(state)).m_sText;
}

const char* GetStateIcon(int state)
{
    return kStates.at(static_cast<std::size_t>(state)).m_sIcon;
}

std::u16string ReadStateTip(CSourceGate& gate, const CTreeItem& item, int state)
{
    if (state != TREE_STATE_OTHER)
        return std::u16string(GetStateText(state));
    const std::vector<SCheckOutUser> users = gate.GetCheckOutUsers(item.GetFile());
    if (users.empty())
        return std::u16string(GetStateText(state));
    if (users.front().m_sComment.empty())
        return FormatText(u"Checked out by %s", users.front().m_sName);
    return FormatText(u"Checked out by %s - %s", users.front().m_sName, users.front().m_sComment);
}

std::u16string ReadVersionTip(CSourceGate& gate, const CTreeItem& item)
{
    if (!item.IsRecord() || !HasControl(gate, item) || item.GetFile().empty())
        return {};
    return gate.IsServerNewer(item.GetFile()) ? u"Server record is newer than local record"
                                              : u"Record is up to date";
}

EControlClass ReadControlClass(CSourceGate& gate, const CTreeItem& item)
{
    if (!HasControl(gate, item))
        return EControlClass::None;
    const std::u16string file = item.GetFile();
    if (file.empty())
        return EControlClass::Uncontrolled;
    if (gate.IsMine(file))
        return EControlClass::Mine;
    if (gate.IsSomebodyElses(file))
        return EControlClass::SomebodyElses;
    if ((gate.GetFileFlags(file) & FILE_FLAG_PENDING_ADD) != 0)
        return EControlClass::PendingAdd;
    return gate.IsControlled(file) ? EControlClass::InSync : EControlClass::Uncontrolled;
}
