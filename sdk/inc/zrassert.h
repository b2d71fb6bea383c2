// Assertion entry shared by the program, its libraries and its modules.
//
// A failed assumption is reported through one function and the program goes on. Nothing happens until a host
// installs a handler: without one an assertion costs a test and a call. The handler's result decides what
// the call site does; see EZRAssertResult.
//
// Threads: the handler is process-wide and installed once at start-up; the per-site flags are not protected.
#pragma once

#include <csignal>
#include <cstdlib>

enum EZRAssertResult : int
{
    ZRASSERT_DEBUG = 1100,    // Break into the debugger.
    ZRASSERT_ABORT = 1101,    // Call abort().
    ZRASSERT_IGNORE = 1102,   // Never report this call site again in this run.
    ZRASSERT_CONTINUE = 1103, // Go on.
};

// All texts are UTF-8 and live only for the call. Returns one of EZRAssertResult.
using ZRAssertHandler = int (*)(const char* expression, const char* file, int line, const char* function,
                                const char* message);

// The expression text of an assertion that has no condition.
inline constexpr const char* kZRForcedAssert = " [Forced Assert]";

namespace zrassert
{
inline ZRAssertHandler& Handler()
{
    static ZRAssertHandler handler = nullptr;
    return handler;
}

// Reports one failure. `siteIgnored` is the call site's own flag.
inline void Fire(bool& siteIgnored, const char* expression, const char* file, int line, const char* function,
                 const char* message)
{
    if (siteIgnored || Handler() == nullptr)
        return;
    switch (Handler()(expression, file, line, function, message))
    {
    case ZRASSERT_DEBUG:
        std::raise(SIGTRAP);
        break;
    case ZRASSERT_ABORT:
        std::abort();
    case ZRASSERT_IGNORE:
        siteIgnored = true;
        break;
    default:
        break;
    }
}
} // namespace zrassert

// Installs a handler (null removes it) and returns the one before.
inline ZRAssertHandler ZRSetAssertHandler(ZRAssertHandler handler)
{
    ZRAssertHandler before = zrassert::Handler();
    zrassert::Handler() = handler;
    return before;
}

// These are macros because a call site needs a flag, a file and a line of its own.
#define ZRASSERT_SITE(expression, message)                                                                   \
    do                                                                                                       \
    {                                                                                                        \
        static bool zrSiteIgnored = false;                                                                   \
        zrassert::Fire(zrSiteIgnored, expression, __FILE__, __LINE__, __func__, message);                    \
    } while (false)

// Reports `condition`'s own text when it does not hold; the code goes on either way.
#define ZRASSERT(condition)                                                                                  \
    do                                                                                                       \
    {                                                                                                        \
        if (!(condition))                                                                                    \
            ZRASSERT_SITE(#condition, "");                                                                   \
    } while (false)

// Reports `message` when `condition` does not hold.
#define ZRASSERT_MSG(condition, message)                                                                     \
    do                                                                                                       \
    {                                                                                                        \
        if (!(condition))                                                                                    \
            ZRASSERT_SITE(#condition, message);                                                              \
    } while (false)

// Reports `message` without a condition.
#define ZRASSERT_FORCED(message) ZRASSERT_SITE(kZRForcedAssert, message)
