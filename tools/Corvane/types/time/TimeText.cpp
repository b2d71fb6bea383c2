#include "time/TimeText.h"

#include "FormatText.h"

std::u16string FormatTimeLong(std::int32_t milliseconds)
{
    // The lowest time has no positive counterpart in 32 bits.
    const std::int64_t total = milliseconds < 0 ? -std::int64_t{milliseconds} : std::int64_t{milliseconds};
    const std::int64_t hours = total / 3600000;
    const std::int64_t minutes = total / 60000 % 60;
    const std::int64_t seconds = total / 1000 % 60;
    return FormatText(u"%s %dh : %.2dm : %.2ds : %.3dms", milliseconds < 0 ? u"-" : u"", hours, minutes,
                      seconds, total % 1000);
}

std::u16string FormatTimeShort(std::int32_t milliseconds)
{
    return FormatText(u"%d ms", milliseconds);
}
