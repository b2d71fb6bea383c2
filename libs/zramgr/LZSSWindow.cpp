#include "LZSSWindow.h"

#include "ZRABitFile.h"
#include "zrassert.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstring>

// The texts of the assertions are part of the assertion log, so that they spell the sizes out.

namespace
{
constexpr std::uint32_t kRingMask = CLZSSWindow::WINDOW_SIZE - 1;
constexpr unsigned kPositionBits = 12;
constexpr unsigned kLengthBits = 4;

std::atomic<std::uint64_t> s_nTotalBytes = 0;

std::uint64_t LoadBigEndian(const std::uint8_t* pBytes)
{
    std::uint64_t nValue;
    std::memcpy(&nValue, pBytes, sizeof nValue);
    if constexpr (std::endian::native == std::endian::little)
        nValue = __builtin_bswap64(nValue);
    return nValue;
}

struct SComparison
{
    std::uint32_t m_nEqual;
    bool m_bLess;
};

// Compares as many bytes as the longest span has, eight at a time: how many are equal from the first on, and
// whether `pA` is below `pB` at the first difference.
SComparison Compare(const std::uint8_t* pA, const std::uint8_t* pB)
{
    static_assert(CLZSSWindow::LONGEST_SPAN == 2 * sizeof(std::uint64_t) + 1);
    for (std::uint32_t i = 0; i < 2 * sizeof(std::uint64_t); i += sizeof(std::uint64_t))
    {
        const std::uint64_t nA = LoadBigEndian(pA + i);
        const std::uint64_t nB = LoadBigEndian(pB + i);
        if (nA != nB)
            return {i + static_cast<std::uint32_t>(std::countl_zero(nA ^ nB)) / 8, nA < nB};
    }
    constexpr std::uint32_t nLast = CLZSSWindow::LONGEST_SPAN - 1;
    return {nLast + (pA[nLast] == pB[nLast] ? 1 : 0), pA[nLast] < pB[nLast]};
}
} // namespace

std::uint64_t CLZSSWindow::GetTotalBytes()
{
    return s_nTotalBytes.load(std::memory_order_relaxed);
}

void CLZSSWindow::Reset()
{
    m_Tree.fill({});
    m_Tree[ROOT] = {ROOT, 0, 1};
    m_Tree[1].m_nParent = ROOT;
    m_nLookAheadLen = 0;
    m_nCurrPos = 1;
    m_nMatchLen = 0;
    m_nMatchPos = 0;
    m_bPrimed = false;
    m_nBytes = 0;
}

bool CLZSSWindow::AddByte(std::uint8_t nValue, CZRABitFile& file)
{
    ++m_nBytes;
    if (!m_bPrimed)
    {
        m_Window[m_nCurrPos + m_nLookAheadLen] = nValue;
        m_bPrimed = ++m_nLookAheadLen == LONGEST_SPAN;
        return true;
    }
    const bool bWritten = m_nLookAheadLen < LONGEST_SPAN || WriteToken(file);
    ZRASSERT(m_nLookAheadLen < ((1 << 4) + ((1 + 12 + 4) / 9)));

    // The byte takes the place of the oldest one, where no repeat can begin any more.
    const std::uint32_t nEnd = m_nCurrPos + LONGEST_SPAN;
    DeleteNode(nEnd & kRingMask);
    m_Window[nEnd & kRingMask] = nValue;
    m_Window[nEnd] = nValue; // The mirror, when the end is behind that of the ring.
    m_nCurrPos = (m_nCurrPos + 1) & kRingMask;
    AddNode(m_nCurrPos);
    ++m_nLookAheadLen;
    return bWritten;
}

bool CLZSSWindow::Finish(CZRABitFile& file)
{
    // Primed, the current position may lie inside a span that is written already.
    if (m_bPrimed)
        m_nCurrPos = (m_nCurrPos - m_nLookAheadLen + LONGEST_SPAN) & kRingMask;
    bool bWritten = true;
    while (m_nLookAheadLen != 0)
    {
        m_nMatchLen = 0;
        bWritten = WriteToken(file) && bWritten;
        m_nCurrPos = (m_nCurrPos + 1) & kRingMask;
    }
    s_nTotalBytes.fetch_add(m_nBytes, std::memory_order_relaxed);
    m_nBytes = 0;
    return WriteSpan(file, 0, SHORTEST_SPAN) && bWritten;
}

// Puts a position into the tree and looks on the way for the longest repeat of what stands there. Of equally
// long ones the first on the way, nearest to the root, counts.
void CLZSSWindow::AddNode(std::uint32_t nNode)
{
    m_nMatchLen = 0;
    m_nMatchPos = 0;
    if (nNode == 0)
        return;
    const std::uint8_t* pNew = &m_Window[nNode];
    std::uint32_t nCurrNode = m_Tree[ROOT].m_nLarger;
    ZRASSERT(nCurrNode != 0);
    for (;;)
    {
        const SComparison comparison = Compare(pNew, &m_Window[nCurrNode]);
        if (comparison.m_nEqual > m_nMatchLen)
        {
            m_nMatchLen = comparison.m_nEqual;
            m_nMatchPos = nCurrNode;
            if (m_nMatchLen >= LONGEST_SPAN)
                return ReplaceNode(nCurrNode, nNode);
        }
        SNode& node = m_Tree[nCurrNode];
        std::uint16_t& nChild = comparison.m_bLess ? node.m_nSmaller : node.m_nLarger;
        if (nChild == 0)
        {
            nChild = static_cast<std::uint16_t>(nNode);
            m_Tree[nNode] = {static_cast<std::uint16_t>(nCurrNode), 0, 0};
            return;
        }
        nCurrNode = nChild;
    }
}

void CLZSSWindow::DeleteNode(std::uint32_t nNode)
{
    const SNode node = m_Tree[nNode];
    if (nNode == 0 || node.m_nParent == 0)
        return;
    if (node.m_nLarger == 0)
        return CollapseNode(nNode, node.m_nSmaller);
    if (node.m_nSmaller == 0)
        return CollapseNode(nNode, node.m_nLarger);
    std::uint32_t nBefore = node.m_nSmaller;
    while (m_Tree[nBefore].m_nLarger != 0)
        nBefore = m_Tree[nBefore].m_nLarger;
    CollapseNode(nBefore, m_Tree[nBefore].m_nSmaller);
    ReplaceNode(nNode, nBefore);
}

// Takes a node with at most one child out, which comes into its place. The parent link of node 0 is written
// like any other where there is no child: nothing reads it.
void CLZSSWindow::CollapseNode(std::uint32_t nNode, std::uint32_t nChild)
{
    ZRASSERT((m_Tree[nNode].m_nSmaller == nChild) || (m_Tree[nNode].m_nLarger == nChild));
    ZRASSERT((m_Tree[nNode].m_nSmaller == 0) || (m_Tree[nNode].m_nLarger == 0));
    ZRASSERT((nNode != 0) && (nNode < (1 << 12)));
    SetChildOfParent(nNode, nChild);
    m_Tree[nChild].m_nParent = m_Tree[nNode].m_nParent;
    m_Tree[nNode].m_nParent = 0;
}

// Puts a node that is not in the tree into the place of one that is.
void CLZSSWindow::ReplaceNode(std::uint32_t nNode, std::uint32_t nNewNode)
{
    SetChildOfParent(nNode, nNewNode);
    m_Tree[nNewNode] = m_Tree[nNode];
    m_Tree[m_Tree[nNewNode].m_nSmaller].m_nParent = static_cast<std::uint16_t>(nNewNode);
    m_Tree[m_Tree[nNewNode].m_nLarger].m_nParent = static_cast<std::uint16_t>(nNewNode);
    m_Tree[nNode].m_nParent = 0;
}

void CLZSSWindow::SetChildOfParent(std::uint32_t nNode, std::uint32_t nChild)
{
    ZRASSERT((m_Tree[m_Tree[nNode].m_nParent].m_nSmaller == nNode) ||
             (m_Tree[m_Tree[nNode].m_nParent].m_nLarger == nNode));
    SNode& parent = m_Tree[m_Tree[nNode].m_nParent];
    (parent.m_nSmaller == nNode ? parent.m_nSmaller : parent.m_nLarger) = static_cast<std::uint16_t>(nChild);
}

bool CLZSSWindow::WriteToken(CZRABitFile& file)
{
    const std::uint32_t nLength = std::min(m_nMatchLen, m_nLookAheadLen);
    if (nLength > BREAK_EVEN)
    {
        m_nLookAheadLen -= nLength;
        return WriteSpan(file, m_nMatchPos, nLength);
    }
    --m_nLookAheadLen;
    constexpr std::uint32_t nLiteral = 1U << 8;
    return file.SetBits(nLiteral | m_Window[m_nCurrPos], 1 + 8);
}

bool CLZSSWindow::WriteSpan(CZRABitFile& file, std::uint32_t nOffset, std::uint32_t nLength)
{
    const std::uint32_t nFinalLength = nLength - SHORTEST_SPAN;
    ZRASSERT(nLength >= (((1 + 12 + 4) / 9) + 1));
    ZRASSERT(nOffset < (1 << 12));
    ZRASSERT(nFinalLength < (1 << 4));
    return file.SetBits(nOffset << kLengthBits | nFinalLength, 1 + kPositionBits + kLengthBits);
}
