#include "AllocationCount.h"

#include <atomic>
#include <cstddef>

namespace
{
std::atomic<bool> g_bCounting{false};
std::atomic<std::uint64_t> g_nBlocks{0};

void CountBlock()
{
    if (g_bCounting.load(std::memory_order_relaxed))
        g_nBlocks.fetch_add(1, std::memory_order_relaxed);
}
} // namespace

#ifdef CORVANE_SANITIZED

// A sanitizer's heap stands in the place of the system's, and tells of each block itself. Not every compiler
// brings the header that declares it.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*onMalloc)(const volatile void*, std::size_t),
                                                         void (*onFree)(const volatile void*));

namespace
{
void OnBlock(const volatile void*, std::size_t)
{
    CountBlock();
}

void OnFree(const volatile void*) {}

const int g_nInstalled = __sanitizer_install_malloc_and_free_hooks(OnBlock, OnFree);
} // namespace

#else

// The program's own entries come before the C library's for every caller in the process. They ask the C
// library's heap in turn, so that its other entries, free among them, stay as they are.
extern "C"
{
    void* __libc_malloc(std::size_t size) noexcept;
    void* __libc_calloc(std::size_t count, std::size_t size) noexcept;
    void* __libc_realloc(void* block, std::size_t size) noexcept;

    __attribute__((visibility("default"))) void* malloc(std::size_t size) noexcept
    {
        CountBlock();
        return __libc_malloc(size);
    }

    __attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size) noexcept
    {
        CountBlock();
        return __libc_calloc(count, size);
    }

    __attribute__((visibility("default"))) void* realloc(void* block, std::size_t size) noexcept
    {
        CountBlock();
        return __libc_realloc(block, size);
    }
}

#endif

CAllocationCount::CAllocationCount()
{
    g_nBlocks = 0;
    g_bCounting = true;
}

CAllocationCount::~CAllocationCount()
{
    g_bCounting = false;
}

std::uint64_t CAllocationCount::Take()
{
    return g_nBlocks.exchange(0);
}
