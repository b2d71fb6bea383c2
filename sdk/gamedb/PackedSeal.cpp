#include "PackedSeal.h"

#include "ContentHash.h"

#include "packeddatabase_generated.h"

#include <cstring>

namespace packed
{
namespace
{
std::uint64_t Compute(std::span<const std::byte> bytes, std::size_t field)
{
    return ContentHash(bytes.subspan(field + sizeof(std::uint64_t)), ContentHash(bytes.first(field)));
}
} // namespace

std::size_t FindChecksum(std::span<const std::byte> bytes)
{
    const auto* table = flatbuffers::GetRoot<flatbuffers::Table>(bytes.data());
    const auto* field = reinterpret_cast<const std::byte*>(table->GetAddressOf(Database::VT_CHECKSUM));
    return field == nullptr ? bytes.size() : static_cast<std::size_t>(field - bytes.data());
}

bool IsSealed(std::span<const std::byte> bytes)
{
    const std::size_t field = FindChecksum(bytes);
    if (field == bytes.size())
        return false;
    std::uint64_t checksum = 0;
    std::memcpy(&checksum, bytes.data() + field, sizeof(checksum));
    return checksum == Compute(bytes, field);
}

bool Seal(std::span<std::byte> bytes)
{
    const std::size_t field = FindChecksum(bytes);
    if (field == bytes.size())
        return false;
    const std::uint64_t checksum = Compute(bytes, field);
    std::memcpy(bytes.data() + field, &checksum, sizeof(checksum));
    return true;
}
} // namespace packed
