// Feeds bytes to the reader: as they are, and with their checksum put right, so that the checks behind it are
// reached too. What opens is read whole, and what is found must be what was asked for.
#include "DatabaseDump.h"
#include "GameDatabase.h"
#include "PackedSeal.h"
#include "PackedTables.h"

#include <cstdlib>
#include <ostream>
#include <vector>

namespace
{
void Require(bool condition)
{
    if (!condition)
        std::abort();
}

void ReadRecord(const CGameDatabase& database, const CGameRecord& record)
{
    const std::string path = record.GetPath();
    if (const CGameRecord found = database.FindRecord(path))
        Require(found.GetPath() == path);
    for (std::size_t i = 0; i < record.GetAttributeCount(); ++i)
    {
        const CGameAttribute attribute = record.GetAttribute(i);
        if (const CGameAttribute found = record.FindAttribute(attribute.GetName()))
            Require(found.GetName() == attribute.GetName());
    }
}

void Read(std::span<const std::byte> bytes)
{
    std::string error;
    const std::optional<CGameDatabase> database = CGameDatabase::OpenMemory(bytes, error);
    Require(database.has_value() == error.empty());
    if (!database)
        return;
    class CNullBuffer : public std::streambuf
    {
        int overflow(int c) override { return c == EOF ? 0 : c; }
    } nowhere;
    std::ostream out(&nowhere);
    DumpDatabase(*database, out);
    for (std::size_t i = 0; i < database->GetRecordCount(); ++i)
        ReadRecord(*database, database->GetRecord(i));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto* bytes = reinterpret_cast<const std::byte*>(data);
    std::vector<std::byte> copy(bytes, bytes + size);
    Read(copy);
    if (size < 8 || !packed::DatabaseBufferHasIdentifier(data))
        return 0;
    flatbuffers::Verifier verifier(data, size);
    if (packed::VerifyDatabaseBuffer(verifier) && packed::Seal(copy))
        Read(copy);
    return 0;
}
