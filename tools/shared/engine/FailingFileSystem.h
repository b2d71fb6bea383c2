// A file layer that forwards to another one and fails where a test tells it to.
#pragma once

#include "FileSystem.h"

#include <functional>

enum class EFileOperation
{
    GetInfo,
    ReadFile,
    WriteFile,
    OpenStream,
    CloseStream,
    ListDirectory,
    CreateDirectory,
    Rename,
    Remove,
    SetReadOnly,
};

class CFailingFileSystem final : public IFileSystem
{
public:
    // Asked before each operation; a code other than None is its result and the inner layer is not called.
    using FFailure = std::function<EFileError(EFileOperation operation, std::u16string_view path)>;

    // `inner` is not owned and must outlive this object.
    CFailingFileSystem(IFileSystem& inner, FFailure failure) : m_Inner(inner), m_Failure(std::move(failure))
    {
    }

    // Streams opened from now on fail once they have taken this many bytes, as on a full disk.
    void SetStreamLimit(std::uint64_t bytes) { m_nStreamLimit = bytes; }

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

private:
    IFileSystem& m_Inner;
    FFailure m_Failure;
    std::uint64_t m_nStreamLimit = UINT64_MAX;
};
