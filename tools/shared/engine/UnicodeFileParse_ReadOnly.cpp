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
    m_bHasZeros = false;
    m_Index.Drop();
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
    m_Index.Drop();
}

void CUnicodeFileParse_ReadOnly::MoveSection(std::size_t from, std::size_t to)
{
    const auto first = m_Sections.begin() + static_cast<std::ptrdiff_t>(from);
    const auto target = m_Sections.begin() + static_cast<std::ptrdiff_t>(to);
    if (from < to)
        std::rotate(first, first + 1, target);
    else
        std::rotate(target, first, first + 1);
    m_Index.Drop();
}

std::u16string_view CUnicodeFileParse_ReadOnly::FindText(std::u16string_view section,
                                                         std::u16string_view name) const
{
    const std::ptrdiff_t found = FindSection(section);
    return found < 0 ? std::u16string_view() : FindValue(static_cast<std::size_t>(found), name);
}

// Walks over the line ends and the first '=' of each line, which the scanner finds a block at a time.
void CUnicodeFileParse_ReadOnly::ParseLines(std::u16string_view text)
{
    constexpr std::size_t kNone = std::u16string_view::npos;
    std::size_t start = 0;
    std::size_t equals = kNone;
    for (std::size_t block = 0; block < text.size(); block += kLineBlock)
    {
        const bool whole = text.size() - block >= kLineBlock;
        const SLineMarks marks =
            whole ? FindLineMarks(text.data() + block) : FindLineMarks(text.substr(block));
        m_bHasZeros = m_bHasZeros || marks.zeros != 0;
        for (std::uint32_t left = marks.ends | marks.equals; left != 0; left &= left - 1)
        {
            const std::size_t position = block + static_cast<std::size_t>(std::countr_zero(left));
            if (text[position] == u'=')
            {
                equals = std::min(equals, position - start);
                continue;
            }
            if (position == start && text[position] == kUnicodeEnd)
                return;
            AddLine(text.substr(start, position - start), equals);
            start = position + 1;
            equals = kNone;
        }
    }
    AddLine(text.substr(start), equals);
}

void CUnicodeFileParse_ReadOnly::AddLine(std::u16string_view line, std::size_t equals)
{
    if (line.empty() || line.front() == u';')
        return;
    const bool isSection = line.front() == u'[';
    if (!isSection && (equals == std::u16string_view::npos || m_Sections.empty()))
        return;
    std::u16string_view name = line.substr(0, equals);
    std::u16string_view value;
    if (isSection)
        name = line.substr(1, std::max(line.size(), std::size_t{2}) - 2);
    else
        value = line.substr(equals + 1);
    if (m_bHasZeros)
    {
        name = CutAtZero(name);
        value = CutAtZero(value);
    }
    if (isSection)
    {
        m_Sections.push_back({name, static_cast<std::uint32_t>(m_Keys.size()), 0});
        return;
    }
    m_Keys.push_back({name, value});
    ++m_Sections.back().m_nKeyCount;
}
