// Files that open, files that do not, and what a writer is told of a disk that is full.
#include "AssertCapture.h"
#include "ScratchDir.h"
#include "ZRAFileBuffer.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace
{
using CFile = CZRAFileBuffer;

TEST(CFileBufferTest, WritesAppendsAndReadsWithEveryCacheSize)
{
    const CScratchDir scratch;
    const std::string path = (scratch.GetPath() / "größe").string();
    for (const std::uint32_t cache : {1U, 3U, 8U, 1024U})
    {
        CFile file;
        ASSERT_TRUE(file.Open(path.c_str(), CFile::OPEN_WRITE, cache, false));
        EXPECT_TRUE(file.WriteBlock("0123456789", 10) && file.Close() && file.Close());
        ASSERT_TRUE(file.Open(path.c_str(), CFile::OPEN_WRITE, cache, true));
        EXPECT_TRUE(file.WriteByte('a') && file.WriteBlock("bc", 2) && file.Close());
        ASSERT_TRUE(file.Open(path.c_str(), CFile::OPEN_READ, cache, false));
        std::string found;
        for (std::uint8_t value = 0; file.ReadByte(value);)
            found += static_cast<char>(value);
        EXPECT_EQ(found, "0123456789abc");
        EXPECT_TRUE(file.Close() && file.GetError() == 0);
    }
}

TEST(CFileBufferTest, TellsTheCauseOfWhatCannotBe)
{
    const struct
    {
        const char* m_pPath;
        CFile::EMode m_eMode;
        bool m_bAppend;
        int m_nError;
        const char* m_pAssertion;
    } rows[] = {
        {"none/file", CFile::OPEN_READ, false, ENOENT, "m_eMode == OPEN_WRITE"},
        {".", CFile::OPEN_WRITE, false, EISDIR, "m_eMode == OPEN_WRITE"},
        {".", CFile::OPEN_READ, false, EISDIR, "m_eMode == OPEN_WRITE"},
        {"/dev/full", CFile::CLOSED, false, EINVAL, "eMode == OPEN_READ || eMode == OPEN_WRITE"},
        {"/dev/full", CFile::OPEN_READ, true, EINVAL, "!bAppend || eMode == OPEN_WRITE"},
        {"/dev/full", CFile::OPEN_WRITE, false, ENOSPC, nullptr},
    };
    for (const auto& row : rows)
    {
        CAssertCapture asserts;
        CFile file;
        const bool opened = file.Open(row.m_pPath, row.m_eMode, 1024, row.m_bAppend);
        EXPECT_EQ(file.WriteByte(1), opened);
        EXPECT_EQ(file.Close(), !opened) << row.m_pPath;
        EXPECT_EQ(file.GetError(), row.m_nError) << row.m_pPath;
        EXPECT_TRUE(row.m_pAssertion == nullptr ? asserts.GetEntries().empty()
                                                : asserts.Has(row.m_pAssertion));
    }
}
} // namespace
