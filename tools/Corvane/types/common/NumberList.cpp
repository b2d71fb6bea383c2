#include "common/NumberList.h"

#include "NumberText.h"

namespace
{
template <class T, class Take> void ScanList(std::u16string_view text, std::span<T> values, Take take)
{
    for (T& value : values)
    {
        if (!take(text, value) || text.empty() || text.front() != u',')
            return;
        text.remove_prefix(1);
    }
}
} // namespace

void ScanFloats(std::u16string_view text, std::span<float> values)
{
    ScanList(text, values, TakeFloat);
}

void ScanIntegers(std::u16string_view text, std::span<std::int32_t> values)
{
    ScanList(text, values, TakeInteger);
}
