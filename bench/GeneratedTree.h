// A generated database on disk.
#pragma once

#include <cstddef>
#include <filesystem>

class CGeneratedTree
{
public:
    // The tree of `records` records below `directory`. With `keep` it stays when the object goes, and one
    // that a kept run left is used as it is. Throws std::runtime_error when it cannot be written.
    CGeneratedTree(const std::filesystem::path& directory, std::size_t records, bool keep);
    ~CGeneratedTree();
    CGeneratedTree(const CGeneratedTree&) = delete;
    CGeneratedTree& operator=(const CGeneratedTree&) = delete;

    [[nodiscard]] const std::filesystem::path& GetPath() const { return m_Path; }

private:
    std::filesystem::path m_Path;
    bool m_bKeep;
};
