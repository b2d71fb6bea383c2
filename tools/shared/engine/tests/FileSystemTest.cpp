// What every file layer must do alike, on the disk and in memory.
#include "DiskFileSystem.h"
#include "FailingFileSystem.h"
#include "MemoryFileSystem.h"
#include "OutConverter.h"
#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <cstring>

namespace
{
std::span<const std::byte> AsBytes(std::string_view text)
{
    return std::as_bytes(std::span(text));
}

class CFileSystemTest : public testing::TestWithParam<bool>
{
protected:
    void SetUp() override
    {
        if (GetParam())
            m_pFiles = std::make_unique<CDiskFileSystem>();
        else
            m_pFiles = std::make_unique<CMemoryFileSystem>();
        ASSERT_TRUE(m_pFiles->CreateDirectoryTree(Path(u"x")).IsOk());
    }

    std::u16string Path(std::u16string_view relative) const
    {
        return m_Scratch.Text("Base") + u"/" + std::u16string(relative);
    }

    void Write(std::u16string_view relative, std::string_view text)
    {
        ASSERT_TRUE(m_pFiles->WriteFile(Path(relative), AsBytes(text)).IsOk());
    }

    std::string Read(const std::u16string& path)
    {
        CFileBuffer buffer;
        SFileInfo info;
        EXPECT_TRUE(m_pFiles->ReadFile(path, buffer, &info).IsOk());
        EXPECT_EQ(info.m_Stamp.m_nSize, buffer.GetBytes().size());
        return {reinterpret_cast<const char*>(buffer.GetBytes().data()), buffer.GetBytes().size()};
    }

    std::u16string List(const SDirectoryFilter& filter, std::u16string_view directory = {})
    {
        std::vector<SDirectoryEntry> entries;
        EXPECT_TRUE(m_pFiles->ListDirectory(Path(directory), filter, entries).IsOk());
        std::u16string names;
        for (const SDirectoryEntry& entry : entries)
        {
            names += entry.m_sName + (entry.m_bDirectory ? u"/ " : u" ");
            EXPECT_EQ(entry.m_bDirectory, entry.m_nNode != 0);
        }
        return names;
    }

    CScratchDir m_Scratch;
    std::unique_ptr<IFileSystem> m_pFiles;
};

INSTANTIATE_TEST_SUITE_P(, CFileSystemTest, testing::Bool(),
                         [](const auto& test) { return test.param ? "Disk" : "Memory"; });
} // namespace

TEST_P(CFileSystemTest, NamesAreFoundWithoutRegardToCaseAndSeparator)
{
    ASSERT_TRUE(m_pFiles->CreateDirectory(Path(u"Größe")).IsOk());
    Write(u"Größe/Datei.Rec", "text");
    EXPECT_EQ(Read(Path(u"GRÖßE/../GRÖßE\\datei.REC").replace(0, 0, u"C:")), "text");
    const std::u16string mixed = m_Scratch.Text("bASE") + u"\\gRÖßE\\DATEI.rec";
    EXPECT_TRUE(m_pFiles->Exists(mixed) && m_pFiles->IsDirectory(m_Scratch.Text("BASE")));
    // A write and a listing go to the entry that is there, and keep its name.
    ASSERT_TRUE(m_pFiles->WriteFile(mixed, AsBytes("more")).IsOk());
    EXPECT_EQ(List({}, u"GRÖßE"), u"Datei.Rec ");
    EXPECT_EQ(m_pFiles->CreateDirectory(Path(u"gRöße")).m_Code, EFileError::AlreadyExists);
}

TEST_P(CFileSystemTest, ListingIsFilteredAndInStableOrder)
{
    for (const std::u16string_view name :
         {u"b.rec", u"B2.REC", u"a.Rec", u"C.txt", u"ä.rec", u"Arec", u".rec"})
        Write(name, "x");
    for (const std::u16string_view name : {u"A.dir", u"b.dir"})
        ASSERT_TRUE(m_pFiles->CreateDirectory(Path(name)).IsOk());
    EXPECT_EQ(List({true, false, {}}), u"A.dir/ b.dir/ ");
    EXPECT_EQ(List({false, true, u"REC"}), u".rec a.Rec b.rec B2.REC ä.rec ");
    EXPECT_EQ(List({true, true, u"rec"}), u".rec A.dir/ a.Rec b.dir/ b.rec B2.REC ä.rec ");
}

TEST_P(CFileSystemTest, WrongKindsAndMissingPathsAreTold)
{
    Write(u"file", "x");
    CFileBuffer buffer;
    std::vector<SDirectoryEntry> entries;
    CFileError error;
    EXPECT_EQ(m_pFiles->ReadFile(Path(u"none"), buffer, nullptr).m_Code, EFileError::NotFound);
    EXPECT_EQ(m_pFiles->ReadFile(Path(u""), buffer, nullptr).m_Code, EFileError::NotAFile);
    EXPECT_EQ(m_pFiles->WriteFile(Path(u""), AsBytes("x")).m_Code, EFileError::NotAFile);
    EXPECT_EQ(m_pFiles->WriteFile(Path(u"none/file"), AsBytes("x")).m_Code, EFileError::NotFound);
    EXPECT_EQ(m_pFiles->ListDirectory(Path(u"file"), {}, entries).m_Code, EFileError::NotAFile);
    EXPECT_EQ(m_pFiles->ListDirectory(Path(u"none"), {}, entries).m_Code, EFileError::NotFound);
    EXPECT_EQ(m_pFiles->OpenStream(Path(u"none/file"), error), nullptr);
    EXPECT_EQ(error.m_Code, EFileError::NotFound);
    EXPECT_EQ(m_pFiles->Remove(Path(u"none")).m_Code, EFileError::NotFound);
    EXPECT_FALSE(m_pFiles->CreateDirectoryTree(Path(u"file/x/y")).IsOk() ||
                 m_pFiles->CreateDirectoryTree(u"bare").IsOk());
    EXPECT_TRUE(m_pFiles->CreateDirectoryTree(Path(u"p/q/r/name")).IsOk());
    EXPECT_TRUE(m_pFiles->IsDirectory(Path(u"p/q/r")) && !m_pFiles->Exists(Path(u"p/q/r/name")));
}

TEST_P(CFileSystemTest, WritesLeaveEqualAndReadOnlyFilesAlone)
{
    Write(u"file", "one");
    SFileInfo before, after;
    ASSERT_TRUE(m_pFiles->GetInfo(Path(u"file"), before).IsOk());
    Write(u"file", "one");
    ASSERT_TRUE(m_pFiles->GetInfo(Path(u"file"), after).IsOk());
    EXPECT_EQ(before.m_Stamp, after.m_Stamp);
    ASSERT_TRUE(m_pFiles->SetReadOnly(Path(u"file"), true).IsOk());
    // A read-only file is refused even when nothing would change.
    EXPECT_EQ(m_pFiles->WriteFile(Path(u"FILE"), AsBytes("one")).m_Code, EFileError::ReadOnly);
    CFileError error;
    EXPECT_EQ(m_pFiles->OpenStream(Path(u"file"), error), nullptr);
    EXPECT_EQ(error.m_Code, EFileError::ReadOnly);
    EXPECT_EQ(Read(Path(u"file")), "one");
}

TEST_P(CFileSystemTest, Renames)
{
    Write(u"a", "a");
    Write(u"b", "b");
    EXPECT_EQ(m_pFiles->Rename(Path(u"a"), Path(u"B"), false).m_Code, EFileError::AlreadyExists);
    EXPECT_EQ(m_pFiles->Rename(Path(u"none"), Path(u"c"), false).m_Code, EFileError::NotFound);
    EXPECT_TRUE(m_pFiles->Rename(Path(u"A"), Path(u"B"), true).IsOk());
    EXPECT_EQ(Read(Path(u"b")), "a");
    EXPECT_FALSE(m_pFiles->Exists(Path(u"a")));
    // A change of case only is a rename onto itself.
    EXPECT_TRUE(m_pFiles->CreateDirectoryTree(Path(u"dir/sub/x")).IsOk());
    Write(u"dir/sub/f", "f");
    EXPECT_TRUE(m_pFiles->Rename(Path(u"dir"), Path(u"DIR"), false).IsOk());
    EXPECT_EQ(List({true, false, {}}), u"DIR/ ");
    EXPECT_TRUE(m_pFiles->Rename(Path(u"dir"), Path(u"other"), false).IsOk());
    EXPECT_EQ(Read(Path(u"other/sub/f")), "f");
    EXPECT_FALSE(m_pFiles->Remove(Path(u"other")).IsOk());
    EXPECT_TRUE(m_pFiles->Remove(Path(u"other/sub/f")).IsOk() && m_pFiles->Remove(Path(u"other/sub")).IsOk());
    EXPECT_FALSE(m_pFiles->Exists(Path(u"other/sub")));
}

TEST_P(CFileSystemTest, StreamsSeekAndConvert)
{
    Write(u"out", "an older and longer content");
    CFileError error;
    std::unique_ptr<IZROutStream> stream = m_pFiles->OpenStream(Path(u"OUT"), error);
    ASSERT_NE(stream, nullptr);
    CZROutConverter converter(*stream);
    EXPECT_TRUE(converter.WriteUInt32(0) && converter.WriteString("text"));
    const std::string large(300 * 1024, 'x');
    EXPECT_TRUE(converter.Write(large.data(), large.size()));
    EXPECT_EQ(stream->Tell(), 10U + large.size());
    EXPECT_TRUE(stream->Seek(0) && converter.WriteUInt32(0x64636261));
    ASSERT_TRUE(m_pFiles->CloseStream(std::move(stream)).IsOk());
    using namespace std::string_literals;
    EXPECT_EQ(Read(Path(u"out")), "abcd\4\0text"s + large);
    EXPECT_FALSE(m_pFiles->CloseStream(nullptr).IsOk());
}

TEST_P(CFileSystemTest, FailuresAreForwardedAndInjected)
{
    CFailingFileSystem failing(
        *m_pFiles, [](EFileOperation operation, std::u16string_view)
        { return operation == EFileOperation::ReadFile ? EFileError::AccessDenied : EFileError::None; });
    ASSERT_TRUE(failing.WriteFile(Path(u"bad"), AsBytes("x")).IsOk());
    CFileBuffer buffer;
    EXPECT_EQ(failing.ReadFile(Path(u"bad"), buffer, nullptr).m_Code, EFileError::AccessDenied);
    failing.SetStreamLimit(10);
    CFileError error;
    std::unique_ptr<IZROutStream> stream = failing.OpenStream(Path(u"s"), error);
    ASSERT_NE(stream, nullptr);
    EXPECT_TRUE(stream->Write("12345678", 8));
    EXPECT_FALSE(stream->Write("123", 3) || stream->Write("1", 1)) << "failure is sticky";
    EXPECT_EQ(failing.CloseStream(std::move(stream)).m_Code, EFileError::DiskFull);
}
