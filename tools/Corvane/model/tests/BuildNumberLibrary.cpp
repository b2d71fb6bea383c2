// A game library as small as it can be. It writes a mark for each time that it is loaded, so that a test can
// count. The number is the build's; see the build file.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace
{
struct CLoadMark
{
    CLoadMark()
    {
        const char* path = std::getenv("CORVANE_TEST_LOADS");
        std::FILE* file = path != nullptr ? std::fopen(path, "ab") : nullptr;
        if (file == nullptr)
            return;
        std::fputc('x', file);
        std::fclose(file);
    }
} g_LoadMark;
} // namespace

extern "C" __attribute__((visibility("default"))) std::uint32_t GetBuildNumber()
{
    return CORVANE_TEST_BUILD;
}
