// Streams through which a creator library writes the files that the system asks it for.
//
// Nothing of the standard library crosses this border. The system owns the stream and the converter; a
// module uses them only during the call that hands them over.
#pragma once

#include <cstddef>
#include <cstdint>

// A seekable block stream. Failure is sticky: after the first short write every write fails, so that a
// caller may write a whole file and look once at the end.
class IZROutStream
{
public:
    virtual ~IZROutStream() = default;

    // Writes `size` bytes. Returns false on a short write, and from then on.
    [[nodiscard]] virtual bool Write(const void* block, std::size_t size) = 0;
    // True once a write or a seek has failed.
    [[nodiscard]] virtual bool HasFailed() const = 0;
    // Byte offset of the next write from the start of the stream.
    [[nodiscard]] virtual std::uint64_t Tell() const = 0;
    // Moves the next write to `offset` bytes from the start.
    [[nodiscard]] virtual bool Seek(std::uint64_t offset) = 0;
};

// Typed writes in the byte order of the machine. Each returns what the stream's write returned.
class IZROutConverter
{
public:
    virtual ~IZROutConverter() = default;

    [[nodiscard]] virtual IZROutStream& GetStream() = 0;
    [[nodiscard]] virtual bool Write(const void* block, std::size_t size) = 0;
    [[nodiscard]] virtual bool WriteUInt8(std::uint8_t value) = 0;
    [[nodiscard]] virtual bool WriteUInt16(std::uint16_t value) = 0;
    [[nodiscard]] virtual bool WriteUInt32(std::uint32_t value) = 0;
    [[nodiscard]] virtual bool WriteUInt64(std::uint64_t value) = 0;
    [[nodiscard]] virtual bool WriteFloat(float value) = 0;
    [[nodiscard]] virtual bool WriteVector2(const float value[2]) = 0;
    [[nodiscard]] virtual bool WriteVector3(const float value[3]) = 0;
    [[nodiscard]] virtual bool WriteVector4(const float value[4]) = 0;
    // A 16-bit length in bytes, then the bytes of the narrow text with no terminator. A text of more than
    // 0xFFFF bytes fires an assertion, writes nothing and returns false.
    [[nodiscard]] virtual bool WriteString(const char* text) = 0;
};
