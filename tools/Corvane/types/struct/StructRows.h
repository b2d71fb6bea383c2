// The rows of a Struct attribute as a span of spans: each row holds one attribute for each member, in the
// order of the struct file. Lives until the attribute's rows change.
#pragma once

#include "CorvaneRef.h"

#include <cstddef>
#include <span>

class CCorvaneType;

class CStructRows
{
public:
    CStructRows(std::span<const CRef<CCorvaneType>> members, std::size_t stride, std::size_t count)
        : m_Members(members), m_nStride(stride), m_nCount(count)
    {
    }

    [[nodiscard]] std::size_t size() const { return m_nCount; }
    [[nodiscard]] bool empty() const { return m_nCount == 0; }
    [[nodiscard]] std::span<const CRef<CCorvaneType>> operator[](std::size_t row) const
    {
        return m_Members.subspan(row * m_nStride, m_nStride);
    }
    // The members of all rows, one row behind the other.
    [[nodiscard]] std::span<const CRef<CCorvaneType>> GetMembers() const
    {
        return m_Members.first(m_nCount * m_nStride);
    }

private:
    std::span<const CRef<CCorvaneType>> m_Members;
    std::size_t m_nStride;
    std::size_t m_nCount;
};
