#include "Manifest.h"

#include <array>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>
#include <system_error>
#include <vector>

namespace
{
constexpr std::array<std::uint32_t, 256> MakeCrcTable()
{
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i)
    {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? 0xEDB88320U ^ (value >> 1U) : value >> 1U;
        table[i] = value;
    }
    return table;
}

constexpr std::array<std::uint32_t, 256> g_CrcTable = MakeCrcTable();
constexpr std::size_t g_nBlockSize = 1U << 16U;

bool HoldsText(const std::filesystem::path& file, const std::string& text)
{
    std::ifstream in(file, std::ios::binary);
    if (!in)
        return false;
    const std::string content{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    return content == text;
}

bool WriteWhole(const std::filesystem::path& file, const std::string& text)
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << text;
    out.close();
    return out.good();
}
} // namespace

std::uint32_t UpdateCrc32(std::uint32_t crc, std::string_view bytes)
{
    std::uint32_t value = ~crc;
    for (const char byte : bytes)
        value = g_CrcTable[(value ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (value >> 8U);
    return ~value;
}

std::optional<std::string> DescribePackedFile(const std::filesystem::path& packed)
{
    std::ifstream in(packed, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::vector<char> block(g_nBlockSize);
    std::uint32_t crc = 0;
    std::uint64_t size = 0;
    while (in)
    {
        in.read(block.data(), static_cast<std::streamsize>(block.size()));
        const std::string_view bytes(block.data(), static_cast<std::size_t>(in.gcount()));
        crc = UpdateCrc32(crc, bytes);
        size += bytes.size();
    }
    if (!in.eof())
        return std::nullopt;

    std::ostringstream text;
    text << "Manifest=1\nFile=" << packed.filename().string() << "\nSize=" << size << "\nCrc32=" << std::hex
         << std::setw(8) << std::setfill('0') << crc << '\n';
    return text.str();
}

bool ReplaceManifest(const std::filesystem::path& manifest, const std::string& text)
{
    if (HoldsText(manifest, text))
        return true;
    std::filesystem::path temporary = manifest;
    temporary += ".tmp";
    std::error_code error;
    if (WriteWhole(temporary, text))
    {
        std::filesystem::rename(temporary, manifest, error);
        if (!error)
            return true;
    }
    std::filesystem::remove(temporary, error);
    return false;
}
