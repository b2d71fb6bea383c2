// Deferred attributes: a new entry that takes over at a build, a deletion from a build on, another first
// build for an entry, and the final removal.
//
// A derived schema's template shares its ancestors' attributes. A change is made once, in the schema that
// declares the attribute, and the derived ones take the attributes over again; so they end as after a load.
#include "CorvaneMgr.h"

#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "FormatText.h"
#include "MemberStore.h"
#include "NameCompare.h"
#include "SourceGate.h"
#include "UndoRecorder.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <algorithm>

namespace
{
using AttribList = std::span<const CRef<CCorvaneAttrib>>;

// See CCorvaneMgr::ComputeDeferAttributeLocation.
bool FindDeferPlace(AttribList list, std::u16string_view name, std::uint32_t build, std::size_t& place)
{
    const auto isNamed = [name](const CRef<CCorvaneAttrib>& attrib)
    { return EqualNames(attrib->GetName(), name); };
    const auto first = std::find_if(list.begin(), list.end(), isNamed);
    const auto found = std::find_if(first, list.end(),
                                    [&](const CRef<CCorvaneAttrib>& attrib)
                                    { return !isNamed(attrib) || attrib->GetBuild() < build; });
    place = static_cast<std::size_t>(found - list.begin());
    return found != list.end();
}

CCorvaneAttrib* FindEntry(AttribList list, std::u16string_view name, std::uint32_t build)
{
    for (const CRef<CCorvaneAttrib>& attrib : list)
    {
        if (attrib->GetBuild() == build && EqualNames(attrib->GetName(), name))
            return attrib.Get();
    }
    return nullptr;
}

// The entries that the schema declares itself: only they are its to change, although an ancestor may have
// others of the same name.
AttribList GetOwnEntries(const CCorvaneSchema& schema)
{
    return schema.GetTemplate()->GetAttributeList().subspan(schema.GetFirstOwnAttribute());
}

// The schema whose data stands behind the attribute: that of its record or an ancestor. Null for an attribute
// in no category, or one that its schema no longer has.
CCorvaneSchema* FindDefiningSchema(const CCorvaneAttrib& attrib)
{
    const CCorvaneRecord* record = attrib.GetOwnerRecord();
    const CCorvaneSchemaAttribData* data = attrib.GetAttribData();
    if (record == nullptr || data == nullptr || data->GetBuild() != attrib.GetBuild())
        return nullptr;
    CCorvaneSchema* schema = record->GetSchema();
    while (schema != nullptr && schema->FindAttribData(*data) < 0)
        schema = schema->GetParent();
    return schema;
}

// Records name the sections of their files by name and build: two entries alike would share one.
bool IsTaken(const std::vector<CCorvaneSchema*>& family, std::u16string_view name, std::uint32_t build)
{
    return std::any_of(family.begin(), family.end(),
                       [&](const CCorvaneSchema* schema)
                       { return FindEntry(schema->GetTemplate()->GetAttributeList(), name, build); });
}

// What an earlier deferral left when the gate refused it; it must not spread to other schemas and records.
void DropUnfinishedEntries(const std::vector<CCorvaneSchema*>& family)
{
    for (CCorvaneSchema* schema : family)
        schema->DropUnfinishedEntries();
}

std::size_t GetDepth(const CCorvaneSchema& schema)
{
    std::size_t depth = 0;
    for (const CCorvaneSchema* above = schema.GetParent(); above != nullptr; above = above->GetParent())
        ++depth;
    return depth;
}
} // namespace

bool CCorvaneMgr::ComputeDeferAttributeLocation(const CCorvaneRecord& templateRecord,
                                                std::u16string_view name, std::uint32_t build,
                                                std::size_t* piDeferIndex)
{
    ZRASSERT(piDeferIndex);
    std::size_t place = 0;
    if (piDeferIndex == nullptr || !FindDeferPlace(templateRecord.GetAttributeList(), name, build, place))
        return false;
    *piDeferIndex = place;
    return true;
}

std::vector<CCorvaneSchema*> CCorvaneMgr::GetFamily(CCorvaneSchema& schema) const
{
    std::vector<std::pair<std::size_t, CCorvaneSchema*>> byDepth;
    for (const CRef<CCorvaneSchema>& held : m_Schemas)
    {
        if (held->IsDerivedFrom(schema))
            byDepth.emplace_back(GetDepth(*held), held.Get());
    }
    std::stable_sort(byDepth.begin(), byDepth.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<CCorvaneSchema*> family;
    for (const auto& entry : byDepth)
        family.push_back(entry.second);
    return family;
}

bool CCorvaneMgr::CheckOutSchema(CCorvaneSchema& schema, std::u16string_view abortTitle)
{
    if (!m_Gate.IsConnected() || m_Gate.CheckOutForEdit(schema))
        return true;
    m_Context.m_Questions.Tell(
        abortTitle, FormatText(u"Failed to check the schema '%s' for edit.  Deletion of this attribute has "
                               u"been aborted.",
                               schema.GetName()));
    return false;
}

bool CCorvaneMgr::DeferDeprecateAttribute(CCorvaneAttrib* pAttrib, std::uint32_t build)
{
    return DeferAttribute(pAttrib, build, EDeferral::Deprecate);
}

bool CCorvaneMgr::DeferDeleteAttribute(CCorvaneAttrib* pAttrib, std::uint32_t build)
{
    return DeferAttribute(pAttrib, build, EDeferral::Delete);
}

bool CCorvaneMgr::DeferAttribute(CCorvaneAttrib* pAttrib, std::uint32_t build, EDeferral kind)
{
    ZRASSERT(pAttrib);
    if (pAttrib == nullptr)
        return false;
    if (CCorvaneAttrib* parent = pAttrib->GetParentAttrib())
        return kind == EDeferral::Delete ? parent->DeferDeleteAttribute(*pAttrib, build)
                                         : parent->DeferDeprecateAttribute(*pAttrib, build);
    CCorvaneSchema* schema = FindDefiningSchema(*pAttrib);
    if (schema == nullptr)
        return false;
    const CRef<CCorvaneSchemaAttribData> data(pAttrib->GetAttribData());
    return DeferInSchema(*schema, *data, build, kind);
}

bool CCorvaneMgr::DeferInSchema(CCorvaneSchema& schema, CCorvaneSchemaAttribData& data, std::uint32_t build,
                                EDeferral kind)
{
    const std::vector<CCorvaneSchema*> family = GetFamily(schema);
    DropUnfinishedEntries(family);
    if (const CCorvaneAttrib* standing = FindEntry(GetOwnEntries(schema), data.GetName(), build))
    {
        // A deletion is revived, or a new version turned into a deletion, without a new entry.
        standing->GetAttribData()->SetFlag(ATTRIB_FLAG_DELETED, kind == EDeferral::Delete);
        return true;
    }
    std::size_t place = 0;
    const CRef<CCorvaneType> source(schema.FindTemplateAttribute(data));
    if (!source || IsTaken(family, data.GetName(), build) ||
        !FindDeferPlace(GetOwnEntries(schema), data.GetName(), build, place))
        return false;
    const CRef<CCorvaneType> copy = source->Clone(schema.GetTemplate());
    if (!copy)
        return false;
    copy->SetBuild(build);
    copy->SetDefaultRecord(copy.Get());
    schema.GetTemplate()->InsertAttribute(schema.GetFirstOwnAttribute() + place, copy);
    if (!CheckOutSchema(schema, u"Deferred Delete Aborted"))
        return false;

    const CRef<CCorvaneSchemaAttribData> created = data.Clone();
    ZRASSERT_MSG(created, "*ppAttribDataToCreate");
    if (!created)
        return false;
    created->SetFlag(ATTRIB_FLAG_DELETED, kind == EDeferral::Delete);
    created->SetBuild(build);
    schema.InsertAttribData(place, created);
    schema.SetModified();
    copy->SetAttribData(created.Get());

    const ECorvaneEvent event =
        kind == EDeferral::Delete ? ECorvaneEvent::AttributeDeleted : ECorvaneEvent::AttributeDeprecated;
    for (CCorvaneSchema* member : family)
    {
        member->RefreshInherited();
        FixRecordsOf(*member, EFixPurpose::Defer);
        Notify(CCorvaneEvent(event, source.Get()));
    }
    return true;
}

bool CCorvaneMgr::UpdateAttributeBuild(CCorvaneAttrib* pAttrib, std::uint32_t build, bool deleted)
{
    ZRASSERT(pAttrib);
    CCorvaneSchema* schema = pAttrib ? FindDefiningSchema(*pAttrib) : nullptr;
    if (schema == nullptr)
        return false;
    const CRef<CCorvaneSchemaAttribData> data(pAttrib->GetAttribData());
    const CRef<CCorvaneType> entry(schema->FindTemplateAttribute(*data));
    const std::vector<CCorvaneSchema*> family = GetFamily(*schema);
    DropUnfinishedEntries(family);
    const bool moved = entry && build != entry->GetBuild();
    if (!entry || (moved && IsTaken(family, data->GetName(), build)) ||
        !CheckOutSchema(*schema, u"Deferred Delete Aborted"))
        return false;
    if (moved)
        SetBuildInRecords(*schema, *entry, build);
    entry->SetBuild(build);
    data->SetFlag(ATTRIB_FLAG_DELETED, deleted);
    data->SetBuild(build);
    schema->SetModified();
    Notify(CCorvaneEvent(ECorvaneEvent::AttributesChanged, static_cast<CCorvaneRecord*>(nullptr)));
    return true;
}

// A record's file names each entry by its build, so that a record under the old number would lose its values
// at the next load: it waits for a save.
void CCorvaneMgr::SetBuildInRecords(CCorvaneSchema& schema, const CCorvaneAttrib& entry, std::uint32_t build)
{
    EnumerateCategories(
        [&](CCorvaneCategory& category)
        {
            if (category.GetSchema() == nullptr || !category.GetSchema()->IsDerivedFrom(schema))
                return;
            for (const CRef<CCorvaneRecord>& record : category.GetRecords())
            {
                for (const CRef<CCorvaneAttrib>& attrib : record->GetAttributeList())
                {
                    if (!attrib->IsSameAttribute(entry))
                        continue;
                    attrib->SetBuild(build);
                    record->SetModified(true);
                    break;
                }
            }
        });
}

bool CCorvaneMgr::DeleteDeferredAttribute(CCorvaneSchema* pSchema, std::size_t index)
{
    ZRASSERT(pSchema);
    if (pSchema == nullptr || index >= pSchema->GetAttribDataList().size() ||
        !CheckOutSchema(*pSchema, u"Delete Aborted"))
        return false;
    const CRef<CCorvaneSchemaAttribData> data = pSchema->GetAttribDataList()[index];
    const CRef<CCorvaneType> entry(pSchema->FindTemplateAttribute(*data));
    pSchema->RemoveAttribData(index);
    pSchema->SetModified();
    if (!entry)
        return true;
    const std::vector<CCorvaneSchema*> family = GetFamily(*pSchema);
    DropUnfinishedEntries(family);
    pSchema->GetTemplate()->RemoveAttribute(static_cast<std::size_t>(entry->GetIndexInRecord()));
    for (CCorvaneSchema* member : family)
    {
        member->RefreshInherited();
        FixRecordsOf(*member, EFixPurpose::Remove);
        Notify(CCorvaneEvent(ECorvaneEvent::AttributeDeleted, entry.Get()));
    }
    return true;
}

bool CCorvaneMgr::DeleteDeferredAttribute(CCorvaneSchemaAttribData* pStructData, std::size_t index)
{
    ZRASSERT(pStructData);
    IMemberStore* store = pStructData ? pStructData->GetMemberStore() : nullptr;
    if (store == nullptr || index >= store->GetMemberCount())
        return false;
    if (m_Gate.IsConnected() && !m_Gate.CheckOutForEdit(store->GetFile()))
    {
        m_Context.m_Questions.Tell(
            u"Delete Aborted",
            FormatText(u"Failed to check the following struct.  Deletion of this attribute "
                       u"has been aborted.\n\n%s",
                       store->GetFile()));
        return false;
    }
    store->RemoveMember(index);
    m_Undo.Clear(); // Restore points may refer to values of the member.
    return true;
}
