// Builds: which number is active, which entries of an attribute are in force for it, and the repair of
// records after a schema changed.
#include "CorvaneMgr.h"

#include "CorvaneAttrib.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "Module.h"
#include "NameCompare.h"
#include "RunState.h"
#include "zrassert.h"

namespace
{
constexpr std::u16string_view kDatabaseSection = u"Database";

// The entry before `attrib` when it is a newer one of the same name.
const CCorvaneAttrib* FindNewerEntry(const CCorvaneAttrib& attrib, bool& listed)
{
    const std::ptrdiff_t index = attrib.GetIndexInRecord();
    listed = index >= 0;
    if (index <= 0)
        return nullptr;
    const CCorvaneAttrib& before =
        *attrib.GetParentRecord()->GetAttributeList()[static_cast<std::size_t>(index - 1)];
    return EqualNames(before.GetName(), attrib.GetName()) ? &before : nullptr;
}
} // namespace

std::uint32_t CCorvaneMgr::GetBuildNumber(std::u16string_view library)
{
    const std::u16string_view path = library.empty() ? std::u16string_view(m_Project.m_sGameServer) : library;
    std::u16string error;
    const CModule module = m_Context.m_Modules.Load(path, error);
    const auto getBuildNumber = module.FindFunction<std::uint32_t (*)()>("GetBuildNumber");
    if (getBuildNumber == nullptr)
        return 0;
    try
    {
        return getBuildNumber();
    }
    catch (...)
    {
        return 0; // The game's code is not ours to trust.
    }
}

void CCorvaneMgr::SetActiveBuild(std::uint32_t build)
{
    if (build == m_nActiveBuild)
        return;
    m_nActiveBuild = build;
    Notify(CCorvaneEvent(ECorvaneEvent::ActiveBuildChanged));
}

void CCorvaneMgr::ChooseActiveBuild()
{
    if (!m_Context.m_Run.Test(APP_EXPERT) || m_PerUser.ReadBoolean(kDatabaseSection, u"Use.Game.Build"))
        SetActiveBuild(GetBuildNumber());
    else
        ApplyStoredBuild();
    Notify(CCorvaneEvent(ECorvaneEvent::AttributesChanged, static_cast<CCorvaneRecord*>(nullptr)));
}

void CCorvaneMgr::ApplyStoredBuild()
{
    if (m_PerUser.IsKey(kDatabaseSection, u"Active.Build"))
        SetActiveBuild(static_cast<std::uint32_t>(m_PerUser.ReadInteger(kDatabaseSection, u"Active.Build")));
}

bool CCorvaneMgr::IsAttributeAvailableForBuild(const CCorvaneAttrib* pAttrib, std::uint32_t build) const
{
    ZRASSERT(pAttrib);
    SBuildRange range;
    if (pAttrib == nullptr || pAttrib->GetAttribData() == nullptr || !pAttrib->GetBuildRange(range))
        return false;
    if (range.m_nFirst > build ||
        (range.m_nLast != kBuildOpen && range.m_nLast < static_cast<std::int64_t>(build)))
        return false;
    return !pAttrib->GetAttribData()->TestFlag(ATTRIB_FLAG_DELETED);
}

bool CCorvaneMgr::IsAttributeModifiedForBuild(const CCorvaneAttrib* pAttrib, std::uint32_t build) const
{
    ZRASSERT(pAttrib);
    SBuildRange range;
    if (pAttrib == nullptr || IsAttributeAvailableForBuild(pAttrib, build) || !pAttrib->GetBuildRange(range))
        return false;
    return range.m_nFirst <= build && pAttrib->IsModified();
}

bool CCorvaneMgr::MarkAttributeAsModified(CCorvaneAttrib* pAttrib)
{
    ZRASSERT(pAttrib);
    bool listed = false;
    if (pAttrib == nullptr)
        return false;
    const CCorvaneAttrib* newer = FindNewerEntry(*pAttrib, listed);
    if (!listed)
        return false;
    if (newer != nullptr && pAttrib->SetModified(true))
        pAttrib->GetParentRecord()->SetModified(true);
    return true;
}

namespace
{
void RemoveForeignAttributes(CCorvaneRecord& record, const CCorvaneRecord& templateRecord)
{
    for (std::size_t i = record.GetAttributeList().size(); i-- > 0;)
    {
        bool known = false;
        for (const CRef<CCorvaneAttrib>& entry : templateRecord.GetAttributeList())
            known = known || entry->IsSameAttribute(*record.GetAttributeList()[i]);
        if (!known)
            record.RemoveAttribute(i);
    }
}

// Brings the record's own instance of `entry` to place `index`. False when it has none from there on.
bool BringToPlace(CCorvaneRecord& record, std::size_t index, const CCorvaneAttrib& entry)
{
    const auto list = record.GetAttributeList();
    for (std::size_t i = index; i < list.size(); ++i)
    {
        if (!list[i]->IsSameAttribute(entry))
            continue;
        const CRef<CCorvaneAttrib> attrib = list[i];
        if (i != index)
        {
            record.RemoveAttribute(i);
            record.InsertAttribute(index, attrib);
        }
        return true;
    }
    return false;
}

void InsertMissingAttributes(CCorvaneRecord& record, const CCorvaneRecord& templateRecord)
{
    const auto entries = templateRecord.GetAttributeList();
    std::vector<CRef<CCorvaneAttrib>> added;
    for (std::size_t j = 0; j < entries.size(); ++j)
    {
        if (BringToPlace(record, j, *entries[j]))
        {
            // A schema that was read again has new data and defaults for the entries it kept.
            CCorvaneAttrib& attrib = *record.GetAttributeList()[j];
            attrib.SetAttribData(entries[j]->GetAttribData());
            attrib.SetDefaultRecord(entries[j].Get());
            continue;
        }
        const CRef<CCorvaneAttrib> copy(static_cast<const CCorvaneType&>(*entries[j]).Clone(&record).Get());
        record.InsertAttribute(j, copy);
        added.push_back(copy);
    }
    // Older entries stand behind newer ones: the last is filled first.
    for (auto attrib = added.rbegin(); attrib != added.rend(); ++attrib)
        CopyValuesFromOlderBuild(**attrib);
}
} // namespace

bool CCorvaneMgr::FixRecords(CCorvaneSchema& schema, bool save)
{
    EnumerateCategories(
        [&](CCorvaneCategory& category)
        {
            if (category.GetSchema() != &schema)
                return;
            for (const CRef<CCorvaneRecord>& record : category.GetRecords())
            {
                RemoveForeignAttributes(*record, *schema.GetTemplate());
                InsertMissingAttributes(*record, *schema.GetTemplate());
                Notify(CCorvaneEvent(ECorvaneEvent::AttributesChanged, record.Get()));
                if (save)
                    static_cast<void>(SaveRecord(record.Get(), false));
            }
        });
    return true;
}
