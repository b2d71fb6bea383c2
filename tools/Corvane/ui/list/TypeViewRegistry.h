// Which view shows the attributes of which type, by the type's identity. A type never names a widget: the
// entries come from the list of types, for each folder that holds a view.
#pragma once

#include "CorvaneTypeView.h"
#include "Guid.h"

#include <vector>

class CTypeViewRegistry
{
public:
    using FCreate = CRef<CCorvaneTypeView> (*)(CCorvaneType& attrib, ITypeViewList& list);

    // A type that is there already fires an assertion and changes nothing.
    void Register(const CGuid& type, FCreate create);
    // A view that the attribute knows. A type without an entry is shown as plain text that cannot be edited.
    [[nodiscard]] CRef<CCorvaneTypeView> Create(CCorvaneType& attrib, ITypeViewList& list) const;

private:
    struct SEntry
    {
        CGuid m_Type;
        FCreate m_Create;
    };
    std::vector<SEntry> m_Entries;
};

// The entries of all lists; filled once by RegisterTypeViews (RegisterTypeViews.h) when the windows start.
[[nodiscard]] CTypeViewRegistry& GetTypeViews();

// The factory of a view that is built from its attribute and its list.
template <class View, class Type>
CRef<CCorvaneTypeView> CreateTypeView(CCorvaneType& attrib, ITypeViewList& list)
{
    return CRef<CCorvaneTypeView>(new View(static_cast<Type&>(attrib), list));
}
