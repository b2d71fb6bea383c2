// The text forms of the findings: the log of a batch run and the list that a person copies or saves.
#include "FileSystem.h"
#include "FindingPlace.h"
#include "FormatText.h"
#include "Path.h"
#include "UnicodeFileParseIO.h"
#include "ValidateCore.h"

namespace
{
void AppendLine(std::u16string& text, char16_t separator, std::u16string_view mark,
                const CValidateError& error, std::size_t firstIndex)
{
    const SFindingPlace place = DescribePlace(error.m_pAttrib.Get());
    const std::u16string index = error.m_pAttrib ? FormatText(u"%u", error.m_nValueIndex + firstIndex) : u"";
    text.append(mark);
    for (const std::u16string_view field :
         {std::u16string_view(error.m_sType), place.m_sTypeName, std::u16string_view(place.m_sRecord),
          place.m_sAttribute, std::u16string_view(index), std::u16string_view(error.m_sDescription)})
        text.append(1, separator).append(field);
    text.append(u"\r\n");
}

// Little-endian on every machine, since the reader of the file may be another one.
std::vector<std::byte> EncodeUtf16(std::u16string_view text)
{
    std::vector<std::byte> bytes;
    bytes.reserve(2 * (text.size() + 1));
    const auto append = [&bytes](char16_t unit)
    {
        bytes.push_back(static_cast<std::byte>(unit & 0xFF));
        bytes.push_back(static_cast<std::byte>(unit >> 8));
    };
    append(kByteOrderMark);
    for (const char16_t unit : text)
        append(unit);
    return bytes;
}
} // namespace

bool CValidateCore::WriteLog(IFileSystem& files, std::u16string_view path) const
{
    std::u16string text;
    for (const CValidateError& error : m_Errors)
        AppendLine(text, u'|', error.m_Severity == ESeverity::Critical ? u"Critical" : u"Warning", error, 0);
    // A directory that cannot be made shows itself when the file is written.
    if (!GetDirectoryPart(path).empty())
        static_cast<void>(files.CreateDirectoryTree(path));
    return files.WriteFile(path, EncodeUtf16(text)).IsOk();
}

std::u16string CValidateCore::FormatList() const
{
    // The column of the severity has no title.
    std::u16string text = u"\tError\tType\tRecord\tAttribute\tValue\tDescription\n";
    for (const CValidateError& error : m_Errors)
        AppendLine(text, u'\t', error.m_Severity == ESeverity::Critical ? u"!" : u"?", error, 1);
    return text;
}

bool CValidateCore::SaveList(IFileSystem& files, std::u16string_view path) const
{
    return files.WriteFile(path, EncodeUtf16(FormatList())).IsOk();
}
