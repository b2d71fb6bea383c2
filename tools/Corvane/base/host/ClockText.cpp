#include "host/ClockText.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace
{
std::tm GetLocalNow()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return local;
}

std::string FormatTriple(const char* format, int first, int second, int third)
{
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), format, first, second, third);
    return text.data();
}
} // namespace

std::string GetClockTime()
{
    const std::tm now = GetLocalNow();
    return FormatTriple("%02d:%02d:%02d", now.tm_hour, now.tm_min, now.tm_sec);
}

std::string GetClockDate()
{
    const std::tm now = GetLocalNow();
    return FormatTriple("%02d/%02d/%02d", now.tm_mon + 1, now.tm_mday, now.tm_year % 100);
}
