// Counts what passes through the file layer on its way to another one.
#pragma once

#include "FileSystem.h"

#include "izroutconverter.h"

#include <cstdint>
#include <utility>

struct SFileCounts
{
    std::uint64_t m_nOpens = 0; // Files opened to be read or written.
    std::uint64_t m_nListings = 0;
    std::uint64_t m_nInfos = 0; // Look-ups of a name without opening it.
};

class CCountingFileSystem final : public IFileSystem
{
public:
    // `inner` is not owned.
    explicit CCountingFileSystem(IFileSystem& inner) : m_Inner(inner) {}

    // What was counted since the last call.
    [[nodiscard]] SFileCounts Take() { return std::exchange(m_Counts, {}); }

    [[nodiscard]] CFileError GetInfo(std::u16string_view path, SFileInfo& info) override
    {
        ++m_Counts.m_nInfos;
        return m_Inner.GetInfo(path, info);
    }
    [[nodiscard]] CFileError ReadFile(std::u16string_view path, CFileBuffer& content,
                                      SFileInfo* info) override
    {
        ++m_Counts.m_nOpens;
        return m_Inner.ReadFile(path, content, info);
    }
    [[nodiscard]] CFileError WriteFile(std::u16string_view path, std::span<const std::byte> content) override
    {
        ++m_Counts.m_nOpens;
        return m_Inner.WriteFile(path, content);
    }
    [[nodiscard]] std::unique_ptr<IZROutStream> OpenStream(std::u16string_view path,
                                                           CFileError& error) override
    {
        ++m_Counts.m_nOpens;
        return m_Inner.OpenStream(path, error);
    }
    [[nodiscard]] CFileError CloseStream(std::unique_ptr<IZROutStream> stream) override
    {
        return m_Inner.CloseStream(std::move(stream));
    }
    [[nodiscard]] CFileError ListDirectory(std::u16string_view path, const SDirectoryFilter& filter,
                                           std::vector<SDirectoryEntry>& entries) override
    {
        ++m_Counts.m_nListings;
        return m_Inner.ListDirectory(path, filter, entries);
    }
    [[nodiscard]] CFileError CreateDirectory(std::u16string_view path) override
    {
        return m_Inner.CreateDirectory(path);
    }
    [[nodiscard]] CFileError Rename(std::u16string_view from, std::u16string_view to, bool replace) override
    {
        return m_Inner.Rename(from, to, replace);
    }
    [[nodiscard]] CFileError Remove(std::u16string_view path) override { return m_Inner.Remove(path); }
    [[nodiscard]] CFileError SetReadOnly(std::u16string_view path, bool readOnly) override
    {
        return m_Inner.SetReadOnly(path, readOnly);
    }
    [[nodiscard]] std::string GetNativePath(std::u16string_view path) override
    {
        return m_Inner.GetNativePath(path);
    }

private:
    IFileSystem& m_Inner;
    SFileCounts m_Counts;
};
