#include "TypeViewRegistry.h"

#include "zrassert.h"

#include <algorithm>

void CTypeViewRegistry::Register(const CGuid& type, FCreate create)
{
    const bool known = std::any_of(m_Entries.begin(), m_Entries.end(),
                                   [&type](const SEntry& entry) { return entry.m_Type == type; });
    ZRASSERT(!known);
    if (!known)
        m_Entries.push_back({type, create});
}

CRef<CCorvaneTypeView> CTypeViewRegistry::Create(CCorvaneType& attrib, ITypeViewList& list) const
{
    const auto found =
        std::find_if(m_Entries.begin(), m_Entries.end(),
                     [&attrib](const SEntry& entry) { return entry.m_Type == attrib.GetTypeGuid(); });
    CRef<CCorvaneTypeView> view = found != m_Entries.end()
                                      ? found->m_Create(attrib, list)
                                      : CRef<CCorvaneTypeView>(new CCorvaneTypeView(attrib, list));
    attrib.AddView(view);
    return view;
}

CTypeViewRegistry& GetTypeViews()
{
    static CTypeViewRegistry registry;
    return registry;
}
