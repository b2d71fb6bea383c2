// Expands any bytes as a stream, then compresses what came out and expands that: the same bytes must come
// back.
#include "ZRACompressedFile.h"

#include <cstdlib>
#include <string>

namespace
{
constexpr std::uint32_t kCache = 64;

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

// No token makes more bytes than it has bits, so that the loop ends; `limit` holds it to that.
std::string Expand(std::string stream, std::size_t limit, bool& complete)
{
    std::string bytes;
    std::FILE* source = fmemopen(stream.data(), stream.size(), "rb");
    Require(source != nullptr);
    CZRACompressedFile file;
    if (file.Attach(source, CZRAFileBuffer::OPEN_READ, kCache))
    {
        for (std::uint8_t value = 0; file.ReadByte(value);)
        {
            bytes += static_cast<char>(value);
            Require(bytes.size() <= limit);
        }
    }
    complete = file.IsComplete();
    Require(file.Close());
    std::fclose(source);
    return bytes;
}

std::string Compress(const std::string& bytes)
{
    char* written = nullptr;
    std::size_t size = 0;
    std::FILE* target = open_memstream(&written, &size);
    Require(target != nullptr);
    CZRACompressedFile file;
    Require(file.Attach(target, CZRAFileBuffer::OPEN_WRITE, kCache));
    Require(file.WriteBlock(bytes.data(), bytes.size()) && file.Close());
    std::fclose(target);
    std::string stream(written, size);
    std::free(written);
    return stream;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    bool complete = false;
    std::string stream(4, '\0');
    stream.append(reinterpret_cast<const char*>(data), size);
    const std::string bytes = Expand(stream, size * 8, complete);
    Require(Expand(Compress(bytes), bytes.size(), complete) == bytes && complete);
    // The bytes themselves as the text of a stream, which reaches more of the compressor.
    const std::string text(reinterpret_cast<const char*>(data), size);
    Require(Expand(Compress(text), size, complete) == text && complete);
    return 0;
}
