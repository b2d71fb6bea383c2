#include "PackedSeal.h"

#include "ContentHash.h"

#include "packeddatabase_generated.h"

#include <cstring>

namespace packed
{
namespace
{
constexpr std::size_t kMissing = static_cast<std::size_t>(-1);

// Where in the file the checksum lies.
std::size_t FindField(std::span<const std::byte> bytes)
{
    const auto* table = flatbuffers::GetRoot<flatbuffers::Table>(bytes.data());
    const auto* field = reinterpret_cast<const std::byte*>(table->GetAddressOf(Database::VT_CHECKSUM));
    return field == nullptr ? kMissing : static_cast<std::size_t>(field - bytes.data());
}

// The hash of what stands ahead of the field is the seed for what stands behind it.
std::uint64_t Compute(std::span<const std::byte> bytes, std::size_t field)
{
    return ContentHash(bytes.subspan(field + sizeof(std::uint64_t)), ContentHash(bytes.first(field)));
}
} // namespace

bool IsSealed(std::span<const std::byte> bytes)
{
    const std::size_t field = FindField(bytes);
    if (field == kMissing)
        return false;
    std::uint64_t checksum = 0;
    std::memcpy(&checksum, bytes.data() + field, sizeof(checksum));
    return checksum == Compute(bytes, field);
}

bool Seal(std::span<std::byte> bytes)
{
    const std::size_t field = FindField(bytes);
    if (field == kMissing)
        return false;
    const std::uint64_t checksum = Compute(bytes, field);
    std::memcpy(bytes.data() + field, &checksum, sizeof(checksum));
    return true;
}
} // namespace packed
