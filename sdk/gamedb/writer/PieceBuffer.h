// Collects values that are made one by one, so that a sink gets them in large pieces.
#pragma once

#include "PackedSink.h"

#include <array>

template <class T> class CPieceBuffer
{
public:
    // `sink` is not owned.
    explicit CPieceBuffer(IPackedSink& sink) : m_Sink(sink) {}

    void Add(const T& value)
    {
        m_Values[m_nCount++] = value;
        if (m_nCount == kValues)
            Flush();
    }

    // Gives the sink what it has not yet. The owner calls it at the end: a sink may throw, and a destructor
    // must not.
    void Flush()
    {
        m_Sink.Add(std::as_bytes(std::span(m_Values).first(m_nCount)));
        m_nCount = 0;
    }

private:
    static constexpr std::size_t kValues = 16384 / sizeof(T);

    IPackedSink& m_Sink;
    std::size_t m_nCount = 0;
    std::array<T, kValues> m_Values;
};
