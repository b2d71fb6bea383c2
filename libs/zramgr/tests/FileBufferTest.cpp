// Files that open, files that do not, and what a writer is told of a disk that is full.
#include "AssertCapture.h"
#include "ScratchDir.h"
#include "ZRAFileBuffer.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace
{
using CFile = CZRAFileBuffer;

class CFileBufferTest : public ::testing::Test
{
protected:
    std::string Path(const char* name) const { return (m_Scratch.GetPath() / name).string(); }

    void Write(const std::string& path, std::string_view text, std::uint32_t cache, bool append)
    {
        CFile file;
        ASSERT_TRUE(file.Open(path.c_str(), CFile::OPEN_WRITE, cache, append));
        ASSERT_TRUE(file.WriteByte(static_cast<std::uint8_t>(text[0])));
        ASSERT_TRUE(file.WriteBlock(text.data() + 1, text.size() - 1));
        EXPECT_TRUE(file.Close());
        EXPECT_TRUE(file.Close());
    }

    CScratchDir m_Scratch;
};

TEST_F(CFileBufferTest, WritesAppendsAndReadsWithEveryCacheSize)
{
    for (const std::uint32_t cache : {1U, 3U, 8U, 1024U})
    {
        const std::string path = Path("größe");
        Write(path, "old and longer than all of what follows", cache, false);
        Write(path, "0123456789", cache, false);
        Write(path, "abc", cache, true);
        CFile file;
        ASSERT_TRUE(file.Open(path.c_str(), CFile::OPEN_READ, cache, false));
        std::string found;
        for (std::uint8_t value = 0; file.ReadByte(value);)
            found += static_cast<char>(value);
        EXPECT_EQ(found, "0123456789abc");
        EXPECT_TRUE(file.Close() && file.GetError() == 0);
    }
}

TEST_F(CFileBufferTest, RefusesWhatCannotBe)
{
    const std::string file = Path("file");
    const std::string directory = Path(".");
    Write(file, "text", 8, false);
    const struct
    {
        std::string m_sPath;
        CFile::EMode m_eMode;
        std::uint32_t m_nCache;
        bool m_bAppend;
        int m_nError;
        const char* m_pAssertion;
    } rows[] = {
        {Path("none"), CFile::OPEN_READ, 8, false, ENOENT, nullptr},
        {Path("none/file"), CFile::OPEN_WRITE, 8, false, ENOENT, nullptr},
        {directory, CFile::OPEN_WRITE, 8, false, EISDIR, nullptr},
        {directory, CFile::OPEN_READ, 8, false, EISDIR, nullptr},
        {file, CFile::CLOSED, 8, false, EINVAL, "eMode == OPEN_READ || eMode == OPEN_WRITE"},
        {file, CFile::OPEN_READ, 8, true, EINVAL, "!bAppend || eMode == OPEN_WRITE"},
        {file, CFile::OPEN_READ, 0, false, EINVAL, "nCacheSize > 0"},
    };
    for (const auto& row : rows)
    {
        CAssertCapture asserts;
        CFile buffer;
        EXPECT_FALSE(buffer.Open(row.m_sPath.c_str(), row.m_eMode, row.m_nCache, row.m_bAppend));
        EXPECT_EQ(buffer.GetError(), row.m_nError) << row.m_sPath;
        EXPECT_FALSE(buffer.IsOpen());
        EXPECT_EQ(asserts.GetEntries().size(), row.m_pAssertion != nullptr ? 1U : 0U);
        EXPECT_TRUE(row.m_pAssertion == nullptr || asserts.Has(row.m_pAssertion));
        std::uint8_t value = 0;
        EXPECT_FALSE(buffer.ReadByte(value) || buffer.WriteByte(1) || buffer.WriteBlock("x", 1));
        EXPECT_TRUE(asserts.Has("m_eMode == OPEN_READ") && asserts.Has("m_eMode == OPEN_WRITE"));
    }
}

TEST_F(CFileBufferTest, FullDiskIsToldAtTheLatestByClose)
{
    for (const std::size_t length : {std::size_t{1}, std::size_t{1024}, std::size_t{100000}})
    {
        CFile file;
        ASSERT_TRUE(file.Open("/dev/full", CFile::OPEN_WRITE, 1024, false));
        const bool written = file.WriteBlock(std::string(length, 'x').data(), length);
        EXPECT_FALSE(file.Close() || (written && length == 100000));
        EXPECT_EQ(file.GetError(), ENOSPC);
    }
}
} // namespace
