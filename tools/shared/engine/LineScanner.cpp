#include "LineScanner.h"

#include <algorithm>
#include <array>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#if defined(__SSE2__)
namespace
{
// Eight 16-bit lanes each, the first units in `low`.
struct SHalf
{
    __m128i low;
    __m128i high;
};

SHalf Load(const char16_t* units)
{
    const auto* lanes = reinterpret_cast<const __m128i*>(units);
    return {_mm_loadu_si128(lanes), _mm_loadu_si128(lanes + 1)};
}

// One bit for each of 16 lanes whose mask is set.
std::uint32_t ToBits(__m128i low, __m128i high)
{
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
}

std::uint32_t FindUnit(const SHalf& half, char16_t unit)
{
    const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
    return ToBits(_mm_cmpeq_epi16(half.low, wanted), _mm_cmpeq_epi16(half.high, wanted));
}

__m128i EndMask(__m128i lanes)
{
    const __m128i cr = _mm_cmpeq_epi16(lanes, _mm_set1_epi16('\r'));
    const __m128i lf = _mm_cmpeq_epi16(lanes, _mm_set1_epi16('\n'));
    const __m128i last = _mm_cmpeq_epi16(lanes, _mm_set1_epi16(-1));
    return _mm_or_si128(_mm_or_si128(cr, lf), last);
}

SLineMarks MarkHalf(const SHalf& half)
{
    return {ToBits(EndMask(half.low), EndMask(half.high)), FindUnit(half, u'='), FindUnit(half, u'\0')};
}
} // namespace

SLineMarks FindLineMarks(const char16_t* units)
{
    const SLineMarks first = MarkHalf(Load(units));
    const SLineMarks second = MarkHalf(Load(units + kLineBlock / 2));
    return {first.ends | second.ends << 16U, first.equals | second.equals << 16U,
            first.zeros | second.zeros << 16U};
}
#else
SLineMarks FindLineMarks(const char16_t* units)
{
    SLineMarks marks;
    for (unsigned i = 0; i < kLineBlock; ++i)
    {
        const char16_t unit = units[i];
        marks.ends |= std::uint32_t{unit == u'\r' || unit == u'\n' || unit == 0xFFFF} << i;
        marks.equals |= std::uint32_t{unit == u'='} << i;
        marks.zeros |= std::uint32_t{unit == 0} << i;
    }
    return marks;
}
#endif

SLineMarks FindLineMarks(std::u16string_view rest)
{
    std::array<char16_t, kLineBlock> block;
    block.fill(u' ');
    std::copy(rest.begin(), rest.end(), block.begin());
    return FindLineMarks(block.data());
}
