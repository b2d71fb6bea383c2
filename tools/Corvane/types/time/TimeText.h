// A time as people read it. Times are signed milliseconds.
#pragma once

#include <cstdint>
#include <string>

// "- 0h : 00m : 01s : 500ms"; a time that is not negative begins with the blank behind the missing sign.
[[nodiscard]] std::u16string FormatTimeLong(std::int32_t milliseconds);
// "-1500 ms".
[[nodiscard]] std::u16string FormatTimeShort(std::int32_t milliseconds);
