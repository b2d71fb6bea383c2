// The generated files must be what the system writes: a benchmark over another form would measure something
// that no user has.
#include "BenchHost.h"
#include "DatabaseForms.h"
#include "DatabaseGenerator.h"
#include "MemoryFileSystem.h"
#include "NameCompare.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <map>

namespace
{
constexpr std::size_t kRecords = 1200; // Enough for a second region of each schema's categories.

class CGeneratorTest : public ::testing::Test
{
protected:
    CGeneratorTest()
    {
        GenerateDatabase(kRecords,
                         [this](const std::string& path, std::string_view bytes)
                         {
                             const std::u16string file = u"/bench/" + ToWide(path);
                             EXPECT_TRUE(m_Files.CreateDirectoryTree(file).IsOk());
                             EXPECT_TRUE(m_Files.WriteFile(file, std::as_bytes(std::span(bytes))).IsOk());
                             m_Generated[file] = bytes;
                         });
    }

    std::string Read(std::u16string_view path)
    {
        CFileBuffer content;
        EXPECT_TRUE(m_Files.ReadFile(path, content, nullptr).IsOk());
        return {reinterpret_cast<const char*>(content.GetBytes().data()), content.GetBytes().size()};
    }

    CMemoryFileSystem m_Files;
    std::map<std::u16string, std::string> m_Generated;
    CBenchHost m_Host{m_Files, "/bench"};
};

TEST_F(CGeneratorTest, SystemWritesTheSameBytes)
{
    ASSERT_TRUE(m_Host.Load("/bench/" + std::string(kGeneratedRoot)));
    ASSERT_TRUE(m_Host.GetManager().SaveDatabase({}, true));
    for (const auto& [path, bytes] : m_Generated)
        ASSERT_EQ(Read(path), bytes) << ToNarrow(path);
}

TEST_F(CGeneratorTest, RecordsAreOfEverySchemaAndManyInherit)
{
    ASSERT_TRUE(m_Host.Load("/bench/" + std::string(kGeneratedRoot)));
    std::map<std::u16string, std::size_t> schemas;
    std::size_t children = 0;
    std::size_t inherited = 0;
    std::size_t comments = 0;
    m_Host.GetManager().EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            ++schemas[record.GetSchema()->GetName()];
            children += record.GetParent() != nullptr ? 1 : 0;
            EXPECT_EQ(record.GetAttributeList().size(), kAttributesPerRecord);
            for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
            {
                inherited += attrib->GetInherit() ? 1 : 0;
                comments += attrib->GetComment().empty() ? 0 : 1;
            }
            return true;
        });
    EXPECT_EQ(schemas.size(), GetSchemaForms().size());
    for (const auto& [name, count] : schemas)
        EXPECT_GE(count, kRecordsPerDirectory) << ToNarrow(name);
    EXPECT_GT(children, kRecords / 4);
    EXPECT_GT(inherited, kRecords * kAttributesPerRecord / 10);
    EXPECT_GT(comments, kRecords / 4);
}
} // namespace
