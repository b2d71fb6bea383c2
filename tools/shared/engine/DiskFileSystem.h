// The file layer over the operating system's disk.
#pragma once

#include "FileSystem.h"

class CDiskFileSystem final : public IFileSystem
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
};
