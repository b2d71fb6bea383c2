// Walks over the lines of a text, finding what matters to a line parser many units at a time.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// Which of a block's units are what; bit 0 is the first unit.
struct SLineMarks
{
    std::uint64_t ends = 0;   // CR, LF and 0xFFFF.
    std::uint64_t equals = 0; // '='.
    std::uint64_t lasts = 0;  // 0xFFFF.
    std::uint64_t zeros = 0;
};

inline constexpr std::size_t kLineBlock = 64;

// A line that is not empty, without what ends it; offsets into the text.
struct SScannedLine
{
    std::size_t begin = 0;
    std::size_t equals = 0; // The first '='; at `end` or behind it when the line has none.
    std::size_t end = 0;
    bool mayHoldZero = false; // False when no unit of the text so far is zero.
};

// The definition of the marks, for systems without vector instructions.
inline SLineMarks FindLineMarksPlainly(const char16_t* units)
{
    SLineMarks marks;
    for (unsigned i = 0; i < kLineBlock; ++i)
    {
        const char16_t unit = units[i];
        marks.ends |= std::uint64_t{unit == u'\r' || unit == u'\n' || unit == 0xFFFF} << i;
        marks.equals |= std::uint64_t{unit == u'='} << i;
        marks.lasts |= std::uint64_t{unit == 0xFFFF} << i;
        marks.zeros |= std::uint64_t{unit == 0} << i;
    }
    return marks;
}

#if defined(__SSE2__)
// One bit for each of 16 bytes that equals `byte`.
inline std::uint64_t FindByte(__m128i bytes, char byte)
{
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(byte))));
}

inline std::uint64_t FindUnit(const __m128i* lanes, char16_t unit)
{
    const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
    const __m128i low = _mm_cmpeq_epi16(_mm_loadu_si128(lanes), wanted);
    const __m128i high = _mm_cmpeq_epi16(_mm_loadu_si128(lanes + 1), wanted);
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
}

// `units` holds kLineBlock units. Narrowed with saturation, a unit keeps its value below 256 and becomes 255
// or, from 0x8000 on, zero. So the common ends and '=' are told by their bytes, and a block without a zero
// byte holds neither a zero unit nor a 0xFFFF.
inline SLineMarks FindLineMarks(const char16_t* units)
{
    const auto* lanes = reinterpret_cast<const __m128i*>(units);
    SLineMarks marks;
    __m128i least = _mm_set1_epi8(-1);
    for (unsigned i = 0; i < 4; ++i)
    {
        const __m128i bytes =
            _mm_packus_epi16(_mm_loadu_si128(lanes + 2 * i), _mm_loadu_si128(lanes + 2 * i + 1));
        const __m128i returns = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\r'));
        const __m128i feeds = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n'));
        const int ends = _mm_movemask_epi8(_mm_or_si128(returns, feeds));
        marks.ends |= std::uint64_t{static_cast<std::uint32_t>(ends)} << (16 * i);
        marks.equals |= FindByte(bytes, '=') << (16 * i);
        least = _mm_min_epu8(least, bytes);
    }
    if (FindByte(least, 0) == 0)
        return marks;
    for (unsigned i = 0; i < 4; ++i)
    {
        marks.lasts |= FindUnit(lanes + 2 * i, 0xFFFF) << (16 * i);
        marks.zeros |= FindUnit(lanes + 2 * i, 0) << (16 * i);
    }
    marks.ends |= marks.lasts;
    return marks;
}
#else
inline SLineMarks FindLineMarks(const char16_t* units)
{
    return FindLineMarksPlainly(units);
}
#endif

// The marks of a last block of fewer units; what is missing counts as line ends.
[[nodiscard]] SLineMarks FindLineMarks(std::u16string_view rest);

// Cuts a text into lines, a block at a time.
template <class Take> class CLineWalker
{
public:
    explicit CLineWalker(Take take) : m_Take(take) {}

    // False when a 0xFFFF at the start of a line ends the text.
    [[nodiscard]] bool WalkBlock(std::size_t block, SLineMarks marks)
    {
        m_Line.mayHoldZero = m_Line.mayHoldZero || marks.zeros != 0;
        const std::uint64_t stops = marks.lasts & BehindEnds(marks);
        if (stops != 0)
            marks.ends |= ~std::uint64_t{0} << std::countr_zero(stops);
        if (IsInLine() && m_Line.equals >= block)
            m_Line.equals = FindEquals(block, marks, 0);
        WalkEdges(block, marks);
        m_nWasEnd = marks.ends >> (kLineBlock - 1);
        return stops == 0;
    }

private:
    // One bit for each unit whose neighbour in front is an end.
    std::uint64_t BehindEnds(const SLineMarks& marks) const { return marks.ends << 1U | m_nWasEnd; }
    bool IsInLine() const { return m_nWasEnd == 0; }

    // The first '=' of the block from one of its units on, or the next block's start.
    static std::size_t FindEquals(std::size_t block, const SLineMarks& marks, int from)
    {
        const std::uint64_t left = marks.equals & (~std::uint64_t{0} << from);
        return block + static_cast<std::size_t>(std::countr_zero(left));
    }

    // Where ends and other units meet, a line begins or ends, in turn.
    void WalkEdges(std::size_t block, const SLineMarks& marks)
    {
        SScannedLine line = m_Line;
        bool isInLine = IsInLine();
        for (std::uint64_t edges = marks.ends ^ BehindEnds(marks); edges != 0; edges &= edges - 1)
        {
            if (!isInLine)
            {
                const int begin = std::countr_zero(edges);
                line.begin = block + static_cast<std::size_t>(begin);
                line.equals = FindEquals(block, marks, begin);
                edges &= edges - 1;
                if (edges == 0)
                    break;
            }
            line.end = block + static_cast<std::size_t>(std::countr_zero(edges));
            m_Take(line);
            isInLine = false;
        }
        m_Line = line;
    }

    Take m_Take;
    SScannedLine m_Line;
    // Whether the unit in front of the block is an end; the text begins as behind one.
    std::uint64_t m_nWasEnd = 1;
};

// Calls `take` with each SScannedLine of the text. A 0xFFFF at the start of a line ends the text. The last
// block is one of fewer units, perhaps of none: the ends that fill it up close the last line.
template <class Take> void ForEachLine(std::u16string_view text, Take take)
{
    CLineWalker<Take> walker(take);
    for (std::size_t block = 0;; block += kLineBlock)
    {
        const bool isWhole = text.size() - block >= kLineBlock;
        const SLineMarks marks =
            isWhole ? FindLineMarks(text.data() + block) : FindLineMarks(text.substr(block));
        if (!walker.WalkBlock(block, marks) || !isWhole)
            return;
    }
}
