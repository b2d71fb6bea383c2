// A growing array of plain values. It grows through realloc, which the C library serves for large blocks by
// moving page tables: no second copy exists while it grows, and pages that are not used yet cost nothing.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <span>
#include <type_traits>

template <class T> class CGrowBuffer
{
    static_assert(std::is_trivially_copyable_v<T>);

public:
    CGrowBuffer() = default;
    ~CGrowBuffer() { std::free(m_pData); }
    CGrowBuffer(const CGrowBuffer&) = delete;
    CGrowBuffer& operator=(const CGrowBuffer&) = delete;

    std::size_t size() const { return m_nCount; }
    T& operator[](std::size_t index) { return m_pData[index]; }
    const T& operator[](std::size_t index) const { return m_pData[index]; }
    std::span<const T> GetAll() const { return {m_pData, m_nCount}; }

    // Makes room for `extra` more elements, so that appending them cannot fail. Throws std::bad_alloc.
    void Reserve(std::size_t extra)
    {
        if (extra <= m_nCapacity - m_nCount)
            return;
        const std::size_t wanted = m_nCount + extra;
        const std::size_t capacity = wanted < 64 ? 64 : wanted + wanted / 2;
        void* data = std::realloc(static_cast<void*>(m_pData), capacity * sizeof(T));
        if (data == nullptr)
            throw std::bad_alloc();
        m_pData = static_cast<T*>(data);
        m_nCapacity = capacity;
    }

    void Append(const T& value)
    {
        Reserve(1);
        m_pData[m_nCount++] = value;
    }

    void Append(const T* values, std::size_t count)
    {
        Reserve(count);
        if (count != 0)
            std::memcpy(static_cast<void*>(m_pData + m_nCount), values, count * sizeof(T));
        m_nCount += count;
    }

    // Appends `count` elements of all zero bits.
    void AppendZeros(std::size_t count)
    {
        Reserve(count);
        if (count != 0)
            std::memset(static_cast<void*>(m_pData + m_nCount), 0, count * sizeof(T));
        m_nCount += count;
    }

private:
    T* m_pData = nullptr;
    std::size_t m_nCount = 0;
    std::size_t m_nCapacity = 0;
};
