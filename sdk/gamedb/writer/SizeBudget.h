// Counts the bytes that the content of a packed file takes, so that a database which outgrows the format is
// refused while it is built instead of overflowing an offset.
#pragma once

#include <cstdint>

class CSizeBudget
{
public:
    explicit CSizeBudget(std::uint64_t limit) : m_nLimit(limit) {}

    // Takes `bytes`. Returns false, also for every later call, when they do not fit.
    [[nodiscard]] bool Take(std::uint64_t bytes)
    {
        m_bExceeded = m_bExceeded || bytes > m_nLimit - m_nTaken;
        if (!m_bExceeded)
            m_nTaken += bytes;
        return !m_bExceeded;
    }
    bool IsExceeded() const { return m_bExceeded; }
    std::uint64_t GetLimit() const { return m_nLimit; }

private:
    std::uint64_t m_nLimit;
    std::uint64_t m_nTaken = 0;
    bool m_bExceeded = false;
};
