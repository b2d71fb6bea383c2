// What the core asks of the system around it, besides files: time, the user, the shell, the recycle bin.
#pragma once

#include <string>
#include <string_view>

class IServices
{
public:
    virtual ~IServices() = default;
    // "HH:MM:SS" and "MM/DD/YY" of now, local time.
    [[nodiscard]] virtual std::u16string GetTimeText() = 0;
    [[nodiscard]] virtual std::u16string GetDateText() = 0;
    [[nodiscard]] virtual std::u16string GetUserName() = 0;
    // Opens a file with the program that the desktop has for it. False when there is none.
    [[nodiscard]] virtual bool OpenInShell(std::u16string_view path) = 0;
    // Opens an address in the desktop's browser. Callers hand on what begins with http or https only. False
    // when there is none.
    [[nodiscard]] virtual bool OpenLink(std::u16string_view address) = 0;
    // Shows a file's directory in the desktop's file manager, with the file selected where that can do so. A
    // file that does not exist gives its directory alone. False when nothing could be shown.
    [[nodiscard]] virtual bool ShowInFolder(std::u16string_view path) = 0;
    // Plays a sound file without waiting for its end. False when it is missing or nothing can play it.
    [[nodiscard]] virtual bool PlaySoundFile(std::u16string_view path) = 0;
    // Sends a file to the user's recycle bin. False leaves it where it is.
    [[nodiscard]] virtual bool MoveToRecycleBin(std::u16string_view path) = 0;
    // The short sound for "nothing to do".
    virtual void Beep() = 0;
};
