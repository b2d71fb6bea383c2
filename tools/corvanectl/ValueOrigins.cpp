#include "ValueOrigins.h"

#include "CorvaneRecord.h"
#include "CorvaneSchemaAttribData.h"
#include "FormatText.h"
#include "NameCompare.h"

namespace
{
bool IsStruct(const CCorvaneAttrib& attrib)
{
    return attrib.GetAttribData() != nullptr && attrib.GetAttribData()->GetMemberStore() != nullptr;
}

// The next older entry of the same name, in the record or in the row; null for none.
const CCorvaneAttrib* FindOlderEntry(const CCorvaneAttrib& attrib)
{
    const CCorvaneAttrib* older = nullptr;
    if (const CCorvaneAttrib* parent = attrib.GetParentAttrib())
    {
        std::ptrdiff_t row = -1;
        const std::ptrdiff_t place = parent->FindChildAttribute(attrib, row);
        if (place >= 0 && row >= 0)
            older = parent->GetChildAttributeAt(static_cast<std::size_t>(row),
                                                static_cast<std::size_t>(place) + 1);
    }
    else if (const std::ptrdiff_t index = attrib.GetIndexInRecord(); index >= 0)
    {
        const auto list = attrib.GetParentRecord()->GetAttributeList();
        const auto next = static_cast<std::size_t>(index) + 1;
        older = next < list.size() ? list[next].Get() : nullptr;
    }
    return older != nullptr && EqualNames(older->GetName(), attrib.GetName()) ? older : nullptr;
}

const CCorvaneAttrib& GetOldestEntry(const CCorvaneAttrib& attrib)
{
    const CCorvaneAttrib* oldest = &attrib;
    while (const CCorvaneAttrib* older = FindOlderEntry(*oldest))
        oldest = older;
    return *oldest;
}

std::u16string GetBuildSection(const std::u16string& plain, const CCorvaneAttrib& entry)
{
    return FormatText(u"%s.%u", plain, entry.GetBuild());
}

const CCorvaneAttrib* FindStoredEntry(const CUnicodeFileParse_ReadOnly& file, const CCorvaneAttrib& attrib,
                                      std::u16string& section);

// The section's name without a build. The rows of a struct lie below the entry that the file has.
std::u16string GetPlainSection(const CUnicodeFileParse_ReadOnly& file, const CCorvaneAttrib& attrib)
{
    const CCorvaneAttrib* parent = attrib.GetParentAttrib();
    if (parent == nullptr)
        return u"Attrib." + attrib.GetName();
    std::ptrdiff_t row = -1;
    static_cast<void>(parent->FindChildAttribute(attrib, row));
    std::u16string section;
    const CCorvaneAttrib* stored = FindStoredEntry(file, *parent, section);
    const CCorvaneAttrib& above = stored ? *stored : *parent;
    return FormatText(u"%s.%d.%s", GetBuildSection(GetPlainSection(file, above), above),
                      static_cast<int>(row), attrib.GetName());
}

// The attribute's section in a record file, by its name or the older form of it; empty for none.
std::u16string FindSection(const CUnicodeFileParse_ReadOnly& file, const CCorvaneAttrib& attrib)
{
    std::u16string plain = GetPlainSection(file, attrib);
    std::u16string section = GetBuildSection(plain, attrib);
    if (file.IsSection(section, false))
        return section;
    // The form without the build belongs to build 0, or in a row to the oldest entry.
    const bool oldest = attrib.GetParentAttrib() ? FindOlderEntry(attrib) == nullptr : attrib.GetBuild() == 0;
    return oldest && file.IsSection(plain, false) ? plain : std::u16string();
}

// The attribute itself or the next older entry that the file has; null for none.
const CCorvaneAttrib* FindStoredEntry(const CUnicodeFileParse_ReadOnly& file, const CCorvaneAttrib& attrib,
                                      std::u16string& section)
{
    for (const CCorvaneAttrib* entry = &attrib; entry != nullptr; entry = FindOlderEntry(*entry))
    {
        section = FindSection(file, *entry);
        if (!section.empty())
            return entry;
    }
    return nullptr;
}

std::size_t CountValues(const CUnicodeFileParse_ReadOnly& file, std::u16string_view section)
{
    std::size_t count = 0;
    while (file.IsKey(section, FormatText(u"Value.%.4d", static_cast<int>(count))))
        ++count;
    return count;
}
} // namespace

SValueOrigin CValueOrigins::Find(const CCorvaneAttrib& attrib)
{
    SValueOrigin origin;
    origin.m_pHolder = &attrib;
    while (origin.m_pHolder->GetInherit())
    {
        const CCorvaneRecord* record = origin.m_pHolder->GetOwnerRecord();
        const CCorvaneRecord* parent = record ? record->GetParent() : nullptr;
        const CCorvaneAttrib* next = parent ? origin.m_pHolder->FindCounterpart(*parent) : nullptr;
        if (next == nullptr)
            break;
        origin.m_Chain.push_back(parent);
        origin.m_pHolder = next;
    }
    const CCorvaneRecord* holder = origin.m_pHolder->GetOwnerRecord();
    if (holder == nullptr)
        return origin;
    const CUnicodeFileParse_ReadOnly& file = Open(*holder);
    std::u16string section;
    const CCorvaneAttrib* stored = FindStoredEntry(file, *origin.m_pHolder, section);
    const CCorvaneAttrib& entry = stored ? *stored : GetOldestEntry(*origin.m_pHolder);
    if (&entry != origin.m_pHolder)
        origin.m_nOlderBuild = entry.GetBuild();
    if (stored)
        origin.m_nStored = IsStruct(attrib) ? 1 : CountValues(file, section);
    return origin;
}

const CUnicodeFileParse_ReadOnly& CValueOrigins::Open(const CCorvaneRecord& record)
{
    std::unique_ptr<CUnicodeFileParse_ReadOnly>& parser = m_Parsers[&record];
    if (!parser)
    {
        parser = std::make_unique<CUnicodeFileParse_ReadOnly>(m_Files);
        // It was read a moment ago; a file that is gone since then stores nothing.
        static_cast<void>(parser->Import(record.GetFile(), 0));
    }
    return *parser;
}
