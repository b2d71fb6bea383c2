#include "SampleFiles.h"

#include "Unicode.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace
{
std::u16string ReadText(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE") << path;
    std::u16string text(bytes.size() / 2, u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * 2);
    return text.substr(1);
}

std::u16string Number(std::size_t value, std::size_t width)
{
    std::string digits = std::to_string(value);
    digits.insert(0, digits.size() < width ? width - digits.size() : 0, '0');
    return {digits.begin(), digits.end()};
}
} // namespace

SectionFile ReadSectionFile(const fs::path& path)
{
    SectionFile file;
    Section* section = nullptr;
    const std::u16string text = ReadText(path);
    for (std::size_t at = 0; at < text.size();)
    {
        const std::size_t end = std::min(text.find(u"\r\n", at), text.size());
        const std::u16string line = text.substr(at, end - at);
        at = end + 2;
        const std::size_t equals = line.find(u'=');
        if (!line.empty() && line[0] == u'[')
            section = &file[line.substr(1, line.size() - 2)];
        else if (section && equals != std::u16string::npos)
            section->emplace(line.substr(0, equals), line.substr(equals + 1));
    }
    return file;
}

std::string CSampleFiles::SRecord::GetPath() const
{
    return m_sCategory + "/" + ToNarrow(m_sName);
}

CSampleFiles::CSampleFiles(const fs::path& database)
{
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(database))
    {
        const fs::path directory = entry.path().parent_path();
        const fs::path extension = entry.path().extension();
        if (extension != ".schema" && extension != ".struct" && extension != ".record")
            continue;
        SectionFile file = ReadSectionFile(entry.path());
        if (extension == ".struct")
            m_Structs[entry.path()] = {std::move(file), directory};
        else if (extension == ".schema")
            m_Schemas[file[u"Schema"][u"Name"]] = {file, directory};
        else
        {
            const Section& head = file[u"Record"];
            const std::string category = fs::relative(directory, database).generic_string();
            m_Records.push_back({head.at(u"Name"), category, head.at(u"Schema"), file});
            EXPECT_TRUE(m_Paths.emplace(head.at(u"Name"), m_Records.back().GetPath()).second) << entry.path();
        }
    }
}

std::string CSampleFiles::FindPath(const std::u16string& link) const
{
    const auto found = m_Paths.find(link.substr(link.rfind(u'/') + 1));
    return found == m_Paths.end() ? std::string() : found->second;
}

void CSampleFiles::AddEntries(const SDeclarations& declarations, std::uint32_t build, Entries& entries)
{
    for (const auto& [section, keys] : declarations.m_File)
    {
        if (section.rfind(u"Attrib.", 0) != 0)
            continue;
        const std::size_t point = section.rfind(u'.');
        const auto from = static_cast<std::uint32_t>(std::stoul(ToNarrow(section.substr(point + 1))));
        const auto [at, isNew] = entries.try_emplace(section.substr(7, point - 7));
        if (isNew)
            at->second.m_nBuild = UINT32_MAX;
        if (from > build || (at->second.m_nBuild != UINT32_MAX && at->second.m_nBuild > from))
            continue;
        at->second = {from,
                      keys.at(u"Type"),
                      keys.at(u"Data"),
                      keys.at(u"Unicode") == u"True",
                      keys.at(u"Deleted") == u"True",
                      declarations.m_Directory};
    }
}

Entries CSampleFiles::RemoveDeleted(Entries entries)
{
    std::erase_if(entries, [](const auto& entry)
                  { return entry.second.m_nBuild == UINT32_MAX || entry.second.m_bDeleted; });
    return entries;
}

Entries CSampleFiles::GetEntries(const std::u16string& schema, std::uint32_t build) const
{
    Entries entries;
    for (std::u16string name = schema; !name.empty();)
    {
        const SDeclarations& declarations = m_Schemas.at(name);
        AddEntries(declarations, build, entries);
        name = declarations.m_File.at(u"Schema").at(u"Parent");
    }
    return RemoveDeleted(std::move(entries));
}

Entries CSampleFiles::GetMembers(const SEntry& entry, std::uint32_t build) const
{
    Entries entries;
    AddEntries(m_Structs.at((entry.m_Directory / ToNarrow(entry.m_sData)).lexically_normal()), build,
               entries);
    return RemoveDeleted(std::move(entries));
}

std::u16string CSampleFiles::GetSection(const std::u16string& prefix, const std::u16string& name,
                                        const SEntry& entry)
{
    const std::u16string section = prefix + u"." + name;
    if (entry.m_nBuild == 0 && entry.m_sType != u"Struct")
        return section;
    return section + u"." + Number(entry.m_nBuild, 1);
}

std::vector<std::u16string> CSampleFiles::GetValues(const SRecord& record, const std::u16string& section)
{
    std::vector<std::u16string> values;
    const auto found = record.m_File.find(section);
    EXPECT_NE(found, record.m_File.end()) << record.GetPath() << " lacks " << ToNarrow(section);
    if (found == record.m_File.end())
        return values;
    for (std::size_t i = 0; found->second.contains(u"Value." + Number(i, 4)); ++i)
        values.push_back(found->second.at(u"Value." + Number(i, 4)));
    return values;
}

std::size_t CSampleFiles::GetRowCount(const SRecord& record, const std::u16string& section)
{
    EXPECT_TRUE(record.m_File.contains(section)) << record.GetPath() << " lacks " << ToNarrow(section);
    for (std::size_t row = 0;; ++row)
    {
        const std::u16string begin = section + u"." + Number(row, 1) + u".";
        const auto at = record.m_File.lower_bound(begin);
        if (at == record.m_File.end() || at->first.rfind(begin, 0) != 0)
            return row;
    }
}
