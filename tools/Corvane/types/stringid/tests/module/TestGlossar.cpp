// A library of string tables for tests, which misbehaves as the environment variable CORVANE_TEST_GLOSSAR
// tells: "null", "throw", "refuse", "throw open" or "throw later".
#include "iglossarmgr.h"

#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace
{
int s_nOpen = 0;

bool IsMode(std::string_view mode)
{
    const char* wanted = std::getenv("CORVANE_TEST_GLOSSAR");
    return wanted != nullptr && mode == wanted;
}

void ThrowIn(std::string_view mode)
{
    if (IsMode(mode))
        throw std::runtime_error("as the test wants");
}

class CTestGlossar final : public IGlossarMgr
{
public:
    [[nodiscard]] HGLOSSAR Open(IZRInStream*) override
    {
        ThrowIn("throw open");
        return IsMode("refuse") ? 0 : static_cast<HGLOSSAR>(++s_nOpen);
    }
    void Close(HGLOSSAR) override
    {
        --s_nOpen;
        ThrowIn("throw later");
    }
    [[nodiscard]] bool HasString(HGLOSSAR, const char*) override
    {
        ThrowIn("throw later");
        return true;
    }
    bool ListStrings(HGLOSSAR, const char*, GlossarListFn, void*) override { return false; }
};
} // namespace

extern "C" __attribute__((visibility("default"))) IGlossarMgr* GetIGlossarMgr()
{
    static CTestGlossar glossar;
    ThrowIn("throw");
    return IsMode("null") ? nullptr : &glossar;
}

// How many tables are open.
extern "C" __attribute__((visibility("default"))) int GetOpenCount()
{
    return s_nOpen;
}
