#include "UiServices.h"

#include "FileSystem.h"
#include "Module.h"
#include "Path.h"
#include "QtText.h"

#include <QApplication>
#include <QProcess>

namespace
{
constexpr std::u16string_view kPlayer = u"corvane-sound";
constexpr int kStartWait = 1000; // Milliseconds.
constexpr int kEndWait = 200;
} // namespace

CUiServices::CUiServices(IFileSystem& files, const CModuleFinder& modules)
    : CSystemServices(files), m_Files(files), m_Modules(modules)
{
}

CUiServices::~CUiServices()
{
    StopSound();
}

bool CUiServices::PlaySoundFile(std::u16string_view path)
{
    StopSound();
    SFileInfo info;
    if (!m_Files.GetInfo(path, info).IsOk() || !info.m_bExists || info.m_bDirectory)
        return false;
    // Beside the program or in its module directory, and never in the directory that the user happens to be
    // in.
    const std::u16string player = m_Modules.Find(JoinPath(m_Modules.GetProgramDirectory(), kPlayer));
    if (player.empty())
        return false;
    m_pPlayer = std::make_unique<QProcess>();
    m_pPlayer->setStandardInputFile(QProcess::nullDevice());
    m_pPlayer->setStandardOutputFile(QProcess::nullDevice());
    m_pPlayer->setStandardErrorFile(QProcess::nullDevice());
    m_pPlayer->start(QString::fromStdString(m_Files.GetNativePath(player)),
                     {QString::fromStdString(m_Files.GetNativePath(path))});
    return m_pPlayer->waitForStarted(kStartWait);
}

void CUiServices::StopSound()
{
    if (!m_pPlayer)
        return;
    m_pPlayer->kill();
    m_pPlayer->waitForFinished(kEndWait);
    m_pPlayer.reset();
}

void CUiServices::Beep()
{
    QApplication::beep();
}
