#include "CorvaneSession.h"

#include "Path.h"
#include "RegisterTypes.h"
#include "Unicode.h"

#include <csignal>

namespace
{
// Installed programs keep their modules in ../lib/corvane, a build directory in ../lib.
std::u16string GetModuleDirectory(IFileSystem& files)
{
    const std::u16string libraries = ResolvePath(GetProgramDirectory(), u"../lib");
    const std::u16string own = JoinPath(libraries, u"corvane");
    return files.IsDirectory(own) ? own : libraries;
}
} // namespace

CCorvaneSession::CCorvaneSession(IQuestions& questions)
    : m_AssertLog(ToNarrow(GetProgramFile())), m_Services(m_Files), m_Profile(m_Files, GetProfilePath()),
      m_Modules(m_Files, GetProgramDirectory(), GetModuleDirectory(m_Files)),
      m_Context{m_Files, questions, m_HostServices, m_Run, m_Profile, m_Modules}, m_Undo(m_HostServices),
      m_Manager(m_Context, m_Types, m_AttribData, m_Gate, m_Undo)
{
    m_AssertLog.Install();
    RegisterCorvaneTypes(m_Types, m_AttribData);
    std::signal(SIGXFSZ, SIG_IGN);
}

CCorvaneSession::~CCorvaneSession() = default;

bool CCorvaneSession::BeginClose()
{
    m_Run.Set(APP_CLOSING);
    if (m_Manager.AskSaveChanges())
        return true;
    // A run that goes on must ask its user again.
    m_Run.Set(APP_CLOSING, false);
    return false;
}
