// Brings records in line with a template that has changed.
#include "CorvaneMgr.h"

#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "NameCompare.h"
#include "UndoRecorder.h"

#include <algorithm>
#include <cstring>

namespace
{
// A GUID and a build: what makes two attributes the same one.
struct SEntryKey
{
    CGuid m_Guid;
    std::uint32_t m_nBuild;
    bool operator==(const SEntryKey&) const = default;
};

struct SEntryKeyHash
{
    std::size_t operator()(const SEntryKey& key) const
    {
        std::size_t hash = 0; // Any part of a GUID is as random as the whole.
        std::memcpy(&hash, key.m_Guid.GetBytes().data() + 8, sizeof hash);
        return hash ^ (std::size_t{key.m_nBuild} * 0x9E3779B97F4A7C15U);
    }
};

// The next older entry of the same name; null when there is none.
const CCorvaneAttrib* FindOlderEntry(const CCorvaneAttrib& attrib)
{
    const auto list = attrib.GetParentRecord()->GetAttributeList();
    const auto next = static_cast<std::size_t>(attrib.GetIndexInRecord()) + 1;
    return next < list.size() && EqualNames(list[next]->GetName(), attrib.GetName()) ? list[next].Get()
                                                                                     : nullptr;
}

// Works in two steps, since an inherited value is found by its place in the parent's list: the lists of all
// records first, then the values of what is new in them.
class CRecordFixer
{
public:
    explicit CRecordFixer(const CCorvaneRecord& templateRecord) : m_Template(templateRecord) {}

    void FixList(CCorvaneRecord& record);
    // Fills the attributes that FixList added. A new entry inherits where its older one does, and without an
    // older one, as at a load, in any record that has a parent. `keep` marks records whose new entry has a
    // value of its own that only their file can keep.
    void FillAdded(bool keep);
    // An attribute was taken from a record.
    [[nodiscard]] bool HasRemoved() const { return m_bRemoved; }
    // A new attribute inherits, so that what it shows is to be filled from its parent's.
    [[nodiscard]] bool HasInheriting() const { return m_bInheriting; }

private:
    [[nodiscard]] bool IsInLine(const CCorvaneRecord& record) const;
    void Rebuild(CCorvaneRecord& record);
    void SetInheritance(CCorvaneAttrib& attrib, bool keep);
    const std::unordered_map<SEntryKey, std::size_t, SEntryKeyHash>& GetPlaces();

    const CCorvaneRecord& m_Template;
    std::unordered_map<SEntryKey, std::size_t, SEntryKeyHash> m_Places;
    std::vector<CRef<CCorvaneAttrib>> m_Added; // Record by record, in the order of the list.
    bool m_bRemoved = false;
    bool m_bInheriting = false;
};

bool CRecordFixer::IsInLine(const CCorvaneRecord& record) const
{
    const auto entries = m_Template.GetAttributeList();
    const auto list = record.GetAttributeList();
    return std::equal(entries.begin(), entries.end(), list.begin(), list.end(),
                      [](const auto& entry, const auto& attrib) { return attrib->IsSameAttribute(*entry); });
}

void CRecordFixer::FixList(CCorvaneRecord& record)
{
    if (!IsInLine(record))
        Rebuild(record);
    const auto entries = m_Template.GetAttributeList();
    for (std::size_t i = 0; i < entries.size(); ++i)
    {
        // A schema that was read again has new data and defaults for the entries it kept.
        CCorvaneAttrib& attrib = *record.GetAttributeList()[i];
        attrib.SetAttribData(entries[i]->GetAttribData());
        attrib.SetDefaultRecord(entries[i].Get());
    }
}

const std::unordered_map<SEntryKey, std::size_t, SEntryKeyHash>& CRecordFixer::GetPlaces()
{
    const auto entries = m_Template.GetAttributeList();
    for (std::size_t i = m_Places.empty() ? 0 : entries.size(); i < entries.size(); ++i)
        m_Places.try_emplace({entries[i]->GetGuid(), entries[i]->GetBuild()}, i);
    return m_Places;
}

void CRecordFixer::Rebuild(CCorvaneRecord& record)
{
    const auto& places = GetPlaces();
    const auto entries = m_Template.GetAttributeList();
    std::vector<CRef<CCorvaneAttrib>> list(entries.size());
    for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
    {
        const auto place = places.find({attrib->GetGuid(), attrib->GetBuild()});
        if (place != places.end() && !list[place->second])
            list[place->second] = attrib;
        else
            m_bRemoved = true;
    }
    for (std::size_t i = 0; i < list.size(); ++i)
    {
        if (list[i])
            continue;
        list[i] = static_cast<const CCorvaneType&>(*entries[i]).Clone(&record);
        m_Added.push_back(list[i]);
    }
    record.SetAttributes(std::move(list));
}

void CRecordFixer::FillAdded(bool keep)
{
    // Older entries stand behind newer ones: the last is filled first.
    for (auto attrib = m_Added.rbegin(); attrib != m_Added.rend(); ++attrib)
        CopyValuesFromOlderBuild(**attrib);
    // Only now, so that no value was copied through a parent whose own entry was still to be filled.
    for (auto attrib = m_Added.rbegin(); attrib != m_Added.rend(); ++attrib)
        SetInheritance(**attrib, keep);
}

void CRecordFixer::SetInheritance(CCorvaneAttrib& attrib, bool keep)
{
    CCorvaneRecord& record = *attrib.GetParentRecord();
    if (record.GetParent() == nullptr)
        return;
    const CCorvaneAttrib* older = FindOlderEntry(attrib);
    const bool inherit = older == nullptr || older->GetInherit();
    attrib.SetInherit(inherit, false);
    m_bInheriting = m_bInheriting || inherit;
    if (!inherit && keep)
        record.SetModified(true);
}
} // namespace

bool CCorvaneMgr::FixRecords(CCorvaneSchema& schema, bool save)
{
    FixRecordsOf(schema, save ? EFixPurpose::Remove : EFixPurpose::Reload);
    return true;
}

void CCorvaneMgr::FixRecordsOf(CCorvaneSchema& schema, EFixPurpose purpose)
{
    std::vector<CRef<CCorvaneRecord>> records;
    EnumerateCategories(
        [&](CCorvaneCategory& category)
        {
            if (category.GetSchema() != &schema)
                return;
            const auto list = category.GetRecords();
            records.insert(records.end(), list.begin(), list.end());
        });
    CRecordFixer fixer(*schema.GetTemplate());
    for (const CRef<CCorvaneRecord>& record : records)
        fixer.FixList(*record);
    fixer.FillAdded(purpose == EFixPurpose::Defer);
    if (fixer.HasInheriting())
    {
        for (const CRef<CCorvaneCategory>& category : m_RootCategories)
            UpdateHierarchalData(category.Get());
    }
    if (fixer.HasRemoved())
        m_Undo.Clear(); // Restore points may refer to what the records have lost.
    for (const CRef<CCorvaneRecord>& record : records)
    {
        Notify(CCorvaneEvent(ECorvaneEvent::AttributesChanged, record.Get()));
        if (purpose == EFixPurpose::Remove)
            static_cast<void>(SaveRecord(record.Get(), false));
    }
}

void CCorvaneMgr::FixRecord(CCorvaneRecord& record)
{
    const CCorvaneSchema* schema = record.GetSchema();
    if (schema == nullptr)
        return;
    CRecordFixer fixer(*schema->GetTemplate());
    fixer.FixList(record);
    fixer.FillAdded(false);
    record.UpdateHierarchy();
}
