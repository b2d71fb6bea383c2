// The stream bit for bit, and what a reader makes of files that are cut or were never streams.
#include "ScratchDir.h"
#include "ZRACompressedFile.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
class CCompressedFileTest : public ::testing::Test
{
protected:
    std::string Compress(std::string_view bytes)
    {
        CZRACompressedFile file;
        EXPECT_TRUE(file.Open(m_sPath.c_str(), CZRAFileBuffer::OPEN_WRITE, 1024, false));
        EXPECT_TRUE(file.WriteBlock(bytes.data(), bytes.size()) && file.Close());
        return m_Scratch.ReadBytes("file");
    }

    bool Open(std::string_view stream)
    {
        m_Scratch.WriteBytes("file", stream);
        return m_File.Open(m_sPath.c_str(), CZRAFileBuffer::OPEN_READ, 64, false);
    }

    std::string Expand(std::string_view stream)
    {
        EXPECT_TRUE(Open(stream));
        std::string bytes;
        std::uint8_t value = 0;
        while (m_File.ReadByte(value))
            bytes += static_cast<char>(value);
        EXPECT_TRUE(!m_File.ReadByte(value) && m_File.Close()) << "the end lasts";
        return bytes;
    }

    static std::string MakeBytes(std::size_t length, unsigned alphabet)
    {
        std::mt19937 random(alphabet);
        std::string bytes(length, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() % alphabet + 120); // On both sides of a signed comparison.
        return bytes;
    }

    // Words, so that repeats of every length compete, over several rounds of the ring.
    static std::string MakeText(std::size_t length)
    {
        std::string text;
        for (const char choice : MakeBytes(length, 8))
            text += std::string("record \tcategory \nrec(list att")
                        .substr(static_cast<std::size_t>(choice - 120) * 4, 5);
        return text.substr(0, length);
    }

    CScratchDir m_Scratch;
    std::string m_sPath = (m_Scratch.GetPath() / "file").string();
    CZRACompressedFile m_File;
};

TEST_F(CCompressedFileTest, StreamsAreFixedAndComeBack)
{
    const std::string repeat = MakeText(50);
    std::string aroundTheRing;
    for (const std::size_t distance : {4070U, 4078U, 4079U, 4080U, 4095U, 4096U})
        aroundTheRing += repeat + MakeBytes(distance - repeat.size(), 256);
    // Sizes of small streams follow from the form; the sums of large ones were taken when a second
    // compressor, a sorted table in place of the tree, made the same streams.
    const struct
    {
        std::string m_sBytes;
        std::size_t m_nSize;
        std::uint64_t m_nSum;
    } rows[] = {
        {"", 4 + 17 / 8, 0x0000000000000000},
        {"A", 4 + (9 + 17) / 8, 0x2B4C01001885162E},
        {std::string(35, 'a'), 4 + (9 + 17 + 17 * 9 + 17) / 8, 0x41D50310F1F30E67},
        {std::string(9000, 'x'), 1138, 0x17A1EA93E9C4C8A5},
        {MakeText(30000), 4930, 0x5AAA14A4F461405B},
        {MakeBytes(14000, 2), 2545, 0x0B2C1B07A9A889CF},
        {MakeBytes(14000, 16), 11472, 0xF5840F8BE7BA46B2},
        {MakeBytes(14000, 256), 15666, 0x4A7E1B7F5A73E4EB},
        {aroundTheRing, 15205, 0x50BDE8FD3A9FC2E2},
    };
    EXPECT_EQ(Compress("A"), std::string("\0\0\0\0\5\1\0", 7));
    for (const auto& row : rows)
    {
        const std::string stream = Compress(row.m_sBytes);
        std::uint64_t sum = 0;
        for (const char byte : stream)
            sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
        EXPECT_EQ(stream.size(), row.m_nSize);
        EXPECT_EQ(sum, row.m_nSum) << row.m_sBytes.size();
        EXPECT_TRUE(Expand(stream) == row.m_sBytes && m_File.IsComplete()) << row.m_sBytes.size();
    }
}

TEST_F(CCompressedFileTest, CutStreamGivesABeginning)
{
    const std::string input = MakeText(300) + MakeBytes(50, 256);
    const std::string stream = Compress(input);
    std::size_t longest = 0;
    for (std::size_t length = 4; length < stream.size(); ++length)
    {
        const std::string bytes = Expand(stream.substr(0, length));
        ASSERT_TRUE(input.starts_with(bytes) && bytes.size() >= longest) << length;
        // Some bits of a span to the ring's beginning look like an end whose last bits are cut.
        ASSERT_TRUE(!m_File.IsComplete() || stream[length - 1] == 0) << length;
        longest = bytes.size();
    }
    EXPECT_EQ(longest, input.size());
    for (const std::string& header :
         {std::string(3, '\0'), std::string("\1\0\0\0", 4), std::string("\0\0\0\x80", 4)})
        EXPECT_FALSE(Open(header) || m_File.IsOpen() || m_File.GetError() != 0);
}

TEST_F(CCompressedFileTest, DiskThatIsFullAnywhereFailsTheClose)
{
    const std::string input = MakeText(2000);
    const std::size_t size = Compress(input).size();
    for (std::size_t room = 1; room <= size; ++room)
    {
        std::string disk(room, '\0');
        std::FILE* target = fmemopen(disk.data(), room, "wb");
        ASSERT_TRUE(m_File.Attach(target, CZRAFileBuffer::OPEN_WRITE, 16));
        const bool written = m_File.WriteBlock(input.data(), input.size());
        ASSERT_EQ(m_File.Close() && written, room == size) << room;
        ASSERT_EQ(m_File.GetError() != 0, room < size);
        std::fclose(target);
    }
}
} // namespace
