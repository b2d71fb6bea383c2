#include "SampleFiles.h"

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

CSampleFiles::CSampleFiles(const fs::path& database)
{
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(database))
    {
        if (entry.path().extension() == ".schema")
        {
            SectionFile file = ReadSectionFile(entry.path());
            const std::u16string name = file[u"Schema"][u"Name"];
            m_Schemas.emplace(name, std::move(file));
        }
        if (entry.path().extension() == ".record")
        {
            SectionFile file = ReadSectionFile(entry.path());
            const Section& head = file[u"Record"];
            const std::string category = fs::relative(entry.path().parent_path(), database).generic_string();
            m_Records.push_back({head.at(u"Name"), category, head.at(u"Schema"), file});
        }
    }
}

std::map<std::u16string, SEntry> CSampleFiles::GetEntries(const std::u16string& schema,
                                                          std::uint32_t build) const
{
    std::map<std::u16string, SEntry> entries;
    for (std::u16string name = schema; !name.empty(); name = m_Schemas.at(name).at(u"Schema").at(u"Parent"))
    {
        for (const auto& [section, keys] : m_Schemas.at(name))
        {
            if (section.rfind(u"Attrib.", 0) != 0)
                continue;
            const std::size_t point = section.rfind(u'.');
            const std::string digits(section.begin() + static_cast<std::ptrdiff_t>(point) + 1, section.end());
            const auto from = static_cast<std::uint32_t>(std::stoul(digits));
            SEntry& entry =
                entries.emplace(section.substr(7, point - 7), SEntry{UINT32_MAX, {}, false, false})
                    .first->second;
            if (from > build || (entry.m_nBuild != UINT32_MAX && entry.m_nBuild > from))
                continue;
            entry = {from, keys.at(u"Type"), keys.at(u"Unicode") == u"True", keys.at(u"Deleted") == u"True"};
        }
    }
    std::erase_if(entries, [](const auto& entry)
                  { return entry.second.m_nBuild == UINT32_MAX || entry.second.m_bDeleted; });
    return entries;
}

std::vector<std::u16string> CSampleFiles::GetValues(const SRecord& record, const std::u16string& attribute,
                                                    std::uint32_t build)
{
    std::vector<std::u16string> values;
    const std::u16string section = u"Attrib." + attribute + (build == 0 ? u"" : u"." + Number(build, 1));
    const auto found = record.m_File.find(section);
    EXPECT_NE(found, record.m_File.end()) << "a section is missing in " << record.m_sCategory;
    if (found == record.m_File.end())
        return values;
    for (std::size_t i = 0; found->second.contains(u"Value." + Number(i, 4)); ++i)
        values.push_back(found->second.at(u"Value." + Number(i, 4)));
    return values;
}
