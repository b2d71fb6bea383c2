// A buffered stream on a file descriptor, as the disk's file layer hands it out.
#pragma once

#include "FileSystem.h"
#include "izroutconverter.h"

class CDiskStream final : public IZROutStream
{
public:
    // Takes the descriptor over.
    explicit CDiskStream(int descriptor);
    ~CDiskStream() override;
    CDiskStream(const CDiskStream&) = delete;
    CDiskStream& operator=(const CDiskStream&) = delete;

    [[nodiscard]] bool Write(const void* block, std::size_t size) override;
    [[nodiscard]] bool HasFailed() const override { return !m_Error.IsOk(); }
    [[nodiscard]] std::uint64_t Tell() const override { return m_nStart + m_nUsed; }
    [[nodiscard]] bool Seek(std::uint64_t offset) override;

    // Writes what is buffered, flushes the file to the disk and closes it. The first failure of the stream's
    // whole life.
    [[nodiscard]] CFileError Close();

private:
    bool Flush();
    bool WriteAt(const std::byte* bytes, std::size_t size);

    int m_nDescriptor;
    CFileError m_Error;
    std::unique_ptr<std::byte[]> m_pBuffer;
    std::uint64_t m_nStart = 0; // Offset in the file of the buffer's first byte.
    std::size_t m_nUsed = 0;
};
