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

// Compares as many bytes as the longest span has, eight at a time. Returns how many are equal from the first
// on; `bLess` tells whether `pA` is below `pB` at the first difference.
std::uint32_t Compare(const std::uint8_t* pA, const std::uint8_t* pB, bool& bLess)
{
    static_assert(CLZSSWindow::LONGEST_SPAN == 2 * sizeof(std::uint64_t) + 1);
    for (std::uint32_t i = 0; i < CLZSSWindow::LONGEST_SPAN - 1; i += sizeof(std::uint64_t))
    {
        const std::uint64_t nA = LoadBigEndian(pA + i);
        const std::uint64_t nB = LoadBigEndian(pB + i);
        bLess = nA < nB;
        if (nA != nB)
            return i + static_cast<std::uint32_t>(std::countl_zero(nA ^ nB)) / 8;
    }
    constexpr std::uint32_t nLast = CLZSSWindow::LONGEST_SPAN - 1;
    bLess = pA[nLast] < pB[nLast];
    return nLast + (pA[nLast] == pB[nLast] ? 1 : 0);
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
    std::uint32_t nMatchLen = 0;
    std::uint32_t nNextNode = m_Tree[ROOT].m_nLarger;
    ZRASSERT(nNextNode != 0);
    std::uint32_t nCurrNode = 0;
    bool bLess = false;
    while (nNextNode != 0)
    {
        nCurrNode = nNextNode;
        const std::uint32_t nEqual = Compare(&m_Window[nNode], &m_Window[nCurrNode], bLess);
        if (nEqual > nMatchLen)
        {
            nMatchLen = nEqual;
            m_nMatchPos = nCurrNode;
            if (nEqual >= LONGEST_SPAN)
                break;
        }
        nNextNode = bLess ? m_Tree[nCurrNode].m_nSmaller : m_Tree[nCurrNode].m_nLarger;
    }
    m_nMatchLen = nMatchLen;
    if (nMatchLen >= LONGEST_SPAN)
        return ReplaceNode(nCurrNode, nNode);
    SNode& node = m_Tree[nCurrNode];
    (bLess ? node.m_nSmaller : node.m_nLarger) = static_cast<std::uint16_t>(nNode);
    m_Tree[nNode] = {static_cast<std::uint16_t>(nCurrNode), 0, 0};
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
