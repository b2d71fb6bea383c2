#include "ContentHash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>
#include <vector>

// The published values of XXH64 with seed 0: one text below a block, one above, so that any other program
// that knows the hash can check a file.
TEST(ContentHash, GivesThePublishedValues)
{
    const std::pair<std::string_view, std::uint64_t> known[] = {
        {"", 0xEF46DB3751D8E999},
        {"a", 0xD24EC4F1A98C6E5B},
        {"abc", 0x44BC2CF5AD770999},
        {"Nobody inspects the spammish repetition", 0xFBCEA83C8A378BF1},
    };
    for (const auto& [text, hash] : known)
        EXPECT_EQ(ContentHash(std::as_bytes(std::span(text.data(), text.size()))), hash) << text;
}

// Wherever the bytes are cut, also inside a block and with empty pieces, the hash is that of the whole.
TEST(ContentHash, IsTheSameForBytesInPieces)
{
    std::vector<std::byte> bytes(200);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::byte>(i * 37 + 11);
    for (std::size_t size = 0; size <= bytes.size(); ++size)
    {
        const auto whole = std::span<const std::byte>(bytes).first(size);
        for (const std::size_t piece : {1u, 7u, 31u, 32u, 33u, 64u, 150u})
        {
            CContentHasher hasher(size);
            for (std::size_t at = 0; at < size; at += piece)
                hasher.Add(whole.subspan(at, std::min(piece, size - at)));
            hasher.Add({});
            EXPECT_EQ(hasher.GetHash(), ContentHash(whole, size)) << size << " by " << piece;
        }
    }
}
