// The dependencies of the sample game from its files to the file of the game's tools, through the built
// programs.
#include "SampleCopy.h"
#include "SampleFiles.h"
#include "Unicode.h"
#include "ZRACompressedFile.h"

#include <gtest/gtest.h>

#include <sstream>

namespace fs = std::filesystem;

namespace
{
using References = std::map<std::string, int>; // "source > resource (kind)" and how often.

class CDependencySample : public ::testing::Test, protected CSampleCopy
{
protected:
    int Update() const
    {
        return RunShell("'" CORVANE_PROGRAM "' -Silent -UpdateDependency '" + PathOf("outpost") + "'");
    }
    int Write(const std::string& arguments, const std::string& limits = {}) const
    {
        return RunShell(limits + "'" CORVANECTL_PROGRAM "' dependencies '" + GetRootFile() + "' " +
                        arguments);
    }
    std::string Read(const char* name) const { return m_Scratch.ReadBytes(name); }
};

constexpr const char* kUpdated = "outpost/Database/Outpost.Gamdb00dc";

std::string Expand(const std::string& file)
{
    CZRACompressedFile in;
    EXPECT_TRUE(in.Open(file.c_str(), CZRAFileBuffer::OPEN_READ, 1024, false));
    std::string text;
    for (std::uint8_t byte = 0; in.ReadByte(byte);)
        text += static_cast<char>(byte);
    return text;
}

// What a section and, for a struct, its rows refer to, by the source file's own words.
void AddReferences(const CSampleFiles& files, const CSampleFiles::SRecord& record, const Entries& entries,
                   const std::u16string& prefix, std::uint32_t build, References& references)
{
    for (const auto& [name, entry] : entries)
    {
        const std::u16string section = CSampleFiles::GetSection(prefix, name, entry);
        if (entry.m_sType == u"Struct")
        {
            for (std::size_t row = 0; row < CSampleFiles::GetRowCount(record, section); ++row)
                AddReferences(files, record, files.GetMembers(entry, build),
                              section + u"." + ToWide(std::to_string(row)), build, references);
            continue;
        }
        const bool link = entry.m_sType == u"RecordLink";
        if (!link && entry.m_sType != u"File" && entry.m_sType != u"Sound" && entry.m_sType != u"Effect" &&
            entry.m_sType != u"StringID")
            continue;
        for (const std::u16string& value : CSampleFiles::GetValues(record, section))
        {
            if (value.empty() || value == u"<none>")
                continue;
            const std::string resource = link ? files.FindPath(value) : ToNarrow(value);
            const std::string kind = link ? "Record" : ToNarrow(entry.m_sType);
            ++references[record.GetPath() + " > " + resource + " (" + kind + ")"];
        }
    }
}

// The references of a written text, and its resources as ones of their own.
References Parse(const std::string& text)
{
    References references;
    std::map<std::string, std::string> item;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
    {
        line.erase(0, line.find_first_not_of('\t'));
        if (line == ")" && item.contains("source"))
            references[item["source"] + " > " + item["resource"] + " (" + item["resource-type"] + ")"] =
                item.contains("count") ? std::stoi(item["count"]) : 1;
        else if (line == ")" && item.contains("name"))
            references[item["name"] + " " + item["type"]] = 1;
        if (line == ")")
            item.clear();
        const std::size_t end = line.find(' ');
        if (line.ends_with(" )"))
            item[line.substr(1, end - 1)] =
                line[end + 1] == '"' ? line.substr(end + 2, line.size() - end - 5) : line.substr(end + 1);
    }
    return references;
}
} // namespace

TEST_F(CDependencySample, TheFileSaysWhatTheSourceFilesSay)
{
    ASSERT_EQ(Update(), 0);
    const std::string first = Read(kUpdated);
    ASSERT_EQ(Update(), 0);
    EXPECT_EQ(Read(kUpdated), first);
    EXPECT_EQ(Read("output") + Read("error"), "");

    ASSERT_EQ(Write("--output '" + PathOf("list.da") + "'"), 0);
    EXPECT_TRUE(Expand(PathOf(kUpdated)) == Read("list.da")) << "both programs write the same";
    ASSERT_EQ(Write(""), 0);
    EXPECT_EQ(Read(kUpdated), first);

    const CSampleFiles files(GetDatabase());
    for (const std::uint32_t build : {0U, 7U, 20U})
    {
        References expected;
        for (const CSampleFiles::SRecord& record : files.GetRecords())
        {
            expected[record.GetPath() + " Record"] = 1;
            AddReferences(files, record, files.GetEntries(record.m_sSchema, build), u"Attrib", build,
                          expected);
        }
        ASSERT_EQ(Write("--output '" + PathOf("list.da") + "' --build " + std::to_string(build)), 0);
        EXPECT_EQ(Parse(Read("list.da")), expected) << build;
    }
}

TEST_F(CDependencySample, WhatGoesWrongIsNamedAndKeepsTheOldFile)
{
    m_Scratch.WriteBytes(kUpdated, "old");
    const auto expectFailure =
        [&](const std::string& arguments, const std::string& limits, int status, const std::string& told)
    {
        EXPECT_EQ(Write(arguments, limits), status) << arguments;
        EXPECT_NE(Read("error").find(told), std::string::npos) << Read("error");
    };
    // The limit on a file's size stands in for a disk that takes no more.
    expectFailure("", "ulimit -f 8; ", 4, "Outpost.Gamdb00dc' could not be written: no space left on the disk.");
    EXPECT_EQ(RunShell("ulimit -f 8; '" CORVANE_PROGRAM "' -UpdateDependency '" + PathOf("outpost") + "'"),
              0);
    EXPECT_NE(Read("error").find("Outpost.Gamdb00dc' could not be written: "), std::string::npos);
    expectFailure("--output '" + PathOf("none/list") + "'", {}, 4, "no such file or directory.");
    expectFailure("--output '" + GetRootFile() + "'", {}, 4, "is the root file.");
    expectFailure("--output=", {}, 4, "needs a file.");
    EXPECT_EQ(Read(kUpdated), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(GetDatabase()), {}), 9) << "no temporary file is left";

    SetValue("World/Weather/Rain.record", u"Attrib.Ambience", u"Value.0000", u"a \"b\".wav");
    expectFailure("", {}, 1, "Outpost.Gamdb00dc' holds a name that its form cannot: 'a \"b\".wav'.");
    EXPECT_NE(Expand(PathOf(kUpdated)).find("(resource \"a \"b\".wav\" )"), std::string::npos);
}
