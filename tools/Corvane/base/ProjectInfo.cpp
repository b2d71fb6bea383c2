#include "ProjectInfo.h"

#include "FileSystem.h"
#include "NameCompare.h"
#include "Path.h"

#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <vector>

namespace
{
constexpr std::u16string_view kExtension = u"proj00";
constexpr std::size_t kMaxValue = 260;
constexpr std::u16string_view kProjectToken = u"%PROJDIR%";

enum class EKind
{
    Text,
    TextWithToken,
    Directory,
    File,
};

struct SField
{
    std::u16string_view m_sSection;
    std::u16string_view m_sKey;
    EKind m_Kind;
    std::u16string CProjectInfo::*m_pMember;
};

constexpr SField kFields[] = {
    {u"General", u"Game", EKind::Text, &CProjectInfo::m_sGame},
    {u"Project Directories", u"ResourceRoot", EKind::Directory, &CProjectInfo::m_sResourceRoot},
    {u"Project Directories", u"ToolsRoot", EKind::Directory, &CProjectInfo::m_sToolsRoot},
    {u"Project Directories", u"PC", EKind::Directory, &CProjectInfo::m_sPC},
    {u"Project Directories", u"Xenon", EKind::Directory, &CProjectInfo::m_sXenon},
    {u"Project Binaries", u"VisualFx", EKind::File, &CProjectInfo::m_sVisualFx},
    {u"Project Binaries", u"GameServer", EKind::File, &CProjectInfo::m_sGameServer},
    {u"Project Binaries", u"GameDatabase", EKind::File, &CProjectInfo::m_sGameDatabase},
    {u"Source Control", u"Provider", EKind::Text, &CProjectInfo::m_sProvider},
    {u"Source Control", u"Database", EKind::TextWithToken, &CProjectInfo::m_sDatabase},
    {u"Tools Launch", u"PCBinary", EKind::File, &CProjectInfo::m_sPCBinary},
    {u"Tools Launch", u"PCWorking", EKind::File, &CProjectInfo::m_sPCWorking},
    {u"Tools Launch", u"XenonBinary", EKind::File, &CProjectInfo::m_sXenonBinary},
    {u"Tools Launch", u"XenonWorking", EKind::File, &CProjectInfo::m_sXenonWorking},
};

std::u16string_view Trim(std::u16string_view text)
{
    const std::size_t first = text.find_first_not_of(u" \t");
    if (first == std::u16string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(u" \t") - first + 1);
}

std::u16string_view DropQuotes(std::u16string_view text)
{
    const bool quoted = text.size() >= 2 && text.front() == u'"' && text.back() == u'"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

// ---- Text of a locator: UTF-16 with its mark, else UTF-8, else Windows-1252 ----

std::u16string DecodeUtf16(std::string_view bytes, bool bigEndian)
{
    std::u16string text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
    {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<char16_t>(bigEndian ? (first << 8 | second) : (second << 8 | first));
    }
    return text;
}

bool DecodeUtf8(std::string_view bytes, std::u16string& text)
{
    text.resize(bytes.size());
    std::int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8(text.data(), static_cast<std::int32_t>(text.size()), &length, bytes.data(),
                  static_cast<std::int32_t>(bytes.size()), &error);
    if (U_FAILURE(error))
        return false;
    text.resize(static_cast<std::size_t>(length));
    return true;
}

std::u16string DecodeWindows1252(std::string_view bytes)
{
    std::u16string text(bytes.size(), u'\0');
    UErrorCode error = U_ZERO_ERROR;
    UConverter* converter = ucnv_open("windows-1252", &error);
    const std::int32_t length = ucnv_toUChars(converter, text.data(), static_cast<std::int32_t>(text.size()),
                                              bytes.data(), static_cast<std::int32_t>(bytes.size()), &error);
    ucnv_close(converter);
    text.resize(U_SUCCESS(error) ? static_cast<std::size_t>(length) : 0);
    return text;
}

std::u16string DecodeLocator(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE"))
        return DecodeUtf16(bytes, false);
    if (bytes.starts_with("\xFE\xFF"))
        return DecodeUtf16(bytes, true);
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    std::u16string text;
    return DecodeUtf8(bytes, text) ? text : DecodeWindows1252(bytes);
}

// ---- Sections and keys: the first of each name wins, without regard to case ----

class CLocatorText
{
public:
    explicit CLocatorText(std::u16string text) : m_sText(std::move(text))
    {
        std::u16string_view rest = m_sText;
        while (!rest.empty())
        {
            const std::size_t end = std::min(rest.find_first_of(u"\r\n"), rest.size());
            AddLine(Trim(rest.substr(0, end)));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    CLocatorText(const CLocatorText&) = delete; // The keys are views into the text.
    CLocatorText& operator=(const CLocatorText&) = delete;

    [[nodiscard]] std::u16string_view Find(std::u16string_view section, std::u16string_view key) const
    {
        const auto found = std::find_if(m_Sections.begin(), m_Sections.end(),
                                        [&](const SSection& s) { return EqualNames(s.m_sName, section); });
        if (found == m_Sections.end())
            return {};
        const auto entry = std::find_if(found->m_Keys.begin(), found->m_Keys.end(),
                                        [&](const SKey& k) { return EqualNames(k.m_sName, key); });
        return entry == found->m_Keys.end() ? std::u16string_view() : entry->m_sValue;
    }

private:
    struct SKey
    {
        std::u16string_view m_sName;
        std::u16string_view m_sValue;
    };
    struct SSection
    {
        std::u16string_view m_sName;
        std::vector<SKey> m_Keys;
    };

    void AddLine(std::u16string_view line)
    {
        if (line.empty() || line.front() == u';')
            return;
        if (line.front() == u'[')
        {
            const std::size_t end = std::min(line.find(u']'), line.size());
            m_Sections.push_back({Trim(line.substr(1, end - 1)), {}});
            return;
        }
        const std::size_t sign = line.find(u'=');
        if (sign == std::u16string_view::npos || m_Sections.empty())
            return;
        const std::u16string_view value = DropQuotes(Trim(line.substr(sign + 1)));
        m_Sections.back().m_Keys.push_back({Trim(line.substr(0, sign)), value.substr(0, kMaxValue)});
    }

    std::u16string m_sText;
    std::vector<SSection> m_Sections;
};

// ---- Values ----

std::u16string ResolveDirectory(std::u16string_view projectDirectory, std::u16string_view value)
{
    std::u16string path = ResolvePath(projectDirectory, value);
    if (!EndsInSeparator(path))
        path += GetSeparator(path);
    return path;
}

std::u16string MakeValue(EKind kind, std::u16string_view projectDirectory, std::u16string_view value)
{
    std::u16string text(value);
    switch (kind)
    {
    case EKind::Text:
        break;
    case EKind::TextWithToken:
        if (const std::size_t token = text.find(kProjectToken); token != std::u16string::npos)
            text.replace(token, kProjectToken.size(), projectDirectory);
        break;
    case EKind::Directory:
        return ResolveDirectory(projectDirectory, value);
    case EKind::File:
        // A missing file value is the project directory as it stands; what loads it fails in its own words.
        return value.empty() ? std::u16string(projectDirectory) : ResolvePath(projectDirectory, value);
    }
    return text;
}

std::u16string MakeAbsolute(std::u16string_view path)
{
    std::error_code error;
    return ResolvePath(std::filesystem::current_path(error).u16string(), path);
}
} // namespace

bool CProjectInfo::ReadProjectFile(IFileSystem& files, std::u16string_view path)
{
    CFileBuffer content;
    std::string_view bytes;
    if (files.ReadFile(path, content, nullptr).IsOk())
        bytes = {reinterpret_cast<const char*>(content.GetBytes().data()), content.GetBytes().size()};
    const CLocatorText locator(DecodeLocator(bytes));

    m_sProjectDirectory = GetDirectoryPart(path);
    for (const SField& field : kFields)
        this->*field.m_pMember =
            MakeValue(field.m_Kind, m_sProjectDirectory, locator.Find(field.m_sSection, field.m_sKey));
    return true;
}

bool LocateProject(IFileSystem& files, std::u16string_view rootFile, CProjectInfo& info)
{
    std::u16string directory = MakeAbsolute(rootFile);
    while (true)
    {
        const std::size_t separator = directory.find_last_of(u"\\/");
        directory.resize(separator == std::u16string::npos ? 0 : separator);
        if (directory.empty())
            return false;
        std::u16string path;
        if (FindProjectFile(files, directory, path))
            return info.ReadProjectFile(files, path);
    }
}

bool FindProjectFile(IFileSystem& files, std::u16string_view directory, std::u16string& path)
{
    SDirectoryFilter filter;
    filter.m_bDirectories = false;
    filter.m_sExtension = kExtension;
    std::vector<SDirectoryEntry> entries;
    if (!files.ListDirectory(directory, filter, entries).IsOk() || entries.empty())
        return false;
    path = JoinPath(directory, entries.front().m_sName);
    return true;
}
