#include "effect/EffectFile.h"

#include "EffectBytes.h"

#include <gtest/gtest.h>

namespace
{
using Names = std::vector<std::u16string>;

EEffectFile Read(const std::string& file, Names& names)
{
    return ReadEffectNames(std::as_bytes(std::span(file)), names);
}
} // namespace

// Each row breaks one field of a sound file with the names "a" and "bc": 5 bytes of strings at 40, the index
// behind them at 45, the end at 53.
TEST(EffectFile, NoFieldIsTrusted)
{
    const std::string sound = MakeEffectFile({"a", "bc"});
    ASSERT_EQ(sound.size(), 53u);
    constexpr EEffectFile kDamaged = EEffectFile::Damaged;
    const std::tuple<std::size_t, std::uint32_t, EEffectFile> rows[] = {
        {0, 0x5846525B, EEffectFile::Foreign},
        {4, 3, EEffectFile::Foreign},
        {8, 0, EEffectFile::Read},
        {12, 4, kDamaged}, // The last name has no end inside the block.
        {12, 14, kDamaged},
        {12, 0xFFFFFFFF, kDamaged},
        {24, 3, kDamaged},
        {24, 0x40000002, kDamaged}, // Four times this is 8 in 32 bits.
        {32, 54, kDamaged},
        {32, 0xFFFFFFFF, kDamaged},
        {36, 46, kDamaged},
        {36, 0xFFFFFFFC, kDamaged},
        {45, 5, kDamaged}, // Behind the block.
        {49, 0xFFFFFFFF, kDamaged},
        {49, 3, EEffectFile::Read}, // A name may be another one's tail.
    };
    for (const auto& [at, value, expected] : rows)
    {
        std::string file = sound;
        PutNumber(file, at, value);
        Names names;
        EXPECT_EQ(Read(file, names), expected) << at << " " << value;
        EXPECT_EQ(names.size(), expected == EEffectFile::Read ? 2u : 0u) << at << " " << value;
    }
    for (std::size_t size = 0; size < sound.size(); ++size)
    {
        Names names;
        EXPECT_EQ(Read(sound.substr(0, size), names), size < 4 ? EEffectFile::Foreign : kDamaged) << size;
        EXPECT_TRUE(names.empty());
    }
}

TEST(EffectFile, ManyEntriesOfOneLongNameTakeNoMemory)
{
    std::string file = MakeEffectFile(std::vector<std::string>(100'000));
    file += std::string(1'000'000, 'x') + '\0';
    const std::size_t strings = file.size() - 1'000'001;
    PutNumber(file, 12, 1'000'001);
    PutNumber(file, 32, static_cast<std::uint32_t>(strings));
    for (std::size_t at = strings - 400'000; at < strings; at += 4)
        PutNumber(file, at, 0);
    Names names;
    EXPECT_EQ(Read(file, names), EEffectFile::Damaged);
    EXPECT_TRUE(names.empty());
    file.resize(kLongestEffectFile + 1);
    EXPECT_EQ(Read(file, names), EEffectFile::Damaged);
}
