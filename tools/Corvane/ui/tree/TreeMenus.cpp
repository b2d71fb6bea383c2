#include "TreeMenus.h"

#include "Commands.h"
#include "TreeItem.h"

#include <algorithm>

namespace
{
constexpr int kRecordMenu[] = {
    ID_OPEN_RECORD, ID_NEW_WINDOW, ID_SEPARATOR, ID_RENAME,    ID_DELETE,      ID_SEPARATOR,
    ID_CUT,         ID_COPY,       ID_PASTE,     ID_SEPARATOR, ID_QUICK_CLONE, ID_QUICK_REFERENCE,
    ID_SEPARATOR,   ID_VALIDATE,   ID_SAVE,      ID_SEPARATOR, ID_PROPERTIES,
};

constexpr int kCategoryMenu[] = {
    ID_EXPAND, ID_SEPARATOR, ID_NEW_CATEGORY, ID_NEW_RECORD, ID_SEPARATOR,
    ID_RENAME, ID_DELETE,    ID_SEPARATOR,    ID_CUT,        ID_COPY,
    ID_PASTE,  ID_SEPARATOR, ID_SAVE,         ID_SEPARATOR,  ID_PROPERTIES,
};

constexpr unsigned ClassBit(EControlClass controlClass)
{
    return 1U << static_cast<unsigned>(controlClass);
}

constexpr unsigned kUncontrolled = ClassBit(EControlClass::Uncontrolled);
constexpr unsigned kInSync = ClassBit(EControlClass::InSync);
constexpr unsigned kMine = ClassBit(EControlClass::Mine);
constexpr unsigned kSomebodyElses = ClassBit(EControlClass::SomebodyElses);
constexpr unsigned kPendingAdd = ClassBit(EControlClass::PendingAdd);

struct SControlCommand
{
    int m_nId;
    unsigned m_nClasses; // Bits of those that have it.
};

constexpr SControlCommand kControlCommands[] = {
    {ID_SUBMIT, kMine | kPendingAdd},
    {ID_UNDO_CHECK_OUT, kMine | kPendingAdd},
    {ID_GET_LATEST, kUncontrolled | kInSync | kMine | kSomebodyElses},
    {ID_ADD_TO_CONTROL, kUncontrolled},
    {ID_CHECK_OUT_EDIT, kInSync | kPendingAdd},
    {ID_CHECK_OUT_DELETE, kInSync | kPendingAdd},
    {ID_HISTORY, kInSync | kMine | kSomebodyElses},
};
} // namespace

std::span<const int> GetTreeMenu(const CTreeItem& item)
{
    return item.IsRecord() ? std::span<const int>(kRecordMenu) : std::span<const int>(kCategoryMenu);
}

std::vector<int> GetTreeControlMenu(EControlClass controlClass)
{
    std::vector<int> ids;
    for (const SControlCommand& command : kControlCommands)
        if (controlClass == EControlClass::None || (command.m_nClasses & ClassBit(controlClass)) != 0)
            ids.push_back(command.m_nId);
    return ids;
}

bool IsTreeControlCommand(int id)
{
    return std::any_of(std::begin(kControlCommands), std::end(kControlCommands),
                       [id](const SControlCommand& command) { return command.m_nId == id; });
}
