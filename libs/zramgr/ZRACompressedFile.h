// A stream of bytes, compressed into a file or expanded from one; docs/formats/compressed-files.md tells the
// form. A stream is written or read once, from start to end.
//
// Failures are those of CZRAFileBuffer. The object holds its window and is some 30 KB large. One object for
// one thread.
#pragma once

#include "LZSSWindow.h"
#include "ZRABitFile.h"
#include "ZRAFileBuffer.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>

class CZRACompressedFile
{
public:
    CZRACompressedFile() = default;
    // Closes. Its result is lost: a writer calls `Close` itself.
    ~CZRACompressedFile();
    CZRACompressedFile(const CZRACompressedFile&) = delete;
    CZRACompressedFile& operator=(const CZRACompressedFile&) = delete;

    // As CZRAFileBuffer's. A file that is not of this form is closed again: false with `GetError` 0. A stream
    // ends with its first end token, so that appending to one is refused.
    [[nodiscard]] bool Open(const char* pszFilename, CZRAFileBuffer::EMode eMode, std::uint32_t nCacheSize,
                            bool bAppend);
    [[nodiscard]] bool Attach(std::FILE* pStream, CZRAFileBuffer::EMode eMode, std::uint32_t nCacheSize);

    // False when a token could not be written. Later bytes are still taken; `Close` is then false too.
    [[nodiscard]] bool WriteByte(std::uint8_t nValue);
    [[nodiscard]] bool WriteBlock(const void* pData, std::size_t nLength);
    // False at the end of the stream, and from then on. A file that stops early, or cannot be read further,
    // ends behind its last whole token.
    [[nodiscard]] bool ReadByte(std::uint8_t& nOut);
    // Writes what is left and the end token. True when the whole stream is in the file; true when not open.
    [[nodiscard]] bool Close();

    bool IsOpen() const { return m_File.IsOpen(); }
    // See CZRAFileBuffer::GetError.
    int GetError() const { return m_File.GetError(); }
    // After ReadByte has returned false: whether the stream's own end was reached, so that nothing is
    // missing.
    bool IsComplete() const { return m_bComplete; }

private:
    [[nodiscard]] bool StartStream();
    [[nodiscard]] bool ReadHeader();
    [[nodiscard]] bool ReadToken(std::uint8_t& nOut);
    [[nodiscard]] bool ReadSpan();
    [[nodiscard]] bool EndReading();
    void CopySpanByte(std::uint8_t& nOut);
    void Store(std::uint8_t nValue);

    CZRABitFile m_File;
    CLZSSWindow m_Window;
    std::array<std::uint8_t, CLZSSWindow::WINDOW_SIZE> m_DecWindow{};
    std::uint32_t m_nDecPos = 0;     // Where the next byte goes in the ring.
    std::uint32_t m_nDecSpanLen = 0; // Bytes of the span still to be handed out.
    std::uint32_t m_nDecSpanPos = 0;
    bool m_bEnded = false;
    bool m_bComplete = false;
};
