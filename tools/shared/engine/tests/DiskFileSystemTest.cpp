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
    CSizeLimit(const CSizeLimit&) = delete;
    CSizeLimit& operator=(const CSizeLimit&) = delete;

private:
    rlimit m_Before{};
    void (*m_pBefore)(int);
};

std::size_t CountEntries(const fs::path& directory)
{
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
}
} // namespace

TEST(DiskFileSystem, InfoTellsOneFileByAllItsNames)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    scratch.WriteBytes("a.rec", "a");
    scratch.WriteBytes("b.rec", "b");
    fs::create_hard_link(scratch.GetPath() / "a.rec", scratch.GetPath() / "hard.rec");
    fs::create_symlink("a.rec", scratch.GetPath() / "soft.rec");
    SFileInfo first;
    ASSERT_TRUE(files.GetInfo(scratch.Text("a.rec"), first).IsOk());
    EXPECT_NE(first.m_nNode, 0U);
    CFileBuffer content;
    for (const char* name : {"a.rec", "hard.rec", "soft.rec", "b.rec"})
    {
        SFileInfo asked;
        SFileInfo read;
        ASSERT_TRUE(files.GetInfo(scratch.Text(name), asked).IsOk());
        ASSERT_TRUE(files.ReadFile(scratch.Text(name), content, &read).IsOk());
        EXPECT_EQ(read.m_nNode, asked.m_nNode);
        EXPECT_EQ(read.m_nDevice, first.m_nDevice);
        EXPECT_EQ(asked.m_nNode == first.m_nNode, std::string_view(name) != "b.rec") << name;
    }
}

TEST(DiskFileSystem, AFullDiskLeavesTheOldFile)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    scratch.WriteBytes("f.rec", "old");
    const std::string large(64 * 1024, 'x');
    {
        const CSizeLimit limit(4096);
        EXPECT_EQ(files.WriteFile(scratch.Text("f.rec"), AsBytes(large)).m_Code, EFileError::DiskFull);
        CFileError error;
        std::unique_ptr<IZROutStream> stream = files.OpenStream(scratch.Text("s"), error);
        ASSERT_NE(stream, nullptr);
        // The failure comes with the flush, where the buffer still had room.
        EXPECT_TRUE(stream->Write(large.data(), large.size()));
        EXPECT_EQ(files.CloseStream(std::move(stream)).m_Code, EFileError::DiskFull);
    }
    EXPECT_EQ(scratch.ReadBytes("f.rec"), "old");
    EXPECT_EQ(CountEntries(scratch.GetPath()), 2U);
}

TEST(DiskFileSystem, AReplacedFileKeepsItsMode)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    scratch.WriteBytes("f", "old");
    fs::permissions(scratch.GetPath() / "f", fs::perms(0640));
    ASSERT_TRUE(files.WriteFile(scratch.Text("f"), AsBytes("new")).IsOk());
    EXPECT_EQ(fs::status(scratch.GetPath() / "f").permissions(), fs::perms(0640));
    EXPECT_EQ(CountEntries(scratch.GetPath()), 1U);
}

TEST(DiskFileSystem, LinksAreWrittenThrough)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    scratch.WriteBytes("real/f", "old");
    fs::create_symlink("real/f", scratch.GetPath() / "link");
    fs::create_symlink("real/later", scratch.GetPath() / "dangling");
    fs::create_symlink("self", scratch.GetPath() / "self");
    ASSERT_TRUE(files.WriteFile(scratch.Text("link"), AsBytes("new")).IsOk());
    ASSERT_TRUE(files.WriteFile(scratch.Text("dangling"), AsBytes("made")).IsOk());
    EXPECT_EQ(files.WriteFile(scratch.Text("self"), AsBytes("x")).m_Code, EFileError::Loop);
    EXPECT_TRUE(fs::is_symlink(scratch.GetPath() / "link"));
    EXPECT_TRUE(fs::is_symlink(scratch.GetPath() / "dangling"));
    EXPECT_EQ(scratch.ReadBytes("real/f"), "new");
    EXPECT_EQ(scratch.ReadBytes("real/later"), "made");
}

TEST(DiskFileSystem, ListingFollowsLinksAndLeavesOutWhatCannotBeOpened)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    scratch.WriteBytes("real/f.rec", "x");
    scratch.WriteBytes("bad\xFF.rec", "x");
    scratch.WriteBytes("back\\slash.rec", "x");
    fs::create_symlink("real", scratch.GetPath() / "loop");
    fs::create_symlink("real/f.rec", scratch.GetPath() / "link.rec");
    fs::create_symlink("nowhere", scratch.GetPath() / "gone.rec");
    ASSERT_EQ(::mkfifo((scratch.GetPath() / "pipe.rec").c_str(), 0600), 0);
    std::vector<SDirectoryEntry> entries;
    ASSERT_TRUE(files.ListDirectory(scratch.Text(""), {true, true, u"rec"}, entries).IsOk());
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].m_sName, u"link.rec");
    EXPECT_EQ(entries[1].m_sName, u"loop");
    EXPECT_TRUE(entries[1].m_bDirectory);
    EXPECT_EQ(entries[1].m_nNode, entries[2].m_nNode);
}

TEST(DiskFileSystem, PipesAndDevicesDoNotHang)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    ASSERT_EQ(::mkfifo((scratch.GetPath() / "pipe").c_str(), 0600), 0);
    CFileBuffer buffer;
    CFileError error;
    EXPECT_EQ(files.ReadFile(scratch.Text("pipe"), buffer, nullptr).m_Code, EFileError::NotAFile);
    EXPECT_EQ(files.ReadFile(u"/dev/zero", buffer, nullptr).m_Code, EFileError::NotAFile);
    EXPECT_EQ(files.WriteFile(scratch.Text("pipe"), AsBytes("x")).m_Code, EFileError::NotAFile);
    EXPECT_EQ(files.OpenStream(scratch.Text("pipe"), error), nullptr);
    EXPECT_FALSE(error.IsOk());
}

TEST(DiskFileSystem, ReadsFilesOfUnknownAndOfTooLargeSize)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    CFileBuffer buffer;
    SFileInfo info;
    // Its size is told as 0.
    ASSERT_TRUE(files.ReadFile(u"/proc/self/maps", buffer, &info).IsOk());
    EXPECT_GT(buffer.GetBytes().size(), 500U);
    EXPECT_EQ(info.m_Stamp.m_nSize, buffer.GetBytes().size());
    scratch.WriteBytes("huge", "");
    fs::resize_file(scratch.GetPath() / "huge", (std::uintmax_t{1} << 30U) + 1);
    EXPECT_EQ(files.ReadFile(scratch.Text("huge"), buffer, nullptr).m_Code, EFileError::OutOfMemory);
}

TEST(DiskFileSystem, TheExactNameWinsAndThenTheFirstInOrder)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    scratch.WriteBytes("name", "lower");
    scratch.WriteBytes("NAME", "upper");
    const auto read = [&](std::string_view name)
    {
        CFileBuffer buffer;
        EXPECT_TRUE(files.ReadFile(scratch.Text(name), buffer, nullptr).IsOk());
        return std::string(reinterpret_cast<const char*>(buffer.GetBytes().data()), buffer.GetBytes().size());
    };
    EXPECT_EQ(read("name"), "lower");
    EXPECT_EQ(read("NAME"), "upper");
    EXPECT_EQ(read("Name"), "upper");
    EXPECT_EQ(files.GetNativePath(scratch.Text("nAmE")), (scratch.GetPath() / "NAME").string());
    const std::u16string withZero = scratch.Text("name") + std::u16string(1, u'\0') + u"x";
    EXPECT_FALSE(files.Exists(withZero));
}

TEST(FileStamp, DosTime)
{
    ASSERT_EQ(::setenv("TZ", "UTC0", 1), 0);
    ::tzset();
    EXPECT_EQ(GetDosTime({}), 0U);
    // 2004-05-06 07:08:09 UTC.
    EXPECT_EQ(GetDosTime({1083827289'000000000, 0}),
              (24U << 9U | 5U << 5U | 6U) << 16U | (7U << 11U | 8U << 5U | 4U));
    EXPECT_EQ(GetDosTime({1, 0}), 0x00210000U); // Before 1980.
    ::unsetenv("TZ");
    ::tzset();
}
