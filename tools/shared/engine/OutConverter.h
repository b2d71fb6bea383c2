// The system's side of IZROutConverter: typed writes over a stream.
#pragma once

#include "izroutconverter.h"

class CZROutConverter final : public IZROutConverter
{
public:
    // `stream` is not owned and must outlive the converter.
    explicit CZROutConverter(IZROutStream& stream) : m_Stream(stream) {}

    [[nodiscard]] IZROutStream& GetStream() override { return m_Stream; }
    [[nodiscard]] bool Write(const void* block, std::size_t size) override
    {
        return m_Stream.Write(block, size);
    }
    [[nodiscard]] bool WriteUInt8(std::uint8_t value) override { return Write(&value, sizeof value); }
    [[nodiscard]] bool WriteUInt16(std::uint16_t value) override { return Write(&value, sizeof value); }
    [[nodiscard]] bool WriteUInt32(std::uint32_t value) override { return Write(&value, sizeof value); }
    [[nodiscard]] bool WriteUInt64(std::uint64_t value) override { return Write(&value, sizeof value); }
    [[nodiscard]] bool WriteFloat(float value) override { return Write(&value, sizeof value); }
    [[nodiscard]] bool WriteVector2(const float value[2]) override { return Write(value, 2 * sizeof(float)); }
    [[nodiscard]] bool WriteVector3(const float value[3]) override { return Write(value, 3 * sizeof(float)); }
    [[nodiscard]] bool WriteVector4(const float value[4]) override { return Write(value, 4 * sizeof(float)); }
    [[nodiscard]] bool WriteString(const char* text) override;

private:
    IZROutStream& m_Stream;
};
