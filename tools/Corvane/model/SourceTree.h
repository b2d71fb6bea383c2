// The directories of a database as one walk over the disk finds them, so that the loads of schemas,
// categories and records list no directory a second time. Lives for the length of a load.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class IFileSystem;
class IQuestions;

struct SSourceDirectory
{
    // A schema file or a directory, in the stable order of both.
    struct SEntry
    {
        std::u16string m_sPath;
        std::unique_ptr<SSourceDirectory> m_pDirectory; // Null for a schema file.
    };

    std::vector<SEntry> m_Entries;
    std::vector<std::u16string> m_Records; // File names, in the stable order.
    bool m_bCategory = false;              // Holds a category file.
};

// Reads a directory with everything below it. A directory that cannot be read, or that leads back to one
// above it as a link may, is told and left out.
[[nodiscard]] std::unique_ptr<SSourceDirectory> ReadSourceTree(IFileSystem& files, IQuestions& questions,
                                                               std::u16string_view root);
