// The state column of the tree: what source control says about a row's file. Nothing here is asked while
// painting.
#pragma once

#include <string>
#include <string_view>

class CSourceGate;
class CTreeItem;

// Index of the state image.
enum ETreeState : int
{
    TREE_STATE_NONE = 0,
    TREE_STATE_IN = 1,
    TREE_STATE_EDIT = 2,
    TREE_STATE_UNCONTROLLED = 3,
    TREE_STATE_OTHER = 4,
    TREE_STATE_ME_AND_OTHERS = 6,
    TREE_STATE_OTHERS = 7,
    TREE_STATE_DELETE = 8,
    TREE_STATE_ADD_EDIT = 9,
    TREE_STATE_ADD = 10,
};

// Not connected, the root, virtual and special objects have none. The provider may take its time.
[[nodiscard]] int ReadStateIndex(CSourceGate& gate, const CTreeItem& item);
[[nodiscard]] std::u16string_view GetStateText(int state);
// Null where there is none.
[[nodiscard]] const char* GetStateIcon(int state);
// The text with the user who has the file, where the state is that.
[[nodiscard]] std::u16string ReadStateTip(CSourceGate& gate, const CTreeItem& item, int state);
// Of a row's icon; empty where there is nothing to tell.
[[nodiscard]] std::u16string ReadVersionTip(CSourceGate& gate, const CTreeItem& item);

// Which commands of source control an object may have.
enum class EControlClass : int
{
    None = 0,
    Uncontrolled = 1,
    InSync = 2,
    Mine = 3,
    SomebodyElses = 4,
    PendingAdd = 5,
};
[[nodiscard]] EControlClass ReadControlClass(CSourceGate& gate, const CTreeItem& item);
