#include "DatabaseDump.h"
#include "GameDatabase.h"
#include "PackedSeal.h"
#include "ScratchDir.h"
#include "SmallDatabase.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
std::string OpenError(std::span<const std::byte> bytes)
{
    std::string error;
    const bool isOpen = CGameDatabase::OpenMemory(bytes, error).has_value();
    EXPECT_EQ(isOpen, error.empty());
    return error;
}

std::string FileError(const std::filesystem::path& path)
{
    std::string error;
    EXPECT_FALSE(CGameDatabase::Open(path.string(), error));
    EXPECT_NE(error.find(path.string()), std::string::npos) << error;
    return error;
}

// Reads everything that a file offers.
void ReadAll(const CGameDatabase& database)
{
    std::ostringstream out;
    DumpDatabase(database, out);
    for (std::size_t i = 0; i < database.GetRecordCount(); ++i)
    {
        const CGameRecord record = database.GetRecord(i);
        (void)database.FindRecord(record.GetPath()).GetName();
        for (std::size_t j = 0; j < record.GetAttributeCount(); ++j)
        {
            const CGameAttribute attribute = record.GetAttribute(j);
            (void)record.FindAttribute(attribute.GetName()).GetCount();
            for (std::size_t row = 0; row < std::min<std::size_t>(attribute.GetCount(), 8); ++row)
                EXPECT_LE(attribute.GetRow(row).FindMember("Item").GetMemberName().size(), 4U);
        }
    }
}
} // namespace

TEST(Corruption, EveryTruncationAndEveryChangedByteIsDetected)
{
    std::vector<std::byte> bytes = MakeSmallDatabase();
    ASSERT_EQ(OpenError(bytes), "");
    for (std::size_t i = 0; i < bytes.size(); ++i)
    {
        // A copy of the exact size lets the address sanitizer see a read behind the end.
        EXPECT_NE(OpenError(std::vector(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(i))), "");
        for (const int change : {0x01, 0x80, 0xFF})
        {
            bytes[i] ^= static_cast<std::byte>(change);
            EXPECT_NE(OpenError(bytes), "") << i;
            bytes[i] ^= static_cast<std::byte>(change);
        }
    }
    bytes.push_back({});
    EXPECT_NE(OpenError(bytes), "");
    bytes.pop_back();
    bytes.insert(bytes.begin(), std::byte{});
    EXPECT_NE(OpenError(std::span(bytes).subspan(1)).find("multiple of 8"), std::string::npos);
}

// A file that carries the right checksum for the wrong content passes to the checks of the indexes; what they
// let through must be safe to read.
TEST(Corruption, ResealedChangesNeverLeadOutside)
{
    const std::vector<std::byte> sound = MakeSmallDatabase();
    std::mt19937 random(7);
    int opened = 0;
    int refused = 0;
    for (int round = 0; round < 20000; ++round)
    {
        std::vector<std::byte> bytes = sound;
        // The first part holds the table, whose offsets the seal itself needs.
        const std::size_t at = 160 + random() % (bytes.size() - 160);
        const auto any = static_cast<std::uint32_t>(random());
        const std::uint32_t wild[] = {0, 1, 2, 0xFFFFFFFF, 0x7FFFFFFF, any % 64, any};
        const std::uint32_t word = wild[random() % 7];
        if (random() % 2 == 0)
            std::memcpy(&bytes[at / 4 * 4], &word, 4);
        else
            bytes[at] ^= static_cast<std::byte>(1 + random() % 255);
        ASSERT_TRUE(packed::Seal(bytes));
        std::string error;
        if (const auto database = CGameDatabase::OpenMemory(bytes, error))
            ReadAll(*database);
        ++(error.empty() ? opened : refused);
    }
    EXPECT_GT(opened, 100);
    EXPECT_GT(refused, 100);
}

TEST(Corruption, MessagesNameFileAndCause)
{
    const CScratchDir dir;
    const std::vector<std::byte> sound = MakeSmallDatabase();
    // The version is one of the bytes that hold 1; both it and the seal are put right.
    std::vector<std::byte> later = sound;
    for (std::size_t at = 16; OpenError(later).find("format version 9") == std::string::npos; ++at)
    {
        ASSERT_LT(at, sound.size());
        later = sound;
        later[at] = std::byte{9};
        if (sound[at] != std::byte{1} || !packed::Seal(later))
            later = sound;
    }
    dir.WriteBytes("empty", "");
    dir.WriteBytes("foreign", "This is a text, not a database.");
    dir.WriteBytes("damaged", AsText(sound).substr(0, sound.size() - 1));
    dir.WriteBytes("later", AsText(later));
    dir.WriteBytes("folder/inner", "");
    const std::pair<const char*, const char*> cases[] = {
        {"missing", "does not exist"},           {"empty", "is empty"},
        {"foreign", "not a packed database"},    {"damaged", "is damaged"},
        {"later", "version 9 is not supported"}, {"folder", "is not a file"},
    };
    for (const auto& [name, cause] : cases)
        EXPECT_NE(FileError(dir.GetPath() / name).find(cause), std::string::npos) << name;

    if (::geteuid() == 0)
        return;
    ASSERT_EQ(::chmod((dir.GetPath() / "damaged").c_str(), 0), 0);
    EXPECT_NE(FileError(dir.GetPath() / "damaged").find("no permission"), std::string::npos);
}
