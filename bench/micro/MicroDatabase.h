// Databases in memory for the small benchmarks.
#pragma once

#include "BenchHost.h"
#include "MemoryFileSystem.h"

#include <cstddef>
#include <string>
#include <vector>

// The bytes of a record file of a generated database.
[[nodiscard]] std::string GetTypicalRecordFile();

// A loaded database. Ends the program when the load fails.
class CMicroDatabase
{
public:
    // The generated one of that many records.
    [[nodiscard]] static CMicroDatabase& GetGenerated(std::size_t records);
    // One with short records, whose number is all that counts. Made once for each count.
    [[nodiscard]] static CMicroDatabase& GetPlain(std::size_t records);

    [[nodiscard]] CCorvaneMgr& GetManager() { return m_Host.GetManager(); }
    // In the order of the tree.
    [[nodiscard]] const std::vector<CCorvaneRecord*>& GetRecords() const { return m_Records; }

private:
    CMicroDatabase() = default;
    void Load(std::string_view root);
    void WritePlain(std::size_t records);

    CMemoryFileSystem m_Files;
    CBenchHost m_Host{m_Files, "/bench"};
    std::vector<CCorvaneRecord*> m_Records;
};
