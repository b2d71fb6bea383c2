#include "Profile.h"

#include "FileSystem.h"
#include "NumberText.h"
#include "Path.h"
#include "Unicode.h"

#include <cstdlib>

namespace
{
constexpr std::u16string_view kMaker = u"Harrowgate Works/ZORN";
constexpr std::u16string_view kProgram = u"Corvane";

bool IsDigitAt(std::u16string_view text, std::size_t place)
{
    return place < text.size() && text[place] >= u'0' && text[place] <= u'9';
}

// A text that ParseFloat takes a digit from; others leave the fallback in force.
bool BeginsWithNumber(std::u16string_view text)
{
    std::size_t place = text.find_first_not_of(u" \t");
    if (place == std::u16string_view::npos)
        return false;
    if (text[place] == u'+' || text[place] == u'-')
        ++place;
    if (place < text.size() && text[place] == u'.')
        ++place;
    return IsDigitAt(text, place);
}
} // namespace

CProfile::CProfile(IFileSystem& files, std::u16string path) : m_Store(files), m_sPath(std::move(path))
{
    // A missing profile is that of a first start.
    static_cast<void>(m_Store.Import(m_sPath, 0));
}

std::int32_t CProfile::GetInteger(std::u16string_view section, std::u16string_view key,
                                  std::int32_t fallback) const
{
    std::u16string text;
    return m_Store.ReadString(section, key, text) ? ParseInteger(text) : fallback;
}

void CProfile::SetInteger(std::u16string_view section, std::u16string_view key, std::int32_t value)
{
    SetString(section, key, FormatInteger(value));
}

std::u16string CProfile::GetString(std::u16string_view section, std::u16string_view key,
                                   std::u16string_view fallback) const
{
    std::u16string text(fallback);
    m_Store.ReadString(section, key, text);
    return text;
}

void CProfile::SetString(std::u16string_view section, std::u16string_view key, std::u16string_view value)
{
    // One line is what the file has for a value: one with a line end would come back as other keys.
    if (value.find_first_of(u"\r\n") != std::u16string_view::npos)
        return;
    std::u16string before;
    if (m_Store.ReadString(section, key, before) && before == value)
        return;
    m_Store.WriteString(section, key, value);
    m_bChanged = true;
}

float CProfile::GetFloat(std::u16string_view section, std::u16string_view key, float fallback) const
{
    const std::u16string text = GetString(section, key, FormatFloat(static_cast<double>(fallback)));
    return BeginsWithNumber(text) ? ParseFloat(text) : fallback;
}

void CProfile::SetFloat(std::u16string_view section, std::u16string_view key, float value)
{
    SetString(section, key, FormatFloat(static_cast<double>(value)));
}

bool CProfile::Save()
{
    if (!m_bChanged)
        return true;
    if (!m_Store.Export(m_sPath, EXPORT_UTF16LE))
        return false;
    m_bChanged = false;
    return true;
}

std::u16string GetApplicationDataDirectory()
{
    // A relative XDG directory is invalid and counts as not set.
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    if (configured != nullptr && configured[0] == '/')
        return std::u16string(WithoutLastSeparator(ToWide(configured)));
    const char* home = std::getenv("HOME");
    return JoinPath(ToWide(home != nullptr ? home : "/"), u".config");
}

std::u16string GetProfilePath()
{
    return JoinPath(JoinPath(GetApplicationDataDirectory(), kMaker), std::u16string(kProgram).append(u".ini"));
}

std::u16string GetPerUserFilePath(std::u16string_view databaseId)
{
    const std::u16string directory = JoinPath(JoinPath(GetApplicationDataDirectory(), kMaker), kProgram);
    return JoinPath(directory, std::u16string(databaseId) + u".ini");
}
