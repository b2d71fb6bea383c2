// The compressor's memory: a ring of the last bytes, and a binary tree of the places in it where a repeat may
// begin, ordered by the bytes that stand there.
//
// The tokens that it makes are part of the file format, bit for bit: which of several equally long repeats is
// taken follows from the tree's shape, so that every step of it is fixed. One object for one thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

class CZRABitFile;

class CLZSSWindow
{
public:
    static constexpr std::uint32_t WINDOW_SIZE = 1 << 12;
    static constexpr std::uint32_t BREAK_EVEN = (1 + 12 + 4) / 9;
    static constexpr std::uint32_t SHORTEST_SPAN = BREAK_EVEN + 1;
    static constexpr std::uint32_t LONGEST_SPAN = (1 << 4) + BREAK_EVEN;

    // Forgets everything: the next byte is the first of a stream.
    void Reset();
    // Takes one byte and writes the token that is due by it. False when that could not be written; the byte
    // is taken all the same.
    [[nodiscard]] bool AddByte(std::uint8_t nValue, CZRABitFile& file);
    // Writes the bytes that are left, one by one, and the end token.
    [[nodiscard]] bool Finish(CZRABitFile& file);

    // Bytes of all streams of this process that are finished; for diagnostics.
    [[nodiscard]] static std::uint64_t GetTotalBytes();

private:
    // Ring position n has node n. Position 0 takes no part, so that 0 stands for "none" in a link and for the
    // end in a span.
    struct SNode
    {
        std::uint16_t m_nParent; // 0: not in the tree.
        std::uint16_t m_nSmaller;
        std::uint16_t m_nLarger;
    };
    static constexpr std::uint32_t ROOT = WINDOW_SIZE; // A sentinel; the tree hangs at its larger side.

    void AddNode(std::uint32_t nNode);
    void DeleteNode(std::uint32_t nNode);
    void CollapseNode(std::uint32_t nNode, std::uint32_t nChild);
    void ReplaceNode(std::uint32_t nNode, std::uint32_t nNewNode);
    void SetChildOfParent(std::uint32_t nNode, std::uint32_t nChild);
    [[nodiscard]] bool WriteToken(CZRABitFile& file);
    [[nodiscard]] bool WriteSpan(CZRABitFile& file, std::uint32_t nOffset, std::uint32_t nLength);

    // The bytes behind the ring's end repeat its first ones, so that a comparison never wraps.
    std::array<std::uint8_t, WINDOW_SIZE + LONGEST_SPAN> m_Window{};
    std::array<SNode, WINDOW_SIZE + 1> m_Tree{};
    std::uint32_t m_nLookAheadLen = 0; // Bytes in the ring that no token stands for yet.
    std::uint32_t m_nCurrPos = 1;
    std::uint32_t m_nMatchLen = 0; // The longest repeat at the current position.
    std::uint32_t m_nMatchPos = 0;
    bool m_bPrimed = false; // The look-ahead has been full.
    std::uint64_t m_nBytes = 0;
};
