// The services of a run with windows: those of the system, and sounds.
#pragma once

#include "host/SystemServices.h"

#include <memory>
#include <string>

class CModuleFinder;
class QProcess;

class CUiServices final : public CSystemServices
{
public:
    // Neither is owned.
    CUiServices(IFileSystem& files, const CModuleFinder& modules);
    ~CUiServices() override;
    CUiServices(const CUiServices&) = delete;
    CUiServices& operator=(const CUiServices&) = delete;

    // A helper process plays: sound drivers and decoders that crash must not take unsaved work along. A sound
    // ends the one before.
    [[nodiscard]] bool PlaySoundFile(std::u16string_view path) override;
    void Beep() override;

private:
    void StopSound();

    IFileSystem& m_Files;
    const CModuleFinder& m_Modules;
    std::unique_ptr<QProcess> m_pPlayer;
};
