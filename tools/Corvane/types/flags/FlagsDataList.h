// All Flags attribute data of one database, for whoever looks for attributes by their flags.
//
// Data enters in its constructor, a copy as well, and leaves in its destructor; both take constant time. The
// list belongs to the manager: manager.GetTypeState<CFlagsDataList>().
#pragma once

#include "TypeState.h"

#include <list>
#include <memory>

class CCorvaneMgr;
class CCorvaneTypeFlagsData;

class CFlagsDataList final : public ITypeState
{
public:
    using Items = std::list<const CCorvaneTypeFlagsData*>;

    explicit CFlagsDataList(const CCorvaneMgr&) {}

    // In order of construction. GetName and GetSchemaName (common/SchemaName.h) name an item; the schema's
    // name is empty for a member of a struct file.
    [[nodiscard]] const Items& GetItems() const { return *m_pItems; }

private:
    friend class CCorvaneTypeFlagsData;

    // Data that somebody still holds may outlive the manager, and must be able to leave.
    std::shared_ptr<Items> m_pItems = std::make_shared<Items>();
};
