// The user's interrupt (SIGINT) as a wish to cancel. Progress without a window reports it at its next pump,
// so that long work ends at a point where it can clean up after itself.
#pragma once

class CInterrupt
{
public:
    // From now on the first interrupt is kept; a second one ends the process as the system has it. A run that
    // was started to ignore interrupts goes on ignoring them.
    static void Install();
    [[nodiscard]] static bool IsRaised();
};
