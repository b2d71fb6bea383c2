#include "UnicodeFileParse_ReadWrite.h"

#include "NameCompare.h"
#include "UnicodeFileParseIO.h"
#include "zrassert.h"

#include <algorithm>

namespace
{
constexpr std::uint32_t kFormatBits = 3;

bool IsLineEnd(char16_t unit)
{
    return unit == u'\r' || unit == u'\n' || unit == kUnicodeEnd;
}

// Appends text as bytes of one byte order.
class CUnitWriter
{
public:
    CUnitWriter(std::vector<std::byte>& bytes, bool bigEndian) : m_Bytes(bytes), m_bBigEndian(bigEndian) {}

    void Write(std::u16string_view text)
    {
        for (const char16_t unit : text)
        {
            const auto low = static_cast<std::byte>(unit & 0xFFU);
            const auto high = static_cast<std::byte>(unit >> 8U);
            m_Bytes.push_back(m_bBigEndian ? high : low);
            m_Bytes.push_back(m_bBigEndian ? low : high);
        }
    }

private:
    std::vector<std::byte>& m_Bytes;
    bool m_bBigEndian;
};

bool BeginsWith(std::span<const std::byte> content, unsigned first, unsigned second)
{
    return content.size() >= 2 && content[0] == static_cast<std::byte>(first) &&
           content[1] == static_cast<std::byte>(second);
}

template <class Keys> auto FindKey(Keys& keys, std::u16string_view name)
{
    return std::find_if(keys.begin(), keys.end(),
                        [&](const auto& key) { return EqualNames(key.m_sName, name); });
}
} // namespace

bool CUnicodeFileParse_ReadWrite::Import(std::u16string_view file, std::uint32_t)
{
    CFileBuffer buffer;
    m_LastError = m_Files.ReadFile(file, buffer, nullptr);
    if (!m_LastError.IsOk())
        return false;
    const std::span<const std::byte> content = buffer.GetBytes();
    if (BeginsWith(content, 0xFF, 0xFE))
        ParseLines(CUnicodeFileIO_UTF16LE(content), true);
    else if (BeginsWith(content, 0xFE, 0xFF))
        ParseLines(CUnicodeFileIO_UTF16BE(content), false);
    else
        m_LastError = {EFileError::InvalidData, 0};
    return m_LastError.IsOk();
}

bool CUnicodeFileParse_ReadWrite::Export(std::u16string_view file, std::uint32_t flags)
{
    const std::uint32_t format = flags & kFormatBits;
    if (format != EXPORT_UTF16LE && format != EXPORT_UTF16BE)
    {
        m_LastError = {EFileError::InvalidData, 0};
        return false;
    }
    m_LastError = m_Files.CreateDirectoryTree(file);
    if (m_LastError.IsOk())
        m_LastError = m_Files.WriteFile(file, Format(format));
    return m_LastError.IsOk();
}

void CUnicodeFileParse_ReadWrite::Clear()
{
    m_Sections.clear();
    m_Index.Drop();
}

bool CUnicodeFileParse_ReadWrite::IsEmpty() const
{
    return m_Sections.empty();
}

bool CUnicodeFileParse_ReadWrite::WriteString(std::u16string_view section, std::u16string_view name,
                                              std::u16string_view value)
{
    const char16_t* wszSection = section.data();
    const char16_t* wszName = name.data();
    const char16_t* wszValue = value.data();
    ZRASSERT(wszSection);
    ZRASSERT(wszName);
    ZRASSERT(wszValue);
    std::ptrdiff_t found = FindSection(section);
    if (found < 0)
    {
        AddSection(section);
        found = static_cast<std::ptrdiff_t>(m_Sections.size()) - 1;
    }
    std::vector<SKey>& keys = m_Sections[static_cast<std::size_t>(found)].m_Keys;
    const auto key = FindKey(keys, name);
    if (key == keys.end())
    {
        keys.push_back({std::u16string(name), std::u16string(value)});
        return true;
    }
    key->m_sName = name;
    key->m_sValue = value;
    return true;
}

bool CUnicodeFileParse_ReadWrite::IsSection(std::u16string_view section, bool partial) const
{
    const char16_t* wszSection = section.data();
    ZRASSERT(wszSection);
    if (!partial)
        return FindSection(section) >= 0;
    return std::any_of(m_Sections.begin(), m_Sections.end(),
                       [&](const SSection& entry) { return BeginsWithName(entry.m_sName, section); });
}

bool CUnicodeFileParse_ReadWrite::DeleteKey(std::u16string_view section, std::u16string_view name)
{
    const char16_t* wszSection = section.data();
    const char16_t* wszName = name.data();
    ZRASSERT(wszSection);
    ZRASSERT(wszName);
    const std::ptrdiff_t found = FindSection(section);
    if (found < 0)
        return false;
    std::vector<SKey>& keys = m_Sections[static_cast<std::size_t>(found)].m_Keys;
    const auto key = FindKey(keys, name);
    if (key == keys.end())
        return false;
    keys.erase(key);
    return true;
}

bool CUnicodeFileParse_ReadWrite::DeleteSection(std::u16string_view section)
{
    const char16_t* wszSection = section.data();
    ZRASSERT(wszSection);
    const std::ptrdiff_t found = FindSection(section);
    if (found < 0)
        return false;
    m_Sections.erase(m_Sections.begin() + found);
    m_Index.Drop();
    return true;
}

std::vector<std::byte> CUnicodeFileParse_ReadWrite::Format(std::uint32_t flags) const
{
    std::size_t units = 1;
    for (const SSection& section : m_Sections)
    {
        units += section.m_sName.size() + 6;
        for (const SKey& key : section.m_Keys)
            units += key.m_sName.size() + key.m_sValue.size() + 3;
    }
    std::vector<std::byte> bytes;
    bytes.reserve(units * sizeof(char16_t));
    CUnitWriter writer(bytes, (flags & kFormatBits) == EXPORT_UTF16BE);
    writer.Write({&kByteOrderMark, 1});
    for (const SSection& section : m_Sections)
    {
        writer.Write(u"[");
        writer.Write(section.m_sName);
        writer.Write(u"]\r\n");
        for (const SKey& key : section.m_Keys)
        {
            writer.Write(key.m_sName);
            writer.Write(u"=");
            writer.Write(key.m_sValue);
            writer.Write(u"\r\n");
        }
        writer.Write(u"\r\n");
    }
    return bytes;
}

std::u16string_view CUnicodeFileParse_ReadWrite::FindText(std::u16string_view section,
                                                          std::u16string_view name) const
{
    const std::ptrdiff_t found = FindSection(section);
    if (found < 0)
        return {};
    const std::vector<SKey>& keys = m_Sections[static_cast<std::size_t>(found)].m_Keys;
    const auto key = FindKey(keys, name);
    return key != keys.end() ? std::u16string_view(key->m_sValue) : std::u16string_view();
}

template <class Reader> void CUnicodeFileParse_ReadWrite::ParseLines(Reader reader, bool keepsUnendedLine)
{
    std::u16string line;
    while (!reader.IsAtEnd())
    {
        const char16_t unit = reader.get();
        if (!IsLineEnd(unit))
        {
            line += unit;
            continue;
        }
        // A second half of CR LF ends an empty line, which is no line at all.
        if (unit == kUnicodeEnd && line.empty())
            return;
        AddLine(line);
        line.clear();
    }
    if (keepsUnendedLine)
        AddLine(line);
}

void CUnicodeFileParse_ReadWrite::AddLine(std::u16string_view line)
{
    if (line.empty() || line.front() == u';')
        return;
    const std::size_t close = line.find(u']');
    if (line.front() == u'[' && close != std::u16string_view::npos)
    {
        AddSection(line.substr(1, close - 1));
        return;
    }
    const std::size_t equals = line.find(u'=');
    if (equals == std::u16string_view::npos || m_Sections.empty())
        return;
    m_Sections.back().m_Keys.push_back(
        {std::u16string(line.substr(0, equals)), std::u16string(line.substr(equals + 1))});
}

void CUnicodeFileParse_ReadWrite::AddSection(std::u16string_view name)
{
    m_Sections.push_back({std::u16string(name), {}});
    if (m_Index.IsBuilt())
        m_Index.Append([this](std::size_t section)
                       { return std::u16string_view(m_Sections[section].m_sName); });
}

std::ptrdiff_t CUnicodeFileParse_ReadWrite::FindSection(std::u16string_view name) const
{
    const auto nameOf = [this](std::size_t section)
    { return std::u16string_view(m_Sections[section].m_sName); };
    if (m_Sections.size() >= CSectionIndex::kSmallestCount)
    {
        if (!m_Index.IsBuilt())
            m_Index.Build(m_Sections.size(), nameOf);
        return m_Index.Find(name, HashName(name), nameOf);
    }
    for (std::size_t section = 0; section < m_Sections.size(); ++section)
    {
        if (EqualNames(nameOf(section), name))
            return static_cast<std::ptrdiff_t>(section);
    }
    return -1;
}
