#include "Conversion.h"

#include "ZRACompressedFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

namespace
{
constexpr std::uint32_t kCacheSize = 64 * 1024;
constexpr std::size_t kHeaderSize = 4;

struct SStreamCloser
{
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using CStream = std::unique_ptr<std::FILE, SStreamCloser>;

// What a growing stream in memory holds; the text is there after a flush.
struct SMemory
{
    ~SMemory() { std::free(m_pText); }

    char* m_pText = nullptr;
    std::size_t m_nSize = 0;
};

bool WriteAll(CZRACompressedFile& file, std::span<const std::byte> input, const ConversionProgress& progress)
{
    for (std::size_t done = 0; done < input.size();)
    {
        const std::size_t size = std::min<std::size_t>(kCacheSize, input.size() - done);
        if (!file.WriteBlock(input.data() + done, size))
            return false;
        done += size;
        progress(done);
    }
    return true;
}

void ReadAll(CZRACompressedFile& file, std::FILE* stream, std::string& out,
             const ConversionProgress& progress)
{
    for (std::uint8_t byte = 0; file.ReadByte(byte);)
    {
        out += static_cast<char>(byte);
        if (out.size() % kCacheSize == 0)
            progress(static_cast<std::size_t>(std::ftell(stream)));
    }
}
} // namespace

CFileError Compress(std::span<const std::byte> input, std::string& out, const ConversionProgress& progress)
try
{
    out.clear();
    SMemory memory;
    const CStream stream(::open_memstream(&memory.m_pText, &memory.m_nSize));
    if (stream == nullptr)
        return CFileError::FromErrno(errno);
    CZRACompressedFile file;
    const bool written =
        file.Attach(stream.get(), CZRAFileBuffer::OPEN_WRITE, kCacheSize) && WriteAll(file, input, progress);
    if (!file.Close() || !written)
        return CFileError::FromErrno(file.GetError());
    out.assign(memory.m_pText, memory.m_nSize);
    return {};
}
catch (const std::bad_alloc&)
{
    return {EFileError::OutOfMemory, ENOMEM};
}

CFileError Expand(std::span<const std::byte> input, std::string& out, const ConversionProgress& progress)
try
{
    out.clear();
    if (!IsCompressed(input))
        return {EFileError::InvalidData, 0};
    // A stream for reading leaves the bytes alone; the function's one type serves writers too.
    const CStream stream(::fmemopen(const_cast<std::byte*>(input.data()), input.size(), "rb"));
    if (stream == nullptr)
        return CFileError::FromErrno(errno);
    CZRACompressedFile file;
    if (file.Attach(stream.get(), CZRAFileBuffer::OPEN_READ, kCacheSize))
        ReadAll(file, stream.get(), out, progress);
    return CFileError::FromErrno(file.GetError());
}
catch (const std::bad_alloc&)
{
    return {EFileError::OutOfMemory, ENOMEM};
}

bool IsCompressed(std::span<const std::byte> input)
{
    const auto isZero = [](std::byte byte) { return byte == std::byte{0}; };
    return input.size() >= kHeaderSize && std::all_of(input.begin(), input.begin() + kHeaderSize, isZero);
}
