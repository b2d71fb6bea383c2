// The services of the operating system and its desktop, through GIO.
#pragma once

#include "host/Services.h"

class IFileSystem;

class CSystemServices : public IServices
{
public:
    // `files` is not owned; it turns path texts into the system's.
    explicit CSystemServices(IFileSystem& files) : m_Files(files) {}

    [[nodiscard]] std::u16string GetTimeText() override;
    [[nodiscard]] std::u16string GetDateText() override;
    [[nodiscard]] std::u16string GetUserName() override;
    [[nodiscard]] bool OpenInShell(std::u16string_view path) override;
    [[nodiscard]] bool OpenLink(std::u16string_view address) override;
    [[nodiscard]] bool ShowInFolder(std::u16string_view path) override;
    // The core has no sound output: false. An interactive host derives its own services to play.
    [[nodiscard]] bool PlaySoundFile(std::u16string_view path) override;
    [[nodiscard]] bool MoveToRecycleBin(std::u16string_view path) override;
    void Beep() override;

private:
    IFileSystem& m_Files;
};
