#include "GeneratedTree.h"

#include "DatabaseGenerator.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace
{
// Lies in a tree that is complete. The number goes up with each change of what is generated.
constexpr const char* kComplete = "complete-1";

void WriteTree(const std::filesystem::path& tree, std::size_t records)
{
    std::filesystem::path made;
    GenerateDatabase(records,
                     [&](const std::string& path, std::string_view bytes)
                     {
                         const std::filesystem::path file = tree / path;
                         if (file.parent_path() != made)
                         {
                             made = file.parent_path();
                             std::filesystem::create_directories(made);
                         }
                         std::ofstream out(file, std::ios::binary);
                         out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
                         out.close();
                         if (!out)
                             throw std::runtime_error("The file " + file.string() + " could not be written.");
                     });
    std::ofstream mark(tree / kComplete);
}
} // namespace

CGeneratedTree::CGeneratedTree(const std::filesystem::path& directory, std::size_t records, bool keep)
    : m_Path(directory / ("corvane-bench-" + std::to_string(records))), m_bKeep(keep)
{
    if (m_bKeep && std::filesystem::exists(m_Path / kComplete))
        return;
    // What is there is not ours to remove.
    if (!std::filesystem::create_directories(m_Path))
        throw std::runtime_error("The directory " + m_Path.string() + " is in the way.");
    WriteTree(m_Path, records);
}

CGeneratedTree::~CGeneratedTree()
{
    std::error_code error;
    if (!m_bKeep)
        std::filesystem::remove_all(m_Path, error);
}
