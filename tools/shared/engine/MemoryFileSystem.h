// A file layer in memory, for tests and for previews that must not touch the disk. Names are found without
// regard to case, as on disk; time stamps come from a counter, so that every write is a change.
#pragma once

#include "FileSystem.h"

#include <map>

class CMemoryFileSystem final : public IFileSystem
{
public:
    [[nodiscard]] CFileError GetInfo(std::u16string_view path, SFileInfo& info) override;
    [[nodiscard]] CFileError ReadFile(std::u16string_view path, CFileBuffer& content,
                                      SFileInfo* info) override;
    [[nodiscard]] CFileError WriteFile(std::u16string_view path, std::span<const std::byte> content) override;
    [[nodiscard]] std::unique_ptr<IZROutStream> OpenStream(std::u16string_view path,
                                                           CFileError& error) override;
    [[nodiscard]] CFileError CloseStream(std::unique_ptr<IZROutStream> stream) override;
    [[nodiscard]] CFileError ListDirectory(std::u16string_view path, const SDirectoryFilter& filter,
                                           std::vector<SDirectoryEntry>& entries) override;
    [[nodiscard]] CFileError CreateDirectory(std::u16string_view path) override;
    [[nodiscard]] CFileError Rename(std::u16string_view from, std::u16string_view to, bool replace) override;
    [[nodiscard]] CFileError Remove(std::u16string_view path) override;
    [[nodiscard]] CFileError SetReadOnly(std::u16string_view path, bool readOnly) override;
    [[nodiscard]] std::string GetNativePath(std::u16string_view path) override;

    // Writes a little-endian UTF-16 file with its mark, with the directories above it.
    void AddText(std::u16string_view path, std::u16string_view text);

private:
    struct SNode
    {
        std::u16string m_sPath; // As it was first given, with '/' separators.
        std::vector<std::byte> m_Content;
        std::int64_t m_nTime = 0;
        bool m_bDirectory = false;
        bool m_bReadOnly = false;
    };

    [[nodiscard]] static std::u16string MakeKey(std::u16string_view path);
    // Null for a missing path.
    [[nodiscard]] const SNode* FindNode(std::u16string_view path) const;
    [[nodiscard]] CFileError CheckParent(std::u16string_view path) const;
    [[nodiscard]] CFileError CheckWritable(std::u16string_view path) const;
    [[nodiscard]] CFileError CheckRename(const std::u16string& from, const std::u16string& to,
                                         bool replace) const;
    [[nodiscard]] std::int64_t NextTime();
    void AddParents(std::u16string_view path);

    std::map<std::u16string, SNode> m_Nodes; // By folded path.
    std::int64_t m_nClock = 0;
};
