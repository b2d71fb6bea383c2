// The one comparison of names, beside a loop that folds every unit.
#include "NameCompare.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace
{
// Equal but for the case of every letter, so that a comparison goes to the end.
constexpr std::u16string_view kAscii[] = {u"Foes.Hollow.Frost.Shambler", u"fOES.hOLLOW.fROST.sHAMBLER"};
constexpr std::u16string_view kOther[] = {u"Foes.Höllow.Frost.Shambler", u"fOES.hÖLLOW.fROST.sHAMBLER"};

int CompareUnitByUnit(std::u16string_view a, std::u16string_view b)
{
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i)
    {
        const int difference = FoldUnit(a[i]) - FoldUnit(b[i]);
        if (difference != 0)
            return difference;
    }
    return static_cast<int>(a.size()) - static_cast<int>(b.size());
}

template <class Compare>
void RunCompare(benchmark::State& state, const std::u16string_view (&names)[2], Compare compare)
{
    std::u16string_view a = names[0];
    std::u16string_view b = names[1];
    for ([[maybe_unused]] auto _ : state)
    {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(b);
        benchmark::DoNotOptimize(compare(a, b));
    }
}
BENCHMARK_CAPTURE(RunCompare, ascii, kAscii, ZRStrICmp);
BENCHMARK_CAPTURE(RunCompare, ascii_unit_by_unit, kAscii, CompareUnitByUnit);
BENCHMARK_CAPTURE(RunCompare, other, kOther, ZRStrICmp);
BENCHMARK_CAPTURE(RunCompare, other_unit_by_unit, kOther, CompareUnitByUnit);

void Hash(benchmark::State& state, std::u16string_view name)
{
    for ([[maybe_unused]] auto _ : state)
    {
        benchmark::DoNotOptimize(name);
        benchmark::DoNotOptimize(HashName(name));
    }
}
BENCHMARK_CAPTURE(Hash, ascii, kAscii[0]);
BENCHMARK_CAPTURE(Hash, other, kOther[0]);
} // namespace
