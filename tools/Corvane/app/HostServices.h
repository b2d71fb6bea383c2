// Passes what is asked of the system on to the services of this run: a user interface, which is there only
// after the command line was read, has services of its own.
#pragma once

#include "host/Services.h"

class CHostServices final : public IServices
{
public:
    // `services` is not owned.
    explicit CHostServices(IServices& services) : m_pServices(&services) {}
    void SetServices(IServices& services) { m_pServices = &services; }

    [[nodiscard]] std::u16string GetTimeText() override { return m_pServices->GetTimeText(); }
    [[nodiscard]] std::u16string GetDateText() override { return m_pServices->GetDateText(); }
    [[nodiscard]] std::u16string GetUserName() override { return m_pServices->GetUserName(); }
    [[nodiscard]] bool OpenInShell(std::u16string_view path) override
    {
        return m_pServices->OpenInShell(path);
    }
    [[nodiscard]] bool OpenLink(std::u16string_view address) override
    {
        return m_pServices->OpenLink(address);
    }
    [[nodiscard]] bool ShowInFolder(std::u16string_view path) override
    {
        return m_pServices->ShowInFolder(path);
    }
    [[nodiscard]] bool PlaySoundFile(std::u16string_view path) override
    {
        return m_pServices->PlaySoundFile(path);
    }
    [[nodiscard]] bool MoveToRecycleBin(std::u16string_view path) override
    {
        return m_pServices->MoveToRecycleBin(path);
    }
    void Beep() override { m_pServices->Beep(); }

private:
    IServices* m_pServices;
};
