// A converter that keeps what is written, and can fail after a number of bytes as a full disk does.
#pragma once

#include "izroutconverter.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <vector>

class CMemoryConverter : public IZROutConverter, private IZROutStream
{
public:
    explicit CMemoryConverter(std::size_t capacity = std::numeric_limits<std::size_t>::max())
        : m_nCapacity(capacity)
    {
    }

    std::vector<std::byte>& GetBytes() { return m_Bytes; }

    IZROutStream& GetStream() override { return *this; }
    bool Write(const void* block, std::size_t size) override
    {
        m_bFailed = m_bFailed || size > m_nCapacity - m_Bytes.size();
        if (!m_bFailed)
        {
            const auto* bytes = static_cast<const std::byte*>(block);
            m_Bytes.insert(m_Bytes.end(), bytes, bytes + size);
        }
        return !m_bFailed;
    }
    bool WriteUInt8(std::uint8_t value) override { return Write(&value, sizeof(value)); }
    bool WriteUInt16(std::uint16_t value) override { return Write(&value, sizeof(value)); }
    bool WriteUInt32(std::uint32_t value) override { return Write(&value, sizeof(value)); }
    bool WriteUInt64(std::uint64_t value) override { return Write(&value, sizeof(value)); }
    bool WriteFloat(float value) override { return Write(&value, sizeof(value)); }
    bool WriteVector2(const float value[2]) override { return Write(value, 2 * sizeof(float)); }
    bool WriteVector3(const float value[3]) override { return Write(value, 3 * sizeof(float)); }
    bool WriteVector4(const float value[4]) override { return Write(value, 4 * sizeof(float)); }
    bool WriteString(const char* text) override
    {
        const std::size_t length = std::strlen(text);
        return length <= 0xFFFF && WriteUInt16(static_cast<std::uint16_t>(length)) && Write(text, length);
    }

private:
    bool HasFailed() const override { return m_bFailed; }
    std::uint64_t Tell() const override { return m_Bytes.size(); }
    // The creator appends only; moving back is a failure that a test would see.
    bool Seek(std::uint64_t offset) override
    {
        m_bFailed = m_bFailed || offset != m_Bytes.size();
        return !m_bFailed;
    }

    std::vector<std::byte> m_Bytes;
    std::size_t m_nCapacity;
    bool m_bFailed = false;
};
