#include "ContentHash.h"

#include <gtest/gtest.h>

#include <string_view>

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
