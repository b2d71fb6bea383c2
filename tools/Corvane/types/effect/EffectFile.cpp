#include "effect/EffectFile.h"

#include "Unicode.h"

#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

namespace
{
constexpr std::size_t kHeaderSize = 40;
constexpr std::string_view kMagic = "ZRFX";
constexpr std::uint32_t kVersion = 2;

// Places in the header.
constexpr std::size_t kVersionAt = 4;
constexpr std::size_t kStringSizeAt = 12;
constexpr std::size_t kCountAt = 24;
constexpr std::size_t kStringsAt = 32;
constexpr std::size_t kIndexAt = 36;

std::uint32_t ReadNumber(std::string_view bytes, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
    return value;
}

// The bytes from `offset` on; nothing when they do not all lie in the file.
std::optional<std::string_view> CutBlock(std::string_view file, std::uint64_t offset, std::uint64_t size)
{
    if (offset > file.size() || size > file.size() - offset)
        return std::nullopt;
    return file.substr(offset, size);
}

// The text at `offset`; nothing when it begins outside the block or has no end in it.
std::optional<std::string_view> FindName(std::string_view strings, std::size_t offset)
{
    const std::size_t end = strings.find('\0', offset);
    if (offset >= strings.size() || end == std::string_view::npos)
        return std::nullopt;
    return strings.substr(offset, end - offset);
}

bool ReadIndex(std::string_view index, std::string_view strings, std::vector<std::u16string>& names)
{
    std::size_t length = 0;
    for (std::size_t at = 0; at < index.size(); at += 4)
    {
        const auto name = FindName(strings, ReadNumber(index, at));
        // A damaged index may name one long text many times over.
        length += name ? name->size() : 0;
        if (!name || length > kLongestEffectFile)
            return false;
        names.push_back(ToWide(*name));
    }
    return true;
}
} // namespace

EEffectFile ReadEffectNames(std::span<const std::byte> content, std::vector<std::u16string>& names)
{
    const std::string_view file(reinterpret_cast<const char*>(content.data()), content.size());
    if (!file.starts_with(kMagic))
        return EEffectFile::Foreign;
    if (file.size() < kHeaderSize || file.size() > kLongestEffectFile)
        return EEffectFile::Damaged;
    if (ReadNumber(file, kVersionAt) != kVersion)
        return EEffectFile::Foreign;
    const auto strings = CutBlock(file, ReadNumber(file, kStringsAt), ReadNumber(file, kStringSizeAt));
    const auto index =
        CutBlock(file, ReadNumber(file, kIndexAt), std::uint64_t{4} * ReadNumber(file, kCountAt));
    std::vector<std::u16string> read;
    if (!strings || !index || !ReadIndex(*index, *strings, read))
        return EEffectFile::Damaged;
    names.insert(names.end(), std::make_move_iterator(read.begin()), std::make_move_iterator(read.end()));
    return EEffectFile::Read;
}
