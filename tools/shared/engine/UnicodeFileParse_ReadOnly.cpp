#include "UnicodeFileParse_ReadOnly.h"

#include "LineScanner.h"
#include "NameCompare.h"
#include "UnicodeFileParseIO.h"
#include "zrassert.h"

#include <algorithm>
#include <bit>

// Names and values are views into the file's own bytes.
static_assert(std::endian::native == std::endian::little);

namespace
{
// A zero unit ends the text that holds it, as where texts are terminated by one.
std::u16string_view CutAtZero(std::u16string_view text)
{
    return text.substr(0, std::min(text.find(u'\0'), text.size()));
}

std::u16string_view Slice(std::u16string_view text, std::size_t begin, std::size_t end)
{
    return {text.data() + begin, end - begin};
}

std::u16string_view GetUnits(const CFileBuffer& buffer)
{
    const std::span<const std::byte> bytes = buffer.GetBytes();
    return {reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / sizeof(char16_t)};
}
} // namespace

bool CUnicodeFileParse_ReadOnly::Import(std::u16string_view file, std::uint32_t)
{
    Clear();
    SFileInfo info;
    m_LastError = m_Files.ReadFile(file, m_Buffer, &info);
    if (!m_LastError.IsOk())
        return false;
    const std::u16string_view units = GetUnits(m_Buffer);
    constexpr char16_t kForeignMark = 0xFFFE;
    if (!units.empty() && units.front() == kForeignMark)
        ZRASSERT_FORCED("Big Endian files cannot be read by the ReadOnly parser.");
    if (units.empty() || units.front() != kByteOrderMark)
    {
        m_LastError = {EFileError::InvalidData, 0};
        return false;
    }
    m_Info = info;
    ParseLines(units.substr(1));
    return true;
}

bool CUnicodeFileParse_ReadOnly::Export(std::u16string_view, std::uint32_t)
{
    ZRASSERT_FORCED("Export Not Supported by Read Only Parser");
    return false;
}

void CUnicodeFileParse_ReadOnly::Clear()
{
    m_Sections.clear();
    m_Keys.clear();
    DropIndexes();
}

bool CUnicodeFileParse_ReadOnly::IsEmpty() const
{
    return m_Sections.empty();
}

bool CUnicodeFileParse_ReadOnly::WriteString(std::u16string_view, std::u16string_view, std::u16string_view)
{
    ZRASSERT_FORCED("WriteString Not Supported by Read Only Parser");
    return false;
}

bool CUnicodeFileParse_ReadOnly::WriteInteger(std::u16string_view, std::u16string_view, std::int32_t)
{
    ZRASSERT_FORCED("WriteInteger Not Supported by Read Only Parser");
    return false;
}

bool CUnicodeFileParse_ReadOnly::WriteFloat(std::u16string_view, std::u16string_view, float)
{
    ZRASSERT_FORCED("WriteFloat Not Supported by Read Only Parser");
    return false;
}

bool CUnicodeFileParse_ReadOnly::WriteBoolean(std::u16string_view, std::u16string_view, bool)
{
    ZRASSERT_FORCED("WriteBoolean Not Supported by Read Only Parser");
    return false;
}

bool CUnicodeFileParse_ReadOnly::DeleteKey(std::u16string_view, std::u16string_view)
{
    ZRASSERT_FORCED("DeleteKey Not Supported by Read Only Parser");
    return false;
}

bool CUnicodeFileParse_ReadOnly::DeleteSection(std::u16string_view)
{
    ZRASSERT_FORCED("DeleteSection Not Supported by Read Only Parser");
    return false;
}

bool CUnicodeFileParse_ReadOnly::IsSection(std::u16string_view section, bool partial) const
{
    const char16_t* wszSection = section.data();
    ZRASSERT(wszSection);
    if (!partial)
        return FindSection(section) >= 0;
    return std::any_of(m_Sections.begin(), m_Sections.end(),
                       [&](const SSection& entry) { return BeginsWithName(entry.m_sName, section); });
}

std::u16string_view CUnicodeFileParse_ReadOnly::GetSectionName(std::size_t section) const
{
    return m_Sections[section].m_sName;
}

std::span<const SSectionKey> CUnicodeFileParse_ReadOnly::GetKeys(std::size_t section) const
{
    const SSection& entry = m_Sections[section];
    return std::span(m_Keys).subspan(entry.m_nFirstKey, entry.m_nKeyCount);
}

std::ptrdiff_t CUnicodeFileParse_ReadOnly::FindSection(std::u16string_view name) const
{
    if (m_Sections.size() >= CSectionIndex::kSmallestCount)
        return FindSection(name, HashName(name));
    const auto found = std::find_if(m_Sections.begin(), m_Sections.end(),
                                    [&](const SSection& entry) { return EqualNames(entry.m_sName, name); });
    return found != m_Sections.end() ? found - m_Sections.begin() : -1;
}

std::ptrdiff_t CUnicodeFileParse_ReadOnly::FindSection(std::u16string_view name, std::size_t hash) const
{
    if (m_Sections.size() < CSectionIndex::kSmallestCount)
        return FindSection(name);
    const auto nameOf = [this](std::size_t section) { return m_Sections[section].m_sName; };
    if (!m_Index.IsBuilt())
        m_Index.Build(m_Sections.size(), nameOf);
    return m_Index.Find(name, hash, nameOf);
}

const CSectionTree& CUnicodeFileParse_ReadOnly::GetTree() const
{
    if (!m_Tree.IsBuilt())
        m_Tree.Build(m_Sections.size(), [this](std::size_t section) { return m_Sections[section].m_sName; });
    return m_Tree;
}

void CUnicodeFileParse_ReadOnly::DropIndexes()
{
    m_Index.Drop();
    m_Tree.Drop();
}

std::u16string_view CUnicodeFileParse_ReadOnly::FindValue(std::size_t section, std::u16string_view name) const
{
    for (const SSectionKey& key : GetKeys(section))
    {
        if (EqualNames(key.m_sName, name))
            return key.m_sValue;
    }
    return {};
}

void CUnicodeFileParse_ReadOnly::RemoveSection(std::size_t section)
{
    m_Sections.erase(m_Sections.begin() + static_cast<std::ptrdiff_t>(section));
    DropIndexes();
}

void CUnicodeFileParse_ReadOnly::MoveSection(std::size_t from, std::size_t to)
{
    const auto first = m_Sections.begin() + static_cast<std::ptrdiff_t>(from);
    const auto target = m_Sections.begin() + static_cast<std::ptrdiff_t>(to);
    if (from < to)
        std::rotate(first, first + 1, target);
    else
        std::rotate(target, first, first + 1);
    DropIndexes();
}

std::u16string_view CUnicodeFileParse_ReadOnly::FindText(std::u16string_view section,
                                                         std::u16string_view name) const
{
    const std::ptrdiff_t found = FindSection(section);
    return found < 0 ? std::u16string_view() : FindValue(static_cast<std::size_t>(found), name);
}

void CUnicodeFileParse_ReadOnly::ParseLines(std::u16string_view text)
{
    ForEachLine(text, [this, text](const SScannedLine& line) { AddLine(text, line); });
    CloseSection();
}

inline void CUnicodeFileParse_ReadOnly::AddLine(std::u16string_view text, const SScannedLine& line)
{
    const char16_t first = text[line.begin];
    if (first == u'[')
    {
        // The last unit is taken for the closing bracket, whatever it is.
        AddSection(Slice(text, line.begin + 1, std::max(line.end - 1, line.begin + 1)), line.mayHoldZero);
        return;
    }
    if (first == u';' || line.equals >= line.end || m_Sections.empty())
        return;
    SSectionKey& key = m_Keys.emplace_back(
        SSectionKey{Slice(text, line.begin, line.equals), Slice(text, line.equals + 1, line.end)});
    if (line.mayHoldZero)
        key = {CutAtZero(key.m_sName), CutAtZero(key.m_sValue)};
}

void CUnicodeFileParse_ReadOnly::AddSection(std::u16string_view name, bool mayHoldZero)
{
    CloseSection();
    m_Sections.push_back(
        {mayHoldZero ? CutAtZero(name) : name, static_cast<std::uint32_t>(m_Keys.size()), 0});
}

// The keys since the last section's head are that section's.
void CUnicodeFileParse_ReadOnly::CloseSection()
{
    if (m_Sections.empty())
        return;
    SSection& last = m_Sections.back();
    last.m_nKeyCount = static_cast<std::uint32_t>(m_Keys.size()) - last.m_nFirstKey;
}
