// Now, in the two fixed forms that the logs and the services share. Local time, no locale.
#pragma once

#include <string>

// "HH:MM:SS".
[[nodiscard]] std::string GetClockTime();
// "MM/DD/YY".
[[nodiscard]] std::string GetClockDate();
