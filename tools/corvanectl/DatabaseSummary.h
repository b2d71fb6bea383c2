// What a database consists of, in numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

class CCorvaneMgr;

struct SFileCount
{
    std::size_t m_nFiles = 0;
    std::uint64_t m_nBytes = 0;
};

struct SSchemaSummary
{
    std::u16string m_sName;
    std::u16string m_sParent; // Empty for none.
    std::u16string m_sFile;
    std::size_t m_nRecords = 0;       // Of this very schema.
    std::size_t m_nEntries = 0;       // Its own entries; one attribute has an entry for each of its builds.
    std::size_t m_nAttributes = 0;    // Of a record, what the schema inherits included.
    std::set<std::uint32_t> m_Builds; // In which its own entries begin.
};

struct SDatabaseSummary
{
    std::vector<SSchemaSummary> m_Schemas; // In the order of the load.
    std::size_t m_nSystemCategories = 0;
    std::size_t m_nVirtualCategories = 0;
    std::size_t m_nRecords = 0;
    std::size_t m_nInheriting = 0; // Records with a referencer.
    std::size_t m_nAttributes = 0; // Of all records.
    std::size_t m_nEntries = 0;    // Of all schemas.
    // Entries of schemas and struct files that a newer one has replaced, or that a deletion ends.
    std::size_t m_nDeprecated = 0;
    std::size_t m_nDeleted = 0;
    std::set<std::uint32_t> m_Builds; // In which an entry of a schema or a struct file begins.

    // On disk. Struct files and the like are the custom files.
    SFileCount m_RootFile;
    SFileCount m_SchemaFiles;
    SFileCount m_CustomFiles;
    SFileCount m_CategoryFiles;
    SFileCount m_RecordFiles;
};

[[nodiscard]] SDatabaseSummary SummarizeDatabase(CCorvaneMgr& manager);
