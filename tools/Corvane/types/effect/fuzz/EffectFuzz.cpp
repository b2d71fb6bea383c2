// Feeds arbitrary bytes to the reader of effect files. What it reads must be written and read again as the
// same, and a fault must leave the caller's list alone.
#include "../tests/EffectBytes.h"
#include "Unicode.h"
#include "effect/EffectFile.h"

#include <cstdlib>

namespace
{
void Require(bool condition)
{
    if (!condition)
        std::abort();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // A name may be another one's tail and a bad byte becomes three good ones: what a longer input holds
    // might be too long when it is written out.
    constexpr std::size_t kLongest = 4096;
    if (size > kLongest)
        return 0;
    const std::vector<std::u16string> before = {u"before"};
    std::vector<std::u16string> names = before;
    if (ReadEffectNames(std::as_bytes(std::span(data, size)), names) != EEffectFile::Read)
    {
        Require(names == before);
        return 0;
    }
    std::vector<std::string> narrow;
    for (std::size_t i = 1; i < names.size(); ++i)
        narrow.push_back(ToNarrow(names[i]));
    const std::string written = MakeEffectFile(narrow);
    std::vector<std::u16string> again = before;
    Require(ReadEffectNames(std::as_bytes(std::span(written)), again) == EEffectFile::Read);
    Require(again == names);
    return 0;
}
