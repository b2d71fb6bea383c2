#include "DiskFileSystem.h"
#include "ScratchDir.h"
#include "izroutconverter.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sys/resource.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace
{
std::span<const std::byte> AsBytes(std::string_view text)
{
    return std::as_bytes(std::span(text));
}

// A small limit on file sizes stands for a full disk.
class CSizeLimit
{
public:
    explicit CSizeLimit(rlim_t bytes) : m_pBefore(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_Before);
        const rlimit limit{bytes, m_Before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~CSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_Before);
        std::signal(SIGXFSZ, m_pBefore);
    }

private:
    rlimit m_Before{};
    void (*m_pBefore)(int);
};

class CDiskTest : public testing::Test
{
protected:
    fs::path At(const char* name) const { return m_Scratch.GetPath() / name; }
    EFileError Write(std::string_view name, std::string_view text)
    {
        return m_Files.WriteFile(m_Scratch.Text(name), AsBytes(text)).m_Code;
    }
    EFileError Read(const std::u16string& path, SFileInfo* info = nullptr)
    {
        return m_Files.ReadFile(path, m_Content, info).m_Code;
    }
    std::ptrdiff_t CountEntries() const
    {
        return std::distance(fs::directory_iterator(m_Scratch.GetPath()), fs::directory_iterator());
    }

    CScratchDir m_Scratch;
    CDiskFileSystem m_Files;
    CFileBuffer m_Content;
};
} // namespace

TEST_F(CDiskTest, AFullDiskLeavesTheOldFile)
{
    m_Scratch.WriteBytes("f.rec", "old");
    const std::string large(64 * 1024, 'x');
    {
        const CSizeLimit limit(4096);
        EXPECT_EQ(Write("f.rec", large), EFileError::DiskFull);
        CFileError error;
        std::unique_ptr<IZROutStream> stream = m_Files.OpenStream(m_Scratch.Text("s"), error);
        ASSERT_NE(stream, nullptr);
        // The failure comes with the flush, where the buffer still had room.
        EXPECT_TRUE(stream->Write(large.data(), large.size()));
        EXPECT_EQ(m_Files.CloseStream(std::move(stream)).m_Code, EFileError::DiskFull);
    }
    EXPECT_EQ(m_Scratch.ReadBytes("f.rec"), "old");
    EXPECT_EQ(CountEntries(), 2);
}

TEST_F(CDiskTest, WritesKeepTheModeAndGoThroughLinks)
{
    m_Scratch.WriteBytes("f", "old");
    fs::permissions(At("f"), fs::perms(0640));
    for (const auto& [target, name] : {std::pair{"f", "soft"}, {"later", "dangling"}, {"self", "self"}})
        fs::create_symlink(target, At(name));
    EXPECT_EQ(Write("soft", "new"), EFileError::None);
    EXPECT_EQ(Write("dangling", "made"), EFileError::None);
    EXPECT_EQ(Write("self", "x"), EFileError::Loop);
    EXPECT_TRUE(fs::is_symlink(At("soft")) && fs::is_symlink(At("dangling")));
    EXPECT_EQ(m_Scratch.ReadBytes("f") + m_Scratch.ReadBytes("later"), "newmade");
    EXPECT_EQ(fs::status(At("f")).permissions(), fs::perms(0640));
    EXPECT_EQ(CountEntries(), 5);

    fs::create_hard_link(At("f"), At("hard"));
    SFileInfo first;
    ASSERT_EQ(Read(m_Scratch.Text("f"), &first), EFileError::None);
    for (const char* name : {"hard", "soft", "later"})
    {
        SFileInfo asked, read;
        ASSERT_TRUE(m_Files.GetInfo(m_Scratch.Text(name), asked).IsOk());
        ASSERT_EQ(Read(m_Scratch.Text(name), &read), EFileError::None);
        EXPECT_EQ(read.m_nNode, asked.m_nNode);
        EXPECT_EQ(read.m_nDevice, first.m_nDevice);
        EXPECT_EQ(asked.m_nNode == first.m_nNode, std::string_view(name) != "later") << name;
    }
}

TEST_F(CDiskTest, ListingFollowsLinksAndLeavesOutWhatCannotBeOpened)
{
    for (const char* name : {"real/f.rec", "bad\xFF.rec", "back\\slash.rec"})
        m_Scratch.WriteBytes(name, "x");
    fs::create_symlink("real", At("loop"));
    fs::create_symlink("real/f.rec", At("link.rec"));
    fs::create_symlink("nowhere", At("gone.rec"));
    ASSERT_EQ(::mkfifo(At("pipe.rec").c_str(), 0600), 0);
    std::vector<SDirectoryEntry> entries;
    ASSERT_TRUE(m_Files.ListDirectory(m_Scratch.Text(""), {true, true, u"rec"}, entries).IsOk());
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].m_sName + entries[1].m_sName, u"link.recloop");
    EXPECT_TRUE(entries[1].m_bDirectory && entries[1].m_nNode == entries[2].m_nNode);
}

TEST_F(CDiskTest, OddFilesNeitherHangNorExhaust)
{
    ASSERT_EQ(::mkfifo(At("pipe").c_str(), 0600), 0);
    m_Scratch.WriteBytes("huge", "");
    fs::resize_file(At("huge"), (std::uintmax_t{1} << 30U) + 1);
    EXPECT_EQ(Read(m_Scratch.Text("pipe")), EFileError::NotAFile);
    EXPECT_EQ(Read(u"/dev/zero"), EFileError::NotAFile);
    EXPECT_EQ(Read(m_Scratch.Text("huge")), EFileError::OutOfMemory);
    EXPECT_EQ(Write("pipe", "x"), EFileError::NotAFile);
    CFileError error;
    EXPECT_TRUE(m_Files.OpenStream(m_Scratch.Text("pipe"), error) == nullptr && !error.IsOk());
    // Its size is told as 0.
    SFileInfo info;
    ASSERT_EQ(Read(u"/proc/self/maps", &info), EFileError::None);
    EXPECT_GT(m_Content.GetBytes().size(), 500U);
    EXPECT_EQ(info.m_Stamp.m_nSize, m_Content.GetBytes().size());
}

TEST_F(CDiskTest, TheExactNameWinsAndThenTheFirstInOrder)
{
    m_Scratch.WriteBytes("name", "lower");
    m_Scratch.WriteBytes("NAME", "upper");
    for (const auto& [asked, found] : {std::pair{"name", "name"}, {"NAME", "NAME"}, {"nAmE", "NAME"}})
        EXPECT_EQ(m_Files.GetNativePath(m_Scratch.Text(asked)), At(found).string());
    EXPECT_FALSE(m_Files.Exists(m_Scratch.Text("name") + std::u16string(1, u'\0') + u"x"));
}

TEST(FileStamp, DosTime)
{
    ASSERT_EQ(::setenv("TZ", "UTC0", 1), 0);
    ::tzset();
    EXPECT_EQ(GetDosTime({}), 0U);
    // 2004-05-06 07:08:09 UTC, and a time before 1980.
    EXPECT_EQ(GetDosTime({1083827289'000000000, 0}), 0x30A63904U);
    EXPECT_EQ(GetDosTime({1, 0}), 0x00210000U);
    ::unsetenv("TZ");
    ::tzset();
}
