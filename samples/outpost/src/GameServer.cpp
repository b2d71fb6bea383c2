// The sample's game server binary, as far as the editor needs it: it tells the build that the game is at.
#include <cstdint>

namespace
{
constexpr std::uint32_t g_nBuildNumber = 7;
}

extern "C" __attribute__((visibility("default"))) std::uint32_t GetBuildNumber()
{
    return g_nBuildNumber;
}
