#include "DeferState.h"

#include "CorvaneRecord.h"
#include "CorvaneSchemaAttribData.h"
#include "FormatText.h"
#include "MemberStore.h"
#include "NameCompare.h"

namespace
{
EDeferState GetStateUnder(const CCorvaneSchemaAttribData* newer)
{
    return newer != nullptr && newer->TestFlag(ATTRIB_FLAG_DELETED) ? EDeferState::ToBeDeleted
                                                                    : EDeferState::Deprecated;
}

// The declaration ahead of the member's own, which is of the same name when the member is deferred.
const CCorvaneSchemaAttribData* FindDeclarationBefore(const CCorvaneAttrib& parent,
                                                      const CCorvaneAttrib& member)
{
    CCorvaneSchemaAttribData* data = parent.GetAttribData();
    const IMemberStore* store = data ? data->GetMemberStore() : nullptr;
    const std::size_t count = store ? store->GetMemberCount() : 0;
    for (std::size_t i = 1; i < count; ++i)
    {
        if (&store->GetMemberData(i) == member.GetAttribData())
            return &store->GetMemberData(i - 1);
    }
    return nullptr;
}
} // namespace

const CCorvaneAttrib* FindNewerEntry(const CCorvaneAttrib& attrib)
{
    const std::ptrdiff_t index = attrib.GetIndexInRecord();
    if (index <= 0)
        return nullptr;
    const CCorvaneAttrib& before =
        *attrib.GetParentRecord()->GetAttributeList()[static_cast<std::size_t>(index - 1)];
    return EqualNames(before.GetName(), attrib.GetName()) ? &before : nullptr;
}

EDeferState GetDeferState(const CCorvaneAttrib& attrib)
{
    if (const CCorvaneAttrib* parent = attrib.GetParentAttrib())
        return parent->IsChildDeferred(attrib) ? GetStateUnder(FindDeclarationBefore(*parent, attrib))
                                               : EDeferState::None;
    const CCorvaneAttrib* newer = FindNewerEntry(attrib);
    return newer ? GetStateUnder(newer->GetAttribData()) : EDeferState::None;
}

std::u16string_view GetDeferStateText(EDeferState state)
{
    switch (state)
    {
    case EDeferState::Deprecated:
        return u"Deprecated";
    case EDeferState::ToBeDeleted:
        return u"To Be Deleted";
    case EDeferState::None:
        break;
    }
    return {};
}

SBuildRangeText GetBuildRangeText(const CCorvaneAttrib& attrib)
{
    SBuildRange range;
    if (!attrib.GetBuildRange(range))
        return {};
    const bool open = range.m_nLast == kBuildOpen;
    const CCorvaneSchemaAttribData* data = attrib.GetAttribData();
    const bool deleted = data != nullptr && data->TestFlag(ATTRIB_FLAG_DELETED);
    SBuildRangeText text;
    text.m_sRange =
        open ? FormatText(u"%3d +", range.m_nFirst) : FormatText(u"%3d - %3d", range.m_nFirst, range.m_nLast);
    if (deleted)
        text.m_sLabel = u"Delete";
    else if (!open)
        text.m_sLabel = u"Depre.";
    return text;
}
